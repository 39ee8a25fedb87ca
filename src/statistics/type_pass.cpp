#include "statistics/type_pass.h"

#include "core/line_writer.h"
#include "core/wording.h"
#include "pedigree/year_groups.h"
#include "statistics/monitor_pass.h"

namespace pedigreewatch {
namespace {

constexpr Wording monitor_data = {"monitor data per year for ", "monitor gegevens per jaar voor "};
constexpr Wording no_animals = {"No animals present with breed code ", "Geen dieren aanwezig met rascode "};
constexpr Wording type_is = {"type ", "type "};
constexpr Wording year_is = {"year ", "jaar "};
constexpr Wording ages_determined = {"determined ages of parents, number of animals per colour type, etc.",
                                     "leeftijden ouders, aantallen per kleur, topfokker etc. bepaald"};

}  // namespace

std::optional<Block> run_type_pass(const PopulationStore& store, const BreedType& type, const Colours& colours,
                                   const BreederList& breeders, const YearTable<float>& kinship_table,
                                   TextOutput& console) {
  write_free_line(console, {monitor_data, type.name});
  if (type.members.empty()) {
    write_free_line(console, {no_animals, type.name});
    return std::nullopt;
  }
  const OldestParents oldest = find_oldest_parents(store, type.members);
  write_free_line(console, {"maxages = ", oldest.of(male), oldest.of(female)});
  // Here the breeder list is read in slots of 7 characters.
  CountedNames names{colours, {}};
  for (std::int32_t t = 1; t <= breeders.top_breeder_count; ++t) names.breeders.add(BreederName(breeders.slot(t)));
  const YearLine line{{type_is, type.name, year_is}, ages_determined};
  Block block;
  block.name = type.name.full();
  describe_animals(store, type.members,
                   count_years(store, group_by_year(store, type.members), names, oldest, line, console), block);
  const YearRows<InbreedingRow> trend = trend_of_subpopulation(kinship_table, type.number);
  describe_inbreeding(trend, rates_of_trend(trend, store.birth_years.count), store.birth_years.count, block);
  return block;
}

}  // namespace pedigreewatch
