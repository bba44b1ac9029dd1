// The marshal format of the HP-GL, HP-GL/2 and DesignJet 1000 property records.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKMarshal.h"
#include "host/core/VRKMarshalBuffer.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/MarshalBytes.h"
#include "support/ScopedMarshalBuffer.h"
#include "support/TempFolder.h"

namespace {

using Words = std::vector<std::int32_t>;
constexpr int kSlots = VRKPrintHPGLProperties::kPenSlots;

template <class T>
struct Ref {
    T* p = new T;
    ~Ref() {
        if (p != nullptr) {
            p->Release();
        }
    }
    T* operator->() const { return p; }
    T* get() const { return p; }
};

// Everything a pen table holds, the pens up to its count.
struct PenTable {
    int count, origin, relativeMovePen, printThickness;
    std::array<float, kSlots> red{}, green{}, blue{}, width{};
    std::array<int, kSlots> enable{};
    bool operator==(const PenTable&) const = default;
};

PenTable penTableOf(const VRKPrintHPGLProperties* r) {
    PenTable t{r->GetPenCount(), r->GetOrigin(), r->GetRelativeMovePen(), r->GetPrintThickness()};
    r->GetPenColors(t.red.data(), t.green.data(), t.blue.data());
    r->GetPenWidths(t.width.data());
    r->GetPenEnables(t.enable.data());
    return t;
}

struct HPGL2Fields {
    int mediaType, cutterState, quality, type;
    bool operator==(const HPGL2Fields&) const = default;
};

HPGL2Fields hpgl2FieldsOf(const VRKPrintHPGL2Properties* r) {
    return {r->GetMediaType(), r->GetCutterState(), r->GetQuality(), r->GetType()};
}

struct DesignJetFields {
    int mediaType, mediaSource, cutterState, quality, multiRollFeeder, autoRotate, inkedArea, ret;
    float scale;
    bool operator==(const DesignJetFields&) const = default;
};

DesignJetFields designJetFieldsOf(const VRKPrintHP1055CProperties* r) {
    return {r->GetMediaType(),
            r->GetMediaSource(),
            r->GetCutterState(),
            r->GetQuality(),
            r->GetMultiRollFeeder(),
            r->GetAutoRotate(),
            r->GetInkedArea(),
            r->GetRet(),
            r->GetScale()};
}

void randomPens(VRKPrintHPGLProperties* r, std::mt19937& rng, int count) {
    std::uniform_real_distribution<float> colour(0.0f, 255.0f);
    std::uniform_real_distribution<float> width(0.0f, 5.0f);
    std::uniform_int_distribution<int> flag(0, 1);
    std::array<float, kSlots> red{}, green{}, blue{}, widths{};
    std::array<int, kSlots> enable{};
    for (int i = 0; i < count; ++i) {
        red[i] = colour(rng);
        green[i] = colour(rng);
        blue[i] = colour(rng);
        widths[i] = width(rng);
        enable[i] = flag(rng);
    }
    r->SetPens(count, red.data(), green.data(), blue.data(), widths.data(), enable.data());
    std::uniform_int_distribution<int> any(-1000, 1000);
    r->SetOrigin(any(rng));
    r->SetRelativeMovePen(any(rng));
    r->SetPrintThickness(any(rng));
}

// The default stream of a pen table as an aggregate (no header): four ints, 32 pens, the end.
MarshalBytes& defaultPenTableBody(MarshalBytes& out) {
    out.Int(32).Int(1).Int(1).Int(0);
    const float colours[8][3] = {{255, 255, 255}, {0, 0, 0},   {255, 0, 0},   {0, 255, 0},
                                 {255, 255, 0},   {0, 0, 255}, {255, 0, 255}, {0, 255, 255}};
    for (int i = 0; i < kSlots; ++i) {
        out.Float(i < 8 ? colours[i][0] : 0)
            .Float(i < 8 ? colours[i][1] : 0)
            .Float(i < 8 ? colours[i][2] : 0)
            .Float(0.35f)
            .Int(i < 8 ? 1 : 0);
    }
    return out.End();
}

VRKSmartRef<VRKMarshallableCorba> marshallerOf(const char* className) {
    return VRKGetClassInterface<VRKMarshallableCorba>(className);
}

TEST(PropertyMarshal, PenCountZeroIsFourIntsAndNothingElse) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHPGLProperties> table;
    const float none[kSlots] = {};
    const int off[kSlots] = {};
    table->SetPens(0, none, none, none, none, off);
    table->SetOrigin(2);
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), table.get()), 0);
    EXPECT_EQ(buffer.Bytes(), MarshalBytes()
                                  .Object("VRKPrintHPGLProperties", 1)
                                  .Int(0)
                                  .Int(2)
                                  .Int(1)
                                  .Int(0)
                                  .End()
                                  .Bytes());

    // As an aggregate there is no header: the four ints and the end tag are the whole stream.
    ScopedMarshalBuffer aggregate;
    auto marshaller = marshallerOf("VRKPrintHPGLProperties");
    marshaller->SetData(table.get());
    EXPECT_EQ(marshaller->Marshal(aggregate.Id(), kVRKCreateAggregate), 0);
    EXPECT_EQ(aggregate.Bytes(), MarshalBytes().Int(0).Int(2).Int(1).Int(0).End().Bytes());

    Ref<VRKPrintHPGLProperties> back;
    EXPECT_EQ(marshaller->Unmarshal(aggregate.Id(), back.get(), kVRKCreateAggregate), back.get());
    EXPECT_EQ(back->GetPenCount(), 0);
    EXPECT_EQ(back->GetOrigin(), 2);
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
}

TEST(PropertyMarshal, HPGL2StreamIsFieldsThenPenTableAggregate) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHPGL2Properties> record;
    record->SetMediaType(3);
    record->SetCutterState(0);
    record->SetQuality(42);
    record->SetType(1);
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), record.get()), 0);
    MarshalBytes expected;
    expected.Object("VRKPrintHPGL2Properties", 1)
        .Int(3)
        .Int(0)
        .Int(42)
        .Int(1)
        .Name("VRKPrintHPGLProperties");
    defaultPenTableBody(expected).End();
    EXPECT_EQ(buffer.Bytes(), expected.Bytes());
}

TEST(PropertyMarshal, DesignJetValuesTravelWithTheFeederLast) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHP1055CProperties> record;
    record->SetMediaType(4);
    record->SetMediaSource(2);
    record->SetCutterState(0);
    record->SetQuality(60);
    record->SetMultiRollFeeder(1);
    record->SetAutoRotate(11);
    record->SetInkedArea(12);
    record->SetRet(13);
    record->SetScale(2.5f);
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), record.get()), 0);

    MarshalBytes expected;
    expected.Object("VRKPrintHP1055CProperties", 1)
        .Name("VRKPrintHPGL2Properties")
        // The base part carries the inherited HP-GL/2 fields, still at their defaults.
        .Int(-1)
        .Int(1)
        .Int(100)
        .Int(0)
        .Name("VRKPrintHPGLProperties");
    defaultPenTableBody(expected).End();
    expected.Int(4).Int(2).Int(0).Int(60).Int(11).Int(12).Int(13).Float(2.5f).Int(1).End();
    const auto bytes = buffer.Bytes();
    EXPECT_EQ(bytes, expected.Bytes());

    // Class names have no padding, so the words are counted from the end.
    ASSERT_GE(bytes.size(), 40u);
    const Words tail = MarshalBytes::Words(bytes, bytes.size() - 40);
    EXPECT_EQ(tail, (Words{4, 2, 0, 60, 11, 12, 13, MarshalBytes::FloatBits(2.5f), 1,
                           kVRKMarshalEndTag}));

    // A reader that took the values in field order would shift the last five: the feeder would
    // get auto-rotate's 11, ret the bits of the scale, and scale the feeder's 1 read as a float.
    float shiftedScale = 0;
    std::memcpy(&shiftedScale, &tail[8], 4);
    const DesignJetFields fieldOrder{tail[0], tail[1], tail[2], tail[3],     tail[4],
                                     tail[5], tail[6], tail[7], shiftedScale};
    EXPECT_EQ(fieldOrder,
              (DesignJetFields{4, 2, 0, 60, 11, 12, 13, MarshalBytes::FloatBits(2.5f), 1.4e-45f}));
    EXPECT_NE(fieldOrder, designJetFieldsOf(record.get()));

    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    ASSERT_STREQ(back->IsA(), "VRKPrintHP1055CProperties");
    auto* designJet = static_cast<VRKPrintHP1055CProperties*>(back);
    EXPECT_EQ(designJetFieldsOf(designJet), designJetFieldsOf(record.get()));
    EXPECT_EQ(designJet->GetMultiRollFeeder(), 1);
    EXPECT_EQ(designJet->GetScale(), 2.5f);
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
    back->Release();
}

TEST(PropertyMarshal, RandomValuesSurviveARoundTrip) {
    std::mt19937 rng(20240611);
    std::uniform_int_distribution<int> any(-100000, 100000);
    std::uniform_int_distribution<int> pens(0, kSlots);
    std::uniform_real_distribution<float> real(-1000.0f, 1000.0f);
    for (int round = 0; round < 20; ++round) {
        ScopedMarshalBuffer buffer;

        Ref<VRKPrintHPGLProperties> table;
        randomPens(table.get(), rng, pens(rng));

        Ref<VRKPrintHPGL2Properties> hpgl2;
        hpgl2->SetMediaType(any(rng));
        hpgl2->SetCutterState(any(rng));
        hpgl2->SetQuality(any(rng));
        hpgl2->SetType(any(rng));
        randomPens(hpgl2->GetHPGLProperties(), rng, pens(rng));

        Ref<VRKPrintHP1055CProperties> designJet;
        VRKPrintHPGL2Properties* base = designJet.get();
        base->SetMediaType(any(rng));
        base->SetCutterState(any(rng));
        base->SetQuality(any(rng));
        base->SetType(any(rng));
        randomPens(designJet->GetHPGLProperties(), rng, pens(rng));
        designJet->SetMediaType(any(rng));
        designJet->SetMediaSource(any(rng));
        designJet->SetCutterState(any(rng));
        designJet->SetQuality(any(rng));
        designJet->SetMultiRollFeeder(any(rng));
        designJet->SetAutoRotate(any(rng));
        designJet->SetInkedArea(any(rng));
        designJet->SetRet(any(rng));
        designJet->SetScale(real(rng));

        ASSERT_EQ(VRKMarshalObject(buffer.Id(), table.get()), 0);
        ASSERT_EQ(VRKMarshalObject(buffer.Id(), hpgl2.get()), 0);
        ASSERT_EQ(VRKMarshalObject(buffer.Id(), designJet.get()), 0);

        VRKBaseUnknown* a = VRKUnmarshalObject(buffer.Id());
        VRKBaseUnknown* b = VRKUnmarshalObject(buffer.Id());
        VRKBaseUnknown* c = VRKUnmarshalObject(buffer.Id());
        ASSERT_NE(a, nullptr);
        ASSERT_NE(b, nullptr);
        ASSERT_NE(c, nullptr);
        ASSERT_STREQ(a->IsA(), "VRKPrintHPGLProperties");
        ASSERT_STREQ(b->IsA(), "VRKPrintHPGL2Properties");
        ASSERT_STREQ(c->IsA(), "VRKPrintHP1055CProperties");

        EXPECT_EQ(penTableOf(static_cast<VRKPrintHPGLProperties*>(a)), penTableOf(table.get()));
        auto* hpgl2Back = static_cast<VRKPrintHPGL2Properties*>(b);
        EXPECT_EQ(hpgl2FieldsOf(hpgl2Back), hpgl2FieldsOf(hpgl2.get()));
        EXPECT_EQ(penTableOf(hpgl2Back->GetHPGLProperties()),
                  penTableOf(hpgl2->GetHPGLProperties()));
        auto* designJetBack = static_cast<VRKPrintHP1055CProperties*>(c);
        EXPECT_EQ(designJetFieldsOf(designJetBack), designJetFieldsOf(designJet.get()));
        EXPECT_EQ(hpgl2FieldsOf(designJetBack), hpgl2FieldsOf(base));
        EXPECT_EQ(penTableOf(designJetBack->GetHPGLProperties()),
                  penTableOf(designJet->GetHPGLProperties()));
        EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
        a->Release();
        b->Release();
        c->Release();
    }
}

TEST(PropertyMarshal, UnmarshalIntoAGivenRecordOverwritesItInPlace) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHP1055CProperties> source;
    source->SetQuality(10);
    source->SetRet(0);
    source->SetScale(0.25f);
    static_cast<VRKPrintHPGL2Properties*>(source.get())->SetType(1);
    source->GetHPGLProperties()->SetOrigin(4);
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), source.get()), 0);

    Ref<VRKPrintHP1055CProperties> target;
    VRKPrintHPGLProperties* ownedTable = target->GetHPGLProperties();
    auto marshaller = marshallerOf("VRKPrintHP1055CProperties");
    VRKBaseUnknown* result = marshaller->Unmarshal(buffer.Id(), target.get(), kVRKCreateObject);
    EXPECT_EQ(result, target.get());
    EXPECT_EQ(target->GetRefCount(), 1u);
    EXPECT_EQ(target->GetHPGLProperties(), ownedTable);
    EXPECT_EQ(target->GetQuality(), 10);
    EXPECT_EQ(target->GetRet(), 0);
    EXPECT_EQ(target->GetScale(), 0.25f);
    EXPECT_EQ(static_cast<VRKPrintHPGL2Properties*>(target.get())->GetType(), 1);
    EXPECT_EQ(ownedTable->GetOrigin(), 4);
}

TEST(PropertyMarshal, TheSameRecordTwiceIsOneObject) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHPGLProperties> table;
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), table.get()), 0);
    const std::size_t once = buffer.Bytes().size();
    ASSERT_EQ(VRKMarshalObject(buffer.Id(), table.get()), 0);
    EXPECT_EQ(buffer.Bytes().size(), once + 8);

    VRKBaseUnknown* first = VRKUnmarshalObject(buffer.Id());
    VRKBaseUnknown* second = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(second, first);
    first->Release();
    second->Release();
}

TEST(PropertyMarshal, MissingAggregateNameLeavesThePenTableDefaults) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHPGL2Properties", 1)
                   .Int(5)
                   .Int(0)
                   .Int(60)
                   .Int(1)
                   .Name("")
                   .End()
                   .Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHPGL2Properties*>(back);
    EXPECT_EQ(hpgl2FieldsOf(record), (HPGL2Fields{5, 0, 60, 1}));
    Ref<VRKPrintHPGLProperties> fresh;
    EXPECT_EQ(penTableOf(record->GetHPGLProperties()), penTableOf(fresh.get()));
    EXPECT_TRUE(VRKGetUnmarshalErrors().empty());
    back->Release();
}

TEST(PropertyMarshal, StreamEndingBeforeTheAggregateNameIsLogged) {
    ScopedMarshalBuffer buffer;
    buffer.Set(
        MarshalBytes().Object("VRKPrintHPGL2Properties", 1).Int(5).Int(0).Int(60).Int(1).Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHPGL2Properties*>(back);
    EXPECT_EQ(hpgl2FieldsOf(record), (HPGL2Fields{5, 0, 60, 1}));
    Ref<VRKPrintHPGLProperties> fresh;
    EXPECT_EQ(penTableOf(record->GetHPGLProperties()), penTableOf(fresh.get()));
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0].context, "aggregate");
    EXPECT_EQ(errors[0].className, "VRKPrintHPGL2Properties");
    EXPECT_EQ(errors[0].bufferId, buffer.Id());
    EXPECT_EQ(errors[0].message, "");
    EXPECT_EQ(errors[0].name, "");
    EXPECT_EQ(errors[1].context, "end");
    back->Release();
}

TEST(PropertyMarshal, UnknownAggregateClassIsReportedAndRefused) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHPGL2Properties", 1)
                   .Int(5)
                   .Int(0)
                   .Int(60)
                   .Int(1)
                   .Name("VRKNoSuchTable")
                   .Int(0)
                   .End()
                   .Bytes());
    testing::internal::CaptureStdout();
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(back, nullptr);
    EXPECT_EQ(out,
              "UnmarshalAggregate DL_uuname_class:VRKNoSuchTable\n"
              "UnmarshalAggregateNULL pointer"
              "Unknown Unmarshalling Interface: VRKPrintHPGL2Properties\n");
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].context, "aggregate");
    EXPECT_EQ(errors[0].className, "VRKPrintHPGL2Properties");
    EXPECT_EQ(errors[0].bufferId, buffer.Id());
    EXPECT_EQ(errors[0].message, "Unmarshalling interface not found");
    EXPECT_EQ(errors[0].name, "VRKNoSuchTable");
}

TEST(PropertyMarshal, UnknownBaseClassIsReportedAndRefused) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHP1055CProperties", 1)
                   .Name("VRKNoSuchBase")
                   .Int(0)
                   .End()
                   .Bytes());
    testing::internal::CaptureStdout();
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(back, nullptr);
    EXPECT_EQ(out,
              "UnmarshalBaseClass uuname_class: VRKNoSuchBase\n"
              "UnmarshalBaseClass: Unknown Unmarshalling Interface\n");
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].context, "base_class");
    EXPECT_EQ(errors[0].className, "VRKPrintHP1055CProperties");
    EXPECT_EQ(errors[0].bufferId, buffer.Id());
    EXPECT_EQ(errors[0].message, "Unmarshaling interface not found");
    EXPECT_EQ(errors[0].name, "VRKNoSuchBase");
}

TEST(PropertyMarshal, MissingBaseClassNameStillReadsTheOwnValues) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHP1055CProperties", 1)
                   .Name("")
                   .Int(6)
                   .Int(1)
                   .Int(0)
                   .Int(20)
                   .Int(0)
                   .Int(0)
                   .Int(0)
                   .Float(3.0f)
                   .Int(1)
                   .End()
                   .Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHP1055CProperties*>(back);
    EXPECT_EQ(designJetFieldsOf(record), (DesignJetFields{6, 1, 0, 20, 1, 0, 0, 0, 3.0f}));
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].context, "base_class");
    EXPECT_EQ(errors[0].className, "VRKPrintHP1055CProperties");
    EXPECT_EQ(errors[0].message, "");
    EXPECT_EQ(errors[0].name, "");
    back->Release();
}

TEST(PropertyMarshal, PenCountAbove32IsRefused) {
    for (const int count : {33, -1}) {
        ScopedMarshalBuffer buffer;
        MarshalBytes stream;
        stream.Int(count).Int(2).Int(0).Int(1);
        for (int i = 0; i < 33; ++i) {
            stream.Float(9).Float(9).Float(9).Float(9).Int(9);
        }
        buffer.Set(stream.End().Bytes());

        Ref<VRKPrintHPGLProperties> record;
        const PenTable before = penTableOf(record.get());
        auto marshaller = marshallerOf("VRKPrintHPGLProperties");
        testing::internal::CaptureStdout();
        VRKBaseUnknown* result =
            marshaller->Unmarshal(buffer.Id(), record.get(), kVRKCreateAggregate);
        const std::string out = testing::internal::GetCapturedStdout();
        EXPECT_EQ(result, nullptr);
        EXPECT_EQ(penTableOf(record.get()), before);
        EXPECT_EQ(out, "Unmarshal VRKPrintHPGLProperties: pen count " + std::to_string(count) +
                           " outside 0 to 32\n");
        const auto errors = VRKGetUnmarshalErrors();
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_EQ(errors[0].context, "pen_table");
        EXPECT_EQ(errors[0].className, "VRKPrintHPGLProperties");
        EXPECT_EQ(errors[0].message, "Pen count out of range");

        // A record the unmarshaller made itself is released (the sanitizer build checks it).
        VRKRewindMarshalBuffer(buffer.Id());
        testing::internal::CaptureStdout();
        EXPECT_EQ(marshaller->Unmarshal(buffer.Id(), nullptr, kVRKCreateAggregate), nullptr);
        testing::internal::GetCapturedStdout();
    }
}

TEST(PropertyMarshal, RefusedPenTableRefusesTheHPGL2Record) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHPGL2Properties", 1)
                   .Int(5)
                   .Int(0)
                   .Int(60)
                   .Int(1)
                   .Name("VRKPrintHPGLProperties")
                   .Int(40)
                   .Bytes());
    testing::internal::CaptureStdout();
    EXPECT_EQ(VRKUnmarshalObject(buffer.Id()), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Unmarshal VRKPrintHPGLProperties: pen count 40 outside 0 to 32\n");
}

TEST(PropertyMarshal, TruncatedStreamsFailCleanly) {
    ScopedMarshalBuffer full;
    Ref<VRKPrintHP1055CProperties> record;
    record->GetHPGLProperties()->SetOrigin(3);
    ASSERT_EQ(VRKMarshalObject(full.Id(), record.get()), 0);
    const auto bytes = full.Bytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        ScopedMarshalBuffer cut;
        VRKSetMarshalBufferBytes(cut.Id(), bytes.data(), size);
        VRKBaseUnknown* back = VRKUnmarshalObject(cut.Id());
        // However short, the stream lacks at least its last end tag, and the log says so.
        const auto errors = VRKGetUnmarshalErrors();
        ASSERT_FALSE(errors.empty()) << "size " << size;
        if (back != nullptr) {
            EXPECT_EQ(errors.back().context, "end") << "size " << size;
            back->Release();
        }
    }
}

TEST(PropertyMarshal, TruncatedAfterTheBaseClassNameKeepsDefaults) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes()
                   .Object("VRKPrintHP1055CProperties", 1)
                   .Name("VRKPrintHPGL2Properties")
                   .Int(7)
                   .Bytes());
    VRKBaseUnknown* back = VRKUnmarshalObject(buffer.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHP1055CProperties*>(back);
    EXPECT_EQ(static_cast<VRKPrintHPGL2Properties*>(record)->GetMediaType(), 7);
    Ref<VRKPrintHP1055CProperties> fresh;
    EXPECT_EQ(designJetFieldsOf(record), designJetFieldsOf(fresh.get()));
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 3u);
    EXPECT_EQ(errors[0].context, "aggregate");
    EXPECT_EQ(errors[1].context, "end");  // the base part's
    EXPECT_EQ(errors[2].context, "end");  // the record's
    back->Release();
}

TEST(PropertyMarshal, SavedBufferLoadsBackIntoTheSameRecord) {
    TempFolder folder("marshal");
    const std::string path = folder.File("designjet.bin");
    Ref<VRKPrintHP1055CProperties> source;
    source->SetMediaSource(1);
    source->SetScale(1.5f);
    source->GetHPGLProperties()->SetRelativeMovePen(0);
    {
        ScopedMarshalBuffer buffer;
        ASSERT_EQ(VRKMarshalObject(buffer.Id(), source.get()), 0);
        ASSERT_EQ(VRKSaveMarshalBuffer(buffer.Id(), path.c_str()), 0);
    }
    ScopedMarshalBuffer loaded;
    ASSERT_EQ(VRKLoadMarshalBuffer(loaded.Id(), path.c_str()), 0);
    VRKBaseUnknown* back = VRKUnmarshalObject(loaded.Id());
    ASSERT_NE(back, nullptr);
    auto* record = static_cast<VRKPrintHP1055CProperties*>(back);
    EXPECT_EQ(designJetFieldsOf(record), designJetFieldsOf(source.get()));
    EXPECT_EQ(penTableOf(record->GetHPGLProperties()), penTableOf(source->GetHPGLProperties()));
    back->Release();
}

TEST(PropertyMarshal, RecordOfAnotherClassIsNotReadInto) {
    ScopedMarshalBuffer buffer;
    buffer.Set(MarshalBytes().Int(0).Int(4).Int(0).Int(1).End().Bytes());
    Ref<VRKPrintHPGL2Properties> wrong;
    auto marshaller = marshallerOf("VRKPrintHPGLProperties");
    EXPECT_EQ(marshaller->Unmarshal(buffer.Id(), wrong.get(), kVRKCreateAggregate), nullptr);
    EXPECT_EQ(wrong->GetRefCount(), 1u);
    const auto errors = VRKGetUnmarshalErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].context, "record");
    EXPECT_EQ(errors[0].message, "Record of another class");
    EXPECT_EQ(errors[0].name, "VRKPrintHPGL2Properties");
}

TEST(PropertyMarshal, DesignJet4000HasNoMarshaller) {
    ScopedMarshalBuffer buffer;
    Ref<VRKPrintHP4000Properties> record;
    EXPECT_NE(VRKMarshalObject(buffer.Id(), record.get()), 0);
    EXPECT_TRUE(buffer.Bytes().empty());
    EXPECT_EQ(VRKClassDictionary::Instance().FindInterface("VRKPrintHP4000Properties",
                                                           "VRKMarshallableCorba"),
              nullptr);
}

}  // namespace
