#include "reports/report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/wording.h"
#include "reports/breeders.h"
#include "reports/colours.h"
#include "reports/completeness.h"
#include "reports/generation_interval.h"
#include "reports/imports.h"
#include "reports/litters.h"
#include "reports/offspring.h"
#include "reports/parent_ages.h"
#include "reports/population_size.h"
#include "reports/population_summary.h"
#include "reports/subpopulation_kinship.h"
#include "reports/subpopulation_scan.h"
#include "reports/top_sires.h"
#include "reports/yearly_inbreeding.h"
#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

/// Numbers that no other cell has.
struct CellFiller {
  std::int32_t last = 0;

  std::int32_t count() { return ++last; }
  float real() { return static_cast<float>(++last); }
  template <typename Cell>
  void fill_row(YearTable<Cell>& table, Row row) {
    for (std::int64_t column = 1; column <= table.column_count; ++column) {
      table.at(row, column) = static_cast<Cell>(++last);
    }
  }
};

MonitorTables filled_tables(CellFiller& cells) {
  MonitorTables tables;
  tables.parent_counts = YearRows<ParentCounts>(3);
  tables.parent_offspring = YearRows<ParentOffspring>(3);
  tables.import_pairs = YearRows<ImportPairs>(3);
  tables.litters = YearRows<LitterCounts>(3);
  tables.age_classes = {{3, 2}, {3, 3}};
  tables.parent_ages = YearRows<MeanParentAges>(3);
  tables.completeness = YearRows<CompletenessRow>(3);
  tables.colour_counts = {3, 3};
  tables.top_breeders = {3, 4};
  const auto real = [&] { return cells.real(); };
  const auto count = [&] { return cells.count(); };
  for (const Row row : {1, 3}) {
    tables.completeness.at(row) = {real(), {real(), real(), real(), real(), real()}};
    tables.parent_offspring.at(row) = {{real(), real(), real()}, {real(), real(), real()}};
    tables.parent_ages.at(row) = {real(), real(), real()};
    cells.fill_row(tables.age_classes.of(male), row);
    cells.fill_row(tables.age_classes.of(female), row);
    tables.parent_counts.at(row) = {{count(), count(), count()}, {count(), count(), count()}};
    tables.import_pairs.at(row) = {count(), count(), count(), count()};
    tables.litters.at(row) = {count(), count(), {count(), count(), count()}};
    cells.fill_row(tables.colour_counts, row);
    cells.fill_row(tables.top_breeders, row);
  }
  return tables;
}

/// An animal born in 1995, whose own sire was 5 years old then, and its dam 3.
AnimalRecord animal_of(std::string_view name, std::string_view id, Sex sex, std::int32_t offspring) {
  AnimalRecord animal;
  animal.name.assign(name);
  animal.id.assign(id);
  animal.sex = sex;
  animal.birth_year = 1995;
  animal.native_offspring_count = offspring;
  animal.sire_age_days = 5 * days_per_year;
  animal.dam_age_days = 3 * days_per_year;
  return animal;
}

/// Everything a block of the report is made from, in three years; nobody was born in 2002. The block of the
/// subpopulation shows the same figures.
struct Population {
  PopulationStore store;
  std::vector<SubpopulationName> subpopulation_names = {SubpopulationName("Zwart")};
  std::vector<ColourName> colour_names = {ColourName("blauw"), ColourName("Onbekend"), ColourName("niet erkend")};
  BreederList breeders = {.text = padded("Jansen", 20), .breeder_count = 1, .top_breeder_count = 1};
  std::string name = padded("Lakenvelder", 40);
  Block block;
  WholeExtras extras;

  Population() {
    store = finished_store_of(std::vector{animal_of("Adema", "NL-1", male, 4), animal_of("Bertus", "NL-2", male, 12),
                                          animal_of("Corrie", "NL-3", female, 7)});
    store.birth_years = years_from(2001, 3);
    CellFiller cells;
    block.tables = filled_tables(cells);
    block.inbreeding = YearRows<InbreedingRow>(3);
    extras.subpopulations = {{3, 2}, SubpopulationOverlap(2)};
    SubpopulationOverlap& overlap = extras.subpopulations.overlap;
    overlap.at(1, 1) = 11;
    overlap.at(1, 2) = 22;
    overlap.at(2, 1) = 33;
    overlap.at(2, 2) = 44;
    extras.top_sires = YearRows<TopSireRow>(3);
    extras.kinship = {3, 5};
    const auto real = [&] { return cells.real(); };
    for (const Row row : {1, 3}) {
      block.inbreeding.at(row) = {real(), real(), real(), real(), real(), real()};
      cells.fill_row(extras.kinship, row);
      cells.fill_row(extras.subpopulations.births, row);
      TopSireRow& sires = extras.top_sires.at(row);
      sires = {cells.count(), row == 1 ? 2 : 1, {}};
      for (float& share : sires.shares) share = real();
    }
    describe();
  }

  /// Derives from the tables what follows from them.
  void describe() {
    const RateSummary rates = {
        .delta_F_absolute = 0.01F, .delta_f_absolute = 0.02F, .delta_F_smoothed = 0.03F, .delta_f_smoothed = 0.04F};
    block = make_block(store, {name, all_positions(store), block.tables, block.inbreeding, rates});
    extras.summary = summarise_population(store.birth_years, block.tables, extras.top_sires);
  }

  Population with_everything() && {
    store.has_import = store.has_colour = store.has_breeder = true;
    subpopulation_names.emplace_back("Rood");
    return std::move(*this);
  }
};

ReportSheet sheet_of(const Population& population, bool english) {
  ReportSheet sheet(population.store.birth_years, english);
  sheet.store = population.store;
  sheet.subpopulation_names = population.subpopulation_names;
  sheet.colour_names = population.colour_names;
  sheet.breeders = population.breeders;
  return sheet;
}

std::string whole_report(const Population& population, bool english) {
  ReportSheet sheet = sheet_of(population, english);
  Block block = population.block;
  block.name = population.name;
  write_report(sheet.frame(), block, population.extras);
  return sheet.output.pending;
}

std::string type_report(const Population& population, bool english) {
  ReportSheet sheet = sheet_of(population, english);
  Block block = population.block;
  block.name = padded("Rood", 20);
  write_type_report(sheet.frame(), block);
  return sheet.output.pending;
}

const std::string star_rule = "           ******************************************";

/// Title block and counts, as far as the tables that follow them.
std::vector<std::string> head_of(const std::string& report, std::size_t lines) {
  std::vector<std::string> all = lines_of(report);
  all.resize(lines);
  return all;
}

// ---- head of the report ----------------------------------------------------------------------------------------

TEST(WriteReport, HeadInEnglishHasNoBlankLineBehindTheCounts) {
  EXPECT_EQ(head_of(whole_report(Population(), true), 8),
            (std::vector<std::string>{
                star_rule,
                "           *Lakenvelder                             *",
                star_rule,
                blank(),
                " Number of varieties:            1",
                " no colours analysed",
                " no breeders analysed",
                "            POPULATIONSIZE: number of calves born per year",
            }));
}

TEST(WriteReport, HeadInDutchHasABlankLineBehindTheCounts) {
  EXPECT_EQ(head_of(whole_report(Population(), false), 9),
            (std::vector<std::string>{
                star_rule,
                "           *Lakenvelder                             *",
                star_rule,
                blank(),
                " Aantal vari\xEB"
                "teiten:            1",
                " geen kleurslagen geanalyseerd",
                " geen fokkers geanalyseerd",
                blank(),
                "            POPULATIEOMVANG: aantal kalf geboren per jaar",
            }));
}

TEST(WriteReport, HeadInEnglishCountsColoursWithoutTheTwoAddedOnes) {
  EXPECT_EQ(head_of(whole_report(Population().with_everything(), true), 8),
            (std::vector<std::string>{
                star_rule,
                "           *Lakenvelder                             *",
                star_rule,
                blank(),
                " Number of varieties:            2",
                " number of colours:            1",
                " breeders analysed",
                "           POPULATION SIZE: number of calves born per year",
            }));
}

TEST(WriteReport, HeadInDutchCountsColoursWithoutTheTwoAddedOnes) {
  EXPECT_EQ(head_of(whole_report(Population().with_everything(), false), 9),
            (std::vector<std::string>{
                star_rule,
                "           *Lakenvelder                             *",
                star_rule,
                blank(),
                " Aantal vari\xEB"
                "teiten:            2",
                " aantal kleurslagen:            1",
                " wel fokkers geanalyseerd",
                blank(),
                "            POPULATIEOMVANG: aantal kalf geboren per jaar",
            }));
}

TEST(WriteReport, AShortPopulationNameLeavesBlanksUpToTheClosingStar) {
  Population population;
  population.name = padded("Bonte", 40);
  EXPECT_EQ(lines_of(whole_report(population, true))[1], "           *Bonte                                   *");
  population.name = std::string(40, 'B');
  EXPECT_EQ(lines_of(whole_report(population, true))[1], "           *" + std::string(40, 'B') + "*");
}

TEST(WriteReport, AccentedLetterOfTheDutchCountsIsOneByte) {
  const std::string line = lines_of(whole_report(Population(), false))[4];
  EXPECT_EQ(line.find('\xEB'), 12U);
  EXPECT_EQ(line.size(), 1U + 20U + 12U);
}

// ---- order of the tables ---------------------------------------------------------------------------------------

/// Tables that one writer writes: the titles by which they are known, and whether a population has them.
struct ReportTable {
  void (*write)(const ReportFrame& frame, const Population& population);
  std::vector<Wording> titles;
  bool (*is_wanted)(const Population& population) = [](const Population& /*population*/) { return true; };
};

bool has_import(const Population& population) {
  return population.store.has_import;
}
bool has_colour(const Population& population) {
  return population.store.has_colour;
}
bool has_breeder(const Population& population) {
  return population.store.has_breeder;
}
bool has_subpopulations(const Population& population) {
  return population.subpopulation_names.size() > 1;
}

const ReportTable population_size = {
    [](const ReportFrame& frame, const Population& of) { write_population_size(frame, of.block); },
    {{"SIZE: number of calves", "POPULATIEOMVANG"}}};
const ReportTable subpopulation_tables = {
    [](const ReportFrame& frame, const Population& of) { write_subpopulation_tables(frame, of.extras.subpopulations); },
    {{"SUBPOPULATIONs", "SUBPOPULATIEs"}, {"Descent of Breed", "Afstamming RASCODEs"}},
    has_subpopulations};
const ReportTable parents_and_litters = {
    [](const ReportFrame& frame, const Population& of) { write_parents_and_litters(frame, of.block); },
    {{"Number of parents and litter size", "aantal ouders en nestgrootte"}}};
const ReportTable litter_sizes = {[](const ReportFrame& frame, const Population& of) {
                                    write_blank_line(frame.report);
                                    write_litter_sizes(frame, of.block.litter_sizes);
                                  },
                                  {{"Litter Sizes", "     Worpgrootte"}}};
const ReportTable offspring = {[](const ReportFrame& frame, const Population& of) { write_offspring(frame, of.block); },
                               {{"OFFSPRING/PARENT", "NAKOMELINGEN/OUDER"},
                                {"Male with the highest", "reu met de meeste"},
                                {"Female with the highest", "teef met de meeste"}}};
const ReportTable imports = {
    [](const ReportFrame& frame, const Population& of) { write_imports(frame, of.block.tables.import_pairs); },
    {{"IMPORT", "IMPORT"}},
    has_import};
const ReportTable parent_ages = {
    [](const ReportFrame& frame, const Population& of) { write_age_tables(frame, of.block.tables.age_classes); },
    {{"AGE fathers", "LEEFTIJD vaders"}, {"AGE mothers", "LEEFTIJD moeders"}}};
const ReportTable generation_interval = {
    [](const ReportFrame& frame, const Population& of) { write_generation_interval(frame, of.block); },
    {{"GENERATION INTERVAL", "GENERATIEINTERVAL"}}};
const ReportTable completeness = {
    [](const ReportFrame& frame, const Population& of) { write_completeness(frame, of.block.tables.completeness); },
    {{"PEDIGREE COMPLETENESS", "COMPLEETHEID"}}};
const ReportTable top_sires = {
    [](const ReportFrame& frame, const Population& of) { write_top_sires(frame, of.extras.top_sires); },
    {{"Top sires", "Topvaders"}}};
const ReportTable colours = {
    [](const ReportFrame& frame, const Population& of) { write_colours(frame, of.block.tables.colour_counts); },
    {{"COLOUR VARIETIES", "KLEURSLAGEN"}},
    has_colour};
const ReportTable breeders = {
    [](const ReportFrame& frame, const Population& of) { write_breeders(frame, of.block.tables.top_breeders); },
    {{"Main Breeders", "belangrijkste Fokkers"}},
    has_breeder};
const ReportTable inbreeding = {
    [](const ReportFrame& frame, const Population& of) { write_inbreeding(frame, of.block); },
    {{"INBREEDING", "INTEELT"}, {"deltaF absolute", "deltaF absolute"}}};
const ReportTable summary = {
    [](const ReportFrame& frame, const Population& of) { write_summary(frame, of.extras.summary); },
    {{"Summary population data", "Samenvatting"}}};
const ReportTable subpopulation_kinship = {
    [](const ReportFrame& frame, const Population& of) { write_subpopulation_kinship(frame, of.extras.kinship); },
    {{"Inbreeding and Kinship", "Inteelt en Verwantschap"}, {"Kinship between", "Verwantschap tussen"}},
    has_subpopulations};

/// The order of the tables, behind the head that the tests above show.
const std::vector<ReportTable> whole_order = {
    population_size,      subpopulation_tables, parents_and_litters, litter_sizes, offspring, imports,    parent_ages,
    generation_interval,  completeness,         top_sires,           colours,      breeders,  inbreeding, summary,
    subpopulation_kinship};
const std::vector<ReportTable> type_order = {
    population_size, imports,  parents_and_litters, offspring, parent_ages, generation_interval, completeness,
    colours,         breeders, inbreeding};

/// Whether a table of the report of the whole population belongs into a block, of those in `order`.
bool is_shown(const ReportTable& table, const std::vector<ReportTable>& order, const Population& population) {
  const auto is_this = [&](const ReportTable& other) { return other.write == table.write; };
  return std::any_of(order.begin(), order.end(), is_this) && table.is_wanted(population);
}

/// Checks that a title stands in one line of the report, and behind `before`; yields the place of that line.
std::size_t expect_title(const std::vector<std::string>& lines, std::string_view title, std::size_t before) {
  const auto holds = [&](const std::string& line) { return line.find(title) != std::string::npos; };
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(), holds), 1) << title;
  const std::size_t place = line_with(lines, title);
  EXPECT_LT(before, place) << title;
  return place;
}

/// Checks that the block holds the titles of its tables in their order, each of them once, and no other title.
void expect_titles(const std::string& report, const std::vector<ReportTable>& order, const Population& population,
                   bool english) {
  const std::vector<std::string> lines = lines_of(report);
  std::size_t before = 0;
  for (const ReportTable& table : order) {
    if (!table.is_wanted(population)) continue;
    for (const Wording& title : table.titles) before = expect_title(lines, title.in(english), before);
  }
  for (const ReportTable& table : whole_order) {
    if (is_shown(table, order, population)) continue;
    for (const Wording& title : table.titles) {
      EXPECT_EQ(report.find(title.in(english)), std::string::npos) << title.in(english);
    }
  }
}

/// Checks that the block is made of these tables, one by one, behind a head of `head_lines` lines.
void expect_tables(const std::string& report, std::size_t head_lines, const std::vector<ReportTable>& order,
                   const Population& population, bool english) {
  ReportSheet sheet = sheet_of(population, english);
  append(sheet.output, joined(head_of(report, head_lines)));
  for (const ReportTable& table : order) {
    if (table.is_wanted(population)) table.write(sheet.frame(), population);
  }
  EXPECT_TRUE(report == sheet.output.pending) << report;
  expect_titles(report, order, population, english);
}

void expect_whole_report(const Population& population) {
  for (const bool english : {false, true}) {
    expect_tables(whole_report(population, english), english ? 7 : 8, whole_order, population, english);
  }
}

void expect_type_report(const Population& population) {
  for (const bool english : {false, true}) {
    expect_tables(type_report(population, english), 5, type_order, population, english);
  }
}

/// Checks a block with each of the four options on its own.
void expect_each_option(void (*expect_report)(const Population& population)) {
  for (int option = 0; option < 4; ++option) {
    Population population;
    population.store.has_import = option == 0;
    population.store.has_colour = option == 1;
    population.store.has_breeder = option == 2;
    if (option == 3) population.subpopulation_names.emplace_back("Rood");
    expect_report(population);
  }
}

TEST(WriteReport, AllTablesStandInTheirOrder) {
  expect_whole_report(Population().with_everything());
}

TEST(WriteReport, WithoutSubpopulationsColoursBreedersAndImportsTheirTablesAreLeftOut) {
  expect_whole_report(Population());
}

TEST(WriteReport, EachOptionalTableHasItsOwnCondition) {
  expect_each_option(expect_whole_report);
}

TEST(WriteReport, AYearWithoutAnimalsHasItsRowOfZerosInEachTable) {
  const std::vector<std::string> lines = lines_of(whole_report(Population().with_everything(), true));
  int rows = 0;
  for (const std::string& line : lines) {
    const std::string_view text = without_leading_blanks(line);
    if (!text.starts_with("2002")) continue;
    ++rows;
    EXPECT_EQ(text.substr(4).find_first_not_of(" 0.|-"), std::string_view::npos) << line;
  }
  // Population size, subpopulations, litters, litter sizes, offspring, imports, two of ages, generation interval,
  // completeness, top sires, colours, breeders, inbreeding, two of kinship.
  EXPECT_EQ(rows, 16);
}

TEST(WriteReport, NothingFollowsTheLastTable) {
  EXPECT_TRUE(whole_report(Population(), true).ends_with("\n" + rule(73) + "\n"));
}

// ---- what one table leaves to another --------------------------------------------------------------------------

TEST(WriteReport, LitterTotalsUseTheAnimalsLeftWhenTheParentsAreTakenOut) {
  Population population;
  population.block.tables.parent_counts = rows_of<ParentCounts>(3, {{1, {{6, 4, 2}, {3, 5, 1}}}});
  population.block.tables.litters = rows_of<LitterCounts>(3, {{1, {3, 1, {0, 0, 3}}}});
  population.describe();
  // 6 and 3 young are left, 4 own and 2 imported fathers: 9 / 3, 3 / 6 and 9 / 6.
  EXPECT_TRUE(has_line(lines_of(whole_report(population, true)), " totaal        3    3.00       6    0.50    1.50"));
}

TEST(WriteReport, RatesPerGenerationUseTheIntervalOfTheAgeTable) {
  // Sires of 5 and dams of 3 years: an interval of 4.
  EXPECT_TRUE(has_line(lines_of(whole_report(Population(), true)), "deltaF absolute       1.00%      4.00%     12.50"));
  EXPECT_TRUE(has_line(lines_of(type_report(Population(), true)), "deltaF absolute       1.00%      4.00%     12.50"));
}

TEST(WriteReport, SummaryShowsThePercentagesOfTheTopSires) {
  Population population;
  population.extras.top_sires =
      rows_of<TopSireRow>(3, {{1, {4, 1, {12.5F, 12.5F, 6.25F, 6.25F}}}, {2, {1, 1, {25.0F}}}});
  population.describe();
  // 37.5 and 25 percent, 31.25 on the average, and a half.
  EXPECT_TRUE(has_line(lines_of(whole_report(population, true)), "          32.%"));
}

TEST(WriteReport, BusiestParentsAreTheRecordsAtTheirPositions) {
  const std::vector<std::string> lines = lines_of(whole_report(Population(), true));
  EXPECT_EQ(lines[line_with(lines, "Male with the highest") + 1], " name: " + padded("Bertus", 50));
  EXPECT_EQ(lines[line_with(lines, "Female with the highest") + 1], " name: " + padded("Corrie", 50));
}

TEST(WriteReport, AnEmptyStoreShowsBlanksAndZerosForTheBusiestParents) {
  Population population;
  population.store = {};
  population.store.animal_count = -1;
  population.block.tables = {};
  population.block.inbreeding = YearRows<InbreedingRow>(2);
  population.extras.top_sires = YearRows<TopSireRow>(2);
  population.describe();
  const std::vector<std::string> lines = lines_of(whole_report(population, true));
  const std::size_t title = line_with(lines, "Male with the highest");
  ASSERT_LT(title + 4, lines.size());
  EXPECT_EQ(lines[title + 1], " name: " + std::string(50, ' '));
  EXPECT_EQ(lines[title + 2], " id-code: " + std::string(30, ' '));
  EXPECT_EQ(lines[title + 3], " Year of birth:            0");
  EXPECT_EQ(lines[title + 4], " Number of offspring:            0");
}

// ---- block of a subpopulation ----------------------------------------------------------------------------------

TEST(WriteTypeReport, HeadIsTheNameBetweenStarsWithoutCounts) {
  for (const bool english : {false, true}) {
    const std::vector<std::string> lines = lines_of(type_report(Population(), english));
    ASSERT_GT(lines.size(), 5U);
    EXPECT_EQ(lines[0], blank(10));
    EXPECT_EQ(lines[1], star_rule);
    EXPECT_EQ(lines[2], "           *Rood                *");
    EXPECT_EQ(lines[3], star_rule);
    EXPECT_EQ(lines[4], blank(10));
    EXPECT_EQ(lines[5], english ? "            POPULATIONSIZE: number of calves born per year"
                                : "            POPULATIEOMVANG: aantal kalf geboren per jaar");
  }
}

TEST(WriteTypeReport, AllTablesStandInTheirOrder) {
  expect_type_report(Population().with_everything());
}

TEST(WriteTypeReport, WithoutColoursBreedersAndImportsTheirTablesAreLeftOut) {
  expect_type_report(Population());
}

TEST(WriteTypeReport, EachOptionalTableHasItsOwnCondition) {
  expect_each_option(expect_type_report);
}

TEST(WriteTypeReport, HasNoSubpopulationsLitterSizesTopSiresAndSummary) {
  const std::string english = type_report(Population().with_everything(), true);
  for (const char* title :
       {"SUBPOPULATION", "Descent", "Litter Sizes", "Top sires", "Summary", "Kinship", "varieties"}) {
    EXPECT_EQ(english.find(title), std::string::npos) << title;
  }
  const std::string dutch = type_report(Population().with_everything(), false);
  for (const char* title : {"SUBPOPULATIE", "RASCODE", "Worpgrootte", "Topvaders", "Samenvatting", "Verwantschap"}) {
    EXPECT_EQ(dutch.find(title), std::string::npos) << title;
  }
}

/// The name that the English block of a subpopulation shows behind the line that begins with `title`.
std::string busiest_name(const Population& population, std::string_view title) {
  const std::vector<std::string> lines = lines_of(type_report(population, true));
  return lines[line_with(lines, title) + 1];
}

TEST(WriteTypeReport, TheFirstAnimalStandsInForTheBusiestParentOfASexWithoutAnimals) {
  for (const Sex sex : {male, female}) {
    Population population;
    population.store.sex = ByNumber<Sex>(population.store.size(), sex);
    population.describe();
    EXPECT_EQ(busiest_name(population, "Male with the highest"),
              " name: " + padded(sex == male ? "Bertus" : "Adema", 50));
    EXPECT_EQ(busiest_name(population, "Female with the highest"),
              " name: " + padded(sex == female ? "Bertus" : "Adema", 50));
  }
}

TEST(WriteTypeReport, CountsTheWholeStoreAsAnimalsInThePedigree) {
  Population population;
  population.block.tables.parent_counts = rows_of<ParentCounts>(3, {{1, {{6, 4, 0}, {3, 5, 0}}}});
  population.describe();
  population.block.without_birth_year = 882;
  population.store.animal_count = 900;
  EXPECT_TRUE(has_line(lines_of(type_report(population, true)),
                       " total number of animals in pedigree          900  of which          882"));
}

}  // namespace
}  // namespace pedigreewatch::test
