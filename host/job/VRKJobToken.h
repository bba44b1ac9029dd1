#pragma once

#include <string>
#include <string_view>

// One token of a job file line: a word (a verb, a number, a key=value pair) or a string.
struct VRKJobToken {
    // The token as written in the line; for a string, with its quotes and escapes.
    std::string_view text;
    bool isString = false;
    // A string's bytes once its escapes are resolved; empty for a word.
    std::string value;
};
