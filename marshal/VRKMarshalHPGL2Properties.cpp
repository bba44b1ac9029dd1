#include "marshal/VRKMarshalHPGL2Properties.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKCreateCorba.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKSerialize.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalStart.h"
#include "marshal/VRKUnmarshalStart.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHPGL2Properties, VRKDataExtension, "VRKPrintHPGL2Properties", "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHPGL2Properties";
constexpr const char* kPenTableClass = "VRKPrintHPGLProperties";
constexpr int kValueLength = 4;

// The buffer and the ident of the call in progress, and while the aggregate is read its class name
// as the host returned it. Marshalling runs on the host's calling thread only and this marshaller
// never calls itself, so one set for the process serves.
int currentBufferId = 0;
int currentIdent = 0;
char* aggregateClassName = nullptr;
int aggregateClassNameLength = 0;

VRKDataExtension* createImplementation() {
    return new (std::nothrow) VRKMarshalHPGL2Properties;
}

const VRKInterfaceRegistration registration({
    VRKMarshallableCorba::kInterfaceName,
    kRecordClass,
    "VRKMarshalHPGL2Properties",
    "Print",
    &createImplementation,
    &CreateTIEVRKMarshallableCorbaVRKMarshalHPGL2Properties,
});

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

// Takes an aggregate reader's result for the pen table: false for a failure. Should a reader have
// made an object of its own (it does so only when the record owns no pen table), that object is
// not kept.
bool acceptAggregate(VRKBaseUnknown* result, VRKBaseUnknown* penTable) {
    if (result == nullptr) {
        return false;
    }
    if (result != penTable) {
        result->Release();
    }
    return true;
}

// Reads the aggregate named by aggregateClassName into the owned pen table.
bool unmarshalAggregate(int bufferId, VRKPrintHPGLProperties* penTable) {
    const char* name = aggregateClassName;
    if (isStringClass(name)) {
        return acceptAggregate(VRKUnmarshalCallAg(bufferId, penTable, penTable), penTable);
    }
    if (auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>(name)) {
        return acceptAggregate(VRKUnmarshalCallAg(bufferId, marshaller.get(), penTable), penTable);
    }
    if (auto creator = VRKGetClassInterface<VRKCreateCorba>(name)) {
        // What the create call returns is not looked at: the body is read into the owned pen
        // table whatever it made.
        VRKBaseUnknown* made = VRKUnmarshalCreateAg(bufferId, creator.get(), penTable, -2);
        if (made != nullptr && made != penTable) {
            made->Release();
        }
        auto serializer = VRKQueryInterface<VRKSerialize>(penTable);
        if (!serializer) {
            return false;
        }
        return acceptAggregate(VRKUnmarshalCallAg(bufferId, serializer.get(), penTable), penTable);
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
    currentBufferId = bufferId;
    auto* record = VRKMarshalStart<VRKPrintHPGL2Properties>(*this, bufferId, creationFlag,
                                                            kRecordClass, currentIdent);
    if (record == nullptr) {
        return 0;
    }
    // The HP-GL/2 fields proper: for a DesignJet 1000 record, whose own copies hide them, these
    // are the inherited ones.
    ExportMarshalBuffer(bufferId, record->GetMediaType(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetCutterState(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetQuality(), kValueLength);
    ExportMarshalBuffer(bufferId, record->GetType(), kValueLength);

    VRKPrintHPGLProperties* aggregate = record->GetHPGLProperties();
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
        // Without a marshaller for the pen table the record cannot be completed. It is left cut
        // short on purpose, without the aggregate and without its end marker: a reader then meets
        // the missing end and logs it, instead of taking the incomplete record for a whole one.
        // The first message has no newline of its own.
        std::fputs("MarshalAggregate Null Pointer", stdout);
        std::fputs("Marshalling interface doesn't exist :VRKPrintHPGLProperties\n", stdout);
        std::fflush(stdout);
        return 0;
    }
    VRKMakeMarshalEnd(kRecordClass, record, bufferId);
    return 0;
}

VRKBaseUnknown* VRKMarshalHPGL2Properties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                     int creationFlag) {
    currentBufferId = bufferId;
    currentIdent = 0;
    const VRKUnmarshalStart<VRKPrintHPGL2Properties> start(bufferId, given, creationFlag,
                                                           kRecordClass, currentIdent);
    if (start.rebuilt != nullptr) {
        return start.rebuilt;
    }
    VRKPrintHPGL2Properties* record = start.record;
    if (record == nullptr) {
        return nullptr;
    }

    int mediaType = record->GetMediaType();
    int cutterState = record->GetCutterState();
    int quality = record->GetQuality();
    int type = record->GetType();
    ImportMarshalBuffer(bufferId, &mediaType, kValueLength);
    ImportMarshalBuffer(bufferId, &cutterState, kValueLength);
    ImportMarshalBuffer(bufferId, &quality, kValueLength);
    ImportMarshalBuffer(bufferId, &type, kValueLength);
    record->SetMediaType(mediaType);
    record->SetCutterState(cutterState);
    record->SetQuality(quality);
    record->SetType(type);

    // The aggregate goes into the pen table the record already owns; none is made here.
    freeAggregateClassName();
    bool aggregateRead = true;
    if (VRKUnmarshalGetClassName(bufferId, &aggregateClassName, &aggregateClassNameLength) != 0) {
        VRKSysMshLogUnmarshalError("aggregate", kRecordClass, bufferId, nullptr, nullptr);
    } else if (aggregateClassName != nullptr) {
        aggregateRead = unmarshalAggregate(bufferId, record->GetHPGLProperties());
        freeAggregateClassName();
    }
    if (!aggregateRead) {
        if (given == nullptr) {
            record->Release();
        }
        return nullptr;
    }
    VRKMakeUnmarshalEnd(bufferId);
    return record;
}
