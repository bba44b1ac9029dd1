#pragma once

#include "host/core/VRKDataExtension.h"
#include "host/core/VRKMarshal.h"

// How every marshaller starts: the record behind the interface, and its ident in the buffer. Null
// when the marshaller has no record of its class, or when the buffer has the record already (the
// host then needs nothing more); the marshaller writes nothing further in either case.
template <typename Record>
Record* VRKMarshalStart(const VRKDataExtension& marshaller, int bufferId, int creationFlag,
                        const char* className, int& ident) {
    auto* record = dynamic_cast<Record*>(marshaller.GetImpl(0));
    if (record == nullptr) {
        return nullptr;
    }
    ident = VRKMakeMarshalIdent(bufferId, creationFlag, className, record);
    return ident != 0 ? record : nullptr;
}
