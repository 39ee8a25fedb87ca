// How often the verdict on simulated breeds is right: breeds of each size, each way of breeding and each share of
// unknown parents, with the effect of a rule half way where there was one and where there was none.
//   measure_standing [BREEDS]            so many of each kind, 200 without a number
//   measure_standing --faults [BREEDS]   closed breeds with wrong sires or wrong years of birth, by their share
//   measure_standing --book [BREEDS]     closed breeds whose herdbook begins so many years before the earlier of the
//   two
//                                        stretches that the trend compares, or within it

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "standing/standing.h"
#include "support/simulated_breed.h"

namespace {

using namespace pedigreewatch;
using namespace pedigreewatch::test;

struct Kind {
  const char* name;
  BreedScheme scheme;
};

struct Tally {
  int right = 0, none = 0, wrong = 0, two_off = 0, real_changes = 0, sure = 0;
};

Tally judge_breeds(BreedScheme scheme, int breeds) {
  constexpr double generation_interval = 3.0;
  Tally tally;
  for (int breed = 0; breed < breeds; ++breed) {
    scheme.years = 24 + 3 * (breed % 8);  // 8 to 15 generations
    const std::int32_t half_way = scheme.years / 2;
    if (scheme.has_rule) scheme.rule_year = half_way;
    StandingSettings settings;
    settings.rule_year = first_year_of_breeds + half_way;
    const auto seed = static_cast<std::uint64_t>(breed) * 1'000'003U + static_cast<std::uint64_t>(scheme.sires_a_year);
    const Standing standing = compute_standing(simulate_breed(scheme, seed), generation_interval, settings);
    if (standing.rule->is_real) ++tally.real_changes;
    if (standing.sureness == 3) ++tally.sure;
    const int off =
        std::abs(static_cast<int>(standing.pace) - static_cast<int>(pace_of_size(effective_size_of(scheme))));
    if (!standing.is_judged()) {
      ++tally.none;
    } else {
      ++(off == 0 ? tally.right : tally.wrong);
      if (off > 1) ++tally.two_off;
    }
  }
  return tally;
}

void print_heading(const char* share) {
  std::printf("%-14s %6s %8s %7s %7s %7s %7s %7s %7s\n", "kind", "Ne", share, "right", "wrong", "two off", "none",
              "surest", "change");
}

void print_tally(const Kind& kind, const BreedScheme& scheme, double share, const Tally& tally) {
  std::printf("%-14s %6.1f %6.1f %% %7d %7d %7d %7d %7d %7d\n", kind.name, effective_size_of(scheme), 100.0 * share,
              tally.right, tally.wrong, tally.two_off, tally.none, tally.sure, tally.real_changes);
  std::fflush(stdout);
}

void measure_unknown_parents(int breeds) {
  Kind kinds[] = {{"closed", {}}, {"imports", {}}, {"popular sires", {}}, {"rule", {}}};
  kinds[1].scheme.imported = 0.02;
  kinds[2].scheme.has_popular_sires = true;
  kinds[3].scheme.has_rule = true;
  print_heading("unknown");
  for (const Kind& kind : kinds) {
    for (BreedScheme scheme : breeds_of_known_size(kind.scheme)) {
      for (const double unknown : {0.0, 0.02, 0.05, 0.1, 0.3}) {
        scheme.unknown_parents = unknown;
        print_tally(kind, scheme, unknown, judge_breeds(scheme, breeds));
      }
    }
  }
}

void measure_faults(int breeds) {
  print_heading("faulty");
  for (const bool is_of_years : {false, true}) {
    for (BreedScheme scheme : breeds_of_known_size({})) {
      for (const double faulty : {0.0, 0.01, 0.02, 0.05, 0.1}) {
        (is_of_years ? scheme.wrong_years : scheme.wrong_parents) = faulty;
        print_tally({is_of_years ? "wrong years" : "wrong sires", {}}, scheme, faulty, judge_breeds(scheme, breeds));
      }
    }
  }
}

/// Without a rule: every change that is told is false.
void measure_book(int breeds) {
  constexpr std::int32_t years = 54, compared_years = 18;  // three generation intervals of three years, twice
  std::printf("%6s %12s %9s %7s %7s\n", "Ne", "book begins", "compared", "falls", "rises");
  for (BreedScheme scheme : breeds_of_known_size({})) {
    scheme.years = years;
    for (const std::int32_t before : {12, 9, 6, 4, 2, 0, -3}) {
      scheme.book_begins = years - compared_years - before;
      int compared = 0, falls = 0, rises = 0;
      for (int breed = 0; breed < breeds; ++breed) {
        const auto seed = static_cast<std::uint64_t>(breed) * 1'000'003U + static_cast<std::uint64_t>(before + 50);
        const Standing standing = compute_standing(simulate_breed(scheme, seed), 3.0, {});
        if (!standing.before.rate) continue;
        ++compared;
        if (is_real_change(standing.before, standing.rate()))
          ++(standing.rate().rate < standing.before.rate ? falls : rises);
      }
      std::printf("%6.1f %12d %9d %7d %7d\n", effective_size_of(scheme), before, compared, falls, rises);
      std::fflush(stdout);
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  const bool wants_faults = count > 1 && std::strcmp(arguments[1], "--faults") == 0;
  const bool wants_book = count > 1 && std::strcmp(arguments[1], "--book") == 0;
  const int place = wants_faults || wants_book ? 2 : 1;
  const int breeds = count > place ? std::atoi(arguments[place]) : 200;
  if (breeds < 1) {
    std::fputs("usage: measure_standing [--faults | --book] [BREEDS]\n", stderr);
    return 2;
  }
  if (wants_faults) {
    measure_faults(breeds);
  } else if (wants_book) {
    measure_book(breeds);
  } else {
    measure_unknown_parents(breeds);
  }
  return 0;
}
