#pragma once

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKDataExtension.h"
#include "host/core/VRKMarshal.h"
#include "marshal/VRKMarshalStart.h"
#include "marshal/VRKUnmarshalStart.h"

// The frame of every marshaller's Marshal: the record behind the interface is written by `body`
// (which returns false when it had to leave the record cut short) and closed with its end marker.
// Nothing is written when the marshaller has no record of its class or the buffer has the record
// already. Always 0.
template <typename Record, typename Body>
int VRKMarshalRecord(const VRKDataExtension& marshaller, int bufferId, int creationFlag,
                     const char* className, Body body) {
    int ident = 0;
    Record* record = VRKMarshalStart<Record>(marshaller, bufferId, creationFlag, className, ident);
    if (record != nullptr && body(*record)) {
        VRKMakeMarshalEnd(className, record, bufferId);
    }
    return 0;
}

// The frame of every marshaller's Unmarshal: an object the host has rebuilt already is returned as
// it is; otherwise `body` reads into the caller's record or a new one and the end of the record is
// read. When `body` fails (false) the result is null, and a record made here is released.
template <typename Record, typename Body>
VRKBaseUnknown* VRKUnmarshalRecord(int bufferId, VRKBaseUnknown* given, int creationFlag,
                                   const char* className, Body body) {
    int ident = 0;
    const VRKUnmarshalStart<Record> start(bufferId, given, creationFlag, className, ident);
    if (start.rebuilt != nullptr) {
        return start.rebuilt;
    }
    Record* record = start.record;
    if (record == nullptr) {
        return nullptr;
    }
    if (!body(*record)) {
        if (given == nullptr) {
            record->Release();
        }
        return nullptr;
    }
    VRKMakeUnmarshalEnd(bufferId);
    return record;
}

// Takes what a reader of a part of the record (its base class or an aggregate) returned: false for
// a failure. Anything but the object it was to read into is not kept.
inline bool VRKAcceptUnmarshalled(VRKBaseUnknown* result, VRKBaseUnknown* expected) {
    if (result == nullptr) {
        return false;
    }
    if (result != expected) {
        result->Release();
    }
    return true;
}
