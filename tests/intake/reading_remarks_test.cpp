// What is said of the columns of an export.

#include <gtest/gtest.h>

#include <string>

#include "intake/export_remarks.h"
#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

std::vector<Remark> remarks_on_bytes(const std::string& bytes) {
  const RunFolder folder(Files{{"herd.csv", bytes}});
  PrepareOptions options;
  options.export_name = folder.path("herd.csv");
  Preparation read;
  ProgressLine unwatched;
  EXPECT_FALSE(read_and_recognise(options, read));
  EXPECT_FALSE(survey_columns(options, unwatched, read));
  decide(options, read);
  return remarks_on(read, options);
}

/// `Weight 3, Notes 1`: the columns that are named as not used, with their texts, and how many more there are.
std::string unused_in(const std::vector<Remark>& remarks) {
  std::string text;
  for (const Remark& remark : remarks) {
    if (remark.kind != RemarkKind::columns_unused) continue;
    const auto& list = std::get<CountedList>(remark.values.at(0));
    for (const CountedText& entry : list.texts) {
      text += (text.empty() ? "" : ", ") + entry.text + " " + std::to_string(entry.count);
    }
    if (list.more > 0) text += " and " + std::to_string(list.more);
  }
  return text;
}

std::int64_t empty_in(const std::vector<Remark>& remarks) {
  for (const Remark& remark : remarks) {
    if (remark.kind == RemarkKind::columns_empty) return std::get<std::int64_t>(remark.values.at(0));
  }
  return 0;
}

TEST(AddReadingRemarks, NameEachColumnThatIsNotUsedWithItsTexts) {
  const auto remarks = remarks_on_bytes(
      "Id;Sire;Name of sire;Dam;Sex;Born;Weight;Colour;Height;;Notes\n"
      "1;;;;m;2001;3.1;black;;x;\n"
      "2;;;;f;2001;3.3;black; ;;good\n"
      "3;1;Rex;2;f;2004;2.9;;;;\n");
  EXPECT_EQ(unused_in(remarks), "Weight 3, 10 1, Notes 1") << "a blank is no text, a name of a parent is read";
  EXPECT_EQ(empty_in(remarks), 1);
}

TEST(AddReadingRemarks, ColumnsOfYoungAreUsed) {
  const auto remarks = remarks_on_bytes(
      "Sire;Dam;Born;Lamb 1;Lamb 1 sex;Lamb 1 weight;Lamb 2;Lamb 2 sex;Lamb 2 weight\n"
      "r1;e1;2001;1;m;3.1;2;f;3.0\n"
      "r1;e2;2001;3;f;3.3;4;m;\n"
      "r1;e3;2001;5;f;;6;m;\n"
      "r1;e4;2001;7;f;;8;m;\n"
      "r1;e5;2001;9;f;;10;m;\n");
  EXPECT_EQ(unused_in(remarks), "Lamb 1 weight 2, Lamb 2 weight 1");
  EXPECT_EQ(empty_in(remarks), 0);
}

TEST(AddReadingRemarks, NameAHundredOfThem) {
  const auto with_columns = [](int count) {
    std::string header = "Id;Sire;Dam;Sex;Born", line = "1;;;m;2001";
    for (int k = 0; k < count; ++k) {
      header += ";Index " + std::string(1, static_cast<char>('a' + k % 26)) + std::to_string(k / 26);
      line += ";9";
    }
    return unused_in(remarks_on_bytes(header + "\n" + line + "\n"));
  };
  EXPECT_EQ(with_columns(100).find(" and "), std::string::npos);
  EXPECT_TRUE(with_columns(101).ends_with(" and 1"));
}

}  // namespace
}  // namespace pedigreewatch::test
