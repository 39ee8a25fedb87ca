// Who can be planned with.
#include "planning/plan_candidates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "planning/plan.h"
#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

// Sires at births of the last ten years: Pa at 3, 3, 3 and Ad at 5. Planned young are born in 2008.
constexpr std::string_view herd =
    "pa 0  0  m 2000\nma 0  0  f 2000\n"
    "ad pa ma m 2002\nbo pa ma m 2003\neva pa ma f 2003\ncor pa 0 m 2003\ndirk 0 0 m 2004\n"
    "fie ad eva f 2007\ngijs 0 0 m 2007\noud 0 0 m 2001\n";

std::string reason_of(const CandidatePool& pool, const PopulationStore& store, std::string_view id) {
  for (const LeftOut& animal : pool.left_out) {
    if (store.id(animal.position) == id) return std::to_string(static_cast<int>(animal.why));
  }
  return "none";
}

std::string ids_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  std::string ids;
  for (const std::int32_t position : positions) ids += std::string(store.id(position)) + " ";
  return ids;
}

std::string code(WhyNone why) {
  return std::to_string(static_cast<int>(why));
}

TEST(GatherCandidates, ByAgesTakesThoseOfTheAgesOfParents) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(herd));
  const CandidatePool pool = gather_candidates(store, {});
  ASSERT_TRUE(pool.candidates.of_males.ages.has_value());
  EXPECT_EQ(pool.candidates.of_males.ages->youngest, 2);
  EXPECT_EQ(pool.candidates.of_males.ages->oldest, 5);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "bo cor dirk ");
  EXPECT_EQ(reason_of(pool, store, "pa"), code(WhyNone::too_old));
  EXPECT_EQ(reason_of(pool, store, "ad"), code(WhyNone::too_old));  // six
  EXPECT_EQ(reason_of(pool, store, "gijs"), code(WhyNone::too_young));
  EXPECT_EQ(reason_of(pool, store, "oud"), "none");  // never a parent: not spoken of
}

TEST(GatherCandidates, OfAListNeedNoAge) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(herd));
  CandidateRules rules;
  rules.listed.of_males =
      std::vector<std::int32_t>{animal_named(store, "oud").number, animal_named(store, "bo").number};
  rules.excluded = {animal_named(store, "bo").number};
  const CandidatePool pool = gather_candidates(store, rules);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "oud ");
  EXPECT_EQ(reason_of(pool, store, "bo"), code(WhyNone::excluded));
}

TEST(GatherCandidates, ByYearsStopsAtTheFirstYear) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(herd));
  CandidateRules rules;
  rules.years = 4;
  CandidatePool pool = gather_candidates(store, rules);
  EXPECT_EQ(pool.candidates.of_males.first_year, 2004);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "dirk gijs ");
  rules.years = 1000;
  pool = gather_candidates(store, rules);
  EXPECT_EQ(pool.candidates.of_males.first_year, 2000);
  rules.needs_known_parents = true;
  EXPECT_EQ(ids_of(store, gather_candidates(store, rules).candidates.of_males.positions), "ad bo ");
  rules.needs_known_parents = false;
  rules.least_generations = 1.0;
  EXPECT_EQ(ids_of(store, gather_candidates(store, rules).candidates.of_males.positions), "ad bo ");
  rules.least_generations = 0.5;  // Cor knows one parent
  EXPECT_EQ(ids_of(store, gather_candidates(store, rules).candidates.of_males.positions), "ad bo cor ");
}

TEST(GatherCandidates, ThoseOfUnknownSexAreLeftOutUnlessTheirYoungTellIt) {
  PopulationStore store = with_inbreeding(pedigree_from_text(herd));
  const auto record = [&](std::string_view id) { return store.record_no(animal_named(store, id).number); };
  // Fie has no young; Eva is a dam; Bo nothing.
  std::vector<std::int32_t>& without_sex = store.kept.records_without_sex;
  without_sex = {record("bo"), record("eva"), record("fie")};
  std::sort(without_sex.begin(), without_sex.end());
  CandidateRules rules;
  rules.years = 5;  // from 2003 on
  const CandidatePool pool = gather_candidates(store, rules);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "cor dirk gijs ");
  EXPECT_EQ(ids_of(store, pool.candidates.of_females.positions), "eva ");
  EXPECT_EQ(pool.unknown_sexes, 2);
  EXPECT_EQ(reason_of(pool, store, "bo"), code(WhyNone::unknown_sex));
  EXPECT_EQ(reason_of(pool, store, "fie"), code(WhyNone::unknown_sex));
  // By ages only Bo is as old as sires have been.
  rules.years.reset();
  EXPECT_EQ(gather_candidates(store, rules).unknown_sexes, 1);
  rules.years = 5;
  rules.excluded = {animal_named(store, "bo").number};
  EXPECT_EQ(gather_candidates(store, rules).unknown_sexes, 1);
}

TEST(GatherCandidates, ThoseThatHaveGoneAreLeftOutUnlessAListNamesThem) {
  PopulationStore store = with_inbreeding(pedigree_from_text(herd));
  const auto position = [&](std::string_view id) { return animal_named(store, id).number; };
  CandidateRules rules;
  rules.available = {true, ByNumber<Flag>(store.size(), 1), 0, 0};
  for (const std::string_view id : {"bo", "pa", "fie"}) rules.available.marks[position(id)] = 0;
  CandidatePool pool = gather_candidates(store, rules);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "cor dirk ");
  EXPECT_EQ(reason_of(pool, store, "bo"), code(WhyNone::gone));
  EXPECT_EQ(reason_of(pool, store, "pa"), code(WhyNone::too_old));
  EXPECT_EQ(pool.gone, 1);
  rules.years = 5;
  EXPECT_EQ(gather_candidates(store, rules).gone, 2);  // Fie too
  // Nobody asks for the sex of one that has gone.
  store.kept.records_without_sex = {store.record_no(position("fie"))};
  EXPECT_EQ(gather_candidates(store, rules).unknown_sexes, 0);
  rules.listed.of_males = std::vector<std::int32_t>{position("bo")};
  pool = gather_candidates(store, rules);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "bo ");
}

TEST(GatherCandidates, KeepToASubpopulation) {
  LookedUpNames names;
  names.subpopulations.add(SubpopulationName("North"));
  names.subpopulations.add(SubpopulationName("South"));
  const PopulationStore store =
      with_inbreeding(pedigree_from_text("a 0 0 m 2000 North\nb 0 0 m 2000 South\nc 0 0 f 2000 North\n", names));
  CandidateRules rules;
  rules.years = 1;
  rules.subpopulation = "South";
  const CandidatePool pool = gather_candidates(store, rules);
  EXPECT_EQ(ids_of(store, pool.candidates.of_males.positions), "b ");
  EXPECT_TRUE(pool.candidates.of_females.positions.empty());
  EXPECT_EQ(reason_of(pool, store, "a"), code(WhyNone::other_subpopulation));
}

// Two full generations are two equivalents: no warning. One grandparent less, and there is one.
TEST(FindWarnings, CallAncestorsFewBelowTwoGenerations) {
  const std::string complete =
      "ga 0 0 m 1990\ngb 0 0 f 1990\ngc 0 0 m 1990\ngd 0 0 f 1990\npa ga gb m 1995\nma gc gd f 1995\n"
      "x pa ma m 2000\ny pa ma f 2000\n";
  const auto warn = [](const std::string& text) {
    const PopulationStore store = with_inbreeding(pedigree_from_text(text));
    PlanRequest request;
    request.males = {animal_named(store, "x").number};
    request.females = {animal_named(store, "y").number};
    request.matings = 1;
    return find_warnings(store, request, make_plan(store, request)).little_known;
  };
  EXPECT_EQ(warn(complete), 0);
  std::string incomplete = complete;
  incomplete.replace(incomplete.find("ma gc gd"), 8, "ma gc 0 ");
  EXPECT_EQ(warn(incomplete), 2);
  // Five fathers behind one of the others: 1 + 3/4 + 1/8 + 1/16 + 1/32 + 1/64 + 1/128 of two.
  incomplete.replace(incomplete.find("ga 0 0"), 6, "ga e1 0");
  EXPECT_EQ(warn("e5 0 0 m 1965\ne4 e5 0 m 1970\ne3 e4 0 m 1975\ne2 e3 0 m 1980\ne1 e2 0 m 1985\n" + incomplete), 2);
}

}  // namespace
}  // namespace pedigreewatch::test
