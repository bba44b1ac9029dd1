// Fuzz target: the pen table and colour table files of the HP-GL dialect.
//
// Feeds: the input up to its first NUL byte is the PenTable file, the rest (when there is a NUL)
// the ColorTable file; both are written to the process's scratch folder, which is the temporary
// folder the generator reads them from (HPGL2_PEN_TABLE and HPGL2_COLOR_TABLE are set). A fixed
// drawing is then played into the HPGL generator, so that the tables are read at Begin and every
// colour, line width and fill looks its pen up in them; the plot goes to a null print stream.
//
// Checks: no crash, leak, undefined behaviour, hang or runaway allocation in reading the tables
// and in choosing pens, parallel strokes and hatching from what they hold.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintNullStream.h"
#include "host/job/VRKJobPlayer.h"

namespace {

// Colours near and far from the default pens, widths from below a plotter unit to several pens
// wide, outlines, fills with both rules, an arc and curves.
constexpr const char* kDrawing =
    "Begin width=420 height=297 orientation=0\n"
    "DefineColor 1 0 0 0\n"
    "DefineColor 2 1 0 0\n"
    "DefineColor 3 0.5 0.5 0.5\n"
    "DefineColor 4 0.2 0.9 0.4\n"
    "DefineColor 5 0 0 1\n"
    "SelectDrawColor 2\n"
    "SetDrawWidth 0.35\n"
    "MoveTo 10 10\n"
    "LineTo 100 10\n"
    "SetDrawWidth 0.01\n"
    "SelectDrawColor 3\n"
    "DrawPolyline 3 10 20 50 60 90 20\n"
    "SetDrawWidth 2.5\n"
    "SelectDrawColor 4\n"
    "DrawArcCircle 150 100 30 0 4 0\n"
    "DrawPolyBezier 4 10 100 40 150 70 50 100 100\n"
    "SetDrawWidth 5\n"
    "SelectDrawColor 1\n"
    "DrawPolyBezier 7 20 200 60 290 100 110 140 200 180 290 220 110 260 200\n"
    "SelectFillColor 5\n"
    "FillArea 1 4 200 20 260 20 260 80 200 80\n"
    "SetPolygonFillRule 1\n"
    "SelectFillColor 3\n"
    "FillArea 2 3 3 10 150 60 150 35 190 20 160 50 160 35 180\n"
    "SelectDrawColor 1\n"
    "SetDrawWidth 0.7\n"
    "DrawPolygon 4 300 100 400 100 400 200 300 200\n"
    "End\n";

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    vrkfuzz::DropStandardOutput();
    const std::string folder = vrkfuzz::ScratchFolder();
    ::setenv("TMPDIR", folder.c_str(), 1);
    ::setenv("HPGL2_PEN_TABLE", "", 1);
    ::setenv("HPGL2_COLOR_TABLE", "", 1);
    for (const char* name : {"HPGL_WITH_SP0", "TestPrint", "QMB_RWX_TMP"}) {
        ::unsetenv(name);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string folder = vrkfuzz::ScratchFolder() + "/";
    const auto* nul = static_cast<const std::uint8_t*>(std::memchr(data, 0, size));
    const std::size_t penSize = nul != nullptr ? static_cast<std::size_t>(nul - data) : size;
    vrkfuzz::WriteFile(folder + "PenTable", data, penSize);
    if (nul != nullptr) {
        vrkfuzz::WriteFile(folder + "ColorTable", nul + 1, size - penSize - 1);
    } else {
        std::remove((folder + "ColorTable").c_str());
    }

    VRKSmartRef<VRKPrintGenerator> generator = vrkfuzz::MakeGenerator("HPGL");
    auto* fileGenerator = dynamic_cast<VRKPrintFileGenerator*>(generator.get());
    if (fileGenerator == nullptr) {
        vrkfuzz::Broken("the HPGL language has no file generator");
    }
    VRKPrintNullStream stream;
    fileGenerator->Attach(&stream);
    {
        VRKJobPlayer player(*generator);
        std::istringstream in(kDrawing);
        player.Play(in, "pens.job", "");
    }
    fileGenerator->Attach(nullptr);
    return 0;
}
