#pragma once

#include "host/core/VRKPrintStream.h"

// A print stream that drops everything written to it.
class VRKPrintNullStream final : public VRKPrintStream {
  public:
    VRKPrintNullStream() : VRKPrintStream(256) {}

  protected:
    bool Sink(const char* /*data*/, std::size_t /*size*/) override { return true; }
};
