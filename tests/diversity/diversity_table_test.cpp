#include "diversity/diversity_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/diversity_pedigrees.h"
#include "support/lines.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

constexpr auto english = ToolLanguage::english;

DiversityRow row_named(const std::vector<DiversityRow>& rows, std::string_view figure) {
  for (const DiversityRow& row : rows) {
    if (row.figure == figure) return row;
  }
  ADD_FAILURE() << "no row " << figure;
  return {};
}

struct Population {
  PopulationStore store;
  Diversity diversity;

  std::vector<DiversityRow> rows(ToolLanguage language = english) const {
    return diversity_rows(store, diversity, language);
  }
};

// half's mother is not known; a and b are half sibs.
Population half_sibs() {
  Population population;
  population.store = with_inbreeding(
      pedigree_from_text("sire 0    0    m 2000\nhalf sire 0    m 2001\ndam1 0    0    f 2001\ndam2 0    0    f 2001\n"
                         "a    half dam1 m 2005\nb    half dam2 f 2006\n"));
  population.diversity = compute_diversity(population.store, animals_born(population.store, 2005, 2006));
  return population;
}

TEST(DiversityTable, FiguresStandInTheirRows) {
  const std::vector<DiversityRow> rows = half_sibs().rows();
  EXPECT_EQ(row_named(rows, "reference_population").text, "born in these years");
  EXPECT_EQ(row_named(rows, "reference_first_year").value, "2005");
  EXPECT_EQ(row_named(rows, "reference_last_year").value, "2006");
  EXPECT_EQ(row_named(rows, "reference_animals").value, "2");
  EXPECT_EQ(row_named(rows, "founders_and_half_founders").text, "3 / 1");
  EXPECT_EQ(row_named(rows, "founders").value, "3");
  EXPECT_EQ(row_named(rows, "half_founders").value, "1");
  EXPECT_EQ(row_named(rows, "effective_founders").value, "4");
  EXPECT_EQ(row_named(rows, "effective_ancestors").value, "2.666666667");
  EXPECT_EQ(row_named(rows, "effective_ancestors").n, "3");
  EXPECT_EQ(row_named(rows, "ancestors_for_half").value, "1");
  EXPECT_EQ(row_named(rows, "main_ancestor_1").text, "half");
  EXPECT_EQ(row_named(rows, "main_ancestor_1").value, "0.5");
  EXPECT_EQ(row_named(rows, "main_ancestor_3").text, "dam1");
  EXPECT_EQ(row_named(rows, "main_ancestor_4").text, "");
  EXPECT_EQ(row_named(rows, "main_ancestors").value, "1");
  EXPECT_EQ(row_named(rows, "founder_genomes").value, "1.6");
  EXPECT_EQ(row_named(rows, "completeness_index").value, "0.24");
  EXPECT_EQ(row_named(rows, "effective_size_by_inbreeding").value, "");
  EXPECT_EQ(row_named(rows, "effective_size_by_inbreeding").text, "not estimable");
  EXPECT_EQ(row_named(rows, "effective_size_by_coancestry").n, "1");
  EXPECT_EQ(row_named(rows, "interval_sire_son").value, "1");  // half, of sire
  EXPECT_EQ(row_named(rows, "interval_sire_daughter").value, "");
  EXPECT_EQ(row_named(rows, "not_positive_all_paths").value, "0");
}

TEST(DiversityTable, TellsWhoIsLeftOut) {
  Population population = half_sibs();
  EXPECT_EQ(row_named(population.rows(), "reference_born").value, "2");
  population.diversity = compute_diversity(population.store, youngest_animals(population.store));
  EXPECT_EQ(row_named(population.rows(), "reference_animals").value, "2");
  EXPECT_EQ(row_named(population.rows(), "reference_born").value, "6");  // from 2000 on; four lack a parent
  population.diversity = compute_diversity(population.store, {ReferenceChoice::listed, 0, 0, {5}, 0});
  EXPECT_EQ(row_named(population.rows(), "reference_born").value, "");
}

// c is unrelated to a and b, half sibs through half: f is 1/8 within one of three pairs.
TEST(DiversityTable, NamesTheAnimalsAtTheEndsOfMeanKinship) {
  Population population;
  population.store =
      with_inbreeding(pedigree_from_text("half 0    0    m 2001\ndam1 0    0    f 2001\ndam2 0    0    f 2001\n"
                                         "c    0    0    m 2005\na    half dam1 m 2005\nb    half dam2 f 2006\n"));
  population.diversity = compute_diversity(population.store, animals_born(population.store, 2005, 2006));
  const std::vector<DiversityRow> rows = population.rows();
  EXPECT_EQ(row_named(rows, "mean_kinship_without_self").value, "0.04166666667");
  EXPECT_EQ(row_named(rows, "lowest_mean_kinship").text, "c");
  EXPECT_EQ(row_named(rows, "lowest_mean_kinship_equivalents").value, "0");
  EXPECT_EQ(row_named(rows, "highest_mean_kinship").text, "a");
  EXPECT_EQ(row_named(rows, "highest_mean_kinship_equivalents").value, "1");
  EXPECT_EQ(row_named(rows, "highest_mean_kinship_name").text, "a");  // named as it is identified
}

TEST(DiversityTable, EveryLineHasSixFields) {
  const Population population = half_sibs();
  const std::vector<std::string> lines = lines_of(write_diversity(population.store, population.diversity, english));
  EXPECT_EQ(lines.front(), "figure\tvalue\tstandard_error\tn\ttext\tmeaning");
  EXPECT_EQ(lines.size(), population.rows().size() + 1);
  for (const std::string& line : lines) EXPECT_EQ(std::ranges::count(line, '\t'), 5) << line;
}

TEST(DiversityTable, HasTheSameFiguresInBothLanguages) {
  const Population population = half_sibs();
  const std::vector<DiversityRow> rows = population.rows(), dutch = population.rows(ToolLanguage::dutch);
  ASSERT_EQ(rows.size(), dutch.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].figure, dutch[i].figure);
    EXPECT_EQ(rows[i].value, dutch[i].value);
    EXPECT_FALSE(dutch[i].meaning.empty());
  }
  EXPECT_EQ(row_named(dutch, "effective_size_by_inbreeding").text, "niet te schatten");
}

TEST(DiversityTable, AnEmptyReferencePopulationHasTheSameRowsWithoutFigures) {
  const PopulationStore store = numbered_store("2000\n");
  const Diversity nothing = compute_diversity(store, youngest_animals(store));
  const std::vector<DiversityRow> rows = diversity_rows(store, nothing, english);
  EXPECT_EQ(rows.size(), half_sibs().rows().size());
  EXPECT_EQ(row_named(rows, "reference_animals").value, "0");
  EXPECT_EQ(row_named(rows, "effective_ancestors").value, "");
  EXPECT_EQ(row_named(rows, "mean_kinship").value, "");
  EXPECT_EQ(write_diversity(store, nothing, english).find("nan"), std::string::npos);
}

TEST(DiversityTable, IdsStayOnTheirLine) {
  std::vector<AnimalRecord> records(3);
  records[0].id.assign("a\tb\nc");
  records[1].id.assign("zo\xEB");
  records[2].sire_no = 1;
  records[2].dam_no = 2;
  count_all_offspring(records);
  const PopulationStore store = with_inbreeding(finished_store_of(records));
  const Diversity diversity = compute_diversity(store, {ReferenceChoice::listed, 0, 0, {3}, 0});
  const std::vector<DiversityRow> rows = diversity_rows(store, diversity, english);
  EXPECT_EQ(row_named(rows, "main_ancestor_1").text, "zo\xC3\xAB");
  EXPECT_EQ(row_named(rows, "main_ancestor_2").text, "a<U+0009>b<U+000A>c");
}

TEST(DiversityTable, QuotationMarksOfIdsAreDoubledInQuotationMarks) {
  const PopulationStore store = with_inbreeding(pedigree_from_text("a\"b 0 0 m 2000\nyoung a\"b 0 m 2001\n"));
  const std::string table = write_diversity(store, compute_diversity(store, animals_born(store, 2001, 2001)), english);
  EXPECT_NE(table.find("\nmain_ancestor_1\t0.5\t\t\t\"a\"\"b\"\tshare"), std::string::npos) << table;
}

TEST(DiversityTable, AnUnknownParentIsNamedAfterItsYoung) {
  const PopulationStore store = with_inbreeding(pedigree_from_text("sire 0 0 m 2000\nhalf sire 0 m 2001\n"));
  const Diversity diversity = compute_diversity(store, animals_born(store, 2001, 2001));
  EXPECT_EQ(row_named(diversity_rows(store, diversity, english), "main_ancestor_2").text, "unknown parent of half");
  EXPECT_EQ(row_named(diversity_rows(store, diversity, ToolLanguage::dutch), "main_ancestor_2").text,
            "onbekende ouder van half");
}

TEST(DiversityTable, WhatIsNoNumberIsEmpty) {
  Diversity diversity;
  diversity.effective_founders = std::numeric_limits<double>::quiet_NaN();
  diversity.founder_genomes = std::numeric_limits<double>::infinity();
  diversity.mean_kinship = 1.0 / 3.0;
  diversity.by_coancestry.is_sample = true;
  diversity.by_coancestry.effective_size = 1234567890123.0;
  const std::vector<DiversityRow> rows = diversity_rows(numbered_store("2000\n"), diversity, english);
  EXPECT_EQ(row_named(rows, "effective_founders").value, "");
  EXPECT_EQ(row_named(rows, "founder_genomes").value, "");
  EXPECT_EQ(row_named(rows, "mean_kinship").value, "0.3333333333");
  EXPECT_EQ(row_named(rows, "effective_size_by_coancestry").value, "1.23456789e+12");
  EXPECT_EQ(row_named(rows, "effective_size_by_coancestry").text,
            "all pairs, in part from a random sample: error below 0.2 %");
}

TEST(DiversityTable, HasARowForTenAncestors) {
  const std::vector<DiversityRow> rows = half_sibs().rows();
  const auto has_row = [&](std::string_view figure) {
    return std::ranges::any_of(rows, [&](const DiversityRow& row) { return row.figure == figure; });
  };
  EXPECT_TRUE(has_row("main_ancestor_10"));
  EXPECT_FALSE(has_row("main_ancestor_11"));
}

}  // namespace
}  // namespace pedigreewatch::test
