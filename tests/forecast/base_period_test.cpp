#include "forecast/base_period.h"

#include <gtest/gtest.h>

#include <string>

#include "forecast/practice_figures.h"
#include "support/analysed_population.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// The births of a year: litters of two males and two females, by so many sires in turn, and young without parents.
struct YearOfBirths {
  int litters = 0, sires = 0, founders = 0;
};

/// From 2000 on. All parents are two years old; those of the first two years are unknown.
std::string herd_of(const std::vector<YearOfBirths>& years) {
  std::string text;
  int year = 2000;
  const auto id = [](int born, int litter, int young) {
    return "y" + std::to_string(born) + "_" + std::to_string(litter) + "_" + std::to_string(young);
  };
  for (const YearOfBirths& born : years) {
    for (int k = 0; k < born.litters; ++k) {
      std::string parents = " 0 0 ";
      if (year >= 2002) parents = " " + id(year - 2, k % born.sires, 0) + " " + id(year - 2, k / 2, 2 + k % 2) + " ";
      for (int young = 0; young < 4; ++young) {
        text += id(year, k, young) + parents + (young < 2 ? "m " : "f ") + std::to_string(year) + "\n";
      }
    }
    for (int k = 0; k < born.founders; ++k) {
      text += "u" + std::to_string(year) + "_" + std::to_string(k) + " 0 0 m " + std::to_string(year) + "\n";
    }
    ++year;
  }
  return text;
}

struct Measured {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;
  std::optional<BasePeriod> base;

  explicit Measured(const std::string& text)
      : store(pedigree_from_text(text)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)),
        base(measure_base_period(records)) {}
};

TEST(MeasureBasePeriod, IsAtLeastThreeYears) {
  const Measured herd(herd_of(std::vector<YearOfBirths>(6, {20, 5, 0})));
  ASSERT_TRUE(herd.base.has_value());
  EXPECT_DOUBLE_EQ(herd.base->generation_interval, 2.0);
  EXPECT_EQ(herd.base->first_year, 2003);
  EXPECT_EQ(herd.base->last_year, 2005);
}

TEST(MeasureBasePeriod, IsAGenerationIntervalRoundedUp) {
  // Sires of 4 and 5 years, dams of 3 and 4: 4 years in the mean; with one of them older it is 5.
  const std::string herd = "s 0 0 m 2000\nd 0 0 f 2001\na 0 0 f 2003\nx s d m 2004\n";
  EXPECT_EQ(Measured(herd + "y s d m 2005\n").base->length(), 4);
  EXPECT_EQ(Measured("s 0 0 m 1999\nd 0 0 f 2001\na 0 0 f 2003\nx s d m 2004\ny s d m 2005\n").base->length(), 5);
}

// Here all young of unknown parents are males, as half of the others are.
TEST(MeasureBasePeriod, CountsMalesByDescent) {
  const Measured herd(herd_of(std::vector<YearOfBirths>(24, {20, 5, 10})));
  ASSERT_GE(herd.base->first_alike, 2006);  // all litters are of parents with known parents
  const auto share = [&](Descent descent) { return herd.base->male_share[descent]; };
  const double all = 50.0 / 90.0;  // towards which ten young draw
  const double years = herd.base->last_year - herd.base->first_alike + 1;
  EXPECT_NEAR(share(Descent::founder), (10.0 * years + 10.0 * all) / (10.0 * years + 10.0), 1e-12);
  EXPECT_NEAR(share(Descent::deep), (40.0 * years + 10.0 * all) / (80.0 * years + 10.0), 1e-12);
  EXPECT_NEAR(share(Descent::known), all, 1e-12);
}

TEST(DescentOf, IsDeepWithFourGrandparents) {
  const Measured herd(
      "a 0 0 m 2000\nb 0 0 f 2000\nc 0 0 m 2000\nd a b f 2002\ne a b m 2002\nf c b f 2002\nx e d m 2004\n"
      "y c d m 2004\nz e b m 2004\nw e 0 m 2004\nv e f m 2005\n");
  const auto descent = [&](const char* id) { return descent_of(herd.store, animal_named(herd.store, id).number); };
  EXPECT_EQ(descent("x"), Descent::deep);
  EXPECT_EQ(descent("v"), Descent::deep);
  EXPECT_EQ(descent("y"), Descent::known);
  EXPECT_EQ(descent("z"), Descent::known);
  EXPECT_EQ(descent("d"), Descent::known);
  EXPECT_EQ(descent("w"), Descent::half_known);
  EXPECT_EQ(descent("a"), Descent::founder);
}

TEST(MeasureBasePeriod, NeedsThreeYears) {
  EXPECT_FALSE(Measured("s 0 0 m 2000\nd 0 0 f 2000\nx s d m 2002\n").base.has_value());
  EXPECT_TRUE(Measured("s 0 0 m 2000\nd 0 0 f 2001\nx s d m 2003\n").base.has_value());
  EXPECT_FALSE(Measured("a 0 0 m 2000\nb 0 0 f 2001\nc 0 0 f 2002\n").base.has_value());  // no parents
}

TEST(MeasureBasePeriod, CountsFamilies) {
  const Measured herd(herd_of({{20, 5, 1}, {20, 5, 1}, {20, 5, 1}, {20, 5, 1}, {24, 6, 2}}));
  const GroupYear& last = herd.base->years.back().front();
  EXPECT_EQ(last.with_both, 24);
  EXPECT_EQ(last.without_sire + last.without_dam, 0);
  EXPECT_EQ(last.founders, 2);
  EXPECT_EQ(last.in_use.of_males, 6);
  EXPECT_EQ(last.in_use.of_females, 24);
  EXPECT_EQ(last.entered.of_males, 6);
}

/// How many years before the base period, which is three years, had the same practice.
std::int32_t years_alike(const YearOfBirths& before, const YearOfBirths& now) {
  std::vector<YearOfBirths> births(9, before);
  births.insert(births.end(), 3, now);
  const Measured herd(herd_of(births));
  EXPECT_EQ(herd.base->length(), 3);
  return herd.base->first_year - herd.base->first_alike;
}

TEST(MeasureBasePeriod, TakesEarlierYearsOfTheSamePractice) {
  EXPECT_EQ(years_alike({200, 20, 0}, {200, 20, 0}), 6);  // the first three years have no parents
  // A factor of 1.25 in the litters a year, and a little more.
  EXPECT_EQ(years_alike({160, 16, 0}, {200, 20, 0}), 6);
  EXPECT_EQ(years_alike({158, 16, 0}, {200, 20, 0}), 0);
  // The same in the sires a litter; 300 and 378 are more than two standard errors apart.
  EXPECT_EQ(years_alike({400, 100, 0}, {400, 125, 0}), 6);
  EXPECT_EQ(years_alike({400, 100, 0}, {400, 126, 0}), 0);
  // Few sires may differ by chance: 30 and 45 do by less than 2 errors (17.3), 30 and 51 by more (18).
  EXPECT_EQ(years_alike({200, 10, 0}, {200, 15, 0}), 6);
  EXPECT_EQ(years_alike({200, 10, 0}, {200, 17, 0}), 0);
  // And in the young of unknown parents, whose share is 4 % and 4.9 %, or 7.6 %.
  EXPECT_EQ(years_alike({200, 20, 33}, {200, 20, 41}), 6);
  EXPECT_EQ(years_alike({200, 20, 33}, {200, 20, 66}), 0);
}

TEST(MeasureBasePeriod, TakesAtMostSixPeriods) {
  const Measured herd(herd_of(std::vector<YearOfBirths>(30, {12, 4, 0})));
  EXPECT_EQ(herd.base->last_year - herd.base->first_alike + 1, 18);
}

std::string population() {
  std::string data = "id;sire;dam;sex;birthdate\n";
  RandomNumbers random{7};
  for (int k = 0; k < 60; ++k) {
    data += "f" + std::to_string(k) + ";;;" + (k % 3 == 0 ? "m" : "f") + ";01-03-1999\n";
  }
  int number = 0;
  for (int year = 2001; year <= 2010; ++year) {
    for (int litter = 0; litter < 12; ++litter) {
      const std::string sire = "f" + std::to_string(3 * random.below(20)), dam = "f" + std::to_string(3 * litter + 1);
      for (int k = 0; k <= random.below(3); ++k) {
        data += "y" + std::to_string(++number) + ";" + sire + ";" + dam + ";f;0" + std::to_string(1 + random.below(9)) +
                "-06-" + std::to_string(year) + "\n";
      }
    }
  }
  return data;
}

// Of the years that the summary of the report is about, the figures are the report's.
TEST(CountPractice, HasTheFiguresOfTheSummary) {
  const AnalysedPopulation population_of_file = analysed(population());
  const Block& block = population_of_file.analysis.whole;
  const PopulationSummary& summary = population_of_file.analysis.extras.summary;
  const BirthYears& years = population_of_file.store.birth_years;
  const CountedPractice counted =
      count_practice(block.tables, years, years.year_of(summary.years.first), years.year_of(summary.years.last));
  EXPECT_EQ(counted.litters_a_year, summary.litters_per_year);
  ASSERT_FALSE(summary.ages.empty());
  for (const AgeRow& row : summary.ages) {
    const auto place = static_cast<std::size_t>(row.age) - 1;
    EXPECT_EQ(counted.ages.of_males[place] * 100.0F, row.sires);
    EXPECT_EQ(counted.ages.of_females[place] * 100.0F, row.dams);
  }
  // Sizes of litters the summary counts over all years.
  const CountedPractice all = count_practice(block.tables, years, years.first, years.last);
  ASSERT_EQ(static_cast<std::int32_t>(all.litter_sizes.size()), summary.litter_percentages.count());
  for (std::int32_t size = 1; size <= summary.litter_percentages.count(); ++size) {
    EXPECT_FLOAT_EQ(all.litter_sizes[static_cast<std::size_t>(size) - 1] * 100.0F, summary.litter_percentages.at(size));
  }
}

TEST(MeasureBasePeriod, CountsUnknownSiresByDescentOfTheDam) {
  std::string text = "a 0 0 m 1998\nk 0 0 f 1998\nn a k f 1999\n";
  for (int year = 2001; year <= 2004; ++year) {
    const std::string y = std::to_string(year);
    text += "p" + y + " a k f " + y + "\nq" + y + " a n f " + y + "\nr" + y + " 0 out f " + y + "\n";
  }
  text += "s 0 n m 2004\n";
  const Measured herd(text);
  ASSERT_TRUE(herd.base.has_value());
  const auto share = [&](Descent descent) { return herd.base->without_sire[descent]; };
  EXPECT_DOUBLE_EQ(share(Descent::outside), 1.0);
  EXPECT_DOUBLE_EQ(share(Descent::founder), 0.0);
  EXPECT_DOUBLE_EQ(share(Descent::known), 0.2);  // one of five
  const FamilyPractice practice = measure_practice(herd.records, *herd.base);
  const double years = herd.base->length();
  EXPECT_DOUBLE_EQ(practice.no_sire_of_known, 1.0 / (years + 1.0));
  EXPECT_DOUBLE_EQ(practice.no_sire_of_others, 0.5);
  // No sire began to be used in these five years, so that all count: a, of no known parents. Of the dams n and out did.
  EXPECT_DOUBLE_EQ(practice.outside_sires, 1.0);
  EXPECT_DOUBLE_EQ(practice.outside_dams, 0.5);
}

TEST(MeasurePractice, CountsByHand) {
  // Three base years: 4 litters a year by 2 sires; one young of an unknown dam and one of no known parents each year.
  std::string text = "a 0 0 m 1999\nb 0 0 m 1999\n";
  for (int k = 0; k < 4; ++k) text += "d" + std::to_string(k) + " a 0 f 2000\n";
  for (int year = 2001; year <= 2003; ++year) {
    const std::string y = std::to_string(year);
    text += "p" + y + " a d0 f " + y + "\nq" + y + " b d1 f " + y + "\nr" + y + " b d2 f " + y + "\ns" + y +
            " b d3 m " + y + "\nt" + y + " b 0 m " + y + "\nu" + y + " 0 0 f " + y + "\n";
  }
  const Measured herd(text);
  ASSERT_TRUE(herd.base.has_value());
  const FamilyPractice practice = measure_practice(herd.records, *herd.base);
  EXPECT_DOUBLE_EQ(practice.sires_a_year, 2.0);
  EXPECT_DOUBLE_EQ(practice.dams_a_year, 4.0);
  EXPECT_DOUBLE_EQ(practice.litters_per_sire, 2.5);
  EXPECT_DOUBLE_EQ(practice.top_sire, 0.8);
  EXPECT_DOUBLE_EQ(practice.half_known, 1.0 / 6.0);
  EXPECT_DOUBLE_EQ(practice.founders, 1.0 / 6.0);
  EXPECT_DOUBLE_EQ(practice.close_matings, 0.25);  // Ad goes with his daughter
  EXPECT_EQ(practice.birth_years, 4);              // 2000 to 2003
  EXPECT_EQ(practice.ended_careers, 0);
}

TEST(AreLivesKnown, FromTwentyYearsAndTwentySiresOn) {
  FamilyPractice families;
  families.birth_years = 20;
  families.ended_careers = 20;
  EXPECT_TRUE(are_lives_known(families, 4.0));   // five generations are twenty years
  EXPECT_FALSE(are_lives_known(families, 4.1));  // 20.5 years
  families.ended_careers = 19;
  EXPECT_FALSE(are_lives_known(families, 4.0));
  families.ended_careers = 20;
  families.birth_years = 19;
  EXPECT_FALSE(are_lives_known(families, 2.0));
  EXPECT_EQ(birth_years_for_lives(10.0), 50);
}

}  // namespace
}  // namespace pedigreewatch::test
