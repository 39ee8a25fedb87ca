// The console's words for what is said of an export: every kind has some, and each place in them is a value.

#include "intake/console_words.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

/// More values than any kind has.
const Values sevens(7, std::int64_t{7});

void expect_words(const std::string& text) {
  EXPECT_GT(text.size(), 2U);
  EXPECT_EQ(text.find_first_of("{}"), std::string::npos) << text;
}

TEST(ConsoleWords, ExistForEveryKindInBothLanguages) {
  for (const ToolLanguage language : {ToolLanguage::english, ToolLanguage::dutch}) {
    for (std::size_t k = 0; k < remark_kind_count; ++k) {
      Remark remark = {static_cast<RemarkKind>(k), sevens};
      if (remark.kind == RemarkKind::column_possible) remark.values = {name_column, ColumnList{{{"Naam", 8}}}};
      TextOutput console;
      show_remarks(std::span(&remark, 1), language, console);
      expect_words(console.pending);
    }
    for (std::size_t k = 0; k < question_kind_count; ++k) {
      expect_words(words_of({static_cast<QuestionKind>(k), sevens, Setting::none, unused_column, {}}, language));
    }
    for (std::size_t k = 0; k < refusal_kind_count; ++k) {
      expect_words(words_of(Refusal{static_cast<RefusalKind>(k), sevens}, language));
    }
  }
}

TEST(ConsoleWords, PutNothingIntoTheTextsOfAnExport) {
  const Question question = {
      QuestionKind::male_never, {std::string("{2} --male"), CountedList{{{"{1}", 4, 1}}, 0}}, Setting::male, {}, {}};
  EXPECT_EQ(words_of(question, ToolLanguage::english),
            "--male {2} --male: no animal has this sex. The sexes are written \"{1}\" (4).");
}

TEST(ConsoleWords, ListAtMostTenTextsOfAQuestion) {
  const auto listed = [](int count) {
    CountedList list;
    for (int k = 0; k < count; ++k) list.texts.push_back({std::string(1, static_cast<char>('a' + k)), 1, 1});
    return words_of({QuestionKind::sexes_unclear, {list}, Setting::male, unused_column, {}}, ToolLanguage::english);
  };
  EXPECT_NE(listed(10).find("\"i\" (1), \"j\" (1). Say"), std::string::npos) << listed(10);
  EXPECT_NE(listed(11).find("\"i\" (1), \"j\" (1), .... Say"), std::string::npos) << listed(11);
}

TEST(ConsoleWords, TellEachPlaceOfARefusalOnALineOfItsOwn) {
  const Refusal refusal = {
      RefusalKind::never_closed, {std::string("a.csv"), std::int64_t{3}}, {{std::string("a.csv"), std::int64_t{9}}}};
  EXPECT_EQ(words_of(refusal, ToolLanguage::english),
            "a.csv, line 3: a quotation mark opens a text and is never closed. Mend this line in the export.\n"
            "a.csv, line 9: a quotation mark opens a text and is never closed. Mend this line in the export.");
}

}  // namespace
}  // namespace pedigreewatch::test
