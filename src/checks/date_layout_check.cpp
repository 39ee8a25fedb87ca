#include "checks/date_layout_check.h"

#include <array>
#include <string>

#include "checks/date_checks.h"
#include "checks/line_checks.h"
#include "core/fixed_text.h"

namespace pedigreewatch {
namespace {

constexpr auto layouts = std::to_array<Wording>({{"dd-mm-yyyy", "dd-mm-jjjj"},
                                                 {"yyyy-mm-dd", "jjjj-mm-dd"},
                                                 {"mm-dd-yyyy", "mm-dd-jjjj"},
                                                 {"yyyy-dd-mm", "jjjj-dd-mm"},
                                                 {"ddmmyyyy", "ddmmjjjj"},
                                                 {"yyyymmdd", "jjjjmmdd"},
                                                 {"mmddyyyy", "mmddjjjj"},
                                                 {"yyyyddmm", "jjjjddmm"}});

struct LayoutFits {
  std::array<std::int64_t, layouts.size()> fits = {};
  std::int64_t dates = 0;
};

/// How many of the first dates fit each layout.
LayoutFits count_fits(LineReader& data, const ReadingPlan& plan) {
  constexpr std::int64_t most_lines = 20000;
  std::array<DateLayout, layouts.size()> meanings;
  for (std::size_t k = 0; k < layouts.size(); ++k) meanings[k] = date_layout_of(layouts[k].english);
  LayoutFits counts;
  std::string_view line;
  while (data.line_number < most_lines && read_line(data, line)) {
    if (data.line_number == 1 && plan.first_line_is_header) continue;
    const std::string_view date = cut_line(line, plan).text[birthdate_column];
    if (date.find_first_of("0123456789") == std::string_view::npos) continue;
    ++counts.dates;
    for (std::size_t k = 0; k < layouts.size(); ++k) {
      if (look_at_date(date, meanings[k]).fits_layout) ++counts.fits[k];
    }
  }
  return counts;
}

}  // namespace

bool mend_date_layout(LineReader& data, const FileSurvey& survey, ReadingPlan& plan, ToolLanguage language,
                      Findings& findings) {
  constexpr std::int64_t tenths = 10, nearly_all = 9;
  if (survey.misfit_dates.count * tenths <= survey.dates) return false;
  const LayoutFits counts = count_fits(data, plan);
  rewind(data);
  std::size_t best = 0;
  for (std::size_t k = 1; k < layouts.size(); ++k) {
    if (counts.fits[k] > counts.fits[best]) best = k;
  }
  const DateLayout meant = date_layout_of(layouts[best].english), &given = plan.layout.dates;
  const bool is_given = meant.has_delimiters == given.has_delimiters && meant.year_first == given.year_first &&
                        meant.day_first == given.day_first;
  if (is_given || counts.fits[best] * tenths < counts.dates * nearly_all) return false;
  const std::string_view layout = words_of(layouts[best], language);
  const bool stops = survey.unreadable_dates > 0;
  add(findings, {.code = stops ? FindingCode::date_layout_required : FindingCode::date_layout,
                 .column = plan.column_of[birthdate_column],
                 .line = survey.misfit_dates.first_line,
                 .text = survey.misfit_text,
                 .other_text = keep(findings, layout),
                 .number = survey.misfit_dates.count});
  plan.layout.dates = meant;
  plan.layout.date_layout.assign(layout);
  return true;
}

}  // namespace pedigreewatch
