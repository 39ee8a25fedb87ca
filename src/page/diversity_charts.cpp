#include "page/diversity_charts.h"

#include <array>
#include <vector>

#include "page/chart_making.h"

namespace pedigreewatch {
namespace {

constexpr ChartTexts gene_diversity_texts = {
    "gene-diversity",
    {"Gene diversity, and what was lost since the founders",
     "Gendiversiteit, en wat sinds de stamdieren verloren ging"},
    {"The diversity of the founders is 100 %. The lowest part is left in the animals born in a year; the next one was lost because founders have contributed unequally, the upper one since then, by bottlenecks and chance. Unknown ancestors count as unrelated founders, so that more is lost than is shown.",
     "De diversiteit van de stamdieren is 100 %. Het onderste deel is over bij de dieren die in een jaar geboren zijn; het volgende is verloren doordat stamdieren ongelijk hebben bijgedragen, het bovenste sindsdien, door flessenhalzen en toeval. Onbekende voorouders gelden als onverwante stamdieren, zodat er meer verloren is dan hier staat."},
    {"%", "%"}};
constexpr Wording left_name = {"left", "over"};
constexpr Wording lost_by_founders_name = {"lost: founders used unequally", "verloren: stamdieren ongelijk gebruikt"};
constexpr Wording lost_since_name = {"lost since then", "sindsdien verloren"};

constexpr ChartTexts classes_texts = {
    "inbreeding-classes",
    {"Animals by their inbreeding", "Dieren naar hun inteelt"},
    {"How many of the animals born in a year have which F: offspring of first cousins have 6.25 %, of half sibs 12.5 %, of full sibs or of parent and offspring 25 %, when nothing further back is known.",
     "Hoeveel van de dieren die in een jaar geboren zijn welke F hebben: jongen van volle neef en nicht hebben 6,25 %, van halfbroer en halfzus 12,5 %, van volle broer en zus of ouder en jong 25 %, als verder terug niets bekend is."},
    {"animals", "dieren"}};
constexpr Wording class_names[] = {{"F = 0", "F = 0"},
                                   {"to 6.25 %", "tot 6,25 %"},
                                   {"to 12.5 %", "tot 12,5 %"},
                                   {"to 25 %", "tot 25 %"},
                                   {"more", "meer"}};

constexpr ChartTexts close_young_texts = {
    "close-young",
    {"Closely bred young", "Nauw gefokte jongen"},
    {"Share of the animals born in a year with F above 6.25 %, as of first cousins, and above 12.5 %, as of half sibs; where ancestors are unknown more of them are closely bred than is seen.",
     "Aandeel van de dieren die in een jaar geboren zijn met F boven 6,25 %, als van volle neef en nicht, en boven 12,5 %, als van halfbroer en halfzus; waar voorouders onbekend zijn zijn het er meer dan er te zien zijn."},
    {"% of the animals", "% van de dieren"}};
constexpr Wording close_names[] = {{"F above 6.25 %", "F boven 6,25 %"}, {"F above 12.5 %", "F boven 12,5 %"}};

constexpr ChartTexts matings_texts = {
    "close-matings",
    {"Matings of near relatives", "Paringen van nauwe verwanten"},
    {"Of the matings with both parents known, as far as the parents' own ancestors are known: the share between parent and offspring, full sibs, half sibs, and other relatives with a kinship of at least 1/16, such as first cousins.",
     "Van de paringen waarvan beide ouders bekend zijn, voor zover de voorouders van die ouders bekend zijn: het aandeel tussen ouder en jong, volle broer en zus, halfbroer en halfzus, en andere verwanten met een verwantschap van ten minste 1/16, zoals volle neef en nicht."},
    {"% of matings", "% van de paringen"}};
constexpr Wording matings_heading = {"Matings", "Paringen"};
constexpr Wording kin_names[] = {{"parent and offspring", "ouder en jong"},
                                 {"full sibs", "volle broer en zus"},
                                 {"half sibs", "halfbroer en halfzus"},
                                 {"first cousins and the like", "volle neef en nicht, en dergelijke"}};

/// The cohort of each year of the page, of the whole population; none where nobody was born.
std::vector<const Cohort*> cohorts_by_year(const PageFrame& frame) {
  std::vector<const Cohort*> cohorts(static_cast<std::size_t>(frame.years.count()), nullptr);
  for (const Cohort& cohort : frame.input.figures->cohorts) {
    if (cohort.span != CohortSpan::year || cohort.subpopulation != 0) continue;
    const Row row = frame.store().birth_years.row_of(cohort.first_year);
    if (row < frame.years.first || row > frame.years.last) continue;
    cohorts[static_cast<std::size_t>(row - frame.years.first)] = &cohort;
  }
  return cohorts;
}

/// A value of each year's cohort.
template <typename ValueOf>
std::vector<Value> values_of(const PageFrame& frame, ValueOf&& value_of) {
  std::vector<Value> values;
  for (const Cohort* const cohort : cohorts_by_year(frame)) {
    values.push_back(cohort == nullptr ? Value() : value_of(*cohort));
  }
  return values;
}

}  // namespace

Chart gene_diversity_chart(const PageFrame& frame) {
  constexpr int decimals = 2;
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, gene_diversity_texts);
  const auto add = [&](const Wording& name, std::optional<double> (Cohort::*value)() const) {
    const auto values = values_of(frame, [value](const Cohort& cohort) { return (cohort.*value)(); });
    add_series(chart, frame.text(name), in_percent(values), decimals);
  };
  add(left_name, &Cohort::gene_diversity);
  add(lost_by_founders_name, &Cohort::lost_by_founders);
  add(lost_since_name, &Cohort::lost_since);
  return chart;
}

Chart close_young_chart(const PageFrame& frame) {
  constexpr double percent = 100.0;
  constexpr std::array<std::size_t, 2> first_classes = {2, 3};  // to 12.5 %, to 25 %
  Chart chart = make_year_chart(frame, ChartKind::lines, close_young_texts);
  for (std::size_t k = 0; k < first_classes.size(); ++k) {
    const auto share = [&](const Cohort& cohort) {
      std::int64_t above = 0;
      for (std::size_t c = first_classes[k]; c < inbreeding_classes; ++c) above += cohort.sums.classes[c];
      return Value(percent * static_cast<double>(above) / static_cast<double>(cohort.sums.animals));
    };
    add_series(chart, frame.text(close_names[k]), values_of(frame, share), 1);
  }
  add_rule_year(chart, frame);
  return chart;
}

Chart inbreeding_classes_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, classes_texts);
  for (std::size_t k = 0; k < inbreeding_classes; ++k) {
    const auto count = [k](const Cohort& cohort) { return Value(static_cast<double>(cohort.sums.classes[k])); };
    add_series(chart, frame.text(class_names[k]), values_of(frame, count), 0, {Palette::ordered, k + 1});
  }
  return chart;
}

Chart close_matings_chart(const PageFrame& frame) {
  constexpr double percent = 100.0;
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, matings_texts);
  add_column(chart, frame.text(matings_heading),
             values_of(frame, [](const Cohort& cohort) { return Value(static_cast<double>(cohort.sums.matings)); }), 0);
  for (std::size_t k = 0; k < close_matings; ++k) {
    const auto share = [k](const Cohort& cohort) {
      if (cohort.sums.matings == 0) return Value();
      return Value(percent * static_cast<double>(cohort.sums.matings_of[k]) / static_cast<double>(cohort.sums.matings));
    };
    add_series(chart, frame.text(kin_names[k]), values_of(frame, share), 2, {Palette::ordered, 6 - 2 * k});
  }
  add_rule_year(chart, frame);
  return chart;
}

}  // namespace pedigreewatch
