// Any list of animals of a small herd. The first line says which list the rest is: "females", "males", "exclude",
// "numbers", "forbidden", "wished", "values", or "limits" for those of a check. Animals that are taken are in the herd;
// what is not taken is told.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "checks/check_limits.h"
#include "control/population_analysis.h"
#include "control/steer_file.h"
#include "planning/said_request.h"

namespace {

using namespace pedigreewatch;

constexpr std::string_view steer_file = "Herd\nherd.txt\n;\nn\ndd-mm-yyyy\nsheep\nm\nen\ny\n0\n0\n";
constexpr std::string_view herd =
    "id;sex;birthdate;sire;dam\nram 1;m;01-01-2000;;\nram 2;m;01-01-2000;;\newe-1;f;02-02-2000;;\newe-2;f;02-02-2000;;\n"
    "a;m;01-03-2002;ram 1;ewe-1\nb;f;01-03-2002;ram 1;ewe-1\nc;f;01-04-2003;ram 2;ewe-2\nd;;01-04-2003;ram 2;ewe-2\n"
    "42;f;01-05-2004;a;c\n";

void require(bool holds) {
  if (!holds) std::abort();
}

AnalysedPopulation make_population() {
  RunStreams silent;
  LineReader steer, data;
  steer.text = steer_file;
  data.text = herd;
  return analyse_population(read_steer_lines(steer, silent), data, silent);
}

/// All animals of each sex are candidates where no list says which.
PlanRequest request_of(const PopulationStore& store) {
  PlanRequest request;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    (store.at(i).sex == Sex::male ? request.males : request.females).push_back(i);
  }
  request.matings = 3;
  return request;
}

std::string SaidLists::*list_named(std::string_view word) {
  if (word == "females") return &SaidLists::females;
  if (word == "males") return &SaidLists::males;
  if (word == "exclude") return &SaidLists::exclude;
  if (word == "numbers") return &SaidLists::numbers;
  if (word == "forbidden") return &SaidLists::forbidden;
  if (word == "wished") return &SaidLists::wished;
  return &SaidLists::values;
}

void check_positions(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  for (const std::int32_t each : positions) require(each >= 1 && each <= store.animal_count);
}

void check_limits(std::string_view text) {
  CheckLimits limits = limits_of_species(12);
  const std::string fault = read_limits(text, "limits.txt", limits);
  require(!fault.empty() || (limits.oldest_dam_years >= 0 && limits.youngest_parent_days >= 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const AnalysedPopulation population = make_population();
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string text(input.substr(std::min(end + 1, input.size())));
  if (input.substr(0, end) == "limits") {
    check_limits(text);
    return 0;
  }
  const PopulationStore& store = population.store;
  ToolStreams streams;
  PlanInput plan = {store, streams, ToolLanguage::dutch, find_sex_evidence(store)};
  plan.texts["list"] = text;
  SaidLists lists;
  lists.*list_named(input.substr(0, end)) = "list";
  CandidateRules rules;
  PlanRequest request = request_of(store);
  read_said_candidates(plan, lists, rules);
  if (!plan.has_faults) read_said_request(plan, lists, request);
  require(plan.has_faults == false || !streams.messages.pending.empty());
  check_positions(store, rules.excluded);
  for (const auto& listed : {rules.listed.of_males, rules.listed.of_females}) {
    if (listed) check_positions(store, *listed);
  }
  return 0;
}
