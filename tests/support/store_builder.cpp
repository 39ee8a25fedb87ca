#include "support/store_builder.h"

#include <algorithm>
#include <cstddef>

namespace pedigreewatch::test {
namespace {

/// One field of all records as a column, behind its entry 0.
template <typename Value, typename Field>
ByNumber<Value> column_of(std::span<const AnimalRecord> records, Field AnimalRecord::*field) {
  ByNumber<Value> column(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) column.values[i + 1] = static_cast<Value>(records[i].*field);
  return column;
}

AnimalRecord with_known_ids(AnimalRecord record) {
  for (AnimalId* const id : {&record.sire_id, &record.dam_id}) {
    if (id->is_blank()) id->assign(unknown_parent_id);
  }
  return record;
}

}  // namespace

LineRecord fields_of(const AnimalRecord& record) {
  LineRecord line;
  line.is_sex_told = true;
  line.id = record.id.trimmed();
  line.name = record.name.trimmed();
  line.sire_id = record.sire_id.trimmed();
  line.dam_id = record.dam_id.trimmed();
  line.colour = record.colour.trimmed();
  line.breeder = record.breeder.trimmed();
  line.subpopulation = record.subpopulation.trimmed();
  line.birth_year = record.birth_year;
  line.birth_month = record.birth_month;
  line.birth_day = record.birth_day;
  line.sex = record.sex;
  line.is_import = record.is_import;
  return line;
}

AnimalRecord record_of(const LineRecord& line) {
  AnimalRecord record;
  record.id.assign(line.id);
  record.name.assign(line.name);
  record.sire_id.assign(line.sire_id);
  record.dam_id.assign(line.dam_id);
  record.colour.assign(line.colour);
  record.breeder.assign(line.breeder);
  record.subpopulation.assign(line.subpopulation);
  record.birth_year = line.birth_year;
  record.birth_month = line.birth_month;
  record.birth_day = line.birth_day;
  record.sex = line.sex;
  record.is_import = line.is_import;
  return record;
}

AnimalRecord unread_record() {
  return record_of({});
}

void append_animal(PopulationStore& store, const AnimalRecord& record, std::int32_t colour_no) {
  const LineRecord line = fields_of(record);
  append_record(store, line, ids_of(line), colour_no);
}

PopulationStore store_of(std::span<const AnimalRecord> records, const LookedUpNames& names) {
  PopulationStore store;
  store.has_name = store.has_colour = store.has_breeder = store.has_subpopulation = store.has_import = true;
  prepare_store(store, static_cast<std::int32_t>(records.size()), {names.subpopulations, names.colours});
  for (const AnimalRecord& record : records) {
    append_animal(store, with_known_ids(record), names.colours.number_of(record.colour));
  }
  store.birth_years = birth_years_of(store);
  return store;
}

PopulationStore finished_store_of(std::span<const AnimalRecord> records, const LookedUpNames& names) {
  std::vector<AnimalRecord> unlinked(records.begin(), records.end());
  for (AnimalRecord& record : unlinked) record.sire_id = record.dam_id = {};
  PopulationStore store = store_of(unlinked, names);
  store.has_colour = store.has_breeder = store.has_subpopulation = store.has_import = false;
  store.sire_no = column_of<std::int32_t>(records, &AnimalRecord::sire_no);
  store.dam_no = column_of<std::int32_t>(records, &AnimalRecord::dam_no);
  store.is_parent = column_of<Flag>(records, &AnimalRecord::is_parent);
  store.native_offspring_count = column_of<std::int32_t>(records, &AnimalRecord::native_offspring_count);
  store.sire_age_days = column_of<std::int32_t>(records, &AnimalRecord::sire_age_days);
  store.dam_age_days = column_of<std::int32_t>(records, &AnimalRecord::dam_age_days);
  store.generation_equivalents = column_of<float>(records, &AnimalRecord::generation_equivalents);
  store.complete_generations = column_of<std::uint16_t>(records, &AnimalRecord::complete_generations);
  store.inbreeding = column_of<float>(records, &AnimalRecord::inbreeding);
  return store;
}

std::vector<AnimalRecord> records_of(const PopulationStore& store) {
  std::vector<AnimalRecord> records;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) records.push_back(store.at(position));
  return records;
}

}  // namespace pedigreewatch::test
