// The manual page has every option of every subcommand, as the help of the program has it, and none that there is not.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "text/encoding.h"
#include "tools/subcommands.h"

namespace pedigreewatch::test {
namespace {

using OptionNames = std::set<std::string>;

bool is_of_option(char letter) {
  return (letter >= 'a' && letter <= 'z') || letter == '-';
}

/// All "--name" of a text, but "--help".
void add_options(const std::string& text, OptionNames& options) {
  for (std::size_t begin = text.find("--"); begin != std::string::npos; begin = text.find("--", begin)) {
    const auto end = std::find_if_not(text.begin() + std::ptrdiff_t(begin), text.end(), is_of_option);
    const std::string option(text.begin() + std::ptrdiff_t(begin), end);
    if (option.size() > 2 && option != "--help") options.insert(option);
    begin += option.size();
  }
}

std::string help_of(const std::vector<std::string_view>& arguments) {
  ToolStreams streams;
  EXPECT_EQ(run_tools(arguments, "1.2.3", streams), 0);
  return streams.console.pending;
}

/// Options stand in front of their lines, several with commas between them.
OptionNames options_of_help(std::string_view subcommand) {
  OptionNames options;
  for (const std::string& line : lines_of(help_of({"help", subcommand}))) {
    if (line.starts_with("  --")) add_options(line, options);
  }
  return options;
}

std::vector<std::string_view> names_of_subcommands(const std::string& help) {
  std::vector<std::string_view> names;
  for (std::string_view rest = help; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) {
    if (!rest.starts_with("  ")) continue;
    const std::string_view name = rest.substr(2, rest.find(' ', 2) - 2);
    if (name != "help" && name != "--version") names.push_back(name);
  }
  return names;
}

/// The lines of the manual page, hyphens as they are typed.
std::vector<std::string> manual_lines() {
  std::vector<std::string> lines = lines_of(bytes_of(source_folder() + "/docs/man/pedigreewatch-tools.1"));
  for (std::string& line : lines) {
    for (std::size_t place = line.find("\\-"); place != std::string::npos; place = line.find("\\-", place)) {
      line.erase(place, 1);
    }
  }
  return lines;
}

/// What the headings of a subcommand's section name.
OptionNames options_of_section(std::string_view subcommand) {
  std::string heading = ".SH ";
  for (const char letter : subcommand) heading += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  OptionNames options;
  bool is_here = false, is_heading = false;
  for (const std::string& line : manual_lines()) {
    if (line.starts_with(".SH ")) is_here = line == heading;
    if (is_here && is_heading) add_options(line, options);
    is_heading = line == ".TP";
  }
  return options;
}

struct Synopsis {
  OptionNames options;
  bool names_all = true;  ///< and not "OPTION ..."
};

Synopsis synopsis_of(std::string_view subcommand) {
  const std::string first = ".B pedigreewatch-tools " + std::string(subcommand);
  Synopsis synopsis;
  bool is_here = false;
  for (const std::string& line : manual_lines()) {
    if (line == ".br" || line.starts_with(".SH ")) is_here = false;
    if (is_here) add_options(line, synopsis.options);
    if (is_here && line.find("OPTION") != std::string::npos) synopsis.names_all = false;
    is_here = is_here || line == first;
  }
  return synopsis;
}

TEST(ManualPage, HasTheOptionsThatTheHelpOfEachSubcommandHas) {
  const std::string help = help_of({"help"});
  EXPECT_EQ(names_of_subcommands(help).size(), 8U);
  for (const std::string_view subcommand : names_of_subcommands(help)) {
    const OptionNames options = options_of_help(subcommand);
    EXPECT_GE(options.size(), 3U) << subcommand;
    EXPECT_EQ(options_of_section(subcommand), options) << subcommand;
  }
}

TEST(ManualPage, HasThemInTheSynopsisOrSaysThatThereAreMore) {
  const std::string help = help_of({"help"});
  for (const std::string_view subcommand : names_of_subcommands(help)) {
    const Synopsis synopsis = synopsis_of(subcommand);
    const OptionNames options = options_of_help(subcommand);
    if (synopsis.names_all) {
      EXPECT_EQ(synopsis.options, options) << subcommand;
    }
    EXPECT_TRUE(std::includes(options.begin(), options.end(), synopsis.options.begin(), synopsis.options.end()))
        << subcommand;
  }
}

/// The encodings whose names stand in a text.
std::set<Encoding> encodings_in(const std::string& text) {
  std::set<Encoding> found;
  std::string word;
  for (const char letter : text + " ") {
    if (is_of_option(letter) || (letter >= '0' && letter <= '9')) {
      word += letter;
    } else if (const std::optional<Encoding> encoding = encoding_named(std::exchange(word, {}))) {
      found.insert(*encoding);
    }
  }
  return found;
}

TEST(ManualPage, HasEveryEncodingThatPrepareKnows) {
  std::string names;
  bool is_here = false;
  for (const std::string& line : manual_lines()) {
    if (is_here) names += line + "\n";
    is_here = line.starts_with(".BI --encoding ");
  }
  constexpr auto last = static_cast<int>(Encoding::utf_8_twice);
  for (int k = static_cast<int>(Encoding::utf_8); k <= last; ++k) {
    EXPECT_TRUE(encodings_in(names).contains(static_cast<Encoding>(k))) << name_of(static_cast<Encoding>(k));
  }
}

}  // namespace
}  // namespace pedigreewatch::test
