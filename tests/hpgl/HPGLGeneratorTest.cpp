#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKClassDictionary.h"
#include "hpgl/VRKPrintHPGLGenerator.h"
#include "properties/VRKPrintHPGL2Properties.h"
#include "properties/VRKPrintHPGLProperties.h"
#include "support/GeneratorRun.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

using HPGLRun = GeneratorRun<VRKPrintHPGLGenerator>;

TEST(HPGLGenerator, RegistrationAndInnerGenerator) {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage("HPGL");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->className, "VRKPrintHPGLGenerator");
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    ASSERT_NE(run.generator, nullptr);
    EXPECT_EQ(run->GetLanguage().str(), "HPGL");
    VRKPrintHPGL2Generator* inner = run->GetInnerGenerator();
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->GetLanguage().str(), "HPGL2");
    auto* record = static_cast<VRKPrintHPGL2Properties*>(inner->GetProperties());
    EXPECT_EQ(record->GetType(), 1);
    // The wrapper's record is the inner record's own HP-GL settings, not a copy.
    EXPECT_EQ(run->GetProperties(), record->GetHPGLProperties());
}

TEST(HPGLGenerator, JobFrameAndDrawing) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    run->Begin(FormParameters(210, 297, 1));
    run->DefineColor(2, 1, 0, 0);
    run->SelectDrawColor(2);
    run->MoveTo(10, 10);
    run->LineTo(20, 10);
    run->End();
    EXPECT_EQ(run.Bytes(), "PU0,0PR;SP1;SP2PU400,400PD400,0PU;PA;SP0;PG;");
}

TEST(HPGLGenerator, PolylinesAndArcsReachTheInnerGenerator) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    static_cast<VRKPrintHPGLProperties*>(run->GetProperties())->SetRelativeMovePen(0);
    run->Begin(FormParameters(210, 297, 1));
    run->DefineColor(1, 0, 0, 0);
    run->SelectDrawColor(1);
    const float xy[] = {1, 1, 2, 1, 2, 2};
    run->DrawPolyline(3, xy);
    EXPECT_EQ(run.Bytes(), "PU0,0PA;SP1;SP1PU40,40PD80,40PD80,80");
    run->DrawArcCircle(10, 10, 5, 0, static_cast<float>(2 * std::numbers::pi), 0);
    EXPECT_EQ(run.Bytes().find("AA"), std::string::npos);
    EXPECT_NE(run.Bytes().find("PU600,400PD"), std::string::npos);
}

TEST(HPGLGenerator, BitmapAndPageBreakWriteNothing) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    run->Begin(FormParameters(210, 297, 1));
    const std::size_t start = run.Bytes().size();
    run->StartNewPage();
    run->DrawBitmap(0, 0, 0, nullptr);
    EXPECT_EQ(run.Bytes().size(), start);
    EXPECT_EQ(run.Bytes().find("\x1b%1A"), std::string::npos);
}

TEST(HPGLGenerator, FillRuleGoesToBoth) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    run->SetPolygonFillRule(1);
    EXPECT_EQ(run->GetPolygonFillRule(), 1);
    EXPECT_EQ(run->GetInnerGenerator()->GetPolygonFillRule(), 1);
}

TEST(HPGLGenerator, WidthSelectsStrokes) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    static_cast<VRKPrintHPGLProperties*>(run->GetProperties())->SetRelativeMovePen(0);
    run->Begin(FormParameters(210, 297, 1));
    run->DefineColor(1, 0, 0, 0);
    run->SelectDrawColor(1);
    run->SetDrawWidth(0.7f);
    run->MoveTo(10, 10);
    run->LineTo(20, 10);
    EXPECT_EQ(run.Bytes(),
              "PU0,0PA;SP1;SP1PU400,400"
              "PU400,408PD800,408PU400,405PD800,405PU400,402PD800,402PU400,400PD800,400"
              "PU400,398PD800,398PU400,395PD800,395PU400,392PD800,392");
}

TEST(HPGLGenerator, PrivateDataIsKept) {
    HPGLRun run(&fctCreateVRKPrintHPGLGenerator);
    EXPECT_EQ(run->GetStreamPrivateData(), nullptr);
    int data = 1;
    VRKPrintMemoryStream other;
    other.SetPrivateData(&data);
    run->Attach(&other);
    EXPECT_EQ(run->GetStreamPrivateData(), &data);
    EXPECT_EQ(run->GetInnerGenerator()->GetStream(), &other);
    run->Attach(&run.stream);
}

// An HP-GL generator left without its inner generator, as a failed allocation leaves it.
class Hollow : public VRKPrintHPGLGenerator {
  public:
    Hollow() {
        inner->Release();
        inner = nullptr;
        hpglProperties = nullptr;
    }
};

VRKBaseUnknown* createHollow() {
    return new Hollow;
}

TEST(HPGLGenerator, WithoutInnerGeneratorNothingHappens) {
    GeneratorRun<Hollow> run(&createHollow);
    ASSERT_EQ(run->GetInnerGenerator(), nullptr);
    run->Begin(FormParameters(210, 297, 1));
    run->DefineColor(1, 0, 0, 0);
    run->SelectDrawColor(1);
    run->SelectFillColor(1);
    run->SetDrawWidth(1);
    run->MoveTo(1, 1);
    run->LineTo(2, 2);
    const int counts[] = {3};
    const float points[] = {0, 0, 1, 0, 1, 1};
    run->FillArea(1, counts, points);
    run->SetPolygonFillRule(1);
    run->End();
    EXPECT_EQ(run.Bytes(), "");
    EXPECT_EQ(run->GetProperties(), nullptr);
}

}  // namespace
