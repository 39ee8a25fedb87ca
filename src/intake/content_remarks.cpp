// What stands in the columns, and how it is understood.

#include <algorithm>
#include <span>
#include <unordered_set>

#include "intake/export_remarks.h"
#include "intake/name_choice.h"

namespace pedigreewatch {
namespace {

bool is_any(const CountedText& /*entry*/) {
  return true;
}

void remark_order(const OrderCounts& counts, DateOrder order, DateOrder other, std::vector<Remark>& remarks) {
  if (counts.total == 0) return;
  remarks.push_back({RemarkKind::dates_in_order,
                     {counts.total, order, counts.only[static_cast<std::size_t>(order)], counts.either, other}});
  remark_noted(RemarkKind::dates_impossible, counts.neither, remarks);
}

void remark_exchanged(const ExchangedDates& dates, DateOrder other, std::vector<Remark>& remarks) {
  if (dates.impossible.count == 0) return;
  remarks.push_back({RemarkKind::dates_exchanged, {dates.impossible.count, dates.impossible, other}});
  remark_noted(RemarkKind::dates_doubtful, dates.doubtful, remarks);
}

void remark_short_dates(const DateSurvey& dates, const DatePlan& plan, std::vector<Remark>& remarks) {
  const NotedTexts& noted = dates.short_dates.noted;
  if (noted.count > 0 && plan.short_years) {
    remarks.push_back({RemarkKind::dates_short,
                       {noted.count, std::int64_t{plan.short_years->first}, std::int64_t{plan.short_years->last}}});
  } else {
    remark_noted(RemarkKind::dates_short_open, noted, remarks);
  }
}

void remark_serials(const DateSurvey& dates, const DatePlan& plan, std::vector<Remark>& remarks) {
  if (dates.serials.noted.count == 0 || plan.are_serials_open) return;
  const std::int64_t start = plan.serials == DateSystem::since_1900 ? 1900 : 1904;
  remarks.push_back({RemarkKind::dates_serial, {dates.serials.noted.count, start}});
}

void remark_dates(const ExportSurvey& survey, const DatePlan& plan, std::vector<Remark>& remarks) {
  const DateSurvey& dates = survey.dates;
  const bool is_iso = plan.year_first == DateOrder::year_month_day;
  const bool is_day_first = plan.year_last == DateOrder::day_month_year;
  remarks.push_back({RemarkKind::dates_written, {plan.written}});
  const DateOrder other_first = is_iso ? DateOrder::year_day_month : DateOrder::year_month_day;
  const DateOrder other_last = is_day_first ? DateOrder::month_day_year : DateOrder::day_month_year;
  remark_order(dates.year_first, plan.year_first, other_first, remarks);
  if (!plan.is_ambiguous) remark_exchanged(exchanged_year_first(dates, plan), other_first, remarks);
  remark_order(dates.year_last, plan.year_last, other_last, remarks);
  if (!plan.is_ambiguous) remark_exchanged(exchanged_year_last(dates, plan), other_last, remarks);
  if (plan.compact) remarks.push_back({RemarkKind::dates_compact, {dates.compact.total, *plan.compact}});
  remark_noted(RemarkKind::dates_impossible, unfit_compact(dates, plan), remarks);
  remark_noted(RemarkKind::dates_impossible, unfit_short(dates, plan), remarks);
  remark_count(RemarkKind::dates_named, dates.named, remarks);
  remark_count(RemarkKind::dates_year_only, dates.year_only, remarks);
  remark_count(RemarkKind::dates_month_only, dates.month_only, remarks);
  remark_count(RemarkKind::dates_timed, dates.with_time, remarks);
  remark_count(RemarkKind::dates_rough, dates.rough, remarks);
  remark_serials(dates, plan, remarks);
  if (dates.empty > 0) remarks.push_back({RemarkKind::dates_empty, {list_counted(survey.date_words, is_any)}});
  remark_short_dates(dates, plan, remarks);
  remark_noted(RemarkKind::dates_unreadable, dates.unreadable, remarks);
}

void remark_sexes(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  const auto list = [&](SexMeaning wanted) {
    return list_counted(survey.sexes, [&](const CountedText& entry) {
      return plan.sexes[find_counted(survey.sexes, entry.text)] == wanted;
    });
  };
  remarks.push_back({RemarkKind::sexes_found, {list(SexMeaning::male), list(SexMeaning::female)}});
  CountedList unknown = list(SexMeaning::unknown);
  // Those that the parents tell, and those that not even they tell, are said by themselves.
  const ConcludedSexes& sexes = plan.concluded_sexes;
  for (CountedText& entry : unknown.texts) {
    if (entry.text.empty()) entry.count -= sexes.males + sexes.females + sexes.contradicted + sexes.unknown;
  }
  std::erase_if(unknown.texts, [](const CountedText& entry) { return entry.count <= 0; });
  if (!unknown.texts.empty()) remarks.push_back({RemarkKind::sexes_unknown, {unknown}});
}

void remark_unknown_parents(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  const auto is_unknown = [&](const CountedText& entry) { return is_unknown_parent(plan, entry.text); };
  remarks.push_back({RemarkKind::unknown_parents, {list_counted(survey.unknown_parents, is_unknown)}});
  for (const CountedText& entry : survey.unknown_parents.texts) {
    if (!is_unknown(entry)) remarks.push_back({RemarkKind::unknown_is_animal, {entry.text}});
  }
  remark_noted(RemarkKind::fathers_named_only, survey.names_without_id[0], remarks);
  remark_noted(RemarkKind::mothers_named_only, survey.names_without_id[1], remarks);
}

/// Which texts of a column are in the steer file's list, as the data file has them.
struct ListedTexts {
  std::unordered_set<std::string> names;
  FieldCode code;

  bool has(const CountedText& entry) const {
    std::string written;
    LetterCounts ignored;
    append_field_text(written, entry.text, code, ignored);
    return names.contains(written);
  }
};

/// Names that the user lists and no animal has: misspelt ones. Nothing is known of them where not all texts were
/// counted.
void remark_absent_names(const TextCounts& counts, FieldCode code, const std::vector<std::string>& names,
                         std::vector<Remark>& remarks) {
  if (counts.left_out > 0) return;
  std::unordered_set<std::string> written;
  for (const CountedText& entry : counts.texts) written.insert(in_windows_1252(entry.text, width_of(code)));
  CountedList absent;
  for (const std::string& name : names) {
    if (written.contains(name)) continue;
    if (absent.texts.size() < most_listed_texts) {
      absent.texts.push_back({decode(name, Encoding::windows_1252).text, 0, 0});
    } else {
      ++absent.more;
    }
  }
  if (!absent.texts.empty()) remarks.push_back({RemarkKind::names_absent, {absent}});
}

/// Remarks on the names that the steer file lists.
void remark_names(RemarkKind kind, FieldCode code, const TextCounts& counts, const std::vector<std::string>& names,
                  std::vector<Remark>& remarks) {
  const ListedTexts texts = {{names.begin(), names.end()}, code};
  const auto is_listed = [&](const CountedText& entry) { return texts.has(entry); };
  remarks.push_back({kind, {std::ssize(names), list_counted(counts, is_listed)}});
  const CountedList left_out = list_counted(counts, [&](const CountedText& entry) { return !texts.has(entry); });
  if (!left_out.texts.empty()) remarks.push_back({RemarkKind::names_left_out, {left_out}});
  remark_absent_names(counts, code, names, remarks);
}

/// Where those that few animals have are one together.
void remark_joined_names(const TextCounts& counts, const PreparePlan& plan, std::vector<Remark>& remarks) {
  const ListedTexts texts = {plan.own_subpopulations, subpopulation_column};
  const auto is_listed = [&](const CountedText& entry) { return texts.has(entry); };
  std::int64_t names = counts.left_out, animals = counts.left_out;
  for (const CountedText& entry : counts.texts) {
    if (texts.has(entry)) continue;
    ++names;
    animals += entry.count;
  }
  remarks.push_back(
      {RemarkKind::subpopulations_found, {std::ssize(plan.subpopulations), list_counted(counts, is_listed)}});
  remarks.push_back(
      {RemarkKind::names_joined, {names, animals, decode(plan.joined_subpopulation, Encoding::windows_1252).text}});
  if (plan.own_subpopulations.empty()) remarks.push_back({RemarkKind::names_all_joined, {plan.least_animals}});
}

void remark_imports(const ExportSurvey& survey, std::vector<Remark>& remarks) {
  std::int64_t imports = survey.imports.left_out;
  for (const CountedText& entry : survey.imports.texts) imports += means_no_import(entry.text) ? 0 : entry.count;
  const auto is_none = [](const CountedText& entry) { return means_no_import(entry.text); };
  remarks.push_back({RemarkKind::imports_found, {imports, list_counted(survey.imports, is_none)}});
}

/// What the columns say of the animals that have gone.
void remark_availability(const ExportSurvey& survey, const PreparePlan& plan, std::vector<Remark>& remarks) {
  for (const AvailabilityReading& reading : plan.availability.columns) {
    const auto& columns = survey.availability.columns;
    const auto column = std::find_if(columns.begin(), columns.end(),
                                     [&](const AvailabilityColumn& entry) { return entry.place == reading.place; });
    const ColumnList named = list_columns(std::span(&reading.place, 1), plan.columns);
    const auto list = [&](const std::unordered_set<std::string>& texts) {
      return list_counted(column->texts, [&](const CountedText& entry) { return texts.contains(entry.text); });
    };
    if (reading.dated > 0) remarks.push_back({RemarkKind::gone_by_dates, {named, reading.dated}});
    const CountedList gone = list(reading.gone_by_words), open = list(reading.not_counted);
    if (!gone.texts.empty()) remarks.push_back({RemarkKind::gone_by_texts, {named, gone}});
    if (!open.texts.empty()) remarks.push_back({RemarkKind::gone_not_counted, {named, open}});
  }
  const CountedList castrated = list_counted(
      survey.sexes, [&](const CountedText& entry) { return plan.availability.castrated.contains(entry.text); });
  if (!castrated.texts.empty()) remarks.push_back({RemarkKind::gone_castrated, {castrated}});
}

}  // namespace

void add_content_remarks(const Preparation& read, std::vector<Remark>& remarks) {
  const ExportSurvey& survey = read.survey;
  const PreparePlan& plan = read.plan;
  if (is_in_use(plan, sire_column) || is_in_use(plan, dam_column)) remark_unknown_parents(survey, plan, remarks);
  if (is_in_use(plan, birthdate_column)) remark_dates(survey, plan.dates, remarks);
  if (is_in_use(plan, sex_column)) remark_sexes(survey, plan, remarks);
  if (const ConcludedSexes& sexes = plan.concluded_sexes; sexes.are_needed) {
    remarks.push_back({RemarkKind::sexes_concluded, {sexes.males, sexes.females, sexes.contradicted, sexes.unknown}});
  }
  if (is_in_use(plan, subpopulation_column) && !plan.joined_subpopulation.empty()) {
    remark_joined_names(survey.subpopulations, plan, remarks);
  } else if (is_in_use(plan, subpopulation_column)) {
    remark_names(RemarkKind::subpopulations_found, subpopulation_column, survey.subpopulations, plan.subpopulations,
                 remarks);
  }
  if (is_in_use(plan, colour_column)) {
    remark_names(RemarkKind::colours_found, colour_column, survey.colours, plan.colours, remarks);
  }
  if (is_in_use(plan, import_column)) remark_imports(survey, remarks);
  remark_availability(survey, plan, remarks);
  if (!plan.species.empty()) remarks.push_back({RemarkKind::species_found, {plan.species}});
  remarks.push_back({RemarkKind::population_named, {decode(plan.population_name, Encoding::windows_1252).text}});
}

}  // namespace pedigreewatch
