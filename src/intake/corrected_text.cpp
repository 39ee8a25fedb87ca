// One pass over the records. Only lines that change are written anew; what stands between them is copied as it is.

#include "intake/corrected_text.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "intake/changing_record.h"
#include "intake/held_ids.h"

namespace pedigreewatch {
namespace {

/// The line of an animal that is another one.
void give_up(Corrector& corrector, std::size_t k, ChangingRecord& record) {
  if (corrector.leads.empty()) return;
  if (corrector.leads[corrector.same_as.at(corrector.corrections[k].id)].to) return leave_out(corrector, k, record);
  note(corrector.outcomes[k], CorrectionFate::no_other, record.line, {});
}

/// The corrections of the animal itself, in their order; one of its identification leads on to those of the new one.
void correct_animal(Corrector& corrector, ChangingRecord& record) {
  std::size_t next = 0;
  for (bool has_new_id = true; has_new_id && !record.is_left_out;) {
    has_new_id = false;
    const std::string id = id_of(corrector, record);
    const auto found = id.empty() ? corrector.of_id.end() : corrector.of_id.find(id);
    if (found == corrector.of_id.end()) return;
    for (const std::size_t k : found->second) {
      if (k < next || record.is_left_out || has_new_id) continue;
      next = k + 1;
      if (corrector.corrections[k].kind == CorrectionKind::value) {
        apply_value(corrector, k, record);
      } else if (corrector.corrections[k].kind == CorrectionKind::leave_out) {
        leave_out(corrector, k, record);
      } else {
        give_up(corrector, k, record);
      }
      has_new_id = id_of(corrector, record) != id;
    }
  }
}

/// All animals of the line.
void correct_animals(Corrector& corrector, ChangingRecord& record) {
  if (corrector.columns.animals_of_line.empty()) return correct_animal(corrector, record);
  for (const LineAnimal& animal : corrector.columns.animals_of_line) {
    corrector.animal = &animal;
    correct_animal(corrector, record);
  }
  corrector.animal = nullptr;
}

/// Parents that have become another animal.
void correct_parents(Corrector& corrector, ChangingRecord& record) {
  if (corrector.same_as.empty() || record.is_left_out) return;
  for (const FieldCode parent : {sire_column, dam_column}) {
    const std::optional<std::size_t> place = place_of(corrector, parent);
    if (!place) continue;
    const auto found = corrector.same_as.find(text_at(record, *place));
    if (found == corrector.same_as.end()) continue;
    const std::optional<std::string>& to = corrector.leads[found->second].to;
    if (!to) {
      note(corrector.outcomes[found->second], CorrectionFate::no_other, record.line, {});
      continue;
    }
    set_field(record, *place, *to);
    note(corrector.outcomes[found->second], CorrectionFate::applied, record.line, {});
  }
}

/// The identifications as they are once the other corrections are made.
struct IdsBehind {
  std::unordered_set<std::string> standing;
  std::unordered_map<std::string, std::string> renamed;

  /// What this identification is then, where a line has it.
  std::optional<std::string> standing_as(const std::string& id) const {
    const auto found = renamed.find(id);
    const std::string& now = found == renamed.end() || standing.contains(id) ? id : found->second;
    return standing.contains(now) ? std::optional(now) : std::nullopt;
  }
};

IdsBehind ids_behind(Corrector corrector, std::string_view text, char delimiter) {
  IdsBehind ids;
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  const auto look_at = [&](ChangingRecord& changing) {
    const std::string before = id_of(corrector, changing);
    correct_animal(corrector, changing);
    const std::string now = id_of(corrector, changing);
    if (now.empty() || changing.is_left_out) return;
    ids.standing.insert(now);
    if (now != before) ids.renamed.emplace(before, now);
  };
  while (next_record(reader, record)) {
    if (record.fields.size() > most_fields) continue;
    ChangingRecord changing = {{record.fields.begin(), record.fields.end()}, record.line};
    if (corrector.columns.animals_of_line.empty()) look_at(changing);
    for (const LineAnimal& animal : corrector.columns.animals_of_line) {
      corrector.animal = &animal;
      look_at(changing);
    }
  }
  return ids;
}

/// Finds who stays of animals that are the same as each other, from one on: the last that has a line. Those that lead
/// back to themselves stay what they are.
void lead_on(Corrector& corrector, const IdsBehind& ids, std::size_t k) {
  std::vector<std::size_t> path;
  std::string end;
  bool is_ring = false;
  while (true) {
    Lead& lead = corrector.leads[k];
    is_ring = lead.is_on_path && !lead.is_known;
    if (lead.is_known || is_ring) {
      end = lead.to.value_or(corrector.corrections[k].id);
      break;
    }
    lead.is_on_path = true;
    path.push_back(k);
    end = corrector.corrections[k].becomes;
    const auto next = corrector.same_as.find(end);
    if (next == corrector.same_as.end()) break;
    k = next->second;
  }
  for (bool is_open = is_ring; is_open; path.pop_back()) {
    corrector.leads[path.back()].is_known = true;
    is_open = path.back() != k;
  }
  for (; !path.empty(); path.pop_back()) {
    Lead& lead = corrector.leads[path.back()];
    lead.is_known = true;
    lead.to = ids.standing_as(end);
    if (!lead.to) end = corrector.corrections[path.back()].id;
  }
}

/// Where the animal is there under its new identification and no longer under the old one, the export has been mended.
void note_ids_mended(Corrector& corrector) {
  for (const auto& [k, holder] : corrector.holders) {
    CorrectionOutcome& outcome = corrector.outcomes[k];
    if (outcome.fate == CorrectionFate::no_animal) outcome = {CorrectionFate::already_so, holder.line, {}};
  }
}

/// Where an animal has no line any more because an earlier correction gave it another identification or left it out,
/// that is said.
void note_what_went_before(Corrector& corrector) {
  std::unordered_map<std::string_view, std::size_t> last;
  for (std::size_t k = 0; k < corrector.corrections.size(); ++k) {
    const Correction& correction = corrector.corrections[k];
    CorrectionOutcome& outcome = corrector.outcomes[k];
    const auto before = last.find(correction.id);
    if (outcome.fate == CorrectionFate::no_animal && before != last.end()) {
      const bool is_value = corrector.corrections[before->second].kind == CorrectionKind::value;
      outcome = {is_value ? CorrectionFate::has_new_id : CorrectionFate::has_gone,
                 corrector.outcomes[before->second].line,
                 is_value ? corrector.corrections[before->second].becomes : std::string()};
    }
    const bool takes_id = correction.kind != CorrectionKind::value || correction.field == id_column;
    if (takes_id && outcome.fate == CorrectionFate::applied) last[correction.id] = k;
  }
}

std::string_view line_end_of(std::string_view raw) {
  for (const std::string_view end : {"\r\n", "\n", "\r"}) {
    if (raw.ends_with(end)) return end;
  }
  return {};
}

/// The record with quotation marks where they are needed.
void append_record(std::string& text, const ChangingRecord& record, char delimiter) {
  const std::string special = std::string("\"\r\n") + delimiter;
  bool is_first = true;
  for (const std::string& field : record.fields) {
    if (!std::exchange(is_first, false)) text += delimiter;
    if (field.find_first_of(special) == std::string::npos) {
      text += field;
      continue;
    }
    text += '"';
    for (const char letter : field) text += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    text += '"';
  }
}

/// Writes a record that has changed in place of its bytes. What is left out leaves its line ends.
void write_record(std::string& text, std::string_view raw, const ChangingRecord& record, const RecordReader& reader) {
  const auto line_ends = std::count(raw.begin(), raw.end(), reader.line_end);
  if (!record.is_left_out) {
    append_record(text, record, reader.delimiter);
    std::ptrdiff_t inside = 0;  // the last one, too, where a quotation mark is never closed
    for (const std::string& field : record.fields) inside += std::count(field.begin(), field.end(), reader.line_end);
    if (inside < line_ends) text += line_end_of(raw);
    return;
  }
  text.append(static_cast<std::size_t>(line_ends), reader.line_end);
}

}  // namespace

std::vector<std::size_t> columns_of_first_animal(const ColumnChoice& columns) {
  std::vector<bool> is_of_others(columns.headings.size());
  for (const LineAnimal& animal : columns.animals_of_line) {
    for (const FieldMove& move : animal) {
      if (move.from != move.to && move.from < is_of_others.size()) is_of_others[move.from] = true;
    }
  }
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < is_of_others.size(); ++place) {
    if (!is_of_others[place]) places.push_back(place);
  }
  return places;
}

std::string line_text(const ExportRecord& record) {
  std::vector<std::string> fields;
  for (const std::string_view field : record.fields) fields.emplace_back(field);
  return joined_fields(fields);
}

std::vector<CorrectionOutcome> apply_corrections(std::string& text, char delimiter, const ColumnChoice& columns,
                                                 std::span<const Correction> corrections) {
  if (corrections.empty()) return {};
  Corrector corrector = make_corrector(corrections, columns);
  corrector.holders = find_id_holders(corrector, text, delimiter);
  if (!corrector.same_as.empty()) {
    const IdsBehind ids = ids_behind(corrector, text, delimiter);
    corrector.leads.resize(corrections.size());
    for (const auto& [id, k] : corrector.same_as) lead_on(corrector, ids, k);
  }
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  std::string corrected;
  std::size_t copied = 0;
  for (std::size_t begin = 0; next_record(reader, record); begin = reader.next) {
    if (record.fields.size() > most_fields) continue;
    ChangingRecord changing = {{record.fields.begin(), record.fields.end()}, record.line};
    correct_animals(corrector, changing);
    correct_parents(corrector, changing);
    if (!changing.is_changed) continue;
    corrected.append(text, copied, begin - copied);
    write_record(corrected, std::string_view(text).substr(begin, reader.next - begin), changing, reader);
    copied = reader.next;
  }
  if (copied > 0) {
    corrected.append(text, copied, text.size() - copied);
    text = std::move(corrected);
  }
  note_ids_mended(corrector);
  note_what_went_before(corrector);
  return std::move(corrector.outcomes);
}

}  // namespace pedigreewatch
