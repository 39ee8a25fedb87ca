// Which share each candidate should have in the offspring so that these are as little related as possible: minimal
// c'Kc with the males' shares adding up to 1/2, the females' too, and every share within its limits (Meuwissen, 1997,
// J. Anim. Sci. 75: 934-940; Grundy, Villanueva and Woolliams, 1998, Genet. Res. 72: 159-168).
//
// The problem is convex, and a certificate shows how far the shares can at most be from the best ones: with the
// gradient g = 2 K c no permitted shares s have a mean kinship below c'Kc - (g'c - g's), so that g'c minus the least
// g's bounds what is left to gain (Frank and Wolfe, 1956).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/progress_line.h"
#include "core/stop_request.h"
#include "pedigree/sex.h"
#include "planning/candidate_kinship.h"

namespace pedigreewatch {

/// The share of each sex in the offspring.
inline constexpr double share_of_sex = 0.5;

/// What remains to be gained may be so large a part of the mean kinship, or of the goal.
inline constexpr double certified_part = 1e-4;

/// Counts work for somebody who watches, and ends early when somebody wants that.
struct PlanWatch {
  ProgressLine* progress = nullptr;    ///< null: nobody watches
  StopRequest stop_request = nullptr;  ///< null: nobody can stop it

  bool is_stopped() const { return is_stop_requested(stop_request); }
};

/// By place of the candidates.
struct ShareLimits {
  std::vector<Sex> sex;
  std::vector<double> least, most;
};

/// Whether the limits leave room for shares that add up to 1/2 for this sex.
bool can_be_met(const ShareLimits& limits, Sex sex);

/// The most that g's can be for permitted shares s.
double highest_product(const ShareLimits& limits, std::span<const double> weights);

/// What is minimised: c'Kc - weight * value'c.
struct ContributionGoal {
  std::span<const double> value = {};  ///< by place; empty: none
  double weight = 0.0;
  bool is_brief = false;  ///< ends as soon as the certificate is `certified_part`, however cheap more would be
};

struct Contributions {
  std::vector<double> shares;    ///< by place
  std::vector<double> kinships;  ///< K c, by place: mean kinship of each candidate with the parents as chosen
  double mean_kinship = 0.0;     ///< c'Kc
  double certificate = 0.0;      ///< g'c minus the least g's: the goal can at most be so much lower
  std::int64_t products = 0;     ///< with K, that it took
  bool is_stopped = false;       ///< then the rest has no meaning
};

/// The best shares. `limits` can be met. `start` are shares to begin from, empty: equal ones. Ends when the
/// certificate is at most `certified_part` of the mean kinship, much below it where that is cheap; what it yields is
/// recomputed from the shares at the end.
Contributions best_contributions(const CandidateKinship& kinship, const ShareLimits& limits,
                                 const ContributionGoal& goal = {}, std::span<const double> start = {},
                                 const PlanWatch& watch = {});

/// K c, c'Kc and the certificate of any shares within the limits.
Contributions examine_shares(const CandidateKinship& kinship, const ShareLimits& limits, std::vector<double> shares,
                             const ContributionGoal& goal = {});

}  // namespace pedigreewatch
