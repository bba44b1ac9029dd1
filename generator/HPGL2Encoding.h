#pragma once

// The instruction-writing layer shared by both dialects: escape sequences and the Polyline Encoded
// number form.
namespace HPGL2Encoding {

// PCL printer reset, then enter HP-GL/2 with the previous pen position.
inline constexpr const char kResetAndEnterHPGL2[] =
    "\x1b"
    "E"
    "\x1b"
    "%0B";
inline constexpr char kEscape = '\x1b';
// Label terminator: the plotter's default end-of-text character.
inline constexpr char kLabelTerminator = '\x03';

}  // namespace HPGL2Encoding

// The Polyline Encoded (PE) digits of `value` in the 8-bit base-64 form: the value is folded to an
// unsigned one (2v for v >= 0, 2|v|+1 below), then sent six bits at a time, low bits first, as
// bytes 63..126, and closed by a terminating byte 191..254 that carries the last bits.
//
// The digits go into one static buffer that is returned and overwritten by the next call: write
// them before encoding the next number. Not for two threads at once.
const char* encodeNumber(int value);
