// Exports as offices of six languages make them, with what they mean: seeded, hundreds within seconds. Every shape in
// which an export may come is drawn: languages, headings that nobody knows, names of parents beside their ids, words
// for sexes and for unknown parents, layouts of dates, identifications, titles, remarks, encodings, damage.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pedigreewatch::test {

/// An animal as those know it who made the export. Texts are UTF-8.
struct ForeignAnimal {
  std::string id, sire, dam, name;  ///< an unknown parent is empty
  bool is_male = false;
  bool has_sex = true;               ///< false: the export leaves its sex empty
  int year = 0, month = 0, day = 0;  ///< 0 for what the export does not tell
  int line = 0;                      ///< of the export, counted from 1
  bool is_spoilt = false;            ///< its line is shifted, cut or joined: what it holds cannot be known
};

/// The fields that a user can be asked the column of, in the words of the option.
enum class AskedField { id, sire, dam, sex, birthdate, name, colour, breeder, subpopulation, import };
inline constexpr std::size_t asked_field_count = 10;

/// The answer to everything that may be asked about an export.
struct ExportTruth {
  std::vector<ForeignAnimal> animals;               ///< in the order of their lines
  std::array<int, asked_field_count> columns = {};  ///< counted from 1; 0: the export has none
  std::vector<std::string> male, female;            ///< the texts of the sexes that occur
  std::vector<std::string> unknown;                 ///< the texts for unknown parents that occur
  std::string delimiter, encoding, species;         ///< as the options name them
  bool has_header = true;
  std::string dates;                            ///< the layout as the option names it; empty: in no single one
  std::string ids;                              ///< the rule by which parents are their animals; empty: none helps
  std::string century;                          ///< the first year of the hundred that years of two digits mean
  std::string young;                            ///< the columns of the ids where a line holds several animals
  std::vector<std::string> lost_ids;            ///< of animals whose line was joined to the one before it
  std::vector<int> remark_lines, header_lines;  ///< lines below the header that hold no animal
};

struct ForeignExport {
  std::string bytes;
  ExportTruth truth;
  std::vector<std::string> shapes;  ///< what was drawn, each as "kind: which"
  bool is_spoilt = false;           ///< it was damaged on its way: no reading of it can be right everywhere
};

/// The export of that seed: the same bytes on every machine.
ForeignExport make_foreign_export(std::uint32_t seed);

}  // namespace pedigreewatch::test
