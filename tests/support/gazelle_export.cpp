// Sixteen founders of 1988, then fifty young a year until 2014. A dam has one litter a year, always on the same day,
// and breeds from its second year on. Identifications end in a check letter, so that no two are one letter apart.

#include "support/gazelle_export.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace pedigreewatch::test {
namespace {

struct Gazelle {
  std::string id, name, sire = "NA", dam = "NA";
  bool is_male = false;
  int year = 0, month = 1, day = 1;
};

constexpr int founder_count = 16, young_per_year = 50, first_young_year = 1989, founder_year = 1988;

std::string id_of(int index) {
  std::array<char, 16> text{};
  const int number = 1000 + index * 3;
  std::snprintf(text.data(), text.size(), "GZ%04d%c", number, 'A' + number * 7 % 23);
  return text.data();
}

/// The index of a parent: of this sex, born two years before or earlier, or a founder.
int choose_parent(const std::vector<Gazelle>& herd, int year, bool is_male, unsigned choice) {
  std::vector<int> likely;
  for (int i = 0; i < static_cast<int>(herd.size()); ++i) {
    const Gazelle& each = herd[static_cast<std::size_t>(i)];
    const bool is_old_enough = each.year + 2 <= year || (each.year == founder_year && year > founder_year);
    if (each.is_male == is_male && is_old_enough && year - each.year <= 8) likely.push_back(i);
  }
  return likely[choice % likely.size()];
}

std::vector<Gazelle> make_herd() {
  std::vector<Gazelle> herd;
  unsigned state = 12345;
  const auto next = [&] { return (state = state * 1664525U + 1013904223U) >> 8; };
  for (int i = 0; i < gazelle_count; ++i) {
    Gazelle animal;
    animal.id = id_of(i);
    animal.name = "Gazelle " + std::to_string(i) + ", of the north";
    animal.is_male = i % 2 == 0;
    animal.year = i < founder_count ? founder_year : first_young_year + (i - founder_count) / young_per_year;
    if (i >= founder_count) {
      const int dam = choose_parent(herd, animal.year, false, next());
      const int sire = choose_parent(herd, animal.year, true, static_cast<unsigned>(dam * 7 + animal.year));
      animal.dam = herd[static_cast<std::size_t>(dam)].id;
      animal.sire = herd[static_cast<std::size_t>(sire)].id;
      animal.month = 2 + dam % 11;
      animal.day = 1 + dam % 28;
    }
    herd.push_back(animal);
  }
  return herd;
}

Gazelle& in_line(std::vector<Gazelle>& herd, int line) {
  return herd[static_cast<std::size_t>(line) - 2];
}

/// One digit of the identification is another one.
std::string mistyped(std::string id) {
  id[4] = id[4] == '9' ? '0' : static_cast<char>(id[4] + 1);
  return id;
}

/// The lines from 1218 on are those of 2013 and 2014, animals without young.
std::vector<PlantedFault> plant_faults(std::vector<Gazelle>& herd) {
  std::vector<PlantedFault> faults;
  in_line(herd, 1310).year = 2091;
  faults.push_back({"the year 2091", "year-future", 1310, "2091"});
  in_line(herd, 1225).id = in_line(herd, 1220).id;
  faults.push_back({"a duplicated id", "duplicate-id", 1225, "line 1220"});
  const std::string sire = in_line(herd, 1231).sire;
  in_line(herd, 1230).dam = sire;
  int first_young = 2;
  while (in_line(herd, first_young).sire != sire) ++first_young;
  faults.push_back({"a sire that is also a dam", "both-roles", first_young, "a mother in line 1230"});
  for (const int line : {1235, 1240, 1245}) {
    std::string& parent = line == 1240 ? in_line(herd, line).dam : in_line(herd, line).sire;
    const std::string meant = parent;
    parent = mistyped(parent);
    if (line != 1235) {
      faults.push_back({"a mistyped parent", "parent-one-letter", line, "is \"" + meant + "\""});
    } else {  // of numbers in a row several are near, and nothing tells which of them is meant
      faults.push_back({"a mistyped parent", "parent-missing", line, "\"" + parent + "\""});
    }
  }
  in_line(herd, 1250).dam = in_line(herd, 1271).id;
  faults.push_back({"a child older than its mother", "born-before-parent", 1250, "(line 1271)"});
  in_line(herd, 1255).id += " ";
  return faults;
}

std::string record_of(const Gazelle& animal) {
  std::array<char, 16> date{};
  std::snprintf(date.data(), date.size(), "%04d-%02d-%02d", animal.year, animal.month, animal.day);
  std::string record = animal.id + ",\"" + animal.name + "\"," + (animal.is_male ? "Male" : "Female") + "," +
                       date.data() + "," + animal.sire + "," + animal.dam;
  for (int k = 7; k <= 40; ++k) record += k % 5 == 0 ? ",\"seen, weighed\"" : ",x";
  return record + "\r\n";
}

}  // namespace

GazelleExport make_gazelle_export(bool has_faults) {
  std::vector<Gazelle> herd = make_herd();
  GazelleExport result;
  if (has_faults) result.faults = plant_faults(herd);
  result.bytes = "\xEF\xBB\xBFReg. No,Name,Sex,Date of birth,Sire,Dam";
  for (int k = 7; k <= 40; ++k) result.bytes += ",Note " + std::to_string(k);
  result.bytes += "\r\n";
  for (const Gazelle& animal : herd) result.bytes += record_of(animal);
  return result;
}

}  // namespace pedigreewatch::test
