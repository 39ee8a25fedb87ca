#include "pedigree/pedigree_sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigree_runs.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// A linked and sorted store, and what was printed on the way.
struct SortRun {
  PopulationStore store;
  RunStreams streams;
};

SortRun sort_animals(PopulationStore store, bool english = true) {
  SortRun run{std::move(store), streams_in(english)};
  link_and_sort(run.store, run.streams);
  return run;
}

SortRun sort_text(std::string_view text, bool english = true) {
  return sort_animals(animals_from_text(text), english);
}

std::vector<std::string> ids_of(const PopulationStore& store) {
  std::vector<std::string> ids;
  for (std::int32_t p = 1; p <= store.animal_count; ++p) ids.emplace_back(store.id(p));
  return ids;
}

using Ids = std::vector<std::string>;

// ---- an independent, plain form of the sort ----------------------------------------------------------------------

/// The animals as pairs of parents, by old position from 1 (entry 0 is not used).
struct PlainPedigree {
  std::vector<std::string> ids;
  std::vector<std::int32_t> sires, dams;
};

/// Parents by the first line with their name; no line may be missing.
PlainPedigree plain_pedigree_of(const std::vector<AnimalRecord>& animals) {
  PlainPedigree pedigree;
  const auto find = [&](std::string_view id) -> std::int32_t {
    if (id == "0") return 0;
    for (std::size_t i = 0; i < animals.size(); ++i) {
      if (animals[i].id.trimmed() == id) return static_cast<std::int32_t>(i) + 1;
    }
    ADD_FAILURE() << "no line for " << id;
    return 0;
  };
  pedigree.ids.emplace_back();
  pedigree.sires.push_back(0);
  pedigree.dams.push_back(0);
  for (const AnimalRecord& animal : animals) {
    pedigree.ids.emplace_back(animal.id.trimmed());
    pedigree.sires.push_back(find(animal.sire_id.trimmed()));
    pedigree.dams.push_back(find(animal.dam_id.trimmed()));
  }
  return pedigree;
}

/// What the sweeps should do, done the slow way: the order, the parents after renumbering, and the console's lines.
struct PlainSort {
  std::vector<std::int32_t> order;  ///< old position by new position, both from 1
  std::vector<std::int32_t> sires, dams;
  std::string console;
};

PlainSort sort_plainly(const PlainPedigree& pedigree) {
  const std::size_t n = pedigree.ids.size() - 1;
  std::vector<std::int32_t> remaining(n + 1, 0);
  std::vector<bool> placed(n + 1, false);
  for (std::size_t i = 1; i <= n; ++i) {
    ++remaining[static_cast<std::size_t>(pedigree.sires[i])];
    ++remaining[static_cast<std::size_t>(pedigree.dams[i])];
  }
  PlainSort result;
  result.order.assign(n + 1, 0);
  std::size_t last = n, placed_count = 0;
  for (std::int32_t s = 1; placed_count < n || s == 1; ++s) {
    std::int32_t with = 0, without = 0;
    for (std::size_t i = 1; i <= n; ++i) {
      if (!placed[i]) ++(remaining[i] == 0 ? without : with);
    }
    result.console += " sweep" + number(s) + " number of animals without unsorted offspring" + number(without) + "\n";
    result.console += " sweep" + number(s) + " number of animals with unsorted offspring" + number(with) + "\n";
    if (with > 0) result.console += "\n";
    result.console += " no. sorted" + number(static_cast<std::int64_t>(placed_count)) +
                      " last =" + number(static_cast<std::int64_t>(last)) + "\n";
    for (std::size_t i = n; i >= 1; --i) {
      if (placed[i] || remaining[i] != 0) continue;
      placed[i] = true;
      ++placed_count;
      result.order[last--] = static_cast<std::int32_t>(i);
      --remaining[static_cast<std::size_t>(pedigree.sires[i])];
      --remaining[static_cast<std::size_t>(pedigree.dams[i])];
    }
    result.console +=
        " animals with a maximum of " + number(s - 1) + "\n  generations of offspring placed at end of pedigree\n";
  }
  result.console += " pedigree sorted\n renumber pedigree\n";
  // Renumbering one position after the other, with negative numbers for those that are done.
  std::vector<std::int32_t> numbers = {0};
  result.sires = {0};
  result.dams = {0};
  for (std::size_t p = 1; p <= n; ++p) {
    const auto old = static_cast<std::size_t>(result.order[p]);
    numbers.push_back(result.order[p]);
    result.sires.push_back(pedigree.sires[old]);
    result.dams.push_back(pedigree.dams[old]);
  }
  for (std::size_t p = 1; p < n; ++p) {
    const std::int32_t new_number = static_cast<std::int32_t>(p);
    if (numbers[p] == new_number) continue;
    for (std::int32_t& sire : result.sires) {
      if (sire == numbers[p]) sire = -new_number;
    }
    for (std::int32_t& dam : result.dams) {
      if (dam == numbers[p]) dam = -new_number;
    }
    numbers[p] = new_number;
  }
  for (std::int32_t& sire : result.sires) sire = std::abs(sire);
  for (std::int32_t& dam : result.dams) dam = std::abs(dam);
  return result;
}

/// Lines of a random pedigree, in an order that has nothing to do with the generations.
std::string shuffled_pedigree(std::uint64_t seed, std::int32_t count) {
  RandomNumbers random{seed};
  std::vector<std::string> lines;
  for (std::int32_t i = 1; i <= count; ++i) {
    const auto draw = [&]() -> std::string {
      if (i < 4 || random.below(8) == 0) return "0";
      return "a" + std::to_string(std::max(1, i - 30) + random.below(std::min(i - 1, 30)));
    };
    const std::string sire = draw();
    const std::string dam = random.below(20) == 0 ? sire : draw();
    lines.push_back("a" + std::to_string(i) + " " + sire + " " + dam + " m 2000\n");
  }
  for (std::size_t i = lines.size() - 1; i > 0; --i) {
    std::swap(lines[i], lines[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(i) + 1))]);
  }
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

TEST(SortPedigree, AgreesWithThePlainSortOnShuffledPedigrees) {
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    const std::int32_t count = static_cast<std::int32_t>(seed) * 97 / 60 + 3;  // too few for progress lines
    const std::vector<AnimalRecord> animals = records_from_text(shuffled_pedigree(seed, count));
    const PlainPedigree plain = plain_pedigree_of(animals);
    const PlainSort expected = sort_plainly(plain);
    const SortRun run = sort_animals(store_of(animals));
    SCOPED_TRACE("seed " + std::to_string(seed));
    EXPECT_EQ(run.streams.console.pending, expected.console);
    ASSERT_EQ(run.store.animal_count, count);
    for (std::int32_t p = 1; p <= count; ++p) {
      const auto place = static_cast<std::size_t>(p);
      const AnimalRecord& animal = run.store.at(p);
      EXPECT_EQ(animal.id, plain.ids[static_cast<std::size_t>(expected.order[place])]);
      EXPECT_EQ(animal.number, p);
      EXPECT_EQ(animal.sire_no, expected.sires[place]);
      EXPECT_EQ(animal.dam_no, expected.dams[place]);
    }
  }
}

TEST(SortPedigree, ParentsStandBeforeTheirOffspringInLargeShuffledPedigrees) {
  for (std::uint64_t seed = 101; seed <= 105; ++seed) {
    const std::string text = shuffled_pedigree(seed, 3000);
    const std::vector<AnimalRecord> lines = records_from_text(text);
    const PopulationStore store = pedigree_from_text(text);
    for (std::int32_t p = 1; p <= store.animal_count; ++p) {
      const AnimalRecord& animal = store.at(p);
      EXPECT_EQ(animal.number, p);
      EXPECT_LT(animal.sire_no, p);
      EXPECT_LT(animal.dam_no, p);
      const AnimalRecord& line = lines.at(static_cast<std::size_t>(animal.line) - 1);
      EXPECT_TRUE(animal.id == line.id);
      EXPECT_TRUE(animal.sire_id == line.sire_id);
      EXPECT_TRUE(animal.dam_id == line.dam_id);
    }
  }
}

// ---- the sweeps --------------------------------------------------------------------------------------------------

TEST(SortPedigree, SortedFileIsDoneInOneSweepAndKeepsItsOrder) {
  const SortRun run = sort_text(
      "rex  0   0    m 2000\n"
      "saar 0   0    f 2000\n"
      "puck rex saar m 2003\n"
      "tess rex saar f 2003\n");
  EXPECT_EQ(ids_of(run.store), (Ids{"rex", "saar", "puck", "tess"}));
  EXPECT_EQ(run.streams.console.pending,
            " sweep           1 number of animals without unsorted offspring           2\n"
            " sweep           1 number of animals with unsorted offspring           2\n"
            "\n"
            " no. sorted           0 last =           4\n"
            " animals with a maximum of            0\n"
            "  generations of offspring placed at end of pedigree\n"
            " pedigree sorted\n"
            " renumber pedigree\n");
}

TEST(SortPedigree, AppendedParentIsPlacedInTheSecondSweepInEnglish) {
  const SortRun run = sort_text(
      "a rex 0 m 2000\n"
      "b 0   0 m 2000\n"
      "c rex 0 m 2000\n");
  EXPECT_EQ(ids_of(run.store), (Ids{"rex", "a", "b", "c"}));
  EXPECT_EQ(run.store.at(2).sire_no, 1);
  EXPECT_EQ(run.store.at(4).sire_no, 1);
  EXPECT_EQ(run.streams.console.pending,
            " sweep           1 number of animals without unsorted offspring           3\n"
            " sweep           1 number of animals with unsorted offspring           1\n"
            "\n"
            " no. sorted           0 last =           4\n"
            " animals with a maximum of            0\n"
            "  generations of offspring placed at end of pedigree\n"
            " sweep           2 number of animals without unsorted offspring           1\n"
            " sweep           2 number of animals with unsorted offspring           0\n"
            " no. sorted           3 last =           1\n"
            " animals with a maximum of            1\n"
            "  generations of offspring placed at end of pedigree\n"
            " pedigree sorted\n"
            " renumber pedigree\n");
}

TEST(SortPedigree, PrintsItsSweepsInDutch) {
  const SortRun run = sort_text("a rex 0 m 2000\n", false);
  EXPECT_EQ(run.streams.console.pending,
            " ronde           1 aantal dieren zonder ongesorteerde nakomelingen           1\n"
            " ronde           1 aantal dieren met ongesorteerde nakomelingen           1\n"
            "\n"
            " no. sorted           0 last =           2\n"
            " dieren met maximaal            0\n"
            "  generaties nakomelingen achteraan pedigree geplaatst\n"
            " ronde           2 aantal dieren zonder ongesorteerde nakomelingen           1\n"
            " ronde           2 aantal dieren met ongesorteerde nakomelingen           0\n"
            " no. sorted           1 last =           1\n"
            " dieren met maximaal            1\n"
            "  generaties nakomelingen achteraan pedigree geplaatst\n"
            " pedigree sorted\n"
            " renumber pedigree\n");
}

TEST(SortPedigree, EmptyStoreIsSorted) {
  const SortRun run = sort_animals(PopulationStore());
  EXPECT_EQ(run.store.animal_count, 0);
  EXPECT_EQ(run.streams.console.pending,
            " sweep           1 number of animals without unsorted offspring           0\n"
            " sweep           1 number of animals with unsorted offspring           0\n"
            " no. sorted           0 last =           0\n"
            " animals with a maximum of            0\n"
            "  generations of offspring placed at end of pedigree\n"
            " pedigree sorted\n"
            " renumber pedigree\n");
}

TEST(SortPedigree, LaterSweepsStandBeforeEarlierOnesEachInStoreOrder) {
  const SortRun run = sort_text(
      "x   0   0 m 2000\n"    // sweep 1
      "kid pa  0 m 2000\n"    // sweep 1
      "pa  opa 0 m 2000\n"    // sweep 2
      "y   0   0 m 2000\n"    // sweep 1
      "opa 0   0 m 2000\n"    // sweep 3
      "tot pa2 0 m 2000\n"    // sweep 1
      "pa2 0   0 m 2000\n");  // sweep 2
  EXPECT_EQ(ids_of(run.store), (Ids{"opa", "pa", "pa2", "x", "kid", "y", "tot"}));
}

TEST(SortPedigree, AllFieldsMoveWithTheirAnimal) {
  const SortRun run =
      sort_animals(animals_from_text("kid pa ma f 2007 smooth import\n"
                                     "ma  0  0  f 2001 rough\n"
                                     "pa  0  0  m 2003 rough import\n",
                                     {.subpopulations = names_of<Subpopulations>({"rough", "smooth"})}));
  EXPECT_EQ(ids_of(run.store), (Ids{"ma", "pa", "kid"}));
  EXPECT_EQ(run.store.at(2).birth_year, 2003);
  EXPECT_TRUE(run.store.at(2).is_import);
  EXPECT_EQ(run.store.at(2).sex, male);
  EXPECT_TRUE(run.store.at(2).is_parent);
  EXPECT_EQ(run.store.at(2).native_offspring_count, 0);
  EXPECT_FALSE(run.store.at(3).is_parent);
  EXPECT_EQ(run.store.at(3).subpopulation, "smooth");
  EXPECT_EQ(run.store.at(3).sex, female);
  EXPECT_EQ(run.store.at(3).sire_no, 2);
  EXPECT_EQ(run.store.at(3).dam_no, 1);
}

// ---- many generations --------------------------------------------------------------------------------------------

/// A line of descent a1, a2, ... in reverse order: every animal stands before its father.
std::string reversed_line_of_descent(std::int32_t count) {
  std::string text;
  for (std::int32_t i = count; i >= 1; --i) {
    text += "a" + std::to_string(i) + (i > 1 ? " a" + std::to_string(i - 1) : " 0") + " 0 m 2000\n";
  }
  return text;
}

TEST(SortPedigree, ReversedFileTakesOneSweepForEachGeneration) {
  const SortRun run = sort_text(reversed_line_of_descent(1000));
  for (std::int32_t p = 1; p <= 1000; ++p) EXPECT_EQ(run.store.at(p).id, "a" + std::to_string(p));
  EXPECT_NE(run.streams.console.pending.find(" sweep        1000 number"), std::string::npos);
  EXPECT_NE(run.streams.console.pending.find(" pedigree sorted\n"), std::string::npos);
}

TEST(SortPedigree, SortEndsWithoutAMessageAfterSweep1000) {
  const SortRun run = sort_text(reversed_line_of_descent(1003));
  const std::string& console = run.streams.console.pending;
  EXPECT_EQ(console.find(" sweep        1001"), std::string::npos);
  EXPECT_EQ(console.find("pedigree sorted"), std::string::npos);
  EXPECT_NE(console.find(" no. sorted         999 last =           4\n"
                         " animals with a maximum of          999\n"
                         "  generations of offspring placed at end of pedigree\n"
                         " renumber pedigree\n"),
            std::string::npos);
  // The three that are left stand at the front in the order of the file.
  EXPECT_EQ(run.store.at(1).id, "a3");
  EXPECT_EQ(run.store.at(2).id, "a2");
  EXPECT_EQ(run.store.at(3).id, "a1");
  for (std::int32_t p = 4; p <= 1003; ++p) EXPECT_EQ(run.store.at(p).id, "a" + std::to_string(p));
  for (std::int32_t p = 1; p <= 1003; ++p) {
    const std::int32_t number = std::stoi(std::string(run.store.id(p)).substr(1));
    EXPECT_EQ(run.store.at(p).sire_id, number > 1 ? "a" + std::to_string(number - 1) : "0");
  }
}

TEST(SortPedigree, LineOfDescentInOrderTakesOneSweepHoweverLong) {
  std::string text = "a1 0 0 m 2000\n";
  for (std::int32_t i = 2; i <= 20000; ++i) {
    text += "a" + std::to_string(i) + " a" + std::to_string(i - 1) + " 0 m 2000\n";
  }
  const SortRun run = sort_text(text);
  EXPECT_EQ(run.streams.console.pending.find("sweep           2"), std::string::npos);
  EXPECT_EQ(run.store.at(20000).sire_no, 19999);
}

// ---- parents born after their offspring --------------------------------------------------------------------------

PopulationStore child_before_parent(bool is_mother) {
  std::vector<AnimalRecord> records =
      records_from_text(is_mother ? "pa 0 0 f 2003\nkid 0 pa m 2001\n" : "pa 0 0 m 2003\nkid pa 0 m 2001\n");
  records[0].name.assign("The parent");
  records[0].birth_day = 31;
  records[0].birth_month = 12;
  records[1].name.assign("The child");
  records[1].birth_day = 2;
  records[1].birth_month = 3;
  return store_of(records);
}

/// The lines of the birth-year test, without those of the sweep around them.
std::string birth_order_console(const SortRun& run) {
  const std::string& console = run.streams.console.pending;
  const std::string before = "no. sorted           0 last =           2\n";
  const std::size_t start = console.find(before) + before.size();
  const std::size_t end = std::min(console.find(" animals with a maximum"), console.find(" dieren met maximaal"));
  return console.substr(start, end - start);
}

TEST(BirthYearTest, FatherInEnglish) {
  const SortRun run = sort_animals(child_before_parent(false));
  const std::string child = " animal " + padded("The child", 50) + "\n herdbook number " + padded("kid", 30) +
                            "\n date of birth            2 /           3 /        2001\n";
  const std::string father = " !!!!!!!!!! BORN BEFORE FATHER  !!!!!!!!!!\n father " + padded("The parent", 50) +
                             "\n herdbook number " + padded("pa", 30) + "\n";
  // The console has the Dutch word in the parent's date.
  EXPECT_EQ(birth_order_console(run),
            child + father + " geboortedatum           31 /          12 /        2003\n    \n");
  EXPECT_EQ(run.streams.report.pending,
            child + father + " date of birth           31 /          12 /        2003\n    \n");
}

TEST(BirthYearTest, MotherInEnglish) {
  const SortRun run = sort_animals(child_before_parent(true));
  const std::string child = " animal " + padded("The child", 50) + "\n herdbook number " + padded("kid", 30) +
                            "\n date of birth            2 /           3 /        2001\n";
  const std::string mother = " !!!!!!!!!! BORN BEFORE MOTHER  !!!!!!!!!!\n mother " + padded("The parent", 50) +
                             "\n herdbook number " + padded("pa", 30) + "\n";
  EXPECT_EQ(birth_order_console(run),
            child + mother + " geboortedatum           31 /          12 /        2003\n    \n");
  EXPECT_EQ(run.streams.report.pending,
            child + mother + " date of birth           31 /          12 /        2003\n    \n");
}

TEST(BirthYearTest, FatherAndMotherInDutch) {
  for (const bool is_mother : {false, true}) {
    const SortRun run = sort_animals(child_before_parent(is_mother), false);
    const std::string expected = " dier " + padded("The child", 50) + "\n stamboeknummer " + padded("kid", 30) +
                                 "\n geboortedatum            2 /           3 /        2001\n" +
                                 (is_mother ? " !!!!!!!!!! GEBOREN VOOR MOEDER  !!!!!!!!!!\n moeder "
                                            : " !!!!!!!!!! GEBOREN VOOR VADER  !!!!!!!!!!\n vader ") +
                                 padded("The parent", 50) + "\n stamboeknummer " + padded("pa", 30) +
                                 "\n geboortedatum           31 /          12 /        2003\n    \n";
    EXPECT_EQ(birth_order_console(run), expected);
    EXPECT_EQ(run.streams.report.pending, expected);
  }
}

TEST(BirthYearTest, SameYearIsNoError) {
  std::vector<AnimalRecord> records = records_from_text("pa 0 0 m 2003\nkid pa 0 m 2003\n");
  records[0].birth_month = 6;
  records[1].birth_month = 5;
  EXPECT_EQ(sort_animals(store_of(records)).streams.report.pending, "");
}

TEST(BirthYearTest, UnknownYearIsNoError) {
  EXPECT_EQ(sort_text("pa 0 0 m 2003\nkid pa 0 m 0\n").streams.report.pending, "");
  EXPECT_EQ(sort_text("pa 0 0 m 0\nkid pa 0 m 2003\n").streams.report.pending, "");
}

TEST(BirthYearTest, FatherComesBeforeMotherAndAnimalsFromTheBackOfTheStore) {
  const SortRun run = sort_text(
      "pa 0  0  m 2003\n"
      "ma 0  0  f 2003\n"
      "a  pa ma m 2001\n"
      "b  pa ma m 2002\n");
  std::vector<std::string> told;
  for (const std::string& line : lines_of(run.streams.report)) {
    if (line.starts_with(" animal ")) told.push_back(line.substr(8, 1));
    if (line.starts_with(" !!!!!!!!!! BORN BEFORE ")) told.push_back(line.substr(24, 6));
  }
  EXPECT_EQ(told, (Ids{"b", "FATHER", "b", "MOTHER", "a", "FATHER", "a", "MOTHER"}));
  EXPECT_EQ(run.store.at(3).birth_year, 2001);  // the data stay as they are
}

// ---- progress of renumbering -------------------------------------------------------------------------------------

std::vector<std::string> renumber_lines(std::int32_t count, bool english = true) {
  std::string text;
  for (std::int32_t i = 1; i <= count; ++i) text += "a" + std::to_string(i) + " 0 0 m 2000\n";
  const SortRun run = sort_text(text, english);
  const std::vector<std::string> lines = lines_of(run.streams.console);
  const auto start = std::find(lines.begin(), lines.end(), " renumber pedigree");
  EXPECT_NE(start, lines.end());
  return {start + 1, lines.end()};
}

TEST(Renumbering, LastAnimalIsLeftOutOfTheProgress) {
  EXPECT_EQ(renumber_lines(101), Ids{});
  EXPECT_EQ(renumber_lines(102), (Ids{" up to animal no.          100 renumberd incl. reference to parents"}));
  EXPECT_EQ(renumber_lines(202, false),
            (Ids{" tot en met dier nr.          100 omgenummerd incl. verwijzing naar ouders",
                 " tot en met dier nr.          200 omgenummerd incl. verwijzing naar ouders"}));
}

TEST(Renumbering, IntervalGrowsWithThePopulation) {
  EXPECT_EQ(renumber_lines(10000).size(), 99U);
  EXPECT_EQ(renumber_lines(10001).size(), 19U);  // 500 to 9500
  EXPECT_EQ(renumber_lines(10002).size(), 20U);
  EXPECT_EQ(renumber_lines(25000).size(), 49U);
  EXPECT_EQ(renumber_lines(25002).size(), 25U);
  EXPECT_EQ(renumber_lines(25002).front(), " up to animal no.         1000 renumberd incl. reference to parents");
}

}  // namespace
}  // namespace pedigreewatch::test
