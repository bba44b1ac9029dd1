#pragma once

#include "host/core/VRKDataExtension.h"

// The host's marshalling (VRKMarshallableCorba) of a VRKPrintHPGLProperties pen table. The body is
// four ints (pen count, origin, relative pen moves, print thickness), then for each counted pen
// red, green, blue and width as floats and the enable flag as an int; no base class and no
// aggregate. The extension is bound to the record it writes (SetImpl, through the interface's
// SetData).
class VRKMarshalHPGLProperties final : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKMarshalHPGLProperties)

  public:
    VRKMarshalHPGLProperties() = default;

    // Writes the bound record into the buffer; always 0.
    int Marshal(int bufferId, int creationFlag);
    // Reads a record into `record` or, with null, into a new one (returned with one reference for
    // the caller). Null when the stream's pen count does not fit the 32 slots; the record is then
    // left as it was.
    VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int creationFlag);
};

// The TIE of VRKMarshallableCorba over a VRKMarshalHPGLProperties (null for any other object),
// with one reference for the caller.
extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties(
    VRKDataExtension* implementation);
