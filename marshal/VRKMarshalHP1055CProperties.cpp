#include "marshal/VRKMarshalHP1055CProperties.h"

#include <cstdio>
#include <tuple>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"
#include "host/core/VRKSmartRef.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalFields.h"
#include "marshal/VRKMarshalRecord.h"
#include "properties/VRKPrintHP1055CProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHP1055CProperties, VRKDataExtension, "VRKPrintHP1055CProperties",
                 "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHP1055CProperties";
constexpr const char* kBaseClass = "VRKPrintHPGL2Properties";

using Record = VRKPrintHP1055CProperties;

// The record's own values after the base part. Not the field order: the feeder kind travels last,
// after the float. Readers of this format expect it there, so the order stays.
constexpr auto kFields =
    std::tuple{VRKMarshalField(&Record::GetMediaType, &Record::SetMediaType),
               VRKMarshalField(&Record::GetMediaSource, &Record::SetMediaSource),
               VRKMarshalField(&Record::GetCutterState, &Record::SetCutterState),
               VRKMarshalField(&Record::GetQuality, &Record::SetQuality),
               VRKMarshalField(&Record::GetAutoRotate, &Record::SetAutoRotate),
               VRKMarshalField(&Record::GetInkedArea, &Record::SetInkedArea),
               VRKMarshalField(&Record::GetRet, &Record::SetRet),
               VRKMarshalField(&Record::GetScale, &Record::SetScale),
               VRKMarshalField(&Record::GetMultiRollFeeder, &Record::SetMultiRollFeeder)};

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKMarshalHP1055CProperties>(
    VRKMarshallableCorba::kInterfaceName,
    &CreateTIEVRKMarshallableCorbaVRKMarshalHP1055CProperties));

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

// Reads the base part named `name` into the record. Frees the name.
bool unmarshalBase(int bufferId, const char* name, VRKPrintHP1055CProperties* record) {
    bool read = false;
    if (auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(name)) {
        read = VRKAcceptUnmarshalled(marshaller->Unmarshal(bufferId, record, kVRKCreateBaseClass),
                                     record);
    } else if (auto creator = VRKGetClassInterface<VRKCreateCorba>(name)) {
        int state = -2;
        // The record exists already; whatever else the create call makes is not kept.
        VRKAcceptUnmarshalled(creator->Create(bufferId, record, kVRKCreateBaseClass, &state),
                              record);
        if (auto serializer = VRKGetClassInterface<VRKSerialize>(name)) {
            read = VRKAcceptUnmarshalled(
                serializer->Unmarshal(bufferId, record, kVRKCreateBaseClass), record);
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
    return VRKMarshalRecord<Record>(*this, bufferId, creationFlag, kRecordClass,
                                    [&](Record& record) {
                                        VRKMarshalBaseClass(bufferId, kBaseClass);
                                        if (!marshalBase<VRKMarshallableCorba>(bufferId, &record) &&
                                            !marshalBase<VRKSerialize>(bufferId, &record)) {
                                            return false;
                                        }
                                        VRKExportFields(bufferId, record, kFields);
                                        return true;
                                    });
}

VRKBaseUnknown* VRKMarshalHP1055CProperties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                       int creationFlag) {
    return VRKUnmarshalRecord<Record>(
        bufferId, given, creationFlag, kRecordClass, [&](Record& record) {
            char* baseName = nullptr;
            int baseNameLength = 0;
            if (VRKUnmarshalGetClassName(bufferId, &baseName, &baseNameLength) != 0 ||
                baseName == nullptr) {
                // Without a base part the record's own values can still be read.
                VRKSysMshLogUnmarshalError("base_class", kRecordClass, bufferId, nullptr, nullptr);
            } else if (!unmarshalBase(bufferId, baseName, &record)) {
                return false;
            }
            VRKImportFields(bufferId, record, kFields);
            return true;
        });
}
