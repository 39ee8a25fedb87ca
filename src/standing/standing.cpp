// The table of contents of the first screen. Rates are seen from the young of the last generation interval, followed
// back for three intervals: long enough to see the breeding and not the chances of a year, short enough to be about the
// parents that were chosen of late.

#include "standing/standing.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/shares.h"
#include "standing/window_pedigree.h"

namespace pedigreewatch {
namespace {

constexpr double generations_of_now = 3.0;
constexpr std::int32_t recent_years = 5, known_years = 10;

/// What the steps below look at.
struct Breed {
  const PopulationStore& store;
  double interval = 0.0;
  ByNumber<std::int32_t> birth_years;

  /// Whole years, at least one.
  std::int32_t years_of(double generations) const {
    return std::max(1, static_cast<std::int32_t>(std::lround(generations * interval)));
  }
  std::vector<std::int32_t> born(std::int32_t first, std::int32_t last) const {
    std::vector<std::int32_t> positions;
    for (std::int32_t i = 1; i <= store.animal_count; ++i) {
      if (store.birth_year[i] != 0 && store.birth_year[i] >= first && store.birth_year[i] <= last)
        positions.push_back(i);
    }
    return positions;
  }
  /// From the animals born from `first` to `last`, ancestors being looked at that were born from `window_first` on.
  WindowPedigree window(std::int32_t first, std::int32_t last, std::int32_t window_first) const {
    const std::vector<std::int32_t> cohort = born(first, last);
    return make_window_pedigree(store, birth_years, {cohort, window_first});
  }
  RateEstimate rate(std::int32_t first, std::int32_t last, std::int32_t window_first) const {
    return estimate_by_kinship(window(first, last, window_first));
  }
};

StandingYears years_of(const Breed& breed) {
  StandingYears years;
  const BirthYears& dated = breed.store.birth_years;
  years.last = dated.dated_row_count() > 0 ? dated.last : 0;
  years.generation_interval = breed.interval;
  years.recent_first = years.last - recent_years + 1;
  years.known_first = years.last - known_years + 1;
  years.cohort_first = years.last - breed.years_of(1.0) + 1;
  years.now_first = years.last - breed.years_of(generations_of_now) + 1;
  return years;
}

StandingData describe_data(const Breed& breed, const StandingYears& years, const VerdictFaults& faults) {
  const PopulationStore& store = breed.store;
  StandingData data;
  data.faults = faults;
  data.is_faulty = are_too_many(faults, store.animal_count);
  if (years.has_interval()) data.cohort = std::ssize(breed.born(years.cohort_first, years.last));
  const std::vector<std::int32_t> recent = breed.born(years.recent_first, years.last);
  for (const std::int32_t i : recent) data.equivalents += double{store.generation_equivalents[i]};
  if (!recent.empty()) data.equivalents /= static_cast<double>(recent.size());
  const std::vector<std::int32_t> young = breed.born(years.known_first, years.last);
  const auto both = std::count_if(young.begin(), young.end(),
                                  [&](std::int32_t i) { return store.sire_no[i] > 0 && store.dam_no[i] > 0; });
  data.known_young = std::ssize(young);
  if (!young.empty()) data.both_known = share_of(both, young.size());
  std::int64_t known = 0, bred = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const int parents = (store.sire_no[i] > 0 ? 1 : 0) + (store.dam_no[i] > 0 ? 1 : 0);
    known += parents;
    bred += parents > 0 ? 1 : 0;
  }
  if (bred > 0) data.unknown_parents = 1.0 - share_of(known, 2 * bred);
  return data;
}

void describe_young(const Breed& breed, Standing& standing) {
  const PopulationStore& store = breed.store;
  YoungOfFiveYears& young = standing.young;
  const std::int32_t first = standing.years.recent_first;
  const std::vector<std::int32_t> recent = breed.born(first, standing.years.last);
  young.births = std::ssize(recent);
  young.births_before = std::ssize(breed.born(first - recent_years, first - 1));
  for (const std::int32_t i : recent) {
    if (store.generation_equivalents[i] < shallow_equivalents) ++young.shallow;
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent <= 0) continue;
      ++young.known_parents;
      if (store.has_import && store.is_import[parent] != 0) ++young.imported_parents;
    }
    if (store.sire_no[i] <= 0 || store.dam_no[i] <= 0) continue;
    ++young.judged;
    const float f = std::max(0.0F, store.inbreeding[i]);
    young.inbreeding += double{f};
    if (double{f} > standing.settings.most_inbreeding) ++young.above_most;
    if (f >= close_inbreeding) ++young.close;
  }
  if (young.judged > 0) young.inbreeding /= static_cast<double>(young.judged);
  standing.sires = parents_in_use(store.sire_no, recent);
  standing.dams = parents_in_use(store.dam_no, recent);
  young.chance_inbreeding = chance_inbreeding(store, standing.sires, standing.dams);
}

/// As inbreeding rises by 1/(8 sires) + 1/(8 dams) (Wright, 1931) the rate of today changes by the ratio of the two
/// sums.
void advise_on_sires(Standing& standing, const AvailableAnimals& available) {
  const std::vector<ParentShare>& sires = standing.sires.parents;
  const double most = standing.settings.most_sire_share;
  const auto allowed = std::find_if(sires.begin(), sires.end(), [&](const ParentShare& s) { return s.share <= most; });
  standing.overused_sires = allowed - sires.begin();
  std::copy_if(sires.begin(), allowed, std::back_inserter(standing.sires_to_rest),
               [&](const ParentShare& sire) { return available.has(sire.parent); });
  if (standing.overused_sires == 0 || !standing.rate().rate || standing.dams.effective <= 0.0) return;
  const double dams = 1.0 / standing.dams.effective;
  const double held = 1.0 / effective_number_held(standing.sires, most) + dams;
  standing.rate_with_sires_held = *standing.rate().rate * held / (1.0 / standing.sires.effective + dams);
}

struct RateBefore {
  RateEstimate rate;
  std::optional<LackingParents> lacking;  ///< why there is no rate
};

/// Of the three generation intervals before a year, to be compared with the years from it to `last`.
RateBefore estimate_before(const Breed& breed, std::int32_t year, std::int32_t last) {
  RateBefore before;
  const std::int32_t interval = breed.years_of(1.0), cohort = year - interval;
  const std::int32_t window_first = year - breed.years_of(generations_of_now);
  if (std::ssize(breed.born(cohort, year - 1)) < least_cohort) return before;
  before.lacking = find_lacking_parents(breed.store, {window_first, window_first + interval - 1}, {year, last});
  if (before.lacking) return before;
  const RateEstimate rate = breed.rate(cohort, year - 1, window_first);
  if (rate.generations >= least_generations) before.rate = rate;
  return before;
}

void estimate_now(const Breed& breed, Standing& standing) {
  const StandingYears& years = standing.years;
  constexpr double near = 2.0, far = 5.0;  // generations
  const auto window = [&](double generations) {
    return breed.window(years.cohort_first, years.last, years.last - breed.years_of(generations) + 1);
  };
  standing.now[by_kinship] = estimate_by_kinship(window(generations_of_now));
  standing.now[by_inbreeding] = estimate_by_inbreeding(window(near), window(far));
  standing.now[by_parents_in_use] = estimate_by_kinship(window(1.0));
  const RateBefore before = estimate_before(breed, years.now_first, years.last);
  standing.before = before.rate;
  standing.lacking_before = before.lacking;
}

std::optional<RuleEffect> estimate_rule(const Breed& breed, const Standing& standing) {
  if (!standing.settings.rule_year) return std::nullopt;
  RuleEffect effect;
  effect.year = *standing.settings.rule_year;
  const std::int32_t last = standing.years.last, cohort = breed.years_of(1.0);
  if (effect.year > last || effect.year <= breed.store.birth_years.first) return effect;
  const bool has_lasted = last - effect.year + 1 >= cohort;  // else its young have no young yet
  const bool has_young = std::ssize(breed.born(last - cohort + 1, last)) >= least_cohort;
  if (has_lasted && has_young) effect.since = breed.rate(last - cohort + 1, last, effect.year);
  const RateBefore before = estimate_before(breed, effect.year, last);
  effect.before = before.rate;
  effect.lacking_before = before.lacking;
  effect.is_real = is_real_change(effect.before, effect.since);
  return effect;
}

AgesAtBirths ages_at_births(const PopulationStore& store) {
  AgesAtBirths ages;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    for (const Sex sex : {male, female}) {
      const std::int32_t parent = sex == male ? store.sire_no[i] : store.dam_no[i];
      if (parent <= 0) continue;
      ++ages.parents.of(sex);
      if (store.birth_year[i] > 0 && store.birth_year[parent] != 0) ++ages.ages.of(sex);
    }
  }
  return ages;
}

/// What is told of generations: rates, what they cost, and lines nearly lost.
void look_at_generations(const Breed& breed, const AvailableAnimals& available, Standing& standing) {
  estimate_now(breed, standing);
  standing.rule = estimate_rule(breed, standing);
  advise_on_sires(standing, available);
  constexpr std::size_t most_lines = 4;
  const std::vector<std::int32_t> living =
      breed.born(standing.years.last - breed.years_of(2.0) + 1, standing.years.last);
  standing.rare_lines = find_rare_lines(breed.store, living, most_lines, available);
}

void judge(Standing& standing) {
  const StandingData& data = standing.data;
  const Evidence evidence = {data.cohort, data.equivalents, data.both_known, data.is_faulty,
                             standing.years.has_interval()};
  standing.obstacles = obstacles_of(standing.rate(), evidence);
  if (standing.obstacles != no_obstacle) return;
  standing.pace = pace_of_size(effective_size_of(*standing.rate().rate));
  standing.sureness = sureness_of(standing.now, data.equivalents);
}

}  // namespace

std::optional<double> Standing::sires_part_of_rise() const {
  if (sires.effective <= 0.0 || dams.effective <= 0.0) return std::nullopt;
  const double of_sires = 1.0 / sires.effective, of_dams = 1.0 / dams.effective;
  return of_sires / (of_sires + of_dams);
}

std::optional<double> Standing::generations_gained_by_import() const {
  const double today = young.chance_inbreeding;
  if (!rate().rate || *rate().rate <= 0.0 || today >= 1.0) return std::nullopt;
  return (today - inbreeding_with_import()) / (*rate().rate * (1.0 - today));
}

Standing compute_standing(const PopulationStore& store, double generation_interval, const StandingSettings& settings,
                          const VerdictFaults& faults, const AvailableAnimals& available) {
  Standing standing;
  standing.settings = settings;
  standing.is_availability_told = available.is_told;
  constexpr double longest_interval = 1000.0;
  const bool has_interval = generation_interval > 0.0 && generation_interval <= longest_interval;
  Breed breed{store, has_interval ? generation_interval : 0.0, {}};
  if (has_interval) breed.birth_years = years_of_birth(store, generation_interval);
  standing.years = years_of(breed);
  standing.ages = ages_at_births(store);
  if (!has_interval && !std::isnan(generation_interval)) standing.ages.impossible_interval = generation_interval;
  standing.data = describe_data(breed, standing.years, faults);
  describe_young(breed, standing);
  if (has_interval) {
    look_at_generations(breed, available, standing);
  } else if (settings.rule_year) {
    standing.rule.emplace().year = *settings.rule_year;
  }
  judge(standing);
  return standing;
}

}  // namespace pedigreewatch
