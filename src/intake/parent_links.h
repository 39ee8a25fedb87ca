// How many of the parents that an export names have a line of their own: the evidence that the right columns were
// taken. Counted exactly in small exports, and by a fair sample of the identifications in large ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pedigreewatch {

struct LinkedId {
  unsigned roles = 0;
  std::int32_t sex = -1;  ///< place of its text among those of the column; -1: not known
  std::string text;       ///< of a parent that was named before any line of its own
  std::int64_t line = 0;  ///< where it was named first
};

struct ParentLinks {
  std::unordered_map<std::uint32_t, LinkedId> ids;  ///< by the hash of an identification
  std::uint32_t mask = 0;  ///< identifications belong to the sample whose hash has none of these bits
};

enum LinkRole : unsigned { animal_role = 1, sire_role = 2, dam_role = 4 };

/// Notes that `id` occurs in a role.
void note_role(ParentLinks& links, std::string_view id, LinkRole role);

/// Notes that `id` is named as a parent on a line.
void note_parent(ParentLinks& links, std::string_view id, LinkRole role, std::int64_t line);

/// Notes how the sex of the animal `id` is written.
void note_sex(ParentLinks& links, std::string_view id, std::size_t sex);

/// Of how many fathers and mothers the sex is written in one way.
struct SexVotes {
  std::int64_t sires = 0, dams = 0;
};
/// The votes for each of the texts of the sexes.
std::vector<SexVotes> count_sex_votes(const ParentLinks& links, std::size_t sex_count);

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
