#pragma once

// The host's text attributes. SetTextAttribute takes a kind (0 to 8) and a value; for the font,
// weight and anchor kinds the value is one of the numbered choices below, passed as a float.
// The numbers are part of the host's interface.
enum VRKPrintTextAttribute : int {
    // Kinds.
    VRKTextFont = 0,
    VRKTextStyle = 1,
    VRKTextSize = 2,
    VRKTextWidthFactor = 3,
    VRKTextWeight = 4,
    VRKTextSlant = 5,
    VRKTextDirection = 6,
    VRKTextAnchor = 7,
    VRKTextSpacing = 8,
    // Font values.
    VRKFontDefault = 11,
    VRKFontMonospace = 12,
    VRKFontSans = 13,
    VRKFontSerif = 14,
    VRKFontCourier = 15,
    VRKFontFont16 = 16,
    VRKFontFont17 = 17,
    VRKFontFont18 = 18,
    VRKFontFont19 = 19,
    VRKFontFont20 = 20,
    VRKFontFont21 = 21,
    // Weight values.
    VRKWeightExtraLight = 23,
    VRKWeightLight = 24,
    VRKWeightNormal = 25,
    VRKWeightBold = 26,
    VRKWeightExtraBold = 27,
    // Anchor values: the point of the text's box that lies at the position given to DrawText.
    VRKAnchorBaseLeft = 28,
    VRKAnchorBottomLeft = 29,
    VRKAnchorMiddleLeft = 30,
    VRKAnchorTopLeft = 31,
    VRKAnchorBaseCenter = 32,
    VRKAnchorBottomCenter = 33,
    VRKAnchorMiddleCenter = 34,
    VRKAnchorTopCenter = 35,
    VRKAnchorBaseRight = 36,
    VRKAnchorBottomRight = 37,
    VRKAnchorMiddleRight = 38,
    VRKAnchorTopRight = 39,
};
