// Of the animals that cannot be sorted, the ancestors of a loop are settled generation by generation; what remains
// are the loop itself and its descendants among them, each with both parents.

#include "pedigree/pedigree_loop.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "core/by_number.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "pedigree/shortest_loop.h"

namespace pedigreewatch {
namespace {

constexpr Wording probably_a_loop = {"probably a loop in the pedigree",
                                     "waarschijnlijk een kringverwijzing in de stamboom"};
constexpr Wording cannot_be_sorted = {"Animals of which the pedigree cannot be sorted:",
                                      "dieren waarvan de stamboom niet gesorteerd kan worden:"};
constexpr Wording name_is = {"name", "naam"};
constexpr Wording animal_no = {"animal no.", "dier nr"};
constexpr Wording herdbook_number = {"herdbook number ", "stamboeknummer "};
constexpr Wording born = {"date of birth ", "geboren "};
constexpr Wording born_unknown = {"date of birth unknown", "geboortedatum onbekend"};
constexpr Wording parent_no = {"        no.", "        nr"};
constexpr Wording with_father = {"        with father ", "        met vader "};
constexpr Wording and_mother = {"        and mother ", "        en moeder "};
constexpr Wording will_stop = {"program will stop", "programma wordt gestopt"};
constexpr Wording has_stopped = {"program stopped", "programma is gestopt"};

constexpr Wording shortest_chain = {"the shortest chain has this many animals: ",
                                    "de kortste keten heeft dit aantal dieren: "};
constexpr Wording a_chain = {"one of the chains has this many animals: ",
                             "een van de ketens heeft dit aantal dieren: "};
constexpr Wording all_in_report = {"so many animals are in the report, all of them: ",
                                   "zoveel dieren staan in het rapport, allemaal: "};

/// A terminal is not shown more animals than this.
constexpr std::size_t most_on_terminal = 1000;

/// Where the animals are printed.
struct LoopOutputs {
  TextOutput& console;
  TextOutput& report;
};

void print_number_line(const AnimalRecord& animal, const Wording& label, TextOutput& output) {
  if (animal.birth_year == 0) {
    write_free_line(output, {label, animal.number, herdbook_number, animal.id, born_unknown});
    return;
  }
  write_free_line(output, {label, animal.number, herdbook_number, animal.id, born, animal.birth_day, "/",
                           animal.birth_month, "/", animal.birth_year});
}

/// An unknown parent shows as blanks and 0 in an English run, and as a line of its own on the Dutch console.
void print_parent(const PopulationStore& store, std::int32_t parent, const Wording& label,
                  std::string_view unknown_on_console, LoopOutputs outputs) {
  if (!outputs.console.is_english && parent == 0) return write_free_line(outputs.console, {unknown_on_console});
  const AnimalRecord record = parent == 0 ? AnimalRecord{} : store.at(parent);
  for (TextOutput* output : {&outputs.console, &outputs.report}) {
    write_free_line(*output, {label, record.name});
    print_number_line(record, parent_no, *output);
  }
}

void print_animal(const PopulationStore& store, const AnimalRecord& animal, LoopOutputs outputs) {
  for (TextOutput* output : {&outputs.console, &outputs.report}) {
    write_free_line(*output, {name_is, animal.name});
    print_number_line(animal, animal_no, *output);
  }
  print_parent(store, animal.sire_no, with_father, "father unknown", outputs);
  print_parent(store, animal.dam_no, and_mother, "mother unknown", outputs);
  for (TextOutput* output : {&outputs.console, &outputs.report}) write_free_line(*output, {"    "});
}

/// The children of each animal, the children of one parent together.
struct ChildLists {
  struct Role {
    std::int32_t parent = 0, child = 0;
  };
  static bool is_before(const Role& a, const Role& b) { return a.parent < b.parent; }
  std::vector<Role> roles;  ///< by parent

  std::span<const Role> of(std::int32_t parent) const {
    const auto [first, last] = std::equal_range(roles.begin(), roles.end(), Role{parent, 0}, is_before);
    return std::span(roles).subspan(static_cast<std::size_t>(first - roles.begin()),
                                    static_cast<std::size_t>(last - first));
  }
};

ChildLists list_children(const PopulationStore& store, std::span<const std::int32_t> animals) {
  ChildLists children;
  for (const std::int32_t i : animals) {
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent != 0) children.roles.push_back({parent, i});
    }
  }
  std::sort(children.roles.begin(), children.roles.end(), ChildLists::is_before);
  return children;
}

/// Marks every animal of the list both of whose parents are unknown or settled. An animal that is settled lets its
/// children come one parent closer, so that each pair of parent and child is looked at once.
ByNumber<char> find_settled(const PopulationStore& store, std::span<const std::int32_t> unplaced) {
  const ChildLists children = list_children(store, unplaced);
  ByNumber<char> unsettled_parents(store.size()), settled(store.size());
  for (const ChildLists::Role& role : children.roles) ++unsettled_parents[role.child];
  std::vector<std::int32_t> waiting;
  std::copy_if(unplaced.begin(), unplaced.end(), std::back_inserter(waiting),
               [&](std::int32_t i) { return unsettled_parents[i] == 0; });
  while (!waiting.empty()) {
    const std::int32_t parent = waiting.back();
    waiting.pop_back();
    settled[parent] = 1;
    for (const ChildLists::Role& role : children.of(parent)) {
      if (--unsettled_parents[role.child] == 0) waiting.push_back(role.child);
    }
  }
  return settled;
}

/// Where nothing is shown.
TextOutput hidden_output(const TextOutput& like) {
  TextOutput hidden;
  hidden.is_english = like.is_english;
  return hidden;
}

/// A terminal is shown the shortest chain, and how many animals there are; the report has them all.
void print_in_short(const PopulationStore& store, std::span<const std::int32_t> unsettled, RunStreams& streams) {
  TextOutput hidden = hidden_output(streams.console);
  for (const std::int32_t i : unsettled) {
    print_animal(store, store.at(i), {hidden, streams.report});
    hidden.pending.clear();
  }
  const LoopChain chain = find_shortest_loop(store, unsettled);
  const std::span<const std::int32_t> animals = chain.animals;
  for (const std::int32_t i : animals.first(std::min(animals.size(), most_on_terminal))) {
    print_animal(store, store.at(i), {streams.console, hidden});
    hidden.pending.clear();
  }
  const Wording& found = chain.is_shortest ? shortest_chain : a_chain;
  const std::int64_t in_loop = std::ssize(animals), in_report = std::ssize(unsettled);
  write_free_line(streams.console, {found, in_loop});
  write_free_line(streams.console, {all_in_report, in_report});
}

}  // namespace

void report_pedigree_loop(const PopulationStore& store, std::span<const std::int32_t> unplaced, RunStreams& streams) {
  write_free_line(streams.console, {probably_a_loop});
  write_free_line(streams.report, {probably_a_loop});
  const ByNumber<char> settled = find_settled(store, unplaced);
  std::vector<std::int32_t> unsettled;
  std::copy_if(unplaced.begin(), unplaced.end(), std::back_inserter(unsettled),
               [&](std::int32_t i) { return settled[i] == 0; });
  const bool is_short = streams.console.is_terminal && unsettled.size() > most_on_terminal;
  if (!is_short) {
    std::vector<LineItem> numbers = {"unsnrs"};
    for (const std::int32_t i : unplaced) numbers.emplace_back(i);
    write_free_line(streams.console, numbers);
  }
  write_free_line(streams.console, {cannot_be_sorted});
  write_free_line(streams.report, {cannot_be_sorted});
  if (is_short) {
    print_in_short(store, unsettled, streams);
  } else {
    for (const std::int32_t i : unsettled) print_animal(store, store.at(i), {streams.console, streams.report});
  }
  write_free_line(streams.console, {will_stop});
  write_free_line(streams.report, {has_stopped});
  stop_run();
}

}  // namespace pedigreewatch
