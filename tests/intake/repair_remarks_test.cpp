// How much is listed of what is changed on the way.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "intake/export_remarks.h"

namespace pedigreewatch::test {
namespace {

std::vector<Remark> remarks_of(const ExportSurvey& survey, RemarkKind kind) {
  Preparation read;
  read.survey = survey;
  std::vector<Remark> remarks;
  add_repair_remarks(read, {}, remarks);
  std::erase_if(remarks, [&](const Remark& remark) { return remark.kind != kind; });
  return remarks;
}

TEST(AddRepairRemarks, TwentyLettersAreListed) {
  const auto listed = [](std::size_t letters) {
    ExportSurvey survey;
    for (std::size_t k = 0; k < letters; ++k) {
      count_replaced(survey.letters, static_cast<char32_t>(0x410 + k), "x");
    }
    return std::get<LetterList>(remarks_of(survey, RemarkKind::letters_replaced).at(0).values.at(0));
  };
  EXPECT_EQ(listed(20).letters.size(), 20U);
  EXPECT_EQ(listed(20).more, 0);
  EXPECT_EQ(listed(21).letters.size(), 20U);
  EXPECT_EQ(listed(21).more, 1);
}

TEST(AddRepairRemarks, FiftyShiftsOfLinesAreListed) {
  const auto survey_with = [](std::int64_t shifts) {
    ExportSurvey survey;
    for (std::int64_t k = 1; k <= shifts; ++k) survey.shifts.push_back({10 + 2 * k, 10 + k});
    return survey;
  };
  EXPECT_EQ(remarks_of(survey_with(50), RemarkKind::line_shifted).size(), 50U);
  EXPECT_EQ(remarks_of(survey_with(50), RemarkKind::further_shifts).size(), 0U);
  EXPECT_EQ(remarks_of(survey_with(51), RemarkKind::line_shifted).size(), 50U);
  const std::vector<Remark> further = remarks_of(survey_with(51), RemarkKind::further_shifts);
  ASSERT_EQ(further.size(), 1U);
  EXPECT_EQ(std::get<std::int64_t>(further[0].values.at(0)), 1);
  EXPECT_EQ(std::get<std::int64_t>(further[0].values.at(1)), 112) << "the last line that is moved";
}

}  // namespace
}  // namespace pedigreewatch::test
