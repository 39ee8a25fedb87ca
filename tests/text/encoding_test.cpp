#include "text/encoding.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

using namespace std::string_literals;

TEST(RecogniseEncoding, PlainLettersAreAscii) {
  EXPECT_EQ(recognise_encoding("id;name\n1;Rex\n").encoding, Encoding::plain);
}

TEST(RecogniseEncoding, ValidLettersBeyondAsciiAreUtf8) {
  const EncodingEvidence evidence = recognise_encoding("Zo\xC3\xAB, Ren\xC3\xA9");
  EXPECT_EQ(evidence.encoding, Encoding::utf_8);
  EXPECT_FALSE(evidence.has_mark);
  EXPECT_EQ(evidence.utf_8_letters, 2);
  EXPECT_EQ(evidence.first_letter, 2U);
}

TEST(RecogniseEncoding, AMarkSaysUtf8EvenWhereBytesAreNone) {
  const EncodingEvidence evidence = recognise_encoding(
      "\xEF\xBB\xBF"
      "Zo\xEB");
  EXPECT_EQ(evidence.encoding, Encoding::utf_8);
  EXPECT_TRUE(evidence.has_mark);
  EXPECT_EQ(evidence.other_bytes, 1);
  EXPECT_EQ(evidence.first_byte, 5U);
}

TEST(RecogniseEncoding, BytesThatAreNoUtf8AreWindows1252) {
  EXPECT_EQ(recognise_encoding("Zo\xEB;Ren\xE9").encoding, Encoding::windows_1252);
}

TEST(RecogniseEncoding, AMixtureIsNotDecided) {
  const EncodingEvidence evidence = recognise_encoding("Zo\xC3\xAB;Ren\xE9");
  EXPECT_FALSE(evidence.encoding.has_value());
  EXPECT_EQ(evidence.utf_8_letters, 1);
  EXPECT_EQ(evidence.other_bytes, 1);
  EXPECT_EQ(evidence.first_byte, 8U);
}

TEST(RecogniseEncoding, Utf16IsToldByItsMarkOrItsZeros) {
  EXPECT_EQ(recognise_encoding("\xFF\xFEi\0d\0"s).encoding, Encoding::utf_16_le);
  EXPECT_EQ(recognise_encoding("\xFE\xFF\0i\0d"s).encoding, Encoding::utf_16_be);
  EXPECT_EQ(recognise_encoding("i\0d\0;\0"s).encoding, Encoding::utf_16_le);
  EXPECT_EQ(recognise_encoding("\0i\0d\0;"s).encoding, Encoding::utf_16_be);
  EXPECT_EQ(recognise_encoding("a few zeros\0\0 are no UTF-16"s).encoding, Encoding::plain);
}

TEST(Decode, Utf8LosesItsMarkAndNothingElse) {
  EXPECT_EQ(decode("\xEF\xBB\xBFZo\xC3\xAB", Encoding::utf_8).text, "Zo\xC3\xAB");
}

TEST(Decode, BytesThatAreNoUtf8AreReadAsWindows1252AndCounted) {
  const DecodedText decoded = decode("Zo\xEB Ren\xC3\xA9 \x80", Encoding::utf_8);
  EXPECT_EQ(decoded.text, "Zo\xC3\xAB Ren\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(decoded.mended_bytes, 2);
}

TEST(Decode, Windows1252HasLettersBetween80And9F) {
  EXPECT_EQ(decode("\x8A\x9C\xE9", Encoding::windows_1252).text, "\xC5\xA0\xC5\x93\xC3\xA9");
}

TEST(Decode, OtherEncodingsOfOneByteALetter) {
  EXPECT_EQ(decode("Br\x9Asel", Encoding::macroman).text, "Br\u00F6sel");
  EXPECT_EQ(decode("Br\x94sel", Encoding::cp850).text, "Br\u00F6sel");
  EXPECT_EQ(decode("Br\x94sel", Encoding::cp437).text, "Br\u00F6sel");
  EXPECT_EQ(decode("Krak\xF3w \xA3ukasz", Encoding::windows_1250).text, "Krak\u00F3w \u0141ukasz");
  EXPECT_EQ(decode("B\xBDuf \xA4", Encoding::iso_8859_15).text, "B\u0153uf \u20AC");
}

TEST(Decode, Utf16OfBothOrders) {
  EXPECT_EQ(decode("\xFF\xFEZ\0\xEB\0"s, Encoding::utf_16_le).text, "Z\xC3\xAB");
  EXPECT_EQ(decode("\xFE\xFF\0Z\0\xEB"s, Encoding::utf_16_be).text, "Z\xC3\xAB");
}

TEST(Decode, TwoHalvesOfUtf16AreOneLetterAndAHalfAloneIsBroken) {
  // U+1F410, a goat: D83D DC10.
  EXPECT_EQ(decode("\x3D\xD8\x10\xDC"s, Encoding::utf_16_le).text, "\xF0\x9F\x90\x90");
  const DecodedText broken = decode(
      "a\0\x3D\xD8"
      "b\0"s,
      Encoding::utf_16_le);
  EXPECT_EQ(broken.text,
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(broken.broken_letters, 1);
}

TEST(Decode, AnOddByteAtTheEndOfUtf16IsLeftOutAndTold) {
  const DecodedText decoded = decode("a\0b"s, Encoding::utf_16_le);
  EXPECT_EQ(decoded.text, "a");
  EXPECT_TRUE(decoded.ends_in_half_letter);
}

TEST(EncodingNamed, NamesOfUsersAndNoOthers) {
  EXPECT_EQ(encoding_named("UTF-8"), Encoding::utf_8);
  EXPECT_EQ(encoding_named("utf-16be"), Encoding::utf_16_be);
  EXPECT_EQ(encoding_named("Windows-1252"), Encoding::windows_1252);
  EXPECT_EQ(encoding_named("ANSI"), Encoding::windows_1252);
  EXPECT_EQ(encoding_named("MacRoman"), Encoding::macroman);
  EXPECT_EQ(encoding_named("cp850"), Encoding::cp850);
  EXPECT_EQ(encoding_named("437"), Encoding::cp437);
  EXPECT_EQ(encoding_named("windows-1250"), Encoding::windows_1250);
  EXPECT_EQ(encoding_named("ISO-8859-15"), Encoding::iso_8859_15);
  EXPECT_FALSE(encoding_named("ebcdic").has_value());
}

TEST(NameOf, IsUnderstoodAgain) {
  for (const ByteEncoding encoding : {ByteEncoding::windows_1252, ByteEncoding::windows_1250, ByteEncoding::iso_8859_15,
                                      ByteEncoding::macroman, ByteEncoding::cp850, ByteEncoding::cp437}) {
    EXPECT_EQ(encoding_named(name_of(encoding_of(encoding))), encoding_of(encoding));
  }
}

TEST(KnownBinaryKind, NamesAWorkbookButNoText) {
  EXPECT_EQ(known_binary_kind("PK\x03\x04rest"), "Excel, LibreOffice, zip");
  EXPECT_EQ(known_binary_kind("PK;name"), "");
}

}  // namespace
}  // namespace pedigreewatch::test
