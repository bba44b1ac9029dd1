#pragma once

#include <new>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKUnmarshalErrorLog.h"

// How every unmarshaller starts: the host is asked whether the buffer holds an object it has
// rebuilt already; if not, the record to read into is the caller's or, without one, a new record
// with its defaults, announced to the host under the ident the buffer gave it.
template <typename Record>
struct VRKUnmarshalStart {
    VRKBaseUnknown* rebuilt = nullptr;  // an object the host had already: return it as it is
    Record* record = nullptr;           // else the record to read into; null on failure

    VRKUnmarshalStart(int bufferId, VRKBaseUnknown* given, int creationFlag, const char* className,
                      int& ident) {
        int newIdent = 0;
        rebuilt = VRKCreateBegin(bufferId, creationFlag, given, className, &newIdent);
        if (rebuilt != nullptr) {
            return;
        }
        ident = newIdent;
        if (given == nullptr) {
            record = new (std::nothrow) Record;
            if (record != nullptr) {
                CreateUnmarshalIdent(newIdent, record);
            }
            return;
        }
        record = dynamic_cast<Record*>(given);
        if (record == nullptr) {
            VRKSysMshLogUnmarshalError("record", className, bufferId, "Record of another class",
                                       given->IsA());
        }
    }
};
