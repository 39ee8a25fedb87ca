// What the checks find: plain records, filled in while the data file is read and while the pedigree is looked at. How
// each kind is called, how serious it is and what it says stands in finding_kinds.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "checks/text_store.h"

namespace pedigreewatch {

/// The kinds of findings, in the order in which they are shown.
enum class FindingCode : std::uint8_t {
  // The run stops.
  utf_16,
  binary_file,
  empty_file,
  report_name,
  delimiter,
  header_missing,
  header_quotes,
  header_required,
  column_missing,
  loop,
  date_layout_required,
  date_unreadable,
  year_span,
  age_figures,
  report_size,
  // Figures of the report become wrong.
  line_ends,
  two_encodings,
  quotes,
  header_word,
  header_unread,
  header_as_animal,
  header_again,
  last_column,
  column_twice,
  last_line,
  line_cut,
  column_count,
  no_animal,
  invisible_letter,
  date_layout,
  male_letter,
  sex_text,
  date_text,
  id_missing,
  id_cut,
  duplicate_line,
  duplicate_id,
  parent_spelling,
  parent_one_letter,
  unknown_word,
  unknown_perhaps,
  same_parents,
  both_roles,
  parent_sex,
  parent_name,
  date_contradicted,
  born_before_parent,
  parent_too_young,
  births_too_close,
  date_impossible,
  date_year_only,
  year_two_digits,
  year_placeholder,
  year_future,
  year_far_out,
  year_lone,
  year_gap,
  subpopulation_list,
  subpopulation,
  subpopulation_spelling,
  colour_list,
  colour,
  colour_spelling,
  colour_reserved,
  import_text,
  // Worth a look.
  left_out,
  parent_missing,
  parent_young,
  parent_old,
  births_close,
  litter_dates,
  litter_size,
  litter_sires,
  litter_dams,
  same_animal,
  leap_day,
  date_order,
  date_unknown,
  dates_of_years,
  founder_late,
  isolated,
  subpopulation_near,
  colour_near,
  breeder_spelling,
  breeder_cut,
  name_cut,
  heading_unused,
  name_not_found,
  utf_8_letters,
  steer_word,
  steer_rest,
};
inline constexpr std::size_t finding_code_count = static_cast<std::size_t>(FindingCode::steer_rest) + 1;

/// Which parent a finding speaks of.
enum class ParentRole : std::uint8_t { none, sire, dam };

struct Finding {
  FindingCode code = FindingCode::utf_16;
  ParentRole role = ParentRole::none;
  std::uint16_t column = 0;               ///< of the data file, counted from 1; 0 when none is meant
  std::int32_t line = 0;                  ///< of the data file, counted from 1; 0 when the whole file is meant
  std::int32_t id = 0;                    ///< of the animal, as a number of the identifications; 0 when none is meant
  std::int32_t text = 0, other_text = 0;  ///< numbers of `Findings::texts`
  std::int32_t other_line = 0;
  std::int64_t number = 0, other_number = 0;
  std::uint32_t first_of_lines = 0,
                line_count = 0;  ///< all lines of one cause, in `Findings::lines`; none: `line` alone
};

struct Findings {
  std::vector<Finding> list;
  TextStore texts;                  ///< bytes of the data file, or UTF-8 of the checks themselves
  std::vector<std::int32_t> lines;  ///< of findings with several
};

/// The lines of a finding that has several.
inline std::span<const std::int32_t> lines_of(const Findings& findings, const Finding& finding) {
  return std::span(findings.lines).subspan(finding.first_of_lines, finding.line_count);
}

/// How many findings there are of each kind, by code.
using KindCounts = std::array<std::int64_t, finding_code_count>;

inline KindCounts count_kinds(const Findings& findings) {
  KindCounts counts = {};
  for (const Finding& finding : findings.list) ++counts[static_cast<std::size_t>(finding.code)];
  return counts;
}

/// Keeps a text for a finding.
inline std::int32_t keep(Findings& findings, std::string_view text) {
  return number_of_text(findings.texts, text);
}

inline void add(Findings& findings, const Finding& finding) {
  findings.list.push_back(finding);
}

/// Adds one finding for all these lines, which are in order; of a single one it is said as of any other. Nothing is
/// added for none.
inline void add_for_lines(Findings& findings, Finding finding, std::span<const std::int32_t> lines) {
  if (lines.empty()) return;
  finding.line = lines.front();
  if (lines.size() > 1) {
    finding.first_of_lines = static_cast<std::uint32_t>(findings.lines.size());
    finding.line_count = static_cast<std::uint32_t>(lines.size());
    findings.lines.insert(findings.lines.end(), lines.begin(), lines.end());
  }
  findings.list.push_back(finding);
}

/// Puts what was found apart behind what has been found so far.
inline void add_all(Findings& findings, const Findings& others) {
  const auto first_line = static_cast<std::uint32_t>(findings.lines.size());
  findings.lines.insert(findings.lines.end(), others.lines.begin(), others.lines.end());
  for (Finding finding : others.list) {
    if (finding.text != 0) finding.text = keep(findings, others.texts.at(finding.text));
    if (finding.other_text != 0) finding.other_text = keep(findings, others.texts.at(finding.other_text));
    if (finding.line_count != 0) finding.first_of_lines += first_line;
    add(findings, finding);
  }
}

}  // namespace pedigreewatch
