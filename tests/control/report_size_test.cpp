#include "control/report_size.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/store_builder.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// A father, and his young that is 5,000 years younger, in a population of a thousand birth years.
std::vector<AnimalRecord> father_and_young() {
  AnimalRecord father, young;
  father.id.assign("F1");
  father.birth_year = 1999;
  father.birth_month = 12;
  father.birth_day = 31;
  young.id.assign("Y1");
  young.birth_year = 7000;
  young.birth_month = 2;
  young.sire_no = 1;
  young.sire_age_days = 5000 * 365;
  young.dam_age_days = -1;
  return {father, young};
}

PopulationStore thousand_years_of(const std::vector<AnimalRecord>& animals) {
  PopulationStore store = finished_store_of(animals);
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

std::string message_on(const ReportBytes& bytes, const ReportShape& shape) {
  RunStreams streams;
  const bool has_stopped = stops([&] { check_report_bytes(bytes, shape, "dogs.txt", streams); });
  EXPECT_EQ(has_stopped, is_too_large(bytes));
  EXPECT_EQ(has_stopped, !streams.messages.pending.empty());
  return streams.messages.pending;
}

TEST(CheckReportBytes, AGigabyteIsTheMost) {
  const ReportShape shape = {.years = 800, .names = 400};
  ReportBytes bytes = {.all = 1'000'000'000, .longest_line = 1'000'000, .blocks = 390};
  EXPECT_EQ(message_on(bytes, shape), "");
  ++bytes.all;
  EXPECT_EQ(message_on(bytes, shape),
            "dogs.txt: the report would have 1001 MB, at most 1000 MB were expected: 400 subpopulations in "
            "pedigreewatch.ini, 390 of them with animals, and 800 birth years; name fewer subpopulations there, those "
            "with many animals, and look at the first and the last birth year\n");
}

TEST(CheckReportBytes, ALineOfAMegabyteIsTheMost) {
  const ReportBytes bytes = {.all = 2'000'000, .longest_line = 1'000'001, .blocks = 2};
  const ReportShape shape = {.years = 1, .names = 448};
  EXPECT_EQ(message_on(bytes, shape),
            "dogs.txt: the report would have lines of 1.01 MB, at most 1 MB were expected: 448 subpopulations in "
            "pedigreewatch.ini make 100128 pairs; name fewer of them there, those with many animals\n");
}

TEST(CheckParentAges, TwentyMillionFiguresAreTheMost) {
  const PopulationStore store = thousand_years_of(father_and_young());
  EXPECT_EQ(message_on(store, {.of_males = 19'000, .of_females = 1'000}), "");
  EXPECT_EQ(message_on(store, {.of_males = 20'000, .of_females = -5'883'516}), "") << "no mother is known";
  EXPECT_NE(message_on(store, {.of_males = 19'000, .of_females = 1'001}), "");
  EXPECT_NE(message_on(store, {.of_males = 5'883'516, .of_females = 5'883'516}), "");
}

TEST(CheckParentAges, MessageNamesBothDatesAndTheirLines) {
  PopulationStore store = thousand_years_of(father_and_young());
  store.kept.lines_before_records = 811;
  EXPECT_EQ(
      message_on(store, {.of_males = 20'001, .of_females = 0}),
      "dogs.txt: fathers up to 20001 and mothers up to 0 years old (the oldest parent \"F1\" was born on "
      "31-12-1999, line 812, its young \"Y1\" on 1-2-7000, line 813): the tables of parents' ages would have more "
      "than 20000000 figures\n");
}

TEST(CheckParentAges, MessageNamesTheFirstAndTheLastYearWhenTheyAreManyYearsApart) {
  std::vector<AnimalRecord> records = father_and_young();
  AnimalRecord& last = records.emplace_back();
  last.id.assign("Z1");
  last.birth_year = 2999;
  PopulationStore store = thousand_years_of(records);
  store.kept.lines_before_records = 811;
  EXPECT_EQ(message_on(store, {.of_males = 20'001, .of_females = 0}).find("birth years"), std::string::npos);
  store.birth_years = {.first = 1999, .last = 2999, .count = 1001};
  EXPECT_EQ(
      message_on(store, {.of_males = 20'001, .of_females = 0}),
      "dogs.txt: fathers up to 20001 and mothers up to 0 years old (the oldest parent \"F1\" was born on "
      "31-12-1999, line 812, its young \"Y1\" on 1-2-7000, line 813) and 1001 birth years (in the first one \"F1\" "
      "was born on 31-12-1999, line 812, in the last one \"Z1\" on 1-1-2999, line 814): the tables of parents' "
      "ages would have more than 20000000 figures\n");
}

TEST(CheckParentAges, OldestParentMayBeAMother) {
  std::vector<AnimalRecord> animals = father_and_young();
  AnimalRecord& young = animals[1];
  young.dam_no = 1;
  young.sire_no = 0;
  young.dam_age_days = young.sire_age_days;
  young.sire_age_days = -1;
  EXPECT_NE(
      message_on(thousand_years_of(animals), {.of_males = 0, .of_females = 20'001}).find("the oldest parent \"F1\""),
      std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
