#pragma once

#include "host/core/VRKBaseUnknown.h"

// The creating half of a two-step unmarshalling (VRKSerialize reads the body afterwards). Create
// reads what the class needs to make the object from the marshal buffer and returns the record
// it was given or, with null, a new one (with one reference for the caller); null when it cannot.
// `state` is the caller's in/out word for the class's own use; callers start it at -2.
class VRKCreateCorba : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKCreateCorba)

  public:
    static constexpr const char* kInterfaceName = "VRKCreateCorba";

    virtual VRKBaseUnknown* Create(int bufferId, VRKBaseUnknown* record, int creationFlag,
                                   int* state) = 0;
    // Binds the interface to a record (null unbinds it).
    virtual void SetData(VRKBaseUnknown* record) = 0;
};
