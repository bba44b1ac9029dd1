#include "host/core/VRKLocalDecimalChar.h"

#include <clocale>
#include <string>

VRKString GetStringWithLocalDecimalCharV2(const VRKString& text) {
    const lconv* conventions = std::localeconv();
    const char* decimal = conventions != nullptr ? conventions->decimal_point : nullptr;
    if (decimal == nullptr || decimal[0] == '\0' || std::string(decimal) == ".") {
        return text;
    }
    std::string result;
    result.reserve(text.str().size());
    for (const char c : text.str()) {
        if (c == '.') {
            result += decimal;
        } else {
            result += c;
        }
    }
    return result;
}
