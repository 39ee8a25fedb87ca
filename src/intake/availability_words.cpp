// A text is cut into words. It counts only where nothing is left that could turn its meaning round: all of its words
// are known, or a preposition divides what is known from to whom, where to, of what.

#include "intake/availability_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string>
#include <vector>

#include "intake/date_shapes.h"
#include "intake/heading_words.h"
#include "intake/value_words.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

// clang-format off
constexpr auto gone_words = std::to_array<std::string_view>({
    "dead", "died", "deceased", "stillborn", "export", "slaughtered", "slaughter", "culled", "euthanised", "euthanized", "sold", "exported", "castrated", "gelded",
    "neutered", "spayed", "sterilised", "sterilized", "missing", "stolen", "inactive", "withdrawn", "retired", "departed",
    "dood", "doodgeboren", "overleden", "gestorven", "gecrepeerd", "geslacht", "geeuthanaseerd", "verkocht", "geexporteerd", "gecastreerd", "castraat",
    "gesteriliseerd", "vermist", "gestolen", "inactief", "afgevoerd", "weg",
    "tot", "totgeboren", "gestorben", "verstorben", "verendet", "geschlachtet", "eingeschlafert", "verkauft", "exportiert", "kastriert", "kastrat",
    "sterilisiert", "vermisst", "gestohlen", "inaktiv", "abgegangen", "abgegeben",
    "mort", "morte", "decede", "decedee", "abattu", "abattue", "euthanasie", "euthanasiee", "vendu", "vendue", "exporte", "exportee", "castre",
    "sterilise", "sterilisee", "vole", "volee", "inactif", "inactive", "reforme", "reformee", "sorti", "sortie",
    "muerto", "muerta", "fallecido", "fallecida", "sacrificado", "sacrificada", "vendido", "vendida", "exportado", "exportada", "castrado",
    "castrada", "esterilizado", "esterilizada", "robado", "robada", "inactivo", "inactiva", "baja",
    "morto", "morta", "deceduto", "deceduta", "macellato", "macellata", "venduto", "venduta", "esportato", "esportata", "castrato", "castrata",
    "sterilizzato", "sterilizzata", "rubato", "rubata", "inattivo", "inattiva", "uscito", "uscita",
    "slaughterhouse", "slachthuis", "schlachthof", "abattoir", "matadero", "macello", "mattatoio",
});

constexpr auto here_words = std::to_array<std::string_view>({
    "alive", "living", "live", "lives", "active", "available", "present", "breeding",
    "levend", "leven", "leeft", "actief", "beschikbaar", "aanwezig", "fokdier", "fokkerij", "fok",
    "lebend", "lebt", "lebendig", "aktiv", "verfugbar", "vorhanden", "zuchttier", "zucht", "zuchttauglich",
    "vivant", "vivante", "actif", "disponible", "reproducteur", "reproductrice", "reproduction",
    "vivo", "viva", "activo", "activa", "disponibles", "reproductor", "reproductora", "reproduccion",
    "attivo", "attiva", "disponibile", "riproduttore", "riproduttrice", "riproduzione",
});

constexpr auto yes_words = std::to_array<std::string_view>({"yes", "y", "ja", "j", "oui", "o", "si", "s", "true", "wahr", "waar", "vrai", "x", "1"});
constexpr auto no_words = std::to_array<std::string_view>({"no", "n", "nee", "neen", "nein", "non", "false", "falsch", "onwaar", "faux", "0"});
constexpr auto not_words = std::to_array<std::string_view>({"not", "non", "no", "niet", "nicht", "pas", "geen", "kein", "keine", "nie", "never", "nooit", "jamais", "nunca", "mai", "ne"});

// Denied, these may mean that something is not known.
constexpr auto available_words = std::to_array<std::string_view>({"available", "beschikbaar", "verfugbar", "disponible", "disponibles", "disponibile"});

// Words that stand beside others and say nothing by themselves.
constexpr auto small_words = std::to_array<std::string_view>({
    "is", "was", "has", "been", "and", "or", "on", "in", "since", "the", "already", "still", "longer", "any",
    "op", "sinds", "en", "of", "al", "nog", "meer", "ter", "voor", "for",
    "am", "im", "seit", "und", "oder", "ist", "wurde", "schon", "noch", "mehr", "fur", "zur",
    "le", "en", "depuis", "et", "ou", "est", "pour", "plus", "la",
    "el", "desde", "y", "por", "para", "es", "esta", "mas",
    "il", "dal", "e", "per", "piu",
});

// Behind these stands to whom an animal went, where to, or of what it died.
constexpr auto prepositions = std::to_array<std::string_view>({
    "to", "by", "of", "from", "due", "because", "at", "with", "as",
    "aan", "naar", "door", "wegens", "vanwege", "bij", "met", "als",
    "an", "nach", "durch", "wegen", "von", "bei", "mit",
    "a", "au", "aux", "vers", "par", "de", "du", "chez",
    "al", "del", "por", "con",
    "ad", "alla", "di", "da",
});

// Headings besides the words for values.
constexpr auto gone_headings = std::to_array<std::string_view>({
    "death", "dod", "deathdate", "sale", "export", "exit", "departure", "disposal", "castration", "culling",
    "sterfte", "sterf", "sterfdatum", "overlijden", "overlijdens", "overlijdensdatum", "doodsdatum", "verkoop", "verkoopdatum", "uitvoer", "afvoer", "afvoerdatum",
    "slacht", "slachtdatum", "castratie", "exportdatum", "uitval",
    "tod", "todes", "todesdatum", "sterbedatum", "verkauf", "verkaufsdatum", "abgang", "abgangsdatum", "schlachtung", "schlachtdatum", "kastration",
    "deces", "vente", "exportation", "abattage", "sorties",
    "muerte", "venta", "exportacion", "salida", "sacrificio", "castracion", "fallecimiento",
    "decesso", "vendita", "esportazione", "macellazione", "castrazione",
});
constexpr auto here_headings = std::to_array<std::string_view>({"breedinganimal", "fokwaardig", "fokgeschikt", "zuchttauglichkeit"});
constexpr auto status_headings = std::to_array<std::string_view>({
    "status", "state", "toestand", "stand", "situatie", "situation", "zustand", "statut", "etat", "estado", "situacion", "stato", "situazione",
});
// Why something is, and, written as one word, why an animal has gone.
constexpr auto reason_words = std::to_array<std::string_view>({
    "reason", "reasons", "cause", "reden", "redenen", "oorzaak", "grund", "grunde", "ursache", "raison", "motif", "causa", "motivo", "razon", "razones",
});
constexpr auto reason_headings = std::to_array<std::string_view>({
    "afvoerreden", "afvoeroorzaak", "doodsoorzaak", "sterfteoorzaak", "uitvalreden", "uitvalsreden", "verkoopreden", "slachtreden",
    "abgangsgrund", "abgangsursache", "todesursache", "sterbegrund", "schlachtgrund", "verkaufsgrund",
});
// Where an animal is: gone where a word says so, else there.
constexpr auto place_headings = std::to_array<std::string_view>({
    "location", "locatie", "whereabouts", "verblijfplaats", "verblijf", "standort", "aufenthalt", "aufenthaltsort", "emplacement", "ubicacion", "localizacion",
    "ubicazione", "localita", "posizione",
});
// Behind a heading these say how it is answered: "Died (y/n)".
constexpr auto answer_words = std::to_array<std::string_view>({
    "y", "n", "j", "o", "s", "yes", "no", "ja", "nee", "nein", "oui", "non", "si", "yn", "jn", "yesno", "janee", "janein", "ouinon", "sino", "x",
});
constexpr auto remark_headings = std::to_array<std::string_view>({
    "note", "notes", "remark", "remarks", "comment", "comments", "memo", "opmerking", "opmerkingen", "bijzonderheden", "commentaar", "notitie", "notities",
    "bemerkung", "bemerkungen", "anmerkung", "anmerkungen", "notiz", "notizen", "kommentar", "remarque", "remarques", "commentaire", "commentaires",
    "observation", "observations", "observaciones", "comentarios", "nota", "notas", "osservazioni", "commenti",
});
// clang-format on

/// The crosses by which the dead are marked, as a word.
std::string with_crosses_named(std::string_view text) {
  constexpr auto crosses =
      std::to_array<std::string_view>({"\xE2\x80\xA0", "\xE2\x9C\x9D", "\xE2\x9C\x9E", "\xE2\x9C\x9F"});
  std::string named(text);
  for (const std::string_view cross : crosses) {
    for (std::size_t at = named.find(cross); at != std::string::npos; at = named.find(cross)) {
      named.replace(at, cross.size(), " dead ");
    }
  }
  return named;
}

/// The words of a text, folded.
std::vector<std::string> words_of_text(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  const auto end_word = [&] {
    std::string plain = folded(word);
    if (!plain.empty()) words.push_back(std::move(plain));
    word.clear();
  };
  for (const char byte : text) {
    if (is_letter_or_digit(byte)) {
      word.push_back(byte);
    } else {
      end_word();
    }
  }
  end_word();
  return words;
}

bool is_number(std::string_view word) {
  return word.find_first_not_of("0123456789") == std::string_view::npos;
}

/// A number, or a name of a month with or without its numbers: a piece of a date.
bool is_piece_of_date(std::string_view word) {
  return is_number(word) || cut_date("1-" + std::string(word) + "-2001").shape == DateShape::named;
}

/// Whether words say that the animal has gone or that it is there, and nothing else.
AvailabilityText read_words(std::span<const std::string> words) {
  bool has_gone = false, has_here = false, has_other = false;
  for (const std::string& word : words) {
    const bool is_gone = is_among(word, gone_words), is_here = is_among(word, here_words);
    has_gone = has_gone || is_gone;
    has_here = has_here || is_here;
    if (is_gone || is_here || is_among(word, small_words) || is_piece_of_date(word)) continue;
    has_other = true;
  }
  if (!has_gone && !has_here) return AvailabilityText::other;
  if (has_other || (has_gone && has_here)) return AvailabilityText::mixed;
  return has_gone ? AvailabilityText::gone : AvailabilityText::here;
}

/// What stands before a preposition, where nothing behind it is about being gone or there.
AvailabilityText read_first_words(std::span<const std::string> words) {
  const auto split =
      std::find_if(words.begin(), words.end(), [](const std::string& word) { return is_among(word, prepositions); });
  if (split == words.end()) return AvailabilityText::mixed;
  const auto first = static_cast<std::size_t>(split - words.begin());
  const bool is_gone = read_words(words.first(first)) == AvailabilityText::gone;
  const bool is_plain = read_words(words.subspan(first + 1)) == AvailabilityText::other;
  return is_gone && is_plain ? AvailabilityText::gone : AvailabilityText::mixed;
}

/// "Not available": in a column of dates it may be the date that nobody has.
bool is_not_available(std::span<const std::string> words) {
  constexpr std::size_t two = 2;
  return words.size() == two && is_among(words.front(), not_words) && is_among(words.back(), available_words);
}

AvailabilityText opposite_of(AvailabilityText text) {
  if (text == AvailabilityText::gone) return AvailabilityText::here;
  return text == AvailabilityText::here ? AvailabilityText::gone : text;
}

/// Whether a date lies behind this year: 31-12-9999 stands for a day that has not come.
bool is_to_come(const DatePiecesFound& date, std::int32_t this_year) {
  constexpr std::int32_t last_year_of_dates = 2100;
  std::int32_t year = 0;
  const auto [end, error] = std::from_chars(date.year.data(), date.year.data() + date.year.size(), year);
  const bool is_year = date.shape != DateShape::serial && error == std::errc() && date.year.size() == 4;
  return is_year && year > (this_year > 0 ? this_year : last_year_of_dates);
}

AvailabilityText read_date(std::string_view text, std::int32_t this_year) {
  const DatePiecesFound date = cut_date(text);
  if (date.shape == DateShape::unreadable || date.shape == DateShape::empty) return AvailabilityText::other;
  return is_to_come(date, this_year) ? AvailabilityText::nothing : AvailabilityText::date;
}

bool holds_nothing(std::string_view text) {
  const bool has_text =
      std::any_of(text.begin(), text.end(), [](char byte) { return is_letter_or_digit(byte) && byte != '0'; });
  return !has_text || means_unknown(text);
}

AvailabilityHeading heading_of_word(std::string_view word) {
  if (is_among(word, gone_headings) || is_among(word, gone_words)) return AvailabilityHeading::gone;
  if (is_among(word, here_headings) || is_among(word, here_words)) return AvailabilityHeading::here;
  if (is_among(word, status_headings)) return AvailabilityHeading::status;
  if (is_among(word, reason_headings)) return AvailabilityHeading::reason;
  const bool is_any = is_among(word, remark_headings) || is_among(word, place_headings);
  return is_any ? AvailabilityHeading::remarks : AvailabilityHeading::none;
}

/// A heading without the answers behind it: "Died" of "Died (y/n)".
std::string_view without_answers(std::string_view heading) {
  const std::size_t open = heading.find_first_of("([");
  if (open == std::string_view::npos || open == 0) return heading;
  const std::vector<std::string> answers = words_of_text(heading.substr(open));
  const bool are_answers = !answers.empty() && std::all_of(answers.begin(), answers.end(), [](const std::string& word) {
    return is_among(word, answer_words);
  });
  return are_answers ? heading.substr(0, open) : heading;
}

}  // namespace

AvailabilityHeading read_availability_heading(std::string_view heading) {
  constexpr std::size_t longest = 60;
  heading = without_answers(heading);
  if (heading.size() > longest || read_heading(heading).owner != HeadingOwner::animal) return AvailabilityHeading::none;
  AvailabilityHeading kind = AvailabilityHeading::none;
  bool is_reason = false;
  for (const std::string& word : words_of_heading(heading)) {
    if (is_among(word, reason_words)) {
      is_reason = true;
      continue;
    }
    const AvailabilityHeading said = heading_of_word(word);
    if (said == AvailabilityHeading::none && !is_plain_heading_word(word) && !is_among(word, small_words)) {
      return AvailabilityHeading::none;
    }
    // "Dead or sold" is one thing; "Breeding status" is told by what stands in it.
    if (said == AvailabilityHeading::status) return said;
    if (kind == AvailabilityHeading::none) kind = said;
  }
  if (!is_reason) return kind;
  return kind == AvailabilityHeading::gone ? AvailabilityHeading::reason : AvailabilityHeading::none;
}

AvailabilityText read_availability(std::string_view text, std::int32_t this_year) {
  constexpr std::size_t longest = 200;
  const std::string word = text.size() <= longest ? folded(text) : std::string();
  if (is_among(word, no_words)) return AvailabilityText::no;
  const std::string named = with_crosses_named(text.substr(0, longest));
  const std::vector<std::string> all = words_of_text(named);
  if (is_not_available(all)) return AvailabilityText::no;
  if (holds_nothing(named)) return AvailabilityText::nothing;
  if (is_among(word, yes_words)) return AvailabilityText::yes;
  const AvailabilityText date = read_date(named, this_year);
  if (date != AvailabilityText::other && named.size() <= text.size()) return date;
  std::span<const std::string> words = all;
  const bool is_denied = !words.empty() && is_among(words.front(), not_words);
  if (is_denied) words = words.subspan(1);
  const AvailabilityText said = read_words(words);
  const bool is_doubted = named.find('?') != std::string::npos;
  if (is_doubted && said != AvailabilityText::other) return AvailabilityText::mixed;
  if (is_denied) return opposite_of(said);
  return said == AvailabilityText::mixed && text.size() <= longest ? read_first_words(words) : said;
}

}  // namespace pedigreewatch
