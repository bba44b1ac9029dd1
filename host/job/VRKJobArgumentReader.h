#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/job/VRKJobArguments.h"
#include "host/job/VRKJobLexer.h"
#include "host/job/VRKJobVerb.h"

// The general path's reading of a line's arguments: the tokens after the verb, read by the
// verb's kinds (VRKJobVerbs), with a message that says what is wrong and how the line is
// written. The numbers go through VRKJobNumber, as those of common lines do.
class VRKJobArgumentReader {
  public:
    // Reads the arguments of the lexed line into `arguments`. False with Error() set.
    bool Read(const VRKJobVerb& verb, const VRKJobLexer& lexer, VRKJobArguments& arguments);
    const std::string& Error() const { return error_; }

    // For the kinds made of parts of a token (the keys of a page): the number in `word`, its
    // message starting with `what` ("width: ").
    bool Number(std::string_view word, float& value, std::string_view what);
    bool Length(std::string_view word, float& value, std::string_view what);
    bool Integer(std::string_view word, int& value, std::string_view what);
    // The arguments are the tokens after the verb, counted from 0.
    std::size_t ArgCount() const { return lexer_->Count() - 1; }
    const VRKJobToken& Token(std::size_t arg) const { return (*lexer_)[arg + 1]; }
    // "VERB: message", or the message of an argument with the verb's usage.
    bool Fail(std::string_view message);
    bool FailArgument(std::string_view what);

  private:
    // Reads the argument of `kind` at `arg` (or the rest of the line from there) into value
    // `slot`, and moves `arg` past it.
    bool ReadKind(VRKJobArgumentKind kind, std::size_t slot, std::size_t& arg,
                  VRKJobArguments& arguments);
    bool Word(std::size_t arg, std::string_view& word);
    bool Number(std::size_t arg, float& value);
    bool Length(std::size_t arg, float& value);
    bool Integer(std::size_t arg, int& value);
    // Reads `count` points (2 * count coordinates, each a length) from argument `first` to the
    // end of the line into `points`; `what` opens the message of a count that does not match.
    bool Points(std::size_t first, long long count, std::string_view what,
                std::vector<float>& points);
    bool Polygons(std::size_t first, VRKJobArguments& arguments, int& polygons);
    // Lengths from argument `first` to the end of the line.
    bool Lengths(std::size_t first, std::vector<float>& values);

    const VRKJobVerb* verb_ = nullptr;
    const VRKJobLexer* lexer_ = nullptr;
    std::string error_;
};
