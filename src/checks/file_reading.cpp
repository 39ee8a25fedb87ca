// One pass, in which some lines are cut while those before them are taken: where there are threads, both at once. What
// is taken next waits for some lines more, so that where its identifications stand among those of the lines before is
// there from memory. Where the file has no headings the program leaves out the last line: the last one of some lines
// waits for the next ones.

#include "checks/file_reading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string>

#include "checks/date_checks.h"
#include "checks/line_checks.h"
#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "core/leap_year.h"
#include "core/side_by_side.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t id_width = AnimalId{}.bytes.size();
constexpr std::size_t name_width = AnimalName{}.bytes.size();

struct Reading {
  const ReadingPlan& plan;
  PedigreeColumns& animals;
  FileSurvey& survey;
  Findings& findings;
  ByteKinds kinds;
  std::size_t next_shift = 0, next_note = 0;  ///< of the export, behind those of the lines before
  bool has_too_many_lines = false;
};

/// The line at hand.
struct DataLine {
  std::string_view text;
  std::int64_t full_length = 0;
  std::int32_t number = 0;  ///< in the export, where that is known
  std::span<const ExportNote> notes;
  std::uint8_t kinds = 0;
  std::int32_t id = 0;
};

/// A line that has been cut and waits for its turn.
struct WaitingLine {
  std::string bytes;
  DataLine line;
  LineFields fields;
  LineKind kind = LineKind::animal;
  std::array<HashedText, 3> ids;  ///< of the animal, its father and its mother, as the program cuts them
};
constexpr std::array<FieldCode, 3> id_fields = {id_column, sire_column, dam_column};

std::string_view field_of(const LineFields& fields, FieldCode code) {
  return without_trailing_blanks(fields.text[code]);
}

void find(Reading& reading, const DataLine& line, FindingCode code, FieldCode field, std::string_view text) {
  add(reading.findings, {.code = code,
                         .column = reading.plan.column_of[field],
                         .line = line.number,
                         .id = line.id,
                         .text = keep(reading.findings, text)});
}

/// An identification as the program cuts it; empty for one that means unknown.
std::string_view cut_id(std::string_view text) {
  if (text == unknown_parent_id || text == "unknown" || text == "Unknown") return {};
  return text.size() > id_width ? without_trailing_blanks(text.substr(0, id_width)) : text;
}

/// The number of one of the three identifications of a line; 0 for an unknown one.
std::int32_t take_id(Reading& reading, const DataLine& line, const WaitingLine& waiting, std::size_t place) {
  const std::string_view text = field_of(waiting.fields, id_fields[place]);
  if (text.size() > id_width) find(reading, line, FindingCode::id_cut, id_fields[place], text);
  const HashedText& id = waiting.ids[place];
  return id.text.empty() ? 0 : number_of_text(reading.animals.ids, id);
}

/// A text of the export that is not in the data file; nothing when there was none.
std::string_view lost_text(const DataLine& line, ExportNoteKind kind) {
  const auto note =
      std::find_if(line.notes.begin(), line.notes.end(), [&](const ExportNote& each) { return each.kind == kind; });
  return note == line.notes.end() ? std::string_view() : std::string_view(note->text);
}

/// A line of the export with more or fewer fields than its headings; in the data file it has as many as all others.
void find_lost_fields(Reading& reading, const DataLine& line, std::string_view count) {
  std::int64_t number = 0;
  std::from_chars(count.data(), count.data() + count.size(), number);
  add(reading.findings, {.code = FindingCode::column_count,
                         .line = line.number,
                         .id = line.id,
                         .number = number,
                         .other_number = reading.plan.export_lines->field_count});
}

void check_columns(Reading& reading, const DataLine& line, const LineFields& fields) {
  const ReadingPlan& plan = reading.plan;
  const std::size_t count = fields.column_count;
  const std::size_t expected = plan.header_columns != 0 ? plan.header_columns : plan.counted_columns;
  const bool is_cut = line.full_length > static_cast<std::int64_t>(kept_line_length);
  if (is_cut) {
    add(reading.findings,
        {.code = FindingCode::line_cut, .line = line.number, .id = line.id, .number = line.full_length});
  }
  const bool has_more = plan.header_columns != 0 && fields.has_text_beyond_header;
  const std::string_view lost = lost_text(line, ExportNoteKind::fields);
  if (!lost.empty()) return find_lost_fields(reading, line, lost);
  if (is_cut || (!has_more && count >= plan.counted_columns)) return;
  add(reading.findings, {.code = FindingCode::column_count,
                         .line = line.number,
                         .id = line.id,
                         .number = static_cast<std::int64_t>(count),
                         .other_number = static_cast<std::int64_t>(expected)});
}

/// Names of parents in the export that are those of other animals.
void find_parent_names(Reading& reading, const DataLine& line, const LineFields& fields) {
  constexpr auto kinds = std::to_array<std::pair<ExportNoteKind, FieldCode>>(
      {{ExportNoteKind::sire_name, sire_column}, {ExportNoteKind::dam_name, dam_column}});
  for (const auto& [kind, code] : kinds) {
    const std::string_view name = lost_text(line, kind);
    if (name.empty()) continue;
    add(reading.findings, {.code = FindingCode::parent_name,
                           .role = code == sire_column ? ParentRole::sire : ParentRole::dam,
                           .column = reading.plan.column_of[code],
                           .line = line.number,
                           .id = line.id,
                           .text = keep(reading.findings, field_of(fields, code)),
                           .other_text = keep(reading.findings, name)});
  }
}

/// Letters beyond ASCII, quotation marks and letters that nobody sees; most lines have none of them.
void check_letters(Reading& reading, const DataLine& line, const LineFields& fields) {
  if ((line.kinds & byte_high) != 0) {
    tally(is_utf_8(line.text) ? reading.survey.utf_8_lines : reading.survey.ansi_lines, line.number);
  }
  for (const FieldCode code : all_fields) {
    const std::string_view field = without_trailing_blanks(fields.text[code]);
    const std::uint8_t kinds = kinds_in(field, reading.kinds);
    if ((kinds & byte_quote) != 0 && is_quoted(field)) {
      if (reading.survey.quoted_lines.first_line != line.number) tally(reading.survey.quoted_lines, line.number);
      if (reading.survey.quoted_text == 0) reading.survey.quoted_text = keep(reading.findings, field);
    }
    if ((kinds & (byte_control | byte_high)) == 0) continue;
    const std::string named = with_invisible_named(field);
    if (!named.empty()) find(reading, line, FindingCode::invisible_letter, code, named);
  }
}

void check_year(Reading& reading, const DataLine& line, const DateReading& date, std::string_view text,
                std::uint8_t& marks) {
  constexpr std::int32_t first_of_three_digits = 100;
  if (date.date.year > 0 && date.date.year < first_of_three_digits) {
    constexpr std::int32_t newest_of_this_century = 40;
    const std::int32_t century = date.date.year <= newest_of_this_century ? 2000 : 1900;
    const std::string two_digits = (date.date.year < 10 ? "0" : "") + std::to_string(date.date.year);
    add(reading.findings,
        {.code = is_placeholder_date(date.date) ? FindingCode::year_placeholder : FindingCode::year_two_digits,
         .column = reading.plan.column_of[birthdate_column],
         .line = line.number,
         .id = line.id,
         .text = keep(reading.findings, text),
         .other_text = keep(reading.findings, two_digits),
         .other_number = century + date.date.year});
    add_mark(marks, mark_strange_year);
  } else if (date.kind != DateKind::year_only && is_placeholder_date(date.date)) {
    find(reading, line, FindingCode::year_placeholder, birthdate_column, text);
    add_mark(marks, mark_strange_year);
  }
}

void report_repair(Reading& reading, const DataLine& line, const DateReading& date, std::string_view text) {
  const BirthDate& taken = date.date;
  const std::string shown_date = text_of(CalendarDate{taken.year, taken.month, taken.day});
  add(reading.findings, {.code = FindingCode::date_impossible,
                         .column = reading.plan.column_of[birthdate_column],
                         .line = line.number,
                         .id = line.id,
                         .text = keep(reading.findings, text),
                         .other_text = keep(reading.findings, shown_date)});
}

void count_date(Reading& reading, const DataLine& line, const DateReading& date, std::string_view text) {
  FileSurvey& survey = reading.survey;
  ++survey.dates;
  if (date.kind == DateKind::year_only) ++survey.year_only_dates;
  if (date.kind == DateKind::unreadable) ++survey.unreadable_dates;
  const bool is_read = date.kind != DateKind::unreadable;
  if (is_read && date.date.month == 1 && date.date.day == 1) ++survey.january_dates;
  if (date.fits_layout) return;
  tally(survey.misfit_dates, line.number);
  if (survey.misfit_text == 0) survey.misfit_text = keep(reading.findings, text);
}

/// Whether the date of the export was no date that could be read.
bool take_lost_date(Reading& reading, const DataLine& line) {
  const std::string_view text = lost_text(line, ExportNoteKind::date);
  if (!text.empty()) find(reading, line, FindingCode::date_text, birthdate_column, text);
  return !text.empty();
}

/// Yields the date of birth and adds to the marks what is strange about it.
BirthDay take_date(Reading& reading, const DataLine& line, const LineFields& fields, std::uint8_t& marks) {
  const std::string_view text = field_of(fields, birthdate_column);
  const DateReading date = look_at_date(fields.text[birthdate_column], reading.plan.layout.dates);
  if (date.kind == DateKind::unknown) {
    if ((marks & mark_no_animal) == 0 && !take_lost_date(reading, line)) {
      reading.survey.undated.push_back(reading.animals.count());
    }
    return {};
  }
  count_date(reading, line, date, text);
  if (date.kind == DateKind::unreadable) {
    add(reading.findings, {.code = FindingCode::date_unreadable,
                           .column = reading.plan.column_of[birthdate_column],
                           .line = line.number,
                           .id = line.id,
                           .text = keep(reading.findings, text),
                           .other_text = keep(reading.findings, reading.plan.layout.date_layout.trimmed())});
    return {};
  }
  if (date.kind == DateKind::repaired) {
    report_repair(reading, line, date, text);
    add_mark(marks, mark_year_only);  // what follows from the wrong day is not told again
    if (is_exchanged(fields.text[birthdate_column], reading.plan.layout.dates)) {
      reading.survey.exchanged_dates.push_back(reading.animals.count());
    }
  }
  if (date.kind == DateKind::year_only) {
    reading.survey.dated_by_year.push_back(reading.animals.count());
    add_mark(marks, mark_year_only);
  }
  constexpr std::int32_t february = 2, leap_day = 29;
  const bool is_leap_day = date.date.month == february && date.date.day == leap_day;
  if (is_leap_day && date.date.year > 0 && !has_leap_day(date.date.year)) {
    find(reading, line, FindingCode::leap_day, birthdate_column, text);
  }
  check_year(reading, line, date, text, marks);
  return {date.date.year, date.date.day, static_cast<std::int8_t>(date.date.month)};
}

void count_sex(Reading& reading, const DataLine& line, std::string_view text) {
  FileSurvey& survey = reading.survey;
  const std::string_view lost = text.empty() ? lost_text(line, ExportNoteKind::sex) : std::string_view();
  TextCounts& counts = lost.empty() ? survey.sexes : survey.lost_sexes;
  count_text(counts, lost.empty() ? text : lost, line.number);
  const auto number = counts.left_out > 0 ? 0 : static_cast<std::int32_t>(counts.last) + 1;
  survey.sex_of.entries.back() = lost.empty() ? number : -number;
}

/// Only those of a list of several are told apart.
bool has_subpopulations(const ReadingPlan& plan) {
  return plan.layout.subpopulations.count() > 1;
}

void count_subpopulation(Reading& reading, const DataLine& line, std::string_view text) {
  FileSurvey& survey = reading.survey;
  if (text.empty() || reading.plan.column_of[subpopulation_column] == 0) return;
  const std::int64_t left_out = survey.subpopulations.left_out;
  count_text(survey.subpopulations, text, line.number);
  if (survey.subpopulations.left_out > left_out || !has_subpopulations(reading.plan)) return;
  survey.subpopulation_of.entries.back() = static_cast<std::int32_t>(survey.subpopulations.last) + 1;
}

void count_texts(Reading& reading, const DataLine& line, const LineFields& fields) {
  FileSurvey& survey = reading.survey;
  count_sex(reading, line, field_of(fields, sex_column));
  const auto count_field = [&](TextCounts& counts, FieldCode code) {
    if (reading.plan.column_of[code] == 0) return;
    const std::string_view text = field_of(fields, code);
    if (!text.empty()) count_text(counts, text, line.number);
  };
  count_field(survey.imports, import_column);
  count_subpopulation(reading, line, field_of(fields, subpopulation_column));
  if (reading.plan.counts_names) {
    count_field(survey.colours, colour_column);
    count_field(survey.breeders, breeder_column);
  }
  const std::string_view name = field_of(fields, name_column);
  if (name.size() > name_width) find(reading, line, FindingCode::name_cut, name_column, name);
}

/// Whether a line has nothing but an identification.
bool has_nothing_else(const LineFields& fields) {
  return std::all_of(all_fields.begin(), all_fields.end(),
                     [&](FieldCode code) { return code == id_column || field_of(fields, code).empty(); });
}

void store_animal(Reading& reading, const WaitingLine& waiting, std::uint8_t marks) {
  PedigreeColumns& animals = reading.animals;
  const DataLine& line = waiting.line;
  const LineFields& fields = waiting.fields;
  const bool is_animal = (marks & mark_no_animal) == 0;
  reading.survey.sex_of.add(0);
  if (has_subpopulations(reading.plan)) reading.survey.subpopulation_of.add(0);
  animals.sire.add(is_animal ? take_id(reading, line, waiting, 1) : 0);
  animals.dam.add(is_animal ? take_id(reading, line, waiting, 2) : 0);
  if (is_animal) {
    check_columns(reading, line, fields);
    if (line.id == 0) find(reading, line, FindingCode::id_missing, id_column, {});
    count_texts(reading, line, fields);
    if (!line.notes.empty()) find_parent_names(reading, line, fields);
  }
  if (line.kinds != byte_plain) check_letters(reading, line, fields);
  if (is_animal && has_nothing_else(fields)) add_mark(marks, mark_bare);
  if (!field_of(fields, import_column).empty()) add_mark(marks, mark_import);
  animals.birth.add(take_date(reading, line, fields, marks));
  animals.marks.add(marks);
  const std::string_view sex = fields.text[sex_column];
  animals.sex.add(sex.empty() ? ' ' : sex.front());
  const std::string_view name = field_of(fields, name_column);
  if (name != "-" && animals.name_bytes.size() + name.size() <= UINT32_MAX) {
    animals.name_bytes.insert(animals.name_bytes.end(), name.begin(), name.end());
  }
  animals.name_end.add(static_cast<std::uint32_t>(animals.name_bytes.size()));
}

void take_line(Reading& reading, WaitingLine& waiting) {
  DataLine& line = waiting.line;
  std::uint8_t marks = 0;
  if (waiting.kind != LineKind::animal) {
    const bool is_header = waiting.kind == LineKind::header_again;
    add(reading.findings,
        {.code = is_header ? FindingCode::header_again : FindingCode::no_animal, .line = line.number});
    marks = mark_no_animal;
  }
  line.id = waiting.kind == LineKind::animal ? take_id(reading, line, waiting, 0) : 0;
  reading.animals.id.add(line.id);
  store_animal(reading, waiting, marks);
}

/// Says of a line of the data file where it stands in the export, and what of it got lost. Lines come in their order.
void place_in_export(Reading& reading, DataLine& line, std::int64_t data_line) {
  line.number = static_cast<std::int32_t>(data_line);
  if (reading.plan.export_lines == nullptr) return;
  const ExportLines& origin = *reading.plan.export_lines;
  std::size_t& shift = reading.next_shift;
  while (shift < origin.shifts.size() && origin.shifts[shift].data_line <= data_line) ++shift;
  if (shift > 0) {
    const LineShift& last = origin.shifts[shift - 1];
    line.number = static_cast<std::int32_t>(data_line - last.data_line + last.export_line);
  }
  std::size_t& note = reading.next_note;
  while (note < origin.notes.size() && origin.notes[note].data_line < data_line) ++note;
  const std::size_t first = note;
  while (note < origin.notes.size() && origin.notes[note].data_line == data_line) ++note;
  line.notes = std::span(origin.notes).subspan(first, note - first);
}

/// For every identification the first animal that has it.
void index_animals(PedigreeColumns& animals) {
  animals.animal_of = ByNumber<std::int32_t>(animals.ids.count());
  for (std::int32_t animal = animals.count(); animal >= 1; --animal) {
    animals.animal_of[animals.id.at(animal)] = animal;
  }
  animals.animal_of[0] = 0;
}

/// Some lines in a row.
struct SomeLines {
  std::vector<WaitingLine> lines;
  std::size_t count = 0;

  std::span<WaitingLine> all() { return std::span(lines).first(count); }
};

void cut_waiting(const Reading& reading, std::string_view text, WaitingLine& waiting) {
  waiting.bytes.assign(text);
  DataLine& line = waiting.line;
  line.text = waiting.bytes;
  waiting.fields = cut_line(line.text, reading.plan);
  for (std::size_t k = 0; k < id_fields.size(); ++k) {
    waiting.ids[k] = HashedText(cut_id(field_of(waiting.fields, id_fields[k])));
  }
  waiting.kind = kind_of_line(line.text, waiting.fields, reading.plan);
  line.kinds = kinds_in(line.text, reading.kinds);
}

/// Reads and cuts the next lines; none at the end of the file.
void cut_lines(LineReader& data, Reading& reading, ProgressLine& progress, SomeLines& some) {
  constexpr std::int64_t most_lines = 99'999'999;
  std::string_view text;
  some.count = 0;
  while (some.count < some.lines.size() && !reading.has_too_many_lines && read_line(data, text)) {
    reading.has_too_many_lines = data.line_number > most_lines;
    count_progress(progress, data.line_number);
    if (data.line_number == 1 && reading.plan.first_line_is_header) continue;
    WaitingLine& waiting = some.lines[some.count++];
    place_in_export(reading, waiting.line, data.line_number);
    waiting.line.full_length = data.line_length;
    cut_waiting(reading, text, waiting);
  }
}

/// Takes lines, and has memory fetched for those behind them, one step after the other.
void take_lines(Reading& reading, std::span<WaitingLine> lines) {
  constexpr std::size_t step = look_ahead / 2;
  const TextStore& ids = reading.animals.ids;
  const auto fetch = [&](std::size_t place, auto fetch_id) {
    if (place >= lines.size()) return;
    for (const HashedText& id : lines[place].ids) fetch_id(id.hash);
  };
  for (std::size_t k = 0; k < lines.size(); ++k) {
    fetch(k + 3 * step, [&](std::uint32_t hash) { fetch_slot_early(ids.index, hash); });
    fetch(k + 2 * step, [&](std::uint32_t hash) { fetch_end_early(ids, hash); });
    fetch(k + step, [&](std::uint32_t hash) { fetch_text_early(ids, hash); });
    take_line(reading, lines[k]);
  }
}

/// So many lines are cut at once that beginning a thread is a small part of the work; on one thread so few that they
/// stay in a near cache.
constexpr std::size_t lines_of_threads = 4096, lines_of_one = 256;

}  // namespace

bool read_animals(FileToRead file, const ReadingPlan& plan, PedigreeColumns& animals, FileSurvey& survey,
                  Findings& findings) {
  Reading reading = {plan, animals, survey, findings, byte_kinds(plan.layout.delimiter), 0, 0, false};
  const bool leaves_out_last = plan.header_line.empty() && !plan.first_line_is_header;
  if (plan.export_lines != nullptr) animals.shifts = plan.export_lines->shifts;
  animals.first_line = plan.first_line_is_header ? 2 : 1;
  SomeLines cut, next;
  for (SomeLines* const each : {&cut, &next}) each->lines.resize(file.threads > 1 ? lines_of_threads : lines_of_one);
  cut_lines(file.data, reading, file.progress, cut);
  while (cut.count > 0) {
    const std::span<WaitingLine> all = cut.all();
    const std::array<Task, 2> tasks = {[&] { take_lines(reading, all.first(all.size() - 1)); },
                                       [&] { cut_lines(file.data, reading, file.progress, next); }};
    do_side_by_side(tasks, file.threads);
    if (reading.has_too_many_lines) return false;
    const bool is_last = next.count == 0;
    if (!is_last || !leaves_out_last) {
      take_lines(reading, all.last(1));
    } else if (!without_trailing_blanks(all.back().line.text).empty()) {
      add(findings, {.code = FindingCode::last_line, .line = all.back().line.number});
    }
    std::swap(cut, next);
  }
  index_animals(animals);
  return true;
}

}  // namespace pedigreewatch
