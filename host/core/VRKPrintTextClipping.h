#pragma once

// Whether the host must clip a text that the generator draws.
enum VRKPrintTextClipping : int {
    VRKTextClippingNone = 0,
    VRKTextClippingByHost = 1,
};
