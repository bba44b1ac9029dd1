#include "properties/VRKPropertiesSpellings.h"

using Spelling = VRKPropertiesSpellings::Spelling;

namespace {

constexpr Spelling kMediaTypes[] = {
    {-1, "Default"},      {0, "Paper"},          {1, "Transparency film"},
    {2, "Vellum"},        {3, "Polyester film"}, {4, "Translucent paper"},
    {5, "Special paper"}, {6, "Glossy paper"},
};
constexpr Spelling kYesNo[] = {{1, "YES"}, {0, "NO"}};
constexpr Spelling kOrigins[] = {
    {0, "Center"},
    {1, "Lower Left Corner"},
    {2, "Upper Left Corner"},
    {3, "Lower Right Corner"},
    {4, "Upper Right Corner"},
};
constexpr Spelling kSingleRollSources[] = {{0, "Roll"}, {1, "ManualFeed"}};
constexpr Spelling kMultiRollSources[] = {{0, "Roll1"}, {1, "Roll2"}, {2, "Roll3"}};
constexpr Spelling kDesignJetQualities[] = {{0, "Fast"}, {50, "Normal"}, {100, "Best"}};
// The DesignJet 4000 counts its sources the other way round from the 1000's single roll: 1 is the
// roll. Both printers' settings files have always been written so.
constexpr Spelling kHP4000Sources[] = {{1, "Roll"}, {0, "ManualFeed"}};
constexpr Spelling kPrintQualities[] = {{0, "DRAFT"}, {1, "NORMAL"}, {2, "HIGH"}};
constexpr Spelling kResolutions[] = {{0, "300"}, {1, "600"}, {2, "1200"}};

}  // namespace

std::span<const Spelling> VRKPropertiesSpellings::MediaTypes() {
    return kMediaTypes;
}
std::span<const Spelling> VRKPropertiesSpellings::YesNo() {
    return kYesNo;
}
std::span<const Spelling> VRKPropertiesSpellings::Origins() {
    return kOrigins;
}
std::span<const Spelling> VRKPropertiesSpellings::SingleRollSources() {
    return kSingleRollSources;
}
std::span<const Spelling> VRKPropertiesSpellings::MultiRollSources() {
    return kMultiRollSources;
}
std::span<const Spelling> VRKPropertiesSpellings::DesignJetQualities() {
    return kDesignJetQualities;
}
std::span<const Spelling> VRKPropertiesSpellings::HP4000Sources() {
    return kHP4000Sources;
}
std::span<const Spelling> VRKPropertiesSpellings::PrintQualities() {
    return kPrintQualities;
}
std::span<const Spelling> VRKPropertiesSpellings::Resolutions() {
    return kResolutions;
}

const char* VRKPropertiesSpellings::Spell(std::span<const Spelling> table, int code) {
    for (const Spelling& s : table) {
        if (s.code == code) {
            return s.text;
        }
    }
    return nullptr;
}

bool VRKPropertiesSpellings::Code(std::span<const Spelling> table, const VRKString& text,
                                  int& code) {
    for (const Spelling& s : table) {
        if (text == VRKString(s.text)) {
            code = s.code;
            return true;
        }
    }
    return false;
}

const char* VRKPropertiesSpellings::QualityBand(int quality) {
    if (quality < 25) {
        return "Fast";
    }
    return quality < 75 ? "Normal" : "Best";
}
