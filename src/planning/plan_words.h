// What is said of a plan, in either language: the comparison row by row, and sentences on what it achieves and what it
// rests on. Console, page and desk say the same.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Who says it: the console calls a limit by its option, the desk by its field.
enum class PlanSpeaker : std::uint8_t { console, desk };

/// The comparison as texts: a column for each figure, a row for each way that is known.
struct ComparisonTable {
  std::vector<std::string> headings;        ///< of the columns; the first one is that of the ways
  std::vector<std::string> short_headings;  ///< the same, for lines of text
  struct Row {
    std::string way;
    std::vector<std::string> cells;  ///< empty where there is no figure
  };
  std::vector<Row> rows;
};

ComparisonTable comparison_of(const Plan& plan, ToolLanguage language);

/// Optimum, certificate, whole numbers and pairs; nothing of pairs that were changed by hand, which are no longer
/// proved to be the best.
std::vector<std::string> result_sentences(const Plan& plan, ToolLanguage language, bool is_changed = false,
                                          PlanSpeaker speaker = PlanSpeaker::console);

/// What the plan gains, in years of today's loss.
std::string gain_sentence(const Plan& plan, const PlanWarnings& warnings, ToolLanguage language);

std::vector<std::string> warning_sentences(const PlanWarnings& warnings, const PlanRequest& request,
                                           ToolLanguage language, PlanSpeaker speaker = PlanSpeaker::console);

/// What stands in the way of the plan, and what to do; nothing when nothing does, or when it was stopped.
std::vector<std::string> obstacle_sentences(const PopulationStore& store, const PlanRequest& request, const Plan& plan,
                                            ToolLanguage language, PlanSpeaker speaker = PlanSpeaker::console);

/// Who the candidates of a sex are.
std::string candidates_sentence(const SexCandidates& candidates, Sex sex, ToolLanguage language);

/// The curve of value against kinship.
ComparisonTable curve_of(const Plan& plan, ToolLanguage language);

/// Why an animal gets no matings; empty for one that gets some.
std::string_view words_of_reason(WhyNone why, ToolLanguage language);

/// Of a candidate.
WhyNone reason_of(const Plan& plan, std::size_t place, std::int64_t matings);

/// Animals that are left out because they are no longer there; empty where there are none.
std::string gone_sentence(const CandidatePool& pool, ToolLanguage language);

/// Animals that are left out because nobody knows their sex; empty where there are none.
std::string unknown_sexes_sentence(const CandidatePool& pool, ToolLanguage language);

/// Matings and limits that were asked for, one by one.
std::vector<std::string> limit_sentences(const PlanRequest& request, ToolLanguage language);

/// A number with so many decimals, a fraction in per cent: with a point.
std::string fixed_decimals(double value, int decimals);
std::string percent_of(double fraction, int decimals = 2);
/// The same with the decimal sign of the language.
std::string shown_decimals(double value, int decimals, ToolLanguage language);
std::string shown_percent(double fraction, ToolLanguage language, int decimals = 2);

}  // namespace pedigreewatch
