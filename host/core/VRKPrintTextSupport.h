#pragma once

// Who draws a text, as a generator answers GetPrintTextManagement.
enum VRKPrintTextSupport : int {
    VRKTextSupportNone = 0,
    VRKTextSupportHostDraws = 1,       // the host draws the text as geometry
    VRKTextSupportGeneratorDraws = 2,  // the generator writes the text itself
};
