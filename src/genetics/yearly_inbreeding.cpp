// The animals of a year are split into the fathers, the mothers and those that are neither; the sums of relationships
// of any of the wider groups follow from those three.

#include "genetics/yearly_inbreeding.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "core/line_writer.h"
#include "core/wording.h"
#include "genetics/group_kinship.h"
#include "genetics/relationship_sums.h"
#include "genetics/subpopulation_kinship.h"

namespace pedigreewatch {
namespace {

constexpr Wording compute_kinships = {"compute kinships for year", "bereken verwantschappen voor jaar "};

enum CohortGroup : std::int32_t { neither_parent, fathers, mothers, cohort_groups };

GroupedAnimals group_by_parenthood(const PopulationStore& store, YearAnimals cohort) {
  GroupedAnimals result{cohort, {}, cohort_groups};
  result.groups.reserve(cohort.size());
  for (const std::int32_t position : cohort) {
    const CohortGroup of_parent = store.sex[position] == male ? fathers : mothers;
    result.groups.push_back(store.is_native_parent(position) ? of_parent : neither_parent);
  }
  return result;
}

GroupTotal total_of(const PopulationStore& store, const GroupedAnimals& cohort, const RelationshipSums& sums,
                    std::initializer_list<CohortGroup> wanted) {
  GroupTotal total;
  for (std::size_t i = 0; i < cohort.positions.size(); ++i) {
    const bool is_wanted = std::find(wanted.begin(), wanted.end(), cohort.groups[i]) != wanted.end();
    if (is_wanted) total.add(store.inbreeding[cohort.positions[i]]);
  }
  double sum = 0.0;
  for (const CohortGroup g : wanted) {
    for (const CohortGroup h : wanted) sum += sums.between(g, h);
  }
  total.relationship_sum = static_cast<float>(sum);
  return total;
}

InbreedingRow describe_cohort(const PopulationStore& store, const GroupedAnimals& cohort,
                              const RelationshipSums& sums) {
  const GroupTotal all = total_of(store, cohort, sums, {neither_parent, fathers, mothers});
  InbreedingRow row{.F = mean_inbreeding(all), .f_with_self = kinship_with_self(all)};
  if (all.count <= 1) return row;
  row.f_without_self = kinship_taking_inbreeding_first(all);
  const GroupTotal parents = total_of(store, cohort, sums, {fathers, mothers});
  if (parents.count <= 1) return row;
  row.f_of_parents = kinship_taking_count_first(parents);
  const GroupTotal sires = total_of(store, cohort, sums, {fathers});
  if (sires.count > 1) row.f_of_fathers = kinship_taking_count_first(sires);
  const GroupTotal dams = total_of(store, cohort, sums, {mothers});
  if (dams.count > 1) row.f_of_mothers = kinship_taking_count_first(dams);
  return row;
}

}  // namespace

YearlyInbreeding compute_kinship_by_year(const PopulationStore& store, const AncestorPedigree& ancestors,
                                         const YearGroups& years, const Subpopulations& subpopulations,
                                         TextOutput& console) {
  const Row rows = store.birth_years.row_count();
  const bool has_subpopulations = subpopulations.count() > 1;
  YearlyInbreeding result{YearRows<InbreedingRow>(rows), {rows, kinship_column_count(subpopulations.count())}};
  RelationshipWork work = make_relationship_work(store, ancestors);
  for (Row row = 1; row <= rows; ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    write_free_line(console, {compute_kinships, year});
    const YearAnimals cohort = years.of_row(row);
    if (cohort.empty() || year == 0) continue;  // an animal without a birth year belongs to no cohort
    const GroupedAnimals by_parenthood = group_by_parenthood(store, cohort);
    if (!has_subpopulations) {
      result.whole.at(row) = describe_cohort(store, by_parenthood, sum_relationships(work, by_parenthood));
      continue;
    }
    CohortSubpopulations split = split_cohort(store, subpopulations, cohort);
    const SumsOfBoth sums = sum_relationships_of_both(work, by_parenthood, split.animals);
    result.whole.at(row) = describe_cohort(store, by_parenthood, sums.first);
    fill_kinship_row(subpopulations, std::move(split), sums.second, row, result.by_subpopulation);
  }
  return result;
}

void echo_inbreeding(const YearRows<InbreedingRow>& rows, TextOutput& console) {
  write_free_line(console, {"    F        f"});
  for (Row row = 1; row <= rows.row_count(); ++row) {
    const InbreedingRow means = rows.of(row);
    write_format_line(console, "2F8.4", {means.F, 2.0F * means.f_with_self});
  }
}

}  // namespace pedigreewatch
