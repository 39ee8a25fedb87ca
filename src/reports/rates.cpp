// Both tables give rates in percent. The letter tells them apart: F for inbreeding, f for kinship.

#include "reports/rates.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 45;

constexpr Wording headings[] = {
    {"                deltaF     deltaF      Ne    ", "                deltaF     deltaF      Ne    "},
    {"                 year     generation         ", "                 jaar     generatie          "},
};
constexpr Wording periods_title = {"Inbreeding rate for periods of ", "Inteelttoename per periode van "};
constexpr Wording years_long = {" years", " jaar"};

void write_rate(TextOutput& report, std::string_view label, const GenerationRate& rate) {
  write_format_line(report, "A16,F10.2,A1,F10.2,A1,F10.2",
                    {label, rate.percent_per_year, "%", rate.percent_per_generation, "%", rate.effective_size});
}

}  // namespace

void write_rates(const ReportFrame& frame, const GenerationRates& rates) {
  write_rule(frame.report, rule_length);
  write_headings(frame, headings);
  write_rule(frame.report, rule_length);
  write_rate(frame.report, "deltaF absolute ", rates.F_absolute);
  write_rate(frame.report, "deltaF smoothed ", rates.F_smoothed);
  write_rate(frame.report, "deltaf absolute ", rates.f_absolute);
  write_rate(frame.report, "deltaf smoothed ", rates.f_smoothed);
  write_rule(frame.report, rule_length);
}

void write_periods(const ReportFrame& frame, const PeriodRates& rates) {
  write_blank_line(frame.report);
  write_free_line(frame.report, {periods_title, rates.length, years_long});
  write_rule(frame.report, rule_length);
  for (const PeriodRate& period : rates.periods) {
    write_format_line(
        frame.report, "I4,A3,I4,F14.3,A2,F14.3,A1",
        {frame.years().year_of(period.first), " - ", frame.years().year_of(period.last), period.F, "%", period.f, "%"});
  }
  write_rule(frame.report, rule_length);
}

}  // namespace pedigreewatch
