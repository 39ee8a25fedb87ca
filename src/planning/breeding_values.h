// The highest mean breeding value of the offspring whose mean kinship stays within a bound (Meuwissen, 1997, J. Anim.
// Sci. 75: 934-940).
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "planning/contributions.h"

namespace pedigreewatch {

/// Rates of inbreeding of the curve, as fractions a generation.
inline constexpr std::array<double, 10> curve_rates = {0.001,  0.002, 0.003, 0.004, 0.005,
                                                       0.0075, 0.01,  0.015, 0.02,  0.03};

/// The mean kinship that a generation after one of `kinship` may have at a rate: kinship + rate (1 - kinship).
double kinship_at_rate(double kinship, double rate);

/// The best shares at a bound.
struct ValueChoice {
  bool is_possible = false;     ///< false: no permitted shares reach the bound, and those of least kinship stand here
  Contributions contributions;  ///< their certificate is that of c'Kc - weight * value'c
  double weight = 0.0;          ///< what a unit of value is worth in kinship at the bound
  double value = 0.0;           ///< mean of the offspring
  double most_value = 0.0;      ///< no permitted shares within the bound have more: the certificate
};

/// `least` are the shares of least kinship for the same limits. `values` are finite.
ValueChoice best_values(const CandidateKinship& kinship, const ShareLimits& limits, std::span<const double> values,
                        double most_kinship, const Contributions& least, const PlanWatch& watch = {});

/// What is still gained may be so large a part of what the bound allows to gain over the shares of least kinship.
inline constexpr double certified_part_of_value = 1e-3;

}  // namespace pedigreewatch
