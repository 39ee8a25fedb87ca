// The help of `matings`.
#include "tools/matings_command.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tools/subcommands.h"

namespace pedigreewatch::test {
namespace {

TEST(MatingsHelp, IsShownWhereverItIsAskedFor) {
  for (const std::vector<std::string_view>& arguments :
       std::vector<std::vector<std::string_view>>{{"help", "matings"}, {"matings", "--best", "--help"}}) {
    ToolStreams streams;
    EXPECT_EQ(run_tools(arguments, "1.2.3", streams), 0);
    EXPECT_EQ(streams.console.pending, matings_help());
  }
}

TEST(MatingsHelp, NamesEveryOptionInLinesThatFit) {
  std::string_view rest = matings_help();
  for (const std::string_view option : {"--females", "--males", "--years", "--best", "--limit", "--csv"}) {
    EXPECT_NE(rest.find(option), std::string_view::npos) << option;
  }
  for (; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) EXPECT_LE(rest.find('\n'), 120U);
}

}  // namespace
}  // namespace pedigreewatch::test
