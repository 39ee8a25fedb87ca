#include "planning/plan_candidates.h"

#include <algorithm>

#include "checks/readable_text.h"
#include "pedigree/known_sexes.h"

namespace pedigreewatch {
namespace {

/// Marks of the animals that a rule looks at, by position.
struct Marks {
  ByNumber<Flag> is_excluded, was_recent_parent;
  SexEvidence sexes;
};

Marks make_marks(const PopulationStore& store, const CandidateRules& rules) {
  Marks marks{ByNumber<Flag>(store.size()), ByNumber<Flag>(store.size()), find_sex_evidence(store)};
  for (const std::int32_t position : rules.excluded) marks.is_excluded[position] = 1;
  const std::int64_t first = std::int64_t{store.birth_years.last} - years_of_ages + 1;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.birth_year[i] == 0 || store.birth_year[i] < first) continue;
    marks.was_recent_parent[store.sire_no[i]] = 1;
    marks.was_recent_parent[store.dam_no[i]] = 1;
  }
  return marks;
}

/// Why an animal that would be a candidate is none; `used` where nothing stands in the way.
WhyNone find_reason(const PopulationStore& store, const CandidateRules& rules, const Marks& marks,
                    std::int32_t position) {
  if (marks.is_excluded[position] != 0) return WhyNone::excluded;
  if (rules.subpopulation && readable(store.subpopulation(position).trimmed()) != *rules.subpopulation) {
    return WhyNone::other_subpopulation;
  }
  const bool lacks_parent = store.sire_no[position] == 0 || store.dam_no[position] == 0;
  const bool is_little_known = double{store.generation_equivalents[position]} < rules.least_generations;
  return is_little_known || (rules.needs_known_parents && lacks_parent) ? WhyNone::little_known : WhyNone::used;
}

void take(const PopulationStore& store, const CandidateRules& rules, const Marks& marks, std::int32_t position, Sex sex,
          CandidatePool& pool) {
  const WhyNone reason = find_reason(store, rules, marks, position);
  if (reason == WhyNone::used) {
    pool.candidates.of(sex).positions.push_back(position);
  } else {
    pool.left_out.push_back({position, sex, reason});
  }
}

/// The same of an animal that no list names: it may have gone.
void take_available(const PopulationStore& store, const CandidateRules& rules, const Marks& marks,
                    std::int32_t position, Sex sex, CandidatePool& pool) {
  if (rules.available.has(position)) return take(store, rules, marks, position, sex, pool);
  pool.left_out.push_back({position, sex, WhyNone::gone});
  ++pool.gone;
}

void take_by_ages(const PopulationStore& store, const CandidateRules& rules, const Marks& marks, Sex sex,
                  CandidatePool& pool) {
  SexCandidates& candidates = pool.candidates.of(sex);
  candidates.source = CandidateSource::ages;
  candidates.ages = breeding_ages(store, sex);
  if (!candidates.ages) return;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::optional<std::int32_t> age = age_at_planned_births(store, i);
    if (!age || known_sex(store, marks.sexes, i) != sex) continue;
    if (*age < candidates.ages->youngest) {
      pool.left_out.push_back({i, sex, WhyNone::too_young});
    } else if (*age > candidates.ages->oldest) {
      if (marks.was_recent_parent[i] != 0) pool.left_out.push_back({i, sex, WhyNone::too_old});
    } else {
      take_available(store, rules, marks, i, sex, pool);
    }
  }
}

void take_by_years(const PopulationStore& store, const CandidateRules& rules, const Marks& marks, Sex sex,
                   CandidatePool& pool) {
  SexCandidates& candidates = pool.candidates.of(sex);
  candidates.source = CandidateSource::years;
  if (store.birth_years.dated_row_count() == 0) return;
  const std::int64_t first = std::int64_t{store.birth_years.last} - *rules.years + 1;
  candidates.last_year = store.birth_years.last;
  candidates.first_year = static_cast<std::int32_t>(std::max<std::int64_t>(first, store.birth_years.first));
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year == 0 || year < candidates.first_year || known_sex(store, marks.sexes, i) != sex) continue;
    take_available(store, rules, marks, i, sex, pool);
  }
}

/// Whether an animal would be a candidate if it were of this sex.
bool is_of_age(const PopulationStore& store, const SexCandidates& candidates, std::int32_t position) {
  const std::int32_t year = store.birth_year[position];
  if (year == 0 || candidates.source == CandidateSource::list) return false;
  if (candidates.source == CandidateSource::years) return year >= candidates.first_year;
  const std::optional<std::int32_t> age = age_at_planned_births(store, position);
  return age && candidates.ages && *age >= candidates.ages->youngest && *age <= candidates.ages->oldest;
}

/// Animals of which nobody knows for which sex they would be candidates.
void leave_out_unknown_sexes(const PopulationStore& store, const CandidateRules& rules, const Marks& marks,
                             CandidatePool& pool) {
  if (store.kept.records_without_sex.empty()) return;
  ByNumber<Flag> is_listed(store.size());
  for (const Sex sex : {male, female}) {
    for (const std::int32_t position : pool.candidates.of(sex).positions) is_listed[position] = 1;
  }
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (is_listed[i] != 0 || !rules.available.has(i) || known_sex(store, marks.sexes, i)) continue;
    const bool is_meant =
        is_of_age(store, pool.candidates.of_males, i) || is_of_age(store, pool.candidates.of_females, i);
    if (!is_meant || find_reason(store, rules, marks, i) != WhyNone::used) continue;
    pool.left_out.push_back({i, std::nullopt, WhyNone::unknown_sex});
    ++pool.unknown_sexes;
  }
}

}  // namespace

CandidatePool gather_candidates(const PopulationStore& store, const CandidateRules& rules) {
  CandidatePool pool;
  const Marks marks = make_marks(store, rules);
  for (const Sex sex : {male, female}) {
    pool.candidates.of(sex).are_available = rules.available.is_told;
    if (const auto& listed = rules.listed.of(sex)) {
      for (const std::int32_t position : *listed) take(store, rules, marks, position, sex, pool);
    } else if (rules.years) {
      take_by_years(store, rules, marks, sex, pool);
    } else {
      take_by_ages(store, rules, marks, sex, pool);
    }
  }
  leave_out_unknown_sexes(store, rules, marks, pool);
  return pool;
}

}  // namespace pedigreewatch
