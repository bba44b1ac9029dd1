#include "hpgl/VRKPrintHPGLGenerator.h"

#include <new>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKClassRegistration.h"
#include "host/core/VRKPrintStream.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKPrintHPGLGenerator, VRKPrintFileGenerator, "VRKNull", "Print")

namespace {

const VRKClassRegistration registration({
    "VRKPrintHPGLGenerator",
    "Print",
    &fctCreateVRKPrintHPGLGenerator,
    "HPGL",
    "HP-GL for pen plotters: physical pens, thick lines as parallel strokes, hatched fills",
});

}  // namespace

VRKBaseUnknown* fctCreateVRKPrintHPGLGenerator() {
    return new (std::nothrow) VRKPrintHPGLGenerator;
}

VRKPrintHPGLGenerator::VRKPrintHPGLGenerator()
    : VRKPrintFileGenerator("HPGL"), inner(new (std::nothrow) VRKPrintHPGL2Generator("HPGL2")) {
    if (inner != nullptr && inner->properties != nullptr) {
        inner->properties->SetType(1);
        hpglProperties = inner->properties->GetHPGLProperties();
    }
    privateData = nullptr;
}

VRKPrintHPGLGenerator::~VRKPrintHPGLGenerator() {
    if (inner != nullptr) {
        inner->Release();
        inner = nullptr;
    }
    privateData = nullptr;
    hpglProperties = nullptr;
}

VRKBaseUnknown* VRKPrintHPGLGenerator::GetProperties() {
    return hpglProperties;
}

void VRKPrintHPGLGenerator::Attach(VRKPrintStream* stream) {
    VRKPrintFileGenerator::Attach(stream);
    if (inner != nullptr) {
        inner->Attach(stream);
    }
    privateData = stream != nullptr ? stream->GetPrivateData() : nullptr;
}

void VRKPrintHPGLGenerator::DrvBegin(const VRKPrintParameters& params) {
    if (inner != nullptr) {
        inner->hpglJobStart(params);
    }
}

void VRKPrintHPGLGenerator::DrvEnd() {
    if (inner != nullptr) {
        inner->hpgl.JobEnd(inner->out());
    }
}

// A pen plotter has no page to advance and no raster.
void VRKPrintHPGLGenerator::DrvFormFeed() {}
void VRKPrintHPGLGenerator::DrvDrawBitmap(float /*x*/, float /*y*/,
                                          const VRKPixelImage* /*image*/) {}

void VRKPrintHPGLGenerator::DrvMoveTo(float x, float y) {
    if (inner != nullptr) {
        inner->DrvMoveTo(x, y);
    }
}

void VRKPrintHPGLGenerator::DrvLineTo(float x, float y) {
    if (inner != nullptr) {
        inner->DrvLineTo(x, y);
    }
}

void VRKPrintHPGLGenerator::DrvFillArea(int nbPolygons, const int* nbPoints, const float* points) {
    if (inner != nullptr) {
        inner->DrvFillArea(nbPolygons, nbPoints, points);
    }
}

void VRKPrintHPGLGenerator::DrvDefineColor(int index, float r, float g, float b) {
    if (inner != nullptr) {
        inner->hpgl.DefineColor(index, r, g, b);
    }
}

void VRKPrintHPGLGenerator::DrvSelectDrawColor(int index) {
    if (inner != nullptr) {
        inner->DrvSelectDrawColor(index);
    }
}

void VRKPrintHPGLGenerator::DrvSelectFillColor(int index) {
    if (inner != nullptr) {
        inner->DrvSelectFillColor(index);
    }
}

void VRKPrintHPGLGenerator::DrvSetDrawWidth(float width) {
    if (inner != nullptr) {
        inner->DrvSetDrawWidth(width);
    }
}

void VRKPrintHPGLGenerator::DrvSetPolygonFillRule(int rule) {
    VRKPrintFileGenerator::DrvSetPolygonFillRule(rule);
    if (inner != nullptr) {
        inner->DrvSetPolygonFillRule(rule);
    }
}
