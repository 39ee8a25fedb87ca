// Counted from the families of the base years; careers also from the years before them.

#include "forecast/base_period.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/shares.h"
#include "planning/parent_use.h"

namespace pedigreewatch {
namespace {

/// Years from whose births the length of a generation is taken.
constexpr std::int32_t years_of_interval = 10;
/// Of the parents that were used for the first time, so many in 100 were younger than what counts as oldest.
constexpr std::int64_t entered_in_100 = 99;

/// As plans take the ages of parents, by nearest rank.
AgeSpan ages_at_births(const PopulationStore& store, std::span<const Family> families, Sex sex) {
  std::vector<std::int32_t> ages;
  for (const Family& family : families) {
    const std::int32_t parent = sex == male ? family.sire : family.dam;
    const bool is_known = parent != 0 && store.birth_year[parent] != 0 && store.birth_year[parent] < family.year;
    if (is_known) {
      for (std::int32_t k = 0; k < family.young; ++k) ages.push_back(family.year - store.birth_year[parent]);
    }
  }
  if (ages.empty()) return {};
  std::sort(ages.begin(), ages.end());
  const auto at = [&](std::int64_t in_100) {
    return ages[static_cast<std::size_t>((std::ssize(ages) * in_100 + 99) / 100 - 1)];
  };
  return {at(youngest_in_100), at(oldest_in_100)};
}

struct AgeSum {
  double years = 0.0, young = 0.0;

  void add(const PopulationStore& store, const Family& family, std::int32_t parent) {
    if (parent == 0 || store.birth_year[parent] == 0 || store.birth_year[parent] > family.year) return;
    const double count = family.young;
    years += count * (family.year - store.birth_year[parent]);
    young += count;
  }
};

void count_parents(const FamilyRecords& records, std::int32_t year, Sex sex, std::vector<GroupYear>& groups) {
  std::vector<std::vector<std::int32_t>> parents(groups.size());
  for (const Family& family : records.of_year(year)) {
    const std::int32_t parent = sex == male ? family.sire : family.dam;
    if (parent != 0) parents[records.group[parent]].push_back(parent);
  }
  for (std::size_t g = 0; g < groups.size(); ++g) {
    groups[g].in_use.of(sex) = count_different(parents[g]);
  }
}

struct PeriodRates {
  double litters = 0.0, sires = 0.0, founders = 0.0, young = 0.0;  ///< sums
  bool is_whole = true;                                            ///< every year has families
};

PeriodRates rates_of(const FamilyRecords& records, std::int32_t first_year, std::int32_t last_year) {
  PeriodRates rates;
  for (std::int32_t year = first_year; year <= last_year; ++year) {
    std::vector<std::int32_t> sires;
    double litters = 0.0;
    for (const Family& family : records.of_year(year)) {
      if (family.sire != 0) sires.push_back(family.sire);
      if (family.dam != 0) litters += 1.0;
      if (family.descent() == Descent::founder) rates.founders += family.young;
      rates.young += family.young;
    }
    rates.litters += litters;
    rates.sires += count_different(sires);
    if (litters == 0.0 || sires.empty()) rates.is_whole = false;
  }
  return rates;
}

/// Counts of two periods; `scale` makes the second one comparable.
bool are_alike(double first, double second, double scale = 1.0) {
  const double scaled = scale * second;
  if (first <= same_practice * scaled && scaled <= same_practice * first) return true;
  return std::abs(first - scaled) <= errors_of_counts * std::sqrt(first + scale * scaled);
}

/// The first year from which on the practice was that of the base period.
std::int32_t find_first_alike(const FamilyRecords& records, const BasePeriod& base) {
  const PeriodRates now = rates_of(records, base.first_year, base.last_year);
  std::int32_t first = base.first_year;
  for (std::int32_t period = 1; period < most_periods; ++period) {
    const std::int32_t earlier = first - base.length();
    if (earlier < records.first_year) break;
    const PeriodRates then = rates_of(records, earlier, first - 1);
    if (!then.is_whole || !are_alike(now.litters, then.litters)) break;
    if (!are_alike(now.sires, then.sires, now.litters / then.litters)) break;
    if (!are_alike(now.founders, then.founders, now.young / then.young)) break;
    first = earlier;
  }
  return first;
}

std::vector<GroupYear> count_year(const FamilyRecords& records, std::int32_t year) {
  std::vector<GroupYear> groups(records.groups);
  for (const Family& family : records.of_year(year)) {
    GroupYear& group = groups[family.group];
    if (family.descent() == Descent::founder) group.founders += family.young;
    if (family.descent() == Descent::known) ++group.with_both;
    if (family.descent() == Descent::half_known) ++(family.dam == 0 ? group.without_dam : group.without_sire);
  }
  for (const Sex sex : {male, female}) count_parents(records, year, sex, groups);
  return groups;
}

/// Herdbooks of females have few males, and those of known parents. The share of a descent is drawn towards that of all
/// where there are few young.
void count_young(const FamilyRecords& records, BasePeriod& base) {
  constexpr double prior_young = 10.0, usual_share = 0.5;
  ByDescent<double> young, males;
  double all = 0.0, all_males = 0.0;
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) {
      if (family.dam != 0) base.sizes.push_back(family.young);
      const Descent descent = descent_of(records.store, family.first);
      young[descent] += family.young;
      males[descent] += family.males;
      all += family.young;
      all_males += family.males;
    }
  }
  const double share = records.are_sexes_known && all > 0.0 ? all_males / all : usual_share;
  for (const Descent k : all_descents) {
    const bool is_counted = records.are_sexes_known;
    base.male_share[k] = is_counted ? (males[k] + prior_young * share) / (young[k] + prior_young) : share;
  }
}

void count_unknown_sires(const FamilyRecords& records, BasePeriod& base) {
  ByDescent<double> litters;
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) {
      if (family.dam == 0) continue;
      const Descent descent = descent_of(records.store, family.dam);
      litters[descent] += 1.0;
      if (family.sire == 0) base.without_sire[descent] += 1.0;
    }
  }
  for (const Descent k : all_descents) {
    if (litters[k] > 0.0) base.without_sire[k] /= litters[k];
  }
}

void measure_levels(const FamilyRecords& records, BasePeriod& base) {
  std::vector<YearCount> litters, founders, half_known;
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    YearCount with_dam, of_none, of_one;
    double young = 0.0;
    for (const Family& family : records.of_year(year)) {
      if (family.dam != 0) with_dam.count += 1.0;
      if (family.descent() == Descent::founder) of_none.count += family.young;
      if (family.descent() == Descent::half_known) of_one.count += family.young;
      young += family.young;
    }
    of_none.among = of_one.among = young;
    if (year >= base.first_year) litters.push_back(with_dam);
    founders.push_back(of_none);
    half_known.push_back(of_one);
  }
  base.levels = {level_of(litters), level_of(founders), level_of(half_known)};
}

/// A row for each group of young. Where there were none, sires are of the same group.
void count_exchange(const FamilyRecords& records, BasePeriod& base) {
  std::vector<std::map<GroupNo, double>> counts(records.groups);
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) {
      if (family.sire == 0) continue;
      counts[family.group][records.group[family.sire]] += 1.0;
    }
  }
  base.sire_groups.resize(records.groups);
  for (GroupNo g = 0; g < records.groups; ++g) {
    if (counts[g].empty()) counts[g][g] = 1.0;
    double sum = 0.0;
    for (const auto& [group, count] : counts[g]) sum += count;
    for (const auto& [group, count] : counts[g]) base.sire_groups[g].push_back({group, count / sum});
  }
}

/// The careers that began in these years; where there were none, all.
std::vector<std::int32_t> entries_of(const CareerRecords& records, std::int32_t first_year) {
  std::vector<std::int32_t> entries, all;
  for (std::int32_t k = 0; k < std::ssize(records.careers); ++k) {
    all.push_back(k);
    if (records.at(k).first_year >= first_year) entries.push_back(k);
  }
  return entries.empty() ? all : entries;
}

/// Which part of the young of each descent came into use, and of which part of those in use no parent is known.
void count_chosen(const FamilyRecords& records, Sex sex, BasePeriod& base) {
  ByDescent<double> entered, born;
  double all = 0.0, without_parents = 0.0;
  for (const std::int32_t k : base.entries.of(sex)) {
    const Career& career = base.careers.of(sex).at(k);
    all += 1.0;
    // With a line of its own, as an import has it, or without.
    if (career.descent == Descent::outside || career.descent == Descent::founder) without_parents += 1.0;
    // Those born before were born of others: in a young herdbook mostly of unknown parents.
    const std::int32_t born_in = records.store.birth_year[career.parent];
    if (born_in >= base.first_alike) entered[career.descent] += 1.0;
  }
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) {
      born[descent_of(records.store, family.first)] += family.young;
    }
  }
  for (const Descent k : all_descents) {
    base.chosen.of(sex)[k] = born[k] > 0.0 ? entered[k] / born[k] : 0.0;
  }
  base.without_parents.of(sex) = without_parents / all;
}

void count_entered(BasePeriod& base, Sex sex) {
  for (const Career& career : base.careers.of(sex).careers) {
    if (career.first_year < base.first_alike) continue;
    ++base.years[base.place_of(career.first_year)][career.group].entered.of(sex);
  }
}

/// When more parents than usual go on, fewer new ones come into use, or as many as ever: by how many fewer for each
/// one, from the years and groups, drawn towards a half where they tell little (regression through their means).
double measure_vacancies(const BasePeriod& base, Sex sex) {
  constexpr double prior = 0.5, prior_years = 3.0;
  double products = 0.0, squares = 0.0;
  for (std::size_t group = 0; group < base.years.front().size(); ++group) {
    double went_on = 0.0, entered = 0.0;
    const auto count = static_cast<double>(base.years.size());
    for (const std::vector<GroupYear>& year : base.years) {
      went_on += (year[group].in_use.of(sex) - year[group].entered.of(sex)) / count;
      entered += year[group].entered.of(sex) / count;
    }
    products += prior * prior_years * went_on;  // by chance alone numbers vary as much as they are large
    squares += prior_years * went_on;
    for (const std::vector<GroupYear>& year : base.years) {
      const double more = year[group].in_use.of(sex) - year[group].entered.of(sex) - went_on;
      products -= more * (year[group].entered.of(sex) - entered);
      squares += more * more;
    }
  }
  return squares > 0.0 ? std::clamp(products / squares, 0.0, 1.0) : prior;
}

std::int32_t oldest_entry_of(const CareerRecords& records, const std::vector<std::int32_t>& entries) {
  std::vector<std::int32_t> ages;
  ages.reserve(entries.size());
  for (const std::int32_t k : entries) ages.push_back(records.at(k).first_age);
  if (ages.empty()) return 1;
  std::sort(ages.begin(), ages.end());
  const std::int64_t count = std::ssize(ages);
  return ages[static_cast<std::size_t>((count * entered_in_100 + 99) / 100 - 1)];
}

void measure_careers(const FamilyRecords& records, BasePeriod& base) {
  const std::int32_t first_of_careers =
      std::min(base.first_alike, base.last_year - periods_of_careers * base.length() + 1);
  for (const Sex sex : {male, female}) {
    base.careers.of(sex) = list_careers(records, sex, first_of_careers);
    base.entries.of(sex) = entries_of(base.careers.of(sex), base.first_alike);
    base.oldest_entry.of(sex) = oldest_entry_of(base.careers.of(sex), base.entries.of(sex));
    if (!base.entries.of(sex).empty()) count_chosen(records, sex, base);
    count_entered(base, sex);
    base.vacancies_filled.of(sex) = measure_vacancies(base, sex);
  }
}

}  // namespace

std::optional<double> mean_parent_age(const PopulationStore& store, std::span<const Family> families) {
  AgeSum sires, dams;
  for (const Family& family : families) {
    sires.add(store, family, family.sire);
    dams.add(store, family, family.dam);
  }
  if (sires.young == 0.0 && dams.young == 0.0) return std::nullopt;
  if (sires.young == 0.0) return dams.years / dams.young;
  if (dams.young == 0.0) return sires.years / sires.young;
  return 0.5 * (sires.years / sires.young + dams.years / dams.young);
}

double mean_first_age(const BasePeriod& base, Sex sex) {
  double sum = 0.0;
  for (const std::int32_t number : base.entries.of(sex)) sum += base.careers.of(sex).at(number).first_age;
  return base.entries.of(sex).empty() ? 1.0 : mean_over(sum, base.entries.of(sex).size());
}

std::optional<BasePeriod> measure_base_period(const FamilyRecords& records) {
  const std::int32_t first_of_interval = std::max(records.first_year, records.last_year - years_of_interval + 1);
  std::vector<Family> recent;
  std::int32_t years_with_births = 0;
  for (std::int32_t year = first_of_interval; year <= records.last_year; ++year) {
    const std::span<const Family> families = records.of_year(year);
    if (!families.empty()) ++years_with_births;
    recent.insert(recent.end(), families.begin(), families.end());
  }
  const std::optional<double> interval = mean_parent_age(records.store, recent);
  if (years_with_births < least_base_years || !interval) return std::nullopt;
  const auto length = std::clamp(static_cast<std::int32_t>(std::ceil(*interval)), least_base_years, most_base_years);
  BasePeriod base;
  base.first_year = std::max(records.first_year, records.last_year - length + 1);
  base.last_year = records.last_year;
  base.generation_interval = *interval;
  for (const Sex sex : {male, female}) base.ages.of(sex) = ages_at_births(records.store, recent, sex);
  base.first_alike = find_first_alike(records, base);
  for (std::int32_t year = base.first_alike; year <= base.last_year; ++year) {
    base.years.push_back(count_year(records, year));
  }
  count_young(records, base);
  measure_levels(records, base);
  base.paths = list_number_paths(records, base.length());
  count_unknown_sires(records, base);
  count_exchange(records, base);
  measure_careers(records, base);
  if (base.entries.of_males.empty() || base.entries.of_females.empty() || base.sizes.empty()) return std::nullopt;
  return base;
}

}  // namespace pedigreewatch
