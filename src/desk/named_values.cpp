#include "desk/named_values.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string>

namespace pedigreewatch {

std::string_view value_named(std::string_view settings, std::string_view name) {
  while (!settings.empty()) {
    const std::size_t end = std::min(settings.find('\n'), settings.size());
    const std::string_view line = settings.substr(0, end);
    if (line.starts_with(name) && line.substr(name.size()).starts_with('=')) return line.substr(name.size() + 1);
    settings.remove_prefix(std::min(end + 1, settings.size()));
  }
  return {};
}

std::optional<std::int32_t> number_named(std::string_view settings, std::string_view name) {
  const std::string_view text = value_named(settings, name);
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && stop == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<double> percentage_named(std::string_view settings, std::string_view name) {
  constexpr double most = 100.0;
  std::string text(value_named(settings, name));
  std::replace(text.begin(), text.end(), ',', '.');
  const bool has_digit = text.find_first_of("0123456789") != std::string::npos;
  const bool has_others = text.find_first_not_of("0123456789.") != std::string::npos;
  if (!has_digit || has_others || std::count(text.begin(), text.end(), '.') > 1) return std::nullopt;
  const double value = std::strtod(text.c_str(), nullptr);
  return value <= most ? std::optional(value / most) : std::nullopt;
}

}  // namespace pedigreewatch
