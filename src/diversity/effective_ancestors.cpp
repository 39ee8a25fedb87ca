// Once an ancestor is chosen it passes nothing on, and it explains half of each of its offspring, a quarter of theirs,
// and so on. So the genes that other ancestors pass on only become fewer, what is explained of them only more, and
// the contribution of a candidate only smaller. Therefore
// - a choice changes figures of the ancestors and descendants of the chosen one only: two walks, no passes;
// - a contribution that was worked out earlier is an upper bound: the candidates stand ordered by such bounds, and only
//   those in front are worked out anew.

#include "diversity/effective_ancestors.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

#include "core/bit_pattern.h"
#include "core/memory_hints.h"
#include "diversity/waiting_numbers.h"

namespace pedigreewatch {
namespace {

constexpr double equal_to = 1.0 - 1e-12;   // contributions that differ by less are equal
constexpr double nothing = 1e-13;          // of the genes: no more than rounding
constexpr double change_of_result = 1e-7;  // of fa
constexpr std::size_t most_main_ancestors = 10;

/// The candidates with their parents, which are candidates too. Entry 0 is the parent of founders.
struct Candidates {
  ByNumber<std::int32_t> sire, dam;
  ByNumber<std::int32_t> number;         ///< in the pedigree of the reference population
  ByNumber<double> genes;                ///< of itself and its offspring that are no candidates, in animals
  ByNumber<std::int32_t> offspring_end;  ///< where its offspring end, and those of the next begin
  std::vector<std::int32_t> offspring;   ///< of all candidates one after the other

  std::int32_t count() const { return number.last(); }
  std::span<const std::int32_t> offspring_of(std::int32_t j) const {
    const std::int32_t begin = offspring_end[j - 1];
    return std::span(offspring).subspan(static_cast<std::size_t>(begin),
                                        static_cast<std::size_t>(offspring_end[j] - begin));
  }
};

/// By number in the pedigree: the number as a candidate; 0 for those that are none.
ByNumber<std::int32_t> number_candidates(const ReferencePedigree& pedigree) {
  ByNumber<std::int32_t> candidate_no(pedigree.count());
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    candidate_no[pedigree.sire[j]] = candidate_no[pedigree.dam[j]] = 1;
    if (pedigree.is_founder(j)) candidate_no[j] = 1;
  }
  candidate_no[0] = 0;
  std::int32_t count = 0;
  for (std::int32_t& number : candidate_no.values) {
    if (number != 0) number = ++count;
  }
  return candidate_no;
}

/// Lists each candidate's offspring, those of one parent in ascending order.
void list_offspring(Candidates& candidates) {
  const std::int32_t count = candidates.count();
  candidates.offspring_end = ByNumber<std::int32_t>(count + 1);
  for (std::int32_t j = 1; j <= count; ++j) {
    for (const std::int32_t parent : {candidates.sire[j], candidates.dam[j]}) {
      if (parent != 0) ++candidates.offspring_end[parent + 1];
    }
  }
  for (std::int32_t j = 1; j <= count + 1; ++j) candidates.offspring_end[j] += candidates.offspring_end[j - 1];
  candidates.offspring.resize(static_cast<std::size_t>(candidates.offspring_end[count + 1]));
  for (std::int32_t j = 1; j <= count; ++j) {
    for (const std::int32_t parent : {candidates.sire[j], candidates.dam[j]}) {
      if (parent == 0) continue;
      candidates.offspring[static_cast<std::size_t>(candidates.offspring_end[parent]++)] = j;
    }
  }
}

Candidates make_candidates(const ReferencePedigree& pedigree) {
  const ByNumber<std::int32_t> candidate_no = number_candidates(pedigree);
  const std::int32_t count = *std::max_element(candidate_no.values.begin(), candidate_no.values.end());
  Candidates candidates;
  for (ByNumber<std::int32_t>* const list : {&candidates.sire, &candidates.dam, &candidates.number}) {
    *list = ByNumber<std::int32_t>(count);
  }
  candidates.genes = ByNumber<double>(count);
  for (const std::int32_t member : pedigree.members) {
    if (candidate_no[member] != 0) {
      candidates.genes[candidate_no[member]] += 1.0;
      continue;
    }
    candidates.genes[candidate_no[pedigree.sire[member]]] += 0.5;
    candidates.genes[candidate_no[pedigree.dam[member]]] += 0.5;
  }
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    const std::int32_t k = candidate_no[j];
    if (k == 0) continue;
    candidates.number[k] = j;
    candidates.sire[k] = candidate_no[pedigree.sire[j]];
    candidates.dam[k] = candidate_no[pedigree.dam[j]];
  }
  list_offspring(candidates);
  return candidates;
}

/// A candidate with what it explains at most.
struct Bound {
  double contribution = 0.0;
  std::int32_t candidate = 0;

  /// The largest first, of equal ones the last candidate.
  friend bool operator<(const Bound& a, const Bound& b) {
    if (a.contribution != b.contribution) return a.contribution > b.contribution;
    return a.candidate > b.candidate;
  }
};

/// What the choice works on; all contributions in animals.
struct Choice {
  const Candidates& candidates;
  ByNumber<double> genes;      ///< that each candidate passes on, or would if it was not chosen
  ByNumber<double> explained;  ///< fraction of each candidate's genes that those chosen explain
  ByNumber<Flag> is_chosen;
  ByNumber<double> lost;  ///< by the genes of a candidate during a walk; 0 between two walks
  WaitingNumbers waiting;
  std::set<Bound> bounds;   ///< of all that are not chosen
  std::int64_t visits = 0;  ///< since all genes were added up last
};

/// What a candidate explains, without the last bits: contributions that differ by rounding only become one number.
double contribution_of(const Choice& choice, std::int32_t candidate) {
  const double contribution = choice.genes[candidate] * (1.0 - choice.explained[candidate]);
  if (!(contribution > 0.0)) return 0.0;
  constexpr std::uint64_t dropped = 0xFF;
  return bits_as<double>((bits_as<std::uint64_t>(contribution) + dropped / 2) & ~dropped);
}

/// Adds up the genes of all candidates, so that the rounding of many small changes does not gather.
void add_up_genes(Choice& choice) {
  const Candidates& candidates = choice.candidates;
  choice.genes = candidates.genes;
  for (std::int32_t j = candidates.count(); j > 0; --j) {
    if (choice.is_chosen[j] != 0) continue;
    choice.genes[candidates.sire[j]] += 0.5 * choice.genes[j];
    choice.genes[candidates.dam[j]] += 0.5 * choice.genes[j];
  }
  choice.visits = 0;
}

Choice begin_choice(const Candidates& candidates) {
  const std::int32_t count = candidates.count();
  Choice choice{
      candidates, {}, ByNumber<double>(count), ByNumber<Flag>(count), ByNumber<double>(count), WaitingNumbers(count),
      {},         0};
  add_up_genes(choice);
  std::vector<Bound> bounds;
  for (std::int32_t j = 1; j <= count; ++j) bounds.push_back({contribution_of(choice, j), j});
  std::sort(bounds.begin(), bounds.end());
  choice.bounds = std::set<Bound>(bounds.begin(), bounds.end());  // from a sorted list in linear time
  return choice;
}

using BoundPlace = std::set<Bound>::iterator;

/// Works the bound out anew. Yields whether it was right already; else it stands in another place afterwards.
bool is_bound_exact(Choice& choice, BoundPlace bound) {
  const double contribution = contribution_of(choice, bound->candidate);
  if (contribution == bound->contribution) return true;
  auto node = choice.bounds.extract(bound);
  node.value().contribution = contribution;
  choice.bounds.insert(std::move(node));
  return false;
}

/// The first bound behind all that are equal to this contribution, once it is exact.
BoundPlace first_exact_behind(Choice& choice, double contribution) {
  BoundPlace bound = choice.bounds.upper_bound({contribution, 0});
  while (bound != choice.bounds.end() && !is_bound_exact(choice, bound)) {
    bound = choice.bounds.upper_bound({contribution, 0});
  }
  return bound;
}

/// The candidate that explains most, of equal ones the last; it is taken out of the bounds, which are not empty.
Bound take_largest(Choice& choice) {
  while (!is_bound_exact(choice, choice.bounds.begin())) {
  }
  BoundPlace chosen = choice.bounds.begin();
  const double least = chosen->contribution * equal_to;
  BoundPlace bound = first_exact_behind(choice, chosen->contribution);
  while (bound != choice.bounds.end() && bound->contribution >= least && bound->contribution > 0.0) {
    if (bound->candidate > chosen->candidate) chosen = bound;
    bound = first_exact_behind(choice, bound->contribution);
  }
  const Bound result = *chosen;
  choice.bounds.erase(chosen);
  return result;
}

/// Takes genes away from the parents of a candidate, to be taken from theirs in turn.
void take_from_parents(Choice& choice, std::int32_t candidate, double genes) {
  for (const std::int32_t parent : {choice.candidates.sire[candidate], choice.candidates.dam[candidate]}) {
    if (parent == 0) continue;
    choice.lost[parent] += 0.5 * genes;
    choice.waiting.put(parent);
  }
}

/// The chosen one passes nothing on any more: its ancestors lose what came through it.
void walk_up(Choice& choice, std::int32_t chosen) {
  take_from_parents(choice, chosen, choice.genes[chosen]);
  visit_downwards(choice.waiting, chosen, [&](std::int32_t j) {
    ++choice.visits;
    const double lost = std::exchange(choice.lost[j], 0.0);
    choice.genes[j] -= lost;
    if (choice.is_chosen[j] == 0) take_from_parents(choice, j, lost);
  });
}

/// The chosen one explains itself, and a part of its descendants.
void walk_down(Choice& choice, std::int32_t chosen) {
  const Candidates& candidates = choice.candidates;
  const auto put_offspring = [&](std::int32_t parent) {
    for (const std::int32_t young : candidates.offspring_of(parent)) {
      if (choice.is_chosen[young] == 0) choice.waiting.put(young);
    }
  };
  choice.explained[chosen] = 1.0;
  put_offspring(chosen);
  visit_upwards(choice.waiting, chosen, [&](std::int32_t j) {
    choice.explained[j] = 0.5 * (choice.explained[candidates.sire[j]] + choice.explained[candidates.dam[j]]);
    put_offspring(j);
  });
}

void choose(Choice& choice, std::int32_t candidate) {
  walk_up(choice, candidate);
  choice.is_chosen[candidate] = 1;
  walk_down(choice, candidate);
  if (choice.visits > choice.candidates.count()) add_up_genes(choice);
}

/// Sums over those chosen so far, as fractions of all genes.
struct Explained {
  double sum = 0.0, squares = 0.0;

  void add(double contribution) {
    sum += contribution;
    squares += contribution * contribution;
  }
  /// What the squares of all later contributions sum to at most, none being above `contribution`.
  double most_squares_left(double contribution) const { return std::max(1.0 - sum, 0.0) * contribution; }
};

void add_ancestor(const ReferencePedigree& pedigree, std::int32_t number, double contribution,
                  AncestorFigures& figures) {
  ++figures.chosen_ancestors;
  if (figures.main_ancestors.size() >= most_main_ancestors) return;
  figures.main_ancestors.push_back({pedigree.position[number], pedigree.is_unknown_parent(number), contribution});
}

bool is_result_certain(const AncestorFigures& figures, const Explained& explained, double contribution) {
  return figures.main_ancestors.size() == most_main_ancestors && figures.ancestors_for_half.has_value() &&
         explained.most_squares_left(contribution) <= change_of_result * explained.squares;
}

}  // namespace

AncestorFigures choose_ancestors(const ReferencePedigree& pedigree) {
  AncestorFigures figures;
  if (pedigree.members.empty()) return figures;
  const Candidates candidates = make_candidates(pedigree);
  Choice choice = begin_choice(candidates);
  const double animals = static_cast<double>(pedigree.members.size());
  Explained explained;
  while (!choice.bounds.empty()) {
    const Bound largest = take_largest(choice);
    const double contribution = largest.contribution / animals;
    if (contribution < nothing) break;
    if (is_result_certain(figures, explained, contribution)) {
      figures.is_every_ancestor_chosen = false;
      break;
    }
    explained.add(contribution);
    add_ancestor(pedigree, candidates.number[largest.candidate], contribution, figures);
    if (!figures.ancestors_for_half && explained.sum >= 0.5 * equal_to) {
      figures.ancestors_for_half = figures.chosen_ancestors;
    }
    choose(choice, largest.candidate);
  }
  if (explained.squares > 0.0) figures.effective_ancestors = 1.0 / explained.squares;
  return figures;
}

}  // namespace pedigreewatch
