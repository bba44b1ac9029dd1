#include "generator/VRKPrintHPGL2Generator.h"

#include <new>

#include "host/core/VRKClassRegistration.h"
#include "host/core/VRKFont.h"
#include "properties/VRKPrintHPGL2Properties.h"

VRK_DEFINE_CLASS(VRKPrintHPGL2Generator, VRKPrintFileGenerator, "VRKNull", "Print")

namespace {

const VRKClassRegistration registration({
    "VRKPrintHPGL2Generator",
    "Print",
    &fctCreateVRKPrintHPGL2Generator,
    "HPGL2",
    "HP-GL/2 for large-format printers: encoded vectors, palette colours, polygon fills, "
    "raster images",
});

}  // namespace

VRKBaseUnknown* fctCreateVRKPrintHPGL2Generator() {
    return new (std::nothrow) VRKPrintHPGL2Generator("HPGL2");
}

VRKPrintHPGL2Generator::VRKPrintHPGL2Generator(const VRKString& language)
    : VRKPrintFileGenerator(language), properties(new (std::nothrow) VRKPrintHPGL2Properties) {
    if (properties != nullptr) {
        hpglSettings = properties->GetHPGLProperties();
    }
    // The plotter has a stick font that stands in for the host's default font, unless the host's
    // default font is its own Swiss outline and the host is not drawing text as geometry anyway.
    hostDrawsDefaultFont =
        (GetTextAsGeometry() == 0 && VRKFont::GetDefaultFontFileName() == "Swiss.pfb") ? 0 : 1;
}

VRKPrintHPGL2Generator::~VRKPrintHPGL2Generator() {
    if (properties != nullptr) {
        properties->Release();
        properties = nullptr;
    }
    hpglSettings = nullptr;
}

VRKBaseUnknown* VRKPrintHPGL2Generator::GetProperties() {
    return properties;
}

void VRKPrintHPGL2Generator::Attach(VRKPrintStream* stream) {
    VRKPrintFileGenerator::Attach(stream);
}
