#include "standing/standing_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/numbered_store.h"
#include "support/places.h"

namespace pedigreewatch::test {
namespace {

const StandingRow* row_named(const std::vector<StandingRow>& rows, std::string_view figure) {
  for (const StandingRow& row : rows) {
    if (row.figure == figure) return &row;
  }
  return nullptr;
}

Standing some_standing() {
  Standing standing;
  standing.pace = Pace::too_fast;
  standing.sureness = 2;
  standing.years = {2024, 2020, 2022, 2016, 3.0, 2015};
  standing.now[by_kinship] = {0.0125, std::log(2.0) / 1.96, 3.0};
  standing.sires.parents = {{2, 30, 0.3}, {1, 5, 0.05}};
  standing.overused_sires = 1;
  standing.sires_to_rest = {{2, 30, 0.3}};
  standing.rate_with_sires_held = 0.01;
  standing.rare_lines = {{{1, 0.001, {{3, 0.01}, {4, 0.02}}}}, 12, 3};
  standing.young.judged = 8;
  standing.young.close = 2;
  return standing;
}

const PopulationStore& four_animals() {
  static const PopulationStore store = numbered_store("m\nm\n.\n.\n");
  return store;
}

TEST(StandingTable, TheVerdictIsTheFirstRow) {
  const std::vector<StandingRow> rows = standing_rows(four_animals(), some_standing(), ToolLanguage::english);
  EXPECT_EQ(rows.front().figure, "verdict");
  EXPECT_EQ(rows.front().value, "too_fast");
  EXPECT_EQ(name_of(Pace::on_the_edge), "on_the_edge");
  EXPECT_EQ(name_of(Pace::within_limit), "within_limit");
  EXPECT_EQ(name_of(Pace::cannot_be_judged), "cannot_be_judged");
}

TEST(StandingTable, RatesHaveTheirMargins) {
  const std::vector<StandingRow> rows = standing_rows(four_animals(), some_standing(), ToolLanguage::english);
  const StandingRow* const rate = row_named(rows, "rate");
  ASSERT_NE(rate, nullptr);
  EXPECT_EQ(rate->value, "0.0125");
  EXPECT_EQ(rate->low, "0.00625");
  EXPECT_EQ(rate->high, "0.025");
  EXPECT_EQ(rate->limit, "0.01");
  EXPECT_EQ(rate->source,
            "pairs of animals born 2022-2024, ancestors born from 2016 on; FAO (1998): 1 % per generation");
  const StandingRow* const size = row_named(rows, "effective_size");
  ASSERT_NE(size, nullptr);
  EXPECT_EQ(size->value, "40");
  EXPECT_EQ(size->low, "20");
  EXPECT_EQ(size->high, "80");
  EXPECT_EQ(row_named(rows, "rate_by_inbreeding")->value, "");
  EXPECT_EQ(row_named(rows, "rate_since_rule"), nullptr);
  EXPECT_EQ(row_named(rows, "young_of_half_sibs_or_closer")->value, "0.25");
}

TEST(StandingTable, SiresAndLinesAreNamedByIdentification) {
  Standing standing = some_standing();
  std::vector<StandingRow> rows = standing_rows(four_animals(), standing, ToolLanguage::dutch);
  EXPECT_EQ(row_named(rows, "overused_sire_1")->value, "a2");
  EXPECT_EQ(row_named(rows, "overused_sire_1_share")->value, "0.3");
  EXPECT_EQ(row_named(rows, "overused_sire_1_share")->limit, "0.05");
  EXPECT_EQ(row_named(rows, "overused_sire_2"), nullptr);
  EXPECT_EQ(row_named(rows, "rare_line_1")->value, "a1");
  EXPECT_EQ(row_named(rows, "rare_line_1")->source,
            "stamdier van welks genen minder dan 0.5 % over is; dieren die ze dragen: a3, a4");
  EXPECT_EQ(row_named(rows, "founders_of_young")->value, "12");
  EXPECT_EQ(row_named(rows, "rare_founders")->value, "3");
  EXPECT_EQ(row_named(rows, "rare_founders")->limit, "0.005");
  EXPECT_NE(row_named(rows, "most_used_sire_share")->source.find("geen geeft"), std::string::npos);
  standing.settings.is_sire_share_given = true;
  rows = standing_rows(four_animals(), standing, ToolLanguage::dutch);
  EXPECT_NE(row_named(rows, "most_used_sire_share")->source.find("grens van het bestuur"), std::string::npos);
}

TEST(StandingTable, OnlySiresThatAreThereAreNamedAndTheOthersCounted) {
  Standing standing = some_standing();
  EXPECT_EQ(row_named(standing_rows(four_animals(), standing, ToolLanguage::english), "overused_sires_gone"), nullptr);
  standing.overused_sires = 2;
  standing.sires_to_rest = {{1, 5, 0.05}};
  const std::vector<StandingRow> rows = standing_rows(four_animals(), standing, ToolLanguage::english);
  EXPECT_EQ(row_named(rows, "overused_sire_1")->value, "a1");
  EXPECT_EQ(row_named(rows, "overused_sire_2"), nullptr);
  EXPECT_EQ(row_named(rows, "overused_sires_gone")->value, "1");
}

TEST(StandingTable, TellsTheSiresPartAndWhatAnImportWouldDo) {
  Standing standing = some_standing();
  standing.sires.effective = 10.0;
  standing.dams.parents = {{3, 35, 1.0}};
  standing.dams.effective = 30.0;
  standing.young.chance_inbreeding = 0.2;
  const std::vector<StandingRow> rows = standing_rows(four_animals(), standing, ToolLanguage::english);
  EXPECT_EQ(row_named(rows, "sires_part_of_rise")->value, "0.75");
  EXPECT_EQ(row_named(rows, "inbreeding_with_import")->value, "0.19");
  EXPECT_EQ(row_named(rows, "inbreeding_with_import")->limit, "0.05");
  EXPECT_EQ(row_named(rows, "generations_gained_by_import")->value, "1");  // 0.01 at 0.0125 x 0.8 each
}

TEST(StandingTable, WhatIsNotKnownIsEmptyAndNoNumber) {
  Standing standing;
  standing.years = {2024, 2020, 2024, 2024, 0.0, 2015};
  standing.young.births = 30;
  standing.rule = RuleEffect{2020, {}, {}, false, {}};
  const std::vector<StandingRow> rows = standing_rows(four_animals(), standing, ToolLanguage::english);
  for (const std::string_view figure :
       {"rate", "inbreeding_of_young", "inbreeding_by_chance", "inbreeding_with_import", "sires_used", "dams_used",
        "sires_effective", "dams_share_of_four", "founders_of_young", "rare_founders", "unknown_parents",
        "change_is_real", "generation_interval"}) {
    ASSERT_NE(row_named(rows, figure), nullptr) << figure;
    EXPECT_EQ(row_named(rows, figure)->value, "") << figure;
  }
  EXPECT_EQ(row_named(rows, "births")->value, "30");
  EXPECT_EQ(row_named(rows, "rate")->source, "the generation interval is not known; FAO (1998): 1 % per generation");
  EXPECT_EQ(row_named(rows, "founders_of_young")->source, "the generation interval is not known");
}

TEST(StandingTable, ARuleHasItsRows) {
  Standing standing = some_standing();
  standing.rule = RuleEffect{2015, {0.02, 0.1, 3.0}, {0.01, 0.1, 3.0}, true, {}};
  const std::vector<StandingRow> rows = standing_rows(four_animals(), standing, ToolLanguage::english);
  EXPECT_EQ(row_named(rows, "rule_year")->value, "2015");
  EXPECT_EQ(row_named(rows, "rate_before_rule")->value, "0.02");
  EXPECT_EQ(row_named(rows, "rate_since_rule")->value, "0.01");
  EXPECT_EQ(row_named(rows, "change_is_real")->value, "1");
}

/// Figures of sires and lines by what they are called with a number: "overused_sire_N".
std::string figure_family(const std::string& figure) {
  const std::size_t digit = figure.find_first_of("123456789");
  return digit == std::string::npos ? figure : figure.substr(0, digit) + "N" + figure.substr(digit + 1);
}

/// A breed of which there is something to say with every figure.
Standing standing_with_everything() {
  Standing standing = some_standing();
  standing.rule = RuleEffect{2015, {0.02, 0.1, 3.0}, {0.01, 0.1, 3.0}, true, {}};
  standing.overused_sires = 2;
  standing.sires.effective = 10.0;
  standing.dams.effective = 30.0;
  return standing;
}

/// What the section of docs/tables.md about this table has in the first cell of its rows.
std::vector<std::string> described_figures() {
  std::vector<std::string> figures;
  bool is_here = false;
  for (const std::string& line : lines_of(bytes_of(source_folder() + "/docs/tables.md"))) {
    if (line.starts_with("## ")) is_here = line == "## NAME_standing";
    if (is_here && line.starts_with("| `")) figures.push_back(line.substr(3, line.find('`', 3) - 3));
  }
  return figures;
}

TEST(StandingTable, IsDescribedFigureByFigureInItsOrder) {
  std::vector<std::string> written;
  for (const StandingRow& row : standing_rows(four_animals(), standing_with_everything(), ToolLanguage::english)) {
    written.push_back(figure_family(row.figure));
  }
  EXPECT_EQ(described_figures(), written);
}

}  // namespace
}  // namespace pedigreewatch::test
