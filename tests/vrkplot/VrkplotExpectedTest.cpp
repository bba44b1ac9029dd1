// The plot of every job file under tests/jobs/ with every language vrkplot lists, against
// tests/expected/. Each plot is kept as its listing, tests/expected/LANGUAGE/JOB.dump, which is
// what `vrkplot dump` prints for it: one instruction a line, so that a change of the generators
// shows as a readable diff, and a last line with the plot's size and SHA-256, so that a change of
// any byte (raster data, which the listing shows only by its size, included) fails the test.
//
// A plot that is byte for byte the plot of another job or language is kept once: the file
// tests/expected/identical.txt has a line "LANGUAGE/JOB KEPT-LANGUAGE/KEPT-JOB" for it, and its
// listing must be the kept one's, SHA-256 included.
//
// VRKPLOT_PATH and VRK_TESTS_DIR come from the build.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/RunProgram.h"
#include "vrkplot/VrkplotFixture.h"

namespace {

namespace fs = std::filesystem;

const std::string kExpected = std::string(VRK_TESTS_DIR) + "/expected";
const std::string kIdentical = kExpected + "/identical.txt";
const std::string kIdenticalHeader =
    "# Plots that are byte for byte another one's, kept once (tests/regenerate-expected.sh writes\n"
    "# this file): LANGUAGE/JOB, then the LANGUAGE/JOB whose .dump file is its listing too.\n";

std::vector<std::string> languagesOf(const std::string& listing) {
    std::vector<std::string> names;
    std::istringstream lines(listing);
    std::string line;
    while (std::getline(lines, line)) {
        names.push_back(line.substr(0, line.find(' ')));
    }
    return names;
}

std::vector<std::string> jobNames() {
    std::vector<std::string> jobs;
    for (const auto& entry : fs::directory_iterator(std::string(VRK_TESTS_DIR) + "/jobs")) {
        if (entry.path().extension() == ".job") {
            jobs.push_back(entry.path().stem().string());
        }
    }
    std::sort(jobs.begin(), jobs.end());
    return jobs;
}

// The lines of identical.txt: each plot to the one whose listing it shares.
std::map<std::string, std::string> identicalPlots() {
    std::map<std::string, std::string> same;
    std::istringstream lines(ReadFileBytes(kIdentical));
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        std::istringstream words(line);
        std::string plot, kept;
        words >> plot >> kept;
        same[plot] = kept;
    }
    return same;
}

class VrkplotExpected : public Vrkplot {
  protected:
    // The plot of a job in a language, with the checks of what vrkplot says about it.
    std::string Plot(const std::string& language, const std::string& job) {
        // A relative output path: generators that write the job name (the output path) into
        // the plot give the same bytes wherever the test runs.
        EXPECT_EQ(Run({std::string(VRK_TESTS_DIR) + "/jobs/" + job + ".job", "-l", language, "-o",
                       job + ".plt"}),
                  0)
            << err;
        const std::string plot = ReadFileBytes(folder.File(job + ".plt"));
        // An HP-GL plot without a pen-down move is said to be blank: the frame and page jobs
        // draw nothing, and a pen plotter cannot draw a bitmap.
        const bool blank = language == "HPGL" && plot.find("PD") == std::string::npos;
        const bool drawsNothing = job == "frame" || job == "pages" || job == "bitmap";
        EXPECT_EQ(blank, language == "HPGL" && drawsNothing);
        EXPECT_EQ(err, blank ? "vrkplot: warning: the plot draws nothing: no pen ever goes "
                               "down (the job must select a colour with SelectDrawColor "
                               "before it draws: pen 0 is no pen)\n"
                             : "");
        return plot;
    }

    // `vrkplot dump` of the plot just made.
    std::string Listing(const std::string& job) {
        EXPECT_EQ(Run({"dump", job + ".plt"}), 0) << err;
        EXPECT_EQ(err, "");
        return out;
    }
};

// With VRK_REGENERATE_EXPECTED=1 in the environment the test writes the expected files instead
// of comparing with them (tests/regenerate-expected.sh); every change must then be read in
// `git diff tests/expected` before it is committed.
TEST_F(VrkplotExpected, PlotsOfEveryJobWithEveryLanguage) {
    const bool regenerate = std::getenv("VRK_REGENERATE_EXPECTED") != nullptr;
    ASSERT_EQ(Run({"--list-languages"}), 0) << err;
    const std::vector<std::string> languages = languagesOf(out);
    ASSERT_FALSE(languages.empty());
    const std::vector<std::string> jobs = jobNames();
    ASSERT_GE(jobs.size(), 3u);

    const std::map<std::string, std::string> same =
        regenerate ? std::map<std::string, std::string>() : identicalPlots();
    std::map<std::string, std::string> keptOfPlot;  // plot bytes -> LANGUAGE/JOB kept
    std::string identical = kIdenticalHeader;
    for (const std::string& language : languages) {
        const std::string folderOfLanguage = kExpected + "/" + language;
        if (regenerate) {
            fs::create_directories(folderOfLanguage);
        }
        for (const std::string& job : jobs) {
            const std::string name = language + "/" + job;
            SCOPED_TRACE(name);
            const std::string plot = Plot(language, job);
            const std::string listing = Listing(job);
            const std::string path = kExpected + "/" + name + ".dump";
            if (regenerate) {
                const auto [kept, isNew] = keptOfPlot.emplace(plot, name);
                if (isNew) {
                    std::ofstream(path, std::ios::binary) << listing;
                } else {
                    identical += name + " " + kept->second + "\n";
                    fs::remove(path);
                }
                continue;
            }
            const auto sameAs = same.find(name);
            if (sameAs != same.end()) {
                // Kept once: the listing of the other plot, its size and SHA-256 included.
                EXPECT_FALSE(fs::exists(path)) << path << " is kept as " << sameAs->second;
                EXPECT_EQ(ReadFileBytes(kExpected + "/" + sameAs->second + ".dump"), listing)
                    << "the plot of " << job << ".job in " << language << " is no longer that of "
                    << sameAs->second;
                continue;
            }
            ASSERT_TRUE(fs::exists(path))
                << path << " is missing: run tests/regenerate-expected.sh and review it";
            EXPECT_EQ(ReadFileBytes(path), listing)
                << "the plot of " << job << ".job in " << language << " changed";
        }
        // No expected file is left over from a job that is gone.
        for (const auto& entry : fs::directory_iterator(folderOfLanguage)) {
            const std::string stem = entry.path().stem().string();
            EXPECT_EQ(entry.path().extension(), ".dump") << entry.path();
            EXPECT_TRUE(std::find(jobs.begin(), jobs.end(), stem) != jobs.end())
                << entry.path() << " has no job file";
        }
    }
    if (regenerate) {
        std::ofstream(kIdentical, std::ios::binary) << identical;
        GTEST_SKIP() << "expected files written under " << kExpected
                     << ": review them with git diff";
    }
}

// `vrkplot dump`: a file, standard input, and files that cannot be read.
TEST_F(Vrkplot, DumpListsAPlot) {
    folder.Write("a.plt", "IN;PU1,2;LBab\x03");
    const std::string listing =
        "IN;\nPU 1,2; -> 1,2\nLB \"ab\"\nend of plot: 14 bytes, 0 anomalies, sha256 "
        "1066b5de90eccae74e99e9a15a840b912513ea98100b5376ba4dabd83720ea36\n";
    EXPECT_EQ(Run({"dump", "a.plt"}), 0) << err;
    EXPECT_EQ(err, "");
    EXPECT_EQ(out, listing);
    EXPECT_EQ(Run({"dump", "-"}, {}, "", folder.File("a.plt")), 0) << err;
    EXPECT_EQ(out, listing);
    EXPECT_EQ(Run({"dump", "missing.plt"}), 2);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "vrkplot: missing.plt: cannot open: No such file or directory\n");
    EXPECT_EQ(Run({"dump", "."}), 2);
    EXPECT_EQ(err, "vrkplot: .: cannot read: Is a directory\n");
}

}  // namespace
