#include "host/drawing/VRKDrawingLayout.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace {

struct NamedForm {
    const char* name;
    float width;
    float height;
};

// The ISO A series, upright.
constexpr NamedForm kForms[] = {
    {"A4", 210.0f, 297.0f}, {"A3", 297.0f, 420.0f},  {"A2", 420.0f, 594.0f},
    {"A1", 594.0f, 841.0f}, {"A0", 841.0f, 1189.0f},
};

// The largest sheet taken: 100 m, longer than any roll.
constexpr float kMaxExtent = 100000.0f;

bool equalNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return (x >= 'a' && x <= 'z' ? x - 32 : x) == (y >= 'a' && y <= 'z' ? y - 32 : y);
           });
}

bool parseLength(std::string_view text, float& value) {
    if (text.empty() || text.front() == '+' || text.front() == '-') {
        return false;
    }
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && std::isfinite(value) &&
           value > 0.0f && value <= kMaxExtent;
}

std::string shortest(float value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

}  // namespace

bool VRKDrawingLayout::ParseForm(const std::string& text, Form& form, std::string& error) {
    for (const NamedForm& named : kForms) {
        if (equalNoCase(text, named.name)) {
            form = {named.width, named.height};
            return true;
        }
    }
    const std::size_t x = text.find_first_of("xX");
    if (x != std::string::npos) {
        Form parsed;
        if (parseLength(std::string_view(text).substr(0, x), parsed.width) &&
            parseLength(std::string_view(text).substr(x + 1), parsed.height)) {
            form = parsed;
            return true;
        }
    }
    error = "the form '" + text +
            "' is neither A4, A3, A2, A1, A0 nor WIDTHxHEIGHT in millimetres (up to 100000)";
    return false;
}

bool VRKDrawingLayout::Place(float width, float height, VRKPrintParameters& params,
                             Placement& placement, std::string& error) const {
    // Without a form, a sheet of the drawing's own size with the margins round it.
    Form sheet = form.value_or(Form{width + 2.0f * margins, height + 2.0f * margins});
    // The area the drawing is laid out on, across and up.
    float across = sheet.width;
    float up = sheet.height;
    int orientation = 1;
    bool scaled = fit;
    const bool roll = form.has_value() && form->height == 0.0f;
    if (roll) {
        // A roll: the drawing's side along the roll's width decides the scale, the other its
        // length.
        const float side = landscape ? height : width;
        const float along = landscape ? width : height;
        const float inner = sheet.width - 2.0f * margins;
        float scale = 1.0f;
        if ((fit || (fitWhenLarger && side > inner)) && side > 0.0f && inner > 0.0f) {
            scale = inner / side;
            scaled = true;
        }
        sheet.height = along * scale + 2.0f * margins;
        across = landscape ? sheet.height : sheet.width;
        up = landscape ? sheet.width : sheet.height;
        orientation = landscape ? 0 : 1;
    } else if (landscape) {
        const float shortSide = std::min(sheet.width, sheet.height);
        const float longSide = std::max(sheet.width, sheet.height);
        sheet = {shortSide, longSide};
        across = longSide;
        up = shortSide;
        orientation = 0;
    }
    params.SetForm(VRKPrintForm(sheet.width, sheet.height, orientation));

    const float innerAcross = across - 2.0f * margins;
    const float innerUp = up - 2.0f * margins;
    if (!(margins >= 0.0f) || innerAcross <= 0.0f || innerUp <= 0.0f) {
        error = "margins of " + shortest(margins) + " mm leave nothing of the form";
        return false;
    }
    placement = Placement{};
    if (!roll && fitWhenLarger && (width > innerAcross || height > innerUp)) {
        scaled = true;
    }
    if (scaled && width > 0.0f && height > 0.0f) {
        placement.scale = std::min(innerAcross / width, innerUp / height);
        placement.dx = margins + (innerAcross - width * placement.scale) / 2.0f;
        placement.dy = margins + (innerUp - height * placement.scale) / 2.0f;
    } else {
        // The drawing's top left corner at the top left corner inside the margins.
        placement.dx = margins;
        placement.dy = up - margins - height;
    }
    return true;
}
