// Texts are compared in the order of the data file, in which they lie in memory; the animals that they belong to are
// looked up at the end.

#include "matings/animal_search.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

bool is_within(char32_t letter, char32_t first, char32_t last) {
  return letter >= first && letter <= last;
}

/// The small letter of a capital of the Latin, Greek and Cyrillic alphabets.
char32_t small_letter(char32_t letter) {
  constexpr char32_t distance = 0x20, cyrillic_distance = 0x50, times_sign = 0xD7;
  if (is_within(letter, 'A', 'Z')) return letter + distance;
  if (letter < 0xC0) return letter;
  if (is_within(letter, 0xC0, 0xDE) && letter != times_sign) return letter + distance;
  if (letter == 0x178) return 0xFF;
  // Extended Latin: capital and small letter by turns.
  const bool begins_even = is_within(letter, 0x100, 0x137) || is_within(letter, 0x14A, 0x177);
  const bool begins_odd = is_within(letter, 0x139, 0x148) || is_within(letter, 0x179, 0x17E);
  if ((begins_even && letter % 2 == 0) || (begins_odd && letter % 2 == 1)) return letter + 1;
  if (is_within(letter, 0x391, 0x3A9) || is_within(letter, 0x410, 0x42F)) return letter + distance;
  return is_within(letter, 0x400, 0x40F) ? letter + cyrillic_distance : letter;
}

/// What is looked for, in small letters, and what was found, as places of texts.
struct Search {
  std::u32string letters;
  std::size_t most = 0;
  std::vector<std::int32_t> exact, by_id, by_name;
};

std::u32string small_letters(std::string_view text) {
  std::u32string letters;
  while (!text.empty()) letters.push_back(small_letter(take_letter(text)));
  return letters;
}

/// Whether a text, in whatever encoding, begins with the letters.
bool begins_with(std::string_view text, std::u32string_view letters) {
  if (text.empty()) return false;
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80 && small_letter(first) != letters.front()) return false;  // nearly all texts end here
  const std::string decoded = is_ascii(text) ? std::string() : readable(text);
  std::string_view rest = decoded.empty() ? text : std::string_view(decoded);
  for (const char32_t letter : letters) {
    if (rest.empty() || small_letter(take_letter(rest)) != letter) return false;
  }
  return true;
}

void look_at(const PopulationStore& store, std::int32_t record, Search& search) {
  const std::string_view id = store.kept.ids.at(record);
  if (begins_with(id, search.letters)) {
    const bool is_exact = small_letters(readable(id)).size() == search.letters.size();
    std::vector<std::int32_t>& found = is_exact ? search.exact : search.by_id;
    if (found.size() < search.most) found.push_back(record);
  } else if (store.has_name && record <= store.kept.file_records && search.by_name.size() < search.most &&
             begins_with(store.kept.names.at(record), search.letters)) {
    search.by_name.push_back(record);
  }
}

/// The positions of the records, which differ.
std::vector<std::int32_t> positions_of(const PopulationStore& store, std::span<const std::int32_t> records) {
  std::vector<std::pair<std::int32_t, std::size_t>> wanted;
  for (std::size_t k = 0; k < records.size(); ++k) wanted.emplace_back(records[k], k);
  std::sort(wanted.begin(), wanted.end());
  std::vector<std::int32_t> positions(records.size(), 0);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::pair<std::int32_t, std::size_t> least = {store.record_no(i), 0};
    const auto found = std::lower_bound(wanted.begin(), wanted.end(), least);
    if (found != wanted.end() && found->first == least.first) positions[found->second] = i;
  }
  return positions;
}

}  // namespace

std::vector<std::int32_t> find_animals(const PopulationStore& store, std::string_view beginning, std::size_t most) {
  const std::string_view trimmed = without_leading_blanks(without_trailing_blanks(beginning));
  if (trimmed.empty() || most == 0) return {};
  Search search{small_letters(readable(trimmed)), most, {}, {}, {}};
  for (std::int32_t record = 1; record <= store.animal_count; ++record) look_at(store, record, search);
  std::vector<std::int32_t> records = std::move(search.exact);
  for (const std::vector<std::int32_t>* const found : {&search.by_id, &search.by_name}) {
    const std::size_t room = std::min(most - records.size(), found->size());
    records.insert(records.end(), found->begin(), found->begin() + static_cast<std::ptrdiff_t>(room));
  }
  return positions_of(store, records);
}

}  // namespace pedigreewatch
