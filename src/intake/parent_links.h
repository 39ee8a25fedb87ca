// How many of the parents that an export names have a line of their own: the evidence that the right columns were
// taken. Counted exactly in small exports, and by a fair sample of the identifications in large ones.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace pedigreewatch {

struct ParentLinks {
  std::unordered_map<std::uint32_t, unsigned> roles;  ///< for the hash of an identification its roles
  std::uint32_t mask = 0;  ///< identifications belong to the sample whose hash has none of these bits
};

enum LinkRole : unsigned { animal_role = 1, sire_role = 2, dam_role = 4 };

/// Notes that `id` occurs in a role.
void note_role(ParentLinks& links, std::string_view id, LinkRole role);

struct LinkCount {
  std::int64_t parents = 0;    ///< different parents of the sample
  std::int64_t with_line = 0;  ///< those that are an animal of the export
};
LinkCount count_links(const ParentLinks& links, LinkRole role);

/// Whether all identifications were looked at.
inline bool is_exact(const ParentLinks& links) {
  return links.mask == 0;
}

}  // namespace pedigreewatch
