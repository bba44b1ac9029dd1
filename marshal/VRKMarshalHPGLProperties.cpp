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
    const VRKPenTable& table = record->GetPenTable();
    ExportMarshalBuffer(bufferId, table.Count(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetOrigin(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetRelativeMovePen(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetPrintThickness(), kValueLength);
    // A count above 32 can only come from a caller's error; only the slots that exist are
    // written, and the unmarshaller refuses the count.
    for (int i = 0; i < table.UsedSlots(); ++i) {
        const VRKPen& pen = table.Slots()[i];
        ExportMarshalBuffer(bufferId, pen.red, kValueLength);
        ExportMarshalBuffer(bufferId, pen.green, kValueLength);
        ExportMarshalBuffer(bufferId, pen.blue, kValueLength);
        ExportMarshalBuffer(bufferId, pen.width, kValueLength);
        ExportMarshalBuffer(bufferId, pen.enable, kValueLength);
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

    // The table has 32 slots, so a stream that counts more pens (or fewer than none) is refused
    // before anything of the record changes.
    VRKPenTable table = record->GetPenTable();
    int count = table.Count();
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
    table.SetCount(count);
    int origin = record->GetOrigin();
    int relativeMovePen = record->GetRelativeMovePen();
    int printThickness = record->GetPrintThickness();
    ImportMarshalBuffer(bufferId, &origin, kValueLength);
    ImportMarshalBuffer(bufferId, &relativeMovePen, kValueLength);
    ImportMarshalBuffer(bufferId, &printThickness, kValueLength);
    for (int i = 0; i < count; ++i) {
        VRKPen& pen = table.Slots()[i];
        ImportMarshalBuffer(bufferId, &pen.red, kValueLength);
        ImportMarshalBuffer(bufferId, &pen.green, kValueLength);
        ImportMarshalBuffer(bufferId, &pen.blue, kValueLength);
        ImportMarshalBuffer(bufferId, &pen.width, kValueLength);
        ImportMarshalBuffer(bufferId, &pen.enable, kValueLength);
    }
    record->SetPenTable(table);
    record->SetOrigin(origin);
    record->SetRelativeMovePen(relativeMovePen);
    record->SetPrintThickness(printThickness);
    VRKMakeUnmarshalEnd(bufferId);
    return record;
}
