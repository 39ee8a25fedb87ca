#include "pedigree/subpopulation_scan.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/pedigree_runs.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

/// Row by row.
Numbers counts_of(const SubpopulationOverlap& overlap) {
  Numbers counts;
  for (std::int32_t k = 1; k <= overlap.size; ++k) {
    for (std::int32_t j = 1; j <= overlap.size; ++j) counts.push_back(overlap.at(k, j));
  }
  return counts;
}

struct Scan {
  SubpopulationScan tables;
  std::string console;

  /// The counts of one row, one for each subpopulation.
  Numbers row(Row row_no) const {
    Numbers counts;
    for (std::int64_t k = 1; k <= tables.births.column_count; ++k) counts.push_back(tables.births.value(row_no, k));
    return counts;
  }
};

Subpopulations subpopulations_of(const std::vector<std::string>& names) {
  Subpopulations subpopulations;
  for (const std::string& name : names) subpopulations.add(SubpopulationName(name));
  return subpopulations;
}

/// The store knows the subpopulations of these names already.
Scan scan(const PopulationStore& store, const std::vector<std::string>& names, bool english = true) {
  const Subpopulations subpopulations = subpopulations_of(names);
  TextOutput console = output_in(english);
  SubpopulationScan tables = scan_subpopulations(store, subpopulations, console);
  return {std::move(tables), console.pending};
}

Scan scan(std::string_view text, const std::vector<std::string>& names, bool english = true) {
  return scan(pedigree_from_text(text, {.subpopulations = subpopulations_of(names)}), names, english);
}

std::string error_lines(std::string_view id, std::string_view code, std::string_view reference) {
  // The last character does not fit on the line any more.
  return " ERROR: \n animal: " + padded(id, 50) + " no.: \n " + padded(id, 30) +
         "\n of a different breed. breed code:_" + padded(code, 20) + "_= not equal to -" + padded(reference, 8) +
         "\n _\n";
}

std::string first_code(std::string_view code) {
  return " eerste maal rascode:_" + padded(code, 20) + "_ = niet gelijk aan -" + padded("", 8) + "_\n";
}

// ---- births and descent ------------------------------------------------------------------------------------------

TEST(ScanSubpopulations, CountsBirthsByYear) {
  const Scan result = scan(
      "a 0 0 m 2000 rough\n"
      "b 0 0 m 2000 smooth\n"
      "c 0 0 m 2002 rough\n"
      "d 0 0 m 2002 rough\n"
      "e 0 0 m 2002 -\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.tables.births.row_count(), 3);
  EXPECT_EQ(result.row(1), (Numbers{1, 1}));
  EXPECT_EQ(result.row(2), (Numbers{0, 0}));
  EXPECT_EQ(result.row(3), (Numbers{2, 0}));
}

TEST(ScanSubpopulations, OnlyYearsFromOneOnCount) {
  const Scan result = scan(
      "a 0 0 m -1 rough\n"
      "b 0 0 m 0 rough\n"  // without a year; the range -1 to 1 has a row of that number
      "c 0 0 m 1 rough\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.tables.births.row_count(), 3);
  EXPECT_EQ(result.row(1), (Numbers{0, 0}));
  EXPECT_EQ(result.row(2), (Numbers{0, 0}));
  EXPECT_EQ(result.row(3), (Numbers{1, 0}));
}

TEST(ScanSubpopulations, AnimalWithoutYearCountsInTheOverlapOnly) {
  const Scan result = scan(
      "pa  0  0  m 2000 rough\n"
      "ma  0  0  f 2000 smooth\n"
      "kid pa ma m 0    smooth\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.row(1), (Numbers{1, 1}));
  EXPECT_EQ(counts_of(result.tables.overlap), (Numbers{0, 0, 1, 1}));
}

TEST(ScanSubpopulations, OverlapCountsBothParentsOfAMating) {
  const Scan result = scan(
      "r1 0  0  m 2000 rough\n"
      "r2 0  0  f 2000 rough\n"
      "s1 0  0  m 2000 smooth\n"
      "s2 0  0  f 2000 smooth\n"
      "x1 r1 r2 m 2002 rough\n"    // two from rough
      "x2 s1 r2 m 2002 rough\n"    // one from each
      "x3 s1 s2 m 2002 rough\n"    // two from smooth
      "x4 r1 s2 m 2002 smooth\n",  // one from each
      {"rough", "smooth"});
  EXPECT_EQ(result.tables.overlap.at(1, 1), 3);
  EXPECT_EQ(result.tables.overlap.at(1, 2), 3);
  EXPECT_EQ(result.tables.overlap.at(2, 1), 1);
  EXPECT_EQ(result.tables.overlap.at(2, 2), 1);
  EXPECT_EQ(result.row(3), (Numbers{3, 1}));
}

TEST(ScanSubpopulations, ParentOutsideTheListMakesTheMatingCountForNothing) {
  const Scan result = scan(
      "r1 0  0  m 2000 rough\n"
      "r2 0  0  f 2000 rough\n"
      "n1 0  0  m 2000 -\n"
      "x1 n1 r2 m 2002 rough\n"
      "x2 r1 0  m 2002 rough\n"
      "x3 0  r2 m 2002 rough\n"
      "x4 r1 new m 2002 rough\n"  // an appended mother has no subpopulation
      "x5 r1 r2 m 2002 -\n",
      {"rough", "smooth"});
  EXPECT_EQ(counts_of(result.tables.overlap), (Numbers{0, 0, 0, 0}));
}

TEST(ScanSubpopulations, NameThatStandsTwiceCountsTwice) {
  const Scan result = scan(
      "pa  0  0  m 2000 rough\n"
      "ma  0  0  f 2000 smooth\n"
      "kid pa ma m 2000 rough\n",
      {"rough", "smooth", "rough"});
  EXPECT_EQ(result.row(1), (Numbers{2, 1, 2}));
  EXPECT_EQ(counts_of(result.tables.overlap), (Numbers{1, 1, 1,  //
                                                       0, 0, 0,  //
                                                       1, 1, 1}));
}

TEST(ScanSubpopulations, WithoutSubpopulationsTablesStayZeroAndNothingIsPrinted) {
  const Scan result = scan(
      "pa  0  0  m 2000\n"
      "ma  0  0  f 2000\n"
      "kid pa ma m 2001\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.row(1), (Numbers{0, 0}));
  EXPECT_EQ(result.row(2), (Numbers{0, 0}));
  EXPECT_EQ(counts_of(result.tables.overlap), (Numbers{0, 0, 0, 0}));
  EXPECT_EQ(result.console, "");
}

TEST(ScanSubpopulations, AgreesWithPlainCountsOnARandomPedigree) {
  const std::vector<std::string> names = {"type0", "type1", "type2", "type1"};
  const PopulationStore store = random_pedigree(7, 400, 9, {.subpopulations = subpopulations_of(names)});
  const Scan result = scan(store, names);
  for (std::int32_t k = 1; k <= 4; ++k) {
    const std::string& name = names[static_cast<std::size_t>(k) - 1];
    for (std::int32_t row = 1; row <= store.birth_years.count; ++row) {
      std::int32_t births = 0;
      for (const AnimalRecord& animal : records_of(store)) {
        if (animal.subpopulation == name && animal.birth_year == store.birth_years.first + row - 1) ++births;
      }
      EXPECT_EQ(result.tables.births.value(row, k), births);
    }
    for (std::int32_t j = 1; j <= 4; ++j) {
      const std::string& parent_name = names[static_cast<std::size_t>(j) - 1];
      std::int32_t parents = 0;
      for (const AnimalRecord& animal : records_of(store)) {
        if (!(animal.subpopulation == name) || animal.sire_no == 0 || animal.dam_no == 0) continue;
        const AnimalRecord& sire = store.at(animal.sire_no);
        const AnimalRecord& dam = store.at(animal.dam_no);
        if (sire.subpopulation.is_blank() || dam.subpopulation.is_blank()) continue;
        if (sire.subpopulation == parent_name) ++parents;
        if (dam.subpopulation == parent_name) ++parents;
      }
      EXPECT_EQ(result.tables.overlap.at(k, j), parents);
    }
  }
}

// ---- breed codes -------------------------------------------------------------------------------------------------

TEST(BreedCodeCheck, AnimalThatSetsTheCodeIsReportedToo) {
  const Scan result = scan(
      "a 0 0 m 2000 rough\n"
      "b 0 0 m 2000 wire\n"
      "c 0 0 m 2000 wire\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.console, first_code("wire") + error_lines("b", "wire", "wire"));
}

TEST(BreedCodeCheck, OtherCodesAreReportedAndTheFirstOneStays) {
  const Scan result = scan(
      "a 0 0 m 2000 wire\n"
      "b 0 0 m 2000 curl\n"
      "c 0 0 m 2000 curl\n"
      "d 0 0 m 2000 wire\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.console, first_code("wire") + error_lines("a", "wire", "wire") + error_lines("b", "curl", "wire") +
                                error_lines("c", "curl", "wire"));
}

TEST(BreedCodeCheck, CodeOfMoreThanEightCharactersIsNeverEqualToItself) {
  const Scan result = scan(
      "a 0 0 m 2000 wirehaired\n"
      "b 0 0 m 2000 wirehaired\n"
      "c 0 0 m 2000 wirehair\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.console, first_code("wirehaired") + error_lines("a", "wirehaired", "wirehair") +
                                error_lines("b", "wirehaired", "wirehair"));
}

TEST(BreedCodeCheck, CodeOfExactlyEightCharactersIsEqualToItself) {
  const Scan result = scan(
      "a 0 0 m 2000 wirehair\n"
      "b 0 0 m 2000 wirehair\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.console, first_code("wirehair") + error_lines("a", "wirehair", "wirehair"));
}

TEST(BreedCodeCheck, BlankCodesPassUntilTheCodeIsSet) {
  const Scan result = scan(
      "a 0 0 m 2000 -\n"
      "b 0 0 m 2000 wire\n"
      "c 0 0 m 2000 -\n",
      {"rough", "smooth"});
  EXPECT_EQ(result.console, first_code("wire") + error_lines("b", "wire", "wire") + error_lines("c", "", "wire"));
}

TEST(BreedCodeCheck, AppendedParentIsReportedOnlyBehindTheAnimalThatSetsTheCode) {
  // The father of "kid" sorts to the front and passes.
  EXPECT_EQ(scan("x 0 0 m 2000 wire\nkid new 0 m 2000 rough\n", {"rough", "smooth"}).console,
            first_code("wire") + error_lines("x", "wire", "wire"));
  // "old" is placed in a later sweep than "new" and sets the code before its turn comes.
  EXPECT_EQ(scan("kid pa  0 m 2000 rough\n"
                 "pa  opa 0 m 2000 rough\n"
                 "opa old 0 m 2000 rough\n"
                 "old 0   0 m 2000 wire\n"
                 "pup new 0 m 2000 rough\n",
                 {"rough", "smooth"})
                .console,
            first_code("wire") + error_lines("old", "wire", "wire") + " ERROR: \n animal: " + padded("", 50) +
                " no.: \n " + padded("new", 30) + "\n of a different breed. breed code:_" + padded("", 20) +
                "_= not equal to -wire    \n _\n");
}

TEST(BreedCodeCheck, DutchLinesTellThePosition) {
  const Scan result = scan(
      "a 0 0 m 2000 rough\n"
      "b 0 0 m 2000 wire\n"
      "c 0 0 m 2000 curl\n",
      {"rough", "smooth"}, false);
  const auto dutch = [](std::int32_t position, std::string_view id, std::string_view code) {
    return " ERROR: \n dier: " + number(position) + " " + padded(id, 50) + " nr: \n " + padded(id, 30) +
           "\n Van een ander ras. rascode:_" + padded(code, 20) + "_= niet gelijk aan -wire    _\n";
  };
  EXPECT_EQ(result.console, first_code("wire") + dutch(2, "b", "wire") + dutch(3, "c", "curl"));
}

// ---- who belongs where -------------------------------------------------------------------------------------------

constexpr std::string_view five_animals =
    "a 0 0 m 2000 rough\n"
    "b 0 0 m 2000 smooth\n"
    "c 0 0 m 2000 -\n"
    "d 0 0 m 2000 Rough\n"
    "e 0 0 m 2000 rough\n";

std::vector<Numbers> animals_of(const std::vector<std::string>& names) {
  const Subpopulations subpopulations = subpopulations_of(names);
  return animals_by_subpopulation(animals_from_text(five_animals, {.subpopulations = subpopulations}), subpopulations)
      .values;
}

TEST(AnimalsBySubpopulation, ListsThePositionsOfEachAscending) {
  EXPECT_EQ(animals_of({"smooth", "rough", "wire"}), (std::vector<Numbers>{{}, {2}, {1, 5}, {}}));
}

TEST(AnimalsBySubpopulation, ANameThatStandsTwiceHasItsAnimalsAtTheFirst) {
  EXPECT_EQ(animals_of({"rough", "smooth", "rough"}), (std::vector<Numbers>{{}, {1, 5}, {2}, {}}));
}

TEST(AnimalsBySubpopulation, ABlankNameTakesTheAnimalsWithoutSubpopulation) {
  EXPECT_EQ(animals_of({"rough", ""}), (std::vector<Numbers>{{}, {1, 5}, {3}}));
}

TEST(AnimalsBySubpopulation, WithoutNamesNobodyBelongsAnywhere) {
  EXPECT_EQ(animals_of({}), (std::vector<Numbers>{{}}));
}

}  // namespace
}  // namespace pedigreewatch::test
