#include "marshal/VRKMarshalHPGL2Properties.h"

#include <cstdio>
#include <cstring>
#include <tuple>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalFields.h"
#include "marshal/VRKMarshalRecord.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHPGL2Properties, VRKDataExtension, "VRKPrintHPGL2Properties", "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHPGL2Properties";
constexpr const char* kPenTableClass = "VRKPrintHPGLProperties";

using Record = VRKPrintHPGL2Properties;

// The HP-GL/2 fields proper: for a DesignJet 1000 record, whose own copies hide them, these are
// the inherited ones.
constexpr auto kFields =
    std::tuple{VRKMarshalField(&Record::GetMediaType, &Record::SetMediaType),
               VRKMarshalField(&Record::GetCutterState, &Record::SetCutterState),
               VRKMarshalField(&Record::GetQuality, &Record::SetQuality),
               VRKMarshalField(&Record::GetType, &Record::SetType)};

// While the aggregate is read, its class name as the host returned it. Marshalling runs on the
// host's calling thread only and this marshaller never calls itself, so one for the process serves.
char* aggregateClassName = nullptr;
int aggregateClassNameLength = 0;

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKMarshalHPGL2Properties>(
    VRKMarshallableCorba::kInterfaceName, &CreateTIEVRKMarshallableCorbaVRKMarshalHPGL2Properties));

// The host's string classes marshal themselves through the generic aggregate call.
bool isStringClass(const char* name) {
    return std::strncmp(name, "VRKString", 9) == 0 ||
           std::strncmp(name, "VRKUnicodeString", 16) == 0;
}

void freeAggregateClassName() {
    delete[] aggregateClassName;
    aggregateClassName = nullptr;
    aggregateClassNameLength = 0;
}

// Writes the owned pen table as the aggregate; false when the pen table's class has no way of
// being marshalled.
bool marshalAggregate(int bufferId, VRKPrintHPGLProperties* aggregate) {
    const char* aggregateName = aggregate != nullptr ? aggregate->IsA() : "";
    if (isStringClass(aggregateName)) {
        VRKMarshalAggregate(bufferId, aggregate, nullptr);
    } else if (auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(kPenTableClass)) {
        VRKMarshalAggregate(bufferId, aggregate, marshaller.get());
        marshaller->Marshal(bufferId, kVRKCreateAggregate);
    } else if (auto serializer = VRKGetClassInterface<VRKSerialize>(kPenTableClass)) {
        VRKMarshalAggregate(bufferId, aggregate, serializer.get());
        serializer->Marshal(bufferId, kVRKCreateAggregate);
    } else {
        // The first message has no newline of its own.
        std::fputs("MarshalAggregate Null Pointer", stdout);
        std::fputs("Marshalling interface doesn't exist :VRKPrintHPGLProperties\n", stdout);
        std::fflush(stdout);
        return false;
    }
    return true;
}

// Reads the aggregate named by aggregateClassName into the owned pen table. Should a reader have
// made an object of its own (it does so only when the record owns no pen table), that object is
// not kept.
bool unmarshalAggregate(int bufferId, VRKPrintHPGLProperties* penTable) {
    const char* name = aggregateClassName;
    if (isStringClass(name)) {
        return VRKAcceptUnmarshalled(VRKUnmarshalCallAg(bufferId, penTable, penTable), penTable);
    }
    if (auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(name)) {
        return VRKAcceptUnmarshalled(VRKUnmarshalCallAg(bufferId, marshaller.get(), penTable),
                                     penTable);
    }
    if (auto creator = VRKGetClassInterface<VRKCreateCorba>(name)) {
        // What the create call returns is not looked at: the body is read into the owned pen
        // table whatever it made.
        VRKAcceptUnmarshalled(VRKUnmarshalCreateAg(bufferId, creator.get(), penTable, -2),
                              penTable);
        auto serializer = VRKQueryInterface<VRKSerialize>(penTable);
        if (!serializer) {
            return false;
        }
        return VRKAcceptUnmarshalled(VRKUnmarshalCallAg(bufferId, serializer.get(), penTable),
                                     penTable);
    }
    // No newline after the middle message: it runs on into the next one.
    std::printf("UnmarshalAggregate DL_uuname_class:%s\n", name);
    std::fputs("UnmarshalAggregateNULL pointer", stdout);
    std::fputs("Unknown Unmarshalling Interface: VRKPrintHPGL2Properties\n", stdout);
    std::fflush(stdout);
    VRKSysMshLogUnmarshalError("aggregate", kRecordClass, bufferId,
                               "Unmarshalling interface not found", name);
    return false;
}

}  // namespace

extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHPGL2Properties(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEMarshallableCorba, VRKMarshalHPGL2Properties>(implementation);
}

int VRKMarshalHPGL2Properties::Marshal(int bufferId, int creationFlag) {
    return VRKMarshalRecord<Record>(
        *this, bufferId, creationFlag, kRecordClass, [&](Record& record) {
            VRKExportFields(bufferId, record, kFields);
            // Without a marshaller for the pen table the record cannot be completed. It is left cut
            // short on purpose, without the aggregate and without its end marker: a reader then
            // meets the missing end and logs it, instead of taking the incomplete record for a
            // whole one.
            return marshalAggregate(bufferId, record.GetHPGLProperties());
        });
}

VRKBaseUnknown* VRKMarshalHPGL2Properties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                     int creationFlag) {
    return VRKUnmarshalRecord<Record>(
        bufferId, given, creationFlag, kRecordClass, [&](Record& record) {
            VRKImportFields(bufferId, record, kFields);
            // The aggregate goes into the pen table the record already owns; none is made here.
            freeAggregateClassName();
            if (VRKUnmarshalGetClassName(bufferId, &aggregateClassName,
                                         &aggregateClassNameLength) != 0) {
                VRKSysMshLogUnmarshalError("aggregate", kRecordClass, bufferId, nullptr, nullptr);
                return true;
            }
            if (aggregateClassName == nullptr) {
                return true;
            }
            const bool read = unmarshalAggregate(bufferId, record.GetHPGLProperties());
            freeAggregateClassName();
            return read;
        });
}
