#include "sheets/inflate.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace pedigreewatch::test {
namespace {

using namespace std::string_literals;

// "hello hello hello", deflated by hand with fixed codes would be long: a stored block says the same (RFC 1951, 3.2.4).
const std::string stored_block = "\x01\x05\x00\xFA\xFFhello"s;

TEST(InflatePiece, UnpacksInPieces) {
  const InflaterHandle inflater = begin_inflating(stored_block);
  std::array<char, 3> room{};
  std::size_t filled = 0;
  EXPECT_EQ(inflate_piece(*inflater, room, filled), InflateState::more);
  EXPECT_EQ(std::string(room.data(), filled), "hel");
  EXPECT_EQ(inflate_piece(*inflater, room, filled), InflateState::ended);
  EXPECT_EQ(std::string(room.data(), filled), "lo");
}

TEST(InflatePiece, NoticesWhatIsCutOffOrBroken) {
  for (const std::string& packed : {stored_block.substr(0, 7), "\x01\x05\x00\xFA\xFEhello"s, ""s, "\x07"s}) {
    const InflaterHandle inflater = begin_inflating(packed);
    std::array<char, 20> room{};
    std::size_t filled = 0;
    EXPECT_EQ(inflate_piece(*inflater, room, filled), InflateState::broken);
  }
}

TEST(ChecksumOf, IsThatOfZip) {
  EXPECT_EQ(checksum_of(0, "123456789"), 0xCBF43926U);
  EXPECT_EQ(checksum_of(checksum_of(0, "12345"), "6789"), 0xCBF43926U);
  EXPECT_EQ(checksum_of(0, ""), 0U);
}

}  // namespace
}  // namespace pedigreewatch::test
