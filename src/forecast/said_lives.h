// When parents come into use, and how long they stay, as somebody says it is: in place of what was measured.
#pragma once

#include <cstdint>

#include "forecast/model_basis.h"

namespace pedigreewatch {

/// Those of this sex that come into use are so old in the mean: all of them by as many years older or younger than they
/// were, at least one year old.
void set_first_ages(Sex sex, double mean_age, BasePeriod& base);

/// Those of this sex that come into use stay for so many years in the mean, at least one each: their careers pass more
/// slowly, or faster. As many as before are in use at a time, so that fewer, or more, come into use each year.
void set_years_in_use(Sex sex, double mean_years, std::uint64_t seed, ModelBasis& basis);

/// The mean length of use that the careers of the practice lead to, in years, when so many of their years pass in one.
double mean_years_in_use(const BasePeriod& base, Sex sex, double pace, std::uint64_t seed);

}  // namespace pedigreewatch
