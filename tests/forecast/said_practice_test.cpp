// Figures that are said stand where those that were measured stood: counted by hand, and from what replicates do.
#include "forecast/said_practice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "forecast/model_herd.h"
#include "support/pedigrees.h"
#include "support/simulated_breed.h"

namespace pedigreewatch::test {
namespace {

struct SaidBreed {
  PopulationStore store;
  YearGroups years;
  FamilyRecords records;
  BasePeriod base;

  explicit SaidBreed(PopulationStore of)
      : store(std::move(of)),
        years(group_by_year(store)),
        records(list_families(store, years, store.birth_years.last)),
        base(*measure_base_period(records)) {}
};

/// Forty litters a year; a tenth of the parents that come into use is imported, with a line of its own.
SaidBreed some_breed() {
  BreedScheme scheme;
  scheme.sires_a_year = 8;
  scheme.dams_a_year = 20;
  scheme.imported = 0.1;
  scheme.unknown_parents = 0.05;
  return SaidBreed(simulate_breed(scheme, 5));
}

double mean_size_of(const std::vector<std::int32_t>& sizes) {
  double sum = 0.0;
  for (const std::int32_t size : sizes) sum += size;
  return sum / static_cast<double>(sizes.size());
}

TEST(ApplySaidFigures, KeepsTheSpreadOfLitters) {
  SaidBreed breed = some_breed();
  SaidFigures said;
  said.litter_size = 3.0;
  breed.base.sizes = {1, 3, 1, 3, 2, 2};  // one more on the mean; it is to be two more
  apply_said_figures(breed.records, said, breed.base);
  EXPECT_EQ(breed.base.sizes, (std::vector<std::int32_t>{1, 1, 3, 3, 5, 5}));
  breed.base.sizes.assign(10, 1);
  said.litter_size = 1.3;
  apply_said_figures(breed.records, said, breed.base);
  EXPECT_DOUBLE_EQ(mean_size_of(breed.base.sizes), 1.3);
}

TEST(ApplySaidFigures, CountsUnknownParents) {
  SaidBreed breed = some_breed();
  SaidFigures said;
  said.litters_without_sire = 0.25;
  said.young_without_parents = 0.2;
  breed.base.sizes = {2};
  breed.base.years.assign(4, {GroupYear{}});
  for (std::vector<GroupYear>& year : breed.base.years) {
    year.front().with_both = 9;
    year.front().without_sire = 1;
    year.front().without_dam = 4;
    year.front().founders = 7;
  }
  breed.base.levels.half_known.factors = {0.5, 0.5, 0.5, 0.5};
  apply_said_figures(breed.records, said, breed.base);
  std::int32_t with_both = 0, without_sire = 0, without_dam = 0, founders = 0;
  for (const std::vector<GroupYear>& year : breed.base.years) {
    with_both += year.front().with_both;
    without_sire += year.front().without_sire;
    without_dam += year.front().without_dam;
    founders += year.front().founders;
  }
  EXPECT_EQ(without_sire, 10);  // a quarter of forty
  EXPECT_EQ(with_both, 30);
  EXPECT_EQ(without_dam, 8);  // as many as the trend has come to
  EXPECT_EQ(founders, 22);    // a fifth of all: one for each four of the other 88
  EXPECT_EQ(breed.base.levels.half_known.factors, std::vector<double>(4, 1.0));
  EXPECT_EQ(breed.base.levels.founders.factors, std::vector<double>(4, 1.0));
}

TEST(ApplySaidFigures, SpreadsMalesAsTheyWere) {
  SaidBreed breed = some_breed();
  const auto share = [&](Descent descent) { return breed.base.male_share[descent]; };
  breed.base.male_share.values.fill(0.5);
  breed.base.male_share[Descent::founder] = 0.1;
  SaidFigures said;
  said.males = 0.7;
  apply_said_figures(breed.records, said, breed.base);
  EXPECT_LT(share(Descent::founder), 0.3);
  EXPECT_GE(share(Descent::deep), 0.7);
  double males = 0.0, young = 0.0;
  for (std::int32_t year = breed.base.first_alike; year <= breed.base.last_year; ++year) {
    for (const Family& family : breed.records.of_year(year)) {
      males += family.young * share(descent_of(breed.store, family.first));
      young += family.young;
    }
  }
  EXPECT_NEAR(males / young, 0.7, 1e-6);
}

TEST(ApplySaidFigures, SharesSiresOfOthers) {
  SaidBreed breed = some_breed();
  SaidFigures said;
  said.sires_of_others = 0.4;
  breed.base.years.assign(1, {GroupYear{}, GroupYear{}, GroupYear{}});
  for (GroupYear& group : breed.base.years.front()) group.with_both = 10;
  breed.base.years.front()[2].with_both = 30;
  breed.base.sire_groups = {{{0, 1.0}}, {{1, 0.8}, {2, 0.15}, {0, 0.05}}, {{2, 0.5}, {0, 0.5}}};
  apply_said_figures(breed.records, said, breed.base);
  const auto of = [&](GroupNo group, GroupNo other) {
    double share = 0.0;
    for (const GroupShare& one : breed.base.sire_groups[group]) share += one.group == other ? one.share : 0.0;
    return share;
  };
  EXPECT_DOUBLE_EQ(of(0, 1), 0.1);  // by litters: ten and thirty
  EXPECT_DOUBLE_EQ(of(0, 2), 0.3);
  EXPECT_DOUBLE_EQ(of(1, 2), 0.3);  // as often as they were
  EXPECT_DOUBLE_EQ(of(1, 0), 0.1);
  for (GroupNo group = 0; group < 3; ++group) EXPECT_DOUBLE_EQ(of(group, group), 0.6);
}

/// The share of the parents that come into use in ten years of five replicates of which no parent is known.
double outside_in_use(const SaidBreed& breed, const ModelBasis& basis, Sex sex) {
  const BreedingRules rules;
  double outside = 0.0, all = 0.0;
  for (std::int32_t replicate = 0; replicate < 5; ++replicate) {
    ModelHerd model = begin_herd(basis, rules, 1, replicate, nullptr);
    for (std::int32_t year = 1; year <= 10; ++year) {
      const std::int32_t before = model.pedigree.count();
      if (!live_year(model, breed.records.last_year + year)) break;
      for (const ModelParent& parent : model.parents.of(sex)) {
        if (parent.animal <= before) continue;
        all += 1.0;
        outside += parent.descent == Descent::outside || parent.descent == Descent::founder ? 1.0 : 0.0;
      }
    }
  }
  return outside / all;
}

TEST(ApplySaidFigures, BringsAsManyFromOutsideAsIsSaid) {
  SaidBreed breed = some_breed();
  const double measured = breed.base.without_parents.of_females;
  EXPECT_GT(measured, 0.07);
  for (const double share : {0.0, 0.5 * measured, 0.6}) {
    SaidFigures said;
    said.outside = {share, share};
    BasePeriod base = breed.base;
    apply_said_figures(breed.records, said, base);
    const ModelBasis basis = make_model_basis(breed.records, base);
    const double margin = share < measured ? 0.03 : 0.07;
    for (const Sex sex : {male, female}) EXPECT_NEAR(outside_in_use(breed, basis, sex), share, margin) << share;
    if (share == 0.0) {
      EXPECT_EQ(outside_in_use(breed, basis, female), 0.0);
    }
  }
}

TEST(AddPresentRules, AreWhatChangesChange) {
  BreedingRules present, rules;
  present.litters = {0.0, 120.0};
  present.sires = {1.5, 0.0};
  present.trend = 0.01;
  rules.litters = {1.0, 10.0};
  rules.sires = {2.0, 0.0};
  add_present_rules(present, rules);
  EXPECT_DOUBLE_EQ(rules.litters.of(100.0), 130.0);
  EXPECT_DOUBLE_EQ(rules.sires.of(30.0), 90.0);
  EXPECT_DOUBLE_EQ(rules.trend, 0.01);
  BreedingRules half_more;
  half_more.litters = {1.5, 0.0};
  add_present_rules(present, half_more);
  EXPECT_DOUBLE_EQ(half_more.litters.of(100.0), 180.0) << "of the number that is said";
  BreedingRules of_its_own;
  of_its_own.trend = 0.0;
  of_its_own.written = {{"litters-trend", "0%"}};
  add_present_rules(present, of_its_own);
  EXPECT_DOUBLE_EQ(of_its_own.trend, 0.0);
}

TEST(SaidSentences, NameWhatIsNotMeasured) {
  BreedingRules present;
  EXPECT_TRUE(said_sentences(present, ToolLanguage::english).empty());
  present.written = {{"young-a-litter", "6.5"}};
  EXPECT_EQ(said_sentences(present, ToolLanguage::english).front(),
            "in place of what was measured, the forecast goes on with what is said: young a litter: 6.5");
  EXPECT_EQ(said_sentences(present, ToolLanguage::dutch).front(),
            "in plaats van met wat gemeten is, gaat de vooruitblik verder met wat gezegd is: jongen per nest: 6,5");
}

TEST(PracticeAsSaid, IsWhatWarningsRestOn) {
  SaidBreed breed = some_breed();
  FamilyPractice measured;
  measured.outside_sires = measured.outside_dams = 0.1;
  measured.half_known = 0.3;
  SaidFigures said;
  said.outside.of_males = 0.0;
  const FamilyPractice one = practice_as_said(measured, said, breed.base);
  EXPECT_EQ(one.outside_sires, 0.0);
  EXPECT_EQ(one.outside_dams, 0.1);
  EXPECT_EQ(one.half_known, 0.3);
  said.young_without_parents = 0.5;
  apply_said_figures(breed.records, said, breed.base);
  EXPECT_NEAR(practice_as_said(measured, said, breed.base).founders, 0.5, 0.02);
}

}  // namespace
}  // namespace pedigreewatch::test
