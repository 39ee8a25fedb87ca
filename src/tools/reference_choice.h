// The options that name the reference population of the diversity figures: --years A-B or --ids FILE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "diversity/reference_population.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

struct YearSpan {
  std::int32_t first = 0, last = 0;
};

struct ReferenceOptions {
  std::optional<YearSpan> years;
  std::string ids_file;  ///< empty: none
};

/// Takes --years and --ids; other options are passed over. Yields what is wrong with the value; empty: nothing.
std::string take_reference_option(std::string_view name, std::string_view value, ReferenceOptions& options);

/// The animals that the options name, or the youngest ones without options. Refuses a list that cannot be read or names
/// animals that are not there or none at all, and years in which no animal was born.
std::optional<ToolRefusal> choose_reference(const FolderRun& run, const ReferenceOptions& options,
                                            ReferencePopulation& reference);

}  // namespace pedigreewatch
