// Tables of words, compared in their folded form.

#include "intake/value_words.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

// Longer texts are looked at no further: none of the words below has so many bytes.
constexpr std::size_t longest_word = 24;

constexpr auto unknown_words = std::to_array<std::string_view>(
    {"na",        "nan",       "null",     "nil",         "none",     "missing",  "unknown",    "unk",
     "unkn",      "nvt",       "notknown", "onb",         "onbek",    "onbekend", "nietbekend", "unb",
     "unbek",     "unbekannt", "inc",      "inconnu",     "inconnue", "geen",     "notavail",   "notavailable",
     "undefined", "keine",     "leeg",     "unspecified", "onbepaald"});

constexpr auto no_words =
    std::to_array<std::string_view>({"n", "no", "nee", "neen", "nein", "non", "false", "f", "onwaar", "falsch", "faux",
                                     "notimported", "nietgeimporteerd"});

struct SexWord {
  std::string_view word;
  SexMeaning meaning;
  std::string_view species;  ///< empty: the word serves several
};

constexpr SexMeaning male_word = SexMeaning::male, female_word = SexMeaning::female;

constexpr auto sex_words = std::to_array<SexWord>({
    {"m", male_word, ""},
    {"male", male_word, ""},
    {"males", male_word, ""},
    {"man", male_word, ""},
    {"mannelijk", male_word, ""},
    {"mannetje", male_word, ""},
    {"mnl", male_word, ""},
    {"mann", male_word, ""},
    {"mannlich", male_word, ""},
    {"maennlich", male_word, ""},
    {"masculin", male_word, ""},
    {"masc", male_word, ""},
    {"sire", male_word, ""},
    {"vader", male_word, ""},
    {"father", male_word, ""},
    {"f", female_word, ""},
    {"v", female_word, ""},
    {"w", female_word, ""},
    {"fem", female_word, ""},
    {"female", female_word, ""},
    {"females", female_word, ""},
    {"vrouw", female_word, ""},
    {"vrouwelijk", female_word, ""},
    {"vrouwtje", female_word, ""},
    {"vrl", female_word, ""},
    {"weiblich", female_word, ""},
    {"femelle", female_word, ""},
    {"feminin", female_word, ""},
    {"dam", female_word, ""},
    {"moeder", female_word, ""},
    {"mother", female_word, ""},
    {"reu", male_word, "dog"},
    {"rude", male_word, "dog"},
    {"teef", female_word, "dog"},
    {"bitch", female_word, "dog"},
    {"hundin", female_word, "dog"},
    {"kater", male_word, "cat"},
    {"tomcat", male_word, "cat"},
    {"tom", male_word, ""},
    {"poes", female_word, "cat"},
    {"queen", female_word, ""},
    {"stier", male_word, "cattle"},
    {"bull", male_word, "cattle"},
    {"taureau", male_word, "cattle"},
    {"koe", female_word, "cattle"},
    {"cow", female_word, "cattle"},
    {"kuh", female_word, "cattle"},
    {"vache", female_word, "cattle"},
    {"vaars", female_word, "cattle"},
    {"ram", male_word, "sheep"},
    {"belier", male_word, "sheep"},
    {"ooi", female_word, "sheep"},
    {"ewe", female_word, "sheep"},
    {"brebis", female_word, "sheep"},
    {"hengst", male_word, "horse"},
    {"stallion", male_word, "horse"},
    {"ruin", male_word, "horse"},
    {"merrie", female_word, "horse"},
    {"mare", female_word, "horse"},
    {"stute", female_word, "horse"},
    {"haan", male_word, "poultry"},
    {"cock", male_word, "poultry"},
    {"hahn", male_word, "poultry"},
    {"hen", female_word, "poultry"},
    {"henne", female_word, "poultry"},
    {"beer", male_word, "pig"},
    {"boar", male_word, "pig"},
    {"eber", male_word, "pig"},
    {"zeug", female_word, "pig"},
    {"sow", female_word, "pig"},
    {"sau", female_word, "pig"},
});

const SexWord* find_sex_word(std::string_view text) {
  if (text.size() > longest_word) return nullptr;
  if (text == "\xE2\x99\x82") text = "m";  // the signs of Mars and Venus
  if (text == "\xE2\x99\x80") text = "f";
  const std::string word = folded(text);
  const auto* const found =
      std::find_if(sex_words.begin(), sex_words.end(), [&](const SexWord& entry) { return entry.word == word; });
  return found == sex_words.end() ? nullptr : found;
}

/// Nothing but signs, as in "-", "?", "..", or nothing but zeros.
bool is_placeholder(std::string_view text) {
  constexpr std::string_view signs = "-?.*/_ xX#";
  const bool has_no_text = text.find_first_not_of("-?.*/_ #") == std::string_view::npos;
  const bool is_crossed_out = text.size() > 1 && text.find_first_not_of(signs) == std::string_view::npos;
  return has_no_text || is_crossed_out || text.find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

bool means_unknown(std::string_view text) {
  if (is_placeholder(text)) return true;
  if (text.size() > longest_word) return false;
  // Most texts are identifications: one with a digit is none of the words.
  if (std::any_of(text.begin(), text.end(), [](char byte) { return byte >= '0' && byte <= '9'; })) return false;
  return is_among(folded(text), unknown_words);
}

bool means_no_import(std::string_view text) {
  return means_unknown(text) || (text.size() <= longest_word && is_among(folded(text), no_words));
}

SexMeaning sex_named(std::string_view text) {
  const SexWord* const found = find_sex_word(text);
  return found == nullptr ? SexMeaning::unknown : found->meaning;
}

std::string_view species_of_sex_word(std::string_view text) {
  const SexWord* const found = find_sex_word(text);
  return found == nullptr ? std::string_view() : found->species;
}

}  // namespace pedigreewatch
