#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/job/VRKJobLexer.h"
#include "support/Printable.h"

namespace {

// The tokens of a line, words as written and strings as [decoded bytes], or "error: ...".
std::string split(const std::string& line) {
    VRKJobLexer lexer;
    std::string error;
    if (!lexer.Split(line, error)) {
        return "error: " + error;
    }
    std::string out;
    for (std::size_t i = 0; i < lexer.Count(); ++i) {
        out += i == 0 ? "" : " ";
        out +=
            lexer[i].isString ? "[" + Printable(lexer[i].value) + "]" : std::string(lexer[i].text);
    }
    return out;
}

TEST(JobLexer, BlanksSeparateTokens) {
    EXPECT_EQ(split("MoveTo 10 20"), "MoveTo 10 20");
    EXPECT_EQ(split("  \tMoveTo\t\t10   20 \t "), "MoveTo 10 20");
    EXPECT_EQ(split(""), "");
    EXPECT_EQ(split(" \t "), "");
}

TEST(JobLexer, Comments) {
    EXPECT_EQ(split("# a comment"), "");
    EXPECT_EQ(split("   # indented comment"), "");
    EXPECT_EQ(split("MoveTo 1 2 # to the corner"), "MoveTo 1 2");
    EXPECT_EQ(split("MoveTo 1 2#glued"), "MoveTo 1 2");
    EXPECT_EQ(split("DrawText 1 2 \"a # b\" # real comment"), "DrawText 1 2 [a # b]");
    EXPECT_EQ(split("DrawText 1 2 \"x\"#c"), "DrawText 1 2 [x]");
}

TEST(JobLexer, OtherWhitespaceIsNotABlank) {
    EXPECT_EQ(split("MoveTo\v1"), "MoveTo\v1");
    EXPECT_EQ(split("End\r"), "End\r");
}

TEST(JobLexer, StringEscapes) {
    EXPECT_EQ(split(R"(DrawText 0 0 "say \"hi\"")"), R"(DrawText 0 0 [say "hi"])");
    EXPECT_EQ(split(R"("a\\b")"), R"([a\\b])");
    EXPECT_EQ(split(R"("1\n2\t3")"), R"([1\x0A2\x093])");
    EXPECT_EQ(split(R"("\x03\x41\xff\xC3\xA9")"), R"([\x03A\xFF\xC3\xA9])");
    EXPECT_EQ(split(R"("")"), "[]");
    EXPECT_EQ(split("\"caf\xC3\xA9 \xE2\x82\xAC\""), "[caf\\xC3\\xA9 \\xE2\\x82\\xAC]");
}

TEST(JobLexer, StringKeepsItsRawTextToo) {
    VRKJobLexer lexer;
    std::string error;
    ASSERT_TRUE(lexer.Split(R"(DrawText 1 2 "a\tb")", error));
    ASSERT_EQ(lexer.Count(), 4u);
    EXPECT_EQ(lexer[3].text, R"("a\tb")");
    EXPECT_EQ(lexer[3].value, "a\tb");
}

TEST(JobLexer, UnterminatedString) {
    EXPECT_EQ(split(R"(DrawText 1 2 "abc)"), "error: unterminated string '\"abc'");
    EXPECT_EQ(split(R"(DrawText 1 2 "abc\")"), "error: unterminated string '\"abc\\\"'");
    EXPECT_EQ(split(R"(DrawText 1 2 "abc\)"), "error: unterminated string '\"abc\\'");
}

TEST(JobLexer, BadEscapes) {
    EXPECT_EQ(split(R"("a\qb")"),
              R"(error: bad escape '\q' in a string (known escapes: \" \\ \n \t \xHH))");
    EXPECT_EQ(split(R"("\x4")"),
              R"(error: bad escape '\x4"' in a string: \x takes two hex digits)");
    EXPECT_EQ(split(R"("\xg0")"),
              R"(error: bad escape '\xg0' in a string: \x takes two hex digits)");
    EXPECT_EQ(split(R"("\x)"), R"(error: bad escape '\x' in a string: \x takes two hex digits)");
}

TEST(JobLexer, StringsStandApart) {
    EXPECT_EQ(split(R"(DrawText 1 2 abc"def")"),
              "error: a quote inside 'abc\"': a string must be separated from other tokens by "
              "blanks");
    EXPECT_EQ(split(R"(DrawText 1 2 "abc"def)"), "error: missing blank after the string '\"abc\"'");
    EXPECT_EQ(split(R"("a""b")"), "error: missing blank after the string '\"a\"'");
}

TEST(JobLexer, LineMustBeUtf8) {
    EXPECT_EQ(split("DrawText 1 2 \"\xC3\""), "error: the line is not valid UTF-8 (byte 15)");
    EXPECT_EQ(split("# \xFF comment"), "error: the line is not valid UTF-8 (byte 3)");
    // Overlong form of '/', a surrogate, and a code point above U+10FFFF.
    EXPECT_EQ(split("\xC0\xAF"), "error: the line is not valid UTF-8 (byte 1)");
    EXPECT_EQ(split("\xED\xA0\x80"), "error: the line is not valid UTF-8 (byte 1)");
    EXPECT_EQ(split("\xF4\x90\x80\x80"), "error: the line is not valid UTF-8 (byte 1)");
    EXPECT_EQ(split("\"\xF0\x9F\x98\x80\""), "[\\xF0\\x9F\\x98\\x80]");
}

TEST(JobLexer, TokensAreReusedFromLineToLine) {
    VRKJobLexer lexer;
    std::string error;
    ASSERT_TRUE(lexer.Split(R"(DrawText 1 2 "first")", error));
    ASSERT_TRUE(lexer.Split("MoveTo 3 4", error));
    ASSERT_EQ(lexer.Count(), 3u);
    EXPECT_FALSE(lexer[2].isString);
    EXPECT_EQ(lexer[2].value, "");
    ASSERT_TRUE(lexer.Split("", error));
    EXPECT_EQ(lexer.Count(), 0u);
}

TEST(JobLexer, QuoteForMessages) {
    EXPECT_EQ(VRKJobLexer::Quote("Foo"), "'Foo'");
    EXPECT_EQ(VRKJobLexer::Quote("a\x01\xC3\xA9"), "'a\\x01\\xC3\\xA9'");
    EXPECT_EQ(VRKJobLexer::Quote(std::string(50, 'x')), "'" + std::string(40, 'x') + "...'");
}

}  // namespace
