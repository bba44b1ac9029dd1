#include "host/job/VRKJobCommonLines.h"

#include <climits>
#include <cstring>
#include <string>

#include "host/core/VRKPrintGenerator.h"

namespace {

std::uint64_t loadWord(const char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

bool opensWith(const char* line, const std::uint64_t word[2], const std::uint64_t mask[2]) {
    return ((loadWord(line) ^ word[0]) & mask[0]) == 0 &&
           ((loadWord(line + 8) ^ word[1]) & mask[1]) == 0;
}

template <std::size_t V, std::size_t... K>
bool readKinds(VRKJobLineScanner& scan, VRKJobArguments& arguments, std::index_sequence<K...>) {
    return (scan.Read<VRKJobVerbs::kAll[V].kinds[K]>(arguments, K) && ...);
}

}  // namespace

VRKJobCommonLines::VRKJobCommonLines(VRKPrintGenerator& generator) : generator_(generator) {
    for (std::size_t j = 0; j < kCount; ++j) {
        Pattern& pattern = patterns_[j];
        pattern.common = j;
        pattern.verb = &VRKJobVerbs::kAll[kVerbIndex[j]];
        const std::size_t length = std::strlen(pattern.verb->name);
        char bytes[16] = {};
        char mask[16] = {};
        std::memcpy(bytes, pattern.verb->name, length);
        bytes[length] = ' ';
        std::memset(mask, '\xff', length + 1);
        pattern.word[0] = loadWord(bytes);
        pattern.word[1] = loadWord(bytes + 8);
        pattern.mask[0] = loadWord(mask);
        pattern.mask[1] = loadWord(mask + 8);
    }
}

const VRKJobCommonLines::Pattern* VRKJobCommonLines::FindPattern(const char* line) {
    for (const Pattern& pattern : patterns_) {
        if (opensWith(line, pattern.word, pattern.mask)) {
            return &pattern;
        }
    }
    // A common verb with a tab after it: the verb is looked up by name.
    const char* p = line;
    while (*p != ' ' && *p != '\t' && *p != '\n' && *p != '\r' && *p != '\0') {
        ++p;
    }
    const VRKJobVerb* const verb =
        VRKJobVerbs::Find(std::string_view(line, static_cast<std::size_t>(p - line)), nullptr);
    for (const Pattern& pattern : patterns_) {
        if (pattern.verb == verb) {
            return &pattern;
        }
    }
    return nullptr;
}

template <std::size_t J>
inline __attribute__((always_inline)) const char* VRKJobCommonLines::PlayVerb(
    const char* line, const char* limit, std::size_t maxLength, VRKJobArguments& arguments,
    const VRKJobVerb*& verb) {
    constexpr std::size_t kVerb = kVerbIndex[J];
    constexpr const VRKJobVerb& common = VRKJobVerbs::kAll[kVerb];
    constexpr std::size_t kNameLength =
        std::char_traits<char>::length(VRKJobVerbs::kAll[kVerb].name);
    VRKJobLineScanner scan(line + kNameLength, limit);
    if (!readKinds<kVerb>(scan, arguments,
                          std::make_index_sequence<VRKJobVerbs::kAll[kVerb].kindCount>{})) {
        return nullptr;
    }
    // Every line played here is checked against the length limit, as the general path checks
    // it, before its call is made.
    const char* const next = scan.End();
    if (next == nullptr || static_cast<std::size_t>(next - line) - 1 > maxLength) {
        return nullptr;
    }
    verb = &common;
    common.call(VRKJobCall{common, generator_, arguments, noFolder_, callError_});
    return next;
}

template <std::size_t... J>
inline __attribute__((always_inline)) const char* VRKJobCommonLines::PlayCommon(
    std::size_t common, const char* line, const char* limit, std::size_t maxLength,
    VRKJobArguments& arguments, const VRKJobVerb*& verb, std::index_sequence<J...>) {
    const char* next = nullptr;
    // The first J equal to `common` plays its line; the fold stops there.
    static_cast<void>(
        ((common == J ? (next = PlayVerb<J>(line, limit, maxLength, arguments, verb), true)
                      : false) ||
         ...));
    return next;
}

// Made in place in the loop of PlayRun: a call per line costs there what reading a short line
// does.
inline __attribute__((always_inline)) const char* VRKJobCommonLines::PlayLineInPlace(
    const char* line, const char* limit, std::size_t maxLength, VRKJobArguments& arguments,
    const VRKJobVerb*& verb) {
    // Most lines repeat the verb of the line before: 16 bytes of the line are compared at once
    // with the verb and a blank. Otherwise the other common verbs are tried.
    const Pattern* pattern = last_;
    if (pattern == nullptr || !opensWith(line, pattern->word, pattern->mask)) {
        pattern = FindPattern(line);
        if (pattern == nullptr) {
            return nullptr;
        }
        last_ = pattern;
    }
    return PlayCommon(pattern->common, line, limit, maxLength, arguments, verb,
                      std::make_index_sequence<kCount>{});
}

const char* VRKJobCommonLines::PlayLine(const VRKJobLineBuffer& buffer, const char* line,
                                        VRKJobArguments& arguments, const VRKJobVerb*& verb) {
    return PlayLineInPlace(line, buffer.Limit(), buffer.MaxLineLength(), arguments, verb);
}

bool VRKJobCommonLines::PlayRun(VRKJobLineBuffer& buffer, int& lineNumber,
                                VRKJobArguments& arguments, const VRKJobVerb*& verb) {
    const char* p = buffer.Unplayed();
    if (p == nullptr) {
        return true;
    }
    const char* const limit = buffer.Limit();
    const std::size_t maxLength = buffer.MaxLineLength();
    bool played = true;
    while (lineNumber < INT_MAX) {
        const char* const next = PlayLineInPlace(p, limit, maxLength, arguments, verb);
        if (next == nullptr) {
            break;
        }
        ++lineNumber;
        p = next;
        if (generator_.HasFailed()) {
            played = false;
            break;
        }
    }
    buffer.Played(p);
    return played;
}
