#include "designjet/VRKPrintHP1055CGenerator.h"

#include <new>
#include <string>

#include "host/core/VRKClassRegistration.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHPGL2Properties.h"

VRK_DEFINE_CLASS(VRKPrintHP1055CGenerator, VRKPrintHPGL2Generator, "VRKNull", "Print")

namespace {

const VRKClassRegistration registration({
    "VRKPrintHP1055CGenerator",
    "Print",
    &fctCreateVRKPrintHP1055CGenerator,
    "HP1000GL2",
    "HP-GL/2 in a PJL job for DesignJet 1000 series printers",
});

}  // namespace

VRKBaseUnknown* fctCreateVRKPrintHP1055CGenerator() {
    return new (std::nothrow) VRKPrintHP1055CGenerator;
}

VRKPrintHP1055CGenerator::VRKPrintHP1055CGenerator() : VRKPrintDesignJetGenerator("HP1000GL2") {}

// The record goes with the generator; its class is complete only here.
VRKPrintHP1055CGenerator::~VRKPrintHP1055CGenerator() = default;

VRKBaseUnknown* VRKPrintHP1055CGenerator::GetProperties() {
    return designJetProperties.Get();
}

VRKBaseUnknown* VRKPrintHP1055CGenerator::EnsureProperties() {
    return designJetProperties.Ensure();
}

void VRKPrintHP1055CGenerator::SetHP1055CProperties(VRKPrintHP1055CProperties* record) {
    designJetProperties.Set(record);
}

void VRKPrintHP1055CGenerator::DrvBegin(const VRKPrintParameters& params) {
    if (EnsureProperties() == nullptr) {
        return;
    }
    const VRKPrintHP1055CProperties& record = *designJetProperties.Get();
    std::string printArea;
    std::string mediaSource;
    if (record.GetMultiRollFeeder() != 0) {
        printArea = record.GetInkedArea() != 0 ? "INKEDAREA" : "FULLSIZE";
        mediaSource = "ROLL" + std::to_string(record.GetMediaSource() + 1);
    } else {
        // Sheets fed by hand are always printed full size.
        if (record.GetMediaSource() == 1) {
            printArea = "FULLSIZE";
        } else {
            printArea = record.GetInkedArea() != 0 ? "INKEDAREA" : "FULLSIZE";
        }
        mediaSource = record.GetMediaSource() != 0 ? "MANUALFEED" : "ROLL1";
    }

    pjlJobLine();
    // "HPDesignet" is how the printers' job logs have always shown this driver; kept as it is.
    pjlLine("@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 1000 Series");
    pjlLine("@PJL SET MIRROR=OFF");
    pjlLine("@PJL SET RESOLUTION=600");
    pjlLine("@PJL SET RENDERMODE=COLOR");
    pjlLine("@PJL SET PALETTESOURCE=SOFTWARE");
    pjlLine(record.GetRet() != 0 ? "@PJL SET RET=ON" : "@PJL SET RET=OFF");
    pjlLine("@PJL SET PRINTAREA=" + printArea);
    pjlLine("@PJL SET MEDIASOURCE=" + mediaSource);
    pjlLine("@PJL ENTER LANGUAGE=HPGL2");

    // BP5,0 lets the printer turn the plot to save paper; BP5,2 keeps it as drawn.
    SetBeginPlotValue(record.GetAutoRotate() != 0 ? 0 : 2);
    if (VRKPrintHPGL2Properties* body = GetHPGL2Properties()) {
        body->SetMediaType(record.GetMediaType());
        body->SetCutterState(record.GetCutterState());
        body->SetQuality(record.GetQuality());
    }
    VRKPrintHPGL2Generator::DrvBegin(params);
}

void VRKPrintHP1055CGenerator::DrvEnd() {
    VRKPrintHPGL2Generator::DrvEnd();
    pjlEndOfJobLine();
}
