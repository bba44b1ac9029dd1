#include "tools/plotdump/HpglDecoder.h"

#include <charconv>
#include <cmath>

#include "tools/plotdump/PenMoves.h"

namespace {

// Parameters shown as written up to this many bytes; text of labels and comments up to the other.
constexpr std::size_t kParameterLimit = 256;
constexpr std::size_t kTextLimit = 1024;
// A number longer than this is not read (its value is unknown).
constexpr std::size_t kNumberLimit = 40;

bool isParameterByte(int b) {
    return (b >= '0' && b <= '9') || b == '+' || b == '-' || b == '.' || b == ',' || b == ' ';
}

std::string upper(const std::string& text) {
    std::string result = text;
    for (char& c : result) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return result;
}

std::string more(std::uint64_t count) {
    return count == 0 ? "" : " ... (" + std::to_string(count) + " more bytes)";
}

double valueOf(const std::string& token) {
    double value = NAN;
    const char* begin = token.data() + (!token.empty() && token[0] == '+' ? 1 : 0);
    const auto result = std::from_chars(begin, token.data() + token.size(), value);
    return result.ec == std::errc() && result.ptr == token.data() + token.size() ? value : NAN;
}

}  // namespace

void HpglDecoder::keep(std::string& shown, std::uint64_t& more, char c, std::size_t limit) {
    if (shown.size() < limit) {
        shown += c;
    } else {
        ++more;
    }
}

std::string HpglDecoder::semicolon() {
    if (in_.Peek() == ';') {
        in_.Get();
        return ";";
    }
    return "";
}

void HpglDecoder::Decode() {
    std::string written;
    written += static_cast<char>(in_.Get());
    written += static_cast<char>(in_.Get());
    const std::string mnemonic = upper(written);
    if (mnemonic == "PE") {
        out_.Line(written);
        encoded_.Decode();
    } else if (mnemonic == "LB" || mnemonic == "BL" || mnemonic == "WD") {
        label(written);
    } else if (mnemonic == "DT") {
        terminator(written);
    } else if (mnemonic == "CO") {
        comment(written);
    } else if (mnemonic == "SM") {
        symbol(written);
    } else {
        numeric(written, mnemonic);
    }
}

void HpglDecoder::numeric(const std::string& written, const std::string& mnemonic) {
    PenMoves moves(mnemonic, pen_);
    std::string shown;
    std::uint64_t hidden = 0;
    std::string token;
    bool tokenTooLong = false;
    const auto endToken = [&] {
        if (!token.empty() || tokenTooLong) {
            moves.Number(tokenTooLong ? NAN : valueOf(token));
        }
        token.clear();
        tokenTooLong = false;
    };
    while (isParameterByte(in_.Peek())) {
        const char c = static_cast<char>(in_.Get());
        keep(shown, hidden, c, kParameterLimit);
        if (c == ',' || c == ' ') {
            endToken();
            continue;
        }
        // A sign after a digit starts the next number.
        if ((c == '+' || c == '-') && !token.empty()) {
            endToken();
        }
        if (token.size() < kNumberLimit) {
            token += c;
        } else {
            tokenTooLong = true;
        }
    }
    endToken();
    std::string line = written + (shown.empty() ? "" : " " + shown) + more(hidden) + semicolon();
    if (moves.Finish()) {
        line += " -> " + pen_.Text();
    }
    out_.Line(line);
}

void HpglDecoder::label(const std::string& written) {
    const std::uint64_t start = in_.Offset();
    std::string text;
    std::uint64_t hidden = 0;
    int b = in_.Get();
    for (; b != -1 && b != static_cast<unsigned char>(labelTerminator_); b = in_.Get()) {
        keep(text, hidden, static_cast<char>(b), kTextLimit);
    }
    out_.Line(written + " " + ListingOutput::Escaped(text, true) + more(hidden));
    if (b == -1) {
        out_.Anomaly(start, "label without its terminator " +
                                ListingOutput::Escaped(std::string(1, labelTerminator_), true) +
                                " before the end of the plot");
    }
    // The pen ends after the text, where the decoder does not follow it.
    pen_.Forget();
}

void HpglDecoder::terminator(const std::string& written) {
    // DT c[,mode]: any byte but ';' is the new terminator; DT alone brings back ETX.
    const int b = in_.Peek();
    if (b == -1 || b == ';' || b == 0x1b) {
        labelTerminator_ = '\x03';
        out_.Line(written + semicolon());
        return;
    }
    labelTerminator_ = static_cast<char>(in_.Get());
    std::string rest;
    if (in_.Peek() == ',') {
        rest += static_cast<char>(in_.Get());
        while (in_.Peek() >= '0' && in_.Peek() <= '9' && rest.size() < kParameterLimit) {
            rest += static_cast<char>(in_.Get());
        }
    }
    out_.Line(written + " " + ListingOutput::Escaped(std::string(1, labelTerminator_), true) +
              rest + semicolon());
}

void HpglDecoder::comment(const std::string& written) {
    // CO "text": the text between double quotes, which it may not hold.
    if (in_.Peek() != '"') {
        out_.Line(written + semicolon());
        return;
    }
    const std::uint64_t start = in_.Offset();
    in_.Get();
    std::string text;
    std::uint64_t hidden = 0;
    int b = in_.Get();
    for (; b != -1 && b != '"'; b = in_.Get()) {
        keep(text, hidden, static_cast<char>(b), kTextLimit);
    }
    out_.Line(written + " " + ListingOutput::Escaped(text, true) + more(hidden) + semicolon());
    if (b == -1) {
        out_.Anomaly(start, "comment without its closing '\"' before the end of the plot");
    }
}

void HpglDecoder::symbol(const std::string& written) {
    // SM c: one byte, drawn at every point; SM alone turns it off.
    const int b = in_.Peek();
    if (b == -1 || b == ';' || b == 0x1b) {
        out_.Line(written + semicolon());
        return;
    }
    in_.Get();
    out_.Line(written + " " + ListingOutput::Escaped(std::string(1, static_cast<char>(b)), true) +
              semicolon());
}
