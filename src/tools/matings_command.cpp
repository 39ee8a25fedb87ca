// Computes the population as a run does, finds the animals that mates are looked for, works out their matings and
// writes them beside the report.

#include "tools/matings_command.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/readable_text.h"
#include "matings/candidates.h"
#include "matings/mating_table.h"
#include "matings/ranking.h"
#include "pedigree/id_list.h"
#include "planning/parent_use.h"
#include "planning/plan_candidates.h"
#include "planning/plan_words.h"
#include "text/counted.h"
#include "text/system_reasons.h"
#include "tools/available_list.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/late_births.h"
#include "tools/output_files.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools matings [OPTION...]
  Run it in the folder with pedigreewatch.ini. It works out F of the offspring of females with males, exactly as a
  run would show it, and writes it with the common ancestors of each pair to NAME_matings.tsv, the lowest F first.

  --females FILE        the females, one identification a line
  --males FILE          the males, likewise
  --years N             where no file is given: the animals born in the last N years (10, where NAME_available.txt
                        tells who is still there; else as --ages)
  --ages                where no file is given: the animals of the ages at which parents were used in the last ten years
                        (5 to 95 in 100 of the births)
  --all-animals         where no file is given: also the animals that NAME_available.txt does not name (it stands beside
                        the data where the export told who is dead, sold or castrated)
  --best K              for each female only the K males with the lowest F
  --limit F             only pairs with F at most that: 0.0625 or 6.25%
  --most-f F            the highest F that the offspring of a mating should have: pairs beyond it are counted and
                        marked, and stay in the table (6.25%)
  --csv                 write NAME_matings.csv, with commas, instead
  --plain               write identifications that begin with = + - @ as they are (else: behind an apostrophe)
  --help                shows this text

  Exit status: 0 done, 1 something stands in the way, or animals of a file were left out, 2 wrong arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--females"},
                                                  {"--males"},
                                                  {"--years"},
                                                  {"--ages", false},
                                                  {all_animals_option, false},
                                                  {"--best"},
                                                  {"--limit"},
                                                  {"--most-f"},
                                                  {"--csv", false},
                                                  {"--plain", false}});

constexpr Wording females_word = {"females", "vrouwelijke dieren"}, males_word = {"males", "mannelijke dieren"};
constexpr Wording born_between = {"{2} born {3}: {1}", "{2} geboren {3}: {1}"};
constexpr Wording listed_in = {"{2} of {3}: {1}", "{2} uit {3}: {1}"};
constexpr Wording no_birth_years = {"no animal has a year of birth; name the {1} with {2} FILE",
                                    "van geen dier is het geboortejaar bekend; noem de {1} met {2} BESTAND"};
constexpr Wording none_born = {"no {1} were born in {2}; give more --years, or name the {1} with {3} FILE",
                               "er zijn geen {1} geboren in {2}; geef meer --years, of noem de {1} met {3} BESTAND"};
constexpr Wording none_aged = {
    "no {1} are of the ages at which parents were used in the last ten years; give --years, or name them with {2} FILE",
    "geen {1} zijn van de leeftijden waarop ouders de laatste tien jaar gebruikt zijn; geef --years, of noem ze met {2} BESTAND"};
constexpr Wording ages_line = {
    "  who of them is dead or sold is not told; at the births of the last ten years at least nine in ten {1} were {2} years old: --ages keeps to those ages",
    "  wie dood of verkocht is, is niet bekend; bij de geboorten van de laatste tien jaar waren minstens negen van de tien {1} {2} jaar oud: --ages houdt zich daaraan"};
constexpr Wording ages_only_line = {
    "  at the births of the last ten years at least nine in ten {1} were {2} years old: --ages keeps to those ages",
    "  bij de geboorten van de laatste tien jaar waren minstens negen van de tien {1} {2} jaar oud: --ages houdt zich daaraan"};
constexpr Wording proposed_line = {"  --years N takes those born in the last N years instead",
                                   "  --years N neemt in plaats daarvan de dieren geboren in de laatste N jaar"};
constexpr Wording none_proposed_line = {
    "  who of them is dead or sold is not told; none is {2} years old, as at least nine in ten {1} were at the births of the last ten years: all of these years are taken",
    "  wie dood of verkocht is, is niet bekend; geen dier is {2} jaar oud, zoals minstens negen van de tien {1} bij de geboorten van de laatste tien jaar: alle dieren van deze jaren tellen mee"};
constexpr Wording dams_word = {"dams", "moeders"}, sires_word = {"sires", "vaders"};
constexpr Wording not_opened = {"{1}: the file of {2} could not be opened: {3}",
                                "{1}: het bestand van {2} kon niet geopend worden: {3}"};
constexpr Wording no_text = {
    "{1}: one identification a line was expected, in UTF-8 or Windows-1252; this file is neither (UTF-16?)",
    "{1}: per regel werd een identificatie verwacht, in UTF-8 of Windows-1252; dit bestand is dat niet (UTF-16?)"};
constexpr Wording too_many_ids = {"{1}: more than {2} lines; name fewer animals",
                                  "{1}: meer dan {2} regels; noem minder dieren"};
constexpr Wording unreadable = {"{1}: {2}", "{1}: {2}"};
constexpr Wording empty_list = {"{1}: no identification stands in this file", "{1}: in dit bestand staat geen dier"};
constexpr Wording none_usable = {"{1}: none of its animals can be used", "{1}: geen van de dieren is bruikbaar"};
constexpr Wording unknown_id = {"{1}, line {2}: {3}: no animal has this identification; left out",
                                "{1}, regel {2}: {3}: geen dier heeft deze identificatie; weggelaten"};
constexpr Wording is_male = {"{1}, line {2}: {3}: a female was expected, this animal is male; left out",
                             "{1}, regel {2}: {3}: een vrouwelijk dier werd verwacht, dit is mannelijk; weggelaten"};
constexpr Wording is_female = {"{1}, line {2}: {3}: a male was expected, this animal is female; left out",
                               "{1}, regel {2}: {3}: een mannelijk dier werd verwacht, dit is vrouwelijk; weggelaten"};
constexpr Wording in_both_lists = {
    "{1}: stands in the lists of both sexes, and the data file does not tell its sex; take it out of one of them",
    "{1}: staat in de lijsten van beide geslachten, en het databestand zegt het geslacht niet; haal het uit een van beide"};
constexpr Counted animals_without_sex = {
    {"  left out: 1 animal of these ages or years whose sex neither its line nor young of it tell; name it in a list of males or "
     "females to look for its mates",
     "  weggelaten: 1 dier van deze leeftijden of jaren waarvan noch de eigen regel, noch een jong het geslacht zegt; noem het in "
     "een lijst van mannelijke of vrouwelijke dieren om er toch partners voor te zoeken"},
    {"  left out: {1} animals of these ages or years whose sex neither their lines nor young of them tell; name them in a list "
     "of males or females to look for their mates",
     "  weggelaten: {1} dieren van deze leeftijden of jaren waarvan noch de eigen regel, noch een jong het geslacht zegt; noem "
     "ze in een lijst van mannelijke of vrouwelijke dieren om er toch partners voor te zoeken"}};
constexpr Wording is_repeated = {"{1}, line {2}: {3}: stands in line {4} already; taken once",
                                 "{1}, regel {2}: {3}: staat al in regel {4}; eenmaal meegenomen"};
constexpr Wording further_notes = {"{1}: and {2} more of this kind", "{1}: en nog {2} van deze soort"};
constexpr Wording too_many_pairs = {
    "{1} females with {2} males are {3} pairs, and at most {4} are worked out; name fewer animals with --females and --males, or give fewer --years",
    "{1} vrouwelijke met {2} mannelijke dieren zijn {3} paren; er worden er hoogstens {4} berekend; noem minder dieren met --females en --males, of geef minder --years"};
constexpr Wording too_many_rows = {
    "the table would have {1} lines, and at most {2} are written; give --best K, or a lower --limit F",
    "de tabel zou {1} regels hebben; er worden er hoogstens {2} geschreven; geef --best K, of een lagere --limit F"};
constexpr Wording counting_pairs = {"working out pairs", "paren berekenen"};
constexpr Wording finding_ancestors = {"common ancestors of pairs", "gemeenschappelijke voorouders van paren"};
constexpr Wording lowest_line = {"lowest F of the offspring: {1} %, {2} x {3}",
                                 "laagste F van de nakomelingen: {1} %, {2} x {3}"};
constexpr Wording highest_line = {"highest F of the offspring: {1} %, {2} x {3}",
                                  "hoogste F van de nakomelingen: {1} %, {2} x {3}"};
constexpr Wording beyond_line = {"F beyond 6.25 % (as of first cousins): {1} of {2} pairs",
                                 "F boven 6,25 % (zoals van neef en nicht): {1} van {2} paren"};
constexpr Wording beyond_limit_line = {"F beyond {3} % (the limit of --most-f): {1} of {2} pairs",
                                       "F boven {3} % (de grens van --most-f): {1} van {2} paren"};
constexpr Wording females_line = {
    "females whose every mating is beyond that: {1} of {2}; look for other males for them",
    "vrouwelijke dieren bij wie elke paring daarboven ligt: {1} van {2}; zoek voor hen andere mannetjes"};
constexpr Wording shallow_line = {
    "pairs with a male of whom fewer than three generations are known: {1}; they stand last, and a low F says little there",
    "paren met een mannetje van wie minder dan drie generaties bekend zijn: {1}; ze staan achteraan, en een lage F zegt daar weinig"};
constexpr Wording table_line = {"pairs written to {1}: {2}", "paren geschreven in {1}: {2}"};

struct MatingOptions {
  std::string females_file, males_file;
  std::optional<std::int32_t> years;
  std::optional<std::int64_t> best;
  std::optional<double> limit, most_inbreeding;
  MatingTableForm form = MatingTableForm::tabs;
  bool is_plain = false, takes_ages = false, takes_all_animals = false;
};

/// A number from 1 to 2147483647; none for any other text.
std::optional<std::int32_t> read_count(std::string_view text) {
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_count = error == std::errc() && stop == text.data() + text.size() && number > 0;
  return is_count ? std::optional(number) : std::nullopt;
}

/// A fraction from 0 to 1, or per cent with the sign; none for any other text.
std::optional<double> read_limit(std::string_view text) {
  const bool is_percent = text.ends_with('%');
  if (is_percent) text.remove_suffix(1);
  const bool has_digit = text.find_first_of("0123456789") != std::string_view::npos;
  const bool has_others = text.find_first_not_of("0123456789.") != std::string_view::npos;
  if (!has_digit || has_others || std::count(text.begin(), text.end(), '.') > 1) return std::nullopt;
  double number = std::strtod(std::string(text).c_str(), nullptr);
  if (is_percent) number /= 100.0;
  return number >= 0.0 && number <= 1.0 ? std::optional(number) : std::nullopt;
}

/// Takes one option; yields what is wrong with it, empty: nothing.
std::string take_option(const GivenOption& given, MatingOptions& options) {
  const auto refusal = [&](std::string_view expected) {
    return std::string(given.name) + " " + in_quotes(given.value) + ": " + std::string(expected) + " was expected";
  };
  if (given.name == "--ages") options.takes_ages = true;
  if (given.name == all_animals_option) options.takes_all_animals = true;
  if (given.name == "--plain") options.is_plain = true;
  if (given.name == "--csv") options.form = MatingTableForm::commas;
  if (given.name == "--females" || given.name == "--males") {
    if (given.value.empty()) return refusal("the name of a file");
    (given.name == "--females" ? options.females_file : options.males_file) = given.value;
  }
  if (given.name == "--years" || given.name == "--best") {
    const std::optional<std::int32_t> count = read_count(given.value);
    if (!count) return refusal("a number from 1 on");
    if (given.name == "--years") {
      options.years = *count;
    } else {
      options.best = *count;
    }
  }
  if (given.name == "--limit" || given.name == "--most-f") {
    std::optional<double>& limit = given.name == "--limit" ? options.limit : options.most_inbreeding;
    limit = read_limit(given.value);
    if (!limit) return refusal("an F such as 0.0625 or 6.25%");
  }
  return {};
}

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_mating_options(std::span<const std::string_view> arguments, MatingOptions& options) {
  bool has_years = false;
  const auto take = [&](const GivenOption& option) {
    has_years = has_years || option.name == "--years";
    return take_option(option, options);
  };
  std::string problem = read_options(arguments, rules, take, "an option was expected");
  if (problem.empty() && has_years && !options.females_file.empty() && !options.males_file.empty()) {
    return "--years has no meaning when all animals are named with --females and --males";
  }
  if (problem.empty() && has_years && options.takes_ages) return "--years and --ages: only one of them can be given";
  return problem;
}

/// What the lists and the figures are made of, and where they are told.
struct MatingRun {
  const FolderRun& folder;
  const MatingOptions& options;
  bool has_left_out = false;  ///< animals of a list
  AvailableAnimals available = {};
  std::vector<std::int32_t> without_sex =
      {};  ///< of the ages or years that were taken; nothing tells which sex they have

  const PopulationStore& store() const { return folder.population.store; }
};

/// The words that differ between the two lists.
struct ListWording {
  Sex sex;
  Wording animals, parents;
  std::string_view option;
};
constexpr ListWording females_list = {female, females_word, dams_word, "--females"};
constexpr ListWording males_list = {male, males_word, sires_word, "--males"};

/// Reads a list that must name an animal.
std::optional<ToolRefusal> read_list(const FolderRun& folder, const std::string& name, std::string_view option,
                                     std::vector<ListedId>& ids) {
  constexpr std::size_t most_lines = 1'000'000;
  IdList list = read_id_list(name, most_lines);
  const auto refusal = [&](const Wording& wording, std::string_view second = {}) {
    return ToolRefusal{folder.words(wording, {shown(name), second})};
  };
  switch (list.fault) {
    case IdListFault::not_opened:
      return ToolRefusal{folder.words(not_opened, {in_quotes(name), option, reason_text(list.error, folder.language)})};
    case IdListFault::no_text: return refusal(no_text);
    case IdListFault::too_long: return refusal(too_many_ids, std::to_string(most_lines));
    case IdListFault::not_read: return refusal(unreadable, reason_text(list.error, folder.language));
    case IdListFault::none: break;
  }
  if (list.ids.empty()) return refusal(empty_list);
  ids = std::move(list.ids);
  return std::nullopt;
}

/// What is said of an animal that was left out or repeated.
std::string note_text(const ListNote& note, const std::string& name, Sex wanted, ToolLanguage language) {
  const Wording& wrong_sex = wanted == female ? is_male : is_female;
  const Wording& wording = note.fault == ListFault::unknown_id  ? unknown_id
                           : note.fault == ListFault::wrong_sex ? wrong_sex
                                                                : is_repeated;
  return phrase(
      wording, language,
      {shown(name), std::to_string(note.line), in_quotes(readable(note.id)), std::to_string(note.first_line)});
}

/// Says what was left out of a list, of each kind of fault the first ones.
void say_notes(MatingRun& run, const CandidateList& list, const std::string& name, Sex wanted) {
  constexpr std::int64_t most_said = 20;
  std::array<std::int64_t, 3> counts = {};
  TextOutput& messages = run.folder.streams.messages;
  for (const ListNote& note : list.notes) {
    const std::int64_t count = ++counts[static_cast<std::size_t>(note.fault)];
    if (note.fault != ListFault::repeated) run.has_left_out = true;
    if (count <= most_said) say(messages, note_text(note, name, wanted, run.folder.language));
  }
  for (const std::int64_t count : counts) {
    if (count <= most_said) continue;
    say(messages, run.folder.words(further_notes, {shown(name), std::to_string(count - most_said)}));
  }
}

/// Takes the animals of a list, of which one must be left.
std::optional<ToolRefusal> take_listed(MatingRun& run, const ListWording& wording, const std::string& name,
                                       std::vector<std::int32_t>& positions) {
  const FolderRun& folder = run.folder;
  std::vector<ListedId> ids;
  if (std::optional<ToolRefusal> refusal = read_list(folder, name, wording.option, ids)) return refusal;
  CandidateList list = candidates_listed(run.store(), ids, wording.sex);
  say_notes(run, list, name, wording.sex);
  if (list.positions.empty()) return ToolRefusal{folder.words(none_usable, {shown(name)})};
  positions = std::move(list.positions);
  say_unavailable(folder, run.available, positions, name);
  say(folder.streams.console,
      folder.words(listed_in, {std::to_string(positions.size()), folder.words(wording.animals), shown(name)}));
  return std::nullopt;
}

/// Takes the animals born in the last years, of which there must be one.
std::optional<ToolRefusal> take_born(MatingRun& run, const ListWording& wording, std::vector<std::int32_t>& positions) {
  constexpr std::int32_t usual_years = 10;
  const FolderRun& folder = run.folder;
  const BirthYears& years = run.store().birth_years;
  const std::string animals = folder.words(wording.animals);
  if (years.dated_row_count() == 0) return ToolRefusal{folder.words(no_birth_years, {animals, wording.option})};
  const std::int64_t first =
      std::max(std::int64_t{years.last} - run.options.years.value_or(usual_years) + 1, std::int64_t{years.first});
  positions = candidates_born(run.store(), static_cast<std::int32_t>(first), years.last, wording.sex);
  const std::vector<std::int32_t> untold =
      candidates_born(run.store(), static_cast<std::int32_t>(first), years.last, std::nullopt);
  run.without_sex.insert(run.without_sex.end(), untold.begin(), untold.end());
  for (std::vector<std::int32_t>* const born : {&positions, &run.without_sex}) {
    std::erase_if(*born, [&](std::int32_t position) { return !run.available.has(position); });
  }
  const std::string born = range_text(first, years.last, run.folder.language);
  if (positions.empty()) return ToolRefusal{folder.words(none_born, {animals, born, wording.option})};
  say(folder.streams.console, folder.words(born_between, {std::to_string(positions.size()), animals, born}));
  return std::nullopt;
}

/// Where nobody has said who has gone: at which ages animals are used.
void say_ages(const MatingRun& run, const ListWording& wording, const Wording& line) {
  const std::optional<BreedingAges> ages = breeding_ages(run.store(), wording.sex);
  if (run.available.is_told || !ages) return;
  const FolderRun& folder = run.folder;
  say(folder.streams.console,
      folder.words(line, {folder.words(wording.parents), range_text(ages->youngest, ages->oldest, folder.language)}));
}

/// The animals of the ages at which parents were used.
SexCandidates find_aged(MatingRun& run, Sex sex) {
  CandidateRules wanted;
  wanted.available = run.available;
  const CandidatePool pool = gather_candidates(run.store(), wanted);
  for (const LeftOut& animal : pool.left_out) {
    if (animal.why == WhyNone::unknown_sex) run.without_sex.push_back(animal.position);
  }
  return pool.candidates.of(sex);
}

/// Takes them, of which there must be one.
std::optional<ToolRefusal> take_aged(MatingRun& run, const ListWording& wording, std::vector<std::int32_t>& positions) {
  const FolderRun& folder = run.folder;
  const SexCandidates candidates = find_aged(run, wording.sex);
  positions = candidates.positions;
  if (positions.empty()) return ToolRefusal{folder.words(none_aged, {folder.words(wording.animals), wording.option})};
  say(folder.streams.console, candidates_sentence(candidates, wording.sex, folder.language));
  return std::nullopt;
}

/// Where nobody says whom to take, nor who has gone: those of the usual ages, and where there are none those of the
/// usual years.
std::optional<ToolRefusal> take_proposed(MatingRun& run, const ListWording& wording,
                                         std::vector<std::int32_t>& positions) {
  if (!find_aged(run, wording.sex).positions.empty()) {
    std::optional<ToolRefusal> refusal = take_aged(run, wording, positions);
    say(run.folder.streams.console, run.folder.words(proposed_line));
    return refusal;
  }
  std::optional<ToolRefusal> refusal = take_born(run, wording, positions);
  if (!refusal) say_ages(run, wording, none_proposed_line);
  return refusal;
}

std::optional<ToolRefusal> take_candidates(MatingRun& run, const ListWording& wording, const std::string& name,
                                           std::vector<std::int32_t>& positions) {
  const MatingOptions& options = run.options;
  if (!name.empty()) return take_listed(run, wording, name, positions);
  if (options.takes_ages) return take_aged(run, wording, positions);
  const bool says_whom = options.years || run.available.is_told || options.takes_all_animals;
  if (!says_whom) return take_proposed(run, wording, positions);
  std::optional<ToolRefusal> refusal = take_born(run, wording, positions);
  // Who wants all animals may have a list of those that have gone all the same.
  if (!refusal) say_ages(run, wording, options.takes_all_animals ? ages_only_line : ages_line);
  return refusal;
}

/// In per cent, with the decimal sign of the language.
std::string f_text(float f, ToolLanguage language) {
  constexpr double least = 0.00005;  // what rounding leaves of 0 has no sign
  return shown_decimals(double{f} < least ? 0.0 : 100.0 * double{f}, 2, language);
}

/// What the board is warned of: pairs beyond its limit, females without another, males of whom little is known.
void say_warnings(const MatingRun& run, const MatingPlan& plan, const MatingChoice& choice) {
  const FolderRun& folder = run.folder;
  TextOutput& console = folder.streams.console;
  const Wording& beyond = run.options.most_inbreeding ? beyond_limit_line : beyond_line;
  say(console, folder.words(beyond, {std::to_string(choice.beyond), std::to_string(choice.examined),
                                     f_text(static_cast<float>(plan.most_inbreeding), folder.language)}));
  if (choice.females_beyond > 0) {
    say(console,
        folder.words(females_line, {std::to_string(choice.females_beyond), std::to_string(plan.females.size())}));
  }
  const auto shallow = std::count_if(choice.pairs.begin(), choice.pairs.end(),
                                     [&](const MatingPair& pair) { return is_shallow(run.store(), pair.male); });
  if (shallow > 0) say(console, folder.words(shallow_line, {std::to_string(shallow)}));
}

void say_summary(const MatingRun& run, const MatingPlan& plan, const MatingChoice& choice,
                 const std::string& table_name) {
  const FolderRun& folder = run.folder;
  TextOutput& console = folder.streams.console;
  const auto id_of = [&](std::int32_t position) { return shown(readable(run.store().id(position))); };
  const auto say_pair = [&](const Wording& wording, const MatingPair& pair) {
    say(console, folder.words(wording, {f_text(pair.f, folder.language), id_of(pair.female), id_of(pair.male)}));
  };
  say_pair(lowest_line, choice.lowest);
  say_pair(highest_line, choice.highest);
  say_warnings(run, plan, choice);
  say(console, folder.words(table_line, {shown(table_name), std::to_string(choice.pairs.size())}));
}

std::optional<ToolRefusal> refuse_rows(const FolderRun& folder, std::int64_t rows) {
  if (rows <= most_rows) return std::nullopt;
  return ToolRefusal{folder.words(too_many_rows, {std::to_string(rows), std::to_string(most_rows)})};
}

/// Refuses what would be too many pairs to work out or to write.
std::optional<ToolRefusal> refuse_size(const FolderRun& folder, const MatingPlan& plan) {
  const auto text = [](auto number) { return std::to_string(number); };
  if (pair_count(plan) > most_pairs) {
    return ToolRefusal{folder.words(too_many_pairs, {text(plan.females.size()), text(plan.males.size()),
                                                     text(pair_count(plan)), text(most_pairs)})};
  }
  if (plan.limit) return std::nullopt;
  const std::int64_t females = std::ssize(plan.females), of_female = std::ssize(plan.males);
  return refuse_rows(folder, females * std::min(of_female, plan.best.value_or(of_female)));
}

std::string table_name(const MatingRun& run) {
  return name_beside_report(run.folder.population.settings,
                            run.options.form == MatingTableForm::tabs ? "_matings.tsv" : "_matings.csv");
}

/// Refuses a table whose name is that of something else.
std::optional<ToolRefusal> refuse_name(const MatingRun& run, const std::string& name) {
  const std::array<std::string, 2> lists = {run.options.females_file, run.options.males_file};
  const FileProblem problem = find_obstacle(run.folder, name, lists, OutputKind::table);
  if (problem.name.empty()) return std::nullopt;
  return refusal_to_write(problem, OutputKind::table, run.folder.language);
}

/// Works the matings out and writes the table.
std::optional<ToolRefusal> write_plan(const MatingRun& run, const MatingPlan& plan) {
  const FolderRun& folder = run.folder;
  ToolStreams& streams = folder.streams;
  const MatingWork work = make_mating_work(run.store(), candidates_of(plan));
  const MatingWatch watch = {&streams.progress, streams.stop_request};
  begin_progress(streams.progress, words_of(counting_pairs, folder.language));
  const MatingChoice choice = choose_matings(work, plan, watch);
  if (choice.is_stopped) return ToolRefusal{folder.words(was_stopped)};
  if (auto refusal = refuse_rows(folder, std::ssize(choice.pairs))) return refusal;
  begin_progress(streams.progress, words_of(finding_ancestors, folder.language));
  const std::vector<KinshipParts> parts = describe_matings(work, choice.pairs, watch);
  const std::string name = table_name(run);
  FileProblem problem;
  const bool is_written = parts.size() == choice.pairs.size() &&
                          write_matings({work, choice.pairs, parts, run.options.form, run.options.is_plain,
                                         plan.most_inbreeding, folder.population.corrections},
                                        name, watch, problem);
  if (!is_written && problem.name.empty()) return ToolRefusal{folder.words(was_stopped)};
  if (!is_written) return refusal_to_write(problem, OutputKind::table, folder.language);
  erase_progress(streams.progress);
  say_summary(run, plan, choice, name);
  return std::nullopt;
}

/// Says how many animals nobody could take for a male or a female, but for those that a list names. An animal whose sex
/// nothing tells cannot be of both.
std::optional<ToolRefusal> weigh_untold(MatingRun& run, const MatingPlan& plan) {
  ByNumber<Flag> in_females(run.store().size()), is_untold(run.store().size());
  for (const std::int32_t position : run.without_sex) is_untold[position] = 1;
  for (const std::int32_t position : plan.females) {
    in_females[position] = 1;
    is_untold[position] = 0;
  }
  for (const std::int32_t position : plan.males) {
    is_untold[position] = 0;
    if (in_females[position] == 0) continue;
    return ToolRefusal{run.folder.words(in_both_lists, {shown(readable(run.store().id(position)))})};
  }
  const auto count = std::count(is_untold.values.begin(), is_untold.values.end(), Flag{1});
  if (count > 0) say(run.folder.streams.console, counted(animals_without_sex, count, run.folder.language));
  return std::nullopt;
}

std::optional<ToolRefusal> make_matings(FolderRun& folder, const MatingOptions& options) {
  MatingRun run = {folder, options};
  MatingPlan plan = {{}, {}, options.best, options.limit};
  if (options.most_inbreeding) plan.most_inbreeding = *options.most_inbreeding;
  std::optional<ToolRefusal> refusal;
  if (!options.takes_all_animals) refusal = read_available(folder, run.available);
  if (!refusal) refusal = take_candidates(run, females_list, options.females_file, plan.females);
  if (!refusal) refusal = take_candidates(run, males_list, options.males_file, plan.males);
  if (!refusal) refusal = weigh_untold(run, plan);
  if (!refusal) refusal = refuse_size(folder, plan);
  if (!refusal) refusal = refuse_name(run, table_name(run));
  if (!refusal) refusal = write_plan(run, plan);
  if (run.has_left_out) folder.exit_status = stands_in_the_way;
  return refusal;
}

}  // namespace

std::string_view matings_help() {
  return help;
}

int run_matings(std::span<const std::string_view> arguments, ToolStreams& streams) {
  MatingOptions options;
  const std::string problem = read_mating_options(arguments, options);
  return run_with_late_births("matings", problem, streams, [&](FolderRun& run) { return make_matings(run, options); });
}

}  // namespace pedigreewatch
