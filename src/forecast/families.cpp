// The animals of a year are sorted by their parents, so that a family lies together.

#include "forecast/families.h"

#include <algorithm>
#include <tuple>

#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

struct Birth {
  std::int32_t dam = 0, sire = 0, position = 0;
};

std::vector<Birth> births_by_parents(const PopulationStore& store, YearAnimals animals) {
  std::vector<Birth> births;
  births.reserve(animals.size());
  for (const std::int32_t position : animals) {
    const KnownParents parents = known_parents(store, position);
    births.push_back({parents.dam, parents.sire, position});
  }
  std::sort(births.begin(), births.end(), [](const Birth& a, const Birth& b) {
    return std::tie(a.dam, a.sire, a.position) < std::tie(b.dam, b.sire, b.position);
  });
  return births;
}

void add_families(FamilyRecords& records, std::int32_t year, YearAnimals animals) {
  const Birth* before = nullptr;
  const std::vector<Birth> births = births_by_parents(records.store, animals);
  for (const Birth& birth : births) {
    const bool is_sib = before != nullptr && birth.dam != 0 && before->dam == birth.dam && before->sire == birth.sire;
    if (!is_sib) {
      records.families.push_back({year, birth.sire, birth.dam, 0, 0, records.group[birth.position], birth.position});
    }
    Family& family = records.families.back();
    ++family.young;
    if (records.store.sex[birth.position] == male) ++family.males;
    before = &birth;
  }
}

/// A parent without a line of its own belongs where its first young were born.
void place_outside_parents(FamilyRecords& records) {
  if (records.groups == 1) return;
  for (auto family = records.families.rbegin(); family != records.families.rend(); ++family) {
    for (const std::int32_t parent : {family->sire, family->dam}) {
      if (parent != 0 && descent_of(records.store, parent) == Descent::outside) records.group[parent] = family->group;
    }
  }
}

/// Files without a column of sexes, or with one that is empty, know the sex of parents alone.
bool find_sexes(const FamilyRecords& records) {
  constexpr double least_share = 0.02;
  std::int64_t young = 0, males = 0;
  for (const Family& family : records.families) {
    young += family.young;
    males += family.males;
  }
  const double least = least_share * static_cast<double>(young);
  return static_cast<double>(males) >= least && static_cast<double>(young - males) >= least;
}

}  // namespace

std::span<const Family> FamilyRecords::of_year(std::int32_t year) const {
  if (year < first_year || year > last_year) return {};
  const auto row = static_cast<std::size_t>(year - first_year);
  const std::size_t begin = row == 0 ? 0 : end[row - 1];
  return std::span(families).subspan(begin, end[row] - begin);
}

FamilyRecords list_families(const PopulationStore& store, const YearGroups& years, std::int32_t last_year) {
  FamilyRecords records{store, store.birth_years.first, last_year, 1, true, {}, {}, ByNumber<GroupNo>(store.size())};
  if (store.subpopulation_count() > 1) {
    records.groups = static_cast<GroupNo>(store.subpopulation_count()) + 1;
    for (std::int32_t k = 1; k <= records.group.last(); ++k) {
      records.group[k] = static_cast<GroupNo>(store.subpopulation_no(k));
    }
  }
  for (std::int32_t year = records.first_year; year <= last_year; ++year) {
    if (year != 0) add_families(records, year, years.of_row(store.birth_years.row_of(year)));
    records.end.push_back(records.families.size());
  }
  place_outside_parents(records);
  records.are_sexes_known = find_sexes(records);
  return records;
}

Descent descent_of(const PopulationStore& store, std::int32_t position) {
  const KnownParents parents = known_parents(store, position);
  if (parents.sire != 0 && parents.dam != 0) {
    const KnownParents of_sire = known_parents(store, parents.sire), of_dam = known_parents(store, parents.dam);
    const bool is_deep = of_sire.sire != 0 && of_sire.dam != 0 && of_dam.sire != 0 && of_dam.dam != 0;
    return is_deep ? Descent::deep : Descent::known;
  }
  if (parents.sire != 0 || parents.dam != 0) return Descent::half_known;
  return store.birth_year[position] == 0 ? Descent::outside : Descent::founder;
}

std::int32_t count_different(std::vector<std::int32_t> animals) {
  std::sort(animals.begin(), animals.end());
  return static_cast<std::int32_t>(std::unique(animals.begin(), animals.end()) - animals.begin());
}

}  // namespace pedigreewatch
