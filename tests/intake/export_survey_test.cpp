#include "intake/export_survey.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

const std::string header = "id;sire;dam;sex;born;name;herd\n";

ColumnChoice columns_of_header() {
  return choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born", "name", "herd"}, {});
}

ExportSurvey survey_of(const std::string& lines) {
  ProgressLine unwatched;
  return survey_export(header + lines, ';', columns_of_header(), {}, unwatched);
}

TEST(SurveyExport, CountsAnimalsAndWhatIsFilled) {
  const ExportSurvey survey = survey_of("rex;;;m;2001-12-31;Rex;North\nbram;rex;NA;m;2003-01-01;;North\n");
  EXPECT_EQ(survey.animal_count, 2);
  EXPECT_EQ(survey.header_line, 1);
  EXPECT_EQ(survey.last_line, 3);
  EXPECT_EQ(survey.filled[name_column], 1);
  EXPECT_EQ(survey.dates.year_first.total, 2);
  EXPECT_EQ(survey.subpopulations.texts[0].count, 2);
  EXPECT_EQ(count_links(survey.links, sire_role).with_line, 1);
  EXPECT_EQ(by_frequency(survey.unknown_parents).front()->count, 2);
  EXPECT_TRUE(survey.shifts.empty());
}

TEST(SurveyExport, BlankLinesAndLineEndsInQuotesShiftLines) {
  const ExportSurvey survey =
      survey_of("rex;;;m;2001;;\n\n;;;;;;North\nbram;rex;;m;2003;\"a\nb\";\nsaar;;;f;2003;;\ntess;;;f;2003;;\n\n");
  EXPECT_EQ(survey.animal_count, 4);
  EXPECT_EQ(survey.blank_lines, 2);
  ASSERT_EQ(survey.remark_lines.count, 1);
  EXPECT_EQ(survey.remark_lines.first[0].line, 4);
  EXPECT_EQ(survey.remark_lines.first[0].text, "North");
  ASSERT_EQ(survey.shifts.size(), 2U);
  EXPECT_EQ(survey.shifts[0].export_line, 5);
  EXPECT_EQ(survey.shifts[0].data_line, 3);
  EXPECT_EQ(survey.shifts[1].export_line, 7);
  EXPECT_EQ(survey.shifts[1].data_line, 4);
}

// The signs of the sexes become m and f; of a name the letter that is lacking is lost.
TEST(SurveyExport, LettersOfSexesAreNotLost) {
  const ExportSurvey survey = survey_of("rex;;;\u2642;2001;\u0141uk;\nsaar;;;\u2640;2001;\u0141a;\n");
  ASSERT_EQ(survey.letters.replaced.size(), 1U);
  EXPECT_EQ(survey.letters.replaced[0].letter, U'\u0141');
  EXPECT_EQ(survey.letters.replaced[0].count, 2);
}

TEST(SurveyExport, QuotationMarksThatSwallowLinesAreTold) {
  // A line has six delimiters.
  EXPECT_EQ(survey_of("rex;;;m;2001;\"Rex;\nbram;;;m;2001;\"Bram;\n").swallowed_line, 2);
  EXPECT_EQ(survey_of("rex;;;m;2001;Rex;\nbram;;;m;2001;\"a;\nx;;;m;2001;b;\ny;;;m;2001;c\";\n").swallowed_line, 3);
  EXPECT_EQ(survey_of("rex;;;m;2001;\"Rex;\r\nbram;;;m;2001;\"Bram;\r\n").swallowed_line, 2);
  ProgressLine unwatched;
  const std::string returns =
      "id;sire;dam;sex;born;name;herd\rrex;;;m;2001;\"Rex;\rbram;;;m;2001;\"Bram;\rx;;;m;2001;;\r";
  EXPECT_EQ(survey_export(returns, ';', columns_of_header(), {}, unwatched).swallowed_line, 2);
}

TEST(SurveyExport, AWholeLineInsideQuotationMarksIsTold) {
  // From the last column to the first one: one whole line, and none before and behind it.
  EXPECT_EQ(survey_of("rex;;;m;2001;;\"North\nbram;;;m;2001;;North\n\"x;;;m;2001;;\n").swallowed_line, 2);
  EXPECT_EQ(survey_of("rex;;;m;2001;;\"North\nbram;;;m;2001;North\n\"x;;;m;2001;;\n").swallowed_line, 0);
}

TEST(SurveyExport, RemarksOfSeveralLinesWithFewDelimitersStay) {
  EXPECT_EQ(survey_of("rex;;;m;2001;\"a;b;c\nd;e;f;\";\n").swallowed_line, 0) << "five in place of six";
  EXPECT_EQ(survey_of("rex;;;m;2001;\"a;b;c\nd;e;f;;\";\n").swallowed_line, 2) << "six";
  EXPECT_EQ(survey_of("rex;;;m;2001;\"a;b;c;d;e;f;g;h\";\n").swallowed_line, 0) << "no line ends in it";
  EXPECT_EQ(survey_of("rex;;;m;2001;\"a;b\n\nc;d\n\ne\";\n").swallowed_line, 0);
}

TEST(SurveyExport, ListsLinesWithOtherNumbersOfColumns) {
  const ExportSurvey survey = survey_of("rex;;;m;2001;;\nbram;rex;;m\nsaar;;;f;2003;;;;\n");
  ASSERT_EQ(survey.other_field_counts.count, 2);
  EXPECT_EQ(survey.other_field_counts.first[0].line, 3);
  EXPECT_EQ(survey.other_field_counts.first[0].text, "4");
  EXPECT_EQ(survey.other_field_counts.first[1].text, "9");
}

TEST(SurveyExport, ListsTextsThatAreTooLongInLettersNotBytes) {
  std::string fifty, longer;
  for (int i = 0; i < 50; ++i) fifty += "\xC3\xAB";
  longer = fifty + "x";
  const ExportSurvey survey = survey_of("rex;;;m;2001;" + fifty + ";\nbram;;;m;2001;" + longer + ";\n");
  ASSERT_EQ(survey.too_long[name_column].count, 1);
  EXPECT_EQ(survey.too_long[name_column].first[0].line, 3);
}

TEST(SurveyExport, NotesAnimalsWithoutId) {
  const ExportSurvey survey = survey_of(";;;m;2001;Rex;\nNA;;;m;2001;Max;\n");
  EXPECT_EQ(survey.without_id.count, 1);
  EXPECT_EQ(survey.unknown_ids.texts[0].text, "NA");
}

TEST(SurveyExport, NotesAnimalsThatMayBeNone) {
  std::string text = "id;sire;dam;sex;born\n";
  for (int i = 100; i < 310; ++i) text += "NL" + std::to_string(i) + ";;;m;2001\n";
  text += "Berlin;;;;22-11-2026\nA-litter of 2003;NL100;;;1-2-2003\nRex;NL100;;f;2003\nNL7;;;;2003\n";
  ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sire", "dam", "sex", "born"}, {});
  columns.id_style = find_id_style(text, ';', columns);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  EXPECT_EQ(survey.animal_count, 214);
  ASSERT_EQ(survey.odd_ids.count, 2);
  EXPECT_EQ(survey.odd_ids.first[0].line, 212);
  EXPECT_EQ(survey.odd_ids.first[0].text, "Berlin 22-11-2026");
  EXPECT_EQ(survey.odd_ids.first[1].line, 213);
}

TEST(FindIdClashes, IdsThatCuttingMakesEqual) {
  const std::string thirty(30, 'D');
  const std::string lines = thirty + ";;;m;2001;;\n" + thirty + "1;;;m;2001;;\n";
  const ExportSurvey survey = survey_of(lines);
  const auto clashes = find_id_clashes(header + lines, ';', columns_of_header(), survey.changed_ids);
  ASSERT_EQ(clashes.size(), 1U);
  EXPECT_EQ(clashes[0].line, 2);
  EXPECT_EQ(clashes[0].id, thirty);
  EXPECT_EQ(clashes[0].other_id, thirty + "1");
}

TEST(FindIdClashes, IdsThatTransliterationMakesEqual) {
  const std::string lines =
      "\xC5\x81"
      "1;;;m;2001;;\nbram;L1;;m;2001;;\n";
  const ExportSurvey survey = survey_of(lines);
  EXPECT_EQ(find_id_clashes(header + lines, ';', columns_of_header(), survey.changed_ids).size(), 1U);
}

TEST(FindIdClashes, OneLongIdUsedTwiceIsNoClash) {
  const std::string longest(40, 'D');
  const std::string lines = longest + ";;;m;2001;;\nbram;" + longest + ";;m;2001;;\n";
  const ExportSurvey survey = survey_of(lines);
  EXPECT_EQ(survey.changed_ids.size(), 1U);
  EXPECT_TRUE(find_id_clashes(header + lines, ';', columns_of_header(), survey.changed_ids).empty());
}

TEST(FindIdClashes, NamesTwentyOfThem) {
  const std::string thirty(30, 'D');
  const auto clashes_among = [&](int pairs) {
    std::string lines;
    for (int i = 10; i < 10 + pairs; ++i) {
      for (const char* const end : {"a", "b"}) {
        lines += std::to_string(i) + thirty.substr(2) + end + ";;;m;2001;;\n";
      }
    }
    const ExportSurvey survey = survey_of(lines);
    return find_id_clashes(header + lines, ';', columns_of_header(), survey.changed_ids).size();
  };
  EXPECT_EQ(clashes_among(19), 19U);
  EXPECT_EQ(clashes_among(20), 20U);
  EXPECT_EQ(clashes_among(21), 20U);
}

TEST(SurveyExport, JoinedLinesSayNothingOfHowNumbersAreWritten) {
  const auto forms_of_dams = [](const std::string& last_line) {
    const std::string text = "id;sex;birthdate;sire;dam\n1.200;f;1-1-2000;;\n1.201;f;1-1-2003;;1.200\n" + last_line;
    const ColumnChoice columns = choose_columns(std::vector<std::string>{"id", "sex", "birthdate", "sire", "dam"}, {});
    ProgressLine unwatched;
    return survey_export(text, ';', columns, {}, unwatched).numbers[static_cast<std::size_t>(dam_column)];
  };
  EXPECT_FALSE(has_thousands_signs(forms_of_dams("1.202;f;1-1-2003;;1.2001.203;f;1-1-2003;\n"))) << "eight fields";
  EXPECT_TRUE(has_thousands_signs(forms_of_dams("1.202;f;1-1-2003;;1.2001.203;f;1-1-2003;;1.200\n"))) << "nine";
}

TEST(SurveyExport, ToldLinesAreFiveHundred) {
  const auto told_of = [](int remarks) {
    std::string lines = "rex;;;m;2001;;\n";
    for (int i = 0; i < remarks; ++i) lines += ";;;;;;North\n";
    return survey_of(lines).remark_lines;
  };
  EXPECT_EQ(told_of(500).first.size(), 500U);
  EXPECT_EQ(told_of(501).first.size(), 500U);
  EXPECT_EQ(told_of(501).count, 501);
}

TEST(SurveyExport, TellsStillbornYoungOfAllColumnsWithTheirLines) {
  const std::string text = "sire;dam;born;lamb 1;lamb 2\ns;d;2001;1;dead\ns;d;2001;tot;2\ns;d;2001;dead;dead\n";
  PrepareOptions options;
  options.columns = {{id_column, "4"}};
  const std::vector<std::string> headings = {"sire", "dam", "born", "lamb 1", "lamb 2"};
  ColumnChoice columns = choose_columns(headings, options);
  columns.animals_of_line = {{{3, 3}}, {{4, 3}}};
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, ';', columns, {}, unwatched);
  EXPECT_EQ(survey.animal_count, 2);
  ASSERT_EQ(survey.stillborn.count, 4);
  EXPECT_EQ(survey.stillborn.first[0].line, 2);
  EXPECT_EQ(survey.stillborn.first[1].line, 3);
  EXPECT_EQ(survey.stillborn.first[1].text, "tot");
  EXPECT_EQ(survey.stillborn.first[3].line, 4);
}

}  // namespace
}  // namespace pedigreewatch::test
