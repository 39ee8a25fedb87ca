#include "core/terminal_text.h"

#include <gtest/gtest.h>

#include "core/text_output.h"

namespace pedigreewatch::test {
namespace {

std::string shown_on_terminal(std::string text) {
  hide_controls(text);
  return text;
}

TEST(HideControls, OfAsciiAreQuestionMarksButTheLineFeed) {
  EXPECT_EQ(shown_on_terminal("a\x1B[31mred\x07\r\n\tb\x7F"), "a?[31mred??\n?b?");
  EXPECT_EQ(shown_on_terminal(std::string("x\0y", 3)), "x?y");
  EXPECT_EQ(shown_on_terminal("x\x1F y"), "x? y");
}

TEST(HideControls, OfTheUpperHalfAreQuestionMarks) {
  EXPECT_EQ(shown_on_terminal("\x9B"
                              "31m \x80 \x9F \xA0\xEB"),
            "?31m ? ? \xA0\xEB");
  EXPECT_EQ(shown_on_terminal("\xC2\x9B"
                              "31m \xC2\x80 \xC2\x9F \xC2\xA0"),
            "?31m ? ? \xC2\xA0");
}

TEST(HideControls, LeavesLettersOfUtf8) {
  const std::string letters = "\xC3\x84 \xE2\x82\xAC \xF0\x9F\x90\x95 \xC5\x9B";
  EXPECT_EQ(shown_on_terminal(letters), letters);
  EXPECT_EQ(shown_on_terminal("\xC3"), "\xC3");
  EXPECT_EQ(shown_on_terminal("\xE2\x82"), "\xE2?") << "the start of a letter, and its middle alone";
}

TEST(HideControls, IsDoneForATerminalAlone) {
  for (const bool is_terminal : {true, false}) {
    TextOutput output;
    output.file = std::tmpfile();
    ASSERT_NE(output.file, nullptr);
    output.is_terminal = is_terminal;
    append(output, "Rex\x1B]0;title\x07");
    end_line(output);
    flush(output);
    std::rewind(output.file);
    std::string bytes(64, ' ');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), output.file));
    EXPECT_EQ(bytes, is_terminal ? "Rex?]0;title?\n" : "Rex\x1B]0;title\x07\n");
    close(output);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
