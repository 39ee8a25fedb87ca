#include "desk/desk.h"

#include <array>
#include <utility>

namespace pedigreewatch {
namespace {

/// What `pedigreewatch-tools prepare` says of an option, and what the desk says of the choice that stands for it.
struct DeskWord {
  std::string_view said;
  Wording word;
  bool to_end_of_line = false;  ///< the rest of the line is replaced too
};

constexpr Wording choose_above = {" Choose it above its column.", " Kies het boven de kolom."};
constexpr Wording tick_those = {" Tick those that count, or choose all or none.",
                                " Vink aan welke meetellen, of kies alle of geen."};

// Those that hold another one stand before it.
constexpr auto desk_words = std::to_array<DeskWord>({
    {" (another name: --name)", {"", ""}},
    {" (andere naam: --name)", {"", ""}},
    {" Name it: --column", choose_above, true},
    {" Noem de kolom: --column", choose_above, true},
    {" Choose one: --column", choose_above, true},
    {" Kies er een: --column", choose_above, true},
    {"with --column", {"above the columns", "above the columns"}},
    {"met --column", {"boven de kolommen", "boven de kolommen"}},
    {" Name those that count (", tick_those, true},
    {" Noem welke meetellen (", tick_those, true},
    {"--column", {"above the columns:", "boven de kolommen:"}},
    {"--encoding", {"under \"letters\":", "bij \"letters\":"}},
    {"--delimiter", {"under \"divided by\":", "bij \"gescheiden door\":"}},
    {"--header", {"under \"first line\":", "bij \"eerste regel\":"}},
    {"--dates", {"under \"dates\":", "bij \"datums\":"}},
    {"--male", {"under \"males are written\":", "bij \"mannetjes geschreven als\":"}},
    {"--unknown", {"under \"unknown parents\":", "bij \"onbekende ouders\":"}},
    {"--species", {"under \"species\":", "bij \"diersoort\":"}},
    {"--name", {"under \"name of the population\":", "bij \"naam van de populatie\":"}},
});

void replace_all(std::string& text, const DeskWord& entry, ToolLanguage language) {
  const std::string_view replacement = words_of(entry.word, language);
  for (std::size_t place = text.find(entry.said); place != std::string::npos;) {
    const std::size_t end = entry.to_end_of_line ? text.find('\n', place) : place + entry.said.size();
    text.replace(place, end == std::string::npos ? end : end - place, replacement);
    place = text.find(entry.said, place + replacement.size());
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
  for (const DeskWord& entry : desk_words) replace_all(words, entry, language);
  return words;
}

}  // namespace pedigreewatch
