// What should be looked at, and what is changed on the way; and how all remarks are put together.

#include <algorithm>

#include "intake/export_remarks.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_listed_letters = 20;
constexpr std::size_t most_listed_shifts = 50;

void remark_letters(const ExportSurvey& survey, std::vector<Remark>& remarks) {
  const auto& replaced = survey.letters.replaced;
  const std::size_t count = std::min(replaced.size(), most_listed_letters);
  if (count > 0) {
    remarks.push_back({RemarkKind::letters_replaced,
                       {LetterList{{replaced.begin(), replaced.begin() + static_cast<std::ptrdiff_t>(count)},
                                   static_cast<std::int64_t>(replaced.size() - count)}}});
  }
  remark_count(RemarkKind::letters_invisible, survey.letters.invisible, remarks);
}

void remark_shifts(const ExportSurvey& survey, const std::string& stem, std::vector<Remark>& remarks) {
  const std::size_t count = survey.shifts.size();
  if (count == 0) return;
  remarks.push_back({RemarkKind::lines_shifted, {}});
  for (std::size_t i = 0; i < std::min(count, most_listed_shifts); ++i) {
    const LineShift& shift = survey.shifts[i];
    remarks.push_back({RemarkKind::line_shifted, {shift.export_line, shift.data_line, stem + ".txt"}});
  }
  if (count <= most_listed_shifts) return;
  remarks.push_back({RemarkKind::further_shifts,
                     {static_cast<std::int64_t>(count - most_listed_shifts), survey.shifts.back().export_line,
                      survey.shifts.back().data_line}});
}

void remark_cut_texts(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  for (const FieldCode code : written_fields()) {
    const NotedTexts& noted = survey.too_long[code];
    if (noted.count == 0 || !is_in_use(plan, code)) continue;
    remarks.push_back({RemarkKind::texts_cut, {static_cast<std::int64_t>(width_of(code)), code, noted.count, noted}});
  }
}

}  // namespace

void add_repair_remarks(const Preparation& read, const PrepareOptions& options, std::vector<Remark>& remarks) {
  const ExportSurvey& survey = read.survey;
  const NotedTexts& other_counts = survey.other_field_counts;
  if (other_counts.count > 0) {
    remarks.push_back(
        {RemarkKind::column_counts_differ, {other_counts.count, std::ssize(read.plan.columns.headings), other_counts}});
  }
  remark_noted(RemarkKind::lines_no_animals, survey.remark_lines, remarks);
  remark_noted(RemarkKind::headers_again, survey.headers_again, remarks);
  remark_noted(RemarkKind::quotes_bad, survey.bad_quotes, remarks);
  if (is_in_use(read.plan, id_column)) remark_noted(RemarkKind::ids_missing, survey.without_id, remarks);
  remark_noted(RemarkKind::ids_odd, survey.odd_ids, remarks);
  if (!survey.unknown_ids.texts.empty()) {
    remarks.push_back(
        {RemarkKind::ids_unknown, {list_counted(survey.unknown_ids, [](const CountedText&) { return true; })}});
  }
  const IdSubstitutes& substitutes = survey.id_substitutes;
  if (!substitutes.ids.empty()) {
    remarks.push_back(
        {RemarkKind::ids_with_rules, {*options.ids, std::ssize(substitutes.ids), IdPairList{substitutes.examples}}});
  }
  if (read.plan.leaves_out_thousands_signs) {
    std::int64_t count = 0;
    for (const NumberForms& forms : survey.numbers) count += forms.of_thousands;
    remark_count(RemarkKind::ids_of_thousands, count, remarks);
  }
  remark_cut_texts(survey, read.plan, remarks);
  remark_letters(survey, remarks);
  remark_count(RemarkKind::blanks_removed, survey.leading_blanks, remarks);
  remark_count(RemarkKind::quotes_removed, survey.quoted_records, remarks);
  remark_count(RemarkKind::sheet_marks_removed, survey.sheet_marks, remarks);
  remark_count(RemarkKind::blank_lines_removed, survey.blank_lines, remarks);
  // Of several animals a line each moves those below it: NAME.lines has them all.
  if (read.plan.columns.animals_of_line.empty()) remark_shifts(survey, read.plan.stem, remarks);
}

std::vector<Remark> remarks_on(const Preparation& read, const PrepareOptions& options) {
  std::vector<Remark> remarks;
  add_reading_remarks(read, options, remarks);
  add_content_remarks(read, remarks);
  add_repair_remarks(read, options, remarks);
  return remarks;
}

void remark_noted(RemarkKind kind, const NotedTexts& noted, std::vector<Remark>& remarks) {
  if (noted.count > 0) remarks.push_back({kind, {noted.count, noted}});
}

void remark_count(RemarkKind kind, std::int64_t count, std::vector<Remark>& remarks) {
  if (count > 0) remarks.push_back({kind, {count}});
}

bool is_in_use(const PreparePlan& plan, FieldCode code) {
  return plan.columns.place[code].has_value();
}

}  // namespace pedigreewatch
