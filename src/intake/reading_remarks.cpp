// How the file is read, and its columns.

#include <algorithm>

#include "intake/export_remarks.h"
#include "intake/parent_names.h"

namespace pedigreewatch {
namespace {

constexpr RemarkKind kind_of_encoding(bool has_mark, bool has_letters) {
  if (has_mark && has_letters) return RemarkKind::encoding_by_mark_and_letters;
  if (has_mark) return RemarkKind::encoding_by_mark;
  return has_letters ? RemarkKind::encoding_by_letters : RemarkKind::encoding_found;
}

void remark_encoding(const ReadingEvidence& reading, const PrepareOptions& options, std::vector<Remark>& remarks) {
  const Encoding encoding = reading.used_encoding;
  if (encoding == Encoding::plain) {
    remarks.push_back({RemarkKind::encoding_plain, {}});
  } else if (options.encoding) {
    remarks.push_back({RemarkKind::encoding_wished, {encoding}});
  } else {
    // Those that are no UTF-8 are letters of an encoding of one byte a letter.
    const std::int64_t letters =
        encoding == Encoding::utf_8 ? reading.encoding.utf_8_letters : reading.encoding.other_bytes;
    Values values = {encoding};
    if (letters > 0) values.insert(values.end(), {letters, reading.letter_example});
    remarks.push_back({kind_of_encoding(reading.encoding.has_mark, letters > 0), std::move(values)});
  }
  remark_count(RemarkKind::bytes_mended, reading.mended_bytes, remarks);
  if (reading.doubled_letters > 0) {
    const RemarkKind kind = reading.are_doubled_mended ? RemarkKind::letters_undoubled : RemarkKind::letters_doubled;
    remarks.push_back({kind, {reading.doubled_letters, IdPairList{reading.doubled_words}}});
  }
  remark_count(RemarkKind::letters_broken, reading.broken_letters, remarks);
  if (reading.ends_in_half_letter) remarks.push_back({RemarkKind::half_letter, {}});
}

void remark_cells(RemarkKind kind, const NotedCells& noted, std::vector<Remark>& remarks) {
  if (noted.count > 0) remarks.push_back({kind, {noted.count, noted}});
}

void remark_sheet(const ReadingEvidence& reading, std::vector<Remark>& remarks) {
  const SheetTable& sheet = *reading.sheet;
  remarks.push_back({RemarkKind::sheet_read, {sheet.sheet, std::ssize(reading.sheet_names)}});
  remark_cells(RemarkKind::cells_with_errors, sheet.errors, remarks);
  remark_cells(RemarkKind::formulas_without_value, sheet.uncomputed, remarks);
  remark_cells(RemarkKind::dates_without_day, sheet.odd_dates, remarks);
  remark_cells(RemarkKind::cells_merged, sheet.merged, remarks);
  remark_cells(RemarkKind::rows_hidden, sheet.hidden_rows, remarks);
  remark_cells(RemarkKind::columns_hidden, sheet.hidden_columns, remarks);
}

void remark_delimiter(const ReadingEvidence& reading, const PrepareOptions& options, std::vector<Remark>& remarks) {
  const Delimiter delimiter = {reading.delimiter};
  if (options.delimiter) return remarks.push_back({RemarkKind::delimiter_wished, {delimiter}});
  const DelimiterEvidence& evidence = reading.delimiter_evidence;
  remarks.push_back(
      {RemarkKind::delimiter_found,
       {delimiter, evidence.agreeing_count, evidence.record_count, static_cast<std::int64_t>(evidence.field_count)}});
}

void remark_columns(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  const ColumnChoice& columns = plan.columns;
  remarks.push_back({RemarkKind::columns_counted, {std::ssize(columns.headings)}});
  for (const FieldCode code : written_fields()) {
    const auto& place = columns.place[code];
    if (!place) continue;
    remarks.push_back({RemarkKind::column_used,
                       {static_cast<std::int64_t>(*place) + 1, columns.has_header ? columns.headings[*place] : "-",
                        code, survey.filled[code]}});
  }
  for (const FieldCode code : written_fields()) {
    if (!columns.place[code] || !columns.is_by_content[code]) continue;
    const std::size_t place = *columns.place[code];
    remarks.push_back({RemarkKind::column_by_content, {list_columns(std::span(&place, 1), columns), code}});
  }
  for (const FieldCode code : written_fields()) {
    std::vector<std::size_t> further = columns.further[code];
    std::erase_if(further, [&](std::size_t place) { return holds_field(columns, place); });
    const ColumnList list = list_columns(further, columns);
    const bool is_young = code == id_column && !columns.animals_of_line.empty();
    if (!list.columns.empty() && !is_young) remarks.push_back({RemarkKind::column_possible, {code, list}});
  }
}

/// Whether what stands in a column is made use of as more than the name of a parent.
bool is_made_use_of(const PreparePlan& plan, std::size_t place) {
  const ColumnChoice& columns = plan.columns;
  const auto moves = [&](const FieldMove& move) { return move.from == place || move.to == place; };
  const auto is_of_young = [&](const LineAnimal& animal) { return std::any_of(animal.begin(), animal.end(), moves); };
  return holds_field(columns, place) ||
         std::any_of(columns.animals_of_line.begin(), columns.animals_of_line.end(), is_of_young) ||
         std::any_of(plan.availability.columns.begin(), plan.availability.columns.end(),
                     [&](const AvailabilityReading& column) { return column.place == place; });
}

/// Names what the export has besides, so that a column that counts is missed here.
void remark_unused_columns(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  constexpr std::size_t most_named = 100;
  CountedList unused;
  std::int64_t empty = 0;
  const auto names = parent_name_places(plan.columns);
  for (std::size_t place = 0; place < plan.columns.headings.size(); ++place) {
    if (names[0] == place || names[1] == place || is_made_use_of(plan, place)) continue;
    const std::int64_t texts = place < survey.column_texts.size() ? survey.column_texts[place] : 0;
    const bool has_heading = plan.columns.has_header && !plan.columns.headings[place].empty();
    if (texts == 0) {
      ++empty;
    } else if (unused.texts.size() == most_named) {
      ++unused.more;
    } else {
      unused.texts.push_back({has_heading ? plan.columns.headings[place] : std::to_string(place + 1), texts, 0});
    }
  }
  if (!unused.texts.empty()) remarks.push_back({RemarkKind::columns_unused, {std::move(unused)}});
  remark_count(RemarkKind::columns_empty, empty, remarks);
}

void remark_young(const ExportSurvey& survey, const ColumnChoice& columns, std::vector<Remark>& remarks) {
  if (columns.animals_of_line.empty()) return;
  std::vector<std::size_t> ids;
  for (const LineAnimal& animal : columns.animals_of_line) ids.push_back(animal.front().from);
  remarks.push_back(
      {RemarkKind::young_found, {list_columns(ids, columns), survey.lines_with_animals, survey.animal_count}});
  remark_noted(RemarkKind::young_stillborn, survey.stillborn, remarks);
}

/// Remarks on the parents of one sex, the second kind where only a sample of them was looked at.
void remark_links(const ParentLinks& links, LinkRole role, RemarkKind all, RemarkKind sample,
                  std::vector<Remark>& remarks) {
  const LinkCount count = count_links(links, role);
  remarks.push_back({is_exact(links) ? all : sample, {count.parents, count.with_line}});
  if (count.parents > 0 && count.with_line == 0) remarks.push_back({RemarkKind::parents_without_line, {}});
}

void remark_answers(const SavedAnswers& answers, std::vector<Remark>& remarks) {
  if (answers.file.empty()) return;
  remarks.push_back({RemarkKind::answers_used, {answers.file}});
  for (const AnswerLine& line : answers.unfit) {
    remarks.push_back({RemarkKind::answer_unfit, {line.line, line.option + " " + line.value}});
  }
}

}  // namespace

void add_reading_remarks(const Preparation& read, const PrepareOptions& options, std::vector<Remark>& remarks) {
  const ExportSurvey& survey = read.survey;
  remarks.push_back({RemarkKind::export_read, {options.export_name, survey.last_line}});
  remark_answers(read.answers, remarks);
  if (read.reading.sheet) {
    remark_sheet(read.reading, remarks);
  } else {
    remark_encoding(read.reading, options, remarks);
    remark_delimiter(read.reading, options, remarks);
  }
  if (read.plan.columns.has_header) {
    remarks.push_back({RemarkKind::header_found, {survey.header_line}});
  } else {
    remarks.push_back({RemarkKind::header_absent, {}});
  }
  remark_noted(RemarkKind::lines_above, read.plan.columns.table.above, remarks);
  remarks.push_back({RemarkKind::animals_found, {survey.animal_count}});
  remark_columns(survey, read.plan, remarks);
  remark_unused_columns(survey, read.plan, remarks);
  remark_young(survey, read.plan.columns, remarks);
  if (is_in_use(read.plan, sire_column)) {
    remark_links(survey.links, sire_role, RemarkKind::fathers_linked, RemarkKind::fathers_linked_in_sample, remarks);
  }
  if (is_in_use(read.plan, dam_column)) {
    remark_links(survey.links, dam_role, RemarkKind::mothers_linked, RemarkKind::mothers_linked_in_sample, remarks);
  }
}

}  // namespace pedigreewatch
