#include "host/job/VRKJobPageKeys.h"

#include <iterator>
#include <string>

#include "host/job/VRKJobArgumentReader.h"

bool VRKJobPageKeys::Read(VRKJobArgumentReader& reader, std::size_t first, VRKPrintParameters& page,
                          bool& given) {
    static constexpr std::string_view kKeys[] = {
        "width", "height", "orientation", "rotation", "colorMode", "margins", "textAsGeometry"};
    bool seen[std::size(kKeys)] = {};
    given = reader.ArgCount() > first;
    for (std::size_t arg = first; arg < reader.ArgCount(); ++arg) {
        const VRKJobToken& token = reader.Token(arg);
        const std::size_t equals = token.text.find('=');
        if (token.isString || equals == std::string_view::npos || equals == 0) {
            return reader.FailArgument("expected key=value, got " + VRKJobLexer::Quote(token.text));
        }
        const std::string_view key = token.text.substr(0, equals);
        const std::string_view value = token.text.substr(equals + 1);
        std::size_t k = 0;
        while (k < std::size(kKeys) && kKeys[k] != key) {
            ++k;
        }
        if (k == std::size(kKeys)) {
            return reader.Fail("unknown key " + VRKJobLexer::Quote(key) +
                               " (keys: width height orientation rotation colorMode margins "
                               "textAsGeometry)");
        }
        if (seen[k]) {
            return reader.Fail("the key " + VRKJobLexer::Quote(key) + " is given twice");
        }
        seen[k] = true;
        if (!Apply(reader, key, value, page)) {
            return false;
        }
    }
    return true;
}

bool VRKJobPageKeys::Apply(VRKJobArgumentReader& reader, std::string_view key,
                           std::string_view value, VRKPrintParameters& page) {
    const std::string what = std::string(key) + ": ";
    if (key == "width" || key == "height") {
        float size = 0.0f;
        if (!reader.Length(value, size, what)) {
            return false;
        }
        if (!(size > 0.0f)) {
            return reader.Fail(std::string(key) + " must be greater than 0");
        }
        if (key == "width") {
            page.GetForm().SetWidth(size);
        } else {
            page.GetForm().SetHeight(size);
        }
        return true;
    }
    if (key == "margins") {
        return Margins(reader, value, page);
    }
    int number = 0;
    if (!reader.Integer(value, number, what)) {
        return false;
    }
    const int most = key == "rotation" ? 3 : key == "colorMode" ? 2 : 1;
    if (number < 0 || number > most) {
        return reader.Fail(std::string(key) + " must be " +
                           (most == 1 ? "0 or 1" : "0 to " + std::to_string(most)) + ", got " +
                           std::to_string(number));
    }
    if (key == "orientation") {
        page.GetForm().SetOrientation(number);
    } else if (key == "rotation") {
        page.SetPageRotation(number);
    } else if (key == "colorMode") {
        page.SetColorMode(number);
    } else {
        page.SetTextAsGeometry(number);
    }
    return true;
}

bool VRKJobPageKeys::Margins(VRKJobArgumentReader& reader, std::string_view value,
                             VRKPrintParameters& page) {
    float margins[4] = {};
    std::size_t from = 0;
    for (int i = 0; i < 4; ++i) {
        const std::size_t comma = value.find(',', from);
        const bool last = i == 3;
        if (last != (comma == std::string_view::npos)) {
            return reader.Fail("margins takes four values, left,top,right,bottom; got " +
                               VRKJobLexer::Quote(value));
        }
        const std::string_view part =
            value.substr(from, last ? std::string_view::npos : comma - from);
        if (!reader.Length(part, margins[i], "margins: ")) {
            return false;
        }
        if (margins[i] < 0.0f) {
            return reader.Fail("margins must not be negative");
        }
        from = comma + 1;
    }
    page.SetMargins(margins[0], margins[1], margins[2], margins[3]);
    return true;
}
