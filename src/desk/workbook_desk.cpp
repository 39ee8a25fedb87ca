// Only parts that are XML are handed over: pictures and the like would be unpacked for nothing.

#include "desk/workbook_desk.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "desk/json_text.h"
#include "intake/export_preparation.h"
#include "sheets/workbook.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch {
namespace {

bool is_needed(const ZipPart& part) {
  return part.name.ends_with(".xml") || part.name.ends_with(".rels") || part.name == "mimetype" ||
         part.name.ends_with(".bin");  // which tells a binary workbook
}

void add_part(JsonText& json, std::string_view bytes, const ZipPart& part) {
  begin_object(json);
  add_text(json, "name", part.name);
  add_integer(json, "begin", part.bytes.data() - bytes.data());
  add_integer(json, "packedSize", std::ssize(part.bytes));
  add_integer(json, "size", static_cast<std::int64_t>(part.size));
  add_integer(json, "checksum", part.checksum);
  add_logical(json, "isPacked", part.method == method_deflated && !part.is_protected);
  end_object(json);
}

std::uint64_t unpacked_size(const ZipArchive& archive) {
  std::uint64_t size = 0;
  for (const ZipPart& part : archive.parts) {
    if (is_needed(part)) size += std::min(part.size, most_unpacked_bytes + 1);
  }
  return size;
}

bool can_be_unpacked(const ZipArchive& archive) {
  return std::all_of(archive.parts.begin(), archive.parts.end(), [](const ZipPart& part) {
    const bool is_known = part.method == method_deflated || part.method == method_stored;
    return !is_needed(part) || (is_known && !part.is_protected);
  });
}

}  // namespace

std::string packed_parts_of(const Desk& desk, const std::string& name) {
  std::string bytes;
  WorkbookProblem problem;
  ZipArchive archive;
  const bool is_archive = read_file_bytes(name, bytes) == 0 &&
                          kind_of_workbook(bytes, problem) == WorkbookKind::archive &&
                          list_parts(bytes, archive, problem);
  const bool is_too_large = is_archive && unpacked_size(archive) > most_unpacked_bytes;
  if (is_too_large) problem.fault = WorkbookFault::too_large;
  JsonText json;
  begin_object(json);
  begin_list(json, "messages");
  if (is_too_large) add_text(json, message_of(problem, desk.language));
  end_list(json);
  begin_list(json, "parts");
  // What is packed in another way, or has a password, is refused when the file is opened.
  if (is_archive && !is_too_large && can_be_unpacked(archive)) {
    for (const ZipPart& part : archive.parts) {
      if (is_needed(part)) add_part(json, bytes, part);
    }
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
