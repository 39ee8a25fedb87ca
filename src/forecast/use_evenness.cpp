#include "forecast/use_evenness.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

double litters_of(const SireLitters& sires) {
  double sum = 0.0;
  for (const auto& [sire, litters] : sires) sum += litters;
  return sum;
}

/// Adds the litters of `first`, each with the chance that any of `second` is of its sire.
void add_pairs(const SireLitters& first, const SireLitters& second, LitterPairs& pairs) {
  const double own = &first == &second ? 1.0 : 0.0;  // a litter is not compared with itself
  const double sum = litters_of(first), others = litters_of(second) - own;
  if (sum <= 0.0 || others <= 0.0) return;
  double same = 0.0;
  for (const auto& [sire, litters] : first) {
    const auto later = second.find(sire);
    if (later != second.end()) same += litters * (later->second - own);
  }
  pairs.same += same / others;
  pairs.weight += sum;
}

std::vector<SireLitters> litters_of_year(const FamilyRecords& records, std::int32_t year) {
  std::vector<SireLitters> groups(records.groups);
  for (const Family& family : records.of_year(year)) {
    if (family.sire != 0) groups[records.group[family.sire]][family.sire] += 1.0;
  }
  return groups;
}

}  // namespace

void EvennessSums::add(const UseYears& years) {
  for (std::size_t k = 0; k < years.size(); ++k) {
    const std::size_t end = std::min(k + 1 + most_years_apart, years.size());
    for (std::size_t group = 0; group < years[k].size(); ++group) {
      add_pairs(years[k][group], years[k][group], in_year);
      for (std::size_t later = k + 1; later < end; ++later) {
        add_pairs(years[k][group], years[later][group], in_life);
      }
    }
  }
}

std::optional<UseEvenness> EvennessSums::mean() const {
  if (in_year.same <= 0.0) return std::nullopt;
  return UseEvenness{in_year.same / in_year.weight, in_life.same > 0.0 ? in_life.same / in_life.weight : 0.0};
}

std::optional<UseEvenness> measure_evenness(const FamilyRecords& records, std::int32_t first_year,
                                            std::int32_t last_year) {
  UseYears years;
  for (std::int32_t year = first_year; year <= last_year; ++year) years.push_back(litters_of_year(records, year));
  EvennessSums sums;
  sums.add(years);
  return sums.mean();
}

}  // namespace pedigreewatch
