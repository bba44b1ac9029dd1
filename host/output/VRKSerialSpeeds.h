#pragma once

#include <termios.h>

#include <string>

// The speeds of a serial line that termios names (the B* constants of Linux from B50 to
// B4000000), for the destination's check and the line's setup. Not part of the library's
// interface.

// The termios constant of `baud`; false when `baud` is not one of the standard speeds.
bool VRKSerialSpeed(int baud, speed_t& speed);

// "50, 75, 110, ... 4000000".
std::string VRKSerialSpeedList();
