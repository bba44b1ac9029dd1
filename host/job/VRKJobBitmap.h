#pragma once

#include "host/job/VRKJobCall.h"

// The call of DrawBitmap: the PNG file, taken from the job file's folder when its path is
// relative, read and placed at its pixel size.
class VRKJobBitmap {
  public:
    // The largest side of a bitmap on the page, in millimetres: 100 m, longer than a roll.
    static constexpr double kMaxImageExtent = 100000.0;

    // Arguments: x, y, the file name, and the pixel width and height when given. False with the
    // call's error set for a file that cannot be read or an image beyond kMaxImageExtent.
    static bool Draw(const VRKJobCall& call);
};
