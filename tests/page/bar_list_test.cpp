// Bars behind figures: their names, their lengths.
#include "page/bar_list.h"

#include <gtest/gtest.h>

#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

TEST(WriteBarList, NamesEveryBarAndDrawsAllOnOneScale) {
  const BarList list = {
      "pw-x", "Title", "Reading", "Animal", {"best, %", "plan, %"}, {{"A<1", {4.0, 1.0}}, {"B", {0.001, std::nullopt}}},
      2};
  std::string page;
  write_bar_list(page, list, ToolLanguage::dutch);
  EXPECT_TRUE(has(page, "<th scope=\"row\">A&lt;1</th><td>4,00</td><td>1,00</td>")) << page;
  EXPECT_TRUE(has(page, "<path class=\"b b1\" d=\"M0 1h160v9h-160z\"/><path class=\"b b2\" d=\"M0 12h40v9h-40z\"/>"))
      << page;
  EXPECT_TRUE(has(page,
                  "<td>0,00</td><td>\xE2\x80\x93</td><td><svg width=\"160\" height=\"22\" viewBox=\"0 0 160 22\" "
                  "aria-hidden=\"true\"><path class=\"b b1\" d=\"M0 1h1v9h-1z\"/></svg>"))
      << page;
}

}  // namespace
}  // namespace pedigreewatch::test
