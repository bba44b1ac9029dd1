// Where the printer list is looked for.

#include <pwd.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "printers/PrinterLists.h"
#include "support/ScopedEnv.h"

namespace {

using Value = std::optional<std::string>;

// DefaultPath() with the three variables set as given (nullopt: not set).
std::string DefaultWith(Value own, Value config, Value home) {
    ScopedEnv a("VRK_PRINTERS", std::move(own));
    ScopedEnv b("XDG_CONFIG_HOME", std::move(config));
    ScopedEnv c("HOME", std::move(home));
    return VRKPrinterManager::DefaultPath();
}

// The home folder of the password database, as the path is built on it.
std::string PasswordHomeList() {
    const passwd* entry = ::getpwuid(::getuid());
    if (entry == nullptr || entry->pw_dir == nullptr || entry->pw_dir[0] == '\0') {
        return "";
    }
    const std::string home = entry->pw_dir;
    return home + (home.back() == '/' ? "" : "/") + ".config/vrkplot/printers.xml";
}

TEST(PrinterListPath, VrkPrintersComesFirst) {
    EXPECT_EQ(DefaultWith("/srv/plot/list.xml", "/etc/xdg", "/home/u"), "/srv/plot/list.xml");
    EXPECT_EQ(DefaultWith("list.xml", std::nullopt, std::nullopt), "list.xml");
}

TEST(PrinterListPath, ThenTheConfigurationFolder) {
    EXPECT_EQ(DefaultWith(std::nullopt, "/cfg", "/home/u"), "/cfg/vrkplot/printers.xml");
    EXPECT_EQ(DefaultWith("", "/cfg/", "/home/u"), "/cfg/vrkplot/printers.xml");
    EXPECT_EQ(DefaultWith(std::nullopt, "/", std::nullopt), "/vrkplot/printers.xml");
}

TEST(PrinterListPath, ThenTheHomeFolder) {
    EXPECT_EQ(DefaultWith(std::nullopt, std::nullopt, "/home/u"),
              "/home/u/.config/vrkplot/printers.xml");
    EXPECT_EQ(DefaultWith("", "", "/home/u/"), "/home/u/.config/vrkplot/printers.xml");
    // A configuration folder that is not absolute is not valid and is passed over.
    EXPECT_EQ(DefaultWith(std::nullopt, "cfg", "/home/u"), "/home/u/.config/vrkplot/printers.xml");
    EXPECT_EQ(DefaultWith(std::nullopt, "./cfg", "/home/u"),
              "/home/u/.config/vrkplot/printers.xml");
}

TEST(PrinterListPath, WithoutHomeThePasswordDatabase) {
    const std::string expected = PasswordHomeList();
    EXPECT_EQ(DefaultWith(std::nullopt, std::nullopt, std::nullopt), expected);
    EXPECT_EQ(DefaultWith("", "", ""), expected);
}

TEST(PrinterListPath, TheDefaultManagerReadsThere) {
    TempFolder folder("printers");
    const std::string path = folder.Write(
        "mine.xml",
        ListText("<Printer name=\"a\" language=\"HPGL2\" destination=\"/dev/null\"/>\n"));
    {
        ScopedEnv own("VRK_PRINTERS", path);
        VRKPrinterManager manager;
        EXPECT_EQ(manager.GetPath(), path);
        ASSERT_TRUE(manager.Begin()) << manager.GetError();
        EXPECT_EQ(Names(manager), "a");
    }
    {
        ScopedEnv own("VRK_PRINTERS", std::nullopt);
        ScopedEnv config("XDG_CONFIG_HOME", folder.Path());
        VRKPrinterManager manager;
        EXPECT_EQ(manager.GetPath(), folder.File("vrkplot/printers.xml"));
        ASSERT_TRUE(manager.Begin()) << manager.GetError();
        EXPECT_EQ(Names(manager), "");
    }
}

}  // namespace
