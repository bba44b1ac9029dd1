#include "host/pdf/VRKPdfTextLabels.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr double kPi = 3.14159265358979323846;
// The cosine of the angle between a glyph's upright and its baseline beyond which the text is
// slanted too far for a label: 15 degrees off square. Obliques of 10 or 12 degrees are labelled
// upright, as italics are.
const double kMaxSlant = std::sin(15.0 * kPi / 180.0);
// The largest shift between two letters, in ems, taken as kerning within a word rather than a
// gap between words (the text layer itself breaks words at a tenth of an em).
constexpr double kMaxKern = 0.1;
// How far (points) a glyph's origin may be from a character's edge and still start it: the
// SVG text rounds coordinates to a few decimals.
constexpr double kEdgeTolerance = 0.02;

// A <use> of a glyph symbol in the page's content.
struct Glyph {
    std::size_t start = 0;  // of "<use"
    std::size_t end = 0;    // after "/>"
    double x = 0.0;
    double y = 0.0;
    std::size_t call = 0;   // glyphs drawn in one call share it
    std::size_t group = 0;  // calls that follow one another with one paint share it
    // Along the baseline, unit length; which of the character box's edges the origin is on.
    double dx = 1.0;
    double dy = 0.0;
    int axis = 0;  // 0 +x, 1 +y (down the page), 2 -x, 3 -y
    int character = -1;
    std::string font;  // the symbol's font: "glyph3-" for "#glyph3-12"
};

std::string Lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

// The value of attribute `name` in the element text `element`, or false.
bool AttributeNumber(std::string_view element, std::string_view name, double& value) {
    std::size_t at = 0;
    while ((at = element.find(name, at)) != std::string_view::npos) {
        const bool whole =
            at > 0 && element[at - 1] == ' ' && element.substr(at + name.size(), 2) == "=\"";
        if (whole) {
            const std::string number(
                element.substr(at + name.size() + 2,
                               element.find('"', at + name.size() + 2) - (at + name.size() + 2)));
            const char* end = number.data() + number.size();
            const std::from_chars_result read = std::from_chars(number.data(), end, value);
            return read.ec == std::errc() && read.ptr == end && std::isfinite(value);
        }
        at += name.size();
    }
    return false;
}

// The glyph uses of the content after the definitions, grouped by the drawing call, in order;
// only groups whose opening element paints with a plain colour. A group that closes and opens
// again at once with the same paint goes on: text set with kerning or letter spacing comes as
// one drawing call a piece.
std::vector<Glyph> FindGlyphs(const std::string& svg) {
    std::vector<Glyph> glyphs;
    const std::size_t defs = svg.find("</defs>");
    std::size_t at = defs == std::string::npos ? 0 : defs;
    std::size_t call = 0;
    std::size_t group = 0;
    bool open = false;  // the glyph before ends right where this one's white space begins
    std::size_t previousEnd = 0;
    std::string_view previousOpening;
    while ((at = svg.find("<use xlink:href=\"#glyph", at)) != std::string::npos) {
        const std::size_t end = svg.find("/>", at);
        if (end == std::string::npos) {
            break;
        }
        Glyph glyph;
        glyph.start = at;
        glyph.end = end + 2;
        const std::string_view element(svg.data() + at, glyph.end - at);
        at = glyph.end;
        if (!AttributeNumber(element, "x", glyph.x) || !AttributeNumber(element, "y", glyph.y)) {
            open = false;
            continue;
        }
        const bool follows = open && svg.find_first_not_of(" \t\r\n", previousEnd) == glyph.start;
        if (!follows) {
            // The first glyph of a group: the element before it must open a group that fills
            // with a plain colour.
            const std::size_t tag = glyph.start > 0 ? svg.rfind('<', glyph.start - 1) : svg.npos;
            if (tag == svg.npos) {
                open = false;
                continue;
            }
            const std::string_view opening(svg.data() + tag, glyph.start - tag);
            const bool plain =
                opening.rfind("<g style=\"", 0) == 0 &&
                opening.find("fill:rgb(") != std::string_view::npos &&
                svg.find_first_not_of(" \t\r\n", svg.find('>', tag) + 1) == glyph.start;
            if (!plain) {
                open = false;
                continue;
            }
            const std::size_t close = open ? svg.find_first_not_of(" \t\r\n", previousEnd) : 0;
            const bool reopened = open && opening == previousOpening &&
                                  svg.compare(close, 4, "</g>") == 0 &&
                                  svg.find_first_not_of(" \t\r\n", close + 4) == tag;
            ++call;
            if (!reopened) {
                ++group;
            }
            previousOpening = opening;
        }
        const std::size_t name = glyph.start + 18;  // after "<use xlink:href=\"#"
        const std::size_t dash = svg.find('-', name);
        if (dash == std::string::npos || dash > glyph.end) {
            open = false;
            continue;
        }
        glyph.font = svg.substr(name, dash + 1 - name);
        glyph.call = call;
        glyph.group = group;
        glyphs.push_back(glyph);
        open = true;
        previousEnd = glyph.end;
    }
    return glyphs;
}

// The fonts (as "glyphN-") whose glyphs are drawn with a slant: a plotter font cannot be
// sheared. cairo gives each font on the page (a face at one size, angle and slant) symbols of
// its own, the first of them ("glyphN-0") its missing-glyph shape, which most fonts draw as a
// box. Drawn through a sheared matrix that box is a parallelogram whose corners are no longer
// square; a font whose first shape is no box says nothing, and is taken as upright.
std::set<std::string> SlantedFonts(const std::string& svg) {
    std::set<std::string> slanted;
    const std::size_t defs = svg.find("</defs>");
    const std::string_view head(svg.data(), defs == std::string::npos ? 0 : defs);
    const std::string_view symbol = "<symbol overflow=\"visible\" id=\"glyph";
    std::size_t at = 0;
    while ((at = head.find(symbol, at)) != std::string_view::npos) {
        at += symbol.size();
        const std::size_t close = head.find('"', at);
        if (close == std::string_view::npos || head.substr(close - 2, 2) != "-0") {
            continue;
        }
        const std::string font = "glyph" + std::string(head.substr(at, close - 1 - at));
        const std::size_t d = head.find(" d=\"", close);
        const std::size_t end = d == std::string_view::npos ? d : head.find('"', d + 4);
        if (end == std::string_view::npos ||
            head.substr(close, d - close).find("</symbol>") != std::string_view::npos) {
            continue;
        }
        // The first ring, when it is "M x y L x y L x y L x y Z".
        std::string path(head.substr(d + 4, end - d - 4));
        for (char& c : path) {
            c = (c == 'M' || c == 'L' || c == 'Z') ? ' ' : c;
        }
        const std::string_view ring(head.substr(d + 4, end - d - 4));
        const std::size_t z = ring.find('Z');
        if (ring.substr(0, 2) != "M " || z == std::string_view::npos ||
            std::count(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(z), 'L') != 3 ||
            ring.substr(0, z).find_first_of("CQ") != std::string_view::npos) {
            continue;
        }
        double v[8];
        const char* p = path.data();
        const char* last = path.data() + z;
        bool read = true;
        for (double& value : v) {
            while (p < last && *p == ' ') {
                ++p;
            }
            const std::from_chars_result r = std::from_chars(p, last, value);
            read = read && r.ec == std::errc();
            p = r.ptr;
        }
        if (!read) {
            continue;
        }
        const double ax = v[2] - v[0], ay = v[3] - v[1];
        const double bx = v[4] - v[2], by = v[5] - v[3];
        const double la = std::hypot(ax, ay), lb = std::hypot(bx, by);
        if (la > 0.0 && lb > 0.0 && std::fabs(ax * bx + ay * by) / (la * lb) > kMaxSlant) {
            slanted.insert(font);
        }
    }
    return slanted;
}

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

// The character list sorted by where text along each axis starts, for finding the character a
// glyph's origin starts without going through every character.
class StartIndex {
  public:
    explicit StartIndex(const std::vector<VRKPdfCharacter>& characters) : characters_(characters) {
        for (int axis = 0; axis < 4; ++axis) {
            for (std::size_t i = 0; i < characters.size(); ++i) {
                const VRKPdfCharacter& c = characters[i];
                if (c.utf8 != "\n") {
                    starts_[axis].emplace_back(StartEdge(c, axis), static_cast<int>(i));
                }
            }
            std::sort(starts_[axis].begin(), starts_[axis].end());
        }
    }
    // The characters that a glyph at (x, y) along `axis` starts, in text order.
    std::vector<int> Find(int axis, double x, double y) const {
        const double key = Along(axis, x, y);
        const auto& list = starts_[axis];
        std::vector<int> found;
        auto it =
            std::lower_bound(list.begin(), list.end(), std::make_pair(key - kEdgeTolerance, -1));
        for (; it != list.end() && it->first <= key + kEdgeTolerance; ++it) {
            if (Starts(characters_[it->second], axis, x, y)) {
                found.push_back(it->second);
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }

  private:
    const std::vector<VRKPdfCharacter>& characters_;
    std::vector<std::pair<double, int>> starts_[4];
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
void Match(std::vector<Glyph>& glyphs, const std::vector<VRKPdfCharacter>& characters) {
    const StartIndex index(characters);
    std::vector<bool> taken(characters.size(), false);
    for (std::size_t k = 0; k < glyphs.size(); ++k) {
        Glyph& glyph = glyphs[k];
        const Glyph* other = nullptr;
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
                const Glyph* before =
                    k > 0 && glyphs[k - 1].group == glyph.group && glyphs[k - 1].character >= 0
                        ? &glyphs[k - 1]
                        : nullptr;
                const Glyph* after = k + 1 < glyphs.size() && glyphs[k + 1].group == glyph.group
                                         ? &glyphs[k + 1]
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
int LastCharacter(const Glyph& g, const std::vector<VRKPdfCharacter>& characters,
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
bool Continues(const Glyph& a, int aEnd, const Glyph& b,
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

std::string VRKPdfTextLabels::Family(const std::string& font) {
    const std::string name = Lower(font);
    const auto any = [&name](std::initializer_list<const char*> parts) {
        return std::any_of(parts.begin(), parts.end(),
                           [&name](const char* part) { return Contains(name, part); });
    };
    // TeX's Computer Modern faces are named by abbreviations: cmtt typewriter, cmss sans
    // serif, the rest (cmr, cmbx, cmti, cmsl, ...) serif.
    const bool computerModern = name.rfind("cm", 0) == 0 && name.size() > 2 &&
                                std::isalpha(static_cast<unsigned char>(name[2]));
    if (Contains(name, "courier")) {
        return "Courier";
    }
    if (any({"mono", "consolas", "menlo", "typewriter"}) ||
        (computerModern && Contains(name, "tt"))) {
        return "monospace";
    }
    if (any({"sans", "helvetica", "arial", "verdana", "tahoma", "calibri", "segoe", "frutiger",
             "univers", "futura", "gill"}) ||
        (computerModern && Contains(name, "ss"))) {
        return "sans-serif";
    }
    if (any({"times", "serif", "roman", "georgia", "garamond", "palatino", "cambria", "minion",
             "baskerville", "caslon", "century", "charter", "bookman"}) ||
        computerModern) {
        return "serif";
    }
    return "";
}

bool VRKPdfTextLabels::Bold(const std::string& font) {
    const std::string name = Lower(font);
    // Computer Modern's bold faces: cmbx (bold extended), cmb, cmssbx.
    const bool computerModernBold =
        name.rfind("cm", 0) == 0 && (Contains(name, "bx") || name.rfind("cmb", 0) == 0);
    return Contains(name, "bold") || Contains(name, "black") || Contains(name, "heavy") ||
           computerModernBold;
}

std::size_t VRKPdfTextLabels::Apply(std::string& svg,
                                    const std::vector<VRKPdfCharacter>& characters) {
    if (characters.empty()) {
        return 0;
    }
    std::vector<Glyph> glyphs = FindGlyphs(svg);
    Match(glyphs, characters);
    std::vector<bool> drawn(characters.size(), false);
    for (const Glyph& glyph : glyphs) {
        if (glyph.character >= 0) {
            drawn[glyph.character] = true;
        }
    }
    // Glyphs of slanted fonts stay outlines (their characters stay drawn: no label takes them).
    const std::set<std::string> slanted = SlantedFonts(svg);
    for (Glyph& glyph : glyphs) {
        if (slanted.count(glyph.font) != 0) {
            glyph.character = -1;
        }
    }

    std::string out;
    out.reserve(svg.size());
    std::size_t copied = 0;
    std::size_t labels = 0;
    for (std::size_t k = 0; k < glyphs.size();) {
        const Glyph& first = glyphs[k];
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
        const std::string family = Family(font.font);
        if (!family.empty()) {
            element += ";font-family:" + family;
        }
        if (Bold(font.font)) {
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
