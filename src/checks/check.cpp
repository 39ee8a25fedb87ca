#include "checks/check.h"

#include <functional>
#include <span>
#include <vector>

#include "checks/age_checks.h"
#include "checks/date_layout_check.h"
#include "checks/file_reading.h"
#include "checks/grouped_findings.h"
#include "checks/litter_checks.h"
#include "checks/litter_dams.h"
#include "checks/loop_checks.h"
#include "checks/parent_checks.h"
#include "checks/reading_plan.h"
#include "checks/same_animals.h"
#include "checks/size_checks.h"
#include "checks/stray_lines.h"
#include "checks/value_checks.h"
#include "core/side_by_side.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording reading_lines = {"reading lines", "gelezen regels"};
constexpr Wording checking_animals = {"checking animals", "te controleren dieren"};

/// The lines of the export that the data file does not have, as they are no animals.
void tell_left_out_lines(const CheckSettings& settings, Findings& findings) {
  if (!settings.export_lines) return;
  for (const LeftOutLine& line : settings.export_lines->left_out) {
    add(findings, {.code = FindingCode::left_out,
                   .line = static_cast<std::int32_t>(line.export_line),
                   .text = keep(findings, line.text)});
  }
}

/// Reads the animals, a second time where the dates turn out to be written in another layout.
FileSurvey read_file(LineReader& data, ReadingPlan& plan, const CheckSettings& settings, CheckResult& result,
                     ProgressLine& progress) {
  FileSurvey survey;
  begin_progress(progress, words_of(reading_lines, settings.language));
  const std::size_t found_before = result.findings.list.size();
  result.has_read_animals =
      read_animals({data, progress, settings.threads}, plan, result.animals, survey, result.findings);
  result.has_too_many_lines = !result.has_read_animals;
  if (result.has_too_many_lines || data.error != 0) return survey;
  rewind(data);
  if (!mend_date_layout(data, survey, plan, settings.language, result.findings)) return survey;
  const Finding mended = result.findings.list.back();
  result.findings.list.resize(found_before);
  add(result.findings, mended);
  result.animals = {};
  survey = {};
  begin_progress(progress, words_of(reading_lines, settings.language));
  result.has_read_animals =
      read_animals({data, progress, settings.threads}, plan, result.animals, survey, result.findings);
  return survey;
}

void check_values(const FileSurvey& survey, ReadingPlan& plan, const CheckSettings& settings, CheckResult& result) {
  check_letters_of_file(survey, result.findings);
  check_male_letter(result.animals, plan, result.findings);
  check_sexes(result.animals, survey, plan, settings.language, result.findings);
  check_imports(survey, plan, result.findings);
  if (!plan.counts_names) return;
  check_names(survey, plan, settings, result.findings);
  check_breeders(survey, plan, result.findings);
}

/// Those that are animals, not a total or a remark.
std::vector<std::int32_t> animals_of_lines(std::span<const std::int32_t> lines, const PedigreeColumns& animals) {
  std::vector<std::int32_t> found;
  for (const std::int32_t each : lines) {
    if (!animals.has_mark(each, mark_no_animal)) found.push_back(each);
  }
  return found;
}

using FamilyOfChecks = std::function<void(Findings&)>;

/// The checks that take most of the time, in the order in which their findings stand. They only look at the animals,
/// and none of them at what another has found.
std::vector<FamilyOfChecks> families_of_checks(const FileSurvey& survey, const ReadingPlan& plan,
                                               const CheckSettings& settings, const PedigreeColumns& animals) {
  const bool is_everything = settings.scope == CheckScope::everything;
  const auto same_animals = [&](Findings& findings) { check_same_animals(animals, findings); };
  const auto parents = [&, is_everything](Findings& findings) {
    const ParentUses uses = count_parent_uses(animals);
    check_missing_parents(animals, uses, plan, settings, findings);
    check_roles(animals, uses, plan, findings);
    if (is_everything) check_founders(animals, uses, findings);
  };
  const auto loops = [&](Findings& findings) { check_loops(animals, settings.language, findings); };
  const auto dates = [&](Findings& findings) {
    std::vector<DateConflict> conflicts;
    check_ages(animals, settings.limits, settings.language, findings, conflicts);
    check_litters(animals, settings.limits, findings, conflicts);
    report_conflicts(animals, conflicts, settings.limits, settings.language, findings);
  };
  const auto size = [&](Findings& findings) {
    check_age_figures(animals, findings);
    check_report_size(animals, survey, plan, settings, findings);
  };
  if (!is_everything) return {parents, loops, dates, size};
  return {same_animals, parents, loops, dates, size, [&](Findings& findings) { check_litter_dams(animals, findings); }};
}

/// Each family finds for itself; what all of them found is put together in their order.
void check_side_by_side(const FileSurvey& survey, const ReadingPlan& plan, const CheckSettings& settings,
                        CheckResult& result) {
  const std::vector<FamilyOfChecks> families = families_of_checks(survey, plan, settings, result.animals);
  std::vector<Findings> found(families.size());
  std::vector<Task> tasks;
  for (std::size_t k = 0; k < families.size(); ++k) {
    tasks.emplace_back([&families, &found, k] { families[k](found[k]); });
  }
  do_side_by_side(tasks, settings.threads);
  for (const Findings& each : found) add_all(result.findings, each);
}

void check_pedigree(const FileSurvey& survey, const ReadingPlan& plan, const CheckSettings& settings,
                    CheckResult& result) {
  PedigreeColumns& animals = result.animals;
  Findings& findings = result.findings;
  settle_year_only_dates(animals, survey, plan, findings);
  add_for_animals({.code = FindingCode::date_unknown, .column = plan.column_of[birthdate_column]},
                  animals_of_lines(survey.undated, animals), animals, findings);
  check_exchanged_dates(animals, survey, plan, findings);
  group_alike(findings);
  check_years(animals, plan, settings.today, settings.language, findings);
  if (settings.scope == CheckScope::years) return;
  check_duplicates(animals, findings);
  check_side_by_side(survey, plan, settings, result);
}
}  // namespace

CheckResult check_data(LineReader& data, const CheckSettings& settings, ProgressLine& progress) {
  CheckResult result;
  check_steer_lines(settings, result.findings);
  if (settings.report_overwrites_data) add(result.findings, {.code = FindingCode::report_name});
  ReadingPlan plan = plan_reading(data, settings, result.findings);
  if (!plan.can_be_read || data.error != 0) return result;
  plan.counts_names = settings.scope == CheckScope::everything;
  tell_left_out_lines(settings, result.findings);
  const FileSurvey survey = read_file(data, plan, settings, result, progress);
  if (result.has_read_animals && data.error == 0) {
    begin_progress(progress, words_of(checking_animals, settings.language));
    count_progress(progress, result.animals.count());
    check_stray_lines(result.animals, result.findings);
    if (settings.scope != CheckScope::years) check_values(survey, plan, settings, result);
    check_pedigree(survey, plan, settings, result);
  }
  erase_progress(progress);
  return result;
}

}  // namespace pedigreewatch
