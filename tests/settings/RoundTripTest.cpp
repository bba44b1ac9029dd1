#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "host/xml/VRKDOMImplementation.h"
#include "settings/Generators.h"
#include "settings/SettingsSupport.h"

namespace {

constexpr int kIterations = 300;

// Random values that a settings file can carry: codes that have a spelling, any quality, and pen
// values of at most five significant digits (which "%g" writes in full).
class Values {
  public:
    explicit Values(std::uint32_t seed) : engine_(seed) {}

    int Between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine_);
    }
    int AnyInt() { return std::uniform_int_distribution<int>(INT32_MIN, INT32_MAX)(engine_); }
    float Colour() { return static_cast<float>(Between(0, 25500) / 100.0); }
    float Width() { return static_cast<float>(Between(0, 99999) / 1000.0); }

    void Fill(VRKPrintHPGLProperties& r) {
        r.SetOrigin(Between(0, 4));
        r.SetRelativeMovePen(Between(0, 1));
        r.SetPrintThickness(Between(0, 1));
        std::vector<float> red(32), green(32), blue(32), width(32);
        std::vector<int> enable(32);
        for (size_t i = 0; i < 32; ++i) {
            red[i] = Colour();
            green[i] = Colour();
            blue[i] = Colour();
            width[i] = Width();
            enable[i] = Between(0, 1);
        }
        r.SetPens(32, red.data(), green.data(), blue.data(), width.data(), enable.data());
    }
    void Fill(VRKPrintHPGL2Properties& r) {
        r.SetMediaType(Between(-1, 6));
        r.SetCutterState(Between(0, 1));
        r.SetQuality(AnyInt());
    }
    void Fill(VRKPrintHP1055CProperties& r) {
        r.SetMediaType(Between(-1, 6));
        r.SetQuality(Between(-50, 150));
        r.SetCutterState(Between(0, 1));
        r.SetAutoRotate(Between(0, 1));
        r.SetInkedArea(Between(0, 1));
        r.SetRet(Between(0, 1));
        r.SetMultiRollFeeder(Between(0, 1));
        r.SetMediaSource(Between(0, r.GetMultiRollFeeder() == 0 ? 1 : 2));
    }
    void Fill(VRKPrintHP4000Properties& r) {
        r.SetMediaType(Between(-1, 6));
        r.SetCutterState(Between(0, 1));
        r.SetQuality(AnyInt());
        r.SetPrintQuality(Between(0, 2));
        r.SetAutoRotate(static_cast<std::uint8_t>(Between(0, 1)));
        r.SetInkedArea(static_cast<std::uint8_t>(Between(0, 1)));
        r.SetRet(static_cast<std::uint8_t>(Between(0, 1)));
        r.SetResolution(Between(0, 2));
        r.SetMaxDetail(static_cast<std::uint8_t>(Between(0, 1)));
        r.SetMediaSource(Between(0, 1));
    }

  private:
    std::mt19937 engine_;
};

// Writes with one interface and reads with the other, in the light model or the DOM.
VRKResult Transfer(VRKIPrtGeneratorProperties& from, VRKIPrtGeneratorProperties& to, bool dom,
                   const char* rootName) {
    if (!dom) {
        VRKLightXmlElement element;
        const VRKResult written = from.WriteToXml(element);
        return written != S_OK ? written : to.ReadFromXml(element);
    }
    VRKIDOMDocumentRef document = VRKDOMImplementation::CreateDocument(rootName);
    VRKIDOMElementRef root = RootOf(document);
    const VRKResult written = from.WriteToDOM(root);
    return written != S_OK ? written : to.ReadFromDOM(root);
}

// Pens 1 to 31 come back; pen 0 is never written and keeps what the target had.
void ExpectPensRestored(const VRKPrintHPGLProperties& source, const VRKPrintHPGLProperties& target,
                        const PenTable& targetBefore, int iteration) {
    const PenTable s(source);
    const PenTable t(target);
    ASSERT_EQ(t.count, 32) << iteration;
    for (size_t i = 1; i < 32; ++i) {
        EXPECT_EQ(t.red[i], s.red[i]) << iteration << " pen " << i;
        EXPECT_EQ(t.green[i], s.green[i]) << iteration << " pen " << i;
        EXPECT_EQ(t.blue[i], s.blue[i]) << iteration << " pen " << i;
        EXPECT_EQ(t.width[i], s.width[i]) << iteration << " pen " << i;
        EXPECT_EQ(t.enable[i], s.enable[i]) << iteration << " pen " << i;
    }
    EXPECT_EQ(t.red[0], targetBefore.red[0]);
    EXPECT_EQ(t.green[0], targetBefore.green[0]);
    EXPECT_EQ(t.blue[0], targetBefore.blue[0]);
    EXPECT_EQ(t.width[0], targetBefore.width[0]);
    EXPECT_EQ(t.enable[0], targetBefore.enable[0]);
}

class RoundTrip : public testing::TestWithParam<bool> {};

TEST_P(RoundTrip, HPGL2Form) {
    Values values(20240611u);
    HPGL2Made from;
    HPGL2Made to;
    for (int n = 0; n < kIterations; ++n) {
        values.Fill(*from.Record());
        values.Fill(*to.Record());
        ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HPGL2Properties"), S_OK);
        EXPECT_EQ(to.Record()->GetMediaType(), from.Record()->GetMediaType()) << n;
        EXPECT_EQ(to.Record()->GetCutterState(), from.Record()->GetCutterState()) << n;
        EXPECT_EQ(to.Record()->GetQuality(), from.Record()->GetQuality()) << n;
        EXPECT_EQ(to.Record()->GetType(), 0);
    }
}

TEST_P(RoundTrip, HPGLFormOfTheHPGL2Generator) {
    Values values(77u);
    HPGL2Made from;
    from.Record()->SetType(1);
    for (int n = 0; n < kIterations / 3; ++n) {
        HPGL2Made to;
        values.Fill(*from->GetHPGLSettings());
        values.Fill(*to->GetHPGLSettings());
        values.Fill(*to.Record());
        const int mediaType = to.Record()->GetMediaType();
        const int quality = to.Record()->GetQuality();
        const PenTable before(*to->GetHPGLSettings());
        ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HPGLProperties"), S_OK);
        EXPECT_EQ(to.Record()->GetType(), 1);
        // The HP-GL/2 fields are not part of the HP-GL form.
        EXPECT_EQ(to.Record()->GetMediaType(), mediaType);
        EXPECT_EQ(to.Record()->GetQuality(), quality);
        const VRKPrintHPGLProperties& s = *from->GetHPGLSettings();
        const VRKPrintHPGLProperties& t = *to->GetHPGLSettings();
        EXPECT_EQ(t.GetOrigin(), s.GetOrigin()) << n;
        EXPECT_EQ(t.GetRelativeMovePen(), s.GetRelativeMovePen()) << n;
        EXPECT_EQ(t.GetPrintThickness(), s.GetPrintThickness()) << n;
        ExpectPensRestored(s, t, before, n);
    }
}

TEST_P(RoundTrip, HPGLGenerator) {
    Values values(4242u);
    HPGLMade from;
    HPGLMade to;
    for (int n = 0; n < kIterations / 3; ++n) {
        values.Fill(*from.Record());
        values.Fill(*to.Record());
        const PenTable before(*to.Record());
        ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HPGLProperties"), S_OK);
        EXPECT_EQ(to.Record()->GetOrigin(), from.Record()->GetOrigin()) << n;
        EXPECT_EQ(to.Record()->GetRelativeMovePen(), from.Record()->GetRelativeMovePen()) << n;
        EXPECT_EQ(to.Record()->GetPrintThickness(), from.Record()->GetPrintThickness()) << n;
        ExpectPensRestored(*from.Record(), *to.Record(), before, n);
    }
}

TEST_P(RoundTrip, DesignJet1000) {
    Values values(1000u);
    HP1055CMade from;
    HP1055CMade to;
    from->EnsureProperties();
    to->EnsureProperties();
    for (int n = 0; n < kIterations; ++n) {
        values.Fill(*from.Record());
        values.Fill(*to.Record());
        ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HP1000GL2Properties"), S_OK);
        const VRKPrintHP1055CProperties& s = *from.Record();
        const VRKPrintHP1055CProperties& t = *to.Record();
        EXPECT_EQ(t.GetMediaType(), s.GetMediaType()) << n;
        const int band = s.GetQuality() < 25 ? 0 : (s.GetQuality() < 75 ? 50 : 100);
        EXPECT_EQ(t.GetQuality(), band) << n << " quality " << s.GetQuality();
        EXPECT_EQ(t.GetCutterState(), s.GetCutterState()) << n;
        EXPECT_EQ(t.GetAutoRotate(), s.GetAutoRotate()) << n;
        EXPECT_EQ(t.GetInkedArea(), s.GetInkedArea()) << n;
        EXPECT_EQ(t.GetRet(), s.GetRet()) << n;
        EXPECT_EQ(t.GetMultiRollFeeder(), s.GetMultiRollFeeder()) << n;
        EXPECT_EQ(t.GetMediaSource(), s.GetMediaSource()) << n;
        EXPECT_EQ(t.GetScale(), 1.0f);
    }
}

TEST_P(RoundTrip, DesignJet1000QualitySixtyComesBackAsFifty) {
    HP1055CMade from;
    HP1055CMade to;
    from->EnsureProperties();
    to->EnsureProperties();
    from.Record()->SetQuality(60);
    ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HP1000GL2Properties"), S_OK);
    EXPECT_EQ(to.Record()->GetQuality(), 50);
    from.Record()->SetQuality(24);
    ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HP1000GL2Properties"), S_OK);
    EXPECT_EQ(to.Record()->GetQuality(), 0);
    from.Record()->SetQuality(75);
    ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HP1000GL2Properties"), S_OK);
    EXPECT_EQ(to.Record()->GetQuality(), 100);
}

TEST_P(RoundTrip, DesignJet4000) {
    Values values(4000u);
    HP4000Made from;
    HP4000Made to;
    from->EnsureProperties();
    to->EnsureProperties();
    for (int n = 0; n < kIterations; ++n) {
        values.Fill(*from.Record());
        values.Fill(*to.Record());
        const int quality = to.Record()->GetQuality();
        ASSERT_EQ(Transfer(*from.settings, *to.settings, GetParam(), "HP4000GL2Properties"), S_OK);
        const VRKPrintHP4000Properties& s = *from.Record();
        const VRKPrintHP4000Properties& t = *to.Record();
        EXPECT_EQ(t.GetMediaType(), s.GetMediaType()) << n;
        EXPECT_EQ(t.GetCutterState(), s.GetCutterState()) << n;
        EXPECT_EQ(t.GetPrintQuality(), s.GetPrintQuality()) << n;
        EXPECT_EQ(t.GetAutoRotate(), s.GetAutoRotate()) << n;
        EXPECT_EQ(t.GetInkedArea(), s.GetInkedArea()) << n;
        EXPECT_EQ(t.GetRet(), s.GetRet()) << n;
        EXPECT_EQ(t.GetResolution(), s.GetResolution()) << n;
        EXPECT_EQ(t.GetMaxDetail(), s.GetMaxDetail()) << n;
        EXPECT_EQ(t.GetMediaSource(), s.GetMediaSource()) << n;
        // The inherited quality is not persisted by this record.
        EXPECT_EQ(t.GetQuality(), quality) << n;
    }
}

TEST_P(RoundTrip, SameElementWrittenAndReadBackByOneGenerator) {
    // Write, change the live record, read the element back: the record is as it was written.
    HP1055CMade g;
    g->EnsureProperties();
    Values values(5u);
    values.Fill(*g.Record());
    g.Record()->SetQuality(50);
    VRKLightXmlElement element;
    ASSERT_EQ(g.settings->WriteToXml(element), S_OK);
    const std::string written = Dump(element);
    values.Fill(*g.Record());
    ASSERT_EQ(g.settings->ReadFromXml(element), S_OK);
    VRKLightXmlElement again;
    ASSERT_EQ(g.settings->WriteToXml(again), S_OK);
    EXPECT_EQ(Dump(again), written);
}

INSTANTIATE_TEST_SUITE_P(Forms, RoundTrip, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) {
                             return info.param ? std::string("Dom") : std::string("Light");
                         });

}  // namespace
