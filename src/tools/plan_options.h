// What stands on the command line of `pedigreewatch-tools plan`.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "planning/said_request.h"

namespace pedigreewatch {

struct PlanOptions {
  SaidLists lists;
  std::optional<std::int32_t> years, matings, most_per_male, most_per_female, least_per_male;
  std::optional<std::string> subpopulation;
  double least_generations = 0.0;
  bool needs_known_parents = false, takes_all_animals = false;
  std::optional<double> most_f, rate;  ///< as fractions
  bool wants_pairs = true, wants_workbook = false;
  bool is_plain = false;  ///< texts like formulas are written as they are
};

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_plan_options(std::span<const std::string_view> arguments, PlanOptions& options);

}  // namespace pedigreewatch
