#pragma once

#include <cstddef>

#include "host/core/VRKPrintStream.h"

// The PCL escape sequences of an HP-GL/2 plot, each named once: the reset that starts a job,
// the switches between the two languages, and those of a raster image. A picture
// leaves HP-GL/2 for PCL with the cursor at the pen, is described (sizes, colour space,
// compression), sent row by row, and the plotter comes back to HP-GL/2.
namespace PCLEscapes {

// Printer reset.
inline constexpr char kReset[] =
    "\x1b"
    "E";
// Enter HP-GL/2 with the previous pen position.
inline constexpr char kEnterHPGL2[] = "\x1b%0B";
// Enter PCL with the cursor at the HP-GL/2 pen position.
inline constexpr char kEnterPCLAtPen[] = "\x1b%1A";
inline constexpr char kPushPalette[] = "\x1b*p0P";
inline constexpr char kPopPalette[] = "\x1b*p1P";
// Start raster graphics: scaled, at the cursor.
inline constexpr char kStartRaster[] = "\x1b*r3A";
inline constexpr char kEndRaster[] = "\x1b*rC";
// Source transparency: white pixels left unprinted (0) or printed (1).
inline constexpr char kTransparentWhite[] = "\x1b*v0N";
inline constexpr char kOpaqueWhite[] = "\x1b*v1N";
// Compression mode 0, rows as they are.
inline constexpr char kUncompressed[] = "\x1b*b0M";
// Configure Image Data, six bytes follow: RGB colour space, direct by pixel, 8 bits for each of
// three components.
inline constexpr char kConfigureImageData[] = "\x1b*v6W";
inline constexpr unsigned char kDirectRgb24[6] = {0, 3, 0, 8, 8, 8};

// "ESC*r" width "s" height "T": the source size in pixels.
void SourceSize(VRKPrintStream& s, long long width, long long height);
// "ESC*t" width "h" height "V": the destination size in decipoints.
void DestinationSize(VRKPrintStream& s, long long width, long long height);
// "ESC*b" count "W" and the row's bytes; with a compression mode, "ESC*b" mode "m" first.
void TransferRow(VRKPrintStream& s, const void* bytes, std::size_t count);
void TransferRow(VRKPrintStream& s, int mode, const void* bytes, std::size_t count);

}  // namespace PCLEscapes
