// Small workbooks made by the tests: archives of given parts, packed or not, and the parts that every workbook needs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch::test {

struct ArchivePart {
  std::string name, bytes;
  bool is_packed = true;
  std::uint32_t checksum_error = 0;  ///< added to the checksum, so that it is wrong
  bool is_wide = false;              ///< its sizes are told in 64 bits, as large ones are
};

/// A zip archive of these parts.
std::string archive_of(const std::vector<ArchivePart>& parts);

/// What a made workbook consists of; empty pieces are left out.
struct WorkbookPieces {
  std::vector<std::string> sheets = {""};  ///< what stands between <worksheet> and </worksheet>
  std::vector<std::string> names = {"Dogs"};
  std::string sheet_attributes;  ///< of the first sheet in the list, such as state="hidden"
  std::string book_settings;     ///< such as <workbookPr date1904="1"/>
  std::string styles, texts;     ///< what stands between <styleSheet> or <sst> and their ends
  bool is_packed = true;
};

/// The parts of such a workbook (.xlsx), and the workbook.
std::vector<ArchivePart> parts_of(const WorkbookPieces& pieces);
std::string workbook_of(const WorkbookPieces& pieces);

/// A workbook of OpenDocument (.ods) with this between <office:spreadsheet> and its end.
std::string open_document_of(std::string_view tables);

}  // namespace pedigreewatch::test
