// What the page says to the core in lines of NAME=VALUE, as its user typed the values.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace pedigreewatch {

/// The value of a name; empty when it is not said.
std::string_view value_named(std::string_view settings, std::string_view name);

/// A whole number; none for any other text.
std::optional<std::int32_t> number_named(std::string_view settings, std::string_view name);

/// Per cent from 0 to 100 with a point or a comma, as a fraction; none for any other text.
std::optional<double> percentage_named(std::string_view settings, std::string_view name);

}  // namespace pedigreewatch
