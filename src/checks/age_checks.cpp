#include "checks/age_checks.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "checks/grouped_findings.h"
#include "core/birth_years.h"
#include "core/integers.h"
#include "core/report_limits.h"

namespace pedigreewatch {
namespace {

constexpr double days_of_a_year = 365.25;
constexpr std::int32_t youngest_possible_days = 1;

std::int32_t animal_born_in(const PedigreeColumns& animals, std::int32_t year) {
  std::int32_t animal = 1;
  while (animal <= animals.count() && animals.birth.at(animal).year != year) ++animal;
  return animal;
}

Finding finding_of_birth(FindingCode code, const PedigreeColumns& animals, std::int32_t animal,
                         const ReadingPlan& plan) {
  return {.code = code,
          .column = plan.column_of[birthdate_column],
          .line = animals.line_of(animal),
          .id = animals.id.at(animal)};
}

void check_span(const PedigreeColumns& animals, const ReadingPlan& plan, Findings& findings) {
  const YearsOfTables span = years_of_tables(animals);
  if (span.last < span.first || std::int64_t{span.last} - span.first < year_limit) return;
  const std::int32_t strange = span.first < 0 ? span.first : span.last;
  Finding finding = finding_of_birth(FindingCode::year_span, animals, animal_born_in(animals, strange), plan);
  finding.number = span.first;
  finding.other_number = span.last;
  add(findings, finding);
}

/// Between a day later in this year and the animals before it no year is empty.
void check_future(PedigreeColumns& animals, const ReadingPlan& plan, const CalendarDate& today, ToolLanguage language,
                  Findings& findings) {
  constexpr Wording empty_years = {": years without animals count as F = 0, Ne is wrong",
                                   ": jaren zonder dieren tellen als F = 0, Ne is fout"};
  const std::int32_t last_day = day_number(today);
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const BirthDay& birth = animals.birth.at(animal);
    if (birth.year < today.year || animals.has_mark(animal, mark_strange_year)) continue;
    const DayRange days = days_of_birth(animals, animal);
    if (!days.is_known() || days.first <= last_day) continue;
    Finding finding = finding_of_birth(FindingCode::year_future, animals, animal, plan);
    const bool is_year = animals.has_mark(animal, mark_year_only);
    finding.text = keep(
        findings, is_year ? std::to_string(birth.year) : text_of(CalendarDate{birth.year, birth.month, birth.day}));
    finding.other_text = keep(findings, birth.year > today.year ? words_of(empty_years, language) : std::string_view());
    add(findings, finding);
    add_mark(animals.marks.at(animal), mark_strange_year);
  }
}

/// Animals by birth year, without those whose year has been reported already.
struct YearCounts {
  struct Year {
    std::int32_t animals = 0, first_animal = 0;
  };
  std::map<std::int32_t, Year> years;
  std::int32_t total = 0;
};

YearCounts count_years(const PedigreeColumns& animals) {
  YearCounts counts;
  YearCounts::Year* last = nullptr;
  std::int32_t last_year = 0;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t year = animals.birth.at(animal).year;
    if (year == 0 || animals.has_mark(animal, mark_strange_year)) continue;
    if (last == nullptr || year != last_year) last = &counts.years[year];
    last_year = year;
    if (last->animals++ == 0) last->first_animal = animal;
    ++counts.total;
  }
  return counts;
}

/// A stretch of years without animals.
struct YearGap {
  std::int32_t before = 0, after = 0;                  ///< the years with animals at its ends
  std::int32_t animals_before = 0, animals_after = 0;  ///< in all years on either side
  std::int32_t first_before = 0, first_after = 0;      ///< an animal of the years at its ends
  std::int64_t empty_years() const { return std::int64_t{after} - before - 1; }
};

void report_far_year(const PedigreeColumns& animals, const YearGap& gap, bool is_first, const ReadingPlan& plan,
                     Findings& findings) {
  Finding finding =
      finding_of_birth(FindingCode::year_far_out, animals, is_first ? gap.first_before : gap.first_after, plan);
  finding.number = is_first ? gap.before : gap.after;
  finding.other_number = gap.empty_years() + 1;
  add(findings, finding);
}

void report_lone_years(PedigreeColumns& animals, const YearGap& gap, bool is_first, const ReadingPlan& plan,
                       ToolLanguage language, Findings& findings) {
  constexpr Wording before = {"before {1}", "voor {1}"}, after = {"after {1}", "na {1}"};
  const std::string year = std::to_string(is_first ? gap.after : gap.before);
  std::vector<std::int32_t> lone;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t born = animals.birth.at(animal).year;
    if (born == 0 || animals.has_mark(animal, mark_strange_year)) continue;
    if (is_first ? born < gap.after : born > gap.before) lone.push_back(animal);
  }
  if (lone.size() == 1) {
    add_mark(animals.marks.at(lone.front()), mark_lone);
  }
  add_for_animals({.code = FindingCode::year_lone,
                   .column = plan.column_of[birthdate_column],
                   .text = keep(findings, phrase(is_first ? before : after, language, {year}))},
                  lone, animals, findings);
}

/// The gaps, each of one sort: beyond it hardly any animals are left at the begin or the end, or it lies between
/// others.
struct YearGaps {
  std::optional<YearGap> last_before_most, first_after_most;  ///< the innermost ones with hardly any animals beyond
  std::vector<YearGap> inner;
};

void sort_gap(const YearGap& gap, YearGaps& gaps) {
  constexpr std::int32_t one_lone_in = 100;
  const std::int32_t few = std::max(1, (gap.animals_before + gap.animals_after) / one_lone_in);
  const bool is_first = gap.animals_before <= gap.animals_after;
  if (std::min(gap.animals_before, gap.animals_after) > few) {
    gaps.inner.push_back(gap);
  } else if (is_first) {
    gaps.last_before_most = gap;
  } else if (!gaps.first_after_most) {
    gaps.first_after_most = gap;
  }
}

/// Years without animals between others, all in one.
void report_inner_gaps(std::span<const YearGap> gaps, const ReadingPlan& plan, Findings& findings) {
  std::string years;
  std::int64_t count = 0;
  for (const YearGap& gap : gaps) {
    const std::string first = std::to_string(gap.before + 1), last = std::to_string(gap.after - 1);
    years.append(years.empty() ? "" : ", ").append(first);
    if (first != last) years.append("-").append(last);
    count += gap.empty_years();
  }
  if (gaps.empty()) return;
  add(findings, {.code = FindingCode::year_gap,
                 .column = plan.column_of[birthdate_column],
                 .text = keep(findings, years),
                 .number = count});
}

void check_gaps(PedigreeColumns& animals, const ReadingPlan& plan, ToolLanguage language, Findings& findings) {
  constexpr std::int64_t far = 100;
  const YearCounts counts = count_years(animals);
  YearGap gap;
  YearGaps gaps;
  for (auto year = counts.years.begin(); year != counts.years.end(); ++year) {
    gap.after = year->first;
    gap.first_after = year->second.first_animal;
    gap.animals_after = counts.total - gap.animals_before;
    if (gap.animals_before > 0 && gap.empty_years() >= far) {
      report_far_year(animals, gap, gap.animals_before <= gap.animals_after, plan, findings);
    } else if (gap.animals_before > 0 && gap.empty_years() > 0) {
      sort_gap(gap, gaps);
    }
    gap.before = year->first;
    gap.first_before = year->second.first_animal;
    gap.animals_before += year->second.animals;
  }
  if (gaps.last_before_most) report_lone_years(animals, *gaps.last_before_most, true, plan, language, findings);
  if (gaps.first_after_most) report_lone_years(animals, *gaps.first_after_most, false, plan, language, findings);
  report_inner_gaps(gaps.inner, plan, findings);
}

/// The parent of an animal in one role.
struct ParentOf {
  ParentRole role;
  std::int32_t animal = 0, parent = 0;
};

Finding finding_of_age(FindingCode code, const PedigreeColumns& animals, const ParentOf& link, std::int64_t number,
                       Findings& findings) {
  return {.code = code,
          .role = link.role,
          .line = animals.line_of(link.animal),
          .id = animals.id.at(link.animal),
          .text = keep(findings, animals.ids.at(animals.id.at(link.parent))),
          .other_line = animals.line_of(link.parent),
          .number = number};
}

/// An age in days; without full dates it is the highest that the years allow.
Finding finding_of_young_parent(FindingCode code, const PedigreeColumns& animals, const ParentOf& link,
                                ToolLanguage language, Findings& findings) {
  constexpr Wording at_most = {"at most ", "hooguit "};
  const DayRange young = days_of_birth(animals, link.animal), parent = days_of_birth(animals, link.parent);
  Finding finding = finding_of_age(code, animals, link, std::int64_t{young.last} - parent.first, findings);
  const bool is_exact = young.first == young.last && parent.first == parent.last;
  finding.other_text = keep(findings, is_exact ? std::string_view() : words_of(at_most, language));
  return finding;
}

/// Whether the years alone show that nothing is to be said of the age of a parent: most parents.
bool is_usual_age(const PedigreeColumns& animals, const ParentOf& link, const CheckLimits& limits) {
  constexpr std::int32_t shortest_year = 365, longest_year = 366;
  const std::int32_t born = animals.birth.at(link.parent).year, year = animals.birth.at(link.animal).year;
  if (born == 0 || year == 0) return true;
  const std::int64_t years = std::int64_t{year} - born;  // the age is less than a year off that
  const std::int32_t oldest = link.role == ParentRole::sire ? limits.oldest_sire_years : limits.oldest_dam_years;
  const std::int32_t youngest =
      std::max({limits.youngest_parent_days, limits.young_parent_days, youngest_possible_days});
  return (years - 1) * shortest_year >= youngest && (years + 1) * longest_year < oldest * std::int64_t{shortest_year};
}

/// What is said of the age of a parent, if anything.
std::optional<Finding> find_age(const PedigreeColumns& animals, const ParentOf& link, const CheckLimits& limits,
                                ToolLanguage language, Findings& findings) {
  const DayRange young = days_of_birth(animals, link.animal), parent = days_of_birth(animals, link.parent);
  const bool is_strange = ((animals.marks.at(link.animal) | animals.marks.at(link.parent)) & mark_strange_year) != 0;
  if (!young.is_known() || !parent.is_known() || is_strange || link.animal == link.parent) return std::nullopt;
  const std::int64_t most = std::int64_t{young.last} - parent.first, least = std::int64_t{young.first} - parent.last;
  const std::int32_t oldest = link.role == ParentRole::sire ? limits.oldest_sire_years : limits.oldest_dam_years;
  if (most < 0) return finding_of_age(FindingCode::born_before_parent, animals, link, most, findings);
  if (most < std::max(limits.youngest_parent_days, youngest_possible_days)) {
    return finding_of_young_parent(FindingCode::parent_too_young, animals, link, language, findings);
  }
  if (most < limits.young_parent_days) {
    return finding_of_young_parent(FindingCode::parent_young, animals, link, language, findings);
  }
  if (static_cast<double>(least) < (oldest + 1) * days_of_a_year) return std::nullopt;
  const auto years = static_cast<std::int64_t>(static_cast<double>(least) / days_of_a_year);
  return finding_of_age(FindingCode::parent_old, animals, link, years, findings);
}

}  // namespace

void settle_year_only_dates(PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                            Findings& findings) {
  constexpr std::int64_t tenths = 10, nearly_all = 9;
  constexpr std::int64_t enough = 20;  // of two or three dates all may be a first of January
  constexpr std::int64_t halves = 2;
  const bool are_january = survey.dates >= enough && survey.january_dates * tenths >= survey.dates * nearly_all;
  if (!are_january && survey.year_only_dates * halves <= survey.dates) {
    return add_for_animals({.code = FindingCode::date_year_only, .column = plan.column_of[birthdate_column]},
                           survey.dated_by_year, animals, findings);
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const BirthDay& birth = animals.birth.at(animal);
    const bool is_first = birth.year != 0 && birth.month == 1 && birth.day == 1;
    if (is_first) add_mark(animals.marks.at(animal), mark_year_only);
  }
  add(findings,
      {.code = FindingCode::dates_of_years,
       .number = are_january ? std::max(survey.january_dates, survey.year_only_dates) : survey.year_only_dates,
       .other_number = survey.dates});
}

void check_exchanged_dates(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                           Findings& findings) {
  constexpr std::int32_t together = 30, beside = 3, last_month = 12;
  const std::vector<std::int32_t>& exchanged = survey.exchanged_dates;
  for (std::size_t begin = 0; begin < exchanged.size();) {
    std::size_t end = begin + 1;
    while (end < exchanged.size() && exchanged[end] - exchanged[end - 1] <= together) ++end;
    std::vector<std::int32_t> doubtful;
    const std::int32_t first = std::max(exchanged[begin] - beside, 1);
    const std::int32_t last = std::min(exchanged[end - 1] + beside, animals.count());
    for (std::int32_t animal = first; animal <= last; ++animal) {
      const BirthDay& birth = animals.birth.at(animal);
      const bool is_full = birth.year != 0 && !animals.has_mark(animal, mark_year_only) &&
                           !std::binary_search(exchanged.begin(), exchanged.end(), animal);
      if (is_full && birth.day <= last_month && birth.day != birth.month) doubtful.push_back(animal);
    }
    add_for_animals({.code = FindingCode::date_order, .column = plan.column_of[birthdate_column]}, doubtful, animals,
                    findings);
    begin = end;
  }
}

void check_years(PedigreeColumns& animals, const ReadingPlan& plan, const CalendarDate& today, ToolLanguage language,
                 Findings& findings) {
  check_span(animals, plan, findings);
  check_future(animals, plan, today, language, findings);
  check_gaps(animals, plan, language, findings);
}

void check_ages(const PedigreeColumns& animals, const CheckLimits& limits, ToolLanguage language, Findings& findings,
                std::vector<DateConflict>& conflicts) {
  const auto check = [&](const ParentOf& link) {
    if (is_usual_age(animals, link, limits)) return;
    const std::optional<Finding> found = find_age(animals, link, limits, language, findings);
    // What a lone year makes impossible follows from it and is not told again.
    const bool is_lone = ((animals.marks.at(link.animal) | animals.marks.at(link.parent)) & mark_lone) != 0;
    if (found && found->code == FindingCode::parent_young) {
      add(findings, *found);
    } else if (found && (!is_lone || found->code == FindingCode::parent_old)) {
      conflicts.push_back({{link.animal, link.parent}, *found});
    }
  };
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    fetch_parents_early(animals, animal);
    const std::int32_t sire = animals.linked(animals.sire.at(animal)), dam = animals.linked(animals.dam.at(animal));
    if (sire != 0) check({ParentRole::sire, animal, sire});
    if (dam != 0) check({ParentRole::dam, animal, dam});
  }
}

YearsOfTables years_of_tables(const PedigreeColumns& animals) {
  YearsOfTables span = {BirthYears{}.first, BirthYears{}.last};
  for (const BirthDay& birth : animals.birth.entries) {
    if (birth.year != 0) span.first = std::min(span.first, birth.year);
    span.last = std::max(span.last, birth.year);
  }
  return span;
}

std::int32_t age_in_tables(const PedigreeColumns& animals, std::int32_t animal, std::int32_t parent) {
  const BirthDay &young = animals.birth.at(animal), &old = animals.birth.at(parent);
  if (young.year <= 0 || old.year == 0) return -1;
  const auto day_of_year = [](const BirthDay& birth) {
    return std::int64_t{day_number({1, birth.month, 0})} + birth.day;
  };
  return wrapped(days_per_table_year * (std::int64_t{young.year} - old.year) + day_of_year(young) - day_of_year(old));
}

void check_age_figures(const PedigreeColumns& animals, Findings& findings) {
  struct Oldest {
    std::int32_t days = -1;
    ParentOf link;
  };
  Oldest sire = {-1, {ParentRole::sire}}, dam = {-1, {ParentRole::dam}};
  const auto look_at = [&](Oldest& oldest, std::int32_t animal, std::int32_t parent) {
    const std::int32_t days = parent == 0 ? -1 : age_in_tables(animals, animal, parent);
    if (days > oldest.days) oldest = {days, {oldest.link.role, animal, parent}};
  };
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    fetch_parents_early(animals, animal);
    look_at(sire, animal, animals.linked(animals.sire.at(animal)));
    look_at(dam, animal, animals.linked(animals.dam.at(animal)));
  }
  const YearsOfTables span = years_of_tables(animals);
  if (span.last < span.first || std::int64_t{span.last} - span.first >= year_limit) return;
  const std::int64_t rows = std::int64_t{span.last} - span.first + 1;
  const std::int64_t columns =
      std::int64_t{std::max(sire.days / days_per_table_year, 0)} + std::max(dam.days / days_per_table_year, 0);
  if (columns * rows <= figure_limit) return;
  const Oldest& oldest = sire.days >= dam.days ? sire : dam;
  Finding finding =
      finding_of_age(FindingCode::age_figures, animals, oldest.link, oldest.days / days_per_table_year, findings);
  finding.other_number = columns * rows;
  add(findings, finding);
}

}  // namespace pedigreewatch
