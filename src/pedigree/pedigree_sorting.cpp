// Sweeps walk the store from the back and place every animal whose offspring have all been placed, into the last
// free place. Then the records move to their places, and the references to them follow.

#include "pedigree/pedigree_sorting.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "core/by_number.h"
#include "core/line_writer.h"
#include "core/progress.h"
#include "core/wording.h"
#include "pedigree/pedigree_loop.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t sweep_limit = 1000;

constexpr Wording sweep = {"sweep", "ronde"};
constexpr Wording without_unsorted = {"number of animals without unsorted offspring",
                                      "aantal dieren zonder ongesorteerde nakomelingen"};
constexpr Wording with_unsorted = {"number of animals with unsorted offspring",
                                   "aantal dieren met ongesorteerde nakomelingen"};
constexpr Wording maximum_of = {"animals with a maximum of ", "dieren met maximaal "};
constexpr Wording generations_placed = {" generations of offspring placed at end of pedigree",
                                        " generaties nakomelingen achteraan pedigree geplaatst"};
constexpr Wording up_to_animal = {"up to animal no. ", "tot en met dier nr. "};
constexpr Wording renumbered = {"renumberd incl. reference to parents", "omgenummerd incl. verwijzing naar ouders"};

constexpr Wording animal_is = {"animal ", "dier "};
constexpr Wording herdbook_number = {"herdbook number ", "stamboeknummer "};
constexpr Wording date_of_birth = {"date of birth ", "geboortedatum "};
// On the console the parent's date has the Dutch word in either language.
constexpr std::string_view parent_date_on_console = "geboortedatum ";

struct ParentWording {
  Wording born_before, parent_is;
};
constexpr ParentWording father_wording = {
    {"!!!!!!!!!! BORN BEFORE FATHER  !!!!!!!!!!", "!!!!!!!!!! GEBOREN VOOR VADER  !!!!!!!!!!"}, {"father ", "vader "}};
constexpr ParentWording mother_wording = {
    {"!!!!!!!!!! BORN BEFORE MOTHER  !!!!!!!!!!", "!!!!!!!!!! GEBOREN VOOR MOEDER  !!!!!!!!!!"},
    {"mother ", "moeder "}};

void print_date(const LineItem& label, const AnimalRecord& animal, TextOutput& output) {
  write_free_line(output, {label, animal.birth_day, "/", animal.birth_month, "/", animal.birth_year});
}

void print_born_before(const AnimalRecord& child, const AnimalRecord& parent, const ParentWording& wording,
                       const LineItem& parent_date, TextOutput& output) {
  write_free_line(output, {animal_is, child.name});
  write_free_line(output, {herdbook_number, child.id});
  print_date(date_of_birth, child, output);
  write_free_line(output, {wording.born_before});
  write_free_line(output, {wording.parent_is, parent.name});
  write_free_line(output, {herdbook_number, parent.id});
  print_date(parent_date, parent, output);
  write_free_line(output, {"   "});
}

void report_born_before(const PopulationStore& store, std::int32_t child_no, std::int32_t parent_no,
                        const ParentWording& wording, RunStreams& streams) {
  const AnimalRecord child = store.at(child_no), parent = store.at(parent_no);
  print_born_before(child, parent, wording, parent_date_on_console, streams.console);
  print_born_before(child, parent, wording, date_of_birth, streams.report);
}

/// How far the sort has come.
struct SortState {
  struct Animal {
    std::int32_t remaining = 0;  ///< offspring that have not been placed yet
    std::int32_t birth_year = 0;
  };
  ByNumber<Animal> animals;            ///< by position
  std::vector<std::int32_t> unplaced;  ///< positions without a place, descending
  ByNumber<std::int32_t> order;        ///< by new position: the position of the animal that will stand there
  std::int32_t last_free = 0;          ///< the next place to be filled
};

SortState begin_sort(PopulationStore& store) {
  SortState state;
  const std::size_t size = store.size();
  reserve_large(state.animals.values, size + 1);
  state.animals.values.push_back({});
  state.order = ByNumber<std::int32_t>(size);
  state.last_free = store.animal_count;
  state.unplaced.reserve(size);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    state.animals.values.push_back({store.offspring_count[i], store.birth_year[i]});
  }
  for (std::int32_t i = store.animal_count; i > 0; --i) state.unplaced.push_back(i);
  return state;
}

void print_sweep(const SortState& state, std::int32_t sweep_no, const PopulationStore& store, TextOutput& console) {
  const auto is_free = [&](std::int32_t i) { return state.animals[i].remaining == 0; };
  const std::int64_t free_count = std::count_if(state.unplaced.begin(), state.unplaced.end(), is_free);
  const std::int64_t unplaced_count = std::ssize(state.unplaced);
  write_free_line(console, {sweep, sweep_no, without_unsorted, free_count});
  write_free_line(console, {sweep, sweep_no, with_unsorted, unplaced_count - free_count});
  // The line for animals with fewer than no offspring left; there are none.
  if (unplaced_count > free_count) write_free_line(console, std::span<const LineItem>());
  const std::int64_t placed_count = std::max(store.animal_count, 0) - unplaced_count;
  write_free_line(console, {"no. sorted", placed_count, "last =", state.last_free});
}

/// Takes a child that is placed off its parent's remaining offspring. Only the years of birth are compared, and only
/// where both are known.
void take_off_parent(SortState& state, std::int32_t child_no, std::int32_t parent_no, const ParentWording& wording,
                     const PopulationStore& store, RunStreams& streams) {
  const std::int32_t year = state.animals[child_no].birth_year;
  SortState::Animal& parent = state.animals[parent_no];
  if (year != 0 && parent.birth_year != 0 && year < parent.birth_year) {
    report_born_before(store, child_no, parent_no, wording, streams);
  }
  --parent.remaining;  // that of the unknown parent is read by nobody
}

/// Puts an animal into the last free place.
void place_animal(SortState& state, std::int32_t i, const PopulationStore& store, RunStreams& streams) {
  state.order[state.last_free--] = i;
  take_off_parent(state, i, store.sire_no[i], father_wording, store, streams);
  take_off_parent(state, i, store.dam_no[i], mother_wording, store, streams);
}

/// One walk from the back over the animals without a place.
void run_sweep(SortState& state, const PopulationStore& store, RunStreams& streams) {
  std::size_t kept = 0;
  for (std::size_t turn = 0; turn < state.unplaced.size(); ++turn) {
    const std::int32_t i = state.unplaced[turn];
    if (turn + look_ahead < state.unplaced.size()) {
      const std::int32_t later = state.unplaced[turn + look_ahead];
      fetch_early(&state.animals[store.sire_no[later]]);
      fetch_early(&state.animals[store.dam_no[later]]);
    }
    if (state.animals[i].remaining == 0) {
      place_animal(state, i, store, streams);
    } else {
      state.unplaced[kept++] = i;
    }
  }
  state.unplaced.resize(kept);
}

bool nothing_can_be_placed(const SortState& state) {
  return std::none_of(state.unplaced.begin(), state.unplaced.end(),
                      [&](std::int32_t i) { return state.animals[i].remaining == 0; });
}

/// Fills `order`, or stops the run at a loop.
ByNumber<std::int32_t> find_order(PopulationStore& store, RunStreams& streams) {
  SortState state = begin_sort(store);
  for (std::int32_t sweep_no = 1; sweep_no <= sweep_limit; ++sweep_no) {
    print_sweep(state, sweep_no, store, streams.console);
    run_sweep(state, store, streams);
    write_free_line(streams.console, {maximum_of, sweep_no - 1, generations_placed});
    if (state.unplaced.empty()) {
      write_free_line(streams.console, {"pedigree sorted"});
      return std::move(state.order);
    }
    if (nothing_can_be_placed(state)) {
      std::reverse(state.unplaced.begin(), state.unplaced.end());
      report_pedigree_loop(store, state.unplaced, streams);
    }
  }
  std::reverse_copy(state.unplaced.begin(), state.unplaced.end(), state.order.values.begin() + 1);
  return std::move(state.order);
}

/// The lines that tell how far the renumbering has come. It is done at once; no line stands for the last animals.
void print_renumbering(const PopulationStore& store, TextOutput& console) {
  ProgressCounter progress{progress_interval(store.animal_count, 100, 500, 1000)};
  write_free_line(console, {"renumber pedigree"});
  for (std::int32_t i = 1; i < store.animal_count; ++i) {
    if (progress.is_due()) write_free_line(console, {up_to_animal, i - 1, renumbered});
  }
}

/// Of the offspring counts only remains whether there are any.
void mark_parents(PopulationStore& store) {
  store.is_parent = ByNumber<Flag>(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) store.is_parent[i] = store.offspring_count[i] != 0 ? 1 : 0;
  store.offspring_count.release();
}

}  // namespace

void sort_pedigree(PopulationStore& store, RunStreams& streams) {
  ByNumber<std::int32_t> order = find_order(store, streams);
  mark_parents(store);
  reorder_animals(store, std::move(order));
  print_renumbering(store, streams.console);
}

}  // namespace pedigreewatch
