#pragma once

#include <tuple>

#include "host/core/VRKMarshalBuffer.h"

// The values of a record in a marshal stream, stated once for both directions: a tuple of fields,
// each a getter and setter pair (VRKMarshalAccessor) or a pointer to a data member, written and
// read in tuple order as 4-byte ints or floats. Reading starts each value from what the record
// holds, so a value past the end of the buffer leaves the field as it was.
template <typename Record, typename Value>
struct VRKMarshalAccessor {
    Value (Record::*get)() const;
    void (Record::*set)(Value);
};

template <typename Record, typename Value>
constexpr VRKMarshalAccessor<Record, Value> VRKMarshalField(Value (Record::*get)() const,
                                                            void (Record::*set)(Value)) {
    return {get, set};
}

namespace VRKMarshalFieldAccess {

constexpr int kValueLength = 4;

template <typename Record, typename Value>
Value Get(const Record& record, VRKMarshalAccessor<Record, Value> field) {
    return (record.*field.get)();
}
template <typename Record, typename Value>
void Set(Record& record, VRKMarshalAccessor<Record, Value> field, Value value) {
    (record.*field.set)(value);
}
template <typename Record, typename Value>
Value Get(const Record& record, Value Record::*member) {
    return record.*member;
}
template <typename Record, typename Value>
void Set(Record& record, Value Record::*member, Value value) {
    record.*member = value;
}

template <typename Record, typename Field>
void Import(int bufferId, Record& record, Field field) {
    auto value = Get(record, field);
    ImportMarshalBuffer(bufferId, &value, kValueLength);
    Set(record, field, value);
}

}  // namespace VRKMarshalFieldAccess

// Writes the record's fields into the buffer.
template <typename Record, typename... Fields>
void VRKExportFields(int bufferId, const Record& record, const std::tuple<Fields...>& fields) {
    std::apply(
        [&](const Fields&... field) {
            (ExportMarshalBuffer(bufferId, VRKMarshalFieldAccess::Get(record, field),
                                 VRKMarshalFieldAccess::kValueLength),
             ...);
        },
        fields);
}

// Reads the record's fields from the buffer.
template <typename Record, typename... Fields>
void VRKImportFields(int bufferId, Record& record, const std::tuple<Fields...>& fields) {
    std::apply(
        [&](const Fields&... field) {
            (VRKMarshalFieldAccess::Import(bufferId, record, field), ...);
        },
        fields);
}
