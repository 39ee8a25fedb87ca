#include "planning/said_lists.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <unordered_map>
#include <utility>

#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "matings/candidates.h"
#include "pedigree/id_list.h"
#include "text/plain_letters.h"
#include "text/system_reasons.h"

namespace pedigreewatch {
namespace {

constexpr Wording said_of_file = {"{1}: {2}", "{1}: {2}"};
constexpr Wording not_opened = {"{1}: the file of {2} could not be opened; look at its name and folder",
                                "{1}: het bestand van {2} kon niet geopend worden; kijk naar naam en map"};
constexpr Wording no_text = {
    "{1}: a text in UTF-8 or Windows-1252 was expected; this file is neither (UTF-16?)",
    "{1}: een tekst in UTF-8 of Windows-1252 werd verwacht; dit bestand is dat niet (UTF-16?)"};
constexpr Wording too_many_lines = {"{1}: more than {2} lines; name fewer animals",
                                    "{1}: meer dan {2} regels; noem minder dieren"};
constexpr Wording empty_list = {"{1}: nothing stands in this file", "{1}: in dit bestand staat niets"};
constexpr Wording fault_line = {"{1}, line {2}: {3}: {4}", "{1}, regel {2}: {3}: {4}"};
constexpr Wording unknown_id = {"no animal has this identification; mend it or take the line out",
                                "geen dier heeft deze identificatie; verbeter haar of haal de regel weg"};
constexpr Wording is_male = {
    "a female was expected, this animal is male; mend the list or the data file",
    "een vrouwelijk dier werd verwacht, dit is mannelijk; verbeter de lijst of het databestand"};
constexpr Wording is_female = {
    "a male was expected, this animal is female; mend the list or the data file",
    "een mannelijk dier werd verwacht, dit is vrouwelijk; verbeter de lijst of het databestand"};
constexpr Wording same_sex = {"a female and a male were expected, both are of one sex; mend the list or the data file",
                              "een vrouwelijk en een mannelijk dier werden verwacht, beide zijn van een geslacht; "
                              "verbeter de lijst of het databestand"};
constexpr Wording lacks_field = {"a second field was expected, behind a tab, semicolon, comma or blank",
                                 "een tweede veld werd verwacht, na een tab, puntkomma, komma of spatie"};
constexpr Wording repeated = {"stands in the list already; taken once", "staat al in de lijst; eenmaal meegenomen"};
constexpr Wording other_value = {"{1}, line {2}: {3}: another value stands on line {4}; take one of them out",
                                 "{1}, regel {2}: {3}: op regel {4} staat een andere waarde; haal een van de twee weg"};
constexpr Wording taken_for_heading = {"{1}, line 1: taken for the names of the columns: {2}",
                                       "{1}, regel 1: gelezen als namen van de kolommen: {2}"};
constexpr Wording in_both_lists = {
    "stands in the lists of both sexes, and the data file does not tell its sex; take it out of one of them",
    "staat in de lijsten van beide geslachten, en het databestand noemt geen geslacht; haal het uit een van de twee"};
constexpr Wording no_sex = {
    "the data file does not tell the sex of this animal; name it in the list of males or of females, or mend the data file",
    "het databestand noemt geen geslacht van dit dier; noem het in de lijst van vaders of van moeders, of verbeter het "
    "databestand"};
constexpr Wording not_in_data = {"{1}: animals that this data file does not have, and that are left out anyway: {2}",
                                 "{1}: dieren die dit databestand niet heeft, en die dus al niet meedoen: {2}"};
constexpr Wording further_faults = {"{1}: and more faults of this list", "{1}: en nog meer fouten in deze lijst"};

/// Two fields of a line; the second is empty where nothing divides them.
using LineFields = std::pair<std::string_view, std::string_view>;

/// The ways to read a line as two fields, the likeliest first: a comma may be that of a decimal behind a blank, and a
/// blank may stand within an identification.
std::vector<LineFields> readings_of(std::string_view line) {
  std::vector<LineFields> readings;
  const auto cut_at = [&](std::size_t place) {
    if (place == std::string_view::npos) return;
    readings.emplace_back(without_blanks(line.substr(0, place)), without_blanks(line.substr(place + 1)));
  };
  for (const char separator : {'\t', ';', ',', ' '}) cut_at(line.find(separator));
  if (line.find(' ') != line.rfind(' ')) cut_at(line.rfind(' '));
  if (readings.empty()) readings.emplace_back(line, std::string_view());
  return readings;
}

void tell(ToolStreams& streams, std::string_view text) {
  flush(streams.console);
  say(streams.messages, text);
}

void refuse_file(PlanInput& input, const Wording& wording, std::initializer_list<std::string_view> values) {
  input.has_faults = true;
  tell(input.streams, phrase(wording, input.language, values));
}

/// Says what is wrong with a list, if anything.
void refuse_list(PlanInput& input, const std::string& name, std::string_view option, const IdList& list,
                 std::size_t most_lines) {
  const std::string reason = list.error != 0 ? reason_text(list.error, input.language) : std::string();
  switch (list.fault) {
    case IdListFault::not_opened:
      return list.error == EINTR ? refuse_file(input, said_of_file, {in_quotes(name), reason})
                                 : refuse_file(input, not_opened, {in_quotes(name), option});
    case IdListFault::no_text: return refuse_file(input, no_text, {shown(name)});
    case IdListFault::too_long: return refuse_file(input, too_many_lines, {shown(name), std::to_string(most_lines)});
    case IdListFault::not_read: return refuse_file(input, said_of_file, {shown(name), reason});
    case IdListFault::none: break;
  }
}

/// The lines of a file, or of a text that was typed, without blanks around them; none where something is wrong.
std::vector<ListedId> read_lines(PlanInput& input, const std::string& name, std::string_view option) {
  constexpr std::size_t most_lines = 1'000'000;
  constexpr std::string_view utf_8_mark = "\xEF\xBB\xBF";
  const auto text = input.texts.find(name);
  IdList list = text == input.texts.end() ? read_id_list(name, most_lines) : id_list_of_text(text->second, most_lines);
  refuse_list(input, name, option, list, most_lines);
  if (list.fault != IdListFault::none) return {};
  for (ListedId& line : list.ids) {
    std::string_view id = line.id;
    if (line.line == 1 && id.starts_with(utf_8_mark)) id.remove_prefix(utf_8_mark.size());
    line.id = std::string(without_blanks(id));
  }
  std::erase_if(list.ids, [](const ListedId& line) { return line.id.empty(); });
  if (list.ids.empty() && !input.has_faults) refuse_file(input, empty_list, {shown(name)});
  return std::move(list.ids);
}

/// The first line of a list of animals left out as the desk keeps it: with the reason and the day of each.
bool begins_left_out_list(const std::vector<ListedId>& lines) {
  std::string first = lines.empty() ? std::string() : lines.front().id;
  std::erase(first, '"');
  return first == "id\twhy\twhen";
}

/// The first cell, without the quotation marks that a spreadsheet puts around some.
std::string first_cell(std::string_view line) {
  const std::string_view cell = without_blanks(line.substr(0, line.find('\t')));
  if (cell.size() < 2 || !cell.starts_with('"') || !cell.ends_with('"')) return std::string(cell);
  std::string text;
  for (std::size_t k = 1; k + 1 < cell.size(); ++k) {
    text += cell[k];
    if (cell[k] == '"' && cell[k + 1] == '"') ++k;
  }
  return text;
}

/// Whether a first line names columns instead of an animal: two words without any digit.
bool is_heading(const ListedAnimal& animal, LineForm form) {
  return form == LineForm::id_value && animal.position == 0 && !animal.text.empty() && !has_digit(animal.id) &&
         !has_digit(animal.text);
}

/// Whether two texts say the same number.
bool is_same_value(const std::string& one, const std::string& other) {
  const std::optional<double> value = read_value(one);
  return one == other || (value && value == read_value(other));
}

/// Faults of one list: beyond so many, one line says that there are more.
struct FaultCount {
  static constexpr int most = 20;
  int count = 0;
};

void count_fault(PlanInput& input, FaultCount& faults, const std::string& name, const ListedAnimal& animal,
                 const Wording& fault) {
  input.has_faults = true;
  if (++faults.count <= FaultCount::most) tell_fault(input, name, animal.line, animal.id, fault);
  if (faults.count == FaultCount::most + 1) tell(input.streams, phrase(further_faults, input.language, {shown(name)}));
}

/// The lines of a list cut into fields, with the animals that they name: of the ways to read a line the first one that
/// begins with an animal.
std::vector<ListedAnimal> look_up(const PlanInput& input, const std::vector<ListedId>& lines, LineForm form) {
  std::vector<ListedAnimal> readings;
  std::vector<ListedId> ids;
  for (const ListedId& line : lines) {
    const std::vector<LineFields> ways =
        form == LineForm::id ? std::vector<LineFields>{{line.id, {}}} : readings_of(line.id);
    for (const LineFields& fields : ways) {
      readings.push_back({line.line, 0, std::string(fields.first), std::string(fields.second)});
      ids.push_back({line.line, std::string(fields.first)});
    }
  }
  const std::vector<std::int32_t> positions = positions_listed(input.store, ids);
  std::vector<ListedAnimal> animals;
  for (std::size_t k = 0; k < readings.size(); ++k) {
    readings[k].position = positions[k];
    if (animals.empty() || animals.back().line != readings[k].line) {
      animals.push_back(std::move(readings[k]));
    } else if (animals.back().position == 0 && positions[k] != 0) {
      animals.back() = std::move(readings[k]);
    }
  }
  return animals;
}

}  // namespace

void tell_fault(PlanInput& input, const std::string& name, std::int64_t line, std::string_view text,
                const Wording& fault) {
  tell(input.streams,
       phrase(fault_line, input.language,
              {shown(name), std::to_string(line), in_quotes(readable(text)), words_of(fault, input.language)}));
}

namespace {

/// An animal that stands twice: the same again is told, something else is a fault.
void tell_repeated(PlanInput& input, const std::string& name, const ListedAnimal& again, const ListedAnimal& first) {
  if (is_same_value(again.text, first.text)) return tell_fault(input, name, again.line, again.id, repeated);
  input.has_faults = true;
  tell(input.streams,
       phrase(other_value, input.language,
              {shown(name), std::to_string(again.line), in_quotes(readable(again.id)), std::to_string(first.line)}));
}

/// Those that are known, each once; tells the others.
std::vector<ListedAnimal> take_animals(PlanInput& input, const std::string& name, std::vector<ListedAnimal> animals,
                                       LineForm form) {
  if (!animals.empty() && is_heading(animals.front(), form)) {
    const ListedAnimal& heading = animals.front();
    say(input.streams.console,
        phrase(taken_for_heading, input.language, {shown(name), in_quotes(heading.id + " " + heading.text)}));
    animals.erase(animals.begin());
  }
  std::vector<ListedAnimal> known;
  std::unordered_map<std::int32_t, std::size_t> first_place;
  FaultCount faults;
  for (ListedAnimal& animal : animals) {
    if (animal.position == 0) {
      count_fault(input, faults, name, animal, unknown_id);
      continue;
    }
    if (form != LineForm::id && animal.text.empty()) {
      count_fault(input, faults, name, animal, lacks_field);
      continue;
    }
    const auto [place, is_first] = first_place.emplace(animal.position, known.size());
    if (is_first || form == LineForm::two_ids) {
      known.push_back(std::move(animal));
    } else {
      tell_repeated(input, name, animal, known[place->second]);
    }
  }
  return known;
}

}  // namespace

std::vector<ListedAnimal> read_animals(PlanInput& input, const std::string& name, std::string_view option,
                                       LineForm form) {
  return take_animals(input, name, look_up(input, read_lines(input, name, option), form), form);
}
std::vector<std::int32_t> read_excluded(PlanInput& input, const std::string& name, std::string_view option) {
  std::vector<ListedId> lines = read_lines(input, name, option);
  std::vector<std::int32_t> positions;
  if (!begins_left_out_list(lines)) {
    for (const ListedAnimal& animal : take_animals(input, name, look_up(input, lines, LineForm::id), LineForm::id)) {
      positions.push_back(animal.position);
    }
    return positions;
  }
  std::vector<ListedId> ids;
  for (std::size_t k = 1; k < lines.size(); ++k) ids.push_back({lines[k].line, first_cell(lines[k].id)});
  std::int64_t unknown = 0;
  for (const std::int32_t position : positions_listed(input.store, ids)) {
    unknown += position == 0 ? 1 : 0;
    if (position != 0) positions.push_back(position);
  }
  if (unknown > 0) tell(input.streams, phrase(not_in_data, input.language, {shown(name), std::to_string(unknown)}));
  return positions;
}

std::vector<std::int32_t> read_candidates(PlanInput& input, const std::string& name, std::string_view option, Sex sex) {
  std::vector<std::int32_t> positions;
  FaultCount faults;
  for (const ListedAnimal& animal : read_animals(input, name, option, LineForm::id)) {
    const std::optional<Sex> known = known_sex(input.store, input.sexes, animal.position);
    if (known.value_or(sex) != sex) {
      const bool is_told = input.told_sexes.contains(animal.position);
      count_fault(input, faults, name, animal, is_told ? in_both_lists : sex == female ? is_male : is_female);
      continue;
    }
    positions.push_back(animal.position);
    if (known) continue;
    // The list tells it from now on.
    (sex == male ? input.sexes.was_sire : input.sexes.was_dam)[animal.position] = 1;
    input.told_sexes.insert(animal.position);
  }
  return positions;
}

std::vector<ReadPair> read_pairs(PlanInput& input, const std::string& name, std::string_view option) {
  std::vector<ReadPair> pairs;
  FaultCount faults;
  const std::vector<ListedAnimal> first = read_animals(input, name, option, LineForm::two_ids);
  std::vector<ListedId> ids;
  ids.reserve(first.size());
  for (const ListedAnimal& animal : first) ids.push_back({animal.line, animal.text});
  const std::vector<std::int32_t> positions = positions_listed(input.store, ids);
  for (std::size_t k = 0; k < first.size(); ++k) {
    const ListedAnimal second = {first[k].line, positions[k], first[k].text, {}};
    if (positions[k] == 0) {
      count_fault(input, faults, name, second, unknown_id);
      continue;
    }
    const std::optional<Sex> sex = known_sex(input.store, input.sexes, first[k].position);
    const std::optional<Sex> other = known_sex(input.store, input.sexes, positions[k]);
    if (!sex || !other) {
      count_fault(input, faults, name, sex ? second : first[k], no_sex);
    } else if (*sex == *other) {
      count_fault(input, faults, name, first[k], same_sex);
    } else {
      const bool is_female_first = *sex == female;
      pairs.push_back({first[k].line, is_female_first ? first[k].position : positions[k],
                       is_female_first ? positions[k] : first[k].position});
    }
  }
  return pairs;
}

std::optional<double> read_value(std::string_view text) {
  constexpr double most = 1e12;  // beyond any scale of breeding values
  std::string number(text);
  if (number.find_first_not_of("0123456789.,-+eE") != std::string::npos) return std::nullopt;
  if (const std::size_t comma = number.find(','); comma != std::string::npos) number[comma] = '.';
  if (number.starts_with('+') && !number.starts_with("+-")) number.erase(0, 1);
  char* end = nullptr;
  const double value = std::strtod(number.c_str(), &end);
  const bool is_number = !number.empty() && end == number.c_str() + number.size() && std::abs(value) <= most;
  return is_number ? std::optional(value) : std::nullopt;
}

std::optional<NumberRange> read_range(std::string_view text) {
  NumberRange range;
  const char* const end = text.data() + text.size();
  auto [stop, error] = std::from_chars(text.data(), end, range.least);
  if (error != std::errc() || range.least < 0) return std::nullopt;
  range.most = range.least;
  if (stop != end && *stop == '-') {
    const auto second = std::from_chars(stop + 1, end, range.most);
    stop = second.ptr;
    error = second.ec;
  }
  const bool is_range = error == std::errc() && stop == end && range.most >= range.least;
  return is_range ? std::optional(range) : std::nullopt;
}

}  // namespace pedigreewatch
