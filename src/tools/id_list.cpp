#include "tools/id_list.h"

#include <string_view>

#include "core/fixed_text.h"
#include "core/line_reader.h"

namespace pedigreewatch {
namespace {

bool is_text(std::string_view line, bool is_first) {
  constexpr std::string_view utf_16_mark = "\xFF\xFE";
  return line.find('\0') == std::string_view::npos && !(is_first && line.starts_with(utf_16_mark));
}

}  // namespace

IdList read_id_list(const std::string& name, std::size_t most_ids) {
  IdList list;
  const auto with_fault = [&](IdListFault fault) {
    list.fault = fault;
    return list;
  };
  LineReader reader;
  if (!open_for_reading(reader, name)) {
    list.error = reader.error;
    return with_fault(IdListFault::not_opened);
  }
  std::string_view line;
  while (read_line(reader, line)) {
    if (!is_text(line, reader.line_number == 1)) return with_fault(IdListFault::no_text);
    if (!without_blanks(line).empty()) list.ids.push_back({reader.line_number, std::string(line)});
    if (list.ids.size() > most_ids) return with_fault(IdListFault::too_long);
  }
  note_change(reader);
  list.error = reader.error;
  return with_fault(reader.error != 0 ? IdListFault::not_read : IdListFault::none);
}

}  // namespace pedigreewatch
