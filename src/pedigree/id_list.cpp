#include "pedigree/id_list.h"

#include <algorithm>
#include <string_view>

#include "core/fixed_text.h"
#include "core/line_reader.h"

namespace pedigreewatch {
namespace {

bool is_text(std::string_view line, bool is_first) {
  constexpr std::string_view utf_16_mark = "\xFF\xFE";
  return line.find('\0') == std::string_view::npos && !(is_first && line.starts_with(utf_16_mark));
}

/// Takes a line of the list; false where something is wrong with it.
bool take_line(std::int64_t number, std::string_view line, std::size_t most_ids, IdList& list) {
  if (!is_text(line, number == 1)) list.fault = IdListFault::no_text;
  if (!without_blanks(line).empty()) list.ids.push_back({number, std::string(line)});
  if (list.fault == IdListFault::none && list.ids.size() > most_ids) list.fault = IdListFault::too_long;
  return list.fault == IdListFault::none;
}

}  // namespace

IdList read_id_list(const std::string& file, std::size_t most_ids) {
  IdList list;
  LineReader reader;
  if (!open_for_reading(reader, file)) {
    list.error = reader.error;
    list.fault = IdListFault::not_opened;
    return list;
  }
  std::string_view line;
  while (read_line(reader, line)) {
    if (!take_line(reader.line_number, line, most_ids, list)) return list;
  }
  note_change(reader);
  list.error = reader.error;
  if (reader.error != 0) list.fault = IdListFault::not_read;
  return list;
}

IdList id_list_of_text(std::string_view text, std::size_t most_ids) {
  IdList list;
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (!take_line(number, text.substr(0, end), most_ids, list)) return list;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return list;
}

}  // namespace pedigreewatch
