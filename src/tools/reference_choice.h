// The options that name the reference population of the diversity figures: --years A-B or --ids FILE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "control/population_analysis.h"
#include "core/tool_streams.h"
#include "diversity/reference_population.h"
#include "text/phrases.h"

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

/// The animals that the options name, or the youngest ones without options. Yields nothing after a message: the list
/// cannot be read, names animals that are not there or none at all, or no animal was born in these years.
std::optional<ReferencePopulation> choose_reference(const AnalysedPopulation& population,
                                                    const ReferenceOptions& options, ToolStreams& streams);

}  // namespace pedigreewatch
