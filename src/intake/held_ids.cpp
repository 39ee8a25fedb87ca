// The animals that the corrections of identifications name are few: they are kept, and the list is gone through once
// more with them alone, correction by correction.

#include "intake/held_ids.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace pedigreewatch {
namespace {

/// One of the animals of a record that is kept.
struct KeptAnimal {
  std::size_t record = 0;
  const LineAnimal* animal = nullptr;  ///< of a line with several
};

struct IdWalk {
  Corrector corrector;
  std::vector<ChangingRecord> records;
  std::unordered_map<std::string, std::vector<KeptAnimal>> of_id;  ///< by the identification that they have now
};

bool is_of_id(const Correction& correction) {
  return correction.kind == CorrectionKind::value && correction.field == id_column;
}

std::unordered_set<std::string_view> ids_named(std::span<const Correction> corrections) {
  std::unordered_set<std::string_view> named;
  for (const Correction& correction : corrections) {
    if (!is_of_id(correction)) continue;
    named.insert(correction.id);
    if (!correction.becomes.empty()) named.insert(correction.becomes);
  }
  return named;
}

void keep_animals(IdWalk& walk, const ExportRecord& record, const std::unordered_set<std::string_view>& named) {
  const std::size_t place = walk.records.size();
  const auto look_at = [&](const LineAnimal* animal) {
    walk.corrector.animal = animal;
    const std::optional<std::size_t> column = place_of(walk.corrector, id_column);
    if (!column || *column >= record.fields.size()) return;
    const std::string_view id = trimmed(record.fields[*column]);
    if (!named.contains(id)) return;
    if (walk.records.size() == place)
      walk.records.push_back({{record.fields.begin(), record.fields.end()}, record.line});
    walk.of_id[std::string(id)].push_back({place, animal});
  };
  const std::vector<LineAnimal>& animals = walk.corrector.columns.animals_of_line;
  if (animals.empty()) look_at(nullptr);
  for (const LineAnimal& animal : animals) look_at(&animal);
}

IdHolder holder_of(IdWalk& walk, const KeptAnimal& kept) {
  const ChangingRecord& record = walk.records[kept.record];
  walk.corrector.animal = kept.animal;
  const std::optional<std::size_t> name = place_of(walk.corrector, name_column);
  return {record.line, name ? text_at(record, *name) : std::string()};
}

/// Makes a correction of all animals that have its identification by now. Those that are given up for another animal
/// stay: their offspring name them.
void make_correction(IdWalk& walk, std::size_t k) {
  const Correction& correction = walk.corrector.corrections[k];
  const auto found = walk.of_id.find(correction.id);
  if (found == walk.of_id.end() || correction.kind == CorrectionKind::same_as) return;
  for (const KeptAnimal& kept : std::exchange(found->second, {})) {
    ChangingRecord& record = walk.records[kept.record];
    walk.corrector.animal = kept.animal;
    if (correction.kind == CorrectionKind::value) {
      apply_value(walk.corrector, k, record);
    } else {
      leave_out(walk.corrector, k, record);
    }
    const std::string now = id_of(walk.corrector, record);
    if (!record.is_left_out && !now.empty()) walk.of_id[now].push_back(kept);
  }
}

}  // namespace

std::unordered_map<std::size_t, IdHolder> find_id_holders(Corrector corrector, std::string_view text, char delimiter) {
  const std::unordered_set<std::string_view> named = ids_named(corrector.corrections);
  if (named.empty()) return {};
  IdWalk walk = {std::move(corrector), {}, {}};
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  while (next_record(reader, record)) {
    if (record.fields.size() <= most_fields) keep_animals(walk, record, named);
  }
  for (std::size_t k = 0; k < walk.corrector.corrections.size(); ++k) {
    const Correction& correction = walk.corrector.corrections[k];
    if (is_of_id(correction) && correction.becomes != correction.id) {
      const auto found = walk.of_id.find(correction.becomes);
      const bool is_held = found != walk.of_id.end() && !found->second.empty();
      if (is_held) walk.corrector.holders.emplace(k, holder_of(walk, found->second.front()));
    }
    make_correction(walk, k);
  }
  return std::move(walk.corrector.holders);
}

}  // namespace pedigreewatch
