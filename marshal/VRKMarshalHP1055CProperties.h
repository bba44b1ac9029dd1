#pragma once

#include "host/core/VRKDataExtension.h"

// The host's marshalling (VRKMarshallableCorba) of a VRKPrintHP1055CProperties record: the
// HP-GL/2 base part, written by the base class's marshaller (pen table included), then the nine
// values of the DesignJet 1000 record. The extension is bound to the record it writes.
class VRKMarshalHP1055CProperties final : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKMarshalHP1055CProperties)

  public:
    VRKMarshalHP1055CProperties() = default;

    // Writes the bound record into the buffer; always 0.
    int Marshal(int bufferId, int creationFlag);
    // Reads a record into `record` or, with null, into a new one (returned with one reference for
    // the caller). Null when the base class has no way of being read or its reader fails.
    VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int creationFlag);
};

// The TIE of VRKMarshallableCorba over a VRKMarshalHP1055CProperties (null for any other object),
// with one reference for the caller.
extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHP1055CProperties(
    VRKDataExtension* implementation);
