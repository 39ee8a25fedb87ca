// Shortens lists to what a reader takes in.

#include "intake/finding_lists.h"

namespace pedigreewatch {
namespace {

constexpr Wording nothing = {"none", "geen"};
constexpr Wording empty_text = {"empty", "leeg"};
constexpr Wording line_and_text = {"line {1} {2}", "regel {1} {2}"};
constexpr Wording line_only = {"line {1}", "regel {1}"};
constexpr Wording and_more = {" and {1} more", " en nog {1}"};

}  // namespace

void say(TextOutput& console, const Wording& wording, ToolLanguage language,
         std::initializer_list<std::string_view> values) {
  append(console, phrase(wording, language, values));
  end_line(console);
}

std::string text_of(std::int64_t number) {
  return std::to_string(number);
}

std::string more_text(std::int64_t count, ToolLanguage language) {
  return phrase(and_more, language, {text_of(count)});
}

std::string list_counted(const TextCounts& counts, ToolLanguage language,
                         const std::function<bool(const CountedText&)>& is_meant) {
  constexpr std::size_t most_shown = 12;
  std::string list;
  std::size_t count = 0;
  for (const CountedText* entry : by_frequency(counts)) {
    if (!is_meant(*entry) || ++count > most_shown) continue;
    if (!list.empty()) list += ", ";
    list += entry->text.empty() ? std::string(words_of(empty_text, language)) : in_quotes(entry->text);
    list += " (" + text_of(entry->count) + ")";
  }
  if (count > most_shown) list += phrase(and_more, language, {std::to_string(count - most_shown)});
  return list.empty() ? std::string(words_of(nothing, language)) : list;
}

std::string list_noted(const NotedTexts& noted, ToolLanguage language) {
  std::string list;
  for (const NotedText& entry : noted.first) {
    if (!list.empty()) list += ", ";
    list += entry.text.empty() ? phrase(line_only, language, {text_of(entry.line)})
                               : phrase(line_and_text, language, {text_of(entry.line), in_quotes(entry.text)});
  }
  const std::int64_t more = noted.count - static_cast<std::int64_t>(noted.first.size());
  return more > 0 ? list + phrase(and_more, language, {text_of(more)}) : list;
}

void show_noted(const Wording& wording, const NotedTexts& noted, ToolLanguage language, TextOutput& console) {
  if (noted.count > 0) say(console, wording, language, {text_of(noted.count), list_noted(noted, language)});
}

void show_count(const Wording& wording, std::int64_t count, ToolLanguage language, TextOutput& console) {
  if (count > 0) say(console, wording, language, {text_of(count)});
}

bool is_in_use(const PreparePlan& plan, FieldCode code) {
  return plan.columns.place[static_cast<std::size_t>(code)].has_value();
}

}  // namespace pedigreewatch
