// How the letters of an export are read.

#include "intake/export_preparation.h"

#include <gtest/gtest.h>

#include <string>

#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

Preparation read_bytes(const std::string& bytes) {
  const RunFolder folder(Files{{"herd.csv", bytes}});
  PrepareOptions options;
  options.export_name = folder.path("herd.csv");
  Preparation read;
  EXPECT_FALSE(read_and_recognise(options, read));
  return read;
}

/// The word by which people see how its letters are read.
std::string example_in(const std::string& word) {
  return read_bytes("id;name\n1;" + word + "\n2;Rex\n").reading.letter_example;
}

TEST(ReadAndRecognise, ShowsFortyBytesOnEachSideOfALetter) {
  const std::string letter = "\xC3\xAB", forty(40, 'a');
  EXPECT_EQ(example_in("Zo" + letter), "Zo" + letter);
  EXPECT_EQ(example_in(forty + letter), forty + letter);
  EXPECT_EQ(example_in("a" + forty + letter), letter);
  EXPECT_EQ(example_in(letter + std::string(38, 'b')), letter + std::string(38, 'b'));
  EXPECT_EQ(example_in(letter + std::string(39, 'b')), letter + std::string(38, 'b'));
}

TEST(ReadAndRecognise, MendsLettersThatWereTurnedThreeTimes) {
  // The sign of a degree comes back as often as that; most letters are asked about the third time.
  const std::string text = "id;name\n1;Rex 5\xC2\xB0\n2;Max 6\xC2\xB0\n";
  const auto turned = [&](int times) {
    std::string bytes = text;
    for (int k = 0; k < times; ++k) bytes = decode(bytes, Encoding::windows_1252).text;
    return bytes;
  };
  EXPECT_EQ(read_bytes(turned(1)).text, text);
  EXPECT_EQ(read_bytes(turned(3)).text, text);
}

}  // namespace
}  // namespace pedigreewatch::test
