#include "pedigree/pedigree_loop.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/pedigree_runs.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// What a run prints that ends at a loop: the console from the loop report on, and the report.
struct LoopRun {
  std::string console, report;
  bool has_stopped = false;
};

LoopRun run_into_loop(PopulationStore store, bool english) {
  LoopRun run;
  RunStreams streams = streams_in(english);
  run.has_stopped = stops([&] { link_and_sort(store, streams); });
  const std::size_t start =
      streams.console.pending.find(english ? " probably a loop" : " waarschijnlijk een kringverwijzing");
  if (start != std::string::npos) run.console = streams.console.pending.substr(start);
  run.report = streams.report.pending;
  EXPECT_EQ(streams.messages.pending, "");
  return run;
}

LoopRun run_into_loop(std::string_view text, bool english) {
  return run_into_loop(animals_from_text(text), english);
}

/// The numbers of the animals that have a block of their own.
std::vector<std::int32_t> shown_animals(const LoopRun& run) {
  std::vector<std::int32_t> numbers;
  for (const std::string& line : lines_of(run.report)) {
    if (line.starts_with(" animal no.")) numbers.push_back(std::stoi(line.substr(11)));
  }
  return numbers;
}

using Numbers = std::vector<std::int32_t>;

std::string in_english(std::string_view label, std::int32_t animal_no, std::string_view id) {
  return std::string(label) + number(animal_no) + " herdbook number " + padded(id, 30) + "\n";
}

std::string in_dutch(std::string_view label, std::int32_t animal_no, std::string_view id) {
  return std::string(label) + number(animal_no) + " stamboeknummer " + padded(id, 30);
}

// Two dogs that are each other's father, each with a mother of which nothing else is known.
constexpr std::string_view two_fathers =
    "bas  rex saar m 2003\n"
    "rex  bas tess m 0\n"
    "saar 0   0    f 2001\n"
    "tess 0   0    f 0\n";

PopulationStore two_fathers_with_dates() {
  std::vector<AnimalRecord> records = records_from_text(two_fathers);
  records[0].name.assign("Bas of the Mill");
  records[0].birth_day = 25;
  records[0].birth_month = 4;
  records[2].birth_day = 31;
  records[2].birth_month = 12;
  return store_of(records);
}

TEST(PedigreeLoop, ShowsAnimalsOnTheLoopWithBothParentsInEnglish) {
  const LoopRun run = run_into_loop(two_fathers_with_dates(), true);
  EXPECT_TRUE(run.has_stopped);
  const std::string blocks =
      " Animals of which the pedigree cannot be sorted:\n"
      " name" +
      padded("Bas of the Mill", 50) + "\n" + in_english(" animal no.", 1, "bas") +
      " date of birth           25 /           4 /        2003\n"
      "         with father " +
      padded("rex", 50) + "\n" + in_english("         no.", 2, "rex") +
      " date of birth unknown\n"
      "         and mother " +
      padded("saar", 50) + "\n" + in_english("         no.", 3, "saar") +
      " date of birth           31 /          12 /        2001\n"
      "     \n"
      " name" +
      padded("rex", 50) + "\n" + in_english(" animal no.", 2, "rex") +
      " date of birth unknown\n"
      "         with father " +
      padded("Bas of the Mill", 50) + "\n" + in_english("         no.", 1, "bas") +
      " date of birth           25 /           4 /        2003\n"
      "         and mother " +
      padded("tess", 50) + "\n" + in_english("         no.", 4, "tess") +
      " date of birth unknown\n"
      "     \n";
  EXPECT_EQ(run.console, " probably a loop in the pedigree\n unsnrs" + number(1) + number(2) + number(3) + number(4) +
                             "\n" + blocks + " program will stop\n");
  EXPECT_TRUE(run.report.ends_with(" probably a loop in the pedigree\n" + blocks + " program stopped\n"));
}

TEST(PedigreeLoop, ShowsAnimalsOnTheLoopWithBothParentsInDutch) {
  const LoopRun run = run_into_loop(two_fathers_with_dates(), false);
  EXPECT_TRUE(run.has_stopped);
  // The date does not fit on the line of the number: it begins the next one.
  const std::string blocks =
      " dieren waarvan de stamboom niet gesorteerd kan worden:\n"
      " naam" +
      padded("Bas of the Mill", 50) + "\n" + in_dutch(" dier nr", 1, "bas") +
      "geboren \n"
      "          25 /           4 /        2003\n"
      "         met vader " +
      padded("rex", 50) + "\n" + in_dutch("         nr", 2, "rex") +
      "\n"
      " geboortedatum onbekend\n"
      "         en moeder " +
      padded("saar", 50) + "\n" + in_dutch("         nr", 3, "saar") +
      "geboren \n"
      "          31 /          12 /        2001\n"
      "     \n"
      " naam" +
      padded("rex", 50) + "\n" + in_dutch(" dier nr", 2, "rex") +
      "\n"
      " geboortedatum onbekend\n"
      "         met vader " +
      padded("Bas of the Mill", 50) + "\n" + in_dutch("         nr", 1, "bas") +
      "geboren \n"
      "          25 /           4 /        2003\n"
      "         en moeder " +
      padded("tess", 50) + "\n" + in_dutch("         nr", 4, "tess") +
      "\n"
      " geboortedatum onbekend\n"
      "     \n";
  EXPECT_EQ(run.console, " waarschijnlijk een kringverwijzing in de stamboom\n unsnrs" + number(1) + number(2) +
                             number(3) + number(4) + "\n" + blocks + " programma wordt gestopt\n");
  EXPECT_TRUE(run.report.ends_with(" waarschijnlijk een kringverwijzing in de stamboom\n" + blocks +
                                   " programma is gestopt\n"));
}

TEST(PedigreeLoop, MothersWithoutParentsAreNotListed) {
  EXPECT_EQ(shown_animals(run_into_loop(two_fathers, true)), (Numbers{1, 2}));
}

TEST(PedigreeLoop, OwnFatherIsShownAsItsOwnFatherInEnglish) {
  const LoopRun run = run_into_loop(
      "saar 0   0 f 2001\n"
      "rex  rex 0 m 2003\n",
      true);
  EXPECT_TRUE(run.has_stopped);
  // Nothing stands behind the unknown mother: blanks and 0.
  const std::string printed =
      " Animals of which the pedigree cannot be sorted:\n"
      " name" +
      padded("rex", 50) + "\n" + in_english(" animal no.", 2, "rex") +
      " date of birth            1 /           1 /        2003\n"
      "         with father " +
      padded("rex", 50) + "\n" + in_english("         no.", 2, "rex") +
      " date of birth            1 /           1 /        2003\n"
      "         and mother " +
      padded("", 50) + "\n" + in_english("         no.", 0, "") +
      " date of birth unknown\n"
      "     \n";
  EXPECT_EQ(run.console,
            " probably a loop in the pedigree\n unsnrs" + number(2) + "\n" + printed + " program will stop\n");
  EXPECT_EQ(run.report, " probably a loop in the pedigree\n" + printed + " program stopped\n");
}

TEST(PedigreeLoop, UnknownFatherIsOneLineOnTheDutchConsoleOnly) {
  const LoopRun run = run_into_loop("saar 0 saar f 2001\n", false);
  const std::string animal = " naam" + padded("saar", 50) + "\n" + in_dutch(" dier nr", 1, "saar") +
                             "geboren \n           1 /           1 /        2001\n";
  const std::string mother = "         en moeder " + padded("saar", 50) + "\n" + in_dutch("         nr", 1, "saar") +
                             "geboren \n           1 /           1 /        2001\n";
  EXPECT_EQ(run.console, " waarschijnlijk een kringverwijzing in de stamboom\n unsnrs" + number(1) +
                             "\n dieren waarvan de stamboom niet gesorteerd kan worden:\n" + animal +
                             " father unknown\n" + mother + "     \n programma wordt gestopt\n");
  EXPECT_EQ(run.report,
            " waarschijnlijk een kringverwijzing in de stamboom\n"
            " dieren waarvan de stamboom niet gesorteerd kan worden:\n" +
                animal + mother + "     \n programma is gestopt\n");
}

TEST(PedigreeLoop, UnknownMotherIsOneLineOnTheDutchConsoleOnly) {
  const LoopRun run = run_into_loop("rex rex 0 m 2001\n", false);
  EXPECT_NE(run.console.find("\n mother unknown\n     \n programma wordt gestopt\n"), std::string::npos);
  EXPECT_EQ(run.console.find("en moeder"), std::string::npos);
  EXPECT_EQ(run.report.find("unknown"), std::string::npos);
  EXPECT_EQ(run.report.find("en moeder"), std::string::npos);
}

TEST(PedigreeLoop, UnknownFatherInEnglishIsBlanksAndZero) {
  const LoopRun run = run_into_loop("saar 0 saar f 2001\n", true);
  EXPECT_NE(run.report.find("         with father " + padded("", 50) + "\n" + in_english("         no.", 0, "") +
                            " date of birth unknown\n         and mother " + padded("saar", 50) + "\n"),
            std::string::npos);
}

TEST(PedigreeLoop, LastSweepsStandBeforeTheLoopReport) {
  PopulationStore store = animals_from_text(
      "rex  rex 0 m 2003\n"
      "saar 0   0 f 2001\n");
  RunStreams streams;
  EXPECT_TRUE(stops([&] { link_and_sort(store, streams); }));
  EXPECT_TRUE(streams.console.pending.starts_with(
      " sweep           1 number of animals without unsorted offspring           1\n"
      " sweep           1 number of animals with unsorted offspring           1\n"
      "\n"
      " no. sorted           0 last =           2\n"
      " animals with a maximum of            0\n"
      "  generations of offspring placed at end of pedigree\n"
      " probably a loop in the pedigree\n"));
}

TEST(PedigreeLoop, DescendantsOfALoopArePlacedAndAncestorsAreSettled) {
  const LoopRun run = run_into_loop(
      "kid  a    b   m 2005\n"  // a descendant of the loop: placed
      "a    b    old f 2003\n"
      "b    a    0   m 2003\n"
      "old  anc  0   f 2001\n"  // ancestors of the loop: in the list, settled
      "anc  0    0   f 2000\n"
      "else 0    0   m 2000\n",
      true);
  EXPECT_EQ(lines_of(run.console).at(1), " unsnrs" + number(2) + number(3) + number(4) + number(5));
  EXPECT_EQ(shown_animals(run), (Numbers{2, 3}));
}

TEST(PedigreeLoop, AnimalsBetweenTwoLoopsAreShown) {
  const LoopRun run = run_into_loop(
      "a   a   0 m 2003\n"
      "mid a   0 m 2003\n"
      "b   b   mid m 2003\n",
      true);
  EXPECT_EQ(shown_animals(run), (Numbers{1, 2, 3}));
}

TEST(PedigreeLoop, NumberListWrapsAfterSixNumbers) {
  const LoopRun run = run_into_loop(
      "a1 a2 0 m 2003\na2 a3 0 m 2003\na3 a4 0 m 2003\na4 a5 0 m 2003\na5 a6 0 m 2003\na6 a7 0 m 2003\n"
      "a7 a8 0 m 2003\na8 a9 0 m 2003\na9 b1 0 m 2003\nb1 b2 0 m 2003\nb2 b3 0 m 2003\nb3 b4 0 m 2003\n"
      "b4 a1 0 m 2003\n",
      true);
  const std::vector<std::string> lines = lines_of(run.console);
  EXPECT_EQ(lines.at(1), " unsnrs" + number(1) + number(2) + number(3) + number(4) + number(5) + number(6));
  EXPECT_EQ(lines.at(2), number(7) + number(8) + number(9) + number(10) + number(11) + number(12));
  EXPECT_EQ(lines.at(3), number(13));
}

TEST(PedigreeLoop, NumbersAreThoseOfTheStoreBeforeTheSort) {
  const LoopRun run = run_into_loop(
      "kid rex 0 m 2005\n"
      "pup rex 0 m 2005\n"
      "rex rex 0 m 2003\n",
      true);
  EXPECT_EQ(shown_animals(run), (Numbers{3}));
}

TEST(PedigreeLoop, TenThousandAnimalsInOneLoop) {
  constexpr std::int32_t size = 10000;
  std::string text;
  for (std::int32_t i = 1; i <= size; ++i) {
    text += "a" + std::to_string(i) + " a" + std::to_string(i % size + 1) + " 0 m 2000\n";
  }
  const LoopRun run = run_into_loop(text, true);
  EXPECT_TRUE(run.has_stopped);
  const std::vector<std::string> lines = lines_of(run.console);
  // The first line, 1 + 1666 lines of numbers, one heading, ten lines for each animal, and the last line.
  EXPECT_EQ(lines.size(), 1U + 1667U + 1U + 10U * size + 1U);
  EXPECT_EQ(shown_animals(run).size(), 10000U);
}

TEST(PedigreeLoop, LongLineOfAncestorsOfALoopIsSettled) {
  for (const bool oldest_first : {true, false}) {
    std::string text = "rex rex a10000 m 2003\n";
    for (std::int32_t k = 1; k <= 10000; ++k) {
      const std::int32_t i = oldest_first ? k : 10001 - k;
      text += "a" + std::to_string(i) + (i > 1 ? " a" + std::to_string(i - 1) : " 0") + " 0 m 2000\n";
    }
    EXPECT_EQ(shown_animals(run_into_loop(text, true)), (Numbers{1}));
  }
}

TEST(PedigreeLoop, ShowsExactlyTheAnimalsOnOrBetweenLoopsOfRandomParents) {
  std::size_t loop_count = 0;
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    RandomNumbers random{seed};
    const std::int32_t size = 2 + random.below(28);
    std::vector<std::pair<std::int32_t, std::int32_t>> parents = {{0, 0}};
    std::string text;
    for (std::int32_t i = 1; i <= size; ++i) {
      const auto draw = [&] { return random.below(2) == 0 ? 0 : 1 + random.below(size); };
      parents.emplace_back(draw(), draw());
      const auto id = [](std::int32_t parent) { return parent == 0 ? "0" : "a" + std::to_string(parent); };
      text += id(i) + " " + id(parents.back().first) + " " + id(parents.back().second) + " m 2000\n";
    }
    // Whether one animal has the other among its ancestors.
    const auto n = static_cast<std::size_t>(size);
    std::vector<std::vector<bool>> descends(n + 1, std::vector<bool>(n + 1, false));
    for (std::size_t i = 1; i <= n; ++i) {
      descends[i][static_cast<std::size_t>(parents[i].first)] = true;
      descends[i][static_cast<std::size_t>(parents[i].second)] = true;
    }
    for (std::size_t k = 1; k <= n; ++k) {
      for (std::size_t i = 1; i <= n; ++i) {
        for (std::size_t j = 1; j <= n; ++j) {
          if (descends[i][k] && descends[k][j]) descends[i][j] = true;
        }
      }
    }
    Numbers unplaced, shown;
    for (std::size_t i = 1; i <= n; ++i) {
      bool leads_to_loop = false, comes_from_loop = false;
      for (std::size_t j = 1; j <= n; ++j) {
        if (!descends[j][j]) continue;
        if (j == i || descends[j][i]) leads_to_loop = true;
        if (j == i || descends[i][j]) comes_from_loop = true;
      }
      if (leads_to_loop) unplaced.push_back(static_cast<std::int32_t>(i));
      if (leads_to_loop && comes_from_loop) shown.push_back(static_cast<std::int32_t>(i));
    }
    SCOPED_TRACE("seed " + std::to_string(seed));
    const LoopRun run = run_into_loop(text, true);
    EXPECT_EQ(run.has_stopped, !unplaced.empty());
    EXPECT_EQ(shown_animals(run), shown);
    if (unplaced.empty()) continue;
    ++loop_count;
    std::string list;
    for (const std::int32_t i : unplaced) list += std::to_string(i) + " ";
    const std::size_t start = run.console.find("unsnrs") + 6;
    const std::string printed = run.console.substr(start, run.console.find(" Animals of which") - start);
    std::string words;
    for (const char byte : printed) {
      if (byte >= '0' && byte <= '9') words += byte;
      if ((byte == ' ' || byte == '\n') && !words.empty() && words.back() != ' ') words += ' ';
    }
    EXPECT_EQ(words, list);
  }
  EXPECT_GT(loop_count, 20U);
}

/// A ring of `size` animals, two of which are each other's parents besides.
std::string ring_of(int size) {
  std::string lines;
  for (int k = 1; k <= size; ++k) {
    lines += "a" + std::to_string(k) + " a" + std::to_string(k % size + 1) + (k == 2 ? " a1" : " 0") + " m 2000\n";
  }
  return lines;
}

TEST(PedigreeLoop, OnATerminalALargeOneIsShownByItsShortestChain) {
  for (const int size : {1000, 1001}) {
    RunStreams streams = streams_in(true), terminal = streams_in(true);
    terminal.console.is_terminal = true;
    for (RunStreams* one : {&streams, &terminal}) {
      PopulationStore store = animals_from_text(ring_of(size));
      EXPECT_TRUE(stops([&] { link_and_sort(store, *one); }));
    }
    EXPECT_EQ(terminal.report.pending, streams.report.pending);
    EXPECT_EQ(terminal.console.pending == streams.console.pending, size == 1000);
    if (size == 1000) continue;
    const std::vector<std::string> lines = lines_of(terminal.console);
    EXPECT_LT(lines.size(), 60U);
    EXPECT_EQ(lines[lines.size() - 3], " the shortest chain has this many animals: " + number(2));
    EXPECT_EQ(lines[lines.size() - 2], " so many animals are in the report, all of them: " + number(1001));
    EXPECT_EQ(lines.back(), " program will stop");
  }
}

}  // namespace
}  // namespace pedigreewatch::test
