// Which columns are asked about because they may tell imports.

#include "intake/import_questions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/export_survey.h"

namespace pedigreewatch::test {
namespace {

/// What is asked of eight animals, so many of which have a text in the column of this heading.
std::vector<Question> asked_of(const std::string& heading, int texts, const PrepareOptions& options = {}) {
  const std::vector<std::string> headings = {"id", "sire", "dam", "sex", "born", heading};
  std::string text = "id;sire;dam;sex;born;" + heading + "\n";
  for (int k = 0; k < 8; ++k) {
    const std::string place = k % 2 == 0 ? "Germany" : "France";
    text += std::to_string(k + 1) + ";;;m;2001;" + (k < texts ? place : (k % 2 == 0 ? "no" : "")) + "\n";
  }
  const ColumnChoice columns = choose_columns(headings, options);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  return ask_for_imports(text, ';', columns, {survey.animal_count, survey.imports, survey.column_texts}, options);
}

TEST(AskForImports, AHeadingWithImportThatIsNotTaken) {
  const std::vector<Question> asked = asked_of("Import date", 3);
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_EQ(asked[0].kind, QuestionKind::import_unclear);
  EXPECT_EQ(asked[0].field, import_column);
  EXPECT_EQ(std::get<ColumnList>(asked[0].values.at(0)).columns.at(0).number, 6U);
  const auto& texts = std::get<CountedList>(asked[0].values.at(1)).texts;
  ASSERT_EQ(texts.size(), 3U) << "Germany, France, no; the blank is no text";
  EXPECT_EQ(std::get<std::string>(asked[0].values.at(2)), "6");
  ASSERT_EQ(asked[0].answers.size(), 2U);
  EXPECT_EQ(asked[0].answers[0].value, "6");
  EXPECT_EQ(asked[0].answers[1].value, "none");
}

TEST(AskForImports, NothingOfOtherHeadings) {
  EXPECT_TRUE(asked_of("Important", 3).empty());
  EXPECT_TRUE(asked_of("Remarks", 3).empty());
}

TEST(AskForImports, NothingThatTheUserHasSaid) {
  PrepareOptions options;
  options.columns = {{import_column, "none"}};
  EXPECT_TRUE(asked_of("Import date", 3, options).empty());
  options.columns = {{import_column, "6"}};
  EXPECT_TRUE(asked_of("Imported from", 8, options).empty());
}

TEST(AskForImports, UpToHalfOfTheAnimalsAreImportsUnasked) {
  EXPECT_TRUE(asked_of("Imported from", 4).empty());
  EXPECT_EQ(asked_of("Imported from", 5).size(), 1U);
  EXPECT_TRUE(asked_of("Import", 8).empty()) << "a heading of the data file's own";
}

TEST(AskForImports, AColumnWithoutTextsTellsNone) {
  const std::string text = "id;sire;dam;sex;born;Import date\n1;;;m;2001;\n2;;;m;2001; \n";
  const ColumnChoice columns =
      choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born", "Import date"}, {});
  const TextCounts none;
  EXPECT_TRUE(ask_for_imports(text, ';', columns, {2, none, {2, 0, 0, 2, 2, 0}}, {}).empty());
  EXPECT_EQ(ask_for_imports(text, ';', columns, {2, none, {2, 0, 0, 2, 2, 1}}, {}).size(), 1U);
}

}  // namespace
}  // namespace pedigreewatch::test
