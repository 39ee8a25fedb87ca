#include "corrections/correction_list.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pedigreewatch {
namespace {

struct NamedField {
  std::string_view name;
  FieldCode field;
};
constexpr auto fields = std::to_array<NamedField>({{"id", id_column},
                                                   {"name", name_column},
                                                   {"sire", sire_column},
                                                   {"dam", dam_column},
                                                   {"sex", sex_column},
                                                   {"birthdate", birthdate_column},
                                                   {"colour", colour_column},
                                                   {"breeder", breeder_column},
                                                   {"subpopulation", subpopulation_column},
                                                   {"import", import_column}});
constexpr std::string_view leave_out_name = "leave out", same_as_name = "same as";
constexpr std::string_view heading = "id\tfield\twas\tbecomes\twhy\twhen";
constexpr std::size_t least_cells = 4;

/// Takes the text up to the next `end` off its start.
std::string_view take_up_to(std::string_view& text, char end) {
  const std::size_t length = std::min(text.find(end), text.size());
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return taken;
}

/// A cell without the quotation marks that a spreadsheet puts around one.
std::string without_quotes(std::string_view cell) {
  if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"') return std::string(cell);
  std::string text;
  cell = cell.substr(1, cell.size() - 2);
  for (std::size_t k = 0; k < cell.size(); ++k) {
    if (cell[k] == '"' && k + 1 < cell.size() && cell[k + 1] == '"') ++k;
    text += cell[k];
  }
  return text;
}

std::vector<std::string> cells_of(std::string_view line) {
  std::vector<std::string> cells;
  for (;;) {
    const bool is_last = line.find('\t') == std::string_view::npos;
    cells.push_back(correction_cell(without_quotes(take_up_to(line, '\t'))));
    if (is_last) return cells;
  }
}

/// Names the field of a correction; false when there is none of this name.
bool set_field(Correction& correction, std::string_view name) {
  if (name == leave_out_name) correction.kind = CorrectionKind::leave_out;
  if (name == same_as_name) correction.kind = CorrectionKind::same_as;
  if (correction.kind != CorrectionKind::value) return true;
  const auto* const found =
      std::find_if(fields.begin(), fields.end(), [&](const NamedField& field) { return field.name == name; });
  if (found == fields.end()) return false;
  correction.field = found->field;
  return true;
}

void read_line(CorrectionList& list, std::string_view line, std::int64_t number) {
  std::vector<std::string> cells = cells_of(line);
  if (cells.size() < least_cells || cells[0].empty()) {
    list.faults.push_back({number, correction_cell(line), false});
    return;
  }
  cells.resize(6);
  Correction correction;
  if (!set_field(correction, cells[1])) {
    list.faults.push_back({number, cells[1], true});
    return;
  }
  correction.id = std::move(cells[0]);
  correction.was = std::move(cells[2]);
  correction.becomes = std::move(cells[3]);
  correction.why = std::move(cells[4]);
  correction.when = std::move(cells[5]);
  list.corrections.push_back(std::move(correction));
}

/// Quotation marks around a cell would be taken for those of a spreadsheet: such a cell gets further ones.
std::string written_cell(std::string_view text) {
  std::string cell = correction_cell(text);
  if (!cell.starts_with('"')) return cell;
  std::string written = "\"";
  for (const char letter : cell) written += letter == '"' ? std::string("\"\"") : std::string(1, letter);
  return written + "\"";
}

bool is_heading(std::string_view line) {
  const std::vector<std::string> cells = cells_of(line);
  return cells.size() >= least_cells && cells[0] == "id" && cells[1] == "field";
}

}  // namespace

std::string correction_cell(std::string_view text) {
  std::string cell;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    cell += byte < ' ' || byte == 0x7F ? ' ' : letter;
  }
  const std::size_t first = cell.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return cell.substr(first, cell.find_last_not_of(' ') - first + 1);
}

CorrectionList read_corrections(std::string_view text) {
  constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
  if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
  CorrectionList list;
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::string_view line = take_up_to(text, '\n');
    if (correction_cell(line).empty()) continue;
    if (!is_heading(line)) read_line(list, line, number);
  }
  return list;
}

std::string_view field_name(const Correction& correction) {
  if (correction.kind == CorrectionKind::leave_out) return leave_out_name;
  if (correction.kind == CorrectionKind::same_as) return same_as_name;
  const auto* const found = std::find_if(fields.begin(), fields.end(),
                                         [&](const NamedField& field) { return field.field == correction.field; });
  return found == fields.end() ? std::string_view() : found->name;
}

std::string joined_cells(std::span<const std::string> cells) {
  constexpr std::string_view between = " | ";
  std::string text;
  for (std::size_t k = 0; k < cells.size(); ++k)
    text += (k == 0 ? "" : std::string(between)) + correction_cell(cells[k]);
  return correction_cell(text);
}

std::string corrections_text(std::span<const Correction> corrections) {
  std::string text = std::string(heading) + "\n";
  for (const Correction& correction : corrections) {
    const std::string id = correction_cell(correction.id);
    // One that only begins with a quotation mark is read as it is.
    text += (id.ends_with('"') ? written_cell(id) : id) + "\t" + std::string(field_name(correction));
    for (const std::string* const cell : {&correction.was, &correction.becomes, &correction.why, &correction.when}) {
      text += "\t" + written_cell(*cell);
    }
    text += "\n";
  }
  return text;
}

void add_correction(std::vector<Correction>& corrections, Correction correction) {
  const auto earlier = std::find_if(corrections.begin(), corrections.end(), [&](const Correction& other) {
    return other.id == correction.id && other.kind == CorrectionKind::value && other.kind == correction.kind &&
           other.field == correction.field && other.becomes == correction.was;
  });
  // One of an identification is not changed: those behind it may name the animal by its new one.
  if (earlier == corrections.end() || correction.field == id_column) {
    corrections.push_back(std::move(correction));
    return;
  }
  earlier->becomes = std::move(correction.becomes);
  earlier->why = std::move(correction.why);
  earlier->when = std::move(correction.when);
  if (earlier->becomes == earlier->was) corrections.erase(earlier);
}

}  // namespace pedigreewatch
