#include "forecast/forecast_words.h"

#include <algorithm>

#include "planning/plan_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording base_line = {"base period: {1} to {2}, a generation interval of {3} years",
                               "basisperiode: {1} tot en met {2}, een generatie-interval van {3} jaar"};
constexpr Wording alike_line = {
    "practice of {1} to {2}, in which it was the same: litters a year, sires a litter, young of unknown parents",
    "de praktijk van {1} tot en met {2}, waarin die gelijk bleef: nesten per jaar, vaders per nest, jongen van onbekende "
    "ouders"};
constexpr Wording litters_line = {"litters a year: {1}, young a litter: {2}",
                                  "nesten per jaar: {1}, jongen per nest: {2}"};
constexpr Wording parents_line = {
    "sires a year: {1}, dams a year: {2}, litters a sire: {3}, of the most used one: {4} % of all",
    "vaders per jaar: {1}, moeders per jaar: {2}, nesten per vader: {3}, van de meest gebruikte: {4} % van alle"};
constexpr Wording lives_line = {"sires stay in use for {1} years and have {2} litters in life",
                                "vaders blijven {1} jaar in gebruik en krijgen in hun leven {2} nesten"};
constexpr Wording descent_line = {
    "young with one known parent: {1} %, with none: {2} %; parents that came into use from outside: {3} % of the sires, "
    "{4} % of the dams",
    "jongen met een bekende ouder: {1} %, zonder: {2} %; ouders die van buiten in gebruik kwamen: {3} % van de vaders, "
    "{4} % van de moeders"};
constexpr Wording levels_line = {
    "these went up or down, and the forecast goes on with where they are now: {1} litters a year, young with one known "
    "parent {2} %, with none {3} %",
    "deze liepen op of terug, en de vooruitblik gaat verder met waar ze nu zijn: {1} nesten per jaar, jongen met een "
    "bekende ouder {2} %, zonder {3} %"};
constexpr Wording evenness_line = {
    "of two litters of a year {1} % have the same sire, of two that are one to three years apart {2} %",
    "van twee nesten van een jaar heeft {1} % dezelfde vader, van twee die een tot drie jaar uiteen liggen {2} %"};
constexpr Wording within_groups = {" (within a subpopulation)", " (binnen een subpopulatie)"};
constexpr Wording unknown_sires_line = {
    "sire unknown: {1} % of the litters of dams with known parents, {2} % of those of other dams",
    "vader onbekend: {1} % van de nesten van moeders met bekende ouders, {2} % van die van andere moeders"};
constexpr Wording matings_line = {"matings of sibs, half sibs, or parent and offspring: {1} %",
                                  "paringen van broer en zus, halfbroer en halfzus, of ouder en kind: {1} %"};
constexpr Wording groups_line = {"sires from another subpopulation: {1} % of the litters",
                                 "vaders uit een andere subpopulatie: {1} % van de nesten"};
constexpr Wording incomplete_line = {"{1} is left out: too few births so far for a whole year",
                                     "{1} is weggelaten: tot nu toe te weinig geboorten voor een heel jaar"};

std::string one_decimal(double value) {
  return fixed_decimals(value, 1);
}

double mean_size(const CountedPractice& counted) {
  double mean = 0.0, size = 0.0;
  for (const float share : counted.litter_sizes) mean += (size += 1.0) * double{share};
  return mean;
}

}  // namespace

std::vector<std::string> practice_sentences(const BasePeriod& base, const CountedPractice& counted,
                                            const FamilyPractice& families, ToolLanguage language) {
  std::vector<std::string> lines;
  const auto add = [&](const Wording& wording, std::initializer_list<std::string_view> values) {
    lines.push_back(phrase(wording, language, values));
  };
  const std::string last = std::to_string(base.last_year);
  add(base_line, {std::to_string(base.first_year), last, one_decimal(base.generation_interval)});
  if (base.first_alike < base.first_year) add(alike_line, {std::to_string(base.first_alike), last});
  add(litters_line, {one_decimal(double{counted.litters_a_year}), one_decimal(mean_size(counted))});
  add(parents_line, {one_decimal(families.sires_a_year), one_decimal(families.dams_a_year),
                     one_decimal(families.litters_per_sire), percent_of(families.top_sire, 1)});
  if (families.years_in_use > 0.0) {
    add(lives_line, {one_decimal(families.years_in_use), one_decimal(families.families_in_life)});
  }
  add(descent_line, {percent_of(families.half_known, 1), percent_of(families.founders, 1),
                     percent_of(families.outside_sires, 1), percent_of(families.outside_dams, 1)});
  const PracticeLevels& levels = base.levels;
  if (levels.litters.is_trend || levels.founders.is_trend || levels.half_known.is_trend) {
    add(levels_line,
        {one_decimal(levels.litters.last), percent_of(levels.half_known.last, 1), percent_of(levels.founders.last, 1)});
  }
  if (families.no_sire_of_known > 0.0 || families.no_sire_of_others > 0.0) {
    add(unknown_sires_line, {percent_of(families.no_sire_of_known, 1), percent_of(families.no_sire_of_others, 1)});
  }
  if (families.evenness) {
    add(evenness_line, {percent_of(families.evenness->in_year, 1), percent_of(families.evenness->in_life, 1)});
    if (base.years.front().size() > 1) lines.back() += phrase(within_groups, language, {});
  }
  add(matings_line, {percent_of(families.close_matings, 1)});
  if (base.years.front().size() > 1) add(groups_line, {percent_of(families.between_groups, 1)});
  return lines;
}

std::string incomplete_sentence(std::int32_t year, ToolLanguage language) {
  return phrase(incomplete_line, language, {std::to_string(year)});
}

}  // namespace pedigreewatch
