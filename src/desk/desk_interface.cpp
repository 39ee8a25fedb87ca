#include "desk/desk_interface.h"

#include <array>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "desk/all_animals_desk.h"
#include "desk/animal_desk.h"
#include "desk/board_desk.h"
#include "desk/check_desk.h"
#include "desk/desk.h"
#include "desk/export_desk.h"
#include "desk/forecast_desk.h"
#include "desk/json_text.h"
#include "desk/mates_desk.h"
#include "desk/matings_desk.h"
#include "desk/mending_desk.h"
#include "desk/office_list.h"
#include "desk/plan_desk.h"
#include "desk/run_desk.h"
#include "desk/settings_text.h"
#include "desk/tables_desk.h"
#include "desk/workbook_desk.h"
#include "page/animal_style.h"
#include "page/page.h"

struct DeskHandle {
  pedigreewatch::Desk desk;
  std::string answer;
  void (*when_phase_begins)(const char* phase) = nullptr;
};

namespace {

using pedigreewatch::Desk;

constexpr pedigreewatch::Wording no_memory = {
    "There is not enough memory in this browser for a file of this size.",
    "Deze browser heeft niet genoeg geheugen voor een bestand van deze omvang."};

std::string failure(std::string_view text) {
  pedigreewatch::JsonText json;
  pedigreewatch::begin_object(json);
  pedigreewatch::add_lines(json, "messages", text);
  pedigreewatch::end_object(json);
  return std::move(json.text);
}

/// Keeps what the operation yields; one that cannot end says why.
template <typename Operation>
void answer(DeskHandle* handle, Operation&& operation) {
  try {
    handle->answer = operation(handle->desk);
  } catch (const std::bad_alloc&) {
    handle->answer = failure(words_of(no_memory, handle->desk.language));
  } catch (const std::exception& problem) {
    handle->answer = failure(problem.what());
  }
}

void tell_caller(void* handle, std::string_view phase) {
  const DeskHandle& caller = *static_cast<DeskHandle*>(handle);
  if (caller.when_phase_begins != nullptr) caller.when_phase_begins(std::string(phase).c_str());
}

std::size_t size_from(std::int32_t number) {
  return number > 0 ? static_cast<std::size_t>(number) : 0;
}

struct TextOfDesk {
  std::string_view name;
  std::string (*make)(const Desk& desk);
};

constexpr auto texts_of_desk = std::to_array<TextOfDesk>({
    {"body", pedigreewatch::results_body},
    {"page", pedigreewatch::results_page},
    {"report", pedigreewatch::report_bytes},
    {"reportText", pedigreewatch::report_text},
    {"findings", pedigreewatch::findings_table},
    {"findingsWorkbook", pedigreewatch::findings_workbook},
    {"officeWorkbook", pedigreewatch::office_workbook},
    {"animalPage", pedigreewatch::animal_page},
    {"males", pedigreewatch::males_table},
    {"mates", pedigreewatch::mates_table},
    {"matesWorkbook", pedigreewatch::mates_workbook},
    {"plan", pedigreewatch::plan_table},
    {"contributions", pedigreewatch::contributions_table},
    {"planPage", pedigreewatch::plan_page},
    {"planWorkbook", pedigreewatch::plan_workbook},
    {"forecastPage", pedigreewatch::forecast_page},
    {"forecast", pedigreewatch::forecast_table},
    {"years", pedigreewatch::years_table},
    {"subpopulations", pedigreewatch::subpopulations_table},
    {"animals", pedigreewatch::animals_table},
    {"diversity", pedigreewatch::diversity_table},
    {"standing", pedigreewatch::standing_table},
    {"cohorts", pedigreewatch::cohorts_table},
    {"byKinship", pedigreewatch::kinship_table},
    {"mostInbred", pedigreewatch::most_inbred_table},
    {"usedSires", pedigreewatch::used_sires_table},
    {"division", pedigreewatch::division_table},
    {"founders", pedigreewatch::founders_table},
    {"workbook", pedigreewatch::tables_workbook},
    {"style", [](const Desk&) { return std::string(pedigreewatch::page_style()); }},
    {"animalStyle", [](const Desk&) { return std::string(pedigreewatch::animal_style()); }},
    {"script", [](const Desk&) { return std::string(pedigreewatch::page_script()); }},
});

std::string text_named(const Desk& desk, std::string_view name) {
  for (const TextOfDesk& text : texts_of_desk) {
    if (text.name == name) return text.make(desk);
  }
  return {};
}

}  // namespace

extern "C" {

DeskHandle* desk_create(const char* folder, std::int32_t today, void (*when_phase_begins)(const char* phase)) {
  auto handle = std::make_unique<DeskHandle>();
  handle->desk.folder = folder;
  handle->desk.today = {today / 10000, today / 100 % 100, today % 100};
  handle->when_phase_begins = when_phase_begins;
  handle->desk.watch = {tell_caller, handle.get()};
  return handle.release();
}

void desk_destroy(DeskHandle* handle) {
  const std::unique_ptr<DeskHandle> owner(handle);
}

void desk_set_language(DeskHandle* handle, const char* language) {
  const bool is_dutch = std::string_view(language) == "nl";
  handle->desk.language = is_dutch ? pedigreewatch::ToolLanguage::dutch : pedigreewatch::ToolLanguage::english;
}

const char* desk_answer(const DeskHandle* handle) {
  return handle->answer.c_str();
}

std::size_t desk_answer_size(const DeskHandle* handle) {
  return handle->answer.size();
}

void desk_list_parts(DeskHandle* handle, const char* export_file) {
  answer(handle, [&](const Desk& desk) { return pedigreewatch::packed_parts_of(desk, export_file); });
}

void desk_read_answers(DeskHandle* handle, const char* text) {
  answer(handle, [&](const Desk& desk) { return pedigreewatch::settings_of_answers(text, desk.language); });
}

void desk_open(DeskHandle* handle, const char* export_file, const char* settings) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::open_export(desk, export_file, settings); });
}

void desk_open_pair(DeskHandle* handle, const char* steer_file, const char* data_file, const char* available_file) {
  answer(handle,
         [&](Desk& desk) { return pedigreewatch::open_given_files(desk, steer_file, data_file, available_file); });
}

void desk_change(DeskHandle* handle, const char* settings) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::change_settings(desk, settings); });
}

void desk_write(DeskHandle* handle) {
  answer(handle, [](Desk& desk) { return pedigreewatch::write_files_of_export(desk); });
}

void desk_check(DeskHandle* handle) {
  answer(handle, [](Desk& desk) { return pedigreewatch::check_files(desk); });
}

void desk_choose_findings(DeskHandle* handle, const char* kind, const char* filter) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::choose_findings(desk, kind, filter); });
}

void desk_list_findings(DeskHandle* handle, std::int32_t first, std::int32_t count) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::list_findings(desk, size_from(first), size_from(count)); });
}

void desk_set_corrections(DeskHandle* handle, const char* list) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::set_corrections(desk, list); });
}

void desk_correct(DeskHandle* handle, std::int32_t line, std::int32_t animal, const char* field, const char* becomes,
                  std::int32_t is_everywhere) {
  answer(handle, [&](Desk& desk) {
    return pedigreewatch::propose_correction(desk, {line, field, becomes, is_everywhere != 0, size_from(animal)});
  });
}

void desk_go_on(DeskHandle* handle, const char* kind, const char* what) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::propose_going_on(desk, kind, what); });
}

void desk_finding_lines(DeskHandle* handle, std::int32_t place) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::finding_lines(desk, size_from(place)); });
}

void desk_run(DeskHandle* handle) {
  answer(handle, [](Desk& desk) { return pedigreewatch::run_analysis(desk); });
}

void desk_find(DeskHandle* handle, const char* text, std::int32_t sex) {
  std::optional<pedigreewatch::Sex> wanted;
  if (sex == 1) wanted = pedigreewatch::male;
  if (sex == 2) wanted = pedigreewatch::female;
  answer(handle, [&](Desk& desk) { return pedigreewatch::find_in_results(desk, text, wanted); });
}

void desk_animal(DeskHandle* handle, std::int32_t position) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::animal_card(desk, position); });
}

void desk_position(DeskHandle* handle, const char* id) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::position_of_id(desk, id); });
}

void desk_choose_animals(DeskHandle* handle, const char* wishes) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::choose_animals(desk, wishes); });
}

void desk_list_animals(DeskHandle* handle, std::int32_t first, std::int32_t count) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::list_animals(desk, size_from(first), size_from(count)); });
}

void desk_pair(DeskHandle* handle, std::int32_t sire, std::int32_t dam) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::describe_pair(desk, sire, dam); });
}

void desk_rank_males(DeskHandle* handle, std::int32_t dam, std::int32_t first_year, std::int32_t last_year,
                     std::int32_t takes_all) {
  answer(handle, [&](Desk& desk) {
    return pedigreewatch::rank_males(desk, dam, {first_year, last_year, takes_all != 0});
  });
}

void desk_order_males(DeskHandle* handle, std::int32_t by_mean_kinship) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::order_males(desk, by_mean_kinship != 0); });
}

void desk_list_males(DeskHandle* handle, std::int32_t first, std::int32_t count) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::list_males(desk, size_from(first), size_from(count)); });
}

void desk_find_listed(DeskHandle* handle, const char* ids) {
  answer(handle, [&](const Desk& desk) { return pedigreewatch::find_listed(desk, ids); });
}

void desk_find_born(DeskHandle* handle, std::int32_t sex, std::int32_t first_year, std::int32_t last_year,
                    std::int32_t takes_all) {
  const pedigreewatch::Sex wanted = sex == 1 ? pedigreewatch::male : pedigreewatch::female;
  answer(handle, [&](Desk& desk) {
    return pedigreewatch::find_born(desk, {wanted, first_year, last_year, takes_all != 0});
  });
}

void desk_leave_out(DeskHandle* handle, const char* positions) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::leave_out(desk, positions); });
}

void desk_compare_mates(DeskHandle* handle, const char* females, const char* males) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::compare_mates(desk, females, males); });
}

void desk_set_board(DeskHandle* handle, const char* rule_year, const char* sire_share, const char* most_f) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::set_board(desk, {rule_year, sire_share, most_f}); });
}

void desk_plan(DeskHandle* handle, const char* settings) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::make_desk_plan(desk, settings); });
}

void desk_list_plan(DeskHandle* handle, std::int32_t first, std::int32_t count) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::list_plan(desk, size_from(first), size_from(count)); });
}

void desk_change_plan(DeskHandle* handle, const char* change, std::int32_t place, std::int32_t other) {
  answer(handle,
         [&](Desk& desk) { return pedigreewatch::change_plan(desk, change, size_from(place), size_from(other)); });
}

void desk_list_forecast_fields(DeskHandle* handle) {
  answer(handle, [](const Desk& desk) { return pedigreewatch::forecast_fields(desk); });
}

void desk_forecast(DeskHandle* handle, const char* settings) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::begin_desk_forecast(desk, settings); });
}

void desk_grow_forecast(DeskHandle* handle, std::int32_t milliseconds) {
  answer(handle, [&](Desk& desk) { return pedigreewatch::grow_desk_forecast(desk, milliseconds); });
}

void desk_text(DeskHandle* handle, const char* name) {
  answer(handle, [&](Desk& desk) { return text_named(desk, name); });
}
}
