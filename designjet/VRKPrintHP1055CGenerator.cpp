#include "designjet/VRKPrintHP1055CGenerator.h"

#include <new>
#include <string>

#include "host/core/VRKClassRegistration.h"

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

VRKPrintHP1055CGenerator::VRKPrintHP1055CGenerator()
    : VRKPrintDesignJetGenerator("HP1000GL2", &NewRecord<VRKPrintHP1055CProperties>) {}

void VRKPrintHP1055CGenerator::startModelJob(const VRKPrintParameters&) {
    const VRKPrintHP1055CProperties& record = *designJetRecord<VRKPrintHP1055CProperties>();
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

    pjlCommentLine("1000");
    pjlLine("@PJL SET MIRROR=OFF");
    pjlLine("@PJL SET RESOLUTION=600");
    pjlLine("@PJL SET RENDERMODE=COLOR");
    pjlLine("@PJL SET PALETTESOURCE=SOFTWARE");
    pjlLine(record.GetRet() != 0 ? "@PJL SET RET=ON" : "@PJL SET RET=OFF");
    pjlLine("@PJL SET PRINTAREA=" + printArea);
    pjlLine("@PJL SET MEDIASOURCE=" + mediaSource);

    // BP5,0 lets the printer turn the plot to save paper; BP5,2 keeps it as drawn.
    SetBeginPlotValue(record.GetAutoRotate() != 0 ? 0 : 2);
    setBodySettings(record.GetMediaType(), record.GetCutterState(), record.GetQuality());
}

VRKPrintHP1055CProperties* VRKPrintHP1055CGenerator::GetHP1055CProperties() const {
    return designJetRecord<VRKPrintHP1055CProperties>();
}

void VRKPrintHP1055CGenerator::SetHP1055CProperties(VRKPrintHP1055CProperties* record) {
    setDesignJetRecord(record);
}
