// One procedure for each table of the report adds its columns. A mean is empty where the report shows 0 because there
// is nothing to take the mean of; counts are never empty.

#include "tables/year_columns.h"

#include <utility>

#include "genetics/subpopulation_kinship.h"
#include "statistics/parent_ages.h"
#include "tables/column_names.h"

namespace pedigreewatch {
namespace {

/// The part of a name that stands for a text of the steer file; its number in the list when no letter can be used.
std::string part_or_number(std::string_view text, std::int64_t number) {
  std::string part = name_part(text);
  return part.empty() ? std::to_string(number) : part;
}

/// The columns while they are gathered.
struct ColumnList {
  const BlockView& view;
  std::vector<YearColumn> columns;
  TakenNames taken;
  std::vector<std::string> parts = {""};  ///< of names, by number of the subpopulation

  explicit ColumnList(const BlockView& block) : view(block) {
    take_name(taken, "year");
    take_name(taken, "subpopulation");
    const auto& subpopulations = view.population.settings.layout.subpopulations;
    TakenNames taken_parts;
    for (std::int32_t k = 1; k <= subpopulations.count(); ++k) {
      parts.push_back(take_name(taken_parts, part_or_number(subpopulations.names.at(k).trimmed(), k)));
    }
  }
  const MonitorTables& tables() const { return view.block.tables; }
};

/// A column; `cell` yields its value for a row.
template <typename CellOfRow>
void add(ColumnList& list, const std::string& name, CellOfRow cell) {
  list.columns.push_back({take_name(list.taken, name), std::move(cell)});
}

Cell count(std::int64_t value) {
  return value;
}

/// A mean of `size` values; empty of none.
Cell mean_of(std::int64_t size, float value) {
  return size > 0 ? Cell(value) : Cell();
}

std::string numbered(std::string_view name, std::int64_t number) {
  return std::string(name) + std::to_string(number);
}

/// All columns of a table of counts; `name_of` yields the name by the number of the column.
template <typename NameOfColumn>
void add_counts(ColumnList& list, const YearTable<std::int32_t>& table, std::int64_t columns, NameOfColumn name_of) {
  for (std::int64_t c = 1; c <= columns; ++c) {
    add(list, name_of(c), [&table, c](Row row) { return count(table.value(row, c)); });
  }
}

template <typename Record, typename CellOfRecord>
void add_of_record(ColumnList& list, const std::string& name, const YearRows<Record>& rows, CellOfRecord cell) {
  add(list, name, [&rows, cell](Row row) -> Cell { return cell(rows.of(row)); });
}

// ---- animals and parents -----------------------------------------------------------------------------------------

using Counts = ParentCount<std::int32_t>;

/// The counts of one sex, or of both together.
template <typename CountsOf>
void add_parent_counts(ColumnList& list, const char* unused, const std::string& parents, CountsOf counts_of) {
  const YearRows<ParentCounts>& rows = list.tables().parent_counts;
  add_of_record(list, unused, rows, [=](const ParentCounts& c) { return count(counts_of(c, &Counts::unused)); });
  add_of_record(list, parents, rows, [=](const auto& c) { return count(counts_of(c, &Counts::native_parents)); });
  if (!list.view.population.store.has_import) return;
  add_of_record(list, parents + "_imported", rows,
                [=](const auto& c) { return count(counts_of(c, &Counts::imported_parents)); });
}

void add_population_size(ColumnList& list) {
  using Field = std::int32_t Counts::*;
  const auto males = [](const ParentCounts& c, Field field) { return std::int64_t{c.of(male).*field}; };
  const auto females = [](const ParentCounts& c, Field field) { return std::int64_t{c.of(female).*field}; };
  add_parent_counts(list, "males_unused", "sires", males);
  add_parent_counts(list, "females_unused", "dams", females);
  add_parent_counts(list, "animals_unused", "parents",
                    [=](const ParentCounts& c, Field field) { return males(c, field) + females(c, field); });
}

void add_litters(ColumnList& list) {
  const YearRows<LitterMeans>& rows = list.view.block.litter_means;
  add_of_record(list, "litters", rows, [](const LitterMeans& m) { return count(m.litters); });
  add_of_record(list, "young_per_litter", rows, [](const auto& m) { return mean_of(m.litters, m.young_per_litter); });
  add_of_record(list, "litter_sires", rows, [](const LitterMeans& m) { return count(m.fathers); });
  add_of_record(list, "litters_per_sire", rows, [](const auto& m) { return mean_of(m.fathers, m.litters_per_father); });
  add_of_record(list, "young_per_sire", rows, [](const auto& m) { return mean_of(m.fathers, m.young_per_father); });
}

void add_litter_sizes(ColumnList& list) {
  const YearTable<std::int32_t>& sizes = list.view.block.litter_sizes;
  add_counts(list, sizes, sizes.column_count, [](std::int64_t c) { return numbered("litters_of_", c); });
}

/// Parents of a sex that were born in the year, imports included.
std::int64_t parents_born(const BlockView& view, Sex sex, Row row) {
  const ParentCount<std::int32_t> counts = view.block.tables.parent_counts.of(row).of(sex);
  return std::int64_t{counts.native_parents} + counts.imported_parents;
}

void add_offspring(ColumnList& list, Sex sex, const std::string& prefix) {
  const BlockView& view = list.view;
  const auto moments = [&view, sex](Row row) { return view.block.tables.parent_offspring.of(row).of(sex); };
  const auto parents = [&view, sex](Row row) { return parents_born(view, sex, row); };
  add(list, prefix + "_mean", [=](Row row) { return mean_of(parents(row), moments(row).mean); });
  add(list, prefix + "_sd", [=](Row row) { return mean_of(parents(row) - 1, moments(row).deviation); });
  add(list, prefix + "_max",
      [=](Row row) { return parents(row) > 0 ? count(static_cast<std::int64_t>(moments(row).maximum)) : Cell(); });
}

void add_imports(ColumnList& list) {
  const YearRows<ImportPairs>& rows = list.tables().import_pairs;
  add_of_record(list, "young_native_native", rows, [](const ImportPairs& p) { return count(p.both_native); });
  add_of_record(list, "young_import_native", rows, [](const ImportPairs& p) { return count(p.sire_imported); });
  add_of_record(list, "young_native_import", rows, [](const ImportPairs& p) { return count(p.dam_imported); });
  add_of_record(list, "young_import_import", rows, [](const ImportPairs& p) { return count(p.both_imported); });
}

void add_age_classes(ColumnList& list) {
  const ParentAgeClasses& classes = list.tables().age_classes;
  const BySex<std::int64_t>& widths = list.view.age_columns;
  add_counts(list, classes.of(male), widths.of(male), [](std::int64_t c) { return numbered("sires_age_", c); });
  add_counts(list, classes.of(female), widths.of(female), [](std::int64_t c) { return numbered("dams_age_", c); });
}

void add_mean_ages(ColumnList& list) {
  const YearRows<MeanParentAges>& ages = list.tables().parent_ages;
  const YearRows<YearCounts>& counts = list.view.counts().years;
  add(list, "age_of_sires", [&](Row row) { return mean_of(counts.of(row).known_sire_ages, ages.of(row).sires); });
  add(list, "age_of_dams", [&](Row row) { return mean_of(counts.of(row).known_dam_ages, ages.of(row).dams); });
  add(list, "age_of_parents", [&](Row row) {
    const YearCounts known = counts.of(row);
    return mean_of(std::int64_t{known.known_sire_ages} + known.known_dam_ages, ages.of(row).parents);
  });
}

void add_completeness(ColumnList& list) {
  const YearRows<CompletenessRow>& rows = list.tables().completeness;
  const YearRows<YearCounts>& counts = list.view.counts().years;
  add(list, "equivalent_generations",
      [&](Row row) { return mean_of(counts.of(row).animals, rows.of(row).equivalent_generations); });
  constexpr std::size_t shares = CompletenessRow{}.generation_shares.size();
  for (std::size_t g = 0; g < shares; ++g) {
    const std::string name = numbered("complete_generations_", static_cast<std::int64_t>(g) + 1);
    add(list, g + 1 < shares ? name : name + "_up",
        [&, g](Row row) { return mean_of(counts.of(row).animals, rows.of(row).generation_shares[g]); });
  }
}

// ---- names of the steer file and of animals ----------------------------------------------------------------------

void add_top_sires(ColumnList& list) {
  const PopulationStore& store = list.view.population.store;
  const YearRows<TopSireRow>& rows = list.view.population.analysis.extras.top_sires;
  add_of_record(list, "sires_used", rows, [](const TopSireRow& sires) { return count(sires.sire_count); });
  add_of_record(list, "top_sire", rows, [&store](const TopSireRow& sires) {
    return sires.sire_count > 0 ? Cell(std::string(store.id(sires.top_sire))) : Cell();
  });
  add_of_record(list, "top_sire_name", rows, [&store](const TopSireRow& sires) {
    const bool has_name = sires.sire_count > 0 && store.has_name;
    return has_name ? Cell(std::string(without_trailing_blanks(store.name(sires.top_sire)))) : Cell();
  });
  for (std::size_t r = 0; r < top_sire_columns; ++r) {
    const std::int32_t rank = static_cast<std::int32_t>(r) + 1;
    add_of_record(list, numbered("top_sire_share_", rank), rows, [r, rank](const TopSireRow& sires) {
      return sires.sire_count >= rank ? Cell(sires.shares[r]) : Cell();
    });
  }
}

void add_colours(ColumnList& list) {
  const std::vector<ColourName>& names = list.view.population.settings.colour_names;
  const YearTable<std::int32_t>& counts = list.tables().colour_counts;
  add_counts(list, counts, counts.column_count, [&](std::int64_t c) {
    const std::size_t place = static_cast<std::size_t>(c) - 1;
    const std::string_view name = place < names.size() ? names[place].trimmed() : std::string_view();
    return "colour_" + part_or_number(name, c);
  });
}

void add_breeders(ColumnList& list) {
  const YearTable<std::int32_t>& counts = list.tables().top_breeders;
  const std::int64_t breeders = list.view.population.breeders.top_breeder_count;
  add_counts(list, counts, counts.column_count, [&](std::int64_t c) {
    const std::int64_t number = (c + 1) / 2;
    const std::string breeder = number > breeders ? std::string("others") : std::to_string(number);
    return "breeder_" + breeder + (c % 2 == 1 ? "_animals" : "_parents");
  });
}

// ---- inbreeding and kinship --------------------------------------------------------------------------------------

/// A mean of F or kinship. The rounding of single precision can leave the mean of animals that are not related below 0.
Cell mean_kinship_of(std::int64_t count, float mean) {
  return mean_of(count, std::max(mean, 0.0F));
}

/// Animals of a year that count in its kinships: those of year 0 have no birth year.
std::int64_t cohort_size(const BlockView& view, Row row) {
  return view.population.store.birth_years.year_of(row) == 0 ? 0 : view.counts().years.of(row).animals;
}

void add_inbreeding(ColumnList& list) {
  const BlockView& view = list.view;
  const YearRows<InbreedingRow>& rows = view.block.inbreeding;
  const auto size = [&view](Row row) { return cohort_size(view, row); };
  const auto sires = [&view, size](Row row) { return size(row) > 0 ? parents_born(view, male, row) : 0; };
  const auto dams = [&view, size](Row row) { return size(row) > 0 ? parents_born(view, female, row) : 0; };
  add(list, "F_mean", [=, &rows](Row row) { return mean_kinship_of(size(row), rows.of(row).F); });
  add(list, "kinship_with_self", [=, &rows](Row row) { return mean_kinship_of(size(row), rows.of(row).f_with_self); });
  // Kinships between different animals take two of them.
  add(list, "kinship_without_self",
      [=, &rows](Row row) { return mean_kinship_of(size(row) - 1, rows.of(row).f_without_self); });
  add(list, "kinship_of_parents",
      [=, &rows](Row row) { return mean_kinship_of(sires(row) + dams(row) - 1, rows.of(row).f_of_parents); });
  add(list, "kinship_of_sires",
      [=, &rows](Row row) { return mean_kinship_of(sires(row) - 1, rows.of(row).f_of_fathers); });
  add(list, "kinship_of_dams",
      [=, &rows](Row row) { return mean_kinship_of(dams(row) - 1, rows.of(row).f_of_mothers); });
}

/// Of a subpopulation the report knows F and the kinship of different animals, and how they change from year to year.
void add_trend(ColumnList& list) {
  const BlockView& view = list.view;
  const YearRows<InbreedingRow>& rows = view.block.inbreeding;
  const auto pairs = [&view](Row row) { return cohort_size(view, row) - 1; };
  const auto changes = [=, &rows](Row row) { return row > 1 && rows.of(row).F > 0.0F ? std::int64_t{1} : 0; };
  add(list, "F_mean", [=, &rows](Row row) { return mean_kinship_of(pairs(row), rows.of(row).F); });
  add(list, "kinship", [=, &rows](Row row) { return mean_kinship_of(pairs(row), rows.of(row).f_with_self); });
  add(list, "F_change", [=, &rows](Row row) { return mean_of(changes(row), rows.of(row).f_without_self); });
  add(list, "kinship_change", [=, &rows](Row row) { return mean_of(changes(row), rows.of(row).f_of_parents); });
}

// ---- subpopulations ----------------------------------------------------------------------------------------------

/// The part of a column's name that stands for subpopulation k: another one for each, in all columns the same.
const std::string& subpopulation_part(const ColumnList& list, std::int64_t k) {
  return list.parts[static_cast<std::size_t>(k)];
}

void add_births(ColumnList& list) {
  const YearTable<std::int32_t>& births = list.view.population.analysis.extras.subpopulations.births;
  add_counts(list, births, births.column_count, [&](std::int64_t k) { return "born_" + subpopulation_part(list, k); });
}

/// The number under which the animals of subpopulation k are counted: another one when its name stands twice.
std::int32_t counted_number(const BlockView& view, std::int64_t k) {
  return view.population.settings.layout.subpopulations.first_numbers.at(static_cast<std::int32_t>(k));
}

void add_descent(ColumnList& list) {
  const BlockView& view = list.view;
  const YearTable<std::int32_t>& parents = view.counts().parents_from;
  for (std::int32_t k = 1; k <= view.population.settings.layout.subpopulations.count(); ++k) {
    add(list, "parents_from_" + subpopulation_part(list, k),
        [&parents, from = counted_number(view, k)](Row row) { return count(parents.value(row, from)); });
  }
}

/// Animals of subpopulation k that count in the kinships of a year.
std::int64_t born_in(const BlockView& view, std::int64_t k, Row row) {
  if (view.population.store.birth_years.year_of(row) == 0) return 0;
  return view.groups[static_cast<std::size_t>(counted_number(view, k))].years.of(row).animals;
}

void add_kinship_within(ColumnList& list) {
  const BlockView& view = list.view;
  const YearTable<float>& kinship = view.population.analysis.extras.kinship;
  for (std::int32_t k = 1; k <= view.population.settings.layout.subpopulations.count(); ++k) {
    const auto cell = [&view, &kinship, k](Row row, std::int64_t column) {
      return mean_kinship_of(born_in(view, k, row) - 1, kinship.value(row, column));
    };
    const std::string part = subpopulation_part(list, k);
    add(list, "F_mean_" + part, [=](Row row) { return cell(row, inbreeding_column(k)); });
    add(list, "kinship_" + part, [=](Row row) { return cell(row, kinship_column(k)); });
  }
}

void add_kinship_between(ColumnList& list) {
  const BlockView& view = list.view;
  const YearTable<float>& kinship = view.population.analysis.extras.kinship;
  const std::int32_t last = view.population.settings.layout.subpopulations.count();
  for (std::int32_t k = 1; k <= last; ++k) {
    for (std::int32_t l = k + 1; l <= last; ++l) {
      add(list, "relationship_" + subpopulation_part(list, k) + "__" + subpopulation_part(list, l),
          [&view, &kinship, last, k, l](Row row) {
            const auto column = column_of_pair(last, k, l, [&](std::int32_t m) { return born_in(view, m, row); });
            return mean_kinship_of(column ? 1 : 0, column ? kinship.value(row, *column) : 0.0F);
          });
    }
  }
}

// ---- both kinds of block -----------------------------------------------------------------------------------------

/// What stands in both behind the litters.
void add_parents(ColumnList& list) {
  add_offspring(list, male, "offspring_per_sire");
  add_offspring(list, female, "offspring_per_dam");
  if (list.view.population.store.has_import) add_imports(list);
  add_age_classes(list);
  add_mean_ages(list);
  add_completeness(list);
}

void add_names(ColumnList& list) {
  if (list.view.population.store.has_colour) add_colours(list);
  if (list.view.population.store.has_breeder) add_breeders(list);
}

void count_animal(const PopulationStore& store, std::int32_t position, Row row, GroupCounts& group) {
  YearCounts& counts = group.years.at(row);
  ++counts.animals;
  if (store.sire_age_days[position] != unknown_age) ++counts.known_sire_ages;
  if (store.dam_age_days[position] != unknown_age) ++counts.known_dam_ages;
}

void count_descent(const PopulationStore& store, std::int32_t position, Row row, GroupCounts& group) {
  const std::int32_t sire_no = store.sire_no[position], dam_no = store.dam_no[position];
  const std::int32_t of_sire = sire_no == 0 ? 0 : store.subpopulation_no(sire_no);
  const std::int32_t of_dam = dam_no == 0 ? 0 : store.subpopulation_no(dam_no);
  if (of_sire == 0 || of_dam == 0) return;
  ++group.parents_from.at(row, of_sire);
  ++group.parents_from.at(row, of_dam);
}

}  // namespace

std::vector<GroupCounts> count_groups(const AnalysedPopulation& population) {
  const PopulationStore& store = population.store;
  const Row rows = store.birth_years.row_count();
  const std::int32_t subpopulations = population.settings.layout.subpopulations.count();
  const std::int32_t groups = subpopulations > 1 ? subpopulations : 0;
  std::vector<GroupCounts> counts(static_cast<std::size_t>(groups) + 1, GroupCounts{YearRows<YearCounts>(rows), {}});
  for (GroupCounts& group : std::span(counts).subspan(1)) group.parents_from = {rows, subpopulations};
  for (Row row = 1; row <= rows; ++row) {
    for (const std::int32_t position : population.analysis.years.of_row(row)) {
      count_animal(store, position, row, counts.front());
      const std::int32_t k = groups == 0 ? 0 : store.subpopulation_no(position);
      if (k == 0) continue;
      count_animal(store, position, row, counts[static_cast<std::size_t>(k)]);
      count_descent(store, position, row, counts[static_cast<std::size_t>(k)]);
    }
  }
  return counts;
}

std::vector<YearColumn> columns_of_whole(const BlockView& view) {
  const bool has_subpopulations = view.population.settings.layout.subpopulations.count() > 1;
  ColumnList list(view);
  add_population_size(list);
  if (has_subpopulations) add_births(list);
  add_litters(list);
  add_litter_sizes(list);
  add_parents(list);
  add_top_sires(list);
  add_names(list);
  add_inbreeding(list);
  if (has_subpopulations) add_kinship_within(list);
  if (has_subpopulations) add_kinship_between(list);
  return std::move(list.columns);
}

std::vector<YearColumn> columns_of_subpopulation(const BlockView& view) {
  ColumnList list(view);
  add_population_size(list);
  add_descent(list);
  add_litters(list);
  add_parents(list);
  add_names(list);
  add_trend(list);
  return std::move(list.columns);
}

}  // namespace pedigreewatch
