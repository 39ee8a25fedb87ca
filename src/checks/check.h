// Finds everything in a data file that stops a run, falsifies its figures or is worth a look, in one go.
#pragma once

#include "checks/check_settings.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "core/line_reader.h"
#include "core/progress_line.h"

namespace pedigreewatch {

struct CheckResult {
  PedigreeColumns animals;
  Findings findings;
  bool has_read_animals = false;  ///< false: the file or its columns cannot be understood at all
  bool has_too_many_lines = false;
};

/// Checks the file that has been opened. Whether all of it could be read is told by the reader's `error`. `progress`
/// counts the lines and is erased at the end.
CheckResult check_data(LineReader& data, const CheckSettings& settings, ProgressLine& progress);

}  // namespace pedigreewatch
