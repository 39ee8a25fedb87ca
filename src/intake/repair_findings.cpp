// The last paragraph: what should be looked at, and what is changed on the way.

#include <algorithm>

#include "intake/findings.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr Wording counts_differ = {
    "Look at this: lines with more or fewer columns than the {2} of the first line; what they hold may stand in the "
    "wrong column: {1}: {3}",
    "Let op: regels met meer of minder kolommen dan de {2} van de eerste regel; wat erin staat kan in de verkeerde "
    "kolom staan: {1}: {3}"};
constexpr Wording quotes_bad = {"Look at this: lines with text behind a closing quotation mark: {1}: {2}",
                                "Let op: regels met tekst achter een sluitend aanhalingsteken: {1}: {2}"};
constexpr Wording ids_missing = {"Look at this: animals without id: {1}: {2}", "Let op: dieren zonder id: {1}: {2}"};
constexpr Wording ids_unknown = {"Look at this: ids that mean unknown: {1}", "Let op: ids die onbekend betekenen: {1}"};
constexpr Wording texts_cut = {"Cut to {1} letters: {2} ({3}): {4}", "Afgekapt op {1} letters: {2} ({3}): {4}"};
constexpr Wording letters_replaced = {"Letters that the report does not have: {1}",
                                      "Letters die het rapport niet heeft: {1}"};
constexpr Wording letters_invisible = {
    "Invisible signs (no-break spaces, tabs, line ends inside a text) became blanks or were left out: {1}",
    "Onzichtbare tekens (vaste spaties, tabs, regeleinden in een tekst) zijn spaties geworden of weggelaten: {1}"};
constexpr Wording blanks_removed = {"Blanks before a text, which were left out: {1}",
                                    "Spaties voor een tekst, die zijn weggelaten: {1}"};
constexpr Wording quotes_removed = {"Lines with quotation marks around texts, which were left out: {1}",
                                    "Regels met aanhalingstekens om teksten, die zijn weggelaten: {1}"};
constexpr Wording blank_lines_removed = {"Lines without an animal were left out: {1}",
                                         "Regels zonder dier zijn weggelaten: {1}"};
constexpr Wording shift_title = {
    "Because of blank lines, or line ends inside quotation marks, lines have other numbers:",
    "Door lege regels, of regeleinden binnen aanhalingstekens, hebben regels een ander nummer:"};
constexpr Wording shift_line = {"  from line {1} of the export on: line {2} of {3}.txt",
                                "  vanaf regel {1} van de export: regel {2} van {3}.txt"};
constexpr Wording shifts_left_out = {
    "  and so on, {1} more such places; in the last line {2} of the export is line {3}",
    "  enzovoort, nog {1} plaatsen; op de laatste is regel {2} van de export regel {3}"};

void show_letters(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  constexpr std::size_t most_shown = 20;
  std::string list;
  std::size_t count = 0;
  for (const ReplacedLetter& entry : survey.letters.replaced) {
    if (++count > most_shown) continue;
    if (!list.empty()) list += ", ";
    std::string letter;
    append_letter(letter, entry.letter);
    list += shown(letter) + " -> " + std::string(entry.written) + " (" + text_of(entry.count) + ")";
  }
  if (count > most_shown) list += more_text(static_cast<std::int64_t>(count - most_shown), plan.language);
  if (count > 0) say(console, letters_replaced, plan.language, {list});
}

void show_shifts(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  constexpr std::size_t most_shown = 50;
  const std::size_t count = survey.shifts.size();
  if (count == 0) return;
  say(console, shift_title, plan.language);
  for (std::size_t i = 0; i < std::min(count, most_shown); ++i) {
    const LineShift& shift = survey.shifts[i];
    say(console, shift_line, plan.language, {text_of(shift.export_line), text_of(shift.data_line), plan.stem});
  }
  if (count <= most_shown) return;
  const LineShift& last = survey.shifts.back();
  say(console, shifts_left_out, plan.language,
      {std::to_string(count - most_shown), text_of(last.export_line), text_of(last.data_line)});
}

void show_cut_texts(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  for (const FieldCode code : written_fields()) {
    const NotedTexts& noted = survey.too_long[static_cast<std::size_t>(code)];
    if (noted.count == 0 || !is_in_use(plan, code)) continue;
    say(console, texts_cut, plan.language,
        {std::to_string(width_of(code)), description_of(code, plan.language), text_of(noted.count),
         list_noted(noted, plan.language)});
  }
}

}  // namespace

void show_repairs(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  if (survey.other_field_counts.count > 0) {
    say(console, counts_differ, plan.language,
        {text_of(survey.other_field_counts.count), std::to_string(plan.columns.headings.size()),
         list_noted(survey.other_field_counts, plan.language)});
  }
  show_noted(quotes_bad, survey.bad_quotes, plan.language, console);
  if (is_in_use(plan, id_column)) show_noted(ids_missing, survey.without_id, plan.language, console);
  if (!survey.unknown_ids.texts.empty()) {
    const std::string list = list_counted(survey.unknown_ids, plan.language, [](const CountedText&) { return true; });
    say(console, ids_unknown, plan.language, {list});
  }
  show_cut_texts(survey, plan, console);
  show_letters(survey, plan, console);
  show_count(letters_invisible, survey.letters.invisible, plan.language, console);
  show_count(blanks_removed, survey.leading_blanks, plan.language, console);
  show_count(quotes_removed, survey.quoted_records, plan.language, console);
  show_count(blank_lines_removed, survey.blank_lines, plan.language, console);
  show_shifts(survey, plan, console);
}

}  // namespace pedigreewatch
