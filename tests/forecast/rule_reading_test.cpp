#include "forecast/rule_reading.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

/// What is wrong with a rule; empty: nothing.
std::string fault_of(std::string_view name, std::string_view value) {
  BreedingRules rules;
  return reason_of(take_rule(name, value, rules), ToolLanguage::english);
}

BreedingRules with(std::string_view name, std::string_view value) {
  BreedingRules rules;
  EXPECT_EQ(reason_of(take_rule(name, value, rules), ToolLanguage::english), "") << name << " = " << value;
  return rules;
}

TEST(TakeRule, TakesEveryRule) {
  EXPECT_EQ(with("most-litters-a-year", "5").litters_a_year, 5);
  EXPECT_EQ(with("most-litters-in-life", "1000000").litters_in_life, 1'000'000);
  EXPECT_EQ(with("most-offspring-matings", "0").offspring_matings, 0);
  EXPECT_DOUBLE_EQ(*with("most-f", "6.25%").most_f, 0.0625);
  EXPECT_DOUBLE_EQ(*with("most-f", "0.125").most_f, 0.125);
  EXPECT_DOUBLE_EQ(*with("kinship-below", "60%").above_percent, 60.0);
  EXPECT_EQ(with("least-age-sires", "2").least_age.of_males, 2);
  EXPECT_EQ(with("least-age-dams", "60").least_age.of_females, 60);
  EXPECT_EQ(with("import-sires", "2").imports.of_males, 2);
  EXPECT_EQ(with("import-dams", "0").imports.of_females, 0);
  EXPECT_DOUBLE_EQ(with("import-kinship", "0.5").import_kinship, 0.5);
  EXPECT_TRUE(with("one-litter-a-dam", "yes").has_one_litter);
  EXPECT_FALSE(with("one-litter-a-dam", "no").has_one_litter);
  EXPECT_TRUE(with("plan", "yes").has_plan);
  EXPECT_FALSE(with("plan", "no").has_plan);
  EXPECT_EQ(with("exchange", "rotation").exchange, Exchange::rotation);
  EXPECT_DOUBLE_EQ(with("litters-trend", "-2.5%").trend, -0.025);
}

TEST(TakeRule, TakesAmountsOutrightAndAsChanges) {
  EXPECT_DOUBLE_EQ(with("sires", "40").sires.of(30.0), 40.0);
  EXPECT_DOUBLE_EQ(with("sires", "+20").sires.of(30.0), 50.0);
  EXPECT_DOUBLE_EQ(with("sires", "-5").sires.of(30.0), 25.0);
  EXPECT_DOUBLE_EQ(with("litters", "150%").litters.of(30.0), 45.0);
  EXPECT_DOUBLE_EQ(with("litters", "+10%").litters.of(30.0), 33.0);
  EXPECT_DOUBLE_EQ(with("litters", "-10%").litters.of(30.0), 27.0);
  for (const std::string_view bad : {"0", "", "many", "1e3", "-100%", "0%", "%", "+", "1.5", "1000001"}) {
    EXPECT_NE(fault_of("sires", bad), "") << bad;
  }
}

TEST(TakeRule, RefusesValuesOutsideTheirBounds) {
  for (const std::string_view name : {"most-litters-a-year", "most-litters-in-life"}) {
    for (const std::string_view bad : {"0", "-1", "five", "1000001", "5 ", ""})
      EXPECT_NE(fault_of(name, bad), "") << bad;
  }
  for (const std::string_view bad : {"101%", "1.01", "-0.1", "x", ""}) EXPECT_NE(fault_of("most-f", bad), "") << bad;
  for (const std::string_view bad : {"100%", "60", "-1%"}) EXPECT_NE(fault_of("kinship-below", bad), "") << bad;
  for (const std::string_view bad : {"0", "61"}) EXPECT_NE(fault_of("least-age-dams", bad), "") << bad;
  for (const std::string_view bad : {"0.51", "51%"}) EXPECT_NE(fault_of("import-kinship", bad), "") << bad;
  for (const std::string_view bad : {"51%", "-51%", "2"}) EXPECT_NE(fault_of("litters-trend", bad), "") << bad;
  EXPECT_NE(fault_of("one-litter-a-dam", "ja"), "");
  EXPECT_NE(fault_of("plan", "1"), "");
  EXPECT_NE(fault_of("exchange", "free"), "");
  EXPECT_EQ(fault_of("most-liters-a-year", "5"), "there is no such rule");
}

TEST(TakeRule, TakesADecimalComma) {
  EXPECT_DOUBLE_EQ(*with("most-f", "6,25 %").most_f, 0.0625);
  EXPECT_EQ(with("first-age-dams", "2,5").written.front().value, "2.5");
  EXPECT_EQ(with("kinship-below", "60 %").written.front().value, "60%");
  EXPECT_EQ(fault_of("sires", "1,000"),
            "a number such as 40, a change such as +20 or -5, or a part such as 150% was expected");
}

TEST(TakeRule, SaysWhatWasExpected) {
  EXPECT_EQ(fault_of("most-litters-a-year", "0"), "a whole number from 1 to 1000000 was expected");
  EXPECT_EQ(fault_of("import-dams", "-1"), "a whole number from 0 to 1000000 was expected");
  EXPECT_EQ(fault_of("least-age-sires", "61"), "a whole number of years from 1 to 60 was expected");
  EXPECT_EQ(fault_of("litters-trend", "51%"), "a per cent a year from -50% to 50% was expected");
  EXPECT_EQ(fault_of("kinship-below", "100%"), "a per cent from 0% to 99% was expected");
  EXPECT_EQ(fault_of("import-kinship", "0.51"), "a kinship from 0 to 0.5 was expected");
}

TEST(RuleInWords, IsSaidInBothLanguages) {
  EXPECT_EQ(rule_in_words({"most-f", "6.25%"}, ToolLanguage::english), "F of a litter at most: 6.25%");
  EXPECT_EQ(rule_in_words({"most-f", "6.25%"}, ToolLanguage::dutch), "F van een nest hoogstens: 6,25%");
  EXPECT_EQ(rule_in_words({"one-litter-a-dam", "yes"}, ToolLanguage::dutch), "\xC3\xA9\xC3\xA9n nest per moeder: ja");
}

TEST(ReadScenarios, TakesNamesAndRules) {
  const ReadScenarios read = read_scenarios(
      "\xEF\xBB\xBF# for the council\r\n\r\n[five litters]\r\nmost-litters-a-year = 5\r\n; and\n[ two rules ]\n"
      "most-f=6.25%\nsires = +20");
  ASSERT_TRUE(read.problems.empty());
  ASSERT_EQ(read.scenarios.size(), 2U);
  EXPECT_EQ(read.scenarios[0].name, "five litters");
  EXPECT_EQ(read.scenarios[0].litters_a_year, 5);
  EXPECT_EQ(read.scenarios[1].name, "two rules");
  ASSERT_EQ(read.scenarios[1].written.size(), 2U);
  EXPECT_EQ(read.scenarios[1].written[0].text(), "most-f = 6.25%");
  EXPECT_EQ(read.scenarios[1].written[0].line, 7);
  EXPECT_EQ(read.scenarios[1].written[1].text(), "sires = +20");
  EXPECT_EQ(read.scenarios[1].written[1].line, 8);
}

TEST(ReadScenarios, TakesFiguresOfThePractice) {
  const ReadScenarios read =
      read_scenarios("[present]\nyoung-a-litter = 6.5\nlitters = 120\nsires-from-outside = 0%\n[a]\nsires = 5\n");
  ASSERT_TRUE(read.problems.empty());
  ASSERT_EQ(read.scenarios.size(), 1U);
  EXPECT_EQ(read.present.said.litter_size, 6.5);
  EXPECT_EQ(read.present.said.outside.of_males, 0.0);
  EXPECT_FALSE(read.present.said.outside.of_females.has_value());
  EXPECT_DOUBLE_EQ(read.present.litters.of(100.0), 120.0);
  ASSERT_EQ(read.present.written.size(), 3U);
  EXPECT_EQ(read.present.written[2].line, 4);
  EXPECT_TRUE(read_scenarios("[present]\nmales = 60%\n").problems.empty());  // the practice alone
}

TEST(TakeRule, TakesFiguresWithinTheirBounds) {
  EXPECT_EQ(with("young-a-litter", "1").said.litter_size, 1.0);
  EXPECT_EQ(with("males", "99%").said.males, 0.99);
  EXPECT_EQ(with("litters-without-sire", "90%").said.litters_without_sire, 0.9);
  EXPECT_EQ(with("young-without-parents", "0%").said.young_without_parents, 0.0);
  EXPECT_EQ(with("dams-from-outside", "100%").said.outside.of_females, 1.0);
  EXPECT_EQ(with("sires-of-others", "12.5%").said.sires_of_others, 0.125);
  EXPECT_EQ(with("first-age-sires", "2.5").said.first_age.of_males, 2.5);
  EXPECT_EQ(with("first-age-dams", "1").said.first_age.of_females, 1.0);
  EXPECT_EQ(with("years-in-use-sires", "30").said.years_in_use.of_males, 30.0);
  EXPECT_EQ(with("years-in-use-dams", "1.0").said.years_in_use.of_females, 1.0);
  EXPECT_EQ(with("same-sire-in-year", "0.1%").said.same_sire_in_year, 0.001);
  EXPECT_EQ(with("same-sire-in-life", "90%").said.same_sire_in_life, 0.9);
  for (const std::string_view bad : {"0.9", "61", "-2", "2,5,0", "", "2y"})
    EXPECT_NE(fault_of("first-age-sires", bad), "");
  for (const std::string_view bad : {"0.9", "30.1", "5%"}) EXPECT_NE(fault_of("years-in-use-dams", bad), "") << bad;
  for (const std::string_view bad : {"0%", "0.09%", "91%", "5"}) EXPECT_NE(fault_of("same-sire-in-year", bad), "");
  EXPECT_EQ(with("close-matings", "0%").said.close_matings, 0.0);
  for (const std::string_view bad : {"91%", "-1%", "5"}) EXPECT_NE(fault_of("close-matings", bad), "");
  EXPECT_EQ(fault_of("first-age-dams", "0"), "a number of years from 1 to 60, such as 2.5, was expected");
  EXPECT_EQ(fault_of("young-a-litter", "0.9"), "a number of young from 1 to 30 was expected");
  EXPECT_NE(fault_of("young-a-litter", "31"), "");
  for (const std::string_view bad : {"0%", "100%", "50"}) EXPECT_NE(fault_of("males", bad), "") << bad;
  EXPECT_NE(fault_of("litters-without-sire", "91%"), "");
  EXPECT_NE(fault_of("young-without-parents", "91%"), "");
  EXPECT_NE(fault_of("sires-from-outside", "101%"), "");
}

struct Fault {
  std::int64_t line;
  std::string text;
};

void expect_fault(std::string_view text, const Fault& fault) {
  const ReadScenarios read = read_scenarios(text);
  ASSERT_EQ(read.problems.size(), 1U) << text;
  EXPECT_EQ(read.problems[0].line, fault.line) << text;
  EXPECT_EQ(read.problems[0].text, fault.text) << text;
}

TEST(ReadScenarios, NamesLineAndTextOfAFault) {
  expect_fault("[a]\nmost-litters-a-year = five\n", {2, "five"});
  expect_fault("[a]\nsires = 5\nsires = 6\n", {3, "sires"});
  expect_fault("[a]\nsires 5\n", {2, "sires 5"});
  expect_fault("sires = 5\n", {1, "sires = 5"});
  expect_fault("[a]\nsires = 5\n[a]\n", {3, "a"});
  expect_fault("[present]\n", {0, ""});
  expect_fault("[present]\nmales = 60%\n[present]\n", {3, "present"});
  expect_fault("[present]\nmales = 60\n", {2, "60"});
  expect_fault("[present]\nmost-f = 0.1\n", {2, "most-f"});
  expect_fault("[a]\nsires = 5\nmales = 60%\n", {3, "males"});
  expect_fault("[options]\n", {1, "options"});
  expect_fault("[a]\nsires = 5\n[a]\nsires = 6\nno rule\n", {3, "a"});  // what stands below is not read
  expect_fault("[a\n", {1, "[a"});
  expect_fault("[a]\n", {0, "a"});
  expect_fault("", {0, ""});
}

TEST(ReadScenarios, ReadsWhatWindowsProgramsWrite) {
  const auto name_in = [](std::string_view text) {
    const ReadScenarios read = read_scenarios(text);
    EXPECT_TRUE(read.problems.empty()) << text;
    return read.scenarios.empty() ? std::string() : read.scenarios.front().name;
  };
  EXPECT_EQ(name_in("[h\xF6"
                    "chstens]\r\n\tSires\t=\t5\r\n"),
            "h\xC3\xB6"
            "chstens");
  EXPECT_EQ(name_in("\xEF\xBB\xBF[\xC3\xB6]\nsires = 5"), "\xC3\xB6");
  std::string wide = "\xFF\xFE";
  for (const char letter : std::string_view("[a]\r\nsires = 5\r\n")) wide.append({letter, '\0'});
  EXPECT_EQ(name_in(wide), "a");
  EXPECT_EQ(name_in("[a\x07"
                    "b]\nsires = 5"),
            "a<U+0007>b");
}

TEST(ReadScenarios, TakesTwelveOfThem) {
  std::string text;
  for (int k = 0; k < 12; ++k) text += "[" + std::to_string(k) + "]\nsires = 5\n";
  EXPECT_TRUE(read_scenarios(text).problems.empty());
  const ReadScenarios read = read_scenarios(text + "[more]\n");
  ASSERT_EQ(read.problems.size(), 1U);
  EXPECT_EQ(reason_of(read.problems[0], ToolLanguage::dutch), "meer dan 12 scenario's");
}

BasePeriod small_practice() {
  BasePeriod base;
  base.first_alike = base.first_year = 2001;
  base.last_year = 2002;
  GroupYear year;
  year.with_both = 100;
  year.in_use.of_males = 20;
  base.years = {{year}, {year}};
  base.sizes = {10};
  base.ages = {{1, 10}, {2, 11}};
  base.careers.of_males.oldest = 8;
  base.careers.of_females.oldest = 10;
  return base;
}

std::size_t contradictions(std::string_view rules) {
  const ReadScenarios read = read_scenarios("[a]\n" + std::string(rules));
  EXPECT_TRUE(read.problems.empty()) << rules;
  return find_contradictions(read.scenarios.front(), small_practice()).size();
}

TEST(FindContradictions, KnowsBothSides) {
  EXPECT_EQ(contradictions("most-litters-a-year = 5\nmost-litters-in-life = 5"), 0U);
  EXPECT_EQ(contradictions("most-litters-a-year = 6\nmost-litters-in-life = 5"), 1U);
  EXPECT_EQ(contradictions("most-litters-a-year = 5\nsires = 20"), 0U);  // just enough for 100 litters
  EXPECT_EQ(contradictions("most-litters-a-year = 5\nsires = 19"), 1U);
  // Twenty sires and a hundred litters a year.
  EXPECT_EQ(contradictions("sires = 2000"), 0U);
  EXPECT_EQ(contradictions("sires = 2001"), 1U);
  EXPECT_EQ(contradictions("litters = 10000%"), 0U);
  EXPECT_EQ(contradictions("litters = 10001"), 1U);
  EXPECT_EQ(contradictions("import-sires = 2000"), 0U);
  EXPECT_EQ(contradictions("import-sires = 2001"), 1U);
  EXPECT_EQ(contradictions("import-dams = 10000"), 0U);
  EXPECT_EQ(contradictions("import-dams = 10001"), 1U);
  EXPECT_EQ(contradictions("sires = -19"), 0U);
  EXPECT_EQ(contradictions("sires = -20"), 1U);
  EXPECT_EQ(contradictions("litters = -99"), 0U);
  EXPECT_EQ(contradictions("litters = -100"), 1U);
  EXPECT_EQ(contradictions("least-age-sires = 8"), 0U);
  EXPECT_EQ(contradictions("least-age-sires = 9"), 1U);
  EXPECT_EQ(contradictions("least-age-dams = 10"), 0U);
  EXPECT_EQ(contradictions("least-age-dams = 11"), 1U);
  EXPECT_EQ(contradictions("exchange = closed"), 1U);
  EXPECT_EQ(contradictions("import-kinship = 0.1"), 1U);
  EXPECT_EQ(contradictions("import-kinship = 0.1\nimport-dams = 1"), 0U);
}

TEST(FindWrongFigures, WantsSubpopulationsForSiresOfOthers) {
  const BreedingRules present = with("sires-of-others", "10%");
  BasePeriod base = small_practice();
  ASSERT_EQ(find_wrong_figures(present, base).size(), 1U);
  EXPECT_EQ(find_wrong_figures(present, base).front().text, "sires-of-others = 10%");
  for (std::vector<GroupYear>& year : base.years) year.emplace_back();
  EXPECT_TRUE(find_wrong_figures(present, base).empty());
}

// Ten young in each of a hundred litters, of either sex for ten years: 10,000 to choose from.
// Sires have come to the age of eight, dams to ten; their first litter was at three.
TEST(FindWrongFigures, KnowsAgesThatNobodyCameTo) {
  BasePeriod base = small_practice();
  for (const Sex sex : {male, female}) {
    Career career;
    career.first_age = 3;
    base.careers.of(sex).careers = {career};
    base.entries.of(sex) = {0};
  }
  const auto wrong = [&](std::string_view figures) {
    const ReadScenarios read = read_scenarios("[present]\n" + std::string(figures));
    EXPECT_TRUE(read.problems.empty()) << figures;
    return find_wrong_figures(read.present, base);
  };
  EXPECT_TRUE(wrong("first-age-sires = 8\nfirst-age-dams = 10").empty());
  EXPECT_EQ(wrong("first-age-sires = 8.1\nfirst-age-dams = 10.1").size(), 2U);
  EXPECT_TRUE(wrong("years-in-use-sires = 6\nyears-in-use-dams = 8").empty());
  EXPECT_EQ(wrong("years-in-use-sires = 6.1\nyears-in-use-dams = 8.1").size(), 2U);
  EXPECT_TRUE(wrong("first-age-sires = 1\nyears-in-use-sires = 8").empty());
  const std::vector<RuleProblem> problems = wrong("males = 50%\nyears-in-use-sires = 9");
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].line, 3);
  EXPECT_EQ(reason_of(problems[0], ToolLanguage::dutch),
            "geen enkele ouder was ooit zo oud als aan het eind van zo'n gebruik: hoogstens 6.0 jaar");
}

TEST(FindContradictions, RefusesAPlanThatIsTooLarge) {
  EXPECT_EQ(contradictions("plan = yes"), 0U);
  EXPECT_EQ(contradictions("plan = yes\nlitters = 101"), 1U);
  EXPECT_EQ(contradictions("plan = no\nlitters = 101"), 0U);
  BreedingRules rules = with("plan", "yes");
  rules.litters = {1.5, 0.0};
  const std::vector<RuleProblem> problems = find_contradictions(rules, small_practice());
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(reason_of(problems.front(), ToolLanguage::english),
            "a plan for each year can choose from 10000 animals at most, and here there would be some 15000");
}

TEST(FindContradictions, LeavesToAPlanWhatItChooses) {
  for (const std::string_view rule :
       {"sires = 25", "litters-trend = 1%", "most-offspring-matings = 1", "most-f = 0.1", "kinship-below = 20%"}) {
    EXPECT_EQ(contradictions("plan = yes\n" + std::string(rule)), 1U) << rule;
    EXPECT_EQ(contradictions("plan = no\n" + std::string(rule)), 0U) << rule;
  }
  EXPECT_EQ(contradictions("plan = yes\nexchange = open"), 2U);  // nor are there any subpopulations
  EXPECT_EQ(contradictions("plan = yes\nmost-litters-a-year = 2\none-litter-a-dam = yes\nleast-age-dams = 2"), 0U);
}

TEST(FindContradictions, NamesTheLineOfARule) {
  const ReadScenarios read = read_scenarios("[a]\nmost-f = 0.1\n[b]\n\nsires = 3\nmost-litters-a-year = 5\n");
  EXPECT_TRUE(find_contradictions(read.scenarios[0], small_practice()).empty());
  const std::vector<RuleProblem> problems = find_contradictions(read.scenarios[1], small_practice());
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].line, 5);
  EXPECT_EQ(problems[0].text, "sires = 3");
}

}  // namespace
}  // namespace pedigreewatch::test
