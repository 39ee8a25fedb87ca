// Compares the texts of sexes, subpopulations, colours, imports and breeders with what the steer file says of them, and
// looks at the steer file's own lines.
#pragma once

#include "checks/check_settings.h"
#include "checks/file_reading.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"

namespace pedigreewatch {

/// Finds a letter for males that does not fit the fathers. The plan gets the letter that does.
void check_male_letter(const PedigreeColumns& animals, ReadingPlan& plan, Findings& findings);

/// Finds sexes that count as the other one, or as female because they are unknown.
void check_sexes(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                 ToolLanguage language, Findings& findings);

/// The steer file's line with the number of subpopulations, counted from 1.
std::size_t subpopulation_count_line(const CheckSettings& settings);

/// Finds subpopulations and colours that are not listed, and names of the lists that no animal has.
void check_names(const FileSurvey& survey, const ReadingPlan& plan, const CheckSettings& settings, Findings& findings);

/// Finds texts that make an import of an animal that is none.
void check_imports(const FileSurvey& survey, const ReadingPlan& plan, Findings& findings);

/// Finds breeders that are written in two ways, and names that are cut.
void check_breeders(const FileSurvey& survey, const ReadingPlan& plan, Findings& findings);

/// Finds mixed encodings and quotation marks.
void check_letters_of_file(const FileSurvey& survey, Findings& findings);

/// Finds words of the steer file that are taken for something else, and lines that are not read.
void check_steer_lines(const CheckSettings& settings, Findings& findings);

}  // namespace pedigreewatch
