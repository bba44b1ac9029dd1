#pragma once

#include "host/core/VRKBaseUnknown.h"

// An object that adds an interface to another object without being part of its class: the
// implementation behind a TIE object. It holds a reference to the object it extends, which
// GetImpl(0) returns (without a reference for the caller), so the extended object lives as long as
// an interface on it does.
class VRKDataExtension : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKDataExtension)

  public:
    VRKDataExtension() = default;
    ~VRKDataExtension() override;

    // The extended object for level 0, null for any other level or when none is bound.
    VRKBaseUnknown* GetImpl(int level = 0) const;
    // Binds the extension to an object (taking a reference) or, with null, unbinds it.
    void SetImpl(VRKBaseUnknown* object);

  private:
    VRKBaseUnknown* extended_ = nullptr;
};
