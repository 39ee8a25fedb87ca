// Months are told by how their folded name begins: three letters are enough in each of the languages, four where two
// months begin alike.

#include "intake/date_words.h"

#include <array>
#include <cstddef>
#include <string>

#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

struct MonthName {
  std::string_view start;  ///< folded
  std::int32_t month;
};

constexpr auto month_names = std::to_array<MonthName>({
    {"jan", 1},  {"ene", 1},  {"gen", 1},  {"feb", 2},  {"fev", 2},  {"mar", 3},  {"maa", 3},  {"mrt", 3},  {"mrz", 3},
    {"mae", 3},  {"apr", 4},  {"avr", 4},  {"abr", 4},  {"may", 5},  {"mei", 5},  {"mai", 5},  {"mag", 5},  {"jun", 6},
    {"juin", 6}, {"giu", 6},  {"jul", 7},  {"juil", 7}, {"lug", 7},  {"aug", 8},  {"aou", 8},  {"ago", 8},  {"sep", 9},
    {"set", 9},  {"oct", 10}, {"okt", 10}, {"ott", 10}, {"nov", 11}, {"dec", 12}, {"dez", 12}, {"dic", 12},
});

constexpr auto fillers = std::to_array<std::string_view>(
    {"", "of", "the", "de", "del", "di", "den", "der", "le", "el", "il", "st", "nd", "rd", "th", "er", "ste"});

constexpr auto about = std::to_array<std::string_view>({"c",         "ca",        "cca",       "circa",
                                                        "about",     "abt",       "approx",    "approximately",
                                                        "around",    "est",       "estimated", "rond",
                                                        "omstreeks", "ongeveer",  "ong",       "geschat",
                                                        "um",        "etwa",      "ungefahr",  "geschatzt",
                                                        "vers",      "environ",   "env",       "estime",
                                                        "hacia",     "alrededor", "aprox",     "aproximadamente",
                                                        "intorno",   "verso"});

/// English, Dutch, German, French, Spanish, Italian.
constexpr auto weekdays = std::to_array<std::string_view>({
    "mon",       "tue",       "tues",      "wed",        "thu",      "thur",     "thurs",     "fri",     "sat",
    "sun",       "monday",    "tuesday",   "wednesday",  "thursday", "friday",   "saturday",  "sunday",  "ma",
    "di",        "wo",        "do",        "vr",         "za",       "zo",       "maandag",   "dinsdag", "woensdag",
    "donderdag", "vrijdag",   "zaterdag",  "zondag",     "mo",       "mi",       "fr",        "sa",      "so",
    "montag",    "dienstag",  "mittwoch",  "donnerstag", "freitag",  "samstag",  "sonnabend", "sonntag", "lun",
    "mar",       "mer",       "jeu",       "ven",        "sam",      "dim",      "lundi",     "mardi",   "mercredi",
    "jeudi",     "vendredi",  "samedi",    "dimanche",   "mie",      "jue",      "vie",       "sab",     "dom",
    "lunes",     "martes",    "miercoles", "jueves",     "viernes",  "sabado",   "domingo",   "gio",     "lunedi",
    "martedi",   "mercoledi", "giovedi",   "venerdi",    "sabato",   "domenica",
});

constexpr std::string_view digits = "0123456789";
constexpr std::string_view plus_or_minus = "\xC2\xB1";

/// Takes signs off one end of the text as long as one of them leaves something open.
bool take_open_signs(std::string_view& text, bool at_front) {
  constexpr std::string_view open = "?~xX()<>", between = " -/._";
  std::size_t count = 0;
  bool is_open = false;
  for (; count < text.size(); ++count) {
    const char byte = at_front ? text[count] : text[text.size() - 1 - count];
    const bool leaves_open = open.find(byte) != std::string_view::npos;
    if (!leaves_open && between.find(byte) == std::string_view::npos) break;
    is_open = is_open || leaves_open;
  }
  if (!is_open) return false;
  at_front ? text.remove_prefix(count) : text.remove_suffix(count);
  return true;
}

/// Takes off a word for "about" at one end.
bool take_word(std::string_view& text, bool at_front) {
  const std::size_t first_digit = text.find_first_of(digits), last_digit = text.find_last_of(digits);
  if (first_digit == std::string_view::npos) return false;
  const std::string_view word = at_front ? text.substr(0, first_digit) : text.substr(last_digit + 1);
  if (word.empty() || !is_among(folded(word), about)) return false;
  text = at_front ? text.substr(first_digit) : text.substr(0, last_digit + 1);
  return true;
}

}  // namespace

std::int32_t month_named(std::string_view word) {
  const std::string plain = folded(word);
  for (const MonthName& entry : month_names) {
    if (plain.starts_with(entry.start)) return entry.month;
  }
  return 0;
}

bool is_filler_of_date(std::string_view word) {
  return is_among(folded(word), fillers);
}

std::string_view behind_weekday(std::string_view text) {
  constexpr std::string_view signs = " .,";
  const std::size_t end = text.find_first_of(signs);
  if (end == std::string_view::npos || digits.find(text.front()) != std::string_view::npos) return text;
  const std::size_t rest = text.find_first_not_of(signs, end);
  return rest != std::string_view::npos && is_among(folded(text.substr(0, end)), weekdays) ? text.substr(rest) : text;
}

bool take_rough_signs(std::string_view& text) {
  bool is_rough = false;
  if (text.starts_with(plus_or_minus)) {
    text.remove_prefix(plus_or_minus.size());
    while (text.starts_with(' ')) text.remove_prefix(1);
    is_rough = true;
  }
  for (const bool at_front : {true, false}) {
    is_rough = take_open_signs(text, at_front) || is_rough;
    is_rough = take_word(text, at_front) || is_rough;
    is_rough = take_open_signs(text, at_front) || is_rough;
  }
  return is_rough;
}

}  // namespace pedigreewatch
