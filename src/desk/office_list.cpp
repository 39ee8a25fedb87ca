#include "desk/office_list.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "intake/typed_date.h"
#include "sheets/workbook_writer.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr Wording sheet_name = {"corrections", "correcties"};
constexpr auto headings =
    std::to_array<Wording>({{"Id", "Id"}, {"Field", "Veld"}, {"Was", "Was"}, {"Becomes", "Wordt"}, {"Why", "Waarom"}});
constexpr Wording leave_out_words = {"leave out", "weglaten"};
constexpr Wording same_as_words = {"same animal as", "hetzelfde dier als"};

/// Takes the digits off the front, without leading zeros.
std::string_view take_number(std::string_view& text) {
  const auto end = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), is_digit) - text.begin());
  std::string_view digits = text.substr(0, end);
  text.remove_prefix(end);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

std::string_view words_of_field(const Correction& correction, ToolLanguage language) {
  if (correction.kind == CorrectionKind::leave_out) return words_of(leave_out_words, language);
  if (correction.kind == CorrectionKind::same_as) return words_of(same_as_words, language);
  return description_of(correction.field, language);
}

/// The text of a field as people type it: a day, not its number.
std::string for_people(const Desk& desk, const Correction& correction, const std::string& text) {
  const bool is_date = correction.kind == CorrectionKind::value && correction.field == birthdate_column;
  const std::string day = is_date ? day_shown(text, desk.preparation.plan.dates) : std::string();
  return day.empty() ? text : day;
}

/// Those that are applied, by animal.
std::vector<const Correction*> list_due(const Desk& desk) {
  std::vector<const Correction*> due;
  const std::vector<CorrectionOutcome>& outcomes = desk.preparation.corrections;
  for (std::size_t k = 0; k < std::min(desk.corrections.size(), outcomes.size()); ++k) {
    if (outcomes[k].fate == CorrectionFate::applied) due.push_back(&desk.corrections[k]);
  }
  std::stable_sort(due.begin(), due.end(),
                   [](const Correction* one, const Correction* other) { return stands_before(one->id, other->id); });
  return due;
}

}  // namespace

bool stands_before(std::string_view one, std::string_view other) {
  std::string_view a = one, b = other;
  while (!a.empty() && !b.empty()) {
    if (is_digit(a.front()) && is_digit(b.front())) {
      const std::string_view number = take_number(a), second = take_number(b);
      if (number.size() != second.size()) return number.size() < second.size();
      if (number != second) return number < second;
    } else {
      if (a.front() != b.front()) return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front());
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.empty() != b.empty()) return a.empty();
  return one < other;  // they differ in leading zeros at most
}

std::string office_workbook(const Desk& desk) {
  if (!desk.has_export) return {};
  WorkbookWriter workbook;
  begin_sheet(workbook, words_of(sheet_name, desk.language));
  for (const Wording& heading : headings) add_text_cell(workbook, words_of(heading, desk.language));
  end_sheet_row(workbook);
  for (const Correction* const correction : list_due(desk)) {
    const std::string field(words_of_field(*correction, desk.language));
    for (const std::string& cell : {correction->id, field, for_people(desk, *correction, correction->was),
                                    for_people(desk, *correction, correction->becomes), correction->why}) {
      add_text_cell(workbook, cell);
    }
    end_sheet_row(workbook);
  }
  end_sheet(workbook);
  return finish_workbook(workbook) ? std::move(workbook.zip.bytes) : std::string();
}

}  // namespace pedigreewatch
