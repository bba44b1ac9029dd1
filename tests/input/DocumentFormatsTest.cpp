#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "host/input/VRKDocumentFormats.h"
#include "host/input/VRKDocumentInput.h"
#include "host/input/VRKJobDocumentReader.h"
#include "support/RecordingGenerator.h"
#include "support/TempFolder.h"

namespace {

TEST(JobDocumentReader, KnowsAJobFileByItsFirstVerb) {
    VRKJobDocumentReader reader;
    EXPECT_TRUE(reader.Recognizes("Begin width=210\nEnd\n"));
    EXPECT_TRUE(reader.Recognizes("# a plan\n\n  # more\n\tBegin\n"));
    EXPECT_TRUE(reader.Recognizes("MoveTo 1 2\n"));
    EXPECT_TRUE(reader.Recognizes("End\n"));
    EXPECT_TRUE(reader.Recognizes("Begin# comment\n"));
    EXPECT_FALSE(reader.Recognizes("<svg/>"));
    EXPECT_FALSE(reader.Recognizes("begin\n"));
    EXPECT_FALSE(reader.Recognizes("Beginning\n"));
    EXPECT_FALSE(reader.Recognizes(""));
    EXPECT_FALSE(reader.Recognizes("# only a comment"));
    // A word the head cuts may go on past it.
    EXPECT_FALSE(reader.Recognizes("Begin"));
}

TEST(DocumentInput, ReadsTheHeadAndTheWholeFile) {
    TempFolder folder;
    const std::string path = folder.File("plan.SVG");
    std::string text(10000, 'a');
    text[0] = '<';
    std::ofstream(path) << text;
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error)) << error;
    EXPECT_EQ(input.GetHead(), text.substr(0, VRKDocumentInput::kHeadSize));
    EXPECT_EQ(input.GetExtension(), ".svg");
    EXPECT_EQ(input.GetFolder(), folder.Path());
    std::string all;
    ASSERT_TRUE(input.ReadAll(all, 1 << 20, error)) << error;
    EXPECT_EQ(all, text);
}

TEST(DocumentInput, RefusesAFileOverTheLimit) {
    TempFolder folder;
    const std::string path = folder.File("big.svg");
    std::ofstream(path) << std::string((1 << 20) + 1, 'x');
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error));
    std::string all;
    EXPECT_FALSE(input.ReadAll(all, 1 << 20, error));
    EXPECT_EQ(error,
              path + ": the file is larger than 1 MiB, more than a drawing this program reads");
}

TEST(DocumentInput, ReadGivesTheHeadThenTheRestInPieces) {
    TempFolder folder;
    const std::string path = folder.File("plan.svg");
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += std::to_string(i) + ' ';
    }
    std::ofstream(path) << text;
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error)) << error;
    std::string all;
    char piece[1000];
    std::vector<std::size_t> counts;
    while (const std::size_t count = input.Read(piece, sizeof piece, 1 << 20, error)) {
        counts.push_back(count);
        all.append(piece, count);
    }
    EXPECT_TRUE(error.empty()) << error;
    EXPECT_EQ(all, text);
    // The head (4096 bytes) first, in whole pieces while they last.
    ASSERT_GE(counts.size(), 5u);
    EXPECT_EQ(counts[3], 1000u);
    EXPECT_EQ(counts[4], 96u);
    EXPECT_EQ(input.Read(piece, sizeof piece, 1 << 20, error), 0u);
}

TEST(DocumentInput, ReadRefusesAFileOverTheLimit) {
    TempFolder folder;
    const std::string path = folder.File("big.svg");
    std::ofstream(path) << std::string((1 << 20) + 1, 'x');
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error));
    std::vector<char> piece(1 << 16);
    std::size_t total = 0;
    while (const std::size_t count = input.Read(piece.data(), piece.size(), 1 << 20, error)) {
        total += count;
    }
    // The head, then whole pieces up to the one that would go past the limit.
    EXPECT_EQ(total, VRKDocumentInput::kHeadSize + 15 * piece.size());
    EXPECT_EQ(error,
              path + ": the file is larger than 1 MiB, more than a drawing this program reads");
}

TEST(DocumentInput, AMissingFileOrAFolderIsAnError) {
    TempFolder folder;
    VRKDocumentInput input;
    std::string error;
    EXPECT_FALSE(input.Open(folder.File("none.svg"), error));
    EXPECT_EQ(error, folder.File("none.svg") + ": cannot open the file: No such file or directory");
    VRKDocumentInput second;
    EXPECT_FALSE(second.Open(folder.Path(), error));
    EXPECT_EQ(error, folder.Path() + ": cannot open the file: it is a folder");
}

// A document written as `name` with `text`, its reader chosen and played into a recording
// generator.
struct Played {
    std::string reader;
    std::string error;
    bool played = false;
    RecordingGenerator generator;
    VRKDocumentResult result;
};

void play(const TempFolder& folder, const std::string& name, const std::string& text,
          Played& played) {
    const std::string path = folder.File(name);
    std::ofstream(path) << text;
    VRKDocumentInput input;
    if (!input.Open(path, played.error)) {
        return;
    }
    VRKDocumentReader* reader = VRKDocumentFormats::Choose(input, played.error);
    if (reader == nullptr) {
        return;
    }
    played.reader = reader->GetName();
    played.played = reader->Play(input, played.generator, {}, played.result);
}

TEST(DocumentFormats, AJobIsChosenByContentWhateverItsName) {
    TempFolder folder;
    Played p;
    play(folder, "plan.txt", "Begin width=100 height=50\nMoveTo 1 2\nLineTo 3 4\nEnd\n", p);
    EXPECT_EQ(p.reader, "job") << p.error;
    ASSERT_TRUE(p.played) << p.result.error;
    EXPECT_EQ(p.generator.calls,
              (std::vector<std::string>{"Begin w=100 h=50 o=1 r=0 c=0 m=0,0,0,0 t=0", "MoveTo 1 2",
                                        "LineTo 3 4", "End"}));
    EXPECT_TRUE(p.result.warnings.empty());
}

TEST(DocumentFormats, AJobWithALongCommentGoesByItsExtension) {
    TempFolder folder;
    Played p;
    play(folder, "long.job", "# " + std::string(5000, '-') + "\nBegin\nEnd\n", p);
    EXPECT_EQ(p.reader, "job") << p.error;
    EXPECT_TRUE(p.played) << p.result.error;
    EXPECT_EQ(p.generator.calls.size(), 2u);
}

TEST(DocumentFormats, AnSvgDrawingIsChosenByItsRootElement) {
    TempFolder folder;
    Played p;
    play(folder, "plan.drawing",
         "<?xml version=\"1.0\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20mm\" "
         "height=\"10mm\"/>\n",
         p);
    EXPECT_EQ(p.reader, "SVG") << p.error;
    ASSERT_TRUE(p.played) << p.result.error;
    EXPECT_EQ(p.generator.calls,
              (std::vector<std::string>{"Begin w=20 h=10 o=1 r=0 c=0 m=0,0,0,0 t=0", "End"}));
}

TEST(DocumentFormats, AnUnknownDocumentNamesTheFormatsKnown) {
    TempFolder folder;
    const std::string path = folder.File("notes.txt");
    std::ofstream(path) << "hello\n";
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error));
    EXPECT_EQ(VRKDocumentFormats::Choose(input, error), nullptr);
    EXPECT_EQ(error, path +
                         ": not a document this program reads (it reads job files (.job), SVG "
                         "drawings (.svg), PDF documents (.pdf))");
}

TEST(DocumentFormats, DrawingOptionsOnAJobAreSaidToBeUnused) {
    TempFolder folder;
    const std::string path = folder.File("a.job");
    std::ofstream(path) << "Begin\nEnd\n";
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error));
    VRKDocumentOptions options;
    options.layout.fit = true;
    RecordingGenerator generator;
    VRKDocumentResult result;
    VRKJobDocumentReader reader;
    ASSERT_TRUE(reader.Play(input, generator, options, result));
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{path + ": a job file sets its own pages; --form, "
                                               "--landscape, --fit and --margins apply to "
                                               "drawings and are not used"}));
}

TEST(DocumentFormats, ThePrintersLayoutOnAJobIsUnusedWithoutAWord) {
    TempFolder folder;
    const std::string path = folder.File("a.job");
    std::ofstream(path) << "Begin\nEnd\n";
    VRKDocumentInput input;
    std::string error;
    ASSERT_TRUE(input.Open(path, error));
    VRKDocumentOptions options;
    options.layout.form = VRKDrawingLayout::Form{210.0f, 297.0f};
    options.layout.fitWhenLarger = true;
    options.layout.margins = 5.0f;
    options.layoutFromPrinter = true;
    RecordingGenerator generator;
    VRKDocumentResult result;
    VRKJobDocumentReader reader;
    ASSERT_TRUE(reader.Play(input, generator, options, result));
    EXPECT_EQ(result.warnings, std::vector<std::string>{});
}

}  // namespace
