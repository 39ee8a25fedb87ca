#include "forecast/model_entry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace pedigreewatch {

Entrant entrant_of(const ModelHerd& herd, std::int32_t candidate, std::int32_t birth_year) {
  if (candidate >= 0) {
    const ModelFamily& family = herd.families[static_cast<std::size_t>(candidate)];
    return {family.sire, family.dam, birth_year, family.f};
  }
  const PopulationStore& store = herd.basis.records.store;
  const KnownParents parents = known_parents(store, -candidate);
  const ByNumber<std::int32_t>& number = herd.basis.ancestors.number_of_animal;
  return {number[parents.sire], number[parents.dam], birth_year, store.inbreeding[-candidate]};
}

ModelParent& add_model_parent(ModelHerd& herd, Sex sex, const Entrant& entrant) {
  const std::int32_t animal = add_parent(herd.pedigree, entrant.sire, entrant.dam, entrant.f);
  herd.new_parents.push_back({animal, entrant.sire, entrant.dam, entrant.f});
  herd.last_litter.values.push_back(0);
  herd.birth_year.values.push_back(entrant.birth_year);
  herd.weights.values.push_back(0.0);
  ModelParent& parent = herd.parents.of(sex).emplace_back();
  parent.animal = animal;
  parent.descent = entrant.descent;
  return parent;
}

namespace {

double mean_kinship_of(const ModelHerd& herd, std::int32_t candidate) {
  const Entrant entrant = entrant_of(herd, candidate, 0);
  return 0.5 * (herd.mean_kinship[entrant.sire] + herd.mean_kinship[entrant.dam]);
}

/// The mean kinship that an animal of this birth year and sex may have at most: below that of so many per cent.
double most_mean_kinship(const ModelHerd& herd, const CandidateYear& year, Sex sex) {
  std::vector<double> kinships;
  for (GroupNo group = 0; group < herd.basis.records.groups; ++group) {
    for (const Descent descent : {Descent::founder, Descent::half_known, Descent::known, Descent::deep}) {
      for (const std::int32_t candidate : year.lists[list_of(group, sex, descent)]) {
        kinships.push_back(mean_kinship_of(herd, candidate));
      }
    }
  }
  if (kinships.empty()) return 0.0;
  constexpr double percent = 100.0;
  const double below = *herd.rules.above_percent / percent * static_cast<double>(kinships.size());
  const std::ptrdiff_t forbidden =
      std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(std::ceil(below)), std::ssize(kinships) - 1);
  const auto most = kinships.end() - forbidden - 1;
  std::nth_element(kinships.begin(), most, kinships.end());
  return *most;
}

/// The place of any animal of the list; with a rule on mean kinship of any that it permits. None when there is none.
std::optional<std::size_t> choose_place(ModelHerd& herd, std::size_t row, const Candidates& list, Sex sex,
                                        RandomStream& random) {
  if (list.empty()) return std::nullopt;
  const std::size_t drawn = random.place_among(list.size());
  if (!herd.rules.above_percent) return drawn;
  double& most = herd.most_kinship[2 * row + (sex == male ? 0 : 1)];
  if (most < 0.0) most = most_mean_kinship(herd, herd.candidates[row], sex);
  if (mean_kinship_of(herd, list[drawn]) <= most) return drawn;
  ++herd.year.refused.entrants;
  std::vector<std::size_t> permitted;
  for (std::size_t k = 0; k < list.size(); ++k) {
    if (mean_kinship_of(herd, list[k]) <= most) permitted.push_back(k);
  }
  if (permitted.empty()) return std::nullopt;
  return pick(random, permitted);
}

struct Wanted {
  Sex sex = male;
  GroupNo group = 0;
  std::int32_t birth_year = 0;
};

constexpr std::array<Descent, 4> descents_of_born = {Descent::deep, Descent::known, Descent::half_known,
                                                     Descent::founder};

using DescentWeights = std::array<double, descents_of_born.size()>;

/// Known where all weights are 0.
Descent draw_descent(const DescentWeights& weights, RandomStream& random) {
  double rest = random.unit() * std::accumulate(weights.begin(), weights.end(), 0.0);
  for (std::size_t k = 0; k < weights.size(); ++k) {
    rest -= weights[k];
    if (weights[k] > 0.0 && rest < 0.0) return descents_of_born[k];
  }
  return Descent::known;
}

/// The descent of an animal that comes into use, by how many of each were born and how many of them usually do. Known
/// where there was nobody.
Descent draw_descent(const ModelHerd& herd, const CandidateYear& year, const Wanted& wanted, RandomStream& random) {
  const BasePeriod& base = herd.basis.base;
  const ByDescent<double>& chosen = base.chosen.of(wanted.sex);
  DescentWeights weights = {};
  for (std::size_t k = 0; k < weights.size(); ++k) {
    const std::int32_t born = year.born[list_of(wanted.group, wanted.sex, descents_of_born[k])];
    weights[k] = born * chosen[descents_of_born[k]];
  }
  // Where somebody says how many have no known parent, all of these come from outside.
  if (base.said_outside.of(wanted.sex)) weights.back() = 0.0;
  return draw_descent(weights, random);
}

/// Takes a candidate of the birth year; none when it has none that may be taken.
std::optional<Entrant> take_from(ModelHerd& herd, const Wanted& wanted, bool is_any, RandomStream& random) {
  if (wanted.birth_year < herd.basis.first_candidate_year) return std::nullopt;
  const std::size_t row = herd.basis.row_of(wanted.birth_year);
  if (row >= herd.candidates.size()) return std::nullopt;
  CandidateYear& year = herd.candidates[row];
  const Descent drawn = draw_descent(herd, year, wanted, random);
  for (const Descent descent : {drawn, Descent::deep, Descent::known, Descent::half_known, Descent::founder}) {
    Candidates& list = year.lists[list_of(wanted.group, wanted.sex, descent)];
    if (const auto place = choose_place(herd, row, list, wanted.sex, random)) {
      Entrant entrant = entrant_of(herd, list[*place], wanted.birth_year);
      entrant.descent = descent;
      list[*place] = list.back();
      list.pop_back();
      return entrant;
    }
    if (!is_any) return std::nullopt;
  }
  return std::nullopt;
}

/// The nearest to what is wanted: of another age first, then of another group, at last of whatever descent.
std::optional<Entrant> take_nearest(ModelHerd& herd, Wanted wanted, std::int32_t last_birth_year,
                                    RandomStream& random) {
  const std::int32_t born = wanted.birth_year;
  const GroupNo home = wanted.group;
  const std::ptrdiff_t years = std::ssize(herd.candidates);
  // A rule on where sires come from is kept: an animal of another subpopulation does not become one of theirs.
  const bool is_ruled = wanted.sex == male && herd.rules.exchange != Exchange::present;
  const GroupNo groups = is_ruled ? 1 : herd.basis.records.groups;
  for (const bool is_any : {false, true}) {
    for (GroupNo step = 0; step < groups; ++step) {
      wanted.group = (home + step) % herd.basis.records.groups;
      for (std::int32_t distance = 0; distance < 2 * years; ++distance) {
        wanted.birth_year = distance % 2 == 0 ? born - distance / 2 : born + (distance + 1) / 2;
        if (wanted.birth_year > last_birth_year) continue;
        std::optional<Entrant> entrant = take_from(herd, wanted, is_any, random);
        if (entrant) return entrant;
      }
    }
  }
  return std::nullopt;
}

struct NewCareer {
  Sex sex = male;
  std::int32_t number = 0;
  GroupNo group = 0;
};

void begin_career(ModelParent& parent, const CareerRecords& careers, std::int32_t number) {
  const Career& career = careers.at(number);
  parent.point = {number, career.first_year};
  parent.use = parent.sum_use = double{career.use.front()};
  parent.years = 1;
}

/// Begins a career in a herd. With another pace the first year counts as one, and so many more follow that life is that
/// many times longer or shorter in the mean.
void begin_career(ModelParent& parent, const ModelBasis& basis, const NewCareer& begun, RandomStream& random) {
  const auto& [sex, number, group] = begun;
  begin_career(parent, basis.base.careers.of(sex), number);
  parent.group = group;
  const double pace = basis.pace.of(sex);
  if (pace != 1.0) parent.clock = pace * random.unit();
  parent.ahead = basis.base.first_age(sex, number) - basis.base.careers.of(sex).at(number).first_age;
}

/// Moves on by a year of the career. False when it is at its end.
bool take_step(ModelParent& parent, const CareerRecords& careers, std::int32_t age, RandomStream& random) {
  if (parent.point.year >= careers.last_year) {
    const CareerState state = {age, parent.pause, parent.sum_use / std::max(parent.years, 1)};
    const std::optional<CareerPoint> donor = find_donor(careers, state, random);
    if (!donor) return false;
    parent.point = *donor;
  }
  ++parent.point.year;
  parent.use = double{careers.at(parent.point.career).use_in(parent.point.year)};
  parent.sum_use += parent.use;
  ++parent.years;
  parent.pause = parent.use > 0.0 ? 0 : parent.pause + 1;
  return parent.pause <= longest_pause;
}

/// Moves on by a year, in which a year of the career passes, or as many as its pace says; until then it goes on as it
/// was. `age` is in years. False when the career is at its end.
bool go_on(ModelParent& parent, const CareerRecords& careers, double pace, std::int32_t age, RandomStream& random) {
  parent.clock += pace;
  const auto steps = static_cast<std::int32_t>(parent.clock);
  parent.clock -= steps;
  // A litter beyond the career, for want of other parents, is not had once more.
  if (steps == 0) parent.use = double{careers.at(parent.point.career).use_in(parent.point.year)};
  for (std::int32_t step = 0; step < steps; ++step) {
    if (!take_step(parent, careers, age - parent.ahead + step, random)) return false;
  }
  parent.ahead += 1 - steps;
  return true;
}

/// Whether the one who begins such a career has no line of its own: as often as it was, or as often as somebody says
/// that no parent is known.
bool comes_from_outside(const BasePeriod& base, Sex sex, const Career& career, RandomStream& random) {
  const bool was_outside = career.descent == Descent::outside;
  const std::optional<double>& said = base.said_outside.of(sex);
  if (!said) return was_outside;
  const bool had_none = was_outside || career.descent == Descent::founder;
  const double measured = base.without_parents.of(sex);
  if (*said <= measured) return had_none && random.chance(*said / measured);
  return had_none || random.chance((*said - measured) / (1.0 - measured));
}

}  // namespace

std::int32_t draw_entry(const BasePeriod& base, Sex sex, GroupNo group, RandomStream& random) {
  const std::vector<std::int32_t>& entries = base.entries.of(sex);
  constexpr int tries = 16;
  std::int32_t drawn = pick(random, entries);
  for (int k = 0; k < tries && base.careers.of(sex).at(drawn).group != group; ++k) drawn = pick(random, entries);
  return drawn;
}

std::vector<std::int32_t> entries_of_year(const ModelBasis& basis, GroupNo group, std::int32_t year,
                                          RandomStream& random) {
  const std::vector<GroupEntry>& of_year = basis.sire_entries[basis.base.place_of(year)];
  auto entry = std::lower_bound(of_year.begin(), of_year.end(), group,
                                [](const GroupEntry& a, GroupNo wanted) { return a.group < wanted; });
  std::vector<std::int32_t> entries;
  for (; entry != of_year.end() && entry->group == group; ++entry) entries.push_back(entry->career);
  shuffle(random, std::span(entries));
  return entries;
}

void continue_parents(ModelHerd& herd, Sex sex, std::int32_t year) {
  RandomStream random = herd.stream(year, sex == male ? DrawPurpose::sire_careers : DrawPurpose::dam_careers);
  const CareerRecords& careers = herd.basis.base.careers.of(sex);
  std::vector<ModelParent>& parents = herd.parents.of(sex);
  const bool ends_with_litter = sex == female && herd.rules.has_one_litter;
  std::erase_if(parents, [&](ModelParent& parent) {
    parent.litters_in_life += parent.litters;
    parent.litters = 0;
    if (ends_with_litter && parent.litters_in_life > 0) return true;
    const std::int32_t age = year - 1 - herd.birth_year[parent.animal];
    return !go_on(parent, careers, herd.basis.pace.of(sex), age, random);
  });
}

bool enter_parent(ModelHerd& herd, Sex sex, GroupNo group, std::int32_t year, std::int32_t number,
                  RandomStream& random) {
  const BasePeriod& base = herd.basis.base;
  const Career& career = base.careers.of(sex).at(number);
  const std::int32_t oldest = std::max(base.oldest_entry.of(sex), herd.rules.least_age.of(sex));
  const std::int32_t age = std::clamp(base.first_age(sex, number), std::max(1, herd.rules.least_age.of(sex)), oldest);
  const NewCareer begun = {sex, number, group};
  if (comes_from_outside(base, sex, career, random)) {
    begin_career(add_model_parent(herd, sex, {0, 0, year - age, 0.0F}), herd.basis, begun, random);
    return true;
  }
  const std::int32_t youngest = year - std::max(1, herd.rules.least_age.of(sex));
  const std::optional<Entrant> entrant = take_nearest(herd, {sex, group, year - age}, youngest, random);
  if (!entrant) return false;
  begin_career(add_model_parent(herd, sex, *entrant), herd.basis, begun, random);
  return true;
}

LifeOfUse live_career(const CareerRecords& careers, std::int32_t number, RandomStream& random) {
  ModelParent parent;
  begin_career(parent, careers, number);
  LifeOfUse life;
  for (std::int32_t age = careers.at(number).first_age; take_step(parent, careers, age, random); ++age) {
    if (parent.use <= 0.0) continue;
    life.years = parent.years;
    ++life.used;
  }
  return life;
}

void enter_import(ModelHerd& herd, Sex sex, GroupNo group, std::int32_t year, RandomStream& random) {
  const BasePeriod& base = herd.basis.base;
  const std::int32_t number = draw_entry(base, sex, group, random);
  const std::int32_t origin = herd.basis.origin;
  const std::int32_t born = year - std::max(base.first_age(sex, number), herd.rules.least_age.of(sex));
  ModelParent& parent = add_model_parent(herd, sex, {origin, origin, born, 0.0F});
  begin_career(parent, herd.basis, {sex, number, group}, random);
  herd.members.of(sex)[group].push_back(herd.parents.of(sex).size() - 1);
}

}  // namespace pedigreewatch
