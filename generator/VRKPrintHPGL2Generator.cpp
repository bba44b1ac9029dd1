#include "generator/VRKPrintHPGL2Generator.h"

#include <cstring>
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
    : VRKPrintFileGenerator(language),
      properties(new (std::nothrow) VRKPrintHPGL2Properties),
      penRed(new (std::nothrow) float[256]),
      penGreen(new (std::nothrow) float[256]),
      penBlue(new (std::nothrow) float[256]) {
    if (properties != nullptr) {
        hpglSettings = properties->GetHPGLProperties();
    }
    // Only the first 256 bytes of each table (colours 0 to 63) are cleared; the rest start
    // undefined. The HP-GL dialect defines every colour it reads, so this has always been enough,
    // and the tables are kept as they have always been set up.
    for (float* table : {penRed, penGreen, penBlue}) {
        if (table != nullptr) {
            std::memset(table, 0, 256);
        }
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
    delete[] penRed;
    delete[] penGreen;
    delete[] penBlue;
    penRed = penGreen = penBlue = nullptr;
    delete[] tableRed;
    delete[] tableGreen;
    delete[] tableBlue;
    delete[] tableThickness;
    delete[] tableEnabled;
    tableRed = tableGreen = tableBlue = tableThickness = nullptr;
    tableEnabled = nullptr;
}

VRKBaseUnknown* VRKPrintHPGL2Generator::GetProperties() {
    return properties;
}

void VRKPrintHPGL2Generator::Attach(VRKPrintStream* stream) {
    VRKPrintFileGenerator::Attach(stream);
}
