#include "checks/file_reading.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

/// Whether a file is read whose last line has this number.
bool is_read_up_to(std::int64_t last_line) {
  LineReader data;
  data.text = "a;m;05-06-2000;;\n";
  data.line_number = last_line - 1;
  ReadingPlan plan;
  plan.layout = check_settings(sheep_steer()).layout;
  plan.layout.column_codes[0] = id_column;
  plan.header_line = "id";
  plan.counted_columns = 1;
  PedigreeColumns animals;
  FileSurvey survey;
  Findings findings;
  ProgressLine unwatched;
  return read_animals({data, unwatched}, plan, animals, survey, findings);
}

TEST(ReadAnimals, LinesHaveEightDigitsAtMost) {
  EXPECT_TRUE(is_read_up_to(99'999'999));
  EXPECT_FALSE(is_read_up_to(100'000'000));
}

CheckResult with_id_and_name(std::size_t id, std::size_t name) {
  return checked_sheep("id;sex;birthdate;sire;dam;name\n" + std::string(id, 'i') + ";m;05-06-2000;;;" +
                       std::string(name, 'n') + "\n");
}

TEST(ReadAnimals, IdsOf30AndNamesOf50LettersAreWhole) {
  EXPECT_EQ(count_of(with_id_and_name(30, 1), FindingCode::id_cut), 0);
  EXPECT_EQ(count_of(with_id_and_name(31, 1), FindingCode::id_cut), 1);
  EXPECT_EQ(count_of(with_id_and_name(1, 50), FindingCode::name_cut), 0);
  EXPECT_EQ(count_of(with_id_and_name(1, 51), FindingCode::name_cut), 1);
}

TEST(ReadAnimals, LinesOf600BytesAreWhole) {
  const std::string start = "a;m;05-06-2000;;;";
  const auto cut = [&](std::size_t length) {
    return count_of(
        checked_sheep("id;sex;birthdate;sire;dam;notes\n" + start + std::string(length - start.size(), 'x') + "\n"),
        FindingCode::line_cut);
  };
  EXPECT_EQ(cut(600), 0);
  EXPECT_EQ(cut(601), 1);
}

}  // namespace
}  // namespace pedigreewatch::test
