#include "marshal/VRKMarshalHP1055CProperties.h"

#include <cstdio>
#include <new>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"
#include "host/core/VRKSmartRef.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalStart.h"
#include "marshal/VRKUnmarshalStart.h"
#include "properties/VRKPrintHP1055CProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHP1055CProperties, VRKDataExtension, "VRKPrintHP1055CProperties",
                 "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHP1055CProperties";
constexpr const char* kBaseClass = "VRKPrintHPGL2Properties";
constexpr int kValueLength = 4;

// The buffer and the ident of the call in progress. Marshalling runs on the host's calling thread
// only and this marshaller never calls itself, so one pair for the process serves.
int currentBufferId = 0;
int currentIdent = 0;

VRKDataExtension* createImplementation() {
    return new (std::nothrow) VRKMarshalHP1055CProperties;
}

const VRKInterfaceRegistration registration({
    VRKMarshallableCorba::kInterfaceName,
    kRecordClass,
    "VRKMarshalHP1055CProperties",
    "Print",
    &createImplementation,
    &CreateTIEVRKMarshallableCorbaVRKMarshalHP1055CProperties,
});

// Writes the base part with the base class's marshaller, bound to the record for the call. False
// when the base class cannot be marshalled at all.
template <typename I>
bool marshalBase(int bufferId, VRKPrintHP1055CProperties* record) {
    auto marshaller = VRKGetClassInterface<I>(kBaseClass);
    if (!marshaller) {
        return false;
    }
    // The record stays alive while the base marshaller holds it.
    VRKSmartRef<VRKPrintHP1055CProperties> held(record);
    SetData(marshaller.get(), record);
    marshaller->Marshal(bufferId, kVRKCreateBaseClass);
    return true;
}

// Takes a base-part reader's result: false for a failure; anything but the record itself is not
// kept.
bool acceptBase(VRKBaseUnknown* result, VRKBaseUnknown* record) {
    if (result == nullptr) {
        return false;
    }
    if (result != record) {
        result->Release();
    }
    return true;
}

// Reads the base part named `name` into the record. Frees the name.
bool unmarshalBase(int bufferId, const char* name, VRKPrintHP1055CProperties* record) {
    bool read = false;
    if (auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(name)) {
        read = acceptBase(marshaller->Unmarshal(bufferId, record, kVRKCreateBaseClass), record);
    } else if (auto creator = VRKGetClassInterface<VRKCreateCorba>(name)) {
        int state = -2;
        // The record exists already; whatever else the create call makes is not kept.
        acceptBase(creator->Create(bufferId, record, kVRKCreateBaseClass, &state), record);
        if (auto serializer = VRKGetClassInterface<VRKSerialize>(name)) {
            read = acceptBase(serializer->Unmarshal(bufferId, record, kVRKCreateBaseClass), record);
        }
    } else {
        std::printf("UnmarshalBaseClass uuname_class: %s\n", name);
        std::fputs("UnmarshalBaseClass: Unknown Unmarshalling Interface\n", stdout);
        std::fflush(stdout);
        // "Unmarshaling" with one l here, unlike the aggregate path of the HP-GL/2 marshaller:
        // hosts that read the log know both texts, so both stay as they are.
        VRKSysMshLogUnmarshalError("base_class", kRecordClass, bufferId,
                                   "Unmarshaling interface not found", name);
    }
    delete[] name;
    return read;
}

}  // namespace

extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHP1055CProperties(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEMarshallableCorba, VRKMarshalHP1055CProperties>(implementation);
}

int VRKMarshalHP1055CProperties::Marshal(int bufferId, int creationFlag) {
    currentBufferId = bufferId;
    auto* record = VRKMarshalStart<VRKPrintHP1055CProperties>(*this, bufferId, creationFlag,
                                                              kRecordClass, currentIdent);
    if (record == nullptr) {
        return 0;
    }
    VRKMarshalBaseClass(bufferId, kBaseClass);
    if (!marshalBase<VRKMarshallableCorba>(bufferId, record) &&
        !marshalBase<VRKSerialize>(bufferId, record)) {
        return 0;
    }
    // Not the field order: the feeder kind travels last, after the float. Readers of this format
    // expect it there, so the order stays.
    ExportMarshalBuffer(bufferId, record->GetMediaType(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetMediaSource(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetCutterState(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetQuality(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetAutoRotate(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetInkedArea(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetRet(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetScale(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetMultiRollFeeder(), kValueLength);
    VRKMakeMarshalEnd(kRecordClass, record, bufferId);
    return 0;
}

VRKBaseUnknown* VRKMarshalHP1055CProperties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                       int creationFlag) {
    currentBufferId = bufferId;
    currentIdent = 0;
    const VRKUnmarshalStart<VRKPrintHP1055CProperties> start(bufferId, given, creationFlag,
                                                             kRecordClass, currentIdent);
    if (start.rebuilt != nullptr) {
        return start.rebuilt;
    }
    VRKPrintHP1055CProperties* record = start.record;
    if (record == nullptr) {
        return nullptr;
    }

    char* baseName = nullptr;
    int baseNameLength = 0;
    if (VRKUnmarshalGetClassName(bufferId, &baseName, &baseNameLength) != 0 ||
        baseName == nullptr) {
        // Without a base part the record's own values can still be read.
        VRKSysMshLogUnmarshalError("base_class", kRecordClass, bufferId, nullptr, nullptr);
    } else if (!unmarshalBase(bufferId, baseName, record)) {
        if (given == nullptr) {
            record->Release();
        }
        return nullptr;
    }

    int mediaType = record->GetMediaType();
    int mediaSource = record->GetMediaSource();
    int cutterState = record->GetCutterState();
    int quality = record->GetQuality();
    int autoRotate = record->GetAutoRotate();
    int inkedArea = record->GetInkedArea();
    int ret = record->GetRet();
    float scale = record->GetScale();
    int multiRollFeeder = record->GetMultiRollFeeder();
    ImportMarshalBuffer(bufferId, &mediaType, kValueLength);
    ImportMarshalBuffer(bufferId, &mediaSource, kValueLength);
    ImportMarshalBuffer(bufferId, &cutterState, kValueLength);
    ImportMarshalBuffer(bufferId, &quality, kValueLength);
    ImportMarshalBuffer(bufferId, &autoRotate, kValueLength);
    ImportMarshalBuffer(bufferId, &inkedArea, kValueLength);
    ImportMarshalBuffer(bufferId, &ret, kValueLength);
    ImportMarshalBuffer(bufferId, &scale, kValueLength);
    ImportMarshalBuffer(bufferId, &multiRollFeeder, kValueLength);
    record->SetMediaType(mediaType);
    record->SetMediaSource(mediaSource);
    record->SetCutterState(cutterState);
    record->SetQuality(quality);
    record->SetAutoRotate(autoRotate);
    record->SetInkedArea(inkedArea);
    record->SetRet(ret);
    record->SetScale(scale);
    record->SetMultiRollFeeder(multiRollFeeder);
    VRKMakeUnmarshalEnd(bufferId);
    return record;
}
