#include "tools/folder_command.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace pedigreewatch::test {
namespace {

constexpr auto rules = std::to_array<OptionRule>({{"--years"}, {"--csv", false}});

struct Read {
  std::string problem;
  std::vector<std::string> taken;
};

Read read(const std::vector<std::string_view>& arguments) {
  Read result;
  result.problem = read_options(arguments, rules, [&](const GivenOption& option) {
    result.taken.push_back(std::string(option.name) + " " + std::string(option.value));
    return option.value == "never" ? std::string("never is no year") : std::string();
  });
  return result;
}

TEST(ReadOptions, HandsOverEachOption) {
  const Read result = read({"--csv", "--years=2001-2010"});
  EXPECT_EQ(result.problem, "");
  EXPECT_EQ(result.taken, (std::vector<std::string>{"--csv ", "--years 2001-2010"}));
}

TEST(ReadOptions, StopsAtTheFirstThatIsRefused) {
  const Read result = read({"--years", "never", "--csv"});
  EXPECT_EQ(result.problem, "never is no year");
  EXPECT_EQ(result.taken.size(), 1U);
}

TEST(ReadOptions, ExpectsNoFile) {
  EXPECT_EQ(read({"dogs.txt"}).problem,
            "\"dogs.txt\": no file was expected; the data file is the one of pedigreewatch.ini");
  EXPECT_EQ(read({"--yeras", "2001"}).problem, "--yeras: there is no such option");
}

TEST(RefusalOfArguments, SaysWhereToReadMore) {
  const ToolRefusal refusal = refusal_of_arguments("tables", "--years needs a value");
  EXPECT_EQ(refusal.text, "pedigreewatch-tools tables: --years needs a value\nTry: pedigreewatch-tools tables --help");
  EXPECT_EQ(refusal.exit_status, 2);
}

}  // namespace
}  // namespace pedigreewatch::test
