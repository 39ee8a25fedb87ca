// F and kinship of matings: pedigrees worked out by hand, random ones against the relationship matrix and against the
// F that the same offspring gets when it is one of the animals.
#include "matings/ranking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "genetics/inbreeding.h"
#include "matings/candidates.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

PopulationStore with_inbreeding(PopulationStore store) {
  TextOutput console;
  compute_inbreeding(store, make_ancestor_pedigree(store), console);
  return store;
}

std::int32_t position_of(const PopulationStore& store, std::string_view id) {
  return animal_named(store, id).number;
}

DescribedMating mate(const PopulationStore& store, std::string_view sire, std::string_view dam) {
  const auto mating = mating_of(store, position_of(store, sire), position_of(store, dam));
  EXPECT_TRUE(mating.has_value());
  return mating.value_or(DescribedMating());
}

struct NamedPart {
  std::string id;
  double contribution = 0.0;
  friend bool operator==(const NamedPart&, const NamedPart&) = default;
};

std::vector<NamedPart> named(const PopulationStore& store, const KinshipParts& parts) {
  std::vector<NamedPart> list;
  for (const CommonAncestor& ancestor : parts.largest) {
    if (ancestor.position != 0) list.push_back({std::string(store.id(ancestor.position)), ancestor.contribution});
  }
  return list;
}

using Named = std::vector<NamedPart>;

// Rex and Saar are founders; Bram and Tess full sibs, Puck their half sib by Rex; Wolf is unrelated.
constexpr std::string_view family =
    "rex  0   0    m 2001\n"
    "saar 0   0    f 2001\n"
    "mies 0   0    f 2001\n"
    "wolf 0   0    m 2001\n"
    "bram rex saar m 2003\n"
    "tess rex saar f 2003\n"
    "puck rex mies f 2003\n"
    "pup  bram puck m 2005\n";

TEST(MatingOf, HalfSibsAreKinThroughTheirParent) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  const DescribedMating mating = mate(store, "bram", "puck");
  EXPECT_EQ(mating.pair.f, 0.125F);
  EXPECT_EQ(mating.parts.kinship, 0.125);
  EXPECT_EQ(named(store, mating.parts), (Named{{"rex", 0.125}}));
}

TEST(MatingOf, FullSibsAreKinThroughBothParentsAlikeTheYoungerFirst) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  const DescribedMating mating = mate(store, "bram", "tess");
  EXPECT_EQ(mating.pair.f, 0.25F);
  EXPECT_EQ(mating.parts.kinship, 0.25);
  EXPECT_EQ(named(store, mating.parts), (Named{{"saar", 0.125}, {"rex", 0.125}}));
}

TEST(MatingOf, AParentIsTheAncestorOfItsOffspring) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  EXPECT_EQ(mate(store, "rex", "puck").pair.f, 0.25F);
  EXPECT_EQ(named(store, mate(store, "rex", "puck").parts), (Named{{"rex", 0.25}}));
  // Half of Bram's genes are its own draw, the other half is Rex's and Saar's: pup has half of each. With Puck, who
  // is Pup's mother, half of what she drew herself, and her parents; Rex comes in through both of Pup's parents.
  const DescribedMating mating = mate(store, "pup", "puck");
  EXPECT_EQ(mating.pair.f, 0.3125F);  // (1 + 0) / 4 with the mother, 0.125 / 2 through the father
  EXPECT_EQ(named(store, mating.parts), (Named{{"puck", 0.125}, {"rex", 0.125}, {"mies", 0.0625}}));
}

TEST(MatingOf, AnAnimalWithItselfIsSelfing) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  EXPECT_EQ(mate(store, "rex", "rex").pair.f, 0.5F);
  EXPECT_EQ(mate(store, "rex", "rex").parts.kinship, 0.5);
  EXPECT_EQ(mate(store, "pup", "pup").pair.f, 0.5625F);  // (1 + 0.125) / 2
}

TEST(MatingOf, UnrelatedAnimalsHaveNoCommonAncestors) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  const DescribedMating mating = mate(store, "wolf", "puck");
  EXPECT_EQ(mating.pair.f, 0.0F);
  EXPECT_EQ(mating.parts.kinship, 0.0);
  EXPECT_EQ(named(store, mating.parts), Named{});
}

TEST(MatingOf, PositionsOfNobodyHaveNoMating) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(family));
  EXPECT_FALSE(mating_of(store, 0, 1).has_value());
  EXPECT_FALSE(mating_of(store, 1, store.animal_count + 1).has_value());
  EXPECT_FALSE(mating_of(store, -1, 1).has_value());
}

TEST(MatingOf, HasNoMeanKinshipWhereThereAreNoYoungestAnimals) {
  const PopulationStore store = with_inbreeding(pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\n"));
  EXPECT_FALSE(mate(store, "a", "b").male_mean_kinship.has_value());
  EXPECT_FALSE(mate(store, "a", "b").female_mean_kinship.has_value());
}

/// The lines from which random_pedigree made the store, in store order.
std::string lines_of_store(const PopulationStore& store) {
  std::string text;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const AnimalRecord animal = store.at(i);
    const auto id_of = [&](std::int32_t parent) {
      return parent == 0 ? std::string("0") : std::string(store.id(parent));
    };
    text += std::string(animal.id.trimmed()) + " " + id_of(animal.sire_no) + " " + id_of(animal.dam_no) +
            (animal.sex == male ? " m " : " f ") + std::to_string(animal.birth_year) + "\n";
  }
  return text;
}

MatingPlan everybody(const PopulationStore& store) {
  return {candidates_born(store, 2000, 2100, female), candidates_born(store, 2000, 2100, male), {}, {}};
}

TEST(ChooseMatings, YieldsTheBitsThatTheOffspringWouldGet) {
  const PopulationStore store = with_inbreeding(random_pedigree(7, 260, 12));
  const MatingPlan plan = everybody(store);
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const MatingChoice choice = choose_matings(work, plan);
  ASSERT_EQ(static_cast<std::int64_t>(choice.pairs.size()), pair_count(plan));
  std::string text = lines_of_store(store);
  std::size_t k = 0;
  for (const MatingPair& pair : choice.pairs) {
    text += "young" + std::to_string(k++) + " " + std::string(store.id(pair.male)) + " " +
            std::string(store.id(pair.female)) + " m 2020\n";
  }
  const PopulationStore with_young = with_inbreeding(pedigree_from_text(text));
  std::int32_t different = 0;
  for (std::int32_t i = 1; i <= with_young.animal_count; ++i) {
    const std::string id(with_young.id(i));
    if (!id.starts_with("young")) continue;
    const float got = choice.pairs[std::stoul(id.substr(5))].f;
    if (std::bit_cast<std::uint32_t>(with_young.inbreeding[i]) != std::bit_cast<std::uint32_t>(got)) ++different;
  }
  EXPECT_EQ(different, 0) << "of " << k;
}

TEST(ChooseMatings, KinshipIsHalfOfTheRelationshipOfTheMatrix) {
  for (const std::uint64_t seed : {1U, 2U, 3U}) {
    const PopulationStore store = with_inbreeding(random_pedigree(seed, 150, 10));
    const auto relationships = tabular_relationships(store);
    const MatingPlan plan = everybody(store);
    const MatingWork work = make_mating_work(store, candidates_of(plan));
    const MatingChoice choice = choose_matings(work, plan);
    const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs);
    for (std::size_t k = 0; k < parts.size(); ++k) {
      const auto [dam, sire, f] = choice.pairs[k];
      const double kinship = 0.5 * relationships[static_cast<std::size_t>(dam) - 1][static_cast<std::size_t>(sire) - 1];
      ASSERT_NEAR(parts[k].kinship, kinship, 2e-6) << store.id(dam) << " x " << store.id(sire);
      ASSERT_NEAR(double{f}, kinship, 2e-6) << store.id(dam) << " x " << store.id(sire);
    }
  }
}

/// The contributions of all ancestors, largest first, from the matrices T and D that the relationships are made of.
std::vector<double> plain_contributions(const PopulationStore& store, std::int32_t one, std::int32_t other) {
  const auto relationships = tabular_relationships(store);
  const std::size_t size = relationships.size();
  std::vector<std::vector<double>> shares(size, std::vector<double>(size, 0.0));
  std::vector<double> contributions;
  for (std::size_t i = 0; i < size; ++i) {
    const AnimalRecord animal = store.at(static_cast<std::int32_t>(i) + 1);
    for (const std::int32_t parent : {animal.sire_no, animal.dam_no}) {
      for (std::size_t k = 0; parent != 0 && k < i; ++k) {
        shares[i][k] += 0.5 * shares[static_cast<std::size_t>(parent) - 1][k];
      }
    }
    shares[i][i] = 1.0;
  }
  std::vector<double> variances(size, 0.0);
  for (std::size_t i = 0; i < size; ++i) {
    variances[i] = relationships[i][i];
    for (std::size_t k = 0; k < i; ++k) variances[i] -= shares[i][k] * shares[i][k] * variances[k];
    contributions.push_back(0.5 * shares[static_cast<std::size_t>(one) - 1][i] *
                            shares[static_cast<std::size_t>(other) - 1][i] * variances[i]);
  }
  std::sort(contributions.rbegin(), contributions.rend());
  return contributions;
}

TEST(KinshipParts, NameTheLargestOfAllContributions) {
  const PopulationStore store = with_inbreeding(random_pedigree(11, 60, 8));
  for (std::int32_t one = 40; one <= 60; one += 4) {
    for (std::int32_t other = 41; other <= 60; other += 5) {
      const auto mating = mating_of(store, one, other);
      ASSERT_TRUE(mating.has_value());
      const std::vector<double> expected = plain_contributions(store, one, other);
      for (std::size_t k = 0; k < named_ancestors; ++k) {
        EXPECT_NEAR(mating->parts.largest[k].contribution, expected[k], 1e-6) << one << " x " << other << ", " << k;
      }
    }
  }
}

TEST(DescribeMatings, IsTheSameForManyMalesAsForOne) {
  // More males than are described at the same time.
  std::string text = "rex 0 0 m 2001\n";
  for (int k = 0; k < 600; ++k) {
    text += "m" + std::to_string(k) + (k % 3 == 0 ? " rex" : " 0") + " 0 m 2003\n";
    if (k < 4) text += "f" + std::to_string(k) + (k % 2 == 0 ? " rex" : " 0") + " 0 f 2003\n";
  }
  const PopulationStore store = with_inbreeding(pedigree_from_text(text));
  const MatingPlan plan = {
      candidates_born(store, 2003, 2003, female), candidates_born(store, 2003, 2003, male), {}, {}};
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const MatingChoice choice = choose_matings(work, plan);
  const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs);
  std::int32_t half_sibs = 0;
  for (std::size_t k = 0; k < parts.size(); ++k) {
    EXPECT_EQ(parts[k].kinship, double{choice.pairs[k].f});
    if (choice.pairs[k].f == 0.125F) ++half_sibs;
  }
  EXPECT_EQ(half_sibs, 2 * 200);
  EXPECT_EQ(choice.beyond, 2 * 200);
  EXPECT_EQ(choice.examined, 4 * 600);
}

// Tim and Tom are both unrelated to Ann; Tim has young of the last ten years, so that his mean kinship is higher.
constexpr std::string_view two_males =
    "tim 0   0   m 2010\n"
    "tom 0   0   m 2010\n"
    "ann 0   0   f 2010\n"
    "bea 0   0   f 2010\n"
    "cas tim bea f 2012\n"
    "dik tim bea m 2012\n";

std::vector<std::string> names_of_pairs(const PopulationStore& store, const MatingPlan& plan) {
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  std::vector<std::string> names;
  for (const MatingPair& pair : choose_matings(work, plan).pairs) {
    names.push_back(std::string(store.id(pair.female)) + " x " + std::string(store.id(pair.male)));
  }
  return names;
}

using Names = std::vector<std::string>;

TEST(ChooseMatings, PutsTheMaleOfLowerMeanKinshipFirst) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  MatingPlan plan = everybody(store);
  plan.females = {position_of(store, "cas"), position_of(store, "ann")};
  EXPECT_EQ(names_of_pairs(store, plan),
            (Names{"cas x tom", "ann x tom", "ann x tim", "ann x dik", "cas x tim", "cas x dik"}));
}

TEST(ChooseMatings, KeepsTheBestOfEachFemaleTogether) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  MatingPlan plan = everybody(store);
  plan.females = {position_of(store, "cas"), position_of(store, "ann")};
  plan.best = 1;
  EXPECT_EQ(names_of_pairs(store, plan), (Names{"cas x tom", "ann x tom"}));
  plan.best = 2;
  EXPECT_EQ(names_of_pairs(store, plan), (Names{"cas x tom", "cas x tim", "ann x tom", "ann x tim"}));
  plan.best = 100;
  EXPECT_EQ(names_of_pairs(store, plan).size(), 6U);
}

TEST(ChooseMatings, KeepsPairsUpToTheLimit) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  MatingPlan plan = everybody(store);
  plan.females = {position_of(store, "cas")};
  plan.limit = 0.0;
  EXPECT_EQ(names_of_pairs(store, plan), (Names{"cas x tom"}));
  plan.limit = 0.25;
  EXPECT_EQ(names_of_pairs(store, plan).size(), 3U);
  plan.limit = 0.2499;
  EXPECT_EQ(names_of_pairs(store, plan), (Names{"cas x tom"}));
}

TEST(ChooseMatings, CountsAndRemembersAllPairsWhateverIsKept) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  MatingPlan plan = everybody(store);
  plan.limit = 0.0;
  const MatingChoice choice = choose_matings(make_mating_work(store, candidates_of(plan)), plan);
  EXPECT_EQ(choice.examined, 9);
  EXPECT_EQ(choice.beyond, 3);  // Bea with her son, Cas with her father and with her brother
  EXPECT_EQ(choice.lowest.f, 0.0F);
  EXPECT_EQ(choice.highest.f, 0.25F);
}

TEST(IsBeyond, LeavesRoomForRounding) {
  EXPECT_FALSE(is_beyond(0.0625F, 0.0625));
  EXPECT_FALSE(is_beyond(0.0625005F, 0.0625));
  EXPECT_TRUE(is_beyond(0.062502F, 0.0625));
}

TEST(ChooseMatings, StopsWhenItIsAskedTo) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  const MatingPlan plan = everybody(store);
  const MatingWork work = make_mating_work(store, candidates_of(plan));
  const volatile std::sig_atomic_t stop = 1;
  EXPECT_TRUE(choose_matings(work, plan, {nullptr, &stop}).is_stopped);
  EXPECT_TRUE(describe_matings(work, choose_matings(work, plan).pairs, {nullptr, &stop}).empty());
}

TEST(MalesFor, RanksTheMalesOfTheYears) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(two_males));
  const std::int32_t cas = position_of(store, "cas");
  std::vector<std::string> names;
  for (const RankedMale& ranked : males_for(store, cas, 2010, 2012)) names.emplace_back(store.id(ranked.male));
  EXPECT_EQ(names, (Names{"tom", "tim", "dik"}));
  const std::vector<RankedMale> young = males_for(store, cas, 2011, 2012);
  ASSERT_EQ(young.size(), 1U);
  EXPECT_EQ(young[0].f, 0.25F);
  EXPECT_EQ(young[0].mean_kinship, 0.375);  // with Cas 0.25, with himself 0.5
  EXPECT_TRUE(males_for(store, cas, 1990, 1999).empty());
  EXPECT_TRUE(males_for(store, 0, 2010, 2012).empty());
}

TEST(Bounds, AreThoseThatAreDocumented) {
  EXPECT_EQ(usual_bound, 0.0625F) << "first cousins";
  EXPECT_EQ(most_pairs, 10'000'000);
  EXPECT_EQ(most_rows, 1'000'000);
}

TEST(ChooseMatings, OnlyPairsAboveTheUsualBoundAreBeyondIt) {
  // Half sibs have 12.5 %, first cousins the bound itself.
  const PopulationStore cousins = with_inbreeding(
      pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\nc a b m 2001\nd a b f 2001\ne c 0 m 2002\nf 0 d f 2002\n"
                         "g a 0 m 2001\nh a 0 f 2001\n"));
  const auto beyond = [&](std::string_view sire, std::string_view dam) {
    const MatingPlan plan = {{position_of(cousins, dam)}, {position_of(cousins, sire)}, {}, {}};
    return choose_matings(make_mating_work(cousins, candidates_of(plan)), plan).beyond;
  };
  EXPECT_EQ(beyond("e", "f"), 0);
  EXPECT_EQ(beyond("g", "h"), 1);
}

TEST(ChooseMatings, CountsPairsAndFemalesBeyondTheLimitOfTheBoard) {
  // G has 25 % with his mother b and 12.5 % with his half sib h; s is related to neither.
  const PopulationStore herd =
      with_inbreeding(pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\ns 0 0 m 2000\ng a b m 2001\nh a 0 f 2001\n"));
  const auto position = [&](std::string_view id) { return position_of(herd, id); };
  const auto choose = [&](std::vector<std::int32_t> males, double most_inbreeding) {
    MatingPlan plan = {{position("b"), position("h")}, std::move(males), {}, {}};
    plan.most_inbreeding = most_inbreeding;
    return choose_matings(make_mating_work(herd, candidates_of(plan)), plan);
  };
  EXPECT_EQ(choose({position("g")}, 0.25).beyond, 0);
  EXPECT_EQ(choose({position("g")}, 0.125).beyond, 1);
  EXPECT_EQ(choose({position("g")}, 0.125).females_beyond, 1);
  EXPECT_EQ(choose({position("g")}, 0.1).females_beyond, 2);
  EXPECT_EQ(choose({position("g"), position("s")}, 0.1).beyond, 2);
  EXPECT_EQ(choose({position("g"), position("s")}, 0.1).females_beyond, 0);
}

// The males are unrelated to the female; of one three generations are known, of the other a hair less.
TEST(OrderOfPairs, MalesOfWhomLittleIsKnownStandBehindTheOthers) {
  PopulationStore store = pedigree_from_text("eve 0 0 f 2000\nold 0 0 m 2001\nnew 0 0 m 2001\n");
  TextOutput console;
  compute_inbreeding(store, make_ancestor_pedigree(store), console);
  const auto first_male = [&](float of_old, float of_new) {
    store.generation_equivalents = ByNumber<float>(store.size());
    store.generation_equivalents[2] = of_old;
    store.generation_equivalents[3] = of_new;
    return males_for(store, 1, 2000, 2001).front().male;
  };
  EXPECT_EQ(first_male(2.999F, 3.0F), 3);
  EXPECT_EQ(first_male(3.0F, 3.0F), 2);
  EXPECT_EQ(first_male(0.0F, 2.999F), 2) << "little is known of either";
}

}  // namespace
}  // namespace pedigreewatch::test
