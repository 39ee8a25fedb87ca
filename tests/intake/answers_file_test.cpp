// What was asked is kept, read back, and left out where it fits no more.

#include "intake/answers_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

const std::vector<std::string> headings = {"Ear tag", "Sire", "Dam", "Sex", "Born"};

ColumnChoice columns_with(const PrepareOptions& options) {
  return choose_columns(headings, options, FirstRecord::header);
}

TEST(AnswersText, HoldsTheOptionsWithColumnsByTheirHeadings) {
  PrepareOptions options;
  options.columns = {{id_column, "1"}, {name_column, "none"}};
  options.dates = DateOrder::day_month_year;
  options.male = {"Ram", "Wether"};
  options.known = {"all"};
  options.delimiter = '\t';
  options.subpopulations = {.is_given = true, .leaves_out = false, .names = {"North", "South"}};
  options.colours = {.is_given = true, .leaves_out = false, .names = {}};
  options.species = "sheep";
  const std::string text = answers_text(options, columns_with(options));
  EXPECT_EQ(text.substr(text.find("headings: ")),
            "headings: Ear tag | Sire | Dam | Sex | Born\n"
            "--delimiter tab\n"
            "--column id=Ear tag\n"
            "--column name=none\n"
            "--dates dd-mm-yyyy\n"
            "--male Ram\n"
            "--male Wether\n"
            "--known all\n"
            "--subpopulations North;South\n"
            "--colours all\n"
            "--species sheep\n");
}

TEST(AnswersText, NothingSaidIsNothingKept) {
  EXPECT_EQ(answers_text({}, columns_with({})), "");
}

TEST(ReadAnswers, EachLineWithItsNumber) {
  const SavedAnswers answers =
      read_answers("# a remark\nheadings: Ear tag | Sire\r\n\n--male Ram\n--dates yy\n--out x\nsheep\n--colours \n");
  EXPECT_EQ(answers.headings, "Ear tag | Sire");
  ASSERT_EQ(answers.lines.size(), 1U);
  EXPECT_EQ(answers.lines[0].line, 4);
  EXPECT_EQ(answers.lines[0].value, "Ram");
  ASSERT_EQ(answers.unfit.size(), 4U);
  EXPECT_EQ(answers.unfit[0].line, 5);
  EXPECT_EQ(answers.unfit[1].option, "--out");
  EXPECT_EQ(answers.unfit[2].option, "sheep");
  EXPECT_EQ(answers.unfit[3].option, "--colours");
}

TEST(AddAnswers, TheUserGoesBeforeThem) {
  SavedAnswers answers = read_answers("--column id=Sire\n--male Ram\n--species sheep\n--unknown Wild\n");
  PrepareOptions options;
  options.columns = {{id_column, "Ear tag"}};
  options.male = {"Tup"};
  options.unknown = {"Zoo"};
  add_answers(answers, headings, options);
  ASSERT_EQ(options.columns.size(), 1U);
  EXPECT_EQ(options.columns[0].column, "Ear tag");
  EXPECT_EQ(options.male, std::vector<std::string>{"Tup"});
  EXPECT_EQ(options.unknown, (std::vector<std::string>{"Zoo", "Wild"}));
  EXPECT_EQ(options.species, "sheep");
  EXPECT_TRUE(answers.unfit.empty());
}

TEST(AddAnswers, AColumnThatIsGoneFitsNoMore) {
  SavedAnswers answers = read_answers("--column id=Tattoo\n--column id=6\n--column id=5\n--column id=ear TAG\n");
  PrepareOptions options;
  add_answers(answers, headings, options);
  ASSERT_EQ(answers.unfit.size(), 2U);
  EXPECT_EQ(answers.unfit[0].value, "id=Tattoo");
  EXPECT_EQ(answers.unfit[1].line, 2);
  ASSERT_EQ(options.columns.size(), 1U);
  EXPECT_EQ(options.columns[0].column, "5");
}

TEST(KeptOptions, AllIsTheTextsThatItMeant) {
  ExportSurvey survey;
  for (const char* const parent : {"Zukauf", "Wild", "Fremd"})
    survey.doubtful_parents.push_back({parent, 9, 9, 18, true});
  AvailabilityColumn status;
  for (const char* const text : {"A", "dead", "V", "D"}) {
    count_text(status.texts, text, 2);
    status.says.push_back(std::string_view(text) == "dead" ? AvailabilityText::gone : AvailabilityText::other);
  }
  survey.availability.columns.push_back(status);
  PrepareOptions options;
  options.unknown = {"Wild"};
  options.known = {"Fremd", "all"};
  options.gone = {"D"};
  options.present = {"all"};
  const PrepareOptions kept = kept_options(options, survey);
  EXPECT_EQ(kept.known, (std::vector<std::string>{"Fremd", "Zukauf"}));
  EXPECT_EQ(kept.present, (std::vector<std::string>{"A", "V"}));
  options.known = {"Fremd"};
  EXPECT_EQ(kept_options(options, survey).known, options.known) << "nobody said all";
}

TEST(KeptOptions, AHundredTextsAreKept) {
  const auto kept_of = [](int count) {
    ExportSurvey survey;
    for (int k = 0; k < count; ++k) survey.doubtful_parents.push_back({"x" + std::to_string(k), 9, 9, 18, true});
    PrepareOptions options;
    options.known = {"all"};
    return kept_options(options, survey).known;
  };
  EXPECT_EQ(kept_of(100).size(), 100U);
  EXPECT_EQ(kept_of(101), std::vector<std::string>{"all"});
}

/// Animals of the sexes 1 and 2, of which those of sex 1 are so many fathers, or mothers.
ExportSurvey numbered_sexes(int parents, LinkRole role) {
  ExportSurvey survey;
  count_text(survey.sexes, "1", 2);
  count_text(survey.sexes, "2", 3);
  for (int k = 0; k < parents; ++k) {
    const std::string id = "a" + std::to_string(k);
    note_role(survey.links, id, animal_role);
    note_sex(survey.links, id, 0);
    note_parent(survey.links, id, role, 5);
  }
  return survey;
}

TEST(LeaveOutUnfitAnswers, SexesThatTheParentsContradict) {
  const auto left_of = [](const ExportSurvey& survey, const std::vector<std::string>& said) {
    SavedAnswers answers = read_answers("--male 1\n");
    PrepareOptions options;
    options.male = said;
    add_answers(answers, headings, options);
    leave_out_unfit_answers(answers, survey, options);
    return options.male.size() + 10 * answers.unfit.size();
  };
  EXPECT_EQ(left_of(numbered_sexes(3, dam_role), {}), 10U) << "three mothers tell that 1 is female by now";
  EXPECT_EQ(left_of(numbered_sexes(2, dam_role), {}), 1U) << "two tell nothing";
  EXPECT_EQ(left_of(numbered_sexes(9, sire_role), {}), 1U);
  EXPECT_EQ(left_of(numbered_sexes(9, dam_role), {"1"}), 1U) << "said today";
}

TEST(LeaveOutUnfitAnswers, TextsThatDoNotOccur) {
  SavedAnswers answers = read_answers("--male Ram\n--male Stallion\n--male h\n--unknown Wild\n--unknown Zoo\n");
  PrepareOptions options;
  add_answers(answers, headings, options);
  ExportSurvey survey;
  count_text(survey.sexes, "ram", 2);
  count_text(survey.sexes, "Hengst", 3);
  count_text(survey.unknown_parents, "Zoo", 4);
  leave_out_unfit_answers(answers, survey, options);
  EXPECT_EQ(options.male, (std::vector<std::string>{"Ram", "h"}));
  EXPECT_EQ(options.unknown, std::vector<std::string>{"Zoo"});
  ASSERT_EQ(answers.unfit.size(), 2U);
  EXPECT_EQ(answers.unfit[0].value, "Stallion");
}

}  // namespace
}  // namespace pedigreewatch::test
