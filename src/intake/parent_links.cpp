// The sample holds the identifications of which certain bits of the hash are zero, so that an animal is in it whether
// it is met as animal or as parent. When it grows too large one more bit has to be zero.

#include "intake/parent_links.h"

#include "core/text_index.h"

namespace pedigreewatch {

namespace {

constexpr std::size_t largest_sample = 16384;

/// The entry of an identification; null for one that is not in the sample.
LinkedId* entry_of(ParentLinks& links, std::string_view id) {
  const std::uint32_t hash = hash_of_text(id);
  return (hash & links.mask) != 0 ? nullptr : &links.ids[hash];
}

void shrink_sample(ParentLinks& links) {
  if (links.ids.size() <= largest_sample) return;
  links.mask = links.mask * 2 + 1;
  std::erase_if(links.ids, [&](const auto& entry) { return (entry.first & links.mask) != 0; });
}

}  // namespace

void note_role(ParentLinks& links, std::string_view id, LinkRole role) {
  LinkedId* const entry = entry_of(links, id);
  if (entry == nullptr) return;
  entry->roles |= role;
  shrink_sample(links);
}

void note_parent(ParentLinks& links, std::string_view id, LinkRole role, std::int64_t line) {
  LinkedId* const entry = entry_of(links, id);
  if (entry == nullptr) return;
  if (entry->roles == 0) {
    entry->text = id;
    entry->line = line;
  }
  entry->roles |= role;
  shrink_sample(links);
}

void note_sex(ParentLinks& links, std::string_view id, std::size_t sex) {
  LinkedId* const entry = entry_of(links, id);
  if (entry != nullptr) entry->sex = static_cast<std::int32_t>(sex);
}

std::vector<SexVotes> count_sex_votes(const ParentLinks& links, std::size_t sex_count) {
  std::vector<SexVotes> votes(sex_count);
  for (const auto& [hash, id] : links.ids) {
    if (id.sex < 0 || static_cast<std::size_t>(id.sex) >= sex_count) continue;
    SexVotes& vote = votes[static_cast<std::size_t>(id.sex)];
    vote.sires += (id.roles & sire_role) != 0 ? 1 : 0;
    vote.dams += (id.roles & dam_role) != 0 ? 1 : 0;
  }
  return votes;
}

LinkCount count_links(const ParentLinks& links, LinkRole role) {
  LinkCount count;
  for (const auto& [hash, id] : links.ids) {
    if ((id.roles & role) == 0) continue;
    ++count.parents;
    count.with_line += (id.roles & animal_role) != 0 ? 1 : 0;
  }
  return count;
}

}  // namespace pedigreewatch
