// Fuzz target: unmarshalling the HP-GL, HP-GL/2 and DesignJet 1000 property records.
//
// Feeds: the input is the bytes of a marshal buffer as received from elsewhere. Its first byte
// chooses how it is read: as whole objects, each with the marshaller its header names
// (VRKUnmarshalObject, up to eight objects, so that back references meet their objects), or by
// the marshaller of one of the three records directly, into a new record or over an existing one,
// with the creation flag of an object, a base-class part or an aggregate. The rest of the input
// is the buffer.
//
// Checks: no crash, leak, undefined behaviour or hang on any buffer: short ones, wrong tags,
// lengths of class names past the end, back references to nothing, records of one class named as
// another; and every object rebuilt and every reference taken is given back.

#include <cstdint>

#include "FuzzSupport.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

constexpr const char* kRecords[] = {"VRKPrintHPGLProperties", "VRKPrintHPGL2Properties",
                                    "VRKPrintHP1055CProperties"};

// A marshal buffer for one input, freed at its end.
struct Buffer {
    Buffer() : id(VRKCreateMarshalBuffer()) {
        if (id == 0) {
            vrkfuzz::Broken("cannot create a marshal buffer");
        }
    }
    ~Buffer() { VRKFreeMarshalBuffer(id); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    int id;
};

void ReadObjects(int buffer) {
    for (int i = 0; i < 8; ++i) {
        VRKBaseUnknown* object = VRKUnmarshalObject(buffer);
        if (object == nullptr) {
            return;
        }
        object->Release();
    }
}

// A new record of the class kRecords[index] names, with its defaults.
VRKSmartRef<VRKBaseUnknown> NewRecord(unsigned index) {
    switch (index) {
        case 0:
            return VRKSmartRef<VRKBaseUnknown>::Adopt(new VRKPrintHPGLProperties);
        case 1:
            return VRKSmartRef<VRKBaseUnknown>::Adopt(new VRKPrintHPGL2Properties);
        default:
            return VRKSmartRef<VRKBaseUnknown>::Adopt(new VRKPrintHP1055CProperties);
    }
}

// Reads with the marshaller of one record class: `mode` picks the class, the creation flag and
// whether a record is given to read over.
void ReadWithMarshaller(int buffer, unsigned mode) {
    const char* className = kRecords[mode % 3];
    const int creationFlag = static_cast<int>((mode / 3) % 3);
    const bool overExisting = (mode / 9) % 2 == 1;
    VRKSmartRef<VRKMarshallableCorba> marshaller =
        VRKGetClassInterface<VRKMarshallableCorba>(className);
    if (!marshaller) {
        vrkfuzz::Broken(std::string("no marshaller for ") + className);
    }
    VRKSmartRef<VRKBaseUnknown> record;
    if (overExisting) {
        record = NewRecord(mode % 3);
    }
    VRKBaseUnknown* result = marshaller->Unmarshal(buffer, record.get(), creationFlag);
    // A new record belongs to the caller; a record given is returned as it was given.
    if (result != nullptr && result != record.get()) {
        result->Release();
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    // The marshallers report what they cannot read on standard output.
    vrkfuzz::DropStandardOutput();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    VRKClearUnmarshalErrors();
    {
        Buffer buffer;
        if (VRKSetMarshalBufferBytes(buffer.id, data + 1, size - 1) != 0) {
            vrkfuzz::Broken("cannot fill a marshal buffer");
        }
        const unsigned mode = data[0];
        if (mode < 128) {
            ReadObjects(buffer.id);
        } else {
            ReadWithMarshaller(buffer.id, mode - 128);
        }
    }
    VRKClearUnmarshalErrors();
    return 0;
}
