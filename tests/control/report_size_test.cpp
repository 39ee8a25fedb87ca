#include "control/report_size.h"

#include <gtest/gtest.h>

#include <string>

#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// A father, and his young that is 5,000 years younger, in a population of a thousand birth years.
PopulationStore father_and_young() {
  PopulationStore store;
  allocate_records(store, 2);
  AnimalRecord& father = store.at(1);
  father.id.assign("F1");
  father.birth_year = 1999;
  father.birth_month = 12;
  father.birth_day = 31;
  father.line = 812;
  AnimalRecord& young = store.at(2);
  young.id.assign("Y1");
  young.birth_year = 7000;
  young.birth_month = 2;
  young.line = 7;
  young.sire_no = 1;
  young.sire_age_days = 5000 * 365;
  young.dam_age_days = -1;
  store.birth_years = {.first = 1999, .last = 2998, .count = 1000};
  return store;
}

/// The message on a population with fathers and mothers up to these ages; empty when the run goes on.
std::string message_on(const PopulationStore& store, const OldestParents& oldest) {
  RunStreams streams;
  const bool has_stopped = stops([&] { check_parent_ages(store, oldest, "dogs.txt", streams); });
  EXPECT_EQ(has_stopped, !streams.messages.pending.empty());
  return streams.messages.pending;
}

TEST(CheckParentAges, TwentyMillionFiguresAreTheMost) {
  const PopulationStore store = father_and_young();
  EXPECT_EQ(message_on(store, {.of_males = 19'000, .of_females = 1'000}), "");
  EXPECT_EQ(message_on(store, {.of_males = 20'000, .of_females = -5'883'516}), "") << "no mother is known";
  EXPECT_NE(message_on(store, {.of_males = 19'000, .of_females = 1'001}), "");
  EXPECT_NE(message_on(store, {.of_males = 5'883'516, .of_females = 5'883'516}), "");
}

TEST(CheckParentAges, MessageNamesBothDatesAndTheirLines) {
  EXPECT_EQ(message_on(father_and_young(), {.of_males = 20'001, .of_females = 0}),
            "dogs.txt: fathers up to 20001 and mothers up to 0 years old (the oldest parent \"F1\" was born on "
            "31-12-1999, line 812, its young \"Y1\" on 1-2-7000, line 7): the tables of parents' ages would have more "
            "than 20000000 figures\n");
}

TEST(CheckParentAges, MessageNamesTheFirstAndTheLastYearWhenTheyAreManyYearsApart) {
  PopulationStore store = father_and_young();
  AnimalRecord& last = store.animals.emplace_back();
  last.id.assign("Z1");
  last.birth_year = 2998;
  EXPECT_EQ(message_on(store, {.of_males = 20'001, .of_females = 0}).find("birth years"), std::string::npos);
  last.birth_year = 2999;
  last.line = 9;
  store.birth_years = {.first = 1999, .last = 2999, .count = 1001};
  EXPECT_EQ(message_on(store, {.of_males = 20'001, .of_females = 0}),
            "dogs.txt: fathers up to 20001 and mothers up to 0 years old (the oldest parent \"F1\" was born on "
            "31-12-1999, line 812, its young \"Y1\" on 1-2-7000, line 7) and 1001 birth years (in the first one \"F1\" "
            "was born on 31-12-1999, line 812, in the last one \"Z1\" on 1-1-2999, line 9): the tables of parents' "
            "ages would have more than 20000000 figures\n");
}

TEST(CheckParentAges, OldestParentMayBeAMother) {
  PopulationStore store = father_and_young();
  AnimalRecord& young = store.at(2);
  young.dam_no = 1;
  young.sire_no = 0;
  young.dam_age_days = young.sire_age_days;
  young.sire_age_days = -1;
  EXPECT_NE(message_on(store, {.of_males = 0, .of_females = 20'001}).find("the oldest parent \"F1\""),
            std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
