// What is said of a breed: how fast inbreeding rises against the usual limits, how sure that is, and when nothing is
// said. Every bound stands here.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "standing/window_rates.h"

namespace pedigreewatch {

/// Below this effective size inbreeding rises by more than 1 % per generation: faster than is advised (FAO, 1998).
inline constexpr double least_size = 50.0;
/// Above this one by less than half a per cent, what Frankham, Bradshaw and Brook (2014) ask for the next generations.
inline constexpr double safe_size = 100.0;
/// With fewer generation equivalents in the last five years nothing is said ...
inline constexpr double least_equivalents = 3.0;
/// ... and below these it is less sure.
inline constexpr double good_equivalents = 5.0;
/// Of the young of the last ten years, those with both parents known: with fewer nothing is said.
inline constexpr double least_both_known = 0.80;
/// Animals whose lines are followed back; fewer say nothing of a breed.
inline constexpr std::int64_t least_cohort = 20;
/// Generations that pairs of lines can be followed, on average; with fewer nothing is said.
inline constexpr double least_generations = 1.0;
/// A margin reaches so many standard errors to either side: 95 of 100.
inline constexpr double margin_errors = 1.96;

/// Animals with a fault that falsifies inbreeding or the effective size: beyond this share nothing is said. Up to it
/// simulated breeds with wrong parents or wrong years of birth were judged as rightly as without.
inline constexpr double most_faulty_share = 0.02;

enum class Pace : std::uint8_t { too_fast, on_the_edge, within_limit, cannot_be_judged };

/// Why nothing is said: bits.
enum Obstacle : std::uint32_t {
  no_obstacle = 0,
  obstacle_few_animals = 1U << 0U,      ///< too few young
  obstacle_shallow = 1U << 1U,          ///< too few generations known
  obstacle_unknown_parents = 1U << 2U,  ///< too few young with both parents known
  obstacle_faults = 1U << 3U,       ///< the check names too many faults that falsify inbreeding or the effective size
  obstacle_wide_margin = 1U << 4U,  ///< from too fast to within the limit
  obstacle_no_interval = 1U << 5U,  ///< no generation interval is known, so that there are no rates
};

/// The pace that belongs to an effective size.
Pace pace_of_size(double effective_size);

struct Margin {
  double low = 0.0, high = 0.0;
};

/// Of the rate.
Margin margin_of(const RateEstimate& estimate);

/// An animal whose date of birth lies after today, or alone after years without births.
struct LateBirth {
  std::string id;         ///< bytes of the data file
  std::int32_t line = 0;  ///< as findings name it
  std::string date;       ///< or the year alone

  bool operator==(const LateBirth&) const = default;
};

/// Such animals. The last birth year goes by them, and with it the years that everything of today is about, so that one
/// of them changes a verdict.
struct LateBirths {
  std::int64_t count = 0;
  std::vector<LateBirth> first;  ///< at most `most_named_births`, in the order of their lines
};
inline constexpr std::size_t most_named_births = 5;

/// Faults of the data that falsify inbreeding or the effective size.
struct VerdictFaults {
  std::int64_t of_file = 0;     ///< that concern the whole file: each of them is one too many
  std::int64_t of_animals = 0;  ///< that concern single animals, counted by those
  LateBirths late_births = {};  ///< of single animals, each of them one too many

  std::int64_t count() const { return of_file + of_animals + late_births.count; }
};

/// Whether so many faults among so many animals may change a verdict.
bool are_too_many(const VerdictFaults& faults, std::int64_t animals);

/// What an estimate rests on.
struct Evidence {
  std::int64_t cohort = 0;   ///< animals whose lines are followed back
  double equivalents = 0.0;  ///< mean generation equivalents of the young of the last five years
  double both_known = 0.0;   ///< share of the young of the last ten years with both parents known
  bool is_faulty = false;    ///< too many faults of the data, as `are_too_many` says
  bool has_interval = true;  ///< whether a generation interval is known; without one there is no cohort
};

/// The bits of all that stands in the way of a verdict from this estimate.
std::uint32_t obstacles_of(const RateEstimate& estimate, const Evidence& evidence);

/// 3 to 1, the pace of the first being the verdict: 3 when all estimates say the same, 2 when they say two things, else
/// 1; one less, but not below 1, with few generations known, and when the margin of the first reaches into another
/// pace.
int sureness_of(std::span<const RateEstimate> estimates, double equivalents);

/// Whether two rates differ by more than chance: their margins do not overlap.
bool is_real_change(const RateEstimate& before, const RateEstimate& since);

}  // namespace pedigreewatch
