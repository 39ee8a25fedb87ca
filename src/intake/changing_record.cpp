#include "intake/changing_record.h"

#include <algorithm>
#include <utility>

namespace pedigreewatch {
namespace {

/// What the animal at hand has for itself, or the line where it is the only one.
std::string text_of_animal(const Corrector& corrector, const ChangingRecord& record) {
  if (corrector.animal == nullptr) return joined_fields(record.fields);
  std::vector<std::string> own;
  for (const FieldMove& move : *corrector.animal) own.push_back(text_at(record, move.from));
  return joined_cells(own);
}

/// All that the line says of the animal at hand: what is its own, and what it shares.
std::string view_of_animal(const Corrector& corrector, const ChangingRecord& record) {
  if (corrector.animal == nullptr) return joined_fields(record.fields);
  std::vector<std::string> cells;
  for (const std::size_t column : columns_of_first_animal(corrector.columns)) {
    const auto own = std::find_if(corrector.animal->begin(), corrector.animal->end(),
                                  [&](const FieldMove& move) { return move.to == column; });
    cells.push_back(text_at(record, own == corrector.animal->end() ? column : own->from));
  }
  return joined_cells(cells);
}

/// Whether another animal of the line has had the same correction of a field that is that of both.
bool has_been_done(const Corrector& corrector, std::size_t k, std::size_t place, const ChangingRecord& record) {
  if (corrector.animal == nullptr || text_at(record, place) != corrector.corrections[k].becomes) return false;
  return std::any_of(record.applied.begin(), record.applied.end(), [&](std::size_t earlier) {
    const Correction &one = corrector.corrections[earlier], &other = corrector.corrections[k];
    return one.field == other.field && one.was == other.was && one.becomes == other.becomes && one.id != other.id;
  });
}

/// Whether the record is the one of several with an identification that a new one is meant for.
bool is_told_apart(const Corrector& corrector, std::size_t k, const ChangingRecord& record) {
  return corrector.corrections[k].field == id_column &&
         view_of_animal(corrector, record) == corrector.corrections[k].was;
}

}  // namespace

Corrector make_corrector(std::span<const Correction> corrections, const ColumnChoice& columns) {
  Corrector corrector = {corrections, columns, {}, {}, std::vector<CorrectionOutcome>(corrections.size()), nullptr};
  for (std::size_t k = 0; k < corrections.size(); ++k) {
    corrector.of_id[corrections[k].id].push_back(k);
    if (corrections[k].kind == CorrectionKind::same_as) corrector.same_as.emplace(corrections[k].id, k);
  }
  return corrector;
}

std::optional<std::size_t> place_of(const Corrector& corrector, FieldCode field) {
  const std::optional<std::size_t> place = corrector.columns.place[field];
  if (!place || corrector.animal == nullptr) return place;
  const auto own = std::find_if(corrector.animal->begin(), corrector.animal->end(),
                                [&](const FieldMove& move) { return move.to == *place; });
  return own == corrector.animal->end() ? place : own->from;
}

std::string text_at(const ChangingRecord& record, std::size_t place) {
  return place < record.fields.size() ? std::string(trimmed(record.fields[place])) : std::string();
}

std::string id_of(const Corrector& corrector, const ChangingRecord& record) {
  const std::optional<std::size_t> place = place_of(corrector, id_column);
  return place ? text_at(record, *place) : std::string();
}

void set_field(ChangingRecord& record, std::size_t place, const std::string& text) {
  if (record.fields.size() <= place) record.fields.resize(place + 1);
  std::string& field = record.fields[place];
  std::erase_if(field, [](char letter) { return letter != '\r' && letter != '\n'; });
  field.insert(0, text);
  record.is_changed = true;
}

void note(CorrectionOutcome& outcome, CorrectionFate fate, std::int64_t line, std::string now) {
  if (outcome.fate == CorrectionFate::applied) return;
  if (outcome.fate == CorrectionFate::already_so && fate != CorrectionFate::applied) return;
  if (outcome.fate == CorrectionFate::id_taken && fate == CorrectionFate::differs) return;
  outcome = {fate, line, std::move(now)};
}

std::string joined_fields(const std::vector<std::string>& fields) {
  std::vector<std::string> cells;
  cells.reserve(fields.size());
  for (const std::string& field : fields) cells.emplace_back(trimmed(field));
  return joined_cells(cells);
}

void apply_value(Corrector& corrector, std::size_t k, ChangingRecord& record) {
  const Correction& correction = corrector.corrections[k];
  CorrectionOutcome& outcome = corrector.outcomes[k];
  const std::optional<std::size_t> place = place_of(corrector, correction.field);
  if (!place) return note(outcome, CorrectionFate::no_column, record.line, {});
  std::string now = text_at(record, *place);
  const bool is_done = has_been_done(corrector, k, *place, record);
  if (now == correction.was || is_done || is_told_apart(corrector, k, record)) {
    const auto holder = corrector.holders.find(k);
    if (holder != corrector.holders.end()) {
      return note(outcome, CorrectionFate::id_taken, holder->second.line, holder->second.name);
    }
    if (!is_done) set_field(record, *place, correction.becomes);
    record.applied.push_back(k);
    return note(outcome, CorrectionFate::applied, record.line, {});
  }
  const bool is_so = now == correction.becomes;
  note(outcome, is_so ? CorrectionFate::already_so : CorrectionFate::differs, record.line, std::move(now));
}

void leave_out(Corrector& corrector, std::size_t k, ChangingRecord& record) {
  const Correction& correction = corrector.corrections[k];
  std::string now = text_of_animal(corrector, record);
  const bool is_meant = correction.was.empty() || correction.was == now ||
                        correction.was == joined_fields(record.fields) ||
                        correction.was == view_of_animal(corrector, record);
  if (!is_meant) {
    return note(corrector.outcomes[k], CorrectionFate::differs, record.line, std::move(now));
  }
  if (corrector.animal == nullptr) {
    record.is_left_out = record.is_changed = true;
  } else {
    for (const FieldMove& own : *corrector.animal) set_field(record, own.from, {});
  }
  note(corrector.outcomes[k], CorrectionFate::applied, record.line, {});
}

}  // namespace pedigreewatch
