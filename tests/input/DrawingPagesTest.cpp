// The pages of a drawing document: Begin with the first page's form, StartNewPage with each
// next one's, the pen selected again on every page, the palette kept for the whole job.

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <vector>

#include "host/input/VRKDrawingDocumentReader.h"
#include "support/RecordingGenerator.h"
#include "support/TempFolder.h"

namespace {

// A format whose documents are the pages it was given.
class PagesReader final : public VRKDrawingDocumentReader {
  public:
    std::vector<VRKDrawing> pages;
    const char* GetName() const override { return "pages"; }
    const char* GetDescription() const override { return "pages"; }
    std::vector<std::string> GetExtensions() const override { return {}; }
    bool Recognizes(std::string_view) const override { return false; }

  protected:
    bool Import(VRKDocumentInput&, const PageSink& page, VRKDocumentResult&) override {
        for (VRKDrawing& drawing : pages) {
            if (!page(drawing)) {
                return false;
            }
        }
        return true;
    }
};

VRKDrawing line(float width, float height, float x) {
    VRKDrawing d;
    d.width = width;
    d.height = height;
    VRKDrawingPen pen;
    pen.width = 0.5f;
    const VRKDrawingPoint xy[] = {{x, 1}, {x, 2}};
    d.AddPath(d.PenIndex(pen), xy, nullptr, 2);
    return d;
}

struct PagesRun {
    TempFolder folder;
    VRKDocumentInput input;
    RecordingGenerator generator;
    VRKDocumentResult result;
    bool played = false;

    explicit PagesRun(PagesReader& reader, const VRKDocumentOptions& options = {}) {
        std::ofstream(folder.File("doc")) << "pages";
        std::string error;
        if (input.Open(folder.File("doc"), error)) {
            played = reader.Play(input, generator, options, result);
        }
    }
};

TEST(DrawingPages, EachPageHasItsFormAndItsPenSelectedAgain) {
    PagesReader reader;
    reader.pages.push_back(line(100, 50, 10));
    reader.pages.push_back(line(210, 297, 20));
    PagesRun run(reader);
    ASSERT_TRUE(run.played) << run.result.error;
    EXPECT_EQ(run.generator.calls,
              (std::vector<std::string>{
                  "Begin w=100 h=50 o=1 r=0 c=0 m=0,0,0,0 t=0", "DefineColor 1 0 0 0",
                  "SelectDrawColor 1", "SetDrawWidth 0.5", "SetLineStyle 0", "SetLineCap 10",
                  "SetLineJoin 13", "MoveTo 10 1", "LineTo 10 2",
                  "StartNewPage w=210 h=297 o=1 r=0 c=0 m=0,0,0,0 t=0", "SelectDrawColor 1",
                  "SetDrawWidth 0.5", "SetLineStyle 0", "SetLineCap 10", "SetLineJoin 13",
                  "MoveTo 20 1", "LineTo 20 2", "End"}));
}

TEST(DrawingPages, TheTravelIsMeasuredOverEveryPage) {
    PagesReader reader;
    reader.pages.push_back(line(100, 50, 3));
    reader.pages.push_back(line(100, 50, 4));
    VRKDocumentOptions options;
    options.stats = true;
    PagesRun run(reader, options);
    ASSERT_TRUE(run.played) << run.result.error;
    ASSERT_TRUE(run.result.before.has_value());
    // Each page from the origin: 1 mm down, the travel of (3, 1) and (4, 1) from (0, 0).
    EXPECT_DOUBLE_EQ(run.result.before->penDown, 2.0);
    EXPECT_NEAR(run.result.before->penUp, std::hypot(3.0, 1.0) + std::hypot(4.0, 1.0), 1e-9);
    EXPECT_EQ(run.result.before->penChanges, 0);
}

TEST(DrawingPages, ADocumentOfNoPagesIsAnError) {
    PagesReader reader;
    PagesRun run(reader);
    EXPECT_FALSE(run.played);
    EXPECT_EQ(run.result.error, run.folder.File("doc") + ": the document has no pages");
    EXPECT_TRUE(run.generator.calls.empty());
}

}  // namespace
