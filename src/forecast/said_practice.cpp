// Counts are whole numbers: what is left of one goes on to the next year, so that their sum is right.

#include "forecast/said_practice.h"

#include <algorithm>
#include <cmath>

#include "core/shares.h"
#include "forecast/rule_reading.h"
#include "forecast/said_lives.h"
#include "forecast/whole_numbers.h"

namespace pedigreewatch {
namespace {

constexpr Wording said_line = {"in place of what was measured, the forecast goes on with what is said: {1}",
                               "in plaats van met wat gemeten is, gaat de vooruitblik verder met wat gezegd is: {1}"};

double mean_of(const std::vector<std::int32_t>& sizes) {
  double sum = 0.0;
  for (const std::int32_t size : sizes) sum += size;
  return mean_over(sum, sizes.size());
}

/// Litters of one stay; what the others have more grows, or shrinks, in proportion.
void set_litter_size(double mean, std::vector<std::int32_t>& sizes) {
  const double before = mean_of(sizes) - 1.0;
  std::sort(sizes.begin(), sizes.end());
  WholeNumbers more;
  for (std::int32_t& size : sizes) {
    size = 1 + more.next(before > 0.0 ? (mean - 1.0) / before * (size - 1) : mean - 1.0);
  }
}

/// The share of males among the young of all descents, when the odds of a male are multiplied.
double males_with(const BasePeriod& base, const ByDescent<double>& young, double odds) {
  double males = 0.0, all = 0.0;
  for (const Descent k : all_descents) {
    const double share = base.male_share[k];
    males += young[k] * odds * share / (1.0 - share + odds * share);
    all += young[k];
  }
  return all > 0.0 ? males / all : 0.0;
}

/// Males stay as unevenly spread over the descents as they were.
void set_males(const FamilyRecords& records, double share, BasePeriod& base) {
  ByDescent<double> young;
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) {
      young[descent_of(records.store, family.first)] += family.young;
    }
  }
  constexpr double widest = 1e6;
  double low = 1.0 / widest, high = widest;
  if (males_with(base, young, high) < share || males_with(base, young, low) > share) {
    base.male_share.values.fill(share);
    return;
  }
  constexpr int steps = 100;
  for (int step = 0; step < steps; ++step) {
    const double middle = std::sqrt(low * high);
    (males_with(base, young, middle) < share ? low : high) = middle;
  }
  for (double& of_descent : base.male_share.values)
    of_descent = low * of_descent / (1.0 - of_descent + low * of_descent);
}

double factor_at(const Level& level, std::size_t year) {
  return year < level.factors.size() ? level.factors[year] : 1.0;
}

/// A level that the years have come to already.
void settle(Level& level, std::size_t years, double last) {
  level.factors.assign(years, 1.0);
  level.is_trend = false;
  level.last = last;
}

void set_litters_without_sire(double share, BasePeriod& base) {
  Level& level = base.levels.half_known;
  for (std::size_t group = 0; group < base.years.front().size(); ++group) {
    WholeNumbers without_sire, without_dam;
    for (std::size_t year = 0; year < base.years.size(); ++year) {
      GroupYear& of_year = base.years[year][group];
      const std::int32_t litters = of_year.with_both + of_year.without_sire;
      of_year.without_sire = std::min(litters, without_sire.next(share * litters));
      of_year.with_both = litters - of_year.without_sire;
      of_year.without_dam = without_dam.next(factor_at(level, year) * of_year.without_dam);
    }
  }
  settle(level, base.years.size(), level.last);
}

/// Young of the families of a group and year, but for those of no known parent.
double young_of(const GroupYear& year, double size) {
  return size * (year.with_both + year.without_sire) + year.without_dam;
}

void set_young_without_parents(double share, BasePeriod& base) {
  const double size = mean_of(base.sizes);
  for (std::size_t group = 0; group < base.years.front().size(); ++group) {
    WholeNumbers founders;
    for (std::vector<GroupYear>& year : base.years) {
      year[group].founders = founders.next(share / (1.0 - share) * young_of(year[group], size));
    }
  }
  settle(base.levels.founders, base.years.size(), share);
}

/// Of each group's litters; sires of others as often each as they were, or as litters are born in theirs.
void set_sires_of_others(double share, BasePeriod& base) {
  std::vector<double> litters(base.sire_groups.size(), 0.0);
  for (const std::vector<GroupYear>& year : base.years) {
    for (std::size_t group = 0; group < year.size(); ++group) litters[group] += year[group].with_both;
  }
  for (GroupNo group = 0; group < base.sire_groups.size(); ++group) {
    std::vector<GroupShare>& shares = base.sire_groups[group];
    std::erase_if(shares, [&](const GroupShare& one) { return one.group == group; });
    const bool had_others = !shares.empty();
    for (GroupNo other = 0; !had_others && other < litters.size(); ++other) {
      if (other != group && litters[other] > 0.0) shares.push_back({other, litters[other]});
    }
    double sum = 0.0;
    for (const GroupShare& one : shares) sum += one.share;
    for (GroupShare& one : shares) one.share *= share / sum;
    shares.push_back({group, shares.empty() ? 1.0 : 1.0 - share});
  }
}

Amount change_of(const Amount& present, const Amount& change) {
  return {present.factor * change.factor, change.factor * present.plus + change.plus};
}

}  // namespace

void apply_said_figures(const FamilyRecords& records, const SaidFigures& said, BasePeriod& base) {
  if (said.litter_size) set_litter_size(*said.litter_size, base.sizes);
  if (said.males) set_males(records, *said.males, base);
  if (said.litters_without_sire) set_litters_without_sire(*said.litters_without_sire, base);
  if (said.young_without_parents) set_young_without_parents(*said.young_without_parents, base);
  if (said.sires_of_others) set_sires_of_others(*said.sires_of_others, base);
  base.said_outside = said.outside;
  for (const Sex sex : {male, female}) {
    if (said.first_age.of(sex)) set_first_ages(sex, *said.first_age.of(sex), base);
  }
}

FamilyPractice practice_as_said(const FamilyPractice& measured, const SaidFigures& said, const BasePeriod& base) {
  FamilyPractice practice = measured;
  practice.outside_sires = said.outside.of_males.value_or(measured.outside_sires);
  practice.outside_dams = said.outside.of_females.value_or(measured.outside_dams);
  if (!said.litters_without_sire && !said.young_without_parents) return practice;
  const double size = mean_of(base.sizes);
  double young = 0.0, half_known = 0.0, founders = 0.0;
  for (const std::vector<GroupYear>& year : base.base_years()) {
    for (const GroupYear& group : year) {
      young += young_of(group, size) + group.founders;
      half_known += size * group.without_sire + group.without_dam;
      founders += group.founders;
    }
  }
  if (young > 0.0) {
    practice.half_known = half_known / young;
    practice.founders = founders / young;
  }
  return practice;
}

void add_present_rules(const BreedingRules& present, BreedingRules& rules) {
  rules.sires = change_of(present.sires, rules.sires);
  rules.litters = change_of(present.litters, rules.litters);
  const bool has_trend = std::any_of(rules.written.begin(), rules.written.end(),
                                     [](const WrittenRule& rule) { return rule.name == "litters-trend"; });
  if (!has_trend) rules.trend = present.trend;
}

std::vector<std::string> said_sentences(const BreedingRules& present, ToolLanguage language) {
  std::vector<std::string> lines;
  for (const WrittenRule& figure : present.written) {
    lines.push_back(phrase(said_line, language, {rule_in_words(figure, language)}));
  }
  return lines;
}

}  // namespace pedigreewatch
