// A column is a name and what it writes of an animal. Everything that a row shows is known but for the offspring and
// the longest line, which one pass each yields.

#include "tables/animal_table.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/leap_year.h"

namespace pedigreewatch {
namespace {

void append_digits(std::string& text, std::int32_t number, int width) {
  for (std::int32_t unit = width == 4 ? 1000 : 10; unit > 0; unit /= 10) {
    text += static_cast<char>('0' + number / unit % 10);
  }
}

/// Figures that are the same for all animals of two known parents.
struct ParentFigures {
  std::int32_t sire = 0, dam = 0;
  float completeness_index = 0.0F;
  std::optional<float> increase;
};

/// What the rows are made from.
struct AnimalRows {
  const PopulationStore& store;
  const AnimalFigures& figures;
  const ByNumber<std::int32_t>&offspring, &longest;
  ParentFigures last;  ///< of the animal at hand, or of one before it
};

void write_parent(const AnimalRows& rows, std::int32_t parent, TableWriter& writer) {
  if (parent == 0) {
    add_nothing(writer);
  } else {
    add_text(writer, rows.store.id(parent));
  }
}

void write_kinship(AnimalRows& rows, std::int32_t position, TableWriter& writer) {
  const ByNumber<float>& means = rows.figures.mean_kinship;
  if (means.values.empty()) return add_nothing(writer);
  add_real(writer, std::max(means[position], 0.0F));
}

/// Works the figures out anew for an animal that is no full sib of the one before it.
const ParentFigures& parent_figures(AnimalRows& rows, std::int32_t position) {
  const PopulationStore& store = rows.store;
  const std::int32_t sire = store.sire_no[position], dam = store.dam_no[position];
  ParentFigures& last = rows.last;
  if (sire != 0 && dam != 0 && sire == last.sire && dam == last.dam) return last;
  last = {sire, dam, static_cast<float>(completeness_index(store, rows.figures, position)), std::nullopt};
  const auto increase = individual_increase(store.inbreeding[position], double{store.generation_equivalents[position]});
  if (increase) last.increase = static_cast<float>(*increase);
  return last;
}

void write_increase(AnimalRows& rows, std::int32_t position, TableWriter& writer) {
  const std::optional<float> increase = parent_figures(rows, position).increase;
  if (!increase) return add_nothing(writer);
  add_real(writer, *increase);
}

/// An animal further on and its parents; none beyond the last one.
std::array<std::int32_t, 3> later_family(const PopulationStore& store, std::int32_t position, std::int32_t distance) {
  if (position > store.animal_count - distance) return {};
  const std::int32_t animal = position + distance;
  return {animal, store.sire_no[animal], store.dam_no[animal]};
}

/// Has fetched, each step from what the step before has brought: the record of an animal, where its text ends, its
/// text.
void fetch_texts_early(const PopulationStore& store, std::int32_t position) {
  if (!store.kept.record_of_position.values.empty()) {
    for (const std::int32_t animal : later_family(store, position, 3 * look_ahead)) {
      fetch_early(&store.kept.record_of_position[animal]);
    }
  }
  for (const std::int32_t animal : later_family(store, position, 2 * look_ahead)) {
    if (animal != 0) fetch_early(&store.kept.ids.ends[static_cast<std::size_t>(store.record_no(animal)) - 1]);
  }
  for (const std::int32_t animal : later_family(store, position, look_ahead)) {
    if (animal != 0) store.kept.ids.fetch_text_early(store.record_no(animal));
  }
}

void write_date(AnimalRows& rows, std::int32_t position, TableWriter& writer) {
  const PopulationStore& store = rows.store;
  add_day(writer, iso_date(store.birth_year[position], store.birth_month[position], store.birth_day(position)));
}

/// A column: its name, and what it writes of an animal. A name may be added or moved, but none be changed: scripts of
/// users go by it.
struct AnimalColumn {
  std::string_view name;
  void (*write)(AnimalRows& rows, std::int32_t position, TableWriter& writer);
};

using Rows = AnimalRows;
using Position = std::int32_t;
using Out = TableWriter;

constexpr auto columns = std::to_array<AnimalColumn>({
    {"id", [](Rows& rows, Position i, Out& out) { add_text(out, rows.store.id(i)); }},
    {"sire", [](Rows& rows, Position i, Out& out) { write_parent(rows, rows.store.sire_no[i], out); }},
    {"dam", [](Rows& rows, Position i, Out& out) { write_parent(rows, rows.store.dam_no[i], out); }},
    {"sex", [](Rows& rows, Position i, Out& out) { add_plain(out, rows.store.sex[i] == male ? "male" : "female"); }},
    {"birthdate", write_date},
    {"F", [](Rows& rows, Position i, Out& out) { add_real(out, std::max(rows.store.inbreeding[i], 0.0F)); }},
    {"equivalent_generations",
     [](Rows& rows, Position i, Out& out) { add_real(out, rows.store.generation_equivalents[i]); }},
    {"complete_generations",
     [](Rows& rows, Position i, Out& out) { add_integer(out, rows.store.complete_generations[i]); }},
    {"max_generations", [](Rows& rows, Position i, Out& out) { add_integer(out, rows.longest[i]); }},
    {"offspring", [](Rows& rows, Position i, Out& out) { add_integer(out, rows.offspring[i]); }},
    {"native_offspring",
     [](Rows& rows, Position i, Out& out) { add_integer(out, rows.store.native_offspring_count[i]); }},
    {"mean_kinship", write_kinship},
    {"subpopulation", [](Rows& rows, Position i, Out& out) { add_text(out, rows.store.subpopulation(i).trimmed()); }},
    {"completeness_index",
     [](Rows& rows, Position i, Out& out) { add_real(out, parent_figures(rows, i).completeness_index); }},
    {"increase_of_inbreeding", write_increase},
    {"F_3_generations", [](Rows& rows, Position i, Out& out) { add_real(out, rows.figures.recent_3[i]); }},
    {"F_5_generations", [](Rows& rows, Position i, Out& out) { add_real(out, rows.figures.recent_5[i]); }},
    {"ancestral_inbreeding", [](Rows& rows, Position i, Out& out) { add_real(out, rows.figures.ancestral[i]); }},
    {"breeding_offspring",
     [](Rows& rows, Position i, Out& out) { add_integer(out, rows.figures.breeding_offspring[i]); }},
});

}  // namespace

std::string iso_date(std::int32_t year, std::int32_t month, std::int32_t day) {
  constexpr std::int32_t february = 2, leap_day = 29;
  constexpr std::size_t length = 10;
  std::string text;
  if (year <= 0 || year > 9999) return text;
  text.reserve(length);
  append_digits(text, year, 4);
  text += '-';
  append_digits(text, month, 2);
  text += '-';
  const bool is_missing = month == february && day == leap_day && !has_leap_day(year);
  append_digits(text, is_missing ? leap_day - 1 : std::max(day, 1), 2);
  return text;
}

ByNumber<std::int32_t> count_offspring(const PopulationStore& store) {
  ByNumber<std::int32_t> offspring(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, offspring);
    ++offspring[store.sire_no[i]];
    ++offspring[store.dam_no[i]];
  }
  return offspring;
}

ByNumber<std::int32_t> longest_lines(const PopulationStore& store) {
  ByNumber<std::int32_t> longest(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    fetch_later_parents(store, i, longest);
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent != 0) longest[i] = std::max(longest[i], longest[parent] + 1);
    }
  }
  return longest;
}

void write_animals(const PopulationStore& store, const AnimalFigures& figures, TableWriter& writer) {
  const ByNumber<std::int32_t> offspring = count_offspring(store), longest = longest_lines(store);
  for (const AnimalColumn& column : columns) add_text(writer, column.name);
  end_row(writer);
  write_many_rows(writer, {1, std::int64_t{store.animal_count} + 1}, [&](TableWriter& out, WorkPart part) {
    AnimalRows rows{store, figures, offspring, longest, {}};
    for (auto i = static_cast<std::int32_t>(part.begin); i < part.end; ++i) {
      fetch_texts_early(store, i);
      for (const AnimalColumn& column : columns) column.write(rows, i, out);
      end_row(out);
    }
  });
}

}  // namespace pedigreewatch
