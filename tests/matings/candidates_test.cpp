// Which animals a list of identifications means, and what is said of the others.
#include "matings/candidates.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

std::vector<ListedId> list_of(const std::vector<std::string>& ids) {
  std::vector<ListedId> list;
  for (const std::string& id : ids) list.push_back({static_cast<std::int64_t>(list.size()) + 1, id});
  return list;
}

std::vector<std::string> ids_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  std::vector<std::string> ids;
  for (const std::int32_t position : positions) ids.emplace_back(store.id(position));
  return ids;
}

using Ids = std::vector<std::string>;

CandidateList listed(const PopulationStore& store, const Ids& ids, Sex wanted) {
  return candidates_listed(store, list_of(ids), wanted);
}

constexpr std::string_view four =
    "rex 0 0 m 2001\n"
    "ann 0 0 f 2002\n"
    "bea 0 0 f 2003\n"
    "cas 0 0 f 0\n";

TEST(CandidatesListed, StandInTheOrderOfTheList) {
  const PopulationStore store = pedigree_from_text(four);
  const CandidateList list = listed(store, {"cas", "ann"}, female);
  EXPECT_EQ(ids_of(store, list.positions), (Ids{"cas", "ann"}));
  EXPECT_TRUE(list.notes.empty());
}

TEST(AvailableListed, MarksEachAnimalOnceAndCountsTheUnknownOnes) {
  const PopulationStore store = pedigree_from_text(four);
  const AvailableAnimals available = available_listed(store, list_of({"ann", "nobody", "ann", "cas"}));
  EXPECT_TRUE(available.is_told);
  EXPECT_EQ(available.count, 2);
  EXPECT_EQ(available.unknown_ids, 1);
  EXPECT_TRUE(available.has(animal_named(store, "ann").number));
  EXPECT_FALSE(available.has(animal_named(store, "bea").number));
  EXPECT_FALSE(available.has(0));
  EXPECT_TRUE(AvailableAnimals().has(animal_named(store, "bea").number));
}

TEST(CandidatesListed, UnknownOnesOthersOfTheOtherSexAndRepeatedOnesAreLeftOut) {
  const PopulationStore store = pedigree_from_text(four);
  const CandidateList list = listed(store, {"ann", "nobody", "rex", "ann", "Ann"}, female);
  EXPECT_EQ(ids_of(store, list.positions), (Ids{"ann"}));
  ASSERT_EQ(list.notes.size(), 4U);
  EXPECT_EQ(list.notes[0].fault, ListFault::unknown_id);
  EXPECT_EQ(list.notes[0].line, 2);
  EXPECT_EQ(list.notes[0].id, "nobody");
  EXPECT_EQ(list.notes[1].fault, ListFault::wrong_sex);
  EXPECT_EQ(list.notes[1].id, "rex");
  EXPECT_EQ(list.notes[2].fault, ListFault::repeated);
  EXPECT_EQ(list.notes[2].line, 4);
  EXPECT_EQ(list.notes[2].first_line, 1);
  EXPECT_EQ(list.notes[3].fault, ListFault::unknown_id) << "capitals make another identification";
}

TEST(CandidatesListed, AreFoundInEitherEncoding) {
  const PopulationStore in_1252 = pedigree_from_text("Zo\xEB 0 0 f 2001\n");
  EXPECT_EQ(listed(in_1252, {"Zo\xC3\xAB"}, female).positions.size(), 1U);
  EXPECT_EQ(listed(in_1252, {"Zo\xEB"}, female).positions.size(), 1U);
  const PopulationStore in_utf_8 = pedigree_from_text("Zo\xC3\xAB 0 0 f 2001\n");
  EXPECT_EQ(listed(in_utf_8, {"Zo\xC3\xAB"}, female).positions.size(), 1U);
  EXPECT_EQ(listed(in_utf_8, {"Zo\xEB"}, female).positions.size(), 1U);
  EXPECT_EQ(listed(in_1252, {"Zo\xE4\xB8\xAD"}, female).notes.size(), 1U) << "a letter that Windows-1252 lacks";
}

TEST(CandidatesListed, TheSameAnimalInBothEncodingsIsRepeated) {
  const PopulationStore store = pedigree_from_text("Zo\xEB 0 0 f 2001\n");
  const CandidateList list = listed(store, {"Zo\xC3\xAB", "Zo\xEB"}, female);
  EXPECT_EQ(list.positions.size(), 1U);
  ASSERT_EQ(list.notes.size(), 1U);
  EXPECT_EQ(list.notes[0].fault, ListFault::repeated);
}

TEST(CandidatesListed, AreCutAsInTheDataFile) {
  const std::string thirty = "a23456789b23456789c23456789d23";
  const PopulationStore store = pedigree_from_text(thirty + "xyz 0 0 f 2001\n");
  EXPECT_EQ(listed(store, {thirty + std::string(570, 'q')}, female).positions.size(), 1U);
  EXPECT_EQ(listed(store, {thirty.substr(0, 29)}, female).positions.size(), 0U);
}

TEST(CandidatesListed, OfTwoAnimalsWithOneIdentificationTheFirstIsMeant) {
  const PopulationStore store = pedigree_from_text("ann 0 0 f 2001\nann 0 0 m 2002\n");
  const CandidateList list = listed(store, {"ann"}, female);
  ASSERT_EQ(list.positions.size(), 1U);
  EXPECT_EQ(store.birth_year[list.positions[0]], 2001);
  EXPECT_EQ(listed(store, {"ann"}, male).positions.size(), 0U);
}

TEST(CandidatesListed, MayBeParentsWithoutALineOfTheirOwn) {
  const PopulationStore store = pedigree_from_text("ann rex 0 f 2001\n");
  EXPECT_EQ(listed(store, {"rex"}, male).positions.size(), 1U);
}

TEST(CandidatesBorn, AreThoseOfTheSexAndTheYears) {
  const PopulationStore store = pedigree_from_text(four);
  EXPECT_EQ(ids_of(store, candidates_born(store, 2002, 2003, female)), (Ids{"ann", "bea"}));
  EXPECT_EQ(ids_of(store, candidates_born(store, 2003, 2003, female)), (Ids{"bea"}));
  EXPECT_EQ(ids_of(store, candidates_born(store, 0, 2003, male)), (Ids{"rex"}));
  EXPECT_TRUE(candidates_born(store, 0, 0, female).empty()) << "a year of birth that is not known";
}

}  // namespace
}  // namespace pedigreewatch::test
