#include <gtest/gtest.h>

#include <array>

#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"

namespace {

template <class T>
struct Ref {
    T* p = new T;
    ~Ref() { p->Release(); }
    T* operator->() const { return p; }
};

TEST(HPGL2Properties, Defaults) {
    Ref<VRKPrintHPGL2Properties> r;
    EXPECT_EQ(r->GetMediaType(), -1);
    EXPECT_EQ(r->GetCutterState(), 1);
    EXPECT_EQ(r->GetQuality(), 100);
    EXPECT_EQ(r->GetType(), 0);
    ASSERT_NE(r->GetHPGLProperties(), nullptr);
    EXPECT_EQ(r->GetHPGLProperties()->GetPenCount(), 32);
    // The accessor hands out no reference of its own.
    EXPECT_EQ(r->GetHPGLProperties()->GetRefCount(), 1u);
}

TEST(HPGL2Properties, SettersStoreAnyValueUnchecked) {
    Ref<VRKPrintHPGL2Properties> r;
    r->SetMediaType(9);
    r->SetCutterState(-5);
    r->SetQuality(1000);
    r->SetType(7);
    EXPECT_EQ(r->GetMediaType(), 9);
    EXPECT_EQ(r->GetCutterState(), -5);
    EXPECT_EQ(r->GetQuality(), 1000);
    EXPECT_EQ(r->GetType(), 7);
}

TEST(HP1055CProperties, DefaultsAndShadowedFields) {
    Ref<VRKPrintHP1055CProperties> r;
    EXPECT_EQ(r->GetMediaType(), -1);
    EXPECT_EQ(r->GetMediaSource(), 0);
    EXPECT_EQ(r->GetCutterState(), 1);
    EXPECT_EQ(r->GetQuality(), 100);
    EXPECT_EQ(r->GetMultiRollFeeder(), 0);
    EXPECT_EQ(r->GetAutoRotate(), 1);
    EXPECT_EQ(r->GetInkedArea(), 1);
    EXPECT_EQ(r->GetRet(), 1);
    EXPECT_EQ(r->GetScale(), 1.0f);
    const VRKPrintHPGL2Properties& base = *r.p;
    EXPECT_EQ(base.GetMediaType(), -1);
    EXPECT_EQ(base.GetCutterState(), 1);
    EXPECT_EQ(base.GetQuality(), 100);

    // The record's own copies change; the inherited ones keep their defaults.
    r->SetMediaType(3);
    r->SetCutterState(0);
    r->SetQuality(20);
    EXPECT_EQ(r->GetMediaType(), 3);
    EXPECT_EQ(r->GetCutterState(), 0);
    EXPECT_EQ(r->GetQuality(), 20);
    EXPECT_EQ(base.GetMediaType(), -1);
    EXPECT_EQ(base.GetCutterState(), 1);
    EXPECT_EQ(base.GetQuality(), 100);
}

TEST(HP1055CProperties, Setters) {
    Ref<VRKPrintHP1055CProperties> r;
    r->SetMediaSource(2);
    r->SetMultiRollFeeder(1);
    r->SetAutoRotate(0);
    r->SetInkedArea(0);
    r->SetRet(0);
    EXPECT_EQ(r->GetMediaSource(), 2);
    EXPECT_EQ(r->GetMultiRollFeeder(), 1);
    EXPECT_EQ(r->GetAutoRotate(), 0);
    EXPECT_EQ(r->GetInkedArea(), 0);
    EXPECT_EQ(r->GetRet(), 0);
}

TEST(HP4000Properties, Defaults) {
    Ref<VRKPrintHP4000Properties> r;
    EXPECT_EQ(r->GetMediaSource(), 1);
    EXPECT_EQ(r->GetResolution(), 1);
    EXPECT_EQ(r->GetPrintQuality(), 1);
    EXPECT_EQ(r->GetAutoRotate(), 1);
    EXPECT_EQ(r->GetInkedArea(), 1);
    EXPECT_EQ(r->GetMaxDetail(), 1);
    EXPECT_EQ(r->GetRet(), 1);
    // Media type and cutter are the inherited fields.
    EXPECT_EQ(r->GetMediaType(), -1);
    EXPECT_EQ(r->GetCutterState(), 1);
    EXPECT_EQ(r->GetQuality(), 100);
}

TEST(HP4000Properties, FlagsAreBytes) {
    Ref<VRKPrintHP4000Properties> r;
    r->SetAutoRotate(0);
    r->SetInkedArea(2);
    r->SetMaxDetail(255);
    r->SetRet(0);
    r->SetResolution(2);
    r->SetPrintQuality(0);
    r->SetMediaSource(0);
    EXPECT_EQ(r->GetAutoRotate(), 0);
    EXPECT_EQ(r->GetInkedArea(), 2);
    EXPECT_EQ(r->GetMaxDetail(), 255);
    EXPECT_EQ(r->GetRet(), 0);
    EXPECT_EQ(r->GetResolution(), 2);
    EXPECT_EQ(r->GetPrintQuality(), 0);
    EXPECT_EQ(r->GetMediaSource(), 0);
    static_assert(sizeof(r->GetMaxDetail()) == 1);
}

TEST(HPGLProperties, Defaults) {
    Ref<VRKPrintHPGLProperties> r;
    EXPECT_EQ(r->GetPenCount(), 32);
    EXPECT_EQ(r->GetOrigin(), 1);
    EXPECT_EQ(r->GetRelativeMovePen(), 1);
    EXPECT_EQ(r->GetPrintThickness(), 0);

    std::array<float, 32> red{}, green{}, blue{}, width{};
    std::array<int, 32> enable{};
    r->GetPenColors(red.data(), green.data(), blue.data());
    r->GetPenWidths(width.data());
    r->GetPenEnables(enable.data());
    const float expected[8][3] = {{255, 255, 255}, {0, 0, 0},   {255, 0, 0},   {0, 255, 0},
                                  {255, 255, 0},   {0, 0, 255}, {255, 0, 255}, {0, 255, 255}};
    for (int i = 0; i < 32; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(red[i], i < 8 ? expected[i][0] : 0.0f);
        EXPECT_EQ(green[i], i < 8 ? expected[i][1] : 0.0f);
        EXPECT_EQ(blue[i], i < 8 ? expected[i][2] : 0.0f);
        EXPECT_EQ(width[i], 0.35f);
        EXPECT_EQ(enable[i], i < 8 ? 1 : 0);
    }
}

TEST(HPGLProperties, SetPensWithEightLeavesTheRestButCopiesEight) {
    Ref<VRKPrintHPGLProperties> r;
    std::array<float, 32> red, green, blue, width;
    std::array<int, 32> enable;
    for (int i = 0; i < 32; ++i) {
        red[i] = 10.0f + i;
        green[i] = 20.0f + i;
        blue[i] = 30.0f + i;
        width[i] = 0.5f;
        enable[i] = 1;
    }
    r->SetPens(8, red.data(), green.data(), blue.data(), width.data(), enable.data());
    EXPECT_EQ(r->GetPenCount(), 8);

    // Entries 8 to 31 keep their defaults in the record.
    const VRKPenTable& table = r->GetPenTable();
    for (int i = 8; i < 32; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(table.Slots()[i].red, 0.0f);
        EXPECT_EQ(table.Slots()[i].green, 0.0f);
        EXPECT_EQ(table.Slots()[i].blue, 0.0f);
        EXPECT_EQ(table.Slots()[i].width, 0.35f);
        EXPECT_EQ(table.Slots()[i].enable, 0);
    }

    // The getters copy 8 entries and leave the rest of the caller's arrays alone.
    std::array<float, 32> r2, g2, b2, w2;
    std::array<int, 32> e2;
    r2.fill(-1.0f);
    g2.fill(-1.0f);
    b2.fill(-1.0f);
    w2.fill(-1.0f);
    e2.fill(-1);
    r->GetPenColors(r2.data(), g2.data(), b2.data());
    r->GetPenWidths(w2.data());
    r->GetPenEnables(e2.data());
    for (int i = 0; i < 32; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(r2[i], i < 8 ? 10.0f + i : -1.0f);
        EXPECT_EQ(g2[i], i < 8 ? 20.0f + i : -1.0f);
        EXPECT_EQ(b2[i], i < 8 ? 30.0f + i : -1.0f);
        EXPECT_EQ(w2[i], i < 8 ? 0.5f : -1.0f);
        EXPECT_EQ(e2[i], i < 8 ? 1 : -1);
    }
}

TEST(HPGLProperties, Setters) {
    Ref<VRKPrintHPGLProperties> r;
    r->SetOrigin(4);
    r->SetRelativeMovePen(0);
    r->SetPrintThickness(1);
    EXPECT_EQ(r->GetOrigin(), 4);
    EXPECT_EQ(r->GetRelativeMovePen(), 0);
    EXPECT_EQ(r->GetPrintThickness(), 1);
}

TEST(PropertyRecords, MetaClasses) {
    const VRKMetaClass* hpgl2 = VRKPrintHPGL2Properties::MetaObject();
    EXPECT_STREQ(hpgl2->GetClassName(), "VRKPrintHPGL2Properties");
    EXPECT_EQ(hpgl2->GetBase(), VRKBaseUnknown::MetaObject());
    EXPECT_STREQ(hpgl2->GetExtension(), "VRKNull");
    EXPECT_STREQ(hpgl2->GetFramework(), "Print");
    // Registered once: every call gives the same meta object.
    EXPECT_EQ(hpgl2, VRKPrintHPGL2Properties::MetaObject());

    Ref<VRKPrintHP1055CProperties> dj1000;
    EXPECT_STREQ(dj1000->IsA(), "VRKPrintHP1055CProperties");
    EXPECT_TRUE(dj1000->IsAKindOf("VRKPrintHPGL2Properties"));
    EXPECT_TRUE(dj1000->IsAKindOf("VRKBaseUnknown"));
    EXPECT_FALSE(dj1000->IsAKindOf("VRKPrintHP4000Properties"));

    Ref<VRKPrintHP4000Properties> dj4000;
    EXPECT_STREQ(dj4000->IsA(), "VRKPrintHP4000Properties");
    EXPECT_EQ(dj4000->GetMetaObject()->GetBase(), hpgl2);

    Ref<VRKPrintHPGLProperties> hpgl;
    EXPECT_STREQ(hpgl->IsA(), "VRKPrintHPGLProperties");
    EXPECT_EQ(hpgl->GetMetaObject()->GetBase(), VRKBaseUnknown::MetaObject());
    EXPECT_FALSE(hpgl->IsAKindOf("VRKPrintHPGL2Properties"));
}

TEST(PropertyRecords, ReferenceCounting) {
    auto* r = new VRKPrintHPGL2Properties;
    EXPECT_EQ(r->GetRefCount(), 1u);
    EXPECT_EQ(r->AddRef(), 2u);
    EXPECT_EQ(r->Release(), 1u);
    EXPECT_EQ(r->Release(), 0u);  // deleted; the sanitizer build checks the HP-GL record went too
}

}  // namespace
