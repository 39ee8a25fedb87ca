// Parents that have no line because they are written otherwise than the animals.

#include "intake/id_matches.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/export_survey.h"

namespace pedigreewatch::test {
namespace {

/// Animals with these ids; a second line of each names one of these parents.
struct Herd {
  std::string text;
  ColumnChoice columns;

  Herd(const std::vector<std::string>& ids, const std::vector<std::string>& parents) {
    text = "id;sire;dam\n";
    for (const std::string& id : ids) text += id + ";;\n";
    for (std::size_t i = 0; i < parents.size(); ++i) text += ids[i % ids.size()] + ";" + parents[i] + ";\n";
    columns = choose_columns(std::vector<std::string>{"id", "sire", "dam"}, {});
  }
  ExportTable table() const { return {text, ';', columns, {}}; }
};

IdProposal proposal_of(const std::vector<std::string>& ids, const std::vector<std::string>& parents) {
  const Herd herd(ids, parents);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(herd.text, ';', herd.columns, {}, unwatched);
  return propose_id_rules(herd.table(), survey.links);
}

void expect_rule(unsigned bits, const std::vector<std::string>& ids, const std::vector<std::string>& parents) {
  const IdProposal proposal = proposal_of(ids, parents);
  EXPECT_EQ(proposal.rules.bits, bits) << ids.front() << " " << parents.front();
  EXPECT_EQ(proposal.explained, static_cast<std::int64_t>(parents.size())) << parents.front();
  EXPECT_TRUE(is_worth_asking(proposal)) << parents.front();
}

TEST(ProposeIdRules, OneRuleForAllParents) {
  expect_rule(separators_rule, {"NL-12-3", "NL-12-4", "NL-12-5"}, {"NL 12 3", "NL124", "NL.12.5"});
  expect_rule(capitals_rule, {"nl-12", "nl-13", "nl-14"}, {"NL-12", "Nl-13", "NL-14"});
  expect_rule(zeros_rule, {"00012", "00013", "00014"}, {"12", "013", "14"});
  expect_rule(look_alikes_rule, {"1003", "1025", "2041"}, {"lOO3", "lO25", "2O4l"});
  expect_rule(separators_rule | capitals_rule, {"NL-12", "NL-13", "NL-14"}, {"nl12", "nl 13", "nl14"});
  expect_rule(prefix_rule, {"NL11900", "DE11901", "NL11902"}, {"11900", "11901", "11902"});
  expect_rule(country_rule, {"528123456789012", "528123456789029", "056123456789036"},
              {"123456789012", "123456789029", "123456789036"});
  expect_rule(prefix_rule | country_rule, {"NL123456789012", "NL123456789029", "BE123456789036"},
              {"528123456789012", "528123456789029", "056123456789036"});
  expect_rule(check_digit_rule, {"119004", "119012", "119023"}, {"11900", "11901", "11902"});
  expect_rule(check_digit_rule, {"11900", "11901", "11902"}, {"119004", "119012", "11902-3"});
}

TEST(ProposeIdRules, ExamplesHaveTheLineWhereTheParentIsNamed) {
  const IdProposal proposal = proposal_of({"00012", "00013", "00014"}, {"12", "00012", "13", "13", "14"});
  EXPECT_EQ(proposal.without_line, 3);
  ASSERT_EQ(proposal.examples.size(), 3U);
  EXPECT_EQ(proposal.examples[1].parent, "13");
  EXPECT_EQ(proposal.examples[1].id, "00013");
  EXPECT_EQ(proposal.examples[1].line, 7);
}

TEST(ProposeIdRules, AParentThatCouldBeTwoAnimalsIsNotExplained) {
  EXPECT_EQ(proposal_of({"NL12", "DE12", "NL13", "NL14", "NL15"}, {"12", "13", "14", "15"}).explained, 3);
}

TEST(ProposeIdRules, ANumberWithoutItsLastDigitIsAnotherNumber) {
  // Parents from beyond the herd: each is ten times one of its numbers, and some more.
  std::vector<std::string> ids, parents;
  for (int i = 1; i < 1000; ++i) ids.push_back(std::to_string(i));
  for (int i = 1000; i < 1030; ++i) parents.push_back(std::to_string(i));
  EXPECT_FALSE(is_worth_asking(proposal_of(ids, parents)));
}

TEST(ProposeIdRules, WordsForUnknownAreNoParents) {
  EXPECT_EQ(proposal_of({"Na", "None", "Unknown"}, {"NA", "none", "unknown"}).without_line, 0);
}

TEST(IsWorthAsking, ThreeParentsAndNearlyAll) {
  EXPECT_TRUE(is_worth_asking({{zeros_rule}, 3, 3, {}}));
  EXPECT_FALSE(is_worth_asking({{zeros_rule}, 2, 2, {}}));
  EXPECT_TRUE(is_worth_asking({{zeros_rule}, 10, 9, {}}));
  EXPECT_FALSE(is_worth_asking({{zeros_rule}, 9, 8, {}}));
}

TEST(FindSubstitutes, AllParentsThatTheRuleExplains) {
  const Herd herd({"NL-12", "NL-13", "NL-14", "NL-15", "N-L15"}, {"NL12", "NL-13", "NL14", "NL15", "DE16"});
  const IdSubstitutes found = find_substitutes(herd.table(), {separators_rule});
  EXPECT_EQ(found.ids.size(), 2U);
  EXPECT_EQ(found.ids.at("NL12"), "NL-12");
  EXPECT_EQ(found.ids.at("NL14"), "NL-14");
  EXPECT_TRUE(find_substitutes(herd.table(), {}).ids.empty());
}

/// Parents of so many animals that are written without the zeros of the ids.
IdProposal proposal_without_zeros(int parents) {
  std::vector<std::string> ids, shorter;
  for (int i = 1; i <= parents; ++i) {
    shorter.push_back(std::to_string(i));
    ids.push_back("000" + shorter.back());
  }
  return proposal_of(ids, shorter);
}

TEST(ProposeIdRules, AThousandParentsAreCompared) {
  EXPECT_EQ(proposal_without_zeros(1000).without_line, 1000);
  EXPECT_EQ(proposal_without_zeros(1001).without_line, 1000);
  EXPECT_EQ(proposal_without_zeros(1001).explained, 1000);
}

TEST(ProposeIdRules, FourExamplesAreShown) {
  EXPECT_EQ(proposal_without_zeros(3).examples.size(), 3U);
  EXPECT_EQ(proposal_without_zeros(4).examples.size(), 4U);
  EXPECT_EQ(proposal_without_zeros(5).examples.size(), 4U);
}

TEST(ProposeIdRules, CheckDigitsAreBelievedWhereNineInTenIdsHaveOneLength) {
  // Each parent names an animal once more, so that three of the long ids stand there twice; three ids are short.
  const auto explained_among = [](int long_ids) {
    std::vector<std::string> ids = {"119004", "119012", "119023"};
    for (int i = 3; i < long_ids - 3; ++i) ids.push_back("2000" + std::to_string(10 + i));
    for (const char* const other : {"7001", "7002", "7003"}) ids.emplace_back(other);
    return proposal_of(ids, {"11900", "11901", "11902"}).explained;
  };
  EXPECT_EQ(explained_among(30), 3);
  EXPECT_EQ(explained_among(29), 0);
}

}  // namespace
}  // namespace pedigreewatch::test
