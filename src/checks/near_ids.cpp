// Two texts one letter apart share a text with a letter left out: all of these are hashed, those of the identifications
// that are sought into a table, and those of the animals are looked up in it. The work grows with the letters of the
// file, not with the pairs of its animals. Identifications two slips apart are compared one by one, as far as the pairs
// are few.

#include "checks/near_ids.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <utility>

#include "checks/readable_text.h"
#include "core/memory_hints.h"
#include "core/side_by_side.h"
#include "text/plain_letters.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

using Hash = std::uint64_t;

constexpr Hash letter_factor = 0x9E3779B97F4A7C15ULL;
constexpr std::size_t longest_id = 64;

bool is_capital(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

bool has_only_digits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), is_digit);
}

char capital_of(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// The text without invisible letters; ASCII is left as it is.
std::string visible_text(std::string_view id) {
  const std::string decoded = readable(id);
  std::string text;
  for (std::string_view rest = decoded; !rest.empty();) {
    const char32_t letter = take_letter(rest);
    if (!is_invisible(letter)) append_letter(text, letter);
  }
  return text;
}

/// An identification in both forms.
struct IdForms {
  std::string compact;
  std::string loose;  ///< without zeros in front of numbers
};

/// The forms of a text without invisible letters.
IdForms forms_of_visible(std::string_view id) {
  IdForms forms;
  forms.compact.reserve(id.size());
  forms.loose.reserve(id.size());
  const bool has_digit = std::any_of(id.begin(), id.end(), is_digit);
  const auto letter_at = [&](std::size_t place) {
    const char letter = capital_of(id[place]);
    if (has_digit && letter == 'O') return '0';
    return has_digit && (letter == 'I' || letter == 'L') ? '1' : letter;
  };
  bool is_behind_digit = false;  // of the same number, zeros in front of it left out
  for (std::size_t i = 0; i < id.size(); ++i) {
    const char letter = letter_at(i);
    const bool is_sign = !is_digit(letter) && !is_capital(letter) && static_cast<unsigned char>(letter) < 0x80;
    const bool goes_on = i + 1 < id.size() && is_digit(letter_at(i + 1));
    const bool is_leading_zero = letter == '0' && !is_behind_digit && goes_on;
    if (!is_sign) forms.compact.push_back(letter);
    if (!is_sign && !is_leading_zero) forms.loose.push_back(letter);
    is_behind_digit = is_digit(letter) && !is_leading_zero;
  }
  return forms;
}

IdForms forms_of(std::string_view id) {
  return forms_of_visible(is_ascii(id) ? id : std::string_view(visible_text(id)));
}

Hash mixed(Hash hash) {
  hash ^= hash >> 31;
  hash *= 0xBF58476D1CE4E5B9ULL;
  return hash ^ (hash >> 29);
}

/// The hashes of a text, of the text with each of its letters left out, and of its ends.
struct TextHashes {
  std::array<Hash, longest_id + 1> hashes = {};  ///< the text itself first
  std::size_t count = 0;
  std::array<Hash, longest_id + 1> ends = {};  ///< of what stands from a letter on, not mixed
  std::size_t length = 0;
};

void hash_text(std::string_view text, TextHashes& result) {
  static constexpr auto powers = [] {
    std::array<Hash, longest_id + 1> values = {1};
    for (std::size_t i = 1; i < values.size(); ++i) values[i] = values[i - 1] * letter_factor;
    return values;
  }();
  text = text.substr(0, longest_id);
  const std::size_t n = text.size();
  result.length = n;
  result.ends[n] = 0;
  for (std::size_t i = n; i > 0; --i) {
    result.ends[i - 1] = result.ends[i] + (static_cast<unsigned char>(text[i - 1]) + Hash{1}) * powers[n - i];
  }
  result.count = 0;
  result.hashes[result.count++] = mixed(result.ends[0]);
  Hash before = 0;  // of the letters before the one left out, as if the rest had one letter less
  for (std::size_t i = 0; i < n; ++i) {
    const bool is_like_last = i > 0 && text[i] == text[i - 1];  // without it the same is left
    if (!is_like_last) result.hashes[result.count++] = mixed(before + result.ends[i + 1]);
    if (i + 1 < n) before += (static_cast<unsigned char>(text[i]) + Hash{1}) * powers[n - 2 - i];
  }
}

constexpr std::size_t shortest_end = 4, most_lacking = 8;

/// Where the number begins behind the letters of a prefix; 0: there is no such prefix.
std::size_t prefix_length(std::string_view loose) {
  constexpr std::size_t fewest_digits = 3;
  const auto first_digit = static_cast<std::size_t>(std::find_if(loose.begin(), loose.end(), is_digit) - loose.begin());
  const bool is_number = has_only_digits(loose.substr(first_digit)) && loose.size() >= first_digit + fewest_digits;
  return is_number ? first_digit : 0;
}

std::string_view without_zeros(std::string_view digits) {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

bool look_alike(char a, char b) {
  constexpr std::array<std::string_view, 6> groups = {"5S", "8B", "2Z", "6G", "0DQ", "UV"};
  return std::any_of(groups.begin(), groups.end(), [&](std::string_view group) {
    return group.find(a) != std::string_view::npos && group.find(b) != std::string_view::npos;
  });
}

/// The number of slips between two texts, changes of neighbours among them (Damerau, 1964), if it is two at most;
/// more than two otherwise.
std::size_t distance_up_to_two(std::string_view a, std::string_view b) {
  constexpr std::size_t far = 3, band = 2;
  if (a.size() > b.size()) std::swap(a, b);
  if (b.size() - a.size() > band || b.size() > longest_id) return far;
  std::array<std::array<std::size_t, longest_id + 2>, 3> rows = {};
  for (std::size_t j = 0; j <= b.size(); ++j) rows[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    auto &row = rows[i % 3], &last = rows[(i + 2) % 3], &before_last = rows[(i + 1) % 3];
    const std::size_t first = i > band ? i - band : 0, end = std::min(b.size(), i + band);
    std::size_t least = far;
    for (std::size_t j = first; j <= end; ++j) {
      std::size_t value = far;
      if (j == 0) value = i;
      if (j > 0) value = std::min(value, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1));
      if (j < i + band || j == 0) value = std::min(value, last[j] + 1);
      if (j > first) value = std::min(value, row[j - 1] + 1);
      const bool is_exchange = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (is_exchange && j - 2 + band >= i - 2) value = std::min(value, before_last[j - 2] + 1);
      row[j] = value;
      least = std::min(least, value);
    }
    if (least >= far) return far;
  }
  return std::min(rows[a.size() % 3][b.size()], far);
}

/// The slip of texts that differ from `first` on, up to a common end.
Slip single_slip(std::string_view written, std::string_view meant, std::size_t first) {
  const std::string_view rest = written.substr(first), other = meant.substr(first);
  if (rest.size() + 1 == other.size() && rest == other.substr(1)) {
    if (rest.empty()) return Slip::last_lacking;
    return (first > 0 && meant[first - 1] == other[0]) || rest[0] == other[0] ? Slip::doubled : Slip::lacking;
  }
  if (rest.size() == other.size() + 1 && rest.substr(1) == other) {
    return first > 0 && written[first - 1] == rest[0] ? Slip::doubled : Slip::too_many;
  }
  if (rest.size() != other.size() || rest.empty()) return Slip::none;
  if (rest.substr(1) == other.substr(1)) {
    if (look_alike(rest[0], other[0])) return Slip::look_alike;
    return is_digit(rest[0]) && is_digit(other[0]) ? Slip::digit : Slip::letter;
  }
  const bool is_exchange = rest.size() >= 2 && rest[0] == other[1] && rest[1] == other[0];
  return is_exchange && rest.substr(2) == other.substr(2) ? Slip::exchange : Slip::none;
}

/// Whether one of the texts is the number of the other without its prefix.
bool is_prefix_slip(std::string_view shorter, std::string_view longer) {
  const std::size_t prefix = prefix_length(longer);
  return prefix > 0 && has_only_digits(shorter) && without_zeros(longer.substr(prefix)) == without_zeros(shorter);
}

bool are_too_short(std::string_view a, std::string_view b) {
  constexpr std::size_t shortest = 3;
  return std::min(a.size(), b.size()) + 1 < shortest;
}

/// One slip or none; whether there are two is not looked at.
Slip slip_up_to_one(std::string_view written, std::string_view meant) {
  if (written == meant) return Slip::format;
  if (is_prefix_slip(written, meant) || is_prefix_slip(meant, written)) return Slip::prefix;
  const std::size_t shorter = std::min(written.size(), meant.size());
  std::size_t first = 0;
  while (first < shorter && written[first] == meant[first]) ++first;
  if (are_too_short(written, meant)) return Slip::none;
  const Slip single = single_slip(written, meant, first);
  if (single != Slip::none) return single;
  const bool is_end = written.size() >= shortest_end && meant.size() > written.size() + 1 && meant.ends_with(written);
  return is_end && meant.size() <= written.size() + most_lacking ? Slip::beginning : Slip::none;
}

struct WantedHash {
  Hash hash = 0;
  std::uint32_t place = 0;  ///< among the wanted ones
};

/// What is sought: the forms, all their hashes in order, and which lengths of ends are worth a look.
struct Sought {
  std::vector<IdForms> ids;
  std::vector<WantedHash> hashes;
  std::vector<std::uint64_t> filter;   ///< a small map of hashes, so that nearly all others cost one look
  std::vector<std::uint32_t> buckets;  ///< where the hashes with the same first bits begin
  int bucket_bits = 0;
  std::vector<std::size_t> end_lengths;

  std::size_t word_of(Hash hash) const { return hash / 64 & (filter.size() - 1); }  // their number is a power of two
  bool may_have(Hash hash) const { return (filter[word_of(hash)] >> (hash % 64) & 1U) != 0; }
  void fetch_early_of(Hash hash) const { fetch_early(&filter[word_of(hash)]); }
  std::size_t bucket_of(Hash hash) const { return hash >> (64 - bucket_bits); }
};

/// Makes the map and the buckets of the hashes, which are in order.
void index_hashes(Sought& sought) {
  constexpr std::size_t bits_per_hash = 32;
  const std::size_t count = std::bit_ceil(sought.hashes.size() + 2);
  sought.filter.assign(count * bits_per_hash / 64, 0);
  sought.bucket_bits = std::max(std::countr_zero(count), 1);
  sought.buckets.assign((std::size_t{1} << sought.bucket_bits) + 1, 0);
  for (const WantedHash& each : sought.hashes) {
    sought.filter[sought.word_of(each.hash)] |= std::uint64_t{1} << (each.hash % 64);
    ++sought.buckets[sought.bucket_of(each.hash) + 1];
  }
  std::partial_sum(sought.buckets.begin(), sought.buckets.end(), sought.buckets.begin());
}

Hash hash_of_whole(std::string_view text) {
  Hash hash = 0;
  for (const char letter : text.substr(0, longest_id)) {
    hash = hash * letter_factor + static_cast<unsigned char>(letter) + Hash{1};
  }
  return mixed(hash);
}

/// The hash of the number behind a prefix of this length; `hashes` are those of the whole text.
Hash hash_of_number(const TextHashes& hashes, std::string_view text, std::size_t prefix) {
  text = text.substr(0, longest_id);
  return mixed(hashes.ends[text.size() - without_zeros(text.substr(std::min(prefix, text.size()))).size()]);
}

Sought prepare_search(const PedigreeColumns& animals, std::span<const std::int32_t> wanted) {
  Sought sought;
  TextHashes hashes;
  const auto add_hash = [&](Hash hash, std::size_t place) {
    sought.hashes.push_back({hash, static_cast<std::uint32_t>(place)});
  };
  for (std::size_t place = 0; place < wanted.size(); ++place) {
    sought.ids.push_back(forms_of(animals.ids.at(wanted[place])));
    const std::string_view text = sought.ids.back().compact;
    hash_text(text, hashes);
    for (std::size_t k = 0; k < hashes.count; ++k) add_hash(hashes.hashes[k], place);
    add_hash(hash_of_whole(sought.ids.back().loose), place);
    const std::size_t prefix = prefix_length(text);
    if (prefix > 0) add_hash(hash_of_number(hashes, text, prefix), place);
    const auto known = std::find(sought.end_lengths.begin(), sought.end_lengths.end(), text.size());
    constexpr std::size_t most_lengths = 8;
    const bool is_new = known == sought.end_lengths.end() && sought.end_lengths.size() < most_lengths;
    if (is_new && text.size() >= shortest_end && text.size() <= longest_id) sought.end_lengths.push_back(text.size());
  }
  std::sort(sought.hashes.begin(), sought.hashes.end(), [](const WantedHash& a, const WantedHash& b) {
    return a.hash != b.hash ? a.hash < b.hash : a.place < b.place;
  });
  const auto is_same = [](const WantedHash& a, const WantedHash& b) { return a.hash == b.hash && a.place == b.place; };
  sought.hashes.erase(std::unique(sought.hashes.begin(), sought.hashes.end(), is_same), sought.hashes.end());
  index_hashes(sought);
  return sought;
}

constexpr std::size_t most_near = 4000;  // animals that are kept for each of the wanted ones

/// The results, each animal once for each of the wanted ones.
struct Found {
  std::vector<std::vector<NearAnimal>> near;

  bool has(std::size_t place, std::int32_t animal) const {
    return std::any_of(near[place].begin(), near[place].end(),
                       [&](const NearAnimal& each) { return each.animal == animal; });
  }
  void add(std::size_t place, std::int32_t animal, Slip slip) {
    std::vector<NearAnimal>& list = near[place];
    const bool is_known = !list.empty() && list.back().animal == animal;
    if (!is_known && list.size() < most_near) list.push_back({animal, slip});
  }
};

void look_up(const Sought& sought, Hash hash, const IdForms& id, std::int32_t animal, Found& found) {
  if (!sought.may_have(hash)) return;
  const std::size_t bucket = sought.bucket_of(hash);
  auto each = sought.hashes.begin() + sought.buckets[bucket];
  const auto end = sought.hashes.begin() + sought.buckets[bucket + 1];
  while (each != end && each->hash < hash) ++each;
  constexpr int most_looked_at = 300;  // ids that all have one letter in common place are no slips
  for (int k = 0; k < most_looked_at && each != end && each->hash == hash; ++k, ++each) {
    const IdForms& written = sought.ids[each->place];
    const Slip slip = written.loose == id.loose ? Slip::format : slip_up_to_one(written.compact, id.compact);
    if (slip != Slip::none) found.add(each->place, animal, slip);
  }
}

/// An animal whose identification waits until what its hashes lead to has come from memory.
struct WaitingAnimal {
  IdForms id;
  std::int32_t animal = 0;
  TextHashes hashes;
};
using WaitingAnimals = std::array<WaitingAnimal, 4>;

void begin_search(const Sought& sought, IdForms id, std::int32_t animal, WaitingAnimal& waiting) {
  waiting.id = std::move(id);
  waiting.animal = animal;
  hash_text(waiting.id.compact, waiting.hashes);
  for (std::size_t k = 0; k < waiting.hashes.count; ++k) sought.fetch_early_of(waiting.hashes.hashes[k]);
}

/// Looks up an animal's identification.
void look_up_all(const Sought& sought, const WaitingAnimal& waiting, Found& found) {
  const TextHashes& hashes = waiting.hashes;
  const IdForms& id = waiting.id;
  if (id.loose.size() != id.compact.size()) look_up(sought, hash_of_whole(id.loose), id, waiting.animal, found);
  for (std::size_t k = 0; k < hashes.count; ++k) look_up(sought, hashes.hashes[k], id, waiting.animal, found);
  for (const std::size_t length : sought.end_lengths) {
    if (length + 1 >= hashes.length || length + most_lacking < hashes.length) continue;
    look_up(sought, mixed(hashes.ends[hashes.length - length]), id, waiting.animal, found);
  }
  const std::size_t prefix = prefix_length(id.compact);
  if (prefix > 0) look_up(sought, hash_of_number(hashes, id.compact, prefix), id, waiting.animal, found);
}

/// Looks up the animals of some identifications, each some turns after the search for it has begun. `compact_ids` get
/// the forms that are compared in pairs, unless there is no room for them.
void look_up_animals(const PedigreeColumns& animals, const Sought& sought, WorkPart ids,
                     std::span<std::string> compact_ids, Found& found) {
  WaitingAnimals waiting;
  std::size_t count = 0;
  const auto finish = [&](std::size_t number) {
    WaitingAnimal& done = waiting[number % waiting.size()];
    look_up_all(sought, done, found);
    const auto place = static_cast<std::size_t>(animals.id.at(done.animal));
    if (!compact_ids.empty()) compact_ids[place] = std::move(done.id.compact);
  };
  for (auto id = static_cast<std::int32_t>(ids.begin); id < ids.end; ++id) {
    const std::int32_t animal = animals.animal_of[id];
    if (animal == 0) continue;
    IdForms forms = forms_of(animals.ids.at(id));
    if (forms.compact.empty()) continue;
    if (count >= waiting.size()) finish(count);
    begin_search(sought, std::move(forms), animal, waiting[count++ % waiting.size()]);
  }
  for (std::size_t k = count - std::min(count, waiting.size()); k < count; ++k) finish(k);
}

/// Puts what another part of the search has found behind what is known; no animal is in both.
void add_found(const Found& other, Found& found) {
  for (std::size_t place = 0; place < found.near.size(); ++place) {
    std::vector<NearAnimal>& list = found.near[place];
    const std::vector<NearAnimal>& more = other.near[place];
    const std::size_t count = std::min(more.size(), most_near - std::min(most_near, list.size()));
    list.insert(list.end(), more.begin(), more.begin() + static_cast<std::ptrdiff_t>(count));
  }
}

/// Looks up all animals, as many parts of them at once as there are threads.
void look_up_side_by_side(const PedigreeColumns& animals, const Sought& sought, std::span<std::string> compact_ids,
                          std::int32_t threads, Found& found) {
  const std::int32_t parts = std::max(threads, 1);
  std::vector<Found> found_by(static_cast<std::size_t>(parts), found);
  std::vector<Task> tasks;
  for (std::int32_t part = 0; part < parts; ++part) {
    const WorkPart ids = part_of_work(1, animals.ids.count(), part, parts);
    Found& own = found_by[static_cast<std::size_t>(part)];
    tasks.emplace_back([&, ids] { look_up_animals(animals, sought, ids, compact_ids, own); });
  }
  do_side_by_side(tasks, threads);
  for (const Found& each : found_by) add_found(each, found);
}

/// Which of 64 letters occur: two slips change four of them at most.
std::uint64_t letters_in(std::string_view text) {
  std::uint64_t letters = 0;
  for (const char letter : text) letters |= std::uint64_t{1} << (static_cast<unsigned char>(letter) % 64U);
  return letters;
}

void compare_pairs(const PedigreeColumns& animals, std::span<const IdForms> wanted,
                   std::span<const std::string> compact_ids, Found& found) {
  constexpr int most_changed = 4;
  constexpr std::size_t shortest = 5;
  std::vector<std::uint64_t> letters;
  for (const IdForms& id : wanted) letters.push_back(letters_in(id.compact));
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    const std::int32_t animal = animals.animal_of[id];
    if (animal == 0) continue;
    const std::string& text = compact_ids[static_cast<std::size_t>(id)];
    const std::uint64_t own = letters_in(text);
    for (std::size_t place = 0; place < wanted.size(); ++place) {
      const std::string& written = wanted[place].compact;
      if (written.size() < shortest || std::popcount(letters[place] ^ own) > most_changed) continue;
      if (slip_between(written, text) == Slip::two && !found.has(place, animal)) {
        found.near[place].push_back({animal, Slip::two});
      }
    }
  }
}

}  // namespace

std::string loose_id(std::string_view id) {
  return forms_of(id).loose;
}

std::string compact_id(std::string_view id) {
  return forms_of(id).compact;
}

Slip slip_of_ids(std::string_view written, std::string_view meant) {
  const IdForms a = forms_of(written), b = forms_of(meant);
  return a.loose == b.loose ? Slip::format : slip_between(a.compact, b.compact);
}

bool is_one_letter_off(std::string_view a, std::string_view b) {
  const auto same = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  return a != b && single_slip(a, b, static_cast<std::size_t>(same.first - a.begin())) != Slip::none;
}

Slip slip_between(std::string_view written, std::string_view meant) {
  const Slip slip = slip_up_to_one(written, meant);
  if (slip != Slip::none || are_too_short(written, meant)) return slip;
  return distance_up_to_two(written, meant) <= 2 ? Slip::two : Slip::none;
}

double chance_of(Slip slip, std::size_t length) {
  constexpr std::size_t fewest_places = 2;
  constexpr double of_format = 0.3, of_prefix = 0.1, of_beginning = 0.02, of_exchange = 0.2, of_doubled = 0.1,
                   of_last_lacking = 0.05, of_lacking = 0.15, of_too_many = 0.1, of_look_alike = 0.1, of_digit = 0.2,
                   of_letter = 0.1, of_two = 0.05;
  constexpr double other_digits = 9, other_letters = 35;
  const auto n = static_cast<double>(std::max(length, fewest_places));
  switch (slip) {
    case Slip::none: return 0;
    case Slip::format: return of_format;
    case Slip::prefix: return of_prefix;
    case Slip::beginning: return of_beginning;
    case Slip::exchange: return of_exchange / (n - 1);
    case Slip::doubled: return of_doubled / n;
    case Slip::last_lacking: return of_last_lacking + of_lacking / n;
    case Slip::lacking: return of_lacking / n;
    case Slip::too_many: return of_too_many / n / other_digits;
    case Slip::look_alike: return of_look_alike / n;
    case Slip::digit: return of_digit / n / other_digits;
    case Slip::letter: return of_letter / n / other_letters;
    case Slip::two: return of_two / (n * other_digits) / (n * other_digits) * 2;  // whichever of both comes first
  }
  return 0;
}

std::vector<std::vector<NearAnimal>> find_near_animals(const PedigreeColumns& animals,
                                                       std::span<const std::int32_t> wanted, std::size_t compared_count,
                                                       std::int32_t threads) {
  Found found;
  found.near.resize(wanted.size());
  if (wanted.empty()) return std::move(found.near);
  const Sought sought = prepare_search(animals, wanted);
  constexpr std::size_t most_pairs = 3'000'000;
  compared_count = std::min(compared_count, wanted.size());
  const bool compares_pairs = compared_count * static_cast<std::size_t>(animals.count()) <= most_pairs;
  std::vector<std::string> compact_ids(compares_pairs ? static_cast<std::size_t>(animals.ids.count()) + 1 : 0);
  look_up_side_by_side(animals, sought, compact_ids, threads, found);
  if (compares_pairs) compare_pairs(animals, std::span(sought.ids).first(compared_count), compact_ids, found);
  return std::move(found.near);
}

}  // namespace pedigreewatch
