// The counts of a survey: texts, and parents with a line of their own.
#include <gtest/gtest.h>

#include <string>

#include "intake/parent_links.h"
#include "intake/text_counts.h"

namespace pedigreewatch::test {
namespace {

TEST(CountText, CountsEachTextAndKeepsItsFirstLine) {
  TextCounts counts;
  for (const char* const text : {"North", "South", "North", "", "South", "North"}) {
    count_text(counts, text, static_cast<std::int64_t>(counts.texts.size()) + 2);
  }
  const auto ordered = by_frequency(counts);
  ASSERT_EQ(ordered.size(), 3U);
  EXPECT_EQ(ordered[0]->text, "North");
  EXPECT_EQ(ordered[0]->count, 3);
  EXPECT_EQ(ordered[0]->first_line, 2);
  EXPECT_EQ(ordered[1]->text, "South");
  EXPECT_EQ(ordered[2]->text, "");
  EXPECT_EQ(find_counted(counts, "South"), 1U);
  EXPECT_EQ(find_counted(counts, "West"), std::string::npos);
}

TEST(CountText, TooManyDifferentTextsAreLeftOut) {
  TextCounts counts;
  for (std::size_t i = 0; i < most_counted_texts + 5; ++i) count_text(counts, std::to_string(i), 1);
  EXPECT_EQ(counts.texts.size(), most_counted_texts);
  EXPECT_EQ(most_counted_texts, 100'000U);
  EXPECT_EQ(counts.left_out, 5);
}

TEST(CountLinks, ParentsWithALineOfTheirOwnWhereverItStands) {
  ParentLinks links;
  note_role(links, "rex", sire_role);
  note_role(links, "max", sire_role);
  note_role(links, "rex", sire_role);
  note_role(links, "saar", dam_role);
  note_role(links, "rex", animal_role);
  EXPECT_EQ(count_links(links, sire_role).parents, 2);
  EXPECT_EQ(count_links(links, sire_role).with_line, 1);
  EXPECT_EQ(count_links(links, dam_role).with_line, 0);
  EXPECT_TRUE(is_exact(links));
}

TEST(CountLinks, ALargePopulationIsJudgedByAFairSample) {
  ParentLinks links;
  for (int i = 0; i < 200000; ++i) {
    note_role(links, "animal " + std::to_string(i), animal_role);
    note_role(links, (i % 4 == 0 ? "stray " : "animal ") + std::to_string(i), sire_role);
  }
  EXPECT_FALSE(is_exact(links));
  const LinkCount count = count_links(links, sire_role);
  EXPECT_GT(count.parents, 4000);
  EXPECT_NEAR(static_cast<double>(count.with_line) / static_cast<double>(count.parents), 0.75, 0.05);
}

TEST(ListCounted, NamesTwelveTextsAndCountsTheOthers) {
  const auto any = [](const CountedText&) { return true; };
  TextCounts counts;
  for (int i = 0; i < 12; ++i) count_text(counts, "colour " + std::to_string(i), i + 2);
  EXPECT_EQ(list_counted(counts, any).texts.size(), 12U);
  EXPECT_EQ(list_counted(counts, any).more, 0);
  count_text(counts, "colour 12", 14);
  EXPECT_EQ(list_counted(counts, any).texts.size(), 12U);
  EXPECT_EQ(list_counted(counts, any).more, 1);
}

TEST(CountLinks, SixteenThousandAnimalsAreAllLookedAt) {
  ParentLinks links;
  for (int i = 0; i < 16384; ++i) note_role(links, std::to_string(i), animal_role);
  EXPECT_TRUE(is_exact(links));
  EXPECT_EQ(links.ids.size(), 16384U) << "no two of these texts have one hash";
  note_role(links, "one more", animal_role);
  EXPECT_FALSE(is_exact(links));
}

}  // namespace
}  // namespace pedigreewatch::test
