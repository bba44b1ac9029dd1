#include "host/pdf/VRKPdfFontKind.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

namespace {

std::string Lower(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

std::string VRKPdfFontKind::Family(const std::string& font) {
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

bool VRKPdfFontKind::Bold(const std::string& font) {
    const std::string name = Lower(font);
    // Computer Modern's bold faces: cmbx (bold extended), cmb, cmssbx.
    const bool computerModernBold =
        name.rfind("cm", 0) == 0 && (Contains(name, "bx") || name.rfind("cmb", 0) == 0);
    return Contains(name, "bold") || Contains(name, "black") || Contains(name, "heavy") ||
           computerModernBold;
}
