// Header words are looked up in folded form: in a table of what offices and packages write, and in the table of the
// data file. A word that says "identification of the father" counts more than a plain "father", which may be a name.

#include "intake/column_recognition.h"

#include <algorithm>

#include "intake/heading_words.h"
#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

struct OfficeWord {
  std::string_view word;  ///< folded
  FieldCode code;
  WordFit fit = WordFit::office;
};

constexpr WordFit exact = WordFit::exact, office = WordFit::office, weak = WordFit::weak;

constexpr auto office_words = std::to_array<OfficeWord>({
    // clang-format off
    {"animalid", id_column, exact}, {"idanimal", id_column, exact}, {"dierid", id_column, exact},
    {"iddier", id_column, exact}, {"tierid", id_column, exact}, {"indiv", id_column}, {"individual", id_column},
    {"individualid", id_column}, {"ind", id_column}, {"idnr", id_column}, {"idno", id_column},
    {"idnumber", id_column}, {"idnummer", id_column}, {"regno", id_column}, {"regnr", id_column},
    {"regnumber", id_column}, {"registration", id_column}, {"registrationno", id_column},
    {"registrationnumber", id_column}, {"registratienummer", id_column}, {"stamboeknummer", id_column},
    {"stamboeknr", id_column}, {"stamboekno", id_column}, {"diernummer", id_column}, {"diernr", id_column},
    {"levensnummer", id_column}, {"levensnr", id_column}, {"herdbookno", id_column}, {"herdbooknumber", id_column},
    {"studbookno", id_column}, {"studbooknumber", id_column}, {"studbookid", id_column}, {"animalno", id_column},
    {"animalnumber", id_column}, {"tier", id_column}, {"tiernummer", id_column}, {"tiernr", id_column},
    {"lebensnummer", id_column}, {"zuchtbuchnummer", id_column}, {"zuchtbuchnr", id_column}, {"ohrmarke", id_column},
    {"identifiant", id_column}, {"numero", id_column}, {"numeronational", id_column},
    {"nonational", id_column}, {"numidentification", id_column},
    {"sireid", sire_column, exact}, {"fatherid", sire_column, exact}, {"idfather", sire_column, exact},
    {"vaderid", sire_column, exact}, {"idvader", sire_column, exact}, {"idsire", sire_column, exact},
    {"iddad", sire_column, exact}, {"dadid", sire_column, exact}, {"idpere", sire_column, exact},
    {"pereid", sire_column, exact}, {"vaterid", sire_column, exact}, {"idvater", sire_column, exact},
    {"sireno", sire_column, exact}, {"sirenumber", sire_column, exact}, {"sireregno", sire_column, exact},
    {"fatherno", sire_column, exact}, {"vadernr", sire_column, exact}, {"vadernummer", sire_column, exact},
    {"vaternummer", sire_column, exact}, {"vaternr", sire_column, exact}, {"numeropere", sire_column, exact},
    {"stamboeknummervader", sire_column, exact}, {"regnosire", sire_column, exact}, {"regnrvader", sire_column, exact},
    {"levensnummervader", sire_column, exact}, {"vater", sire_column}, {"pere", sire_column}, {"sir", sire_column},
    {"damid", dam_column, exact}, {"motherid", dam_column, exact}, {"idmother", dam_column, exact},
    {"moederid", dam_column, exact}, {"idmoeder", dam_column, exact}, {"iddam", dam_column, exact},
    {"idmum", dam_column, exact}, {"mumid", dam_column, exact}, {"idmere", dam_column, exact},
    {"mereid", dam_column, exact}, {"mutterid", dam_column, exact}, {"idmutter", dam_column, exact},
    {"damno", dam_column, exact}, {"damnumber", dam_column, exact}, {"damregno", dam_column, exact},
    {"motherno", dam_column, exact}, {"moedernr", dam_column, exact}, {"moedernummer", dam_column, exact},
    {"mutternummer", dam_column, exact}, {"mutternr", dam_column, exact}, {"numeromere", dam_column, exact},
    {"stamboeknummermoeder", dam_column, exact}, {"regnodam", dam_column, exact}, {"regnrmoeder", dam_column, exact},
    {"levensnummermoeder", dam_column, exact}, {"mutter", dam_column}, {"mere", dam_column}, {"mom", dam_column},
    {"animalname", name_column}, {"diernaam", name_column}, {"tiername", name_column}, {"nom", name_column},
    {"sirename", sire_name_column}, {"fathername", sire_name_column}, {"vadernaam", sire_name_column},
    {"vatername", sire_name_column}, {"nompere", sire_name_column}, {"namevater", sire_name_column},
    {"namesire", sire_name_column}, {"damname", dam_name_column}, {"mothername", dam_name_column},
    {"moedernaam", dam_name_column}, {"muttername", dam_name_column}, {"nommere", dam_name_column},
    {"namemutter", dam_name_column}, {"namedam", dam_name_column},
    {"gender", sex_column}, {"mf", sex_column}, {"mv", sex_column}, {"mw", sex_column}, {"numsire", id_column}, {"geschlecht", sex_column}, {"geschl", sex_column},
    {"born", birthdate_column}, {"birth", birthdate_column}, {"dateofbirth", birthdate_column},
    {"birthday", birthdate_column}, {"datebirth", birthdate_column}, {"bdate", birthdate_column},
    {"borndate", birthdate_column}, {"dateborn", birthdate_column}, {"geboren", birthdate_column},
    {"geborenop", birthdate_column}, {"geboorte", birthdate_column}, {"datumgeboorte", birthdate_column},
    {"geburtsdatum", birthdate_column}, {"geburt", birthdate_column}, {"geb", birthdate_column},
    {"gebdat", birthdate_column}, {"datedenaissance", birthdate_column}, {"datenaissance", birthdate_column},
    {"naissance", birthdate_column}, {"neele", birthdate_column}, {"birthyear", birthdate_column},
    {"yearofbirth", birthdate_column}, {"geboortejaar", birthdate_column},
    {"bredby", breeder_column}, {"gefoktdoor", breeder_column}, {"ganadero", breeder_column},
    {"elevage", breeder_column, weak}, {"allevamento", breeder_column, weak},
    {"breed", subpopulation_column, office}, {"ras", subpopulation_column}, {"rasse", subpopulation_column},
    {"race", subpopulation_column}, {"raza", subpopulation_column}, {"razza", subpopulation_column},
    {"breedgroup", subpopulation_column}, {"rasgroep", subpopulation_column}, {"zuchtgruppe", subpopulation_column},
    {"fokgroep", subpopulation_column}, {"schlag", subpopulation_column}, {"varietat", subpopulation_column},
    {"variete", subpopulation_column}, {"variedad", subpopulation_column}, {"varieta", subpopulation_column},
    {"teilpopulation", subpopulation_column}, {"souspopulation", subpopulation_column},
    {"subpoblacion", subpopulation_column}, {"sottopopolazione", subpopulation_column},
    {"flock", subpopulation_column}, {"herde", subpopulation_column}, {"troupeau", subpopulation_column},
    {"rebano", subpopulation_column}, {"gregge", subpopulation_column}, {"mandria", subpopulation_column},
    {"herdname", subpopulation_column}, {"flockname", subpopulation_column}, {"naamkudde", subpopulation_column},
    {"farm", subpopulation_column, weak}, {"bedrijf", subpopulation_column, weak},
    {"betrieb", subpopulation_column, weak}, {"zuchtbetrieb", subpopulation_column, weak},
    // clang-format on
});

constexpr std::array<std::string_view, field_count> option_names = {
    "",    "id",        "sire",   "dam",     "name",          "sirename", "damname",
    "sex", "birthdate", "colour", "breeder", "subpopulation", "import"};

/// The meaning of a folded word in the table of the data file.
WordMeaning meaning_in_table(std::string_view word) {
  for (const HeaderWord& entry : all_header_words()) {
    if (folded(entry.word) == word) return {entry.code, WordFit::table};
  }
  return {};
}

/// The meaning of a heading that stands in no table, word by word.
WordMeaning meaning_by_words(std::string_view heading) {
  const HeadingMeaning meaning = read_heading(heading);
  const FieldCode code = field_of_heading(meaning);
  if (code == unused_column) return {};
  const bool says_whose_id = meaning.owner != HeadingOwner::animal && meaning.thing == HeadingThing::identification;
  return {code, says_whose_id ? WordFit::exact : WordFit::office};
}

}  // namespace

WordMeaning meaning_of(std::string_view header_word) {
  const std::string word = folded(header_word);
  constexpr std::size_t longest = 60;
  if (word.empty() || word.size() > longest) return {};
  const auto* const found = std::find_if(office_words.begin(), office_words.end(),
                                         [&](const OfficeWord& entry) { return entry.word == word; });
  if (found != office_words.end()) return {found->code, found->fit};
  const WordMeaning in_table = meaning_in_table(word);
  return in_table.fit == WordFit::none ? meaning_by_words(header_word) : in_table;
}

ColumnPlaces recognise_columns(std::span<const std::string> header, ColumnPlaces& further) {
  std::vector<WordMeaning> meanings;
  std::array<WordFit, field_count> best = {};
  for (const std::string& word : header) {
    meanings.push_back(meaning_of(word));
    WordFit& fit = best[meanings.back().code];
    fit = std::max(fit, meanings.back().fit);
  }
  ColumnPlaces places;
  for (std::size_t place = 0; place < meanings.size(); ++place) {
    const FieldCode code = meanings[place].code;
    if (code == unused_column) continue;
    (meanings[place].fit == best[code] ? places : further)[code].push_back(place);
  }
  return places;
}

std::size_t count_known_words(std::span<const std::string_view> record) {
  std::array<bool, field_count> is_named = {};
  for (const std::string_view word : record) is_named[meaning_of(word).code] = true;
  return static_cast<std::size_t>(std::count(is_named.begin() + 1, is_named.end(), true));
}

bool is_header(std::span<const std::string> first_record) {
  const std::vector<std::string_view> words(first_record.begin(), first_record.end());
  const std::size_t known = count_known_words(words);
  return known >= 2 || (known == 1 && std::none_of(words.begin(), words.end(), has_digit));
}

FieldCode field_named(std::string_view name) {
  const std::string word = folded(name);
  const auto* const found = std::find(option_names.begin() + 1, option_names.end(), word);
  if (found != option_names.end()) return static_cast<FieldCode>(found - option_names.begin());
  return meaning_of(name).code;
}

std::string_view option_name_of(FieldCode code) {
  return option_names[code];
}

}  // namespace pedigreewatch
