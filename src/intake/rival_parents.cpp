// The headings tell which columns are compared; one reading of the export, which ends as soon as none is left, tells
// how they differ; the survey tells whether what they hold are animals of the right sex.

#include "intake/rival_parents.h"

#include <algorithm>
#include <unordered_set>

#include "core/text_index.h"
#include "intake/animal_lines.h"
#include "intake/column_recognition.h"
#include "intake/content_choice.h"
#include "intake/heading_words.h"
#include "intake/sex_choice.h"

namespace pedigreewatch {
namespace {

struct Rival {
  std::size_t place = 0;
  bool names_parent = false;              ///< by its heading
  std::int64_t compared = 0, equal = 0;   ///< lines that have a text in both columns
  bool differs = false;                   ///< names a parent, and another one, or where there is none
  std::unordered_set<std::uint32_t> ids;  ///< hashes of its texts, those of the survey's sample
};

/// Whether the heading of a column may be that of a parent, and whether it says so.
bool may_be_parent(const ColumnChoice& columns, std::size_t place, FieldCode parent, bool& names_parent) {
  if (!columns.has_header) return true;
  const HeadingMeaning meaning = read_heading(columns.headings[place]);
  const HeadingOwner owner = parent == sire_column ? HeadingOwner::sire : HeadingOwner::dam;
  if (meaning.owner == owner) {
    names_parent = meaning.thing == HeadingThing::none || meaning.thing == HeadingThing::identification;
    return names_parent || meaning.thing == HeadingThing::other_date;  // "changed sire", but also "served by sire"
  }
  return meaning.owner == HeadingOwner::animal && !meaning.is_understood &&
         meaning_of(columns.headings[place]).code == unused_column;
}

std::vector<Rival> rivals_by_heading(const ColumnChoice& columns, FieldCode parent) {
  std::vector<Rival> rivals;
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    Rival rival = {place, false, 0, 0, false, {}};
    if (!holds_field(columns, place) && may_be_parent(columns, place, parent, rival.names_parent))
      rivals.push_back(std::move(rival));
  }
  return rivals;
}

bool agrees(const Rival& rival) {
  return rival.equal * 100 > rival.compared * agreeing_percent;
}

bool is_unknown(std::string_view text, const ExportTable& table) {
  return means_unknown_parent(text) ||
         std::find(table.unknown.begin(), table.unknown.end(), text) != table.unknown.end();
}

/// Compares the texts of one line.
void compare(Rival& rival, const ExportRecord& record, std::string_view chosen, const ExportTable& table,
             std::uint32_t mask) {
  if (rival.place >= record.fields.size()) return;
  const std::string_view text = trimmed(record.fields[rival.place]);
  if (is_unknown(text, table)) return;
  const bool has_both = !is_unknown(chosen, table);
  rival.compared += has_both ? 1 : 0;
  rival.equal += has_both && text == chosen ? 1 : 0;
  rival.differs = rival.differs || text != chosen;
  const std::uint32_t hash = hash_of_text(text);
  if ((hash & mask) == 0) rival.ids.insert(hash);
}

/// Whether more than half of the texts are animals, hardly any of which is of the wrong sex.
bool holds_parents(const Rival& rival, const ExportSurvey& survey, FieldCode parent,
                   std::span<const SexMeaning> sexes) {
  const SexMeaning wrong_sex = parent == sire_column ? SexMeaning::female : SexMeaning::male;
  std::int64_t with_line = 0, wrong = 0;
  for (const std::uint32_t hash : rival.ids) {
    const auto found = survey.links.ids.find(hash);
    if (found == survey.links.ids.end() || (found->second.roles & animal_role) == 0) continue;
    ++with_line;
    const std::int32_t sex = found->second.sex;
    const bool has_sex = sex >= 0 && static_cast<std::size_t>(sex) < sexes.size();
    wrong += has_sex && sexes[static_cast<std::size_t>(sex)] == wrong_sex ? 1 : 0;
  }
  const std::int64_t different = std::ssize(rival.ids);
  const bool are_enough = rival.names_parent || (different >= fewest_judged_parents && agrees(rival));
  return are_enough && with_line * 2 > different && wrong * deciding_majority <= with_line;
}

}  // namespace

std::vector<std::size_t> find_rival_parents(const ExportTable& table, const ExportSurvey& survey, FieldCode parent,
                                            const PrepareOptions& options) {
  constexpr std::int64_t judged_lines = 2000;  // enough to see that a column says something else
  const bool is_wished = std::any_of(options.columns.begin(), options.columns.end(),
                                     [&](const ColumnWish& wish) { return wish.code == parent; });
  if (is_wished || !table.columns.place[parent]) return {};
  std::vector<Rival> rivals = rivals_by_heading(table.columns, parent);
  RecordReader reader = read_animals(table.text, table.delimiter, table.columns);
  ExportRecord record;
  while (!rivals.empty() && next_animal(reader, record, table.columns)) {
    const std::string_view chosen = trimmed(field_of(record, table.columns, parent));
    for (Rival& rival : rivals) compare(rival, record, chosen, table, survey.links.mask);
    std::erase_if(rivals, [&](const Rival& rival) {
      return rival.compared == judged_lines && !rival.names_parent && !agrees(rival);
    });
  }
  std::vector<Question> ignored;
  const std::vector<SexMeaning> sexes = choose_sexes(survey, options, ignored);
  std::vector<std::size_t> places;
  for (const Rival& rival : rivals) {
    if (rival.differs && holds_parents(rival, survey, parent, sexes)) places.push_back(rival.place);
  }
  return places;
}

}  // namespace pedigreewatch
