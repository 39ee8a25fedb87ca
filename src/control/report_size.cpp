#include "control/report_size.h"

#include <algorithm>
#include <string>

#include "core/report_limits.h"

namespace pedigreewatch {
namespace {

/// The date of birth as it was understood, and the line of the data file that gives it: "31-12-2005, line 812".
std::string birth_of(const AnimalRecord& animal) {
  return std::to_string(animal.birth_day) + "-" + std::to_string(animal.birth_month) + "-" +
         std::to_string(animal.birth_year) + ", line " + std::to_string(animal.line);
}

AnimalRecord first_born_in(const PopulationStore& store, std::int32_t year) {
  std::int32_t position = 1;
  while (store.birth_year[position] != year) ++position;
  return store.at(position);
}

/// The first animal whose father or mother is as old as any.
AnimalRecord young_of_oldest_parent(const PopulationStore& store) {
  const auto age_of = [&](std::int32_t i) { return std::max(store.sire_age_days[i], store.dam_age_days[i]); };
  std::int32_t young = 1;
  for (std::int32_t i = 2; i <= store.animal_count; ++i) {
    if (age_of(young) < age_of(i)) young = i;
  }
  return store.at(young);
}

/// The ages, and the two dates that make the largest one.
std::string describe_ages(const PopulationStore& store, const OldestParents& oldest) {
  const AnimalRecord young = young_of_oldest_parent(store);
  const bool is_sire = young.sire_age_days >= young.dam_age_days;
  const AnimalRecord parent = store.at(is_sire ? young.sire_no : young.dam_no);
  return "fathers up to " + std::to_string(oldest.of(male)) + " and mothers up to " +
         std::to_string(oldest.of(female)) + " years old (the oldest parent " + quoted(parent.id.trimmed()) +
         " was born on " + birth_of(parent) + ", its young " + quoted(young.id.trimmed()) + " on " + birth_of(young) +
         ")";
}

/// The birth years, and a date of the first and of the last one. Nothing when they are as few as in any herdbook, for
/// then the ages alone make the tables so large.
std::string describe_years(const PopulationStore& store) {
  constexpr std::int32_t usual_years = 1000;
  const BirthYears& years = store.birth_years;
  if (years.dated_row_count() <= usual_years) return {};
  const AnimalRecord first = first_born_in(store, years.first);
  const AnimalRecord last = first_born_in(store, years.last);
  return " and " + std::to_string(years.dated_row_count()) + " birth years (in the first one " +
         quoted(first.id.trimmed()) + " was born on " + birth_of(first) + ", in the last one " +
         quoted(last.id.trimmed()) + " on " + birth_of(last) + ")";
}

}  // namespace

void check_year_span(const PopulationStore& store, std::string_view data_file, RunStreams& streams) {
  const BirthYears& years = store.birth_years;
  if (years.last < years.first || std::int64_t{years.last} - years.first < year_limit) return;
  const std::int32_t strange_year = years.first < 0 ? years.first : years.last;
  stop_on_file(streams, data_file,
               "birth years from " + std::to_string(years.first) + " to " + std::to_string(years.last) + " (animal " +
                   quoted(first_born_in(store, strange_year).id.trimmed()) +
                   "): at most 100000 years from the first to the last were expected");
}

void check_parent_ages(const PopulationStore& store, const OldestParents& oldest, std::string_view data_file,
                       RunStreams& streams) {
  const std::int64_t columns = std::int64_t{std::max(oldest.of(male), 0)} + std::max(oldest.of(female), 0);
  if (columns * store.birth_years.dated_row_count() <= figure_limit) return;
  stop_on_file(streams, data_file,
               describe_ages(store, oldest) + describe_years(store) +
                   ": the tables of parents' ages would have more than 20000000 figures");
}

void check_report_bytes(const ReportBytes& bytes, const ReportShape& shape, std::string_view data_file,
                        RunStreams& streams) {
  if (bytes.longest_line > line_byte_limit) {
    stop_on_file(streams, data_file,
                 "the report would have lines of " + in_megabytes(bytes.longest_line) +
                     ", at most 1 MB were expected: " + std::to_string(shape.names) +
                     " subpopulations in pedigreewatch.ini make " + std::to_string(pairs_of(shape.names)) +
                     " pairs; name fewer of them there, those with many animals");
  }
  if (bytes.all <= report_byte_limit) return;
  const bool has_more_colours = shape.colours > shape.names;
  stop_on_file(streams, data_file,
               "the report would have " + in_megabytes(bytes.all) + ", at most 1000 MB were expected: " +
                   (has_more_colours ? std::to_string(shape.colours) + " colours and " : std::string()) +
                   std::to_string(shape.names) + " subpopulations in pedigreewatch.ini, " +
                   std::to_string(bytes.blocks) + " of them with animals, and " + std::to_string(shape.years) +
                   " birth years; name fewer " + (has_more_colours ? "colours and " : "") +
                   "subpopulations there, those with many animals, and look at the first and the last birth year");
}

}  // namespace pedigreewatch
