#pragma once

#include "host/core/VRKBaseUnknown.h"

// A second way of marshalling an object, with the operations of VRKMarshallableCorba: classes that
// are rebuilt in two steps (VRKCreateCorba makes the object, VRKSerialize reads its body) implement
// this one. The creation flags are those of VRKMarshal.h.
class VRKSerialize : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKSerialize)

  public:
    static constexpr const char* kInterfaceName = "VRKSerialize";

    virtual int Marshal(int bufferId, int creationFlag) = 0;
    virtual VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int creationFlag) = 0;
    // Binds the interface to the record that Marshal writes (null unbinds it).
    virtual void SetData(VRKBaseUnknown* record) = 0;
};
