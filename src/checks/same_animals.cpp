// Animals are put together by everything but their names; names are compared within such a group only, which mostly has
// the litter mates of one sex.

#include "checks/same_animals.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "checks/readable_text.h"
#include "core/memory_hints.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

std::uint64_t mix(std::uint64_t hash, std::uint64_t value) {
  hash = (hash ^ value) * 0x9E3779B97F4A7C15ULL;
  return hash ^ (hash >> 29);
}

struct HashedAnimal {
  std::uint64_t hash = 0;
  std::int32_t animal = 0;
  char first_letter = 0, last_letter = 0;  ///< of the name, folded; 0 where they are not seen at once
};

/// The first of these bytes that `folded` does not leave out, folded; 0 where that is not seen at once.
template <typename Bytes>
char first_folded(Bytes begin, Bytes end) {
  for (; begin != end; ++begin) {
    const char byte = *begin;
    if (static_cast<unsigned char>(byte) >= 0x80) return 0;
    if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte - 'A' + 'a');
    if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9')) return byte;
  }
  return 0;
}

/// Whether neither the beginnings nor the ends of two names agree, so that they cannot be the same.
bool are_plainly_others(const HashedAnimal& a, const HashedAnimal& b) {
  const auto differ = [](char x, char y) { return x != 0 && y != 0 && x != y; };
  return differ(a.first_letter, b.first_letter) && differ(a.last_letter, b.last_letter);
}

/// Leaves those out whose hash no other one can have: a map of bits tells which were met twice.
void keep_repeated(std::vector<HashedAnimal>& hashed) {
  constexpr std::size_t bits_per_animal = 4;
  const std::size_t words = std::bit_ceil(hashed.size() * bits_per_animal / 64 + 1);
  std::vector<std::uint64_t> once(words), twice(words);
  const auto bit_of = [](const HashedAnimal& each) { return std::uint64_t{1} << (each.hash % 64); };
  const auto word_of = [&](const HashedAnimal& each) { return each.hash / 64 & (words - 1); };
  for (const HashedAnimal& each : hashed) {
    twice[word_of(each)] |= once[word_of(each)] & bit_of(each);
    once[word_of(each)] |= bit_of(each);
  }
  std::erase_if(hashed, [&](const HashedAnimal& each) { return (twice[word_of(each)] & bit_of(each)) == 0; });
}

/// The animals with a name, a year and an identification, by what is known of them besides; those of which that is
/// known of another one too.
std::vector<HashedAnimal> hash_animals(const PedigreeColumns& animals) {
  std::vector<HashedAnimal> hashed;
  reserve_large(hashed, static_cast<std::size_t>(animals.count()));
  for (std::int32_t a = 1; a <= animals.count(); ++a) {
    const BirthDay& birth = animals.birth.at(a);
    if (!animals.has_name(a) || birth.year == 0 || animals.id.at(a) == 0) continue;
    std::uint64_t hash = mix(static_cast<std::uint32_t>(birth.year), static_cast<unsigned char>(animals.sex.at(a)));
    const std::int64_t month_and_day = std::int64_t{birth.month} * 64 + birth.day + 1000;
    hash = mix(hash, static_cast<std::uint64_t>(month_and_day));
    hash = mix(hash, static_cast<std::uint32_t>(animals.sire.at(a)));
    const std::string_view name = animals.name(a);
    hashed.push_back({mix(hash, static_cast<std::uint32_t>(animals.dam.at(a))), a,
                      first_folded(name.begin(), name.end()), first_folded(name.rbegin(), name.rend())});
  }
  keep_repeated(hashed);
  std::sort(hashed.begin(), hashed.end(), [](const HashedAnimal& a, const HashedAnimal& b) {
    return a.hash != b.hash ? a.hash < b.hash : a.animal < b.animal;
  });
  return hashed;
}

bool have_same_data(const PedigreeColumns& animals, std::int32_t a, std::int32_t b) {
  const BirthDay &x = animals.birth.at(a), &y = animals.birth.at(b);
  return animals.sire.at(a) == animals.sire.at(b) && animals.dam.at(a) == animals.dam.at(b) &&
         animals.sex.at(a) == animals.sex.at(b) && x.year == y.year && x.month == y.month && x.day == y.day;
}

std::vector<std::string> words_in(std::string_view name) {
  std::vector<std::string> words;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find_first_of(" -'\""), name.size());
    std::string word = folded(name.substr(0, end));
    if (!word.empty()) words.push_back(std::move(word));
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return words;
}

/// Whether words beside a name are an affix: they say of where or of whom, as in "van de Hoeve" or "Hoeve's".
bool is_affix(std::span<const std::string> words) {
  constexpr auto links = std::to_array<std::string_view>(
      {"van", "vande", "vd",  "von", "vom", "of",  "de", "du",  "des", "di", "del", "della", "der",
       "den", "from",  "the", "s",   "zu",  "zum", "ut", "uit", "aus", "la", "les", "y"});
  return std::any_of(words.begin(), words.end(), [&](const std::string& word) { return is_among(word, links); });
}

void report_same(const PedigreeColumns& animals, std::int32_t earlier, std::int32_t animal, Findings& findings) {
  if (animals.id.at(earlier) == animals.id.at(animal)) return;  // told as an identification that stands twice
  add(findings, {.code = FindingCode::same_animal,
                 .line = animals.line_of(animal),
                 .id = animals.id.at(animal),
                 .text = keep(findings, animals.ids.at(animals.id.at(earlier))),
                 .other_line = animals.line_of(earlier)});
}

/// A large group, of founders mostly: only equal names are looked for.
void compare_equal_names(const PedigreeColumns& animals, std::span<const HashedAnimal> group, Findings& findings) {
  std::unordered_map<std::string, std::int32_t> first_with;
  for (const HashedAnimal& each : group) {
    std::string name = folded(readable(animals.name(each.animal)));
    if (name.empty()) continue;
    const auto [place, is_new] = first_with.try_emplace(std::move(name), each.animal);
    if (!is_new && have_same_data(animals, place->second, each.animal)) {
      report_same(animals, place->second, each.animal, findings);
    }
  }
}

void compare_all_names(const PedigreeColumns& animals, std::span<const HashedAnimal> group, Findings& findings) {
  for (std::size_t k = 1; k < group.size(); ++k) {
    const std::int32_t animal = group[k].animal;
    for (std::size_t before = 0; before < k; ++before) {
      const std::int32_t earlier = group[before].animal;
      const bool is_same = !are_plainly_others(group[before], group[k]) &&
                           are_same_name(readable(animals.name(earlier)), readable(animals.name(animal))) &&
                           have_same_data(animals, earlier, animal);
      if (!is_same) continue;
      report_same(animals, earlier, animal, findings);
      break;
    }
  }
}

}  // namespace

bool are_same_name(std::string_view a, std::string_view b) {
  constexpr std::size_t shortest = 3;
  std::vector<std::string> words = words_in(a), others = words_in(b);
  if (words.size() > others.size()) std::swap(words, others);
  std::string name, other;
  for (const std::string& word : words) name += word;
  for (const std::string& word : others) other += word;
  if (name.empty() || name == other) return !name.empty();
  if (name.size() < shortest || words.size() == others.size()) return false;
  const std::span<const std::string> longer = others;
  const bool is_begin = std::equal(words.begin(), words.end(), longer.begin());
  const bool is_end = std::equal(words.rbegin(), words.rend(), others.rbegin());
  return (is_begin && is_affix(longer.subspan(words.size()))) ||
         (is_end && is_affix(longer.first(longer.size() - words.size())));
}

void check_same_animals(const PedigreeColumns& animals, Findings& findings) {
  constexpr std::size_t most_compared = 30;  // more young of one sex than any litter has
  const std::vector<HashedAnimal> hashed = hash_animals(animals);
  for (std::size_t begin = 0; begin < hashed.size();) {
    std::size_t end = begin + 1;
    while (end < hashed.size() && hashed[end].hash == hashed[begin].hash) ++end;
    const auto group = std::span(hashed).subspan(begin, end - begin);
    const std::int32_t first = group.front().animal;
    const bool has_parent = animals.sire.at(first) != 0 || animals.dam.at(first) != 0;
    if (group.size() > 1 && has_parent && group.size() <= most_compared) {
      compare_all_names(animals, group, findings);
    } else if (group.size() > 1) {
      compare_equal_names(animals, group, findings);
    }
    begin = end;
  }
}

}  // namespace pedigreewatch
