// Whole runs of `pedigreewatch-tools forecast`: what is written, and what is refused with nothing written.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/pedigrees.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/read_table.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

/// Twelve litters of two a year, of parents two years old.
std::string herd(int years, int births_of_last_year = 24) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  const auto id = [](int year, int k) { return std::to_string(year) + "_" + std::to_string(k); };
  for (int year = 2001; year < 2001 + years; ++year) {
    const int births = year == 2000 + years ? births_of_last_year : 24;
    for (int k = 0; k < births; ++k) {
      const int litter = k / 2;
      data += id(year, k) + ";" + (k % 2 == 0 ? "m" : "f") + ";01-05-" + std::to_string(year) + ";";
      if (year > 2002) data += id(year - 2, 2 * (litter % 4)) + ";" + id(year - 2, 2 * ((litter + 5) % 12) + 1);
      if (year <= 2002) data += ";";
      data += "\n";
    }
  }
  return data;
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

WholeRun forecast(const std::string& data, std::vector<std::string> options, const Files& more = {},
                  const std::string& language = "en") {
  SteerLines steer;
  steer.language = language;
  Files files = files_of(data, steer);
  files.insert(more.begin(), more.end());
  options.insert(options.begin(), "forecast");
  return run_program_on(files, tools_with(options));
}

TEST(ForecastRun, LittleMemoryEndsInAMessageOrAForecast) {
  if (has_address_sanitizer) GTEST_SKIP() << "the address sanitizer needs more room than such a limit leaves";
  const RunFolder folder(files_of(herd(10), SteerLines{.language = "en"}));
  int finished = 0;
  for (std::uint64_t megabytes = 14; megabytes <= 80; megabytes += 3) {
    ProgramStart start = tools_with({"forecast", "--years", "3", "--replicates", "4"});
    start.limits.memory_bytes = megabytes * 1024 * 1024;
    const WholeRun run = run_program_in(folder, start);
    EXPECT_TRUE(run.exit_status == 0 || run.exit_status == 1) << megabytes << ": " << run.messages;
    EXPECT_FALSE(has(run.messages, "terminate")) << run.messages;
    finished += run.exit_status == 0 ? 1 : 0;
  }
  EXPECT_GT(finished, 2);
}

TEST(ForecastRun, WritesAYearALine) {
  const WholeRun run = forecast(herd(10), {"--years", "5", "--replicates", "20"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "");
  const ReadTable table = read_table(run.file("dogs_forecast.tsv"));
  ASSERT_EQ(table.rows.size(), 5U);
  const std::vector<std::string> names(table.names.begin(), table.names.begin() + 6);
  EXPECT_EQ(names,
            (std::vector<std::string>{"scenario", "year", "F_mean", "F_mean_5", "F_mean_95", "kinship_with_self"}));
  for (std::size_t row = 0; row < 5; ++row) {
    EXPECT_EQ(table.cell(row, "scenario"), "present");
    EXPECT_EQ(table.cell(row, "year"), std::to_string(2011 + row));
    EXPECT_EQ(table.cell(row, "sires_in_use"), "4");  // every year had four
    // All parents were two years old; a year has too few young females now and then.
    EXPECT_NEAR(std::stod(table.cell(row, "generation_interval")), 2.0, 0.1);
    EXPECT_EQ(table.cell(row, "replicates"), "20");
    const double f = std::stod(table.cell(row, "F_mean"));
    EXPECT_LE(std::stod(table.cell(row, "F_mean_5")), f);
    EXPECT_GE(std::stod(table.cell(row, "F_mean_95")), f);
    EXPECT_NEAR(std::stod(table.cell(row, "gene_diversity")), 1.0 - std::stod(table.cell(row, "kinship_with_self")),
                1e-6);
  }
  // A closed herd of four sires.
  EXPECT_GT(std::stod(table.cell(4, "F_mean")), std::stod(table.cell(0, "F_mean")));
}

TEST(ForecastRun, TellsThePracticeFirst) {
  const WholeRun run = forecast(herd(10), {"--years", "1", "--replicates", "2"});
  EXPECT_TRUE(has(run.console, "base period: 2008 to 2010, a generation interval of 2.0 years\n")) << run.console;
  EXPECT_TRUE(has(run.console, "litters a year: 12.0, young a litter: 2.0\n")) << run.console;
  EXPECT_TRUE(has(run.console,
                  "sires a year: 4.0, dams a year: 12.0, litters a sire: 3.0, of the most used one: 25.0 % of all\n"))
      << run.console;
  EXPECT_TRUE(has(run.console, "at their first litter sires are 2.0 years old, dams 2.0\n")) << run.console;
  EXPECT_TRUE(has(run.console, "cannot be told yet: the herdbook has 8 birth years with known sires and "))
      << run.console;
  EXPECT_TRUE(has(run.console, "and 20 years and 20 sires are needed\n")) << run.console;
  EXPECT_TRUE(has(run.console, "written: dogs_forecast.tsv\n")) << run.console;
  const WholeRun dutch = forecast(herd(10), {"--years", "1", "--replicates", "2"}, {}, "nl");
  EXPECT_TRUE(has(dutch.console, "basisperiode: 2008 tot en met 2010, een generatie-interval van 2,0 jaar\n"));
}

// All sires have three litters in one year of their lives; those of the first two birth years are unknown.
TEST(ForecastRun, TellsTheLivesOfSiresFromTwentyBirthYearsOn) {
  const std::string told = "sires stay in use for 1.0 years and have 3.0 litters in life (mean of ";
  const WholeRun run = forecast(herd(22), {"--years", "1", "--replicates", "1"});
  EXPECT_TRUE(has(run.console, told)) << run.console;
  EXPECT_TRUE(has(run.console, "\ndams stay in use for 1.0 years (mean of ")) << run.console;
  const WholeRun young = forecast(herd(21), {"--years", "1", "--replicates", "1"});
  EXPECT_FALSE(has(young.console, told)) << young.console;
  EXPECT_TRUE(has(young.console, "cannot be told yet: the herdbook has 19 birth years with known sires"))
      << young.console;
}

TEST(ForecastRun, SaysHowManyReplicatesAndFromWhichSeed) {
  const WholeRun one = forecast(herd(10), {"--years", "3", "--replicates", "1", "--seed", "12"}, {}, "nl");
  EXPECT_TRUE(has(one.console, "herhalingen: 1, begingetal van hun toevalsgetallen: 12; ")) << one.console;
  EXPECT_TRUE(has(one.file("dogs_forecast.html"), "erhalingen: 1, begingetal van hun toevalsgetallen: 12; "));
  EXPECT_FALSE(has(one.console + one.file("dogs_forecast.html"), "in 90 van de 100 herhalingen"));
  EXPECT_FALSE(has(one.file("dogs_forecast.html"), "huidige praktijk, 5 %"));
  const WholeRun twenty = forecast(herd(10), {"--years", "3", "--replicates", "20"});
  EXPECT_TRUE(has(twenty.console, "replicates: 20, seed of their random numbers: 1; ")) << twenty.console;
  EXPECT_TRUE(has(twenty.file("dogs_forecast.html"), "in 90 of 100 replicates the year lies within the band"));
}

// What was measured stands in the documentation; the page says the same of it.
TEST(ForecastRun, SaysHowForecastsOfOtherHerdbooksDid) {
  const std::string page = bytes_of(source_folder() + "/docs/forecast.md");
  std::smatch kinship, f;
  ASSERT_TRUE(
      std::regex_search(page, kinship, std::regex("mean kinship lay within the band in ([0-9]+) of ([0-9]+) years")));
  ASSERT_TRUE(std::regex_search(page, f, std::regex("the mean F in ([0-9]+) \\(above")));
  const std::string years = kinship[2].str();
  const std::string due = std::to_string(static_cast<int>(std::lround(0.9 * std::stod(years))));
  const WholeRun english = forecast(herd(10), {"--years", "1", "--replicates", "1"});
  EXPECT_TRUE(has(english.file("dogs_forecast.html"), "lay within the band in " + kinship[1].str() + " of " + years +
                                                          " years and mean F in " + f[1].str() + ", where " + due +
                                                          " should"));
  const WholeRun dutch = forecast(herd(10), {"--years", "1", "--replicates", "1"}, {}, "nl");
  EXPECT_TRUE(has(dutch.file("dogs_forecast.html"), "in " + kinship[1].str() + " van de " + years +
                                                        " jaren binnen de band en de gemiddelde F in " + f[1].str() +
                                                        ", waar het er " + due + " horen"));
}

TEST(ForecastRun, SaysThatAHerdbookIsYoung) {
  const std::string said = "irth years with known sires behind this forecast: 8, of 20 at least";
  const WholeRun run = forecast(herd(10), {"--years", "1", "--replicates", "1"});
  EXPECT_TRUE(has(run.console, said)) << run.console;
  EXPECT_TRUE(has(run.file("dogs_forecast.html"), said));
  EXPECT_FALSE(has(forecast(herd(22), {"--years", "1", "--replicates", "1"}).console, "behind this forecast"));
}

TEST(ForecastRun, LeavesOutAYearThatIsIncomplete) {
  const WholeRun run = forecast(herd(10, 11), {"--years", "1", "--replicates", "2"});
  EXPECT_TRUE(has(run.console, "2010 is left out: too few births so far for a whole year\n")) << run.console;
  EXPECT_EQ(read_table(run.file("dogs_forecast.tsv")).cell(0, "year"), "2010");
  const WholeRun half = forecast(herd(10, 12), {"--years", "1", "--replicates", "2"});
  EXPECT_FALSE(has(half.console, "is left out")) << half.console;
}

TEST(ForecastRun, IsTheSameForTheSameSeed) {
  const std::vector<std::string> options = {"--years", "4", "--replicates", "9", "--threads", "1"};
  const std::string first = forecast(herd(8), options).file("dogs_forecast.tsv");
  EXPECT_EQ(first,
            forecast(herd(8), {"--years", "4", "--replicates", "9", "--threads", "4"}).file("dogs_forecast.tsv"));
  EXPECT_NE(first, forecast(herd(8), {"--years", "4", "--replicates", "9", "--seed", "2"}).file("dogs_forecast.tsv"));
}

// What is known later changes nothing.
TEST(ForecastRun, ForgetsWhatIsBehindTheYear) {
  const WholeRun of_all = forecast(herd(12), {"--from", "2008", "--replicates", "5"});
  const WholeRun of_some = forecast(herd(8), {"--years", "4", "--replicates", "5"});
  EXPECT_EQ(of_all.file("dogs_forecast_summary.tsv"), of_some.file("dogs_forecast_summary.tsv"));
}

void expect_refusal(const WholeRun& run, int exit_status, const std::string& message) {
  EXPECT_EQ(run.exit_status, exit_status);
  EXPECT_TRUE(has(run.messages, message)) << run.messages;
  EXPECT_EQ(run.files.count("dogs_forecast.tsv"), 0U);
}

TEST(ForecastRun, RefusesWhatCannotBe) {
  expect_refusal(forecast(herd(2), {}), 1, "a forecast needs three birth years with known parents of known ages");
  expect_refusal(forecast("id;sex;birthdate;sire;dam\na;m;;;\n", {}), 1, "no animal has a birth year");
  expect_refusal(forecast(herd(10), {"--from", "2010"}), 1, "--from 2010: a birth year from 2001 to 2009 was expected");
  expect_refusal(forecast(herd(10), {"--from", "2000"}), 1, "--from 2000: a birth year from 2001 to 2009 was expected");
  expect_refusal(forecast(herd(10), {"--from", "soon"}), 2, "a year such as 2010 was expected");
  expect_refusal(forecast(herd(10), {"--years", "201"}), 2, "a number of years from 1 to 200 was expected");
  expect_refusal(forecast(herd(10), {"--replicates", "0"}), 2, "a number from 1 to 10000 was expected");
  expect_refusal(forecast(herd(10), {"--seed", "-1"}), 2, "a whole number from 0 on was expected");
  expect_refusal(forecast(herd(10), {"--threads", "257"}), 2, "a number from 1 to 256 was expected");
  expect_refusal(forecast(herd(10), {"dogs.txt"}), 2, "no file was expected");
}

const std::string rules = "# for the council\n[two litters]\nmost-litters-in-life = 2\n[imports]\nimport-sires = 1\n";

TEST(ForecastRun, ComparesScenarios) {
  const WholeRun run =
      forecast(herd(10), {"--years", "10", "--replicates", "20", "--rules", "forecast.ini", "--most-f", "10%"},
               {{"forecast.ini", rules}});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const ReadTable table = read_table(run.file("dogs_forecast.tsv"));
  ASSERT_EQ(table.rows.size(), 40U);
  EXPECT_EQ(table.cell(0, "scenario"), "present");
  EXPECT_EQ(table.cell(10, "scenario"), "two litters");
  EXPECT_EQ(table.cell(20, "scenario"), "imports");
  EXPECT_EQ(table.cell(30, "scenario"), "options");
  EXPECT_EQ(table.cell(19, "sires_in_use"), "6");  // twelve litters
  EXPECT_LT(std::stod(table.cell(29, "kinship_with_self")), std::stod(table.cell(9, "kinship_with_self")));
  const ReadTable summary = read_table(run.file("dogs_forecast_summary.tsv"));
  EXPECT_EQ(summary.rows.size(), 60U);
  EXPECT_EQ(summary.cell(0, "figure"), "kinship_rate_per_year");
  EXPECT_EQ(summary.cell(0, "difference"), "");
  EXPECT_TRUE(has(run.console, "present practice: mean kinship goes from ")) << run.console;
  EXPECT_TRUE(has(run.console, "two litters: each year ")) << run.console;
  const std::string page = run.file("dogs_forecast.html");
  EXPECT_TRUE(has(page, "<h1>Forecast: Village dogs</h1>"));
  EXPECT_TRUE(has(page, "fill-opacity"));
  EXPECT_TRUE(has(page, "<p>Litters of a sire in life, at most: 2.</p>"));
  EXPECT_TRUE(has(page, "There are not enough birth years to look back"));
}

TEST(ForecastRun, SpeaksDutch) {
  const WholeRun run = forecast(herd(10), {"--years", "3", "--replicates", "3", "--sires", "+2"}, {}, "nl");
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "huidige praktijk: de gemiddelde verwantschap gaat van ")) << run.console;
  EXPECT_TRUE(has(run.file("dogs_forecast.html"), "<html lang=\"nl\">"));
}

TEST(ForecastRun, PutsTheTruthBesideIt) {
  const WholeRun run = forecast(herd(12), {"--from", "2008", "--replicates", "20"});
  const ReadTable table = read_table(run.file("dogs_forecast.tsv"));
  ASSERT_EQ(table.rows.size(), 4U);
  EXPECT_EQ(table.cell(3, "sires_in_use_real"), "4");
  EXPECT_GT(std::stod(table.cell(3, "F_mean_real")), 0.0);
  EXPECT_TRUE(has(run.console, "forecast from 2008: the real mean F lay within the band in ")) << run.console;
}

TEST(ForecastRun, LooksBackTenYearsByItself) {
  const WholeRun run = forecast(herd(30), {"--years", "1", "--replicates", "5"});
  EXPECT_TRUE(has(run.console, "forecast from 2020: the real mean kinship lay within the band in ")) << run.console;
  const WholeRun short_one = forecast(herd(29), {"--years", "1", "--replicates", "5"});
  EXPECT_FALSE(has(short_one.console, "forecast from")) << short_one.console;
}

TEST(ForecastRun, NamesTheLineOfARuleThatIsWrong) {
  const auto with = [](const std::string& text) {
    return forecast(herd(10), {"--rules", "forecast.ini"}, {{"forecast.ini", text}});
  };
  expect_refusal(with("[a]\nmost-liters-a-year = 5\n"), 1,
                 "forecast.ini, line 2: \"most-liters-a-year\": there is no such rule\nnothing was written\n");
  expect_refusal(with("[a]\nsires = 2\nmost-litters-a-year = 5\n"), 1,
                 "forecast.ini, line 2: \"sires = 2\": with so many sires and so few litters for each, there are not");
  // Four sires have three litters each: of the eleven others of a year two have the same sire.
  expect_refusal(
      with("[present]\nsame-sire-in-year = 2%\n"), 1,
      "forecast.ini, line 2: \"same-sire-in-year = 2%\": this cannot be reached: with these sires and litters it "
      "comes to 18.18%\nnothing was written\n");
  expect_refusal(
      with("[present]\nyears-in-use-dams = 30\n"), 1,
      "forecast.ini, line 2: \"years-in-use-dams = 30\": no parent was ever so old as at the end of such a use");
  expect_refusal(forecast(herd(10), {"--rules", "none.ini"}), 1, "none.ini cannot be read");
  expect_refusal(forecast(herd(10), {"--most-f", "2"}), 2, "an F such as 0.0625 or 6.25% was expected");
}

}  // namespace
}  // namespace pedigreewatch::test
