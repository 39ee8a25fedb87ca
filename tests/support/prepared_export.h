// Exports that are texts, with everything that is decided about them and the files that are made.
#pragma once

#include <string>
#include <vector>

#include "intake/prepare_plan.h"
#include "intake/prepared_file.h"
#include "intake/remark.h"

namespace pedigreewatch::test {

struct Prepared {
  PreparePlan plan;
  std::string data, steer;
  ExportLines lines;
  std::vector<Remark> remarks;  ///< on the contents
};

/// The export of sheep, whatever is asked about it.
Prepared prepared(const std::string& text, PrepareOptions options = {}, char delimiter = ';');

}  // namespace pedigreewatch::test
