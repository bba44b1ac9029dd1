#include <gtest/gtest.h>

#include <string>

#include "designjet/VRKPrintHP1055CGenerator.h"
#include "designjet/VRKPrintHP4000Generator.h"
#include "host/core/VRKClassDictionary.h"
#include "properties/VRKPrintHP1055CProperties.h"
#include "properties/VRKPrintHP4000Properties.h"
#include "support/GeneratorRun.h"
#include "support/HPGL2Peer.h"
#include "support/Printable.h"

namespace {

const std::string kBody =
    "\x1b"
    "E"
    "\x1b"
    "%0BBP5,0INECQL100PS8400,11880IP0,0,8400,11880NP256TR0MC0SP0LA2,2,3,2PUSP0PG;";

std::string Header1000(const std::string& name, const std::string& ret, const std::string& area,
                       const std::string& source) {
    return "\x1b%-12345X@PJL JOB NAME=\"VORAN:" + name + "\"\n" +
           "@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 1000 Series\n"
           "@PJL SET MIRROR=OFF\n"
           "@PJL SET RESOLUTION=600\n"
           "@PJL SET RENDERMODE=COLOR\n"
           "@PJL SET PALETTESOURCE=SOFTWARE\n"
           "@PJL SET RET=" +
           ret + "\n" + "@PJL SET PRINTAREA=" + area + "\n" + "@PJL SET MEDIASOURCE=" + source +
           "\n" + "@PJL ENTER LANGUAGE=HPGL2\n";
}

std::string Header4000(const std::string& name, const std::string& resolution,
                       const std::string& render, const std::string& ret, const std::string& area,
                       const std::string& source, const std::string& quality,
                       const std::string& detail) {
    return "\x1b%-12345X@PJL JOB NAME=\"VORAN:" + name + "\"\n" +
           "@PJL COMMENT VORAN HP-GL/2 Driver for HPDesignet 4000 Series\n"
           "@PJL SET MIRROR=OFF\n"
           "@PJL SET RESOLUTION=" +
           resolution + "\n" + "@PJL SET RENDERMODE=" + render + "\n" +
           "@PJL SET PALETTESOURCE=SOFTWARE\n"
           "@PJL SET RET=" +
           ret + "\n" + "@PJL SET PRINTAREA=" + area + "\n" + "@PJL SET MEDIASOURCE=" + source +
           "\n" + "@PJL SET PRINTQUALITY=" + quality + "\n" + "@PJL SET MAXDETAIL=" + detail +
           "\n" + "@PJL ENTER LANGUAGE=HPGL2\n";
}

std::string Eoj(const std::string& name) {
    return "\x1b%-12345X@PJL EOJ NAME=\"VORAN:" + name + "\"\n";
}

using Run1000 = GeneratorRun<VRKPrintHP1055CGenerator>;
using Run4000 = GeneratorRun<VRKPrintHP4000Generator>;

TEST(DesignJet1000, RegisteredUnderItsLanguage) {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage("HP1000GL2");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->className, "VRKPrintHP1055CGenerator");
    EXPECT_EQ(entry->factory, &fctCreateVRKPrintHP1055CGenerator);
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
    ASSERT_NE(run.generator, nullptr);
    EXPECT_EQ(run->GetLanguage().str(), "HP1000GL2");
    EXPECT_TRUE(run->IsAKindOf("VRKPrintHPGL2Generator"));
    // No record until a job or the host sets one.
    EXPECT_EQ(run->GetProperties(), nullptr);
}

TEST(DesignJet1000, DefaultJob) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    EXPECT_BYTES(Header1000("J", "ON", "INKEDAREA", "ROLL1") + kBody + Eoj("J"), run.Bytes());
    ASSERT_NE(run->GetProperties(), nullptr);
    EXPECT_STREQ(run->GetProperties()->IsA(), "VRKPrintHP1055CProperties");
}

TEST(DesignJet1000, SettingsReachTheBody) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator, "plots/a \"b\".plt");
    auto* record = new VRKPrintHP1055CProperties;
    record->SetAutoRotate(0);
    record->SetRet(0);
    record->SetInkedArea(0);
    record->SetMediaType(2);
    record->SetCutterState(0);
    record->SetQuality(50);
    run->SetHP1055CProperties(record);
    record->Release();
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    const std::string name = "plots/a \"b\".plt";  // written raw
    EXPECT_BYTES(Header1000(name, "OFF", "FULLSIZE", "ROLL1") +
                     "\x1b"
                     "E"
                     "\x1b"
                     "%0BBP5,2INMT2EC1QL50PS8400,11880IP0,0,8400,11880"
                     "NP256TR0MC0SP0LA2,2,3,2PUSP0PG;" +
                     Eoj(name),
                 run.Bytes());
}

TEST(DesignJet1000, ManualFeedIsAlwaysFullSize) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
    auto* record = new VRKPrintHP1055CProperties;
    record->SetMediaSource(1);
    record->SetInkedArea(1);
    run->SetHP1055CProperties(record);
    record->Release();
    run->Begin(FormParameters(210, 297, 1));
    EXPECT_NE(run.Bytes().find("PRINTAREA=FULLSIZE\n@PJL SET MEDIASOURCE=MANUALFEED\n"),
              std::string::npos);
}

TEST(DesignJet1000, MultiRollFeeder) {
    for (int source : {0, 1, 2}) {
        Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
        auto* record = new VRKPrintHP1055CProperties;
        record->SetMultiRollFeeder(1);
        record->SetMediaSource(source);
        record->SetInkedArea(source == 2 ? 0 : 1);
        run->SetHP1055CProperties(record);
        record->Release();
        run->Begin(FormParameters(210, 297, 1));
        const std::string expected =
            std::string("PRINTAREA=") + (source == 2 ? "FULLSIZE" : "INKEDAREA") +
            "\n@PJL SET MEDIASOURCE=ROLL" + std::to_string(source + 1) + "\n";
        EXPECT_NE(run.Bytes().find(expected), std::string::npos) << Printable(run.Bytes());
    }
}

TEST(DesignJet1000, SingleRollOtherSource) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
    auto* record = new VRKPrintHP1055CProperties;
    record->SetMediaSource(2);
    record->SetInkedArea(0);
    run->SetHP1055CProperties(record);
    record->Release();
    run->Begin(FormParameters(210, 297, 1));
    EXPECT_NE(run.Bytes().find("PRINTAREA=FULLSIZE\n@PJL SET MEDIASOURCE=MANUALFEED\n"),
              std::string::npos);
}

TEST(DesignJet1000, AlwaysColourWhateverTheColourMode) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator);
    VRKPrintParameters params = FormParameters(210, 297, 1);
    params.SetColorMode(1);
    run->Begin(params);
    EXPECT_NE(run.Bytes().find("RENDERMODE=COLOR\n"), std::string::npos);
}

TEST(DesignJet1000, EmptyJobName) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator, "");
    run->Begin(FormParameters(210, 297, 1));
    const std::string line = "\x1b%-12345X@PJL JOB NAME=\"VORAN:\"\n";
    EXPECT_EQ(run.Bytes().substr(0, line.size()), line);
}

TEST(DesignJet1000, JobNameIsTheStreamPathAtAttach) {
    Run1000 run(&fctCreateVRKPrintHP1055CGenerator, "first.plt");
    run.stream.SetPath("second.plt");
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    EXPECT_EQ(run.Bytes().substr(0, 41), "\x1b%-12345X@PJL JOB NAME=\"VORAN:first.plt\"\n");
    EXPECT_NE(run.Bytes().find(Eoj("first.plt")), std::string::npos);
}

TEST(DesignJet4000, RegisteredUnderItsLanguage) {
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage("HP4000GL2");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->className, "VRKPrintHP4000Generator");
    Run4000 run(&fctCreateVRKPrintHP4000Generator);
    ASSERT_NE(run.generator, nullptr);
    EXPECT_EQ(run->GetLanguage().str(), "HP4000GL2");
}

TEST(DesignJet4000, DefaultJob) {
    Run4000 run(&fctCreateVRKPrintHP4000Generator);
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    EXPECT_BYTES(Header4000("J", "600", "COLOR", "ON", "INKEDAREA", "ROLL1", "NORMAL", "ON") +
                     "\x1b"
                     "E"
                     "\x1b"
                     "%0BBP5,0INECPS8400,11880IP0,0,8400,11880"
                     "NP256TR0MC0SP0LA2,2,3,2PUSP0PG;\n" +
                     Eoj("J"),
                 run.Bytes());
    EXPECT_EQ(run->GetHP4000Properties()->GetQuality(), -1);
}

TEST(DesignJet4000, Mappings) {
    struct Case {
        int resolution, quality, colorMode;
        std::uint8_t inked, detail, ret, rotate;
        int source;
        std::string header;
        const char* bp;
    };
    const Case cases[] = {
        {0, 0, 1, 2, 0, 2, 0, 0,
         Header4000("J", "300", "GRAYSCALE", "OFF", "FULLSIZE", "MANUALFEED", "DRAFT", "OFF"),
         "BP5,2"},
        {2, 2, 2, 1, 1, 1, 2, 5,
         Header4000("J", "1200", "TRUEBLACK", "ON", "INKEDAREA", "ROLL1", "HIGH", "ON"), "BP5,2"},
        {3, 7, 9, 1, 1, 1, 1, 1,
         Header4000("J", "600", "COLOR", "ON", "INKEDAREA", "ROLL1", "NORMAL", "ON"), "BP5,0"},
    };
    for (const Case& c : cases) {
        Run4000 run(&fctCreateVRKPrintHP4000Generator);
        auto* record = new VRKPrintHP4000Properties;
        record->SetResolution(c.resolution);
        record->SetPrintQuality(c.quality);
        record->SetInkedArea(c.inked);
        record->SetMaxDetail(c.detail);
        record->SetRet(c.ret);
        record->SetAutoRotate(c.rotate);
        record->SetMediaSource(c.source);
        run->SetHP4000Properties(record);
        record->Release();
        VRKPrintParameters params = FormParameters(210, 297, 1);
        params.SetColorMode(c.colorMode);
        run->Begin(params);
        EXPECT_BYTES(c.header +
                         "\x1b"
                         "E"
                         "\x1b"
                         "%0B" +
                         c.bp + "INECPS8400",
                     run.Bytes().substr(0, c.header.size() + 21));
    }
}

TEST(DesignJet4000, RecordReachesTheBodyAndQualityStaysOut) {
    Run4000 run(&fctCreateVRKPrintHP4000Generator);
    auto* record = new VRKPrintHP4000Properties;
    record->SetMediaType(4);
    record->SetCutterState(0);
    record->SetQuality(80);
    run->SetHP4000Properties(record);
    record->Release();
    run->Begin(FormParameters(210, 297, 1));
    EXPECT_NE(run.Bytes().find("BP5,0INMT4EC1PS8400"), std::string::npos);
    EXPECT_EQ(run->GetHP4000Properties()->GetQuality(), -1);
}

TEST(DesignJet4000, PenPlotterTypeTravelsToTheBody) {
    Run4000 run(&fctCreateVRKPrintHP4000Generator);
    auto* record = new VRKPrintHP4000Properties;
    record->SetType(1);
    run->SetHP4000Properties(record);
    record->Release();
    run->Begin(FormParameters(210, 297, 1));
    run->End();
    const std::string bytes = run.Bytes();
    EXPECT_NE(bytes.find("@PJL ENTER LANGUAGE=HPGL2\nPU0,0PR;SP1;PU;PA;SP0;PG;\n"),
              std::string::npos)
        << Printable(bytes);
}

TEST(DesignJet4000, DrawingIsTheHPGL2Generators) {
    Run4000 run(&fctCreateVRKPrintHP4000Generator);
    run->Begin(FormParameters(210, 297, 1));
    run->DefineColor(3, 1.0f, 0.5f, 0.0f);
    run->SelectDrawColor(3);
    run->MoveTo(1, 1);
    run->LineTo(2, 1);
    run->End();
    EXPECT_NE(run.Bytes().find("PC3,255,127,0SP3PE=<\x4F\xC0\x4F\xC0\x4F\xC0\xBF;PUSP0PG;\n"),
              std::string::npos);
}

}  // namespace
