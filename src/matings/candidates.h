// The animals that mates are looked for: those of a list of identifications, or those born in some years.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "pedigree/available_animals.h"
#include "pedigree/listed_id.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

enum class ListFault : std::uint8_t {
  unknown_id,  ///< no animal has it
  wrong_sex,   ///< the animal is of the other sex
  repeated,    ///< the animal is in the list already
};

/// An identification that was left out.
struct ListNote {
  ListFault fault = ListFault::unknown_id;
  std::int64_t line = 0;
  std::string id;               ///< without the blanks around it
  std::int64_t first_line = 0;  ///< of a repeated one: where the animal stood first
};

struct CandidateList {
  std::vector<std::int32_t> positions;  ///< in the order of the list, each once
  std::vector<ListNote> notes;
};

/// The animals of a list, by their place in it; 0 where no animal has the identification. How they are looked for, see
/// `candidates_listed`.
std::vector<std::int32_t> positions_listed(const PopulationStore& store, std::span<const ListedId> ids);

/// The animals of a list that are of the wanted sex, or of a sex that nothing tells. An identification is looked for as
/// it stands; then, where it is UTF-8, as Windows-1252, and where it is not, as UTF-8: list and data file may be in
/// different encodings. It is cut at the length at which identifications of the data file are cut. Of two animals with
/// one identification the first of the data file is meant, as it is where parents are named.
CandidateList candidates_listed(const PopulationStore& store, std::span<const ListedId> ids, Sex wanted);

/// The animals of a list as those that can still be bred from. How they are looked for, see `candidates_listed`.
AvailableAnimals available_listed(const PopulationStore& store, std::span<const ListedId> ids);

/// The animals of this sex (`known_sex`; none: those of which nothing tells it) born from `first_year` to `last_year`,
/// in store order.
std::vector<std::int32_t> candidates_born(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year,
                                          std::optional<Sex> sex);

}  // namespace pedigreewatch
