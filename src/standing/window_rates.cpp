// Lines are followed from the youngest animal to the oldest: in each step those in one animal go on to its parents,
// where they may meet the lines that wait in older animals. How many pairs of lines there are to meet follows from the
// shares of the lines alone; how many have met is kinship, from one pass over the contributions (Colleau, 2002).

#include "standing/window_rates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "diversity/founders.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {
namespace {

/// What can meet in one step, as a part of all pairs, unless it has met before.
struct PairStep {
  double pairs = 0.0;
  double generations = 0.0;  ///< that the pairs still followed have gone back until then
};

struct PairWalk {
  std::vector<PairStep> steps;

  double sum() const {
    double sum = 0.0;
    for (const PairStep& step : steps) sum += step.pairs;
    return sum;
  }
};

std::int32_t known_parents(const PopulationStore& store, std::int32_t animal) {
  return (store.sire_no[animal] != 0 ? 1 : 0) + (store.dam_no[animal] != 0 ? 1 : 0);
}

/// By number: the lines that wait in an animal until its own step; at first those that begin in it.
ByNumber<double> lines_that_begin(const WindowPedigree& pedigree) {
  ByNumber<double> lines(pedigree.store.size());
  for (const std::int32_t member : pedigree.members) lines[member] += 1.0;
  return lines;
}

/// By number: the lines of the members that lead through each animal.
ByNumber<double> lines_of_members(const WindowPedigree& pedigree) {
  const PopulationStore& store = pedigree.store;
  ByNumber<double> lines = lines_that_begin(pedigree);
  for (std::int32_t j = store.animal_count; j > 0; --j) {
    lines[store.sire_no[j]] += 0.5 * lines[j];
    lines[store.dam_no[j]] += 0.5 * lines[j];
  }
  lines[0] = 0.0;
  return lines;
}

/// The part of the lines in animals born in the window that have a parent to go on to.
double known_share(const WindowPedigree& pedigree, const ByNumber<double>& lines) {
  double all = 0.0, known = 0.0;
  for (std::int32_t j = 1; j <= pedigree.store.animal_count; ++j) {
    if (pedigree.is_inside[j] == 0) continue;
    all += lines[j];
    known += 0.5 * lines[j] * known_parents(pedigree.store, j);
  }
  return all > 0.0 ? known / all : 0.0;
}

/// Makes the steps those of pairs in which both sides can go on, and of pairs of different members.
void correct_steps(PairWalk& walk, double known, double members) {
  const double all = walk.sum();
  if (all <= 0.0) return;
  // Of the two steps that make a generation of a pair, the first is of use only if the second has a parent to go to.
  const double completed = 0.5 * (1.0 + known);
  // A member is paired with itself too, and those pairs are one generation behind.
  const double of_different = (all + known * known / members) / all;
  for (PairStep& step : walk.steps) step.pairs *= completed * of_different;
}

PairWalk follow_pairs(const WindowPedigree& pedigree) {
  const PopulationStore& store = pedigree.store;
  const ByNumber<double> lines = lines_of_members(pedigree);
  const double all = static_cast<double>(pedigree.members.size());
  ByNumber<double> arriving = lines_that_begin(pedigree);
  double waiting = all, gone = 0.0;
  PairWalk walk;
  for (std::int32_t j = store.animal_count; j > 0; --j) {
    waiting -= arriving[j];
    const double moving = 0.5 * lines[j] * known_parents(store, j);
    if (moving > 0.0) {
      const double pairs = moving * waiting / (all * all), followed = (waiting + lines[j]) / all;
      walk.steps.push_back({pairs, gone});
      gone += pairs / (followed * followed);
    }
    for (const std::int32_t parent : {store.sire_no[j], store.dam_no[j]}) {
      if (parent == 0) continue;
      arriving[parent] += 0.5 * lines[j];
      waiting += 0.5 * lines[j];
    }
  }
  correct_steps(walk, known_share(pedigree, lines), all);
  return walk;
}

/// The rate at which `met` of all pairs meet: pairs that have met before can no longer do so.
std::optional<double> rate_of(double met, const PairWalk& walk) {
  const double all = walk.sum();
  if (all <= 0.0) return std::nullopt;
  constexpr int rounds = 20;  // each divides the distance by ten or more
  double rate = std::clamp(met / all, 0.0, 1.0);
  for (int round = 0; round < rounds; ++round) {
    double left = 0.0;
    for (const PairStep& step : walk.steps) left += step.pairs * std::exp(-rate * step.generations);
    rate = std::clamp(met / left, 0.0, 1.0);
  }
  return rate;
}

/// Mean kinship of different members.
double kinship_of_pairs(const WindowPedigree& window, const ReferencePedigree& pedigree,
                        const ByNumber<double>& genes) {
  double all = 0.0, own = 0.0;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) all += genes[j] * genes[j] * pedigree.own_variance[j];
  for (const std::int32_t member : window.members) own += 1.0 + double{window.store.inbreeding[member]};
  const double animals = static_cast<double>(window.members.size());
  return 0.5 * (all - own) / (animals * (animals - 1.0));
}

double relative_error_of(const ReferencePedigree& pedigree, const ByNumber<double>& genes) {
  constexpr double spread_of_simulated_breeds = 0.5;
  ByNumber<double> of_one(pedigree.count());  // pairs of lines that begin in one member
  for (const std::int32_t member : pedigree.members) of_one[member] = 1.0;
  double sum = 0.0, squares = 0.0;
  for (std::int32_t j = pedigree.count(); j > 0; --j) {
    for (const std::int32_t parent : {pedigree.sire[j], pedigree.dam[j]}) of_one[parent] += 0.25 * of_one[j];
    const double met = std::max(0.0, genes[j] * genes[j] - of_one[j]) * pedigree.own_variance[j];
    sum += met;
    squares += met * met;
  }
  return sum > 0.0 ? spread_of_simulated_breeds * std::sqrt(squares) / sum : 0.0;
}

}  // namespace

RateEstimate estimate_by_kinship(const WindowPedigree& window) {
  RateEstimate estimate;
  if (window.members.size() < 2) return estimate;
  const PairWalk walk = follow_pairs(window);
  const ReferencePedigree pedigree = make_reference_pedigree(window.store, window.members);
  const ByNumber<double> genes = gene_contributions(pedigree);
  estimate.generations = walk.sum();
  estimate.rate = rate_of(std::max(0.0, kinship_of_pairs(window, pedigree, genes)), walk);
  estimate.relative_error = relative_error_of(pedigree, genes);
  return estimate;
}

namespace {

constexpr std::size_t most_generations = 32;
using KnownShares = std::array<float, most_generations>;

/// The known share of each generation of ancestors, the parents first, of all animals with offspring: few of a large
/// breed have any.
struct KnownGenerations {
  ByNumber<std::int32_t> place_of;  ///< by number; 0 without offspring
  std::vector<KnownShares> shares;  ///< by place

  const KnownShares& of(std::int32_t number) const { return shares[static_cast<std::size_t>(place_of[number])]; }
};

KnownGenerations known_generations(const PopulationStore& store) {
  KnownGenerations known{ByNumber<std::int32_t>(store.size()), {}};
  std::int32_t parents = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.is_parent[i] != 0) known.place_of[i] = ++parents;
  }
  known.shares.resize(static_cast<std::size_t>(parents) + 1);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.is_parent[i] == 0) continue;
    KnownShares& own = known.shares[static_cast<std::size_t>(known.place_of[i])];
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent == 0) continue;
      const KnownShares& of_parent = known.of(parent);
      own[0] += 0.5F;
      for (std::size_t g = 1; g < most_generations; ++g) own[g] += 0.5F * of_parent[g - 1];
    }
  }
  return known;
}

/// Sums over the young of one sire, or of all.
struct InbreedingSums {
  double inbreeding = 0.0, generations = 0.0;
};

/// Generations in which both lines of the parents' pair are known, or either is where one ends sooner by its years.
double generations_of_pair(const KnownShares& sire, const KnownShares& dam) {
  double sum = 0.0;
  for (std::size_t g = 0; g < most_generations; ++g) sum += double{sire[g]} * double{dam[g]};
  return sum;
}

/// The sums over all members with two parents in the window, and over those of each sire.
struct SumsOfSires {
  InbreedingSums all;
  ByNumber<InbreedingSums> by_sire;
  double animals = 0.0;
};

/// F of each member of a window, and the generations over which it is seen; zeros without two parents.
std::vector<InbreedingSums> sums_of_members(const WindowPedigree& window) {
  const PopulationStore& store = window.store;
  const KnownGenerations known = known_generations(store);
  std::vector<InbreedingSums> sums;
  for (const std::int32_t member : window.members) {
    InbreedingSums& own = sums.emplace_back();
    const std::int32_t sire = store.sire_no[member], dam = store.dam_no[member];
    if (sire == 0 || dam == 0) continue;
    own.inbreeding = std::max(0.0, double{store.inbreeding[member]});
    own.generations = generations_of_pair(known.of(sire), known.of(dam));
  }
  return sums;
}

SumsOfSires sum_between(const WindowPedigree& near, const WindowPedigree& far) {
  const std::vector<InbreedingSums> of_near = sums_of_members(near), of_far = sums_of_members(far);
  SumsOfSires sums{{}, ByNumber<InbreedingSums>(far.store.size())};
  for (std::size_t place = 0; place < far.members.size(); ++place) {
    const std::int32_t sire = far.store.sire_no[far.members[place]], dam = far.store.dam_no[far.members[place]];
    if (sire == 0 || dam == 0) continue;
    for (InbreedingSums* const sum : {&sums.by_sire[sire], &sums.all}) {
      sum->inbreeding += of_far[place].inbreeding - of_near[place].inbreeding;
      sum->generations += of_far[place].generations - of_near[place].generations;
    }
    sums.animals += 1.0;
  }
  return sums;
}

}  // namespace

RateEstimate estimate_by_inbreeding(const WindowPedigree& near, const WindowPedigree& far) {
  constexpr double common_history = 1.5;  // sires are related: so much wider did simulated breeds spread
  const SumsOfSires sums = sum_between(near, far);
  RateEstimate estimate;
  if (sums.all.generations <= 0.0) return estimate;
  estimate.generations = sums.all.generations / sums.animals;
  estimate.rate = std::max(0.0, sums.all.inbreeding / sums.all.generations);
  double squares = 0.0;
  for (const InbreedingSums& sum : sums.by_sire.values) {
    const double residue = sum.inbreeding - *estimate.rate * sum.generations;
    squares += residue * residue;
  }
  if (sums.all.inbreeding > 0.0) estimate.relative_error = common_history * std::sqrt(squares) / sums.all.inbreeding;
  return estimate;
}

double effective_size_of(double rate) {
  return rate > 0.0 ? 1.0 / (2.0 * rate) : std::numeric_limits<double>::infinity();
}

}  // namespace pedigreewatch
