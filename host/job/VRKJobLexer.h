#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/job/VRKJobToken.h"

// Splits one line of a job file into tokens. Blanks (space, tab) separate tokens; a '#' outside a
// string starts a comment that runs to the end of the line. A string is written in double quotes
// with the escapes \" \\ \n \t and \xHH (exactly two hex digits, any byte); it must stand apart
// from its neighbours: a quote inside a word, or a word glued to a closing quote, is an error.
// The whole line must be valid UTF-8.
//
// The lexer keeps its tokens from one line to the next and reuses their memory, so that a long
// job costs no more than its longest line. Tokens point into the line passed to Split(), which
// must outlive them.
class VRKJobLexer {
  public:
    // Splits `line` (without its line end). False with `error` set for a malformed line.
    bool Split(std::string_view line, std::string& error);

    std::size_t Count() const { return count_; }
    const VRKJobToken& operator[](std::size_t i) const { return tokens_[i]; }

    // `text` in single quotes for a message: control bytes and bytes above 0x7E as \xHH, cut
    // after 40 bytes with "..." so that a runaway token does not flood the terminal.
    static std::string Quote(std::string_view text);

  private:
    VRKJobToken& NextToken();
    bool ReadString(std::string_view line, std::size_t& i, std::string& error);

    std::vector<VRKJobToken> tokens_;
    std::size_t count_ = 0;
};
