// Text: each run of characters of a <text> (its own or a <tspan>'s) becomes one text of the
// drawing at its own position.

#include <cctype>
#include <cmath>
#include <functional>

#include "host/svg/VRKSvgLength.h"
#include "host/svg/VRKSvgRenderer.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
// Where a run without a position of its own starts is not known without the font's metrics: it
// is taken to follow the run before it at this many ems a character.
constexpr double kAdvancePerCharacter = 0.6;

struct Chunk {
    std::string text;
    VRKSvgStyle style;
    bool hasX = false, hasY = false;
    double x = 0.0, y = 0.0, dx = 0.0, dy = 0.0;
};

// The first number of a list attribute (x="10 20 30" positions the first character only here).
bool FirstNumber(const VRKSvgNode& node, const char* attribute, double& value) {
    const std::string* text = node.Attribute(attribute);
    if (text == nullptr) {
        return false;
    }
    const std::vector<double> values = VRKSvgLength::ParseList(*text);
    if (values.empty() || !std::isfinite(values[0])) {
        return false;
    }
    value = values[0];
    return true;
}

std::size_t CodePoints(const std::string& text) {
    std::size_t count = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xc0) != 0x80) {
            ++count;
        }
    }
    return count;
}

std::string Lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

}  // namespace

// The host font nearest to the first family of the list that names a known kind of face.
int VRKSvgRenderer::Font(const std::string& families) {
    std::size_t start = 0;
    while (start <= families.size()) {
        std::size_t end = families.find(',', start);
        if (end == std::string::npos) {
            end = families.size();
        }
        std::string family = families.substr(start, end - start);
        const std::size_t first = family.find_first_not_of(" \t\"'");
        const std::size_t last = family.find_last_not_of(" \t\"'");
        family = first == std::string::npos ? "" : Lower(family.substr(first, last - first + 1));
        auto starts = [&](const char* prefix) { return family.rfind(prefix, 0) == 0; };
        if (starts("courier")) {
            return VRKFontCourier;
        }
        if (family == "monospace" || family == "dejavu sans mono") {
            return VRKFontMonospace;
        }
        if (family == "serif" || starts("times") || starts("georgia")) {
            return VRKFontSerif;
        }
        if (family == "sans-serif" || starts("arial") || starts("helvetica") || starts("verdana") ||
            family == "dejavu sans") {
            return VRKFontSans;
        }
        start = end + 1;
    }
    return VRKFontDefault;
}

void VRKSvgRenderer::Text(const VRKSvgNode& node, const State& state) {
    std::vector<Chunk> chunks;
    Chunk pending;  // the position the next run takes
    FirstNumber(node, "dx", pending.dx);
    FirstNumber(node, "dy", pending.dy);
    double startX = 0.0, startY = 0.0;
    FirstNumber(node, "x", startX);
    FirstNumber(node, "y", startY);

    std::function<void(const VRKSvgNode&, const VRKSvgStyle&)> walk =
        [&](const VRKSvgNode& element, const VRKSvgStyle& style) {
            for (const auto& child : element.children) {
                if (child->IsText()) {
                    Chunk chunk = pending;
                    chunk.text = child->text;
                    chunk.style = style;
                    chunks.push_back(std::move(chunk));
                    pending = Chunk();
                    continue;
                }
                if (!child->inSvg) {
                    continue;
                }
                const std::string& name = child->name;
                if (name == "title" || name == "desc" || name == "metadata") {
                    continue;
                }
                if (name != "tspan" && name != "textPath" && name != "a") {
                    Warn("text-content", *child,
                         "only text and <tspan> are drawn inside <text>; <" + name + "> is not");
                    continue;
                }
                if (name == "textPath") {
                    Warn("textPath", *child,
                         "text on a path is not supported; drawn on a straight line");
                }
                if (stack_.size() >= static_cast<std::size_t>(kMaxDepth)) {
                    Fail(*child, "elements are nested deeper than " + std::to_string(kMaxDepth) +
                                     " levels");
                }
                stack_.push_back(child.get());
                State inner = state;
                inner.style = style;
                inner = Enter(*child, inner, false);
                if (inner.style.display) {
                    pending.hasX = FirstNumber(*child, "x", pending.x) || pending.hasX;
                    pending.hasY = FirstNumber(*child, "y", pending.y) || pending.hasY;
                    double d = 0.0;
                    if (FirstNumber(*child, "dx", d)) {
                        pending.dx += d;
                    }
                    if (FirstNumber(*child, "dy", d)) {
                        pending.dy += d;
                    }
                    walk(*child, inner.style);
                }
                stack_.pop_back();
            }
        };
    walk(node, state.style);

    // White space as SVG's default handling has it: newlines go, tabs become spaces, runs of
    // spaces become one, and the text neither starts nor ends with one. xml:space="preserve"
    // keeps every space, newlines and tabs turned into spaces.
    bool afterSpace = true;
    Chunk* lastWithText = nullptr;
    for (Chunk& chunk : chunks) {
        std::string out;
        for (const char c : chunk.text) {
            if (chunk.style.preserveSpace) {
                out += (c == '\n' || c == '\r' || c == '\t') ? ' ' : c;
                continue;
            }
            if (c == '\n' || c == '\r') {
                continue;
            }
            const char d = c == '\t' ? ' ' : c;
            if (d == ' ' && afterSpace) {
                continue;
            }
            out += d;
            afterSpace = d == ' ';
        }
        chunk.text = std::move(out);
        if (!chunk.text.empty()) {
            lastWithText = &chunk;
        }
    }
    if (lastWithText != nullptr && !lastWithText->style.preserveSpace) {
        while (!lastWithText->text.empty() && lastWithText->text.back() == ' ') {
            lastWithText->text.pop_back();
        }
    }

    const VRKSvgMatrix& m = state.ctm;
    const double scale = m.LengthScale();
    const double direction = std::atan2(m.b, m.a) * 180.0 / kPi;
    double x = startX, y = startY;
    for (const Chunk& chunk : chunks) {
        x = chunk.hasX ? chunk.x : x;
        y = chunk.hasY ? chunk.y : y;
        x += chunk.dx;
        y += chunk.dy;
        if (chunk.text.empty()) {
            continue;
        }
        const VRKSvgStyle& style = chunk.style;
        const double advance = kAdvancePerCharacter * style.fontSize * CodePoints(chunk.text);
        VRKDrawingText text;
        const double px = m.X(x, y);
        const double py = m.Y(x, y);
        const double size = style.fontSize * scale;
        x += advance;
        if (!style.visible || !(size > 0.0)) {
            continue;
        }
        if (!std::isfinite(px) || !std::isfinite(py) || !std::isfinite(size) ||
            !std::isfinite(direction) || std::fabs(px) > kLimit || std::fabs(py) > kLimit ||
            size > kLimit) {
            Absurd(node);
            continue;
        }
        // Text is drawn in its fill colour, or in its stroke colour when it has no fill.
        if (!Paint(style.fill, style.opacity * style.fillOpacity, node, state, text.color) &&
            !Paint(style.stroke, style.opacity * style.strokeOpacity, node, state, text.color)) {
            continue;
        }
        text.x = static_cast<float>(px);
        text.y = static_cast<float>(py);
        text.utf8 = chunk.text;
        text.size = static_cast<float>(size);
        text.direction = static_cast<float>(direction);
        text.font = Font(style.fontFamily);
        text.weight = style.bold ? VRKWeightBold : VRKWeightNormal;
        text.anchor = style.anchor;
        drawing_.AddText(std::move(text));
    }
}
