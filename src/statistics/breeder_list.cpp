// 1. The list: every breeder that is not blank, in order of first appearance.
// 2. For each slot of 7 characters the animals of the last ten years whose breeder is exactly that text.
// 3. The top breeders: the slots with the largest counts go to the front, the others keep their order behind them.

#include "statistics/breeder_list.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "core/by_number.h"
#include "core/integers.h"
#include "core/line_writer.h"
#include "core/progress.h"
#include "core/report_limits.h"
#include "core/text_index.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording breeder_of = {"breeder of ", "fokker van "};
constexpr Wording breeders_so_far = {" read, N breeder = ", " gelezen, nfokker = "};
constexpr Wording list_made = {"breeders list made", "fokkerlijst samengesteld"};
constexpr Wording different_found = {" different breeders found", " verschillende fokkers gevonden"};
constexpr Wording number_of_top_breeders = {"Number of top breeders ", "aantal topfokkers "};

constexpr std::int32_t recent_years = 10;
constexpr std::int32_t many_recent_animals = 250;
constexpr std::int32_t fewest_top_breeders = 10;

/// The breeders with their animals of recent years.
struct BreederCounts {
  BreederList list;
  ByNumber<std::int32_t> recent_animals;  ///< by number of the breeder; 0 for animals without one
};

BreederCounts count_recent_animals(const PopulationStore& store, TextOutput& console) {
  BreederCounts counts{{}, ByNumber<std::int32_t>(store.breeders.names.entries.size())};
  const std::int32_t step = record_interval(store.animal_count);
  const std::int32_t before_recent = wrapped(std::int64_t{store.birth_years.last} - recent_years);
  std::int32_t counter = 0, breeders_met = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (++counter == step) {
      counter = 0;
      write_free_line(console, {breeder_of, i, breeders_so_far, breeders_met});
    }
    breeders_met = std::max(breeders_met, store.breeder_no[i]);
    counts.recent_animals[store.breeder_no[i]] += store.birth_year[i] > before_recent ? 1 : 0;
  }
  counts.list.breeder_count = store.breeders.count();
  for (const BreederName& name : store.breeders.names.entries) counts.list.text.append(name.full());
  return counts;
}

/// The recent animals of each slot's text. A blank slot is the text of the animals without a breeder.
NumberedList<std::int32_t> count_by_slot(const PopulationStore& store, const BreederCounts& counts) {
  NumberedList<std::int32_t> by_slot;
  for (std::int32_t k = 1; k <= counts.list.breeder_count; ++k) {
    const BreederName name(counts.list.slot(k));
    const std::int32_t breeder = store.breeders.number_of(name);
    by_slot.add(breeder == 0 && !name.is_blank() ? 0 : counts.recent_animals[breeder]);
  }
  return by_slot;
}

std::int32_t count_top_breeders(const NumberedList<std::int32_t>& by_slot) {
  if (by_slot.count() < fewest_top_breeders) return by_slot.count();
  std::int32_t large = 0;
  for (const std::int32_t count : by_slot.entries) large += count > many_recent_animals ? 1 : 0;
  return std::clamp(large, fewest_top_breeders, most_top_breeders);
}

/// All slots, the chosen ones first. On a tie the lowest slot is chosen.
std::vector<std::int32_t> choose_order(const NumberedList<std::int32_t>& by_slot, std::int32_t top_breeder_count,
                                       TextOutput& console) {
  std::vector<std::int32_t> order(by_slot.entries.size());
  std::iota(order.begin(), order.end(), 1);
  for (std::int32_t p = 1; p <= top_breeder_count; ++p) {
    const auto place = order.begin() + (p - 1);
    const auto best = std::max_element(place, order.end(),
                                       [&](std::int32_t a, std::int32_t b) { return by_slot.at(a) < by_slot.at(b); });
    write_free_line(console, {p, *best});
    std::rotate(place, best, best + 1);  // the slots in between keep their order
  }
  return order;
}

void reorder_slots(BreederList& list, const std::vector<std::int32_t>& order) {
  std::string reordered;
  reordered.reserve(list.text.size());
  for (const std::int32_t k : order) reordered.append(list.slot(k));
  list.text.replace(0, reordered.size(), reordered);
}

}  // namespace

BreederList list_breeders(const PopulationStore& store, TextOutput& console) {
  BreederCounts counts = count_recent_animals(store, console);
  write_free_line(console, {list_made});
  write_free_line(console, {counts.list.breeder_count, different_found});
  const NumberedList<std::int32_t> by_slot = count_by_slot(store, counts);
  counts.list.top_breeder_count = count_top_breeders(by_slot);
  write_free_line(console, {number_of_top_breeders, counts.list.top_breeder_count});
  reorder_slots(counts.list, choose_order(by_slot, counts.list.top_breeder_count, console));
  return std::move(counts.list);
}

BreederList no_breeders() {
  BreederList list;
  list.text = BreederName("geen fokkers").full();
  list.breeder_count = 1;
  return list;
}

}  // namespace pedigreewatch
