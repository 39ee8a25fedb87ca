#include "reports/top_sire_table.h"

#include <algorithm>
#include <string>

namespace pedigreewatch {
namespace {

constexpr std::size_t rule_length = 119;
constexpr Wording title = {"     Top sires and their contribution per year", "     Topvaders en hun aandeel per jaar"};
// clang-format off
constexpr Wording headings[] = {
    {"             |                  the Topsire             |                    contribution of top 10 sires (%)         |",
     "             |                      de Topvader         |               aandeel van de top 10 vaders (%)              |"},
    {"year #Sires  | naam                    id               |     1     2     3     4     5     6     7     8     9    10 |",
     "jaar #Vaders | naam                    id               |     1     2     3     4     5     6     7     8     9    10 |"},
};
// clang-format on

/// In a year without a sire a minus sign stands instead of name and id.
constexpr std::string_view no_name = " -                       ";
constexpr std::string_view no_id = " -             ";
static_assert(no_name.size() == 25 && no_id.size() == 15);

void write_wide_rule(TextOutput& report) {
  write_format_line(report, "A119", {std::string(rule_length, '_')});
}

void write_year(const ReportFrame& frame, const PopulationStore& store, const TopSires& top_sires, std::int64_t row) {
  const std::int32_t sires = top_sires.sire_count.value(row, 1);
  const std::int32_t top_sire = top_sires.top_sire.value(row, 1);
  const std::string_view name = sires == 0 ? no_name : store.at(top_sire).name.full();
  const std::string_view id = sires == 0 ? no_id : store.at(top_sire).id.full();
  std::vector<LineItem> items = {frame.years.year_of(row), sires, " | ", name, id, " | "};
  for (std::int32_t r = 1; r <= top_sire_columns; ++r) items.emplace_back(top_sires.shares.value(row, r));
  write_format_line(frame.report, "I5,I8,A3,A25,A15,A3,10F6.1", items);
}

}  // namespace

void write_top_sires(const ReportFrame& frame, const PopulationStore& store, TopSires& top_sires) {
  for (float& share : top_sires.shares.cells) share *= 100.0F;
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_wide_rule(frame.report);
  for (const Wording& heading : headings) write_format_line(frame.report, "A119", {heading});
  write_wide_rule(frame.report);
  for (std::int64_t row = 1; row <= frame.years.dated_row_count(); ++row) write_year(frame, store, top_sires, row);
  write_wide_rule(frame.report);
  write_blank_line(frame.report);
}

}  // namespace pedigreewatch
