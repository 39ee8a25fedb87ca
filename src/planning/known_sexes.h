// Which sex an animal has, as far as it is known. Where a line does not say so the animal counts as female in all
// figures; who breeds must not hang on that.
#pragma once

#include <optional>
#include <vector>

#include "core/line_reader.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The records of the data file whose line does not tell a sex, in their order: blank, "?", "-", "unknown". A run keeps
/// of the sex only whether it is male; the file, which must be at its start, is read once more for this. A file that
/// cannot be read yields what was read.
std::vector<std::int32_t> find_records_without_sex(LineReader& data, const DataFileLayout& layout);

/// What tells the sex of animals.
struct SexEvidence {
  std::vector<std::int32_t> records_without_sex;
  ByNumber<Flag> was_sire, was_dam;
};

SexEvidence find_sex_evidence(const PopulationStore& store, std::vector<std::int32_t> records_without_sex);

/// The sex of the animal's line; where that says nothing, what it was a parent as. None where neither tells, or the
/// animal was both.
std::optional<Sex> known_sex(const PopulationStore& store, const SexEvidence& evidence, std::int32_t position);

}  // namespace pedigreewatch
