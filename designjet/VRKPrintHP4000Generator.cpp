#include "designjet/VRKPrintHP4000Generator.h"

#include <new>
#include <string>

#include "host/core/VRKClassRegistration.h"

VRK_DEFINE_CLASS(VRKPrintHP4000Generator, VRKPrintHPGL2Generator, "VRKNull", "Print")

namespace {

const VRKClassRegistration registration({
    "VRKPrintHP4000Generator",
    "Print",
    &fctCreateVRKPrintHP4000Generator,
    "HP4000GL2",
    "HP-GL/2 in a PJL job for DesignJet 4000 series printers",
});

const char* resolutionOf(int code) {
    switch (code) {
        case 0:
            return "300";
        case 2:
            return "1200";
        default:
            return "600";
    }
}

const char* printQualityOf(int code) {
    switch (code) {
        case 0:
            return "DRAFT";
        case 2:
            return "HIGH";
        default:
            return "NORMAL";
    }
}

const char* renderModeOf(int colorMode) {
    switch (colorMode) {
        case 2:
            return "TRUEBLACK";
        case 1:
            return "GRAYSCALE";
        default:
            return "COLOR";
    }
}

}  // namespace

VRKBaseUnknown* fctCreateVRKPrintHP4000Generator() {
    return new (std::nothrow) VRKPrintHP4000Generator;
}

VRKPrintHP4000Generator::VRKPrintHP4000Generator()
    : VRKPrintDesignJetGenerator("HP4000GL2", &NewRecord<VRKPrintHP4000Properties>) {}

void VRKPrintHP4000Generator::startModelJob(const VRKPrintParameters& params) {
    VRKPrintHP4000Properties& record = *designJetRecord<VRKPrintHP4000Properties>();
    // Media source 1 is the roll on this model, 0 manual feed: the reverse of the 1000 series.
    const char* mediaSource = record.GetMediaSource() != 0 ? "ROLL1" : "MANUALFEED";
    const char* printArea = record.GetInkedArea() == 1 ? "INKEDAREA" : "FULLSIZE";
    const char* maxDetail = record.GetMaxDetail() == 1 ? "ON" : "OFF";
    const char* ret = record.GetRet() == 1 ? "ON" : "OFF";

    pjlCommentLine("4000");
    pjlLine("@PJL SET MIRROR=OFF");
    pjlLine(std::string("@PJL SET RESOLUTION=") + resolutionOf(record.GetResolution()));
    pjlLine(std::string("@PJL SET RENDERMODE=") + renderModeOf(params.GetColorMode()));
    pjlLine("@PJL SET PALETTESOURCE=SOFTWARE");
    pjlLine(std::string("@PJL SET RET=") + ret);
    pjlLine(std::string("@PJL SET PRINTAREA=") + printArea);
    pjlLine(std::string("@PJL SET MEDIASOURCE=") + mediaSource);
    pjlLine(std::string("@PJL SET PRINTQUALITY=") + printQualityOf(record.GetPrintQuality()));
    pjlLine(std::string("@PJL SET MAXDETAIL=") + maxDetail);

    SetBeginPlotValue(record.GetAutoRotate() == 1 ? 0 : 2);
    // Print quality went out in PJL; the body must not carry a QL of its own.
    record.SetQuality(-1);
    setBodySettings(record.GetMediaType(), record.GetCutterState(), record.GetQuality());
    if (VRKPrintHPGL2Properties* body = GetHPGL2Properties()) {
        body->SetType(record.GetType());
    }
}

VRKPrintHP4000Properties* VRKPrintHP4000Generator::GetHP4000Properties() const {
    return designJetRecord<VRKPrintHP4000Properties>();
}

void VRKPrintHP4000Generator::SetHP4000Properties(VRKPrintHP4000Properties* record) {
    setDesignJetRecord(record);
}

void VRKPrintHP4000Generator::DrvEnd() {
    VRKPrintHPGL2Generator::DrvEnd();
    // This model's job ends after an empty line.
    out().EndLine();
    pjlEndOfJobLine();
}
