// Parents that may stand for "unknown" although no word says so.

#include "intake/doubtful_parents.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/animal_lines.h"
#include "intake/export_survey.h"

namespace pedigreewatch::test {
namespace {

/// Forty animals NL100 to NL139, of which the first ten are the fathers and mothers of others; then these lines.
std::vector<DoubtfulParent> doubtful_in(const std::string& lines) {
  std::string text = "id;sire;dam;sex;born\n";
  for (int i = 100; i < 140; ++i) {
    const std::string sire = i < 110 ? "" : "NL" + std::to_string(100 + i % 5);
    text += "NL" + std::to_string(i) + ";" + sire + ";;" + (i < 105 ? "m" : "f") + ";2001\n";
  }
  text += lines;
  ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born"}, {});
  columns.id_style = find_id_style(text, ';', columns);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  const LinkCount sires = count_links(survey.links, sire_role), dams = count_links(survey.links, dam_role);
  const std::int64_t without_line = sires.parents - sires.with_line + dams.parents - dams.with_line;
  return find_doubtful_parents(text, ';', columns, survey.parent_texts, {survey.animal_count, without_line});
}

/// Young of one father, or of one mother.
std::string young_of(const std::string& sire, const std::string& dam, int count, int first = 500) {
  std::string text;
  for (int i = first; i < first + count; ++i) text += "NL" + std::to_string(i) + ";" + sire + ";" + dam + ";m;2004\n";
  return text;
}

TEST(FindDoubtfulParents, NoneAmongAnimals) {
  EXPECT_TRUE(doubtful_in(young_of("NL100", "NL106", 30)).empty());
}

TEST(FindDoubtfulParents, AWordAmongIds) {
  const std::vector<DoubtfulParent> doubtful = doubtful_in(young_of("Fremdzucht", "", 2));
  ASSERT_EQ(doubtful.size(), 1U);
  EXPECT_EQ(doubtful[0].text, "Fremdzucht");
  EXPECT_EQ(doubtful[0].sired, 2);
  EXPECT_EQ(doubtful[0].borne, 0);
}

TEST(FindDoubtfulParents, FatherAndMotherBoth) {
  const std::vector<DoubtfulParent> doubtful = doubtful_in(young_of("NL9", "NL9", 1));
  ASSERT_EQ(doubtful.size(), 1U);
  EXPECT_EQ(doubtful[0].borne, 1);
}

TEST(FindDoubtfulParents, TheYoungOfBothAreCountedOnce) {
  const std::vector<DoubtfulParent> doubtful = doubtful_in(
      young_of("Zukauf", "Zukauf", 4) + young_of("Zukauf", "NL106", 2, 600) + young_of("NL100", "Zukauf", 1, 700));
  ASSERT_EQ(doubtful.size(), 1U);
  EXPECT_EQ(doubtful[0].sired, 6);
  EXPECT_EQ(doubtful[0].borne, 5);
  EXPECT_EQ(doubtful[0].young, 7);
}

TEST(FindDoubtfulParents, ManyYoung) {
  EXPECT_TRUE(doubtful_in(young_of("NL9", "", 11)).empty());
  EXPECT_EQ(doubtful_in(young_of("NL9", "", 12)).size(), 1U);
  EXPECT_EQ(doubtful_in(young_of("", "NL9", 12)).size(), 1U);
}

/// Young of so many other parents without a line, one each.
std::string young_of_strangers(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += young_of("NL8" + std::to_string(i), "", 1, 900 + i);
  return text;
}

TEST(FindDoubtfulParents, WhereManyHaveNoLineOneMoreStandsOutByItsYoungOnly) {
  const auto ask = [](int strangers, int young) {
    return doubtful_in(young_of_strangers(strangers) + young_of("NL9", "", young)).size();
  };
  EXPECT_EQ(ask(3, many_young), 1U) << "four parents without a line";
  EXPECT_EQ(ask(4, many_young), 0U) << "five of them";
  EXPECT_EQ(ask(4, 2 * many_young - 1), 0U);
  EXPECT_EQ(ask(4, 2 * many_young), 1U);
}

TEST(FindDoubtfulParents, NoMoreThanTwiceThoseOfAParentWithALine) {
  const std::string used = young_of_strangers(4) + young_of("NL100", "", 14, 700);  // and six more
  EXPECT_EQ(doubtful_in(used + young_of("NL9", "", 39)).size(), 0U);
  EXPECT_EQ(doubtful_in(used + young_of("NL9", "", 40)).size(), 1U);
}

TEST(FindDoubtfulParents, ThoseWithALineAreAnimals) {
  EXPECT_TRUE(doubtful_in("Fremdzucht;;;m;2001\n" + young_of("Fremdzucht", "", 20)).empty());
}

TEST(FindDoubtfulParents, MostYoungFirst) {
  const std::vector<DoubtfulParent> doubtful =
      doubtful_in(young_of("Fremdzucht", "", 2) + young_of("Zukauf", "", 3, 600));
  ASSERT_EQ(doubtful.size(), 2U);
  EXPECT_EQ(doubtful[0].text, "Zukauf");
}

TEST(LooksLikeUnknown, WordsZerosAndNines) {
  StyleCounts counts;
  for (int i = 100; i < 140; ++i) count_signs(counts, "NL" + std::to_string(i));
  const TextStyle ids = style_of(counts);
  for (const char* const text : {"Zukauf", "Import 1", "Herd7", "000", "999", "NL-00000"})
    EXPECT_TRUE(looks_like_unknown(text, ids)) << text;
  // The code of another country is no word.
  for (const char* const text : {"NL7", "GBR7", "990", "99", "NL00"})
    EXPECT_FALSE(looks_like_unknown(text, ids)) << text;
  EXPECT_FALSE(looks_like_unknown("Zukauf", {}));
}

TEST(CountParent, OfALargeExportSomeAreCounted) {
  const auto is_counted = [](const std::string& text, std::int64_t animal) {
    ParentTexts parents;
    count_parent(parents, text, sire_role, animal, {});
    return parents.sires.texts.size() == 1;
  };
  EXPECT_TRUE(is_counted("NL7", 99'999));
  EXPECT_FALSE(is_counted("NL7", 100'001));
  EXPECT_FALSE(is_counted("NL7", 100'015));
  EXPECT_TRUE(is_counted("NL7", 100'016)) << "one in sixteen";
  EXPECT_TRUE(is_counted("000", 100'001)) << "it looks like no id";
}

TEST(FindDoubtfulParents, OneInAThousandOfALargePopulation) {
  // Twelve young of one stranger; the population is said to be larger than the lines.
  const auto ask = [](std::int64_t animals) {
    const std::string text = "id;sire;dam;sex;born\n" + young_of("NL9", "", 12);
    const ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born"}, {});
    ParentTexts parents;
    for (std::int64_t k = 1; k <= 12; ++k) count_parent(parents, "NL9", sire_role, k, {});
    return find_doubtful_parents(text, ';', columns, parents, {animals, 1}).size();
  };
  EXPECT_EQ(ask(12'999), 1U);
  EXPECT_EQ(ask(13'000), 0U) << "thirteen are many";
}

}  // namespace
}  // namespace pedigreewatch::test
