#include "tables/list_tables.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/memory_hints.h"
#include "tables/animal_table.h"

namespace pedigreewatch {
namespace {

/// A row of a list of animals: the animal, and its place in the list, counted from 1.
struct ListedAnimal {
  const ListedPopulation& population;
  std::int32_t position = 0;
  std::int64_t rank = 0;

  const PopulationStore& store() const { return population.store; }
  const AnimalFigures& figures() const { return population.figures.animals; }
};

struct AnimalListColumn {
  std::string_view name;
  void (*write)(const ListedAnimal& animal, TableWriter& writer);
};

void add_id(const PopulationStore& store, std::int32_t position, TableWriter& writer) {
  if (position == 0) return add_nothing(writer);
  add_text(writer, without_trailing_blanks(store.id(position)));
}

void add_name(const PopulationStore& store, std::int32_t position, TableWriter& writer) {
  if (!store.has_name) return add_nothing(writer);
  add_text(writer, without_trailing_blanks(store.name(position)));
}

void add_birthdate(const PopulationStore& store, std::int32_t position, TableWriter& writer) {
  add_day(writer, iso_date(store.birth_year[position], store.birth_month[position], store.birth_day(position)));
}

void add_mean_kinship(const ListedAnimal& animal, TableWriter& writer) {
  const ByNumber<float>& means = animal.figures().mean_kinship;
  if (means.values.empty()) return add_nothing(writer);
  add_real(writer, std::max(means[animal.position], 0.0F));
}

constexpr AnimalListColumn sex_column = {"sex", [](const ListedAnimal& a, TableWriter& writer) {
                                           add_plain(writer, a.store().sex[a.position] == male ? "male" : "female");
                                         }};
constexpr AnimalListColumn rank_column = {
    "rank", [](const ListedAnimal& a, TableWriter& writer) { add_integer(writer, a.rank); }};
constexpr AnimalListColumn id_column = {
    "id", [](const ListedAnimal& a, TableWriter& writer) { add_id(a.store(), a.position, writer); }};
constexpr AnimalListColumn name_column = {
    "name", [](const ListedAnimal& a, TableWriter& writer) { add_name(a.store(), a.position, writer); }};
constexpr AnimalListColumn birthdate_column = {
    "birthdate", [](const ListedAnimal& a, TableWriter& writer) { add_birthdate(a.store(), a.position, writer); }};
constexpr AnimalListColumn sire_column = {"sire", [](const ListedAnimal& a, TableWriter& writer) {
                                            add_id(a.store(), a.store().sire_no[a.position], writer);
                                          }};
constexpr AnimalListColumn dam_column = {
    "dam", [](const ListedAnimal& a, TableWriter& writer) { add_id(a.store(), a.store().dam_no[a.position], writer); }};
constexpr AnimalListColumn kinship_column = {"mean_kinship", add_mean_kinship};
constexpr AnimalListColumn inbreeding_column = {"F", [](const ListedAnimal& a, TableWriter& writer) {
                                                  add_real(writer, std::max(a.store().inbreeding[a.position], 0.0F));
                                                }};
constexpr AnimalListColumn equivalents_column = {
    "equivalent_generations",
    [](const ListedAnimal& a, TableWriter& writer) { add_real(writer, a.store().generation_equivalents[a.position]); }};
constexpr AnimalListColumn completeness_column = {
    "completeness_index", [](const ListedAnimal& a, TableWriter& writer) {
      add_real(writer, static_cast<float>(completeness_index(a.store(), a.figures(), a.position)));
    }};
constexpr AnimalListColumn offspring_column = {"offspring", [](const ListedAnimal& a, TableWriter& writer) {
                                                 add_integer(writer, a.population.offspring[a.position]);
                                               }};

void write_header(std::span<const AnimalListColumn> columns, TableWriter& writer) {
  for (const AnimalListColumn& column : columns) add_text(writer, column.name);
  end_row(writer);
}

/// Has fetched what rows further on will show, each step from what the step before has brought: the animals of a list
/// stand all over the store.
void fetch_rows_early(const ListedPopulation& population, std::span<const std::int32_t> positions, std::size_t row) {
  const PopulationStore& store = population.store;
  const auto later = [&](std::size_t steps) {
    const std::size_t place = row + steps * look_ahead;
    return place < positions.size() ? positions[place] : 0;
  };
  const std::int32_t far = later(3), middle = later(2), near = later(1);
  if (!store.kept.record_of_position.values.empty()) fetch_early(&store.kept.record_of_position[far]);
  for (const ByNumber<std::int32_t>* const column : {&store.sire_no, &store.dam_no, &store.birth_year}) {
    fetch_early(&(*column)[far]);
  }
  for (const std::int32_t parent : {store.sire_no[middle], store.dam_no[middle]}) {
    fetch_early(&population.figures.animals.lines[parent]);
  }
  if (middle != 0) fetch_early(&store.kept.ids.ends[static_cast<std::size_t>(store.record_no(middle)) - 1]);
  for (const ByNumber<float>* const column : {&store.inbreeding, &store.generation_equivalents}) {
    fetch_early(&(*column)[middle]);
  }
  fetch_early(&population.offspring[middle]);
  if (near != 0) store.kept.ids.fetch_text_early(store.record_no(near));
}

void write_animals(const ListedPopulation& population, std::span<const std::int32_t> positions,
                   std::span<const AnimalListColumn> columns, TableWriter& writer) {
  write_many_rows(writer, {0, std::ssize(positions)}, [&](TableWriter& out, WorkPart rows) {
    for (auto row = static_cast<std::size_t>(rows.begin); std::cmp_less(row, rows.end); ++row) {
      fetch_rows_early(population, positions, row);
      const ListedAnimal animal{population, positions[row], static_cast<std::int64_t>(row) + 1};
      for (const AnimalListColumn& column : columns) column.write(animal, out);
      end_row(out);
    }
  });
}

template <typename... Names>
void write_names(TableWriter& writer, Names... names) {
  (add_text(writer, names), ...);
  end_row(writer);
}

/// A mean of so many animals; empty of none.
void add_mean(TableWriter& writer, std::int64_t animals, double mean) {
  if (animals > 0) return add_real(writer, mean);
  add_nothing(writer);
}

}  // namespace

void write_kinship_list(const ListedPopulation& population, TableWriter& writer) {
  constexpr auto columns = std::to_array<AnimalListColumn>({sex_column, rank_column, id_column, name_column,
                                                            birthdate_column, kinship_column, equivalents_column,
                                                            completeness_column, offspring_column, inbreeding_column});
  write_header(columns, writer);
  write_animals(population, population.figures.lists.females, columns, writer);
  write_animals(population, population.figures.lists.males, columns, writer);
}

void write_most_inbred(const ListedPopulation& population, TableWriter& writer) {
  constexpr auto columns = std::to_array<AnimalListColumn>(
      {rank_column, id_column, name_column, sex_column, birthdate_column, inbreeding_column, sire_column, dam_column,
       equivalents_column, completeness_column, offspring_column});
  write_header(columns, writer);
  write_animals(population, population.figures.lists.most_inbred, columns, writer);
}

void write_used_sires(const ListedPopulation& population, TableWriter& writer) {
  write_names(writer, "rank", "id", "name", "birthdate", "offspring", "offspring_in_reference", "share", "mean_kinship",
              "descendants_in_reference", "animals_of_rest", "kinship_of_rest", "animals_without_offspring",
              "kinship_without_offspring");
  const PopulationStore& store = population.store;
  std::int64_t rank = 0;
  for (const UsedSire& sire : population.figures.lists.sires) {
    add_integer(writer, ++rank);
    add_id(store, sire.position, writer);
    add_name(store, sire.position, writer);
    add_birthdate(store, sire.position, writer);
    add_integer(writer, population.offspring[sire.position]);
    add_integer(writer, sire.offspring);
    add_real(writer, sire.share);
    add_real(writer, std::max(population.figures.animals.mean_kinship[sire.position], 0.0F));
    add_integer(writer, sire.descendants);
    add_integer(writer, sire.rest);
    add_mean(writer, sire.rest, sire.kinship_of_rest);
    add_integer(writer, sire.without_offspring);
    add_mean(writer, sire.without_offspring, sire.kinship_without_offspring);
    end_row(writer);
  }
}

void write_founders(const PopulationStore& store, std::span<const FounderEntry> founders, TableWriter& writer) {
  write_names(writer, "rank", "kind", "id", "name", "sex", "birthdate", "contribution", "genes_left",
              "genes_left_standard_error", "descendants_in_reference");
  std::int64_t rank = 0;
  for (const FounderEntry& founder : founders) {
    add_integer(writer, ++rank);
    add_plain(writer, founder.is_unknown_parent ? "unknown_parent_of" : "founder");
    add_id(store, founder.position, writer);
    add_name(store, founder.position, writer);
    if (founder.is_unknown_parent) {
      add_nothing(writer);
      add_nothing(writer);
    } else {
      add_plain(writer, store.sex[founder.position] == male ? "male" : "female");
      add_birthdate(store, founder.position, writer);
    }
    add_real(writer, founder.contribution);
    add_real(writer, founder.left.share);
    add_real(writer, founder.left.standard_error);
    add_integer(writer, founder.descendants);
    end_row(writer);
  }
}

void write_division(const PopulationStore& store, const SubpopulationDiversity& division, TableWriter& writer) {
  write_names(writer, "subpopulation", "other_subpopulation", "animals", "other_animals", "F_mean", "kinship",
              "nei_minimum_distance", "nei_standard_distance");
  for (std::size_t g = 0; g < division.groups.size(); ++g) {
    for (std::size_t h = g; h < division.groups.size(); ++h) {
      const DividedGroup &group = division.groups[g], &other = division.groups[h];
      add_text(writer, store.subpopulation_name(group.number));
      add_text(writer, store.subpopulation_name(other.number));
      add_integer(writer, group.animals);
      add_integer(writer, other.animals);
      if (g == h) {
        add_real(writer, group.mean_inbreeding);
      } else {
        add_nothing(writer);
      }
      add_real(writer, division.kinship(g, h));
      add_real(writer, g == h ? 0.0 : division.minimum_distance(g, h));
      const std::optional<double> distance = g == h ? 0.0 : division.standard_distance(g, h);
      add_cell(writer, distance ? Cell(*distance) : Cell());
      end_row(writer);
    }
  }
}

}  // namespace pedigreewatch
