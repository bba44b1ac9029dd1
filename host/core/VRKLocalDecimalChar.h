#pragma once

#include "host/core/VRKString.h"

// The text with every decimal point replaced by the decimal character of the C library's current
// numeric locale, so that the C library's number parsing reads it as the number it was written
// as. In the "C" locale, or any locale whose decimal character is the point, the text comes back
// as it was.
VRKString GetStringWithLocalDecimalCharV2(const VRKString& text);
