// The herd is followed year by year. A birth year gets its number of lines, which is filled with imports, in the first
// years with animals of unknown parents, and else with litters. Animals chosen for breeding at birth go to the cohort
// of their year, where later years find them as parents; a cohort is forgotten when it is too old to breed.
//
// All draws are integers from one generator and are made in statements of their own, as the order in which arguments
// are evaluated differs between compilers.
#include "population_generator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>

namespace pedigreewatch {
namespace {

constexpr std::int32_t oldest_parent_years = 8;
constexpr std::int32_t longest_delay_years = 4;
constexpr std::int32_t litters_per_dam = 3;
constexpr std::int32_t parent_draws = 24;  // enough to meet a free parent in all but the smallest herds
constexpr std::size_t write_size = std::size_t{1} << 20;

constexpr std::int32_t sum_of(std::span<const std::int32_t> weights) {
  std::int32_t sum = 0;
  for (const std::int32_t weight : weights) sum += weight;
  return sum;
}

// How often parents of 1, 2, 3 ... years are used.
constexpr std::array<std::int32_t, oldest_parent_years> sire_age_weights = {10, 30, 25, 15, 8, 6, 4, 2};
constexpr std::array<std::int32_t, oldest_parent_years> dam_age_weights = {6, 18, 20, 18, 14, 11, 8, 5};

constexpr std::int32_t age_weight_sum = 100;
static_assert(sum_of(sire_age_weights) == age_weight_sum && sum_of(dam_age_weights) == age_weight_sum);

// The herdbook opens with animals of unknown parents; they give way as own breeding stock grows up.
constexpr std::array<std::int32_t, 7> founder_permille = {1000, 950, 700, 500, 300, 150, 60};

constexpr std::array<std::int32_t, 12> month_lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

constexpr std::array<std::string_view, 36> name_heads = {"Al", "Am",  "Bel", "Ber", "Bri", "Cor", "Dar", "Del", "Do",
                                                         "El", "Em",  "Fen", "Flo", "Ga",  "Gil", "Hei", "Ho",  "Is",
                                                         "Ja", "Jor", "Ka",  "Ker", "La",  "Lin", "Mar", "Mi",  "No",
                                                         "Or", "Per", "Ro",  "San", "Syl", "Ta",  "Ti",  "Vel", "Wil"};
constexpr std::array<std::string_view, 14> male_name_tails = {"bert", "bo",   "co", "do",  "fred", "gar", "ko",
                                                              "mer",  "mond", "no", "rik", "ro",   "ton", "win"};
constexpr std::array<std::string_view, 14> female_name_tails = {"ba",   "bella", "da", "della", "ga",  "ka",  "la",
                                                                "lina", "mina",  "na", "ra",    "ria", "tje", "va"};

/// The splitmix64 generator: the same numbers with every compiler and library.
struct Random {
  std::uint64_t state = 0;

  std::uint64_t next() {
    state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
  }
  /// 0 to `limit` - 1.
  std::int32_t below(std::int32_t limit) {
    return static_cast<std::int32_t>(((next() >> 32) * static_cast<std::uint64_t>(limit)) >> 32);
  }
  bool chance(std::int32_t permille) { return below(1000) < permille; }
};

template <typename List>
auto& pick(Random& random, List& list) {
  return list[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(list.size())))];
}

/// The index of an entry, drawn in proportion to the weights.
std::size_t weighted_index(Random& random, std::span<const std::int32_t> weights, std::int32_t weight_sum) {
  std::int32_t rest = random.below(weight_sum);
  std::size_t index = 0;
  while (rest >= weights[index]) {
    rest -= weights[index];
    ++index;
  }
  return index;
}

/// An animal chosen for breeding. Its identification is made from the serial wherever it is written. Kept small: of the
/// largest herd more than three million are remembered at once.
struct BreedingAnimal {
  std::int32_t serial = 0;
  std::int16_t birth_day = 0;
  std::int16_t last_litter_year = -1;  ///< dams only: one litter a year
  std::uint16_t breeder = 0;
  std::uint8_t colour = 0;
  bool is_popular = false;  ///< sires only
};
static_assert(sizeof(BreedingAnimal) == 12);

using BreedingGroup = std::vector<BreedingAnimal>;

/// The breeding animals of one birth year, one group for each subpopulation.
struct Cohort {
  std::vector<BreedingGroup> sires, dams;
};

/// What the animals of a litter share. Years are counted from 0.
struct Birth {
  std::int32_t year = 0;
  std::int32_t day = 0;
  std::size_t subpopulation = 0;
  std::size_t breeder = 0;
  const BreedingAnimal* sire = nullptr;
  const BreedingAnimal* dam = nullptr;
  const ExportingCountry* origin = nullptr;  ///< set for an import
};

struct Herd {
  const PopulationPlan& plan;
  Random random;
  std::vector<std::int32_t> subpopulation_weights;
  std::int32_t subpopulation_weight_sum = 0;
  std::int32_t litter_weight_sum = 0;
  std::int32_t import_birth_permille = 0;  ///< of the births, where the plan counts animals
  std::int32_t dam_permille = 0;           ///< of the females

  std::array<Cohort, oldest_parent_years + 1> cohorts = {};  ///< used in turn, the current year included
  std::int32_t last_serial = 0;
  std::int32_t lines_of_year = 0;

  std::FILE* file = nullptr;
  bool is_written_well = true;
  std::string text = {};  ///< lines on their way to the file
  /// Used in turn: the lines that stand at the end of a year; those of the year after the last close the file.
  std::array<std::string, longest_delay_years + 1> late_lines = {};
};

Cohort& cohort_of(Herd& herd, std::int32_t year) {
  return herd.cohorts[static_cast<std::size_t>(year) % herd.cohorts.size()];
}

std::string& late_lines_of(Herd& herd, std::int32_t year) {
  return herd.late_lines[static_cast<std::size_t>(year) % herd.late_lines.size()];
}

Herd found_herd(const PopulationPlan& plan, std::FILE* file) {
  Herd herd{.plan = plan, .random = {plan.seed}, .subpopulation_weights = {}, .file = file};
  for (const SubpopulationShare& share : plan.subpopulations) herd.subpopulation_weights.push_back(share.weight);
  herd.subpopulation_weight_sum = sum_of(herd.subpopulation_weights);
  herd.litter_weight_sum = sum_of(plan.litter_size_weights);

  std::int32_t weighted_sizes = 0;
  std::int32_t size = 0;
  for (const std::int32_t weight : plan.litter_size_weights) weighted_sizes += ++size * weight;
  const std::int32_t mean_size_percent = 100 * weighted_sizes / herd.litter_weight_sum;
  // An import counts as one birth, a litter as one for several animals.
  herd.import_birth_permille =
      1000 * plan.import_permille * mean_size_percent / (100'000 + plan.import_permille * (mean_size_percent - 100));
  // Half of a litter is female.
  herd.dam_permille = std::min(850, 200'000 / (litters_per_dam * mean_size_percent));
  return herd;
}

void pass_on_text(Herd& herd, std::size_t allowed_size) {
  if (herd.text.size() > allowed_size) {
    herd.is_written_well &= std::fwrite(herd.text.data(), 1, herd.text.size(), herd.file) == herd.text.size();
    herd.text.clear();
  }
}

void append_number(std::string& line, std::int32_t number, std::int32_t digits) {
  std::array<char, 12> places = {};
  auto place = places.end();
  for (; digits > 0 || number > 0; --digits, number /= 10) *--place = static_cast<char>('0' + number % 10);
  line.append(place, places.end());
}

void append_date(std::string& line, std::int32_t year, std::int32_t day_of_year) {
  std::size_t month = 0;
  while (day_of_year > month_lengths[month]) {
    day_of_year -= month_lengths[month];
    ++month;
  }
  append_number(line, day_of_year, 2);
  line += '-';
  append_number(line, static_cast<std::int32_t>(month) + 1, 2);
  line += '-';
  append_number(line, year, 4);
}

void append_id(std::string& line, const PopulationPlan& plan, std::int32_t serial) {
  line += plan.id_prefix;
  append_number(line, serial, plan.id_digits);
}

/// `sex_digit` keeps foreign sires and foreign dams apart.
void append_parent(std::string& line, Herd& herd, const Birth& birth, const BreedingAnimal* parent, char sex_digit) {
  if (parent != nullptr) {
    append_id(line, herd.plan, parent->serial);
    return;
  }
  if (birth.origin != nullptr && herd.random.chance(herd.plan.foreign_parent_permille)) {
    line += birth.origin->id_prefix;
    line += sex_digit;
    append_number(line, herd.random.below(1 + herd.plan.animal_count / 100), 6);
    return;
  }
  line += pick(herd.random, herd.plan.unknown_parents);
}

std::size_t draw_colour(Herd& herd, const Birth& birth) {
  const std::int32_t source = herd.random.below(100);
  if (source < 45 && birth.sire != nullptr) return birth.sire->colour;
  if (source < 90 && birth.dam != nullptr) return birth.dam->colour;
  const std::int32_t first = herd.random.below(static_cast<std::int32_t>(herd.plan.colours.size()));
  const std::int32_t second = herd.random.below(static_cast<std::int32_t>(herd.plan.colours.size()));
  return static_cast<std::size_t>(std::min(first, second));  // the first colours are the most common
}

void write_animal(Herd& herd, const Birth& birth, std::int32_t serial, bool is_male, std::size_t colour) {
  const PopulationPlan& plan = herd.plan;
  Random& random = herd.random;
  std::string* line = &herd.text;
  if (random.chance(plan.late_line_permille)) {
    const std::int32_t written_year = birth.year + 1 + random.below(longest_delay_years);
    line = &late_lines_of(herd, std::min(written_year, plan.birth_year_count));
  }
  append_id(*line, plan, serial);
  *line += ';';
  *line += pick(random, name_heads);
  *line += pick(random, is_male ? male_name_tails : female_name_tails);
  *line += ';';
  *line += is_male ? std::string_view("m") : plan.female_letter;
  *line += ';';
  if (random.chance(plan.unknown_date_permille)) {
    *line += pick(random, plan.unknown_dates);
  } else {
    append_date(*line, plan.first_birth_year + birth.year, birth.day);
  }
  *line += ';';
  append_parent(*line, herd, birth, birth.sire, '1');
  *line += ';';
  append_parent(*line, herd, birth, birth.dam, '2');
  *line += ';';
  *line += random.chance(plan.odd_colour_permille) ? pick(random, plan.odd_colours) : plan.colours[colour];
  *line += ';';
  if (birth.origin == nullptr) *line += plan.breeders[birth.breeder];
  *line += ';';
  *line += plan.subpopulations[birth.subpopulation].name;
  *line += ';';
  if (birth.origin != nullptr) *line += birth.origin->name;
  *line += '\n';
  ++herd.lines_of_year;
}

bool is_chosen_for_breeding(Herd& herd, const Birth& birth, bool is_male) {
  if (birth.origin != nullptr) {
    return herd.random.chance(is_male ? 100 : 400);  // animals are imported to breed with
  }
  if (!is_male) return herd.random.chance(herd.dam_permille);
  // In small herds a subpopulation could run out of sires; each gets one at least every few years.
  const bool is_turn = static_cast<std::size_t>(birth.year) % herd.plan.subpopulations.size() == birth.subpopulation;
  const bool is_needed = is_turn && cohort_of(herd, birth.year).sires[birth.subpopulation].empty();
  return is_needed || herd.random.chance(herd.plan.sire_permille);
}

void add_animal(Herd& herd, const Birth& birth) {
  const std::int32_t serial = ++herd.last_serial;
  const bool is_male = herd.random.below(2) == 0;
  const std::size_t colour = draw_colour(herd, birth);
  if (is_chosen_for_breeding(herd, birth, is_male)) {
    Cohort& cohort = cohort_of(herd, birth.year);
    BreedingGroup& group = (is_male ? cohort.sires : cohort.dams)[birth.subpopulation];
    group.push_back({.serial = serial,
                     .birth_day = static_cast<std::int16_t>(birth.day),
                     .breeder = static_cast<std::uint16_t>(birth.breeder),
                     .colour = static_cast<std::uint8_t>(colour),
                     .is_popular = herd.random.chance(80)});
    if (herd.random.chance(herd.plan.unlisted_parent_permille)) return;
  }
  write_animal(herd, birth, serial, is_male, colour);
}

std::int32_t draw_age(Random& random, std::span<const std::int32_t> age_weights) {
  return 1 + static_cast<std::int32_t>(weighted_index(random, age_weights, age_weight_sum));
}

/// A dam without a litter in the year of this birth and at least a year old, or null after too many vain draws.
BreedingAnimal* find_dam(Herd& herd, const Birth& birth) {
  for (std::int32_t draw = 0; draw < parent_draws; ++draw) {
    const std::int32_t age = draw_age(herd.random, dam_age_weights);
    if (age > birth.year) continue;
    BreedingGroup& group = cohort_of(herd, birth.year - age).dams[birth.subpopulation];
    if (group.empty()) continue;
    BreedingAnimal& dam = pick(herd.random, group);
    if (dam.last_litter_year != birth.year && (age > 1 || dam.birth_day <= birth.day)) return &dam;
  }
  return nullptr;
}

/// A sire at least a year old from the given subpopulation, the popular ones much more often than the others.
const BreedingAnimal* find_sire(Herd& herd, const Birth& birth, std::size_t subpopulation) {
  const BreedingAnimal* last_met = nullptr;
  for (std::int32_t draw = 0; draw < parent_draws; ++draw) {
    const std::int32_t age = draw_age(herd.random, sire_age_weights);
    if (age > birth.year || cohort_of(herd, birth.year - age).sires[subpopulation].empty()) continue;
    const BreedingAnimal& sire = pick(herd.random, cohort_of(herd, birth.year - age).sires[subpopulation]);
    if (age == 1 && sire.birth_day > birth.day) continue;
    last_met = &sire;
    if (sire.is_popular || herd.random.chance(100)) break;
  }
  return last_met;
}

std::size_t draw_subpopulation(Herd& herd) {
  return weighted_index(herd.random, herd.subpopulation_weights, herd.subpopulation_weight_sum);
}

/// One of the breeders of the subpopulation; those that come first in the plan have the larger flocks.
std::size_t draw_breeder(Herd& herd, std::size_t subpopulation) {
  const std::size_t step = herd.plan.subpopulations.size();
  const std::size_t breeder_count = herd.plan.breeders.size();
  if (subpopulation >= breeder_count) return 0;
  const auto own_count = static_cast<std::int32_t>((breeder_count - subpopulation + step - 1) / step);
  const std::int32_t first = herd.random.below(own_count);
  const std::int32_t second = herd.random.below(own_count);
  return subpopulation + step * static_cast<std::size_t>(std::min(first, second));
}

void add_litter(Herd& herd, Birth birth, std::int32_t line_limit) {
  BreedingAnimal* dam = find_dam(herd, birth);
  if (dam == nullptr) {
    birth.breeder = draw_breeder(herd, birth.subpopulation);
    add_animal(herd, birth);
    return;
  }
  dam->last_litter_year = static_cast<std::int16_t>(birth.year);
  birth.breeder = herd.random.chance(850) ? dam->breeder : draw_breeder(herd, birth.subpopulation);
  const std::size_t sire_home =
      herd.random.chance(herd.plan.outcross_permille) ? draw_subpopulation(herd) : birth.subpopulation;
  birth.dam = dam;
  birth.sire = find_sire(herd, birth, sire_home);
  if (herd.random.chance(herd.plan.unknown_sire_permille)) birth.sire = nullptr;
  if (herd.random.chance(herd.plan.unknown_dam_permille)) birth.dam = nullptr;
  const std::size_t further_size = weighted_index(herd.random, herd.plan.litter_size_weights, herd.litter_weight_sum);
  for (std::size_t young = 0; young <= further_size && herd.lines_of_year < line_limit; ++young) {
    add_animal(herd, birth);
  }
}

/// The day that belongs to the place in the year's births, so that lines stand in the order of birth.
std::int32_t draw_birth_day(Herd& herd, std::int32_t line_limit) {
  const std::int64_t season_days = herd.plan.last_season_day - herd.plan.first_season_day + 1;
  const auto passed_days = static_cast<std::int32_t>(season_days * herd.lines_of_year / line_limit);
  const std::int32_t jitter_days = herd.random.below(herd.plan.season_jitter_days + 1);
  return std::min(herd.plan.first_season_day + passed_days + jitter_days, 365);
}

/// Forgets the animals that have become too old to breed; those of this year take over the memory of their groups.
void begin_cohort(Herd& herd, std::int32_t year) {
  Cohort& cohort = cohort_of(herd, year);
  cohort.sires.resize(herd.plan.subpopulations.size());
  cohort.dams.resize(herd.plan.subpopulations.size());
  for (BreedingGroup& group : cohort.sires) group.clear();
  for (BreedingGroup& group : cohort.dams) group.clear();
}

void add_birth_year(Herd& herd, std::int32_t year, std::int32_t line_limit) {
  begin_cohort(herd, year);
  const auto year_index = static_cast<std::size_t>(year);
  const std::int32_t founders = year_index < founder_permille.size() ? founder_permille[year_index] : 0;

  herd.lines_of_year = 0;
  while (herd.lines_of_year < line_limit) {
    Birth birth{.year = year};
    birth.day = draw_birth_day(herd, line_limit);
    birth.subpopulation = draw_subpopulation(herd);
    if (herd.random.chance(herd.import_birth_permille)) {
      birth.breeder = draw_breeder(herd, birth.subpopulation);
      birth.origin = &pick(herd.random, herd.plan.countries);
      add_animal(herd, birth);
    } else if (herd.random.chance(founders)) {
      birth.breeder = draw_breeder(herd, birth.subpopulation);
      add_animal(herd, birth);
    } else {
      add_litter(herd, birth, line_limit);
    }
    pass_on_text(herd, write_size);
  }
  herd.text += late_lines_of(herd, year);
  late_lines_of(herd, year).clear();
}

/// How many animals are born up to and including each year.
std::vector<std::int32_t> plan_births(const PopulationPlan& plan) {
  std::vector<std::int64_t> weight_sums;
  std::int64_t weight_sum = 0;
  for (std::int32_t year = 0; year < plan.birth_year_count; ++year) {
    weight_sum += 1000 + plan.growth_permille * year / plan.birth_year_count;
    weight_sums.push_back(weight_sum);
  }
  std::vector<std::int32_t> births;
  for (const std::int64_t sum : weight_sums) {
    births.push_back(static_cast<std::int32_t>(plan.animal_count * sum / weight_sum));
  }
  return births;
}

}  // namespace

bool write_data_file(const PopulationPlan& plan, std::FILE* file) {
  Herd herd = found_herd(plan, file);
  herd.text += plan.header;
  herd.text += '\n';

  std::int32_t year = 0;
  std::int32_t born_before = 0;
  for (const std::int32_t born : plan_births(plan)) {
    if (year == plan.second_seed_year) herd.random = {plan.second_seed};
    add_birth_year(herd, year, born - born_before);
    born_before = born;
    ++year;
  }
  herd.text += late_lines_of(herd, plan.birth_year_count);
  pass_on_text(herd, 0);
  return herd.is_written_well;
}

bool write_steer_file(const PopulationPlan& plan, std::FILE* file) {
  std::string text;
  const auto add_line = [&text](std::string_view line) {
    text += line;
    text += '\n';
  };
  add_line(plan.population_name);
  add_line(plan.data_file_name);
  add_line(";");
  add_line("n");  // consecutive delimiters stand for empty columns
  add_line(plan.date_layout);
  add_line(plan.species_word);
  add_line("m");
  add_line(plan.language);
  add_line("y");  // the data file has a header
  add_line(std::to_string(plan.subpopulations.size()));
  for (const SubpopulationShare& share : plan.subpopulations) add_line(share.name);
  add_line(std::to_string(plan.colours.size()));
  for (const std::string_view colour : plan.colours) add_line(colour);
  return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

}  // namespace pedigreewatch
