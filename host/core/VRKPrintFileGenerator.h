#pragma once

#include "host/core/VRKPrintGenerator.h"

class VRKPrintStream;

// A print generator that writes a file: it holds the print stream the host attached.
class VRKPrintFileGenerator : public VRKPrintGenerator {
    VRK_DECLARE_CLASS(VRKPrintFileGenerator)

  public:
    explicit VRKPrintFileGenerator(const VRKString& language) : VRKPrintGenerator(language) {}

    // Attaches the stream the plot goes to (null detaches); the host keeps ownership.
    virtual void Attach(VRKPrintStream* stream) { stream_ = stream; }
    VRKPrintStream* GetStream() const { return stream_; }

  protected:
    // A failed hook also fails the stream, so that the host does not keep a half-written plot.
    void ReportFailure() override;

  private:
    VRKPrintStream* stream_ = nullptr;
};
