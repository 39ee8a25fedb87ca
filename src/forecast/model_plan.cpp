// Animals that have been used stand among the parents of the herd, others in the lists of their birth years. Those that
// the plan uses for the first time become parents; careers and popularity have no part in it.

#include "forecast/model_plan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "forecast/model_entry.h"
#include "planning/mating_numbers.h"
#include "planning/pair_assignment.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t in_no_list = SIZE_MAX;

/// An animal to choose from.
struct PlanCandidate {
  Sex sex = male;
  GroupNo group = 0;
  std::int32_t most = 1;          ///< litters
  std::size_t place = 0;          ///< among the parents of its sex, or in its list
  std::size_t year = 0;           ///< of birth, by row of the candidates
  std::size_t list = in_no_list;  ///< of that year
  std::int32_t animal = 0;        ///< in the pedigree; 0: it has had no young
  Entrant entrant;                ///< of one that has had no young
};

bool is_of_age(const ModelHerd& herd, Sex sex, std::int32_t born, std::int32_t year) {
  const AgeSpan& ages = herd.basis.base.ages.of(sex);
  const std::int32_t age = year - born;
  return age >= std::max(ages.youngest, herd.rules.least_age.of(sex)) && age <= ages.oldest;
}

/// Litters that an animal may have this year.
std::int32_t most_of(const ModelHerd& herd, Sex sex, std::int32_t litters_in_life) {
  if (sex == female) return herd.rules.has_one_litter && litters_in_life > 0 ? 0 : 1;
  std::int32_t most = std::numeric_limits<std::int32_t>::max() / 2;
  if (herd.rules.litters_a_year) most = *herd.rules.litters_a_year;
  if (herd.rules.litters_in_life) most = std::min(most, *herd.rules.litters_in_life - litters_in_life);
  return most;
}

/// Animals that have become too old to be planned with leave.
void let_old_go(ModelHerd& herd, Sex sex, std::int32_t year) {
  const std::int32_t oldest = herd.basis.base.ages.of(sex).oldest;
  std::erase_if(herd.parents.of(sex), [&](ModelParent& parent) {
    parent.litters_in_life += parent.litters;
    parent.litters = 0;
    return year - herd.birth_year[parent.animal] > oldest;
  });
}

void bring_imports(ModelHerd& herd, const std::vector<PlannedGroup>& groups, Sex sex, std::int32_t year) {
  RandomStream random = herd.stream(year, sex == male ? DrawPurpose::sire_entry : DrawPurpose::dam_entry);
  for (GroupNo group = 0; group < groups.size(); ++group) {
    for (std::int32_t k = 0; k < groups[group].imports.of(sex); ++k) enter_import(herd, sex, group, year, random);
  }
}

/// Whether both parents of a parent of the herd are known, or it is an import of the rules: of these alone it is known
/// how they are related.
bool is_known(const ModelHerd& herd, const ModelParent& parent) {
  return parent.descent >= Descent::known || herd.pedigree.sire[parent.animal] == herd.basis.origin;
}

void add_parents(const ModelHerd& herd, Sex sex, std::int32_t year, std::vector<PlanCandidate>& candidates) {
  const std::vector<ModelParent>& parents = herd.parents.of(sex);
  for (std::size_t k = 0; k < parents.size(); ++k) {
    const ModelParent& parent = parents[k];
    const std::int32_t most = most_of(herd, sex, parent.litters_in_life);
    const std::int32_t born = herd.birth_year[parent.animal];
    if (most > 0 && is_known(herd, parent) && is_of_age(herd, sex, born, year)) {
      candidates.push_back({sex, parent.group, most, k, 0, in_no_list, parent.animal, {}});
    }
  }
}

void add_unused(const ModelHerd& herd, Sex sex, std::int32_t year, std::vector<PlanCandidate>& candidates) {
  std::int32_t birth_year = herd.basis.first_candidate_year - 1;
  for (std::size_t row = 0; row < herd.candidates.size(); ++row) {
    ++birth_year;
    if (!is_of_age(herd, sex, birth_year, year)) continue;
    for (GroupNo group = 0; group < herd.basis.records.groups; ++group) {
      for (const Descent descent : {Descent::known, Descent::deep}) {
        const std::size_t list = list_of(group, sex, descent);
        const Candidates& animals = herd.candidates[row].lists[list];
        for (std::size_t k = 0; k < animals.size(); ++k) {
          Entrant entrant = entrant_of(herd, animals[k], birth_year);
          entrant.descent = descent;
          candidates.push_back({sex, group, most_of(herd, sex, 0), k, row, list, 0, entrant});
        }
      }
    }
  }
}

/// Their kinships, by the pedigree of the herd with those behind it that have had no young.
CandidateKinship kinship_of(const ModelHerd& herd, const std::vector<PlanCandidate>& candidates) {
  ModelPedigree pedigree = herd.pedigree;
  CandidateKinship kinship;
  for (const PlanCandidate& candidate : candidates) {
    const Entrant& entrant = candidate.entrant;
    const std::int32_t number =
        candidate.animal != 0 ? candidate.animal : add_parent(pedigree, entrant.sire, entrant.dam, entrant.f);
    kinship.ancestor_of.push_back(number);
    kinship.with_itself.push_back(0.5 * (1.0 + double{pedigree.f[number]}));
  }
  kinship.sire = std::move(pedigree.sire);
  kinship.dam = std::move(pedigree.dam);
  kinship.within_family_variance = std::move(pedigree.variance);
  return kinship;
}

NumberLimits limits_of(const std::vector<PlanCandidate>& candidates, std::int64_t litters) {
  NumberLimits limits;
  BySex<std::int64_t> most;
  for (const PlanCandidate& candidate : candidates) most.of(candidate.sex) += candidate.most;
  limits.matings = std::min({litters, most.of_males, most.of_females});
  for (const PlanCandidate& candidate : candidates) {
    limits.sex.push_back(candidate.sex);
    limits.least.push_back(0);
    limits.most.push_back(static_cast<std::int32_t>(std::min<std::int64_t>(candidate.most, limits.matings)));
  }
  limits.has_own.assign(candidates.size(), 0);
  return limits;
}

/// Those of a sex that are used, by place of the candidates, and how often each.
struct UsedCandidates {
  std::vector<std::int32_t> places, numbers;
};

UsedCandidates used_of(const std::vector<PlanCandidate>& candidates, std::span<const std::int32_t> numbers, Sex sex) {
  UsedCandidates used;
  for (std::size_t k = 0; k < candidates.size(); ++k) {
    if (candidates[k].sex != sex || numbers[k] == 0) continue;
    used.places.push_back(static_cast<std::int32_t>(k));
    used.numbers.push_back(numbers[k]);
  }
  return used;
}

/// A pair by places of the candidates.
struct PlannedFamily {
  std::size_t female = 0, male = 0;
  std::int32_t litters = 0;
  double kinship = 0.0;
};

std::vector<PlannedFamily> pair_used(const CandidateKinship& kinship, const std::vector<PlanCandidate>& candidates,
                                     std::span<const std::int32_t> numbers) {
  const UsedCandidates females = used_of(candidates, numbers, female), males = used_of(candidates, numbers, male);
  const std::vector<double> kinships = kinship_table(kinship, females.places, males.places);
  PairProblem problem{females.places.size(), males.places.size(), {}, females.numbers, males.numbers};
  for (const double value : kinships) problem.costs.push_back(cost_of_kinship(value));
  std::vector<PlannedFamily> families;
  for (const AssignedPair& pair : assign_pairs(problem).pairs) {
    families.push_back({static_cast<std::size_t>(females.places[pair.female]),
                        static_cast<std::size_t>(males.places[pair.male]), pair.matings,
                        kinships[pair.female * males.places.size() + pair.male]});
  }
  return families;
}

/// Those used for the first time become parents, and leave their lists: from the back, so that places hold.
void take_into_use(ModelHerd& herd, std::vector<PlanCandidate>& candidates, std::span<const std::int32_t> numbers) {
  for (std::size_t k = candidates.size(); k > 0; --k) {
    PlanCandidate& candidate = candidates[k - 1];
    if (numbers[k - 1] == 0) continue;
    if (candidate.list != in_no_list) {
      ModelParent& parent = add_model_parent(herd, candidate.sex, candidate.entrant);
      parent.group = candidate.group;
      candidate.animal = parent.animal;
      Candidates& list = herd.candidates[candidate.year].lists[candidate.list];
      list.erase(list.begin() + static_cast<std::ptrdiff_t>(candidate.place));
      candidate.place = herd.parents.of(candidate.sex).size() - 1;
    }
    herd.parents.of(candidate.sex)[candidate.place].litters = numbers[k - 1];
  }
}

}  // namespace

double planned_candidates(const BasePeriod& base, double litters) {
  const double years = static_cast<double>(base.years.size());
  double size = 0.0, families = 0.0;
  for (const std::int32_t young : base.sizes) size += young / static_cast<double>(base.sizes.size());
  for (const std::vector<GroupYear>& year : base.years) {
    for (const GroupYear& group : year) families += (group.with_both + group.without_sire) / years;
  }
  constexpr double of_a_sex = 0.5;
  double candidates = 0.0;
  for (const Sex sex : {male, female}) {
    const AgeSpan& ages = base.ages.of(sex);
    candidates += of_a_sex * litters * families * size * (ages.oldest - ages.youngest + 1);
  }
  return candidates;
}

void plan_matings(ModelHerd& herd, const std::vector<PlannedGroup>& groups, std::int32_t year) {
  std::vector<PlanCandidate> candidates;
  std::int64_t litters = 0;
  for (const PlannedGroup& group : groups) litters += group.litters;
  for (const Sex sex : {male, female}) {
    let_old_go(herd, sex, year);
    bring_imports(herd, groups, sex, year);
    add_parents(herd, sex, year, candidates);
    add_unused(herd, sex, year, candidates);
  }
  herd.new_parents.clear();
  const NumberLimits limits = limits_of(candidates, litters);
  herd.year.refused.lost += litters - limits.matings;
  if (limits.matings == 0) return;
  const CandidateKinship kinship = kinship_of(herd, candidates);
  const Contributions best = best_contributions(kinship, share_limits_of(limits), {{}, 0.0, true});
  const std::vector<std::int32_t> numbers = best_numbers(kinship, limits, {}, best.shares).numbers;
  const std::vector<PlannedFamily> planned = pair_used(kinship, candidates, numbers);
  take_into_use(herd, candidates, numbers);
  herd.new_parents.clear();  // kinships are those of the plan: neither table nor walk is asked
  for (const PlannedFamily& family : planned) {
    const PlanCandidate &dam = candidates[family.female], &sire = candidates[family.male];
    const ModelFamily made = {sire.animal, dam.animal, static_cast<float>(family.kinship), dam.group, 0};
    for (std::int32_t k = 0; k < family.litters; ++k) herd.families.push_back(made);
  }
}

}  // namespace pedigreewatch
