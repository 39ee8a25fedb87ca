// One table of words, searched from the front: a header has so few columns that nothing faster is needed.

#include "pedigree/header_words.h"

#include <algorithm>
#include <array>

#include "core/fixed_text.h"

namespace pedigreewatch {
namespace {

// The table has gaps that herdbooks have learned to live with: "id moeder" and "Geb_datum" stand twice, "geb-datum"
// has no form with a capital and "Geb datum" none without, and the import column has its capital only.
constexpr std::array<HeaderWord, 163> header_word_table = {{
    // clang-format off
    {"id", id_column}, {"Id", id_column}, {"ID", id_column}, {"animal", id_column}, {"Animal", id_column},
    {"dier", id_column}, {"Dier", id_column},
    {"dad", sire_column}, {"sire", sire_column}, {"father", sire_column}, {"vader", sire_column},
    {"id_dad", sire_column}, {"id_sire", sire_column}, {"id-dad", sire_column}, {"id-sire", sire_column},
    {"id-vader", sire_column}, {"id_vader", sire_column}, {"id dad", sire_column}, {"id sire", sire_column},
    {"id vader", sire_column}, {"Dad", sire_column}, {"Sire", sire_column}, {"Father", sire_column},
    {"Vader", sire_column}, {"Id_dad", sire_column}, {"Id_sire", sire_column}, {"Id-dad", sire_column},
    {"Id-sire", sire_column}, {"Id-vader", sire_column}, {"Id_vader", sire_column}, {"Id dad", sire_column},
    {"Id sire", sire_column}, {"Id vader", sire_column},
    {"mum", dam_column}, {"dam", dam_column}, {"mother", dam_column}, {"moeder", dam_column}, {"id_mum", dam_column},
    {"id_dam", dam_column}, {"id-mum", dam_column}, {"id-dam", dam_column}, {"id-moeder", dam_column},
    {"id_moeder", dam_column}, {"id mum", dam_column}, {"id dam", dam_column}, {"id moeder", dam_column},
    {"id moeder", dam_column}, {"Mum", dam_column}, {"Dam", dam_column}, {"Mother", dam_column},
    {"Moeder", dam_column}, {"Id_mum", dam_column}, {"Id_dam", dam_column}, {"Id-mum", dam_column},
    {"Id-dam", dam_column}, {"Id-moeder", dam_column}, {"Id_moeder", dam_column}, {"Id mum", dam_column},
    {"Id dam", dam_column}, {"Id moeder", dam_column},
    {"name", name_column}, {"naam", name_column}, {"Name", name_column}, {"Naam", name_column},
    {"name_dad", sire_name_column}, {"name-dad", sire_name_column}, {"name dad", sire_name_column},
    {"name_sire", sire_name_column}, {"name-sire", sire_name_column}, {"name sire", sire_name_column},
    {"name_father", sire_name_column}, {"name-father", sire_name_column}, {"name father", sire_name_column},
    {"naam_vader", sire_name_column}, {"naam-vader", sire_name_column}, {"naam vader", sire_name_column},
    {"Name_dad", sire_name_column}, {"Name-dad", sire_name_column}, {"Name dad", sire_name_column},
    {"Name_sire", sire_name_column}, {"Name-sire", sire_name_column}, {"Name sire", sire_name_column},
    {"Name_father", sire_name_column}, {"Name-father", sire_name_column}, {"Name father", sire_name_column},
    {"Naam_vader", sire_name_column}, {"Naam-vader", sire_name_column}, {"Naam vader", sire_name_column},
    {"name_mum", dam_name_column}, {"name-mum", dam_name_column}, {"name mum", dam_name_column},
    {"name_dam", dam_name_column}, {"name-dam", dam_name_column}, {"name dam", dam_name_column},
    {"name_mother", dam_name_column}, {"name-mother", dam_name_column}, {"name mother", dam_name_column},
    {"naam_moeder", dam_name_column}, {"naam-moeder", dam_name_column}, {"naam moeder", dam_name_column},
    {"Name_mum", dam_name_column}, {"Name-mum", dam_name_column}, {"Name mum", dam_name_column},
    {"Name_dam", dam_name_column}, {"Name-dam", dam_name_column}, {"Name dam", dam_name_column},
    {"Name_mother", dam_name_column}, {"Name-mother", dam_name_column}, {"Name mother", dam_name_column},
    {"Naam_moeder", dam_name_column}, {"Naam-moeder", dam_name_column}, {"Naam moeder", dam_name_column},
    {"sex", sex_column}, {"sexe", sex_column}, {"sekse", sex_column}, {"geslacht", sex_column}, {"Sex", sex_column},
    {"Sexe", sex_column}, {"Sekse", sex_column}, {"Geslacht", sex_column},
    {"birthdate", birthdate_column}, {"Birthdate", birthdate_column}, {"dob", birthdate_column},
    {"DoB", birthdate_column}, {"DOB", birthdate_column}, {"geboortedatum", birthdate_column},
    {"gebdatum", birthdate_column}, {"geb_datum", birthdate_column}, {"geb-datum", birthdate_column},
    {"Geboortedatum", birthdate_column}, {"Gebdatum", birthdate_column}, {"Geb_datum", birthdate_column},
    {"Geb_datum", birthdate_column}, {"Geb datum", birthdate_column},
    {"colour", colour_column}, {"color", colour_column}, {"kleur", colour_column}, {"kleurslag", colour_column},
    {"Colour", colour_column}, {"Color", colour_column}, {"Kleur", colour_column}, {"Kleurslag", colour_column},
    {"breeder", breeder_column}, {"fokker", breeder_column}, {"Breeder", breeder_column}, {"Fokker", breeder_column},
    {"breedtype", subpopulation_column}, {"variety", subpopulation_column}, {"herd", subpopulation_column},
    {"subpopulation", subpopulation_column}, {"rastype", subpopulation_column}, {"varieteit", subpopulation_column},
    {"kudde", subpopulation_column}, {"subpopulatie", subpopulation_column}, {"Breedtype", subpopulation_column},
    {"Variety", subpopulation_column}, {"Herd", subpopulation_column}, {"Subpopulation", subpopulation_column},
    {"Rastype", subpopulation_column}, {"Varieteit", subpopulation_column}, {"Kudde", subpopulation_column},
    {"Subpopulatie", subpopulation_column},
    {"Import", import_column},
    // clang-format on
}};

}  // namespace

std::span<const HeaderWord> all_header_words() {
  return header_word_table;
}

FieldCode field_code_of(std::string_view word) {
  const auto* const found = std::find_if(header_word_table.begin(), header_word_table.end(),
                                         [&](const HeaderWord& entry) { return same_text(entry.word, word); });
  return found == header_word_table.end() ? unused_column : found->code;
}

}  // namespace pedigreewatch
