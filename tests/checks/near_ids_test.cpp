// Near identifications, found by hashes, against the plain comparison of all pairs.
#include "checks/near_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "checks/readable_text.h"

namespace pedigreewatch::test {
namespace {

/// Animals with these identifications, and further ones that no animal has.
PedigreeColumns animals_named(const std::vector<std::string>& names, const std::vector<std::string>& parents) {
  PedigreeColumns animals;
  for (const std::string& name : names) animals.id.add(number_of_text(animals.ids, name));
  for (const std::string& parent : parents) number_of_text(animals.ids, parent);
  animals.animal_of = ByNumber<std::int32_t>(static_cast<std::size_t>(animals.ids.count()));
  for (std::int32_t animal = animals.count(); animal >= 1; --animal) animals.animal_of[animals.id.at(animal)] = animal;
  return animals;
}

std::vector<std::int32_t> ids_without_animal(const PedigreeColumns& animals) {
  std::vector<std::int32_t> ids;
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    if (animals.animal_of[id] == 0) ids.push_back(id);
  }
  return ids;
}

/// The distance in letters put in, left out, exchanged, or changed over with the neighbour (Damerau, 1964), by the
/// table of all beginnings.
std::size_t distance_of(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) d[i][0] = i;
  for (std::size_t j = 0; j <= b.size(); ++j) d[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    for (std::size_t j = 1; j <= b.size(); ++j) {
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

std::vector<std::string> random_names(std::mt19937& random, std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t k = 0; k < count; ++k) {
    std::string name;
    for (std::size_t length = 1 + random() % 7; name.size() < length;) name.push_back("ABab01"[random() % 6]);
    names.push_back(name);
  }
  return names;
}

TEST(IsOneLetterOff, KnowsTheSlipsOfAPen) {
  for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{
           {"HS1", "HS2"}, {"HS1", "HS"}, {"HS1", "HS11"}, {"HS1", "SH1"}, {"HS12", "HS21"}, {"a", ""}}) {
    EXPECT_TRUE(is_one_letter_off(a, b)) << a << " " << b;
    EXPECT_TRUE(is_one_letter_off(b, a)) << b << " " << a;
  }
  EXPECT_FALSE(is_one_letter_off("HS1", "HS1"));
  EXPECT_FALSE(is_one_letter_off("HS12", "HS34"));
  EXPECT_FALSE(is_one_letter_off("HS1", "HS123"));
}

TEST(FindOneLetterOff, FindsWhatTheComparisonOfAllPairsFinds) {
  std::mt19937 random(11);
  for (int round = 0; round < 30; ++round) {
    const PedigreeColumns animals = animals_named(random_names(random, 12), random_names(random, 12));
    const std::vector<std::int32_t> wanted = ids_without_animal(animals);
    const auto found = find_one_letter_off(animals, wanted);
    for (const std::int32_t id : wanted) {
      const std::string text(animals.ids.at(id));
      std::size_t near_count = 0;
      for (std::int32_t other = 1; other <= animals.ids.count(); ++other) {
        const bool is_animal = animals.animal_of[other] != 0;
        if (is_animal && distance_of(text, std::string(animals.ids.at(other))) == 1) ++near_count;
      }
      const auto entry = found.find(id);
      const std::size_t count = entry == found.end() ? 0 : entry->second.animals.size();
      EXPECT_EQ(count, std::min<std::size_t>(near_count, 8)) << text;
    }
  }
}

TEST(FindOneLetterOff, KeepsEightAnimalsAndSaysThatThereAreMore) {
  const auto near = [](int count) {
    std::vector<std::string> names;
    for (int k = 1; k <= count; ++k) names.push_back("HS" + std::to_string(k));
    const PedigreeColumns animals = animals_named(names, {"HSX"});
    return find_one_letter_off(animals, ids_without_animal(animals)).begin()->second;
  };
  EXPECT_EQ(near(8).animals.size(), 8U);
  EXPECT_TRUE(near(8).are_all);
  EXPECT_EQ(near(9).animals.size(), 8U);
  EXPECT_FALSE(near(9).are_all);
}

/// So many identifications that all become the one animal's without a letter.
std::size_t found_of_many(std::size_t count) {
  const std::string id = "ABCDE";
  std::vector<std::string> parents;
  for (std::size_t place = 0; place <= id.size(); ++place) {
    for (char letter = 'a'; letter <= 'z' && parents.size() < count; ++letter) {
      parents.push_back(std::string(id).insert(place, 1, letter));
    }
    for (char letter = '!'; letter <= '@' && parents.size() < count; ++letter) {
      parents.push_back(std::string(id).insert(place, 1, letter));
    }
  }
  EXPECT_EQ(parents.size(), count);
  const PedigreeColumns animals = animals_named({id}, parents);
  return find_one_letter_off(animals, ids_without_animal(animals)).size();
}

TEST(FindOneLetterOff, LooksAtThreeHundredIdsWithOneLetterInCommonPlace) {
  EXPECT_EQ(found_of_many(300), 300U);
  EXPECT_EQ(found_of_many(301), 300U);
}

TEST(FindSameButSpelling, TakesCapitalsBlanksAndZerosInFrontForTheSame) {
  const PedigreeColumns animals =
      animals_named({"HS1", "0077", "DE 12"}, {"hs1", "77", "DE12", " HS1", "HS1\xA0", "HS10"});
  const auto found = find_same_but_spelling(animals, ids_without_animal(animals));
  const auto animal_for = [&](std::string_view parent) {
    for (const auto& [id, animal] : found) {
      if (animals.ids.at(id) == parent) return animal;
    }
    return 0;
  };
  EXPECT_EQ(animal_for("hs1"), 1);
  EXPECT_EQ(animal_for(" HS1"), 1);
  EXPECT_EQ(animal_for("HS1\xA0"), 1);
  EXPECT_EQ(animal_for("77"), 2);
  EXPECT_EQ(animal_for("DE12"), 3);
  EXPECT_EQ(animal_for("HS10"), 0);
}

TEST(FoldedId, KeepsWhatTellsAnimalsApart) {
  EXPECT_EQ(folded_id(" 00hs 1"), "HS1");
  EXPECT_NE(folded_id("1-23"), folded_id("12-3"));
  EXPECT_EQ(folded_id("000"), "");
}

}  // namespace
}  // namespace pedigreewatch::test
