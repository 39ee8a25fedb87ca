// The most used father of each year by name, and the shares of the ten most used. The wide table has rules of its own,
// which are format lines without the blank in front.

#include "reports/top_sires.h"

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

void write_year(const ReportFrame& frame, std::int32_t year, const TopSireRow& sires) {
  const bool has_sires = sires.sire_count != 0;
  const AnimalName name(has_sires ? frame.store.name(sires.top_sire) : no_name);
  const AnimalId id(has_sires ? frame.store.id(sires.top_sire) : no_id);
  std::vector<LineItem> items = {year, sires.sire_count, " | ", name, id, " | "};
  items.insert(items.end(), sires.shares.begin(), sires.shares.end());
  write_format_line(frame.report, "I5,I8,A3,A25,A15,A3,10F6.1", items);
}

}  // namespace

void write_top_sires(const ReportFrame& frame, const YearRows<TopSireRow>& top_sires) {
  write_blank_line(frame.report);
  write_heading(frame, title);
  write_wide_rule(frame.report);
  for (const Wording& heading : headings) write_format_line(frame.report, "A119", {heading});
  write_wide_rule(frame.report);
  for (Row row = 1; row <= frame.years().dated_row_count(); ++row) {
    write_year(frame, frame.years().year_of(row), top_sires.of(row));
  }
  write_wide_rule(frame.report);
  write_blank_line(frame.report);
}

}  // namespace pedigreewatch
