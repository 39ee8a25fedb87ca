// Others are what is left when all listed breeders are taken from the year's counts. The counts of parents leave
// imports out, the breeders' own do not: so the others' parents can be negative.

#include "statistics/breeders.h"

namespace pedigreewatch {
namespace {

constexpr std::int64_t animals_column(std::int64_t breeder) {
  return 2 * breeder - 1;
}
constexpr std::int64_t parents_column(std::int64_t breeder) {
  return 2 * breeder;
}

}  // namespace

TopBreeders find_top_breeders(const PopulationStore& store, const BreederList& list, std::size_t width) {
  TopBreeders top{{}, ByNumber<std::int32_t>(store.breeders.names.entries.size())};
  for (std::int32_t t = 1; t <= list.top_breeder_count; ++t) top.names.add(BreederName(list.piece(t, width)));
  top.top_no[0] = top.names.number_of(std::string_view());  // animals without a breeder
  for (std::int32_t breeder = 1; breeder <= store.breeders.count(); ++breeder) {
    top.top_no[breeder] = top.names.number_of(store.breeders.names.at(breeder));
  }
  return top;
}

void breeder_statistics(const PopulationStore& store, YearAnimals animals, const TopBreeders& breeders,
                        const ParentCounts& parents, Row row, YearTable<std::int32_t>& top_breeders) {
  if (animals.empty()) return;
  for (const std::int32_t position : animals) {
    const std::int32_t breeder = breeders.top_no[store.breeder_no[position]];
    if (breeder == 0) continue;
    ++top_breeders.at(row, animals_column(breeder));
    top_breeders.at(row, parents_column(breeder)) += store.is_native_parent(position) ? 1 : 0;
  }
  // A name that stands in the list again gets the same counts, which are then taken off the others again.
  std::int32_t listed = 0, listed_parents = 0;
  for (std::int32_t breeder = 1; breeder <= breeders.names.count(); ++breeder) {
    const std::int32_t first = breeders.names.first_numbers.at(breeder);
    top_breeders.at(row, animals_column(breeder)) = top_breeders.value(row, animals_column(first));
    top_breeders.at(row, parents_column(breeder)) = top_breeders.value(row, parents_column(first));
    listed += top_breeders.value(row, animals_column(breeder));
    listed_parents += top_breeders.value(row, parents_column(breeder));
  }
  const std::int32_t others = breeders.names.count() + 1;
  top_breeders.at(row, animals_column(others)) = static_cast<std::int32_t>(animals.size()) - listed;
  top_breeders.at(row, parents_column(others)) =
      parents.of(male).native_parents - listed_parents + parents.of(female).native_parents;
}

}  // namespace pedigreewatch
