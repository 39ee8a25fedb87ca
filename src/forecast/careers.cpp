// Families are counted by parent and year, then cut into careers. Donors lie sorted, so that the nearest ones of a
// state are found by halving.

#include "forecast/careers.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace pedigreewatch {
namespace {

constexpr std::int32_t pauses = longest_pause + 1;
/// So many donors of the nearest mean use are alike.
constexpr std::ptrdiff_t near_donors = 5;
/// Parents older than this count as this old.
constexpr std::int32_t oldest_age = 60;
/// Where nobody has come to an age, those so many years younger or older are looked at.
constexpr std::int32_t near_ages = 3;

struct Use {
  std::int32_t parent = 0, year = 0;
  float families = 0.0F;
  std::int32_t count = 0;  ///< the same, whatever the mean is
};

std::int32_t parent_of(const Family& family, Sex sex) {
  return sex == male ? family.sire : family.dam;
}

/// Makes use a multiple of the usual one, the geometric mean of those used in the same subpopulation and year: one
/// popular sire more or less does not change what the others are worth. `uses` are of one year.
void relate_to_usual(const FamilyRecords& records, std::span<Use> uses) {
  std::vector<double> logs(records.groups), parents(records.groups);
  const auto group = [&](const Use& use) { return records.group[use.parent]; };
  for (const Use& use : uses) {
    logs[group(use)] += std::log(double{use.families});
    parents[group(use)] += 1.0;
  }
  for (Use& use : uses) use.families *= static_cast<float>(std::exp(-logs[group(use)] / parents[group(use)]));
}

std::vector<Use> uses_of_year(const FamilyRecords& records, Sex sex, std::int32_t year) {
  std::vector<std::int32_t> parents;
  for (const Family& family : records.of_year(year)) {
    if (parent_of(family, sex) != 0) parents.push_back(parent_of(family, sex));
  }
  std::sort(parents.begin(), parents.end());
  std::vector<Use> uses;
  for (const std::int32_t parent : parents) {
    if (uses.empty() || uses.back().parent != parent) uses.push_back({parent, year, 0.0F, 0});
    uses.back().families += 1.0F;
    ++uses.back().count;
  }
  return uses;
}

/// The use of all parents of a sex, by parent and year.
std::vector<Use> list_uses(const FamilyRecords& records, Sex sex) {
  std::vector<Use> all;
  for (std::int32_t year = records.first_year; year <= records.last_year; ++year) {
    std::vector<Use> uses = uses_of_year(records, sex, year);
    if (sex == male) relate_to_usual(records, uses);
    all.insert(all.end(), uses.begin(), uses.end());
  }
  std::sort(all.begin(), all.end(),
            [](const Use& a, const Use& b) { return std::tie(a.parent, a.year) < std::tie(b.parent, b.year); });
  return all;
}

/// The career that the uses of one parent make.
Career career_of(const FamilyRecords& records, std::span<const Use> uses) {
  const PopulationStore& store = records.store;
  Career career;
  career.parent = uses.front().parent;
  career.first_year = uses.front().year;
  career.use.assign(static_cast<std::size_t>(uses.back().year - career.first_year) + 1, 0.0F);
  for (const Use& use : uses) {
    career.use[static_cast<std::size_t>(use.year - career.first_year)] = use.families;
    career.families += use.count;
  }
  const std::int32_t born = store.birth_year[career.parent];
  constexpr std::int32_t unknown = -1;
  career.first_age = born == 0 ? unknown : std::clamp(career.first_year - born, 1, oldest_age);
  career.group = records.group[career.parent];
  career.descent = descent_of(store, career.parent);
  return career;
}

/// Fills the ages that are not known.
void guess_ages(std::vector<Career>& careers) {
  double sum = 0.0, known = 0.0;
  for (const Career& career : careers) {
    if (career.first_age < 0) continue;
    sum += career.first_age;
    known += 1.0;
  }
  const std::int32_t usual = known > 0.0 ? static_cast<std::int32_t>(std::lround(sum / known)) : 1;
  for (Career& career : careers) {
    if (career.first_age < 0) career.first_age = usual;
  }
}

std::size_t bucket_of(const CareerRecords& records, std::int32_t age, std::int32_t pause) {
  return static_cast<std::size_t>(std::clamp(age, 0, records.oldest) * pauses + std::clamp(pause, 0, longest_pause));
}

struct SortedDonor {
  std::size_t bucket = 0;
  CareerRecords::Donor donor;
};

/// The points of a career behind which the next year is known.
void add_donors(const CareerRecords& records, std::int32_t number, std::int32_t first_year,
                std::vector<SortedDonor>& donors) {
  const Career& career = records.at(number);
  float sum = 0.0F;
  std::int32_t pause = 0;
  for (std::int32_t year = career.first_year; year < records.last_year; ++year) {
    const float use = career.use_in(year);
    sum += use;
    pause = use > 0.0F ? 0 : pause + 1;
    if (pause > longest_pause && year > career.last_year()) break;
    if (year + 1 < first_year) continue;
    const std::int32_t years = year - career.first_year + 1;
    donors.push_back(
        {bucket_of(records, career.first_age + years - 1, pause), {{number, year}, sum / static_cast<float>(years)}});
  }
}

void sort_donors(CareerRecords& records, std::int32_t first_year) {
  std::vector<SortedDonor> donors;
  for (std::int32_t k = 0; k < std::ssize(records.careers); ++k) add_donors(records, k, first_year, donors);
  std::sort(donors.begin(), donors.end(), [](const SortedDonor& a, const SortedDonor& b) {
    return std::tie(a.bucket, a.donor.mean_use, a.donor.point.career, a.donor.point.year) <
           std::tie(b.bucket, b.donor.mean_use, b.donor.point.career, b.donor.point.year);
  });
  const std::size_t buckets = bucket_of(records, records.oldest, longest_pause) + 1;
  records.begin.assign(buckets + 1, 0);
  for (const SortedDonor& donor : donors) {
    ++records.begin[donor.bucket + 1];
    records.donors.push_back(donor.donor);
  }
  for (std::size_t k = 0; k < buckets; ++k) records.begin[k + 1] += records.begin[k];
}

using Donors = std::span<const CareerRecords::Donor>;

/// Those of this pause and of the nearest age that anybody has come to.
Donors donors_near(const CareerRecords& records, std::int32_t age, std::int32_t pause) {
  for (std::int32_t step = 0; step <= 2 * near_ages; ++step) {
    const std::int32_t other = step % 2 == 0 ? age - step / 2 : age + (step + 1) / 2;
    if (other < 0 || other > records.oldest) continue;
    const std::size_t bucket = bucket_of(records, other, pause);
    const std::size_t begin = records.begin[bucket], end = records.begin[bucket + 1];
    if (end > begin) return Donors(records.donors).subspan(begin, end - begin);
  }
  return {};
}

}  // namespace

CareerRecords list_careers(const FamilyRecords& records, Sex sex, std::int32_t first_year) {
  CareerRecords result;
  result.last_year = records.last_year;
  const std::vector<Use> uses = list_uses(records, sex);
  for (auto next = uses.begin(); next != uses.end();) {
    const auto end = std::find_if(next, uses.end(), [&](const Use& use) { return use.parent != next->parent; });
    const std::span<const Use> of_parent(&*next, static_cast<std::size_t>(end - next));
    if (of_parent.back().year >= first_year) result.careers.push_back(career_of(records, of_parent));
    next = end;
  }
  guess_ages(result.careers);
  for (const Career& career : result.careers) {
    result.oldest = std::max(result.oldest, career.first_age + career.last_year() - career.first_year);
  }
  result.oldest = std::min(result.oldest, oldest_age);
  sort_donors(result, first_year);
  return result;
}

std::optional<CareerPoint> find_donor(const CareerRecords& records, const CareerState& state, RandomStream& random) {
  const std::uint64_t drawn = random.next();
  if (records.donors.empty() || state.age > records.oldest) return std::nullopt;
  const Donors donors = donors_near(records, state.age, state.pause);
  if (donors.empty()) return std::nullopt;
  const float mean = static_cast<float>(state.mean_use);
  const auto is_below = [](const CareerRecords::Donor& donor, float use) { return donor.mean_use < use; };
  const auto is_above = [](float use, const CareerRecords::Donor& donor) { return use < donor.mean_use; };
  const auto first = donors.begin(), last = donors.end();
  const auto place = std::lower_bound(first, last, mean, is_below);
  // Those of the same use are all as near: with whole numbers of families there may be many.
  const auto behind = std::upper_bound(place, last, mean, is_above);
  const std::ptrdiff_t each_side = (std::max<std::ptrdiff_t>(0, near_donors - (behind - place)) + 1) / 2;
  const auto from = place - std::min(place - first, each_side);
  const auto to = behind + std::min(last - behind, each_side);
  return from[static_cast<std::ptrdiff_t>(((drawn >> 32) * static_cast<std::uint64_t>(to - from)) >> 32)].point;
}

}  // namespace pedigreewatch
