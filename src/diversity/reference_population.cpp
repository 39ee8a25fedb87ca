// The years are looked up in the store; a list is indexed, and the identifications of all animals are looked up in it.

#include "diversity/reference_population.h"

#include <algorithm>
#include <string_view>

#include "checks/readable_text.h"
#include "core/text_index.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t youngest_years = 10;

template <typename Wanted>
std::vector<std::int32_t> positions_where(const PopulationStore& store, Wanted&& is_wanted) {
  std::vector<std::int32_t> positions;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (is_wanted(position)) positions.push_back(position);
  }
  return positions;
}

bool is_born_between(const PopulationStore& store, std::int32_t position, std::int64_t first, std::int64_t last) {
  const std::int32_t year = store.birth_year[position];
  return year != 0 && year >= first && year <= last;
}

std::string_view without_byte_order_mark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  return text;
}

/// What a line of the list stands for: cut where the data file's identifications are cut, and in UTF-8.
std::string id_of_line(std::string_view line) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::string_view text = without_byte_order_mark(line);
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  const std::size_t end = text.find_last_not_of(blanks) + 1;
  return readable(AnimalId(text.substr(begin, end - begin)).trimmed());
}

/// The lines of a list with an index of them; of lines with one identification the first is found.
struct IdList {
  std::vector<std::string> ids;  ///< by line - 1; empty for a blank line
  TextIndex index;
  std::vector<char> is_found;  ///< by line - 1

  std::string_view at(std::int32_t line) const { return ids[static_cast<std::size_t>(line) - 1]; }
};

IdList index_list(std::span<const std::string> lines) {
  IdList list;
  reserve_texts(list.index, lines.size());
  const auto text_at = [&](std::int32_t line) { return list.at(line); };
  for (const std::string& line : lines) {
    list.ids.push_back(id_of_line(line));
    if (list.ids.back().empty()) continue;
    find_or_add_text(list.index, list.ids.back(), static_cast<std::int32_t>(list.ids.size()), text_at);
  }
  list.is_found.assign(list.ids.size(), 0);
  return list;
}

}  // namespace

ReferencePopulation youngest_animals(const PopulationStore& store) {
  ReferencePopulation reference;
  if (store.birth_years.last < store.birth_years.first) return reference;
  const std::int64_t last = store.birth_years.last;
  const std::int64_t first = std::max<std::int64_t>(last - youngest_years + 1, store.birth_years.first);
  reference.first_year = static_cast<std::int32_t>(first);
  reference.last_year = store.birth_years.last;
  reference.positions = positions_where(store, [&](std::int32_t position) {
    return is_born_between(store, position, first, last) && store.sire_no[position] != 0 && store.dam_no[position] != 0;
  });
  return reference;
}

ReferencePopulation animals_born(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year) {
  ReferencePopulation reference{ReferenceChoice::years, first_year, last_year, {}};
  reference.positions = positions_where(
      store, [&](std::int32_t position) { return is_born_between(store, position, first_year, last_year); });
  return reference;
}

ReferencePopulation listed_animals(const PopulationStore& store, std::span<const std::string> ids,
                                   std::vector<UnusedId>& unknown) {
  IdList list = index_list(ids);
  const auto text_at = [&](std::int32_t line) { return list.at(line); };
  const auto line_of = [&](std::string_view id) { return find_text(list.index, id, text_at); };
  ReferencePopulation reference{ReferenceChoice::listed, 0, 0, {}};
  reference.positions = positions_where(store, [&](std::int32_t position) {
    const std::string_view id = without_trailing_blanks(store.id(position));
    const std::int32_t line = is_utf_8(id) ? line_of(id) : line_of(readable(id));
    if (line != 0) list.is_found[static_cast<std::size_t>(line) - 1] = 1;
    return line != 0;
  });
  for (std::size_t i = 0; i < list.ids.size(); ++i) {
    const std::int32_t line = line_of(list.ids[i]);
    if (line == 0 || list.is_found[static_cast<std::size_t>(line) - 1] != 0) continue;
    unknown.push_back({static_cast<std::int64_t>(i) + 1, ids[i]});
  }
  return reference;
}

}  // namespace pedigreewatch
