#include "host/pdf/VRKPdfSvgGlyphs.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace {

constexpr double kPi = 3.14159265358979323846;
// The cosine of the angle between a glyph's upright and its baseline beyond which the text is
// slanted too far for a label: 15 degrees off square. Obliques of 10 or 12 degrees are labelled
// upright, as italics are.
const double kMaxSlant = std::sin(15.0 * kPi / 180.0);

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

}  // namespace

// The glyph uses of the content after the definitions, grouped by the drawing call, in order;
// only groups whose opening element paints with a plain colour. A group that closes and opens
// again at once with the same paint goes on: text set with kerning or letter spacing comes as
// one drawing call a piece.
std::vector<VRKPdfGlyphUse> VRKPdfSvgGlyphs::Find(const std::string& svg) {
    std::vector<VRKPdfGlyphUse> glyphs;
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
        VRKPdfGlyphUse glyph;
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
std::set<std::string> VRKPdfSvgGlyphs::SlantedFonts(const std::string& svg) {
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
