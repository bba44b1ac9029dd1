#pragma once

// The fixture of the tests through a private spooler: finds the spooler's programs and the account
// its filters run as, starts a cupsd of the test's own (PrivateSpooler) with vrkplot-cups as its
// one filter, and a printer's raw port (PlotReceiver) for the queues to send to. A test that
// fails gets cupsd's error log printed. Where the spooler cannot run at all (not installed, no
// account for the filters, a build folder its user cannot reach) the tests are skipped, saying
// why.

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cups/PlotReceiver.h"
#include "cups/PrivateSpooler.h"
#include "cups/SpoolerAccount.h"
#include "cups/SpoolerPrograms.h"

class SpoolerEndToEnd : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string why;
        SpoolerPrograms programs = SpoolerPrograms::Find(why);
        if (!why.empty()) {
            GTEST_SKIP() << "the spooler is not installed: " << why << " is missing";
        }
        SpoolerAccount account = SpoolerAccount::Find(why);
        if (!why.empty()) {
            GTEST_SKIP() << why;
        }
        // The filter and the libraries and driver it loads. The PPD is read by lpadmin, as the
        // test's own user, and the queue's copy of it is cupsd's.
        for (const char* path : {VRK_CUPS_FILTER, VRK_CUPS_LIBRARY_DIR}) {
            if (!account.CanAccess(path, R_OK | X_OK)) {
                GTEST_SKIP() << "cupsd runs the filter as `" << account.User()
                             << "`, who cannot read " << path
                             << "; a build folder every user can read is needed";
            }
        }
        struct stat filter {};
        if (account.AsRoot() && (::stat(VRK_CUPS_FILTER, &filter) != 0 || filter.st_uid != 0 ||
                                 (filter.st_mode & (S_IWGRP | S_IWOTH)) != 0)) {
            GTEST_SKIP() << "cupsd started by root runs only filters that belong to root and "
                            "that no one else may write; "
                         << VRK_CUPS_FILTER << " is not one";
        }
        spooler_ = std::make_unique<PrivateSpooler>(programs, account);
        const std::string temporary =
            std::filesystem::path(spooler_->Folder().Path()).parent_path().string();
        if (!account.CanAccess(temporary, X_OK)) {
            GTEST_SKIP() << "cupsd runs the filter as `" << account.User()
                         << "`, who cannot enter the temporary folder " << temporary
                         << " that holds the spooler's files (set TMPDIR to one it can enter)";
        }
        lpadmin_ = programs.lpadmin;
        lp_ = programs.lp;
        if (!spooler_->Start({{"vrkplot-cups", VRK_CUPS_FILTER}}, why)) {
            FAIL() << why;
        }
    }

    void TearDown() override {
        if (HasFailure() && spooler_) {
            std::cout << "cupsd's error log:\n" << spooler_->ErrorLog() << std::endl;
        }
        spooler_.reset();  // ends cupsd and removes its folder
    }

    // Adds the queue `name` with the PPD `ppd`, sending to the test's raw port, enabled and
    // accepting jobs.
    void AddQueue(const std::string& name, const std::string& ppd) {
        std::string output;
        const std::string uri =
            "socket://127.0.0.1:" + std::to_string(printer_.Port()) + "/?snmp=false";
        ASSERT_EQ(spooler_->Client(lpadmin_, {"-p", name, "-E", "-v", uri, "-P", ppd}, output), 0)
            << output;
    }

    // Prints `file` on the queue `name` with `lp`.
    void Print(const std::string& name, const std::string& file) {
        std::string output;
        ASSERT_EQ(spooler_->Client(lp_, {"-d", name, file}, output), 0) << output;
        ASSERT_EQ(output.rfind("request id is " + name + "-", 0), 0u) << output;
    }

    // The bytes the printer received for the one job, once the backend has closed its
    // connection; nothing when that took longer than 60 s or the job failed.
    std::optional<std::string> AwaitPlot() {
        return printer_.Wait(std::chrono::seconds(60), [this] { return spooler_->JobGivenUp(); });
    }

    const TempFolder& Folder() const { return spooler_->Folder(); }

  private:
    PlotReceiver printer_;
    std::unique_ptr<PrivateSpooler> spooler_;
    std::string lpadmin_;
    std::string lp_;
};
