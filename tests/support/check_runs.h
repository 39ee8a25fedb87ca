// Checks of data files that are texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "checks/check.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {

/// What the checks are told of a sheep herd on 30 June 2026 by a steer file.
CheckSettings check_settings(const SteerLines& steer);

/// A steer file of sheep, in English or Dutch.
SteerLines sheep_steer(bool english = true);

/// The checked data.
CheckResult checked(std::string_view data, const CheckSettings& settings);

/// The same, of sheep with the limits that are usual for them.
CheckResult checked_sheep(std::string_view data);

/// How many findings there are of a kind.
std::int64_t count_of(const CheckResult& result, FindingCode code);

/// The lines of the table of findings in their order, with bars in place of its tabs; an empty column
/// of lines is left out.
std::vector<std::string> rows_of(const CheckResult& result, ToolLanguage language);

/// Those that stop the run or falsify figures.
std::vector<std::string> serious_rows_of(const CheckResult& result, ToolLanguage language);

}  // namespace pedigreewatch::test
