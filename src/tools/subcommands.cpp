// Looks the subcommand up in a table and hands it the arguments behind it.

#include "tools/subcommands.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/animal_command.h"
#include "tools/check_command.h"
#include "tools/command_line.h"
#include "tools/forecast_command.h"
#include "tools/matings_command.h"
#include "tools/page_command.h"
#include "tools/plan_command.h"
#include "tools/prepare_command.h"
#include "tools/tables_command.h"

namespace pedigreewatch {
namespace {

using Arguments = std::span<const std::string_view>;

struct Subcommand {
  std::string_view name, summary;
  std::string_view (*help)();
  int (*run)(Arguments arguments, ToolStreams& streams);
  int could_not = stands_in_the_way;  ///< exit status where memory or the console do not suffice
};

constexpr auto subcommands = std::to_array<Subcommand>({
    {"prepare", "turns an office's export into a data file and a steer file", prepare_help, run_prepare},
    {"check", "finds everything in the data file that stops a run or falsifies its figures", check_help, run_check,
     could_not_check},
    {"page", "writes charts and tables of the population as a page for a browser", page_help, run_page},
    {"tables", "writes the figures of the report and of every animal as tables", tables_help, run_tables},
    {"matings", "works out F of the offspring of possible matings, and the common ancestors", matings_help,
     run_matings},
    {"animal", "writes everything that is known of an animal as a page, with its pedigree", animal_help, run_animal},
    {"plan", "works out which animals should breed, how often, and who with whom", plan_help, run_plan},
    {"forecast", "foretells inbreeding and kinship, as animals are bred now and under rules", forecast_help,
     run_forecast},
});

const Subcommand* find_subcommand(std::string_view name) {
  const auto* const found =
      std::find_if(subcommands.begin(), subcommands.end(), [&](const Subcommand& s) { return s.name == name; });
  return found == subcommands.end() ? nullptr : found;
}

std::string usage() {
  std::vector<HelpLine> lines;
  lines.reserve(subcommands.size() + 2);
  for (const Subcommand& subcommand : subcommands) lines.push_back({subcommand.name, subcommand.summary});
  lines.push_back({"help", "shows this text; `help SUBCOMMAND` or `SUBCOMMAND --help` tells more"});
  lines.push_back({"--version", "shows the version"});
  return "usage: pedigreewatch-tools SUBCOMMAND ...\n" + help_lines(lines);
}

/// Something that is asked for and makes no files.
int show(std::string_view text, ToolStreams& streams) {
  streams.makes_files = false;
  append(streams.console, text);
  return 0;
}

int refuse_usage(const std::string& problem, ToolStreams& streams) {
  append(streams.messages, "pedigreewatch-tools: " + problem + "\n" + usage());
  return 2;
}

int refuse_unknown(std::string_view name, ToolStreams& streams) {
  return refuse_usage(in_quotes(name) + ": there is no such subcommand", streams);
}

int show_help(Arguments arguments, ToolStreams& streams) {
  if (arguments.empty()) return show(usage(), streams);
  const Subcommand* const subcommand = find_subcommand(arguments.front());
  return subcommand == nullptr ? refuse_unknown(arguments.front(), streams) : show(subcommand->help(), streams);
}

bool asks_for_help(std::string_view argument) {
  return argument == "--help" || argument == "-h";
}

/// The arguments up to a "--", behind which everything is the name of a file.
Arguments options_part(Arguments arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return arguments.first(static_cast<std::size_t>(end - arguments.begin()));
}

int run_subcommand(const Subcommand& subcommand, Arguments arguments, ToolStreams& streams) {
  const Arguments options = options_part(arguments);
  if (std::any_of(options.begin(), options.end(), asks_for_help)) return show(subcommand.help(), streams);
  streams.lost_console = subcommand.could_not;
  try {
    return subcommand.run(arguments, streams);
  } catch (const std::bad_alloc&) {
    return refuse(streams, {"not enough memory for a file of this size; nothing was written", subcommand.could_not});
  } catch (const std::length_error&) {  // more elements than any memory holds
    return refuse(streams, {"not enough memory for a file of this size; nothing was written", subcommand.could_not});
  }
}

}  // namespace

int run_tools(std::span<const std::string_view> arguments, std::string_view version, ToolStreams& streams) {
  if (arguments.empty()) return refuse_usage("a subcommand was expected", streams);
  const std::string_view name = arguments.front();
  if (name == "--version") return show("pedigreewatch-tools " + std::string(version) + "\n", streams);
  if (name == "help" || asks_for_help(name)) return show_help(arguments.subspan(1), streams);
  const Subcommand* const subcommand = find_subcommand(name);
  if (subcommand == nullptr) return refuse_unknown(name, streams);
  return run_subcommand(*subcommand, arguments.subspan(1), streams);
}

}  // namespace pedigreewatch
