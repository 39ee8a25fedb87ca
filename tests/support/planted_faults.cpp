#include "support/planted_faults.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "checks/check_report.h"
#include "checks/finding_kinds.h"

namespace pedigreewatch::test {
namespace {

std::string digits(int value, int width) {
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%0*d", width, value);
  return text.data();
}

std::string id_of(int number, HerdIds ids) {
  switch (ids) {
    case HerdIds::zeros: return digits(number, 5);
    case HerdIds::prefix: return "NL" + std::to_string(10000 + 7 * number);
    case HerdIds::hyphens: return "HS-" + digits(number, 5);
    case HerdIds::blanks: return "DE 09 " + digits(100 + number % 7, 3) + " " + digits(number, 5);
    case HerdIds::slashes:
      return digits(number % 19, 2) + "/" + std::string(1, static_cast<char>('A' + number % 5)) + "/" +
             digits(number, 4);
    case HerdIds::tags: return "5280000" + digits(number, 5) + digits(number * 37 % 1000, 3);
    case HerdIds::check_digit: return "HB" + digits(number, 5) + "-" + std::to_string(number * 7 % 10);
    case HerdIds::mixed: {
      std::string id;
      std::uint32_t value = static_cast<std::uint32_t>(number) * 2654435761U;
      for (int k = 0; k < 7; ++k, value = value * 1103515245U + 12345U) {
        id.push_back("ABCDEFGHJKMNPQRSTUVWXYZ0123456789"[value / 65536U % 33U]);
      }
      return id + digits(number % 10, 1);
    }
    case HerdIds::numbers:
    case HerdIds::own:
    case HerdIds::count: break;
  }
  return std::to_string(number);
}

std::string date_of(int year, int day_of_year) {
  return digits(1 + day_of_year % 28, 2) + "-" + digits(1 + day_of_year / 28 % 12, 2) + "-" + std::to_string(year);
}

/// Breeding animals of a year by the year of their birth.
struct Breeding {
  std::map<int, std::vector<std::size_t>> males, females;
};

std::vector<std::size_t> of_ages(const std::map<int, std::vector<std::size_t>>& born, int year, int from, int to) {
  std::vector<std::size_t> result;
  for (int age = from; age <= to; ++age) {
    const auto found = born.find(year - age);
    if (found != born.end()) result.insert(result.end(), found->second.begin(), found->second.end());
  }
  return result;
}

struct KindRules {
  int youngest, oldest_sire, oldest_dam, largest_litter, dams_a_sire;
};

KindRules rules_of(HerdKind kind) {
  switch (kind) {
    case HerdKind::kennel: return {2, 7, 6, 7, 3};
    case HerdKind::flock: return {2, 5, 7, 2, 15};
    default: return {3, 9, 10, 1, 30};
  }
}

constexpr std::array<std::string_view, 12> first_names = {"Bello", "Rex",  "Saar", "Luna", "Bram", "Tess",
                                                          "Puck",  "Flip", "Noor", "Guus", "Mies", "Karel"};
constexpr std::array<std::string_view, 4> herd_colours = {"black", "black and tan", "fawn", "brindle"};

}  // namespace

std::string_view name_of(HerdIds ids) {
  constexpr std::array<std::string_view, static_cast<std::size_t>(HerdIds::count)> names = {
      "1", "00012", "NL10012", "HS-00012", "DE 09 123 00012", "12/B/0012", "15 digits", "HB00012-4", "K8Z5A30", "own"};
  return names[static_cast<std::size_t>(ids)];
}

std::string_view name_of(Typo typo) {
  constexpr std::array<std::string_view, static_cast<std::size_t>(Typo::count)> names = {
      "another letter",    "a letter lacking", "a letter too many", "two changed over",
      "two other letters", "all O for 0",      "prefix dropped",    "check digit dropped",
      "other separators",  "zeros dropped",    "small letters"};
  return names[static_cast<std::size_t>(typo)];
}

std::string species_of(HerdKind kind) {
  return kind == HerdKind::kennel ? "dog" : kind == HerdKind::flock ? "sheep" : "cattle";
}

Herd make_herd(Dice& dice, HerdKind kind, HerdIds ids, int count) {
  constexpr int first_year = 2000, years = 16;
  const KindRules rules = rules_of(kind);
  Herd herd;
  Breeding breeding;
  const auto add = [&](int year, int day, std::size_t sire, std::size_t dam) {
    const std::size_t place = herd.size();
    HerdAnimal animal;
    animal.id = id_of(static_cast<int>(place) + 1, ids);
    animal.is_male = dice.one_in(2);
    animal.date = date_of(year, day);
    animal.name = std::string(dice.one_of(first_names)) + " " + digits(static_cast<int>(place), 1);
    animal.colour = herd_colours[static_cast<std::size_t>(dice.below(4))];
    if (sire != dam) animal.sire = herd[sire].id, animal.dam = herd[dam].id;
    if (!animal.is_male || dice.one_in(rules.dams_a_sire)) {
      (animal.is_male ? breeding.males : breeding.females)[year].push_back(place);
    }
    herd.push_back(std::move(animal));
  };
  const int a_year = count / years;
  for (int k = 0; k < rules.youngest * a_year; ++k) add(first_year + k % rules.youngest, dice.below(336), 0, 0);
  for (int year = first_year + rules.youngest; static_cast<int>(herd.size()) < count; ++year) {
    const auto sires = of_ages(breeding.males, year, rules.youngest, rules.oldest_sire);
    auto dams = of_ages(breeding.females, year, rules.youngest, rules.oldest_dam);
    if (sires.empty() || dams.empty()) break;
    std::shuffle(dams.begin(), dams.end(), dice.random);
    int born = 0;
    for (std::size_t d = 0; d < dams.size() && born < a_year; ++d) {
      const std::size_t sire = sires[static_cast<std::size_t>(dice.below(static_cast<int>(sires.size())))];
      const int litter = 1 + dice.below(rules.largest_litter),
                day = static_cast<int>(dams[d] * 37 % (kind == HerdKind::flock ? 60 : 336));
      for (int k = 0; k < litter; ++k, ++born) add(year, day, sire, dams[d]);
    }
  }
  return herd;
}

Herd read_herd(const std::string& name, HerdIds ids) {
  std::ifstream file(name);
  std::string line;
  std::getline(file, line);
  Herd herd;
  std::map<std::string, std::string> new_ids;
  const auto new_id = [&](const std::string& id) {
    if (id.empty() || ids == HerdIds::own) return id;
    const auto [place, is_new] = new_ids.try_emplace(id, "");
    if (is_new) place->second = id_of(static_cast<int>(new_ids.size()), ids);
    return place->second;
  };
  while (std::getline(file, line)) {
    if (line.ends_with('\r')) line.pop_back();
    std::array<std::string, 5> fields;
    std::istringstream cells(line);
    for (std::string& field : fields) std::getline(cells, field, ',');
    HerdAnimal animal;
    animal.id = new_id(fields[0]);
    animal.sire = new_id(fields[1]);
    animal.dam = new_id(fields[2]);
    animal.is_male = fields[3] == "M";
    animal.has_sex = !fields[3].empty();
    const std::string& date = fields[4];
    if (date.size() == 10) animal.date = date.substr(8, 2) + "-" + date.substr(5, 2) + "-" + date.substr(0, 4);
    if (date.size() == 4) animal.date = "00-00-" + date;
    herd.push_back(std::move(animal));
  }
  return herd;
}

std::string data_file_of(const Herd& herd) {
  std::string data = "id;name;sex;birthdate;sire;dam;colour\n";
  for (const HerdAnimal& animal : herd) {
    data += animal.id + ";" + animal.name + ";" + (animal.has_sex ? (animal.is_male ? "m;" : "f;") : ";") +
            animal.date + ";" + animal.sire + ";" + animal.dam + ";" + animal.colour + "\n";
  }
  return data;
}

namespace {

bool is_digit(char letter) {
  return letter >= '0' && letter <= '9';
}

bool is_letter(char letter) {
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

/// Another letter or digit in the place of one.
char another(Dice& dice, char letter) {
  for (;;) {
    const char other =
        is_letter(letter) ? static_cast<char>('A' + dice.below(26)) : static_cast<char>('0' + dice.below(10));
    if (other != letter) return other;
  }
}

std::string without(std::string text, std::string_view letters) {
  std::erase_if(text, [&](char letter) { return letters.find(letter) != std::string_view::npos; });
  return text;
}

std::string mistyped(Dice& dice, const std::string& id, Typo typo) {
  std::string text = id;
  const auto place = static_cast<std::size_t>(dice.below(static_cast<int>(id.size())));
  switch (typo) {
    case Typo::other_letter: text[place] = another(dice, text[place]); break;
    case Typo::lacking: text.erase(place, 1); break;
    case Typo::too_many: text.insert(place, 1, another(dice, text[place])); break;
    case Typo::exchange:
      if (place + 1 < text.size()) std::swap(text[place], text[place + 1]);
      break;
    case Typo::two_letters: {
      const auto second = static_cast<std::size_t>(dice.below(static_cast<int>(id.size())));
      if (second != place) text[place] = another(dice, text[place]), text[second] = another(dice, text[second]);
      break;
    }
    case Typo::all_o: std::replace(text.begin(), text.end(), '0', 'O'); break;
    case Typo::no_prefix:
      if (is_letter(text[0]))
        text.erase(0, static_cast<std::size_t>(std::find_if(text.begin(), text.end(), is_digit) - text.begin()));
      break;
    case Typo::no_check_digit:
      if (text.size() > 2 && text[text.size() - 2] == '-') text.resize(text.size() - 2);
      break;
    case Typo::other_sign: {
      const std::string_view signs = "-/ .";
      const bool removes = dice.one_in(2);
      if (removes) return without(text, signs);
      const char sign = "- ./"[dice.below(4)];
      std::replace_if(
          text.begin(), text.end(), [&](char letter) { return signs.find(letter) != std::string_view::npos; }, sign);
      break;
    }
    case Typo::no_zeros: {
      const std::size_t first = text.find_first_of("0123456789");
      const std::size_t last = first == std::string::npos ? first : text.find_first_not_of('0', first);
      if (last != std::string::npos) text.erase(first, last - first);
      break;
    }
    case Typo::small_letters:
      for (char& letter : text) letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
      break;
    case Typo::count: break;
  }
  return text;
}

}  // namespace

std::vector<PlantedTypo> plant_typos(Dice& dice, Herd& herd, int count) {
  std::set<std::string> ids;
  for (const HerdAnimal& animal : herd) ids.insert(animal.id);
  std::vector<PlantedTypo> planted;
  for (int attempt = 0; attempt < count * 60 && static_cast<int>(planted.size()) < count; ++attempt) {
    HerdAnimal& young = herd[static_cast<std::size_t>(dice.below(static_cast<int>(herd.size())))];
    std::string& parent = dice.one_in(2) ? young.sire : young.dam;
    const bool is_planted =
        std::ranges::any_of(planted, [&](const PlantedTypo& each) { return each.written == parent; });
    if (parent.empty() || ids.count(parent) == 0 || is_planted) continue;
    const Typo typo = static_cast<Typo>(planted.size() % static_cast<std::size_t>(Typo::count));
    const Typo used = attempt % 7 == 6 ? static_cast<Typo>(dice.below(static_cast<int>(Typo::count))) : typo;
    const std::string text = mistyped(dice, parent, used);
    if (text == parent || text.empty() || ids.count(text) > 0 || text.front() == ' ' || text.back() == ' ') continue;
    planted.push_back({used, text, parent});
    parent = text;
    ids.insert(text);  // no second one may become the same
  }
  return planted;
}

int TypoScore::of(const std::array<int, static_cast<std::size_t>(Typo::count)>& counts) const {
  int sum = 0;
  for (const int count : counts) sum += count;
  return sum;
}

void TypoScore::add(const TypoScore& other) {
  for (std::size_t k = 0; k < planted.size(); ++k) {
    planted[k] += other.planted[k];
    right[k] += other.right[k];
    wrong[k] += other.wrong[k];
  }
}

namespace {

CheckResult check_herd(const std::string& data, const std::string& species) {
  SteerLines steer = sheep_steer();
  steer.species = species;
  steer.colours = "4\nblack\nblack and tan\nfawn\nbrindle";
  return checked(data, check_settings(steer));
}

bool proposes(FindingCode code) {
  return code == FindingCode::parent_spelling || code == FindingCode::parent_one_letter;
}

}  // namespace

TypoScore score_typos(const Herd& herd, const std::vector<PlantedTypo>& typos, const std::string& species) {
  const CheckResult result = check_herd(data_file_of(herd), species);
  std::map<std::string, std::string> proposed;
  for (const Finding& finding : result.findings.list) {
    if (!proposes(finding.code)) continue;
    proposed[std::string(result.findings.texts.at(finding.text))] = result.findings.texts.at(finding.other_text);
  }
  TypoScore score;
  for (const PlantedTypo& each : typos) {
    const auto kind = static_cast<std::size_t>(each.typo);
    ++score.planted[kind];
    const auto found = proposed.find(each.written);
    if (found == proposed.end()) continue;
    ++(found->second == each.meant ? score.right : score.wrong)[kind];
  }
  return score;
}

std::vector<std::string> alarms_of(const Herd& herd, const std::string& species) {
  return serious_rows_of(check_herd(data_file_of(herd), species), ToolLanguage::english);
}

std::vector<NamedFault> plant_and_name_faults(std::uint32_t seed) {
  Dice dice;
  dice.random.seed(seed);
  const Herd herd = make_herd(dice, HerdKind::kennel, HerdIds::hyphens, 1000);
  std::vector<NamedFault> faults;
  const auto is_told = [&](const std::string& data, std::size_t line, std::string_view code) {
    const CheckResult result = check_herd(data, "dog");
    return std::ranges::any_of(result.findings.list, [&](const Finding& finding) {
      const auto lines = lines_of(result.findings, finding);
      const bool has_line = finding.line == static_cast<std::int32_t>(line) ||
                            std::ranges::count(lines, static_cast<std::int32_t>(line)) > 0;
      return has_line && code == kind_of(finding.code).name;
    });
  };
  const auto name = [&](const std::string& fault, const std::string& data, std::size_t line, std::string_view code) {
    faults.push_back({fault, is_told(data, line, code)});
  };
  const std::string sound = data_file_of(herd);
  const std::size_t last_line = herd.size() + 1;
  for (const std::string header :
       {"ID;Name;Sex;Born;Sire;Dam;Colour", "Stamboeknr;;;;Vader;Moeder;", "id;name;sex;birthdate;sire;dam;colour"}) {
    std::string data = data_file_of(Herd(herd.begin(), herd.begin() + 500)) + header + "\n";
    name("header again", data + data_file_of(Herd(herd.begin() + 500, herd.end())).substr(38), 502, "header-again");
  }
  for (const std::string footer :
       {"Aantal dieren: 1300", "1300 records", "Printed on 31-12-2020", "Totaal: 2096 dieren"}) {
    name("footer", sound + footer + ";;;;;;\n", last_line + 1, "no-animal");
  }
  const auto is_in_litter = [&](std::size_t k) {
    return k > 0 && k + 1 < herd.size() && !herd[k].dam.empty() && herd[k - 1].dam == herd[k].dam &&
           herd[k + 1].dam == herd[k].dam && herd[k - 1].date == herd[k].date && herd[k + 1].date == herd[k].date;
  };
  std::size_t young = 0;
  do {
    young = static_cast<std::size_t>(dice.below(static_cast<int>(herd.size())));
  } while (!is_in_litter(young));
  Herd changed = herd;
  for (const HerdAnimal& other : herd) {
    const std::string year = herd[young].date.substr(6), born = other.date.substr(6);
    if (!other.is_male && other.id != herd[young].dam && std::stoi(born) + 3 == std::stoi(year))
      changed[young].dam = other.id;
  }
  name("two dams", data_file_of(changed), young + 2, "litter-dams");
  changed = herd;
  changed[young].date.replace(6, 4, std::to_string(std::stoi(changed[young].date.substr(6)) - 30));
  const std::string wrong_year = data_file_of(changed);
  faults.push_back({"wrong year", is_told(wrong_year, young + 2, "date-contradicted") ||
                                      is_told(wrong_year, young + 2, "year-lone")});
  changed = herd;
  changed.push_back(herd[young]);
  changed.back().id = "HS-99001";
  std::ranges::transform(changed.back().name, changed.back().name.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  name("same animal, capitals", data_file_of(changed), changed.size() + 1, "same-animal");
  changed.back().name = herd[young].name + " van de Hoeve";
  name("same animal, affix", data_file_of(changed), changed.size() + 1, "same-animal");
  changed = herd;
  for (std::size_t k = 10; k < herd.size(); k += 100) changed[k].sire = "Wildfang";
  name("word for unknown", data_file_of(changed), 12, "unknown-word");
  return faults;
}

}  // namespace pedigreewatch::test
