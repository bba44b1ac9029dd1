#include "generator/HPGL2Writer.h"

#include <bit>
#include <cstring>

#include "generator/PCLEscapes.h"

namespace HPGL2Writer {

namespace {

// A mnemonic and its integer parameters, separated by commas.
void integers(VRKPrintStream& s, const char* mnemonic, long long a) {
    s.Write(mnemonic);
    s.WriteInt(a);
}

void integers(VRKPrintStream& s, const char* mnemonic, long long a, long long b) {
    integers(s, mnemonic, a);
    s.Put(',');
    s.WriteInt(b);
}

// A floating-point parameter after a comma.
void nextReal(VRKPrintStream& s, double value) {
    s.Put(',');
    s.WriteFloat(value);
}

// The chord angle every arc and wedge is drawn with: half a degree.
constexpr std::string_view kHalfDegreeChords = ",.5";

}  // namespace

void ResetAndEnter(VRKPrintStream& s) {
    s.Write(PCLEscapes::kReset);
    s.Write(PCLEscapes::kEnterHPGL2);
}

void BeginPlotRotation(VRKPrintStream& s, int value) {
    integers(s, "BP5,", value);
}

void Initialize(VRKPrintStream& s) {
    s.Write("IN");
}

void MediaType(VRKPrintStream& s, int type) {
    integers(s, "MT", type);
}

void EnableCutter(VRKPrintStream& s, bool cut) {
    s.Write(cut ? "EC1" : "EC");
}

void Quality(VRKPrintStream& s, int quality) {
    integers(s, "QL", quality);
}

void PlotSize(VRKPrintStream& s, int length, int width) {
    integers(s, "PS", length, width);
}

void InputWindow(VRKPrintStream& s, int x, int y) {
    integers(s, "IP0,0,", x, y);
}

void Rotate(VRKPrintStream& s, int degrees) {
    integers(s, "RO", degrees);
}

void JobDefaults(VRKPrintStream& s) {
    static constexpr auto kText = Joined(kNumberOfPens, "256", kTransparency, "0", kMergeControl,
                                         "0", kSelectPen, "0", kLineAttributes, "2,2,3,2");
    s.Write(std::string_view(kText.data(), kText.size()));
}

void AdvancePage(VRKPrintStream& s) {
    s.Write("PG");
}

void PenUp(VRKPrintStream& s) {
    s.Write(kPenUp);
}

void PenUpAt(VRKPrintStream& s, double x, double y) {
    PenUp(s);
    s.WriteFloat(x);
    nextReal(s, y);
}

void PenDownHere(VRKPrintStream& s) {
    s.Write(kPenDownHere);
}

void PlotAbsolute(VRKPrintStream& s) {
    s.Write("PA");
}

void PlotRelative(VRKPrintStream& s) {
    s.Write("PR");
}

void ArcAbsolute(VRKPrintStream& s, double cx, double cy, double sweep) {
    s.Write(kArcAbsolute);
    s.WriteFloat(cx);
    nextReal(s, cy);
    nextReal(s, sweep);
    s.Write(kHalfDegreeChords);
}

namespace {

// The outline in one piece, in the room of one claim, the cursor moved once at the end; false,
// with nothing written, when a number lacks the quick form. At most 63 bytes, and the copies of
// made texts take 16.
bool quickArcOutline(VRKPrintStream& s, double x, double y, double cx, double cy,
                     const ArcSweepText& sweep) {
    char* p = s.Claim(96);
    const auto put = [&p](std::string_view text) {
        std::memcpy(p, text.data(), text.size());
        p += text.size();
    };
    put(kPenUp);
    p = formatFixed2Quick(p, x);
    if (p == nullptr) {
        return false;
    }
    *p++ = ',';
    char* const yText = p;
    p = formatFixed2Quick(p, y);
    if (p == nullptr) {
        return false;
    }
    const std::ptrdiff_t yLength = p - yText;
    put(kPenDownHere);
    put(kArcAbsolute);
    p = formatFixed2Quick(p, cx);
    if (p == nullptr) {
        return false;
    }
    *p++ = ',';
    if (std::bit_cast<std::uint64_t>(y) == std::bit_cast<std::uint64_t>(cy)) {
        // From angle 0 the arc starts level with the centre: the same text, copied (16 bytes,
        // the text and scratch after it) from the start's y a few bytes back.
        std::memmove(p, yText, 16);
        p += yLength;
    } else {
        p = formatFixed2Quick(p, cy);
        if (p == nullptr) {
            return false;
        }
    }
    *p++ = ',';
    std::memcpy(p, sweep.Text(), 16);
    p += sweep.Length();
    put(kHalfDegreeChords);
    s.Advance(p);
    return true;
}

}  // namespace

void ArcOutline(VRKPrintStream& s, double x, double y, double cx, double cy, double sweep,
                ArcSweepText& kept) {
    if (s.IsFixed() && s.GetPrecision() == 2 && kept.Update(sweep) &&
        quickArcOutline(s, x, y, cx, cy, kept)) {
        return;
    }
    PenUpAt(s, x, y);
    PenDownHere(s);
    ArcAbsolute(s, cx, cy, sweep);
}

void Wedge(VRKPrintStream& s, double radius, double start, double sweep) {
    s.Write("WG");
    s.WriteFloat(radius);
    nextReal(s, start);
    nextReal(s, sweep);
    s.Write(kHalfDegreeChords);
}

void Scale(VRKPrintStream& s, double x, double y, int type) {
    s.Write("SC0,");
    s.WriteFloat(x);
    s.Write(",0,");
    s.WriteFloat(y);
    s.Put(',');
    s.WriteInt(type);
    End(s);
}

void Bezier(VRKPrintStream& s, const double (&xy)[6]) {
    s.Write("BZ");
    s.WriteFloat(xy[0]);
    for (int k = 1; k < 6; ++k) {
        nextReal(s, xy[k]);
    }
}

void PenColor(VRKPrintStream& s, int index, long long red, long long green, long long blue) {
    integers(s, "PC", index, red);
    s.Put(',');
    s.WriteInt(green);
    s.Put(',');
    s.WriteInt(blue);
}

void PenWidth(VRKPrintStream& s, double width) {
    s.Write("PW");
    s.WriteFloat(width);
}

void LineAttribute(VRKPrintStream& s, int kind, int value) {
    integers(s, kLineAttributes, kind, value);
}

namespace {

// "SD1,14,2," (symbol set 14, ISO 8859-1, then the spacing), the spacing's own pair, the stroke
// weight and the typeface, then "SS".
void font(VRKPrintStream& s, const char* spacing, double size, int weight, int typeface) {
    s.Write("SD1,14,2,");
    s.Write(spacing);
    s.WriteFloat(size);
    s.Write(",6,");
    s.WriteInt(weight);
    s.Write(",7,");
    s.WriteInt(typeface);
    s.Write("SS");
}

}  // namespace

void FixedFont(VRKPrintStream& s, double pitch, int weight, int typeface) {
    font(s, "0,3,", pitch, weight, typeface);
}

void ProportionalFont(VRKPrintStream& s, double points, int weight, int typeface) {
    font(s, "1,4,", points, weight, typeface);
}

void Slant(VRKPrintStream& s, double tangent) {
    s.Write("SL");
    s.WriteFloat(tangent);
}

void Direction(VRKPrintStream& s, double run, double rise) {
    s.Write("DI");
    s.WriteFloat(run);
    nextReal(s, rise);
}

void LabelOrigin(VRKPrintStream& s, int origin) {
    integers(s, "LO", origin);
}

void Label(VRKPrintStream& s, std::string_view text) {
    s.Write("LB");
    s.Write(text);
    s.Put(HPGL2Encoding::kLabelTerminator);
}

}  // namespace HPGL2Writer
