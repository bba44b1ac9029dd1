// The filter's mapping from the spooler's request (marked PPD choices, job options) to the
// language's settings element and the document layout, checked value by value without a spooler.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "host/xml/VRKLightXmlFile.h"
#include "tools/vrkplot-cups/CupsJobMapping.h"

namespace {

constexpr const char* kXml = "<?xml version=\"1.0\"?>\n";

CupsJobRequest request(const std::string& language,
                       std::vector<std::pair<std::string, std::string>> choices = {}) {
    CupsJobRequest r;
    r.language = language;
    for (auto& [keyword, choice] : choices) {
        r.choices[keyword] = choice;
    }
    return r;
}

// The settings element the request maps to, as a settings file holds it; the error otherwise.
std::string settingsOf(const CupsJobRequest& r) {
    CupsJob job;
    std::string error;
    if (!CupsJobMapping::Map(r, job, error)) {
        return "error: " + error;
    }
    return VRKLightXmlFile::ToText(job.settings);
}

CupsJob mapped(const CupsJobRequest& r) {
    CupsJob job;
    std::string error;
    EXPECT_TRUE(CupsJobMapping::Map(r, job, error)) << error;
    return job;
}

std::string errorOf(const CupsJobRequest& r) {
    CupsJob job;
    std::string error;
    EXPECT_FALSE(CupsJobMapping::Map(r, job, error));
    return error;
}

// The media types of the PPDs and the spellings of the settings files.
const std::vector<std::pair<std::string, std::string>> kMediaTypes = {
    {"Default", "Default"},
    {"Paper", "Paper"},
    {"Transparency", "Transparency film"},
    {"Vellum", "Vellum"},
    {"PolyesterFilm", "Polyester film"},
    {"TranslucentPaper", "Translucent paper"},
    {"SpecialPaper", "Special paper"},
    {"GlossyPaper", "Glossy paper"},
};

TEST(CupsJobMapping, HPGL2DefaultsOfThePpd) {
    EXPECT_EQ(
        settingsOf(request(
            "HPGL2",
            {{"MediaType", "Default"}, {"VRKCutter", "True"}, {"cupsPrintQuality", "High"}})),
        std::string(kXml) +
            "<HPGL2Properties mediaType=\"Default\" cutterState=\"YES\" quality=\"100\" />\n");
}

TEST(CupsJobMapping, HPGL2QualitiesAndCutter) {
    EXPECT_EQ(settingsOf(request("HPGL2", {{"cupsPrintQuality", "Draft"}, {"VRKCutter", "False"}})),
              std::string(kXml) + "<HPGL2Properties cutterState=\"NO\" quality=\"0\" />\n");
    EXPECT_EQ(settingsOf(request("HPGL2", {{"cupsPrintQuality", "Normal"}})),
              std::string(kXml) + "<HPGL2Properties quality=\"50\" />\n");
}

TEST(CupsJobMapping, EveryMediaTypeOfEveryPrinter) {
    for (const auto& [choice, value] : kMediaTypes) {
        EXPECT_EQ(settingsOf(request("HPGL2", {{"MediaType", choice}})),
                  std::string(kXml) + "<HPGL2Properties mediaType=\"" + value + "\" />\n");
        EXPECT_EQ(settingsOf(request("HP1000GL2", {{"MediaType", choice}})),
                  std::string(kXml) + "<HP1000GL2Properties mediaType=\"" + value + "\" />\n");
        EXPECT_EQ(settingsOf(request("HP4000GL2", {{"MediaType", choice}})),
                  std::string(kXml) + "<HP4000GL2Properties mediaType=\"" + value + "\" />\n");
    }
}

TEST(CupsJobMapping, AChoiceThePpdDoesNotOfferIsAnError) {
    EXPECT_EQ(errorOf(request("HPGL2", {{"MediaType", "Canvas"}})),
              "the option MediaType has no choice 'Canvas' for the language HPGL2");
    EXPECT_EQ(errorOf(request("HP4000GL2", {{"Resolution", "720dpi"}})),
              "the option Resolution has no choice '720dpi' for the language HP4000GL2");
    EXPECT_EQ(errorOf(request("HP1000GL2", {{"VRKInkedArea", "Maybe"}})),
              "the option VRKInkedArea has no choice 'Maybe' for the language HP1000GL2");
}

TEST(CupsJobMapping, AnUnknownLanguageIsAnError) {
    EXPECT_EQ(errorOf(request("PCL5")),
              "the PPD names no known printer language ('PCL5'; *VRKLanguage is HPGL2, HPGL, "
              "HP1000GL2 or HP4000GL2)");
}

TEST(CupsJobMapping, HP1000GL2DefaultsOfThePpd) {
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"MediaType", "Default"},
                                               {"cupsPrintQuality", "High"},
                                               {"VRKCutter", "True"},
                                               {"VRKAutoRotate", "True"},
                                               {"VRKInkedArea", "True"},
                                               {"VRKResolutionEnhancement", "True"},
                                               {"VRKRollFeeder", "Single"},
                                               {"InputSlot", "Roll"}})),
              std::string(kXml) +
                  "<HP1000GL2Properties mediaType=\"Default\" quality=\"Best\" cutterState=\"YES\" "
                  "autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\">\n"
                  "  <monoRollFeeder mediaSource=\"Roll\" />\n"
                  "</HP1000GL2Properties>\n");
}

TEST(CupsJobMapping, HP1000GL2QualitiesAndSwitches) {
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"cupsPrintQuality", "Draft"},
                                               {"VRKCutter", "False"},
                                               {"VRKAutoRotate", "False"},
                                               {"VRKInkedArea", "False"},
                                               {"VRKResolutionEnhancement", "False"}})),
              std::string(kXml) +
                  "<HP1000GL2Properties quality=\"Fast\" cutterState=\"NO\" autoRotate=\"NO\" "
                  "inkedArea=\"NO\" ret=\"NO\" />\n");
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"cupsPrintQuality", "Normal"}})),
              std::string(kXml) + "<HP1000GL2Properties quality=\"Normal\" />\n");
}

TEST(CupsJobMapping, HP1000GL2SingleRollSources) {
    const auto feed = [](const char* slot) {
        return settingsOf(request("HP1000GL2", {{"VRKRollFeeder", "Single"}, {"InputSlot", slot}}));
    };
    const std::string head = std::string(kXml) + "<HP1000GL2Properties>\n  <monoRollFeeder ";
    EXPECT_EQ(feed("Roll"), head + "mediaSource=\"Roll\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("Roll1"), head + "mediaSource=\"Roll\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("ManualFeed"), head + "mediaSource=\"ManualFeed\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("Roll2"),
              "error: the input slot 'Roll2' needs the multi-roll feeder (VRKRollFeeder=Multi)");
    EXPECT_EQ(feed("Roll3"),
              "error: the input slot 'Roll3' needs the multi-roll feeder (VRKRollFeeder=Multi)");
}

TEST(CupsJobMapping, HP1000GL2MultiRollSources) {
    const auto feed = [](const char* slot) {
        return settingsOf(request("HP1000GL2", {{"VRKRollFeeder", "Multi"}, {"InputSlot", slot}}));
    };
    const std::string head = std::string(kXml) + "<HP1000GL2Properties>\n  <multiRollFeeder ";
    EXPECT_EQ(feed("Roll"), head + "mediaSource=\"Roll1\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("Roll1"), head + "mediaSource=\"Roll1\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("Roll2"), head + "mediaSource=\"Roll2\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("Roll3"), head + "mediaSource=\"Roll3\" />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(feed("ManualFeed"),
              "error: the input slot 'ManualFeed' needs the single-roll "
              "feeder (VRKRollFeeder=Single)");
    EXPECT_EQ(feed("Tray"),
              "error: the input slot 'Tray' needs the single-roll feeder "
              "(VRKRollFeeder=Single)");
}

TEST(CupsJobMapping, HP1000GL2FeederWithoutSlotAndSlotWithoutFeeder) {
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"VRKRollFeeder", "Multi"}})),
              std::string(kXml) +
                  "<HP1000GL2Properties>\n  <multiRollFeeder />\n</HP1000GL2Properties>\n");
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"InputSlot", "Roll"}})),
              "error: the option InputSlot needs the option VRKRollFeeder (Single or Multi)");
    EXPECT_EQ(settingsOf(request("HP1000GL2", {{"VRKRollFeeder", "Triple"}})),
              "error: the option VRKRollFeeder has no choice 'Triple' for the language "
              "HP1000GL2");
}

TEST(CupsJobMapping, HP4000GL2DefaultsOfThePpd) {
    EXPECT_EQ(settingsOf(request("HP4000GL2", {{"MediaType", "Default"},
                                               {"VRKCutter", "True"},
                                               {"cupsPrintQuality", "Normal"},
                                               {"VRKAutoRotate", "True"},
                                               {"VRKInkedArea", "True"},
                                               {"VRKResolutionEnhancement", "True"},
                                               {"Resolution", "600dpi"},
                                               {"VRKMaxDetail", "True"},
                                               {"InputSlot", "Roll"}})),
              std::string(kXml) +
                  "<HP4000GL2Properties mediaType=\"Default\" cutterState=\"YES\" "
                  "printQuality=\"NORMAL\" autoRotate=\"YES\" inkedArea=\"YES\" ret=\"YES\" "
                  "resolution=\"600\" maxDetail=\"YES\" mediaSource=\"Roll\" />\n");
}

TEST(CupsJobMapping, HP4000GL2EveryOtherChoice) {
    EXPECT_EQ(settingsOf(request("HP4000GL2", {{"VRKCutter", "False"},
                                               {"cupsPrintQuality", "Draft"},
                                               {"VRKAutoRotate", "False"},
                                               {"VRKInkedArea", "False"},
                                               {"VRKResolutionEnhancement", "False"},
                                               {"Resolution", "300dpi"},
                                               {"VRKMaxDetail", "False"},
                                               {"InputSlot", "ManualFeed"}})),
              std::string(kXml) +
                  "<HP4000GL2Properties cutterState=\"NO\" printQuality=\"DRAFT\" "
                  "autoRotate=\"NO\" inkedArea=\"NO\" ret=\"NO\" resolution=\"300\" "
                  "maxDetail=\"NO\" mediaSource=\"ManualFeed\" />\n");
    EXPECT_EQ(
        settingsOf(request("HP4000GL2", {{"cupsPrintQuality", "High"}, {"Resolution", "1200dpi"}})),
        std::string(kXml) + "<HP4000GL2Properties printQuality=\"HIGH\" resolution=\"1200\" />\n");
    EXPECT_EQ(settingsOf(request("HP4000GL2", {{"InputSlot", "Roll2"}})),
              "error: the option InputSlot has no choice 'Roll2' for the language HP4000GL2");
}

// Two standard pens, as a fresh generator would write them.
VRKLightXmlElement standardPens() {
    VRKLightXmlElement pens(VRKString("pens"));
    for (const auto& [number, red, enable] :
         std::vector<std::tuple<const char*, const char*, const char*>>{{"1", "0", "YES"},
                                                                        {"2", "255", "NO"}}) {
        VRKLightXmlElement pen(VRKString("pen"));
        pen.SetAttributes({{VRKString("number"), VRKString(number)},
                           {VRKString("red"), VRKString(red)},
                           {VRKString("green"), VRKString("0")},
                           {VRKString("blue"), VRKString("0")},
                           {VRKString("width"), VRKString("0.35")},
                           {VRKString("enable"), VRKString(enable)}});
        pens.AddChild(pen);
    }
    return pens;
}

TEST(CupsJobMapping, HPGLStandardPensWithTheChosenWidth) {
    CupsJobRequest r = request(
        "HPGL",
        {{"VRKPenTable", "Standard"}, {"VRKPenWidth", "0.7mm"}, {"VRKLineThickness", "False"}});
    r.standardPens = standardPens();
    EXPECT_EQ(settingsOf(r),
              std::string(kXml) +
                  "<HPGLProperties printThickness=\"NO\">\n"
                  "  <pens>\n"
                  "    <pen number=\"1\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.7\" "
                  "enable=\"YES\" />\n"
                  "    <pen number=\"2\" red=\"255\" green=\"0\" blue=\"0\" width=\"0.7\" "
                  "enable=\"NO\" />\n"
                  "  </pens>\n"
                  "</HPGLProperties>\n");
}

TEST(CupsJobMapping, HPGLEveryPenWidth) {
    for (const auto& [choice, width] :
         std::vector<std::pair<std::string, std::string>>{{"0.25mm", "0.25"},
                                                          {"0.35mm", "0.35"},
                                                          {"0.5mm", "0.5"},
                                                          {"0.7mm", "0.7"},
                                                          {"1.0mm", "1"}}) {
        CupsJobRequest r = request("HPGL", {{"VRKPenTable", "Standard"}, {"VRKPenWidth", choice}});
        r.standardPens = standardPens();
        const CupsJob job = mapped(r);
        ASSERT_EQ(job.settings.GetChildCount(), 1);
        const VRKLightXmlElement& pens = *job.settings.GetChild(0);
        ASSERT_EQ(pens.GetChildCount(), 2);
        EXPECT_EQ(std::string(pens.GetChild(0)->GetAttribute(VRKString("width")).CastToCharPtr()),
                  width);
        EXPECT_EQ(std::string(pens.GetChild(1)->GetAttribute(VRKString("width")).CastToCharPtr()),
                  width);
    }
    EXPECT_EQ(settingsOf(request("HPGL", {{"VRKPenTable", "Black"}, {"VRKPenWidth", "2mm"}})),
              "error: the option VRKPenWidth has no choice '2mm' for the language HPGL");
}

TEST(CupsJobMapping, HPGLBlackPensOneToEight) {
    std::string pens;
    for (int number = 1; number <= 8; ++number) {
        pens += "    <pen number=\"" + std::to_string(number) +
                "\" red=\"0\" green=\"0\" blue=\"0\" width=\"0.25\" enable=\"YES\" />\n";
    }
    EXPECT_EQ(settingsOf(request("HPGL", {{"VRKPenTable", "Black"},
                                          {"VRKPenWidth", "0.25mm"},
                                          {"VRKLineThickness", "True"}})),
              std::string(kXml) + "<HPGLProperties printThickness=\"YES\">\n  <pens>\n" + pens +
                  "  </pens>\n</HPGLProperties>\n");
}

TEST(CupsJobMapping, HPGLSettingsPensLeaveThePensToTheQueue) {
    EXPECT_EQ(settingsOf(request("HPGL", {{"VRKPenTable", "Settings"},
                                          {"VRKPenWidth", "1.0mm"},
                                          {"VRKLineThickness", "False"}})),
              std::string(kXml) + "<HPGLProperties printThickness=\"NO\" />\n");
    EXPECT_EQ(settingsOf(request("HPGL", {{"VRKPenTable", "Mine"}})),
              "error: the option VRKPenTable has no choice 'Mine' for the language HPGL");
    EXPECT_EQ(settingsOf(request("HPGL", {{"VRKPenTable", "Standard"}})),
              "error: the standard pen table of the language HPGL is not known");
}

TEST(CupsJobMapping, NamedPageSizesAreForms) {
    CupsJobRequest r = request("HPGL2");
    r.pageSize = CupsPageSize{"A3", 842.0, 1191.0, 14.17};
    const CupsJob job = mapped(r);
    ASSERT_TRUE(job.document.layout.form.has_value());
    EXPECT_EQ(job.document.layout.form->width, 297.0f);   // 842 pt = 297.04 mm
    EXPECT_EQ(job.document.layout.form->height, 420.2f);  // 1191 pt = 420.16 mm
    EXPECT_EQ(job.document.layout.margins, 5.0f);         // 14.17 pt = 4.999 mm
}

TEST(CupsJobMapping, ARollIsItsWidthAndTheDrawingsLength) {
    CupsJobRequest r = request("HP4000GL2");
    r.pageSize = CupsPageSize{"Roll36in", 2592.0, 4320.0, 14.17};
    const CupsJob job = mapped(r);
    ASSERT_TRUE(job.document.layout.form.has_value());
    EXPECT_EQ(job.document.layout.form->width, 914.4f);
    EXPECT_EQ(job.document.layout.form->height, 0.0f);
}

TEST(CupsJobMapping, ACustomSizeAndNone) {
    CupsJobRequest r = request("HPGL");
    r.pageSize = CupsPageSize{"Custom", 720.0, 360.0, 0.0};
    CupsJob job = mapped(r);
    ASSERT_TRUE(job.document.layout.form.has_value());
    EXPECT_EQ(job.document.layout.form->width, 254.0f);
    EXPECT_EQ(job.document.layout.form->height, 127.0f);
    EXPECT_EQ(job.document.layout.margins, 0.0f);
    job = mapped(request("HPGL"));
    EXPECT_FALSE(job.document.layout.form.has_value());
    r.pageSize = CupsPageSize{"Custom", 0.0, 360.0, 0.0};
    EXPECT_EQ(errorOf(r), "the page size Custom has no usable dimensions");
}

TEST(CupsJobMapping, Orientation) {
    const auto landscape = [](std::vector<std::pair<std::string, std::string>> options) {
        CupsJobRequest r = request("HPGL2");
        for (auto& [name, value] : options) {
            r.options[name] = value;
        }
        return mapped(r).document.layout.landscape;
    };
    EXPECT_FALSE(landscape({}));
    EXPECT_FALSE(landscape({{"orientation-requested", "3"}}));
    EXPECT_TRUE(landscape({{"orientation-requested", "4"}}));
    EXPECT_TRUE(landscape({{"orientation-requested", "5"}}));
    EXPECT_FALSE(landscape({{"orientation-requested", "6"}}));
    EXPECT_TRUE(landscape({{"landscape", ""}}));
    EXPECT_TRUE(landscape({{"landscape", "true"}}));
    EXPECT_FALSE(landscape({{"landscape", "false"}}));
    EXPECT_FALSE(landscape({{"landscape", "yes"}, {"orientation-requested", "3"}}));
    CupsJobRequest r = request("HPGL2");
    r.options["orientation-requested"] = "7";
    EXPECT_EQ(errorOf(r), "orientation-requested=7: not 3, 4, 5 or 6");
    r = request("HPGL2");
    r.options["landscape"] = "sideways";
    EXPECT_EQ(errorOf(r), "landscape=sideways: not true or false");
}

TEST(CupsJobMapping, Scaling) {
    const auto scaling = [](std::vector<std::pair<std::string, std::string>> options) {
        CupsJobRequest r = request("HP1000GL2");
        for (auto& [name, value] : options) {
            r.options[name] = value;
        }
        const CupsJob job = mapped(r);
        return std::to_string(job.document.layout.fit) +
               std::to_string(job.document.layout.fitWhenLarger);
    };
    EXPECT_EQ(scaling({}), "01");
    EXPECT_EQ(scaling({{"print-scaling", "auto"}}), "01");
    EXPECT_EQ(scaling({{"print-scaling", "fit"}}), "10");
    EXPECT_EQ(scaling({{"print-scaling", "fill"}}), "10");
    EXPECT_EQ(scaling({{"print-scaling", "none"}}), "00");
    EXPECT_EQ(scaling({{"fit-to-page", ""}}), "10");
    EXPECT_EQ(scaling({{"fit-to-page", "true"}}), "10");
    EXPECT_EQ(scaling({{"fit-to-page", "false"}}), "01");
    EXPECT_EQ(scaling({{"fit-to-page", "true"}, {"print-scaling", "none"}}), "00");
    CupsJobRequest r = request("HP1000GL2");
    r.options["print-scaling"] = "wide";
    EXPECT_EQ(errorOf(r), "print-scaling=wide: not auto, fit, fill or none");
    r = request("HP1000GL2");
    r.options["fit-to-page"] = "perhaps";
    EXPECT_EQ(errorOf(r), "fit-to-page=perhaps: not true or false");
}

TEST(CupsJobMapping, TheLayoutIsThePrinters) {
    EXPECT_TRUE(mapped(request("HPGL2")).document.layoutFromPrinter);
}

TEST(CupsJobMapping, ThePenPlotterOrdersForTravel) {
    EXPECT_TRUE(mapped(request("HPGL")).document.orderForTravel);
    EXPECT_FALSE(mapped(request("HPGL2")).document.orderForTravel);
    EXPECT_FALSE(mapped(request("HP1000GL2")).document.orderForTravel);
    EXPECT_FALSE(mapped(request("HP4000GL2")).document.orderForTravel);
}

TEST(CupsJobMapping, TextIsOutlinesUnlessLabelsAreChosen) {
    for (const char* language : {"HPGL2", "HPGL", "HP1000GL2", "HP4000GL2"}) {
        EXPECT_FALSE(mapped(request(language)).document.textLabels) << language;
        EXPECT_FALSE(mapped(request(language, {{"VRKText", "Outlines"}})).document.textLabels)
            << language;
        EXPECT_TRUE(mapped(request(language, {{"VRKText", "Labels"}})).document.textLabels)
            << language;
    }
    EXPECT_EQ(settingsOf(request("HPGL2", {{"VRKText", "Glyphs"}})),
              "error: the option VRKText has no choice 'Glyphs' for the language HPGL2");
}

TEST(CupsJobMapping, CopiesAndTitle) {
    CupsJobRequest r = request("HPGL2");
    r.copies = 3;
    r.title = "Plan 7";
    const CupsJob job = mapped(r);
    EXPECT_EQ(job.copies, 3);
    EXPECT_EQ(job.jobName, "Plan 7");
    r.copies = 0;
    EXPECT_EQ(errorOf(r), "copies: 0 is not from 1 to 9999");
    r.copies = 10000;
    EXPECT_EQ(errorOf(r), "copies: 10000 is not from 1 to 9999");
}

}  // namespace
