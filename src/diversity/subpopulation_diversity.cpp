#include "diversity/subpopulation_diversity.h"

#include <cmath>
#include <utility>

namespace pedigreewatch {
namespace {

/// The animals of each subpopulation that has any, as groups in the order of their numbers.
GroupedAnimals group_animals(const PopulationStore& store, std::span<const std::int32_t> positions,
                             std::vector<DividedGroup>& groups) {
  const std::int32_t names = store.subpopulation_count();
  ByNumber<DividedGroup> by_number(names);
  for (const std::int32_t position : positions) {
    DividedGroup& group = by_number[store.subpopulation_no(position)];
    ++group.animals;
    group.mean_inbreeding += double{store.inbreeding[position]};
  }
  ByNumber<std::int32_t> group_of(names, -1);
  for (std::int32_t number = 1; number <= names; ++number) {
    DividedGroup& group = by_number[number];
    if (group.animals == 0) continue;
    group.number = number;
    group.mean_inbreeding /= static_cast<double>(group.animals);
    group_of[number] = static_cast<std::int32_t>(groups.size());
    groups.push_back(group);
  }
  GroupedAnimals animals{positions, {}, static_cast<std::int32_t>(groups.size())};
  animals.groups.reserve(positions.size());
  for (const std::int32_t position : positions) {
    animals.groups.push_back(group_of[store.subpopulation_no(position)]);
  }
  return animals;
}

double fixation(double inner, double outer) {
  return (inner - outer) / (1.0 - outer);
}

void complete_statistics(SubpopulationDiversity& division) {
  double animals = 0.0, inbreeding = 0.0, within = 0.0, relationships = 0.0;
  for (std::size_t g = 0; g < division.groups.size(); ++g) {
    const double own = static_cast<double>(division.groups[g].animals);
    animals += own;
    inbreeding += own * division.groups[g].mean_inbreeding;
    within += own * division.kinship(g, g);
  }
  for (const double sum : division.sums.sums) relationships += sum;
  division.mean_inbreeding = inbreeding / animals;
  division.kinship_within = within / animals;
  division.kinship_over_all = 0.5 * relationships / (animals * animals);
  if (*division.kinship_within >= 1.0 || *division.kinship_over_all >= 1.0) return;  // nothing varies any more
  division.f_is = fixation(*division.mean_inbreeding, *division.kinship_within);
  division.f_st = fixation(*division.kinship_within, *division.kinship_over_all);
  division.f_it = fixation(*division.mean_inbreeding, *division.kinship_over_all);
}

}  // namespace

double SubpopulationDiversity::kinship(std::size_t group, std::size_t other) const {
  const double pairs = static_cast<double>(groups[group].animals) * static_cast<double>(groups[other].animals);
  return 0.5 * sums.between(static_cast<std::int32_t>(group), static_cast<std::int32_t>(other)) / pairs;
}

double SubpopulationDiversity::minimum_distance(std::size_t group, std::size_t other) const {
  return 0.5 * (kinship(group, group) + kinship(other, other)) - kinship(group, other);
}

std::optional<double> SubpopulationDiversity::standard_distance(std::size_t group, std::size_t other) const {
  const double between = kinship(group, other);
  if (!(between > 0.0)) return std::nullopt;
  return -std::log(between / std::sqrt(kinship(group, group) * kinship(other, other)));
}

SubpopulationDiversity describe_division(const PopulationStore& store, std::span<const std::int32_t> positions) {
  SubpopulationDiversity division;
  if (store.subpopulation_count() < 2) return division;
  const GroupedAnimals animals = group_animals(store, positions, division.groups);
  if (division.groups.size() < 2) {
    division.groups.clear();
    return division;
  }
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  RelationshipWork work = make_relationship_work(store, ancestors);
  division.sums = sum_relationships(work, animals);
  complete_statistics(division);
  return division;
}

}  // namespace pedigreewatch
