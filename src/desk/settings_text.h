// What the user of the desk says about an export, as the page hands it over: lines "name=value".
#pragma once

#include <string_view>

#include "intake/export_survey.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

/// Reads the settings. Columns are numbers counted from 1, or "none". Lists of subpopulations and colours are "all",
/// "none", the places, counted from 0, of texts in the survey at hand, or names with semicolons; texts of the sexes
/// have tabs between them, those for unknown parents tabs or commas. What cannot be understood, or names nothing, is
/// passed over. The language is that of the report.
PrepareOptions options_from(std::string_view settings, const ExportSurvey& survey);

}  // namespace pedigreewatch
