// Loops: each group of animals that are ancestors of each other once, with a shortest chain.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

/// The chains that are found in animals "id sire dam" without dates.
std::vector<std::string> chains_of(const std::vector<std::string>& animals) {
  std::string data = "id;sire;dam;sex;birthdate\n";
  for (const std::string& animal : animals) data += animal + ";m;\n";
  const CheckResult result = checked(data, check_settings(sheep_steer()));
  std::vector<std::string> chains;
  for (const Finding& finding : result.findings.list) {
    if (finding.code == FindingCode::loop) chains.emplace_back(result.findings.texts.at(finding.text));
  }
  return chains;
}

using Chains = std::vector<std::string>;

TEST(CheckLoops, NamesTheChainByParentsAndLines) {
  EXPECT_EQ(chains_of({"a;b;", "b;;c", "c;a;"}),
            Chains{"a (line 2) - father b (line 3) - mother c (line 4) - father a"});
}

TEST(CheckLoops, AnAnimalThatIsItsOwnParent) {
  EXPECT_EQ(chains_of({"a;;a"}), Chains{"a (line 2) - mother a"});
}

TEST(CheckLoops, TellsTwoSeparateLoopsAndNoAncestorsOrYoungOfThem) {
  EXPECT_EQ(chains_of({"x;;", "a;b;x", "b;a;", "y;a;", "c;d;", "d;c;y"}),
            (Chains{"a (line 3) - father b (line 4) - father a", "c (line 6) - father d (line 7) - father c"}));
}

TEST(CheckLoops, OfTwoLoopsThroughOneAnimalShowsTheShorter) {
  EXPECT_EQ(chains_of({"a;b;d", "b;c;", "c;a;", "d;a;"}), Chains{"a (line 2) - mother d (line 5) - father a"});
}

TEST(CheckLoops, ASoundPedigreeHasNone) {
  EXPECT_EQ(chains_of({"c;a;b", "a;;", "b;;", "d;c;b", "e;d;a"}), Chains());
}

/// A loop of fathers through so many animals, whose last two are also each other's parents.
std::vector<std::string> loop_with_short_one(int count) {
  const auto name = [](int k) { return "a" + std::to_string(k); };
  std::vector<std::string> animals;
  for (int k = 1; k <= count; ++k) {
    animals.push_back(name(k) + ";" + name(k % count + 1) + ";" + (k == count ? name(count - 1) : ""));
  }
  return animals;
}

TEST(CheckLoops, TriesEveryAnimalOfUpToTwoHundred) {
  EXPECT_EQ(chains_of(loop_with_short_one(200)), Chains{"a199 (line 200) - father a200 (line 201) - mother a199"});
  ASSERT_EQ(chains_of(loop_with_short_one(201)).size(), 1U);
  EXPECT_TRUE(chains_of(loop_with_short_one(201)).front().ends_with(" - ... 201 animals in all ..."));
}

TEST(CheckLoops, NamesThirtyAnimalsAtMost) {
  const auto loop_of = [](int count) {
    std::vector<std::string> animals;
    for (int k = 1; k <= count; ++k) {
      animals.push_back("a" + std::to_string(k) + ";a" + std::to_string(k % count + 1) + ";");
    }
    return chains_of(animals).front();
  };
  EXPECT_TRUE(loop_of(29).ends_with("father a29 (line 30) - father a1"));
  EXPECT_TRUE(loop_of(30).ends_with("father a30 (line 31) - ... 30 animals in all ..."));
}

/// Whether `start` is its own ancestor, by walking up all ways.
bool is_own_ancestor(const std::vector<std::vector<int>>& parents, int start) {
  std::set<int> seen;
  std::vector<int> open = parents[static_cast<std::size_t>(start)];
  while (!open.empty()) {
    const int animal = open.back();
    open.pop_back();
    if (animal == start) return true;
    if (!seen.insert(animal).second) continue;
    const auto& next = parents[static_cast<std::size_t>(animal)];
    open.insert(open.end(), next.begin(), next.end());
  }
  return false;
}

TEST(CheckLoops, FindsALoopExactlyWhenAnAnimalIsItsOwnAncestor) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    constexpr int count = 12;
    std::vector<std::vector<int>> parents(count);
    std::vector<std::string> lines;
    for (int animal = 0; animal < count; ++animal) {
      std::string line = "a" + std::to_string(animal);
      for (int role = 0; role < 2; ++role) {
        const bool is_known = random() % 3 == 0;
        const int parent = static_cast<int>(random() % count);
        if (is_known) parents[static_cast<std::size_t>(animal)].push_back(parent);
        line += is_known ? ";a" + std::to_string(parent) : ";";
      }
      lines.push_back(line);
    }
    bool has_loop = false;
    for (int animal = 0; animal < count; ++animal) has_loop = has_loop || is_own_ancestor(parents, animal);
    EXPECT_EQ(!chains_of(lines).empty(), has_loop);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
