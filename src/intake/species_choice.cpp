// The words of the steer file for the species, in both languages.

#include "intake/species_choice.h"

#include <array>

#include "core/wording.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::array<Wording, 8> species = {{{"dog", "hond"},
                                             {"cat", "kat"},
                                             {"cattle", "rund"},
                                             {"sheep", "schaap"},
                                             {"horse", "paard"},
                                             {"poultry", "pluimvee"},
                                             {"pig", "varken"},
                                             {"other", "overig"}}};

}  // namespace

std::string_view species_named(std::string_view word, ToolLanguage language) {
  const std::string wanted = folded(word);
  for (const Wording& entry : species) {
    if (entry.english == wanted || entry.dutch == wanted) return words_of(entry, language);
  }
  return {};
}

std::string_view species_of_sexes(const TextCounts& sexes, ToolLanguage language) {
  std::string_view found;
  for (const CountedText& sex : sexes.texts) {
    const std::string_view named = species_of_sex_word(sex.text);
    if (named.empty()) continue;
    if (!found.empty() && found != named) return {};
    found = named;
  }
  return found.empty() ? found : species_named(found, language);
}

std::vector<std::string_view> list_species(ToolLanguage language) {
  std::vector<std::string_view> words;
  words.reserve(species.size());
  for (const Wording& entry : species) words.push_back(words_of(entry, language));
  return words;
}

}  // namespace pedigreewatch
