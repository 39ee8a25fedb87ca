// An export on its way to a data file: read and decoded, its columns chosen, surveyed, and everything decided about it.
// What the user says in between makes some steps be taken again, not all.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/tool_streams.h"
#include "intake/column_choice.h"
#include "intake/export_survey.h"
#include "intake/findings.h"
#include "intake/prepare_plan.h"

namespace pedigreewatch {

struct Preparation {
  std::string text;  ///< the export in UTF-8
  ReadingFindings findings;
  ColumnChoice columns;  ///< those that were surveyed
  ExportSurvey survey;
  PreparePlan plan;
};

/// Reads the export and finds out its encoding and its delimiter. Yields false after a message.
bool read_and_recognise(const PrepareOptions& options, ToolStreams& streams, Preparation& result);

/// Chooses the columns and surveys what stands in them. Yields false after a message.
bool survey_columns(const PrepareOptions& options, ToolStreams& streams, Preparation& result);

/// Decides everything; what stays open are the questions of the plan.
void decide(const PrepareOptions& options, Preparation& result);

/// Says what was recognised.
void show_preparation(const Preparation& read, const PrepareOptions& options, TextOutput& console);

/// Says what the survey shows that cannot be written at all; true when there is something.
bool refuse_survey(const Preparation& read, const PrepareOptions& options, ToolStreams& streams);

/// A message that ends the preparation. Yields the exit status.
int refuse(ToolStreams& streams, const PrepareOptions& options, const Wording& wording,
           std::initializer_list<std::string_view> values);

}  // namespace pedigreewatch
