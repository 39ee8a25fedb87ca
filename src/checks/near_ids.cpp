// Two texts one letter apart share a text with a letter left out: all of these are hashed, those of the identifications
// that are sought into a table, and those of the animals are looked up in it. The work grows with the letters of the
// file, not with the pairs of its animals.

#include "checks/near_ids.h"

#include <algorithm>
#include <array>

#include "checks/readable_text.h"
#include "core/text_index.h"

namespace pedigreewatch {
namespace {

using Hash = std::uint64_t;

constexpr Hash letter_factor = 0x9E3779B97F4A7C15ULL;
constexpr std::size_t longest_id = 64;

/// The hash of the text and of the text with each of its letters left out; a text of n letters has n + 1 of them.
struct DeletionHashes {
  std::array<Hash, longest_id + 1> hashes = {};
  std::size_t count = 0;
};

Hash mixed(Hash hash) {
  hash ^= hash >> 31;
  hash *= 0xBF58476D1CE4E5B9ULL;
  return hash ^ (hash >> 29);
}

DeletionHashes hash_deletions(std::string_view text) {
  DeletionHashes result;
  text = text.substr(0, longest_id);
  std::array<Hash, longest_id + 1> behind = {};  // of what stands from a letter on
  Hash power = 1;
  for (std::size_t i = text.size(); i > 0; --i) {
    behind[i - 1] = behind[i] + (static_cast<unsigned char>(text[i - 1]) + Hash{1}) * power;
    power *= letter_factor;
  }
  result.hashes[result.count++] = mixed(behind[0]);
  Hash before = 0;  // of the letters before the one left out, as if the rest had one letter less
  std::array<Hash, longest_id + 1> powers = {1};
  for (std::size_t i = 1; i <= text.size(); ++i) powers[i] = powers[i - 1] * letter_factor;
  for (std::size_t i = 0; i < text.size(); ++i) {
    result.hashes[result.count++] = mixed(before + behind[i + 1]);
    if (i + 1 < text.size()) {
      before += (static_cast<unsigned char>(text[i]) + Hash{1}) * powers[text.size() - 2 - i];
    }
  }
  return result;
}

struct WantedHash {
  Hash hash = 0;
  std::int32_t id = 0;
};

/// A small map of which hashes are wanted at all, so that nearly all others cost one look.
struct HashFilter {
  static constexpr std::size_t bits = std::size_t{1} << 22;
  std::vector<std::uint64_t> words = std::vector<std::uint64_t>(bits / 64);

  void set(Hash hash) { words[hash % bits / 64] |= std::uint64_t{1} << (hash % 64); }
  bool may_have(Hash hash) const { return (words[hash % bits / 64] >> (hash % 64) & 1U) != 0; }
};

void note_near(NearAnimals& near, std::int32_t animal) {
  constexpr std::size_t most = 8;
  if (std::find(near.animals.begin(), near.animals.end(), animal) != near.animals.end()) return;
  if (near.animals.size() < most) {
    near.animals.push_back(animal);
  } else {
    near.are_all = false;
  }
}

}  // namespace

bool is_one_letter_off(std::string_view a, std::string_view b) {
  if (a.size() > b.size()) std::swap(a, b);
  const std::size_t longer_by = b.size() - a.size();
  if (longer_by > 1 || a == b) return false;
  std::size_t first = 0;
  while (first < a.size() && a[first] == b[first]) ++first;
  const std::string_view rest_a = a.substr(first), rest_b = b.substr(first);
  if (longer_by == 1) return rest_a == rest_b.substr(1);
  if (rest_a.substr(1) == rest_b.substr(1)) return true;
  return rest_a.size() >= 2 && rest_a[0] == rest_b[1] && rest_a[1] == rest_b[0] && rest_a.substr(2) == rest_b.substr(2);
}

std::unordered_map<std::int32_t, std::int32_t> find_same_but_spelling(const PedigreeColumns& animals,
                                                                      std::span<const std::int32_t> wanted) {
  std::unordered_map<std::int32_t, std::int32_t> found;
  if (wanted.empty()) return found;
  TextStore folded_texts;
  std::vector<std::vector<std::int32_t>> ids_of = {{}};  // for each folded text the ids that are sought
  for (const std::int32_t id : wanted) {
    const std::int32_t number = number_of_text(folded_texts, folded_id(animals.ids.at(id)));
    if (static_cast<std::size_t>(number) == ids_of.size()) ids_of.emplace_back();
    ids_of[static_cast<std::size_t>(number)].push_back(id);
  }
  const auto text_at = [&](std::int32_t number) { return folded_texts.at(number); };
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const std::int32_t animal = animals.animal_of[id];
    if (animal == 0) continue;
    const std::string folded = folded_id(animals.ids.at(id));
    const std::int32_t number = folded.empty() ? 0 : find_text(folded_texts.index, folded, text_at);
    if (number == 0) continue;
    for (const std::int32_t each : ids_of[static_cast<std::size_t>(number)]) found.try_emplace(each, animal);
    ids_of[static_cast<std::size_t>(number)].clear();
  }
  return found;
}

std::unordered_map<std::int32_t, NearAnimals> find_one_letter_off(const PedigreeColumns& animals,
                                                                  std::span<const std::int32_t> wanted) {
  std::unordered_map<std::int32_t, NearAnimals> found;
  std::vector<WantedHash> hashes;
  HashFilter filter;
  for (const std::int32_t id : wanted) {
    const DeletionHashes deletions = hash_deletions(animals.ids.at(id));
    for (std::size_t k = 0; k < deletions.count; ++k) {
      hashes.push_back({deletions.hashes[k], id});
      filter.set(deletions.hashes[k]);
    }
  }
  const auto is_before = [](const WantedHash& a, const WantedHash& b) { return a.hash < b.hash; };
  std::sort(hashes.begin(), hashes.end(), is_before);
  for (std::int32_t id = 1; id <= animals.ids.count() && !hashes.empty(); ++id) {
    const std::int32_t animal = animals.animal_of[id];
    if (animal == 0) continue;
    const DeletionHashes deletions = hash_deletions(animals.ids.at(id));
    for (std::size_t k = 0; k < deletions.count; ++k) {
      if (!filter.may_have(deletions.hashes[k])) continue;
      const auto [first, last] =
          std::equal_range(hashes.begin(), hashes.end(), WantedHash{deletions.hashes[k], 0}, is_before);
      constexpr std::ptrdiff_t most_looked_at = 300;  // ids that all have one letter in common place are no slips
      for (auto each = first; each != last && each - first < most_looked_at; ++each) {
        if (is_one_letter_off(animals.ids.at(each->id), animals.ids.at(id))) note_near(found[each->id], animal);
      }
    }
  }
  return found;
}

}  // namespace pedigreewatch
