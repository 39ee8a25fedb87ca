#include "desk/tables_desk.h"

#include <utility>

#include "diversity/diversity_table.h"
#include "tables/animal_table.h"
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
    write_animals(results.population.store, results.diversity, writer);
  });
}

std::string diversity_table(const Desk& desk) {
  if (!desk.results) return {};
  const ToolLanguage language = desk.results->population.settings.english ? ToolLanguage::english : ToolLanguage::dutch;
  return write_diversity(desk.results->population.store, desk.results->diversity, language);
}

}  // namespace pedigreewatch
