#include "sheets/zip_archive.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

/// The bytes of a part, unpacked in pieces of that size; "!" behind them where something is wrong.
std::string unpacked(ZipArchive& archive, const std::string& name, std::size_t piece_size = 7) {
  const ZipPart* const part = find_part(archive, name);
  if (part == nullptr) return "none";
  PartReader reader = open_part(*part, archive);
  std::string result, piece(piece_size, '\0');
  for (;;) {
    const std::size_t count = read_piece(reader, piece);
    if (count == 0) return result + (reader.fault == WorkbookFault::none ? "" : "!");
    result.append(piece, 0, count);
  }
}

ZipArchive listed(const std::string& bytes) {
  ZipArchive archive;
  WorkbookProblem problem;
  EXPECT_TRUE(list_parts(bytes, archive, problem));
  return archive;
}

const std::string text = "The quick brown fox, the quick brown fox, the quick brown fox.";

TEST(ListParts, FindsPackedStoredAndWideParts) {
  const std::string bytes = archive_of(
      {{"a/packed.xml", text}, {"stored", text, false}, {"empty", "", false}, {"wide", text, true, 0, true}});
  ZipArchive archive = listed(bytes);
  ASSERT_EQ(archive.parts.size(), 4U);
  EXPECT_EQ(unpacked(archive, "A/Packed.XML"), text);
  EXPECT_EQ(unpacked(archive, "/stored"), text);
  EXPECT_EQ(unpacked(archive, "empty"), "");
  EXPECT_EQ(unpacked(archive, "wide"), text);
  EXPECT_EQ(unpacked(archive, "wide", 1000), text);
  EXPECT_EQ(unpacked(archive, "packed.xml"), "none");
}

TEST(ListParts, EveryCutIsNoticed) {
  const std::string whole = archive_of({{"a", text}, {"b", text, false}});
  for (std::size_t kept = 0; kept < whole.size(); ++kept) {
    ZipArchive archive;
    WorkbookProblem problem;
    EXPECT_FALSE(list_parts(std::string_view(whole).substr(0, kept), archive, problem)) << kept;
    EXPECT_EQ(problem.fault, WorkbookFault::cut_off);
  }
}

TEST(ReadPiece, WhatIsNotWhatWasPackedIsNoticed) {
  const std::string whole = archive_of({{"a", text, false, 1}});
  ZipArchive archive = listed(whole);
  EXPECT_EQ(unpacked(archive, "a").back(), '!');
  std::string changed = archive_of({{"a", text}});
  changed[40] = static_cast<char>(changed[40] ^ 0x55);
  ZipArchive damaged = listed(changed);
  EXPECT_EQ(unpacked(damaged, "a").back(), '!');
}

TEST(ReadPiece, AllPartsTogetherHaveABound) {
  const std::string bytes = archive_of({{"a", text}, {"b", text}});
  ZipArchive archive = listed(bytes);
  archive.bytes_left = 2 * text.size();
  EXPECT_EQ(unpacked(archive, "a"), text);
  EXPECT_EQ(unpacked(archive, "b"), text);
  archive.bytes_left = 2 * text.size() - 1;
  EXPECT_EQ(unpacked(archive, "a"), text);
  EXPECT_EQ(unpacked(archive, "b").back(), '!');
}

TEST(OpenPart, OtherPackingsAndPasswordsAreRefused) {
  const std::string bytes = archive_of({{"a", text}});
  ZipArchive archive = listed(bytes);
  archive.parts[0].method = 12;
  EXPECT_EQ(open_part(archive.parts[0], archive).fault, WorkbookFault::unknown_packing);
  archive.parts[0].is_protected = true;
  EXPECT_EQ(open_part(archive.parts[0], archive).fault, WorkbookFault::is_protected);
}

}  // namespace
}  // namespace pedigreewatch::test
