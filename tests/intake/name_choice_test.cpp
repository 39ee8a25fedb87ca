// Which subpopulations are listed, which are put together, and what is said of the report's size.
#include "intake/name_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/console_words.h"
#include "intake/export_remarks.h"
#include "support/prepared_export.h"

namespace pedigreewatch::test {
namespace {

/// `herds` herds of which herd k has `animals(k)` animals, born from 2001 on, each herd in a year of its own.
template <typename Animals>
std::string herds_of(int herds, Animals&& animals) {
  std::string lines = "id;sire;dam;sex;born;herd\n";
  int number = 0;
  for (int k = 1; k <= herds; ++k) {
    for (int i = 0; i < animals(k); ++i) {
      lines += std::to_string(++number) + ";;;m;" + std::to_string(2000 + k % 10) + ";herd " + std::to_string(k) + "\n";
    }
  }
  return lines;
}

PrepareOptions asking_for(std::int64_t least) {
  PrepareOptions options;
  options.subpopulations.is_given = true;
  options.subpopulations.least_animals = least;
  return options;
}

const NameChoiceList& choices_of(const Prepared& asked) {
  return std::get<NameChoiceList>(asked.plan.questions.at(0).values.at(2));
}

TEST(ChooseSubpopulations, OffersTheFirstRoundNumberThatLeavesThirtyNames) {
  // Herd k has k animals: 29 of 60 have at least 32, of which 50 is the next round number; 31 have at least 20 in 50.
  const Prepared asked = prepared(herds_of(60, [](int k) { return k; }));
  ASSERT_EQ(asked.plan.questions.size(), 1U);
  const NameChoiceList& list = choices_of(asked);
  ASSERT_EQ(list.choices.size(), 3U);
  EXPECT_EQ(list.choices[0].value, "all");
  EXPECT_EQ(list.choices[0].names, 60);
  EXPECT_EQ(list.choices[1].value, "at-least-50");
  EXPECT_EQ(list.choices[1].names, 11);
  EXPECT_EQ(list.choices[2].value, "none");
  const Prepared fewer = prepared(herds_of(48, [](int k) { return k; }));
  EXPECT_EQ(choices_of(fewer).choices[1].value, "at-least-20") << "29 have at least 20";
  const Prepared more = prepared(herds_of(49, [](int k) { return k; }));
  EXPECT_EQ(choices_of(more).choices.size(), 2U) << "30 have at least 20, none 50";
}

TEST(ChooseSubpopulations, PutsSmallOnesTogetherUnderAFreeName) {
  const std::string lines =
      "id;sire;dam;sex;born;herd\na;;;m;2001;North\nb;;;m;2001;others\nc;;;m;2001;others\n"
      "d;;;m;2001;North\ne;;;m;2001;East\nf;;;m;2001;\ng;;;m;2001;West\n";
  const Prepared two = prepared(lines, asking_for(2));
  EXPECT_EQ(two.plan.subpopulations, (std::vector<std::string>{"North", "others", "others 2"}));
  EXPECT_EQ(two.data,
            "id;sex;birthdate;sire;dam;subpopulation\na;m;2001;;;North\nb;m;2001;;;others\nc;m;2001;;;others\n"
            "d;m;2001;;;North\ne;m;2001;;;others 2\nf;m;2001;;;\ng;m;2001;;;others 2\n");
  const Prepared one = prepared(lines, asking_for(1));
  EXPECT_EQ(one.plan.joined_subpopulation, "");
  EXPECT_EQ(one.plan.subpopulations.size(), 4U);
  const Prepared all = prepared(lines, asking_for(3));
  EXPECT_EQ(all.plan.subpopulations, std::vector<std::string>{"others"});
}

TEST(ChooseSubpopulations, AllAreAskedAgainWhereNoReportCanBeMade) {
  const auto questions = [](int herds) {
    return prepared(herds_of(herds, [](int) { return 1; }), asking_for(0)).plan.questions;
  };
  EXPECT_EQ(questions(447).size(), 0U);
  ASSERT_EQ(questions(448).size(), 1U);
  const std::string words = words_of(questions(448)[0], ToolLanguage::english);
  EXPECT_NE(
      words.find("--subpopulations all   all 448 of them: a report with lines of 2 MB; more than 1 MB are not made"),
      std::string::npos)
      << words;
  EXPECT_NE(words.find("--subpopulations none   none, the column is left out: a report of less than 1 MB"),
            std::string::npos)
      << words;
}

TEST(ChooseSubpopulations, TheYearsMakeTheReportLargeToo) {
  // 200 herds in 5,000 years: 19,900 pairs of ten bytes in each are 995 MB.
  std::string lines = herds_of(200, [](int) { return 1; }) + "x;;;m;01-01-7000;herd 1\n";
  const NameChoice all = choices_of(prepared(lines)).choices[0];
  EXPECT_GT(all.bytes, 1'300'000'000);
  EXPECT_EQ(prepared(lines, asking_for(0)).plan.questions.size(), 1U);
  EXPECT_NE(
      words_of(prepared(lines).plan.questions[0], ToolLanguage::dutch).find("alle 200: een rapport van ongeveer "),
      std::string::npos);
}

TEST(LeastAnimalsNamed, TakesANumberFromOneOn) {
  EXPECT_EQ(least_animals_named("at-least-50"), 50);
  EXPECT_EQ(least_animals_named("at-least-1"), 1);
  for (const char* const text :
       {"at-least-0", "at-least-", "at-least-5x", "at-least--5", "50", "at-least-99999999999"}) {
    EXPECT_EQ(least_animals_named(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
