// A year of the model herd: parents go on or stop, dams come into use until there are as many litters as in a base
// year, sires until there are as many as there were, litters are shared among the sires, mated, born, and described.

#include "forecast/model_herd.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <utility>

#include "forecast/model_entry.h"
#include "forecast/model_matings.h"
#include "forecast/model_plan.h"
#include "forecast/sire_use.h"

namespace pedigreewatch {
namespace {

/// What a year is to have in one group.
struct GroupTarget {
  GroupYear numbers;
  BySex<std::int32_t> imports;
  std::int32_t like_year = 0;  ///< the year observed that it is taken from
  BySex<double> level = {};    ///< multiples of the parents that are usually in use
};

/// A whole number of which the real one is the mean.
std::int32_t round_at_random(double value, RandomStream& random) {
  return static_cast<std::int32_t>(std::floor(std::max(value, 0.0) + random.unit()));
}

double litters_of(const std::vector<GroupYear>& year) {
  double litters = 0.0;
  for (const GroupYear& group : year) litters += group.with_both + group.without_sire;
  return litters;
}

/// How the numbers of a year are changed by a rule.
double factor_of(const Amount& amount, double present) {
  return present > 0.0 ? std::max(0.0, amount.of(present)) / present : 1.0;
}

/// Trial herds, which are before the first replicate, keep to the numbers of the years observed.
NumberYear numbers_ahead(const ModelHerd& herd, std::int32_t year) {
  if (herd.replicate < 0) return {};
  return follow_paths(herd.basis.base.paths, year - herd.basis.base.last_year, herd.stream(0, DrawPurpose::numbers));
}

/// Litters of a year: those of one of the base years, or what they come to along a path, which has good and bad years
/// of its own.
double litters_ahead(const ModelHerd& herd, const NumberYear& ahead, RandomStream& random) {
  const BasePeriod& base = herd.basis.base;
  const auto base_years = base.base_years();
  const auto litters = [&](std::size_t year) {
    return base.levels.litters.factors[year] * litters_of(base_years[year]);
  };
  const std::size_t drawn = random.place_among(base_years.size());
  if (base.paths.empty() || herd.replicate < 0) return litters(drawn);
  double mean = 0.0;
  for (std::size_t year = 0; year < base_years.size(); ++year) mean += litters(year) / base.length();
  return std::max(1.0, mean * ahead.litters);
}

/// Imports of the rules, to the groups in turn, but for that of the animals without a subpopulation.
void add_imports(const BreedingRules& rules, std::int32_t year, std::vector<GroupTarget>& targets) {
  const std::size_t groups = targets.size() == 1 ? 1 : targets.size() - 1;
  for (const Sex sex : {male, female}) {
    for (std::int32_t k = 0; k < rules.imports.of(sex); ++k) {
      ++targets[targets.size() - 1 - static_cast<std::size_t>(year + k) % groups].imports.of(sex);
    }
  }
}

/// A year of the present practice, with numbers as they may come to be, changed by the rules; by group.
std::vector<GroupTarget> draw_targets(const ModelHerd& herd, std::int32_t year) {
  const BasePeriod& base = herd.basis.base;
  RandomStream random = herd.stream(year, DrawPurpose::targets);
  const std::size_t like = random.place_among(base.years.size());
  const std::vector<GroupYear>& drawn = base.years[like];
  const NumberYear ahead = numbers_ahead(herd, year);
  const double litters = litters_ahead(herd, ahead, random);
  double sires = 0.0;
  for (const GroupYear& group : drawn) sires += group.in_use.of_males;
  const double as_now = litters_of(drawn) > 0.0 ? litters / litters_of(drawn) : 1.0;
  const double trend = std::max(0.0, 1.0 + herd.rules.trend * (year - base.last_year));
  const double litter_factor = trend * as_now * factor_of(herd.rules.litters, litters);
  const Amount& wanted = herd.rules.sires;
  const double sire_factor =
      as_now * (wanted.is_changed() ? factor_of(wanted, as_now * sires) : ahead.sires_per_litter);
  const BySex<double> level = {ahead.litter_level * ahead.sires_per_litter, ahead.litter_level};
  std::vector<GroupTarget> targets;
  for (GroupYear group : drawn) {
    const double half_known = base.levels.half_known.factors[like], founders = base.levels.founders.factors[like];
    const double with_dam = group.with_both + group.without_sire;
    const double without_sire = std::min(with_dam, half_known * group.without_sire);
    const double with_both = with_dam - without_sire;
    group.with_both = round_at_random(litter_factor * with_both, random);
    group.without_sire = round_at_random(litter_factor * without_sire, random);
    group.without_dam = round_at_random(litter_factor * half_known * group.without_dam, random);
    group.founders = round_at_random(litter_factor * founders * group.founders, random);
    group.in_use.of_males = round_at_random(sire_factor * group.in_use.of_males, random);
    group.entered.of_males = round_at_random(sire_factor * group.entered.of_males, random);
    group.entered.of_females = round_at_random(litter_factor * group.entered.of_females, random);
    targets.push_back({group, {}, base.first_alike + static_cast<std::int32_t>(like), level});
  }
  add_imports(herd.rules, year, targets);
  return targets;
}

/// How many new parents come into use: as many as in a year of the base period, more or fewer where fewer or more than
/// usual go on.
std::int32_t wanted_new(ModelHerd& herd, Sex sex, GroupNo group, const GroupTarget& target, std::size_t ready) {
  const BasePeriod& base = herd.basis.base;
  const double usual = target.level.of(sex) * herd.basis.going_on.of(sex)[group];
  // What is less than a parent, or less than none, is left for the next year, so that the mean is right in small
  // groups.
  double& owed = herd.owed.of(sex)[group];
  owed += target.numbers.entered.of(sex) + base.vacancies_filled.of(sex) * (usual - static_cast<double>(ready));
  const std::int32_t entering = std::max(0, static_cast<std::int32_t>(std::lround(owed)));
  owed = std::max(owed - entering, -std::max(1.0, usual));
  return entering;
}

/// Somebody who would have had no litter this year has one.
void wake(ModelParent& parent) {
  parent.use = 1.0;
  parent.sum_use += 1.0;
  parent.pause = 0;
}

/// Dams that would have had none this year get a litter.
void wake_dams(std::vector<ModelParent>& dams, std::span<const std::size_t> members, std::int32_t litters,
               std::int32_t& found, RandomStream& random) {
  std::vector<std::size_t> resting;
  for (const std::size_t k : members) {
    if (dams[k].use <= 0.0) resting.push_back(k);
  }
  shuffle(random, std::span(resting));
  for (std::size_t k = 0; found < litters && k < resting.size(); ++k) {
    ModelParent& dam = dams[resting[k]];
    wake(dam);
    dam.litters = 1;
    ++found;
  }
}

/// The dams of a group with their litters of this year: those who go on, and as many new ones as are missing.
void fill_dams(ModelHerd& herd, GroupNo group, const GroupTarget& target, std::int32_t year, RandomStream& random) {
  std::vector<ModelParent>& dams = herd.parents.of_females;
  for (std::int32_t k = 0; k < target.imports.of_females; ++k) enter_import(herd, female, group, year, random);
  const std::int32_t litters = target.numbers.with_both + target.numbers.without_sire;
  std::vector<std::size_t> ready;
  std::int32_t found = 0;
  for (const std::size_t k : herd.members.of_females[group]) {
    if (dams[k].use <= 0.0) continue;
    ready.push_back(k);
    dams[k].litters = herd.rules.has_one_litter ? 1 : static_cast<std::int32_t>(dams[k].use);
    found += dams[k].litters;
  }
  const auto enter = [&](std::int32_t most) {
    if (!enter_parent(herd, female, group, year, draw_entry(herd.basis.base, female, group, random), random)) {
      return false;
    }
    ModelParent& dam = dams.back();
    const std::int32_t wanted = herd.rules.has_one_litter ? 1 : std::max(1, static_cast<std::int32_t>(dam.use));
    dam.litters = std::min(wanted, most);
    found += dam.litters;
    return true;
  };
  const std::int32_t missing = wanted_new(herd, female, group, target, ready.size());
  for (std::int32_t k = 0; k < missing && enter(std::max(1, litters)); ++k) {
  }
  shuffle(random, std::span(ready));
  for (std::size_t k = 0; found > litters && k < ready.size(); ++k) {
    const std::int32_t less = std::min(found - litters, dams[ready[k]].litters);
    dams[ready[k]].litters -= less;
    found -= less;
  }
  if (found < litters) wake_dams(dams, herd.members.of_females[group], litters, found, random);
  while (found < litters && enter(litters - found)) {
  }
}

/// Where the sire of a litter comes from.
GroupNo draw_sire_group(const ModelHerd& herd, const std::vector<GroupShare>& open, GroupNo group,
                        RandomStream& random) {
  const double drawn = random.unit();
  const GroupNo groups = herd.basis.records.groups;
  if (groups == 1 || herd.rules.exchange == Exchange::closed) return group;
  if (herd.rules.exchange == Exchange::rotation && group > 0) return group == 1 ? groups - 1 : group - 1;
  const std::vector<GroupShare>& shares =
      herd.rules.exchange == Exchange::open ? open : herd.basis.base.sire_groups[group];
  double sum = 0.0;
  for (const GroupShare& other : shares) {
    sum += other.share;
    if (drawn < sum) return other.group;
  }
  return group;
}

/// Which litters have an unknown sire: those of dams of unknown descent more often, as was observed. Of all that could
/// be, those of the highest key are, which draws them by their weights without replacement (Efraimidis and Spirakis,
/// 2006).
void choose_without_sire(const ModelHerd& herd, const std::vector<GroupTarget>& targets,
                         std::vector<WantedLitter>& litters, RandomStream& random) {
  std::vector<std::vector<std::pair<double, std::size_t>>> keys(targets.size());
  for (std::size_t k = 0; k < litters.size(); ++k) {
    const ModelParent& dam = herd.parents.of_females[litters[k].dam];
    const double weight = herd.basis.base.without_sire[dam.descent];
    const double drawn = random.unit();
    constexpr double hardly = 1e-3;  // where too few others are left
    keys[litters[k].group].emplace_back(std::log(1.0 - drawn) / std::max(weight, hardly), k);
  }
  for (std::size_t group = 0; group < targets.size(); ++group) {
    std::sort(keys[group].begin(), keys[group].end(), std::greater<>());
    const auto wanted = std::min(static_cast<std::size_t>(targets[group].numbers.without_sire), keys[group].size());
    for (std::size_t k = 0; k < wanted; ++k) litters[keys[group][k].second].has_sire = false;
  }
}

/// The part of each group in the litters with two known parents.
std::vector<GroupShare> shares_of_litters(const std::vector<GroupTarget>& targets) {
  std::vector<GroupShare> shares;
  double litters = 0.0;
  for (GroupNo group = 0; group < targets.size(); ++group) {
    const double with_both = targets[group].numbers.with_both;
    shares.push_back({group, with_both});
    litters += with_both;
  }
  for (GroupShare& group : shares) {
    group.share = litters > 0.0 ? group.share / litters : 1.0 / static_cast<double>(shares.size());
  }
  return shares;
}

/// All litters that are to be born, in any order.
std::vector<WantedLitter> list_litters(ModelHerd& herd, const std::vector<GroupTarget>& targets, std::int32_t year) {
  RandomStream random = herd.stream(year, DrawPurpose::groups);
  const std::vector<GroupShare> open = shares_of_litters(targets);
  std::vector<WantedLitter> litters;
  for (std::size_t k = 0; k < herd.parents.of_females.size(); ++k) {
    const ModelParent& dam = herd.parents.of_females[k];
    for (std::int32_t n = 0; n < dam.litters; ++n) litters.push_back({k, dam.group, dam.group, true});
  }
  shuffle(random, std::span(litters));
  choose_without_sire(herd, targets, litters, random);
  for (GroupNo group = 0; group < targets.size(); ++group) {
    for (std::int32_t n = 0; n < targets[group].numbers.without_dam; ++n) {
      litters.push_back({unknown_dam, group, group, true});
    }
  }
  for (WantedLitter& litter : litters) {
    if (litter.has_sire) litter.sire_group = draw_sire_group(herd, open, litter.group, random);
  }
  return litters;
}

/// What a sire may have this year.
std::int32_t most_litters(const ModelHerd& herd, const ModelParent& sire) {
  std::int32_t most = std::numeric_limits<std::int32_t>::max() / 2;
  if (herd.rules.litters_a_year) most = *herd.rules.litters_a_year;
  if (herd.rules.litters_in_life) most = std::min(most, *herd.rules.litters_in_life - sire.litters_in_life);
  return most;
}

/// What a sire's share of the litters goes by.
double weight_of(const ModelBasis& basis, const ModelParent& sire) {
  const double mean_use = sire.sum_use / std::max(sire.years, 1);
  return std::pow(sire.use, basis.use_power) * std::pow(std::max(mean_use, 0.01), basis.life_power);
}

/// The sires of a group that have use this year; counts those that a rule ends.
std::vector<std::size_t> ready_sires(ModelHerd& herd, GroupNo group) {
  std::vector<std::size_t> ready;
  for (const std::size_t k : herd.members.of_males[group]) {
    const ModelParent& sire = herd.parents.of_males[k];
    if (sire.use <= 0.0) continue;
    if (most_litters(herd, sire) > 0) {
      ready.push_back(k);
    } else {
      ++herd.year.refused.sires;
    }
  }
  return ready;
}

void count_refused(ModelHerd& herd, std::span<const SireShare> shares, std::int64_t litters, RandomStream random) {
  if (!herd.rules.litters_a_year && !herd.rules.litters_in_life) return;
  std::vector<SireShare> free(shares.begin(), shares.end());
  for (SireShare& share : free) share.most = static_cast<std::int32_t>(litters);
  const std::vector<std::int32_t> wished = share_litters(free, litters, random);
  for (std::size_t k = 0; k < shares.size(); ++k) {
    if (wished[k] <= shares[k].most) continue;
    ++herd.year.refused.sires;
    herd.year.refused.litters += wished[k] - shares[k].most;
  }
}

/// How many sires there should be: with a rule on them as many as it says, otherwise those who go on and the new ones.
std::int32_t wanted_sires(ModelHerd& herd, GroupNo group, const GroupTarget& target, std::size_t ready) {
  return herd.rules.sires.is_changed()
             ? target.numbers.in_use.of_males
             : static_cast<std::int32_t>(ready) + wanted_new(herd, male, group, target, ready);
}

/// Where there are to be fewer sires than go on, any of them rest this year; this year's imports last.
void rest_sires(std::vector<std::size_t>& ready, std::size_t wanted, std::int32_t imports, RandomStream& random) {
  if (ready.size() <= wanted) return;
  const std::span<std::size_t> all = ready;
  const std::span<std::size_t> new_ones = all.last(std::min(static_cast<std::size_t>(imports), all.size()));
  shuffle(random, all.first(all.size() - new_ones.size()));
  std::rotate(all.begin(), new_ones.begin(), all.end());
  ready.resize(wanted);
}

/// A sire that would have had none this year is used, where there would be no other.
void wake_sire(ModelHerd& herd, GroupNo group, std::vector<std::size_t>& ready, RandomStream& random) {
  std::vector<ModelParent>& sires = herd.parents.of_males;
  std::vector<std::size_t> resting;
  for (const std::size_t k : herd.members.of_males[group]) {
    if (sires[k].use <= 0.0 && most_litters(herd, sires[k]) > 0) resting.push_back(k);
  }
  if (resting.empty()) return;
  ready.push_back(pick(random, resting));
  wake(sires[ready.back()]);
}

/// The sires of a group with their litters of this year: those who go on, and new ones until there are as many as in
/// the base year, or enough for the litters.
void fill_sires(ModelHerd& herd, GroupNo group, const GroupTarget& target, std::int64_t litters, std::int32_t year) {
  const std::int32_t stream = year * 64 + static_cast<std::int32_t>(group);
  RandomStream entry = herd.stream(stream, DrawPurpose::sire_entry);
  RandomStream use = herd.stream(stream, DrawPurpose::sire_use);
  for (std::int32_t k = 0; k < target.imports.of_males; ++k) enter_import(herd, male, group, year, entry);
  if (litters == 0) return;
  std::vector<std::size_t> ready = ready_sires(herd, group);
  std::int64_t most = 0;
  const std::int32_t usual = wanted_sires(herd, group, target, ready.size());
  if (usual <= 0) wake_sire(herd, group, ready, use);
  const auto wanted = static_cast<std::size_t>(std::clamp<std::int64_t>(usual, 1, litters));
  if (herd.rules.sires.is_changed()) rest_sires(ready, wanted, target.imports.of_males, use);
  for (const std::size_t k : ready) most += most_litters(herd, herd.parents.of_males[k]);
  std::vector<std::int32_t> entries = entries_of_year(herd.basis, group, target.like_year, entry);
  while (ready.size() < wanted || most < litters) {
    if (entries.empty()) entries.push_back(draw_entry(herd.basis.base, male, group, entry));
    if (!enter_parent(herd, male, group, year, entries.back(), entry)) break;
    entries.pop_back();
    ready.push_back(herd.parents.of_males.size() - 1);
    most += most_litters(herd, herd.parents.of_males.back());
  }
  std::vector<SireShare> shares;
  for (const std::size_t k : ready) {
    const ModelParent& sire = herd.parents.of_males[k];
    shares.push_back({weight_of(herd.basis, sire),
                      static_cast<std::int32_t>(std::min<std::int64_t>(litters, most_litters(herd, sire)))});
  }
  // Those who came into use because of the limit alone would have had none.
  const std::size_t without_limit = std::min(shares.size(), wanted);
  count_refused(herd, std::span(shares).first(without_limit), litters, use);
  const std::vector<std::int32_t> numbers = share_litters(shares, litters, use);
  for (std::size_t k = 0; k < ready.size(); ++k) herd.parents.of_males[ready[k]].litters = numbers[k];
}

void note_new_parents(ModelHerd& herd) {
  if (herd.has_table()) {
    add_rows(herd.table, herd.new_parents);
  } else {
    for (const NewRow& parent : herd.new_parents) add_to_walk(*herd.walk, parent.sire, parent.dam, parent.f);
  }
  herd.new_parents.clear();
}

Descent descent_of_family(const ModelPedigree& pedigree, const ModelFamily& family) {
  if (family.sire != 0 && family.dam != 0) {
    const auto has_both = [&](std::int32_t animal) { return pedigree.sire[animal] != 0 && pedigree.dam[animal] != 0; };
    return has_both(family.sire) && has_both(family.dam) ? Descent::deep : Descent::known;
  }
  return family.sire != 0 || family.dam != 0 ? Descent::half_known : Descent::founder;
}

/// Gives the families their young, who become candidates.
void bear_young(ModelHerd& herd, std::int32_t year) {
  RandomStream random = herd.stream(year, DrawPurpose::births);
  const BasePeriod& base = herd.basis.base;
  const std::size_t lists = lists_of(herd.basis.records.groups);
  CandidateYear& candidates =
      herd.candidates.emplace_back(CandidateYear{std::vector<Candidates>(lists), std::vector<std::int32_t>(lists)});
  herd.youngest.clear();
  for (std::size_t k = herd.first_of_year; k < herd.families.size(); ++k) {
    ModelFamily& family = herd.families[k];
    const std::int32_t size = pick(random, base.sizes);
    family.young = family.dam != 0 ? size : 1;
    herd.youngest.push_back({family.sire, family.dam, family.young, family.f});
    herd.last_litter[family.sire] = herd.last_litter[family.dam] = year;
    const Descent descent = descent_of_family(herd.pedigree, family);
    for (std::int32_t young = 0; young < family.young; ++young) {
      const Sex sex = random.chance(base.male_share[descent]) ? male : female;
      const std::size_t list = list_of(family.group, sex, descent);
      candidates.lists[list].push_back(static_cast<std::int32_t>(k));
      ++candidates.born[list];
    }
  }
  herd.last_litter[0] = 0;
}

/// Rows of parents who are out of use and whose young are too old to come into use are used again.
void forget_old(ModelHerd& herd, std::int32_t year) {
  const BasePeriod& base = herd.basis.base;
  const std::int32_t oldest = std::max({base.oldest_entry.of_males, base.oldest_entry.of_females,
                                        herd.rules.least_age.of_males, herd.rules.least_age.of_females});
  const std::int32_t first_wanted = year + 1 - oldest;
  std::int32_t born = herd.basis.first_candidate_year;
  for (CandidateYear& candidates : herd.candidates) {
    if (born++ >= first_wanted) break;
    for (Candidates& list : candidates.lists) list.clear();
  }
  if (!herd.has_table()) return;
  ByNumber<Flag> is_active(herd.pedigree.count());
  is_active[herd.basis.origin] = 1;
  for (const Sex sex : {male, female}) {
    for (const ModelParent& parent : herd.parents.of(sex)) is_active[parent.animal] = 1;
  }
  for (const std::int32_t animal : herd.table.animal_of) {
    if (animal == 0 || is_active[animal] != 0) continue;
    if (herd.last_litter[animal] < first_wanted) free_row(herd.table, animal);
  }
}

struct MeanAge {
  double years = 0.0, young = 0.0;
};

std::optional<double> find_parent_age(const ModelHerd& herd, std::int32_t year) {
  MeanAge sires, dams;
  const auto add = [&](MeanAge& mean, const YoungOf& family, std::int32_t parent) {
    if (parent == 0 || herd.birth_year[parent] == 0) return;
    const double young = family.young;
    mean.years += young * (year - herd.birth_year[parent]);
    mean.young += young;
  };
  for (const YoungOf& family : herd.youngest) {
    add(sires, family, family.sire);
    add(dams, family, family.dam);
  }
  if (sires.young == 0.0 || dams.young == 0.0) return std::nullopt;
  return 0.5 * (sires.years / sires.young + dams.years / dams.young);
}

void describe(ModelHerd& herd, std::int32_t year) {
  std::vector<std::int32_t> sires;
  for (const YoungOf& family : herd.youngest) {
    if (family.sire != 0) sires.push_back(family.sire);
    if (family.dam != 0) ++herd.year.litters;
  }
  herd.year.sires = count_different(std::move(sires));
  herd.year.parent_age = find_parent_age(herd, year);
  herd.year.kinship = describe_year(herd.pedigree, herd.youngest, herd.weights);
}

void list_members(ModelHerd& herd, Sex sex) {
  std::vector<std::vector<std::size_t>>& members = herd.members.of(sex);
  members.resize(herd.basis.records.groups);
  for (std::vector<std::size_t>& of_group : members) of_group.clear();
  const std::vector<ModelParent>& parents = herd.parents.of(sex);
  for (std::size_t k = 0; k < parents.size(); ++k) members[parents[k].group].push_back(k);
}

/// The young of the last real year.
std::vector<YoungOf> real_youngest(const ModelBasis& basis) {
  const ByNumber<std::int32_t>& number = basis.ancestors.number_of_animal;
  std::vector<YoungOf> youngest;
  for (const Family& family : basis.records.of_year(basis.records.last_year)) {
    youngest.push_back(
        {number[family.sire], number[family.dam], family.young, basis.records.store.inbreeding[family.first]});
  }
  return youngest;
}

ModelParent begin_parent(const ModelBasis& basis, Sex sex, const ActiveParent& active) {
  const CareerRecords& careers = basis.base.careers.of(sex);
  const Career& career = careers.at(active.career);
  ModelParent parent;
  parent.animal = active.animal;
  parent.group = career.group;
  parent.descent = career.descent;
  parent.point = {active.career, careers.last_year};
  parent.pause = careers.last_year - career.last_year();
  parent.years = careers.last_year - career.first_year + 1;
  for (const float use : career.use) parent.sum_use += double{use};
  parent.litters_in_life = career.families;
  return parent;
}

void set_origin_of_imports(ModelHerd& herd) {
  const std::int32_t origin = herd.basis.origin;
  const double kinship = herd.rules.import_kinship;
  herd.pedigree.f[origin] = f_of_origin(kinship);
  herd.pedigree.variance[origin] = 2.0 * kinship;
  if (herd.walk != nullptr) set_origin(*herd.walk, origin, kinship);
  if (!herd.has_table() || !herd.basis.has_table()) return;
  herd.table.at(origin, origin) = static_cast<float>(kinship);
}

void prepare_mean_kinship(ModelHerd& herd) {
  if (!herd.rules.above_percent) return;
  herd.mean_kinship = mean_kinship_with_young(herd.pedigree, herd.youngest);
  herd.most_kinship.assign(2 * herd.candidates.size(), -1.0);
}

/// Parents go on or stop, others come into use, and they are mated, all by the practice.
void breed_by_practice(ModelHerd& herd, const std::vector<GroupTarget>& targets, std::int32_t year) {
  for (const Sex sex : {male, female}) {
    continue_parents(herd, sex, year);
    list_members(herd, sex);
  }
  RandomStream entry = herd.stream(year, DrawPurpose::dam_entry);
  const GroupNo groups = herd.basis.records.groups;
  for (GroupNo group = 0; group < groups; ++group) fill_dams(herd, group, targets[group], year, entry);
  const std::vector<WantedLitter> litters = list_litters(herd, targets, year);
  std::vector<std::int64_t> wanted(groups, 0);
  for (const WantedLitter& litter : litters) wanted[litter.sire_group] += litter.has_sire ? 1 : 0;
  for (GroupNo group = 0; group < groups; ++group) fill_sires(herd, group, targets[group], wanted[group], year);
  note_new_parents(herd);
  make_matings(herd, litters, year);
}

/// As many litters as by the practice, and as many animals of whom nothing is known.
void breed_by_plan(ModelHerd& herd, const std::vector<GroupTarget>& targets, std::int32_t year) {
  std::vector<PlannedGroup> groups;
  for (const GroupTarget& target : targets) {
    PlannedGroup& group = groups.emplace_back();
    group.litters = target.numbers.with_both + target.numbers.without_sire;
    group.imports = target.imports;
  }
  for (const Sex sex : {male, female}) list_members(herd, sex);
  plan_matings(herd, groups, year);
}

/// Puts the parents in use among those of the herd, each as old as it is.
void begin_parents(ModelHerd& herd) {
  for (const Sex sex : {male, female}) {
    RandomStream clocks = herd.stream(0, sex == male ? DrawPurpose::sire_careers : DrawPurpose::dam_careers);
    for (const ActiveParent& active : herd.basis.active.of(sex)) {
      const Career& career = herd.basis.base.careers.of(sex).at(active.career);
      herd.birth_year[active.animal] = career.first_year - career.first_age;
      herd.parents.of(sex).push_back(begin_parent(herd.basis, sex, active));
      if (herd.basis.pace.of(sex) != 1.0) herd.parents.of(sex).back().clock = clocks.unit();
    }
  }
}

}  // namespace

bool has_table(const ModelBasis& basis, const BreedingRules& rules, std::int32_t years) {
  if (!basis.has_table()) return false;
  constexpr double years_of_imports = 20.0;  // as long as imports, or their young, may be wanted
  const double years_of_base = basis.base.length();
  double litters = 0.0, sires = 0.0;
  for (const std::vector<GroupYear>& year : basis.base.base_years()) {
    litters += litters_of(year) / years_of_base;
    for (const GroupYear& group : year) sires += group.in_use.of_males / years_of_base;
  }
  const double trend = std::max(1.0, 1.0 + rules.trend * years);
  const double growth = std::max({1.0, trend * factor_of(rules.litters, litters), factor_of(rules.sires, sires)});
  const double rows = static_cast<double>(basis.table.animal_of.size());
  const double imports = rules.imports.of_males + rules.imports.of_females;
  return growth * rows + years_of_imports * imports <= most_rows_of_herd;
}

ModelHerd begin_herd(const ModelBasis& basis, const BreedingRules& rules, std::uint64_t seed, std::int32_t replicate,
                     AncestorWalk* walk) {
  ModelHerd herd{basis,
                 rules,
                 seed,
                 replicate,
                 basis.pedigree,
                 walk == nullptr ? basis.table : KinshipTable(),
                 walk,
                 {},
                 {},
                 {},
                 basis.last_litter,
                 {},
                 {},
                 0,
                 basis.candidates,
                 real_youngest(basis),
                 {},
                 {},
                 {},
                 {},
                 {}};
  set_origin_of_imports(herd);
  herd.weights = ByNumber<double>(basis.pedigree.count());
  for (const Sex sex : {male, female}) herd.owed.of(sex).assign(basis.records.groups, 0.0);
  herd.birth_year = ByNumber<std::int32_t>(basis.pedigree.count());
  for (std::int32_t j = 1; j <= basis.ancestors.count(); ++j) {
    herd.birth_year[j] = basis.records.store.birth_year[basis.ancestors.position[j]];
  }
  begin_parents(herd);
  return herd;
}

bool live_year(ModelHerd& herd, std::int32_t year) {
  herd.year = {};
  herd.first_of_year = herd.families.size();
  prepare_mean_kinship(herd);
  const std::vector<GroupTarget> targets = draw_targets(herd, year);
  const GroupNo groups = herd.basis.records.groups;
  if (herd.rules.has_plan) {
    breed_by_plan(herd, targets, year);
  } else {
    breed_by_practice(herd, targets, year);
  }
  if (herd.families.size() == herd.first_of_year) return false;
  for (GroupNo group = 0; group < groups; ++group) {
    for (std::int32_t n = 0; n < targets[group].numbers.founders; ++n) herd.families.push_back({0, 0, 0.0F, group, 1});
  }
  bear_young(herd, year);
  describe(herd, year);
  forget_old(herd, year);
  return true;
}

}  // namespace pedigreewatch
