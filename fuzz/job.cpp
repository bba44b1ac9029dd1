// Fuzz target: job files played into every generator.
//
// Feeds: the first byte chooses the printer language (HPGL2, HPGL, HP1000GL2, HP4000GL2), the rest
// is a job file, played by VRKJobPlayer from memory into that language's generator, whose plot
// goes to a null print stream. Text drawn as geometry goes through the FreeType outliner.
// Bitmaps are read only from examples/images: a job whose DrawBitmap line could name a file
// elsewhere (any '/' on the line, written or escaped) is not played.
//
// Checks: no crash, leak, undefined behaviour, hang or runaway allocation anywhere on the way
// (lexer, player, generators, PNG reader); a job that is refused comes back with a message that
// names the job and the line.

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "FuzzSupport.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintNullStream.h"
#include "host/job/VRKJobPlayer.h"

namespace {

// True when a DrawBitmap line of the job could reach a file outside the images folder: the line
// holds a '/' or an escape that makes one (\x2f, \x2F). Without a '/' a relative path names an
// entry of the base folder itself.
bool MayReadOutsideImages(std::string_view job) {
    std::size_t start = 0;
    while (start < job.size()) {
        std::size_t end = job.find('\n', start);
        if (end == std::string_view::npos) {
            end = job.size();
        }
        const std::string_view line = job.substr(start, end - start);
        if (line.find("DrawBitmap") != std::string_view::npos &&
            (line.find('/') != std::string_view::npos ||
             line.find("\\x2f") != std::string_view::npos ||
             line.find("\\x2F") != std::string_view::npos)) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    // The environment that changes what the generators read: none of it from the caller.
    for (const char* name : {"HPGL2_PEN_TABLE", "HPGL2_COLOR_TABLE", "HPGL_WITH_SP0", "TestPrint",
                             "QMB_RWX_TMP", "VRK_DEFAULT_FONT"}) {
        ::unsetenv(name);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    const std::string_view job(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (MayReadOutsideImages(job)) {
        return -1;  // not added to the corpus
    }
    VRKSmartRef<VRKPrintGenerator> generator =
        vrkfuzz::MakeGenerator(vrkfuzz::kLanguages[data[0] % vrkfuzz::kLanguageCount]);
    if (!generator) {
        vrkfuzz::Broken("a language of the driver is not registered");
    }
    VRKPrintNullStream stream;
    stream.SetPath("fuzz.plt");
    auto* fileGenerator = dynamic_cast<VRKPrintFileGenerator*>(generator.get());
    if (fileGenerator != nullptr) {
        fileGenerator->Attach(&stream);
    }
    {
        VRKJobPlayer player(*generator);
        std::istringstream in{std::string(job)};
        if (!player.Play(in, "fuzz.job", VRK_FUZZ_IMAGES_DIR)) {
            const std::string message = player.GetError().ToString();
            if (player.GetError().message.empty() || player.GetError().line <= 0 ||
                message.rfind("fuzz.job:", 0) != 0) {
                vrkfuzz::Broken("a refused job without a message naming its line: '" + message +
                                "'");
            }
        }
    }
    if (fileGenerator != nullptr) {
        fileGenerator->Attach(nullptr);
    }
    return 0;
}
