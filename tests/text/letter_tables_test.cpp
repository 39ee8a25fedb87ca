#include "text/letter_tables.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <array>
#include <string>

namespace pedigreewatch::test {
namespace {

/// The letter of a byte as the system has it; the byte's number where there is none.
char16_t letter_of_system(const char* name, unsigned char byte) {
  iconv_t converter = iconv_open("UTF-16LE", name);
  char input = static_cast<char>(byte);
  std::array<char, 4> output{};
  char *from = &input, *to = output.data();
  std::size_t left = 1, room = output.size();
  const bool is_known = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  if (!is_known) return byte;
  return static_cast<char16_t>(static_cast<unsigned char>(output[0]) | (static_cast<unsigned char>(output[1]) << 8));
}

TEST(LetterTable, IsThatOfTheSystem) {
  constexpr std::array<const char*, byte_encoding_count> names = {"WINDOWS-1252", "CP1250", "ISO-8859-15",
                                                                  "MACINTOSH",    "CP850",  "CP437"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const LetterTable& table = letter_table(static_cast<ByteEncoding>(i));
    for (std::size_t byte = 128; byte < 256; ++byte) {
      EXPECT_EQ(table[byte - 128], letter_of_system(names[i], static_cast<unsigned char>(byte))) << names[i] << byte;
    }
  }
}

TEST(LetterOfByte, IsAsciiBelow128) {
  EXPECT_EQ(letter_of_byte(letter_table(ByteEncoding::macroman), 'A'), U'A');
  EXPECT_EQ(letter_of_byte(letter_table(ByteEncoding::macroman), '\x9A'), U'\u00F6');
  EXPECT_EQ(letter_of_byte(letter_table(ByteEncoding::cp850), '\x94'), U'\u00F6');
  EXPECT_EQ(letter_of_byte(letter_table(ByteEncoding::windows_1250), '\x81'), U'\u0081');
}

}  // namespace
}  // namespace pedigreewatch::test
