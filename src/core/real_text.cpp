// A conversion yields digits and a power of ten; how they are laid out is decided here, so that it does not depend on
// the library. The digits of a power of two are always found the slow way: its neighbours below are nearer than those
// above, and libraries choose differently among the shortest texts.

#include "core/real_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "core/bit_pattern.h"

namespace pedigreewatch {
namespace {

/// "-1.25e-05" and the like, as the functions of C and of C++ print it; room for the longest one.
using ExponentText = std::array<char, 32>;

struct DigitCounts {
  int fewest = 0, most = 0;
};
/// So many digits of a decimal always survive, and so many are always enough; of a subnormal fewer survive.
template <typename Real>
constexpr DigitCounts counts_of(Real value) {
  using Limits = std::numeric_limits<Real>;
  const bool is_normal = value >= Limits::min() || value <= -Limits::min();
  return {is_normal ? Limits::digits10 : 1, Limits::max_digits10};
}

float read_back(const char* text, float /*kind*/) {
  return std::strtof(text, nullptr);
}
double read_back(const char* text, double /*kind*/) {
  return std::strtod(text, nullptr);
}

std::uint64_t bits_of(float value) {
  return bits_as<std::uint32_t>(value);
}
std::uint64_t bits_of(double value) {
  return bits_as<std::uint64_t>(value);
}

[[maybe_unused]] bool is_power_of_two(float value) {
  constexpr std::uint32_t fraction = (1U << 23) - 1;
  return (bits_as<std::uint32_t>(value) & fraction) == 0;
}
[[maybe_unused]] bool is_power_of_two(double value) {
  constexpr std::uint64_t fraction = (std::uint64_t{1} << 52) - 1;
  return (bits_as<std::uint64_t>(value) & fraction) == 0;
}

template <typename Real>
std::string_view exponent_text_slowly(Real value, ExponentText& buffer) {
  const DigitCounts counts = counts_of(value);
  std::size_t length = 0;
  for (int digits = counts.fewest; digits <= counts.most; ++digits) {
    const int written = std::snprintf(buffer.data(), buffer.size(), "%.*e", digits - 1, static_cast<double>(value));
    length = written > 0 ? static_cast<std::size_t>(written) : 0;
    if (bits_of(read_back(buffer.data(), value)) == bits_of(value)) break;
  }
  return {buffer.data(), length};
}

template <typename Real>
std::string_view exponent_text(Real value, ExponentText& buffer) {
#ifdef __cpp_lib_to_chars
  if (!is_power_of_two(value)) {
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
    if (error == std::errc()) return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
  }
#endif
  return exponent_text_slowly(value, buffer);
}

/// A value as 0.DIGITS times ten to the power of `point`.
struct Decimal {
  std::array<char, 20> digits = {};
  int count = 0;
  int point = 0;
  bool is_negative = false;

  std::string_view from(int first) const { return {digits.data() + first, static_cast<std::size_t>(count - first)}; }
};

/// Takes the digits out of "-1.250e-05": whatever stands for the point is passed over, and zeros at the end are left
/// away.
Decimal decimal_of(std::string_view text) {
  Decimal decimal;
  const std::size_t e = text.find('e');
  for (const char byte : text.substr(0, e)) {
    if (byte == '-') decimal.is_negative = true;
    if (byte >= '0' && byte <= '9') decimal.digits[static_cast<std::size_t>(decimal.count++)] = byte;
  }
  while (decimal.count > 1 && decimal.digits[static_cast<std::size_t>(decimal.count) - 1] == '0') --decimal.count;
  std::string_view exponent = text.substr(e + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
  ++decimal.point;
  return decimal;
}

void append_with_exponent(std::string& text, const Decimal& decimal) {
  text += decimal.digits.front();
  if (decimal.count > 1) text += '.';
  text += decimal.from(1);
  const int exponent = decimal.point - 1, size = exponent < 0 ? -exponent : exponent;
  text += exponent < 0 ? "e-" : "e+";
  if (size < 10) text += '0';
  text += std::to_string(size);
}

void append_decimal(std::string& text, const Decimal& decimal) {
  constexpr int most_zeros = 4, longest_integer = 17;
  if (decimal.is_negative) text += '-';
  if (decimal.point < -most_zeros || decimal.point > longest_integer) return append_with_exponent(text, decimal);
  if (decimal.point <= 0) {
    text += "0.";
    text.append(static_cast<std::size_t>(-decimal.point), '0');
    text += decimal.from(0);
  } else if (decimal.point >= decimal.count) {
    text += decimal.from(0);
    text.append(static_cast<std::size_t>(decimal.point - decimal.count), '0');
  } else {
    text.append(decimal.digits.data(), static_cast<std::size_t>(decimal.point));
    text += '.';
    text += decimal.from(decimal.point);
  }
}

template <typename Real>
void append_real(std::string& text, Real value) {
  ExponentText buffer;
  if (value == Real{0}) {
    text += '0';
  } else {
    append_decimal(text, decimal_of(exponent_text(value, buffer)));
  }
}

template <typename Real>
void append_real_slowly(std::string& text, Real value) {
  ExponentText buffer;
  if (value == Real{0}) {
    text += '0';
  } else {
    append_decimal(text, decimal_of(exponent_text_slowly(value, buffer)));
  }
}

}  // namespace

void append_shortest(std::string& text, float value) {
  append_real(text, value);
}

void append_shortest(std::string& text, double value) {
  append_real(text, value);
}

void append_shortest_slowly(std::string& text, float value) {
  append_real_slowly(text, value);
}

void append_shortest_slowly(std::string& text, double value) {
  append_real_slowly(text, value);
}

}  // namespace pedigreewatch
