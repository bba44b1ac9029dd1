// New settings for a printer of the list: in place, everything else kept.

#include <gtest/gtest.h>

#include <string>

#include "host/xml/VRKLightXmlElement.h"
#include "host/xml/VRKLightXmlFile.h"
#include "printers/PrinterLists.h"

namespace {

TEST(PrinterReplace, NewSettingsKeepThePrintersPlace) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "printers.xml",
        ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"x\"/>\n"
                 "<Printer name=\"b\" language=\"HPGL\" description=\"pens\" destination=\"y\">"
                 "<HPGLProperties origin=\"Center\"/></Printer>\n"
                 "<Printer name=\"c\" language=\"HPGL2\" destination=\"z\"/>\n"));
    VRKPrinterManager manager(path);
    ASSERT_TRUE(manager.Begin()) << manager.GetError();
    VRKPrinter* old = manager.Find("b");
    ASSERT_NE(old, nullptr);
    VRKLightXmlElement settings;
    std::string error;
    ASSERT_TRUE(
        VRKLightXmlFile::Parse("<HPGLProperties origin=\"Upper Right Corner\"/>", settings, error))
        << error;
    ASSERT_TRUE(manager.ReplaceSettings("b", settings, error)) << error;
    EXPECT_EQ(Names(manager), "a,b,c");
    const VRKPrinter* now = manager.Find("b");
    ASSERT_NE(now, nullptr);
    EXPECT_EQ(now->GetDescription().ToUtf8(), "pens");
    EXPECT_EQ(now->GetDestination().ToUtf8(), "y");
    EXPECT_EQ(now->GetLanguage().ToUtf8(), "HPGL");
    ASSERT_NE(now->GetSettings(), nullptr);
    EXPECT_TRUE(*now->GetSettings() == settings);
    // The printer found before keeps its own settings until End().
    ASSERT_NE(old->GetSettings(), nullptr);
    EXPECT_FALSE(*old->GetSettings() == settings);

    EXPECT_FALSE(manager.ReplaceSettings("nobody", settings, error));
    EXPECT_EQ(error, path + ": no printer 'nobody' in the list");
    manager.End();
    EXPECT_FALSE(manager.ReplaceSettings("b", settings, error));
    EXPECT_EQ(error, path + ": the printer list has not been read");
}

}  // namespace
