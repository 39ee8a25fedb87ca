// Statistics and genetics of a population do not need each other: in any order, and at once, they come to the same.
#include "control/population_analysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string>

#include "control/steer_file.h"
#include "core/side_by_side.h"
#include "reports/report.h"
#include "support/pedigrees.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

using TasksOrder = void (*)(std::span<const std::function<void()>>);

/// 200 animals in twenty years, with parents of the hundred before them.
std::string some_herd() {
  RandomNumbers random{5};
  std::string data = "id;sire;dam;sex;birthdate\n";
  for (std::int32_t i = 1; i <= 200; ++i) {
    const auto parent = [&](std::int32_t remainder) {
      const std::int32_t number = std::max(1, i - 20 - random.below(60)) / 2 * 2 + remainder;
      return i <= 30 ? std::string() : "a" + std::to_string(number);
    };
    const std::string sire = parent(1), dam = parent(0);
    data += "a" + std::to_string(i) + ";" + sire + ";" + dam + (i % 2 == 1 ? ";m" : ";f") + ";02-05-" +
            std::to_string(2000 + i / 10) + "\n";
  }
  return data;
}

struct Outcome {
  std::string console, report;
};

Outcome outcome_with(TasksOrder do_tasks) {
  const SteerLines steer;
  const std::string steer_text = steer.text(), data = some_herd();
  LineReader steer_file, data_file;
  steer_file.text = steer_text;
  data_file.name = steer.data_file_name;
  data_file.text = data;
  RunStreams streams;
  streams.do_tasks = do_tasks;
  AnalysedPopulation population = analyse_population(read_steer_lines(steer_file, streams), data_file, streams);
  const ReportFrame frame = report_frame_of(population, streams.report);
  write_report(frame, population.analysis.whole, population.analysis.extras);
  return {streams.console.pending, streams.report.pending};
}

TEST(PopulationAnalysis, IsTheSameInWhateverOrderStatisticsAndGeneticsAreDone) {
  const Outcome in_turn = outcome_with(nullptr);
  ASSERT_GT(in_turn.report.size(), 5000U);
  const Outcome turned_round = outcome_with([](std::span<const std::function<void()>> tasks) {
    for (std::size_t k = tasks.size(); k-- > 0;) tasks[k]();
  });
  const Outcome at_once = outcome_with([](std::span<const std::function<void()>> tasks) { do_side_by_side(tasks, 2); });
  EXPECT_EQ(turned_round.report, in_turn.report);
  EXPECT_EQ(at_once.report, in_turn.report);
  EXPECT_EQ(turned_round.console, in_turn.console);
  EXPECT_EQ(at_once.console, in_turn.console);
}

}  // namespace
}  // namespace pedigreewatch::test
