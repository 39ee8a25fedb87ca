// A mating is a row of its own here, also where a pair is made twice: rows are what people swap, forbid and fix.

#include "desk/plan_desk.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "checks/readable_text.h"
#include "core/shares.h"
#include "desk/matings_desk.h"
#include "desk/named_values.h"
#include "page/plan_page.h"
#include "planning/plan_words.h"
#include "planning/said_request.h"
#include "tables/plan_tables.h"

namespace pedigreewatch {
namespace {

constexpr Wording no_run = {"There are no results yet.", "Er zijn nog geen resultaten."};
constexpr Wording nobody = {"There is no male, or no female, to plan with: choose more years.",
                            "Er is geen vader, of geen moeder, om mee te plannen: kies meer jaren."};
constexpr Wording no_matings = {"The last full birth year has no litters: say how many matings are wanted.",
                                "Het laatste volle geboortejaar heeft geen nesten: zeg hoeveel paringen er komen."};
constexpr Wording no_such_number = {"\"{1}\": {2} is no number from 1 to 1000000; mend it or leave the field blank.",
                                    "\"{1}\": {2} is geen getal van 1 tot en met 1000000; verbeter het of laat het "
                                    "veld leeg."};
constexpr Wording no_percentage = {"\"{1}\": {2} is no per cent from 0 to 100; mend it or leave the field blank.",
                                   "\"{1}\": {2} is geen percentage van 0 tot en met 100; verbeter het of laat het "
                                   "veld leeg."};
constexpr Wording least_above_most = {
    R"("matings of a male that is used at least" is above "matings of a male at most".)",
    R"("paringen van een gebruikte vader minstens" is hoger dan "paringen van een vader hoogstens".)"};
constexpr Wording rate_without_values = {
    "\"inbreeding a generation at most\" has no meaning without breeding values: give these, or leave the field blank.",
    "\"inteelt per generatie hoogstens\" betekent niets zonder fokwaarden: geef die, of laat het veld leeg."};
constexpr Wording is_forbidden_pair = {"This swap makes a pair that may not be, {1} with {2}; nothing was changed.",
                                       "Zo ontstaat een paar dat niet mag, {1} met {2}; er is niets veranderd."};
constexpr Wording cannot_forbid = {"Without this pair the others cannot be made; nothing was changed.",
                                   "Zonder dit paar zijn de andere niet te maken; er is niets veranderd."};

/// A number from 1 to a million; none for any other text.
std::optional<std::int32_t> count_named(std::string_view settings, std::string_view name) {
  constexpr std::int32_t most = 1'000'000;
  const std::optional<std::int32_t> number = number_named(settings, name);
  return number && *number > 0 && *number <= most ? number : std::nullopt;
}

/// A field with a number, by what the page calls it.
struct NumberField {
  std::string_view name;
  Wording label;
  bool is_percentage = false;
};
constexpr auto number_fields = std::to_array<NumberField>(
    {{"years", {"born in the last years", "geboren in de laatste jaren"}},
     {"matings", {"matings", "paringen"}},
     {"mostPerMale", {"matings of a male at most", "paringen van een vader hoogstens"}},
     {"mostPerFemale", {"matings of a female at most", "paringen van een moeder hoogstens"}},
     {"leastPerMale", {"matings of a male that is used at least", "paringen van een gebruikte vader minstens"}},
     {"mostF", {"F at most", "F hoogstens"}, true},
     {"rate", {"inbreeding a generation at most", "inteelt per generatie hoogstens"}, true}});

bool is_blank(std::string_view text) {
  return text.find_first_not_of(" \t\r\x1E") == std::string_view::npos;
}

/// What is wrong with the fields that are filled in, a sentence each: a limit that cannot be read must not be taken for
/// none.
std::vector<std::string> field_faults(std::string_view settings, ToolLanguage language) {
  std::vector<std::string> faults;
  for (const NumberField& field : number_fields) {
    const std::string_view text = value_named(settings, field.name);
    const bool is_fine = field.is_percentage ? percentage_named(settings, field.name).has_value()
                                             : count_named(settings, field.name).has_value();
    if (text.empty() || is_fine) continue;
    faults.push_back(phrase(field.is_percentage ? no_percentage : no_such_number, language,
                            {words_of(field.label, language), shown(readable(text))}));
  }
  const auto least = count_named(settings, "leastPerMale"), most = count_named(settings, "mostPerMale");
  if (least && most && *least > *most) faults.emplace_back(words_of(least_above_most, language));
  const bool has_values = !is_blank(value_named(settings, "values"));
  if (percentage_named(settings, "rate") && !has_values) faults.emplace_back(words_of(rate_without_values, language));
  return faults;
}

void add_sentences(JsonText& json, std::string_view name, const std::vector<std::string>& sentences) {
  begin_list(json, name);
  for (const std::string& sentence : sentences) {
    if (!sentence.empty()) add_text(json, sentence);
  }
  end_list(json);
}

std::string problem_answer(const std::vector<std::string>& messages) {
  JsonText json;
  begin_object(json);
  add_sentences(json, "messages", messages);
  end_object(json);
  return std::move(json.text);
}

void add_comparison(JsonText& json, const ComparisonTable& table) {
  begin_list(json, "headings");
  for (const std::string& heading : table.headings) add_text(json, heading);
  end_list(json);
  begin_list(json, "ways");
  for (const ComparisonTable::Row& row : table.rows) {
    begin_list(json);
    add_text(json, row.way);
    for (const std::string& cell : row.cells) add_text(json, cell);
    end_list(json);
  }
  end_list(json);
}

/// What is said of the plan at hand.
std::string plan_answer(const Desk& desk) {
  const DeskPlan& made = *desk.plan;
  const PlanWarnings warnings = find_warnings(store_of(desk), made.request, made.plan);
  JsonText json;
  begin_object(json);
  add_sentences(json, "messages", {});
  add_sentences(json, "candidates",
                {candidates_sentence(made.pool.candidates.of_males, male, desk.language),
                 candidates_sentence(made.pool.candidates.of_females, female, desk.language),
                 gone_sentence(made.pool, desk.language), unknown_sexes_sentence(made.pool, desk.language)});
  std::vector<std::string> lines = result_sentences(made.plan, desk.language, made.is_changed, PlanSpeaker::desk);
  lines.push_back(gain_sentence(made.plan, warnings, desk.language));
  add_sentences(json, "lines", lines);
  std::vector<std::string> all_warnings = warning_sentences(warnings, made.request, desk.language, PlanSpeaker::desk);
  all_warnings.insert(all_warnings.end(), made.notes.begin(), made.notes.end());
  add_sentences(json, "warnings", all_warnings);
  add_comparison(json, comparison_of(made.plan, desk.language));
  add_integer(json, "count", std::ssize(made.plan.pairs));
  add_name(json, "meanF");
  add_real(json, made.plan.of(PlanWay::plan)->mean_f.value_or(0.0));
  end_object(json);
  return std::move(json.text);
}

/// Makes a row of every mating.
void split_pairs(std::vector<PlannedPair>& pairs) {
  std::vector<PlannedPair> rows;
  for (const PlannedPair& pair : pairs) {
    PlannedPair row = pair;
    row.matings = 1;
    rows.insert(rows.end(), static_cast<std::size_t>(pair.matings), row);
  }
  pairs = std::move(rows);
}

void refresh_totals(DeskPlan& made) {
  double sum = 0.0;
  for (const PlannedPair& pair : made.plan.pairs) sum += pair.kinship;
  auto& comparison = made.plan.comparisons[static_cast<std::size_t>(PlanWay::plan)];
  if (comparison) comparison->mean_f = mean_over(sum, made.plan.pairs.size());
}

SaidPair said(const DeskPlan& made, const PlannedPair& pair) {
  return {made.plan.candidates[pair.female], made.plan.candidates[pair.male]};
}

bool is_same(const SaidPair& one, const SaidPair& other) {
  return one.female == other.female && one.male == other.male;
}

/// The matings that are fixed, by lists or by hand.
std::vector<SaidPair> fixed_pairs(const DeskPlan& made) {
  std::vector<SaidPair> fixed;
  for (const PlannedPair& pair : made.plan.pairs) {
    if (pair.is_wished) fixed.push_back(said(made, pair));
  }
  return fixed;
}

/// Takes a pair out of the permitted ones and finds others; false where there are none, and nothing changes.
bool forbid(DeskPlan& made, std::size_t place) {
  PlanRequest request = made.request;
  const SaidPair refused = said(made, made.plan.pairs[place]);
  request.forbidden.push_back(refused);
  request.wished = fixed_pairs(made);
  std::erase_if(request.wished, [&](const SaidPair& pair) { return is_same(pair, refused); });
  PairingResult pairing = pair_up(made.kinship, request, made.plan.numbers.numbers);
  if (!pairing.stuck_females.empty()) return false;
  made.request = std::move(request);
  made.plan.pairs = std::move(pairing.pairs);
  split_pairs(made.plan.pairs);
  return true;
}

/// What a swap would make that may not be; nothing where it may.
std::string find_swap_fault(const Desk& desk, std::size_t place, std::size_t other) {
  const DeskPlan& made = *desk.plan;
  const PlannedPair &one = made.plan.pairs[place], &two = made.plan.pairs[other];
  if (one.male == two.male || one.female == two.female) return {};
  for (const auto& [female, male] : {std::pair(one.female, two.male), std::pair(two.female, one.male)}) {
    const std::int32_t dam = made.plan.candidates[female], sire = made.plan.candidates[male];
    const bool is_forbidden =
        std::any_of(made.request.forbidden.begin(), made.request.forbidden.end(), [&](const SaidPair& pair) {
          return is_same(pair, {dam, sire});
        });
    if (!is_forbidden) continue;
    return phrase(is_forbidden_pair, desk.language,
                  {shown(readable(store_of(desk).id(dam))), shown(readable(store_of(desk).id(sire)))});
  }
  return {};
}

void swap_males(DeskPlan& made, std::size_t place, std::size_t other) {
  PlannedPair& one = made.plan.pairs[place];
  PlannedPair& two = made.plan.pairs[other];
  std::swap(one.male, two.male);
  for (PlannedPair* const pair : {&one, &two}) {
    const std::int32_t row = static_cast<std::int32_t>(pair->female), column = static_cast<std::int32_t>(pair->male);
    pair->kinship = kinship_table(made.kinship, {&row, 1}, {&column, 1}).front();
    pair->is_wished = true;
  }
}

std::string table_of(const Desk& desk, void (*write)(const PlanTables& tables, TableWriter& writer)) {
  if (!desk.results || !desk.plan) return {};
  const DeskPlan& made = *desk.plan;
  const PlannedMatings matings = describe_plan(store_of(desk), made.plan.candidates, made.plan.pairs);
  TableWriter writer;
  writer.corrections = desk.results->population.corrections;
  write({store_of(desk), made.plan, matings, made.pool, made.request.matings, desk.language}, writer);
  return std::move(writer.text);
}

PlanRequest request_of(const Desk& desk, const CandidatePool& pool, std::string_view settings) {
  PlanRequest request;
  request.males = pool.candidates.of_males.positions;
  request.females = pool.candidates.of_females.positions;
  const std::optional<std::int32_t> year = last_full_year(store_of(desk));
  const std::optional<std::int32_t> wanted = count_named(settings, "matings");
  request.matings = wanted ? *wanted : year ? litters_of_year(store_of(desk), *year) : 0;
  request.most_per_male = count_named(settings, "mostPerMale");
  request.most_per_female = count_named(settings, "mostPerFemale").value_or(1);
  request.least_per_male = count_named(settings, "leastPerMale").value_or(1);
  request.most_f = percentage_named(settings, "mostF");
  request.rate = percentage_named(settings, "rate").value_or(request.rate);
  return request;
}

/// Who may take part, but for what lists say.
CandidateRules rules_of(const Desk& desk, std::string_view settings) {
  CandidateRules rules;
  rules.years = count_named(settings, "years");
  if (value_named(settings, "allAnimals").empty()) rules.available = desk.results->available;
  rules.excluded = desk.left_out;
  return rules;
}

/// Lists that were typed: the lines of one are divided by a control character in its setting.
SaidLists take_lists(std::string_view settings, PlanInput& input) {
  constexpr char line_end = '\x1E';
  SaidLists lists;
  struct DeskList {
    std::string_view setting;
    std::string SaidLists::*list;
    Wording name;
  };
  constexpr auto all = std::to_array<DeskList>({{"males", &SaidLists::males, {"males", "vaders"}},
                                                {"females", &SaidLists::females, {"females", "moeders"}},
                                                {"exclude", &SaidLists::exclude, {"left out", "weggelaten"}},
                                                {"numbers", &SaidLists::numbers, {"numbers", "aantallen"}},
                                                {"values", &SaidLists::values, {"breeding values", "fokwaarden"}},
                                                {"forbidden", &SaidLists::forbidden, {"forbidden", "verboden"}},
                                                {"wished", &SaidLists::wished, {"wished for", "gewenst"}}});
  for (const DeskList& list : all) {
    std::string text(value_named(settings, list.setting));
    if (is_blank(text)) continue;
    std::replace(text.begin(), text.end(), line_end, '\n');
    const std::string name(words_of(list.name, input.language));
    lists.*list.list = name;
    input.texts.emplace(name, std::move(text));
  }
  return lists;
}

/// What was said of the lists, a line each.
std::vector<std::string> said_lines(const ToolStreams& streams) {
  std::vector<std::string> lines;
  for (const std::string* const text : {&streams.console.pending, &streams.messages.pending}) {
    for (std::string_view rest = *text; !rest.empty();) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      lines.emplace_back(rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  return lines;
}

}  // namespace

std::string make_desk_plan(Desk& desk, std::string_view settings) {
  desk.plan.reset();
  const auto refuse = [&](const Wording& wording) {
    return problem_answer({std::string(words_of(wording, desk.language))});
  };
  if (!desk.results) return refuse(no_run);
  if (const auto faults = field_faults(settings, desk.language); !faults.empty()) return problem_answer(faults);
  tell(desk.watch, "plan");
  ToolStreams said;
  PlanInput input = {store_of(desk), said, desk.language, find_sex_evidence(store_of(desk))};
  const SaidLists lists = take_lists(settings, input);
  CandidateRules rules = rules_of(desk, settings);
  read_said_candidates(input, lists, rules);
  if (input.has_faults) return problem_answer(said_lines(said));
  DeskPlan made;
  made.pool = gather_candidates(store_of(desk), rules);
  made.request = request_of(desk, made.pool, settings);
  if (made.request.males.empty() || made.request.females.empty()) return refuse(nobody);
  if (made.request.matings == 0) return refuse(no_matings);
  read_said_request(input, lists, made.request);
  made.notes = said_lines(said);
  if (input.has_faults) return problem_answer(made.notes);
  made.plan = make_plan(store_of(desk), made.request);
  if (made.plan.obstacle != PlanObstacle::none) {
    return problem_answer(
        obstacle_sentences(store_of(desk), made.request, made.plan, desk.language, PlanSpeaker::desk));
  }
  made.kinship = make_candidate_kinship(store_of(desk), made.plan.candidates);
  split_pairs(made.plan.pairs);
  desk.plan = std::move(made);
  return plan_answer(desk);
}

std::string list_plan(const Desk& desk, std::size_t first, std::size_t count) {
  JsonText json;
  begin_object(json);
  begin_list(json, "rows");
  const std::size_t size = desk.results && desk.plan ? desk.plan->plan.pairs.size() : 0;
  for (std::size_t k = std::min(first, size); k < size && k - first < count; ++k) {
    const PlannedPair& pair = desk.plan->plan.pairs[k];
    begin_object(json);
    begin_object(json, "female");
    add_animal(json, *desk.results, desk.plan->plan.candidates[pair.female]);
    end_object(json);
    begin_object(json, "male");
    add_animal(json, *desk.results, desk.plan->plan.candidates[pair.male]);
    end_object(json);
    add_name(json, "f");
    add_real(json, pair.kinship);
    add_logical(json, "isFixed", pair.is_wished);
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string change_plan(Desk& desk, std::string_view change, std::size_t place, std::size_t other) {
  const std::size_t size = desk.results && desk.plan ? desk.plan->plan.pairs.size() : 0;
  if (place >= size || other >= size) return problem_answer({std::string(words_of(no_run, desk.language))});
  DeskPlan& made = *desk.plan;
  if (change == "fix") {
    made.plan.pairs[place].is_wished = !made.plan.pairs[place].is_wished;
    return plan_answer(desk);
  }
  if (change == "forbid" && !forbid(made, place)) {
    return problem_answer({std::string(words_of(cannot_forbid, desk.language))});
  }
  if (change == "swap") {
    const std::string fault = find_swap_fault(desk, place, other);
    if (!fault.empty()) return problem_answer({fault});
    swap_males(made, place, other);
  }
  made.is_changed = true;
  refresh_totals(made);
  return plan_answer(desk);
}

std::string plan_table(const Desk& desk) {
  return table_of(desk, write_plan_table);
}

std::string contributions_table(const Desk& desk) {
  return table_of(desk, write_contributions_table);
}

std::string plan_workbook(const Desk& desk) {
  if (!desk.results || !desk.plan) return {};
  const DeskPlan& made = *desk.plan;
  const PlannedMatings matings = describe_plan(store_of(desk), made.plan.candidates, made.plan.pairs);
  WorkbookWriter workbook;
  write_plan_sheets({store_of(desk), made.plan, matings, made.pool, made.request.matings, desk.language,
                     desk.results->population.corrections},
                    workbook);
  finish_workbook(workbook);
  return std::move(workbook.zip.bytes);
}

std::string plan_page(const Desk& desk) {
  if (!desk.results || !desk.plan) return {};
  const DeskPlan& made = *desk.plan;
  const PlannedMatings matings = describe_plan(store_of(desk), made.plan.candidates, made.plan.pairs);
  PlanRequest request = made.request;
  request.wished = fixed_pairs(made);
  return make_plan_page({store_of(desk), request, made.plan, matings, made.pool,
                         desk.results->population.settings.population_name.trimmed(), desk.language, made.is_changed,
                         PlanSpeaker::desk, desk.results->population.corrections});
}

}  // namespace pedigreewatch
