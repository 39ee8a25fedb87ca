#include "diversity/generation_paths.h"

#include <gtest/gtest.h>

#include <string>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

const PathInterval& path_of(const GenerationPaths& paths, Path path) {
  return paths.paths[static_cast<std::size_t>(path)];
}

TEST(GenerationPaths, EveryPathOnce) {
  // 3 is a son (sire of 5) and 4 a daughter (dam of 5) of 1 and 2; 5 is nobody's parent.
  const GenerationPaths paths =
      compute_generation_paths(numbered_store("1990 m\n1991\n1995 m s=1 d=2\n1997 s=1 d=2\n2000 s=3 d=4\n"));
  EXPECT_EQ(path_of(paths, Path::sire_son).mean_years, 5.0);
  EXPECT_EQ(path_of(paths, Path::sire_daughter).mean_years, 7.0);
  EXPECT_EQ(path_of(paths, Path::dam_son).mean_years, 4.0);
  EXPECT_EQ(path_of(paths, Path::dam_daughter).mean_years, 6.0);
  for (const PathInterval& path : paths.paths) EXPECT_EQ(path.count, 1);
  EXPECT_EQ(paths.all.count, 4);
  EXPECT_EQ(paths.all.mean_years, 5.5);
  EXPECT_EQ(paths.all.not_positive, 0);
}

TEST(GenerationPaths, EachPathCountsAlikeInTheirMean) {
  GenerationPaths paths;
  EXPECT_EQ(mean_of_paths(paths), std::nullopt);
  paths.paths[0] = {9, 0, 2.0};
  paths.paths[3] = {1, 0, 4.0};
  EXPECT_EQ(mean_of_paths(paths), 3.0);
}

TEST(GenerationPaths, DaysCountWhereBothDatesAreFull) {
  // 1-3-2000 to 1-3-2004: four years with one leap day, 1461 days, which are 4 years of 365.25.
  const GenerationPaths full =
      compute_generation_paths(numbered_store("2000-3-1 m\n2004-3-1 s=1\n2006-3-1 d=2\n2008 d=3\n"));
  EXPECT_EQ(path_of(full, Path::sire_daughter).mean_years, 4.0);
  EXPECT_DOUBLE_EQ(path_of(full, Path::dam_daughter).mean_years.value(), 730.0 / 365.25);
}

TEST(GenerationPaths, AYearAloneCountsInYears) {
  // Day 0 is that of a date without a day.
  const GenerationPaths month = compute_generation_paths(numbered_store("2000-9-0 m\n2004-3-1 s=1\n2006-4-1 d=2\n"));
  EXPECT_EQ(path_of(month, Path::sire_daughter).mean_years, 4.0);
  // A year alone is read as the first of January, here that of more than one animal in fifty.
  const GenerationPaths year = compute_generation_paths(numbered_store("2000-1-1 m\n2004-9-1 s=1\n2006-4-1 d=2\n"));
  EXPECT_EQ(path_of(year, Path::sire_daughter).mean_years, 4.0);
}

TEST(GenerationPaths, NewYearIsADateWhereFewAreBornThen) {
  std::string text = "2000-1-1 m\n2004-7-1 s=1\n2006-4-1 d=2\n";  // 1461 + 182 days
  for (int i = 0; i < 47; ++i) text += "2001-5-5\n";              // one in fifty
  EXPECT_DOUBLE_EQ(path_of(compute_generation_paths(numbered_store(text)), Path::sire_daughter).mean_years.value(),
                   1643.0 / 365.25);
  const std::string one_less = text.substr(0, text.size() - 9);
  EXPECT_EQ(path_of(compute_generation_paths(numbered_store(one_less)), Path::sire_daughter).mean_years, 4.0);
}

TEST(GenerationPaths, ValuesOfZeroAndBelowCount) {
  const GenerationPaths paths = compute_generation_paths(numbered_store("2000 m\n2003\n2000 s=1 d=2\n2004 d=3\n"));
  EXPECT_EQ(path_of(paths, Path::sire_daughter).mean_years, 0.0);
  EXPECT_EQ(path_of(paths, Path::sire_daughter).not_positive, 1);
  EXPECT_EQ(path_of(paths, Path::dam_daughter).mean_years, -3.0);
  EXPECT_EQ(path_of(paths, Path::dam_daughter).not_positive, 1);
  EXPECT_EQ(paths.all.not_positive, 2);
  EXPECT_EQ(paths.all.mean_years, -1.5);
}

TEST(GenerationPaths, UnknownBirthsAreLeftOut) {
  const GenerationPaths paths =
      compute_generation_paths(numbered_store("m\n2000\ns=1 d=2\n2004 s=1 d=2\n2006 d=3\n2007 d=4\n"));
  EXPECT_EQ(path_of(paths, Path::sire_daughter).count, 0);
  EXPECT_FALSE(path_of(paths, Path::sire_daughter).mean_years.has_value());
  EXPECT_EQ(path_of(paths, Path::dam_daughter).count, 1);
  EXPECT_EQ(path_of(paths, Path::dam_daughter).mean_years, 4.0);
}

TEST(GenerationPaths, AnAnimalUsedAsBothIsWhatItsSexSays) {
  const GenerationPaths paths =
      compute_generation_paths(numbered_store("2000 m\n2003 m s=1\n2004 s=1\n2006 s=2 d=2\n2009 s=3 d=3\n"));
  EXPECT_EQ(path_of(paths, Path::sire_son).count, 1);
  EXPECT_EQ(path_of(paths, Path::sire_son).mean_years, 3.0);
  EXPECT_EQ(path_of(paths, Path::sire_daughter).count, 1);
  EXPECT_EQ(path_of(paths, Path::sire_daughter).mean_years, 4.0);
}

TEST(GenerationPaths, WithoutParentsThereAreNone) {
  const GenerationPaths paths = compute_generation_paths(numbered_store("2000\n2001\n"));
  EXPECT_EQ(paths.all.count, 0);
  EXPECT_FALSE(paths.all.mean_years.has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
