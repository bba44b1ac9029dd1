#pragma once

#include "host/core/VRKBaseUnknown.h"

// The host's marshalling of an object: Marshal writes the object the interface is bound to
// (SetData) into the marshal buffer with the given identifier, Unmarshal reads one back into the
// given record or, with null, into a new one. The creation flag tells how the object stands in the
// stream: 0 an aggregate of another object, 1 the base-class part of a derived object, 2 an object
// of its own (see VRKMarshal.h). Marshal returns 0; Unmarshal returns the record, or null when the
// stream cannot be read.
class VRKMarshallableCorba : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(VRKMarshallableCorba)

  public:
    static constexpr const char* kInterfaceName = "VRKMarshallableCorba";

    virtual int Marshal(int bufferId, int creationFlag) = 0;
    virtual VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int creationFlag) = 0;
    // Binds the interface to the record that Marshal writes (null unbinds it).
    virtual void SetData(VRKBaseUnknown* record) = 0;
};
