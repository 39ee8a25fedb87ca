#include "desk/desk.h"

#include <array>
#include <utility>

namespace pedigreewatch {
namespace {

/// An option of `pedigreewatch-tools prepare`, and the choice of the desk that stands for it.
struct DeskWord {
  std::string_view option;
  Wording word;
};

constexpr std::array<DeskWord, 12> desk_words = {{
    {" (another name: --name)", {"", ""}},
    {" (andere naam: --name)", {"", ""}},
    {"--encoding", {"under \"letters\":", "bij \"letters\":"}},
    {"--delimiter", {"under \"divided by\":", "bij \"gescheiden door\":"}},
    {"--header", {"under \"first line\":", "bij \"eerste regel\":"}},
    {"--column ", {"above the columns: ", "boven de kolommen: "}},
    {"--column", {"above the columns", "boven de kolommen"}},
    {"--dates", {"under \"dates\":", "bij \"datums\":"}},
    {"--male", {"under \"males are written\":", "bij \"mannetjes geschreven als\":"}},
    {"--unknown", {"under \"unknown parents\":", "bij \"onbekende ouders\":"}},
    {"--species", {"under \"species\":", "bij \"diersoort\":"}},
    {"--name", {"under \"name\":", "bij \"naam\":"}},
}};

void replace_all(std::string& text, std::string_view wanted, std::string_view replacement) {
  for (std::size_t place = text.find(wanted); place != std::string::npos;) {
    text.replace(place, wanted.size(), replacement);
    place = text.find(wanted, place + replacement.size());
  }
}

}  // namespace

void forget_run(Desk& desk) {
  desk.files.reset();
  desk.steer.reset();
  desk.check.reset();
  desk.results.reset();
  desk.males.clear();
  desk.males_for_dam = 0;
  std::vector<std::uint32_t>().swap(desk.chosen_findings);
}

void forget_all(Desk& desk) {
  forget_run(desk);
  desk.has_export = false;
  desk.preparation = {};
  desk.options = {};
  desk.settings.clear();
}

void add_lines(JsonText& json, std::string_view name, std::string_view text) {
  begin_list(json, name);
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    if (end != 0) add_text(json, text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  end_list(json);
}

std::string in_words_of_desk(std::string_view text, ToolLanguage language) {
  std::string words(text);
  for (const DeskWord& entry : desk_words) replace_all(words, entry.option, words_of(entry.word, language));
  return words;
}

}  // namespace pedigreewatch
