// Numbers of an archive are little-endian; nothing in it has a date.

#include "support/workbook_files.h"

#include <zlib.h>

#include <stdexcept>

namespace pedigreewatch::test {
namespace {

void append_number(std::string& bytes, std::uint64_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

std::string packed(const std::string& bytes) {
  z_stream stream = {};
  if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::runtime_error("zlib");
  }
  std::string result(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
  stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(result.data());
  stream.avail_out = static_cast<uInt>(result.size());
  deflate(&stream, Z_FINISH);
  result.resize(stream.total_out);
  deflateEnd(&stream);
  return result;
}

std::uint32_t checksum(const ArchivePart& part) {
  const auto* const bytes = reinterpret_cast<const Bytef*>(part.bytes.data());
  return static_cast<std::uint32_t>(crc32(0, bytes, static_cast<uInt>(part.bytes.size()))) + part.checksum_error;
}

/// What both the header of a part and its entry in the table of contents say of it.
std::string description_of(const ArchivePart& part, std::size_t packed_size, std::size_t extra_size) {
  constexpr std::size_t unsaid = 0xFFFFFFFF;
  std::string bytes;
  append_number(bytes, 20, 2);
  append_number(bytes, 0, 2);
  append_number(bytes, part.is_packed ? 8 : 0, 2);
  append_number(bytes, 0, 4);
  append_number(bytes, checksum(part), 4);
  append_number(bytes, part.is_wide ? unsaid : packed_size, 4);
  append_number(bytes, part.is_wide ? unsaid : part.bytes.size(), 4);
  append_number(bytes, part.name.size(), 2);
  append_number(bytes, extra_size, 2);
  return bytes;
}

/// The sizes in 64 bits, where the description does not say them.
std::string extra_of(const ArchivePart& part, std::size_t packed_size) {
  std::string bytes;
  if (!part.is_wide) return bytes;
  append_number(bytes, 1, 2);
  append_number(bytes, 16, 2);
  append_number(bytes, part.bytes.size(), 8);
  append_number(bytes, packed_size, 8);
  return bytes;
}

constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view relation_types = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string relation(const std::string& id, const std::string& type, const std::string& target) {
  return "<Relationship Id=\"" + id + "\" Type=\"" + std::string(relation_types) + type + "\" Target=\"" + target +
         "\"/>";
}

std::string relations(const std::string& inside) {
  return std::string(declaration) +
         "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" + inside +
         "</Relationships>";
}

std::string element(const std::string& name, const std::string& inside) {
  return std::string(declaration) + "<" + name +
         " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
         "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">" +
         inside + "</" + name + ">";
}

}  // namespace

std::string archive_of(const std::vector<ArchivePart>& parts) {
  std::string bytes, contents;
  for (const ArchivePart& part : parts) {
    const std::string stored = part.is_packed ? packed(part.bytes) : part.bytes;
    const std::string extra = extra_of(part, stored.size());
    const std::string description = description_of(part, stored.size(), extra.size());
    contents += "PK\x01\x02";
    append_number(contents, 20, 2);
    contents += description;
    append_number(contents, 0, 6);
    append_number(contents, 0, 4);
    append_number(contents, bytes.size(), 4);
    contents += part.name + extra;
    bytes += "PK\x03\x04" + description + part.name + extra + stored;
  }
  const std::size_t place = bytes.size();
  bytes += contents + "PK\x05\x06";
  append_number(bytes, 0, 4);
  append_number(bytes, parts.size(), 2);
  append_number(bytes, parts.size(), 2);
  append_number(bytes, contents.size(), 4);
  append_number(bytes, place, 4);
  append_number(bytes, 0, 2);
  return bytes;
}

std::vector<ArchivePart> parts_of(const WorkbookPieces& pieces) {
  std::string entries, book_relations;
  std::vector<ArchivePart> parts = {
      {"[Content_Types].xml", std::string(declaration) + "<Types/>", pieces.is_packed},
      {"_rels/.rels", relations(relation("rId1", "officeDocument", "xl/workbook.xml")), pieces.is_packed}};
  for (std::size_t i = 0; i < pieces.sheets.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    entries += "<sheet name=\"" + pieces.names.at(i) + "\" sheetId=\"" + number + "\" r:id=\"rId" + number + "\" " +
               (i == 0 ? pieces.sheet_attributes : "") + "/>";
    book_relations += relation("rId" + number, "worksheet", "worksheets/sheet" + number + ".xml");
    parts.push_back(
        {"xl/worksheets/sheet" + number + ".xml", element("worksheet", pieces.sheets[i]), pieces.is_packed});
  }
  if (!pieces.styles.empty()) {
    book_relations += relation("rId90", "styles", "styles.xml");
    parts.push_back({"xl/styles.xml", element("styleSheet", pieces.styles), pieces.is_packed});
  }
  if (!pieces.texts.empty()) {
    book_relations += relation("rId91", "sharedStrings", "/xl/sharedStrings.xml");
    parts.push_back({"xl/sharedStrings.xml", element("sst", pieces.texts), pieces.is_packed});
  }
  parts.push_back({"xl/workbook.xml", element("workbook", pieces.book_settings + "<sheets>" + entries + "</sheets>"),
                   pieces.is_packed});
  parts.push_back({"xl/_rels/workbook.xml.rels", relations(book_relations), pieces.is_packed});
  return parts;
}

std::string workbook_of(const WorkbookPieces& pieces) {
  return archive_of(parts_of(pieces));
}

std::string open_document_of(std::string_view tables) {
  const std::string content = std::string(declaration) +
                              "<office:document-content xmlns:office=\"o\" xmlns:table=\"t\" xmlns:text=\"x\" "
                              "xmlns:calcext=\"c\"><office:body><office:spreadsheet>" +
                              std::string(tables) + "</office:spreadsheet></office:body></office:document-content>";
  return archive_of({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet", false}, {"content.xml", content}});
}

}  // namespace pedigreewatch::test
