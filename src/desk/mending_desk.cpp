#include "desk/mending_desk.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "checks/calendar.h"
#include "checks/finding_kinds.h"
#include "checks/readable_text.h"
#include "corrections/correction_list.h"
#include "desk/accused_cells.h"
#include "desk/check_desk.h"
#include "desk/export_animals.h"
#include "desk/export_desk.h"
#include "desk/json_text.h"
#include "intake/correction_words.h"
#include "intake/typed_date.h"
#include "tables/animal_table.h"

namespace pedigreewatch {
namespace {

constexpr Wording name_of_list = {"list of corrections", "lijst met correcties"};
constexpr Wording without_id = {
    "This line has no id, and a correction is of an id: mend the line in your office program.",
    "Deze regel heeft geen id, en een correctie hoort bij een id: herstel de regel in uw "
    "stamboekprogramma."};
constexpr Wording two_days = {"{1} may be two days: type {2} or {3}.", "{1} kan twee dagen zijn: typ {2} of {3}."};
constexpr Wording given_up = {"unknown for now: {1}", "voorlopig onbekend: {1}"};

/// In place of a field: father and mother change places.
constexpr std::string_view exchange_parents = "exchange parents";

using Code = FindingCode;

std::string today_text(const Desk& desk) {
  return iso_date(desk.today.year, desk.today.month, desk.today.day);
}

/// The correction that a line of a list would be, without its animal; none for a field that there is not.
std::optional<Correction> correction_of_field(std::string_view field) {
  const CorrectionList read = read_corrections("x\t" + std::string(field) + "\t\t\n");
  if (read.corrections.empty()) return std::nullopt;
  return read.corrections.front();
}

/// Adds the correction of one animal, unless it has no identification or says it already.
void add_for(const Desk& desk, const ExportAnimal& animal, Correction correction,
             std::vector<Correction>& corrections) {
  correction.id = cell_of(desk, animal, id_column);
  if (correction.id.empty()) return;
  if (correction.kind == CorrectionKind::value) {
    correction.was = cell_of(desk, animal, correction.field);
    if (correction.was == correction.becomes) return;
    // Of several with one identification the others keep theirs.
    const bool is_new_id = correction.field == id_column;
    if (is_new_id && count_animals_with(desk, id_column, correction.id) > 1)
      correction.was = view_of_animal(desk, animal);
  } else if (correction.kind == CorrectionKind::leave_out) {
    const bool is_one_of_several = count_animals_with(desk, id_column, correction.id) > 1;
    correction.was = is_one_of_several ? view_of_animal(desk, animal) : text_of_animal(desk, animal);
  }
  correction.when = today_text(desk);
  add_correction(corrections, std::move(correction));
}

/// Adds the correction of one of the animals of a line; of what they share it is that of all of them.
void add_for_one(const Desk& desk, const std::vector<ExportAnimal>& animals, std::size_t number,
                 const Correction& correction, std::vector<Correction>& corrections) {
  const bool is_for_all = correction.kind == CorrectionKind::value && is_shared(desk, correction.field);
  for (const ExportAnimal& animal : animals) {
    if (is_for_all || animal.number == number) add_for(desk, animal, correction, corrections);
  }
}

/// `refused`: why nothing is added.
std::string list_answer(const std::vector<Correction>& corrections, std::size_t before,
                        const std::string& refused = {}) {
  JsonText json;
  begin_object(json);
  add_text(json, "list", corrections_text(corrections));
  add_text(json, "refused", refused);
  add_integer(json, "count", std::ssize(corrections) - static_cast<std::int64_t>(before));
  end_object(json);
  return std::move(json.text);
}

std::string_view fate_name(CorrectionFate fate) {
  constexpr auto names = std::to_array<std::string_view>(
      {"applied", "alreadySo", "differs", "noAnimal", "noColumn", "idTaken", "noOther", "hasNewId", "hasGone"});
  return names[static_cast<std::size_t>(fate)];
}

/// What people would write for the number of a day.
void add_day(JsonText& json, std::string_view name, const Desk& desk, std::string_view cell) {
  const std::string day = day_shown(cell, desk.preparation.plan.dates);
  if (!day.empty()) add_text(json, name, day);
}

void add_row(JsonText& json, const Desk& desk, const Correction& correction, const CorrectionOutcome& outcome) {
  begin_object(json);
  add_text(json, "id", correction.id);
  add_text(json, "field", field_name(correction));
  add_text(json, "was", correction.was);
  add_text(json, "becomes", correction.becomes);
  add_text(json, "why", correction.why);
  add_text(json, "when", correction.when);
  add_text(json, "fate", fate_name(outcome.fate));
  add_text(json, "said", outcome_sentence(correction, outcome, desk.language));
  if (correction.kind == CorrectionKind::value && correction.field == birthdate_column) {
    add_day(json, "wasDay", desk, correction.was);
    add_day(json, "becomesDay", desk, correction.becomes);
  }
  end_object(json);
}

/// The column of the data file that a finding means, as a field; `unused_column` where it cannot tell.
FieldCode field_of_finding(const Desk& desk, const Finding& finding) {
  if (finding.code == Code::parent_sex) return sex_column;
  if (finding.code == Code::loop && finding.other_number == 0) return unused_column;
  if (finding.role != ParentRole::none) return field_of_parent(accused_parent(finding));
  if (finding.code == Code::same_parents) return unused_column;
  // Some are about the dates of several animals and name no column.
  if (finding.column == 0 && ways_on(finding.code).dates) return birthdate_column;
  std::int32_t column = 0;
  for (const FieldCode field : written_fields()) {
    if (!desk.preparation.plan.columns.place[field]) continue;
    if (++column == finding.column) return field;
  }
  return unused_column;
}

/// The animal that the finding is about.
const ExportAnimal* own_animal(const Desk& desk, const Finding& finding, const AnimalsByLine& animals) {
  const auto own = animals.find(finding.line);
  if (own == animals.end()) return nullptr;
  const std::string id = readable(desk.check->animals.ids.at(finding.id));
  return find_animal(desk, own->second, {&id, 1});
}

/// The animal on the other line of a finding: one that its texts name, one with the same identification, or a parent.
const ExportAnimal* other_animal(const Desk& desk, const Finding& finding, const AnimalsByLine& animals) {
  const auto other = animals.find(finding.other_line);
  if (other == animals.end()) return nullptr;
  const ExportAnimal* const own = own_animal(desk, finding, animals);
  std::vector<std::string> ids;
  for (const std::int32_t text : {finding.other_text, finding.text}) {
    ids.push_back(readable(desk.check->findings.texts.at(text)));
  }
  for (const FieldCode field : {id_column, sire_column, dam_column}) {
    if (own != nullptr) ids.push_back(cell_of(desk, *own, field));
  }
  return find_animal(desk, other->second, ids);
}

/// What a finding proposes in place of the text at hand: an identification as the other line of the export writes it.
std::string proposal_of(const Desk& desk, const Finding& finding, const AnimalsByLine& animals) {
  switch (finding.code) {
    case Code::parent_spelling:
    case Code::parent_one_letter:
      if (const ExportAnimal* const other = other_animal(desk, finding, animals)) {
        return cell_of(desk, *other, id_column);
      }
      [[fallthrough]];
    case Code::subpopulation_spelling:
    case Code::subpopulation_near:
    case Code::colour_spelling:
    case Code::colour_near:
    case Code::breeder_spelling: return readable(desk.check->findings.texts.at(finding.other_text));
    default: return {};
  }
}

void add_headings(JsonText& json, const Desk& desk, std::span<const std::size_t> places) {
  const ColumnChoice& columns = desk.preparation.columns;
  begin_list(json, "headings");
  for (const std::size_t place : places) add_text(json, columns.headings[place]);
  end_list(json);
  begin_list(json, "fields");
  for (const std::size_t place : places) {
    Correction named;
    for (const FieldCode field : written_fields()) {
      if (column_of(desk, field) == place) named.field = field;
    }
    add_text(json, named.field == unused_column ? std::string_view() : field_name(named));
  }
  end_list(json);
}

void add_animal(JsonText& json, const Desk& desk, const ExportAnimal& animal, std::span<const std::size_t> places) {
  begin_object(json);
  add_day(json, "day", desk, cell_of(desk, animal, birthdate_column));
  add_integer(json, "line", animal.line);
  add_integer(json, "animal", static_cast<std::int64_t>(animal.number));
  begin_list(json, "cells");
  for (const std::size_t place : places) {
    add_text(json, place < animal.cells.size() ? std::string_view(animal.cells[place]) : std::string_view());
  }
  end_list(json);
  end_object(json);
}

/// The animal whose cell a finding means: mostly its own, but the parent whose sex does not fit, the young with the
/// wrong parent in a loop, or the first young of a parent in its rarer role.
const ExportAnimal* meant_animal(const Desk& desk, const Finding& finding, const AnimalsByLine& animals) {
  const ExportAnimal* meant = nullptr;
  if (finding.code == Code::parent_sex || finding.code == Code::loop) meant = other_animal(desk, finding, animals);
  const auto other = animals.find(finding.other_line);
  if (finding.code == Code::both_roles && accused_parent(finding) == ParentRole::dam && other != animals.end()) {
    const std::string parent = readable(desk.check->findings.texts.at(finding.text));
    for (const ExportAnimal& animal : other->second) {
      if (meant == nullptr && cell_of(desk, animal, dam_column) == parent) meant = &animal;
    }
  }
  return meant != nullptr ? meant : own_animal(desk, finding, animals);
}

/// What is offered for a finding.
struct Offer {
  const ExportAnimal* animal = nullptr;  ///< whose cell is meant; none without lines
  FieldCode field = unused_column;       ///< that of the cell; none where the finding cannot tell
  bool is_exchange = false;              ///< father and mother seem exchanged
};

Offer offer_for(const Desk& desk, const Finding& finding, const AnimalsByLine& animals) {
  Offer offer = {meant_animal(desk, finding, animals), field_of_finding(desk, finding), false};
  if (finding.code != Code::parent_sex && finding.code != Code::both_roles) return offer;
  const ExportAnimal* const own = own_animal(desk, finding, animals);
  const ExportAnimal* const young = finding.code == Code::parent_sex ? own : offer.animal;
  if (young == nullptr) return offer;
  offer.is_exchange = are_parents_exchanged(desk.check->findings, static_cast<std::int32_t>(young->line));
  if (!offer.is_exchange) return offer;
  return {young, field_of_parent(accused_parent(finding)), true};
}

/// That of the cell that is meant first, then that of the finding itself and the other one; of a finding about several
/// all of their lines.
std::vector<const ExportAnimal*> list_shown(const Desk& desk, const Finding& finding, const ExportAnimal* meant,
                                            const AnimalsByLine& animals) {
  std::vector<const ExportAnimal*> list;
  const auto show = [&](const ExportAnimal* animal) {
    if (animal != nullptr && std::find(list.begin(), list.end(), animal) == list.end()) list.push_back(animal);
  };
  const ExportAnimal* const own = own_animal(desk, finding, animals);
  show(meant);
  show(own);
  if (meant == own) show(other_animal(desk, finding, animals));
  for (const auto& [line, of_line] : animals) {
    if ((line == finding.line && finding.id != 0) || line == finding.other_line) continue;
    for (const ExportAnimal& animal : of_line) show(&animal);
  }
  return list;
}

bool can_mend(const Desk& desk) {
  return desk.has_export && desk.files && desk.files->is_made;
}

/// The lines of the export that a finding is about.
std::set<std::int64_t> all_lines(const Desk& desk, const Finding& finding) {
  const std::span<const std::int32_t> several = lines_of(desk.check->findings, finding);
  std::set<std::int64_t> lines(several.begin(), several.end());
  if (finding.line > 0) lines.insert(finding.line);
  return lines;
}

/// Those that are shown to be mended: the first ones, and the line of the other animal.
std::set<std::int64_t> shown_lines(const Desk& desk, const Finding& finding) {
  constexpr std::size_t most_lines = 20;
  std::set<std::int64_t> lines = all_lines(desk, finding);
  while (lines.size() > most_lines) lines.erase(std::prev(lines.end()));
  if (finding.other_line > 0) lines.insert(finding.other_line);
  return lines;
}

}  // namespace

std::string set_corrections(Desk& desk, std::string_view list) {
  CorrectionList read = read_corrections(list);
  const bool is_applied = desk.has_export && read.corrections == desk.corrections;
  desk.corrections = std::move(read.corrections);
  const std::vector<std::string> refusals = is_applied ? std::vector<std::string>() : apply_desk_corrections(desk);
  const std::vector<CorrectionOutcome>& outcomes = desk.preparation.corrections;
  JsonText json;
  begin_object(json);
  add_texts(json, "messages", refusals);
  add_texts(json, "faults",
            fault_sentences(read.faults, std::string(words_of(name_of_list, desk.language)), desk.language));
  add_text(json, "list", desk.corrections.empty() ? std::string() : corrections_text(desk.corrections));
  add_text(json, "sentence", corrections_sentence(outcomes, desk.language));
  begin_list(json, "rows");
  for (std::size_t k = 0; k < std::min(desk.corrections.size(), outcomes.size()); ++k) {
    add_row(json, desk, desk.corrections[k], outcomes[k]);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

/// Why an animal cannot be corrected so; empty where it can.
std::string refusal_of(const Desk& desk, const ExportAnimal& animal, const Correction& correction) {
  const std::string id = cell_of(desk, animal, id_column);
  if (id.empty()) return std::string(words_of(without_id, desk.language));
  if (correction.kind != CorrectionKind::value || correction.field != id_column) return {};
  if (correction.becomes.empty() || correction.becomes == id) return {};
  const std::vector<ExportAnimal> others = animals_with(desk, id_column, correction.becomes);
  if (others.empty()) return {};
  Correction told = correction;
  told.id = id;
  const ExportAnimal& other = others.front();
  return outcome_sentence(told, {CorrectionFate::id_taken, other.line, cell_of(desk, other, name_column)},
                          desk.language);
}

/// Takes a date as the column writes its days. Yields why that cannot be; empty where it can.
std::string take_typed_date(const Desk& desk, Correction& correction) {
  const bool is_date = correction.kind == CorrectionKind::value && correction.field == birthdate_column;
  if (!is_date || correction.becomes.empty()) return {};
  const Preparation& read = desk.preparation;
  const DateSurvey& dates = read.survey.dates;
  const DayForm form = day_form(read.text, read.reading.delimiter, read.columns, dates);
  const TypedDate typed =
      typed_date(correction.becomes, {form, dates, read.plan.dates, desk.language == ToolLanguage::dutch});
  if (typed.either) {
    return phrase(two_days, desk.language, {in_quotes(typed.text), typed.either->first, typed.either->second});
  }
  correction.becomes = typed.text;
  return {};
}

/// Father and mother of an animal, or of all on its line that share them, change places.
std::string propose_exchange(const Desk& desk, const NewCorrection& wanted) {
  std::vector<Correction> corrections = desk.corrections;
  const AnimalsByLine animals = animals_at(desk, {wanted.line});
  const auto of_line = animals.find(wanted.line);
  if (of_line == animals.end() || wanted.animal >= of_line->second.size()) {
    return list_answer(corrections, corrections.size());
  }
  const ExportAnimal& animal = of_line->second[wanted.animal];
  Correction correction;
  const std::string refused = refusal_of(desk, animal, correction);
  if (!refused.empty()) return list_answer(corrections, corrections.size(), refused);
  for (const auto& [field, other] : {std::pair(sire_column, dam_column), std::pair(dam_column, sire_column)}) {
    correction.field = field;
    correction.becomes = cell_of(desk, animal, other);
    add_for_one(desk, of_line->second, wanted.animal, correction, corrections);
  }
  return list_answer(corrections, desk.corrections.size());
}

std::string propose_correction(const Desk& desk, const NewCorrection& wanted) {
  if (desk.has_export && wanted.field == exchange_parents) return propose_exchange(desk, wanted);
  std::vector<Correction> corrections = desk.corrections;
  std::optional<Correction> correction = correction_of_field(wanted.field);
  if (!desk.has_export || !correction) return list_answer(corrections, corrections.size());
  correction->becomes = correction_cell(wanted.becomes);
  const AnimalsByLine animals = animals_at(desk, {wanted.line});
  const auto of_line = animals.find(wanted.line);
  if (of_line == animals.end() || wanted.animal >= of_line->second.size()) {
    return list_answer(corrections, corrections.size());
  }
  std::string refused = refusal_of(desk, of_line->second[wanted.animal], *correction);
  if (refused.empty()) refused = take_typed_date(desk, *correction);
  if (!refused.empty()) return list_answer(corrections, corrections.size(), refused);
  if (!wanted.is_everywhere || correction->kind != CorrectionKind::value) {
    add_for_one(desk, of_line->second, wanted.animal, *correction, corrections);
    return list_answer(corrections, desk.corrections.size());
  }
  const std::string was = cell_of(desk, of_line->second[wanted.animal], correction->field);
  for (const ExportAnimal& animal : animals_with(desk, correction->field, was)) {
    add_for(desk, animal, *correction, corrections);
  }
  return list_answer(corrections, desk.corrections.size());
}

/// What is given up of a line in one field.
struct GivenUp {
  Code code = Code::utf_16;       ///< of the first finding
  std::vector<std::string> ids;   ///< of the animals that are named
  bool is_of_whole_line = false;  ///< some finding names none
};

/// Makes the field unknown of the animals that are meant; of what they share it is that of all of them.
void give_up(const Desk& desk, const GivenUp& given, const std::vector<ExportAnimal>& animals, FieldCode field,
             std::vector<Correction>& corrections) {
  Correction correction;
  correction.field = field;
  correction.why = phrase(given_up, desk.language, {words_of(kind_of(given.code).title, desk.language)});
  std::set<std::size_t> numbers;
  for (const std::string& id : given.ids) numbers.insert(find_animal(desk, animals, {&id, 1})->number);
  for (const ExportAnimal& animal : animals) {
    const bool is_meant = given.is_of_whole_line || is_shared(desk, field) || numbers.contains(animal.number);
    if (is_meant) add_for(desk, animal, correction, corrections);
  }
}

std::string propose_going_on(const Desk& desk, std::string_view kind, std::string_view what) {
  std::vector<Correction> corrections = desk.corrections;
  if (!can_mend(desk) || !desk.check) return list_answer(corrections, corrections.size());
  std::vector<const Finding*> findings;
  for (const Finding& finding : desk.check->findings.list) {
    const FindingKind& own = kind_of(finding.code);
    const bool is_wanted = kind.empty() ? own.severity == Severity::stops : own.name == kind;
    if (is_wanted) findings.push_back(&finding);
  }
  std::map<std::int64_t, std::map<FieldCode, GivenUp>> lines;
  std::set<std::int64_t> wanted;
  for (AccusedCell& cell : accused_cells(*desk.check, findings, what == "dates")) {
    GivenUp& given = lines[cell.line].try_emplace(cell.field, GivenUp{cell.code, {}, false}).first->second;
    if (cell.id.empty()) given.is_of_whole_line = true;
    if (!cell.id.empty()) given.ids.push_back(std::move(cell.id));
    wanted.insert(cell.line);
  }
  for (const auto& [line, animals] : animals_at(desk, wanted)) {
    for (const auto& [field, given] : lines.at(line)) give_up(desk, given, animals, field, corrections);
  }
  return list_answer(corrections, desk.corrections.size());
}

std::string finding_lines(const Desk& desk, std::size_t place) {
  JsonText json;
  begin_object(json);
  if (can_mend(desk) && desk.check && place < desk.chosen_findings.size()) {
    const Finding& finding = desk.check->findings.list[desk.chosen_findings[place]];
    const AnimalsByLine animals = animals_at(desk, shown_lines(desk, finding));
    const Offer offer = offer_for(desk, finding, animals);
    const ExportAnimal* const meant = offer.animal;
    const std::vector<std::size_t> places = columns_of_first_animal(desk.preparation.columns);
    const auto column = std::find(places.begin(), places.end(), column_of(desk, offer.field));
    const bool has_cell = column != places.end() && meant != nullptr && *column < meant->cells.size();
    const std::string cell = has_cell ? meant->cells[*column] : std::string();
    add_headings(json, desk, places);
    add_integer(json, "column", column != places.end() ? column - places.begin() : -1);
    add_text(json, "cell", cell);
    add_text(json, "proposal", column != places.end() ? proposal_of(desk, finding, animals) : std::string());
    const bool is_text = is_about_text(finding.code);
    add_integer(json, "number", cell.empty() ? 0 : is_text ? count_animals_with(desk, offer.field, cell) : 1);
    add_logical(json, "mayBeOne", finding.code == Code::same_animal);
    add_logical(json, "exchange", offer.is_exchange);
    begin_list(json, "rows");
    for (const ExportAnimal* const animal : list_shown(desk, finding, meant, animals)) {
      add_animal(json, desk, *animal, places);
    }
    end_list(json);
  }
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
