#include "host/pdf/VRKPdfTextLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "host/pdf/VRKPdfFontKind.h"
#include "host/pdf/VRKPdfSvgGlyphs.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
// The largest shift between two letters, in ems, taken as kerning within a word rather than a
// gap between words (the text layer itself breaks words at a tenth of an em).
constexpr double kMaxKern = 0.1;
// How far (points) a glyph's origin may be from a character's edge and still start it: the
// SVG text rounds coordinates to a few decimals.
constexpr double kEdgeTolerance = 0.02;

int Axis(double dx, double dy) {
    if (std::fabs(dx) >= std::fabs(dy)) {
        return dx >= 0.0 ? 0 : 2;
    }
    return dy >= 0.0 ? 1 : 3;
}

// True when the origin (x, y) is on the edge of `c` where text along `axis` starts.
bool Starts(const VRKPdfCharacter& c, int axis, double x, double y) {
    const double t = kEdgeTolerance;
    const bool acrossX = x >= c.x1 - t && x <= c.x2 + t;
    const bool acrossY = y >= c.y1 - t && y <= c.y2 + t;
    switch (axis) {
        case 0:
            return std::fabs(x - c.x1) <= t && acrossY;
        case 1:
            return std::fabs(y - c.y1) <= t && acrossX;
        case 2:
            return std::fabs(x - c.x2) <= t && acrossY;
        default:
            return std::fabs(y - c.y2) <= t && acrossX;
    }
}

// Where text along `axis` enters `c`, and where it leaves it.
double StartEdge(const VRKPdfCharacter& c, int axis) {
    switch (axis) {
        case 0:
            return c.x1;
        case 1:
            return c.y1;
        case 2:
            return c.x2;
        default:
            return c.y2;
    }
}

double EndEdge(const VRKPdfCharacter& c, int axis) {
    switch (axis) {
        case 0:
            return c.x2;
        case 1:
            return c.y2;
        case 2:
            return c.x1;
        default:
            return c.y1;
    }
}

double Along(int axis, double x, double y) {
    return axis == 0 || axis == 2 ? x : y;
}

bool IsSpace(const std::string& utf8) {
    return utf8 == " " || utf8 == "\t" || utf8 == "\n" || utf8 == "\r" || utf8 == "\xc2\xa0";
}

// Where text along each axis starts into each character, for finding the characters a glyph's
// origin starts without going through every character: a grid of cells, narrow along the text
// and a line's height or so across it, each character in the cells its box covers.
class StartIndex {
  public:
    explicit StartIndex(const std::vector<VRKPdfCharacter>& characters) : characters_(characters) {
        for (int axis = 0; axis < 4; ++axis) {
            for (std::size_t i = 0; i < characters.size(); ++i) {
                const VRKPdfCharacter& c = characters[i];
                const double edge = StartEdge(c, axis);
                const double low = axis == 0 || axis == 2 ? c.y1 : c.x1;
                const double high = axis == 0 || axis == 2 ? c.y2 : c.x2;
                if (c.utf8 == "\n" || !Inside(edge) || !Inside(low) || !Inside(high)) {
                    continue;
                }
                const std::int64_t first = Cell(low - kEdgeTolerance, kAcross);
                const std::int64_t last = Cell(high + kEdgeTolerance, kAcross);
                if (last - first >= kMaxCells) {
                    wide_[axis].push_back(static_cast<int>(i));
                    continue;
                }
                for (std::int64_t cell = first; cell <= last; ++cell) {
                    cells_[axis].push_back({Key(Cell(edge, kAlong), cell), static_cast<int>(i)});
                }
            }
            std::sort(cells_[axis].begin(), cells_[axis].end());
        }
    }
    // The characters that a glyph at (x, y) along `axis` starts, in text order.
    std::vector<int> Find(int axis, double x, double y) const {
        std::vector<int> found;
        const double along = Along(axis, x, y);
        const double across = axis == 0 || axis == 2 ? y : x;
        if (!Inside(along) || !Inside(across)) {
            return found;
        }
        const std::int64_t cell = Cell(across, kAcross);
        for (std::int64_t bucket = Cell(along - kEdgeTolerance, kAlong);
             bucket <= Cell(along + kEdgeTolerance, kAlong); ++bucket) {
            const auto range = std::equal_range(cells_[axis].begin(), cells_[axis].end(),
                                                Entry{Key(bucket, cell), 0}, ByKey);
            for (auto it = range.first; it != range.second; ++it) {
                if (Starts(characters_[it->index], axis, x, y)) {
                    found.push_back(it->index);
                }
            }
        }
        for (const int i : wide_[axis]) {
            if (Starts(characters_[i], axis, x, y)) {
                found.push_back(i);
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }

  private:
    struct Entry {
        std::int64_t key = 0;
        int index = 0;
        friend bool operator<(const Entry& a, const Entry& b) {
            return a.key < b.key || (a.key == b.key && a.index < b.index);
        }
    };
    static bool ByKey(const Entry& a, const Entry& b) { return a.key < b.key; }
    // Cells of half a point along the text and eight across; a box across more than 64 cells
    // (text over 500 points tall) is kept in a list of its own.
    static constexpr double kAlong = 0.5;
    static constexpr double kAcross = 8.0;
    static constexpr std::int64_t kMaxCells = 64;
    // Coordinates beyond this (points) are no page's: such characters are not looked up.
    static bool Inside(double v) { return std::fabs(v) < 1e8; }
    static std::int64_t Cell(double v, double size) {
        return static_cast<std::int64_t>(std::floor(v / size));
    }
    static std::int64_t Key(std::int64_t along, std::int64_t across) {
        return along * (std::int64_t{1} << 32) + across;
    }

    const std::vector<VRKPdfCharacter>& characters_;
    std::vector<Entry> cells_[4];
    std::vector<int> wide_[4];
};

// Four decimals, with a point whatever the locale (the program may run in one with a comma).
std::string Number(double value) {
    char text[64];
    const std::to_chars_result written =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 4);
    return std::string(text, written.ptr);
}

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            default:
                // Control characters are not allowed in XML text.
                out += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return out;
}

// Finds the character each glyph starts. A glyph's direction is the way to the next glyph of
// its drawing call (or from the one before). A glyph alone in its call takes it from the one
// kind of edge of a character its origin is on; where it is on several (at the end of the
// character before it too), from the edge that fits the glyph its group runs on from or into,
// or else from the only edge that starts a character other than a space.
void Match(std::vector<VRKPdfGlyphUse>& glyphs, const std::vector<VRKPdfCharacter>& characters) {
    const StartIndex index(characters);
    std::vector<bool> taken(characters.size(), false);
    for (std::size_t k = 0; k < glyphs.size(); ++k) {
        VRKPdfGlyphUse& glyph = glyphs[k];
        const VRKPdfGlyphUse* other = nullptr;
        double sign = 1.0;
        if (k + 1 < glyphs.size() && glyphs[k + 1].call == glyph.call) {
            other = &glyphs[k + 1];
        } else if (k > 0 && glyphs[k - 1].call == glyph.call) {
            other = &glyphs[k - 1];
            sign = -1.0;
        }
        std::vector<int> found;
        if (other != nullptr) {
            const double dx = sign * (other->x - glyph.x);
            const double dy = sign * (other->y - glyph.y);
            const double length = std::hypot(dx, dy);
            if (!(length > 0.0)) {
                continue;
            }
            glyph.dx = dx / length;
            glyph.dy = dy / length;
            glyph.axis = Axis(dx, dy);
            found = index.Find(glyph.axis, glyph.x, glyph.y);
        } else {
            std::vector<int> byAxis[4];
            int axes = 0;
            for (int axis = 0; axis < 4; ++axis) {
                byAxis[axis] = index.Find(axis, glyph.x, glyph.y);
                if (!byAxis[axis].empty()) {
                    ++axes;
                    glyph.axis = axis;
                }
            }
            if (axes == 0) {
                continue;
            }
            if (axes > 1) {
                const VRKPdfGlyphUse* before =
                    k > 0 && glyphs[k - 1].group == glyph.group && glyphs[k - 1].character >= 0
                        ? &glyphs[k - 1]
                        : nullptr;
                const VRKPdfGlyphUse* after =
                    k + 1 < glyphs.size() && glyphs[k + 1].group == glyph.group ? &glyphs[k + 1]
                                                                                : nullptr;
                glyph.axis = -1;
                for (int axis = 0; axis < 4 && glyph.axis < 0; ++axis) {
                    for (const int c : byAxis[axis]) {
                        const double kern = kMaxKern * characters[c].size + kEdgeTolerance;
                        const bool fromBefore =
                            before != nullptr && before->axis == axis &&
                            std::fabs(EndEdge(characters[before->character], axis) -
                                      StartEdge(characters[c], axis)) <= kern;
                        const bool intoAfter =
                            after != nullptr && std::fabs(Along(axis, after->x, after->y) -
                                                          EndEdge(characters[c], axis)) <= kern;
                        if (fromBefore || intoAfter) {
                            glyph.axis = axis;
                            break;
                        }
                    }
                }
                // A word of one letter: of the characters there, the one that is no space.
                int lettered = 0;
                int letterAxis = -1;
                for (int axis = 0; axis < 4; ++axis) {
                    const bool letter =
                        std::any_of(byAxis[axis].begin(), byAxis[axis].end(),
                                    [&](int c) { return !IsSpace(characters[c].utf8); });
                    if (letter) {
                        ++lettered;
                        letterAxis = axis;
                    }
                }
                if (glyph.axis < 0 && lettered == 1) {
                    glyph.axis = letterAxis;
                }
                if (glyph.axis < 0) {
                    glyph.axis = 0;
                    continue;
                }
            }
            found = byAxis[glyph.axis];
            const double angle = glyph.axis * kPi / 2.0;
            glyph.dx = std::round(std::cos(angle));
            glyph.dy = std::round(std::sin(angle));
        }
        // Of several characters starting there (text drawn twice), the first not yet taken,
        // preferring the one after the glyph before's.
        const int after =
            k > 0 && glyphs[k - 1].group == glyph.group && glyphs[k - 1].character >= 0
                ? glyphs[k - 1].character + 1
                : -1;
        for (const int i : found) {
            if (i == after && !taken[i]) {
                glyph.character = i;
            }
        }
        for (std::size_t f = 0; f < found.size() && glyph.character < 0; ++f) {
            if (!taken[found[f]]) {
                glyph.character = found[f];
            }
        }
        if (glyph.character >= 0) {
            taken[glyph.character] = true;
        }
    }
}

// The last character glyph `g` draws: its own, or the last of the characters without glyphs
// of their own that follow it edge to edge in the same font (a ligature draws several).
int LastCharacter(const VRKPdfGlyphUse& g, const std::vector<VRKPdfCharacter>& characters,
                  const std::vector<bool>& drawn) {
    int end = g.character;
    while (end + 1 < static_cast<int>(characters.size()) && !drawn[end + 1] &&
           !IsSpace(characters[end + 1].utf8) && characters[end + 1].font == characters[end].font &&
           std::fabs(EndEdge(characters[end], g.axis) - StartEdge(characters[end + 1], g.axis)) <=
               kEdgeTolerance) {
        ++end;
    }
    return end;
}

// True when glyph `b` carries on the run whose glyph before it is `a`, ending at character
// `aEnd`: same group and direction, a character of the same plain font and size, its origin at
// the end edge of `aEnd` (or, for the next character of the text, a kerning's shift from it). The
// text layer's reading order does not matter (it may break text that runs at a slant into lines of
// its own).
bool Continues(const VRKPdfGlyphUse& a, int aEnd, const VRKPdfGlyphUse& b,
               const std::vector<VRKPdfCharacter>& characters) {
    if (b.character < 0 || a.group != b.group || a.axis != b.axis ||
        a.dx * b.dx + a.dy * b.dy < 0.999) {
        return false;
    }
    const VRKPdfCharacter& first = characters[a.character];
    const VRKPdfCharacter& next = characters[b.character];
    if (next.font != first.font || next.size != first.size || !next.plain) {
        return false;
    }
    // How far b's origin is from where a's characters end, along the text.
    const double gap =
        (Along(a.axis, b.x, b.y) - EndEdge(characters[aEnd], a.axis)) * (a.axis < 2 ? 1.0 : -1.0);
    if (std::fabs(gap) <= kEdgeTolerance) {
        return true;
    }
    // Kerning, where the text layer saw no space between the two.
    return b.character == aEnd + 1 && std::fabs(gap) <= kMaxKern * first.size;
}

}  // namespace

std::size_t VRKPdfTextLabels::Apply(std::string& svg,
                                    const std::vector<VRKPdfCharacter>& characters) {
    if (characters.empty()) {
        return 0;
    }
    std::vector<VRKPdfGlyphUse> glyphs = VRKPdfSvgGlyphs::Find(svg);
    Match(glyphs, characters);
    std::vector<bool> drawn(characters.size(), false);
    for (const VRKPdfGlyphUse& glyph : glyphs) {
        if (glyph.character >= 0) {
            drawn[glyph.character] = true;
        }
    }
    // Glyphs of slanted fonts stay outlines (their characters stay drawn: no label takes
    // them).
    const std::set<std::string> slanted = VRKPdfSvgGlyphs::SlantedFonts(svg);
    for (VRKPdfGlyphUse& glyph : glyphs) {
        if (slanted.count(glyph.font) != 0) {
            glyph.character = -1;
        }
    }

    std::string out;
    out.reserve(svg.size());
    std::size_t copied = 0;
    std::size_t labels = 0;
    for (std::size_t k = 0; k < glyphs.size();) {
        const VRKPdfGlyphUse& first = glyphs[k];
        if (first.character < 0 || !characters[first.character].plain ||
            !(characters[first.character].size > 0.0)) {
            ++k;
            continue;
        }
        // The run's text: each glyph's characters, in the order the glyphs are drawn.
        std::string text;
        bool visible = false;
        std::size_t last = k;
        for (;;) {
            const int end = LastCharacter(glyphs[last], characters, drawn);
            for (int i = glyphs[last].character; i <= end; ++i) {
                text += characters[i].utf8;
                visible = visible || !IsSpace(characters[i].utf8);
            }
            if (last + 1 >= glyphs.size() ||
                !Continues(glyphs[last], end, glyphs[last + 1], characters)) {
                break;
            }
            ++last;
        }
        if (!visible) {
            k = last + 1;
            continue;
        }
        const VRKPdfCharacter& font = characters[first.character];
        double dx = first.dx, dy = first.dy;
        if (last > k) {
            dx = glyphs[last].x - first.x;
            dy = glyphs[last].y - first.y;
        }
        const double angle = std::atan2(dy, dx) * 180.0 / kPi;
        std::string element = "<text x=\"" + Number(first.x) + "\" y=\"" + Number(first.y) + "\"";
        if (std::fabs(angle) > 1e-6) {
            element += " transform=\"rotate(" + Number(angle) + " " + Number(first.x) + " " +
                       Number(first.y) + ")\"";
        }
        element +=
            " xml:space=\"preserve\" style=\"stroke:none;font-size:" + Number(font.size) + "px";
        const std::string family = VRKPdfFontKind::Family(font.font);
        if (!family.empty()) {
            element += ";font-family:" + family;
        }
        if (VRKPdfFontKind::Bold(font.font)) {
            element += ";font-weight:bold";
        }
        element += "\">" + Escaped(text) + "</text>";
        out.append(svg, copied, first.start - copied);
        out += element;
        copied = first.end;
        for (std::size_t g = k + 1; g <= last; ++g) {
            out.append(svg, copied, glyphs[g].start - copied);
            copied = glyphs[g].end;
        }
        ++labels;
        k = last + 1;
    }
    out.append(svg, copied, std::string::npos);
    svg = std::move(out);
    return labels;
}
