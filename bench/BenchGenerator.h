#pragma once

#include <cstddef>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKPrintStream.h"
#include "properties/VRKPrintHPGL2Properties.h"

// A print stream that counts the bytes and drops them, so that a benchmark measures the
// generator and not the disk or a growing string.
class CountingStream final : public VRKPrintStream {
  public:
    CountingStream() : VRKPrintStream(std::size_t{1} << 18) {}
    std::size_t Count() const { return count_; }

  protected:
    bool Sink(const char* /*data*/, std::size_t size) override {
        count_ += size;
        return true;
    }

  private:
    std::size_t count_ = 0;
};

// An HP-GL/2 generator writing to a counting stream, with the routines the benchmarks time
// directly open to them.
class BenchGenerator : public VRKPrintHPGL2Generator {
  public:
    BenchGenerator() : VRKPrintHPGL2Generator("HPGL2") { Attach(&stream); }
    ~BenchGenerator() override { Attach(nullptr); }

    // Switches the record to the HP-GL dialect (before Begin).
    void UseHPGL() { properties->SetType(1); }

    using VRKPrintHPGL2Generator::hpgl;

    CountingStream stream;
};

// Print parameters of an A0 portrait form, the form of the standard workloads.
inline VRKPrintParameters A0Parameters() {
    VRKPrintParameters params;
    params.SetForm(VRKPrintForm(841.0f, 1189.0f, 1));
    return params;
}
