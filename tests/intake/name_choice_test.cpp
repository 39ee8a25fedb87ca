// Which subpopulations are listed, which are put together, and what is said of the report's size.
#include "intake/name_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/report_shape.h"
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
  std::string with_capital = lines;
  for (const std::size_t place : {lines.find("others"), lines.rfind("others")}) with_capital[place] = 'O';
  EXPECT_EQ(prepared(with_capital, asking_for(2)).plan.subpopulations,
            (std::vector<std::string>{"North", "Others", "others 2"}));
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
      words.find("--subpopulations all   all 448 of them: a report with lines of 1.01 MB; more than 1 MB are not made"),
      std::string::npos)
      << words;
  EXPECT_NE(words.find("--subpopulations none   none, the column is left out: a report of less than 1 MB"),
            std::string::npos)
      << words;
}

TEST(ChooseSubpopulations, TheYearsMakeTheReportLargeToo) {
  // 447 herds in 700 years: 99,681 pairs of ten bytes in each are 698 MB.
  const std::string lines = herds_of(447, [](int) { return 1; }) + "x;;;m;01-01-1500;herd 1\ny;;;m;01-01-2199;herd 1\n";
  const NameChoice all = choices_of(prepared(lines)).choices[0];
  EXPECT_GT(all.bytes, 800'000'000);
  EXPECT_LT(choices_of(prepared(herds_of(447, [](int) { return 1; }))).choices[0].bytes, 20'000'000);
  EXPECT_NE(
      words_of(prepared(lines).plan.questions[0], ToolLanguage::dutch).find("alle 447: een rapport van ongeveer "),
      std::string::npos);
}

/// The remarks of one kind, in words.
std::string remarks_in_words(const Prepared& read, RemarkKind kind, ToolLanguage language) {
  std::vector<Remark> meant;
  for (const Remark& remark : read.remarks) {
    if (remark.kind == kind) meant.push_back(remark);
  }
  TextOutput console;
  show_remarks(meant, language, console);
  return console.pending;
}

TEST(ChooseSubpopulations, NamesThatNoAnimalHasAreTold) {
  PrepareOptions options = asking_for(0);
  const auto told = [&](std::vector<std::string> names) {
    options.subpopulations.names = std::move(names);
    return remarks_in_words(prepared(herds_of(3, [](int k) { return k; }), options), RemarkKind::names_absent,
                            ToolLanguage::english);
  };
  EXPECT_EQ(told({"herd 1", "herd 3"}), "");
  EXPECT_EQ(told({"herd 1", "Herd 3", "x"}),
            "Look at this: listed names that no animal has: \"Herd 3\" (0), \"x\" (0)\n");
}

TEST(ChooseSubpopulations, ANumberThatNoneReachesIsTold) {
  const auto told = [](std::int64_t least) {
    return remarks_in_words(prepared(herds_of(3, [](int k) { return k; }), asking_for(least)),
                            RemarkKind::names_all_joined, ToolLanguage::dutch);
  };
  EXPECT_EQ(told(3), "");
  EXPECT_EQ(told(4), "              geen tekst van de kolom heeft 4 dieren: geen enkele komt zelf op de lijst\n");
}

TEST(ChooseSubpopulations, AListThatIsTooLongIsAskedAgain) {
  // 447 names make 99,681 pairs of ten bytes, and so lines of 996,819 bytes; 448 names lines of 1,001,289.
  PrepareOptions options = asking_for(0);
  const auto questions = [&](int names) {
    options.subpopulations.names.clear();
    for (int k = 1; k <= names; ++k) options.subpopulations.names.push_back("herd " + std::to_string(k));
    return prepared(herds_of(40, [](int) { return 1; }), options).plan.questions;
  };
  EXPECT_EQ(questions(447).size(), 0U);
  const std::vector<Question> asked = questions(448);
  ASSERT_EQ(asked.size(), 1U);
  const std::string words = words_of(asked[0], ToolLanguage::english);
  EXPECT_TRUE(words.starts_with("The 448 names that you list make a report of ")) << words;
  EXPECT_NE(
      words.find(" with lines up to 1.01 MB, as each two of them are compared; at most 1000 MB with lines up to 1 MB"),
      std::string::npos)
      << words;
  EXPECT_NE(words.find("--subpopulations all   all 40 of them: a report of "), std::string::npos) << words;
  EXPECT_EQ(asked[0].answers.front().value, "all");
}

TEST(LeastAnimalsNamed, TakesANumberFromOneOn) {
  EXPECT_EQ(least_animals_named("at-least-50"), 50);
  EXPECT_EQ(least_animals_named("at-least-1"), 1);
  for (const char* const text :
       {"at-least-0", "at-least-", "at-least-5x", "at-least--5", "50", "at-least-99999999999"}) {
    EXPECT_EQ(least_animals_named(text), std::nullopt) << text;
  }
}

TEST(ChooseSubpopulations, SizesAreThoseWithParentsUpToFifteenYears) {
  // Nothing but the ten birth years makes the report without subpopulations longer.
  ReportShape ten_years;
  ten_years.years = 10;
  const Prepared asked = prepared(herds_of(60, [](int k) { return k; }));
  EXPECT_EQ(choices_of(asked).choices.back().bytes, bytes_without_blocks(ten_years, {15, 15}).all);
}

/// What is asked where animals have so many colours, and how many of them are listed.
struct ColourOutcome {
  std::size_t questions = 0, listed = 0;
};

ColourOutcome choose_among_colours(int colours, bool is_wished) {
  ExportSurvey survey;
  for (int k = 0; k < colours; ++k) count_text(survey.colours, "colour " + std::to_string(k), k + 2);
  PreparePlan plan;
  plan.columns.headings = {"colour"};
  plan.columns.place[colour_column] = 0;
  NameWish wish;
  wish.is_given = is_wished;
  choose_colours(survey, wish, plan);
  return {plan.questions.size(), plan.colours.size()};
}

TEST(ChooseColours, AHundredAreListedMoreAreAskedFor) {
  EXPECT_EQ(choose_among_colours(100, false).listed, 100U);
  EXPECT_EQ(choose_among_colours(100, false).questions, 0U);
  EXPECT_EQ(choose_among_colours(101, false).listed, 0U);
  EXPECT_EQ(choose_among_colours(101, false).questions, 1U);
}

TEST(ChooseColours, WhoWantsThemAllGetsFiftyThousand) {
  EXPECT_EQ(choose_among_colours(50'000, true).listed, 50'000U);
  EXPECT_EQ(choose_among_colours(50'001, true).listed, 0U);
  EXPECT_EQ(choose_among_colours(50'001, true).questions, 1U);
}

}  // namespace
}  // namespace pedigreewatch::test
