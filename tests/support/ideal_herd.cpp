#include "support/ideal_herd.h"

#include <algorithm>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

struct Young {
  std::size_t sire = 0, dam = 0;  ///< places among the parents
  bool is_male = false;
};

/// The young of a year: which parents each has.
std::vector<Young> bear(const IdealHerd& herd, RandomNumbers& random) {
  std::vector<std::size_t> sire_of_litter;
  const std::vector<std::int32_t> litters = herd.litters_of_sires();
  for (std::size_t sire = 0; sire < litters.size(); ++sire) {
    sire_of_litter.insert(sire_of_litter.end(), static_cast<std::size_t>(litters[sire]), sire);
  }
  for (std::size_t k = sire_of_litter.size(); k > 1; --k) {
    std::swap(sire_of_litter[k - 1],
              sire_of_litter[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(k)))]);
  }
  std::vector<Young> young;
  for (std::size_t dam = 0; dam < sire_of_litter.size(); ++dam) {
    for (std::int32_t k = 0; k < herd.litter; ++k) {
      young.push_back({sire_of_litter[dam], dam, random.below(2) == 0});
    }
  }
  return young;
}

/// Places of so many of the young of one sex, in random order.
std::vector<std::size_t> choose(const std::vector<Young>& young, bool males, std::int32_t count,
                                RandomNumbers& random) {
  std::vector<std::size_t> places;
  for (std::size_t k = 0; k < young.size(); ++k) {
    if (young[k].is_male == males) places.push_back(k);
  }
  for (std::size_t k = places.size(); k > 1; --k) {
    std::swap(places[k - 1], places[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(k)))]);
  }
  places.resize(static_cast<std::size_t>(count));
  return places;
}

struct Parents {
  std::vector<std::string> sires, dams;
};

}  // namespace

std::vector<std::int32_t> IdealHerd::litters_of_sires() const {
  std::vector<std::int32_t> litters(static_cast<std::size_t>(sires), dams / sires);
  if (has_top_sire) {
    litters.assign(litters.size(), dams / 2 / (sires - 1));
    litters[0] = dams - (sires - 1) * litters[1];
  }
  return litters;
}

double IdealHerd::rate() const {
  const auto others = [](double family, double all) { return family * (family - 1.0) / (all * (all - 1.0)); };
  const double young = static_cast<double>(dams) * litter;
  double same_parent = static_cast<double>(dams) * others(litter, young);
  for (const std::int32_t litters : litters_of_sires())
    same_parent += others(static_cast<double>(litters) * litter, young);
  // F is the kinship of the parents' generation; kinship rises towards that of animals with themselves.
  double f = 0.0, kinship = 0.0, rate = 0.0;
  for (int generation = 0; generation < 50; ++generation) {
    const double next = kinship + 0.25 * same_parent * (0.5 * (1.0 + f) - kinship);
    rate = (kinship - f) / (1.0 - f);
    f = kinship;
    kinship = next;
  }
  return rate;
}

PopulationStore make_ideal_herd(const IdealHerd& herd, std::uint64_t seed) {
  RandomNumbers random{seed};
  std::string text;
  Parents parents;
  for (std::int32_t k = 0; k < herd.sires + herd.dams; ++k) {
    const bool is_male = k < herd.sires;
    const std::string id = "f" + std::to_string(k);
    text += id + " 0 0 " + (is_male ? "m" : "f") + " 1990\n";
    (is_male ? parents.sires : parents.dams).push_back(id);
  }
  for (std::int32_t year = 1991; year < 1990 + herd.years; ++year) {
    const std::vector<Young> young = bear(herd, random);
    const auto name = [&](std::size_t k) { return std::to_string(year) + "_" + std::to_string(k); };
    for (std::size_t k = 0; k < young.size(); ++k) {
      text += name(k) + " " + parents.sires[young[k].sire] + " " + parents.dams[young[k].dam] + " " +
              (young[k].is_male ? "m " : "f ") + std::to_string(year) + "\n";
    }
    parents = {};
    for (const std::size_t k : choose(young, true, herd.sires, random)) parents.sires.push_back(name(k));
    for (const std::size_t k : choose(young, false, herd.dams, random)) parents.dams.push_back(name(k));
  }
  return with_inbreeding(pedigree_from_text(text));
}

std::vector<double> simulate_plainly(const IdealHerd& herd, const PopulationStore& store, std::int32_t years,
                                     std::uint64_t seed) {
  RandomNumbers random{seed};
  const std::vector<std::vector<double>> relationships = tabular_relationships(store);
  std::vector<Young> young;
  std::vector<std::vector<double>> kinships;  // of the young
  std::vector<std::size_t> last;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (store.birth_year[i] == store.birth_years.last) last.push_back(static_cast<std::size_t>(i) - 1);
  }
  for (const std::size_t i : last) {
    young.push_back({0, 0, store.sex[static_cast<std::int32_t>(i) + 1] == male});
    std::vector<double>& row = kinships.emplace_back();
    for (const std::size_t j : last) row.push_back(0.5 * relationships[i][j]);
  }
  std::vector<double> means;
  for (std::int32_t year = 0; year < years; ++year) {
    const std::vector<std::size_t> sires = choose(young, true, herd.sires, random);
    const std::vector<std::size_t> dams = choose(young, false, herd.dams, random);
    young = bear(herd, random);
    std::vector<std::vector<double>> next(young.size(), std::vector<double>(young.size(), 0.0));
    double sum = 0.0;
    for (std::size_t a = 0; a < young.size(); ++a) {
      const std::size_t sa = sires[young[a].sire], da = dams[young[a].dam];
      sum += kinships[sa][da];
      for (std::size_t b = 0; b < a; ++b) {
        const std::size_t sb = sires[young[b].sire], db = dams[young[b].dam];
        next[a][b] = next[b][a] = 0.25 * (kinships[sa][sb] + kinships[sa][db] + kinships[da][sb] + kinships[da][db]);
      }
      next[a][a] = 0.5 * (1.0 + kinships[sa][da]);
    }
    kinships.swap(next);
    means.push_back(sum / static_cast<double>(young.size()));
  }
  return means;
}

}  // namespace pedigreewatch::test
