#include "tables/figure_tables.h"

#include "diversity/diversity_table.h"
#include "standing/standing_table.h"

namespace pedigreewatch {
namespace {

void write_row(const DiversityRow& row, TableWriter& writer) {
  add_text(writer, row.figure);
  for (const std::string& number : {row.value, row.standard_error, row.n}) add_number(writer, number);
  add_text(writer, row.text);
  add_text(writer, row.meaning);
  end_row(writer);
}

void write_row(const StandingRow& row, TableWriter& writer) {
  add_text(writer, row.figure);
  if (row.is_id) {
    add_text(writer, row.value);
  } else {
    add_number(writer, row.value);
  }
  for (const std::string& number : {row.low, row.high, row.limit}) add_number(writer, number);
  add_text(writer, row.source);
  end_row(writer);
}

}  // namespace

void write_diversity_table(const PopulationStore& store, const Diversity& diversity, ToolLanguage language,
                           TableWriter& writer) {
  write_row(diversity_header(), writer);
  for (const DiversityRow& row : diversity_rows(store, diversity, language)) write_row(row, writer);
}

void write_standing_table(const PopulationStore& store, const Standing& standing, ToolLanguage language,
                          TableWriter& writer) {
  write_row(standing_header(), writer);
  for (const StandingRow& row : standing_rows(store, standing, language)) write_row(row, writer);
}

}  // namespace pedigreewatch
