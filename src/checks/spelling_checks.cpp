#include "checks/spelling_checks.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "checks/near_ids.h"
#include "checks/readable_text.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

void report_pair(FindingCode code, std::uint16_t column, const CountedText& rare, const CountedText& usual,
                 Findings& findings) {
  add(findings, {.code = code,
                 .column = column,
                 .line = static_cast<std::int32_t>(rare.first_line),
                 .text = keep(findings, rare.text),
                 .other_text = keep(findings, usual.text),
                 .number = rare.count,
                 .other_number = usual.count});
}

/// Whether a name can be a slip for a usual one: long enough, without numbers, and far rarer.
bool can_be_slip(const std::string& rare_word, const CountedText& rare, const CountedText& usual) {
  constexpr std::size_t shortest = 4;
  constexpr std::int64_t times_rarer = 5;
  return rare_word.size() >= shortest && !has_digit(rare_word) && rare.count * times_rarer <= usual.count;
}

bool is_listed(std::string_view text, std::span<const std::string> listed) {
  return std::any_of(listed.begin(), listed.end(), [&](const std::string& name) { return text == name; });
}

}  // namespace

void check_spellings(const TextCounts& names, std::span<const std::string> listed, std::uint16_t column,
                     const SpellingKinds& kinds, Findings& findings) {
  constexpr std::size_t most_compared = 1000;  // columns with more different texts hold no list of names
  std::vector<const CountedText*> texts = by_frequency(names);
  if (!listed.empty()) std::erase_if(texts, [&](const CountedText* text) { return !is_listed(text->text, listed); });
  if (texts.size() > most_compared) return;
  std::vector<std::string> words;
  words.reserve(texts.size());
  for (const CountedText* text : texts) words.push_back(folded(readable(text->text)));
  for (std::size_t k = 1; k < texts.size(); ++k) {
    if (words[k].empty()) continue;
    const auto usual_end = words.begin() + static_cast<std::ptrdiff_t>(k);
    const auto same = std::find(words.begin(), usual_end, words[k]);
    if (same != usual_end) {
      report_pair(kinds.same, column, *texts[k], *texts[static_cast<std::size_t>(same - words.begin())], findings);
      continue;
    }
    const auto near = std::find_if(words.begin(), usual_end, [&](const std::string& word) {
      return is_one_letter_off(word, words[k]) &&
             can_be_slip(words[k], *texts[k], *texts[static_cast<std::size_t>(&word - words.data())]);
    });
    if (near == usual_end) continue;
    report_pair(kinds.near, column, *texts[k], *texts[static_cast<std::size_t>(near - words.begin())], findings);
  }
}

void check_reserved_colours(const TextCounts& colours, std::span<const std::string> listed, std::uint16_t column,
                            Findings& findings) {
  constexpr auto reserved = std::to_array<std::string_view>({"onbekend", "nieterkend"});
  for (const CountedText& text : colours.texts) {
    if (!is_listed(text.text, listed) || !is_among(folded(readable(text.text)), reserved)) continue;
    add(findings, {.code = FindingCode::colour_reserved,
                   .column = column,
                   .line = static_cast<std::int32_t>(text.first_line),
                   .text = keep(findings, text.text),
                   .number = text.count});
  }
}

}  // namespace pedigreewatch
