#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "host/pdf/VRKPdfImporter.h"
#include "host/pdf/VRKPdfRenderProcess.h"
#include "pdf/PdfObjectFile.h"

namespace {

using std::chrono::milliseconds;

// One page that draws form F, whose content draws form F' `fan` times, and so on `levels` deep;
// the innermost form's content is `leaf`. `fan` to the power `levels` leaves in a few hundred
// bytes.
std::string FormTree(int levels, int fan, const std::string& leaf) {
    PdfObjectFile file;
    const int catalog = file.Add("");
    const int pages = file.Add("");
    const std::string form = "/Type /XObject /Subtype /Form /BBox [0 0 10 10]";
    int inner = file.AddStream(leaf, form);
    std::string calls;
    for (int i = 0; i < fan; ++i) {
        calls += "/F Do ";
    }
    for (int level = 0; level < levels; ++level) {
        inner = file.AddStream(
            calls, form + " /Resources << /XObject << /F " + std::to_string(inner) + " 0 R >> >>");
    }
    const int content = file.AddStream("/F Do");
    const int page = file.Add("<< /Type /Page /Parent " + std::to_string(pages) +
                              " 0 R /MediaBox [0 0 200 100] /Resources << /XObject << /F " +
                              std::to_string(inner) + " 0 R >> >> /Contents " +
                              std::to_string(content) + " 0 R >>");
    file.Set(catalog, "<< /Type /Catalog /Pages " + std::to_string(pages) + " 0 R >>");
    file.Set(pages, "<< /Type /Pages /Kids [" + std::to_string(page) + " 0 R] /Count 1 >>");
    return file.Finish(catalog);
}

using Outcome = VRKPdfRenderProcess::Outcome;

VRKPdfRenderProcess::Limits Bounds(std::size_t memory, milliseconds time, std::size_t output) {
    VRKPdfRenderProcess::Limits limits;
    limits.maxMemoryGrowth = memory;
    limits.maxTime = time;
    limits.maxOutput = output;
    return limits;
}

const VRKPdfRenderProcess::Limits kWide =
    Bounds(std::size_t{1} << 30, milliseconds(60000), 1 << 20);

// Runs `work` as the opening of a child and gives its outcome.
Outcome First(const VRKPdfRenderProcess::Work& work, const VRKPdfRenderProcess::Limits& limits,
              std::string& output, std::string& error) {
    VRKPdfRenderProcess process;
    EXPECT_TRUE(process.Start(work, 0, limits, error)) << error;
    return process.Next(output, error);
}

TEST(PdfRenderProcess, TextOfEachPageComesBackInOrder) {
    VRKPdfRenderProcess process;
    std::string error;
    const auto work = [](int index, std::string& text, std::string&) {
        if (index < 0) {
            text = "4";
            return true;
        }
        // Pages of different sizes, the second larger than the pipe holds.
        text = std::string(index == 1 ? 200000 : 10, static_cast<char>('a' + index));
        text += std::string("\0\xff", 2);
        return true;
    };
    ASSERT_TRUE(process.Start(work, 1, kWide, error)) << error;
    EXPECT_EQ(process.NextPage(), -1);
    std::string output;
    ASSERT_EQ(process.Next(output, error), Outcome::kDone);
    EXPECT_EQ(output, "4");
    EXPECT_EQ(process.NextPage(), 1);
    for (int index = 1; index < 4; ++index) {
        ASSERT_EQ(process.Next(output, error), Outcome::kDone) << index;
        EXPECT_EQ(output, std::string(index == 1 ? 200000 : 10, static_cast<char>('a' + index)) +
                              std::string("\0\xff", 2));
    }
    EXPECT_EQ(process.NextPage(), 4);
    // The child has ended after the last page.
    EXPECT_EQ(process.Next(output, error), Outcome::kCrashed);
}

TEST(PdfRenderProcess, ChildDoesNotChangeTheParent) {
    int value = 1;
    std::string output;
    std::string error;
    const auto work = [&value](int, std::string& text, std::string&) {
        value = 2;
        text = std::to_string(value);
        return true;
    };
    EXPECT_EQ(First(work, kWide, output, error), Outcome::kDone);
    EXPECT_EQ(output, "2");
    EXPECT_EQ(value, 1);
}

TEST(PdfRenderProcess, MessageOfAFailureComesBackAndEndsTheChild) {
    VRKPdfRenderProcess process;
    std::string output = "old";
    std::string error;
    const auto work = [](int index, std::string& text, std::string& message) {
        if (index == 1) {
            message = "the page cannot be read";
            return false;
        }
        text = index < 0 ? "3" : "page";
        return true;
    };
    ASSERT_TRUE(process.Start(work, 0, kWide, error));
    EXPECT_EQ(process.Next(output, error), Outcome::kDone);
    EXPECT_EQ(output, "3");
    EXPECT_EQ(process.Next(output, error), Outcome::kDone);
    EXPECT_EQ(output, "page");
    EXPECT_EQ(process.Next(output, error), Outcome::kFailed);
    EXPECT_EQ(error, "the page cannot be read");
    EXPECT_EQ(output, "");
    EXPECT_EQ(process.NextPage(), -2);
}

TEST(PdfRenderProcess, ChildPastItsTimeIsStopped) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) {
        std::this_thread::sleep_for(std::chrono::seconds(60));
        return true;
    };
    EXPECT_EQ(First(work, Bounds(std::size_t{1} << 30, milliseconds(50), 100), output, error),
              Outcome::kTime);
}

TEST(PdfRenderProcess, ChildPastItsMemoryIsStopped) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) {
        // 512 MiB taken and touched a mebibyte at a time, slowly enough to be seen.
        std::vector<std::vector<char>> blocks;
        for (int i = 0; i < 512; ++i) {
            blocks.emplace_back(std::size_t{1} << 20, '\1');
            std::this_thread::sleep_for(milliseconds(2));
        }
        return true;
    };
    EXPECT_EQ(First(work, Bounds(std::size_t{8} << 20, milliseconds(60000), 100), output, error),
              Outcome::kMemory);
}

TEST(PdfRenderProcess, TextPastItsSizeIsRefused) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string& text, std::string&) {
        text.assign(4096, 'x');
        return true;
    };
    EXPECT_EQ(First(work, Bounds(std::size_t{1} << 30, milliseconds(60000), 4095), output, error),
              Outcome::kTooLarge);
    EXPECT_EQ(First(work, Bounds(std::size_t{1} << 30, milliseconds(60000), 4096), output, error),
              Outcome::kDone);
    EXPECT_EQ(output.size(), 4096u);
}

TEST(PdfRenderProcess, ChildThatDiesIsReported) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) {
        ::kill(::getpid(), SIGKILL);
        return true;
    };
    EXPECT_EQ(First(work, kWide, output, error), Outcome::kCrashed);
    EXPECT_EQ(error, "the renderer stopped on the page (signal 9)");
}

TEST(PdfRenderProcess, CrashOfTheChildIsItsOwn) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) {
        ::raise(SIGSEGV);
        return true;
    };
    EXPECT_EQ(First(work, kWide, output, error), Outcome::kCrashed);
    EXPECT_EQ(error, "the renderer stopped on the page (signal 11)");
}

void ExitWith42(int) {
    ::_exit(42);
}

TEST(PdfRenderProcess, HandlersOfTheParentDoNotRunInTheChild) {
    // A handler like vrkplot's, which removes its unfinished plot: a signal in the child must
    // not run it there.
    struct sigaction handler {};
    struct sigaction before {};
    handler.sa_handler = ExitWith42;
    sigemptyset(&handler.sa_mask);
    ASSERT_EQ(::sigaction(SIGUSR1, &handler, &before), 0);
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) {
        ::raise(SIGUSR1);
        return true;
    };
    EXPECT_EQ(First(work, kWide, output, error), Outcome::kCrashed);
    EXPECT_EQ(error, "the renderer stopped on the page (signal 10)");
    ::sigaction(SIGUSR1, &before, nullptr);
}

TEST(PdfRenderProcess, ChildOutOfMemoryIsReported) {
    std::string output;
    std::string error;
    const auto work = [](int, std::string&, std::string&) -> bool { throw std::bad_alloc(); };
    EXPECT_EQ(First(work, kWide, output, error), Outcome::kNoMemory);
}

TEST(PdfRenderProcess, ChildLeftRunningIsEndedWithTheProcessObject) {
    std::string error;
    {
        VRKPdfRenderProcess process;
        const auto work = [](int, std::string&, std::string&) {
            std::this_thread::sleep_for(std::chrono::seconds(60));
            return true;
        };
        ASSERT_TRUE(process.Start(work, 0, kWide, error));
    }
    // Every child of this test has been waited for: none is left to wait for.
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(PdfLimits, PageOfFormsDrawingFormsIsStoppedByTime) {
    // A million forms that save and restore the graphics state: no memory, only time (some
    // half a minute of it).
    const std::string pdf = FormTree(6, 10, "q Q");
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{1} << 30, milliseconds(100));
    std::vector<VRKDrawing> pages;
    EXPECT_FALSE(importer.ReadMemory(pdf, "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(),
              "plan.pdf: page 1: the page takes more than 0.1 seconds to draw");
    EXPECT_TRUE(pages.empty());
}

TEST(PdfLimits, PageOfFormsDrawingFormsIsStoppedByMemory) {
    // A million lines through forms of forms.
    const std::string pdf = FormTree(6, 10, "0 0 m 10 10 l S");
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{16} << 20, milliseconds(600000));
    std::vector<VRKDrawing> pages;
    EXPECT_FALSE(importer.ReadMemory(pdf, "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(),
              "plan.pdf: page 1: drawing the page takes more than 16 MiB of memory");
    EXPECT_TRUE(pages.empty());
}

TEST(PdfLimits, FormsWithinTheBoundsAreDrawn) {
    // 100 lines through two levels of forms.
    const std::string pdf = FormTree(2, 10, "0 0 m 10 10 l S");
    VRKPdfImporter importer;
    std::vector<VRKDrawing> pages;
    ASSERT_TRUE(importer.ReadMemory(pdf, "plan.pdf", pages)) << importer.GetError();
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0].strokes.size(), 100u);
}

TEST(PdfLimits, ImageOfAMillionPixelsASideIsStopped) {
    // Twelve bytes of pixels for an image that claims 3 TB: Poppler pads the missing rows.
    PdfObjectFile file;
    const int catalog = file.Add("");
    const int pages = file.Add("");
    const int image = file.AddStream("abcdefghijkl",
                                     "/Type /XObject /Subtype /Image "
                                     "/Width 1000000 /Height 1000000 "
                                     "/ColorSpace /DeviceRGB /BitsPerComponent 8");
    const int content = file.AddStream("q 100 0 0 100 10 10 cm /I Do Q");
    const int page = file.Add("<< /Type /Page /Parent " + std::to_string(pages) +
                              " 0 R /MediaBox [0 0 200 200] /Resources << /XObject << /I " +
                              std::to_string(image) + " 0 R >> >> /Contents " +
                              std::to_string(content) + " 0 R >>");
    file.Set(catalog, "<< /Type /Catalog /Pages " + std::to_string(pages) + " 0 R >>");
    file.Set(pages, "<< /Type /Pages /Kids [" + std::to_string(page) + " 0 R] /Count 1 >>");
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{1} << 30, milliseconds(300));
    std::vector<VRKDrawing> drawings;
    EXPECT_FALSE(importer.ReadMemory(file.Finish(catalog), "plan.pdf", drawings));
    EXPECT_EQ(importer.GetError(),
              "plan.pdf: page 1: the page takes more than 0.3 seconds to draw");
}

TEST(PdfLimits, DocumentWhoseMendingTakesTooMuchMemoryIsStopped) {
    // No cross-reference table, and an object numbered 20,000,153: Poppler makes room for
    // twenty million entries while it mends the table (over a gigabyte, found by the fuzz target).
    const std::string pdf =
        "%PDF-1.7\n1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n"
        "2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\nendobj\n"
        "3 0 obj\n<< /Type /Page /Parent 2 0 R /MediaBox [0 0 100 100] >>\nendobj\n"
        "20000153 0 obj\n<< >>\nendobj\ntrailer\n<< /Root 1 0 R >>\n%%EOF\n";
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{16} << 20, milliseconds(600000));
    std::vector<VRKDrawing> pages;
    EXPECT_FALSE(importer.ReadMemory(pdf, "plan.pdf", pages));
    EXPECT_EQ(importer.GetError(),
              "plan.pdf: opening the document takes more than 16 MiB of memory");
    EXPECT_TRUE(pages.empty());
}

TEST(PdfLimits, SecondsInTheMessage) {
    const std::string pdf = FormTree(6, 10, "q Q");
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{1} << 30, milliseconds(1000));
    std::vector<VRKDrawing> pages;
    EXPECT_FALSE(importer.ReadMemory(pdf, "a.pdf", pages));
    EXPECT_EQ(importer.GetError(), "a.pdf: page 1: the page takes more than 1 second to draw");
}

}  // namespace
