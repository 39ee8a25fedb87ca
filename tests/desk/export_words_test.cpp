// The desk's words for what is said of an export.

#include "desk/export_words.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/places.h"

namespace pedigreewatch {
namespace {

constexpr ToolLanguage both_languages[] = {ToolLanguage::english, ToolLanguage::dutch};

/// More values than any kind has, none of which holds a quotation mark or a brace.
const Values sevens(7, std::int64_t{7});

std::string texts_of_page() {
  std::ifstream file(std::filesystem::path(test::source_folder()) / "desk" / "texts.ts");
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The texts in quotation marks but those that are a value.
std::vector<std::string> named_controls(const std::string& text) {
  std::vector<std::string> names;
  for (std::size_t open = text.find('"'); open != std::string::npos;) {
    const std::size_t close = text.find('"', open + 1);
    if (close == std::string::npos) break;
    const std::string name = text.substr(open + 1, close - open - 1);
    if (name != "7") names.push_back(name);
    open = text.find('"', close + 1);
  }
  return names;
}

std::vector<std::string> all_texts(ToolLanguage language) {
  std::vector<std::string> texts;
  for (std::size_t k = 0; k < remark_kind_count; ++k) {
    const Remark remark = {static_cast<RemarkKind>(k), sevens};
    for (const EvidenceLine& line : evidence_lines(std::span(&remark, 1), language)) texts.push_back(line.text);
  }
  for (std::size_t k = 0; k < question_kind_count; ++k) {
    texts.push_back(question_text({static_cast<QuestionKind>(k), sevens, Setting::none, unused_column, {}}, language));
  }
  for (std::size_t k = 0; k < refusal_kind_count; ++k) {
    texts.push_back(refusal_texts({static_cast<RefusalKind>(k), sevens}, language).front());
  }
  return texts;
}

TEST(ExportWords, ExistForEveryKindInBothLanguages) {
  for (const ToolLanguage language : both_languages) {
    const std::vector<std::string> texts = all_texts(language);
    EXPECT_EQ(texts.size(), remark_kind_count + question_kind_count + refusal_kind_count);
    for (const std::string& text : texts) {
      EXPECT_FALSE(text.empty());
      EXPECT_EQ(text.find_first_of("{}"), std::string::npos) << text;
      EXPECT_EQ(text.find("--"), std::string::npos) << "an option of the command line: " << text;
    }
  }
}

TEST(ExportWords, NameControlsAsThePageDoes) {
  const std::string page = texts_of_page();
  ASSERT_FALSE(page.empty());
  std::size_t count = 0;
  for (const ToolLanguage language : both_languages) {
    for (const std::string& text : all_texts(language)) {
      for (const std::string& name : named_controls(text)) {
        // The page has its texts in pairs, English first.
        const std::string english = "[\"" + name + "\"", dutch = "\"" + name + "\"]";
        EXPECT_NE(page.find(language == ToolLanguage::english ? english : dutch), std::string::npos)
            << name << " in: " << text;
        ++count;
      }
    }
  }
  EXPECT_EQ(count, 50U) << "25 names in each language";
}

TEST(ExportWords, CallAnAnswerByWhatItStandsFor) {
  const Question column = {QuestionKind::optional_columns_alike, {}, Setting::column, name_column, {}};
  EXPECT_EQ(setting_name(column.setting, column.field), "column.name");
  EXPECT_EQ(answer_text(column, {"8", "Naam"}, ToolLanguage::english), "\"Naam\" (column 8)");
  EXPECT_EQ(answer_text(column, {"none", ""}, ToolLanguage::dutch), "niet gebruikt");
  const Question header = {QuestionKind::header_unclear, {}, Setting::header, unused_column, {}};
  EXPECT_EQ(answer_text(header, {"yes", ""}, ToolLanguage::english), "holds headings");
  EXPECT_EQ(answer_text(header, {"no", ""}, ToolLanguage::dutch), "is een dier");
  const Question dates = {QuestionKind::dates_unclear, {}, Setting::dates, unused_column, {}};
  EXPECT_EQ(answer_text(dates, {"dd-mm-yyyy", ""}, ToolLanguage::dutch), "dd-mm-jjjj");
  const Question colours = {QuestionKind::too_many_colours, {}, Setting::colours, unused_column, {}};
  EXPECT_EQ(answer_text(colours, {"all", ""}, ToolLanguage::dutch), "alle");
  EXPECT_EQ(answer_text(colours, {"none", ""}, ToolLanguage::english), "none");
}

TEST(ExportWords, TellEachPlaceOfARefusal) {
  const Refusal refusal = {RefusalKind::never_closed,
                           {std::string("/home/a.csv"), std::int64_t{3}},
                           {{std::string("/home/a.csv"), std::int64_t{9}}}};
  const std::vector<std::string> texts = refusal_texts(refusal, ToolLanguage::english);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_TRUE(texts[0].starts_with("a.csv, line 3: "));
  EXPECT_TRUE(texts[1].starts_with("a.csv, line 9: "));
}

}  // namespace
}  // namespace pedigreewatch
