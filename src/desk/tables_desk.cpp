#include "desk/tables_desk.h"

#include <utility>

#include "diversity/diversity_table.h"
#include "diversity/founder_list.h"
#include "tables/animal_table.h"
#include "tables/cohort_table.h"
#include "tables/figure_tables.h"
#include "tables/list_tables.h"
#include "tables/table_writer.h"
#include "tables/year_tables.h"

namespace pedigreewatch {
namespace {

/// What `write` writes, when there are results.
template <typename Write>
std::string table_of(const Desk& desk, Write&& write) {
  TableWriter writer;
  if (!desk.results) return {};
  writer.corrections = desk.results->population.corrections;
  write(*desk.results, writer);
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
  return table_of(desk, [](const DeskResults& results, TableWriter& writer) {
    const ToolLanguage language = results.population.settings.english ? ToolLanguage::english : ToolLanguage::dutch;
    write_diversity_table(results.population.store, results.diversity, language, writer);
  });
}

std::string tables_workbook(const Desk& desk) {
  if (!desk.results) return {};
  const DeskResults& results = *desk.results;
  const AnalysedPopulation& population = results.population;
  const PopulationStore& store = population.store;
  const ToolLanguage language = population.settings.english ? ToolLanguage::english : ToolLanguage::dutch;
  const std::vector<GroupCounts> groups = count_groups(population);
  const ByNumber<std::int32_t> offspring = count_offspring(store);
  const ListedPopulation listed{store, results.diversity, results.figures, offspring};
  WorkbookWriter workbook;
  TableWriter writer{.workbook = &workbook, .text = {}, .corrections = population.corrections};
  const auto write = [&](std::string_view sheet, auto write_table) {
    begin_table_sheet(writer, sheet);
    write_table();
    end_sheet(workbook);
  };
  write("years", [&] { write_years(population, groups, writer); });
  if (has_subpopulations(results)) write("subpopulations", [&] { write_subpopulations(population, groups, writer); });
  write("animals", [&] { write_animals(store, results.figures.animals, writer); });
  write("diversity", [&] { write_diversity_table(store, results.diversity, language, writer); });
  write("standing", [&] { write_standing_table(store, results.standing, language, writer); });
  write("cohorts", [&] { write_cohorts(store, results.figures.cohorts, writer); });
  write("by_kinship", [&] { write_kinship_list(listed, writer); });
  write("most_inbred", [&] { write_most_inbred(listed, writer); });
  write("used_sires", [&] { write_used_sires(listed, writer); });
  if (has_subpopulations(results))
    write("division", [&] { write_division(store, results.diversity.division, writer); });
  return finish_workbook(workbook) ? std::move(workbook.zip.bytes) : std::string();
}

}  // namespace pedigreewatch
