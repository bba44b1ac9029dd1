// The marshallers in the class dictionary, their exported TIE factories, and the two-step
// (VRKCreateCorba, VRKSerialize) paths with classes registered by the test.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKDataExtension.h"
#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKTIECreateCorba.h"
#include "host/core/VRKTIESerialize.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalHP1055CProperties.h"
#include "marshal/VRKMarshalHPGL2Properties.h"
#include "marshal/VRKMarshalHPGLProperties.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/MarshalBytes.h"
#include "support/ScopedMarshalBuffer.h"

namespace {

using Words = std::vector<std::int32_t>;

// What the test implementations saw.
struct Calls {
    int bufferId = 0;
    VRKBaseUnknown* record = nullptr;
    int flag = -99;
    int state = 0;
    int count = 0;
};
Calls createCalls;
Calls serializeCalls;

// Creates nothing: reads one word of its own and hands back the record it was given.
class TestCreator : public VRKDataExtension {
  public:
    VRKBaseUnknown* Create(int bufferId, VRKBaseUnknown* record, int flag, int* state) {
        createCalls = {bufferId, record, flag, *state, createCalls.count + 1};
        int word = 0;
        ImportMarshalBuffer(bufferId, &word, 4);
        *state = word;
        return record;
    }
};

// Writes and reads one int: a pen table's origin, or an HP-GL/2 record's quality.
class TestSerializer : public VRKDataExtension {
  public:
    int Marshal(int bufferId, int flag) {
        serializeCalls.flag = flag;
        ExportMarshalBuffer(bufferId, 4242, 4);
        VRKMakeMarshalEnd("Test", GetImpl(0), bufferId);
        return 0;
    }
    VRKBaseUnknown* Unmarshal(int bufferId, VRKBaseUnknown* record, int flag) {
        serializeCalls = {bufferId, record, flag, 0, serializeCalls.count + 1};
        int value = 0;
        ImportMarshalBuffer(bufferId, &value, 4);
        if (auto* table = dynamic_cast<VRKPrintHPGLProperties*>(record)) {
            table->SetOrigin(value);
        } else if (auto* hpgl2 = dynamic_cast<VRKPrintHPGL2Properties*>(record)) {
            hpgl2->SetQuality(value);
        }
        VRKMakeUnmarshalEnd(bufferId);
        return record;
    }
};

VRKDataExtension* newCreator() {
    return new TestCreator;
}
VRKDataExtension* newSerializer() {
    return new TestSerializer;
}
VRKBaseUnknown* tieCreator(VRKDataExtension* impl) {
    return new VRKTIECreateCorba<TestCreator>(static_cast<TestCreator*>(impl));
}
VRKBaseUnknown* tieSerializer(VRKDataExtension* impl) {
    return new VRKTIESerialize<TestSerializer>(static_cast<TestSerializer*>(impl));
}

VRKInterfaceEntry creatorFor(const char* className) {
    return {"VRKCreateCorba", className, "TestCreator", "Print", &newCreator, &tieCreator};
}
VRKInterfaceEntry serializerFor(const char* className) {
    return {"VRKSerialize", className, "TestSerializer", "Print", &newSerializer, &tieSerializer};
}

// Takes a registered marshaller out of the dictionary for one test and puts it back afterwards.
class WithoutMarshaller {
  public:
    explicit WithoutMarshaller(const char* className) {
        auto& dictionary = VRKClassDictionary::Instance();
        const VRKInterfaceEntry* entry =
            dictionary.FindInterface(className, "VRKMarshallableCorba");
        if (entry != nullptr) {
            saved_ = *entry;
            dictionary.UnregisterInterface("VRKMarshallableCorba", className, "Print");
        }
    }
    ~WithoutMarshaller() {
        if (saved_) {
            VRKClassDictionary::Instance().RegisterInterface(*saved_);
        }
    }
    WithoutMarshaller(const WithoutMarshaller&) = delete;
    WithoutMarshaller& operator=(const WithoutMarshaller&) = delete;

  private:
    std::optional<VRKInterfaceEntry> saved_;
};

class MarshalInterfaces : public testing::Test {
  protected:
    void SetUp() override {
        createCalls = {};
        serializeCalls = {};
    }
};

TEST_F(MarshalInterfaces, TheMarshallersAreInTheDictionaryUnderPrint) {
    const auto& dictionary = VRKClassDictionary::Instance();
    const struct {
        const char* record;
        const char* marshaller;
    } expected[] = {
        {"VRKPrintHPGLProperties", "VRKMarshalHPGLProperties"},
        {"VRKPrintHPGL2Properties", "VRKMarshalHPGL2Properties"},
        {"VRKPrintHP1055CProperties", "VRKMarshalHP1055CProperties"},
    };
    for (const auto& e : expected) {
        const VRKInterfaceEntry* entry =
            dictionary.FindInterface(e.record, "VRKMarshallableCorba", "Print");
        ASSERT_NE(entry, nullptr) << e.record;
        EXPECT_EQ(entry->implementationName, e.marshaller);
        EXPECT_EQ(entry->framework, "Print");
        EXPECT_EQ(dictionary.FindInterface(e.record, "VRKMarshallableCorba", "System"), nullptr);

        auto tie = VRKGetClassInterface<VRKMarshallableCorba>(e.record);
        ASSERT_TRUE(tie);
        EXPECT_STREQ(tie->IsA(), "VRKMarshallableCorba");
    }
    const VRKMetaClass* meta = VRKMarshalHPGLProperties::MetaObject();
    EXPECT_STREQ(meta->GetClassName(), "VRKMarshalHPGLProperties");
    EXPECT_STREQ(meta->GetExtension(), "VRKPrintHPGLProperties");
    EXPECT_STREQ(meta->GetFramework(), "Print");
    EXPECT_TRUE(meta->IsAKindOf("VRKDataExtension"));
    EXPECT_STREQ(VRKMarshalHPGL2Properties::MetaObject()->GetExtension(),
                 "VRKPrintHPGL2Properties");
    EXPECT_STREQ(VRKMarshalHP1055CProperties::MetaObject()->GetExtension(),
                 "VRKPrintHP1055CProperties");
}

TEST_F(MarshalInterfaces, ExportedTieFactoriesResolveAndWork) {
    const char* names[] = {
        "CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties",
        "CreateTIEVRKMarshallableCorbaVRKMarshalHPGL2Properties",
        "CreateTIEVRKMarshallableCorbaVRKMarshalHP1055CProperties",
    };
    VRKDataExtension* implementations[] = {
        new VRKMarshalHPGLProperties,
        new VRKMarshalHPGL2Properties,
        new VRKMarshalHP1055CProperties,
    };
    VRKBaseUnknown* records[] = {
        new VRKPrintHPGLProperties,
        new VRKPrintHPGL2Properties,
        new VRKPrintHP1055CProperties,
    };
    for (int i = 0; i < 3; ++i) {
        void* symbol = dlsym(RTLD_DEFAULT, names[i]);
        ASSERT_NE(symbol, nullptr) << names[i];
        auto factory = reinterpret_cast<VRKTieFactory>(symbol);

        // Any other implementation is refused.
        VRKDataExtension* other = new VRKDataExtension;
        EXPECT_EQ(factory(other), nullptr);
        EXPECT_EQ(factory(nullptr), nullptr);
        other->Release();

        VRKBaseUnknown* tie = factory(implementations[i]);
        ASSERT_NE(tie, nullptr);
        EXPECT_EQ(implementations[i]->GetRefCount(), 2u);
        auto* marshaller = dynamic_cast<VRKMarshallableCorba*>(tie);
        ASSERT_NE(marshaller, nullptr);

        ScopedMarshalBuffer buffer;
        EXPECT_EQ(SetData(marshaller, records[i]), 0);
        EXPECT_EQ(implementations[i]->GetImpl(0), records[i]);
        EXPECT_EQ(marshaller->Marshal(buffer.Id(), kVRKCreateObject), 0);
        VRKBaseUnknown* back = marshaller->Unmarshal(buffer.Id(), nullptr, kVRKCreateObject);
        ASSERT_NE(back, nullptr);
        EXPECT_STREQ(back->IsA(), records[i]->IsA());
        back->Release();
        marshaller->SetData(nullptr);
        tie->Release();
        EXPECT_EQ(implementations[i]->GetRefCount(), 1u);
        implementations[i]->Release();
        records[i]->Release();
    }
}

TEST_F(MarshalInterfaces, UnboundMarshallerWritesNothing) {
    ScopedMarshalBuffer buffer;
    auto marshaller = VRKGetClassInterface<VRKMarshallableCorba>("VRKPrintHPGL2Properties");
    ASSERT_TRUE(marshaller);
    EXPECT_EQ(marshaller->Marshal(buffer.Id(), kVRKCreateObject), 0);
    EXPECT_TRUE(buffer.Bytes().empty());
}

TEST_F(MarshalInterfaces, AggregateThroughCreateCorbaThenSerialize) {
    VRKInterfaceRegistration creator(creatorFor("TestPenStream"));
    VRKInterfaceRegistration serializer(serializerFor("VRKPrintHPGLProperties"));
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHPGL2Properties", 1)
                   .Int(5)
                   .Int(0)
                   .Int(60)
                   .Int(1)
                   .Name("TestPenStream")
                   .Int(77)  // the creator's word
                   .Int(3)   // the serializer's origin
                   .End()
                   .End()
                   .Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHPGL2Properties*>(back);
    EXPECT_EQ(createCalls.count, 1);
    EXPECT_EQ(createCalls.bufferId, buffer.Id());
    EXPECT_EQ(createCalls.record, record->GetHPGLProperties());
    EXPECT_EQ(createCalls.flag, kVRKCreateAggregate);
    EXPECT_EQ(createCalls.state, -2);
    EXPECT_EQ(serializeCalls.count, 1);
    EXPECT_EQ(serializeCalls.record, record->GetHPGLProperties());
    EXPECT_EQ(serializeCalls.flag, kVRKCreateAggregate);
    EXPECT_EQ(record->GetHPGLProperties()->GetOrigin(), 3);
    EXPECT_EQ(record->GetQuality(), 60);
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
    back->Release();
}

TEST_F(MarshalInterfaces, AggregateCreatorWithoutSerializerGivesNull) {
    VRKInterfaceRegistration creator(creatorFor("TestPenStream"));
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHPGL2Properties", 1)
                   .Int(5)
                   .Int(0)
                   .Int(60)
                   .Int(1)
                   .Name("TestPenStream")
                   .Int(77)
                   .Bytes());
    EXPECT_EQ(VRKUnmarshalObject(buffer.Id()), nullptr);
    EXPECT_EQ(createCalls.count, 1);
}

TEST_F(MarshalInterfaces, BaseClassThroughCreateCorbaThenSerialize) {
    VRKInterfaceRegistration creator(creatorFor("TestBaseStream"));
    VRKInterfaceRegistration serializer(serializerFor("TestBaseStream"));
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHP1055CProperties", 1)
                   .Name("TestBaseStream")
                   .Int(1)   // the creator's word
                   .Int(33)  // the serializer's quality, into the HP-GL/2 part
                   .End()
                   .Int(2)
                   .Int(1)
                   .Int(0)
                   .Int(80)
                   .Int(1)
                   .Int(1)
                   .Int(0)
                   .Float(1.0f)
                   .Int(1)
                   .End()
                   .Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHP1055CProperties*>(back);
    EXPECT_EQ(createCalls.record, back);
    EXPECT_EQ(createCalls.flag, kVRKCreateBaseClass);
    EXPECT_EQ(createCalls.state, -2);
    EXPECT_EQ(serializeCalls.record, back);
    EXPECT_EQ(serializeCalls.flag, kVRKCreateBaseClass);
    EXPECT_EQ(static_cast<VRKPrintHPGL2Properties*>(record)->GetQuality(), 33);
    EXPECT_EQ(record->GetQuality(), 80);
    EXPECT_EQ(record->GetMediaType(), 2);
    EXPECT_EQ(record->GetMultiRollFeeder(), 1);
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
    back->Release();
}

TEST_F(MarshalInterfaces, BaseClassCreatorWithoutSerializerGivesNull) {
    VRKInterfaceRegistration creator(creatorFor("TestBaseStream"));
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHP1055CProperties", 1)
                   .Name("TestBaseStream")
                   .Int(1)
                   .Bytes());
    EXPECT_EQ(VRKUnmarshalObject(buffer.Id()), nullptr);
    EXPECT_EQ(createCalls.count, 1);
}

TEST_F(MarshalInterfaces, PenTableMarshalledThroughSerializeWhenItHasNoMarshaller) {
    WithoutMarshaller hidden("VRKPrintHPGLProperties");
    VRKInterfaceRegistration serializer(serializerFor("VRKPrintHPGLProperties"));
    ScopedMarshalBuffer buffer;
    auto* record = new VRKPrintHPGL2Properties;
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), record), 0);
    EXPECT_EQ(serializeCalls.flag, kVRKCreateAggregate);
    EXPECT_EQ(buffer.Bytes(), MarshalBytes()
                                  .Object("VRKPrintHPGL2Properties", 1)
                                  .Int(-1)
                                  .Int(1)
                                  .Int(100)
                                  .Int(0)
                                  .Name("VRKPrintHPGLProperties")
                                  .Int(4242)
                                  .End()
                                  .End()
                                  .Bytes());
    record->Release();
}

TEST_F(MarshalInterfaces, PenTableWithoutAnyMarshallerLeavesTheRecordUnterminated) {
    WithoutMarshaller hidden("VRKPrintHPGLProperties");
    ScopedMarshalBuffer buffer;
    auto* record = new VRKPrintHPGL2Properties;
    testing::internal::CaptureStdout();
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), record), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "MarshalAggregate Null Pointer"
              "Marshalling interface doesn't exist :VRKPrintHPGLProperties\n");
    EXPECT_EQ(
        buffer.Bytes(),
        MarshalBytes().Object("VRKPrintHPGL2Properties", 1).Int(-1).Int(1).Int(100).Int(0).Bytes());
    record->Release();
}

TEST_F(MarshalInterfaces, DesignJetBasePartThroughSerializeOrNotAtAll) {
    WithoutMarshaller hidden("VRKPrintHPGL2Properties");
    auto* record = new VRKPrintHP1055CProperties;
    {
        VRKInterfaceRegistration serializer(serializerFor("VRKPrintHPGL2Properties"));
        ScopedMarshalBuffer buffer;
        ASSERT_EQ(VRKMarshalObject(buffer.Id(), record), 0);
        EXPECT_EQ(serializeCalls.flag, kVRKCreateBaseClass);
        EXPECT_EQ(buffer.Bytes(), MarshalBytes()
                                      .Object("VRKPrintHP1055CProperties", 1)
                                      .Name("VRKPrintHPGL2Properties")
                                      .Int(4242)
                                      .End()
                                      .Int(-1)
                                      .Int(0)
                                      .Int(1)
                                      .Int(100)
                                      .Int(1)
                                      .Int(1)
                                      .Int(1)
                                      .Float(1.0f)
                                      .Int(0)
                                      .End()
                                      .Bytes());
    }
    // Neither interface: the record stops after the base class name, and nothing is printed.
    ScopedMarshalBuffer buffer;
    testing::internal::CaptureStdout();
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), record), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(buffer.Bytes(), MarshalBytes()
                                  .Object("VRKPrintHP1055CProperties", 1)
                                  .Name("VRKPrintHPGL2Properties")
                                  .Bytes());
    EXPECT_EQ(record->GetRefCount(), 2u);  // ours and the buffer's
    record->Release();
}

TEST_F(MarshalInterfaces, CallAgWithADataObjectUsesItsClassMarshaller) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Int(0).Int(4).Int(0).Int(1).End().Bytes());
    auto* table = new VRKPrintHPGLProperties;
    EXPECT_EQ(VRKUnmarshalCallAg(buffer.Id(), table, table), table);
    EXPECT_EQ(table->GetPenCount(), 0);
    EXPECT_EQ(table->GetOrigin(), 4);
    EXPECT_EQ(VRKUnmarshalCallAg(buffer.Id(), nullptr, table), nullptr);
    EXPECT_EQ(VRKUnmarshalCreateAg(buffer.Id(), table, table, -2), nullptr);
    table->Release();
}

}  // namespace
