// What a preparation makes of an export whose meaning is known: right or wrong, with or without questions. Questions
// are answered as a user would who knows the export: each option that the messages name gets its true value.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/foreign_export.h"

namespace pedigreewatch::test {

enum class EntranceOutcome {
  right,  ///< without a question; that of the species counts as none
  right_after_answers,
  wrong,  ///< in silence
  wrong_after_answers,
  refused,  ///< no answer leads to a data file
  count
};

std::string_view name_of(EntranceOutcome outcome);

struct EntranceResult {
  EntranceOutcome outcome = EntranceOutcome::refused;
  std::string why;                 ///< the first thing that is wrong, or the message that refuses
  std::vector<std::string> asked;  ///< the options that were asked for
  bool has_wrong_names = false;    ///< the names that were taken are others than those of the animals
  int lines_to_tell = 0;           ///< repeated headers, remarks, and lines that were spoilt
  int told_lines = 0;              ///< those of which the line number was said
};

/// Prepares the export in that folder, again and again while new options are asked for. "Right" is a data file that has
/// each animal with its id, parents, sex and date of birth, and nothing that is no animal. Lines that were spoilt on
/// their way are not compared.
EntranceResult measure_entrance(const ForeignExport& office_export, const std::string& folder);

/// The options that messages name, in the order in which they are named, each once: "--male", "--column sire", ...
std::vector<std::string> options_named(std::string_view messages);

/// What `option` is answered with, as arguments; none where the truth holds no answer.
std::vector<std::string> answer_to(std::string_view option, const ExportTruth& truth);

/// The first difference between a prepared data file and the truth; empty when there is none.
std::string first_difference(const std::string& data, const std::string& steer, const ForeignExport& office_export);

}  // namespace pedigreewatch::test
