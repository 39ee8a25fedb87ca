// Reads the data file line by line: cuts it as the program does, puts the animals into columns, counts the different
// texts of sexes, colours and the like, and finds what can be seen in a single line.
#pragma once

#include <cstdint>
#include <vector>

#include "checks/check_settings.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"
#include "core/by_number.h"
#include "core/line_reader.h"
#include "core/progress_line.h"
#include "intake/text_counts.h"

namespace pedigreewatch {

/// Lines that have something in common: how many, and the first of them.
struct LineTally {
  std::int64_t count = 0;
  std::int32_t first_line = 0;
};

inline void tally(LineTally& lines, std::int32_t line) {
  if (lines.count++ == 0) lines.first_line = line;
}

/// What the lines together show.
struct FileSurvey {
  LineTally utf_8_lines, ansi_lines, quoted_lines, misfit_dates;
  std::int32_t quoted_text = 0, misfit_text = 0;  ///< examples, as numbers of the texts of the findings
  std::int64_t dates = 0, unreadable_dates = 0, year_only_dates = 0, january_dates = 0;
  TextCounts sexes, subpopulations, colours, imports, breeders;
  TextCounts lost_sexes;              ///< as the export writes them, of animals without a sex in the data file
  NumberedList<std::int32_t> sex_of;  ///< of each animal its place in `sexes` from 1 on; in `lost_sexes` if negative
  NumberedList<std::int32_t>
      subpopulation_of;  ///< of each animal its place in `subpopulations` from 1 on; 0: none; empty without a list
  std::vector<std::int32_t> exchanged_dates;         ///< animals with a month above 12 that can be a day
  std::vector<std::int32_t> undated, dated_by_year;  ///< animals without a date, and with nothing but a year
};

/// The file that is read; `progress` counts its lines.
struct FileToRead {
  LineReader& data;
  ProgressLine& progress;
  std::int32_t threads = 1;
};

/// Reads all lines that the program reads. Yields false when there are too many of them.
bool read_animals(FileToRead file, const ReadingPlan& plan, PedigreeColumns& animals, FileSurvey& survey,
                  Findings& findings);

}  // namespace pedigreewatch
