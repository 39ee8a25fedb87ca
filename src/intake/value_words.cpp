// Tables of words, compared in their folded form.

#include "intake/value_words.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

// Longer texts are looked at no further: none of the words below has so many bytes.
constexpr std::size_t longest_word = 24;

constexpr auto unknown_words = std::to_array<std::string_view>(
    {"na",        "nan",       "null",     "nil",         "none",     "missing",  "unknown",    "unk",
     "unkn",      "nvt",       "notknown", "onb",         "onbek",    "onbekend", "nietbekend", "unb",
     "unbek",     "unbekannt", "inc",      "inconnu",     "inconnue", "geen",     "notavail",   "notavailable",
     "undefined", "keine",     "leeg",     "unspecified", "onbepaald"});

// What offices write for a parent besides, in six languages: words that can mean something else in other columns.
constexpr auto unknown_parent_words = std::to_array<std::string_view>({
    // clang-format off
    "wild", "wildvang", "wildfang", "wildcaught", "wildcatch", "wildborn", "founder", "foundation", "stichter", "grunder",
    "fondateur", "fundador", "fondatore", "import", "imported", "fremd", "fremdtier", "vreemd",
    "unregistered", "notregistered", "nietgeregistreerd", "nichtregistriert", "nonenregistre", "noregistrado",
    "notrecorded", "nichterfasst", "sansdonnees", "sindatos", "senzadati", "keineangabe", "geenopgave",
    "unknownsire", "unknowndam", "unknownfather", "unknownmother", "unknownparent",
    "sireunknown", "damunknown", "fatherunknown", "motherunknown",
    "onbekendevader", "onbekendemoeder", "vaderonbekend", "moederonbekend",
    "vaterunbekannt", "mutterunbekannt", "unbekanntervater", "unbekanntemutter",
    "pereinconnu", "mereinconnue", "padredesconocido", "madredesconocida", "padreignoto", "madreignota",
    "desconocido", "desconocida", "desc", "sconosciuto", "sconosciuta", "ignoto", "ignota",
    "noconsta", "nonrenseigne", "nonrenseignee", "sinregistro", "nonregistrato", "nonregistrata", "nonindicato",
    "nonconnu", "nonconnue", "nonnoto", "nonnota", "nodisponible", "noconocido",
    "nn", "nb", "ka", "nc", "nd", "nr", "sd", "u", "x",
    // clang-format on
});

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
    {"dog", male_word, "dog"},
    {"chien", male_word, "dog"},
    {"perro", male_word, "dog"},
    {"cane", male_word, "dog"},
    {"teef", female_word, "dog"},
    {"bitch", female_word, "dog"},
    {"hundin", female_word, "dog"},
    {"chienne", female_word, "dog"},
    {"perra", female_word, "dog"},
    {"cagna", female_word, "dog"},
    {"kater", male_word, "cat"},
    {"tomcat", male_word, "cat"},
    {"gato", male_word, "cat"},
    {"gatto", male_word, "cat"},
    {"poes", female_word, "cat"},
    {"katze", female_word, "cat"},
    {"chatte", female_word, "cat"},
    {"gata", female_word, "cat"},
    {"gatta", female_word, "cat"},
    {"stier", male_word, "cattle"},
    {"bull", male_word, "cattle"},
    {"bulle", male_word, "cattle"},
    {"taureau", male_word, "cattle"},
    {"toro", male_word, "cattle"},
    {"os", male_word, "cattle"},
    {"ochse", male_word, "cattle"},
    {"steer", male_word, "cattle"},
    {"bullock", male_word, "cattle"},
    {"buey", male_word, "cattle"},
    {"bue", male_word, "cattle"},
    {"boeuf", male_word, "cattle"},
    {"novillo", male_word, "cattle"},
    {"koe", female_word, "cattle"},
    {"cow", female_word, "cattle"},
    {"kuh", female_word, "cattle"},
    {"vache", female_word, "cattle"},
    {"vaca", female_word, "cattle"},
    {"vacca", female_word, "cattle"},
    {"vaars", female_word, "cattle"},
    {"heifer", female_word, "cattle"},
    {"farse", female_word, "cattle"},
    {"genisse", female_word, "cattle"},
    {"vaquilla", female_word, "cattle"},
    {"ram", male_word, "sheep"},
    {"belier", male_word, "sheep"},
    {"widder", male_word, "sheep"},
    {"carnero", male_word, "sheep"},
    {"montone", male_word, "sheep"},
    {"ariete", male_word, "sheep"},
    {"hamel", male_word, "sheep"},
    {"hammel", male_word, "sheep"},
    {"wether", male_word, "sheep"},
    {"ooi", female_word, "sheep"},
    {"ewe", female_word, "sheep"},
    {"brebis", female_word, "sheep"},
    {"mutterschaf", female_word, "sheep"},
    {"aue", female_word, "sheep"},
    {"oveja", female_word, "sheep"},
    {"pecora", female_word, "sheep"},
    {"hengst", male_word, "horse"},
    {"stallion", male_word, "horse"},
    {"ruin", male_word, "horse"},
    {"gelding", male_word, "horse"},
    {"colt", male_word, "horse"},
    {"wallach", male_word, "horse"},
    {"etalon", male_word, "horse"},
    {"hongre", male_word, "horse"},
    {"castrone", male_word, "horse"},
    {"stallone", male_word, "horse"},
    {"semental", male_word, "horse"},
    {"caballo", male_word, "horse"},
    {"cavallo", male_word, "horse"},
    {"hengstveulen", male_word, "horse"},
    {"hengstfohlen", male_word, "horse"},
    {"merrie", female_word, "horse"},
    {"mare", female_word, "horse"},
    {"stute", female_word, "horse"},
    {"filly", female_word, "horse"},
    {"jument", female_word, "horse"},
    {"pouliche", female_word, "horse"},
    {"yegua", female_word, "horse"},
    {"giumenta", female_word, "horse"},
    {"cavalla", female_word, "horse"},
    {"merrieveulen", female_word, "horse"},
    {"stutfohlen", female_word, "horse"},
    {"haan", male_word, "poultry"},
    {"cock", male_word, "poultry"},
    {"cockerel", male_word, "poultry"},
    {"rooster", male_word, "poultry"},
    {"hahn", male_word, "poultry"},
    {"coq", male_word, "poultry"},
    {"gallo", male_word, "poultry"},
    {"capon", male_word, "poultry"},
    {"hen", female_word, "poultry"},
    {"henne", female_word, "poultry"},
    {"poule", female_word, "poultry"},
    {"gallina", female_word, "poultry"},
    {"pullet", female_word, "poultry"},
    {"beer", male_word, "pig"},
    {"boar", male_word, "pig"},
    {"eber", male_word, "pig"},
    {"verrat", male_word, "pig"},
    {"verraco", male_word, "pig"},
    {"verro", male_word, "pig"},
    {"barrow", male_word, "pig"},
    {"borg", male_word, "pig"},
    {"zeug", female_word, "pig"},
    {"sow", female_word, "pig"},
    {"sau", female_word, "pig"},
    {"truie", female_word, "pig"},
    {"cerda", female_word, "pig"},
    {"scrofa", female_word, "pig"},
    {"gilt", female_word, "pig"},
    {"tom", male_word, ""},
    {"macho", male_word, ""},
    {"maschio", male_word, ""},
    {"masculino", male_word, ""},
    {"castraat", male_word, ""},
    {"kastrat", male_word, ""},
    {"castrated", male_word, ""},
    {"castrado", male_word, ""},
    {"castrato", male_word, ""},
    {"castre", male_word, ""},
    {"bok", male_word, ""},
    {"bock", male_word, ""},
    {"buck", male_word, ""},
    {"bouc", male_word, ""},
    {"rammelaar", male_word, ""},
    {"rammler", male_word, ""},
    {"queen", female_word, ""},
    {"hembra", female_word, ""},
    {"femmina", female_word, ""},
    {"femenino", female_word, ""},
    {"femminile", female_word, ""},
    {"geit", female_word, ""},
    {"ziege", female_word, ""},
    {"doe", female_word, ""},
    {"chevre", female_word, ""},
    {"cabra", female_word, ""},
    {"capra", female_word, ""},
    {"voedster", female_word, ""},
    {"zibbe", female_word, ""},
    {"hasin", female_word, ""},
    {"ramlamb", male_word, "sheep"},
    {"ramlam", male_word, "sheep"},
    {"bocklamm", male_word, ""},
    {"agneau", male_word, "sheep"},
    {"cordero", male_word, "sheep"},
    {"agnello", male_word, "sheep"},
    {"ewelamb", female_word, "sheep"},
    {"ooilam", female_word, "sheep"},
    {"zibbenlamm", female_word, "sheep"},
    {"agnelle", female_word, "sheep"},
    {"cordera", female_word, "sheep"},
    {"agnella", female_word, "sheep"},
    {"mutter", female_word, ""},
    {"bullcalf", male_word, "cattle"},
    {"stierkalf", male_word, "cattle"},
    {"bullenkalb", male_word, "cattle"},
    {"novilla", female_word, "cattle"},
    {"manza", female_word, "cattle"},
    {"giovenca", female_word, "cattle"},
    {"pink", female_word, "cattle"},
    {"heifercalf", female_word, "cattle"},
    {"vaarskalf", female_word, "cattle"},
    {"kuhkalb", female_word, "cattle"},
    {"poulain", male_word, "horse"},
    {"potro", male_word, "horse"},
    {"puledro", male_word, "horse"},
    {"capado", male_word, ""},
    {"potra", female_word, "horse"},
    {"potranca", female_word, "horse"},
    {"puledra", female_word, "horse"},
});

constexpr auto castrated_words = std::to_array<std::string_view>(
    {"os",       "ochse",   "steer",   "bullock",   "buey",     "bue",      "boeuf", "hamel",  "hammel",
     "wether",   "ruin",    "gelding", "wallach",   "hongre",   "castrone", "capon", "barrow", "borg",
     "castraat", "kastrat", "capado",  "castrated", "castrado", "castrato", "castre"});

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

/// What a spreadsheet shows where it could not work something out: #N/A, #NV, #REF!, #DIV/0!, ...
bool is_spreadsheet_error(std::string_view text) {
  constexpr std::string_view signs = "ABCDEFGHIJKLMNOPQRSTUVWXYZ/0!?";
  return text.size() > 2 && text.front() == '#' && text.find_first_not_of(signs, 1) == std::string_view::npos;
}

}  // namespace

bool means_unknown(std::string_view text) {
  if (is_placeholder(text)) return true;
  if (text.size() > longest_word) return false;
  // Most texts are identifications: one with a digit is none of the words.
  if (has_digit(text)) return false;
  return is_among(folded(text), unknown_words);
}

bool means_unknown_parent(std::string_view text) {
  if (means_unknown(text) || text == "-1" || is_spreadsheet_error(text)) return true;
  constexpr std::size_t fewest_nines = 5;
  if (text.size() >= fewest_nines && text.find_first_not_of('9') == std::string_view::npos) return true;
  if (text.size() > longest_word) return false;
  if (has_digit(text)) return false;
  return is_among(folded(text), unknown_parent_words);
}

bool means_stillborn(std::string_view text) {
  constexpr auto dead_words = std::to_array<std::string_view>(
      {"dead",     "died",      "stillborn", "stillbirth", "deadborn",   "dood",    "dode",      "doodgeboren",
       "doodgeb",  "levenloos", "gestorven", "tot",        "totgeboren", "totgeb",  "totgeburt", "gestorben",
       "verendet", "mort",      "morte",     "morts",      "mortne",     "mortnee", "mortnes",   "muerto",
       "muerta",   "muertos",   "mortinato", "natimuerto", "morto",      "morta",   "morti",     "natomorto"});
  constexpr auto words_beside = std::to_array<std::string_view>(
      {"born", "at",   "birth", "still", "geboren",   "geb",  "bij",   "geboorte", "bei",    "der",   "geburt",  "ne",
       "nee",  "nes",  "a",     "la",    "naissance", "al",   "nacer", "nacido",   "nacida", "alla",  "nascita", "nato",
       "nata", "lamb", "lam",   "pup",   "calf",      "kalf", "kalb",  "lamm",     "foal",   "veulen"});
  constexpr auto crosses =
      std::to_array<std::string_view>({"+", "++", "\xE2\x80\xA0", "\xE2\x9C\x9D", "\xE2\x9C\x9E", "\xE2\x9C\x9F"});
  if (is_among(text, crosses)) return true;
  if (text.size() > longest_word || text.find_first_of("0123456789") != std::string_view::npos) return false;
  if (is_among(folded(text), dead_words)) return true;
  bool says_dead = false;
  for (std::size_t first = 0; first < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" -/.,()", first), text.size());
    const std::string word = folded(text.substr(first, end - first));
    const bool is_dead = is_among(word, dead_words);
    if (!word.empty() && !is_dead && !is_among(word, words_beside)) return false;
    says_dead = says_dead || is_dead;
    first = end + 1;
  }
  return says_dead;
}

bool has_remark_word(std::string_view text) {
  constexpr auto words = std::to_array<std::string_view>(
      {"total",     "totals",  "totaal",   "totale",  "subtotal",  "subtotaal", "gesamt",   "summe",   "sum",
       "som",       "count",   "aantal",   "anzahl",  "nombre",    "numero",    "records",  "rows",    "rijen",
       "regels",    "zeilen",  "animals",  "dieren",  "tiere",     "animaux",   "animales", "animali", "printed",
       "afgedrukt", "gedrukt", "gedruckt", "imprime", "exported",  "export",    "pagina",   "page",    "seite",
       "eof",       "einde",   "ende",     "fin",     "generated", "report",    "rapport",  "bericht", "lijst"});
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(" :=/.,()"), rest.size());
    if (is_among(folded(rest.substr(0, end)), words)) return true;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

bool is_sex_letter(std::string_view text) {
  return text.size() == 1;
}

bool repeats_line_above(std::string_view text) {
  constexpr auto words = std::to_array<std::string_view>(
      {"so",          "sieheoben", "wieoben",  "dito",      "ditto",     "idem",     "id",       "do",
       "ibid",        "ibidem",    "dgl",      "desgl",     "zieboven",  "alsboven", "seeabove", "asabove",
       "sameasabove", "same",      "cidessus", "vedisopra", "comosopra", "verarriba"});
  constexpr auto signs =
      std::to_array<std::string_view>({"\"", "''", ",,", "\"\"", "^", "=", "||", "\xE2\x80\x9E", "\xE2\x80\x9D",
                                       "\xE2\x80\x9C", "\xE2\x80\xB3", "\xE2\x86\x91", "\xE3\x80\x83"});
  const std::size_t first = text.find_first_not_of(" -"), last = text.find_last_not_of(" -");
  if (first == std::string_view::npos) return false;
  if (is_among(text.substr(first, last + 1 - first), signs)) return true;
  const bool may_be_word = text.size() <= longest_word && text.find_first_of("0123456789") == std::string_view::npos;
  return may_be_word && is_among(folded(text), words);
}

bool means_no_import(std::string_view text) {
  return means_unknown(text) || (text.size() <= longest_word && is_among(folded(text), no_words));
}

SexMeaning sex_named(std::string_view text) {
  const SexWord* const found = find_sex_word(text);
  return found == nullptr ? SexMeaning::unknown : found->meaning;
}

bool names_castrated(std::string_view text) {
  return text.size() <= longest_word && is_among(folded(text), castrated_words);
}

std::string_view species_of_sex_word(std::string_view text) {
  const SexWord* const found = find_sex_word(text);
  return found == nullptr ? std::string_view() : found->species;
}

}  // namespace pedigreewatch
