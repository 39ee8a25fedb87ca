// The desk for callers in another language: a handle, few operations, and the answer of the last one as bytes. Texts go
// in as UTF-8 with a zero at the end. No operation throws: what goes wrong is an answer too.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

struct DeskHandle;

/// A new desk that writes into `folder`; `today` is year * 10000 + month * 100 + day.
DeskHandle* desk_create(const char* folder, std::int32_t today, void (*when_phase_begins)(const char* phase));
void desk_destroy(DeskHandle* handle);

/// "en" or "nl", for what the desk says from now on.
void desk_set_language(DeskHandle* handle, const char* language);

/// Each operation leaves its answer: an object in JSON, or a text.
const char* desk_answer(const DeskHandle* handle);
std::size_t desk_answer_size(const DeskHandle* handle);

/// What has to be unpacked of a file before it is opened: see workbook_desk.h.
void desk_list_parts(DeskHandle* handle, const char* export_file);
/// The text of a file of answers as settings: see settings_text.h.
void desk_read_answers(DeskHandle* handle, const char* text);
void desk_open(DeskHandle* handle, const char* export_file, const char* settings);
/// `available_file`: the list of animals that are still there, beside the other two; empty: none.
void desk_open_pair(DeskHandle* handle, const char* steer_file, const char* data_file, const char* available_file);
void desk_change(DeskHandle* handle, const char* settings);
void desk_write(DeskHandle* handle);
void desk_check(DeskHandle* handle);
void desk_choose_findings(DeskHandle* handle, const char* kind, const char* filter);
void desk_list_findings(DeskHandle* handle, std::int32_t first, std::int32_t count);
/// Corrections: see mending_desk.h. `list` is the whole list as a text.
void desk_set_corrections(DeskHandle* handle, const char* list);
void desk_correct(DeskHandle* handle, std::int32_t line, std::int32_t animal, const char* field, const char* becomes,
                  std::int32_t is_everywhere);
void desk_go_on(DeskHandle* handle, const char* kind, const char* what);
void desk_finding_lines(DeskHandle* handle, std::int32_t place);
void desk_run(DeskHandle* handle);
/// `sex` is 1 for males, 2 for females, 0 for both.
void desk_find(DeskHandle* handle, const char* text, std::int32_t sex);
/// The card of an animal, and the animal that bears an identification: see animal_desk.h.
void desk_animal(DeskHandle* handle, std::int32_t position);
void desk_position(DeskHandle* handle, const char* id);
/// All animals as a table: see all_animals_desk.h.
void desk_choose_animals(DeskHandle* handle, const char* wishes);
void desk_list_animals(DeskHandle* handle, std::int32_t first, std::int32_t count);
void desk_pair(DeskHandle* handle, std::int32_t sire, std::int32_t dam);
/// `takes_all`: also males that have gone.
void desk_rank_males(DeskHandle* handle, std::int32_t dam, std::int32_t first_year, std::int32_t last_year,
                     std::int32_t takes_all);
void desk_order_males(DeskHandle* handle, std::int32_t by_mean_kinship);
void desk_list_males(DeskHandle* handle, std::int32_t first, std::int32_t count);
/// Animals by lists, animals that are left out, several of both sexes: see mates_desk.h.
void desk_find_listed(DeskHandle* handle, const char* ids);
void desk_find_born(DeskHandle* handle, std::int32_t sex, std::int32_t first_year, std::int32_t last_year,
                    std::int32_t takes_all);
void desk_leave_out(DeskHandle* handle, const char* positions);
void desk_compare_mates(DeskHandle* handle, const char* females, const char* males);

/// As they are typed; empty: not said.
void desk_set_board(DeskHandle* handle, const char* rule_year, const char* sire_share, const char* most_f);

/// Names, values and changes: see plan_desk.h.
void desk_plan(DeskHandle* handle, const char* settings);
void desk_list_plan(DeskHandle* handle, std::int32_t first, std::int32_t count);
void desk_change_plan(DeskHandle* handle, const char* change, std::int32_t place, std::int32_t other);

/// See forecast_desk.h.
void desk_list_forecast_fields(DeskHandle* handle);
void desk_forecast(DeskHandle* handle, const char* settings);
void desk_grow_forecast(DeskHandle* handle, std::int32_t milliseconds);

/// A text or file of what the desk knows, by its name in `texts_of_desk` (desk_interface.cpp): "report", "page",
/// "planWorkbook" and so on. Another name leaves nothing.
void desk_text(DeskHandle* handle, const char* name);
}
