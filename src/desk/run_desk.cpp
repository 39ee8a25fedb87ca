#include "desk/run_desk.h"

#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

#include "checks/readable_text.h"
#include "control/corrected_data.h"
#include "control/run_ending.h"
#include "control/steer_file.h"
#include "core/fixed_text.h"
#include "core/line_reader.h"
#include "desk/board_desk.h"
#include "desk/json_text.h"
#include "matings/candidates.h"
#include "page/page.h"
#include "planning/parent_use.h"
#include "reports/report.h"
#include "text/utf_8.h"
#include "text/windows_1252.h"

namespace pedigreewatch {
namespace {

constexpr Wording not_opened = {"The files of the run cannot be opened.", "De bestanden zijn niet te openen."};
constexpr Wording too_large = {"There is not enough memory in this browser for a population of this size.",
                               "Deze browser heeft niet genoeg geheugen voor een populatie van deze omvang."};
constexpr Wording names_nobody = {
    "No animal of these data stands in the list of animals that are still there: it is not used.",
    "Geen dier van deze gegevens staat in de lijst van dieren die er nog zijn: die telt niet mee."};
constexpr Wording unknown_ids = {
    "Lines of the list of animals that are still there whose identification no animal of these data has: {1}.",
    "Regels van de lijst van dieren die er nog zijn waarvan geen dier van deze gegevens het id heeft: {1}."};
constexpr Wording look_at_check = {
    "No figures can be made of these data. The step \"Check\" names what stands in the way.",
    "Uit deze gegevens zijn geen cijfers te maken. De stap \"Controle\" noemt wat in de weg staat."};

std::string write_whole_report(DeskResults& results, const TextOutput& made, TextOutput& console) {
  TextOutput report = made;
  const AnalysedPopulation& population = results.population;
  const ReportFrame frame = report_frame_of(population, report);
  write_report(frame, population.analysis.whole, population.analysis.extras);
  results.subpopulations = analyse_subpopulations(population, console);
  for (const Block& block : results.subpopulations) write_type_report(frame, block);
  return std::move(report.pending);
}

std::vector<ListedId> listed_ids(std::span<const std::string> ids) {
  std::vector<ListedId> listed;
  for (const std::string& id : ids) listed.push_back({std::ssize(listed) + 1, id});
  return listed;
}

/// Marks the animals of the list that came of the export, or with the data, and why others are not in it.
void take_available(const AvailableIds& ids, ToolLanguage language, DeskResults& results) {
  const PopulationStore& store = results.population.store;
  results.available = available_listed(store, listed_ids(ids.ids));
  if (results.available.count == 0 && ids.gone.empty()) {
    results.available = {};
    results.note_on_available = words_of(names_nobody, language);
    return;
  }
  if (results.available.unknown_ids > 0) {
    results.note_on_available = phrase(unknown_ids, language, {std::to_string(results.available.unknown_ids)});
  }
  results.reasons = ids.reasons;
  results.gone_by = ByNumber<std::int32_t>(store.size());
  const std::vector<std::int32_t> gone = positions_listed(store, listed_ids(ids.gone));
  for (std::size_t k = 0; k < ids.reason_of_gone.size(); ++k) results.gone_by[gone[k]] = ids.reason_of_gone[k] + 1;
}

DeskResults make_results(const Desk& desk, LineReader& data, RunStreams& streams) {
  LineReader steer_file;
  if (!open_for_reading(steer_file, desk.files->steer_file)) stop_run();
  SteerSettings settings = read_steer_lines(steer_file, streams);
  DeskResults results;
  results.population = analyse_population(std::move(settings), data, streams);
  results.population.corrections = corrections_in_data(desk.files->steer_file, results.population.data_state);
  tell(desk.watch, "report");
  results.report = write_whole_report(results, streams.report, streams.console);
  tell(desk.watch, "diversity");
  results.diversity = compute_diversity(results.population.store, youngest_animals(results.population.store));
  if (!desk.files->available_file.empty()) take_available(desk.files->available, desk.language, results);
  results.figures = compute_figures(results.population.store, results.diversity, results.available);
  results.may_live = of_breeding_age_or_younger(results.population.store);
  for (std::int32_t i = 1; i <= results.may_live.last(); ++i) {
    if (!results.available.has(i)) results.may_live[i] = 0;
  }
  return results;
}

/// Yields what stands in the way; empty: nothing.
std::string run(Desk& desk) {
  PhaseTimes phases;
  phases.watch = desk.watch;
  RunStreams streams;
  streams.phase_times = &phases;
  LineReader data;
  if (!desk.files || !open_for_reading(data, desk.files->data_file)) {
    return std::string(words_of(not_opened, desk.language));
  }
  try {
    desk.forecast.reset();
    desk.results = make_results(desk, data, streams);
    judge_results(desk);
    return {};
  } catch (const RunStopped&) {
    return readable(last_words(streams)) + std::string(words_of(look_at_check, desk.language));
  } catch (const std::bad_alloc&) {
    return std::string(words_of(too_large, desk.language));
  } catch (const std::length_error&) {  // more elements than any memory holds
    return std::string(words_of(too_large, desk.language));
  }
}

/// The names of several subpopulations, by number.
void add_subpopulations(JsonText& json, const PopulationStore& store) {
  begin_list(json, "subpopulations");
  if (store.has_subpopulation && store.subpopulation_count() > 1) {
    for (std::int32_t k = 1; k <= store.subpopulation_count(); ++k) {
      add_text(json, without_trailing_blanks(store.subpopulation_name(k)));
    }
  }
  end_list(json);
}

/// The ages within which sires, or dams, are used: the youngest and the oldest; empty where none is known.
void add_ages(JsonText& json, std::string_view name, const PopulationStore& store, Sex parent) {
  begin_list(json, name);
  if (const std::optional<BreedingAges> ages = breeding_ages(store, parent)) {
    add_integer(json, ages->youngest);
    add_integer(json, ages->oldest);
  }
  end_list(json);
}

PageInput page_input(const Desk& desk) {
  return {desk.results->population, desk.results->subpopulations,
          &desk.results->diversity, desk.check ? &*desk.check : nullptr,
          &desk.results->standing,  &desk.results->figures};
}

}  // namespace

std::string run_analysis(Desk& desk) {
  const std::string problem = desk.results ? std::string() : run(desk);
  JsonText json;
  begin_object(json);
  add_lines(json, "messages", problem);
  if (desk.results) {
    const PopulationStore& store = desk.results->population.store;
    add_integer(json, "animals", store.animal_count);
    const bool has_years = store.birth_years.first <= store.birth_years.last;
    add_integer(json, "firstYear", has_years ? store.birth_years.first : 0);
    add_integer(json, "lastYear", has_years ? store.birth_years.last : 0);
    add_subpopulations(json, store);
    add_ages(json, "sireAges", store, male);
    add_ages(json, "damAges", store, female);
    add_logical(json, "isAvailabilityTold", desk.results->available.is_told);
    add_integer(json, "available", desk.results->available.count);
    add_text(json, "availableNote", desk.results->note_on_available);
    add_integer(json, "corrections", desk.results->population.corrections);
    add_text(json, "reportName", desk.steer->report_file_name.trimmed());
  }
  end_object(json);
  return std::move(json.text);
}

std::string results_body(const Desk& desk) {
  return desk.results ? page_body(page_input(desk)) : std::string();
}

std::string results_page(const Desk& desk) {
  return desk.results ? make_page(page_input(desk)) : std::string();
}

std::string report_bytes(const Desk& desk) {
  return desk.results ? desk.results->report : std::string();
}

std::string report_text(const Desk& desk) {
  std::string text;
  if (!desk.results) return text;
  text.reserve(desk.results->report.size() + desk.results->report.size() / 64);
  for (const char byte : desk.results->report) append_letter(text, letter_of_windows_1252(byte));
  return text;
}

}  // namespace pedigreewatch
