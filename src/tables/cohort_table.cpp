#include "tables/cohort_table.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/shares.h"

namespace pedigreewatch {
namespace {

struct CohortColumn {
  std::string name;
  std::function<Cell(const Cohort&)> cell;
};

Cell cell_of(const std::optional<double>& value) {
  return value ? Cell(*value) : Cell();
}

/// A mean over `count`, without what rounding leaves below 0; empty over none.
Cell mean_of(double sum, std::int64_t count) {
  return count > 0 ? Cell(std::max(0.0, mean_over(sum, count))) : Cell();
}

using Columns = std::vector<CohortColumn>;

/// A column of a figure that may be unknown.
template <typename Value>
void add_value(Columns& columns, std::string name, Value value) {
  columns.push_back({std::move(name), [value](const Cohort& cohort) { return cell_of(std::invoke(value, cohort)); }});
}

/// A column of the mean of a sum over all animals.
void add_mean(Columns& columns, std::string name, double CohortSums::*sum) {
  columns.push_back(
      {std::move(name), [sum](const Cohort& cohort) { return mean_of(cohort.sums.*sum, cohort.sums.animals); }});
}

void add_count(Columns& columns, std::string name, std::int64_t CohortSums::*count) {
  columns.push_back({std::move(name), [count](const Cohort& cohort) { return Cell(cohort.sums.*count); }});
}

void add_cohort(Columns& columns, const PopulationStore& store) {
  columns.push_back({"cohort", [](const Cohort& cohort) {
                       return Cell(std::string(cohort.span == CohortSpan::year ? "year" : "interval"));
                     }});
  columns.push_back({"first_year", [](const Cohort& cohort) { return Cell(std::int64_t{cohort.first_year}); }});
  columns.push_back({"last_year", [](const Cohort& cohort) { return Cell(std::int64_t{cohort.last_year}); }});
  columns.push_back({"subpopulation", [&store](const Cohort& cohort) {
                       if (cohort.subpopulation == 0) return Cell();
                       return Cell(std::string(store.subpopulation_name(cohort.subpopulation)));
                     }});
  add_count(columns, "animals", &CohortSums::animals);
}

void add_kinship(Columns& columns) {
  add_mean(columns, "F_mean", &CohortSums::inbreeding);
  add_value(columns, "kinship_with_self", &Cohort::kinship_with_self);
  add_value(columns, "kinship_without_self", &Cohort::kinship_without_self);
  add_value(columns, "gene_diversity", &Cohort::gene_diversity);
  add_value(columns, "lost_by_unequal_founders", &Cohort::lost_by_founders);
  add_value(columns, "lost_since_founders", &Cohort::lost_since);
  add_value(columns, "effective_founders", &Cohort::effective_founders);
  add_value(columns, "effective_ancestors", &Cohort::effective_ancestors);
  add_value(columns, "founder_genomes", &Cohort::founder_genomes);
  add_value(columns, "increase_of_inbreeding", &Cohort::mean_increase);
  add_value(columns, "effective_size_by_inbreeding", &Cohort::effective_size);
}

void add_side(Columns& columns, const std::string& name, std::array<double, line_generations> CohortSums::*side) {
  for (std::size_t g = 0; g < line_generations; ++g) {
    columns.push_back({name + std::to_string(g + 1), [side, g](const Cohort& cohort) {
                         return mean_of((cohort.sums.*side)[g], cohort.sums.animals);
                       }});
  }
}

void add_completeness(Columns& columns) {
  add_mean(columns, "equivalent_generations", &CohortSums::equivalents);
  add_mean(columns, "completeness_index", &CohortSums::completeness_index);
  add_side(columns, "known_sire_side_", &CohortSums::sire_side);
  add_side(columns, "known_dam_side_", &CohortSums::dam_side);
}

/// Shares of matings or of animals of known parents, by how near the parents are related.
void add_shares(Columns& columns, const std::string& name, std::array<std::int64_t, close_matings> CohortSums::*counts,
                std::int64_t CohortSums::*all) {
  constexpr std::array<std::string_view, close_matings> kinds = {"parent_offspring", "full_sibs", "half_sibs",
                                                                 "cousins"};
  for (std::size_t k = 0; k < kinds.size(); ++k) {
    columns.push_back({name + std::string(kinds[k]), [counts, all, k](const Cohort& cohort) {
                         return mean_of(static_cast<double>((cohort.sums.*counts)[k]), cohort.sums.*all);
                       }});
  }
}

void add_matings(Columns& columns) {
  add_count(columns, "matings", &CohortSums::matings);
  add_shares(columns, "matings_of_", &CohortSums::matings_of, &CohortSums::matings);
  add_count(columns, "both_parents_known", &CohortSums::both_parents_known);
  add_shares(columns, "born_of_", &CohortSums::born_of, &CohortSums::both_parents_known);
}

void add_classes(Columns& columns) {
  constexpr std::array<std::string_view, inbreeding_classes> names = {"F_zero", "F_to_6_25", "F_to_12_5", "F_to_25",
                                                                      "F_above_25"};
  for (std::size_t k = 0; k < names.size(); ++k) {
    columns.push_back({std::string(names[k]), [k](const Cohort& cohort) { return Cell(cohort.sums.classes[k]); }});
  }
}

Columns columns_of(const PopulationStore& store) {
  Columns columns;
  add_cohort(columns, store);
  add_kinship(columns);
  add_completeness(columns);
  add_matings(columns);
  add_classes(columns);
  if (store.has_import) add_mean(columns, "import_contribution", &CohortSums::import_shares);
  return columns;
}

}  // namespace

void write_cohorts(const PopulationStore& store, std::span<const Cohort> cohorts, TableWriter& writer) {
  const Columns columns = columns_of(store);
  for (const CohortColumn& column : columns) add_text(writer, column.name);
  end_row(writer);
  for (const Cohort& cohort : cohorts) {
    for (const CohortColumn& column : columns) add_cell(writer, column.cell(cohort));
    end_row(writer);
  }
}

}  // namespace pedigreewatch
