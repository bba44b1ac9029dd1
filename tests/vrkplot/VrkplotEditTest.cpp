// `vrkplot settings --edit` where no dialog can be shown: a clear message, status 2, at once,
// and the settings file as it was.

#include <gtest/gtest.h>

#include "support/ScopedEnv.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

TEST_F(Vrkplot, EditWithoutADisplayFailsAtOnce) {
    const ScopedEnv display("DISPLAY", std::nullopt);
    const ScopedEnv wayland("WAYLAND_DISPLAY", std::nullopt);
    const ScopedEnv platform("QT_QPA_PLATFORM", std::nullopt);
    Job("mine.xml", "<HPGL2Properties mediaType=\"Paper\"/>\n");
    const std::string before = ReadFileBytes(folder.File("mine.xml"));
    EXPECT_EQ(Run({"settings", "--edit", "--settings", folder.File("mine.xml")}), 2);
    EXPECT_EQ(err,
              "vrkplot: cannot show the settings dialog: no display: neither DISPLAY nor "
              "WAYLAND_DISPLAY is set (QT_QPA_PLATFORM=offscreen runs dialogs without one)\n");
    EXPECT_EQ(out, "");
    EXPECT_EQ(ReadFileBytes(folder.File("mine.xml")), before);
    // A new settings file is not made either.
    EXPECT_EQ(Run({"settings", "-l", "HP4000GL2", "--edit", "--settings", folder.File("new.xml")}),
              2);
    EXPECT_EQ(folder.Listing(), "mine.xml\n");
}

TEST_F(Vrkplot, PrinterEditWithoutADisplayLeavesTheList) {
    const ScopedEnv display("DISPLAY", std::nullopt);
    const ScopedEnv wayland("WAYLAND_DISPLAY", std::nullopt);
    const ScopedEnv platform("QT_QPA_PLATFORM", std::nullopt);
    const std::string list = "VRK_PRINTERS=" + folder.File("printers.xml");
    ASSERT_EQ(
        Run({"printers", "--add", "pens", "-l", "HPGL", "--destination", "out.plt", "-q"}, {list}),
        0)
        << err;
    const std::string before = ReadFileBytes(folder.File("printers.xml"));
    EXPECT_EQ(Run({"printers", "--edit", "pens"}, {list}), 2);
    EXPECT_EQ(err,
              "vrkplot: cannot show the settings dialog: no display: neither DISPLAY nor "
              "WAYLAND_DISPLAY is set (QT_QPA_PLATFORM=offscreen runs dialogs without one)\n");
    EXPECT_EQ(ReadFileBytes(folder.File("printers.xml")), before);
    EXPECT_EQ(Run({"printers", "--edit", "nobody"}, {list}), 2);
    EXPECT_EQ(err,
              "vrkplot: " + folder.File("printers.xml") + ": no printer 'nobody' in the list\n");
}

}  // namespace
