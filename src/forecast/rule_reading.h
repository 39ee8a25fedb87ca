// Rules as they are written: "most-litters-a-year = 5" in a file with a name for each scenario, or as an option.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/wording.h"
#include "forecast/base_period.h"
#include "forecast/breeding_rules.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// A rule that can be written.
struct RuleForm {
  std::string_view name;
  Wording label;                   ///< what people call it, before a colon and its value
  Wording expected;                ///< of its value; {1} and {2} are the least and the most
  double least = 0.0, most = 0.0;  ///< as they are written: 50 for 50%
  bool is_figure = false;          ///< no rule, but of the practice, in place of what was measured
};

/// All rules, in the order of the documents.
std::vector<RuleForm> rule_forms();

/// Whether the name is that of a figure of the practice.
bool is_figure(std::string_view name);

/// What is wrong with a rule or a line.
struct RuleProblem {
  std::int64_t line = 0;  ///< counted from 1; 0: none
  std::string text;       ///< that is wrong
  Wording reason;
  std::vector<std::string> values = {};  ///< in it
  WrittenRule written = {};              ///< the rule that cannot be kept, or the scenario without a value
};

std::string reason_of(const RuleProblem& problem, ToolLanguage language);

/// A rule in words, with its value as it was written; in Dutch with a decimal comma.
std::string rule_in_words(const WrittenRule& rule, ToolLanguage language);

/// Takes a rule of this line by its name and value, with a decimal point or comma. Yields what is wrong; without a
/// reason: nothing.
RuleProblem take_rule(std::string_view name, std::string_view typed, BreedingRules& rules, std::int64_t line = 0);

struct ReadScenarios {
  std::vector<BreedingRules> scenarios;
  BreedingRules present;              ///< figures that are said of the present practice, and its numbers
  std::vector<RuleProblem> problems;  ///< by line
};

/// More scenarios than these are no comparison any more.
inline constexpr std::size_t most_scenarios = 12;

/// The scenarios of a file: a name in square brackets, and the rules below it; below [present] figures of the practice.
/// Lines that begin with # or ; are for people. In UTF-8, or in
/// another encoding that is recognised; names come in UTF-8.
ReadScenarios read_scenarios(std::string_view bytes);

/// The scenario of the rules on the command line.
inline constexpr std::string_view options_scenario = "options";

/// Figures that this population has no use for; with their lines.
std::vector<RuleProblem> find_wrong_figures(const BreedingRules& present, const BasePeriod& base);

/// A figure that was said of the practice and that trial herds do not come to, with what they come to.
RuleProblem out_of_reach(const BreedingRules& present, std::string_view name, double reached);

/// Rules that cannot all be kept, or that this population has no use for; with the line of one of them.
std::vector<RuleProblem> find_contradictions(const BreedingRules& rules, const BasePeriod& base);

}  // namespace pedigreewatch
