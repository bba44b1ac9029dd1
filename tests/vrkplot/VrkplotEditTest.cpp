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

}  // namespace
