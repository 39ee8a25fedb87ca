// The sum is parted. With p = 2 / (EqG_i + EqG_j) the increase of a pair is p f and a rest of the order of f^2.
//
// The sum of p f over all pairs needs no pairs: 2 / x is very nearly a sum of exponentials, an exponential of
// EqG_i + EqG_j is a product of one number for each animal, and the relationships of all animals with all, each weighed
// with such numbers, are one pass up the pedigree.
//
// The rest is a few per cent of the whole: it is worked out for random animals with all others, as many as make its
// error small.

#include "diversity/coancestry_of_many.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "core/memory_hints.h"
#include "core/processor_clones.h"
#include "core/shares.h"

namespace pedigreewatch {
namespace {

/// Random numbers that are the same on every machine (splitmix64).
struct SampleNumbers {
  std::uint64_t state = 0x50656469677265ULL;  // any number will do, as long as it stays

  std::uint64_t below(std::uint64_t limit) {
    state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t value = state;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return (value ^ (value >> 31)) % limit;
  }
};

/// Part of 1 / x: factor * exp(-rate * x).
struct Exponential {
  double rate = 0.0, factor = 0.0;
};

/// 1 / x as a sum of exponentials, to a hundred-thousandth of it for x from `least` to `most`: the integral of
/// exp(u - x exp(u)) over all u, by the trapezoidal rule, where the part below the first u is all but a constant.
std::vector<Exponential> exponentials_of_inverse(double least, double most) {
  constexpr double step = 0.6, below = 7.0, above = 2.6;
  const double first = -std::log(most) - below, last = above - std::log(least);
  std::vector<Exponential> sum = {{0.0, std::exp(first - 0.5 * step)}};
  double u = first;
  while (u < last + step) {
    sum.push_back({std::exp(u), step * std::exp(u)});
    u += step;
  }
  return sum;
}

/// Puts the numbers of the animals for up to `coancestry_block` exponentials onto their lanes. Yields the sums of what
/// each animal has with itself.
BlockLanes place_weights(const PairedAnimals& animals, std::span<const double> inbreeding,
                         std::span<const Exponential> exponentials, ByNumber<BlockLanes>& lanes) {
  std::fill(lanes.values.begin(), lanes.values.end(), BlockLanes{});
  BlockLanes selves{};
  for (std::size_t place = 0; place < animals.pedigree.members.size(); ++place) {
    BlockLanes own{};
    for (std::size_t k = 0; k < exponentials.size(); ++k) {
      own.each[k] = std::exp(-exponentials[k].rate * animals.equivalents[place]);
    }
    lanes[animals.pedigree.members[place]] = own;
    selves.each += own.each * own.each * (1.0 + inbreeding[place]);
  }
  return selves;
}

/// Adds to `sums`, over all pairs in both orders and each animal with itself, the product of their numbers and their
/// relationship.
PEDIGREEWATCH_PROCESSOR_CLONES
void add_weighed_relationships(const ReferencePedigree& pedigree, ByNumber<BlockLanes>& lanes, BlockLanes& sums) {
  for (std::int32_t j = pedigree.count(); j > 0; --j) {
    if (j > look_ahead) {
      fetch_early(&lanes[pedigree.sire[j - look_ahead]]);
      fetch_early(&lanes[pedigree.dam[j - look_ahead]]);
    }
    const BlockVector own = lanes[j].each;
    sums.each += own * own * pedigree.own_variance[j];
    lanes[pedigree.sire[j]].each += own * 0.5;
    lanes[pedigree.dam[j]].each += own * 0.5;
  }
}

/// The sum of p f over all pairs of different animals.
double first_order_sum(const PairedAnimals& animals, std::span<const double> inbreeding, ByNumber<BlockLanes>& lanes) {
  constexpr double least_sum = 0.5;  // a founder and an animal with one known parent that is a founder
  const auto [shallowest, deepest] = std::minmax_element(animals.equivalents.begin(), animals.equivalents.end());
  const double most = std::max(2.0 * *deepest, least_sum);
  const std::vector<Exponential> exponentials =
      exponentials_of_inverse(std::clamp(2.0 * *shallowest, least_sum, most), most);
  double sum = 0.0;
  for (std::size_t first = 0; first < exponentials.size(); first += coancestry_block) {
    const std::span<const Exponential> block =
        std::span(exponentials).subspan(first, std::min(coancestry_block, exponentials.size() - first));
    const BlockLanes selves = place_weights(animals, inbreeding, block, lanes);
    BlockLanes all{};
    add_weighed_relationships(animals.pedigree, lanes, all);
    for (std::size_t k = 0; k < block.size(); ++k) {  // 2 / x, half of the relationship, half of the ordered pairs
      sum += 0.5 * block[k].factor * (all.each[k] - selves.each[k]);
    }
  }
  return sum;
}

/// Kinships up to this are small.
constexpr double small_kinship = 1.0 / 16.0;

/// What the increase of a pair has beyond p f, by a few terms of its series: they will do for small kinships. Of one
/// pair or of many side by side.
template <typename Numbers>
PEDIGREEWATCH_PART_OF_CLONES void set_rest_of_small(const Numbers& kinship, const Numbers& p, Numbers& rest) {
  const Numbers third = (2.0 - p) / 3.0, fourth = (3.0 - p) / 4.0, fifth = (4.0 - p) / 5.0, sixth = (5.0 - p) / 6.0;
  const Numbers series =
      1.0 + third * kinship * (1.0 + fourth * kinship * (1.0 + fifth * kinship * (1.0 + sixth * kinship)));
  rest = 0.5 * p * (1.0 - p) * kinship * kinship * series;
}

/// The same of a kinship that is not small.
double rest_of_large(double kinship, double p) {
  return 1.0 - std::pow(1.0 - std::min(kinship, 1.0), p) - p * kinship;
}

/// The pairs of the animals of a block with all others, lane by lane.
struct BlockRows {
  BlockLanes increase = {}, rest = {};
  std::array<std::int64_t, coancestry_block> count = {};
};

/// Adds the pairs of the animals of a block, which stand at `places`, with all others. Lanes that have no animal get
/// numbers that mean nothing.
PEDIGREEWATCH_PROCESSOR_CLONES
void add_rows(const PairedAnimals& animals, const ByNumber<BlockLanes>& lanes, std::span<const std::size_t> places,
              BlockRows& rows) {
  BlockVector own_generations{};
  for (std::size_t lane = 0; lane < places.size(); ++lane) own_generations[lane] = animals.equivalents[places[lane]];
  std::size_t other = 0;
  for (const std::int32_t member : animals.pedigree.members) {
    const BlockVector generations = own_generations + animals.equivalents[other];
    const BlockVector p = 2.0 / generations;
    BlockVector kinship = lanes[member].each * 0.5, rest, first = p;
    set_rest_of_small<BlockVector>(kinship, p, rest);
    for (std::size_t lane = 0; lane < places.size(); ++lane) {
      const bool is_pair = generations[lane] > 0.0 && other != places[lane];
      rows.count[lane] += is_pair ? 1 : 0;
      if (!is_pair || kinship[lane] <= 0.0) {
        kinship[lane] = rest[lane] = first[lane] = 0.0;
      } else if (kinship[lane] > small_kinship) {
        rest[lane] = rest_of_large(kinship[lane], p[lane]);
      }
    }
    rows.rest.each += rest;
    rows.increase.each += first * kinship + rest;
    ++other;
  }
}

/// Places in an order drawn with a fixed seed, as many at a time as are asked for.
struct DrawnOrder {
  SampleNumbers random;
  std::vector<std::uint32_t> places;
  std::size_t drawn = 0;

  explicit DrawnOrder(std::size_t count) : places(count) { std::iota(places.begin(), places.end(), 0U); }

  /// Ascending.
  std::vector<std::size_t> next(std::size_t wanted) {
    std::vector<std::size_t> block;
    for (; block.size() < wanted && drawn < places.size(); ++drawn) {
      std::swap(places[drawn], places[drawn + random.below(places.size() - drawn)]);
      block.push_back(places[drawn]);
    }
    std::sort(block.begin(), block.end());
    return block;
  }
};

/// By place: what the half and full sibs of an animal would add to its rest if they were as deep as it is. Animals
/// differ in their rests mostly by how many sibs they have.
std::vector<double> shares_of_sibs(const PairedAnimals& animals) {
  constexpr double kinship_of_half_sibs = 0.125;
  const ReferencePedigree& pedigree = animals.pedigree;
  const auto own_share = [&](std::size_t place) {
    const double p = 1.0 / std::max(animals.equivalents[place], 1.0);
    return kinship_of_half_sibs * std::sqrt(0.5 * p * (1.0 - p));
  };
  ByNumber<double> of_young(pedigree.count());
  for (std::size_t place = 0; place < animals.equivalents.size(); ++place) {
    const std::int32_t member = pedigree.members[place];
    of_young[pedigree.sire[member]] += own_share(place);
    of_young[pedigree.dam[member]] += own_share(place);
  }
  std::vector<double> shares;
  shares.reserve(animals.equivalents.size());
  for (std::size_t place = 0; place < animals.equivalents.size(); ++place) {
    const std::int32_t member = pedigree.members[place];
    const double own = own_share(place);
    const double of_all = of_young[pedigree.sire[member]] + of_young[pedigree.dam[member]] - 2.0 * own;
    shares.push_back(pedigree.is_founder(member) ? 0.0 : own * of_all);
  }
  return shares;
}

/// What random animals yield: the rest of each, what its sibs would give, and its mean increase.
struct SampledRows {
  std::vector<double> rests, of_sibs, means;
};

/// The mean rest of all animals and its standard error: as it lies in the sample, moved by how far the sibs of the
/// sample are from those of all (regression estimate).
struct MeanRest {
  double mean = 0.0, error = 0.0;
};

double mean_of(std::span<const double> values) {
  return mean_over(std::accumulate(values.begin(), values.end(), 0.0), values.size());
}

MeanRest estimate_rest(const SampledRows& rows, double sibs_of_all, std::size_t animals) {
  const double rest = mean_of(rows.rests), sibs = mean_of(rows.of_sibs);
  double products = 0.0, squares = 0.0;
  for (std::size_t k = 0; k < rows.rests.size(); ++k) {
    products += (rows.of_sibs[k] - sibs) * (rows.rests[k] - rest);
    squares += (rows.of_sibs[k] - sibs) * (rows.of_sibs[k] - sibs);
  }
  const double slope = squares > 0.0 ? products / squares : 0.0;
  double left = 0.0;
  for (std::size_t k = 0; k < rows.rests.size(); ++k) {
    const double difference = rows.rests[k] - rest - slope * (rows.of_sibs[k] - sibs);
    left += difference * difference;
  }
  const double drawn = static_cast<double>(rows.rests.size());
  const double share_left_out = 1.0 - drawn / static_cast<double>(animals);
  return {rest + slope * (sibs_of_all - sibs), std::sqrt(left / (drawn - 2.0) * share_left_out / drawn)};
}

/// Adds the rows of some animals, by their places.
void add_block(const PairedAnimals& animals, std::span<const std::size_t> places, ByNumber<BlockLanes>& lanes,
               SampledRows& rows) {
  std::vector<std::int32_t> block;
  for (const std::size_t place : places) block.push_back(animals.pedigree.members[place]);
  relate_block(animals.pedigree, block, animals.pedigree.count(), lanes);
  BlockRows sums;
  add_rows(animals, lanes, places, sums);
  for (std::size_t lane = 0; lane < places.size(); ++lane) {
    rows.rests.push_back(sums.rest.each[lane]);
    if (sums.count[lane] > 0) rows.means.push_back(sums.increase.each[lane] / static_cast<double>(sums.count[lane]));
  }
}

/// The rest of all pairs from as many animals as it takes.
struct RestOfPairs {
  double sum = 0.0;
  std::vector<double> means;  ///< of the animals that were drawn
};

RestOfPairs sample_rest(const PairedAnimals& animals, double first_order, ByNumber<BlockLanes>& lanes) {
  constexpr double most_error = 0.0005;  // of the whole sum: four times that is 0.2 %
  constexpr std::size_t fewest_rows = 64;
  const std::size_t count = animals.equivalents.size();
  const std::vector<double> of_sibs = shares_of_sibs(animals);
  const double sibs_of_all = mean_of(of_sibs);
  DrawnOrder order(count);
  SampledRows rows;
  for (;;) {
    const std::vector<std::size_t> places = order.next(coancestry_block);
    add_block(animals, places, lanes, rows);
    for (const std::size_t place : places) rows.of_sibs.push_back(of_sibs[place]);
    const bool is_every_animal = rows.rests.size() == count;
    if (rows.rests.size() < fewest_rows && !is_every_animal) continue;
    const MeanRest rest = estimate_rest(rows, sibs_of_all, count);
    const double sum = 0.5 * static_cast<double>(count) * rest.mean;  // each pair stands in two rows
    const double error = 0.5 * static_cast<double>(count) * rest.error;
    if (is_every_animal || error <= most_error * (first_order + sum)) return {sum, std::move(rows.means)};
  }
}

/// Pairs of which at least one has a known parent.
std::int64_t count_pairs(std::span<const double> equivalents) {
  const auto pairs = [](std::int64_t n) { return n * (n - 1) / 2; };
  return pairs(std::ssize(equivalents)) - pairs(std::count(equivalents.begin(), equivalents.end(), 0.0));
}

}  // namespace

EffectiveSizeEstimate estimate_from_many(const PopulationStore& store, const PairedAnimals& animals) {
  std::vector<double> inbreeding;
  inbreeding.reserve(animals.pedigree.members.size());
  for (const std::int32_t member : animals.pedigree.members) {
    inbreeding.push_back(double{store.inbreeding[animals.pedigree.position[member]]});
  }
  ByNumber<BlockLanes> lanes = make_lanes(animals.pedigree);
  EffectiveSizeEstimate estimate;
  estimate.count = count_pairs(animals.equivalents);
  if (estimate.count == 0) return estimate;
  const double first_order = first_order_sum(animals, inbreeding, lanes);
  const RestOfPairs rest = sample_rest(animals, first_order, lanes);
  estimate.is_sample = true;
  estimate.mean_increase = (first_order + rest.sum) / static_cast<double>(estimate.count);
  std::optional<double> error;
  if (rest.means.size() > 2) {
    error = 2.0 * *standard_deviation(rest.means) / std::sqrt(static_cast<double>(animals.equivalents.size()));
  }
  complete_estimate(estimate, error);
  return estimate;
}

}  // namespace pedigreewatch
