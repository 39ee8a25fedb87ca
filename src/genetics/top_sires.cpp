#include "genetics/top_sires.h"

#include <algorithm>
#include <span>
#include <utility>

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
std::vector<SireUse> sires_by_use(const PopulationStore& store, std::span<const std::int32_t> animals,
                                  std::vector<std::int32_t>& offspring) {
  std::vector<SireUse> sires;
  for (const std::int32_t position : animals) {
    const std::int32_t sire = store.at(position).sire_no;
    if (sire <= 0) continue;
    if (offspring[static_cast<std::size_t>(sire)]++ == 0) sires.push_back({sire, 0});
  }
  for (SireUse& use : sires) use.offspring = std::exchange(offspring[static_cast<std::size_t>(use.sire)], 0);
  std::ranges::sort(sires, [](const SireUse& a, const SireUse& b) {
    return a.offspring != b.offspring ? a.offspring > b.offspring : a.sire > b.sire;
  });
  return sires;
}

}  // namespace

TopSires compute_top_sires(const PopulationStore& store, const YearGroups& years, TextOutput& console) {
  const std::int64_t rows = store.birth_years.row_count();
  TopSires result{{rows, 1}, {rows, 1}, {rows, top_sire_columns}};
  std::vector<std::int32_t> offspring(store.animals.size() + 1, 0);
  for (std::int64_t row = 1; row <= rows; ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    write_free_line(console, {compute_contribution, year});
    if (year == 0) continue;  // animals without a birth year are never counted
    const std::vector<SireUse> sires = sires_by_use(store, years.of_row(row), offspring);
    if (sires.empty()) continue;
    std::int64_t known = 0;
    for (const SireUse& use : sires) known += use.offspring;
    result.sire_count.at(row, 1) = static_cast<std::int32_t>(sires.size());
    result.top_sire.at(row, 1) = sires.front().sire;
    for (std::size_t r = 0; r < std::min<std::size_t>(top_sire_columns, sires.size()); ++r) {
      result.shares.at(row, static_cast<std::int64_t>(r) + 1) =
          static_cast<float>(sires[r].offspring) / static_cast<float>(known);
    }
  }
  return result;
}

}  // namespace pedigreewatch
