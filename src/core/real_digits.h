// The decimal digits of a real, the same on every machine and with every library: those of its exact binary value,
// rounded to a number of decimals with ties to even.
#pragma once

#include <cstddef>
#include <string>

namespace pedigreewatch {

/// The value with `decimals` digits behind the point, "-0.50"; without a point when there are none. Yields nothing but
/// the word of the library for a value that is not finite.
std::string fixed_digits(double value, std::size_t decimals);

/// The same with one digit before the point and an exponent of at least two digits, "-5.0e-01".
std::string scientific_digits(double value, std::size_t decimals);

}  // namespace pedigreewatch
