// The survey knows the parents; one reading of the export, which ends as soon as no column is left, tells which of them
// stand in other columns.

#include "intake/rival_ids.h"

#include <algorithm>
#include <unordered_set>

#include "core/text_index.h"
#include "intake/animal_lines.h"
#include "intake/column_evidence.h"
#include "intake/column_recognition.h"
#include "intake/export_records.h"
#include "intake/heading_words.h"

namespace pedigreewatch {
namespace {

struct RivalId {
  std::size_t place = 0;
  bool is_called_id = false;                  ///< by its heading
  bool differs = false;                       ///< from the id, on a line that has both
  std::int64_t texts = 0;                     ///< those of the sample
  std::int64_t named = 0;                     ///< animals without an id that it names
  std::unordered_set<std::uint32_t> ids;      ///< their hashes
  std::unordered_set<std::uint32_t> parents;  ///< those that are parents
};

constexpr unsigned parent_roles = sire_role | dam_role;

/// Whether the heading of a column may be that of identifications of the animal, and whether it says so.
bool may_be_id(const ColumnChoice& columns, std::size_t place, bool& is_called_id) {
  if (!columns.has_header) return true;
  const HeadingMeaning meaning = read_heading(columns.headings[place]);
  if (meaning.owner != HeadingOwner::animal) return false;
  const FieldCode code = meaning_of(columns.headings[place]).code;
  is_called_id = meaning.thing == HeadingThing::identification || code == id_column;
  return is_called_id || (meaning.thing == HeadingThing::none && !meaning.is_understood && code == unused_column);
}

std::vector<RivalId> ids_by_heading(const ColumnChoice& columns) {
  std::vector<RivalId> rivals;
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    RivalId rival;
    rival.place = place;
    if (!holds_field(columns, place) && may_be_id(columns, place, rival.is_called_id)) rivals.push_back(rival);
  }
  return rivals;
}

void compare(RivalId& rival, const ExportRecord& record, std::string_view id, const ParentLinks& links) {
  if (rival.place >= record.fields.size()) return;
  const std::string_view text = trimmed(record.fields[rival.place]);
  if (means_unknown(text)) return;
  rival.differs = rival.differs || (text != id && !means_unknown(id));
  rival.named += means_unknown(id) ? 1 : 0;
  const std::uint32_t hash = hash_of_text(text);
  if ((hash & links.mask) != 0) return;
  ++rival.texts;
  rival.ids.insert(hash);
  const auto found = links.ids.find(hash);
  if (found != links.ids.end() && (found->second.roles & parent_roles) != 0) rival.parents.insert(hash);
}

/// Parents are a large part of all animals: where so many texts were no parent, the others are none either.
bool is_hopeless(const RivalId& rival) {
  constexpr std::int64_t judged_texts = 500;
  return rival.texts >= judged_texts && rival.parents.empty() && rival.named * animals_with_one_unnamed <= rival.texts;
}

}  // namespace

std::vector<std::size_t> find_rival_ids(const ExportTable& table, const ParentLinks& links,
                                        const PrepareOptions& options) {
  const ColumnChoice& columns = table.columns;
  const bool is_wished = std::any_of(options.columns.begin(), options.columns.end(),
                                     [](const ColumnWish& wish) { return wish.code == id_column; });
  if (is_wished || !columns.animals_of_line.empty()) return {};
  std::vector<RivalId> rivals = ids_by_heading(columns);
  std::int64_t parents = 0, with_line = 0;
  for (const auto& [hash, id] : links.ids) {
    if ((id.roles & parent_roles) == 0) continue;
    ++parents;
    with_line += (id.roles & animal_role) != 0 ? 1 : 0;
  }
  if (parents < fewest_explained_parents) return {};
  RecordReader reader = read_animals(table.text, table.delimiter, columns);
  ExportRecord record;
  std::int64_t animals = 0, unnamed = 0;
  while (!rivals.empty() && next_animal(reader, record, columns)) {
    const std::string_view id = trimmed(field_of(record, columns, id_column));
    ++animals;
    unnamed += means_unknown(id) ? 1 : 0;
    for (RivalId& rival : rivals) compare(rival, record, id, links);
    std::erase_if(rivals, is_hopeless);
  }
  std::vector<std::size_t> places;
  for (const RivalId& rival : rivals) {
    const std::int64_t held = std::ssize(rival.parents);
    const bool holds_as_many = held * 100 >= with_line * rival_percent && held * 2 > parents;
    const bool is_id = are_nearly_different(std::ssize(rival.ids), rival.texts);
    const bool names_more = unnamed * animals_with_one_unnamed > animals && rival.named * 2 > unnamed;
    const bool is_rival = (is_id && rival.differs && holds_as_many) || ((is_id || rival.is_called_id) && names_more);
    if (is_rival) places.push_back(rival.place);
  }
  return places;
}

}  // namespace pedigreewatch
