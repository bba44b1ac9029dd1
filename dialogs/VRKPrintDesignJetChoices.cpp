#include "dialogs/VRKPrintDesignJetChoices.h"

#include "host/dialogs/VRKDlgCombo.h"
#include "host/dialogs/VRKDlgResources.h"

namespace {

struct Line {
    const char* key;
    const char* text;
};

constexpr Line kMedia[] = {
    {"Media1", "Default"},       {"Media2", "Paper"},          {"Media3", "Transparency film"},
    {"Media4", "Vellum"},        {"Media5", "Polyester film"}, {"Media6", "Translucent paper"},
    {"Media7", "Special paper"}, {"Media8", "Glossy paper"},
};

constexpr Line kSingleRoll[] = {{"Source1", "Roll"}, {"Source2", "Manual feed"}};
constexpr Line kMultiRoll[] = {{"Source3", "Roll 1"}, {"Source4", "Roll 2"}, {"Source5", "Roll 3"}};

constexpr const char* kQualityPictures[] = {"HPQualityFast", "HPQualityNormal", "HPQualityBest"};

template <std::size_t N>
void Fill(VRKDlgCombo& combo, const VRKDlgResources& texts, const Line (&lines)[N]) {
    for (const Line& line : lines) {
        combo.AppendLine(texts.GetResourceValueFromKey(line.key, line.text));
    }
}

}  // namespace

void VRKPrintDesignJetChoices::FillMedia(VRKDlgCombo& combo, const VRKDlgResources& texts) {
    Fill(combo, texts, kMedia);
}

void VRKPrintDesignJetChoices::FillSources(VRKDlgCombo& combo, const VRKDlgResources& texts,
                                           bool multiRoll) {
    combo.ClearLines();
    if (multiRoll) {
        Fill(combo, texts, kMultiRoll);
    } else {
        Fill(combo, texts, kSingleRoll);
    }
}

std::string VRKPrintDesignJetChoices::QualityPicture(int line) {
    if (line < 0 || line > 2) {
        return {};
    }
    return kQualityPictures[line];
}
