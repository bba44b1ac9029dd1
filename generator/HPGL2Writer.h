#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "generator/ArcSweepText.h"
#include "generator/HPGL2Encoding.h"
#include "host/core/VRKPrintStream.h"

// The writing layer of both dialects: one function for each instruction the generators write,
// grouped by family, each writing exactly the instruction's bytes to the stream and nothing more.
// Every mnemonic is spelled here and nowhere else. The functions keep no state: whatever the
// plotter remembers between instructions (the pen position of a Polyline Encoded run, the pen in
// use) is the caller's.
//
// Numbers go out as the stream formats them: integers in decimal, floating-point numbers in the
// stream's notation (fixed, two decimals, from job start on).
namespace HPGL2Writer {

// Mnemonics used by more than one instruction form, and those that go into fixed texts made at
// compile time.
inline constexpr char kNumberOfPens[] = "NP";
inline constexpr char kTransparency[] = "TR";
inline constexpr char kMergeControl[] = "MC";
inline constexpr char kSelectPen[] = "SP";
inline constexpr char kLineAttributes[] = "LA";
inline constexpr std::string_view kPenUp = "PU";
inline constexpr std::string_view kPenDown = "PD";
inline constexpr std::string_view kPenDownHere = "PD;";
inline constexpr std::string_view kArcAbsolute = "AA";

// The parts joined into one text at compile time, for instructions that never change.
template <std::size_t... N>
consteval std::array<char, (N + ...) - sizeof...(N)> Joined(const char (&... parts)[N]) {
    std::array<char, (N + ...) - sizeof...(N)> text{};
    std::size_t at = 0;
    ((std::copy_n(parts, N - 1, text.begin() + static_cast<std::ptrdiff_t>(at)), at += N - 1), ...);
    return text;
}

// The instruction terminator.
inline void End(VRKPrintStream& s) {
    s.Put(';');
}

// ---- Job frame: IN, BP, MT, EC, QL, PS, IP, RO, PG, and the defaults NP, TR, MC, SP, LA
// -----------------------------

// PCL printer reset, then HP-GL/2 with the previous pen position.
void ResetAndEnter(VRKPrintStream& s);
// "BP5," and the value: the begin-plot auto-rotation kind.
void BeginPlotRotation(VRKPrintStream& s, int value);
void Initialize(VRKPrintStream& s);
void MediaType(VRKPrintStream& s, int type);
// "EC", with "1" when the cutter cuts; a bare "EC" otherwise.
void EnableCutter(VRKPrintStream& s, bool cut);
void Quality(VRKPrintStream& s, int quality);
void PlotSize(VRKPrintStream& s, int length, int width);
// "IP0,0," and the upper right corner: the input window from the origin.
void InputWindow(VRKPrintStream& s, int x, int y);
void Rotate(VRKPrintStream& s, int degrees);
void AdvancePage(VRKPrintStream& s);
// The settings every HP-GL/2 job starts from: 256 palette pens, transparency and merge off, no
// pen yet, mitred joins with a mitre limit of 2.
void JobDefaults(VRKPrintStream& s);

// ---- Pen moves: PU, PD, PA, PR and Polyline Encoded runs -----------------------------------

// A bare "PU": lifts the pen where it is.
void PenUp(VRKPrintStream& s);
// A mnemonic and two integer parameters.
inline void WithIntegers(VRKPrintStream& s, std::string_view mnemonic, long long a, long long b) {
    s.Write(mnemonic);
    s.WriteInt(a);
    s.Put(',');
    s.WriteInt(b);
}
// "PU" x "," y in integers (plotter units), and the same for "PD".
inline void PenUp(VRKPrintStream& s, long long x, long long y) {
    WithIntegers(s, kPenUp, x, y);
}
inline void PenDown(VRKPrintStream& s, long long x, long long y) {
    WithIntegers(s, kPenDown, x, y);
}
// "PU" x "," y as floating-point numbers.
void PenUpAt(VRKPrintStream& s, double x, double y);
// "PD;": lowers the pen where it is.
void PenDownHere(VRKPrintStream& s);
void PlotAbsolute(VRKPrintStream& s);
void PlotRelative(VRKPrintStream& s);

// "PE" opens a Polyline Encoded run; "=" makes its next pair absolute.
inline void OpenEncoded(VRKPrintStream& s) {
    s.Write("PE");
}
inline void OpenEncodedAbsolute(VRKPrintStream& s) {
    OpenEncoded(s);
    s.Put('=');
}
// "<": the next pair of the run moves with the pen up.
inline void EncodedPenUp(VRKPrintStream& s) {
    s.Put('<');
}
// One pair of a run: the two numbers in the 8-bit base-64 form.
inline void EncodedPair(VRKPrintStream& s, std::int64_t dx, std::int64_t dy) {
    char* p = s.Claim(16);
    p = encodeNumberTo(p, dx);
    p = encodeNumberTo(p, dy);
    s.Advance(p);
}

// ---- Curves: AA, WG, SC, BZ -----------------------------------------------------------------

// "AA" centre x "," y "," sweep ",.5": an arc around the centre from the pen, chords of half a
// degree.
void ArcAbsolute(VRKPrintStream& s, double cx, double cy, double sweep);
// The outline of an arc: pen up to its start, pen down, then its AA. On a stream in fixed
// notation with two decimals the whole outline is made in place, the sweep's text taken from
// `kept` (made anew when the sweep changes), as long as every number has the quick form.
void ArcOutline(VRKPrintStream& s, double x, double y, double cx, double cy, double sweep,
                ArcSweepText& kept);
// "WG" radius "," start "," sweep ",.5": a filled wedge around the pen.
void Wedge(VRKPrintStream& s, double radius, double start, double sweep);
// "SC0," x ",0," y "," type ";": the user scale from 0,0 to x,y.
void Scale(VRKPrintStream& s, double x, double y, int type);
// "BZ" and the three control points of one Bézier segment, six coordinates.
void Bezier(VRKPrintStream& s, const double (&xy)[6]);

// ---- Pens and lines: SP, PC, PW, LA ----------------------------------------------------------

inline void SelectPen(VRKPrintStream& s, long long pen) {
    s.Write(kSelectPen);
    s.WriteInt(pen);
}
// "PC" index "," red "," green "," blue, components 0 to 255.
void PenColor(VRKPrintStream& s, int index, long long red, long long green, long long blue);
void PenWidth(VRKPrintStream& s, double width);
// "LA" kind "," value, for one line attribute (1 ends, 2 joins, 3 mitre limit).
void LineAttribute(VRKPrintStream& s, int kind, int value);

// ---- Labels: SD, SS, SL, DI, LO, LB ----------------------------------------------------------

// "SD1,14,2," and the spacing with its size (fixed: "0,3," pitch; proportional: "1,4," height in
// points), then ",6," weight ",7," typeface, then "SS" to use it.
void FixedFont(VRKPrintStream& s, double pitch, int weight, int typeface);
void ProportionalFont(VRKPrintStream& s, double points, int weight, int typeface);
void Slant(VRKPrintStream& s, double tangent);
void Direction(VRKPrintStream& s, double run, double rise);
void LabelOrigin(VRKPrintStream& s, int origin);
// "LB" and the text, then the label terminator.
void Label(VRKPrintStream& s, std::string_view text);

// ---- Polygon mode: PM, FP ---------------------------------------------------------------------

// "PM0" opens the polygon buffer, "PM1" closes a subpolygon, "PM2" closes the buffer.
inline void PolygonMode(VRKPrintStream& s, int mode) {
    s.Write("PM");
    s.Put(static_cast<char>('0' + mode));
}
// "FP0" even-odd, "FP1" non-zero winding.
inline void FillPolygon(VRKPrintStream& s, int rule) {
    s.Write("FP");
    s.Put(static_cast<char>('0' + rule));
}

}  // namespace HPGL2Writer
