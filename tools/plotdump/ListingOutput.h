#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

// Where the decoder's lines go, and the forms of text and numbers in them.
class ListingOutput {
  public:
    explicit ListingOutput(std::ostream& out) : out_(out) {}

    // One line of the listing; a line break is added.
    void Line(std::string_view text);
    // A line about something that is not as it should be: "! at byte OFFSET: WHAT". Counted.
    void Anomaly(std::uint64_t offset, std::string_view what);
    std::uint64_t Anomalies() const { return anomalies_; }

    // Bytes as they are kept in the listing: printable ASCII as it is, the backslash doubled,
    // ESC as \e, tab, line feed and carriage return as \t, \n and \r, every other byte as \xHH.
    // With `quoted`, the double quote is escaped too and the text goes inside double quotes.
    static std::string Escaped(std::string_view bytes, bool quoted);
    // A coordinate or value: rounded to three decimals, trailing zeros dropped ("40", "-2.5",
    // "0.125"); "?" when it is not known (not a finite number).
    static std::string Number(double value);

  private:
    std::ostream& out_;
    std::uint64_t anomalies_ = 0;
};
