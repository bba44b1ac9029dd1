#pragma once

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKUnicodeString.h"

// What the two DesignJet generators share: the HP-GL/2 body wrapped in a PJL job named after the
// print stream's path. Every PJL line ends with "\n" and a flush; no "\r" is written.
class VRKPrintDesignJetGenerator : public VRKPrintHPGL2Generator {
  public:
    // Takes the job name from the stream's path, then attaches as the HP-GL/2 generator does.
    void Attach(VRKPrintStream* stream) override;

  protected:
    explicit VRKPrintDesignJetGenerator(const VRKString& language)
        : VRKPrintHPGL2Generator(language) {}

    // Writes one PJL line.
    void pjlLine(std::string_view text);
    // The job line, ESC %-12345X @PJL JOB NAME="VORAN:<name>". The name is written raw: a quote
    // in it is not escaped.
    void pjlJobLine();
    // The end-of-job line. No Universal Exit Language follows it.
    void pjlEndOfJobLine();

    VRKUnicodeString jobName;

  private:
    // ESC %-12345X, the command, NAME="VORAN:<job name>".
    void pjlNamedLine(const char* command);
};
