// Micro-benchmarks of settings files: a full pen table written as XML and read back, through the
// HP-GL generator's settings interface, as a host saves and restores a pen plotter's settings.

#include <benchmark/benchmark.h>

#include <string>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKIPrtGeneratorProperties.h"
#include "host/core/VRKSmartRef.h"
#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "hpgl/VRKPrintHPGLGenerator.h"

namespace {

VRKSmartRef<VRKIPrtGeneratorProperties> penTableSettings(VRKSmartRef<VRKBaseUnknown>& generator) {
    generator = VRKSmartRef<VRKBaseUnknown>::Adopt(fctCreateVRKPrintHPGLGenerator());
    return VRKQueryInterface<VRKIPrtGeneratorProperties>(generator.get());
}

// The 32-pen table to an element and the element to text.
void BM_PenTableWriteXml(benchmark::State& state) {
    VRKSmartRef<VRKBaseUnknown> generator;
    VRKSmartRef<VRKIPrtGeneratorProperties> settings = penTableSettings(generator);
    std::size_t bytes = 0;
    for (auto _ : state) {
        VRKLightXmlElement element;
        settings->WriteToXml(element);
        const std::string text = VRKLightXmlFile::ToText(element);
        bytes = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_PenTableWriteXml);

// Text to an element and the element into the generator's pen table.
void BM_PenTableReadXml(benchmark::State& state) {
    VRKSmartRef<VRKBaseUnknown> generator;
    VRKSmartRef<VRKIPrtGeneratorProperties> settings = penTableSettings(generator);
    VRKLightXmlElement written;
    settings->WriteToXml(written);
    const std::string text = VRKLightXmlFile::ToText(written);
    std::string error;
    for (auto _ : state) {
        VRKLightXmlElement element;
        if (!VRKLightXmlFile::Parse(text, element, error) ||
            settings->ReadFromXml(element) != S_OK) {
            state.SkipWithError("the pen table did not read back");
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_PenTableReadXml);

}  // namespace
