// Every parent is looked up by its identification. Most of the time goes into waiting for memory, so that what later
// animals need is fetched while the present one is dealt with.

#include "statistics/missing_parents.h"

#include <cstdint>
#include <iterator>
#include <string_view>
#include <vector>

#include "core/by_number.h"
#include "core/line_writer.h"

namespace pedigreewatch {
namespace {

/// Identifications of one sex that have no line, by pending number, in the order of first mention.
struct MissingList {
  std::vector<std::int32_t> pending_numbers;
  std::vector<char> is_listed;  ///< by pending number - 1
};

MissingList list_missing(const PopulationStore& store, const ByNumber<std::int32_t>& parents) {
  MissingList missing{{}, std::vector<char>(store.index.pending_record.entries.size(), 0)};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (parents[i] >= 0) continue;
    const std::int32_t number = -parents[i];
    char& is_listed = missing.is_listed[static_cast<std::size_t>(number) - 1];
    if (is_listed != 0 || store.index.pending_record.at(number) != 0) continue;
    is_listed = 1;
    missing.pending_numbers.push_back(number);
  }
  return missing;
}

/// An identification that is missing for both sexes gets a second record, which nobody refers to.
void append_records(PopulationStore& store, const MissingList& missing, Sex sex) {
  for (const std::int32_t number : missing.pending_numbers) {
    const std::int32_t position = append_parent(store, store.index.pending.at(number), sex);
    std::int32_t& record = store.index.pending_record.at(number);
    if (record == 0) record = position;
  }
}

struct MissingMessages {
  std::string_view none, one, several;
};

// English in either language.
constexpr MissingMessages father_messages = {"no fathers found that were not in database",
                                             "one father found that were not in database",
                                             "fathers found that were not in database"};
constexpr MissingMessages mother_messages = {"no mothers found that were not in database",
                                             "one mother found that were not in database",
                                             "mothers found that were not in database"};

void print_missing_count(std::int64_t count, const MissingMessages& messages, TextOutput& console) {
  if (count == 0) return write_free_line(console, {messages.none});
  if (count == 1) return write_free_line(console, {messages.one});
  write_free_line(console, {count, messages.several});
}

}  // namespace

void append_missing_parents(PopulationStore& store, TextOutput& console) {
  const MissingList fathers = list_missing(store, store.sire_no);
  const MissingList mothers = list_missing(store, store.dam_no);
  print_missing_count(std::ssize(fathers.pending_numbers), father_messages, console);
  print_missing_count(std::ssize(mothers.pending_numbers), mother_messages, console);
  store.index.texts = {};  // every identification has its number
  append_records(store, fathers, male);
  append_records(store, mothers, female);
}

}  // namespace pedigreewatch
