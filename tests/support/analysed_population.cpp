#include "support/analysed_population.h"

#include "control/steer_file.h"

namespace pedigreewatch::test {

AnalysedPopulation analysed(const std::string& data, const SteerLines& steer) {
  const std::string steer_text = steer.text();
  LineReader steer_file, data_file;
  steer_file.text = steer_text;
  RunStreams silent;
  const SteerSettings settings = read_steer_lines(steer_file, silent);
  data_file.name = steer.data_file_name;
  data_file.text = data;
  return analyse_population(settings, data_file, silent);
}

std::string animals_by_year(const std::vector<int>& counts) {
  std::string data = "id;sire;dam;sex;birthdate\n";
  int year = 2001;
  for (const int count : counts) {
    for (int k = 0; k < count; ++k) {
      data += std::to_string(year) + "_" + std::to_string(k) + ";;" + (k % 2 == 0 ? ";m" : ";f") + ";02-05-" +
              std::to_string(year) + "\n";
    }
    ++year;
  }
  return data;
}

}  // namespace pedigreewatch::test
