// Archives that are written, as the reader of archives finds them.
#include "sheets/zip_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "support/written_workbook.h"

namespace pedigreewatch::test {
namespace {

TEST(ZipWriter, PartsAreReadAsTheyWereGiven) {
  ZipWriter writer;
  std::string large;
  for (int i = 0; i < 300'000; ++i) large += std::to_string(i);  // more than a piece, packed too
  add_part(writer, "a/first.xml", "text text text");
  add_part(writer, "empty", "");
  begin_part(writer, "large");
  for (std::size_t place = 0; place < large.size(); place += 70'000) extend_part(writer, large.substr(place, 70'000));
  end_part(writer);
  ASSERT_TRUE(finish_archive(writer));
  EXPECT_EQ(part_of(writer.bytes, "a/first.xml"), "text text text");
  EXPECT_EQ(part_of(writer.bytes, "empty"), "");
  EXPECT_EQ(part_of(writer.bytes, "large"), large);
  EXPECT_LT(writer.bytes.size(), large.size());
  EXPECT_EQ(size_of(writer), writer.bytes.size());
}

TEST(ZipWriter, WithNothingToPackWithPartsStandAsTheyAre) {
  ZipWriter writer;
  begin_part(writer, "stored");
  writer.deflater.reset();  // as in a browser
  writer.parts.back().is_packed = writer.parts.back().comes_in_pieces = false;
  writer.bytes.clear();
  extend_part(writer, "one, ");
  extend_part(writer, "two");
  end_part(writer);
  ASSERT_TRUE(finish_archive(writer));
  EXPECT_EQ(part_of(writer.bytes, "stored"), "one, two");
  EXPECT_NE(writer.bytes.find("one, two"), std::string::npos);
}

TEST(ZipWriter, AnArchiveOfMoreThan32BitsIsNone) {
  ZipWriter writer;
  add_part(writer, "a", "text");
  writer.gone = most_archive_bytes - writer.bytes.size();  // as if so much had been written
  EXPECT_FALSE(finish_archive(writer));
  ZipWriter other;
  add_part(other, "a", "text");
  other.parts.back().size = most_archive_bytes + 1;
  EXPECT_FALSE(finish_archive(other));
  other.parts.back().size = most_archive_bytes;
  EXPECT_TRUE(finish_archive(other));
}

}  // namespace
}  // namespace pedigreewatch::test
