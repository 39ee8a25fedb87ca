// What the desk knows between two questions of its user: the export and what was decided about it, the data file and
// the steer file that came of it, what a check found, and the analysis. Nothing is computed twice. One record, owned by
// whoever asks; the operations on it stand in the other headers of this folder.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "checks/check.h"
#include "control/population_analysis.h"
#include "core/phase_times.h"
#include "desk/json_text.h"
#include "diversity/diversity.h"
#include "diversity/figures.h"
#include "forecast/forecast.h"
#include "forecast/real_years.h"
#include "intake/export_preparation.h"
#include "matings/ranking.h"
#include "pedigree/available_animals.h"
#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "standing/standing.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The files of a run: made from an export, or brought along.
struct RunFiles {
  std::string steer_file, data_file;  ///< paths
  bool is_made = false;               ///< from an export
  ExportLines export_lines = {};      ///< of an export: where its lines stand, and what was lost
  std::string available_file = {};    ///< path; empty: nothing tells which animals have gone
  AvailableIds available = {};        ///< the ids in it, and why others are not
};

/// Everything that a run yields.
struct DeskResults {
  AnalysedPopulation population;
  std::vector<Block> subpopulations;
  Diversity diversity;
  Standing standing;
  PopulationFigures figures;
  AvailableAnimals available;        ///< as the export tells it
  ByNumber<std::int32_t> gone_by;    ///< by position: the reason of one that has gone, counted from 1; 0 of all others
  std::vector<std::string> reasons;  ///< "Date of death: 12-03-2021"
  std::string note_on_available;     ///< what is to be said of a list of those that are there; may be empty
  ByNumber<Flag> may_live;           ///< by position: not older than parents of the last years were, and not gone
  std::string report;                ///< the bytes of the report, in Windows-1252
};

/// A breeding plan, as it was made and changed by hand.
struct DeskPlan {
  PlanRequest request;
  CandidatePool pool;
  Plan plan;                            ///< its pairs are single matings; wished for are those that are fixed
  CandidateKinship kinship;             ///< of its candidates
  bool is_changed = false;              ///< by hand: its pairs are no longer the best ones
  std::vector<std::string> notes = {};  ///< on its lists: animals that stand twice, and the like
};

/// F of the offspring of several females with several males.
struct DeskMates {
  std::vector<std::int32_t> females = {}, males = {};  ///< positions
  std::vector<float> f = {};                           ///< row by row, a row for each female
};

/// A forecast while its replicates come in. Each part refers to those before it.
struct DeskForecast {
  FamilyRecords records;
  std::optional<ModelBasis> basis = {};
  std::optional<GrowingForecast> growing = {};
  std::vector<RealYear> past = {};
  std::vector<std::string> practice = {}, warnings = {};  ///< sentences
};

struct Desk {
  std::string folder;                             ///< where files are written; empty: the working directory
  ToolLanguage language = ToolLanguage::english;  ///< of what is said; that of the report is among the settings
  CalendarDate today;
  PhaseWatch watch;  ///< of the parts of long operations

  std::string settings;     ///< what was said about the export, as it came
  PrepareOptions options;   ///< the same, in the language of the desk
  bool has_export = false;  ///< `preparation` has the text of the export
  Preparation preparation;
  std::vector<Correction> corrections;  ///< of the export, as they are applied

  std::optional<RunFiles> files;
  std::optional<SteerSettings> steer;
  std::optional<CheckResult> check;
  std::vector<std::uint32_t> chosen_findings;  ///< places in the list of findings
  StandingSettings board;                      ///< what the board says of its breed
  std::optional<DeskResults> results;
  std::vector<RankedMale> males;  ///< of the last question for all males
  std::int32_t males_for_dam = 0;
  std::vector<std::int32_t> left_out;        ///< positions: of no ranking and no plan
  DeskMates mates;                           ///< of the last question for several of both sexes
  std::vector<std::int32_t> chosen_animals;  ///< positions, in the order that was asked for
  std::int32_t card_of = 0;                  ///< position of the animal of the last card
  std::optional<DeskPlan> plan;
  std::unique_ptr<DeskForecast> forecast;  ///< of the results
};

/// Of the results, which must be there.
inline const PopulationStore& store_of(const Desk& desk) {
  return desk.results->population.store;
}

/// Lets go of everything that came of the files, but not of the export.
void forget_run(Desk& desk);

/// Lets go of everything but the settings of the desk itself.
void forget_all(Desk& desk);

/// Lists the lines of the messages of a run.
void add_lines(JsonText& json, std::string_view name, std::string_view text);
/// Lists texts.
void add_texts(JsonText& json, std::string_view name, std::span<const std::string> texts);

}  // namespace pedigreewatch
