// The third paragraph: what stands in the columns, and how it is understood.

#include <algorithm>

#include "intake/findings.h"

namespace pedigreewatch {
namespace {

constexpr Wording unknown_found = {"Unknown       parents written as: {1}", "Onbekend      ouders geschreven als: {1}"};
constexpr Wording unknown_is_animal = {
    "              {1} is the id of an animal and stays a parent; if it means unknown: --unknown {1}",
    "              {1} is het id van een dier en blijft een ouder; als het onbekend betekent: --unknown {1}"};
constexpr Wording dates_written = {"Dates         written as {1}", "Datums        geschreven als {1}"};
constexpr Wording sexes_found = {"Sexes         male: {1}; female: {2}",
                                 "Geslacht      mannelijk: {1}; vrouwelijk: {2}"};
constexpr Wording sexes_unknown = {"              unknown, count as female in the report: {1}",
                                   "              onbekend, tellen als vrouwelijk in het rapport: {1}"};
constexpr Wording imports_found = {"Imports       {1}; text that means none: {2}",
                                   "Import        {1}; tekst die geen import betekent: {2}"};
constexpr Wording names_found = {"{1}{2}: {3}", "{1}{2}: {3}"};
constexpr Wording not_listed = {"              not listed: {1}", "              niet op de lijst: {1}"};
constexpr Wording subpopulations_label = {"Subpopulations ", "Subpopulaties "};
constexpr Wording colours_label = {"Colours       ", "Kleuren       "};
constexpr Wording species_found = {"Species       {1}", "Diersoort     {1}"};

constexpr Wording dates_in_order = {
    "              as {2}: {1}; {3} of them fit no other order, {4} would fit {5} too",
    "              als {2}: {1}; {3} daarvan passen in geen andere volgorde, {4} ook in {5}"};
constexpr Wording dates_compact = {"              of eight digits, as {2}: {1}",
                                   "              van acht cijfers, als {2}: {1}"};
constexpr Wording dates_named = {"              with the month as a word: {1}",
                                 "              met de maand als woord: {1}"};
constexpr Wording dates_year_only = {"              of a year only: {1}", "              met alleen een jaar: {1}"};
constexpr Wording dates_month_only = {"              of month and year only (written with day 00): {1}",
                                      "              met alleen maand en jaar (geschreven met dag 00): {1}"};
constexpr Wording dates_timed = {"              with a time of day, which is left out: {1}",
                                 "              met een tijd erbij, die wordt weggelaten: {1}"};
constexpr Wording dates_empty = {"              unknown: {1}", "              onbekend: {1}"};
constexpr Wording dates_short = {
    "              kept as they are, with a year of two digits (to the program 05 is the year 5): {1}: {2}",
    "              onveranderd, met een jaar van twee cijfers (voor het programma is 05 het jaar 5): {1}: {2}"};
constexpr Wording dates_unreadable = {"              kept as they are, because they cannot be read: {1}: {2}",
                                      "              onveranderd, omdat ze niet te lezen zijn: {1}: {2}"};
constexpr Wording dates_impossible = {"              kept as they are, because there is no such day: {1}: {2}",
                                      "              onveranderd, omdat die dag niet bestaat: {1}: {2}"};

void show_order(const OrderCounts& counts, DateOrder order, DateOrder other, ToolLanguage language,
                TextOutput& console) {
  if (counts.total == 0) return;
  const bool is_dutch = language == ToolLanguage::dutch;
  say(console, dates_in_order, language,
      {text_of(counts.total), layout_text(order, is_dutch), text_of(counts.only[static_cast<std::size_t>(order)]),
       text_of(counts.either), layout_text(other, is_dutch)});
  show_noted(dates_impossible, counts.neither, language, console);
}

void show_dates(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  const DateSurvey& dates = survey.dates;
  const ToolLanguage language = plan.language;
  const bool is_dutch = language == ToolLanguage::dutch;
  const bool is_iso = plan.dates.year_first == DateOrder::year_month_day;
  const bool is_day_first = plan.dates.year_last == DateOrder::day_month_year;
  say(console, dates_written, language, {layout_text(plan.dates.written, is_dutch)});
  show_order(dates.year_first, plan.dates.year_first, is_iso ? DateOrder::year_day_month : DateOrder::year_month_day,
             language, console);
  show_order(dates.year_last, plan.dates.year_last,
             is_day_first ? DateOrder::month_day_year : DateOrder::day_month_year, language, console);
  if (plan.dates.compact) {
    say(console, dates_compact, language, {text_of(dates.compact.total), layout_text(*plan.dates.compact, is_dutch)});
  }
  show_noted(dates_impossible, dates.compact.neither, language, console);
  show_count(dates_named, dates.named, language, console);
  show_count(dates_year_only, dates.year_only, language, console);
  show_count(dates_month_only, dates.month_only, language, console);
  show_count(dates_timed, dates.with_time, language, console);
  if (dates.empty > 0) {
    const std::string list = list_counted(survey.date_words, language, [](const CountedText&) { return true; });
    say(console, dates_empty, language, {list});
  }
  show_noted(dates_short, dates.short_years, language, console);
  show_noted(dates_unreadable, dates.unreadable, language, console);
}

void show_sexes(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  const auto list = [&](SexMeaning wanted) {
    return list_counted(survey.sexes, plan.language, [&](const CountedText& entry) {
      return plan.sexes[find_counted(survey.sexes, entry.text)] == wanted;
    });
  };
  say(console, sexes_found, plan.language, {list(SexMeaning::male), list(SexMeaning::female)});
  const bool has_unknown = std::find(plan.sexes.begin(), plan.sexes.end(), SexMeaning::unknown) != plan.sexes.end();
  if (has_unknown) say(console, sexes_unknown, plan.language, {list(SexMeaning::unknown)});
}

void show_unknown_parents(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  const auto is_unknown = [&](const CountedText& entry) { return is_unknown_parent(plan, entry.text); };
  say(console, unknown_found, plan.language, {list_counted(survey.unknown_parents, plan.language, is_unknown)});
  for (const CountedText& entry : survey.unknown_parents.texts) {
    if (!is_unknown(entry)) say(console, unknown_is_animal, plan.language, {in_quotes(entry.text)});
  }
}

void show_names(const Wording& label, FieldCode code, const TextCounts& counts, const std::vector<std::string>& names,
                const PreparePlan& plan, TextOutput& console) {
  if (!is_in_use(plan, code)) return;
  const auto is_listed = [&](const CountedText& entry) {
    std::string written;
    LetterCounts ignored;
    append_field_text(written, entry.text, code, ignored);
    return std::find(names.begin(), names.end(), written) != names.end();
  };
  const auto is_left_out = [&](const CountedText& entry) { return !is_listed(entry); };
  say(console, names_found, plan.language,
      {words_of(label, plan.language), std::to_string(names.size()), list_counted(counts, plan.language, is_listed)});
  if (std::any_of(counts.texts.begin(), counts.texts.end(), is_left_out)) {
    say(console, not_listed, plan.language, {list_counted(counts, plan.language, is_left_out)});
  }
}

void show_imports(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  if (!is_in_use(plan, import_column)) return;
  std::int64_t imports = survey.imports.left_out;
  for (const CountedText& entry : survey.imports.texts) imports += means_no_import(entry.text) ? 0 : entry.count;
  const auto is_none = [](const CountedText& entry) { return means_no_import(entry.text); };
  say(console, imports_found, plan.language, {text_of(imports), list_counted(survey.imports, plan.language, is_none)});
}

}  // namespace

void show_contents(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  if (is_in_use(plan, sire_column) || is_in_use(plan, dam_column)) show_unknown_parents(survey, plan, console);
  if (is_in_use(plan, birthdate_column)) show_dates(survey, plan, console);
  if (is_in_use(plan, sex_column)) show_sexes(survey, plan, console);
  show_names(subpopulations_label, subpopulation_column, survey.subpopulations, plan.subpopulations, plan, console);
  show_names(colours_label, colour_column, survey.colours, plan.colours, plan, console);
  show_imports(survey, plan, console);
  if (!plan.species.empty()) say(console, species_found, plan.language, {plan.species});
}

}  // namespace pedigreewatch
