// Which animals can still be bred from, as an export says it: columns with a date of death, a status, remarks. Heading
// and texts of such a column have to agree; else it is asked whether it counts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/availability_words.h"
#include "intake/column_choice.h"
#include "intake/export_records.h"
#include "intake/prepare_options.h"
#include "intake/text_counts.h"

namespace pedigreewatch {

/// Of so many texts of a column one may be none that is understood.
inline constexpr std::int64_t tolerated_odd_availability = 50;
/// Fewer texts tell nothing of a column whose heading nobody knows.
inline constexpr std::int64_t fewest_availability_texts = 20;

/// A status is asked about when it has at most so many different texts.
inline constexpr std::size_t most_states = 12;

/// A column that may say which animals have gone.
struct AvailabilityColumn {
  std::size_t place = 0;  ///< counted from 0
  AvailabilityHeading heading = AvailabilityHeading::none;
  bool is_wished = false;
  TextCounts texts;                    ///< all that stand in it, empty ones too
  std::vector<AvailabilityText> says;  ///< what each of them says, in their order
};

/// What was found in the columns. Nothing is decided.
struct AvailabilitySurvey {
  std::vector<AvailabilityColumn> columns;
  std::vector<Question> questions;  ///< on columns that the user names and that are not there
};

/// Looks at the columns whose headings are about this, at those whose first texts are, and at those that are wished,
/// but not at columns that hold something else.
AvailabilitySurvey survey_availability(std::string_view text, char delimiter, const ColumnChoice& columns,
                                       const PrepareOptions& options);

/// How one column is read.
struct AvailabilityReading {
  std::size_t place = 0;
  AvailabilityHeading heading = AvailabilityHeading::gone;
  bool is_blank_gone = false;                     ///< a column of ticks: an animal without one is not there
  std::unordered_set<std::string> gone;           ///< the texts that say so
  std::unordered_set<std::string> gone_by_words;  ///< those of them that are no dates
  std::unordered_set<std::string> not_counted;    ///< of no use, although the column or a word in them is about that
  std::int64_t dated = 0;                         ///< animals with a date that says so
  bool has_further_texts = false;                 ///< more different ones than were counted
};

/// How availability is told.
struct AvailabilityPlan {
  std::vector<AvailabilityReading> columns;
  std::unordered_set<std::string> castrated;  ///< the words for the sex of castrated males
  std::vector<std::string> said_gone, said_here;
  std::int32_t this_year = 0;
};

/// Whether anything tells of animals that have gone.
inline bool tells_gone(const AvailabilityPlan& plan) {
  return !plan.columns.empty() || !plan.castrated.empty();
}

/// What says of an animal that it has gone.
struct GoneBy {
  std::size_t place = 0;  ///< of the column, counted from 0
  std::string_view text;  ///< of the record; empty where the column is one of ticks
};

/// By which of the columns, or by the word for its sex, the animal of a record has gone; nothing when it is there.
std::optional<GoneBy> gone_by(const AvailabilityPlan& plan, const ExportRecord& record, const ColumnChoice& columns);

/// Decides which columns count. What stays open becomes a question. `sexes` are the texts of the sexes.
AvailabilityPlan plan_availability(const AvailabilitySurvey& survey, const TextCounts& sexes,
                                   const ColumnChoice& columns, const PrepareOptions& options,
                                   std::vector<Question>& questions);

/// The ids of the animals that are there, as they are gathered line by line.
struct AvailableIds {
  std::vector<std::string> ids;                   ///< in the order of the export
  std::vector<std::string> gone;                  ///< of lines that say so
  bool keeps_reasons = false;                     ///< what those lines say is kept too
  std::vector<std::string> reasons = {};          ///< each once: "Date of death: 12-03-2021"
  std::vector<std::int32_t> reason_of_gone = {};  ///< for each of `gone` its place among the reasons
  std::unordered_map<std::string, std::int32_t> reason_places = {};
};

/// Takes an animal that has gone.
void add_gone(AvailableIds& ids, std::string id, const GoneBy& by, const ColumnChoice& columns);

/// Takes out the ids of which another line says that the animal has gone, and yields the list, one id a line.
std::string text_of_available(AvailableIds& ids);

}  // namespace pedigreewatch
