// The findings themselves are many and belong to an editor and a table; the page says what kinds there are.

#include <algorithm>
#include <array>

#include "checks/check_report.h"
#include "checks/finding_kinds.h"
#include "page/chart_figure.h"
#include "page/page_sections.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording nothing_found = {"The checks of the data found nothing.",
                                   "De controles van de gegevens vonden niets."};
constexpr Wording nothing_serious = {
    "The checks of the data found nothing that falsifies figures; worth a look: {1}.",
    "De controles van de gegevens vonden niets dat cijfers vervalst; het bekijken waard: {1}."};
constexpr Wording something_found = {
    "The checks of the data found faults that falsify figures or stop the run ({1}); the last section lists them.",
    "De controles van de gegevens vonden fouten die cijfers vervalsen of het programma laten stoppen ({1}); het laatste deel noemt ze."};
constexpr Wording also_worth_a_look = {"Worth a look: {1}.", "Het bekijken waard: {1}."};
constexpr Wording see_check = {"`pedigreewatch-tools check` names every line that is meant, and what to write instead.",
                               "`pedigreewatch-tools check` noemt elke regel die het betreft, en wat er moet staan."};
constexpr Wording caption = {"What the checks found", "Wat de controles vonden"};
constexpr Wording headings[] = {{"Kind", "Soort"},
                                {"How serious", "Hoe ernstig"},
                                {"Times", "Aantal"},
                                {"Falsifies", "Vervalst"},
                                {"The first", "De eerste"}};

/// By code; null for a kind that was not found.
using FirstOfKinds = std::array<const Finding*, finding_code_count>;

FirstOfKinds first_of_kinds(const Findings& findings) {
  FirstOfKinds firsts = {};
  for (const Finding& finding : findings.list) {
    const Finding*& first = firsts[static_cast<std::size_t>(finding.code)];
    if (first == nullptr) first = &finding;
  }
  return firsts;
}

/// The kinds that were found, the most serious first.
FigureTable table_of_kinds(const PageFrame& frame, const CheckResult& check) {
  FigureTable table;
  table.is_of_words = true;
  for (const Wording& heading : headings) table.headings.push_back(frame.text(heading));
  const KindCounts counts = count_kinds(check.findings);
  const FirstOfKinds firsts = first_of_kinds(check.findings);
  for (const Severity severity : {Severity::stops, Severity::falsifies, Severity::look}) {
    for (std::size_t code = 0; code < counts.size(); ++code) {
      const FindingKind& kind = kind_of(static_cast<FindingCode>(code));
      if (counts[code] == 0 || kind.severity != severity) continue;
      table.rows.push_back({std::string(kind.name),
                            {heading_of(severity, frame.language), std::to_string(counts[code]),
                             severity == Severity::look ? std::string() : list_parts(kind.parts, frame.language),
                             data_text(message_of(*firsts[code], check, frame.language))}});
    }
  }
  return table;
}

}  // namespace

std::string findings_sentence(const PageFrame& frame) {
  const std::vector<Finding>& list = frame.input.check->findings.list;
  const auto looks = std::count_if(list.begin(), list.end(), [](const Finding& finding) {
    return kind_of(finding.code).severity == Severity::look;
  });
  const auto serious = std::ssize(list) - looks;
  if (list.empty()) return frame.text(nothing_found);
  if (serious == 0) return phrase(nothing_serious, frame.language, {std::to_string(looks)});
  const std::string text = phrase(something_found, frame.language, {std::to_string(serious)});
  return looks == 0 ? text : text + " " + phrase(also_worth_a_look, frame.language, {std::to_string(looks)});
}

void write_findings(std::string& page, const PageFrame& frame) {
  const CheckResult& check = *frame.input.check;
  const bool has_any = !check.findings.list.empty();
  page += "<p>" + escaped(frame.text(has_any ? see_check : nothing_found)) + "</p>\n";
  if (has_any) write_figure_table(page, table_of_kinds(frame, check), frame.text(caption));
}

}  // namespace pedigreewatch
