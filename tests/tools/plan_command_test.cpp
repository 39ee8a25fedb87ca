// The help of `plan`, and what its lists may look like.
#include "tools/plan_command.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "planning/said_lists.h"
#include "tools/subcommands.h"

namespace pedigreewatch::test {
namespace {

TEST(PlanHelp, NamesEveryOptionInLinesThatFit) {
  ToolStreams streams;
  EXPECT_EQ(run_tools(std::vector<std::string_view>{"plan", "--help"}, "1.2.3", streams), 0);
  EXPECT_EQ(streams.console.pending, plan_help());
  std::string_view rest = plan_help();
  for (const std::string_view option :
       {"--females", "--males", "--years", "--exclude", "--subpopulation", "--known-parents", "--least-generations",
        "--matings", "--most-per-male", "--most-per-female", "--least-per-male", "--numbers", "--contributions-only",
        "--most-f", "--forbidden", "--wished", "--values", "--rate"}) {
    EXPECT_NE(rest.find(option), std::string_view::npos) << option;
  }
  for (; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) EXPECT_LE(rest.find('\n'), 120U);
}

TEST(ReadValue, TakesNumbersWithPointOrComma) {
  EXPECT_EQ(read_value("12.5"), 12.5);
  EXPECT_EQ(read_value("-12,5"), -12.5);
  EXPECT_EQ(read_value("+1e2"), 100.0);
  EXPECT_EQ(read_value("1e12"), 1e12);
  for (const std::string_view text : {"", "x", "1 2", "1,2,3", "nan", "inf", "1e13", "1e400", "0x10", "--1", "+-1"}) {
    EXPECT_FALSE(read_value(text).has_value()) << text;
  }
}

TEST(ReadRange, TakesANumberOrTwo) {
  const auto one = read_range("3");
  ASSERT_TRUE(one.has_value());
  EXPECT_EQ(one->least, 3);
  EXPECT_EQ(one->most, 3);
  const auto two = read_range("0-5");
  ASSERT_TRUE(two.has_value());
  EXPECT_EQ(two->least, 0);
  EXPECT_EQ(two->most, 5);
  for (const std::string_view text : {"", "-3", "3-", "5-2", "2-5-7", "2.5", "99999999999", "3x"}) {
    EXPECT_FALSE(read_range(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
