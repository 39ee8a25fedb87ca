// The options of a subcommand as they stand on the command line.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// An option that a subcommand knows.
struct OptionRule {
  std::string_view name;    ///< with its hyphens: "--out"
  bool takes_value = true;  ///< "--out DIR" or "--out=DIR"
  bool is_repeatable = false;
};

struct GivenOption {
  std::string_view name, value;
};

/// What is wrong with the value of an option.
std::string wrong_value(const GivenOption& given, std::string_view expected);

struct CommandLine {
  std::vector<GivenOption> options;
  std::vector<std::string_view> operands;
  std::string problem;  ///< what is wrong with it; empty: nothing
};

/// Reads the arguments behind the subcommand. Behind "--" everything is an operand.
CommandLine read_command_line(std::span<const std::string_view> arguments, std::span<const OptionRule> rules);

/// A line of a list in a help: a name, and what it stands for.
struct HelpLine {
  std::string_view name, meaning;
};

/// Two blanks, the name, and the meaning in a column behind the longest of the names.
std::string help_lines(std::span<const HelpLine> lines);

}  // namespace pedigreewatch
