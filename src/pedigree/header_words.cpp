#include "pedigree/header_words.h"

#include <algorithm>
#include <array>

#include "core/fixed_text.h"

namespace pedigreewatch {
namespace {

struct HeaderWord {
  std::string_view word;
  std::int32_t code;
};

// The table has gaps that herdbooks have learned to live with: "id moeder" and "Geb_datum" stand twice, "geb-datum"
// has no form with a capital and "Geb datum" none without, and the import column has its capital only.
constexpr std::array<HeaderWord, 163> header_word_table = {{
    // clang-format off
    {"id", 1}, {"Id", 1}, {"ID", 1}, {"animal", 1}, {"Animal", 1}, {"dier", 1}, {"Dier", 1},
    {"dad", 2}, {"sire", 2}, {"father", 2}, {"vader", 2}, {"id_dad", 2}, {"id_sire", 2}, {"id-dad", 2},
    {"id-sire", 2}, {"id-vader", 2}, {"id_vader", 2}, {"id dad", 2}, {"id sire", 2}, {"id vader", 2},
    {"Dad", 2}, {"Sire", 2}, {"Father", 2}, {"Vader", 2}, {"Id_dad", 2}, {"Id_sire", 2}, {"Id-dad", 2},
    {"Id-sire", 2}, {"Id-vader", 2}, {"Id_vader", 2}, {"Id dad", 2}, {"Id sire", 2}, {"Id vader", 2},
    {"mum", 3}, {"dam", 3}, {"mother", 3}, {"moeder", 3}, {"id_mum", 3}, {"id_dam", 3}, {"id-mum", 3},
    {"id-dam", 3}, {"id-moeder", 3}, {"id_moeder", 3}, {"id mum", 3}, {"id dam", 3}, {"id moeder", 3},
    {"id moeder", 3}, {"Mum", 3}, {"Dam", 3}, {"Mother", 3}, {"Moeder", 3}, {"Id_mum", 3}, {"Id_dam", 3},
    {"Id-mum", 3}, {"Id-dam", 3}, {"Id-moeder", 3}, {"Id_moeder", 3}, {"Id mum", 3}, {"Id dam", 3},
    {"Id moeder", 3},
    {"name", 4}, {"naam", 4}, {"Name", 4}, {"Naam", 4},
    {"name_dad", 5}, {"name-dad", 5}, {"name dad", 5}, {"name_sire", 5}, {"name-sire", 5}, {"name sire", 5},
    {"name_father", 5}, {"name-father", 5}, {"name father", 5}, {"naam_vader", 5}, {"naam-vader", 5},
    {"naam vader", 5}, {"Name_dad", 5}, {"Name-dad", 5}, {"Name dad", 5}, {"Name_sire", 5}, {"Name-sire", 5},
    {"Name sire", 5}, {"Name_father", 5}, {"Name-father", 5}, {"Name father", 5}, {"Naam_vader", 5},
    {"Naam-vader", 5}, {"Naam vader", 5},
    {"name_mum", 6}, {"name-mum", 6}, {"name mum", 6}, {"name_dam", 6}, {"name-dam", 6}, {"name dam", 6},
    {"name_mother", 6}, {"name-mother", 6}, {"name mother", 6}, {"naam_moeder", 6}, {"naam-moeder", 6},
    {"naam moeder", 6}, {"Name_mum", 6}, {"Name-mum", 6}, {"Name mum", 6}, {"Name_dam", 6}, {"Name-dam", 6},
    {"Name dam", 6}, {"Name_mother", 6}, {"Name-mother", 6}, {"Name mother", 6}, {"Naam_moeder", 6},
    {"Naam-moeder", 6}, {"Naam moeder", 6},
    {"sex", 7}, {"sexe", 7}, {"sekse", 7}, {"geslacht", 7}, {"Sex", 7}, {"Sexe", 7}, {"Sekse", 7},
    {"Geslacht", 7},
    {"birthdate", 8}, {"Birthdate", 8}, {"dob", 8}, {"DoB", 8}, {"DOB", 8}, {"geboortedatum", 8},
    {"gebdatum", 8}, {"geb_datum", 8}, {"geb-datum", 8}, {"Geboortedatum", 8}, {"Gebdatum", 8},
    {"Geb_datum", 8}, {"Geb_datum", 8}, {"Geb datum", 8},
    {"colour", 9}, {"color", 9}, {"kleur", 9}, {"kleurslag", 9}, {"Colour", 9}, {"Color", 9}, {"Kleur", 9},
    {"Kleurslag", 9},
    {"breeder", 10}, {"fokker", 10}, {"Breeder", 10}, {"Fokker", 10},
    {"breedtype", 11}, {"variety", 11}, {"herd", 11}, {"subpopulation", 11}, {"rastype", 11},
    {"varieteit", 11}, {"kudde", 11}, {"subpopulatie", 11}, {"Breedtype", 11}, {"Variety", 11}, {"Herd", 11},
    {"Subpopulation", 11}, {"Rastype", 11}, {"Varieteit", 11}, {"Kudde", 11}, {"Subpopulatie", 11},
    {"Import", 12},
    // clang-format on
}};

}  // namespace

FieldCode field_code_of(std::string_view word) {
  const auto* const found = std::find_if(header_word_table.begin(), header_word_table.end(),
                                         [&](const HeaderWord& entry) { return same_text(entry.word, word); });
  return found == header_word_table.end() ? unused_column : static_cast<FieldCode>(found->code);
}

}  // namespace pedigreewatch
