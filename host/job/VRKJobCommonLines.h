#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "host/job/VRKJobArguments.h"
#include "host/job/VRKJobLineBuffer.h"
#include "host/job/VRKJobLineScanner.h"
#include "host/job/VRKJobVerbs.h"

class VRKPrintGenerator;

// The quick reading of the lines that make up nearly all of a large drawing: those of the verbs
// the verb table marks common (moves, lines, circles, fills, colour choices), written with plain
// numbers. Such lines are read straight from the read buffer, one after another, without cutting
// them out or splitting them into tokens first. Their arguments are read by the kinds of the
// verb table and their calls are those of the table, made in place; anything else in a line
// sends it to the general path, which plays it the same way or reports what is wrong with it.
class VRKJobCommonLines {
  public:
    explicit VRKJobCommonLines(VRKPrintGenerator& generator);
    VRKJobCommonLines(const VRKJobCommonLines&) = delete;
    VRKJobCommonLines& operator=(const VRKJobCommonLines&) = delete;

    // Plays the common line that starts at `line` in the buffer and returns the start of the
    // next line, or null, without a call, for any line it does not take (one it does not know,
    // one with anything uncommon in it, one longer than the limit, one that does not end before
    // the buffer's read bytes do). `verb` is set to the verb of a line played.
    const char* PlayLine(const VRKJobLineBuffer& buffer, const char* line,
                         VRKJobArguments& arguments, const VRKJobVerb*& verb);
    // Plays the common lines that follow one another in the buffer's unplayed bytes, marks them
    // played and counts them in `lineNumber`. False when the generator failed in one of them
    // (`verb` is then its verb).
    bool PlayRun(VRKJobLineBuffer& buffer, int& lineNumber, VRKJobArguments& arguments,
                 const VRKJobVerb*& verb);

  private:
    // The common verbs, as indexes into the verb table.
    static constexpr std::size_t kCount = [] {
        std::size_t count = 0;
        for (const VRKJobVerb& verb : VRKJobVerbs::kAll) {
            count += verb.common ? 1 : 0;
        }
        return count;
    }();
    static constexpr auto kVerbIndex = [] {
        std::array<std::size_t, kCount> index{};
        std::size_t n = 0;
        for (std::size_t i = 0; i < VRKJobVerbs::kCount; ++i) {
            if (VRKJobVerbs::kAll[i].common) {
                index[n++] = i;
            }
        }
        return index;
    }();

    // A common verb as the bytes (and the mask of the bytes) that open its lines: the verb and
    // one blank, at most 16 bytes, in the byte order of a load.
    struct Pattern {
        std::size_t common = 0;
        const VRKJobVerb* verb = nullptr;
        std::uint64_t word[2] = {};
        std::uint64_t mask[2] = {};
    };

    // The common verb that opens `line`, or null.
    const Pattern* FindPattern(const char* line);
    const char* PlayLineInPlace(const char* line, const char* limit, std::size_t maxLength,
                                VRKJobArguments& arguments, const VRKJobVerb*& verb);
    // The line of common verb number J, its arguments read by the verb's kinds.
    template <std::size_t J>
    const char* PlayVerb(const char* line, const char* limit, std::size_t maxLength,
                         VRKJobArguments& arguments, const VRKJobVerb*& verb);
    template <std::size_t... J>
    const char* PlayCommon(std::size_t common, const char* line, const char* limit,
                           std::size_t maxLength, VRKJobArguments& arguments,
                           const VRKJobVerb*& verb, std::index_sequence<J...>);

    VRKPrintGenerator& generator_;
    Pattern patterns_[kCount];
    // The pattern met last: most lines repeat the verb of the line before.
    const Pattern* last_ = nullptr;
    // What the calls are given besides their arguments (common calls use neither).
    const std::string noFolder_;
    std::string callError_;
};
