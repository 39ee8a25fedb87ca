// What is said of a forecast, in either language. Console, page and desk say the same.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forecast/forecast.h"
#include "forecast/forecast_summary.h"
#include "forecast/practice_figures.h"
#include "forecast/real_years.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The present practice: what was measured, and from which years.
std::vector<std::string> practice_sentences(const BasePeriod& base, const CountedPractice& counted,
                                            const FamilyPractice& families, ToolLanguage language);

/// A last birth year that is left out because it is incomplete.
std::string incomplete_sentence(std::int32_t year, ToolLanguage language);

/// How many replicates there are so far, what their random numbers began with, and what ranges of theirs are.
std::string replicates_sentence(const Forecast& forecast, ToolLanguage language);

/// Where a scenario leads, what it changes against the present practice, and what it costs; behind its title.
std::vector<std::string> scenario_sentences(const Forecast& forecast, const ScenarioSummary& summary,
                                            std::size_t scenario, ToolLanguage language);

/// From this share of young with an unknown parent on, figures are said to be too low.
inline constexpr double least_unknown_share = 0.05;
std::optional<std::string> unknown_parents_sentence(const FamilyPractice& families, ToolLanguage language);

/// From this share of parents from outside on, of either sex, it is said what they do.
inline constexpr double least_outside_share = 0.01;
std::optional<std::string> outside_parents_sentence(const FamilyPractice& families, ToolLanguage language);

/// Of a herdbook that is too young to know how it changes.
std::optional<std::string> young_herdbook_sentence(const FamilyPractice& families, ToolLanguage language);

/// Whatever of these three is to be said.
std::vector<std::string> warning_sentences(const FamilyPractice& families, ToolLanguage language);

/// Whether the truth lay within the band, in words. `from` is the last year that the forecast knew.
std::vector<std::string> truth_sentences(const Forecast& forecast, const std::vector<RealYear>& truth,
                                         std::int32_t from, ToolLanguage language);

/// The name of a scenario for people.
std::string title_of(const BreedingRules& rules, ToolLanguage language);

}  // namespace pedigreewatch
