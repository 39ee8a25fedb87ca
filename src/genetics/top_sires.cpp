// Fathers are counted in a list over all positions that is kept from year to year; taking a count out resets it.

#include "genetics/top_sires.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/by_number.h"
#include "core/integers.h"
#include "core/line_writer.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording compute_contribution = {"compute contribution topsires for year",
                                          "bereken aandeel dominante mannetjes voor jaar "};

struct SireUse {
  std::int32_t sire = 0, offspring = 0;
};

/// The fathers of one year, the most used first. `offspring` is indexed by position and 0 between two calls.
std::vector<SireUse> sires_by_use(const PopulationStore& store, YearAnimals animals,
                                  ByNumber<std::int32_t>& offspring) {
  std::vector<SireUse> sires;
  for (const std::int32_t position : animals) {
    const std::int32_t sire = store.sire_no[position];
    if (sire <= 0) continue;
    if (offspring[sire]++ == 0) sires.push_back({sire, 0});
  }
  for (SireUse& use : sires) use.offspring = std::exchange(offspring[use.sire], 0);
  std::sort(sires.begin(), sires.end(), [](const SireUse& a, const SireUse& b) {
    return a.offspring != b.offspring ? a.offspring > b.offspring : a.sire > b.sire;
  });
  return sires;
}

/// The row of a year that has at least one known father.
TopSireRow describe_sires(const std::vector<SireUse>& sires) {
  std::int64_t known = 0;
  for (const SireUse& use : sires) known += use.offspring;
  TopSireRow row{.sire_count = static_cast<std::int32_t>(sires.size()), .top_sire = sires.front().sire};
  for (std::size_t r = 0; r < std::min(top_sire_columns, sires.size()); ++r) {
    const float share = quotient(sires[r].offspring, known);
    row.shares[r] = share * 100.0F;
  }
  return row;
}

}  // namespace

YearRows<TopSireRow> compute_top_sires(const PopulationStore& store, const YearGroups& years, TextOutput& console) {
  YearRows<TopSireRow> result(store.birth_years.row_count());
  ByNumber<std::int32_t> offspring(store.size());
  for (Row row = 1; row <= result.row_count(); ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    write_free_line(console, {compute_contribution, year});
    if (year == 0) continue;  // animals without a birth year are never counted
    const std::vector<SireUse> sires = sires_by_use(store, years.of_row(row), offspring);
    if (!sires.empty()) result.at(row) = describe_sires(sires);
  }
  return result;
}

}  // namespace pedigreewatch
