// The bytes that are counted beforehand are those of the reports that are then written.
#include "control/report_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "control/population_analysis.h"
#include "core/report_limits.h"
#include "support/analysed_population.h"
#include "support/lines.h"
#include "support/program_run.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

/// Names "H1" to "Hn" behind their number, as the steer file has them.
std::string names_up_to(int count) {
  std::string names = std::to_string(count);
  for (int k = 1; k <= count; ++k) names += "\nH" + std::to_string(k);
  return names;
}

struct Flock {
  int names = 1, used = 1, years = 100;
  bool has_all_columns = false, has_imports = false;
};

/// Ten animals a year, of which the parents are some of the two years before.
std::string data_of(const Flock& flock) {
  std::string data = "id;sire;dam;sex;birthdate;subpopulation";
  if (flock.has_all_columns) data += ";colour;breeder;Import";
  if (flock.has_imports) data += ";Import";
  data += "\n";
  for (int n = 0; n < 10 * flock.years; ++n) {
    const int year = 1800 + n / 10;
    const bool has_parents = n >= 20;
    data += "a" + std::to_string(n) +
            (has_parents ? ";a" + std::to_string(n - 10 - n % 2) + ";a" + std::to_string(n - 19 + n % 2) : ";;") +
            (n % 2 == 0 ? ";m" : ";f") + ";01-01-" + std::to_string(year) + ";H" + std::to_string(n % flock.used + 1);
    if (flock.has_all_columns)
      data += (n % 3 == 0 ? ";red;" : ";grey;") + std::string("kennel") + std::to_string(n % 12) + ";NL";
    if (flock.has_imports) data += n % 3 == 0 ? ";NL" : ";";
    data += "\n";
  }
  return data;
}

SteerLines steer_of(const Flock& flock) {
  SteerLines steer;
  steer.subpopulations = names_up_to(flock.names);
  if (flock.has_all_columns) steer.colours = "3\nred\ngrey\nwhite";
  return steer;
}

Files files_of_flock(const Flock& flock) {
  return files_of(data_of(flock), steer_of(flock));
}

/// The bytes that were counted, from the counts of an analysis that is made here.
ReportBytes counted(const Flock& flock) {
  const AnalysedPopulation population = analysed(data_of(flock), steer_of(flock));
  const OldestParents oldest = find_oldest_parents(population.store, all_positions(population.store));
  const ReportBytes bytes =
      count_report_bytes(population.store, population.settings.layout, population.breeders, oldest);
  const ReportShape shape = shape_of_report(population.store, population.settings.layout, population.breeders);
  EXPECT_EQ(shape.years, flock.years);
  EXPECT_EQ(shape.names, flock.names);
  const ReportBytes most = most_report_bytes(shape, oldest);
  EXPECT_GE(most.all, bytes.all);
  EXPECT_EQ(most.longest_line, bytes.longest_line);
  return bytes;
}

TEST(CountReportBytes, AreThoseOfTheReport) {
  for (const Flock& flock :
       {Flock{1, 1, 500}, Flock{3, 3, 500}, Flock{40, 25, 200}, Flock{3, 3, 500, true}, Flock{120, 2, 60}}) {
    const WholeRun run = run_program_on(files_of_flock(flock));
    ASSERT_EQ(run.exit_status, 0) << run.messages;
    const std::string report = run.file("dogs.out");
    const ReportBytes bytes = counted(flock);
    const double written = static_cast<double>(report.size());
    const double margin = flock.names > 10 ? 0.01 : 0.10;
    EXPECT_NEAR(static_cast<double>(bytes.all), written, margin * written)
        << flock.names << " " << flock.has_all_columns;
    EXPECT_EQ(bytes.blocks, flock.names > 1 ? flock.used : 0);
    std::size_t longest = 0;
    for (const std::string& line : lines_of(report)) longest = std::max(longest, line.size() + 1);
    if (flock.names > 10) {
      EXPECT_EQ(bytes.longest_line, static_cast<std::int64_t>(longest));
    }
  }
}

/// By how many bytes a hundred birth years more make the report longer.
std::int64_t bytes_of_a_hundred_years(Flock flock) {
  flock.years = 300;
  const std::size_t shorter = run_program_on(files_of_flock(flock)).file("dogs.out").size();
  flock.years = 400;
  return static_cast<std::int64_t>(run_program_on(files_of_flock(flock)).file("dogs.out").size() - shorter);
}

TEST(CountReportBytes, ImportsMakeTheRowsOfYearsLonger) {
  const std::int64_t written =
      bytes_of_a_hundred_years({.has_imports = true}) - bytes_of_a_hundred_years({.has_imports = false});
  const std::int64_t all = counted({.has_imports = true}).all - counted({.has_imports = false}).all;
  EXPECT_EQ(all, written);  // of a hundred years, too
}

TEST(InMegabytes, HasDecimalsBelowTenMegabytes) {
  EXPECT_EQ(in_megabytes(1'000'000), "1 MB");
  EXPECT_EQ(in_megabytes(1'000'001), "1.01 MB");
  EXPECT_EQ(in_megabytes(1'190'001), "1.2 MB");
  EXPECT_EQ(in_megabytes(1'010'000, ','), "1,01 MB");
  EXPECT_EQ(in_megabytes(9'990'000), "9.99 MB");
  EXPECT_EQ(in_megabytes(9'990'001), "10 MB");
  EXPECT_EQ(in_megabytes(10'000'001), "11 MB");
}

TEST(CountReportBytes, AreAskedForBeforeAnythingIsComputed) {
  // 447 subpopulations make 99,681 pairs of ten columns each, 448 of them 100,128.
  EXPECT_EQ(run_program_on(files_of_flock({447, 3, 2})).exit_status, 0);
  const WholeRun run = run_program_on(files_of_flock({448, 3, 2}));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "dogs.txt: the report would have lines of 1.01 MB")) << run.messages;
  EXPECT_EQ(run.file("dogs.out"), "");
  EXPECT_FALSE(has(run.console, "oldest parents")) << "it stops before that";
}

TEST(CountReportBytes, OfManyYearsStopTheRunAndKeepTheOldReport) {
  // 9,999 rows of 11,175 pairs are 1.1 GB.
  Files files = files_of_flock({150, 150, 20});
  files["dogs.txt"] += "x;;;m;01-01-9999;H1\ny;;;f;01-01-0001;H1\n";
  files["dogs.out"] = "last year's report\n";
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(
      has(run.messages, "150 subpopulations in pedigreewatch.ini, 150 of them with animals, and 9999 birth years"))
      << run.messages;
  EXPECT_EQ(run.file("dogs.out.last-complete"), "last year's report\n");
}

}  // namespace
}  // namespace pedigreewatch::test
