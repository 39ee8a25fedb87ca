// Steer files for tests, line by line.
#pragma once

#include <string>
#include <string_view>

#include "support/files.h"

namespace pedigreewatch::test {

/// What a steer file says; each test changes the lines it is about.
struct SteerLines {
  std::string population_name = "Village dogs", data_file_name = "dogs.txt", delimiter = ";";
  std::string consecutive = "n", date_layout = "dd-mm-yyyy", species = "dog", male_letter = "m", language = "en";
  std::string header = "y";                         ///< or more lines: "n", a comment, the count, a comment, the list
  std::string subpopulations = "0", colours = "0";  ///< a count, and the names on lines of their own

  std::string text(std::string_view line_end = "\n") const;
};

/// The two files of a run: the steer file, and dogs.txt with `data`.
Files files_of(const std::string& data, const SteerLines& steer = {});

}  // namespace pedigreewatch::test
