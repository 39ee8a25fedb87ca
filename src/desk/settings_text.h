// What the user of the desk says about an export, as the page hands it over: lines "name=value".
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "intake/export_survey.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

/// Reads the settings. Columns are numbers counted from 1, or "none". Lists of subpopulations and colours are "all",
/// "none", the places, counted from 0, of texts in the survey at hand, or names with semicolons; texts of the sexes
/// have tabs between them, those for unknown parents tabs or commas. What cannot be understood, or names nothing, is
/// passed over. The language is that of the report.
PrepareOptions options_from(std::string_view settings, const ExportSurvey& survey);

/// The same the other way round: the names and values that say what the options say of an export, but the language of
/// its report. Encodings, delimiters and layouts are in the words of the page in `language`.
std::vector<std::pair<std::string, std::string>> settings_of(const PrepareOptions& options, ToolLanguage language);

/// The answers of an earlier export (`read_answers`) as settings. Yields an object: messages, settings (name, value),
/// unread (line, text: lines that are no option about an export, or whose value is none that the option takes).
std::string settings_of_answers(std::string_view text, ToolLanguage language);

}  // namespace pedigreewatch
