// Near identifications, found by hashes, against the plain comparison of all pairs.
#include "checks/near_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
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
  animals.animal_of = ByNumber<std::int32_t>(animals.ids.count());
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

TEST(LooseId, LeavesOutWhatOfficesWriteDifferently) {
  for (const auto& [id, loose] : std::vector<std::pair<std::string, std::string>>{{"hs-00012", "HS12"},
                                                                                  {"DE 09 123", "DE9123"},
                                                                                  {"HSO0O12", "HS12"},
                                                                                  {"HS-1l2", "HS112"},
                                                                                  {"HS100", "HS100"},
                                                                                  {"12/B/0012", "12B12"},
                                                                                  {"0", "0"},
                                                                                  {"000", "0"},
                                                                                  {"HS\xA0"
                                                                                   "1",
                                                                                   "HS1"},
                                                                                  {"Olga", "OLGA"}}) {
    EXPECT_EQ(loose_id(id), loose) << id;
  }
  EXPECT_NE(loose_id("HS120"), loose_id("HS12"));
}

TEST(SlipBetween, TellsTheSlipsApart) {
  struct Case {
    std::string written, meant;
    Slip slip;
  };
  for (const Case& each : std::vector<Case>{{"HS12", "HS12", Slip::format},
                                            {"11900", "NL11900", Slip::prefix},
                                            {"NL11900", "11900", Slip::prefix},
                                            {"97589", "52800097589", Slip::beginning},
                                            {"HS21", "HS12", Slip::exchange},
                                            {"HS112", "HS12", Slip::doubled},
                                            {"HS12", "HS122", Slip::last_lacking},
                                            {"HS13", "HS123", Slip::lacking},
                                            {"HS1923", "HS123", Slip::too_many},
                                            {"HB12", "H812", Slip::look_alike},
                                            {"HS13", "HS12", Slip::digit},
                                            {"HS12", "HX12", Slip::letter},
                                            {"HS1342", "HS1221", Slip::none},
                                            {"HS1234", "HX1235", Slip::two},
                                            {"1", "2", Slip::none},
                                            {"AB", "AC", Slip::letter},
                                            {"123", "NL123", Slip::prefix},
                                            {"12", "NL12", Slip::two},
                                            {"7589", "528007589", Slip::beginning},
                                            {"589", "52800589", Slip::none},
                                            {"7589", "528001237589", Slip::beginning},
                                            {"7589", "5280012347589", Slip::none}}) {
    EXPECT_EQ(slip_between(each.written, each.meant), each.slip) << each.written << " " << each.meant;
  }
}

TEST(SlipBetween, TellsWhichSignsLookAlike) {
  const std::string signs = "ABCDEFGHJKMNPQRSTUVWXYZ0123456789";  // capitals, without those that are read as digits
  std::set<std::pair<char, char>> alike;
  for (const char a : signs) {
    for (const char b : signs) {
      const std::string written = std::string("77") + a + "77", meant = std::string("77") + b + "77";
      if (a < b && slip_between(written, meant) == Slip::look_alike) alike.insert({a, b});
    }
  }
  const std::set<std::pair<char, char>> expected = {{'5', 'S'}, {'8', 'B'}, {'2', 'Z'}, {'6', 'G'},
                                                    {'0', 'D'}, {'0', 'Q'}, {'D', 'Q'}, {'U', 'V'}};
  EXPECT_EQ(alike, expected);
}

// Zeros in front may be written or not; where another digit is wrong they are digits like all others.
TEST(SlipOfIds, ZerosInFrontCountBesideAnotherSlip) {
  EXPECT_EQ(slip_of_ids("HS-117", "HS-00117"), Slip::format);
  EXPECT_EQ(slip_of_ids("DE0910400074", "DE 09 104 00074"), Slip::format);
  EXPECT_EQ(slip_of_ids("00087", "HS-00087"), Slip::prefix);
  EXPECT_EQ(slip_of_ids("87", "HS-00087"), Slip::prefix);
  EXPECT_EQ(slip_of_ids("HS-70117", "HS-00117"), Slip::digit);
  EXPECT_EQ(slip_of_ids("200602", "00602"), Slip::too_many);
  EXPECT_EQ(slip_of_ids("14040", "00040"), Slip::two);
}

TEST(ChanceOf, AnExchangeIsLikelierThanAnotherDigit) {
  EXPECT_GT(chance_of(Slip::format, 8), chance_of(Slip::exchange, 8));
  EXPECT_GT(chance_of(Slip::exchange, 8), chance_of(Slip::digit, 8));
  EXPECT_GT(chance_of(Slip::digit, 8), chance_of(Slip::two, 8));
  EXPECT_EQ(chance_of(Slip::none, 8), 0);
}

// Of a text of eight letters or digits: one of them goes wrong in one of eight places, or between seven neighbours.
TEST(ChanceOf, SharesASlipAmongPlacesAndLetters) {
  EXPECT_DOUBLE_EQ(chance_of(Slip::format, 8), 0.3);
  EXPECT_DOUBLE_EQ(chance_of(Slip::prefix, 8), 0.1);
  EXPECT_DOUBLE_EQ(chance_of(Slip::beginning, 8), 0.02);
  EXPECT_DOUBLE_EQ(chance_of(Slip::exchange, 8), 0.2 / 7);
  EXPECT_DOUBLE_EQ(chance_of(Slip::doubled, 8), 0.1 / 8);
  EXPECT_DOUBLE_EQ(chance_of(Slip::last_lacking, 8), 0.05 + 0.15 / 8);
  EXPECT_DOUBLE_EQ(chance_of(Slip::lacking, 8), 0.15 / 8);
  EXPECT_DOUBLE_EQ(chance_of(Slip::too_many, 8), 0.1 / (8 * 9));
  EXPECT_DOUBLE_EQ(chance_of(Slip::look_alike, 8), 0.1 / 8);
  EXPECT_DOUBLE_EQ(chance_of(Slip::digit, 8), 0.2 / (8 * 9));
  EXPECT_DOUBLE_EQ(chance_of(Slip::letter, 8), 0.1 / (8 * 35));
  EXPECT_DOUBLE_EQ(chance_of(Slip::two, 8), 0.1 / (72 * 72));
}

// There is one place between two letters, and a shorter text is taken as one of two.
TEST(ChanceOf, ATextHasTwoPlacesAtLeast) {
  EXPECT_DOUBLE_EQ(chance_of(Slip::exchange, 1), 0.2);
  EXPECT_DOUBLE_EQ(chance_of(Slip::exchange, 2), 0.2);
  EXPECT_DOUBLE_EQ(chance_of(Slip::digit, 1), 0.2 / (2 * 9));
  EXPECT_DOUBLE_EQ(chance_of(Slip::digit, 2), 0.2 / (2 * 9));
}

/// How far texts are apart as their slip tells; nothing for those that are told by another rule.
std::size_t distance_told(const std::string& a, const std::string& b) {
  const Slip slip = slip_between(a, b);
  return slip == Slip::format ? 0 : slip == Slip::two ? 2 : slip == Slip::none ? 3 : 1;
}

TEST(SlipBetween, AgreesWithTheTableOfAllBeginnings) {
  std::mt19937 random(13);
  const std::vector<std::string> names = random_names(random, 120);
  for (const std::string& a : names) {
    for (const std::string& b : names) {
      const Slip slip = slip_between(a, b);
      if (a.size() < 3 || b.size() < 3 || slip == Slip::prefix || slip == Slip::beginning) continue;
      EXPECT_EQ(distance_told(a, b), std::min<std::size_t>(distance_of(a, b), 3)) << a << " " << b;
    }
  }
}

TEST(FindNearAnimals, FindsWhatTheComparisonOfAllPairsFinds) {
  std::mt19937 random(11);
  for (int round = 0; round < 30; ++round) {
    const PedigreeColumns animals = animals_named(random_names(random, 12), random_names(random, 12));
    const std::vector<std::int32_t> wanted = ids_without_animal(animals);
    const auto found = find_near_animals(animals, wanted);
    for (std::size_t k = 0; k < wanted.size(); ++k) {
      const std::string text = compact_id(animals.ids.at(wanted[k]));
      std::set<std::int32_t> near;
      for (const NearAnimal& each : found[k]) near.insert(each.animal);
      for (std::int32_t other = 1; other <= animals.ids.count(); ++other) {
        const std::int32_t animal = animals.animal_of[other];
        const Slip slip = animal == 0 ? Slip::none : slip_of_ids(animals.ids.at(wanted[k]), animals.ids.at(other));
        // Two slips are sought in longer texts only.
        const bool is_near = slip != Slip::none && (slip != Slip::two || text.size() >= 5);
        if (animal != 0 && (slip != Slip::two || text.size() >= 5)) {
          EXPECT_EQ(near.count(animal) == 1, is_near) << text << " " << animals.ids.at(other);
        }
      }
    }
  }
}

/// So many identifications that all become the one animal's without a letter.
std::size_t found_of_many(std::size_t count) {
  const std::string id = "ABCDEFGHKM";
  std::vector<std::string> parents;
  for (std::size_t place = 0; place <= id.size(); ++place) {
    for (char letter = 'A'; letter <= 'Z' && parents.size() < count; ++letter) {
      const std::string parent = std::string(id).insert(place, 1, letter);
      if (std::ranges::find(parents, parent) == parents.end()) parents.push_back(parent);
    }
    for (char letter = '2'; letter <= '9' && parents.size() < count; ++letter) {
      parents.push_back(std::string(id).insert(place, 1, letter));
    }
  }
  EXPECT_EQ(parents.size(), count);
  const PedigreeColumns animals = animals_named({id}, parents);
  const auto found = find_near_animals(animals, ids_without_animal(animals));
  return static_cast<std::size_t>(std::ranges::count_if(found, [](const auto& near) { return !near.empty(); }));
}

TEST(FindNearAnimals, LooksAtThreeHundredIdsWithOneLetterInCommonPlace) {
  EXPECT_EQ(found_of_many(300), 300U);
  EXPECT_EQ(found_of_many(301), 300U);
}

/// How many of the identifications without an animal are near one of the animals.
std::ptrdiff_t count_found(const std::vector<std::string>& names, const std::vector<std::string>& parents) {
  const PedigreeColumns animals = animals_named(names, parents);
  const auto found = find_near_animals(animals, ids_without_animal(animals), 0);
  return std::ranges::count_if(found, [](const auto& near) { return !near.empty(); });
}

// What an animal's identification begins with is lacking: looked for at the ends of texts that are no longer.
TEST(FindNearAnimals, EndsHaveAtMostSixtyFourLetters) {
  const std::string letters = "ABCDEFGHJKMNPQRSTVWX";  // that stand for no digit
  const auto name = [&](std::size_t length) {
    std::string text;
    while (text.size() < length) text += letters[text.size() * 7 % letters.size()];
    return text;
  };
  EXPECT_EQ(count_found({"XY" + name(62)}, {name(62)}), 1);
  EXPECT_EQ(count_found({name(64)}, {name(64).substr(2)}), 1);
  EXPECT_EQ(count_found({name(65)}, {name(65).substr(2)}), 0);
}

// A text with its first letter left out is found as well, so that lengths two apart are told apart.
TEST(FindNearAnimals, EndsHaveAtMostEightLengths) {
  const std::string name = "ABCDEFGHJKMNPQRSTVWXYZABDFHKNQ";
  const auto found = [&](std::size_t lengths) {
    std::vector<std::string> names, parents;
    for (std::size_t k = 0; k < lengths; ++k) {
      std::string text = name.substr(0, 10 + 2 * k);
      std::rotate(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(k), text.end());
      names.push_back("XY" + text);
      parents.push_back(text);
    }
    return count_found(names, parents);
  };
  EXPECT_EQ(found(8), 8);
  EXPECT_EQ(found(9), 8);
}

/// How many of so many identifications without an animal are near one of the animals, as far as they are compared.
std::ptrdiff_t count_compared(const std::vector<std::string>& names, const std::vector<std::string>& parents) {
  const PedigreeColumns animals = animals_named(names, parents);
  const auto found = find_near_animals(animals, ids_without_animal(animals));
  return std::ranges::count_if(found, [](const auto& near) { return !near.empty(); });
}

TEST(FindNearAnimals, TwoSlipsAreSoughtInFiveLettersAndMore) {
  EXPECT_EQ(count_compared({"ABCDE"}, {"ABCXY"}), 1) << "four letters of them changed";
  EXPECT_EQ(count_compared({"ABCD"}, {"ABXY"}), 0);
}

// Of a thousand parents one is two letters from an animal.
TEST(FindNearAnimals, TwoSlipsAreSoughtAmongThreeMillionPairs) {
  const auto found = [](std::size_t count) {
    std::vector<std::string> names, parents;
    for (std::size_t k = 0; k < count; ++k) names.push_back("CDFGH" + std::to_string(20'000 + k));
    for (std::size_t k = 1; k < 1000; ++k) parents.push_back("KMNPR" + std::to_string(20'000 + k));
    names.back() = "ABEABE";
    parents.push_back("AMEAKE");
    return count_compared(names, parents);
  };
  EXPECT_EQ(found(3000), 1);
  EXPECT_EQ(found(3001), 0);
}

TEST(FindNearAnimals, FourThousandAnimalsAreKeptForEach) {
  const std::string letters = "BCDFGHJKMNPQRSTVWXYZ2346789";  // that are never taken for each other
  const std::string id(160, 'A');
  std::vector<std::string> names;
  for (std::size_t place = 0; names.size() < 4001; ++place) {
    for (const char letter : letters) {
      names.push_back(id);
      names.back()[place] = letter;
    }
  }
  const auto near = [&](std::size_t count) {
    const std::vector<std::string> some(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(count));
    const PedigreeColumns animals = animals_named(some, {id});
    return find_near_animals(animals, ids_without_animal(animals)).at(0).size();
  };
  EXPECT_EQ(near(4000), 4000U);
  EXPECT_EQ(near(4001), 4000U);
}

}  // namespace
}  // namespace pedigreewatch::test
