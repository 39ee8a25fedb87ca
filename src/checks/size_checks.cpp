// Counts what the program counts before it begins a report; only how many breeders it will list is taken to be the most
// that there can be.

#include "checks/size_checks.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "checks/age_checks.h"
#include "checks/value_checks.h"
#include "core/report_limits.h"
#include "core/report_shape.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {
namespace {

constexpr Wording too_long_lines = {"lines of {1} (the most is 1 MB)", "regels van {1} (meer dan 1 MB kan niet)"};
constexpr Wording too_many_bytes = {"{1} with {2} birth years{3} (the most is 1000 MB)",
                                    "{1} met {2} geboortejaren{3} (meer dan 1000 MB kan niet)"};
constexpr Wording and_colours = {" and {1} colours", " en {1} kleuren"};

ReportShape shape_of_report(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                            const DataFileLayout& layout) {
  const YearsOfTables years = years_of_tables(animals);
  const auto has_column = [&](FieldCode code) { return plan.column_of[code] != 0; };
  ReportShape shape;
  shape.years = std::max<std::int64_t>(std::int64_t{years.last} - years.first + 1, 0);
  shape.names = layout.subpopulations.count();
  if (has_column(colour_column)) shape.colours = layout.colours.count();
  if (has_column(breeder_column)) {
    shape.breeders = std::min(std::ssize(survey.breeders.texts), std::ptrdiff_t{most_top_breeders}) + 1;
  }
  shape.has_imports = has_column(import_column);
  return shape;
}

/// The number in the steer file's list of each text of the column of subpopulations, from 1 on; 0: it is not listed.
std::vector<std::int32_t> numbers_of_texts(const FileSurvey& survey, const Subpopulations& subpopulations) {
  std::vector<std::int32_t> numbers = {0};
  for (const CountedText& text : survey.subpopulations.texts) {
    numbers.push_back(subpopulations.number_of(SubpopulationName(text.text)));
  }
  return numbers;
}

struct SubpopulationAges {
  bool has_animals = false;
  ParentAges ages;
};

/// Of the whole population as number 0, and of each subpopulation by its first number.
std::vector<SubpopulationAges> ages_by_number(const PedigreeColumns& animals, const FileSurvey& survey,
                                              const Subpopulations& subpopulations) {
  const std::vector<std::int32_t> numbers = numbers_of_texts(survey, subpopulations);
  std::vector<SubpopulationAges> all(static_cast<std::size_t>(subpopulations.count()) + 1);
  const auto age_of = [&](std::int32_t animal, std::int32_t parent) -> std::int64_t {
    return parent == 0 ? 0 : age_in_tables(animals, animal, parent) / days_per_table_year;
  };
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int64_t father = age_of(animal, animals.linked(animals.sire.at(animal)));
    const std::int64_t mother = age_of(animal, animals.linked(animals.dam.at(animal)));
    const std::int32_t place = survey.subpopulation_of.count() > 0 ? survey.subpopulation_of.at(animal) : 0;
    const std::int32_t own = numbers[static_cast<std::size_t>(place)];
    for (const std::int32_t number : {0, own}) {
      SubpopulationAges& each = all[static_cast<std::size_t>(number)];
      each.has_animals = true;
      each.ages.fathers = std::max(each.ages.fathers, father);
      each.ages.mothers = std::max(each.ages.mothers, mother);
    }
  }
  return all;
}

ReportBytes count_bytes(const ReportShape& shape, const std::vector<SubpopulationAges>& all,
                        const Subpopulations& subpopulations) {
  ReportBytes bytes = bytes_without_blocks(shape, all.front().ages);
  for (std::int32_t k = 1; shape.names > 1 && k <= subpopulations.count(); ++k) {
    const SubpopulationAges& each = all[static_cast<std::size_t>(subpopulations.first_numbers.at(k))];
    if (each.has_animals) add_block(bytes, shape, each.ages);
  }
  return bytes;
}

std::string describe_size(const ReportBytes& bytes, const ReportShape& shape, ToolLanguage language) {
  const char decimal_sign = language == ToolLanguage::dutch ? ',' : '.';
  if (bytes.longest_line > line_byte_limit) {
    return phrase(too_long_lines, language, {in_megabytes(bytes.longest_line, decimal_sign)});
  }
  const std::string colours =
      shape.colours > shape.names ? phrase(and_colours, language, {std::to_string(shape.colours)}) : std::string();
  return phrase(too_many_bytes, language, {in_megabytes(bytes.all), std::to_string(shape.years), colours});
}

}  // namespace

void check_report_size(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                       const CheckSettings& settings, Findings& findings) {
  const Subpopulations& subpopulations = plan.layout.subpopulations;
  const ReportShape shape = shape_of_report(animals, survey, plan, plan.layout);
  const std::vector<SubpopulationAges> all = ages_by_number(animals, survey, subpopulations);
  const ParentAges& oldest = all.front().ages;
  // The run stops before its size is counted, and another check has said why.
  if (shape.years > year_limit || (oldest.fathers + oldest.mothers) * shape.years > figure_limit) return;
  const ReportBytes bytes = count_bytes(shape, all, subpopulations);
  if (!is_too_large(bytes)) return;
  add(findings, {.code = FindingCode::report_size,
                 .text = keep(findings, describe_size(bytes, shape, settings.language)),
                 .number = shape.names,
                 .other_number = static_cast<std::int64_t>(subpopulation_count_line(settings)) + 1});
}

}  // namespace pedigreewatch
