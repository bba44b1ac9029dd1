#include "host/output/VRKDestination.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <cctype>

#include "host/output/VRKSerialSpeeds.h"

namespace {

const char kSocketPrefix[] = "socket://";
const char kSpoolerPrefix[] = "lp:";
const char kSerialPrefix[] = "serial:";
const char kKnownKinds[] = "known: a path, -, socket://HOST[:PORT], lp:QUEUE, serial:DEVICE";

bool StartsWith(const std::string& text, const char* prefix) {
    return text.compare(0, std::char_traits<char>::length(prefix), prefix) == 0;
}

bool IsControl(char c) {
    const unsigned char u = static_cast<unsigned char>(c);
    return u < 0x20 || u == 0x7f;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The length of "SCHEME://" when `text` starts with one (a letter, then letters, digits, '+',
// '-' or '.'), else 0.
std::size_t SchemeLength(const std::string& text) {
    if (text.empty() || !std::isalpha(static_cast<unsigned char>(text[0]))) {
        return 0;
    }
    std::size_t i = 1;
    while (i < text.size() && (std::isalnum(static_cast<unsigned char>(text[i])) ||
                               text[i] == '+' || text[i] == '-' || text[i] == '.')) {
        ++i;
    }
    return text.compare(i, 3, "://") == 0 ? i + 3 : 0;
}

// An IPv6 address as written between brackets, with an optional zone ("fe80::1%eth0").
bool IsIPv6Address(const std::string& text) {
    const std::size_t percent = text.find('%');
    const std::string address = text.substr(0, percent);
    in6_addr parsed;
    if (::inet_pton(AF_INET6, address.c_str(), &parsed) != 1) {
        return false;
    }
    if (percent == std::string::npos) {
        return true;
    }
    const std::string zone = text.substr(percent + 1);
    if (zone.empty()) {
        return false;
    }
    for (char c : zone) {
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-' && c != '_' && c != '.') {
            return false;
        }
    }
    return true;
}

bool ParsePort(const std::string& text, int& port, std::string& error) {
    if (text.empty()) {
        error = "the port is missing after ':'";
        return false;
    }
    for (char c : text) {
        if (c < '0' || c > '9') {
            error = "the port '" + text + "' is not a decimal number";
            return false;
        }
    }
    const std::size_t first = text.find_first_not_of('0');
    if (first == std::string::npos || text.size() - first > 5 ||
        std::stoi(text.substr(first)) > 65535) {
        error = "the port " + text + " is not between 1 and 65535";
        return false;
    }
    port = std::stoi(text.substr(first));
    return true;
}

bool ParseSocket(const std::string& text, VRKDestination& destination, std::string& error) {
    std::string rest = text.substr(std::char_traits<char>::length(kSocketPrefix));
    if (!rest.empty() && rest.back() == '/') {
        rest.pop_back();
    }
    const std::size_t slash = rest.find('/');
    if (slash != std::string::npos) {
        error = "nothing may follow the host and port, but '" + rest.substr(slash) +
                "' does; write socket://HOST[:PORT]";
        return false;
    }
    std::string host;
    std::string port;
    bool hasPort = false;
    if (!rest.empty() && rest[0] == '[') {
        const std::size_t close = rest.find(']');
        if (close == std::string::npos) {
            error = "the IPv6 address has no closing ']'";
            return false;
        }
        host = rest.substr(1, close - 1);
        if (host.empty()) {
            error = "the host is missing between '[' and ']'";
            return false;
        }
        if (!IsIPv6Address(host)) {
            error = "'" + host + "' between '[' and ']' is not an IPv6 address";
            return false;
        }
        const std::string after = rest.substr(close + 1);
        if (!after.empty()) {
            if (after[0] != ':') {
                error = "nothing but ':PORT' may follow the address, but '" + after +
                        "' does; write socket://[ADDRESS]:PORT";
                return false;
            }
            hasPort = true;
            port = after.substr(1);
        }
    } else {
        const std::size_t colon = rest.find(':');
        if (colon != std::string::npos && rest.find(':', colon + 1) != std::string::npos) {
            error = "an IPv6 address must be written in brackets: socket://[ADDRESS]:PORT";
            return false;
        }
        host = rest.substr(0, colon);
        if (colon != std::string::npos) {
            hasPort = true;
            port = rest.substr(colon + 1);
        }
        if (host.empty()) {
            error = "the host is missing; write socket://HOST[:PORT]";
            return false;
        }
        for (char c : host) {
            if (IsBlank(c) || IsControl(c)) {
                error = "the host name contains a blank or a control character";
                return false;
            }
            if (c == '?' || c == '#' || c == '@' || c == '[' || c == ']' || c == '\\') {
                error = std::string("the host name contains '") + c + "'";
                return false;
            }
        }
    }
    destination.kind = VRKDestination::Kind::kSocket;
    destination.host = host;
    destination.port = 9100;
    return !hasPort || ParsePort(port, destination.port, error);
}

bool ParseSpooler(const std::string& text, VRKDestination& destination, std::string& error) {
    const std::string queue = text.substr(std::char_traits<char>::length(kSpoolerPrefix));
    for (char c : queue) {
        if (IsBlank(c)) {
            error = "the queue name '" + queue + "' contains a blank";
            return false;
        }
        if (IsControl(c)) {
            error = "the queue name contains a control character";
            return false;
        }
        if (c == '/') {
            error = "the queue name '" + queue + "' contains '/'";
            return false;
        }
    }
    destination.kind = VRKDestination::Kind::kSpooler;
    destination.queue = queue;
    return true;
}

bool ParseSerialOption(const std::string& option, bool& hadBaud, bool& hadFlow,
                       VRKDestination& destination, std::string& error) {
    const std::size_t equals = option.find('=');
    if (option.empty()) {
        error = "an option after '?' is empty; write serial:DEVICE?baud=N&flow=F";
        return false;
    }
    if (equals == std::string::npos) {
        error = "the option '" + option + "' has no value; write KEY=VALUE";
        return false;
    }
    const std::string key = option.substr(0, equals);
    const std::string value = option.substr(equals + 1);
    if (key == "baud") {
        if (hadBaud) {
            error = "the option 'baud' is given twice";
            return false;
        }
        hadBaud = true;
        bool digits = !value.empty() && value.size() <= 7;
        for (char c : value) {
            digits = digits && c >= '0' && c <= '9';
        }
        speed_t speed;
        if (!digits || !VRKSerialSpeed(std::stoi(value), speed)) {
            error = "the baud rate '" + value + "' is not one of the standard speeds " +
                    VRKSerialSpeedList();
            return false;
        }
        destination.baud = std::stoi(value);
        return true;
    }
    if (key == "flow") {
        if (hadFlow) {
            error = "the option 'flow' is given twice";
            return false;
        }
        hadFlow = true;
        if (value == "xonxoff") {
            destination.flow = VRKDestination::Flow::kXonXoff;
        } else if (value == "rtscts") {
            destination.flow = VRKDestination::Flow::kRtsCts;
        } else if (value == "none") {
            destination.flow = VRKDestination::Flow::kNone;
        } else {
            error = "the flow control '" + value + "' is none of xonxoff, rtscts, none";
            return false;
        }
        return true;
    }
    error = "unknown option '" + key + "'; known: baud, flow";
    return false;
}

bool ParseSerial(const std::string& text, VRKDestination& destination, std::string& error) {
    const std::string rest = text.substr(std::char_traits<char>::length(kSerialPrefix));
    const std::size_t question = rest.find('?');
    destination.path = rest.substr(0, question);
    destination.baud = 9600;
    destination.flow = VRKDestination::Flow::kXonXoff;
    if (destination.path.empty()) {
        error = "the device is missing; write serial:DEVICE[?baud=N&flow=F]";
        return false;
    }
    if (question != std::string::npos) {
        const std::string query = rest.substr(question + 1);
        bool hadBaud = false;
        bool hadFlow = false;
        std::size_t start = 0;
        for (;;) {
            const std::size_t ampersand = query.find('&', start);
            if (!ParseSerialOption(query.substr(start, ampersand - start), hadBaud, hadFlow,
                                   destination, error)) {
                return false;
            }
            if (ampersand == std::string::npos) {
                break;
            }
            start = ampersand + 1;
        }
    }
    destination.kind = VRKDestination::Kind::kSerial;
    return true;
}

}  // namespace

bool VRKDestination::Parse(const std::string& text, VRKDestination& destination,
                           std::string& error) {
    destination = VRKDestination();
    destination.text = text;
    if (text.empty()) {
        error = "the destination is empty";
        return false;
    }
    if (text == "-") {
        destination.kind = Kind::kStandardOutput;
        return true;
    }
    if (const std::size_t scheme = SchemeLength(text); scheme > 0) {
        if (StartsWith(text, kSocketPrefix)) {
            return ParseSocket(text, destination, error);
        }
        error = "unknown kind of destination '" + text.substr(0, scheme) + "'; " + kKnownKinds;
        return false;
    }
    if (StartsWith(text, kSpoolerPrefix)) {
        return ParseSpooler(text, destination, error);
    }
    if (StartsWith(text, kSerialPrefix)) {
        return ParseSerial(text, destination, error);
    }
    destination = ForPath(text);
    return true;
}

VRKDestination VRKDestination::ForPath(const std::string& path) {
    VRKDestination destination;
    destination.text = path;
    if (path == "-") {
        destination.kind = Kind::kStandardOutput;
    } else {
        destination.kind = Kind::kPath;
        destination.path = path;
    }
    return destination;
}

std::string VRKDestination::Describe() const {
    switch (kind) {
        case Kind::kStandardOutput:
            return "standard output";
        case Kind::kPath:
            return path;
        default:
            return text;
    }
}
