#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "host/core/VRKBaseUnknown.h"
#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKClassRegistration.h"
#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/core/VRKRawCollPV.h"
#include "host/core/VRKUnicodeString.h"

namespace {

class Probe : public VRKBaseUnknown {
    VRK_DECLARE_CLASS(Probe)

  public:
    explicit Probe(int* destroyed) : destroyed_(destroyed) {}
    ~Probe() override { ++*destroyed_; }

  private:
    int* destroyed_;
};
VRK_DEFINE_CLASS(Probe, VRKBaseUnknown, "VRKNull", "Test")

int probesDestroyed = 0;
VRKBaseUnknown* createProbe() {
    return new Probe(&probesDestroyed);
}

TEST(ObjectModel, ReferenceCountingDeletesAtZero) {
    int destroyed = 0;
    auto* p = new Probe(&destroyed);
    EXPECT_EQ(p->AddRef(), 2u);
    EXPECT_EQ(p->Release(), 1u);
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(p->Release(), 0u);
    EXPECT_EQ(destroyed, 1);
}

TEST(ObjectModel, MetaClassChain) {
    int destroyed = 0;
    auto* p = new Probe(&destroyed);
    EXPECT_STREQ(p->IsA(), "Probe");
    EXPECT_TRUE(p->IsAKindOf("Probe"));
    EXPECT_TRUE(p->IsAKindOf("VRKBaseUnknown"));
    EXPECT_FALSE(p->IsAKindOf("VRKPrintGenerator"));
    EXPECT_FALSE(p->IsAKindOf(nullptr));
    EXPECT_STREQ(p->GetMetaObject()->GetFramework(), "Test");
    p->Release();
}

TEST(ClassDictionary, RegistrationLivesWithItsObject) {
    VRKClassDictionary& dictionary = VRKClassDictionary::Instance();
    {
        VRKClassRegistration reg({"Probe", "Test", &createProbe, "PROBE", "a test language"});
        const VRKClassEntry* entry = dictionary.FindClass("Probe", "Test");
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->description, "a test language");
        EXPECT_EQ(dictionary.FindClass("Probe", "Print"), nullptr);
        EXPECT_NE(dictionary.FindLanguage("PROBE", "Test"), nullptr);
        EXPECT_EQ(dictionary.FindLanguage("PROBE", "Print"), nullptr);
        EXPECT_EQ(dictionary.FindLanguage("", "Test"), nullptr);

        VRKBaseUnknown* object = dictionary.Create("Probe", "Test");
        ASSERT_NE(object, nullptr);
        EXPECT_STREQ(object->IsA(), "Probe");
        object->Release();
        EXPECT_EQ(probesDestroyed, 1);
        EXPECT_EQ(dictionary.Create("NoSuchClass", "Test"), nullptr);
    }
    EXPECT_EQ(dictionary.FindClass("Probe", "Test"), nullptr);
}

TEST(ClassDictionary, LanguagesAreSortedByName) {
    VRKClassRegistration b({"ProbeB", "Test", &createProbe, "ZZZ", "second"});
    VRKClassRegistration a({"ProbeA", "Test", &createProbe, "AAA", "first"});
    VRKClassRegistration none({"ProbeC", "Test", &createProbe, "", ""});
    const auto languages = VRKClassDictionary::Instance().Languages("Test");
    ASSERT_EQ(languages.size(), 2u);
    EXPECT_EQ(languages[0].language, "AAA");
    EXPECT_EQ(languages[1].language, "ZZZ");
}

TEST(UnicodeString, ConvertsToLatin1WithQuestionMarks) {
    EXPECT_EQ(VRKUnicodeString("Plan A-3").ConvertToChar().str(), "Plan A-3");
    // U+00E9 and U+00FF fit ISO 8859-1; U+20AC and U+1F600 do not.
    EXPECT_EQ(VRKUnicodeString("caf\xC3\xA9 \xC3\xBF").ConvertToChar().str(), "caf\xE9 \xFF");
    EXPECT_EQ(VRKUnicodeString("5\xE2\x82\xAC").ConvertToChar().str(), "5?");
    EXPECT_EQ(VRKUnicodeString("\xF0\x9F\x98\x80!").ConvertToChar().str(), "?!");
    // Broken sequences: a lone continuation byte, a truncated lead, an overlong form.
    EXPECT_EQ(VRKUnicodeString("a\x80"
                               "b")
                  .ConvertToChar()
                  .str(),
              "a?b");
    EXPECT_EQ(VRKUnicodeString("a\xC3").ConvertToChar().str(), "a?");
    EXPECT_EQ(VRKUnicodeString("\xC0\xAF").ConvertToChar().str(), "??");
    // Control bytes pass through: ETX reaches the plotter as it is.
    EXPECT_EQ(VRKUnicodeString("A\x03"
                               "B")
                  .ConvertToChar()
                  .str(),
              "A\x03"
              "B");
}

TEST(RawCollPV, IndexedFromOne) {
    VRKRawCollPV coll;
    int a = 1, b = 2;
    coll.Append(&a);
    coll.Append(&b);
    EXPECT_EQ(coll.Size(), 2);
    EXPECT_EQ(coll[1], &a);
    EXPECT_EQ(coll[2], &b);
    EXPECT_EQ(coll[0], nullptr);
    EXPECT_EQ(coll[3], nullptr);
}

TEST(Environment, LookupAndTemporaryDirectory) {
    ::setenv("VRK_TEST_EMPTY", "", 1);
    EXPECT_TRUE(VRKEnvironment::IsDefined("VRK_TEST_EMPTY"));
    EXPECT_EQ(VRKEnvironment::Get("VRK_TEST_EMPTY").value_or("x"), "");
    ::unsetenv("VRK_TEST_EMPTY");
    EXPECT_FALSE(VRKEnvironment::Get("VRK_TEST_EMPTY").has_value());

    const std::string saved = VRKEnvironment::Get("TMPDIR").value_or("");
    ::setenv("TMPDIR", "/var/tmp", 1);
    EXPECT_EQ(VRKEnvironment::TemporaryDirectory(), "/var/tmp/");
    ::setenv("TMPDIR", "/scratch/", 1);
    EXPECT_EQ(VRKEnvironment::TemporaryDirectory(), "/scratch/");
    ::unsetenv("TMPDIR");
    EXPECT_EQ(VRKEnvironment::TemporaryDirectory(), "/tmp/");
    if (!saved.empty()) {
        ::setenv("TMPDIR", saved.c_str(), 1);
    }
}

// A generator that records what its hooks receive, to check the base's dispatch and defaults.
class Recorder : public VRKPrintGenerator {
  public:
    Recorder() : VRKPrintGenerator("TEST") {}
    std::string log;
    int lines = 0;
    float maxX = -1e30f;

  protected:
    void DrvMoveTo(float x, float y) override {
        log += 'M';
        log += std::to_string(static_cast<int>(x));
        log += ',';
        log += std::to_string(static_cast<int>(y));
        log += ';';
    }
    void DrvLineTo(float x, float /*y*/) override {
        ++lines;
        maxX = std::max(maxX, x);
    }
    void DrvFillArea(int nb, const int* counts, const float* /*points*/) override {
        if (nb < 1 || counts == nullptr) {
            return;
        }
        log += 'F';
        log += std::to_string(nb);
        log += ':';
        log += std::to_string(counts[0]);
        log += ';';
    }
};

TEST(PrintGenerator, DefaultHooksNeverCrashOnBadInput) {
    Recorder r;
    r.DrawPolyline(0, nullptr);
    r.DrawPolygon(-3, nullptr);
    r.DrawPolyBezier(2, nullptr);
    r.DrawPolyQuadBezier(5, nullptr);
    r.DrawArcCircle(0, 0, -1, 0, 1, 0);
    r.DrawArcEllipse(0, 0, 0, 0, 0, 1, 0, 1);
    r.FillArea(0, nullptr, nullptr);
    r.DrawBitmap(0, 0, 0, nullptr);
    r.DrawText(0, 0, "x");
    EXPECT_EQ(r.log, "");
    EXPECT_EQ(r.lines, 0);
}

TEST(PrintGenerator, PolygonIsClosed) {
    Recorder r;
    const float xy[] = {1, 2, 3, 4, 5, 6};
    r.DrawPolygon(3, xy);
    EXPECT_EQ(r.log, "M1,2;");
    EXPECT_EQ(r.lines, 3);
}

TEST(PrintGenerator, FilledArcBecomesOneFillArea) {
    Recorder r;
    r.DrawArcCircle(0, 0, 10, 0, 1, 1);
    EXPECT_EQ(r.log.substr(0, 3), "F1:");
}

TEST(PrintGenerator, CircleOutlineIsFlattenedWithinTolerance) {
    Recorder r;
    r.DrawArcCircle(0, 0, 100, 0, 6.2831853f, 0);
    EXPECT_EQ(r.log, "M100,0;");
    // A chord of angle a deviates r(1 - cos(a/2)); 0.025 mm on a 100 mm circle needs > 140 chords.
    EXPECT_GT(r.lines, 140);
    EXPECT_LT(r.lines, 400);
}

TEST(PrintGenerator, TextAttributesAreKept) {
    Recorder r;
    r.SetTextAttribute(VRKTextSize, 2.5f);
    r.SetTextAttribute(VRKTextSlant, 15.0f);
    r.SetTextAttribute(VRKTextDirection, 90.0f);
    r.SetTextAttribute(VRKTextAnchor, VRKAnchorMiddleCenter);
    r.SetPolygonFillRule(1);
    r.SetFillMode(2);
    EXPECT_EQ(r.GetTextSize(), 2.5f);
    EXPECT_EQ(r.GetTextSlant(), 15.0f);
    EXPECT_EQ(r.GetTextDirection(), 90.0f);
    EXPECT_EQ(r.GetTextAnchor(), VRKAnchorMiddleCenter);
    EXPECT_EQ(r.GetPolygonFillRule(), 1);
    EXPECT_EQ(r.GetFillMode(), 2);
}

}  // namespace
