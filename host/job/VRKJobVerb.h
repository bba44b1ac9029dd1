#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/job/VRKJobArgumentKind.h"
#include "host/job/VRKJobArguments.h"
#include "host/job/VRKJobCall.h"

// One verb of job files: its name, its arguments as kinds, and the call it makes. The kinds
// are the one statement of the verb's arguments: the general path reads them from the line's
// tokens (VRKJobArgumentReader), the reading of common lines from the read buffer
// (VRKJobCommonLines), and the argument counts a line must have follow from them.
struct VRKJobVerb {
    // What the verb does to the job besides its call.
    enum class Role : std::uint8_t { kBegin, kNewPage, kEnd, kDrawing };
    using Call = bool (*)(const VRKJobCall& call);

    const char* name;
    // The line's arguments as a user would write them, for messages.
    const char* usage;
    Role role;
    // Read straight from the read buffer when the line holds plain numbers only.
    bool common;
    std::uint8_t kindCount;
    VRKJobArgumentKind kinds[VRKJobArguments::kMostValues];
    Call call;

    // "VERB: what; usage: USAGE", the message of an argument that is wrong.
    std::string ArgumentError(std::string_view what) const {
        return std::string(name) + ": " + std::string(what) + "; usage: " + usage;
    }

    // The fewest and the most arguments a line of the verb has (kUnbounded: any number).
    static constexpr std::size_t kUnbounded = ~std::size_t{0};
    constexpr std::size_t LeastArguments() const {
        std::size_t least = 0;
        for (std::size_t i = 0; i < kindCount; ++i) {
            least += IsRest(kinds[i]) && !HasCount(kinds[i]) ? 0 : 1;
        }
        return least;
    }
    constexpr std::size_t MostArguments() const {
        std::size_t most = 0;
        for (std::size_t i = 0; i < kindCount; ++i) {
            if (kinds[i] == VRKJobArgumentKind::kPixelSize) {
                most += 2;
            } else if (IsRest(kinds[i])) {
                return kUnbounded;
            } else {
                ++most;
            }
        }
        return most;
    }
    // The kinds that take the rest of the line, and those of them that start with a count.
    static constexpr bool IsRest(VRKJobArgumentKind kind) {
        return kind == VRKJobArgumentKind::kPoints || kind == VRKJobArgumentKind::kPolygons ||
               kind == VRKJobArgumentKind::kPixelSize || kind == VRKJobArgumentKind::kDashes ||
               kind == VRKJobArgumentKind::kPageKeys;
    }
    static constexpr bool HasCount(VRKJobArgumentKind kind) {
        return kind == VRKJobArgumentKind::kPoints || kind == VRKJobArgumentKind::kPolygons;
    }
};
