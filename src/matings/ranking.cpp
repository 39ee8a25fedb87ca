// 1. Each female is walked with all males, 16 side by side, relatives together. What the plan asks for is kept.
// 2. The pairs are ordered.
// 3. Those that were kept are gone through again for their common ancestors, the males in blocks, so that the lists of
//    ancestors of one block are in memory and not those of all.

#include "matings/ranking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

#include "matings/candidates.h"

namespace pedigreewatch {
namespace {

void count_pairs(const MatingWatch& watch, std::int64_t count) {
  if (watch.progress != nullptr) count_progress(*watch.progress, count);
}

/// Places in the list of males, counted from 0, so that neighbours have many ancestors in common.
std::vector<std::size_t> gather_relatives(const MatingWork& work, std::span<const std::int32_t> males) {
  std::vector<std::size_t> places(males.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  const auto key = [&](std::size_t place) {
    const std::int32_t position = males[place];
    return std::tuple(work.store.sire_no[position], work.store.dam_no[position], position);
  };
  std::sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) { return key(a) < key(b); });
  return places;
}

/// F of the offspring of one female with each of the males, in their order.
struct FemaleWalk {
  const MatingWork& work;
  std::span<const std::int32_t> males;
  std::vector<std::size_t> walk_order;
  AncestorWalk walk;
  std::vector<float> f;  ///< by place among the males
};

void walk_female(FemaleWalk& walk, std::int32_t dam) {
  const ByNumber<std::int32_t>& number_of = walk.work.ancestors.number_of_animal;
  std::array<Mating, lane_count> batch;
  std::array<float, lane_count> results = {};
  for (std::size_t first = 0; first < walk.walk_order.size(); first += lane_count) {
    const std::size_t size = std::min(lane_count, walk.walk_order.size() - first);
    const auto places = std::span(walk.walk_order).subspan(first, size);
    for (std::size_t lane = 0; lane < size; ++lane) {
      batch[lane] = {number_of[walk.males[places[lane]]], number_of[dam]};
    }
    walk_ancestors(walk.walk, std::span(batch).first(size), results);
    for (std::size_t lane = 0; lane < size; ++lane) walk.f[places[lane]] = results[lane];
  }
}

/// F in millionths. Smaller differences come from rounding: unrelated parents may yield a little less than 0, and must
/// not stand before others for that.
std::int64_t millionths(float f) {
  return std::llround(1e6 * double{f});
}

/// The pairs of one female in the order of the males; all of them are counted.
std::vector<MatingPair> pairs_of_female(const FemaleWalk& walk, std::int32_t dam, double most_inbreeding,
                                        MatingChoice& choice) {
  std::vector<MatingPair> pairs;
  const std::int64_t beyond_before = choice.beyond;
  for (std::size_t place = 0; place < walk.males.size(); ++place) {
    const MatingPair pair = {dam, walk.males[place], walk.f[place]};
    if (choice.examined == 0 || millionths(pair.f) < millionths(choice.lowest.f)) choice.lowest = pair;
    if (choice.examined == 0 || millionths(pair.f) > millionths(choice.highest.f)) choice.highest = pair;
    ++choice.examined;
    if (is_beyond(pair.f, most_inbreeding)) ++choice.beyond;
    pairs.push_back(pair);
  }
  if (!pairs.empty() && choice.beyond - beyond_before == std::ssize(pairs)) ++choice.females_beyond;
  return pairs;
}

/// Pairs that are equal keep their order.
void order_pairs(const MatingWork& work, std::vector<MatingPair>& pairs) {
  std::stable_sort(pairs.begin(), pairs.end(), [&](const MatingPair& a, const MatingPair& b) {
    const bool is_a_shallow = is_shallow(work.store, a.male), is_b_shallow = is_shallow(work.store, b.male);
    if (is_a_shallow != is_b_shallow) return is_b_shallow;
    const std::int64_t f_of_a = millionths(a.f), f_of_b = millionths(b.f);
    if (f_of_a != f_of_b) return f_of_a < f_of_b;
    return mean_kinship_of(work, a.male).value_or(0.0) < mean_kinship_of(work, b.male).value_or(0.0);
  });
}

/// Leaves of one female's pairs those that the plan asks for.
void keep_wanted(const MatingWork& work, const MatingPlan& plan, std::vector<MatingPair>& pairs) {
  if (plan.limit) std::erase_if(pairs, [&](const MatingPair& pair) { return is_beyond(pair.f, *plan.limit); });
  if (!plan.best) return;
  order_pairs(work, pairs);
  const std::int64_t count = std::min<std::int64_t>(std::ssize(pairs), *plan.best);
  pairs.resize(static_cast<std::size_t>(count));
}

/// Males whose ancestors are in memory at the same time.
constexpr std::size_t block_size = 256;

/// The order in which pairs are described: block by block of the males, in each of them female by female.
std::vector<std::size_t> plan_description(std::span<const MatingPair> pairs, const ByNumber<std::size_t>& place_of) {
  std::vector<std::size_t> order(pairs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto key = [&](std::size_t k) {
    return std::tuple(place_of[pairs[k].male] / block_size, pairs[k].female, place_of[pairs[k].male]);
  };
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return key(a) < key(b); });
  return order;
}

/// The place of each male of the pairs among all of them, by position.
ByNumber<std::size_t> places_of_males(const PopulationStore& store, std::span<const MatingPair> pairs) {
  constexpr std::size_t unseen = SIZE_MAX;
  ByNumber<std::size_t> place_of(store.size(), unseen);
  std::size_t count = 0;
  for (const MatingPair& pair : pairs) {
    if (place_of[pair.male] == unseen) place_of[pair.male] = count++;
  }
  return place_of;
}

bool has_animal(const PopulationStore& store, std::int32_t position) {
  return position > 0 && position <= store.animal_count;
}

}  // namespace

float known_generations(const PopulationStore& store, std::int32_t position) {
  return store.generation_equivalents.values.empty() ? 0.0F : store.generation_equivalents[position];
}

bool is_shallow(const PopulationStore& store, std::int32_t position) {
  return known_generations(store, position) < enough_equivalents;
}

std::optional<std::int32_t> age_of(const PopulationStore& store, std::int32_t position) {
  const std::int32_t year = store.birth_year[position];
  return year == 0 ? std::nullopt : std::optional(store.birth_years.last - year);
}

bool is_beyond(float f, double bound) {
  constexpr double rounding = 1e-6;
  return double{f} > bound + rounding;
}

std::int64_t pair_count(const MatingPlan& plan) {
  const std::int64_t females = std::ssize(plan.females), males = std::ssize(plan.males);
  return females * males;
}

std::vector<std::int32_t> candidates_of(const MatingPlan& plan) {
  std::vector<std::int32_t> candidates = plan.females;
  candidates.insert(candidates.end(), plan.males.begin(), plan.males.end());
  return candidates;
}

MatingChoice choose_matings(const MatingWork& work, const MatingPlan& plan, const MatingWatch& watch) {
  MatingChoice choice;
  FemaleWalk walk{work, plan.males, gather_relatives(work, plan.males), make_mating_walk(work),
                  std::vector<float>(plan.males.size())};
  for (const std::int32_t dam : plan.females) {
    choice.is_stopped = is_stop_requested(watch.stop_request);
    if (choice.is_stopped) return choice;
    walk_female(walk, dam);
    std::vector<MatingPair> pairs = pairs_of_female(walk, dam, plan.most_inbreeding, choice);
    keep_wanted(work, plan, pairs);
    choice.pairs.insert(choice.pairs.end(), pairs.begin(), pairs.end());
    count_pairs(watch, choice.examined);
  }
  if (!plan.best) order_pairs(work, choice.pairs);
  return choice;
}

std::vector<KinshipParts> describe_matings(const MatingWork& work, std::span<const MatingPair> pairs,
                                           const MatingWatch& watch) {
  std::vector<KinshipParts> parts(pairs.size());
  const ByNumber<std::size_t> place_of = places_of_males(work.store, pairs);
  std::vector<std::vector<AncestorShare>> of_males(block_size);
  std::vector<AncestorShare> of_female;
  std::int32_t last_female = 0;
  std::size_t block = 0;
  std::int64_t done = 0;
  for (const std::size_t k : plan_description(pairs, place_of)) {
    const std::size_t place = place_of[pairs[k].male];
    if (place / block_size != block) of_males.assign(block_size, {});
    block = place / block_size;
    std::vector<AncestorShare>& of_male = of_males[place % block_size];
    if (of_male.empty()) of_male = list_ancestor_shares(work, pairs[k].male);
    if (pairs[k].female != last_female) of_female = list_ancestor_shares(work, pairs[k].female);
    last_female = pairs[k].female;
    parts[k] = kinship_parts(work, of_female, of_male);
    if (is_stop_requested(watch.stop_request)) return {};
    count_pairs(watch, ++done);
  }
  return parts;
}

std::optional<DescribedMating> mating_of(const PopulationStore& store, std::int32_t sire, std::int32_t dam) {
  if (!has_animal(store, sire) || !has_animal(store, dam)) return std::nullopt;
  const MatingPlan plan = {{dam}, {sire}, {}, {}};
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const MatingChoice choice = choose_matings(work, plan);
  return DescribedMating{choice.pairs.front(), describe_matings(work, choice.pairs).front(), mean_kinship_of(work, dam),
                         mean_kinship_of(work, sire)};
}

std::vector<RankedMale> males_for(const PopulationStore& store, std::int32_t dam, std::int32_t first_year,
                                  std::int32_t last_year) {
  std::vector<RankedMale> ranked;
  if (!has_animal(store, dam)) return ranked;
  const MatingPlan plan = {{dam}, candidates_born(store, first_year, last_year, male), {}, {}};
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  for (const MatingPair& pair : choose_matings(work, plan).pairs) {
    ranked.push_back({pair.male, pair.f, mean_kinship_of(work, pair.male)});
  }
  return ranked;
}

}  // namespace pedigreewatch
