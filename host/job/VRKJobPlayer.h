#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/VRKPrintParameters.h"
#include "host/job/VRKJobArgumentReader.h"
#include "host/job/VRKJobArguments.h"
#include "host/job/VRKJobBitmap.h"
#include "host/job/VRKJobCommonLines.h"
#include "host/job/VRKJobError.h"
#include "host/job/VRKJobLexer.h"
#include "host/job/VRKJobLineBuffer.h"
#include "host/job/VRKJobSource.h"
#include "host/job/VRKJobVerb.h"

class VRKPrintGenerator;

// Plays a job file into a print generator: one public call of VRKPrintGenerator per line, in the
// order of the file (the format is described in docs/jobfile.md).
//
// The player streams. It reads one line, checks all of it (tokens, argument count, every number,
// the job's state, the bitmap file) and only then makes the call, so a line with an error makes
// no call at all. It keeps nothing of a line once the call is made; the memory it holds is that
// of the longest line, however long the file.
//
// Playing stops at the first error, which GetError() then describes. The player does not close a
// job that fails: whatever the generator wrote is incomplete, and the caller throws it away.
class VRKJobPlayer {
  public:
    // The generator must outlive the player; the player makes calls on it and nothing else (it
    // does not attach streams or release it).
    explicit VRKJobPlayer(VRKPrintGenerator& generator);
    VRKJobPlayer(const VRKJobPlayer&) = delete;
    VRKJobPlayer& operator=(const VRKJobPlayer&) = delete;

    // Plays the job file at `path`; bitmap paths are taken from the file's folder. "-" plays
    // standard input, named "standard input" in messages, with bitmaps from the current folder.
    // True when the whole job was played, from Begin to End.
    bool PlayFile(const std::string& path);
    // Plays a job read from `in`. `fileName` names the job in error messages; `baseFolder` is
    // the folder relative bitmap paths are taken from (empty: the current folder).
    bool Play(std::istream& in, const std::string& fileName, const std::string& baseFolder);
    // Plays a job held in memory, as Play does.
    bool PlayMemory(std::string_view job, const std::string& fileName,
                    const std::string& baseFolder);
    // Plays a job from any source, as Play does.
    bool PlaySource(VRKJobSource& source, const std::string& fileName,
                    const std::string& baseFolder);

    // The error that stopped the last Play, or an empty message after a success.
    const VRKJobError& GetError() const { return error_; }

    // Lines longer than this many bytes (the LF not counted) are refused, so that a file
    // without line ends cannot take all memory, and the tokens of the longest line stay within a
    // few tens of megabytes. The default, 1 MiB, holds some 100,000 points of drawn coordinates
    // on one line, far more than any one call of a real drawing.
    static constexpr std::size_t kDefaultMaxLineLength = std::size_t{1} << 20;
    void SetMaxLineLength(std::size_t bytes) { buffer_.SetMaxLineLength(bytes); }

    // The largest side of a bitmap on the page, in millimetres: 100 m, longer than a roll.
    static constexpr double kMaxImageExtent = VRKJobBitmap::kMaxImageExtent;

  private:
    enum class State { kBeforeBegin, kInJob, kAfterEnd };

    // `tryCommon`: the line may be a common one that the run of common lines could not see
    // whole.
    bool PlayLine(std::string_view line, bool tryCommon);
    // The verb of the lexed line, or false with the error of an unknown verb.
    bool FindVerb();
    // False with the error of a verb the job's state does not allow.
    bool CheckState();
    bool Fail(std::string message);

    VRKPrintGenerator& generator_;
    VRKJobLineBuffer buffer_;
    VRKJobLexer lexer_;
    VRKJobArgumentReader reader_;
    VRKJobCommonLines commonLines_;
    const VRKJobVerb* verb_ = nullptr;
    State state_ = State::kBeforeBegin;
    int line_ = 0;
    int beginLine_ = 0;
    int endLine_ = 0;
    VRKPrintParameters params_;
    std::string baseFolder_;
    VRKJobError error_;
    // The arguments of the current line; their arrays are kept between lines for their memory.
    std::vector<float> points_;
    std::vector<int> counts_;
    VRKJobArguments arguments_;
};
