// Exports that are texts, with everything that is decided about them and the files that are made.
#pragma once

#include <string>

#include "intake/prepare_plan.h"
#include "intake/prepared_file.h"

namespace pedigreewatch::test {

struct Prepared {
  PreparePlan plan;
  std::string data, steer;
  ExportLines lines;
};

/// The export of sheep, whatever is asked about it.
Prepared prepared(const std::string& text, PrepareOptions options = {}, char delimiter = ';');

}  // namespace pedigreewatch::test
