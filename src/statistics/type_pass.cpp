// The same operations as for the whole population, on the members only, with three differences: the widths of the age
// tables, the view on the breeder list, and rates from the trend of the subpopulation's own columns.

#include "statistics/type_pass.h"

#include <utility>

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
  const CountedNames names{colours, find_top_breeders(store, breeders, breeder_slot_width)};
  const YearLine line{{type_is, type.name, year_is}, ages_determined};
  MonitorTables tables = count_years(store, group_by_year(store, type.members), names, oldest, line, console);
  YearRows<InbreedingRow> trend = trend_of_subpopulation(kinship_table, type.number);
  const RateSummary rates = rates_of_trend(trend, store.birth_years.count);
  return make_block(store, {type.name.full(), type.members, std::move(tables), std::move(trend), rates});
}

}  // namespace pedigreewatch
