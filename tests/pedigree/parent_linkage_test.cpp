#include "pedigree/parent_linkage.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/pedigree_runs.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// What the linkage prints before the sort begins.
std::string console_of_linkage(PopulationStore store, bool english) {
  RunStreams streams = streams_in(english);
  link_and_sort(store, streams);
  EXPECT_EQ(streams.report.pending, "");
  const std::string& console = streams.console.pending;
  const std::size_t sort_start = console.find(english ? " sweep " : " ronde ");
  EXPECT_NE(sort_start, std::string::npos);
  return console.substr(0, sort_start);
}

PopulationStore unrelated_animals(std::int32_t count) {
  std::string text;
  for (std::int32_t i = 1; i <= count; ++i) text += "a" + std::to_string(i) + " 0 0 m 2000\n";
  return animals_from_text(text);
}

std::int32_t number_of(const PopulationStore& store, std::string_view id) {
  return animal_named(store, id).number;
}

TEST(LinkParents, TurnsIdentificationsIntoPositions) {
  const PopulationStore store = pedigree_from_text(
      "rex  0   0    m 2000\n"
      "saar 0   0    f 2000\n"
      "puck rex saar m 2003\n");
  EXPECT_EQ(store.at(3).sire_no, 1);
  EXPECT_EQ(store.at(3).dam_no, 2);
}

TEST(LinkParents, UnknownParentsAreZeroAndChangeNoRecord) {
  const PopulationStore store = pedigree_from_text(
      "rex  0   0    m 2000\n"
      "saar 0   0    f 2000\n");
  for (const AnimalRecord& animal : records_of(store)) {
    EXPECT_EQ(animal.sire_no, 0);
    EXPECT_EQ(animal.dam_no, 0);
    EXPECT_FALSE(animal.is_parent);
    EXPECT_EQ(animal.native_offspring_count, 0);
    EXPECT_FALSE(animal.is_native_parent);
  }
}

TEST(LinkParents, CountsOffspringAndNativeOffspring) {
  const PopulationStore store = pedigree_from_text(
      "rex  0   0    m 2000 - import\n"
      "saar 0   0    f 2000\n"
      "a    rex saar m 2003\n"
      "b    rex saar m 2003 - import\n"
      "c    rex 0    m 2003\n"
      "d    0   b    f 2006 - import\n");
  // An import that is a parent counts like any other; its offspring decides.
  const AnimalRecord& rex = animal_named(store, "rex");
  EXPECT_TRUE(rex.is_parent);
  EXPECT_EQ(rex.native_offspring_count, 2);
  EXPECT_TRUE(rex.is_native_parent);
  const AnimalRecord& saar = animal_named(store, "saar");
  EXPECT_TRUE(saar.is_parent);
  EXPECT_EQ(saar.native_offspring_count, 1);
  const AnimalRecord& b = animal_named(store, "b");  // a male as mother
  EXPECT_TRUE(b.is_parent);
  EXPECT_EQ(b.native_offspring_count, 0);
  EXPECT_FALSE(b.is_native_parent);
  const AnimalRecord& c = animal_named(store, "c");
  EXPECT_FALSE(c.is_parent);
  EXPECT_EQ(c.native_offspring_count, 0);
  EXPECT_EQ(animal_named(store, "d").dam_no, number_of(store, "b"));
}

TEST(LinkParents, AnimalThatIsBothParentsCountsTwice) {
  const PopulationStore store = pedigree_from_text(
      "rex  0   0   m 2000\n"
      "a    rex rex m 2003\n");
  EXPECT_TRUE(store.at(1).is_parent);
  EXPECT_EQ(store.at(1).native_offspring_count, 2);
  EXPECT_EQ(store.at(2).sire_no, 1);
  EXPECT_EQ(store.at(2).dam_no, 1);
}

TEST(LinkParents, FirstOfTwoRecordsWithOneIdentificationIsTheParent) {
  PopulationStore store = animals_from_text(
      "rex 0   0 m 2000\n"
      "rex 0   0 f 2001\n"
      "a   rex 0 m 2003\n"
      "b   0 rex m 2003\n");
  RunStreams streams;
  link_and_sort(store, streams);
  EXPECT_EQ(store.at(1).birth_year, 2000);
  EXPECT_EQ(store.at(1).native_offspring_count, 2);
  EXPECT_EQ(store.at(2).birth_year, 2001);
  EXPECT_EQ(store.at(2).native_offspring_count, 0);
  EXPECT_FALSE(store.at(2).is_parent);
  EXPECT_EQ(store.at(3).sire_no, 1);
  EXPECT_EQ(store.at(4).dam_no, 1);
  EXPECT_EQ(streams.console.pending.find("rex"), std::string::npos);  // no message about it
}

TEST(LinkParents, FirstOfManyDuplicatesWinsAmongManyAnimals) {
  // Each identification stands three times, in three rounds; offspring name the parent of their own round's number.
  std::string text;
  for (std::int32_t round = 0; round < 3; ++round) {
    for (std::int32_t i = 0; i < 500; ++i)
      text += "p" + std::to_string(i) + " 0 0 m " + std::to_string(2000 + round) + "\n";
  }
  for (std::int32_t i = 0; i < 500; ++i) text += "c" + std::to_string(i) + " p" + std::to_string(i) + " 0 f 2005\n";
  const PopulationStore store = pedigree_from_text(text);
  ASSERT_EQ(store.animal_count, 2000);
  for (std::int32_t i = 1; i <= 500; ++i) EXPECT_EQ(store.at(1500 + i).sire_no, i);
}

TEST(LinkParents, LitterMatesThatStandTogetherHaveTheSameParents) {
  const PopulationStore store = pedigree_from_text(
      "rex  0   0    m 2000\n"
      "saar 0   0    f 2000\n"
      "a    rex saar m 2003\n"
      "b    rex saar m 2003\n"
      "c    rex new  m 2003\n"
      "d    bo  new  m 2003\n"
      "e    bo  0    m 2003\n"
      "f    0   0    m 2003\n"
      "g    bo  saar m 2003\n");
  const auto parents_of = [&](std::string_view id) {
    const AnimalRecord& animal = animal_named(store, id);
    return std::vector<std::int32_t>{animal.sire_no, animal.dam_no};
  };
  const std::int32_t rex = number_of(store, "rex"), saar = number_of(store, "saar");
  const std::int32_t bo = number_of(store, "bo"), other = number_of(store, "new");
  EXPECT_EQ(parents_of("a"), (std::vector<std::int32_t>{rex, saar}));
  EXPECT_EQ(parents_of("b"), (std::vector<std::int32_t>{rex, saar}));
  EXPECT_EQ(parents_of("c"), (std::vector<std::int32_t>{rex, other}));
  EXPECT_EQ(parents_of("d"), (std::vector<std::int32_t>{bo, other}));
  EXPECT_EQ(parents_of("e"), (std::vector<std::int32_t>{bo, 0}));
  EXPECT_EQ(parents_of("f"), (std::vector<std::int32_t>{0, 0}));
  EXPECT_EQ(parents_of("g"), (std::vector<std::int32_t>{bo, saar}));
  EXPECT_EQ(store.at(rex).native_offspring_count, 3);
  EXPECT_EQ(store.at(saar).native_offspring_count, 3);
  EXPECT_EQ(store.at(bo).native_offspring_count, 3);
  EXPECT_EQ(store.at(other).native_offspring_count, 2);
}

TEST(LinkParents, AgreesWithAPlainSearchAmongDuplicatesAndMissingParents) {
  RandomNumbers random{31};
  std::string text;
  for (int i = 0; i < 60; ++i) text += "p" + std::to_string(random.below(40)) + " 0 0 m 2000\n";
  std::string sire = "0", dam = "0";
  for (int i = 1; i <= 600; ++i) {
    const auto draw = [&] { return random.below(6) == 0 ? "0" : "p" + std::to_string(random.below(50)); };
    if (random.below(2) == 0) sire = draw();
    if (random.below(2) == 0) dam = draw();
    text +=
        "c" + std::to_string(i) + " " + sire + " " + dam + (random.below(4) == 0 ? " m 2003 - import\n" : " m 2003\n");
  }
  const PopulationStore store = pedigree_from_text(text);
  const auto first_with = [&](const AnimalId& id) -> std::int32_t {
    if (id == "0") return 0;
    for (std::int32_t i = 1; i <= store.animal_count; ++i) {
      if (store.id(i) == id.trimmed()) return i;
    }
    return -1;
  };
  std::vector<std::int32_t> offspring(store.size() + 1, 0), native_offspring = offspring;
  for (const AnimalRecord& record : records_from_text(text)) {
    const std::int32_t sire_no = first_with(record.sire_id), dam_no = first_with(record.dam_id);
    const AnimalRecord& animal = animal_named(store, record.id.trimmed());
    EXPECT_EQ(animal.sire_no, sire_no);
    EXPECT_EQ(animal.dam_no, dam_no);
    for (const std::int32_t parent : {sire_no, dam_no}) {
      ++offspring.at(static_cast<std::size_t>(parent));
      if (!record.is_import) ++native_offspring.at(static_cast<std::size_t>(parent));
    }
  }
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const AnimalRecord& animal = store.at(i);
    const auto place = static_cast<std::size_t>(i);
    EXPECT_EQ(animal.is_parent, offspring[place] > 0);
    EXPECT_EQ(animal.native_offspring_count, native_offspring[place]);
    EXPECT_EQ(animal.is_native_parent, native_offspring[place] > 0);
  }
}

TEST(LinkParents, LooksIdentificationsUpWithoutTrailingBlanksButWithLeadingOnes) {
  std::vector<AnimalRecord> records = records_from_text(
      "rex 0   0 m 2000\n"
      "a   0   0 m 2003\n"
      "b   0   0 m 2003\n");
  records[1].sire_id.assign("rex      ");
  records[2].sire_id.assign(" rex");
  PopulationStore store = store_of(records);
  RunStreams streams;
  link_and_sort(store, streams);
  EXPECT_EQ(store.animal_count, 4);  // " rex" is another animal
  EXPECT_EQ(animal_named(store, "a").sire_no, number_of(store, "rex"));
  EXPECT_EQ(animal_named(store, "b").sire_no, number_of(store, " rex"));
}

TEST(LinkParents, CaseOfAnIdentificationMatters) {
  const PopulationStore store = pedigree_from_text(
      "rex 0   0 m 2000\n"
      "a   REX 0 m 2003\n");
  EXPECT_EQ(store.animal_count, 3);
  EXPECT_FALSE(animal_named(store, "rex").is_parent);
}

TEST(LinkParents, IdentificationMissingAsFatherAndAsMotherIsTheMaleRecord) {
  const PopulationStore store = pedigree_from_text(
      "a bo 0  m 2000\n"
      "b 0  bo m 2000\n");
  ASSERT_EQ(store.animal_count, 4);
  const AnimalRecord& bo = animal_named(store, "bo");
  EXPECT_EQ(bo.sex, male);
  EXPECT_EQ(bo.native_offspring_count, 2);
  EXPECT_EQ(animal_named(store, "a").sire_no, bo.number);
  EXPECT_EQ(animal_named(store, "b").dam_no, bo.number);
}

TEST(LinkParents, SexOfAParentIsNotLookedAt) {
  const PopulationStore store = pedigree_from_text(
      "saar 0    0 f 2000\n"
      "a    saar 0 m 2003\n");
  EXPECT_EQ(store.at(2).sire_no, 1);
  EXPECT_EQ(store.at(1).sex, female);
}

TEST(LinkParents, ExactlyOneIntervalShowsNoProgress) {
  EXPECT_EQ(console_of_linkage(unrelated_animals(100), true), "");
  EXPECT_EQ(console_of_linkage(unrelated_animals(101), true),
            " animal no.          100 parents found and offspring checked\n");
  EXPECT_EQ(console_of_linkage(unrelated_animals(200), false),
            " dier nr.          100 ouders gevonden en nakomelingen gecheckt\n");
  EXPECT_EQ(console_of_linkage(unrelated_animals(201), false),
            " dier nr.          100 ouders gevonden en nakomelingen gecheckt\n"
            " dier nr.          200 ouders gevonden en nakomelingen gecheckt\n");
}

TEST(LinkParents, ProgressIntervalGrowsWithThePopulation) {
  const auto progress = [](std::int32_t count) { return lines_of(console_of_linkage(unrelated_animals(count), true)); };
  const auto line = [](std::int32_t done) {
    return " animal no. " + number(done) + " parents found and offspring checked";
  };
  EXPECT_EQ(progress(10000).size(), 99U);
  EXPECT_EQ(progress(10000).front(), line(100));
  EXPECT_EQ(progress(10001).size(), 50U);
  EXPECT_EQ(progress(10001).front(), line(200));
  EXPECT_EQ(progress(25000).size(), 124U);
  EXPECT_EQ(progress(25001).size(), 50U);
  EXPECT_EQ(progress(25001).back(), line(25000));
}

TEST(LinkParents, AppendedParentsCountForTheProgress) {
  // 100 lines and one father without a line.
  std::string text = "a1 rex 0 m 2000\n";
  for (std::int32_t i = 2; i <= 100; ++i) text += "a" + std::to_string(i) + " 0 0 m 2000\n";
  EXPECT_EQ(console_of_linkage(animals_from_text(text), true),
            " animal no.          100 parents found and offspring checked\n");
}

TEST(LinkParents, EmptyStoreGoesStraightToTheSort) {
  EXPECT_EQ(console_of_linkage(PopulationStore(), true), "");
}

TEST(LinkParents, EndsWithASortedStore) {
  const PopulationStore store = pedigree_from_text(
      "puck rex saar m 2003\n"
      "saar 0   0    f 2000\n"
      "rex  0   0    m 2000\n");
  EXPECT_EQ(store.at(1).id, "saar");
  EXPECT_EQ(store.at(2).id, "rex");
  EXPECT_EQ(store.at(3).id, "puck");
  EXPECT_EQ(store.at(3).sire_no, 2);
  EXPECT_EQ(store.at(3).dam_no, 1);
}

}  // namespace
}  // namespace pedigreewatch::test
