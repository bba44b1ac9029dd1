#include "marshal/VRKMarshalHPGLProperties.h"

#include <algorithm>
#include <cstdio>
#include <new>

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalStart.h"
#include "marshal/VRKUnmarshalStart.h"
#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHPGLProperties, VRKDataExtension, "VRKPrintHPGLProperties", "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHPGLProperties";
constexpr int kValueLength = 4;

// The buffer and the ident of the call in progress. Marshalling runs on the host's calling thread
// only and this marshaller never calls itself, so one pair for the process serves.
int currentBufferId = 0;
int currentIdent = 0;

VRKDataExtension* createImplementation() {
    return new (std::nothrow) VRKMarshalHPGLProperties;
}

const VRKInterfaceRegistration registration({
    VRKMarshallableCorba::kInterfaceName,
    kRecordClass,
    "VRKMarshalHPGLProperties",
    "Print",
    &createImplementation,
    &CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties,
});

}  // namespace

extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEMarshallableCorba, VRKMarshalHPGLProperties>(implementation);
}

int VRKMarshalHPGLProperties::Marshal(int bufferId, int creationFlag) {
    currentBufferId = bufferId;
    auto* record = VRKMarshalStart<VRKPrintHPGLProperties>(*this, bufferId, creationFlag,
                                                           kRecordClass, currentIdent);
    if (record == nullptr) {
        return 0;
    }
    ExportMarshalBuffer(bufferId, record->penCount, kValueLength);
    ExportMarshalBuffer(bufferId, record->origin, kValueLength);
    ExportMarshalBuffer(bufferId, record->relativeMovePen, kValueLength);
    ExportMarshalBuffer(bufferId, record->printThickness, kValueLength);
    // A count above 32 can only come from a caller that has already written past the arrays with
    // SetPens; only the slots that exist are read, and the unmarshaller refuses the count.
    const int pens = std::min(record->penCount, VRKPrintHPGLProperties::kPenSlots);
    for (int i = 0; i < pens; ++i) {
        ExportMarshalBuffer(bufferId, record->red[i], kValueLength);
        ExportMarshalBuffer(bufferId, record->green[i], kValueLength);
        ExportMarshalBuffer(bufferId, record->blue[i], kValueLength);
        ExportMarshalBuffer(bufferId, record->width[i], kValueLength);
        ExportMarshalBuffer(bufferId, record->enable[i], kValueLength);
    }
    VRKMakeMarshalEnd(kRecordClass, record, bufferId);
    return 0;
}

VRKBaseUnknown* VRKMarshalHPGLProperties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                    int creationFlag) {
    currentBufferId = bufferId;
    currentIdent = 0;
    const VRKUnmarshalStart<VRKPrintHPGLProperties> start(bufferId, given, creationFlag,
                                                          kRecordClass, currentIdent);
    if (start.rebuilt != nullptr) {
        return start.rebuilt;
    }
    VRKPrintHPGLProperties* record = start.record;
    if (record == nullptr) {
        return nullptr;
    }

    // The arrays have 32 slots and are never reallocated, so a stream that counts more pens (or
    // fewer than none) is refused before anything of the record changes.
    int count = record->penCount;
    ImportMarshalBuffer(bufferId, &count, kValueLength);
    if (count < 0 || count > VRKPrintHPGLProperties::kPenSlots) {
        std::printf("Unmarshal VRKPrintHPGLProperties: pen count %d outside 0 to 32\n", count);
        std::fflush(stdout);
        VRKSysMshLogUnmarshalError("pen_table", kRecordClass, bufferId, "Pen count out of range",
                                   nullptr);
        if (given == nullptr) {
            record->Release();
        }
        return nullptr;
    }
    record->penCount = count;
    ImportMarshalBuffer(bufferId, &record->origin, kValueLength);
    ImportMarshalBuffer(bufferId, &record->relativeMovePen, kValueLength);
    ImportMarshalBuffer(bufferId, &record->printThickness, kValueLength);
    for (int i = 0; i < count; ++i) {
        ImportMarshalBuffer(bufferId, &record->red[i], kValueLength);
        ImportMarshalBuffer(bufferId, &record->green[i], kValueLength);
        ImportMarshalBuffer(bufferId, &record->blue[i], kValueLength);
        ImportMarshalBuffer(bufferId, &record->width[i], kValueLength);
        ImportMarshalBuffer(bufferId, &record->enable[i], kValueLength);
    }
    VRKMakeUnmarshalEnd(bufferId);
    return record;
}
