#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "host/pdf/VRKPdfBytes.h"
#include "host/pdf/VRKPdfImporter.h"
#include "host/pdf/VRKPdfPageWatch.h"
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

TEST(PdfLimits, BytesAreTheDocumentsUntilWithdrawnThenZero) {
    VRKPdfBytes bytes;
    const std::string data = "%PDF-1.7\nsome bytes";
    ASSERT_TRUE(bytes.Assign(data));
    ASSERT_EQ(bytes.Size(), data.size());
    EXPECT_EQ(std::string(bytes.Data(), bytes.Size()), data);
    bytes.Withdraw();
    ASSERT_EQ(bytes.Size(), data.size());
    EXPECT_EQ(std::string(bytes.Data(), bytes.Size()), std::string(data.size(), '\0'));
}

TEST(PdfLimits, WatchFinishedInTimeDoesNotStop) {
    VRKPdfBytes bytes;
    ASSERT_TRUE(bytes.Assign("abc"));
    VRKPdfPageWatch watch(bytes, std::size_t{1} << 30, milliseconds(60000));
    EXPECT_EQ(watch.Finish(), VRKPdfPageWatch::Stop::kNone);
    EXPECT_EQ(std::string(bytes.Data(), 3), "abc");
}

TEST(PdfLimits, WatchPastItsTimeWithdrawsTheBytes) {
    VRKPdfBytes bytes;
    ASSERT_TRUE(bytes.Assign("abc"));
    VRKPdfPageWatch watch(bytes, std::size_t{1} << 30, milliseconds(20));
    std::this_thread::sleep_for(milliseconds(300));
    EXPECT_EQ(watch.Finish(), VRKPdfPageWatch::Stop::kTime);
    EXPECT_EQ(std::string(bytes.Data(), 3), std::string(3, '\0'));
}

TEST(PdfLimits, WatchWithdrawsTheBytesWhenMemoryGrowsPastTheBound) {
    VRKPdfBytes bytes;
    ASSERT_TRUE(bytes.Assign("abc"));
    VRKPdfPageWatch watch(bytes, std::size_t{4} << 20, milliseconds(60000));
    // 32 MiB taken and touched, so that they are resident, until the watch has seen them.
    std::vector<char> memory(std::size_t{32} << 20);
    std::memset(memory.data(), 1, memory.size());
    for (int i = 0; i < 200 && bytes.Data()[0] != '\0'; ++i) {
        std::this_thread::sleep_for(milliseconds(10));
    }
    EXPECT_EQ(watch.Finish(), VRKPdfPageWatch::Stop::kMemory);
    EXPECT_EQ(memory[memory.size() / 2], 1);
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

TEST(PdfLimits, SecondsInTheMessage) {
    const std::string pdf = FormTree(6, 10, "q Q");
    VRKPdfImporter importer;
    importer.SetLimits(std::size_t{1} << 30, milliseconds(1000));
    std::vector<VRKDrawing> pages;
    EXPECT_FALSE(importer.ReadMemory(pdf, "a.pdf", pages));
    EXPECT_EQ(importer.GetError(), "a.pdf: page 1: the page takes more than 1 second to draw");
}

}  // namespace
