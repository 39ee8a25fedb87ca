// What sexes mean: by words, by the parents, by what the user says, or by a question.

#include "intake/sex_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/console_words.h"

namespace pedigreewatch::test {
namespace {

constexpr SexMeaning male = SexMeaning::male, female = SexMeaning::female, unknown = SexMeaning::unknown;

/// Animals of one sex, `sires` of which are fathers and `dams` mothers.
struct SexGroup {
  std::string sex;
  int count = 0, sires = 0, dams = 0;
};

struct ChosenSexes {
  std::vector<SexMeaning> meanings;
  std::vector<Question> questions;
};

ExportSurvey survey_of(const std::vector<SexGroup>& groups) {
  std::string text = "id;sire;dam;sex;born\n", young;
  for (std::size_t g = 0; g < groups.size(); ++g) {
    for (int i = 0; i < groups[g].count; ++i) {
      const std::string id = std::to_string(g) + "-" + std::to_string(i);
      text += id + ";;;" + groups[g].sex + ";2001\n";
      if (i < groups[g].sires) young += "young of " + id + ";" + id + ";;" + groups[0].sex + ";2003\n";
      if (i < groups[g].dams) young += "child of " + id + ";;" + id + ";" + groups[0].sex + ";2003\n";
    }
  }
  const ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born"}, {});
  ProgressLine unwatched;
  return survey_export(text + young, ';', columns, {}, unwatched);
}

ChosenSexes chosen(const std::vector<SexGroup>& groups, const PrepareOptions& options = {}) {
  ChosenSexes result;
  result.meanings = choose_sexes(survey_of(groups), options, result.questions);
  return result;
}

std::string asked(const ChosenSexes& sexes) {
  return sexes.questions.empty() ? "" : words_of(sexes.questions.front(), ToolLanguage::english);
}

using Meanings = std::vector<SexMeaning>;

TEST(ChooseSexes, WithoutAColumnNobodyAsksWhatItsTextsMean) {
  PrepareOptions options;
  options.male = {"Rammler"};
  std::vector<Question> questions;
  EXPECT_TRUE(choose_sexes(ExportSurvey{}, options, questions).empty());
  EXPECT_TRUE(questions.empty());
}

TEST(SexOfParents, ThreeOfOneSexAndHardlyAnyOfTheOther) {
  EXPECT_EQ(sex_of_parents({3, 0}), male);
  EXPECT_EQ(sex_of_parents({2, 0}), unknown);
  EXPECT_EQ(sex_of_parents({0, 3}), female);
  EXPECT_EQ(sex_of_parents({0, 2}), unknown);
  EXPECT_EQ(sex_of_parents({20, 2}), male);
  EXPECT_EQ(sex_of_parents({19, 2}), unknown);
  EXPECT_EQ(sex_of_parents({2, 20}), female);
  EXPECT_EQ(sex_of_parents({2, 19}), unknown);
}

TEST(ChooseSexes, MaresAreFemaleAlthoughTheyAreWrittenM) {
  const ChosenSexes sexes = chosen({{"H", 20, 5, 0}, {"M", 20, 0, 9}});
  EXPECT_EQ(sexes.meanings, (Meanings{male, female}));
  EXPECT_TRUE(sexes.questions.empty());
}

TEST(ChooseSexes, WiddersAndMothersAreNotReversed) {
  const ChosenSexes sexes = chosen({{"W", 20, 5, 0}, {"M", 20, 0, 9}});
  EXPECT_EQ(sexes.meanings, (Meanings{male, female}));
  EXPECT_TRUE(sexes.questions.empty());
}

TEST(ChooseSexes, LettersThatParentsConfirmAreTakenAsUsual) {
  EXPECT_EQ(chosen({{"v", 20, 0, 9}, {"m", 20, 2, 0}}).meanings, (Meanings{female, male}));
  EXPECT_TRUE(chosen({{"v", 20, 0, 9}, {"m", 20, 2, 0}}).questions.empty());
}

TEST(ChooseSexes, NumbersAreDecidedByTheParentsOrAskedFor) {
  EXPECT_EQ(chosen({{"1", 20, 4, 0}, {"2", 20, 0, 6}}).meanings, (Meanings{male, female}));
  EXPECT_EQ(chosen({{"1", 20, 0, 0}, {"2", 20, 0, 6}}).meanings, (Meanings{male, female})) << "the other of the pair";
  EXPECT_EQ(asked(chosen({{"1", 20, 2, 0}, {"2", 20, 0, 2}})),
            "It is not clear which animals are male: the sexes are written \"1\" (24), \"2\" (20). Say how males are "
            "written: --male TEXT.");
}

TEST(ChooseSexes, OtherLettersThanMAndFAreAskedForWhereNoParentsTell) {
  EXPECT_TRUE(chosen({{"M", 20}, {"F", 20}}).questions.empty());
  EXPECT_EQ(chosen({{"M", 20}, {"F", 20}, {"q", 20}}).meanings, (Meanings{male, female, unknown}));
  EXPECT_EQ(chosen({{"q", 20, 4, 0}, {"Zwitter", 20}}).meanings, (Meanings{male, unknown})) << "no letter, no pair";
  EXPECT_EQ(chosen({{"W", 20}, {"M", 20}}).meanings, (Meanings{unknown, unknown}));
  EXPECT_EQ(chosen({{"W", 20}, {"M", 20}}).questions.size(), 1U);
}

TEST(ChooseSexes, WordsOfYoungAndCastratedAnimals) {
  const ChosenSexes sexes = chosen({{"Stallion", 9}, {"Gelding", 9}, {"Colt", 9}, {"Mare", 9}, {"Filly", 9}});
  EXPECT_EQ(sexes.meanings, (Meanings{male, male, male, female, female}));
  EXPECT_TRUE(sexes.questions.empty());
}

TEST(ChooseSexes, AFewUnknownWordsAreKeptAndManyAreAskedFor) {
  // 1 of 50 animals is 2 %.
  EXPECT_TRUE(chosen({{"male", 29}, {"female", 20}, {"Zwitter", 1}}).questions.empty());
  const ChosenSexes many = chosen({{"male", 28}, {"female", 20}, {"Zwitter", 1}});
  EXPECT_EQ(asked(many),
            "It is not clear what these sexes mean: \"Zwitter\" (1). Say which are male and which female: --male TEXT, "
            "--female TEXT, each as often as needed.");
  EXPECT_EQ(many.meanings, (Meanings{male, female, unknown}));
  EXPECT_TRUE(chosen({{"male", 10}, {"female", 10}, {"U", 10}}).questions.empty()) << "says that it is unknown";
}

TEST(ChooseSexes, AWordThatContradictsTheParentsIsAskedAbout) {
  const ChosenSexes sexes = chosen({{"Ram", 20, 0, 3}, {"Ewe", 20, 4, 0}});
  EXPECT_EQ(asked(sexes).substr(0, 87),
            "The sex \"Ram\" contradicts the parents: animals with it that are fathers: 0, mothers: 3.");
  EXPECT_TRUE(chosen({{"Ram", 20, 0, 2}, {"Ewe", 20, 2, 0}}).questions.empty());
  EXPECT_EQ(chosen({{"M", 20, 0, 3}, {"F", 20, 3, 0}}).questions.size(), 1U);
}

TEST(ChooseSexes, TheUserNamesSeveralTextsOfASex) {
  PrepareOptions options;
  options.male = {"Gelding", "x"};
  const std::vector<SexGroup> groups = {{"Stallion", 9}, {"Gelding", 9}, {"X", 9}, {"Mare", 9}, {"?", 9}, {"q", 9}};
  EXPECT_EQ(chosen(groups, options).meanings, (Meanings{male, male, male, female, unknown, female}));
  options.female = {"Mare"};
  EXPECT_EQ(chosen(groups, options).meanings, (Meanings{male, male, male, female, unknown, unknown}));
  options.male.clear();
  EXPECT_EQ(chosen(groups, options).meanings, (Meanings{male, male, male, female, unknown, male}));
}

TEST(ChooseSexes, ATextThatNoAnimalHasIsTold) {
  PrepareOptions options;
  options.male = {"Bok"};
  EXPECT_EQ(asked(chosen({{"1", 3}, {"2", 3}}, options)),
            "--male Bok: no animal has this sex. The sexes are written \"1\" (3), \"2\" (3).");
}

TEST(CountParentSexes, FathersThatAreFemaleByTheirWord) {
  const ExportSurvey survey = survey_of({{"male", 30, 27, 0}, {"female", 30, 3, 20}});
  EXPECT_EQ(count_parent_sexes(survey, sire_role).known, 30);
  EXPECT_EQ(count_parent_sexes(survey, sire_role).wrong, 3);
  EXPECT_EQ(count_parent_sexes(survey, dam_role).wrong, 0);
  // Letters other than m and f say nothing.
  EXPECT_EQ(count_parent_sexes(survey_of({{"H", 30, 5, 0}, {"M", 30, 0, 5}}), dam_role).known, 0);
}

TEST(AreOfWrongSex, MoreThanOneInTenAndThreeAtLeast) {
  EXPECT_TRUE(are_of_wrong_sex({29, 3}));
  EXPECT_FALSE(are_of_wrong_sex({30, 3}));
  EXPECT_FALSE(are_of_wrong_sex({4, 2}));
}

}  // namespace
}  // namespace pedigreewatch::test
