// What the summary says of a figure, on both sides of each bound between two sentences.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "page/inbreeding_charts.h"
#include "page/page_sections.h"
#include "support/analysed_population.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

std::string summary_of(const AnalysedPopulation& population) {
  const PageInput input{population};
  std::string text;
  write_summary(text, make_frame(input));
  return text;
}

/// The summary when so many generation equivalents are known of the last year.
std::string summary_with_equivalents(float equivalents) {
  AnalysedPopulation population = analysed(animals_by_year({10, 10, 10}));
  population.analysis.whole.tables.completeness.at(3).equivalent_generations = equivalents;
  return summary_of(population);
}

TEST(Summary, BelowThreeGenerationEquivalentsIsTooLittle) {
  EXPECT_TRUE(has(summary_with_equivalents(std::nextafter(3.0F, 0.0F)), "That is too little"));
  EXPECT_TRUE(has(summary_with_equivalents(3.0F), "That shows recent inbreeding"));
}

TEST(Summary, FiveGenerationEquivalentsAreDeepEnoughToCompare) {
  EXPECT_TRUE(has(summary_with_equivalents(std::nextafter(5.0F, 0.0F)), "That shows recent inbreeding"));
  EXPECT_TRUE(has(summary_with_equivalents(5.0F), "That is deep enough to compare years and animals"));
}

TEST(Summary, SpeaksOfTheLastYearWithTenAnimals) {
  EXPECT_TRUE(has(summary_of(analysed(animals_by_year({12, 10, 9}))), "The animals born in 2002 have"));
  EXPECT_TRUE(has(summary_of(analysed(animals_by_year({12, 9, 10}))), "The animals born in 2003 have"));
  EXPECT_TRUE(has(summary_of(analysed(animals_by_year({9, 1, 0}))), "The animals born in 2002 have"))
      << "no year has ten";
}

TEST(IsEstimable, AboveNothingAndBelowAHundredThousand) {
  const AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  const PageInput input{population};
  const PageFrame frame = make_frame(input);
  const auto is_size = [&](float size) {
    GenerationRate rate;
    rate.effective_size = size;
    return is_estimable(frame, rate);
  };
  EXPECT_FALSE(is_size(0.0F));
  EXPECT_TRUE(is_size(0.001F));
  EXPECT_TRUE(is_size(std::nextafter(100'000.0F, 0.0F)));
  EXPECT_FALSE(is_size(100'000.0F));
}

TEST(IsEstimable, NeedsThreeYears) {
  const auto is_with = [](const std::vector<int>& counts) {
    const AnalysedPopulation population = analysed(animals_by_year(counts));
    const PageInput input{population};
    GenerationRate rate;
    rate.effective_size = 80.0F;
    return is_estimable(make_frame(input), rate);
  };
  EXPECT_FALSE(is_with({1, 1}));
  EXPECT_TRUE(is_with({1, 1, 1}));
}

}  // namespace
}  // namespace pedigreewatch::test
