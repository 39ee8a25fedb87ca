#include "forecast/use_evenness.h"

#include <gtest/gtest.h>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

struct EvenHerd {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;

  explicit EvenHerd(std::string_view text)
      : store(pedigree_from_text(text)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)) {}
};

constexpr std::string_view even_parents = "ad 0 0 m 2000\nbo 0 0 m 2000\nda 0 0 f 2000\ndb 0 0 f 2000\ndc 0 0 f 2000\n";

TEST(MeasureEvenness, CountsByHand) {
  const EvenHerd bred(std::string(even_parents) +
                      "y1 ad da m 2002\ny2 ad db f 2002\ny3 bo dc f 2002\ny4 ad da f 2003\ny5 ad db f 2005\n");
  const auto evenness = measure_evenness(bred.records, 2002, 2005);
  ASSERT_TRUE(evenness.has_value());
  // Only 2002 has two litters: of Ad's two each has one of Ad's among the two others, Bo's has none.
  EXPECT_DOUBLE_EQ(evenness->in_year, 1.0 / 3.0);
  // Litters of 2002 with that of 2003: 2 of 3; with that of 2005: 2 of 3; that of 2003 with that of 2005: 1 of 1.
  EXPECT_DOUBLE_EQ(evenness->in_life, 5.0 / 7.0);
}

TEST(MeasureEvenness, ComparesUpToThreeYears) {
  const std::string first = std::string(even_parents) + "y1 ad da m 2002\ny2 ad db f 2002\n";
  EXPECT_DOUBLE_EQ(measure_evenness(EvenHerd(first + "y3 ad da f 2005\n").records, 2002, 2005)->in_life, 1.0);
  EXPECT_DOUBLE_EQ(measure_evenness(EvenHerd(first + "y3 ad da f 2006\n").records, 2002, 2006)->in_life, 0.0);
  EXPECT_FALSE(measure_evenness(EvenHerd(even_parents).records, 2000, 2000).has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
