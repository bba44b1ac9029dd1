#pragma once

#include <span>

#include "host/core/VRKString.h"

// How the codes of the property records are spelled in settings files. A table is searched in its
// order; a code without a spelling is not written, and a text that is none of the spellings is
// not read.
class VRKPropertiesSpellings {
  public:
    struct Spelling {
        int code;
        const char* text;
    };

    static std::span<const Spelling> MediaTypes();
    static std::span<const Spelling> YesNo();
    static std::span<const Spelling> Origins();
    // DesignJet 1000: sources of a single-roll and of a multi-roll feeder, and qualities as read.
    static std::span<const Spelling> SingleRollSources();
    static std::span<const Spelling> MultiRollSources();
    static std::span<const Spelling> DesignJetQualities();
    // DesignJet 4000.
    static std::span<const Spelling> HP4000Sources();
    static std::span<const Spelling> PrintQualities();
    static std::span<const Spelling> Resolutions();

    // The spelling of a code, or null.
    static const char* Spell(std::span<const Spelling> table, int code);
    // The code of a text that is identical to one of the spellings; false for any other text.
    static bool Code(std::span<const Spelling> table, const VRKString& text, int& code);
    // The DesignJet 1000 quality band of a 0-100 quality: "Fast", "Normal" or "Best".
    static const char* QualityBand(int quality);
};
