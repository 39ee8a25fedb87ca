// Sorts arguments into options with their values and operands.

#include "tools/command_line.h"

#include <algorithm>

#include "text/phrases.h"

namespace pedigreewatch {
namespace {

bool is_given(const CommandLine& line, std::string_view name) {
  return std::any_of(line.options.begin(), line.options.end(), [&](const GivenOption& o) { return o.name == name; });
}

/// Takes one option; yields whether it used up the next argument as its value.
bool take_option(CommandLine& line, std::string_view argument, std::span<const std::string_view> behind,
                 std::span<const OptionRule> rules) {
  const std::size_t sign = argument.find('=');
  const std::string_view name = argument.substr(0, sign);
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const OptionRule& r) { return r.name == name; });
  const std::string label(shown(name));
  if (rule == rules.end()) {
    line.problem = label + ": there is no such option";
  } else if (!rule->is_repeatable && is_given(line, name)) {
    line.problem = label + " is given twice";
  } else if (!rule->takes_value) {
    if (sign != std::string_view::npos) line.problem = label + " takes no value";
    line.options.push_back({rule->name, {}});
  } else if (sign != std::string_view::npos) {
    line.options.push_back({rule->name, argument.substr(sign + 1)});
  } else if (behind.empty()) {
    line.problem = label + " needs a value";
  } else {
    line.options.push_back({rule->name, behind.front()});
    return true;
  }
  return false;
}

}  // namespace

std::string wrong_value(const GivenOption& given, std::string_view expected) {
  return std::string(given.name) + " " + in_quotes(given.value) + ": " + std::string(expected) + " was expected";
}

CommandLine read_command_line(std::span<const std::string_view> arguments, std::span<const OptionRule> rules) {
  CommandLine line;
  bool are_operands = false;
  while (!arguments.empty() && line.problem.empty()) {
    const std::string_view argument = arguments.front();
    arguments = arguments.subspan(1);
    if (are_operands || argument.size() < 2 || argument.front() != '-') {
      line.operands.push_back(argument);
    } else if (argument == "--") {
      are_operands = true;
    } else if (take_option(line, argument, arguments, rules)) {
      arguments = arguments.subspan(1);
    }
  }
  return line;
}

std::string help_lines(std::span<const HelpLine> lines) {
  std::size_t width = 0;
  for (const HelpLine& line : lines) width = std::max(width, line.name.size() + 1);
  std::string text;
  for (const HelpLine& line : lines) {
    text +=
        "  " + std::string(line.name) + std::string(width - line.name.size(), ' ') + std::string(line.meaning) + "\n";
  }
  return text;
}

}  // namespace pedigreewatch
