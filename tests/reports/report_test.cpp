#include "reports/report.h"

#include <gtest/gtest.h>

#include "reports/breeder_colour_tables.h"
#include "reports/import_table.h"
#include "reports/inbreeding_tables.h"
#include "reports/offspring_litter_tables.h"
#include "reports/parent_age_tables.h"
#include "reports/population_size_table.h"
#include "reports/population_summary.h"
#include "reports/subpopulation_tables.h"
#include "reports/top_sire_table.h"
#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

/// Fills the cells of the first and the last year with numbers that no other table has.
struct CellFiller {
  std::int32_t next = 1;

  template <typename Cell>
  void fill(YearTable<Cell>& table) {
    for (std::int64_t row = 1; row <= table.row_count; row += std::max<std::int64_t>(table.row_count - 1, 1)) {
      for (std::int64_t column = 1; column <= table.column_count; ++column) {
        table.at(row, column) = static_cast<Cell>(next++);
      }
    }
  }
};

/// Everything a block of the report is made from, in three years; nobody was born in 2002.
struct Block {
  BirthYears years = years_from(2001, 3);
  PopulationStore store;
  SteerSettings settings;
  MonitorTables monitor;
  BreederList breeders;
  OverallParentAges overall_ages = {.sire = 5.0F, .dam = 3.0F};
  BusiestParents busiest = {.sire = 2, .dam = 3};
  WholePopulationTables whole;

  Block() {
    store.animals.resize(3);
    const std::string_view names[] = {"Adema", "Bertus", "Corrie"};
    for (std::size_t i = 0; i < 3; ++i) {
      store.animals[i].name.assign(names[i]);
      store.animals[i].id.assign("NL-" + std::to_string(i + 1));
      store.animals[i].birth_year = 1995;
    }
    store.animal_count = 3;
    store.birth_years = years;
    settings.population_name.assign("Lakenvelder");
    settings.subpopulation_count = 1;
    settings.subpopulation_names = {SubpopulationName("Zwart"), SubpopulationName("Rood")};
    settings.colour_count = 3;
    settings.colour_names = {ColourName("blauw"), ColourName("Onbekend"), ColourName("niet erkend")};
    breeders = {.text = padded("Jansen", 20), .breeder_count = 1, .top_breeder_count = 1};
    monitor = make_monitor_tables(years, {.sire = 2, .dam = 3}, settings.colour_count, breeders.top_breeder_count);
    whole.inbreeding = YearTable<float>(3, 6);
    whole.rates = {
        .delta_F_absolute = 0.01F, .delta_f_absolute = 0.02F, .delta_F_smoothed = 0.03F, .delta_f_smoothed = 0.04F};
    whole.kinship = YearTable<float>(3, 5);
    whole.subpopulation_years = YearTable<std::int32_t>(3, 2);
    whole.overlap = SubpopulationOverlap(2);
    whole.overlap.counts = {11, 22, 33, 44};
    whole.top_sires = {YearTable<std::int32_t>(3, 1), YearTable<std::int32_t>(3, 1), YearTable<float>(3, 10)};
    fill_tables();
  }

  void fill_tables() {
    CellFiller filler;
    for (YearTable<float>* table :
         {&monitor.equivalent_generations, &monitor.complete_generation_shares, &monitor.parent_offspring,
          &monitor.mean_sire_age, &monitor.mean_dam_age, &whole.inbreeding, &whole.kinship, &whole.top_sires.shares}) {
      filler.fill(*table);
    }
    for (YearTable<std::int32_t>* table :
         {&monitor.sire_age_classes, &monitor.dam_age_classes, &monitor.parent_counts, &monitor.import_pairs,
          &monitor.litters, &monitor.colour_counts, &monitor.top_breeders, &whole.subpopulation_years,
          &whole.top_sires.sire_count}) {
      filler.fill(*table);
    }
    whole.top_sires.top_sire.at(1, 1) = 2;
    whole.top_sires.top_sire.at(3, 1) = 1;
  }

  Block with_everything() && {
    store.has_import = store.has_colour = store.has_breeder = true;
    settings.subpopulation_count = 2;
    return *this;
  }
};

std::string whole_report(Block block, bool english) {
  ReportSheet sheet(block.years, english);
  write_report(sheet.frame(), block.store, block.settings, block.monitor, block.breeders, block.overall_ages,
               block.busiest, block.whole);
  return sheet.output.pending;
}

std::string type_report(Block block, bool english) {
  ReportSheet sheet(block.years, english);
  write_type_report(sheet.frame(), block.store, block.settings, block.settings.subpopulation_names[1], block.monitor,
                    block.breeders, block.overall_ages, block.busiest, block.whole.inbreeding, block.whole.rates);
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
  EXPECT_EQ(head_of(whole_report(Block(), true), 8), (std::vector<std::string>{
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
  EXPECT_EQ(head_of(whole_report(Block(), false), 9), (std::vector<std::string>{
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
  EXPECT_EQ(head_of(whole_report(Block().with_everything(), true), 8),
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
  EXPECT_EQ(head_of(whole_report(Block().with_everything(), false), 9),
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
  Block block;
  block.settings.population_name.assign("Bonte");
  EXPECT_EQ(lines_of(whole_report(block, true))[1], "           *Bonte                                   *");
  block.settings.population_name.assign(std::string(40, 'B'));
  EXPECT_EQ(lines_of(whole_report(block, true))[1], "           *" + std::string(40, 'B') + "*");
}

TEST(WriteReport, AccentedLetterOfTheDutchCountsIsOneByte) {
  const std::string line = lines_of(whole_report(Block(), false))[4];
  EXPECT_EQ(line.find('\xEB'), 12U);
  EXPECT_EQ(line.size(), 1U + 20U + 12U);
}

// ---- order of the tables ---------------------------------------------------------------------------------------

/// The report of the whole population from its tables one by one, behind the head that the tests above show.
std::string whole_report_by_hand(Block block, bool english) {
  ReportSheet sheet(block.years, english);
  const ReportFrame frame = sheet.frame();
  const bool has_subpopulations = block.settings.subpopulation_count > 1;
  MonitorTables& monitor = block.monitor;
  const PopulationStore& store = block.store;
  const ReportTotals totals = write_population_size(frame, store.has_import, store.animal_count, monitor.parent_counts);
  if (has_subpopulations) {
    write_subpopulation_tables(frame, block.settings.subpopulation_names, block.whole.subpopulation_years,
                               block.whole.overlap);
  }
  write_parents_and_litters(frame, monitor.litters, totals);
  append(sheet.output, blank() + "\n");
  write_litter_sizes(frame, monitor.litters);
  write_offspring(frame, monitor.parent_offspring, store.animals[1], store.animals[2]);
  if (store.has_import) write_imports(frame, monitor.import_pairs);
  write_age_tables(frame, monitor.sire_age_classes, monitor.dam_age_classes);
  const float interval =
      write_generation_interval(frame, monitor.mean_sire_age, monitor.mean_dam_age, block.overall_ages);
  write_completeness(frame, monitor.equivalent_generations, monitor.complete_generation_shares);
  write_top_sires(frame, store, block.whole.top_sires);
  if (store.has_colour) write_colours(frame, block.settings.colour_names, monitor.colour_counts);
  if (store.has_breeder) write_breeders(frame, block.breeders, monitor.top_breeders);
  write_inbreeding(frame, block.whole.inbreeding, block.whole.rates, interval);
  write_summary(frame, monitor, block.whole.top_sires.shares);
  if (has_subpopulations) write_subpopulation_kinship(frame, block.settings.subpopulation_names, block.whole.kinship);
  return sheet.output.pending;
}

void expect_whole_report(const Block& block, bool english) {
  const std::string report = whole_report(block, english);
  const std::string tables = whole_report_by_hand(block, english);
  const std::string head = joined(head_of(report, english ? 7 : 8));
  EXPECT_TRUE(report == head + tables) << report;
}

TEST(WriteReport, AllTablesStandInTheirOrder) {
  expect_whole_report(Block().with_everything(), true);
  expect_whole_report(Block().with_everything(), false);
}

TEST(WriteReport, WithoutSubpopulationsColoursBreedersAndImportsTheirTablesAreLeftOut) {
  expect_whole_report(Block(), true);
  expect_whole_report(Block(), false);
}

TEST(WriteReport, EachOptionalTableHasItsOwnCondition) {
  for (int option = 0; option < 4; ++option) {
    Block block;
    block.store.has_import = option == 0;
    block.store.has_colour = option == 1;
    block.store.has_breeder = option == 2;
    block.settings.subpopulation_count = option == 3 ? 2 : 1;
    expect_whole_report(block, true);
    const std::string report = whole_report(block, true);
    const auto has = [&](std::string_view text) { return report.find(text) != std::string::npos; };
    EXPECT_EQ(has("IMPORT: aantal pups"), option == 0);
    EXPECT_EQ(has("COLOUR VARIETIES"), option == 1);
    EXPECT_EQ(has("Main Breeders"), option == 2);
    EXPECT_EQ(has("SUBPOPULATIONs in population"), option == 3);
    EXPECT_EQ(has("Inbreeding and Kinship within"), option == 3);
  }
}

/// Checks that the texts stand in the report in this order, each of them once.
void expect_order(const std::string& report, const std::vector<std::string>& titles) {
  const std::vector<std::string> lines = lines_of(report);
  std::size_t before = 0;
  for (const std::string& title : titles) {
    const auto holds = [&](const std::string& line) { return line.find(title) != std::string::npos; };
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), holds), 1) << title;
    const std::size_t place = line_with(lines, title);
    EXPECT_LT(before, place) << title;
    before = place;
  }
}

TEST(WriteReport, TitlesFollowEachOtherInEnglish) {
  expect_order(whole_report(Block().with_everything(), true), {"*Lakenvelder",
                                                               "Number of varieties",
                                                               "number of colours",
                                                               "breeders analysed",
                                                               "POPULATION SIZE",
                                                               "SUBPOPULATIONs",
                                                               "Descent of Breed",
                                                               "Number of parents and litter size",
                                                               "Litter Sizes",
                                                               "OFFSPRING/PARENT",
                                                               "Male with the highest",
                                                               "Female with the highest",
                                                               "IMPORT",
                                                               "AGE fathers",
                                                               "AGE mothers",
                                                               "GENERATION INTERVAL",
                                                               "PEDIGREE COMPLETENESS",
                                                               "Top sires",
                                                               "COLOUR VARIETIES",
                                                               "Main Breeders",
                                                               "INBREEDING",
                                                               "deltaF absolute",
                                                               "Summary population data",
                                                               "Inbreeding and Kinship",
                                                               "Kinship between"});
}

TEST(WriteReport, TitlesFollowEachOtherInDutch) {
  expect_order(whole_report(Block().with_everything(), false), {"*Lakenvelder",
                                                                "Aantal vari",
                                                                "aantal kleurslagen",
                                                                "wel fokkers",
                                                                "POPULATIEOMVANG",
                                                                "SUBPOPULATIEs",
                                                                "Afstamming RASCODEs",
                                                                "aantal ouders en nestgrootte",
                                                                "     Worpgrootte",
                                                                "NAKOMELINGEN/OUDER",
                                                                "reu met de meeste",
                                                                "teef met de meeste",
                                                                "IMPORT",
                                                                "LEEFTIJD vaders",
                                                                "LEEFTIJD moeders",
                                                                "GENERATIEINTERVAL",
                                                                "COMPLEETHEID",
                                                                "Topvaders",
                                                                "KLEURSLAGEN",
                                                                "belangrijkste Fokkers",
                                                                "INTEELT",
                                                                "deltaF absolute",
                                                                "Samenvatting",
                                                                "Inteelt en Verwantschap",
                                                                "Verwantschap tussen"});
}

TEST(WriteReport, AYearWithoutAnimalsHasItsRowOfZerosInEachTable) {
  const std::vector<std::string> lines = lines_of(whole_report(Block().with_everything(), true));
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
  EXPECT_TRUE(whole_report(Block(), true).ends_with("\n" + rule(73) + "\n"));
}

// ---- what one table leaves to another --------------------------------------------------------------------------

TEST(WriteReport, LitterTotalsUseTheAnimalsLeftWhenTheParentsAreTakenOut) {
  Block block;
  block.monitor.parent_counts = table_of<std::int32_t>(6, {{10, 4, 2, 8, 5, 1}, {}, {}});
  block.monitor.litters = table_of<std::int32_t>(litter_columns, {{3, 1, 0, 0, 3}, {}, {}});
  // 6 and 3 young are left, 4 own and 2 imported fathers: 9 / 3, 3 / 6 and 9 / 6.
  EXPECT_TRUE(has_line(lines_of(whole_report(block, true)), " totaal        3    3.00       6    0.50    1.50"));
}

TEST(WriteReport, RatesPerGenerationUseTheIntervalOfTheAgeTable) {
  // Sires of 5 and dams of 3 years: an interval of 4.
  EXPECT_TRUE(has_line(lines_of(whole_report(Block(), true)), "deltaF absolute       1.00%      4.00%     12.50"));
  EXPECT_TRUE(has_line(lines_of(type_report(Block(), true)), "deltaF absolute       1.00%      4.00%     12.50"));
}

TEST(WriteReport, SummaryShowsThePercentagesOfTheTopSires) {
  Block block;
  block.whole.top_sires.shares = table_of<float>(10, {{0.125F, 0.125F, 0.0625F, 0.0625F}, {0.25F}, {}});
  // 37.5 and 25 percent, 31.25 on the average, and a half.
  EXPECT_TRUE(has_line(lines_of(whole_report(block, true)), "          32.%"));
}

TEST(WriteReport, BusiestParentsAreTheRecordsAtTheirPositions) {
  const std::vector<std::string> lines = lines_of(whole_report(Block(), true));
  EXPECT_EQ(lines[line_with(lines, "Male with the highest") + 1], " name: " + padded("Bertus", 50));
  EXPECT_EQ(lines[line_with(lines, "Female with the highest") + 1], " name: " + padded("Corrie", 50));
}

TEST(WriteReport, AnEmptyStoreShowsBlanksAndZerosForTheBusiestParents) {
  Block block;
  block.years = no_years();
  block.store = {};
  block.store.animal_count = -1;
  block.busiest = {.sire = 1, .dam = 1};
  block.monitor = make_monitor_tables(block.years, {}, 3, 1);
  block.whole.inbreeding = YearTable<float>(2, 6);
  block.whole.top_sires = {{2, 1}, {2, 1}, {2, 10}};
  const std::vector<std::string> lines = lines_of(whole_report(block, true));
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
    const std::vector<std::string> lines = lines_of(type_report(Block(), english));
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

/// The block of a subpopulation from its tables one by one; `sire` and `dam` are counted from 0.
std::string type_report_by_hand(Block block, bool english, std::size_t sire, std::size_t dam) {
  ReportSheet sheet(block.years, english);
  const ReportFrame frame = sheet.frame();
  MonitorTables& monitor = block.monitor;
  const PopulationStore& store = block.store;
  append(sheet.output, joined({blank(10), star_rule, "           *Rood                *", star_rule, blank(10)}));
  const ReportTotals totals = write_population_size(frame, store.has_import, store.animal_count, monitor.parent_counts);
  if (store.has_import) write_imports(frame, monitor.import_pairs);
  write_parents_and_litters(frame, monitor.litters, totals);
  write_offspring(frame, monitor.parent_offspring, store.animals[sire], store.animals[dam]);
  write_age_tables(frame, monitor.sire_age_classes, monitor.dam_age_classes);
  const float interval =
      write_generation_interval(frame, monitor.mean_sire_age, monitor.mean_dam_age, block.overall_ages);
  write_completeness(frame, monitor.equivalent_generations, monitor.complete_generation_shares);
  if (store.has_colour) write_colours(frame, block.settings.colour_names, monitor.colour_counts);
  if (store.has_breeder) write_breeders(frame, block.breeders, monitor.top_breeders);
  write_inbreeding(frame, block.whole.inbreeding, block.whole.rates, interval);
  return sheet.output.pending;
}

TEST(WriteTypeReport, AllTablesStandInTheirOrder) {
  for (const bool english : {false, true}) {
    const Block block = Block().with_everything();
    EXPECT_TRUE(type_report(block, english) == type_report_by_hand(block, english, 1, 2));
  }
}

TEST(WriteTypeReport, WithoutColoursBreedersAndImportsTheirTablesAreLeftOut) {
  for (const bool english : {false, true}) {
    EXPECT_TRUE(type_report(Block(), english) == type_report_by_hand(Block(), english, 1, 2));
  }
}

TEST(WriteTypeReport, TitlesFollowEachOtherInEnglish) {
  expect_order(type_report(Block().with_everything(), true),
               {"*Rood", "POPULATION SIZE", "IMPORT", "Number of parents and litter size", "OFFSPRING/PARENT",
                "Male with the highest", "Female with the highest", "AGE fathers", "AGE mothers", "GENERATION INTERVAL",
                "PEDIGREE COMPLETENESS", "COLOUR VARIETIES", "Main Breeders", "INBREEDING", "deltaF absolute"});
}

TEST(WriteTypeReport, HasNoSubpopulationsLitterSizesTopSiresAndSummary) {
  const std::string english = type_report(Block().with_everything(), true);
  for (const char* title :
       {"SUBPOPULATION", "Descent", "Litter Sizes", "Top sires", "Summary", "Kinship", "varieties"}) {
    EXPECT_EQ(english.find(title), std::string::npos) << title;
  }
  const std::string dutch = type_report(Block().with_everything(), false);
  for (const char* title : {"SUBPOPULATIE", "RASCODE", "Worpgrootte", "Topvaders", "Samenvatting", "Verwantschap"}) {
    EXPECT_EQ(dutch.find(title), std::string::npos) << title;
  }
}

TEST(WriteTypeReport, TheFirstAnimalStandsInForBusiestParentsBelowOne) {
  for (const std::int32_t none : {0, -1}) {
    Block block;
    block.busiest = {.sire = none, .dam = none};
    EXPECT_TRUE(type_report(block, true) == type_report_by_hand(block, true, 0, 0));
  }
}

TEST(WriteTypeReport, CountsTheWholeStoreAsAnimalsInThePedigree) {
  Block block;
  block.store.animal_count = 900;
  block.monitor.parent_counts = table_of<std::int32_t>(6, {{10, 4, 0, 8, 5, 0}, {}, {}});
  EXPECT_TRUE(has_line(lines_of(type_report(block, true)),
                       " total number of animals in pedigree          900  of which          882"));
}

}  // namespace
}  // namespace pedigreewatch::test
