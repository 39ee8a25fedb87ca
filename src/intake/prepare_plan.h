// How an export is turned into a data file and a steer file: every decision, from what was surveyed and what the user
// says. What cannot be decided is a question with its possible answers.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/column_choice.h"
#include "intake/date_layout_recognition.h"
#include "intake/export_survey.h"
#include "intake/prepare_options.h"
#include "intake/value_words.h"

namespace pedigreewatch {

struct PreparePlan {
  ToolLanguage language = ToolLanguage::english;
  char delimiter = ';';  ///< of the data file
  DatePlan dates;
  AvailabilityPlan availability;
  std::vector<SexMeaning> sexes;                            ///< of the texts of the survey, in their order
  ConcludedSexes concluded_sexes;                           ///< of animals whose sex stands in no column
  std::unordered_set<std::string> unknown_parents;          ///< the texts of parents that are unknown
  std::unordered_map<std::string, std::string> parent_ids;  ///< the animals of parents that are written in another way
  bool leaves_out_thousands_signs = false;                  ///< of identifications
  std::string species;                                      ///< the word of the steer file
  std::string population_name;                              ///< Windows-1252, 40 bytes at most
  std::string stem;                                         ///< of the data file's name
  std::vector<std::string> subpopulations, colours;         ///< Windows-1252, as the steer file lists them
  std::string joined_subpopulation;                         ///< the name of all that are too small; empty: none is
  std::unordered_set<std::string> own_subpopulations;       ///< where some are joined: the others
  std::int64_t least_animals = 0;                           ///< where some are joined: the fewest of each of the others
  ColumnChoice columns;                                     ///< without those that are left out
  std::vector<Question> questions;                          ///< none: everything is decided
};

/// Decides. `columns` are those that were surveyed.
PreparePlan plan_preparation(const ExportSurvey& survey, const ColumnChoice& columns, const PrepareOptions& options);

/// The identification that is written for that of an animal or parent, as the plan has it; `rewritten` may hold it.
std::string_view planned_id(const PreparePlan& plan, std::string_view text, std::string& rewritten);

/// Whether a text in a parent's column stands for no known parent.
bool is_unknown_parent(const PreparePlan& plan, std::string_view text);

/// The letters, digits, hyphens and underscores of a file's name without its ending, at most 26 of them, so that the
/// name fits the steer file; "herd" when there are none.
std::string stem_of(std::string_view file_name);

/// The file's name without folders and ending.
std::string_view base_name(std::string_view file_name);

/// The letter for females in the data file; "m" is that for males.
char female_letter(ToolLanguage language);

}  // namespace pedigreewatch
