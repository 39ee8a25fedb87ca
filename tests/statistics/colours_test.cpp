#include "statistics/colours.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// A column for each listed colour and one for the rest; the one place where these tests call the operation.
Counts colours_of(std::string_view numbered, std::initializer_list<std::string_view> listed) {
  const Colours colours = names_of<Colours>(listed);
  const PopulationStore store = numbered_store(numbered, {.colours = colours});
  YearTable<std::int32_t> counts(1, colours.count() + 1);
  colour_statistics(store, all_positions(store), colours, 1, counts);
  return row_of(counts, 1);
}

TEST(ColourStatistics, TheLastColumnGathersTheRest) {
  EXPECT_EQ(colours_of("colour=red\ncolour=black\ncolour=red\ncolour=Red\n.\n", {"red", "black", "Onbekend"}),
            (Counts{2, 1, 0, 2}));
}

TEST(ColourStatistics, UnknownCountsOnlyAnimalsWhoseColourSaysSo) {
  EXPECT_EQ(colours_of("colour=Onbekend\n.\n.\n", {"red", "Onbekend"}), (Counts{0, 1, 2}));
}

TEST(ColourStatistics, AColourListedTwiceCountsTwice) {
  // The last column loses both: 3 - (2 + 2 + 1).
  EXPECT_EQ(colours_of("colour=red\ncolour=red\ncolour=blue\n", {"red", "blue", "red"}), (Counts{2, 1, 2, -2}));
}

TEST(ColourStatistics, ABlankListedColourCountsAnimalsWithoutColour) {
  EXPECT_EQ(colours_of("colour=red\n.\n", {"", "red"}), (Counts{1, 1, 0}));
}

TEST(ColourStatistics, WithoutListedColoursTheOnlyColumnHoldsAll) {
  EXPECT_EQ(colours_of("colour=red\n.\n", {}), (Counts{2}));
}

TEST(ColourStatistics, ATableOfOneColumnHasNoRoomForAnyColour) {
  const Colours colours = names_of<Colours>({"red", "Onbekend"});
  const PopulationStore store = numbered_store("colour=red\n.\n", {.colours = colours});
  YearTable<std::int32_t> counts(1, 1);
  colour_statistics(store, all_positions(store), colours, 1, counts);
  EXPECT_EQ(row_of(counts, 1), (Counts{2}));
}

TEST(ColourStatistics, AYearWithoutAnimalsTakesNoMemory) {
  YearTable<std::int32_t> counts(1, 3);
  colour_statistics(numbered_store(""), {}, names_of<Colours>({"red", "blue"}), 1, counts);
  EXPECT_FALSE(counts.is_stored(1));
}

}  // namespace
}  // namespace pedigreewatch::test
