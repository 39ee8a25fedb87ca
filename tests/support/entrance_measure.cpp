// Runs `prepare` on one export until it writes or asks nothing new, and compares what it wrote by the ids.

#include "support/entrance_measure.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <utility>

#include "core/tool_streams.h"
#include "pedigree/birth_date.h"
#include "support/lines.h"
#include "text/windows_1252.h"
#include "tools/prepare_command.h"

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, asked_field_count> field_names = {
    "id", "sire", "dam", "sex", "birthdate", "name", "colour", "breeder", "subpopulation", "import"};

constexpr std::string_view export_name = "herd.csv";

struct PrepareRun {
  int status = 0;
  std::string said, messages;
};

PrepareRun run_prepare_in(const std::string& folder, const std::vector<std::string>& options) {
  std::vector<std::string> all = options;
  all.insert(all.end(), {"--force", "--out", folder, folder + "/" + std::string(export_name)});
  const std::vector<std::string_view> arguments(all.begin(), all.end());
  ToolStreams streams;
  PrepareRun run;
  run.status = run_prepare(arguments, streams);
  run.said = std::move(streams.console.pending);
  run.messages = std::move(streams.messages.pending);
  return run;
}

std::string file_bytes(const fs::path& name) {
  std::ifstream file(name, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return std::move(bytes).str();
}

std::vector<std::string> cut(const std::string& line, char delimiter) {
  std::vector<std::string> fields(1);
  for (const char byte : line) {
    if (byte == delimiter) {
      fields.emplace_back();
    } else {
      fields.back().push_back(byte);
    }
  }
  return fields;
}

/// A prepared data file: the place of each field, and the lines by id.
struct PreparedData {
  std::map<std::string, std::size_t> places;
  std::vector<std::vector<std::string>> rows;
  std::string layout;
};

/// The fields by their codes where the steer file lists them instead of a header.
std::map<std::string, std::size_t> places_by_codes(const std::string& codes) {
  const std::map<int, std::string> names = {{1, "id"},   {2, "sire"}, {3, "dam"},
                                            {4, "name"}, {7, "sex"},  {8, "birthdate"}};
  std::map<std::string, std::size_t> places;
  std::istringstream numbers(codes);
  int count = 0, code = 0;
  numbers >> count;
  for (std::size_t place = 0; numbers >> code; ++place) {
    if (const auto found = names.find(code); found != names.end()) places[found->second] = place;
  }
  return places;
}

PreparedData read_prepared(const std::string& data, const std::string& steer) {
  PreparedData result;
  const std::vector<std::string> settings = lines_of(steer);
  std::vector<std::string> lines = lines_of(data);
  if (settings.size() < 9 || lines.empty()) return result;
  const char delimiter = settings[2].empty() ? '\t' : settings[2].front();
  result.layout = settings[4];
  const bool has_header = settings[8] == "y";
  if (has_header) {
    const std::vector<std::string> words = cut(lines.front(), delimiter);
    for (std::size_t i = 0; i < words.size(); ++i) result.places[words[i]] = i;
    lines.erase(lines.begin());
  } else if (settings.size() > 12) {
    result.places = places_by_codes(settings[12]);
    if (lines.back().empty()) lines.pop_back();
  }
  for (const std::string& line : lines) result.rows.push_back(cut(line, delimiter));
  return result;
}

/// Year, month and day as a run reads them from the data file; -1 for a date that it refuses.
std::array<int, 3> date_parts(const std::string& text, const std::string& layout) {
  BirthDate date;
  if (!cut_birth_date(text, date_layout_of(layout), date)) return {-1, -1, -1};
  const bool has_month = date.month >= 1 && date.month <= 12, has_day = date.day >= 1 && date.day <= 31;
  return {date.year, has_month ? date.month : 0, has_month && has_day ? date.day : 0};
}

std::string field_of(const PreparedData& data, const std::vector<std::string>& row, const std::string& field) {
  const auto found = data.places.find(field);
  return found == data.places.end() || found->second >= row.size() ? "" : row[found->second];
}

std::string difference(std::string_view field, const ForeignAnimal& animal, const std::string& is,
                       const std::string& should_be) {
  return std::string(field) + " of " + animal.id + ": \"" + is + "\" instead of \"" + should_be + "\"";
}

/// The data file may know less of a parent than nothing: it writes unknown ones as empty or as 0.
bool is_same_parent(const std::string& written, const std::string& id) {
  return written == id || (id.empty() && written == "0");
}

std::string animal_difference(const PreparedData& data, const std::vector<std::string>& row,
                              const ForeignAnimal& animal, const std::set<std::string>& spoilt) {
  const std::string sire = field_of(data, row, "sire"), dam = field_of(data, row, "dam");
  // A parent whose line is spoilt cannot be found under another writing of its id.
  if (!spoilt.contains(animal.sire) && !is_same_parent(sire, animal.sire)) {
    return difference("sire", animal, sire, animal.sire);
  }
  if (!spoilt.contains(animal.dam) && !is_same_parent(dam, animal.dam))
    return difference("dam", animal, dam, animal.dam);
  const std::string sex = field_of(data, row, "sex"), true_sex = animal.is_male ? "m" : "f";
  // A sex that the export leaves open may have been concluded from the young.
  if (sex != true_sex && (animal.has_sex || !sex.empty())) return difference("sex", animal, sex, true_sex);
  const std::string date = field_of(data, row, "birthdate");
  if (date_parts(date, data.layout) != std::array<int, 3>{animal.year, animal.month, animal.day}) {
    const std::string true_date =
        std::to_string(animal.year) + "-" + std::to_string(animal.month) + "-" + std::to_string(animal.day);
    return difference("birth date", animal, date, true_date);
  }
  return {};
}

bool has_other_names(const PreparedData& data, const ForeignExport& office_export) {
  if (!data.places.contains("name")) return false;
  std::map<std::string, std::string> names;
  for (const auto& row : data.rows) names[field_of(data, row, "id")] = field_of(data, row, "name");
  return std::any_of(office_export.truth.animals.begin(), office_export.truth.animals.end(),
                     [&](const ForeignAnimal& animal) {
                       std::string name;
                       LetterCounts ignored;
                       append_windows_1252(name, animal.name, ignored);
                       const auto found = names.find(animal.id);
                       return !animal.is_spoilt && found != names.end() && found->second != name;
                     });
}

/// Whether that number stands in the text as a number of its own.
bool says_number(std::string_view text, int number) {
  const std::string digits = std::to_string(number);
  const auto is_digit = [&](std::size_t place) {
    return place < text.size() && std::isdigit(static_cast<unsigned char>(text[place])) != 0;
  };
  for (std::size_t at = text.find(digits); at != std::string_view::npos; at = text.find(digits, at + 1)) {
    if ((at == 0 || !is_digit(at - 1)) && !is_digit(at + digits.size())) return true;
  }
  return false;
}

void count_told_lines(const PrepareRun& run, const ExportTruth& truth, EntranceResult& result) {
  std::vector<int> lines = truth.remark_lines;
  lines.insert(lines.end(), truth.header_lines.begin(), truth.header_lines.end());
  for (const ForeignAnimal& animal : truth.animals) {
    if (animal.is_spoilt) lines.push_back(animal.line);
  }
  const std::string said = run.said + run.messages;
  result.lines_to_tell = static_cast<int>(lines.size());
  result.told_lines =
      static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](int line) { return says_number(said, line); }));
}

/// Answers what is asked for the first time. Yields false when there is nothing new to say.
bool add_answers(const PrepareRun& run, const ExportTruth& truth, EntranceResult& result,
                 std::vector<std::string>& options) {
  bool has_answered = false;
  for (const std::string& option : options_named(run.messages)) {
    if (std::find(result.asked.begin(), result.asked.end(), option) != result.asked.end()) continue;
    const std::vector<std::string> answer = answer_to(option, truth);
    if (answer.empty()) continue;
    result.asked.push_back(option);
    options.insert(options.end(), answer.begin(), answer.end());
    has_answered = true;
  }
  return has_answered;
}

/// A program that takes one word a sex is told the usual one.
void keep_one_word_a_sex(std::vector<std::string>& options) {
  std::vector<std::string> kept, seen;
  for (std::size_t i = 0; i < options.size(); i += 2) {
    const bool is_sex = options[i] == "--male" || options[i] == "--female";
    if (is_sex && std::find(seen.begin(), seen.end(), options[i]) != seen.end()) continue;
    seen.push_back(options[i]);
    kept.insert(kept.end(), {options[i], options[i + 1]});
  }
  options = std::move(kept);
}

std::vector<std::string> repeated(std::string_view option, const std::vector<std::string>& values) {
  std::vector<std::string> arguments;
  for (const std::string& value : values) arguments.insert(arguments.end(), {std::string(option), value});
  return arguments;
}

}  // namespace

std::string_view name_of(EntranceOutcome outcome) {
  static constexpr std::array<std::string_view, static_cast<std::size_t>(EntranceOutcome::count)> names = {
      "right without a question", "right after answers", "WRONG without a question", "WRONG after answers", "refused"};
  return names[static_cast<std::size_t>(outcome)];
}

std::vector<std::string> options_named(std::string_view messages) {
  std::vector<std::string> options;
  const auto is_part = [](char byte) { return (byte >= 'a' && byte <= 'z') || byte == '-'; };
  for (std::size_t at = messages.find("--"); at != std::string_view::npos; at = messages.find("--", at + 1)) {
    std::size_t end = at;
    while (end < messages.size() && is_part(messages[end])) ++end;
    std::string option(messages.substr(at, end - at));
    if (option == "--column" && end < messages.size()) {
      const std::size_t sign = std::min(messages.find('=', end), messages.size());
      option += " " + std::string(messages.substr(end + 1, sign - end - 1));
    }
    if (option.size() > 2 && std::find(options.begin(), options.end(), option) == options.end()) {
      options.push_back(std::move(option));
    }
    at = end - 1;
  }
  return options;
}

std::vector<std::string> answer_to(std::string_view option, const ExportTruth& truth) {
  for (std::size_t i = 0; i < field_names.size(); ++i) {
    if (option != "--column " + std::string(field_names[i])) continue;
    const std::string column = truth.columns[i] == 0 ? "none" : std::to_string(truth.columns[i]);
    return {"--column", std::string(field_names[i]) + "=" + column};
  }
  if (option == "--male") return repeated(option, truth.male);
  if (option == "--female") return repeated(option, truth.female);
  if (option == "--unknown") return repeated(option, truth.unknown);
  const std::array<std::pair<std::string_view, std::string>, 11> values = {
      {{"--known", "all"},
       {"--delimiter", truth.delimiter},
       {"--encoding", truth.encoding},
       {"--dates", truth.dates},
       {"--century", truth.century},
       {"--young", truth.young},
       {"--ids", truth.ids},
       {"--availability", "none"},
       {"--header", truth.has_header ? "yes" : "no"},
       {"--subpopulations", "all"},
       {"--colours", "all"}}};
  for (const auto& [name, value] : values) {
    if (name == option && !value.empty()) return {std::string(name), value};
  }
  return {};
}

std::string first_difference(const std::string& data, const std::string& steer, const ForeignExport& office_export) {
  const PreparedData prepared = read_prepared(data, steer);
  // A spoilt line may have the id of another animal: one that is right stands beside it.
  std::multimap<std::string, const std::vector<std::string>*> rows;
  for (const auto& row : prepared.rows) rows.emplace(field_of(prepared, row, "id"), &row);
  const std::vector<std::string>& lost = office_export.truth.lost_ids;
  std::set<std::string> spoilt(lost.begin(), lost.end());
  for (const ForeignAnimal& animal : office_export.truth.animals) {
    if (animal.is_spoilt) spoilt.insert(animal.id);
  }
  for (const ForeignAnimal& animal : office_export.truth.animals) {
    if (animal.is_spoilt) continue;
    const auto [first, last] = rows.equal_range(animal.id);
    if (first == last) return "animal " + animal.id + " is not there";
    std::string found_difference = animal_difference(prepared, *first->second, animal, spoilt);
    const bool has_right_row = std::any_of(
        first, last, [&](const auto& row) { return animal_difference(prepared, *row.second, animal, spoilt).empty(); });
    if (!has_right_row) return found_difference;
  }
  const std::size_t animal_count = office_export.truth.animals.size();
  if (!office_export.is_spoilt && prepared.rows.size() != animal_count) {
    return std::to_string(prepared.rows.size()) + " animals instead of " + std::to_string(animal_count);
  }
  return {};
}

EntranceResult measure_entrance(const ForeignExport& office_export, const std::string& folder) {
  const std::string name = folder + "/" + std::string(export_name);
  fs::remove(folder + "/herd.answers");  // those of another export
  std::ofstream(name, std::ios::binary) << office_export.bytes;
  std::vector<std::string> options = {"--species", office_export.truth.species};
  EntranceResult result;
  PrepareRun run = run_prepare_in(folder, options);
  constexpr int most_rounds = 8;
  for (int round = 0; round < most_rounds && run.status == 1; ++round) {
    if (!add_answers(run, office_export.truth, result, options)) break;
    run = run_prepare_in(folder, options);
    if (run.status != 2) continue;
    keep_one_word_a_sex(options);
    run = run_prepare_in(folder, options);
  }
  count_told_lines(run, office_export.truth, result);
  if (run.status != 0) {
    result.why = run.messages;
    return result;
  }
  const std::string data = file_bytes(folder + "/herd.txt"), steer = file_bytes(folder + "/pedigreewatch.ini");
  result.why = first_difference(data, steer, office_export);
  result.has_wrong_names = has_other_names(read_prepared(data, steer), office_export);
  const bool is_right = result.why.empty(), was_asked = !result.asked.empty();
  if (is_right) result.outcome = was_asked ? EntranceOutcome::right_after_answers : EntranceOutcome::right;
  if (!is_right) result.outcome = was_asked ? EntranceOutcome::wrong_after_answers : EntranceOutcome::wrong;
  return result;
}

}  // namespace pedigreewatch::test
