#pragma once

#include <string>

class VRKDlgCombo;
class VRKDlgResources;

// The lines and pictures the two DesignJet property dialogs share: the media list, the media
// sources of each feeder, the quality picture of a quality line. Every text is looked up in the
// dialog's resources by its key, the literal standing in when the resource has none.
class VRKPrintDesignJetChoices {
  public:
    // "MediaList": line i is the media type i - 1 (line 0 "Default" is the type -1).
    static void FillMedia(VRKDlgCombo& combo, const VRKDlgResources& texts);
    // "SourceList": "Roll" and "Manual feed" for the single-roll feeder, "Roll 1" to "Roll 3" for
    // the multi-roll feeder. The lines there before are removed.
    static void FillSources(VRKDlgCombo& combo, const VRKDlgResources& texts, bool multiRoll);
    // The picture of quality line 0, 1 or 2 (fast or draft, normal, best or high); empty for any
    // other line.
    static std::string QualityPicture(int line);
};
