// Which subpopulations and colours the report will distinguish. So many that the report becomes large are asked for,
// with the size that each answer gives it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "intake/export_survey.h"
#include "intake/prepare_options.h"
#include "intake/prepare_plan.h"

namespace pedigreewatch {

/// A text in Windows-1252, cut to a width in bytes.
std::string in_windows_1252(std::string_view text, std::size_t width);

/// The fewest animals of a name that is listed, of an answer such as "at-least-50"; nothing for any other text.
std::optional<std::int64_t> least_animals_named(std::string_view text);

/// Whether a text is meant as such an answer, with or without its number. A list, also of one name, is not: it has a
/// comma or a semicolon.
bool means_least_animals(std::string_view text);

/// That answer.
std::string answer_for_least(std::int64_t least_animals);

/// The names for the steer file: those of the user, or the most frequent first. Those that are together as one get a
/// name that no other has.
void choose_subpopulations(const ExportSurvey& survey, const NameWish& wish, PreparePlan& plan);
void choose_colours(const ExportSurvey& survey, const NameWish& wish, PreparePlan& plan);

}  // namespace pedigreewatch
