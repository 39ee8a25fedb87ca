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

/// Only the years count, and only where both are known.
void check_birth_order(const AnimalRecord& child, const AnimalRecord& parent, const ParentWording& wording,
                       RunStreams& streams) {
  if (child.birth_year == 0 || parent.birth_year == 0 || child.birth_year >= parent.birth_year) return;
  print_born_before(child, parent, wording, parent_date_on_console, streams.console);
  print_born_before(child, parent, wording, date_of_birth, streams.report);
}

/// How far the sort has come.
struct SortState {
  ByNumber<std::int32_t> remaining;    ///< by position: offspring that have not been placed yet
  std::vector<std::int32_t> unplaced;  ///< positions without a place, descending
  ByNumber<std::int32_t> order;        ///< by new position: the position of the animal that will stand there
  std::int32_t last_free = 0;          ///< the next place to be filled
};

SortState begin_sort(const PopulationStore& store) {
  SortState state;
  const std::size_t size = store.animals.size();
  state.remaining = ByNumber<std::int32_t>(size);
  state.order = ByNumber<std::int32_t>(size);
  state.last_free = store.animal_count;
  state.unplaced.reserve(size);
  for (std::int32_t i = store.animal_count; i > 0; --i) {
    state.remaining[i] = store.at(i).offspring_count;
    state.unplaced.push_back(i);
  }
  return state;
}

void print_sweep(const SortState& state, std::int32_t sweep_no, const PopulationStore& store, TextOutput& console) {
  const auto is_free = [&](std::int32_t i) { return state.remaining[i] == 0; };
  const std::int64_t free_count = std::count_if(state.unplaced.begin(), state.unplaced.end(), is_free);
  const std::int64_t unplaced_count = static_cast<std::int64_t>(state.unplaced.size());
  write_free_line(console, {sweep, sweep_no, without_unsorted, free_count});
  write_free_line(console, {sweep, sweep_no, with_unsorted, unplaced_count - free_count});
  // The line for animals with fewer than no offspring left; there are none.
  if (unplaced_count > free_count) write_free_line(console, std::span<const LineItem>());
  const std::int64_t placed_count = static_cast<std::int64_t>(store.animals.size()) - unplaced_count;
  write_free_line(console, {"no. sorted", placed_count, "last =", state.last_free});
}

/// Places one animal and takes it off its parents' remaining offspring.
void place_animal(SortState& state, std::int32_t i, const PopulationStore& store, RunStreams& streams) {
  const AnimalRecord& animal = store.at(i);
  state.order[state.last_free] = i;
  --state.last_free;
  if (animal.sire_no != 0) {
    check_birth_order(animal, store.at(animal.sire_no), father_wording, streams);
    --state.remaining[animal.sire_no];
  }
  if (animal.dam_no != 0) {
    check_birth_order(animal, store.at(animal.dam_no), mother_wording, streams);
    --state.remaining[animal.dam_no];
  }
}

/// Has what `place_animal` looks at of the parents fetched.
void fetch_parents(const SortState& state, const AnimalRecord& animal, const PopulationStore& store) {
  for (const std::int32_t parent : {animal.sire_no, animal.dam_no}) {
    if (parent == 0) continue;
    fetch_early(&store.at(parent));
    fetch_early(&state.remaining[parent]);
  }
}

/// One walk from the back over the animals without a place.
void run_sweep(SortState& state, const PopulationStore& store, RunStreams& streams) {
  std::size_t kept = 0;
  for (std::size_t turn = 0; turn < state.unplaced.size(); ++turn) {
    const std::int32_t i = state.unplaced[turn];
    if (turn + look_ahead < state.unplaced.size()) {
      fetch_parents(state, store.at(state.unplaced[turn + look_ahead]), store);
    }
    if (state.remaining[i] == 0) {
      place_animal(state, i, store, streams);
    } else {
      state.unplaced[kept++] = i;
    }
  }
  state.unplaced.resize(kept);
}

bool nothing_can_be_placed(const SortState& state) {
  return std::none_of(state.unplaced.begin(), state.unplaced.end(),
                      [&](std::int32_t i) { return state.remaining[i] == 0; });
}

/// Fills `order`, or stops the run at a loop.
ByNumber<std::int32_t> find_order(const PopulationStore& store, RunStreams& streams) {
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

/// Moves every record to its place, cycle by cycle, so that no second store is needed.
void reorder_records(PopulationStore& store, const ByNumber<std::int32_t>& order) {
  ByNumber<char> is_done(store.animals.size());
  for (std::int32_t start = 1; start <= order.last(); ++start) {
    if (is_done[start] != 0) continue;
    is_done[start] = 1;
    if (order[start] == start) continue;
    const AnimalRecord first = store.at(start);
    std::int32_t place = start;
    for (std::int32_t source = order[place]; source != start; source = order[place]) {
      store.at(place) = store.at(source);
      place = source;
      is_done[place] = 1;
    }
    store.at(place) = first;
  }
}

/// Turns old positions into new ones, in the records' own numbers and in the references to parents. The last record
/// keeps its old number; nothing refers to it.
void renumber_records(PopulationStore& store, const ByNumber<std::int32_t>& order, TextOutput& console) {
  write_free_line(console, {"renumber pedigree"});
  ByNumber<std::int32_t> new_position(store.animals.size());
  for (std::int32_t p = 1; p <= order.last(); ++p) new_position[order[p]] = p;
  for (AnimalRecord& animal : store.animals) {
    animal.sire_no = new_position[animal.sire_no];
    animal.dam_no = new_position[animal.dam_no];
  }
  ProgressCounter progress{progress_interval(store.animal_count, 100, 500, 1000)};
  for (std::int32_t i = 1; i < store.animal_count; ++i) {
    if (progress.is_due()) write_free_line(console, {up_to_animal, i - 1, renumbered});
    store.at(i).number = i;
  }
}

}  // namespace

void sort_pedigree(PopulationStore& store, RunStreams& streams) {
  const ByNumber<std::int32_t> order = find_order(store, streams);
  reorder_records(store, order);
  renumber_records(store, order, streams.console);
}

}  // namespace pedigreewatch
