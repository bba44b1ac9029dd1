#include "designjet/VRKPrintDesignJetGenerator.h"

#include <string>

#include "host/core/VRKPrintStream.h"
#include "properties/VRKPrintHPGL2Properties.h"

namespace {
// Universal Exit Language: leaves whatever language the printer is in, back to PJL.
constexpr const char kUniversalExit[] = "\x1b%-12345X";
}  // namespace

void VRKPrintDesignJetGenerator::Attach(VRKPrintStream* stream) {
    jobName = stream != nullptr ? stream->GetPath() : VRKUnicodeString();
    VRKPrintHPGL2Generator::Attach(stream);
}

void VRKPrintDesignJetGenerator::pjlLine(std::string_view text) {
    out().Write(text);
    out().EndLine();
}

void VRKPrintDesignJetGenerator::pjlNamedLine(const char* command) {
    VRKPrintStream& s = out();
    s.Write(kUniversalExit);
    s.Write(command);
    s.Write(" NAME=\"VORAN:");
    s.Write(jobName.ConvertToChar().str());
    s.Put('"');
    s.EndLine();
}

void VRKPrintDesignJetGenerator::pjlJobLine() {
    pjlNamedLine("@PJL JOB");
}

void VRKPrintDesignJetGenerator::pjlEndOfJobLine() {
    pjlNamedLine("@PJL EOJ");
}

VRKBaseUnknown* VRKPrintDesignJetGenerator::GetProperties() {
    return designJetProperties.Get();
}

VRKBaseUnknown* VRKPrintDesignJetGenerator::EnsureProperties() {
    return designJetProperties.Ensure(newRecord_);
}

void VRKPrintDesignJetGenerator::DrvBegin(const VRKPrintParameters& params) {
    if (EnsureProperties() == nullptr) {
        return;
    }
    pjlJobLine();
    startModelJob(params);
    pjlLine("@PJL ENTER LANGUAGE=HPGL2");
    VRKPrintHPGL2Generator::DrvBegin(params);
}

void VRKPrintDesignJetGenerator::DrvEnd() {
    VRKPrintHPGL2Generator::DrvEnd();
    pjlEndOfJobLine();
}

void VRKPrintDesignJetGenerator::pjlCommentLine(const char* series) {
    // "HPDesignet" is how the printers' job logs have always shown this driver; kept as it is.
    pjlLine(std::string("@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet ") + series + " Series");
}

void VRKPrintDesignJetGenerator::setBodySettings(int mediaType, int cutterState, int quality) {
    if (VRKPrintHPGL2Properties* body = GetHPGL2Properties()) {
        body->SetMediaType(mediaType);
        body->SetCutterState(cutterState);
        body->SetQuality(quality);
    }
}
