#include "host/printers/VRKPrinterNames.h"

namespace {

// The length of the control character at `i` (1 for C0 and DEL, 2 for C1 in UTF-8), or 0.
size_t controlAt(const std::string& text, size_t i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x20 || byte == 0x7F) {
        return 1;
    }
    if (byte == 0xC2 && i + 1 < text.size()) {
        const auto next = static_cast<unsigned char>(text[i + 1]);
        return next >= 0x80 && next <= 0x9F ? 2 : 0;
    }
    return 0;
}

}  // namespace

std::string VRKPrinterNames::NameFault(const std::string& name) {
    if (name.empty()) {
        return "a printer with an empty name";
    }
    for (size_t i = 0; i < name.size(); ++i) {
        if (controlAt(name, i) > 0) {
            return Label(name) + ": the name has a control character";
        }
    }
    return {};
}

std::string VRKPrinterNames::FieldFault(const std::string& name, const char* field,
                                        const std::string& value) {
    if (value.empty()) {
        return Label(name) + " has an empty " + field;
    }
    return {};
}

std::string VRKPrinterNames::Label(const std::string& name) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string shown = "printer '";
    size_t i = 0;
    while (i < name.size()) {
        const size_t length = controlAt(name, i);
        if (length == 0) {
            shown += name[i++];
            continue;
        }
        for (const size_t end = i + length; i < end; ++i) {
            const auto byte = static_cast<unsigned char>(name[i]);
            shown += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 0xF]};
        }
    }
    return shown + "'";
}
