// Lists that people act on: whom to breed from, who is most inbred, and which sires have taken the largest part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "pedigree/available_animals.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

inline constexpr std::size_t most_inbred_listed = 50;
inline constexpr std::size_t sires_listed = 20;
inline constexpr std::int32_t years_listed = 10;

/// A sire, what part of the reference population is his, and what it would be without that.
struct UsedSire {
  std::int32_t position = 0;
  std::int64_t offspring = 0;              ///< in the reference population
  double share = 0.0;                      ///< of its animals with a known sire
  std::int64_t descendants = 0;            ///< in the reference population, he himself included where he is in it
  std::int64_t rest = 0;                   ///< its animals that are neither he nor descend from him
  double kinship_of_rest = 0.0;            ///< their mean kinship, each with itself included; 0 without any
  std::int64_t without_offspring = 0;      ///< its animals that are neither he nor his offspring
  double kinship_without_offspring = 0.0;  ///< their mean kinship; 0 without any
};

/// Animals by position in the store, in the order of the lists.
struct ActionLists {
  std::vector<std::int32_t> females, males;  ///< of the last ten birth years, the lowest mean kinship first
  bool are_available = false;                ///< these are only those that can still be bred from
  std::vector<std::int32_t> most_inbred;  ///< the highest F first, of equal ones the youngest; none without inbreeding
  std::vector<UsedSire> sires;            ///< the most offspring in the reference population first
};

/// `reference` is ascending, each once; `mean_kinship` is that of all animals with it, empty for an empty one, when
/// females and males are listed in the order of the store. They are those of `available`. F of all animals must be
/// final.
ActionLists make_action_lists(const PopulationStore& store, std::span<const std::int32_t> reference,
                              const ByNumber<float>& mean_kinship, const AvailableAnimals& available = {});

}  // namespace pedigreewatch
