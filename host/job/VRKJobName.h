#pragma once

#include <string>

// Job names as the programs that plot give them to a generator. A DesignJet generator writes the
// name raw inside the quotes of its PJL JOB and EOJ lines, as printers have always received it;
// so a name must not carry what would end those quotes or the line: a double quote, a line end,
// an escape (which starts a printer command) or any other control character. Programs clean the
// name here before it reaches the generator.
class VRKJobName {
  public:
    // The name with each double quote made an apostrophe and each control character (bytes 0 to
    // 31 and 127, ESC, CR and LF among them) made a blank. Bytes from 128 up (UTF-8) are kept.
    static std::string Clean(const std::string& name);
    // What Clean changes in `name`, for a message ("double quotes became apostrophes, control
    // characters became blanks"); empty when it changes nothing.
    static std::string Changes(const std::string& name);
};
