#include "designjet/VRKPrintDesignJetGenerator.h"

#include "host/core/VRKPrintStream.h"

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
