// How a breed stands: how fast inbreeding rises, how sure that is, why, what can be done, what a rule has changed, and
// what the data are worth. Values; page and table put them into words.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <vector>

#include "pedigree/available_animals.h"
#include "pedigree/population_store.h"
#include "standing/early_parents.h"
#include "standing/parents_in_use.h"
#include "standing/rare_lines.h"
#include "standing/verdict.h"
#include "standing/window_rates.h"

namespace pedigreewatch {

/// What a board has decided for its breed, and what is taken without it.
struct StandingSettings {
  std::optional<std::int32_t> rule_year;  ///< the first birth year under a rule, an import or the like
  double most_sire_share = 0.05;          ///< of the young of five years
  double most_inbreeding = 0.0625;        ///< of the offspring of a mating: that of first cousins
  bool is_sire_share_given = false, is_most_inbreeding_given = false;
};

/// Young as close as those of half sibs.
inline constexpr float close_inbreeding = 0.125F;
/// Young with fewer generation equivalents cannot show inbreeding.
inline constexpr float shallow_equivalents = 2.0F;

/// The years that the figures are about.
struct StandingYears {
  std::int32_t last = 0;          ///< the last birth year; 0 where no animal has one
  std::int32_t recent_first = 0;  ///< of the last five years
  std::int32_t cohort_first = 0;  ///< of the last generation interval, whose animals' lines are followed back
  std::int32_t now_first = 0;     ///< of the last three generation intervals, back to which they are followed
  double generation_interval = 0.0;
  std::int32_t known_first = 0;  ///< of the last ten years, whose young tell how often both parents are known

  /// Without one `cohort_first` and `now_first` are the last year, and tell nothing.
  bool has_interval() const { return generation_interval > 0.0; }
};

/// The rates of the verdict, by what they are seen from.
enum StandingWay : std::uint8_t { by_kinship, by_inbreeding, by_parents_in_use };
inline constexpr std::size_t standing_ways = 3;

/// Before and since the year of a rule, both from kinship.
struct RuleEffect {
  std::int32_t year = 0;
  RateEstimate before, since;
  bool is_real = false;                          ///< the margins do not overlap
  std::optional<LackingParents> lacking_before;  ///< why there is no rate before
};

struct YoungOfFiveYears {
  std::int64_t births = 0, births_before = 0;  ///< of the last five years, of the five before
  std::int64_t judged = 0;                     ///< with both parents known
  std::int64_t above_most = 0, close = 0;      ///< of those, with F above the board's limit; of half sibs and closer
  std::int64_t shallow = 0;                    ///< with fewer than two generation equivalents
  double inbreeding = 0.0;                     ///< mean F of those judged
  double chance_inbreeding = 0.0;              ///< F had their parents been mated at random
  std::int64_t known_parents = 0, imported_parents = 0;  ///< of all births, both sexes

  /// Whether they can show inbreeding: where none has two generations, an F of 0 tells nothing.
  bool show_inbreeding() const { return judged > 0 && (shallow < births || inbreeding > 0.0); }
};

/// What the generation interval is worked out from: the births whose sire or dam is known, and of these the ones at
/// which its age is. Where it comes out at what cannot be, below 0 or in the thousands, it is told in years.
struct AgesAtBirths {
  BySex<std::int64_t> parents = {}, ages = {};
  std::optional<double> impossible_interval;

  /// Whether parents are known of a sex of which no age is.
  bool lack_dates() const {
    return (parents.of(male) > 0 && ages.of(male) == 0) || (parents.of(female) > 0 && ages.of(female) == 0);
  }
};

struct StandingData {
  double equivalents = 0.0;               ///< mean generation equivalents of the young of the last five years
  double both_known = 0.0;                ///< share of the young of the last ten years with both parents known
  std::int64_t known_young = 0;           ///< so many young there are of the last ten years
  std::optional<double> unknown_parents;  ///< share of the parents of all animals with a known parent; if there are any
  VerdictFaults faults;                   ///< as the check names them
  bool is_faulty = false;                 ///< so many that nothing is said
  std::int64_t cohort = 0;                ///< animals of the last generation interval
};

struct Standing {
  StandingSettings settings;
  StandingYears years;
  AgesAtBirths ages;
  Pace pace = Pace::cannot_be_judged;
  std::uint32_t obstacles = obstacle_few_animals;  ///< of a verdict
  int sureness = 0;                                ///< 3 to 1; 0 without a verdict
  std::array<RateEstimate, standing_ways> now;     ///< by `StandingWay`; the first is that of the verdict
  RateEstimate before;                             ///< by kinship, of the three generation intervals before
  std::optional<LackingParents> lacking_before;    ///< why there is none
  std::optional<RuleEffect> rule;
  YoungOfFiveYears young;
  ParentsInUse sires, dams;                    ///< of the young of the last five years
  std::int64_t overused_sires = 0;             ///< the first so many of `sires` are above the board's limit
  std::vector<ParentShare> sires_to_rest;      ///< those of them that are there, in the same order
  bool is_availability_told = false;           ///< whether it is known which animals have gone
  std::optional<double> rate_with_sires_held;  ///< what holding them to it would give, as a rule of thumb
  RareLines rare_lines;                        ///< at most four, of the young of two generation intervals
  StandingData data;

  /// The kinship of the sires with the dams, of which there are some.
  bool has_chance_inbreeding() const { return !sires.parents.empty() && !dams.parents.empty(); }
  const RateEstimate& rate() const { return now[by_kinship]; }
  bool is_judged() const { return pace != Pace::cannot_be_judged; }
  /// The part of 1/(8 sires) + 1/(8 dams) that the sires make, as a rule of thumb for the rise of today; nothing
  /// without sires or dams.
  std::optional<double> sires_part_of_rise() const;
  /// F by chance with an unrelated import as a sire that had as much of the young as the board allows one; the others
  /// would have less, in proportion.
  double inbreeding_with_import() const { return (1.0 - settings.most_sire_share) * young.chance_inbreeding; }
  /// In how many generations F rises by as much as such an import would lower it; nothing without a rise.
  std::optional<double> generations_gained_by_import() const;
  /// Sires above the board's limit that have gone.
  std::int64_t overused_sires_gone() const { return overused_sires - std::ssize(sires_to_rest); }
  /// Whether mates are more closely related than their sexes are.
  bool has_close_matings() const { return young.close > 0 && young.inbreeding > young.chance_inbreeding; }
};

/// Computes everything. F and completeness of all animals must be final. `generation_interval` is that of the report,
/// not a number when no age is known: then no rate is told and nothing is judged, and what needs no interval is
/// counted. `faults` are those that the check found. Sires to use less and carriers of rare lines are named where they
/// are `available`; all else is about all animals.
Standing compute_standing(const PopulationStore& store, double generation_interval, const StandingSettings& settings,
                          const VerdictFaults& faults = {}, const AvailableAnimals& available = {});

}  // namespace pedigreewatch
