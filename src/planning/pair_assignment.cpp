// Prices begin with what each male, and then each female, costs at least, so that no pair costs less than its prices;
// only pairs that cost just that are made. Then, by turns: distances of all males from the females that still lack
// matings are found, over a male's other females as well, who may be given up; prices follow the distances, so that the
// shortest ways cost nothing; and as many matings as possible are made along such ways.

#include "planning/pair_assignment.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace pedigreewatch {
namespace {

constexpr PairCost unreached = std::numeric_limits<PairCost>::max();
constexpr std::size_t nobody = SIZE_MAX;

/// A female among those of a male.
struct Made {
  std::size_t female = 0;
  std::int32_t matings = 0;
};

struct Assigning {
  const PairProblem& problem;
  std::vector<PairCost> female_price, male_price;
  std::vector<std::vector<Made>> of_male;  ///< pairs made so far
  std::vector<std::int32_t> left_of_female, room_of_male;

  // Of one search for ways:
  std::vector<PairCost> way_to_male, way_to_female;  ///< cost of the cheapest way found
  std::vector<Flag> is_male_seen, is_female_seen;
  std::vector<std::size_t> female_before;  ///< on the way to the male
  std::vector<std::size_t> male_before;    ///< by whom the female was reached; nobody for the first one
  std::vector<std::size_t> next_male;      ///< of a female, to be looked at
};

/// Prices that no permitted pair undercuts.
void set_first_prices(Assigning& work) {
  const PairProblem& problem = work.problem;
  std::vector<PairCost> least(problem.males, unreached);
  for (std::size_t f = 0; f < problem.females; ++f) {
    for (std::size_t m = 0; m < problem.males; ++m) {
      const PairCost cost = problem.cost(f, m);
      if (cost != forbidden_pair) least[m] = std::min(least[m], cost);
    }
  }
  for (std::size_t m = 0; m < problem.males; ++m) work.male_price[m] = least[m] == unreached ? 0 : least[m];
  for (std::size_t f = 0; f < problem.females; ++f) {
    PairCost price = unreached;
    for (std::size_t m = 0; m < problem.males; ++m) {
      const PairCost cost = problem.cost(f, m);
      if (cost != forbidden_pair) price = std::min(price, cost - work.male_price[m]);
    }
    work.female_price[f] = price == unreached ? 0 : price;
  }
}

void make_pair(Assigning& work, std::size_t f, std::size_t m, std::int32_t matings) {
  for (Made& made : work.of_male[m]) {
    if (made.female != f) continue;
    made.matings += matings;
    return;
  }
  work.of_male[m].push_back({f, matings});
}

Made& made_pair(Assigning& work, std::size_t f, std::size_t m) {
  return *std::find_if(work.of_male[m].begin(), work.of_male[m].end(),
                       [&](const Made& made) { return made.female == f; });
}

/// How many matings can go along the way to a male at once.
std::int32_t width_of_way(Assigning& work, std::size_t end) {
  std::int32_t width = work.room_of_male[end];
  std::size_t f = work.female_before[end];
  for (; work.male_before[f] != nobody; f = work.female_before[work.male_before[f]]) {
    width = std::min(width, made_pair(work, f, work.male_before[f]).matings);
  }
  return std::min(width, work.left_of_female[f]);
}

/// Makes the pairs of a way, and gives up those in between; its males may then be met again.
void go_way(Assigning& work, std::size_t end) {
  const std::int32_t width = width_of_way(work, end);
  work.room_of_male[end] -= width;
  for (std::size_t m = end;;) {
    const std::size_t f = work.female_before[m];
    work.is_male_seen[m] = 0;
    make_pair(work, f, m, width);
    m = work.male_before[f];
    if (m == nobody) {
      work.left_of_female[f] -= width;
      return;
    }
    made_pair(work, f, m).matings -= width;
    std::erase_if(work.of_male[m], [](const Made& made) { return made.matings == 0; });
  }
}

/// The next male that a female may go with at her price, and who has not been met; nobody when there is none.
std::size_t next_free_way(Assigning& work, std::size_t f) {
  const PairCost* const costs = work.problem.costs.data() + f * work.problem.males;
  for (std::size_t& m = work.next_male[f]; m < work.problem.males;) {
    const std::size_t at = m++;
    if (work.is_male_seen[at] != 0 || costs[at] == forbidden_pair) continue;
    if (costs[at] == work.female_price[f] + work.male_price[at]) return at;
  }
  return nobody;
}

/// Looks for a way that costs nothing from a female to a male with room, and goes it; false when there is none.
bool go_from(Assigning& work, std::size_t start) {
  std::vector<std::size_t> waiting = {start};
  work.is_female_seen[start] = 1;
  work.male_before[start] = nobody;
  while (!waiting.empty()) {
    const std::size_t m = next_free_way(work, waiting.back());
    if (m == nobody) {
      waiting.pop_back();
      continue;
    }
    work.is_male_seen[m] = 1;
    work.female_before[m] = waiting.back();
    if (work.room_of_male[m] > 0) {
      go_way(work, m);
      for (const std::size_t f : waiting) work.is_female_seen[f] = 0;  // others may come by them
      return true;
    }
    for (const Made& made : work.of_male[m]) {
      if (work.is_female_seen[made.female] != 0) continue;
      work.is_female_seen[made.female] = 1;
      work.male_before[made.female] = m;
      waiting.push_back(made.female);
    }
  }
  return false;
}

void forget_ways(Assigning& work) {
  std::fill(work.is_male_seen.begin(), work.is_male_seen.end(), Flag{0});
  std::fill(work.is_female_seen.begin(), work.is_female_seen.end(), Flag{0});
  std::fill(work.next_male.begin(), work.next_male.end(), std::size_t{0});
}

/// Makes matings along ways that cost nothing; yields how many ways.
std::int64_t go_free_ways(Assigning& work) {
  std::int64_t ways = 0;
  for (bool goes_on = true; goes_on;) {
    goes_on = false;
    forget_ways(work);
    for (std::size_t f = 0; f < work.problem.females; ++f) {
      while (work.left_of_female[f] > 0 && work.is_female_seen[f] == 0 && go_from(work, f)) {
        goes_on = true;
        ++ways;
      }
    }
  }
  return ways;
}

/// Looks from a female at all males.
void look_from(Assigning& work, std::size_t f, PairCost way) {
  work.is_female_seen[f] = 1;
  work.way_to_female[f] = way;
  const PairCost base = way - work.female_price[f];
  const PairCost* const costs = work.problem.costs.data() + f * work.problem.males;
  for (std::size_t m = 0; m < work.problem.males; ++m) {
    const PairCost there = base + costs[m] - work.male_price[m];
    if (costs[m] != forbidden_pair && there < work.way_to_male[m]) work.way_to_male[m] = there;
  }
}

/// The nearest male that has not been looked at; nobody when none can be reached.
std::size_t nearest_male(const Assigning& work) {
  std::size_t nearest = nobody;
  PairCost way = unreached;
  for (std::size_t m = 0; m < work.problem.males; ++m) {
    if (work.is_male_seen[m] != 0 || work.way_to_male[m] >= way) continue;
    nearest = m;
    way = work.way_to_male[m];
  }
  return nearest;
}

/// Finds the distances of everybody from the given females; yields whether a male with room is among those reached.
bool find_ways(Assigning& work, std::span<const std::size_t> starts) {
  forget_ways(work);
  std::fill(work.way_to_male.begin(), work.way_to_male.end(), unreached);
  bool has_room = false;
  for (const std::size_t f : starts) look_from(work, f, 0);
  for (;;) {
    const std::size_t m = nearest_male(work);
    if (m == nobody) return has_room;
    work.is_male_seen[m] = 1;
    has_room = has_room || work.room_of_male[m] > 0;
    for (const Made& made : work.of_male[m]) {
      if (work.is_female_seen[made.female] == 0) look_from(work, made.female, work.way_to_male[m]);
    }
  }
}

/// Makes the shortest ways cost nothing.
void follow_ways(Assigning& work) {
  PairCost farthest = 0;
  for (const PairCost way : work.way_to_male) farthest = std::max(farthest, way == unreached ? 0 : way);
  for (std::size_t f = 0; f < work.problem.females; ++f) {
    if (work.is_female_seen[f] != 0) work.female_price[f] += farthest - work.way_to_female[f];
  }
  for (std::size_t m = 0; m < work.problem.males; ++m) {
    if (work.is_male_seen[m] != 0) work.male_price[m] -= farthest - work.way_to_male[m];
  }
}

std::vector<std::size_t> lacking_females(const Assigning& work) {
  std::vector<std::size_t> lacking;
  for (std::size_t f = 0; f < work.problem.females; ++f) {
    if (work.left_of_female[f] > 0) lacking.push_back(f);
  }
  return lacking;
}

Assigning make_assigning(const PairProblem& problem) {
  Assigning work{problem, {}, {}, {}, problem.of_female, problem.of_male, {}, {}, {}, {}, {}, {}, {}};
  work.female_price.assign(problem.females, 0);
  work.male_price.assign(problem.males, 0);
  work.of_male.resize(problem.males);
  work.way_to_male.assign(problem.males, 0);
  work.way_to_female.assign(problem.females, 0);
  work.is_male_seen.assign(problem.males, 0);
  work.is_female_seen.assign(problem.females, 0);
  work.female_before.assign(problem.males, nobody);
  work.male_before.assign(problem.females, nobody);
  work.next_male.assign(problem.females, 0);
  return work;
}

/// Who stands in whose way: everybody whom the females that lack matings can reach. All of them are named, also those
/// that have nothing to do with each other.
void tell_stuck(Assigning& work, std::span<const std::size_t> lacking, PairAssignment& result) {
  find_ways(work, lacking);
  for (std::size_t f = 0; f < work.problem.females; ++f) {
    if (work.is_female_seen[f] != 0) result.stuck_females.push_back(f);
  }
  for (std::size_t m = 0; m < work.problem.males; ++m) {
    if (work.is_male_seen[m] != 0) result.their_males.push_back(m);
  }
}

void list_pairs(const Assigning& work, PairAssignment& result) {
  for (std::size_t m = 0; m < work.of_male.size(); ++m) {
    for (const Made& made : work.of_male[m]) {
      result.pairs.push_back({made.female, m, made.matings});
      result.total += made.matings * work.problem.cost(made.female, m);
    }
  }
  std::sort(result.pairs.begin(), result.pairs.end(), [](const AssignedPair& a, const AssignedPair& b) {
    return a.female != b.female ? a.female < b.female : a.male < b.male;
  });
  result.female_price = work.female_price;
  result.male_price = work.male_price;
}

}  // namespace

PairCost cost_of_kinship(double kinship) {
  return std::llround(std::max(0.0, kinship) * cost_scale);
}

PairAssignment assign_pairs(const PairProblem& problem, const PlanWatch& watch) {
  PairAssignment result;
  Assigning work = make_assigning(problem);
  set_first_prices(work);
  std::int64_t looked_at = 0;
  for (;;) {
    result.is_stopped = watch.is_stopped();
    if (result.is_stopped) return result;
    go_free_ways(work);
    const std::vector<std::size_t> lacking = lacking_females(work);
    if (lacking.empty()) break;
    if (!find_ways(work, lacking)) {
      tell_stuck(work, lacking, result);
      return result;
    }
    follow_ways(work);
    looked_at += std::ssize(problem.costs);
    if (watch.progress != nullptr) count_progress(*watch.progress, looked_at);
  }
  list_pairs(work, result);
  return result;
}

bool is_proven(const PairProblem& problem, const PairAssignment& assignment) {
  std::vector<std::int64_t> of_female(problem.females), of_male(problem.males);
  PairCost total = 0, of_prices = 0;
  for (const AssignedPair& pair : assignment.pairs) {
    const PairCost cost = problem.cost(pair.female, pair.male);
    if (cost == forbidden_pair || pair.matings <= 0) return false;
    total += cost * pair.matings;
    of_female[pair.female] += pair.matings;
    of_male[pair.male] += pair.matings;
  }
  for (std::size_t f = 0; f < problem.females; ++f) {
    if (of_female[f] != problem.of_female[f]) return false;
    of_prices += problem.of_female[f] * assignment.female_price[f];
    for (std::size_t m = 0; m < problem.males; ++m) {
      const PairCost cost = problem.cost(f, m);
      if (cost != forbidden_pair && cost < assignment.female_price[f] + assignment.male_price[m]) return false;
    }
  }
  for (std::size_t m = 0; m < problem.males; ++m) {
    if (of_male[m] != problem.of_male[m]) return false;
    of_prices += problem.of_male[m] * assignment.male_price[m];
  }
  return total == of_prices && total == assignment.total;
}

}  // namespace pedigreewatch
