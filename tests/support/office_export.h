// A known population, as the program's own data file and as an office would export it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch::test {

struct OfficeAnimal {
  std::string id, name, sire, dam, colour, breeder, subpopulation, import;  ///< UTF-8, of letters up to U+00FF
  bool is_male = false;
  int year = 0, month = 0, day = 0;
};

/// A population of litters over 12 years, the same for the same seed: names with accents, commas, semicolons and
/// quotation marks; some parents, colours and dates unknown, some animals imports.
std::vector<OfficeAnimal> make_office_population(int count, std::uint32_t seed);

/// How an export is written.
struct ExportForm {
  std::string encoding = "utf-8";  ///< utf-8, utf-8-mark, utf-16le, utf-16be (both with marks), utf-16le-bare, 1252
  char delimiter = ',';
  std::string layout = "yyyy-mm-dd";  ///< d, m, y in their order; "time" for ISO with a time, "d mon yyyy"
  std::string line_end = "\r\n";
  std::string male = "Male", female = "Female", unknown_parent = "NA";
  bool has_header = true, quotes_all = false, has_notes = true;
};

std::string write_export(const std::vector<OfficeAnimal>& animals, const ExportForm& form);

/// The same animals in the form that the program reads, in Windows-1252 with tabs and dates as dd-mm-yyyy.
std::string write_data_file(const std::vector<OfficeAnimal>& animals);

/// The steer file that goes with it: names "North", "Zu\xEFd", "West"; colours "black", "white".
std::string write_steer_file(std::string_view data_file_name);

/// UTF-8 of letters up to U+00FF in another encoding of `ExportForm`.
std::string encoded(std::string_view utf_8, std::string_view encoding);

}  // namespace pedigreewatch::test
