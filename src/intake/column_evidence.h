// What speaks for the columns that a question names: how many of their texts differ, are dates, stand in another
// column.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "intake/content_choice.h"
#include "intake/remark.h"

namespace pedigreewatch {

/// At most so many columns are named as those that may hold a field.
inline constexpr std::size_t most_candidates = 5;

/// Whether so many of the texts differ as those of identifications do.
bool are_nearly_different(std::int64_t different, std::int64_t texts);

/// The columns without a field that may hold this one, those for which most speaks first: ids by texts that nearly all
/// differ, with the columns that stand in them; parents by texts that stand among such ids; sexes by few different
/// texts; dates by dates. All that are left, where none of them does.
ColumnEvidenceList list_candidates(FieldCode code, const ColumnContents& contents, const ColumnChoice& columns);

/// The same of columns that are known.
ColumnEvidenceList list_evidence(std::span<const std::size_t> places, FieldCode code, const ColumnContents& contents,
                                 const ColumnChoice& columns);

}  // namespace pedigreewatch
