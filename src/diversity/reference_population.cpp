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
  return readable(AnimalId(without_blanks(without_byte_order_mark(line))).trimmed());
}

/// The identifications of a list, numbered from 1, with an index of them; of equal ones the first is found.
struct IdIndexOfList {
  NumberedList<std::string> ids;  ///< empty for a blank one
  TextIndex index;
  ByNumber<Flag> is_found;
};

IdIndexOfList index_list(std::span<const ListedId> listed) {
  IdIndexOfList list;
  reserve_texts(list.index, listed.size());
  const auto text_at = [&](std::int32_t number) { return std::string_view(list.ids.at(number)); };
  for (const ListedId& entry : listed) {
    const std::int32_t number = list.ids.add(id_of_line(entry.id));
    if (!list.ids.at(number).empty()) find_or_add_text(list.index, list.ids.at(number), number, text_at);
  }
  list.is_found = ByNumber<Flag>(listed.size());
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
    if (!is_born_between(store, position, first, last)) return false;
    ++reference.born;
    return store.sire_no[position] != 0 && store.dam_no[position] != 0;
  });
  return reference;
}

ReferencePopulation animals_born(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year) {
  ReferencePopulation reference{ReferenceChoice::years, first_year, last_year, {}, 0};
  reference.positions = positions_where(
      store, [&](std::int32_t position) { return is_born_between(store, position, first_year, last_year); });
  reference.born = std::ssize(reference.positions);
  return reference;
}

ReferencePopulation listed_animals(const PopulationStore& store, std::span<const ListedId> ids,
                                   std::vector<ListedId>& unknown) {
  IdIndexOfList list = index_list(ids);
  const auto text_at = [&](std::int32_t number) { return std::string_view(list.ids.at(number)); };
  const auto number_of = [&](std::string_view id) { return find_text(list.index, id, text_at); };
  ReferencePopulation reference{ReferenceChoice::listed, 0, 0, {}, 0};
  reference.positions = positions_where(store, [&](std::int32_t position) {
    const std::string_view id = without_trailing_blanks(store.id(position));
    const std::int32_t number = is_utf_8(id) ? number_of(id) : number_of(readable(id));
    if (number != 0) list.is_found[number] = 1;
    return number != 0;
  });
  for (std::int32_t i = 1; const ListedId& listed : ids) {
    const std::int32_t number = number_of(list.ids.at(i++));
    if (number != 0 && list.is_found[number] == 0) unknown.push_back(listed);
  }
  return reference;
}

}  // namespace pedigreewatch
