#include "intake/rare_young.h"

#include <gtest/gtest.h>

#include <string>

#include "intake/young_columns.h"

namespace pedigreewatch {
namespace {

TEST(NamesFurtherYoung, WordsForYoungAndTwinsAndNothingElse) {
  EXPECT_TRUE(names_further_young("Twin"));
  EXPECT_TRUE(names_further_young("Tweeling"));
  EXPECT_TRUE(names_further_young("2e kalf"));
  EXPECT_TRUE(names_further_young("Twin ear tag"));
  EXPECT_TRUE(names_further_young("Deuxi\xC3\xA8me"));
  EXPECT_FALSE(names_further_young("Twin sex"));
  EXPECT_FALSE(names_further_young("Sire's twin"));
  EXPECT_FALSE(names_further_young("Ear tag"));
}

ColumnChoice columns_of(std::vector<std::string> headings) {
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = std::move(headings);
  columns.place[id_column] = 0;
  columns.place[sire_column] = 1;
  columns.place[dam_column] = 2;
  return columns;
}

/// 100 animals, the first `filled` of which have a text in the last column.
std::vector<std::size_t> like_ids(const std::string& heading, int filled, const std::string& before,
                                  const std::string& odd_one = {}) {
  std::string text = "ID;Sire;Dam;" + heading + "\n";
  for (int k = 0; k < 100; ++k) {
    const std::string further = k == 0 && !odd_one.empty() ? odd_one : before + std::to_string(300 + k);
    text += "NL-" + std::to_string(100 + k) + ";;;" + (k < filled ? further : "") + "\n";
  }
  return columns_like_ids(text, ';', columns_of({"ID", "Sire", "Dam", heading}));
}

TEST(ColumnsLikeIds, AreWrittenAsTheIdsAre) {
  EXPECT_EQ(like_ids("Twin", 5, "NL-"), (std::vector<std::size_t>{3}));
  EXPECT_TRUE(like_ids("Twin", 5, "NL").empty());
  EXPECT_TRUE(like_ids("Twin", 5, "").empty());
  EXPECT_TRUE(like_ids("Twin", 5, "NL-1").empty());  // a digit more than in any id
  EXPECT_TRUE(like_ids("Twin", 0, "NL-").empty());
}

TEST(ColumnsLikeIds, OneOfFiftyTextsMayBeOther) {
  EXPECT_FALSE(like_ids("Twin", 50, "NL-", "NL4711").empty());
  EXPECT_TRUE(like_ids("Twin", 49, "NL-", "NL4711").empty());
}

TEST(ColumnsLikeIds, StandInNineOfTenLinesAtMost) {
  EXPECT_FALSE(like_ids("Twin", 90, "NL-").empty());
  EXPECT_TRUE(like_ids("Twin", 91, "NL-").empty());
}

TEST(ColumnsLikeIds, NotUnderHeadingsOfOtherThings) {
  EXPECT_FALSE(like_ids("Ear tag", 5, "NL-").empty());
  EXPECT_FALSE(like_ids("Odd", 5, "NL-").empty());
  EXPECT_FALSE(like_ids("Kalf", 5, "NL-").empty());
  for (const char* const heading : {"Grandsire", "Weight", "Name", "Date of death", "Sire's tag", "Twin weight"}) {
    EXPECT_TRUE(like_ids(heading, 5, "NL-").empty()) << heading;
  }
}

TEST(ColumnsLikeIds, AreLookedForAllOverALargeExport) {
  const std::string remark(200, 'x');
  std::string text = "ID;Sire;Dam;Twin;Remark\n";
  for (int k = 100000; k < 140000; ++k) {
    text += std::to_string(k) + ";;;" + (k >= 135000 ? std::to_string(k + 500000) : "") + ";" + remark + "\n";
  }
  EXPECT_EQ(columns_like_ids(text, ';', columns_of({"ID", "Sire", "Dam", "Twin", "Remark"})),
            (std::vector<std::size_t>{3}));
}

/// Hashes from the first one on.
ColumnProfile profile_of(std::uint32_t first, std::uint32_t count, std::int64_t repeats = 0) {
  ColumnProfile profile;
  for (std::uint32_t k = 0; k < count; ++k) profile.texts.insert(first + k);
  profile.texts_read = count + repeats;
  profile.judged = count;
  profile.with_digit = count;
  return profile;
}

/// Of 100 ids; a parent stands among the further young where `parent` is one of them.
bool is_found(const ColumnProfile& further, std::uint32_t parent, std::int64_t ids_with_digit = 100,
              const std::string& heading = "Odd") {
  const ColumnChoice columns = columns_of({"ID", "Sire", "Dam", heading});
  std::vector<ColumnProfile> profiles = {profile_of(1000, 100), profile_of(1000, 20), profile_of(parent, 1), further};
  profiles[0].with_digit = ids_with_digit;
  const std::vector<std::size_t> candidates = {3};
  return !find_rare_young(candidates, profiles, columns).places.empty();
}

TEST(FindRareYoung, ThreeTextsOrOneParent) {
  EXPECT_TRUE(is_found(profile_of(5000, 3), 1));
  EXPECT_FALSE(is_found(profile_of(5000, 2), 1));
  EXPECT_TRUE(is_found(profile_of(5000, 1), 5000));
}

TEST(FindRareYoung, OneUnderAHeadingThatNamesThem) {
  EXPECT_TRUE(is_found(profile_of(5000, 1), 1, 100, "Twin"));
  EXPECT_FALSE(is_found(profile_of(5000, 0), 1, 100, "Twin"));
}

TEST(FindRareYoung, WithoutAParentHalfAsManyAsIds) {
  EXPECT_TRUE(is_found(profile_of(5000, 50), 1));
  EXPECT_FALSE(is_found(profile_of(5000, 51), 1));
  EXPECT_TRUE(is_found(profile_of(5000, 51), 5050));
}

TEST(FindRareYoung, OneOfFiftyMayComeAgainOrBeAnId) {
  EXPECT_TRUE(is_found(profile_of(5000, 49, 1), 1));
  EXPECT_FALSE(is_found(profile_of(5000, 48, 1), 1));
  EXPECT_TRUE(is_found(profile_of(951, 50), 1));   // the last one is id 1000
  EXPECT_FALSE(is_found(profile_of(952, 50), 1));  // the last two are
  EXPECT_FALSE(is_found(profile_of(1010, 30), 1010));
}

TEST(FindRareYoung, NamesAreNoneUnlessOneIsAParent) {
  EXPECT_TRUE(is_found(profile_of(5000, 5), 1, 51));
  EXPECT_FALSE(is_found(profile_of(5000, 5), 1, 50));
  EXPECT_TRUE(is_found(profile_of(5000, 5), 5000, 0));
}

/// 60 animals, of which every eighth has a twin; the first `parents` twins are mothers.
std::string book(const std::string& header, int parents, const std::string& twin_sex) {
  std::string text = header + "\n";
  for (int k = 0; k < 60; ++k) {
    const std::string sire = k < 30 ? "" : "NL" + std::to_string(100 + k - 30);
    const bool has_parent = k >= 50 && k < 50 + parents;
    const std::string dam = has_parent ? "NL" + std::to_string(500 + 8 * (k - 50)) : "";
    text += sire + ";" + dam + ";2001;NL" + std::to_string(100 + k) + ";m;";
    text += (k % 8 == 0 ? "NL" + std::to_string(500 + k) + ";" + twin_sex : ";") + "\n";
  }
  return text;
}

YoungColumns choose(const std::string& text, std::vector<std::string> headings) {
  ColumnChoice columns;
  columns.has_header = true;
  columns.headings = std::move(headings);
  columns.place[sire_column] = 0;
  columns.place[dam_column] = 1;
  columns.place[birthdate_column] = 2;
  columns.place[id_column] = 3;
  columns.place[sex_column] = 4;
  PrepareOptions wishes;
  return choose_young(text, ';', columns, wishes);
}

TEST(ChooseYoung, TwinsThatAreParentsAreTaken) {
  const std::vector<std::string> headings = {"Sire", "Dam", "Born", "Calf", "Sex", "Twin", "Twin sex"};
  const YoungColumns five = choose(book("Sire;Dam;Born;Calf;Sex;Twin;Twin sex", 5, "f"), headings);
  EXPECT_TRUE(five.is_certain);
  EXPECT_EQ(five.ids, (std::vector<std::size_t>{3, 5}));
  EXPECT_EQ(five.fields, (std::vector<FieldCode>{id_column, sex_column}));
  EXPECT_EQ(five.animals[1][1].from, 6U);
  EXPECT_EQ(five.animals[1][1].to, 4U);
  const YoungColumns four = choose(book("Sire;Dam;Born;Calf;Sex;Twin;Twin sex", 4, "f"), headings);
  EXPECT_FALSE(four.is_certain);
  ASSERT_EQ(four.questions.size(), 1U);
  EXPECT_EQ(four.questions.front().answers.front().value, "4,6");
}

TEST(ChooseYoung, UnderOtherHeadingsRareYoungAreAskedAbout) {
  const YoungColumns young =
      choose(book("Sire;Dam;Born;ID;Sex;Odd;Even", 5, ""), {"Sire", "Dam", "Born", "ID", "Sex", "Odd", "Even"});
  EXPECT_FALSE(young.is_certain);
  EXPECT_EQ(young.questions.size(), 1U);
}

TEST(ChooseYoung, ASexOfWhichThereIsOneColumnIsThatOfTheFirst) {
  const std::string text = book("Sire;Dam;Born;Calf;Sex;Twin;Odd", 5, "");
  const YoungColumns young = choose(text, {"Sire", "Dam", "Born", "Calf", "Sex", "Twin", "Odd"});
  RecordReader reader = read_records(text, ';');
  reader.animals = young.animals;
  ExportRecord record;
  ASSERT_TRUE(next_record(reader, record));  // the header is no animal: here it is one line of two
  ASSERT_TRUE(next_record(reader, record));
  ASSERT_TRUE(next_record(reader, record));
  EXPECT_EQ(record.fields[3], "NL100");
  EXPECT_EQ(record.fields[4], "m");
  ASSERT_TRUE(next_record(reader, record));
  EXPECT_EQ(record.fields[3], "NL500");
  EXPECT_EQ(record.fields[4], "");
}

TEST(ColumnsLikeIds, AreComparedWhereIdsHaveTwentyForms) {
  // Letters and digits in turn, so many runs of them as the number says: a, a1, a1a, ...
  const auto form = [](int runs) {
    std::string text;
    for (int k = 0; k < runs; ++k) text += k % 2 == 0 ? 'a' : '1';
    return text;
  };
  const auto is_like = [&](int forms_of_ids, int forms_of_twins) {
    std::string text = "ID;Sire;Dam;Twin\n";
    for (int k = 0; k < 100; ++k) {
      text += form(1 + k % forms_of_ids) + ";;;" + (k < forms_of_twins ? form(1 + k) : "") + "\n";
    }
    return !columns_like_ids(text, ';', columns_of({"ID", "Sire", "Dam", "Twin"})).empty();
  };
  EXPECT_TRUE(is_like(20, 1));
  EXPECT_FALSE(is_like(21, 1));
  EXPECT_TRUE(is_like(20, 20));
}

}  // namespace
}  // namespace pedigreewatch
