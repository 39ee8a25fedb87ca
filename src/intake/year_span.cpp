// Each shape of dates tells its years in a way of its own.

#include "intake/year_span.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace pedigreewatch {
namespace {

void widen(BirthSpan& span, const BirthSpan& other) {
  span = {std::min(span.first, other.first), std::max(span.last, other.last)};
}

std::int32_t year_of_serial(std::int32_t number, DateSystem system) {
  constexpr std::size_t year_digits = 4;
  const std::string day = day_of_serial(std::to_string(number), system);
  std::int32_t year = 0;
  std::from_chars(day.data(), day.data() + std::min(day.size(), year_digits), year);
  return year;
}

BirthSpan years_of_short(const DateSurvey& survey, const DatePlan& plan) {
  BirthSpan span = SurveyedYears::none;
  if (!plan.short_years) return span;
  const bool is_year_first = plan.short_order == DateOrder::year_month_day;
  const BirthCircle& circle = is_year_first ? survey.short_years.year_first : survey.short_years.year_last;
  for (std::size_t year = 0; year < years_of_circle; ++year) {
    if (circle.births[year] == 0) continue;
    const std::int32_t whole = whole_year(static_cast<std::int32_t>(year), plan.short_years->first);
    widen(span, {whole, whole});
  }
  return span;
}

}  // namespace

BirthSpan years_of_dates(const DateSurvey& survey, const DatePlan& plan) {
  BirthSpan span = survey.years.plain;
  if (plan.compact) widen(span, survey.years.compact[static_cast<std::size_t>(*plan.compact)]);
  if (survey.short_dates.noted.count > 0) widen(span, years_of_short(survey, plan));
  if (survey.serials.noted.count > 0) {
    widen(span,
          {year_of_serial(survey.serials.lowest, plan.serials), year_of_serial(survey.serials.highest, plan.serials)});
  }
  return span;
}

}  // namespace pedigreewatch
