// Each candidate gets a weight: the chance of the slip times the chance that just this animal is the parent of the
// young in question, as its mates, litters and years tell. The chance of a parent without a line stands against all of
// them.

#include "checks/meant_parents.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>

namespace pedigreewatch {
namespace {

/// The link of a young to a parent in one role.
struct Link {
  std::int32_t parent = 0;  ///< number of an identification
  ParentRole role = ParentRole::none;
  std::int32_t young = 0;
};

bool stands_before(const Link& a, const Link& b) {
  return std::tie(a.parent, a.role, a.young) < std::tie(b.parent, b.role, b.young);
}

/// The links that the weights need, in the order of parents, and how many there are of all.
struct Links {
  std::vector<Link> list;
  std::map<std::int32_t, std::int64_t> by_year;  ///< animals born in a year with that year's links in both roles
  std::int64_t all = 0;
  double same_dam_share = 0;  ///< of neighbours in the file with the same sire and date that have the same dam

  std::span<const Link> of(std::int32_t parent, ParentRole role) const {
    const auto first = std::lower_bound(list.begin(), list.end(), Link{parent, role, 0}, stands_before);
    auto last = first;
    while (last != list.end() && last->parent == parent && last->role == role) ++last;
    return std::span(list).subspan(static_cast<std::size_t>(first - list.begin()),
                                   static_cast<std::size_t>(last - first));
  }
};

ParentRole other_role(ParentRole role) {
  return role == ParentRole::sire ? ParentRole::dam : ParentRole::sire;
}

std::int32_t parent_of(const PedigreeColumns& animals, std::int32_t animal, ParentRole role) {
  return role == ParentRole::sire ? animals.sire.at(animal) : animals.dam.at(animal);
}

bool have_same_day(const PedigreeColumns& animals, std::int32_t a, std::int32_t b) {
  const DayRange x = days_of_birth(animals, a), y = days_of_birth(animals, b);
  return x.is_known() && x.first == x.last && x.first == y.first && y.first == y.last;
}

/// Gathers the links to all identifications that are marked.
Links gather_links(const PedigreeColumns& animals, const std::vector<std::uint8_t>& is_marked) {
  Links links;
  std::int64_t neighbours = 0, of_same_dam = 0;
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t sire = animals.sire.at(animal), dam = animals.dam.at(animal);
    if (sire == 0 && dam == 0) continue;
    const int count = (sire != 0 ? 1 : 0) + (dam != 0 ? 1 : 0);
    links.all += count;
    if (animals.birth.at(animal).year != 0) links.by_year[animals.birth.at(animal).year] += count;
    if (is_marked[static_cast<std::size_t>(sire)] != 0) links.list.push_back({sire, ParentRole::sire, animal});
    if (is_marked[static_cast<std::size_t>(dam)] != 0) links.list.push_back({dam, ParentRole::dam, animal});
    const bool has_neighbour = animal > 1 && sire != 0 && dam != 0 && animals.sire.at(animal - 1) == sire &&
                               animals.dam.at(animal - 1) != 0 && have_same_day(animals, animal - 1, animal);
    if (!has_neighbour) continue;
    ++neighbours;
    if (animals.dam.at(animal - 1) == dam) ++of_same_dam;
  }
  std::sort(links.list.begin(), links.list.end(), stands_before);
  links.same_dam_share = (static_cast<double>(of_same_dam) + 1) / (static_cast<double>(neighbours) + 2);
  return links;
}

/// A parent without a line with everything that speaks for and against the animals near it.
struct Case {
  MissingParent missing;
  std::span<const NearAnimal> near;
  std::vector<double> weights;  ///< of each of them, for one slip among all links
  double genuine_weight = 0;    ///< of a parent that has no line, for one such parent among all links
};

struct Weighing {
  const PedigreeColumns& animals;
  const Links& links;
  const CheckLimits& limits;
  std::string_view male_letters;
};

/// 0 for an animal that cannot be this parent.
double fit_of(const Weighing& weighing, const Case& one, std::int32_t candidate, std::int32_t young) {
  const PedigreeColumns& animals = weighing.animals;
  constexpr double of_unknown_sex = 0.5;
  const char sex = animals.sex.at(candidate);
  const bool is_unknown = sex == ' ' || sex == '?' || sex == '-';
  const bool is_male = weighing.male_letters.find(sex) != std::string_view::npos;
  if (candidate == young || (!is_unknown && is_male != (one.missing.role == ParentRole::sire))) return 0;
  const DayRange parent_days = days_of_birth(animals, candidate), young_days = days_of_birth(animals, young);
  if (parent_days.is_known() && young_days.is_known()) {
    constexpr std::int64_t days_of_a_year = 366;
    const CheckLimits& limits = weighing.limits;
    const std::int64_t oldest =
        one.missing.role == ParentRole::sire ? limits.oldest_sire_years : limits.oldest_dam_years;
    const std::int64_t most = std::int64_t{young_days.last} - parent_days.first;
    const std::int64_t least = std::int64_t{young_days.first} - parent_days.last;
    if (most < std::max(limits.youngest_parent_days, 1) || least > (oldest + 1) * days_of_a_year) return 0;
  }
  return is_unknown ? of_unknown_sex : 1;
}

/// How many of these links are to young of a year and the years beside it; of all years for an unknown one.
std::int64_t count_near_year(const PedigreeColumns& animals, std::span<const Link> links, std::int32_t year) {
  return std::count_if(links.begin(), links.end(), [&](const Link& link) {
    const std::int32_t born = animals.birth.at(link.young).year;
    return year == 0 || (born != 0 && born >= year - 1 && born <= year + 1);
  });
}

/// The chance that the parent of a young of this year is just this animal, by its other young of that time.
double chance_by_year(const Weighing& weighing, ParentRole role, std::int32_t candidate, std::int32_t young) {
  constexpr double of_first_young = 0.3;  // an animal without young counts for so many
  const PedigreeColumns& animals = weighing.animals;
  const std::int32_t year = animals.birth.at(young).year;
  double all = static_cast<double>(weighing.links.all) / 2;
  if (year != 0) {
    all = 0;
    for (std::int32_t near = year - 1; near <= year + 1; ++near) {
      const auto found = weighing.links.by_year.find(near);
      if (found != weighing.links.by_year.end()) all += static_cast<double>(found->second) / 2;
    }
  }
  const auto own = count_near_year(animals, weighing.links.of(animals.id.at(candidate), role), year);
  const double eligible = static_cast<double>(animals.count()) / 2;
  return (static_cast<double>(own) + of_first_young) / (all + of_first_young * eligible + 1);
}

/// The mates that the young's other parent has had: which share of them is the candidate.
struct MateShares {
  double of_litter = -1;  ///< among litter mates; negative: there are none
  double of_all = -1;     ///< among all young of the other parent; likewise
  double repeats = 0;     ///< how often that parent keeps to a mate from one young to the next
};

MateShares share_of_mates(const Weighing& weighing, ParentRole role, std::int32_t candidate, std::int32_t young) {
  const PedigreeColumns& animals = weighing.animals;
  MateShares shares;
  const std::int32_t other = parent_of(animals, young, other_role(role));
  const std::int32_t id = animals.id.at(candidate), written = parent_of(animals, young, role);
  if (other == 0) return shares;
  double litter = 0, of_litter = 0, all = 0, of_all = 0, kept = 0, pairs = 0;
  std::int32_t last_mate = 0;
  for (const Link& link : weighing.links.of(other, other_role(role))) {
    const std::int32_t mate = parent_of(animals, link.young, role);
    if (link.young == young || mate == 0 || mate == written) continue;
    ++all;
    if (mate == id) ++of_all;
    if (last_mate != 0) ++pairs;
    if (mate == last_mate) ++kept;
    last_mate = mate;
    const bool is_beside = role == ParentRole::sire || std::abs(link.young - young) <= 2;
    if (!is_beside || !have_same_day(animals, link.young, young)) continue;
    ++litter;
    if (mate == id) ++of_litter;
  }
  if (litter > 0) shares.of_litter = of_litter / litter;
  if (all > 0) shares.of_all = of_all / all;
  shares.repeats = (kept + 1) / (pairs + 2);
  return shares;
}

/// The chance that the parent of the young is just this animal.
double chance_of_parent(const Weighing& weighing, ParentRole role, std::int32_t candidate, std::int32_t young) {
  constexpr double one_sire = 0.97;  // litters with one sire
  const double by_year = chance_by_year(weighing, role, candidate, young);
  const MateShares shares = share_of_mates(weighing, role, candidate, young);
  double chance = by_year;
  if (shares.of_all >= 0) chance = shares.repeats * shares.of_all + (1 - shares.repeats) * by_year;
  if (shares.of_litter < 0) return chance;
  const double of_litter = role == ParentRole::sire ? one_sire : weighing.links.same_dam_share;
  return of_litter * shares.of_litter + (1 - of_litter) * chance;
}

/// The young of one parent without a line by litters: the first of each.
std::vector<std::int32_t> first_of_litters(const PedigreeColumns& animals, std::span<const Link> young) {
  std::vector<std::int32_t> firsts;
  for (const Link& link : young) {
    const auto is_mate = [&](std::int32_t first) {
      return animals.sire.at(first) == animals.sire.at(link.young) &&
             animals.dam.at(first) == animals.dam.at(link.young) && have_same_day(animals, first, link.young);
    };
    if (std::none_of(firsts.begin(), firsts.end(), is_mate)) firsts.push_back(link.young);
    constexpr std::size_t enough = 6;
    if (firsts.size() == enough) break;
  }
  return firsts;
}

std::int64_t count_digits(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char letter) { return letter >= '0' && letter <= '9'; });
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

double weight_of(const Weighing& weighing, const Case& one, const NearAnimal& near) {
  constexpr double slipped_again = 0.1, least = 0.001;
  const PedigreeColumns& animals = weighing.animals;
  const ParentRole role = one.missing.role;
  double best = 0, fit = 1;
  const auto firsts = first_of_litters(animals, weighing.links.of(one.missing.id, role));
  for (const std::int32_t young : firsts) {
    fit = std::min(fit, fit_of(weighing, one, near.animal, young));
    if (fit == 0) return 0;
    best = std::max(best, chance_of_parent(weighing, role, near.animal, young));
  }
  // One rule for all, or a slip in the animal's own line: then all of its young have another parent than it.
  const bool is_rule = near.slip == Slip::format || near.slip == Slip::prefix || near.slip == Slip::beginning;
  const bool has_young = !weighing.links.of(animals.id.at(near.animal), role).empty();
  double again = 1;
  for (std::size_t k = 1; k < firsts.size() && !is_rule && has_young; ++k)
    again = std::max(again * slipped_again, least);
  const std::string_view written = animals.ids.at(one.missing.id), meant = animals.ids.at(animals.id.at(near.animal));
  return chance_as_written(near.slip, written, meant) * best * fit * again;
}

/// Letters and digits of an identification without which ones they are: "AA-9999".
std::string shape_of(std::string_view id) {
  std::string shape(id);
  for (char& letter : shape) {
    if (letter >= '0' && letter <= '9') letter = '9';
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
  const double all = static_cast<double>(std::max(animals.count(), 1));
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
  constexpr double sure = 0.9;
  const double all = rates.slips * sum_of(one) + rates.genuine * one.genuine_weight;
  for (std::size_t k = 0; k < one.weights.size(); ++k) {
    if (rates.slips * one.weights[k] > sure * all) return {one.near[k].animal, one.near[k].slip};
  }
  return {};
}

/// Marks the identifications whose links are needed: parents without a line that have animals near them, these animals,
/// and the other parents of the young in question.
std::vector<std::uint8_t> mark_needed(const PedigreeColumns& animals, std::span<const MissingParent> missing,
                                      std::span<const std::vector<NearAnimal>> near) {
  std::vector<std::uint8_t> is_marked(static_cast<std::size_t>(animals.ids.count()) + 1);
  std::vector<std::uint8_t> is_wanted(is_marked.size());
  const auto mark = [&](std::int32_t id) { is_marked[static_cast<std::size_t>(id)] = 1; };
  for (std::size_t k = 0; k < missing.size(); ++k) {
    if (near[k].empty()) continue;
    mark(missing[k].id);
    is_wanted[static_cast<std::size_t>(missing[k].id)] = 1;
    for (const NearAnimal& each : near[k]) mark(animals.id.at(each.animal));
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t sire = animals.sire.at(animal), dam = animals.dam.at(animal);
    if (is_wanted[static_cast<std::size_t>(sire)] != 0) mark(dam);
    if (is_wanted[static_cast<std::size_t>(dam)] != 0) mark(sire);
  }
  is_marked[0] = 0;
  return is_marked;
}

}  // namespace

std::vector<MeantParent> find_meant_parents(const PedigreeColumns& animals, std::span<const MissingParent> missing,
                                            const CheckLimits& limits, std::string_view male_letters) {
  std::vector<MeantParent> meant(missing.size());
  if (missing.empty()) return meant;
  std::vector<std::int32_t> wanted;
  for (const MissingParent& each : missing) wanted.push_back(each.id);
  const std::vector<std::int32_t> sample = sample_ids(animals);
  wanted.insert(wanted.end(), sample.begin(), sample.end());
  const std::vector<std::vector<NearAnimal>> near = find_near_animals(animals, wanted, missing.size());
  const double usual_share = occupied_share(animals, sample, std::span(near).subspan(missing.size()));
  const Links links = gather_links(animals, mark_needed(animals, missing, near));
  const std::vector<double> genuine = genuine_weights(animals, missing, near, usual_share);
  const Weighing weighing = {animals, links, limits, male_letters};
  std::vector<Case> cases;
  for (std::size_t k = 0; k < missing.size(); ++k) {
    Case one = {missing[k], near[k], {}, genuine[k]};
    for (const NearAnimal& each : near[k]) one.weights.push_back(weight_of(weighing, one, each));
    cases.push_back(std::move(one));
  }
  const Rates rates = estimate_rates(cases, static_cast<double>(std::max<std::int64_t>(links.all, 1)));
  for (std::size_t k = 0; k < cases.size(); ++k) meant[k] = decide(cases[k], rates);
  return meant;
}

}  // namespace pedigreewatch
