#include "support/steer_lines.h"

#include "support/lines.h"

namespace pedigreewatch::test {

std::string SteerLines::text(std::string_view line_end) const {
  const std::string lines = joined({population_name, data_file_name, delimiter, consecutive, date_layout, species,
                                    male_letter, language, header, subpopulations, colours});
  std::string result;
  for (const char byte : lines) result += byte == '\n' ? std::string(line_end) : std::string(1, byte);
  return result;
}

Files files_of(const std::string& data, const SteerLines& steer) {
  return {{"pedigreewatch.ini", steer.text()}, {"dogs.txt", data}};
}

}  // namespace pedigreewatch::test
