#include "intake/young_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/animal_lines.h"
#include "intake/heading_words.h"

namespace pedigreewatch::test {
namespace {

using Headings = std::vector<std::string>;

std::string numbers_of(const std::vector<std::size_t>& places) {
  std::string text;
  for (const std::size_t place : places) text += (text.empty() ? "" : ",") + std::to_string(place + 1);
  return text;
}

/// The columns of the only group that the headings make; "-" for none.
std::string group_of(const Headings& headings) {
  const std::vector<ColumnGroup> groups = find_column_groups(headings);
  return groups.size() == 1 ? numbers_of(groups.front().places) : std::string(groups.empty() ? "-" : "several");
}

TEST(ColumnGroups, HeadingsThatDifferInTheirNumber) {
  EXPECT_EQ(group_of({"Sire", "Lamb 2", "Lamb 1", "Dam"}), "3,2");
  EXPECT_EQ(group_of({"Tag lamb1", "Tag lamb2", "Tag lamb3"}), "1,2,3");
  EXPECT_EQ(group_of({"1e lam", "2e lam", "3e lam"}), "1,2,3");
  EXPECT_EQ(group_of({"1st pup", "2nd pup", "3rd pup", "4th pup"}), "1,2,3,4");
  EXPECT_EQ(group_of({"Pup", "Pup", "Pup"}), "1,2,3");
  EXPECT_EQ(group_of({"Pup", "Pup 2", "Pup 3"}), "1,2,3");
}

TEST(ColumnGroups, NoneWhereTheNumbersDoNotGoOn) {
  EXPECT_EQ(group_of({"Lamb 1", "Lamb 3"}), "-");
  EXPECT_EQ(group_of({"Lamb 2", "Lamb 3"}), "-");
  EXPECT_EQ(group_of({"Lamb", "Lamb 3"}), "-");
  EXPECT_EQ(group_of({"Lamb 1", "Lamb 1", "Lamb 2"}), "-");
  EXPECT_EQ(group_of({"Weight 2019", "Weight 2020"}), "-");
  EXPECT_EQ(group_of({"Test 1 of 2", "Test 2 of 2"}), "-");
  Headings many;
  for (int k = 1; k <= 40; ++k) many.push_back("Lamb " + std::to_string(k));
  EXPECT_EQ(find_column_groups(many).front().places.size(), 40U);
  many.emplace_back("Lamb 41");  // the number of a measurement
  EXPECT_EQ(find_column_groups(many).front().places.size(), 40U);
}

TEST(ColumnGroups, SayWhatTheyHold) {
  const auto one = [](const Headings& headings) { return find_column_groups(headings).front(); };
  EXPECT_EQ(one({"Lamb 1", "Lamb 2"}).code, id_column);
  EXPECT_EQ(one({"Lam 1 oormerk", "Lam 2 oormerk"}).code, id_column);
  EXPECT_EQ(one({"Welpe 1 Geschlecht", "Welpe 2 Geschlecht"}).code, sex_column);
  EXPECT_EQ(one({"Sex 1", "Sex 2"}).code, sex_column);
  EXPECT_EQ(one({"Pup1 M/F", "Pup2 M/F"}).code, sex_column);
  EXPECT_EQ(one({"Pup colour 1", "Pup colour 2"}).code, colour_column);
  EXPECT_EQ(one({"Lamnummer 1", "Lamnummer 2"}).code, id_column);
  EXPECT_EQ(one({"Nom chiot 1", "Nom chiot 2"}).code, name_column);
  EXPECT_TRUE(one({"Agnello 1", "Agnello 2"}).is_open);
  EXPECT_TRUE(one({"Nummer 1", "Nummer 2"}).is_open);
  EXPECT_FALSE(one({"Weight 1", "Weight 2"}).is_open);
  EXPECT_FALSE(one({"Lamb 1 weight", "Lamb 2 weight"}).is_open);
}

TEST(ReadHeading, WordsForYoungLeaveAHeadingOpen) {
  EXPECT_TRUE(read_heading("Lamb").names_young);
  EXPECT_FALSE(read_heading("Lamb").is_understood);
  EXPECT_TRUE(read_heading("Lamnummer").names_young);
  EXPECT_FALSE(read_heading("Ear tag").names_young);
}

/// A book of litters: two young each, of which the first ones of the early litters have young themselves.
std::string litters(const std::string& header, int count) {
  std::string text = header + "\n";
  for (int k = 0; k < count; ++k) {
    const std::string sire = k < 4 ? "s" + std::to_string(k) : "a" + std::to_string(k - 4);
    const std::string dam = k < 4 ? "d" + std::to_string(k) : "b" + std::to_string(k - 4);
    text += std::to_string(100 + k) + ";" + sire + ";" + dam + ";2001;a" + std::to_string(k) + ";m;b" +
            std::to_string(k) + ";f\n";
  }
  return text;
}

struct Chosen {
  YoungColumns young;
  ColumnChoice columns;
  PrepareOptions wishes;
};

Chosen choose(const std::string& text, const NameWish& wish = {}, const std::vector<ColumnWish>& columns = {}) {
  Chosen chosen;
  chosen.wishes.young = wish;
  chosen.wishes.columns = columns;
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  next_record(reader, record);
  const std::vector<std::string> first(record.fields.begin(), record.fields.end());
  chosen.columns = choose_columns(first, chosen.wishes);
  chosen.young = choose_young(text, ';', chosen.columns, chosen.wishes);
  return chosen;
}

constexpr const char* plain_header = "Litter;Sire;Dam;Born;Lamb 1;Sex 1;Lamb 2;Sex 2";

/// What stands in the columns Sire, Dam, ID, Lamb 1, Lamb 2 (and Lamb 3): numbers from the first one on.
struct Numbers {
  std::uint32_t first = 0, count = 0;
};

ColumnProfile profile_of(const Numbers& numbers, std::int64_t repeats = 0) {
  ColumnProfile profile;
  for (std::uint32_t k = 0; k < numbers.count; ++k) profile.texts.insert(numbers.first + k);
  profile.texts_read = numbers.count + repeats;
  return profile;
}

/// What the columns tell: "no", "open" or "certain".
std::string evidence_in(std::vector<ColumnProfile> profiles, const std::string& young) {
  Headings headings = {"Sire", "Dam", "ID"};
  for (std::size_t k = 3; k < profiles.size(); ++k) headings.push_back(young + " " + std::to_string(k - 2));
  ColumnChoice columns;
  columns.headings = headings;
  columns.place[sire_column] = 0;
  columns.place[dam_column] = 1;
  columns.place[id_column] = 2;
  const YoungColumns found = find_young(find_column_groups(headings), profiles, columns);
  if (found.ids.empty()) return "no";
  return found.is_certain ? "certain" : "open";
}

TEST(FindYoung, IdsAreTenAtLeastAndNearlyAllDifferent) {
  const auto with = [](std::uint32_t second, std::int64_t repeats) {
    return evidence_in({profile_of({1, 4}), profile_of({5, 1}), profile_of({900, 9}), profile_of({1, 5}),
                        profile_of({101, second}, repeats)},
                       "Lamb");
  };
  EXPECT_EQ(with(4, 0), "no");
  EXPECT_EQ(with(5, 0), "certain");
  EXPECT_EQ(with(44, 1), "certain");  // one text of 50 comes again
  EXPECT_EQ(with(43, 1), "no");
}

TEST(FindYoung, ParentsAreFiveAtLeast) {
  const auto with = [](std::uint32_t parents) {
    return evidence_in({profile_of({1, parents}), profile_of({800, 9}), profile_of({900, 9}), profile_of({1, 20}),
                        profile_of({101, 20})},
                       "Lamb");
  };
  EXPECT_EQ(with(5), "certain");
  EXPECT_EQ(with(4), "open");
}

TEST(FindYoung, TheyHoldThreeTimesTheParentsOfTheIds) {
  const auto with = [](std::uint32_t in_id) {
    return evidence_in(
        {profile_of({1, 9}), profile_of({800, 9}), profile_of({1, in_id}), profile_of({1, 20}), profile_of({101, 20})},
        "Lamb");
  };
  EXPECT_EQ(with(3), "certain");
  EXPECT_EQ(with(4), "no");
}

TEST(FindYoung, UnderOtherHeadingsAFifthOfTheParentsStandsBehindTheFirstColumn) {
  const auto with = [](std::uint32_t in_first, std::uint32_t behind) {
    return evidence_in({profile_of({1, in_first}), profile_of({101, behind}), profile_of({900, 9}), profile_of({1, 30}),
                        profile_of({101, 30}), profile_of({201, 30})},
                       "Code");
  };
  EXPECT_EQ(with(8, 2), "certain");
  EXPECT_EQ(with(9, 2), "open");
}

TEST(FindYoung, TwoParentsBehindTheFirstColumnAreAskedAbout) {
  const auto with = [](std::uint32_t behind) {
    return evidence_in({profile_of({1, 20}), profile_of({101, behind}), profile_of({900, 9}), profile_of({1, 60}),
                        profile_of({101, 3})},
                       "Code");
  };
  EXPECT_EQ(with(2), "open");
  EXPECT_EQ(with(1), "no");
}

TEST(ChooseYoung, TakesTheColumnsThatHoldTheParents) {
  const Chosen chosen = choose(litters(plain_header, 40));
  EXPECT_TRUE(chosen.young.is_certain);
  EXPECT_EQ(numbers_of(chosen.young.ids), "5,7");
  EXPECT_EQ(chosen.young.fields, (std::vector<FieldCode>{id_column, sex_column}));
  ASSERT_EQ(chosen.wishes.columns.size(), 2U);
  EXPECT_EQ(chosen.wishes.columns[0].column, "5");
  EXPECT_EQ(chosen.wishes.columns[1].column, "6");
}

TEST(ChooseYoung, AsksWhereNoParentStandsAmongThem) {
  std::string text = std::string(plain_header) + "\n";
  for (int k = 0; k < 30; ++k) {
    text += std::to_string(k) + ";s" + std::to_string(k % 9) + ";d" + std::to_string(k) + ";2001;a" +
            std::to_string(k) + ";m;b" + std::to_string(k) + ";f\n";
  }
  const Chosen chosen = choose(text);
  ASSERT_EQ(chosen.young.questions.size(), 1U);
  EXPECT_EQ(chosen.young.questions.front().kind, QuestionKind::young_unclear);
  EXPECT_EQ(chosen.young.questions.front().answers.front().value, "5,7");
  EXPECT_EQ(choose(text, {.is_given = true, .leaves_out = true, .names = {}}).columns.questions.front().field,
            id_column);
}

TEST(ChooseYoung, TwoNumbersOfAnAnimalAreAskedAbout) {
  const Chosen chosen = choose(litters("Litter;Sire;Dam;Born;Code 1;Sex 1;Code 2;Sex 2", 40));
  ASSERT_EQ(chosen.young.questions.size(), 1U);
  EXPECT_EQ(chosen.young.questions.front().kind, QuestionKind::young_unclear);
}

/// Animals of which a few have a second number; the second number of animal 3 is a mother's, and of animal 5 another's.
std::string rare_second_numbers(const std::string& second_of_5) {
  std::string text = "Sire;Dam;Born;Code 1;Code 2;Sex\n";
  for (int k = 0; k < 60; ++k) {
    const std::string sire = k < 20 ? "" : "a" + std::to_string(k - 20);
    const std::string dam = k == 40 ? "t3" : k == 41 ? "t5" : "";
    const std::string second = k == 3 ? "t3" : k == 5 ? second_of_5 : k == 9 ? "t9" : "";
    text += sire + ";" + dam + ";2001;a" + std::to_string(k) + ";" + second + ";f\n";
  }
  return text;
}

TEST(ChooseYoung, RareSecondYoungThatAreParentsAreAskedAbout) {
  const Chosen chosen = choose(rare_second_numbers("t5"));
  ASSERT_EQ(chosen.young.questions.size(), 1U);
  EXPECT_EQ(chosen.young.questions.front().kind, QuestionKind::young_unclear);
  EXPECT_EQ(chosen.young.questions.front().answers.front().value, "4,5");
  EXPECT_TRUE(choose(rare_second_numbers("t6")).young.ids.empty());
}

TEST(ChooseYoung, NumbersThatAreNoParentsAreNotAskedAbout) {
  std::string text = "Sire;Dam;Born;Code 1;Code 2;Sex\n";
  for (int k = 0; k < 60; ++k) {
    const std::string sire = k < 20 ? "" : "a" + std::to_string(k - 20);
    text += sire + ";;2001;a" + std::to_string(k) + ";eartag" + std::to_string(k) + ";f\n";
  }
  EXPECT_TRUE(choose(text).young.ids.empty());
}

TEST(ChooseYoung, NotWhereAnotherColumnHoldsTheParents) {
  std::string text = "ID;Sire;Dam;Sex;Born;Lamb 1;Lamb 2\n";
  for (int k = 0; k < 60; ++k) {
    const std::string sire = k < 4 ? "" : "a" + std::to_string(k / 4), dam = k < 4 ? "" : "a" + std::to_string(k - 1);
    text += "a" + std::to_string(k) + ";" + sire + ";" + dam + ";f;2001;a" + std::to_string(k + 1) + ";x" +
            std::to_string(k) + "\n";
  }
  const Chosen chosen = choose(text);
  EXPECT_TRUE(chosen.young.ids.empty());
  EXPECT_TRUE(chosen.columns.questions.empty());
}

/// The litters, in so many of which the second lamb is this word instead of an id.
std::string litters_with(const std::string& word, int count) {
  std::string text = litters(plain_header, 60);
  for (int k = 59; k >= 60 - count; --k) {
    const std::string id = ";b" + std::to_string(k) + ";";
    text.replace(text.rfind(id), id.size(), ";" + word + ";");
  }
  return text;
}

TEST(ChooseYoung, StillbornOnesDoNotHideTheColumns) {
  for (const char* const word :
       {"dead", "Dood", "doodgeboren", "tot", "stillborn", "still born", "mort-n\u00E9", "\u2020"}) {
    const Chosen chosen = choose(litters_with(word, 30));
    EXPECT_TRUE(chosen.young.is_certain) << word;
    EXPECT_EQ(numbers_of(chosen.young.ids), "5,7") << word;
  }
}

TEST(ChooseYoung, ColumnsCalledYoungAreAskedAboutBeforeAnyIsTheId) {
  const Chosen chosen = choose(litters_with("sold", 30));
  ASSERT_EQ(chosen.young.questions.size(), 1U);
  EXPECT_EQ(chosen.young.questions.front().answers.front().value, "5,7");
  const Chosen one = choose(litters_with("sold", 30), {}, {{id_column, "Lamb 1"}});
  ASSERT_EQ(one.young.questions.size(), 1U);
  EXPECT_EQ(one.young.questions.front().kind, QuestionKind::young_unclear);
  EXPECT_TRUE(choose(litters_with("sold", 30), {}, {{id_column, "Litter"}}).young.ids.empty());
}

TEST(NextRecord, LeavesStillbornOnesOut) {
  const std::string text = "s;d;dead;1\ns;d;2;tot\ns;d;dood;dood\n";
  RecordReader reader = read_records(text, ';');
  const std::vector<LineAnimal> animals = {{{2, 2}}, {{3, 2}}};
  reader.animals = animals;
  ExportRecord record;
  std::string ids;
  while (next_record(reader, record)) ids += std::string(record.fields[2]) + ",";
  EXPECT_EQ(ids, "1,2,,");
}

TEST(ChooseYoung, NotWhereTextsComeAgain) {
  std::string text = std::string(plain_header) + "\n";
  for (int k = 0; k < 40; ++k) text += std::to_string(k) + ";s1;d1;2001;a" + std::to_string(k % 9) + ";m;b;f\n";
  const Chosen chosen = choose(text);
  EXPECT_TRUE(chosen.young.ids.empty());
  EXPECT_NE(chosen.columns.questions.front().kind, QuestionKind::young_unclear);
}

TEST(ChooseYoung, AColumnThatTheUserNamesStandsForItsGroup) {
  const std::string text = litters("Litter;Sire;Dam;Born;Lamb 1;Odd 1;Lamb 2;Odd 2", 40);
  EXPECT_EQ(choose(text).young.fields.size(), 1U);
  const Chosen chosen = choose(text, {}, {{sex_column, "Odd 1"}});
  EXPECT_EQ(chosen.young.fields, (std::vector<FieldCode>{id_column, sex_column}));
  EXPECT_EQ(chosen.young.animals[1][1].from, 7U);
}

TEST(ChooseYoung, TheUserNamesThem) {
  const Chosen chosen = choose(litters("a;Sire;Dam;Born;x;m;y;n", 3), {.is_given = true, .names = {"x", "7"}});
  EXPECT_EQ(numbers_of(chosen.young.ids), "5,7");
  const Chosen wrong = choose(litters(plain_header, 3), {.is_given = true, .names = {"Lamb 1", "Pup 2"}});
  EXPECT_EQ(wrong.columns.questions.back().kind, QuestionKind::no_such_young);
}

TEST(NextRecord, HandsOutEachAnimalOfALine) {
  const std::string text = "1;\"s \"\"x\"\"\";a;m;b;f\n2;t;-;;c;m\n3;u;;;0;\n4;v\n";
  const std::vector<LineAnimal> of_line = {{{2, 2}, {3, 3}}, {{4, 2}, {5, 3}}};
  RecordReader reader = read_records(text, ';');
  reader.animals = of_line;
  ExportRecord record;
  std::string seen;
  while (next_record(reader, record)) {
    for (std::size_t k = 0; k < std::min<std::size_t>(4, record.fields.size()); ++k)
      seen += std::string(record.fields[k]) + " ";
    seen += std::to_string(record.line) + (record.is_further ? "+ | " : " | ");
  }
  EXPECT_EQ(seen, "1 s \"x\" a m 1 | 1 s \"x\" b f 1+ | 2 t c m 2 | 3 u   3 | 4 v 4 | ");
}

}  // namespace
}  // namespace pedigreewatch::test
