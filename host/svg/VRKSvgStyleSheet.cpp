#include "host/svg/VRKSvgStyleSheet.h"

#include <algorithm>
#include <cctype>

namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return lower;
}

// The text without its /* comments */.
std::string WithoutComments(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        if (text.compare(i, 2, "/*") == 0) {
            const std::size_t end = text.find("*/", i + 2);
            i = end == std::string_view::npos ? text.size() : end + 2;
            out += ' ';
            continue;
        }
        out += text[i++];
    }
    return out;
}

// The position after the block that opens at `open` (a '{'), braces nested; the end of the text
// when it is not closed.
std::size_t AfterBlock(std::string_view text, std::size_t open) {
    int depth = 0;
    for (std::size_t i = open; i < text.size(); ++i) {
        if (text[i] == '{') {
            ++depth;
        } else if (text[i] == '}' && --depth == 0) {
            return i + 1;
        }
    }
    return text.size();
}

bool IsNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

VRKSvgStyleSheet::Declarations VRKSvgStyleSheet::ParseDeclarations(std::string_view text) {
    Declarations declarations;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(';', start);
        if (end == std::string_view::npos) {
            end = text.size();
        }
        const std::string_view part = text.substr(start, end - start);
        const std::size_t colon = part.find(':');
        if (colon != std::string_view::npos) {
            const std::string_view name = Trim(part.substr(0, colon));
            std::string_view value = Trim(part.substr(colon + 1));
            const std::size_t important = value.find("!important");
            if (important != std::string_view::npos) {
                value = Trim(value.substr(0, important));
            }
            if (!name.empty()) {
                declarations.emplace_back(Lower(name), std::string(value));
            }
        }
        start = end + 1;
    }
    return declarations;
}

void VRKSvgStyleSheet::Skip(std::string what) {
    if (skipped_.empty()) {
        skipped_ = std::move(what);
    }
}

bool VRKSvgStyleSheet::ParseSelector(std::string_view text, Selector& selector) const {
    text = Trim(text);
    if (text.empty()) {
        return false;
    }
    std::size_t i = 0;
    if (text[0] == '*') {
        i = 1;
    } else {
        while (i < text.size() && IsNameChar(text[i])) {
            ++i;
        }
        selector.type = std::string(text.substr(0, i));
    }
    int ids = 0;
    int classes = 0;
    while (i < text.size()) {
        const char kind = text[i];
        if (kind != '.' && kind != '#') {
            return false;
        }
        std::size_t end = i + 1;
        while (end < text.size() && IsNameChar(text[end])) {
            ++end;
        }
        if (end == i + 1) {
            return false;
        }
        const std::string name(text.substr(i + 1, end - i - 1));
        if (kind == '#') {
            selector.id = name;
            ++ids;
        } else {
            selector.classes.push_back(name);
            ++classes;
        }
        i = end;
    }
    const int types = selector.type.empty() ? 0 : 1;
    selector.specificity = ids * 10000 + classes * 100 + types;
    return true;
}

void VRKSvgStyleSheet::Add(std::string_view sheet) {
    const std::string text = WithoutComments(sheet);
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && IsSpace(text[i])) {
            ++i;
        }
        if (i >= text.size()) {
            break;
        }
        if (text[i] == '@') {
            // An @ rule ends at its ';' or after its block, whichever comes first.
            const std::size_t semicolon = text.find(';', i);
            const std::size_t open = text.find('{', i);
            Skip("@ rules");
            if (open == std::string::npos || (semicolon != std::string::npos && semicolon < open)) {
                i = semicolon == std::string::npos ? text.size() : semicolon + 1;
            } else {
                i = AfterBlock(text, open);
            }
            continue;
        }
        const std::size_t open = text.find('{', i);
        if (open == std::string::npos) {
            Skip("text that is not a rule");
            break;
        }
        const std::size_t close = text.find('}', open);
        const std::size_t bodyEnd = close == std::string::npos ? text.size() : close;
        const Declarations declarations =
            ParseDeclarations(std::string_view(text).substr(open + 1, bodyEnd - open - 1));
        std::string_view selectors = std::string_view(text).substr(i, open - i);
        while (true) {
            const std::size_t comma = selectors.find(',');
            Rule rule;
            if (ParseSelector(selectors.substr(0, comma), rule.selector)) {
                rule.order = rules_.size();
                rule.declarations = declarations;
                rules_.push_back(std::move(rule));
            } else {
                Skip("selector '" + std::string(Trim(selectors.substr(0, comma))) + "'");
            }
            if (comma == std::string_view::npos) {
                break;
            }
            selectors.remove_prefix(comma + 1);
        }
        i = close == std::string::npos ? text.size() : close + 1;
    }
}

bool VRKSvgStyleSheet::Matches(const Selector& selector, const VRKSvgNode& element) {
    if (!selector.type.empty() && selector.type != element.name) {
        return false;
    }
    if (!selector.id.empty()) {
        const std::string* id = element.Attribute("id");
        if (id == nullptr || *id != selector.id) {
            return false;
        }
    }
    if (selector.classes.empty()) {
        return true;
    }
    const std::string* classAttribute = element.Attribute("class");
    if (classAttribute == nullptr) {
        return false;
    }
    std::vector<std::string_view> names;
    std::string_view rest = *classAttribute;
    while (true) {
        rest = Trim(rest);
        if (rest.empty()) {
            break;
        }
        std::size_t end = 0;
        while (end < rest.size() && !IsSpace(rest[end])) {
            ++end;
        }
        names.push_back(rest.substr(0, end));
        rest.remove_prefix(end);
    }
    return std::all_of(selector.classes.begin(), selector.classes.end(), [&](const auto& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    });
}

VRKSvgStyleSheet::Declarations VRKSvgStyleSheet::Match(const VRKSvgNode& element) const {
    std::vector<const Rule*> matched;
    for (const Rule& rule : rules_) {
        if (Matches(rule.selector, element)) {
            matched.push_back(&rule);
        }
    }
    std::stable_sort(matched.begin(), matched.end(), [](const Rule* a, const Rule* b) {
        return a->selector.specificity < b->selector.specificity;
    });
    Declarations declarations;
    for (const Rule* rule : matched) {
        declarations.insert(declarations.end(), rule->declarations.begin(),
                            rule->declarations.end());
    }
    return declarations;
}
