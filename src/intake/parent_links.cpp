// The sample holds the identifications of which certain bits of the hash are zero, so that an animal is in it whether
// it is met as animal or as parent. When it grows too large one more bit has to be zero.

#include "intake/parent_links.h"

#include "core/text_index.h"

namespace pedigreewatch {

void note_role(ParentLinks& links, std::string_view id, LinkRole role) {
  constexpr std::size_t largest_sample = 16384;
  const std::uint32_t hash = hash_of_text(id);
  if ((hash & links.mask) != 0) return;
  links.roles[hash] |= role;
  if (links.roles.size() <= largest_sample) return;
  links.mask = links.mask * 2 + 1;
  std::erase_if(links.roles, [&](const auto& entry) { return (entry.first & links.mask) != 0; });
}

LinkCount count_links(const ParentLinks& links, LinkRole role) {
  LinkCount count;
  for (const auto& [hash, roles] : links.roles) {
    if ((roles & role) == 0) continue;
    ++count.parents;
    count.with_line += (roles & animal_role) != 0 ? 1 : 0;
  }
  return count;
}

}  // namespace pedigreewatch
