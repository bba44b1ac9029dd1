#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "properties/VRKPrintHPGLProperties.h"
#include "properties/VRKPropertiesLightXmlNode.h"
#include "properties/VRKPropertiesXmlReader.h"
#include "properties/VRKPropertiesXmlWriter.h"
#include "settings/SettingsSupport.h"
#include "support/CommaLocale.h"

namespace {

VRKResult ReadPens(const std::string& pens, VRKPrintHPGLProperties& r) {
    VRKLightXmlElement element = Light("<HPGLProperties>" + pens + "</HPGLProperties>");
    EXPECT_EQ(element.GetName().str(), "HPGLProperties") << pens;
    VRKPropertiesLightXmlNode node(&element);
    return VRKPropertiesXmlReader::ReadHPGL(node, r);
}

// Switches the C library to the decimal-comma locale for as long as it lives.
class CommaLocaleScope {
  public:
    CommaLocaleScope() : saved_(std::setlocale(LC_ALL, nullptr)) {
        const std::string& folder = CommaLocaleFolder();
        if (folder.empty()) {
            return;
        }
        ::setenv("LOCPATH", folder.c_str(), 1);
        active_ = std::setlocale(LC_ALL, kCommaLocale) != nullptr;
    }
    ~CommaLocaleScope() { std::setlocale(LC_ALL, saved_.c_str()); }
    CommaLocaleScope(const CommaLocaleScope&) = delete;
    CommaLocaleScope& operator=(const CommaLocaleScope&) = delete;

    bool Active() const { return active_ && std::string(std::localeconv()->decimal_point) == ","; }

  private:
    std::string saved_;
    bool active_ = false;
};

TEST(PensXml, ReadsEveryComponentOfAPen) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"9\" red=\"12.5\" green=\"200\" blue=\"3e1\" "
                       "width=\"0.7\" enable=\"YES\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.count, 32);
    EXPECT_EQ(t.red[9], 12.5f);
    EXPECT_EQ(t.green[9], 200.0f);
    EXPECT_EQ(t.blue[9], 30.0f);
    EXPECT_EQ(t.width[9], 0.7f);
    EXPECT_EQ(t.enable[9], 1);
    // The neighbours are untouched.
    EXPECT_EQ(t.width[8], 0.35f);
    EXPECT_EQ(t.enable[8], 0);
    EXPECT_EQ(t.enable[10], 0);
}

TEST(PensXml, PenZeroIsReadAlthoughNeverWritten) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"0\" red=\"1\" green=\"2\" blue=\"3\" width=\"4\" "
                       "enable=\"NO\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[0], 1.0f);
    EXPECT_EQ(t.green[0], 2.0f);
    EXPECT_EQ(t.blue[0], 3.0f);
    EXPECT_EQ(t.width[0], 4.0f);
    EXPECT_EQ(t.enable[0], 0);
}

TEST(PensXml, PenWithoutAUsableNumberIsPenZero) {
    for (const char* number : {"", "abc", " ", "x5"}) {
        Owned<VRKPrintHPGLProperties> r;
        const std::string attribute =
            *number == '\0' ? std::string() : std::string(" number=\"") + number + "\"";
        ASSERT_EQ(ReadPens("<pens><pen" + attribute + " red=\"9\" width=\"1\"/></pens>", *r), S_OK);
        const PenTable t(*r);
        EXPECT_EQ(t.red[0], 9.0f) << number;
        EXPECT_EQ(t.green[0], 0.0f) << number;
        EXPECT_EQ(t.width[0], 1.0f) << number;
        EXPECT_EQ(t.red[5], 0.0f) << number;
    }
}

TEST(PensXml, MissingOrUnreadableComponentsReadZero) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"2\"/><pen number=\"4\" red=\"x\" green=\"\" "
                       "blue=\"1.5x\" width=\"-\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[2], 0.0f);
    EXPECT_EQ(t.green[2], 0.0f);
    EXPECT_EQ(t.blue[2], 0.0f);
    EXPECT_EQ(t.width[2], 0.0f);
    EXPECT_EQ(t.enable[2], 1);  // kept
    EXPECT_EQ(t.red[4], 0.0f);
    EXPECT_EQ(t.green[4], 0.0f);
    EXPECT_EQ(t.blue[4], 1.5f);  // the number before the stray "x"
    EXPECT_EQ(t.width[4], 0.0f);
}

TEST(PensXml, EnableOtherThanYesOrNoKeepsTheOldValue) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"1\" enable=\"yes\"/><pen number=\"2\" enable=\"1\"/>"
                       "<pen number=\"3\"/><pen number=\"8\" enable=\"No\"/>"
                       "<pen number=\"9\" enable=\"YES\"/><pen number=\"5\" enable=\"NO\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.enable[1], 1);
    EXPECT_EQ(t.enable[2], 1);
    EXPECT_EQ(t.enable[3], 1);
    EXPECT_EQ(t.enable[8], 0);
    EXPECT_EQ(t.enable[9], 1);
    EXPECT_EQ(t.enable[5], 0);
}

TEST(PensXml, LaterPensOfTheSameNumberWin) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"3\" red=\"1\" enable=\"NO\"/>"
                       "<pen number=\"3\" red=\"2\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[3], 2.0f);
    EXPECT_EQ(t.enable[3], 0);  // the first pen's "NO" is the copied value the second keeps
}

// Reads `pens` into a fresh record and expects every pen to stay as a fresh record has it.
void expectNoPenTaken(const std::string& pens) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens(pens, *r), S_OK);
    Owned<VRKPrintHPGLProperties> fresh;
    const PenTable t(*r);
    const PenTable d(*fresh);
    EXPECT_EQ(t.count, 32);
    EXPECT_EQ(t.red, d.red);
    EXPECT_EQ(t.green, d.green);
    EXPECT_EQ(t.blue, d.blue);
    EXPECT_EQ(t.width, d.width);
    EXPECT_EQ(t.enable, d.enable);
}

TEST(PensXml, NumbersOutsideTheTableAreIgnored) {
    expectNoPenTaken(
        "<pens><pen number=\"32\" red=\"1\"/><pen number=\"-1\" red=\"2\"/>"
        "<pen number=\"1000\" red=\"3\"/><pen number=\"-2147483648\" red=\"4\"/></pens>");
}

TEST(PensXml, NumbersBeyondTheIntAreSkipped) {
    expectNoPenTaken(
        "<pens><pen number=\"4294967297\" red=\"1\"/><pen number=\"1e9\" red=\"2\"/>"
        "<pen number=\"-4294967295\" red=\"3\"/>"
        "<pen number=\"99999999999999999999\" red=\"4\"/>"
        "<pen number=\"3.2e1\" red=\"5\"/></pens>");
}

TEST(PensXml, NumberWithAnExponent) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"1e1\" red=\"1\"/><pen number=\"2.5e0\" red=\"2\"/>"
                       "</pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[10], 1.0f);
    EXPECT_EQ(t.red[2], 2.0f);
    EXPECT_EQ(t.red[1], 0.0f);
}

TEST(PensXml, ComponentsThatAreNotFiniteOrBeyondKeepTheirValues) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"2\" red=\"nan\" green=\"inf\" blue=\"-infinity\" "
                       "width=\"NAN\" enable=\"NO\"/>"
                       "<pen number=\"3\" red=\"1e39\" green=\"-1e400\" blue=\"1e300\" "
                       "width=\"3e7\"/>"
                       "<pen number=\"4\" red=\"1\" width=\"-26843546\"/>"
                       "<pen number=\"5\" red=\"3e38\" green=\"1e-400\" width=\"26843544\"/>"
                       "</pens>",
                       *r),
              S_OK);
    Owned<VRKPrintHPGLProperties> fresh;
    const PenTable t(*r);
    const PenTable d(*fresh);
    for (const std::size_t pen : {2u, 3u}) {
        EXPECT_EQ(t.red[pen], d.red[pen]) << pen;
        EXPECT_EQ(t.green[pen], d.green[pen]) << pen;
        EXPECT_EQ(t.blue[pen], d.blue[pen]) << pen;
        EXPECT_EQ(t.width[pen], d.width[pen]) << pen;
    }
    // The rest of such a pen is read.
    EXPECT_EQ(t.enable[2], 0);
    EXPECT_EQ(t.red[4], 1.0f);
    EXPECT_EQ(t.width[4], d.width[4]);
    // The largest float and the largest width within the plotter's range are taken; a value too
    // small for a double is 0.
    EXPECT_EQ(t.red[5], 3e38f);
    EXPECT_EQ(t.green[5], 0.0f);
    EXPECT_EQ(t.width[5], 26843544.0f);
}

TEST(PensXml, CountIsNeverLowered) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(
        ReadPens("<pens><pen number=\"1\" red=\"5\"/><pen number=\"2\" red=\"6\"/></pens>", *r),
        S_OK);
    EXPECT_EQ(r->GetPenCount(), 32);
    Owned<VRKPrintHPGLProperties> small;
    FillPens(*small, 10, 0, 0, 0, 1, 1);
    ASSERT_EQ(ReadPens("<pens><pen number=\"3\" red=\"5\"/></pens>", *small), S_OK);
    EXPECT_EQ(small->GetPenCount(), 10);
    EXPECT_EQ(PenTable(*small).red[3], 5.0f);
}

TEST(PensXml, CountIsRaisedToTheLargestNumberAboveIt) {
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 32, 1, 1, 1, 1, 1);
    FillPens(*r, 4, 1, 1, 1, 1, 1);
    ASSERT_EQ(
        ReadPens("<pens><pen number=\"9\" red=\"9\"/><pen number=\"6\" red=\"6\"/></pens>", *r),
        S_OK);
    EXPECT_EQ(r->GetPenCount(), 9);
    const PenTable t(*r);
    EXPECT_EQ(t.red[6], 6.0f);
    EXPECT_EQ(t.red[3], 1.0f);
    // Pen 9 is the new count: it is read, but lies just outside the pens the count takes in, so
    // the record's slot 9 keeps the value it had.
    EXPECT_EQ(PenArrays::Red(*r, 9), 1.0f);
}

TEST(PensXml, NumberEqualToTheCountDoesNotRaiseIt) {
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 32, 1, 2, 3, 4, 1);
    FillPens(*r, 8, 1, 2, 3, 4, 1);
    ASSERT_EQ(ReadPens("<pens><pen number=\"8\" red=\"50\" enable=\"NO\"/></pens>", *r), S_OK);
    EXPECT_EQ(r->GetPenCount(), 8);
    EXPECT_EQ(PenArrays::Red(*r, 8), 1.0f);
    EXPECT_EQ(PenArrays::Enable(*r, 8), 1);
}

TEST(PensXml, PensBetweenTheOldAndTheRaisedCountKeepTheirValues) {
    // The reader works on copies of all 32 slots of the record, so slots past the old count that
    // the file does not name come back as the record held them.
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 32, 7, 8, 9, 0.5f, 1);
    FillPens(*r, 4, 1, 1, 1, 1, 0);  // slots 4 to 31 keep 7, 8, 9, 0.5, 1
    ASSERT_EQ(ReadPens("<pens><pen number=\"10\" red=\"100\"/><pen number=\"5\" red=\"55\"/>"
                       "</pens>",
                       *r),
              S_OK);
    EXPECT_EQ(r->GetPenCount(), 10);
    const PenTable t(*r);
    EXPECT_EQ(t.red[5], 55.0f);
    EXPECT_EQ(t.enable[5], 1);
    for (const int i : {4, 6, 7, 8, 9}) {
        EXPECT_EQ(t.red[i], 7.0f) << i;
        EXPECT_EQ(t.green[i], 8.0f) << i;
        EXPECT_EQ(t.blue[i], 9.0f) << i;
        EXPECT_EQ(t.width[i], 0.5f) << i;
        EXPECT_EQ(t.enable[i], 1) << i;
    }
    EXPECT_EQ(t.red[3], 1.0f);
    EXPECT_EQ(t.enable[3], 0);
}

TEST(PensXml, OtherChildrenOfPensAreSkipped) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><Pen number=\"1\" red=\"11\"/><colour number=\"2\" red=\"12\"/>"
                       "<pen number=\"3\" red=\"13\"/><pens number=\"4\" red=\"14\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[1], 0.0f);
    EXPECT_EQ(t.red[2], 255.0f);
    EXPECT_EQ(t.red[3], 13.0f);
    EXPECT_EQ(t.red[4], 255.0f);
}

TEST(PensXml, OnlyAFirstChildNamedPensIsRead) {
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<other/><pens><pen number=\"1\" red=\"11\"/></pens>", *r), S_OK);
    EXPECT_EQ(PenTable(*r).red[1], 0.0f);
    ASSERT_EQ(ReadPens("<Pens><pen number=\"1\" red=\"11\"/></Pens>", *r), S_OK);
    EXPECT_EQ(PenTable(*r).red[1], 0.0f);
    ASSERT_EQ(ReadPens("<pens><pen number=\"1\" red=\"11\"/></pens>"
                       "<pens><pen number=\"1\" red=\"22\"/></pens>",
                       *r),
              S_OK);
    EXPECT_EQ(PenTable(*r).red[1], 11.0f);
}

TEST(PensXml, EmptyPenListSetsTheSameTable) {
    Owned<VRKPrintHPGLProperties> r;
    FillPens(*r, 5, 1, 2, 3, 4, 1);
    ASSERT_EQ(ReadPens("<pens/>", *r), S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.count, 5);
    EXPECT_EQ(t.red[4], 1.0f);
    EXPECT_EQ(t.width[4], 4.0f);
}

TEST(PensXml, ValuesWithAPointInTheCLocale) {
    ASSERT_STREQ(std::localeconv()->decimal_point, ".");
    Owned<VRKPrintHPGLProperties> r;
    ASSERT_EQ(ReadPens("<pens><pen number=\"1\" red=\"127.5\" width=\"0.25\"/>"
                       "<pen number=\"2\" red=\"127,5\" width=\"0,25\"/></pens>",
                       *r),
              S_OK);
    const PenTable t(*r);
    EXPECT_EQ(t.red[1], 127.5f);
    EXPECT_EQ(t.width[1], 0.25f);
    // A comma is no decimal character here: the number ends before it.
    EXPECT_EQ(t.red[2], 127.0f);
    EXPECT_EQ(t.width[2], 0.0f);
}

TEST(PensXml, ValuesWithAPointInADecimalCommaLocale) {
    Owned<VRKPrintHPGLProperties> r;
    {
        CommaLocaleScope comma;
        ASSERT_TRUE(comma.Active())
            << "localedef could not build " << kCommaLocale << " (Debian package locales)";
        ASSERT_EQ(ReadPens("<pens><pen number=\"1\" red=\"127.5\" green=\"0.5\" blue=\"1.25e2\" "
                           "width=\"0.35\"/><pen number=\"2\" red=\"12,5\"/></pens>",
                           *r),
                  S_OK);
    }
    const PenTable t(*r);
    EXPECT_EQ(t.red[1], 127.5f);
    EXPECT_EQ(t.green[1], 0.5f);
    EXPECT_EQ(t.blue[1], 125.0f);
    EXPECT_EQ(t.width[1], 0.35f);
    // Text already in the locale's notation reads as it is.
    EXPECT_EQ(t.red[2], 12.5f);
}

TEST(PensXml, RoundTripInADecimalCommaLocale) {
    Owned<VRKPrintHPGLProperties> source;
    std::vector<float> red(32), green(32), blue(32), width(32);
    std::vector<int> enable(32);
    for (int i = 0; i < 32; ++i) {
        red[static_cast<size_t>(i)] = 0.5f * static_cast<float>(i);
        green[static_cast<size_t>(i)] = 255.0f - 0.25f * static_cast<float>(i);
        blue[static_cast<size_t>(i)] = 3.75f;
        width[static_cast<size_t>(i)] = 0.125f * static_cast<float>(i);
        enable[static_cast<size_t>(i)] = i % 2;
    }
    source->SetPens(32, red.data(), green.data(), blue.data(), width.data(), enable.data());
    Owned<VRKPrintHPGLProperties> target;
    {
        CommaLocaleScope comma;
        ASSERT_TRUE(comma.Active());
        VRKLightXmlElement element;
        VRKPropertiesLightXmlNode writer(&element);
        ASSERT_EQ(VRKPropertiesXmlWriter::WriteHPGL(writer, *source), S_OK);
        VRKPropertiesLightXmlNode reader(&element);
        ASSERT_EQ(VRKPropertiesXmlReader::ReadHPGL(reader, *target), S_OK);
    }
    const PenTable t(*target);
    for (size_t i = 1; i < 32; ++i) {
        EXPECT_EQ(t.red[i], red[i]) << i;
        EXPECT_EQ(t.green[i], green[i]) << i;
        EXPECT_EQ(t.blue[i], blue[i]) << i;
        EXPECT_EQ(t.width[i], width[i]) << i;
        EXPECT_EQ(t.enable[i], enable[i]) << i;
    }
}

}  // namespace
