// The standard library's own conversion where it has one for reals; libc++ came to it late. There snprintf takes its
// place, which rounds the exact value in the same way and writes a point, since no program here sets a locale.

#include "core/real_digits.h"

#include <charconv>
#include <cstdio>

namespace pedigreewatch {

std::string fixed_digits(double value, std::size_t decimals) {
  constexpr std::size_t most_before_point = 311;  // of a double, with its sign
  std::string digits(most_before_point + decimals + 2, '\0');
#ifdef __cpp_lib_to_chars
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed,
                                        static_cast<int>(decimals))
                              .ptr;
  digits.resize(static_cast<std::size_t>(end - digits.data()));
#else
  const int length = std::snprintf(digits.data(), digits.size(), "%.*f", static_cast<int>(decimals), value);
  digits.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
#endif
  return digits;
}

std::string scientific_digits(double value, std::size_t decimals) {
  constexpr std::size_t most_besides = 10;  // sign, first digit, point, "e", and the exponent with its sign
  std::string digits(decimals + most_besides, '\0');
#ifdef __cpp_lib_to_chars
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                        std::chars_format::scientific, static_cast<int>(decimals))
                              .ptr;
  digits.resize(static_cast<std::size_t>(end - digits.data()));
#else
  const int length = std::snprintf(digits.data(), digits.size(), "%.*e", static_cast<int>(decimals), value);
  digits.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
#endif
  return digits;
}

}  // namespace pedigreewatch
