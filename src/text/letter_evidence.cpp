// A word is as likely as its letters are in the language that uses them most; the language of a word is as likely as
// its share of the words of the text. Twelve tables of letters by their share among the letters beyond ASCII of running
// text and names stand for the languages; orders of magnitude matter in them, not digits.

#include "text/letter_evidence.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>

#include "core/shares.h"
#include "text/known_words.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_words = 3000, most_word_bytes = 40;

/// How much likelier a reading is for each word that is known.
constexpr double known_word_factor = 100;

/// Of the words of languages that are written in Windows-1250 at least this share has letters beyond ASCII; where fewer
/// words have, it is as much less likely, down to this factor. So many bytes are looked at for it.
constexpr double share_of_eastern_words = .1, least_eastern_factor = .2;
constexpr std::size_t bytes_of_plain_words = std::size_t{1} << 18;

/// How strongly the words of a text belong together: the smaller, the less likely is a language that few of them have.
constexpr double language_smoothing = .25;

struct LetterShare {
  char16_t letter;  ///< small
  double share;     ///< of the letters beyond ASCII of the language
};

// By the first language of each group.
constexpr auto letters_of_dutch = std::to_array<LetterShare>({{0xEB, .40},
                                                              {0xE9, .25},
                                                              {0xEF, .10},
                                                              {0xE8, .06},
                                                              {0xF6, .05},
                                                              {0xFC, .04},
                                                              {0xEA, .03},
                                                              {0xE2, .02},
                                                              {0xFB, .02},
                                                              {0xE1, .01},
                                                              {0xF3, .01},
                                                              {0xE7, .01}});
constexpr auto letters_of_german =
    std::to_array<LetterShare>({{0xFC, .38}, {0xE4, .30}, {0xF6, .20}, {0xDF, .10}, {0xE9, .01}});
constexpr auto letters_of_french = std::to_array<LetterShare>({{0xE9, .58},
                                                               {0xE8, .12},
                                                               {0xE0, .08},
                                                               {0xEA, .06},
                                                               {0xE7, .05},
                                                               {0xEE, .03},
                                                               {0xEF, .02},
                                                               {0xF4, .02},
                                                               {0xE2, .02},
                                                               {0xFB, .01},
                                                               {0xEB, .01},
                                                               {0xF9, .005},
                                                               {0x153, .01}});
constexpr auto letters_of_spanish = std::to_array<LetterShare>(
    {{0xF3, .24}, {0xED, .21}, {0xE1, .19}, {0xF1, .14}, {0xE9, .13}, {0xFA, .07}, {0xFC, .01}});
constexpr auto letters_of_italian =
    std::to_array<LetterShare>({{0xE0, .35}, {0xE8, .28}, {0xF2, .15}, {0xF9, .10}, {0xEC, .06}, {0xE9, .05}});
constexpr auto letters_of_portuguese = std::to_array<LetterShare>({{0xE3, .22},
                                                                   {0xE1, .17},
                                                                   {0xE7, .16},
                                                                   {0xE9, .14},
                                                                   {0xED, .09},
                                                                   {0xEA, .07},
                                                                   {0xF3, .06},
                                                                   {0xF5, .03},
                                                                   {0xE0, .03},
                                                                   {0xFA, .02},
                                                                   {0xE2, .02},
                                                                   {0xF4, .01}});
constexpr auto letters_of_swedish = std::to_array<LetterShare>({{0xE4, .50}, {0xF6, .30}, {0xE5, .18}, {0xE9, .01}});
constexpr auto letters_of_danish = std::to_array<LetterShare>({{0xF8, .45}, {0xE5, .30}, {0xE6, .24}, {0xE9, .01}});
constexpr auto letters_of_polish = std::to_array<LetterShare>({{0x142, .26},
                                                               {0xF3, .14},
                                                               {0x119, .15},
                                                               {0x105, .13},
                                                               {0x17C, .11},
                                                               {0x15B, .09},
                                                               {0x107, .06},
                                                               {0x144, .04},
                                                               {0x17A, .02}});
constexpr auto letters_of_czech = std::to_array<LetterShare>({{0xED, .19},
                                                              {0xE1, .17},
                                                              {0xE9, .10},
                                                              {0x11B, .10},
                                                              {0x159, .09},
                                                              {0x10D, .09},
                                                              {0x161, .08},
                                                              {0x17E, .08},
                                                              {0xFD, .07},
                                                              {0x16F, .03},
                                                              {0xFA, .02},
                                                              {0xF3, .01},
                                                              {0x148, .01},
                                                              {0x165, .005},
                                                              {0x10F, .005},
                                                              {0x13E, .02},
                                                              {0xF4, .01}});
constexpr auto letters_of_hungarian = std::to_array<LetterShare>({{0xE1, .32},
                                                                  {0xE9, .28},
                                                                  {0xF6, .10},
                                                                  {0xF3, .09},
                                                                  {0x151, .07},
                                                                  {0xED, .05},
                                                                  {0xFC, .05},
                                                                  {0xFA, .03},
                                                                  {0x171, .02}});
constexpr auto letters_of_croatian = std::to_array<LetterShare>({{0x10D, .20},
                                                                 {0x161, .18},
                                                                 {0x17E, .14},
                                                                 {0x107, .12},
                                                                 {0x111, .04},
                                                                 {0x103, .14},
                                                                 {0x15F, .06},
                                                                 {0x163, .06},
                                                                 {0xEE, .04},
                                                                 {0xE2, .02}});

struct Language {
  std::string_view rare;  ///< letters of ASCII that only names from abroad have
  std::span<const LetterShare> letters;
  bool accents_end_words = false;
};

constexpr auto languages = std::to_array<Language>({
    {"q", letters_of_dutch},  // Dutch and Frisian
    {"", letters_of_german},
    {"kw", letters_of_french},
    {"kw", letters_of_spanish},
    {"jkwxy", letters_of_italian, true},
    {"kwy", letters_of_portuguese},  // Portuguese and Catalan
    {"qwz", letters_of_swedish},     // Swedish and Finnish
    {"qwz", letters_of_danish},      // Danish and Norwegian
    {"qvx", letters_of_polish},
    {"qwx", letters_of_czech},  // Czech and Slovak
    {"qwx", letters_of_hungarian},
    {"qwxy", letters_of_croatian},  // Croatian, Slovene and Rumanian
});

// How likely a letter is that the language does not have, but another one does, as in a name from abroad; and one that
// is a letter of no language above.
constexpr double foreign_share = 2e-3, strange_share = 1e-4;
// Signs: an apostrophe within a word, a quotation mark or dash around one, a sign where a letter should be, and what is
// printed at all only by terminals (frames, control characters).
constexpr double apostrophe_share = .2, sign_around_share = .02, sign_within_share = 1e-5, unprintable_share = 1e-6;
constexpr double lone_sign_share = .05, lone_letter_share = .02;
// A capital behind a small letter or within a small word, or a small letter before a capital; a consonant between
// consonants; a vowel between vowels. Two vowels beyond ASCII side by side; a letter of ASCII that is rare in the
// language.
constexpr double wrong_case_share = .01, crowded_consonant_share = .2, crowded_vowel_share = .5;
constexpr double accented_pair_share = .1, rare_letter_share = .2;
// An accent within a word of a language that has them at its end.
constexpr double early_accent_share = .1;

/// How usual an encoding is before a word of the text is seen.
constexpr std::array<double, byte_encoding_count> encoding_shares = {.70, .10, .04, .06, .06, .01};

bool is_capital(char32_t letter) {
  if (letter < 0x80) return letter >= 'A' && letter <= 'Z';
  if (letter >= 0xC0 && letter <= 0xDE) return letter != 0xD7;
  if (letter == 0x178) return true;
  if (letter >= 0x139 && letter <= 0x148) return letter % 2 == 1;
  if (letter >= 0x179 && letter <= 0x17E) return letter % 2 == 1;
  return letter >= 0x100 && letter <= 0x177 && letter != 0x131 && letter != 0x138 && letter % 2 == 0;
}

/// The small letter of a capital.
char32_t small(char32_t letter) {
  if (!is_capital(letter)) return letter;
  if (letter < 0x100) return letter + 32;
  return letter == 0x178 ? 0xFF : letter + 1;
}

bool is_letter(char32_t letter) {
  if (letter < 0x80) return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
  return (letter >= 0xC0 && letter < 0x180 && letter != 0xD7 && letter != 0xF7) || letter == 0x192;
}

/// Whether a letter is a vowel, of those beyond ASCII too.
bool is_vowel(char32_t letter) {
  constexpr std::u32string_view consonants =
      U"\u00E7\u00F1\u00DF\u00F0\u00FE\u010D\u010F\u0107\u0111\u0142\u013E\u013A"
      U"\u0144\u0148\u0159\u0155\u0161\u015B\u015F\u0165\u0163\u017E\u017A\u017C";
  const char32_t lower = small(letter);
  if (lower < 0x80) return std::u32string_view(U"aeiouy").find(lower) != std::u32string_view::npos;
  return is_letter(lower) && consonants.find(lower) == std::u32string_view::npos;
}

bool is_apostrophe(char32_t letter) {
  return letter == 0x2019 || letter == 0x2018;
}

/// Blanks, quotation marks, dashes and other signs of print that stand around words.
bool is_print_sign(char32_t letter) {
  return letter == 0xA0 || letter == 0xAB || letter == 0xBB || letter == 0xBF || letter == 0xA1 || letter == 0xB0 ||
         letter == 0xBA || letter == 0xAA || letter == 0xBD || letter == 0xBC || letter == 0xBE || letter == 0xA7 ||
         letter == 0xB7 || letter == 0xA9 || letter == 0xAE || letter == 0xA3 || letter == 0x20AC || letter == 0x2122 ||
         (letter >= 0x2013 && letter <= 0x2026);
}

bool is_unprintable(char32_t letter) {
  return letter < 0xA0 || (letter >= 0x2320 && letter <= 0x25FF);
}

/// The letters around one, 0 at the ends of the word.
struct Neighbours {
  char32_t before = 0, after = 0;
  bool is_alone = false;  ///< the word has no letters of ASCII
};

double share_of_sign(char32_t sign, const Neighbours& around) {
  if (is_unprintable(sign)) return unprintable_share;
  if (around.is_alone) return lone_sign_share;
  const bool is_within = around.before != 0 && around.after != 0;
  if (is_within && is_apostrophe(sign)) return apostrophe_share;
  if (sign == 0xA0) return lone_sign_share;
  return is_within || !is_print_sign(sign) ? sign_within_share : sign_around_share;
}

/// What the letters beside it say about a letter.
double share_among(char32_t letter, const Neighbours& around) {
  double share = 1;
  const bool follows_small = is_letter(around.before) && !is_capital(around.before);
  const bool precedes_capital = is_capital(around.after) && letter != 0xDF;  // a sharp s stands among capitals
  const bool is_in_small_word = is_letter(around.before) && is_letter(around.after) && !is_capital(around.after);
  const bool has_wrong_case = is_capital(letter) ? follows_small || is_in_small_word : precedes_capital;
  if (has_wrong_case) share *= wrong_case_share;
  if (around.is_alone) share *= lone_letter_share;
  const bool is_between = is_letter(around.before) && is_letter(around.after);
  if (is_between && is_vowel(letter) == is_vowel(around.before) && is_vowel(letter) == is_vowel(around.after)) {
    share *= is_vowel(letter) ? crowded_vowel_share : crowded_consonant_share;
  }
  const bool follows_accent = around.before >= 0x80 && is_letter(around.before);
  if (follows_accent && is_vowel(letter) && is_vowel(around.before)) share *= accented_pair_share;
  return share;
}

double share_in(const Language& language, char32_t letter) {
  const auto found = std::find_if(language.letters.begin(), language.letters.end(),
                                  [&](const LetterShare& entry) { return entry.letter == letter; });
  return found == language.letters.end() ? 0 : found->share;
}

bool is_known_anywhere(char32_t letter) {
  return std::any_of(languages.begin(), languages.end(),
                     [&](const Language& language) { return share_in(language, letter) > 0; });
}

using LanguageScores = std::array<double, languages.size()>;

char small_ascii(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool is_ascii_letter(char byte) {
  return small_ascii(byte) >= 'a' && small_ascii(byte) <= 'z';
}

/// Adds what a letter of ASCII says about the language.
void add_plain_letter(LanguageScores& scores, char byte) {
  for (std::size_t k = 0; k < scores.size(); ++k) {
    if (languages[k].rare.find(small_ascii(byte)) != std::string_view::npos) scores[k] += std::log(rare_letter_share);
  }
}

/// Adds what a letter beyond ASCII says, or a sign.
void add_letter(LanguageScores& scores, char32_t letter, const Neighbours& around) {
  if (!is_letter(letter)) {
    for (double& score : scores) score += std::log(share_of_sign(letter, around));
    return;
  }
  const double floor = is_known_anywhere(small(letter)) ? foreign_share : strange_share;
  const double among = std::log(share_among(letter, around));
  for (std::size_t k = 0; k < scores.size(); ++k) {
    double share = share_in(languages[k], small(letter));
    if (languages[k].accents_end_words && is_letter(around.after)) share *= early_accent_share;
    scores[k] += among + std::log(std::max(share, floor));
  }
}

/// The logarithm of how likely a word is in each language.
LanguageScores scores_of(std::string_view word, const LetterTable& table) {
  LanguageScores scores = {};
  const bool is_alone = std::none_of(word.begin(), word.end(), is_ascii_letter);
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (is_ascii_letter(word[i])) {
      add_plain_letter(scores, word[i]);
      continue;
    }
    const Neighbours around = {.before = i > 0 ? letter_of_byte(table, word[i - 1]) : 0,
                               .after = i + 1 < word.size() ? letter_of_byte(table, word[i + 1]) : 0,
                               .is_alone = is_alone};
    add_letter(scores, letter_of_byte(table, word[i]), around);
  }
  return scores;
}

/// A word in small letters.
std::string small_word(std::string_view word, const LetterTable& table) {
  std::string text;
  for (const char byte : word) append_letter(text, small(letter_of_byte(table, byte)));
  return text;
}

/// What the known words among the words say for an encoding.
double score_of_known_words(const std::vector<std::string>& words, const LetterTable& table) {
  const auto count = std::count_if(words.begin(), words.end(), [&](const std::string& word) {
    return is_known_accented_word(small_word(word, table));
  });
  return static_cast<double>(count) * std::log(known_word_factor);
}

/// The likelihood of all words: each in its best language, the more so the more words are in that language.
double score_of(const std::vector<std::string>& words, ByteEncoding encoding) {
  const LetterTable& table = letter_table(encoding);
  std::vector<LanguageScores> all;
  LanguageScores word_counts = {};
  for (const std::string& word : words) {
    all.push_back(scores_of(word, table));
    const auto* const best = std::max_element(all.back().begin(), all.back().end());
    ++word_counts[static_cast<std::size_t>(best - all.back().begin())];
  }
  double total = std::log(encoding_shares[static_cast<std::size_t>(encoding)]);
  const double denominator =
      static_cast<double>(words.size()) + language_smoothing * static_cast<double>(word_counts.size());
  for (const LanguageScores& scores : all) {
    double best = -std::numeric_limits<double>::infinity();
    for (std::size_t k = 0; k < scores.size(); ++k) {
      best = std::max(best, scores[k] + std::log((word_counts[k] + language_smoothing) / denominator));
    }
    total += best;
  }
  return total + score_of_known_words(words, table);
}

bool is_word_byte(char byte) {
  return (byte & 0x80) != 0 || is_ascii_letter(byte);
}

/// The different words with bytes beyond ASCII, as far as they are needed.
std::vector<std::string> words_of(std::string_view bytes) {
  std::unordered_set<std::string_view> seen;
  std::vector<std::string> words;
  std::size_t place = 0;
  while (words.size() < most_words) {
    place += ascii_length(bytes.substr(place));
    if (place >= bytes.size()) break;
    std::size_t first = place, last = place;
    while (first > 0 && place - first < most_word_bytes && is_word_byte(bytes[first - 1])) --first;
    while (last < bytes.size() && last - place < most_word_bytes && is_word_byte(bytes[last])) ++last;
    const std::string_view word = bytes.substr(first, last - first);
    if (seen.insert(word).second) words.emplace_back(word);
    place = last;
  }
  return words;
}

/// How many different words at the start of a text have letters of ASCII only; short ones are codes.
std::size_t count_plain_words(std::string_view bytes) {
  constexpr std::size_t shortest = 3;
  std::unordered_set<std::string_view> seen;
  bytes = bytes.substr(0, bytes_of_plain_words);
  for (std::size_t first = 0; first < bytes.size();) {
    std::size_t last = first;
    while (last < bytes.size() && is_word_byte(bytes[last])) ++last;
    const std::string_view word = bytes.substr(first, last - first);
    if (word.size() >= shortest && is_ascii(word)) seen.insert(word);
    first = last + 1;
  }
  return seen.size();
}

/// How much less likely Windows-1250 is because few words have letters beyond ASCII.
double score_of_plain_words(std::string_view bytes, std::size_t words) {
  const double share = share_of(words, words + count_plain_words(bytes));
  return std::log(std::clamp(share / share_of_eastern_words, least_eastern_factor, 1.0));
}

/// How much likelier the best reading must be than the next one.
double margin_for(const std::vector<std::string>& words, ByteEncoding best) {
  const bool is_lone = words.size() == 1 && !is_known_accented_word(small_word(words.front(), letter_table(best)));
  return is_lone ? least_margin_of_lone_word : least_encoding_margin;
}

bool reads_alike(const std::vector<std::string>& words, ByteEncoding a, ByteEncoding b) {
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return decoded_word(word, a) == decoded_word(word, b); });
}

/// Two words that not all readings tell alike.
void add_examples(const std::vector<std::string>& words, std::vector<EncodingReading>& readings) {
  constexpr std::size_t example_count = 2;
  for (const std::string& word : words) {
    const std::string first = decoded_word(word, readings.front().encoding);
    const bool differs = readings.size() == 1 ||
                         std::any_of(readings.begin() + 1, readings.end(),
                                     [&](const auto& other) { return decoded_word(word, other.encoding) != first; });
    if (!differs) continue;
    for (EncodingReading& reading : readings) reading.examples.push_back(decoded_word(word, reading.encoding));
    if (readings.front().examples.size() == example_count) return;
  }
}

}  // namespace

std::string decoded_word(std::string_view word, ByteEncoding encoding) {
  std::string text;
  const LetterTable& table = letter_table(encoding);
  for (const char byte : word) append_letter(text, letter_of_byte(table, byte));
  return text;
}

LetterEvidence recognise_letters(std::string_view bytes) {
  const std::vector<std::string> words = words_of(bytes);
  LetterEvidence evidence;
  evidence.word_count = words.size();
  std::vector<EncodingReading>& readings = evidence.readings;
  for (std::size_t i = 0; i < byte_encoding_count; ++i) {
    const auto encoding = static_cast<ByteEncoding>(i);
    const bool is_like_another = std::any_of(readings.begin(), readings.end(), [&](const EncodingReading& other) {
      return reads_alike(words, encoding, other.encoding);
    });
    if (is_like_another) continue;
    readings.push_back({encoding, score_of(words, encoding), {}});
    if (encoding == ByteEncoding::windows_1250 && !words.empty()) {
      readings.back().score += score_of_plain_words(bytes, words.size());
    }
  }
  std::stable_sort(readings.begin(), readings.end(), [](const auto& a, const auto& b) { return a.score > b.score; });
  const double least = readings.front().score - margin_for(words, readings.front().encoding);
  std::erase_if(readings, [&](const EncodingReading& reading) { return reading.score < least; });
  add_examples(words, readings);
  return evidence;
}

}  // namespace pedigreewatch
