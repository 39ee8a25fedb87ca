// The forecast of the desk: begun with fields, grown in slices, with the figures of the program.
#include "desk/forecast_desk.h"

#include <gtest/gtest.h>

#include <string>

#include "desk/export_desk.h"
#include "desk/run_desk.h"
#include "support/program_run.h"
#include "support/run_folder.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

/// Twelve litters of two a year, of parents two years old: four sires, twelve dams.
std::string flock(int years) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  const auto id = [](int year, int k) { return std::to_string(year) + "_" + std::to_string(k); };
  for (int year = 2001; year < 2001 + years; ++year) {
    for (int k = 0; k < 24; ++k) {
      const int litter = k / 2;
      data += id(year, k) + (k % 2 == 0 ? ";m" : ";f") + ";15-05-" + std::to_string(year) + ";";
      if (year > 2002) data += id(year - 2, 2 * (litter % 4)) + ";" + id(year - 2, 2 * ((litter + 5) % 12) + 1);
      if (year <= 2002) data += ";";
      data += "\n";
    }
  }
  return data;
}

struct DeskWithFlock {
  RunFolder folder;
  Desk desk;

  explicit DeskWithFlock(int years) : folder(Files{{"export.csv", flock(years)}}) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    open_export(desk, folder.path("export.csv"), "language=en\nspecies=dog");
    write_files_of_export(desk);
    run_analysis(desk);
  }
};

bool is_in(const std::string& text, const std::string& wanted) {
  return text.find(wanted) != std::string::npos;
}

TEST(DeskForecasting, GrowsToTheForecastOfTheProgram) {
  DeskWithFlock opened(10);
  EXPECT_EQ(begin_desk_forecast(opened.desk, "years=5\nmost-litters-in-life=2\nmost-f="),
            R"({"messages":[],"replicates":100})");
  EXPECT_EQ(forecast_table(opened.desk) + forecast_page(opened.desk), "");
  const std::string first = grow_desk_forecast(opened.desk, 0);
  EXPECT_TRUE(first.starts_with(R"({"messages":[],"done":1,"replicates":100,"html":")")) << first.substr(0, 80);
  EXPECT_TRUE(is_in(first, "these rules"));
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), R"("done":2,)"));
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 60'000), R"("done":100,)"));
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), R"("done":100,)"));  // and no more
  Files files = files_of(flock(10), SteerLines{});
  files["forecast.ini"] = "[these rules]\nmost-litters-in-life = 2\n";
  const WholeRun run = run_program_on(files, tools_with({"forecast", "--years", "5", "--rules", "forecast.ini"}));
  EXPECT_EQ(forecast_table(opened.desk), run.file("dogs_forecast.tsv"));
  EXPECT_TRUE(is_in(forecast_page(opened.desk), "<h1>Forecast: "));
}

TEST(DeskForecasting, SaysWhichFieldIsWrong) {
  DeskWithFlock opened(10);
  const auto said = [&](const char* settings) { return begin_desk_forecast(opened.desk, settings); };
  EXPECT_TRUE(is_in(said("most-litters-a-year=many"), "litters of a sire a year, at most\\u0022: many: a whole number"))
      << said("most-litters-a-year=many");
  EXPECT_TRUE(is_in(said("most-f=101"), "F of a litter at most\\u0022: 101%: an F such as")) << said("most-f=101");
  EXPECT_TRUE(is_in(said("years=201"), "a number of years from 1 to 200"));
  EXPECT_TRUE(is_in(said("sires=2\nmost-litters-a-year=5"), "sires a year\\u0022: 2: with so many sires"))
      << said("sires=2\nmost-litters-a-year=5");
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), "There is no forecast."));
  opened.desk.language = ToolLanguage::dutch;
  EXPECT_TRUE(is_in(said("least-age-sires=61"), "leeftijd van vaders minstens"));
}

TEST(DeskForecasting, GoesOnWithFiguresThatAreTyped) {
  DeskWithFlock opened(10);
  EXPECT_EQ(begin_desk_forecast(opened.desk, "years=5\nyoung-a-litter=2,5\nmales=40\nfirst-age-sires=1,5\nplan=yes"),
            R"({"messages":[],"replicates":100})");
  const std::string first = grow_desk_forecast(opened.desk, 60'000);
  EXPECT_TRUE(is_in(first, "the forecast goes on with what is said: young a litter: 2.5"));
  Files files = files_of(flock(10), SteerLines{});
  files["forecast.ini"] =
      "[present]\nyoung-a-litter = 2.5\nmales = 40%\nfirst-age-sires = 1.5\n[these rules]\nplan = yes\n";
  const WholeRun run = run_program_on(files, tools_with({"forecast", "--years", "5", "--rules", "forecast.ini"}));
  EXPECT_EQ(forecast_table(opened.desk), run.file("dogs_forecast.tsv")) << run.console << run.messages;
  const auto said = [&](const char* settings) { return begin_desk_forecast(opened.desk, settings); };
  EXPECT_TRUE(is_in(said("sires-of-others=5"), "the population has no subpopulations")) << said("sires-of-others=5");
  EXPECT_TRUE(
      is_in(said("same-sire-in-year=2"), ": 2%: this cannot be reached: with these sires and litters it comes to"));
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), "There is no forecast."));
}

TEST(DeskForecasting, ListsItsFields) {
  Desk desk;
  const std::string fields = forecast_fields(desk);
  EXPECT_TRUE(fields.starts_with(
      R"({"fields":[{"name":"most-litters-a-year","label":"litters of a sire a year, at most","choices":[]},{)"))
      << fields;
  EXPECT_TRUE(is_in(fields, R"({"name":"plan","label":"matings of each year by a plan of least kinship",)"
                            R"("choices":[{"value":"yes","text":"yes"}]})"))
      << fields;
  EXPECT_TRUE(is_in(fields, R"({"name":"males","label":"males among the young, %","choices":[]})")) << fields;
  EXPECT_TRUE(is_in(fields, R"({"name":"","label":"Figures of the practice, in place of what was measured; blank: as )"
                            R"(measured.","choices":[]},{"name":"young-a-litter",)"))
      << fields;
  desk.language = ToolLanguage::dutch;
  EXPECT_TRUE(is_in(forecast_fields(desk),
                    R"("choices":[{"value":"open","text":"open"},)"
                    R"({"value":"closed","text":"gesloten"},{"value":"rotation","text":"rotatie"}])"));
}

TEST(DeskForecasting, NeedsThreeYearsAndResults) {
  DeskWithFlock opened(2);
  EXPECT_TRUE(is_in(begin_desk_forecast(opened.desk, ""), "three birth years"));
  Desk empty;
  EXPECT_TRUE(is_in(begin_desk_forecast(empty, ""), "no results"));
}

TEST(DeskForecasting, IsForgottenWithTheResults) {
  DeskWithFlock opened(10);
  begin_desk_forecast(opened.desk, "");
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), R"("done":1)"));
  forget_run(opened.desk);
  EXPECT_TRUE(is_in(grow_desk_forecast(opened.desk, 0), "There is no forecast."));
}

}  // namespace
}  // namespace pedigreewatch::test
