// The figures of diversity over time: for the animals of each birth year and of each generation interval, of the whole
// population and of each subpopulation.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "diversity/animal_figures.h"
#include "diversity/close_matings.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Classes of F: 0, above 0 to 1/16, to 1/8, to 1/4, more.
inline constexpr std::size_t inbreeding_classes = 5;

/// The class of an animal's F, counted from 0. Rounding in single precision moves no animal over a bound.
std::size_t inbreeding_class(float inbreeding);

/// What is counted and added up of the animals of a cohort.
struct CohortSums {
  std::int64_t animals = 0;
  double inbreeding = 0.0, equivalents = 0.0, completeness_index = 0.0;
  double import_shares = 0.0;
  double increases = 0.0;           ///< of inbreeding, individual
  std::int64_t increase_count = 0;  ///< animals with more than one equivalent generation
  std::array<double, line_generations> sire_side = {}, dam_side = {};  ///< known shares, generations 1 to 6
  std::array<std::int64_t, inbreeding_classes> classes = {};           ///< animals
  std::int64_t both_parents_known = 0;                                 ///< animals
  std::array<std::int64_t, close_matings> born_of = {};                ///< animals, by `MatingKin`
  std::int64_t matings = 0;  ///< different pairs of known parents in a birth year
  std::array<std::int64_t, close_matings> matings_of = {};
};

enum class CohortSpan : std::uint8_t { year, interval };

/// Animals born in some years, founders too.
struct Cohort {
  CohortSpan span = CohortSpan::year;
  std::int32_t first_year = 0, last_year = 0;
  std::int32_t subpopulation = 0;  ///< its number; 0 for the whole population
  CohortSums sums;
  std::optional<double> kinship_with_self, kinship_without_self;
  std::optional<double> effective_founders, effective_ancestors;

  /// fg = 1 / (2 mean kinship).
  std::optional<double> founder_genomes() const;
  /// 1 - mean kinship with self.
  std::optional<double> gene_diversity() const;
  /// The part of the founders' diversity that is lost because they have contributed unequally, 1 / (2 fe), and the part
  /// that is lost since then by bottlenecks and chance, 1 / (2 fg) - 1 / (2 fe) (Caballero and Toro, 2000).
  std::optional<double> lost_by_founders() const, lost_since() const;
  std::optional<double> mean_increase() const, effective_size() const;
};

/// The effective number of ancestors is worked out by choosing them anew for each cohort. Where animals of the
/// population times cohorts are more than this, it is done only when asked for.
inline constexpr std::int64_t most_ancestor_work = 20'000'000;

struct CohortRequest {
  const PopulationStore& store;
  const YearGroups& years;
  const ByNumber<KnownLine>& lines;      ///< of `count_known_lines`
  const ByNumber<float>& import_shares;  ///< of `import_shares`; empty where imports are not told
  std::int32_t interval_years = 0;       ///< the generation interval; 0: unknown, and no such cohorts
  bool wants_ancestors = false;          ///< also where that is much work
  std::int32_t threads = 1;              ///< that choose ancestors, each those of one cohort at a time
};

/// A cohort for each birth year that has animals, then for each generation interval, the last of which ends with the
/// last birth year; behind each of them those of the subpopulations that have animals in it, where there are two or
/// more. F and completeness of all animals must be final.
std::vector<Cohort> describe_cohorts(const CohortRequest& request);

}  // namespace pedigreewatch
