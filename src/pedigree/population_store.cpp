// Columns grow by one entry for each record, and are put into their final order one after the other.

#include "pedigree/population_store.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/integers.h"

namespace pedigreewatch {
namespace {

/// Makes room in a column, in large pages, and gives it its entry 0.
template <typename Value>
void begin_column(ByNumber<Value>& column, std::size_t count, Value unknown = {}) {
  column.release();
  reserve_large(column.values, count + 1);
  column.values.push_back(unknown);
}

void append_day(PopulationStore& store, std::int32_t day) {
  const bool fits = day > StoreKeeping::odd_day && day <= INT8_MAX;
  store.kept.day_of_month.values.push_back(fits ? static_cast<std::int8_t>(day) : StoreKeeping::odd_day);
  if (!fits) store.kept.odd_days.push_back({store.animal_count, day});
}

void append_birth(PopulationStore& store, const LineRecord& record) {
  store.birth_year.values.push_back(record.birth_year);
  store.birth_month.values.push_back(static_cast<std::uint8_t>(record.birth_month));
  append_day(store, record.birth_day);
}

void append_names(PopulationStore& store, const LineRecord& record, std::int32_t colour_no) {
  if (store.has_name) store.kept.names.add(record.name);
  if (!store.kept.subpopulation_text.values.empty()) {
    store.kept.subpopulation_text.values.push_back(store.kept.subpopulation_texts.number_or_add(record.subpopulation));
  }
  if (store.has_colour) store.colour_no.values.push_back(colour_no);
  if (store.has_breeder) {
    store.breeder_no.values.push_back(record.breeder.empty() ? 0 : store.breeders.number_or_add(record.breeder));
  }
}

/// The identification of a parent, also of one that is pending.
std::string_view parent_id(const PopulationStore& store, std::int32_t parent_no) {
  if (parent_no == 0) return unknown_parent_id;
  return parent_no > 0 ? store.id(parent_no) : store.index.pending.at(-parent_no);
}

/// Litter mates mostly stand together: the parent of the record before need not be looked up again.
void append_parent_number(PopulationStore& store, ByNumber<std::int32_t>& parent_numbers, const HashedText& id) {
  std::int32_t number = parent_numbers.values.back();
  if (id.text != parent_id(store, number)) {
    number = id.text == unknown_parent_id ? 0 : number_of_parent(store.index, store.kept.ids, id);
  }
  parent_numbers.values.push_back(number);
}

template <typename Value>
Value value_or_zero(const ByNumber<Value>& column, std::int32_t position) {
  return column.values.empty() ? Value{} : column[position];
}

/// Moves a column into its new order; one that is empty stays so.
template <typename Value>
void reorder(ByNumber<Value>& column, const ByNumber<std::int32_t>& position_before) {
  if (column.values.empty()) return;
  ByNumber<Value> before;
  before.values.swap(column.values);
  begin_column(column, before.values.size() - 1, before[0]);
  const std::vector<std::int32_t>& order = position_before.values;
  for (std::size_t p = 1; p < order.size(); ++p) {
    if (p + look_ahead < order.size()) fetch_early(&before[order[p + look_ahead]]);
    column.values.push_back(before[order[p]]);
  }
}

}  // namespace

std::string_view PopulationStore::name(std::int32_t position) const {
  const std::int32_t record = record_no(position);
  if (record > kept.file_records) return {};
  return has_name ? kept.names.at(record) : std::string_view("-");
}

SubpopulationName PopulationStore::subpopulation(std::int32_t position) const {
  return kept.subpopulation_text.values.empty() ? SubpopulationName()
                                                : kept.subpopulation_texts.names.at(kept.subpopulation_text[position]);
}

std::int32_t PopulationStore::line(std::int32_t position) const {
  const std::int32_t record = record_no(position);
  return record > kept.file_records ? 0 : record + kept.lines_before_records;
}

std::int32_t PopulationStore::find_odd_day(std::int32_t position) const {
  const auto found =
      std::lower_bound(kept.odd_days.begin(), kept.odd_days.end(), record_no(position),
                       [](const StoreKeeping::OddDay& odd, std::int32_t wanted) { return odd.record < wanted; });
  return found->day;
}

AnimalRecord PopulationStore::at(std::int32_t position) const {
  AnimalRecord record;
  record.id.assign(id(position));
  record.name.assign(name(position));
  record.sire_id.assign(parent_id(*this, sire_no[position]));
  record.dam_id.assign(parent_id(*this, dam_no[position]));
  record.birth_year = birth_year[position];
  record.birth_month = birth_month[position];
  record.birth_day = birth_day(position);
  record.sex = sex[position];
  record.subpopulation = subpopulation(position);
  if (const std::int32_t number = value_or_zero(breeder_no, position); number != 0) {
    record.breeder = breeders.names.at(number);
  }
  record.is_import = is_import[position] != 0;
  record.is_native_parent = value_or_zero(native_offspring_count, position) != 0;
  record.is_parent = value_or_zero(is_parent, position) != 0;
  record.number = position;
  record.line = line(position);
  record.sire_no = std::max(sire_no[position], 0);
  record.dam_no = std::max(dam_no[position], 0);
  record.dam_age_days = value_or_zero(dam_age_days, position);
  record.sire_age_days = value_or_zero(sire_age_days, position);
  record.native_offspring_count = value_or_zero(native_offspring_count, position);
  record.generation_equivalents = value_or_zero(generation_equivalents, position);
  record.complete_generations = value_or_zero(complete_generations, position);
  record.inbreeding = value_or_zero(inbreeding, position);
  return record;
}

void prepare_store(PopulationStore& store, std::int32_t count, const StoreNames& names) {
  const std::size_t size = count > 0 ? static_cast<std::size_t>(count) : 0;
  // Memory that is never touched costs nothing; with it the columns need not be copied when parents are appended.
  constexpr std::size_t share_of_missing_parents = 8;
  const std::size_t room = size + size / share_of_missing_parents;
  store.animal_count = std::min(count, 0);
  begin_column(store.birth_year, room);
  begin_column(store.birth_month, room, std::uint8_t{1});
  begin_column(store.kept.day_of_month, room, std::int8_t{1});
  begin_column(store.sex, room, female);
  begin_column(store.is_import, room);
  begin_column(store.sire_no, room);
  begin_column(store.dam_no, room);
  reserve_texts(store.index.texts, size);
  if (store.has_colour) begin_column(store.colour_no, room);
  if (store.has_breeder) begin_column(store.breeder_no, room);
  store.kept.subpopulation_texts = names.subpopulations;
  store.kept.allowed_subpopulations = names.subpopulations.count();
  store.kept.blank_subpopulation = names.subpopulations.number_of(std::string_view());
  store.kept.blank_colour = names.colours.number_of(std::string_view());
  if (store.has_subpopulation && store.kept.allowed_subpopulations > 1)
    begin_column(store.kept.subpopulation_text, room);
}

RecordIds ids_of(const LineRecord& record) {
  return {HashedText(record.id), HashedText(record.sire_id), HashedText(record.dam_id)};
}

void append_record(PopulationStore& store, const LineRecord& record, const RecordIds& ids, std::int32_t colour_no) {
  ++store.animal_count;
  store.kept.file_records = store.animal_count;
  store.kept.ids.add(record.id);
  add_record_id(store.index, store.kept.ids, ids.own, store.animal_count);
  append_birth(store, record);
  store.sex.values.push_back(record.sex);
  if (!record.is_sex_told) store.kept.records_without_sex.push_back(store.animal_count);
  store.is_import.values.push_back(record.is_import ? 1 : 0);
  append_parent_number(store, store.sire_no, ids.sire);
  append_parent_number(store, store.dam_no, ids.dam);
  append_names(store, record, colour_no);
}

std::int32_t append_parent(PopulationStore& store, std::string_view id, Sex sex) {
  const LineRecord parent = {.name = {}, .sex = sex};
  ++store.animal_count;
  store.kept.ids.add(id);
  append_birth(store, parent);
  store.sex.values.push_back(sex);
  store.is_import.values.push_back(0);
  store.sire_no.values.push_back(0);
  store.dam_no.values.push_back(0);
  append_names(store, parent, store.kept.blank_colour);
  return store.animal_count;
}

void reorder_animals(PopulationStore& store, ByNumber<std::int32_t> position_before) {
  reorder(store.birth_year, position_before);
  reorder(store.birth_month, position_before);
  reorder(store.kept.day_of_month, position_before);
  reorder(store.sex, position_before);
  reorder(store.is_import, position_before);
  reorder(store.native_offspring_count, position_before);
  reorder(store.is_parent, position_before);
  reorder(store.colour_no, position_before);
  reorder(store.breeder_no, position_before);
  reorder(store.kept.subpopulation_text, position_before);
  reorder(store.sire_no, position_before);
  reorder(store.dam_no, position_before);
  ByNumber<std::int32_t> position_now(store.size());
  for (std::int32_t p = 1; p <= position_before.last(); ++p) position_now[position_before[p]] = p;
  for (ByNumber<std::int32_t>* const parents : {&store.sire_no, &store.dam_no}) {
    for (std::int32_t& parent : parents->values) parent = position_now[parent];
  }
  store.kept.record_of_position = std::move(position_before);
}

std::vector<std::int32_t> all_positions(const PopulationStore& store) {
  std::vector<std::int32_t> positions(store.size());
  std::iota(positions.begin(), positions.end(), 1);
  return positions;
}

BirthYears birth_years_of(const PopulationStore& store) {
  BirthYears years;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year != 0) years.first = std::min(years.first, year);
    years.last = std::max(years.last, year);
  }
  years.count = wrapped(std::int64_t{years.last} - years.first + 1);
  return years;
}

}  // namespace pedigreewatch
