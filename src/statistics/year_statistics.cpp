#include "statistics/year_statistics.h"

#include <algorithm>
#include <cmath>

#include "statistics/parent_ages.h"

namespace pedigreewatch {
namespace {

/// The columns of one sex in the two tables of parents.
struct SexColumns {
  std::int64_t native, native_parents, imported_parents, mean, deviation, maximum;
};
constexpr SexColumns male_columns = {native_males, native_sires,   imported_sires,
                                     sire_mean,    sire_deviation, sire_maximum};
constexpr SexColumns female_columns = {native_females, native_dams,   imported_dams,
                                       dam_mean,       dam_deviation, dam_maximum};

/// Mean, standard deviation and maximum of the offspring counts, in single precision.
void describe_offspring(std::span<const std::int32_t> counts, Row row, const SexColumns& columns,
                        YearTable<float>& parent_offspring) {
  if (counts.empty()) return;
  std::int64_t sum = 0;
  for (const std::int32_t count : counts) sum += count;
  const float size = static_cast<float>(counts.size());
  const float mean = static_cast<float>(sum) / size;
  float squares = 0.0F;
  for (const std::int32_t count : counts) {
    const float deviation = static_cast<float>(count) - mean;
    squares += deviation * deviation;
  }
  parent_offspring.at(row, columns.mean) = mean;
  parent_offspring.at(row, columns.deviation) = counts.size() < 2 ? 0.0F : std::sqrt(squares / (size - 1.0F));
  parent_offspring.at(row, columns.maximum) = static_cast<float>(*std::max_element(counts.begin(), counts.end()));
}

void count_parent(const AnimalRecord& animal, Row row, const SexColumns& columns,
                  YearTable<std::int32_t>& parent_counts) {
  if (is_true(animal.is_import)) {
    parent_counts.at(row, columns.imported_parents) += is_true(animal.is_native_parent) ? 1 : 0;
  } else {
    ++parent_counts.at(row, columns.native);
    parent_counts.at(row, columns.native_parents) += is_true(animal.is_native_parent) ? 1 : 0;
  }
}

/// Counts an age in its class of 365 days; ages up to 365 days are in no class.
void count_age(std::int32_t age_days, Row row, YearTable<std::int32_t>& classes) {
  if (age_days <= days_per_year) return;
  const std::int32_t column = (age_days - 1) / days_per_year;
  if (column <= classes.column_count) ++classes.at(row, column);
}

void store_mean_age(const AgeTotal& total, Row row, YearTable<float>& mean_ages) {
  if (total.count > 0) mean_ages.at(row, 1) = total.mean_days();
}

}  // namespace

void parent_year_statistics(const PopulationStore& store, YearAnimals animals, Row row,
                            YearTable<std::int32_t>& parent_counts, YearTable<float>& parent_offspring) {
  std::vector<std::int32_t> of_sires, of_dams;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    const bool is_male = animal.sex == male;
    count_parent(animal, row, is_male ? male_columns : female_columns, parent_counts);
    if (is_true(animal.is_native_parent)) {
      (is_male ? of_sires : of_dams).push_back(animal.native_offspring_count);
    }
  }
  describe_offspring(of_sires, row, male_columns, parent_offspring);
  describe_offspring(of_dams, row, female_columns, parent_offspring);
}

void import_pair_statistics(const PopulationStore& store, YearAnimals animals, Row row,
                            YearTable<std::int32_t>& import_pairs) {
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    if (is_true(animal.is_import) || animal.sire_no == 0 || animal.dam_no == 0) continue;
    const bool from_sire = is_true(store.at(animal.sire_no).is_import);
    const bool from_dam = is_true(store.at(animal.dam_no).is_import);
    const ImportPairColumn column =
        from_sire ? (from_dam ? both_imported : sire_imported) : (from_dam ? dam_imported : both_native);
    ++import_pairs.at(row, column);
  }
}

void litter_statistics(const PopulationStore& store, YearAnimals animals, Row row, LitterScratch& scratch,
                       YearTable<std::int32_t>& litters) {
  const auto size_of = [&](std::int32_t dam) -> std::int32_t& {
    return scratch.litter_size[static_cast<std::size_t>(dam)];
  };
  for (const std::int32_t position : animals) {
    if (const std::int32_t dam = store.at(position).dam_no; dam != 0) ++size_of(dam);
  }
  // A litter belongs to the first animal of its mother; it counts unless that animal is an import.
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    if (animal.dam_no == 0 || size_of(animal.dam_no) == 0) continue;
    if (!is_true(animal.is_import)) {
      ++litters.at(row, litter_count);
      const std::int32_t size = std::min<std::int32_t>(size_of(animal.dam_no), largest_litter);
      ++litters.at(row, before_litter_sizes + size);
    }
    size_of(animal.dam_no) = 0;
  }
  bool is_first = true;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    if (animal.sire_no != 0) {
      char& is_seen = scratch.is_seen[static_cast<std::size_t>(animal.sire_no)];
      if (is_seen == 0 && !is_first && !is_true(animal.is_import)) ++litters.at(row, father_count);
      is_seen = 1;
    }
    is_first = false;
  }
  for (const std::int32_t position : animals) scratch.is_seen[static_cast<std::size_t>(store.at(position).sire_no)] = 0;
}

void parent_age_statistics(const PopulationStore& store, YearAnimals animals, Row row, MonitorTables& tables) {
  AgeTotal sires, dams;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    count_age(animal.sire_age_days, row, tables.sire_age_classes);
    count_age(animal.dam_age_days, row, tables.dam_age_classes);
    sires.add(animal.sire_age_days);
    dams.add(animal.dam_age_days);
  }
  store_mean_age(sires, row, tables.mean_sire_age);
  store_mean_age(dams, row, tables.mean_dam_age);
}

ColumnFinder make_column_finder(std::span<const std::string_view> texts) {
  ColumnFinder finder;
  finder.texts.assign(texts.begin(), texts.end());
  finder.columns_of_first.resize(texts.size() + 1);
  const auto text_at = [&](std::int32_t column) { return finder.texts[static_cast<std::size_t>(column) - 1]; };
  for (std::int32_t column = 1; column <= static_cast<std::int32_t>(texts.size()); ++column) {
    const std::int32_t first = find_or_add_text(finder.index, text_at(column), column, text_at);
    finder.columns_of_first[static_cast<std::size_t>(first)].push_back(column);
  }
  return finder;
}

std::span<const std::int32_t> find_columns(const ColumnFinder& finder, std::string_view text) {
  const std::int32_t first = find_text(
      finder.index, text, [&](std::int32_t column) { return finder.texts[static_cast<std::size_t>(column) - 1]; });
  return finder.columns_of_first[static_cast<std::size_t>(first)];
}

void colour_statistics(const PopulationStore& store, YearAnimals animals, Row row, const ColumnFinder& colours,
                       YearTable<std::int32_t>& colour_counts) {
  if (animals.empty()) return;
  for (const std::int32_t position : animals) {
    const std::span<const std::int32_t> columns = find_columns(colours, store.at(position).colour.full());
    if (!columns.empty()) ++colour_counts.at(row, columns.front());
  }
  // A colour that stands in the list again gets the same count, which is then taken off the rest again.
  std::int32_t listed = 0;
  for (const std::vector<std::int32_t>& columns : colours.columns_of_first) {
    for (const std::int32_t column : columns) {
      colour_counts.at(row, column) = colour_counts.value(row, columns.front());
      listed += colour_counts.value(row, column);
    }
  }
  colour_counts.at(row, colour_counts.column_count) = static_cast<std::int32_t>(animals.size()) - listed;
}

void breeder_statistics(const PopulationStore& store, YearAnimals animals, Row row, const ColumnFinder& breeders,
                        const YearTable<std::int32_t>& parent_counts, YearTable<std::int32_t>& top_breeders) {
  if (animals.empty()) return;
  std::int32_t listed = 0, listed_parents = 0;
  for (const std::int32_t position : animals) {
    const AnimalRecord& animal = store.at(position);
    const std::int32_t parent = is_true(animal.is_native_parent) ? 1 : 0;
    for (const std::int32_t t : find_columns(breeders, animal.breeder.full())) {
      ++top_breeders.at(row, 2 * std::int64_t{t} - 1);
      top_breeders.at(row, 2 * std::int64_t{t}) += parent;
      ++listed;
      listed_parents += parent;
    }
  }
  const std::int64_t columns = top_breeders.column_count;
  top_breeders.at(row, columns - 1) = static_cast<std::int32_t>(animals.size()) - listed;
  top_breeders.at(row, columns) =
      parent_counts.value(row, native_sires) - listed_parents + parent_counts.value(row, native_dams);
}

}  // namespace pedigreewatch
