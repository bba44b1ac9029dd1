#pragma once

// The host's line attributes. Styles (0 to 7) go to SetLineStyle, caps (10 to 12) to SetLineCap,
// joins (13 to 15) to SetLineJoin. The numbers are part of the host's interface.
enum VRKPrintLineAttribute : int {
    VRKLineStyleSolid = 0,
    VRKLineStyleDash = 1,
    VRKLineStyleDot = 2,
    VRKLineStyleDashDot = 3,
    VRKLineStyleDashDotDot = 4,
    VRKLineStyleUser1 = 5,
    VRKLineStyleUser2 = 6,
    VRKLineStyleUser3 = 7,
    VRKLineCapFlat = 10,
    VRKLineCapSquare = 11,
    VRKLineCapRound = 12,
    VRKLineJoinMiter = 13,
    VRKLineJoinRound = 14,
    VRKLineJoinBevel = 15,
};
