// Each candidate gets a weight: the chance of the slip times the chance that just this animal is the parent of the
// young in question, as its mates, litters and years tell. The chance of a parent without a line stands against all of
// them.

#include "checks/meant_parents.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <string>
#include <unordered_map>

#include "core/side_by_side.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

struct Young {
  std::int32_t animal = 0;
  std::int32_t year = 0;  ///< of its birth
};

/// The young of some parents in one role, of each in the order of their lines.
struct YoungOf {
  ByNumber<std::int32_t> begin;  ///< by identification; where those of the next one begin is the end
  std::vector<Young> young;

  std::span<const Young> at(std::int32_t parent) const {
    const auto first = static_cast<std::size_t>(begin[parent]), end = static_cast<std::size_t>(begin[parent + 1]);
    return std::span(young).subspan(first, end - first);
  }
};

/// How old parents are when young are born, in years, as far as the years of both are known.
struct AgesAtBirths {
  static constexpr std::size_t most_years = 60;  // older ones are as rare as can be
  std::array<double, most_years> links = {};
  double all = 0;

  double share(std::int64_t age) const {
    constexpr double of_any_age = 0.5;  // links beside those that were counted, so that no age is impossible
    const bool is_counted = age >= 0 && age < static_cast<std::int64_t>(most_years);
    return ((is_counted ? links[static_cast<std::size_t>(age)] : 0) + of_any_age) /
           (all + of_any_age * static_cast<double>(most_years));
  }
};

/// The links of young to their parents that the weights need, and how many there are of all.
struct Links {
  YoungOf of_sires, of_dams;
  std::map<std::int64_t, std::int64_t> by_year;  ///< animals born in a year with that year's links in both roles
  std::int64_t all = 0;
  double same_dam_share = 0;         ///< of neighbours in the file with the same sire and date that have the same dam
  AgesAtBirths sire_ages, dam_ages;  ///< of a sample
  std::map<std::int32_t, std::int64_t> born;  ///< animals by year

  std::span<const Young> of(std::int32_t parent, ParentRole role) const {
    return (role == ParentRole::sire ? of_sires : of_dams).at(parent);
  }
  void fetch_early_of(std::int32_t parent, ParentRole role) const {
    fetch_early(&(role == ParentRole::sire ? of_sires : of_dams).begin[parent]);
  }
};

ParentRole other_role(ParentRole role) {
  return role == ParentRole::sire ? ParentRole::dam : ParentRole::sire;
}

std::int32_t parent_of(const PedigreeColumns& animals, std::int32_t animal, ParentRole role) {
  return role == ParentRole::sire ? animals.sire.at(animal) : animals.dam.at(animal);
}

void fetch_parent_early(const PedigreeColumns& animals, std::int32_t animal, ParentRole role) {
  fetch_early(role == ParentRole::sire ? &animals.sire.at(animal) : &animals.dam.at(animal));
}

bool have_same_day(const PedigreeColumns& animals, std::int32_t a, std::int32_t b) {
  const DayRange x = days_of_birth(animals, a), y = days_of_birth(animals, b);
  return x.is_known() && x.first == x.last && x.first == y.first && y.first == y.last;
}

/// The young of all parents that are marked.
YoungOf gather_young(const PedigreeColumns& animals, ParentRole role, const ByNumber<std::uint8_t>& is_marked) {
  YoungOf result;
  const NumberedList<std::int32_t>& parents = role == ParentRole::sire ? animals.sire : animals.dam;
  result.begin = ByNumber<std::int32_t>(animals.ids.count() + 2);
  for (const std::int32_t parent : parents.entries) {
    if (is_marked[parent] != 0) ++result.begin[parent + 2];
  }
  std::vector<std::int32_t>& begin = result.begin.values;
  std::partial_sum(begin.begin(), begin.end(), begin.begin());
  result.young.resize(static_cast<std::size_t>(begin.back()));
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t parent = parents.at(animal);
    if (is_marked[parent] == 0) continue;
    result.young[static_cast<std::size_t>(result.begin[parent + 1]++)] = {animal, animals.birth.at(animal).year};
  }
  return result;
}

/// Counts the ages of the parents of at most some ten thousand animals, and the animals born in each year.
void count_ages(const PedigreeColumns& animals, Links& links) {
  constexpr std::int32_t sampled = 20'000;
  const auto count = [&](AgesAtBirths& ages, std::int32_t parent, std::int32_t year) {
    const std::int32_t born = parent == 0 ? 0 : animals.birth.at(parent).year;
    const std::int64_t years = std::int64_t{year} - born;
    if (born == 0 || years < 0 || years >= static_cast<std::int64_t>(AgesAtBirths::most_years)) return;
    ++ages.links[static_cast<std::size_t>(years)];
    ++ages.all;
  };
  const std::int32_t step = animals.count() / sampled + 1;
  for (std::int32_t animal = 1; animal <= animals.count(); animal += step) {
    const std::int32_t year = animals.birth.at(animal).year;
    if (year == 0) continue;
    count(links.sire_ages, animals.linked(animals.sire.at(animal)), year);
    count(links.dam_ages, animals.linked(animals.dam.at(animal)), year);
  }
}

/// Counts all links.
void count_links(const PedigreeColumns& animals, Links& links) {
  std::int64_t neighbours = 0, of_same_dam = 0, of_unknown_year = 0;
  std::int32_t last_year = 0;
  std::int64_t *last_count = &of_unknown_year, *last_born = &of_unknown_year;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t year = animals.birth.at(animal).year;
    if (year != last_year) last_count = year == 0 ? &of_unknown_year : &links.by_year[year];
    if (year != last_year) last_born = year == 0 ? &of_unknown_year : &links.born[year];
    last_year = year;
    ++*last_born;
    const std::int32_t sire = animals.sire.at(animal), dam = animals.dam.at(animal);
    if (sire == 0 && dam == 0) continue;
    const int count = (sire != 0 ? 1 : 0) + (dam != 0 ? 1 : 0);
    links.all += count;
    *last_count += count;
    const bool has_neighbour = animal > 1 && sire != 0 && dam != 0 && animals.sire.at(animal - 1) == sire &&
                               animals.dam.at(animal - 1) != 0 && have_same_day(animals, animal - 1, animal);
    if (!has_neighbour) continue;
    ++neighbours;
    if (animals.dam.at(animal - 1) == dam) ++of_same_dam;
  }
  links.same_dam_share = (static_cast<double>(of_same_dam) + 1) / (static_cast<double>(neighbours) + 2);
}

/// A mate of the other parent of a young, with the young of both.
struct MateCount {
  std::int32_t id = 0;
  double in_litter = 0;  ///< mates of that young among them
  double in_all = 0;
};

/// What the other young of that time, and of the other parent, tell of the parent of a young.
struct YoungEvidence {
  std::int32_t young = 0;
  double links_near_year = 0;    ///< of all young of the year and the years beside it
  std::vector<MateCount> mates;  ///< of the other parent, by identification
  double in_litter = 0, in_all = 0;
  double repeats = 0;  ///< how often that parent keeps to a mate from one young to the next
};

/// A parent without a line with everything that speaks for and against the animals near it.
struct Case {
  MissingParent missing;
  std::span<const NearAnimal> near;
  std::vector<std::int32_t> firsts;  ///< of its young, the first of each litter
  std::vector<double> weights;       ///< of each of the animals near, for one slip among all links; 0 for one that
                                     ///< cannot be the parent, 1 as long as nothing else is known
  double genuine_weight = 0;         ///< of a parent that has no line, for one such parent among all links
};

struct Weighing {
  const PedigreeColumns& animals;
  const Links& links;
  const CheckLimits& limits;
  std::string_view male_letters;
};

/// 0 for an animal that cannot be this parent.
double fit_of(const Weighing& weighing, ParentRole role, std::int32_t candidate, std::int32_t young) {
  const PedigreeColumns& animals = weighing.animals;
  constexpr double of_unknown_sex = 0.5;
  const char sex = animals.sex.at(candidate);
  const bool is_unknown = sex == ' ' || sex == '?' || sex == '-';
  const bool is_male = weighing.male_letters.find(sex) != std::string_view::npos;
  if (candidate == young || (!is_unknown && is_male != (role == ParentRole::sire))) return 0;
  const DayRange parent_days = days_of_birth(animals, candidate), young_days = days_of_birth(animals, young);
  if (parent_days.is_known() && young_days.is_known()) {
    constexpr std::int64_t days_of_a_year = 366;
    const CheckLimits& limits = weighing.limits;
    const std::int64_t oldest = role == ParentRole::sire ? limits.oldest_sire_years : limits.oldest_dam_years;
    const std::int64_t most = std::int64_t{young_days.last} - parent_days.first;
    const std::int64_t least = std::int64_t{young_days.first} - parent_days.last;
    if (most < std::max(limits.youngest_parent_days, 1) || least > (oldest + 1) * days_of_a_year) return 0;
  }
  return is_unknown ? of_unknown_sex : 1;
}

/// How many of these young are of a year and the years beside it; of all years for an unknown one.
std::int64_t count_near_year(std::span<const Young> young, std::int32_t year) {
  if (year == 0) return std::ssize(young);
  return std::count_if(young.begin(), young.end(), [&](const Young& each) {
    const std::int64_t years = std::int64_t{each.year} - year;
    return each.year != 0 && years >= -1 && years <= 1;
  });
}

double count_links_near_year(const Links& links, std::int32_t year) {
  if (year == 0) return static_cast<double>(links.all) / 2;
  double all = 0;
  for (std::int64_t near = std::int64_t{year} - 1; near <= std::int64_t{year} + 1; ++near) {
    const auto found = links.by_year.find(near);
    if (found != links.by_year.end()) all += static_cast<double>(found->second) / 2;
  }
  return all;
}

/// The chance that the parent of a young is just this animal when nothing but its age is known: so many parents are of
/// that age, among so many animals of its year and sex.
double chance_by_age(const Weighing& weighing, ParentRole role, std::int32_t candidate, std::int32_t young) {
  constexpr double of_each_sex = 0.5;
  const PedigreeColumns& animals = weighing.animals;
  const std::int32_t born = animals.birth.at(candidate).year, year = animals.birth.at(young).year;
  if (born == 0 || year == 0) return 1 / (of_each_sex * animals.count());
  const AgesAtBirths& ages = role == ParentRole::sire ? weighing.links.sire_ages : weighing.links.dam_ages;
  const double eligible = of_each_sex * static_cast<double>(weighing.links.born.at(born));
  return ages.share(std::int64_t{year} - born) / std::max(eligible, 1.0);
}

/// The chance that the parent of a young is just this animal, by its other young of that time and its age.
double chance_by_year(const Weighing& weighing, ParentRole role, std::int32_t candidate, const YoungEvidence& known) {
  constexpr double of_first_young = 0.3;  // all animals together count for so many young each beside those they have
  const PedigreeColumns& animals = weighing.animals;
  const auto own =
      count_near_year(weighing.links.of(animals.id.at(candidate), role), animals.birth.at(known.young).year);
  const double first_young = of_first_young * animals.count() / 2;
  const double by_age = chance_by_age(weighing, role, candidate, known.young);
  return (static_cast<double>(own) + first_young * by_age) / (known.links_near_year + first_young + 1);
}

/// Puts the entries of a mate together, in the order of identifications.
void merge_mates(std::vector<MateCount>& mates) {
  std::sort(mates.begin(), mates.end(), [](const MateCount& a, const MateCount& b) { return a.id < b.id; });
  std::size_t kept = 0;
  for (const MateCount& each : mates) {
    if (kept == 0 || mates[kept - 1].id != each.id) {
      mates[kept++] = each;
    } else {
      mates[kept - 1].in_litter += each.in_litter;
      mates[kept - 1].in_all += each.in_all;
    }
  }
  mates.resize(kept);
}

/// What is known of a parent of this young, whichever animal it is.
YoungEvidence evidence_of(const Weighing& weighing, ParentRole role, std::int32_t young) {
  const PedigreeColumns& animals = weighing.animals;
  YoungEvidence known;
  known.young = young;
  known.links_near_year = count_links_near_year(weighing.links, animals.birth.at(young).year);
  const std::int32_t other = parent_of(animals, young, other_role(role));
  const std::int32_t written = parent_of(animals, young, role);
  if (other == 0) return known;
  double kept = 0, pairs = 0;
  std::int32_t last_mate = 0;
  const std::span<const Young> of_other = weighing.links.of(other, other_role(role));
  for (std::size_t k = 0; k < of_other.size(); ++k) {
    if (k + look_ahead < of_other.size()) fetch_parent_early(animals, of_other[k + look_ahead].animal, role);
    const std::int32_t each = of_other[k].animal, mate = parent_of(animals, each, role);
    if (each == young || mate == 0 || mate == written) continue;
    if (last_mate != 0) ++pairs;
    if (mate == last_mate) ++kept;
    last_mate = mate;
    const bool is_beside = role == ParentRole::sire || std::abs(each - young) <= 2;
    const bool is_litter_mate = is_beside && have_same_day(animals, each, young);
    known.mates.push_back({mate, is_litter_mate ? 1.0 : 0.0, 1.0});
    known.in_litter += known.mates.back().in_litter;
    ++known.in_all;
  }
  merge_mates(known.mates);
  known.repeats = (kept + 1) / (pairs + 2);
  return known;
}

/// How likely the litter mates of a young have the same parent.
double chance_of_same_litter(const Weighing& weighing, ParentRole role) {
  constexpr double one_sire = 0.97;  // litters with one sire
  return role == ParentRole::sire ? one_sire : weighing.links.same_dam_share;
}

/// The chance that the parent of the young is just this animal.
double chance_of_parent(const Weighing& weighing, ParentRole role, std::int32_t candidate, const YoungEvidence& known) {
  const double by_year = chance_by_year(weighing, role, candidate, known);
  const std::int32_t id = weighing.animals.id.at(candidate);
  const auto found = std::lower_bound(known.mates.begin(), known.mates.end(), id,
                                      [](const MateCount& mate, std::int32_t wanted) { return mate.id < wanted; });
  const MateCount own = found != known.mates.end() && found->id == id ? *found : MateCount{};
  double chance = by_year;
  if (known.in_all > 0) chance = known.repeats * (own.in_all / known.in_all) + (1 - known.repeats) * by_year;
  if (known.in_litter == 0) return chance;
  const double of_litter = chance_of_same_litter(weighing, role);
  return of_litter * (own.in_litter / known.in_litter) + (1 - of_litter) * chance;
}

/// The chance that the parent of the young is another one than its litter mates have.
double chance_of_another(const Weighing& weighing, ParentRole role, const YoungEvidence& known) {
  return known.in_litter > 0 ? 1 - chance_of_same_litter(weighing, role) : 1;
}

/// The young of one parent without a line by litters: the first of each.
std::vector<std::int32_t> first_of_litters(const PedigreeColumns& animals, std::span<const Young> young) {
  std::vector<std::int32_t> firsts;
  for (const auto& [each, year] : young) {
    const auto is_mate = [&, animal = each](std::int32_t first) {
      return animals.sire.at(first) == animals.sire.at(animal) && animals.dam.at(first) == animals.dam.at(animal) &&
             have_same_day(animals, first, animal);
    };
    if (std::none_of(firsts.begin(), firsts.end(), is_mate)) firsts.push_back(each);
    constexpr std::size_t enough = 6;
    if (firsts.size() == enough) break;
  }
  return firsts;
}

std::int64_t count_digits(std::string_view text) {
  return std::count_if(text.begin(), text.end(), is_digit);
}

/// Whether a number in it begins with a zero that could be left out.
bool has_leading_zero(std::string_view text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    const bool is_first = i == 0 || count_digits(text.substr(i - 1, 1)) == 0;
    if (is_first && text[i] == '0' && count_digits(text.substr(i + 1, 1)) == 1) return true;
  }
  return false;
}

/// The chance of a slip, which was found in the loose forms, as it stands in the file: a slip in an identification that
/// is also written in another form is two.
double chance_as_written(Slip slip, std::string_view written, std::string_view meant) {
  constexpr double of_other_form = 0.03;
  constexpr double of_check_digit = 0.1;
  constexpr std::size_t sign_and_digit = 2;
  const bool lacks_check_digit = meant.size() == written.size() + sign_and_digit && meant.starts_with(written) &&
                                 count_digits(meant.substr(written.size(), 1)) == 0;
  if (lacks_check_digit) return of_check_digit;
  const Slip as_written = slip_between(written, meant);
  const double chance = chance_of(slip, written.size());
  if (slip == Slip::prefix || slip == Slip::beginning || written == meant) return chance;
  if (slip != Slip::format) {
    return as_written == Slip::none ? chance * of_other_form : std::min(chance, chance_of(as_written, written.size()));
  }
  // One zero less than the other where zeros are written is a slip, and no form.
  const bool is_slip = as_written != Slip::none && has_leading_zero(written) && has_leading_zero(meant) &&
                       count_digits(written) != count_digits(meant);
  return is_slip ? std::min(chance, chance_of(as_written, written.size())) : chance;
}

/// Finds the young of the case, and which of the animals near it can be their parent.
void begin_case(const Weighing& weighing, Case& one) {
  const ParentRole role = one.missing.role;
  one.firsts = first_of_litters(weighing.animals, weighing.links.of(one.missing.id, role));
  for (const NearAnimal& near : one.near) {
    double fit = 1;
    for (const std::int32_t young : one.firsts) fit = std::min(fit, fit_of(weighing, role, near.animal, young));
    one.weights.push_back(fit);
  }
}

double weight_of(const Weighing& weighing, const Case& one, const NearAnimal& near, double fit,
                 std::span<const YoungEvidence> evidence) {
  constexpr double slipped_again = 0.1, least = 0.001;
  const PedigreeColumns& animals = weighing.animals;
  const ParentRole role = one.missing.role;
  double best = 0;
  for (const YoungEvidence& known : evidence) {
    best = std::max(best, chance_of_parent(weighing, role, near.animal, known));
  }
  // One rule for all, or a slip in the animal's own line: then all of its young have another parent than it.
  const bool is_rule = near.slip == Slip::format || near.slip == Slip::prefix || near.slip == Slip::beginning;
  const bool has_young = !weighing.links.of(animals.id.at(near.animal), role).empty();
  double again = 1;
  for (std::size_t k = 1; k < one.firsts.size() && !is_rule && has_young; ++k)
    again = std::max(again * slipped_again, least);
  const std::string_view written = animals.ids.at(one.missing.id), meant = animals.ids.at(animals.id.at(near.animal));
  return chance_as_written(near.slip, written, meant) * best * fit * again;
}

/// Weighs the animals that can be the parent.
void weigh_case(const Weighing& weighing, Case& one) {
  std::vector<YoungEvidence> evidence;
  for (const NearAnimal& each : one.near) {
    weighing.links.fetch_early_of(weighing.animals.id.at(each.animal), one.missing.role);
  }
  for (std::size_t k = 0; k < one.near.size(); ++k) {
    if (one.weights[k] == 0) continue;
    if (evidence.empty()) {
      for (const std::int32_t young : one.firsts) evidence.push_back(evidence_of(weighing, one.missing.role, young));
    }
    one.weights[k] = weight_of(weighing, one, one.near[k], one.weights[k], evidence);
  }
  double of_another = 0;
  for (const YoungEvidence& known : evidence) {
    of_another = std::max(of_another, chance_of_another(weighing, one.missing.role, known));
  }
  if (!evidence.empty()) one.genuine_weight *= of_another;
}

/// Weighs all cases; those of a part of them on one thread.
void weigh_cases(const Weighing& weighing, std::span<Case> cases, std::int32_t threads) {
  constexpr std::int64_t parts_of_thread = 8;  // some take much longer than others
  const std::int64_t parts = std::int64_t{std::max(threads, 1)} * parts_of_thread;
  std::vector<Task> tasks;
  for (std::int64_t part = 0; part < parts; ++part) {
    const auto [begin, end] = part_of_work(0, std::ssize(cases) - 1, part, parts);
    const std::span<Case> own = cases.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
    tasks.emplace_back([&weighing, own] {
      for (Case& one : own) weigh_case(weighing, one);
    });
  }
  do_side_by_side(tasks, threads);
}

/// Letters and digits of an identification without which ones they are: "AA-9999".
std::string shape_of(std::string_view id) {
  std::string shape(id);
  for (char& letter : shape) {
    if (is_digit(letter)) letter = '9';
    if (letter >= 'A' && letter <= 'Z') letter = 'A';
    if (letter >= 'a' && letter <= 'z') letter = 'a';
  }
  return shape;
}

/// How many animals are one other letter or digit away.
std::int64_t count_neighbours(std::span<const NearAnimal> near) {
  return std::count_if(near.begin(), near.end(), [](const NearAnimal& each) {
    return each.slip == Slip::digit || each.slip == Slip::letter || each.slip == Slip::look_alike;
  });
}

constexpr double digits_beside = 9;  // other digits in a place

/// Some animals' identifications, from all over the file.
std::vector<std::int32_t> sample_ids(const PedigreeColumns& animals) {
  constexpr std::int32_t sampled = 200;
  std::vector<std::int32_t> sample;
  const std::int32_t step = std::max(animals.count() / sampled, 1);
  for (std::int32_t animal = 1; animal <= animals.count(); animal += step) {
    if (animals.id.at(animal) != 0) sample.push_back(animals.id.at(animal));
  }
  return sample;
}

/// The share of the identifications one digit away from one that is in use which are in use too: nearly all of numbers
/// in a row, hardly any of tags of 15 digits. Found out with some animals and those near them.
double occupied_share(const PedigreeColumns& animals, std::span<const std::int32_t> sample,
                      std::span<const std::vector<NearAnimal>> near) {
  constexpr double fewest = 0.1;  // neighbours of all of them together
  double places = 1, neighbours = fewest;
  for (std::size_t k = 0; k < sample.size(); ++k) {
    places += digits_beside * static_cast<double>(animals.ids.at(sample[k]).size());
    neighbours += static_cast<double>(count_neighbours(near[k]));
  }
  return std::min(neighbours / places, 1.0);
}

/// For each of the shapes of these parents the number of animals with it.
std::unordered_map<std::string, std::int64_t> count_shapes(const PedigreeColumns& animals,
                                                           std::span<const MissingParent> missing) {
  std::unordered_map<std::string, std::int64_t> shapes;
  for (const MissingParent& each : missing) shapes[shape_of(animals.ids.at(each.id))] = 0;
  for (std::int32_t id = 1; id <= animals.ids.count(); ++id) {
    if (animals.animal_of[id] == 0) continue;
    const auto found = shapes.find(shape_of(animals.ids.at(id)));
    if (found != shapes.end()) ++found->second;
  }
  return shapes;
}

/// How likely a parent that has no line is called just so: by how many identifications of its kind are in use around
/// it.
std::vector<double> genuine_weights(const PedigreeColumns& animals, std::span<const MissingParent> missing,
                                    std::span<const std::vector<NearAnimal>> near, double usual_share) {
  constexpr double strange = 1e-6;  // of a shape that no animal has
  const auto shapes = count_shapes(animals, missing);
  const double all = std::max(animals.count(), 1);
  std::vector<double> weights;
  for (std::size_t k = 0; k < missing.size(); ++k) {
    const std::string_view id = animals.ids.at(missing[k].id);
    const double places = digits_beside * static_cast<double>(std::max<std::size_t>(id.size(), 1));
    const double own_share = static_cast<double>(count_neighbours(near[k]) - 1) / places;
    const bool is_strange = shapes.at(shape_of(id)) == 0;
    weights.push_back(is_strange ? strange / all : std::max(own_share, usual_share) / all);
  }
  return weights;
}

/// How common slips and parents without a line are, of all links.
struct Rates {
  double slips = 0, genuine = 0;
};

double sum_of(const Case& one) {
  double sum = 0;
  for (const double weight : one.weights) sum += weight;
  return sum;
}

Rates estimate_rates(std::span<const Case> cases, double links) {
  constexpr int rounds = 8;
  constexpr double first_slips = 0.003, first_genuine = 0.003;
  Rates rates = {first_slips, first_genuine};
  for (int round = 0; round < rounds; ++round) {
    double slips = 1, genuine = 1;
    for (const Case& one : cases) {
      const double slip = rates.slips * sum_of(one), other = rates.genuine * one.genuine_weight;
      slips += slip / (slip + other);
      genuine += other / (slip + other);
    }
    rates = {slips / links, genuine / links};
  }
  return rates;
}

MeantParent decide(const Case& one, const Rates& rates) {
  constexpr double sure = 0.8;
  if (one.weights.empty()) return {};
  const double all = rates.slips * sum_of(one) + rates.genuine * one.genuine_weight;
  const auto best = std::max_element(one.weights.begin(), one.weights.end());
  const double sureness = rates.slips * *best / all;
  if (!(sureness > sure)) return {0, Slip::none, sureness};
  const NearAnimal& near = one.near[static_cast<std::size_t>(best - one.weights.begin())];
  return {near.animal, near.slip, sureness};
}

/// Marks the identifications whose young are needed: the animals that can be meant, and the other parents of the young
/// in question.
ByNumber<std::uint8_t> mark_needed(const PedigreeColumns& animals, std::span<const Case> cases) {
  ByNumber<std::uint8_t> is_marked(animals.ids.count());
  for (const Case& one : cases) {
    bool has_any = false;
    for (std::size_t k = 0; k < one.near.size(); ++k) {
      if (one.weights[k] == 0) continue;
      is_marked[animals.id.at(one.near[k].animal)] = 1;
      has_any = true;
    }
    for (std::size_t k = 0; has_any && k < one.firsts.size(); ++k) {
      is_marked[parent_of(animals, one.firsts[k], other_role(one.missing.role))] = 1;
    }
  }
  is_marked[0] = 0;
  return is_marked;
}

void gather_young(const PedigreeColumns& animals, const ByNumber<std::uint8_t>& is_marked, Links& links) {
  links.of_sires = gather_young(animals, ParentRole::sire, is_marked);
  links.of_dams = gather_young(animals, ParentRole::dam, is_marked);
}

}  // namespace

std::vector<MeantParent> find_meant_parents(const PedigreeColumns& animals, std::span<const MissingParent> missing,
                                            const CheckLimits& limits, std::string_view male_letters,
                                            std::int32_t threads) {
  std::vector<MeantParent> meant(missing.size());
  if (missing.empty()) return meant;
  std::vector<std::int32_t> wanted;
  for (const MissingParent& each : missing) wanted.push_back(each.id);
  const std::vector<std::int32_t> sample = sample_ids(animals);
  wanted.insert(wanted.end(), sample.begin(), sample.end());
  const std::vector<std::vector<NearAnimal>> near = find_near_animals(animals, wanted, missing.size(), threads);
  const double usual_share = occupied_share(animals, sample, std::span(near).subspan(missing.size()));
  const std::vector<double> genuine = genuine_weights(animals, missing, near, usual_share);
  Links links;
  count_links(animals, links);
  count_ages(animals, links);
  const Weighing weighing = {animals, links, limits, male_letters};
  ByNumber<std::uint8_t> is_missing(animals.ids.count());
  for (const MissingParent& each : missing) is_missing[each.id] = 1;
  gather_young(animals, is_missing, links);
  std::vector<Case> cases;
  for (std::size_t k = 0; k < missing.size(); ++k) {
    cases.push_back({missing[k], near[k], {}, {}, genuine[k]});
    if (!near[k].empty()) begin_case(weighing, cases.back());
  }
  gather_young(animals, mark_needed(animals, cases), links);
  weigh_cases(weighing, cases, threads);
  const Rates rates = estimate_rates(cases, static_cast<double>(std::max<std::int64_t>(links.all, 1)));
  for (std::size_t k = 0; k < cases.size(); ++k) meant[k] = decide(cases[k], rates);
  return meant;
}

}  // namespace pedigreewatch
