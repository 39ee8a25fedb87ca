// Whether an export tells which animals are imports: what the program does without is told by no figure of the report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "intake/column_choice.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"
#include "intake/text_counts.h"

namespace pedigreewatch {

/// What is known of the columns when imports are asked for.
struct ImportEvidence {
  std::int64_t animals = 0;
  const TextCounts& imports;                      ///< the texts of the column in use
  const std::vector<std::int64_t>& column_texts;  ///< how many texts each column has
};

/// Asks whether a column tells which animals are imports: one that is not in use, has "import" in its heading and
/// texts; or the one in use, where its heading is none of the data file's own and more than half of the animals would
/// be imports. Nothing where the user has said it, or is asked for it already.
std::vector<Question> ask_for_imports(std::string_view text, char delimiter, const ColumnChoice& columns,
                                      const ImportEvidence& evidence, const PrepareOptions& options);

}  // namespace pedigreewatch
