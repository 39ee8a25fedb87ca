#include "forecast/practice_figures.h"

#include <algorithm>
#include <cmath>

#include "core/integers.h"
#include "core/shares.h"
#include "diversity/close_matings.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

std::vector<float> shares_of(const std::vector<std::int64_t>& counts) {
  std::int64_t total = 0;
  for (const std::int64_t count : counts) total += count;
  std::vector<float> shares;
  if (total == 0) return shares;
  for (const std::int64_t count : counts) shares.push_back(quotient(count, total));
  return shares;
}

std::vector<float> shares_of_ages(const YearTable<std::int32_t>& classes, Row first, Row last) {
  std::vector<std::int64_t> counts;
  for (std::int64_t age = 1; age <= classes.column_count; ++age) {
    std::int64_t& count = counts.emplace_back(0);
    for (Row row = first; row <= last; ++row) count += classes.value(row, age);
  }
  return shares_of(counts);
}

/// What is added up over the families of the years.
struct FamilySums {
  double families = 0.0, with_sire = 0.0, with_both = 0.0, close = 0.0, foreign = 0.0;
  double of_known = 0.0, of_others = 0.0;  ///< with a known dam, by whether her parents are
  double no_sire_of_known = 0.0, no_sire_of_others = 0.0;
  double young = 0.0, half_known = 0.0, founders = 0.0;
};

void add_family(const FamilyRecords& records, const Family& family, FamilySums& sums) {
  const PopulationStore& store = records.store;
  const double young = family.young;
  sums.young += young;
  if (family.descent() == Descent::half_known) sums.half_known += young;
  if (family.descent() == Descent::founder) sums.founders += young;
  if (family.descent() != Descent::founder) sums.families += 1.0;
  if (family.dam != 0) {
    const bool is_known = descent_of(store, family.dam) >= Descent::known;
    (is_known ? sums.of_known : sums.of_others) += 1.0;
    if (family.sire == 0) (is_known ? sums.no_sire_of_known : sums.no_sire_of_others) += 1.0;
  }
  if (family.sire != 0) {
    sums.with_sire += 1.0;
    if (records.group[family.sire] != family.group) sums.foreign += 1.0;
  }
  if (family.descent() != Descent::known) return;
  sums.with_both += 1.0;
  const MatingKin kin = kin_of_mating(store, {family.sire, family.dam}, 0.0F);
  if (kin != MatingKin::distant && kin != MatingKin::cousins) sums.close += 1.0;
}

double share_of_top_sire(std::span<const Family> families) {
  std::vector<std::int32_t> sires;
  for (const Family& family : families) {
    if (family.sire != 0) sires.push_back(family.sire);
  }
  std::sort(sires.begin(), sires.end());
  std::ptrdiff_t most = 0;
  for (auto next = sires.begin(); next != sires.end();) {
    const auto end = std::upper_bound(next, sires.end(), *next);
    most = std::max(most, end - next);
    next = end;
  }
  return sires.empty() ? 0.0 : share_of(most, sires.size());
}

/// Careers that are over, with means of their years of use and families: nobody comes back after such a pause.
struct EndedCareers {
  std::int32_t count = 0;
  double years = 0.0, families = 0.0;
};

EndedCareers measure_lives(const CareerRecords& careers) {
  EndedCareers ended;
  for (const Career& career : careers.careers) {
    if (careers.last_year - career.last_year() <= longest_pause) continue;
    ++ended.count;
    ended.years += static_cast<double>(career.use.size());
    ended.families += career.families;
  }
  if (ended.count == 0) return ended;
  ended.years /= ended.count;
  ended.families /= ended.count;
  return ended;
}

std::int32_t count_years_with_sires(const FamilyRecords& records) {
  std::int32_t years = 0;
  for (std::int32_t year = records.first_year; year <= records.last_year; ++year) {
    const std::span<const Family> families = records.of_year(year);
    if (std::any_of(families.begin(), families.end(), [](const Family& family) { return family.sire != 0; })) ++years;
  }
  return years;
}

double ratio(double part, double whole) {
  return whole > 0.0 ? part / whole : 0.0;
}

}  // namespace

CountedPractice count_practice(const MonitorTables& tables, const BirthYears& years, std::int32_t first_year,
                               std::int32_t last_year) {
  const Row first = years.row_of(first_year), last = years.row_of(last_year);
  CountedPractice practice;
  std::int64_t litters = 0;
  std::vector<std::int64_t> sizes(largest_litter, 0);
  for (Row row = first; row <= last; ++row) {
    const LitterCounts counts = tables.litters.of(row);
    litters += counts.litters;
    for (std::int32_t size = 1; size <= largest_litter; ++size) {
      sizes[static_cast<std::size_t>(size) - 1] += counts.of_size(size);
    }
  }
  while (!sizes.empty() && sizes.back() == 0) sizes.pop_back();
  practice.litters_a_year = quotient(litters, last - first + 1);
  practice.litter_sizes = shares_of(sizes);
  for (const Sex sex : {male, female}) {
    practice.ages.of(sex) = shares_of_ages(tables.age_classes.of(sex), first, last);
  }
  return practice;
}

FamilyPractice measure_practice(const FamilyRecords& records, const BasePeriod& base) {
  FamilyPractice practice;
  FamilySums sums;
  const double years = base.length();
  for (std::int32_t year = base.first_year; year <= base.last_year; ++year) {
    for (const Family& family : records.of_year(year)) add_family(records, family, sums);
    practice.top_sire += share_of_top_sire(records.of_year(year)) / years;
  }
  for (const std::vector<GroupYear>& year : base.base_years()) {
    for (const GroupYear& group : year) {
      practice.sires_a_year += group.in_use.of_males / years;
      practice.dams_a_year += group.in_use.of_females / years;
    }
  }
  practice.litters_per_sire = ratio(sums.with_sire, years * practice.sires_a_year);
  practice.half_known = ratio(sums.half_known, sums.young);
  practice.founders = ratio(sums.founders, sums.young);
  practice.close_matings = ratio(sums.close, sums.with_both);
  practice.between_groups = ratio(sums.foreign, sums.with_sire);
  practice.no_sire_of_known = ratio(sums.no_sire_of_known, sums.of_known);
  practice.no_sire_of_others = ratio(sums.no_sire_of_others, sums.of_others);
  practice.evenness = measure_evenness(records, base.first_alike, base.last_year);
  practice.outside_sires = base.without_parents.of_males;
  practice.outside_dams = base.without_parents.of_females;
  const EndedCareers sires = measure_lives(base.careers.of_males), dams = measure_lives(base.careers.of_females);
  practice.ended_careers = sires.count;
  practice.years_in_use = sires.years;
  practice.families_in_life = sires.families;
  practice.ended_dams = dams.count;
  practice.dam_years_in_use = dams.years;
  practice.birth_years = count_years_with_sires(records);
  return practice;
}

std::int32_t birth_years_for_lives(double generation_interval) {
  return std::max(least_birth_years, static_cast<std::int32_t>(std::ceil(generations_of_lives * generation_interval)));
}

bool are_lives_known(const FamilyPractice& families, double generation_interval) {
  return families.birth_years >= birth_years_for_lives(generation_interval) &&
         families.ended_careers >= least_ended_careers;
}

}  // namespace pedigreewatch
