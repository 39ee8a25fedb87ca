// Puts typos into the parents of herds and prints how many the check mends rightly: of each kind and of each way of
// writing identifications; then how often it alarms in sound herds, and which other faults it names.
//   measure_findings [HERDS [SEED]]              of made herds, so many of each kind and way
//   measure_findings --pedigree FILE [SPECIES]   of a pedigree id,sire,dam,sex,birthdate

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/planted_faults.h"

namespace {

using namespace pedigreewatch::test;

constexpr int typos_a_herd = 33, animals_a_herd = 1000;

void print_score(const std::string& label, int planted, int right, int wrong) {
  std::printf("%-34.34s planted %5d  right %5d  wrong %4d  nothing %5d\n", label.c_str(), planted, right, wrong,
              planted - right - wrong);
}

void print_total(const std::string& label, const TypoScore& score) {
  print_score(label, score.of(score.planted), score.of(score.right), score.of(score.wrong));
}

void print_kinds(const TypoScore& score) {
  for (std::size_t k = 0; k < score.planted.size(); ++k) {
    print_score(std::string(name_of(static_cast<Typo>(k))), score.planted[k], score.right[k], score.wrong[k]);
  }
  print_total("all", score);
}

TypoScore score_of(std::uint32_t seed, Herd herd, const std::string& species) {
  Dice dice;
  dice.random.seed(seed);
  const std::vector<PlantedTypo> typos = plant_typos(dice, herd, typos_a_herd);
  return score_typos(herd, typos, species);
}

void measure_pedigree(const std::string& file, const std::string& species) {
  TypoScore all;
  for (int k = 0; k < static_cast<int>(HerdIds::count); ++k) {
    const auto ids = static_cast<HerdIds>(k);
    const Herd herd = read_herd(file, ids);
    if (herd.empty()) continue;
    const TypoScore score = score_of(1, herd, species);
    print_total(file.substr(file.rfind('/') + 1, 18) + " " + std::string(name_of(ids)), score);
    all.add(score);
    if (ids == HerdIds::own)
      std::printf("  alarms without typos: %zu in %zu animals\n", alarms_of(herd, species).size(), herd.size());
  }
  print_kinds(all);
}

void measure_herds(int count, std::uint32_t seed) {
  TypoScore all;
  std::map<std::string, TypoScore> by_ids;
  std::size_t alarms = 0, herds = 0, worst = 0;
  for (int round = 0; round < count; ++round) {
    for (int kind = 0; kind < static_cast<int>(HerdKind::count); ++kind) {
      for (int ids = 0; ids < static_cast<int>(HerdIds::own); ++ids) {
        Dice dice;
        dice.random.seed(seed++);
        const Herd herd = make_herd(dice, static_cast<HerdKind>(kind), static_cast<HerdIds>(ids), animals_a_herd);
        const std::string species = species_of(static_cast<HerdKind>(kind));
        const TypoScore score = score_of(seed, herd, species);
        by_ids[species + " " + std::string(name_of(static_cast<HerdIds>(ids)))].add(score);
        all.add(score);
        const std::vector<std::string> rows = alarms_of(herd, species);
        const std::size_t own = rows.size();
        if (own > 2) std::printf("%s\n", rows.front().c_str());
        alarms += own;
        worst = std::max(worst, own);
        ++herds;
      }
    }
  }
  for (const auto& [label, score] : by_ids) print_total(label, score);
  std::printf("\n");
  print_kinds(all);
  std::printf("\nsound herds of %d animals: %zu, alarms: %zu, at most %zu in one\n\n", animals_a_herd, herds, alarms,
              worst);
  std::map<std::string, std::pair<int, int>> named;
  for (int round = 0; round < count * 5; ++round) {
    for (const NamedFault& fault : plant_and_name_faults(seed++)) {
      ++named[fault.fault].second;
      named[fault.fault].first += fault.is_named ? 1 : 0;
    }
  }
  for (const auto& [fault, counts] : named)
    std::printf("%-34s named %d of %d\n", fault.c_str(), counts.first, counts.second);
}

}  // namespace

int main(int count, char** texts) {
  const std::vector<std::string> arguments(texts + 1, texts + count);
  if (arguments.size() >= 2 && arguments[0] == "--pedigree") {
    measure_pedigree(arguments[1], arguments.size() > 2 ? arguments[2] : "other");
    return 0;
  }
  const int herds = !arguments.empty() ? std::atoi(arguments[0].c_str()) : 3;
  const int seed = arguments.size() > 1 ? std::atoi(arguments[1].c_str()) : 1;
  measure_herds(herds, static_cast<std::uint32_t>(seed));
  return 0;
}
