// How many breeders, subpopulations and ages are told apart.
#include "page/group_charts.h"

#include <gtest/gtest.h>

#include <string>

#include "page/animal_charts.h"
#include "support/analysed_population.h"

namespace pedigreewatch::test {
namespace {

/// Each of so many breeders has an animal of 2001, the first of them two.
AnalysedPopulation with_breeders(int count) {
  std::string data = "id;sire;dam;sex;birthdate;breeder\nx;;;m;02-05-2001;B10\n";
  for (int k = 0; k < count; ++k) {
    data += "a" + std::to_string(k) + ";;;m;02-05-2001;B" + std::to_string(10 + k) + "\n";
  }
  return analysed(data);
}

TEST(BreedersChart, FourteenAreListedByName) {
  const auto columns = [](int breeders) {
    const AnalysedPopulation population = with_breeders(breeders);
    const PageInput input{population};
    return breeders_chart(make_frame(input)).figures.headings;
  };
  EXPECT_EQ(columns(14).back(), "B23");
  EXPECT_EQ(columns(15).back(), "other breeders");
}

TEST(BreedersTable, TwentyHaveARow) {
  const auto rows = [](int breeders) {
    const AnalysedPopulation population = with_breeders(breeders);
    const PageInput input{population};
    return breeders_table(make_frame(input)).rows.size();
  };
  EXPECT_EQ(rows(19), 19U);
  EXPECT_EQ(rows(20), 20U);
  EXPECT_EQ(rows(21), 20U);
}

TEST(BreedersTable, TheLastTenYearsAreCountedApart) {
  const AnalysedPopulation population =
      analysed("id;sire;dam;sex;birthdate;breeder\na;;;m;02-05-2001;V\nb;;;m;02-05-2002;V\nc;;;m;02-05-2011;V\n");
  const PageInput input{population};
  EXPECT_EQ(breeders_table(make_frame(input)).rows.at(0).cells, (std::vector<std::string>{"3", "2", "0"}));
}

/// So many subpopulations with two animals each, the first with three.
AnalysedPopulation with_subpopulations(int count) {
  SteerLines steer;
  steer.subpopulations = std::to_string(count);
  std::string data = "id;sire;dam;sex;birthdate;breedtype\nx;;;m;02-05-2001;S10\n";
  for (int k = 0; k < count; ++k) {
    const std::string name = "S" + std::to_string(10 + k);
    steer.subpopulations += "\n" + name;
    for (const char letter : {'a', 'b'}) {
      data += letter + std::to_string(k) + ";;;m;02-05-2001;" + name + "\n";
    }
  }
  return analysed(data, steer);
}

TEST(RecentSires, TenAreNamed) {
  const AnalysedPopulation population = analysed(animals_by_year({24}));
  const auto named = [&](std::int32_t sires) {
    Standing standing;
    for (std::int32_t k = 1; k <= sires; ++k) standing.sires.parents.push_back({k, 1, 0.05});
    PageInput input{population};
    input.standing = &standing;
    return recent_sires(make_frame(input)).figures.rows.size();
  };
  EXPECT_EQ(named(9), 9U);
  EXPECT_EQ(named(10), 10U);
  EXPECT_EQ(named(11), 10U);
}

TEST(WithinChart, HasAPanelForEightSubpopulations) {
  const auto lines = [](int count) {
    const AnalysedPopulation population = with_subpopulations(count);
    const PageInput input{population};
    return within_chart(make_frame(input)).panels.size();
  };
  EXPECT_EQ(lines(7), 7U);
  EXPECT_EQ(lines(8), 8U);
  EXPECT_EQ(lines(9), 8U);
}

TEST(WithinChart, TwoAnimalsOfASubpopulationAreEnough) {
  SteerLines steer;
  steer.subpopulations = "2\nNorth\nSouth";
  const AnalysedPopulation population = analysed(
      "id;sire;dam;sex;birthdate;breedtype\na;;;m;02-05-2001;North\nb;;;f;02-05-2001;North\nc;;;m;02-05-2001;South\n",
      steer);
  const PageInput input{population};
  const Chart chart = within_chart(make_frame(input));
  EXPECT_TRUE(chart.panels.at(0).series.at(1).values.at(0).has_value());
  EXPECT_FALSE(chart.panels.at(1).series.at(1).values.at(0).has_value());
}

/// The paints of layers with these colours in the steer file.
std::vector<Paint> coats(const std::vector<std::string>& names) {
  SteerLines steer;
  std::string data = "id;sire;dam;sex;birthdate;colour\n";
  steer.colours = std::to_string(names.size());
  for (const std::string& name : names) {
    steer.colours += "\n" + name;
    data += name + "1;;;m;02-05-2001;" + name + "\n";
  }
  const AnalysedPopulation population = analysed(data, steer);
  const PageInput input{population};
  std::vector<Paint> paints;
  for (const Series& series : colours_chart(make_frame(input)).series) paints.push_back(series.paint);
  return paints;
}

TEST(ColoursChart, NaturalColoursAreThoseOfTheCoat) {
  const std::vector<Paint> paints = coats({"black", "Zwart", "rood-wit", "dark red", "spotted"});
  EXPECT_EQ(paints.at(0).palette, Palette::coat);
  EXPECT_EQ(paints.at(0).number, 7U);
  EXPECT_EQ(paints.at(1).palette, Palette::apart) << "black is taken";
  EXPECT_EQ(paints.at(2).palette, Palette::apart) << "two colours are none";
  EXPECT_EQ(paints.at(3).number, 3U);
  EXPECT_EQ(paints.at(4).palette, Palette::apart);
}

/// So many litters of one young of a hundred, the others of two.
Chart litters_of(int ones) {
  std::string data = "id;sire;dam;sex;birthdate\ns;;;m;02-05-2000\n";
  for (int k = 0; k < 100; ++k) {
    const std::string dam = "d" + std::to_string(k);
    data += dam + ";;;f;02-05-2000\n";
    for (int young = 0; young < (k < ones ? 1 : 2); ++young) {
      data += dam + "y" + std::to_string(young) + ";s;" + dam + ";m;02-05-2002\n";
    }
  }
  const AnalysedPopulation population = analysed(data);
  const PageInput input{population};
  return litters_chart(make_frame(input));
}

TEST(LittersChart, SizesAreLeftOutWhereNearlyAllAreOfOne) {
  EXPECT_EQ(litters_of(95).series.size(), 2U);
  EXPECT_EQ(litters_of(96).series.size(), 1U);
  EXPECT_EQ(litters_of(96).series.front().values.back(), Value(100.0));
}

TEST(ParentAgesChart, AgesAboveFortyAreTakenTogether) {
  const auto places = [](int age) {
    const AnalysedPopulation population =
        analysed("id;sire;dam;sex;birthdate\na;;;m;02-05-1900\nb;a;;m;03-05-" + std::to_string(1900 + age) + "\n");
    const PageInput input{population};
    return parent_ages_chart(make_frame(input)).places;
  };
  EXPECT_EQ(places(40).back(), "40");
  EXPECT_EQ(places(41).back(), "40+");
  EXPECT_EQ(places(41).size(), 40U);
}

}  // namespace
}  // namespace pedigreewatch::test
