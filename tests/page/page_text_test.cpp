#include "page/page_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pedigreewatch::test {
namespace {

TEST(Escaped, LettersOfMarkupBecomeEntities) {
  EXPECT_EQ(escaped("<b> & \"x\" 'y'"), "&lt;b&gt; &amp; &quot;x&quot; &#39;y&#39;");
}

TEST(Escaped, ControlCharactersAreLeftOut) {
  EXPECT_EQ(escaped(std::string_view("a\x01\n\0b\x7F", 6)), "ab");
}

TEST(Isolated, TextBeyondAsciiKeepsItsDirectionToItself) {
  EXPECT_EQ(isolated("a<b"), "a&lt;b");
  EXPECT_EQ(isolated("\xD7\x90<"), "<bdi>\xD7\x90&lt;</bdi>");  // the Hebrew letter alef
}

TEST(DataText, BytesOfWindowsBecomeUtf8WithoutBlanksAround) {
  EXPECT_EQ(data_text("  Zo\xEB  "), "Zo\xC3\xAB");
}

TEST(DataText, LettersThatShowNothingOrTurnTheTextAreNamed) {
  EXPECT_EQ(data_text("a\xE2\x80\xAE"
                      "b"),
            "a<U+202E>b");
  EXPECT_EQ(data_text(std::string_view("a\0b", 3)), "a<U+0000>b");
}

TEST(ReportFigure, HasTheDecimalsOfTheReport) {
  EXPECT_EQ(report_figure(0.25, 4, ToolLanguage::english), "0.2500");
  EXPECT_EQ(report_figure(-12.0, 0, ToolLanguage::english), "-12");
  EXPECT_EQ(report_figure(0.125, 2, ToolLanguage::english), "0.12");  // ties to even, as in the report
  EXPECT_EQ(report_figure(-1234.5, 2, ToolLanguage::dutch), "-1234,50");
}

TEST(ReportFigure, HasNoSignWhenItRoundsToNothing) {
  EXPECT_EQ(report_figure(-3e-7, 4, ToolLanguage::english), "0.0000");
  EXPECT_EQ(report_figure(-6e-5, 4, ToolLanguage::english), "-0.0001");
}

TEST(ReportFigure, WhatIsNoNumberOrBeyondMeaningIsADash) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {std::nan(""), infinity, -infinity, 1e15, -1e300}) {
    EXPECT_EQ(report_figure(value, 2, ToolLanguage::english), "\xE2\x80\x93");
  }
  EXPECT_EQ(report_figure(999999999999999.0, 0, ToolLanguage::english), "999999999999999");
}

}  // namespace
}  // namespace pedigreewatch::test
