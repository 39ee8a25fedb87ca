// What is found does not depend on the number of threads. The herd has more lines than are cut at once.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <span>
#include <string>

#include "checks/check.h"
#include "support/check_runs.h"
#include "support/sanitizers.h"

namespace pedigreewatch::test {
namespace {

/// A herd with faults of many kinds, all over the file.
std::string faulty_herd(int animals) {
  std::mt19937 random(20);
  const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  const auto id_of = [](int animal) { return "NL" + std::to_string(100'000 + 7 * animal); };
  std::string text = "id;name;sex;birthdate;sire;dam;breed\n";
  for (int k = 0; k < animals; ++k) {
    const auto parent = [&](int sex) { return k < 100 ? std::string() : id_of((k - 100 + below(90)) / 2 * 2 + sex); };
    std::string sire = parent(0), dam = parent(1);
    if (below(200) == 0) sire[sire.size() / 2] = '9';
    if (below(300) == 0 && !dam.empty()) dam = id_of(k / 2 * 2 + 41);  // younger
    if (below(400) == 0) dam = "unknown?";
    const std::string year = std::to_string(below(500) == 0 ? 2090 : 1950 + k * 70 / animals);
    const std::string id = below(600) == 0 ? id_of(k / 2) : id_of(k);
    text += id + ";Name" + std::to_string(below(50)) + ";" + (k % 2 == 0 ? "m" : "f") + ";" +
            (below(300) == 0 ? "31-02-" : "12-03-") + year + ";" + sire + ";" + dam + ";North" +
            (below(700) == 0 ? ";more" : "") + "\n";
    if (below(900) == 0) text += "total;;;;;;\n";
  }
  return text;
}

TEST(CheckData, FindsTheSameWithAnyNumberOfThreads) {
  constexpr std::array herds = {3, 4097, 4096, 12'000};
  for (const int animals : std::span(herds).first(cases(4, 2))) {
    const std::string herd = faulty_herd(animals);
    for (const CheckScope scope : {CheckScope::everything, CheckScope::rates}) {
      CheckSettings settings = check_settings(sheep_steer());
      settings.scope = scope;
      const CheckResult alone = checked(herd, settings);
      EXPECT_GT(alone.findings.list.size(), animals > 3 ? 20U : 0U);
      constexpr std::array counts = {4, 2};
      for (const std::int32_t threads : std::span(counts).first(cases(2, 1))) {
        settings.threads = threads;
        EXPECT_EQ(rows_of(checked(herd, settings), ToolLanguage::english), rows_of(alone, ToolLanguage::english))
            << animals << " animals, " << threads << " threads";
      }
    }
  }
}

// The last line of a file without headings is no animal, wherever the lines that are cut at once end.
TEST(CheckData, LeavesTheLastLineOutWithAnyNumberOfThreads) {
  for (const int animals : {1, 2, 4096, 4097, 4098}) {
    std::string herd = faulty_herd(animals);
    herd = herd.substr(herd.find('\n') + 1);
    SteerLines steer = sheep_steer();
    steer.header = "n\ncolumns\n7\nlist\n7 1 4 7 8 2 3 11";
    CheckSettings settings = check_settings(steer);
    const CheckResult alone = checked(herd, settings);
    settings.threads = 2;
    const CheckResult shared = checked(herd, settings);
    EXPECT_EQ(count_of(alone, FindingCode::last_line), 1) << animals;
    EXPECT_EQ(shared.animals.count(), alone.animals.count()) << animals;
    EXPECT_EQ(rows_of(shared, ToolLanguage::dutch), rows_of(alone, ToolLanguage::dutch)) << animals;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
