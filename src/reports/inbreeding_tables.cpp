#include "reports/inbreeding_tables.h"

#include "genetics/kinship.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t table_rule = 64, rates_rule = 45;

constexpr Wording title = {"           INBREEDING", "           INTEELT"};
constexpr Wording headings[] = {
    {" Yr.of     F       f       f       f       f     f    ",
     "  geb.     F       f       f       f       f     f    "},
    {" birth    all     incl.  excl. parents fathers mothers",
     "  jaar    alle    incl.  excl.   ouders  vaders moeders         "},
    {"   -    animals   self   self        ", "         dieren   zelf   zelf                 \t\t\t      "},
};
constexpr Wording rates_headings[] = {
    {"                deltaF     deltaF      Ne    ", "                deltaF     deltaF      Ne    "},
    {"                 year     generation         ", "                 jaar     generatie          "},
};
constexpr Wording periods_title = {"Inbreeding rate for periods of ", "Inteelttoename per periode van "};
constexpr Wording years_long = {" years", " jaar"};

constexpr float percent = 100.0F;

void write_rate(TextOutput& report, std::string_view label, float per_year, float per_generation) {
  const float effective_size = 1.0F / (per_generation * 0.02F);
  write_format_line(report, "A16,F10.2,A1,F10.2,A1,F10.2",
                    {label, per_year * percent, "%", per_generation, "%", effective_size});
}

void write_rates(const ReportFrame& frame, const RateSummary& rates, float generation_interval) {
  const float generation_percent = generation_interval * percent;
  TextOutput& report = frame.report;
  write_rule(report, rates_rule);
  write_headings(frame, rates_headings);
  write_rule(report, rates_rule);
  // The first line multiplies by 100 before the interval, the others after it; the last digit may differ.
  const float absolute_F = rates.delta_F_absolute * percent * generation_interval;
  write_rate(report, "deltaF absolute ", rates.delta_F_absolute, absolute_F);
  write_rate(report, "deltaF smoothed ", rates.delta_F_smoothed, rates.delta_F_smoothed * generation_percent);
  write_rate(report, "deltaf absolute ", rates.delta_f_absolute, rates.delta_f_absolute * generation_percent);
  write_rate(report, "deltaf smoothed ", rates.delta_f_smoothed, rates.delta_f_smoothed * generation_percent);
  write_rule(report, rates_rule);
}

/// Minus the slope of ln(1 - value) on the years `first` to `last`, per generation and in percent.
float rate_of_period(const YearTable<float>& table, std::int64_t column, std::int64_t first, std::int64_t last,
                     float generation_percent) {
  std::vector<std::int32_t> x;
  std::vector<float> y;
  for (std::int64_t row = first; row <= last; ++row) {
    x.push_back(static_cast<std::int32_t>(row));
    y.push_back(log_of_complement(table.value(row, column)));
  }
  return (0.0F - regression_slope(x, y)) * generation_percent;
}

void write_period(const ReportFrame& frame, const YearTable<float>& table, std::int64_t first, std::int64_t last,
                  float generation_percent) {
  write_format_line(frame.report, "I4,A3,I4,F14.3,A2,F14.3,A1",
                    {frame.years.year_of(first), " - ", frame.years.year_of(last),
                     rate_of_period(table, mean_inbreeding, first, last, generation_percent), "%",
                     rate_of_period(table, kinship_with_self, first, last, generation_percent), "%"});
}

/// The first period takes up the remainder; every later one begins with the last year of the one before.
void write_periods(const ReportFrame& frame, const YearTable<float>& table, float generation_interval) {
  constexpr std::int64_t years_per_period = 10;
  const std::int64_t year_count = frame.years.count;
  const std::int64_t later_periods = year_count / years_per_period;
  const std::int64_t length = year_count / (later_periods + 1);
  const std::int64_t first_length = year_count - later_periods * length;
  const float generation_percent = generation_interval * percent;
  write_blank_line(frame.report);
  write_free_line(frame.report, {periods_title, length, years_long});
  write_rule(frame.report, rates_rule);
  write_period(frame, table, 1, first_length, generation_percent);
  for (std::int64_t last = first_length + length; last <= year_count; last += length) {
    write_period(frame, table, last - length, last, generation_percent);
  }
  write_rule(frame.report, rates_rule);
}

}  // namespace

void write_inbreeding(const ReportFrame& frame, const YearTable<float>& inbreeding_table, const RateSummary& rates,
                      float generation_interval) {
  constexpr std::int32_t most_years_without_periods = 10;
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_rule(frame.report, table_rule);
  write_headings(frame, headings);
  write_rule(frame.report, table_rule);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) {
    const auto value = [&](std::int64_t column) { return inbreeding_table.value(row, column); };
    write_format_line(frame.report, "I8,6F8.4",
                      {frame.years.year_of(row), value(1), value(2), value(3), value(4), value(5), value(6)});
  }
  write_rule(frame.report, table_rule);
  write_blank_line(frame.report);
  write_rates(frame, rates, generation_interval);
  if (frame.years.count > most_years_without_periods) write_periods(frame, inbreeding_table, generation_interval);
}

}  // namespace pedigreewatch
