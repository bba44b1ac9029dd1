#pragma once

#include "host/core/VRKDataExtension.h"

// The host's marshalling (VRKMarshallableCorba) of a VRKPrintHPGL2Properties record: four ints
// (media type, cutter state, quality, dialect) and the owned HP-GL pen table as an aggregate,
// written by the pen table's own marshaller. The extension is bound to the record it writes.
class VRKMarshalHPGL2Properties final : public VRKDataExtension {
    VRK_DECLARE_CLASS(VRKMarshalHPGL2Properties)

  public:
    VRKMarshalHPGL2Properties() = default;

    // Writes the bound record into the buffer; always 0.
    int Marshal(int bufferId, int creationFlag);
    // Reads a record into `record` or, with null, into a new one (returned with one reference for
    // the caller). The aggregate is always read into the pen table the record owns. Null when the
    // aggregate's class has no way of being read or its reader fails.
    VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int creationFlag);
};

// The TIE of VRKMarshallableCorba over a VRKMarshalHPGL2Properties (null for any other object),
// with one reference for the caller.
extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHPGL2Properties(
    VRKDataExtension* implementation);
