// What is asked about ids.

#include "intake/id_questions.h"

#include <gtest/gtest.h>

#include <string>

#include "support/prepared_export.h"

namespace pedigreewatch::test {
namespace {

TEST(AskForIds, FiveDestroyedOnesAreShown) {
  const auto shown_of = [](int destroyed) {
    std::string text = "id;sire;dam;sex;born\n";
    for (int k = 0; k < destroyed; ++k) text += "5.28" + std::to_string(k) + "E+14;;;m;2001\n";
    const Prepared asked = prepared(text);
    const Question& question = asked.plan.questions.at(0);
    EXPECT_EQ(question.kind, QuestionKind::ids_destroyed);
    return std::get<NotedTexts>(question.values.at(2));
  };
  EXPECT_EQ(shown_of(5).first.size(), 5U);
  EXPECT_EQ(shown_of(6).first.size(), 5U);
  EXPECT_EQ(shown_of(6).count, 6);
}

}  // namespace
}  // namespace pedigreewatch::test
