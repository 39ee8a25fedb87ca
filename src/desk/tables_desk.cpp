#include "desk/tables_desk.h"

#include <utility>

#include "diversity/diversity_table.h"
#include "diversity/founder_list.h"
#include "tables/animal_table.h"
#include "tables/cohort_table.h"
#include "tables/list_tables.h"
#include "tables/table_writer.h"
#include "tables/year_tables.h"

namespace pedigreewatch {
namespace {

/// What `write` writes, when there are results.
template <typename Write>
std::string table_of(const Desk& desk, Write&& write) {
  TableWriter writer;
  if (desk.results) write(*desk.results, writer);
  return std::move(writer.text);
}

bool has_subpopulations(const DeskResults& results) {
  return results.population.settings.layout.subpopulations.count() > 1;
}

/// One of the lists of animals.
std::string list_of(const Desk& desk, void (*write)(const ListedPopulation& population, TableWriter& writer)) {
  return table_of(desk, [write](const DeskResults& results, TableWriter& writer) {
    const PopulationStore& store = results.population.store;
    write({store, results.diversity, results.figures, count_offspring(store)}, writer);
  });
}

}  // namespace

std::string years_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    write_years(results.population, count_groups(results.population), writer);
  });
}

std::string subpopulations_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    if (has_subpopulations(results)) write_subpopulations(results.population, count_groups(results.population), writer);
  });
}

std::string animals_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    write_animals(results.population.store, results.figures.animals, writer);
  });
}

std::string cohorts_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    write_cohorts(results.population.store, results.figures.cohorts, writer);
  });
}

std::string kinship_table(const Desk& desk) {
  return list_of(desk, write_kinship_list);
}

std::string most_inbred_table(const Desk& desk) {
  return list_of(desk, write_most_inbred);
}

std::string used_sires_table(const Desk& desk) {
  return list_of(desk, write_used_sires);
}

std::string division_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    if (has_subpopulations(results)) write_division(results.population.store, results.diversity.division, writer);
  });
}

std::string founders_table(const Desk& desk) {
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    const PopulationStore& store = results.population.store;
    const ReferencePedigree pedigree = make_reference_pedigree(store, results.diversity.reference.positions);
    write_founders(store, list_founders(pedigree), writer);
  });
}

std::string diversity_table(const Desk& desk) {
  if (!desk.results) return {};
  const ToolLanguage language = desk.results->population.settings.english ? ToolLanguage::english : ToolLanguage::dutch;
  return write_diversity(desk.results->population.store, desk.results->diversity, language);
}

}  // namespace pedigreewatch
