// One option a line, its value behind a blank, in the words of the command line.

#include "intake/answers_file.h"

#include <algorithm>

#include "intake/export_options.h"
#include "intake/export_records.h"
#include "intake/sex_choice.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view headings_word = "headings:";

constexpr Wording explanation = {
    "# Answers about exports with these headings. `prepare` and the desk use them again when the same headings come.\n"
    "# One option a line, as on the command line. Lines may be changed, added and taken away.\n",
    "# Antwoorden over exports met deze koppen. `prepare` en de desk gebruiken ze weer als dezelfde koppen komen.\n"
    "# Een optie per regel, zoals op de opdrachtregel. Regels mogen veranderd, toegevoegd en weggehaald worden.\n"};

/// A line end would begin another option.
std::string on_one_line(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\r'; }, ' ');
  return line;
}

void add_line(std::string& text, std::string_view option, std::string_view value) {
  text += std::string(option) + " " + on_one_line(value) + "\n";
}

void add_lines(std::string& text, std::string_view option, std::span<const std::string> values) {
  for (const std::string& value : values) add_line(text, option, value);
}

/// The delimiter as the option takes it: a tab would be lost at the end of a line.
std::string word_of_delimiter(char delimiter) {
  if (delimiter == '\t') return "tab";
  return delimiter == ' ' ? "blank" : std::string(1, delimiter);
}

/// The heading of a column where no other one has it; its number otherwise, and where the heading would be read as
/// more.
std::string name_of_place(std::size_t place, const ColumnChoice& columns) {
  const std::string& heading = columns.headings[place];
  const bool is_number = heading.find_first_not_of("0123456789") == std::string::npos;
  const bool is_alone = std::count(columns.headings.begin(), columns.headings.end(), heading) == 1;
  const bool is_plain = heading.find(';') == std::string::npos && heading != "none";
  return is_alone && !is_number && is_plain ? heading : std::to_string(place + 1);
}

std::string name_of_column(const ColumnWish& wish, const ColumnChoice& columns) {
  const auto& place = columns.place[wish.code];
  if (wish.column == "none" || !place || !columns.has_header) return wish.column;
  return name_of_place(*place, columns);
}

/// The columns of the young, by their headings where these differ.
std::string text_of_young(const NameWish& young, const ColumnChoice& columns) {
  if (young.leaves_out) return "none";
  std::string list;
  for (const LineAnimal& animal : columns.animals_of_line) {
    const std::size_t place = animal.front().from;
    const std::string name = columns.has_header ? name_of_place(place, columns) : std::to_string(place + 1);
    list += (list.empty() ? "" : ";") + name;
  }
  return list;
}

/// The columns that tell which animals have gone, likewise.
std::string text_of_availability(const NameWish& wish, const ColumnChoice& columns) {
  std::string list;
  for (const std::string& name : wish.names) {
    for (const std::size_t place : find_columns(name, columns)) {
      const std::string shown = columns.has_header ? name_of_place(place, columns) : std::to_string(place + 1);
      list += (list.empty() ? "" : ";") + shown;
    }
  }
  return list.empty() ? "none" : list;
}

bool has_column(const std::string& column, std::span<const std::string> headings) {
  if (column == "none") return true;
  const bool is_number = column.find_first_not_of("0123456789") == std::string::npos;
  if (is_number && column.size() < 5) return std::stoul("0" + column) <= headings.size();
  const std::string word = folded(column);
  return std::any_of(headings.begin(), headings.end(), [&](const std::string& heading) {
    return heading == column || (!word.empty() && folded(heading) == word);
  });
}

/// Whether the export has all columns that a line names.
bool fits_headings(const AnswerLine& line, const PrepareOptions& said, std::span<const std::string> headings) {
  const auto is_there = [&](const std::string& column) { return has_column(column, headings); };
  if (line.option == "--column") return said.columns.empty() || is_there(said.columns.back().column);
  if (line.option != "--young" && line.option != "--availability") return true;
  const NameWish& wish = line.option == "--young" ? said.young : said.availability;
  return std::all_of(wish.names.begin(), wish.names.end(), is_there);
}

/// Takes the texts that `is_there` does not know out of a list, and notes the lines that say them.
template <typename IsThere>
void leave_out(std::string_view option, std::vector<std::string>& texts, SavedAnswers& answers, IsThere&& is_there) {
  for (const AnswerLine& line : answers.lines) {
    if (line.option != option || is_there(line.value)) continue;
    answers.unfit.push_back(line);
    std::erase(texts, line.value);
  }
}

/// Adds the columns of fields that the options do not name.
void add_columns(const PrepareOptions& said, PrepareOptions& options) {
  for (const ColumnWish& wish : said.columns) {
    const bool is_wished = std::any_of(options.columns.begin(), options.columns.end(),
                                       [&](const ColumnWish& entry) { return entry.code == wish.code; });
    if (!is_wished) options.columns.push_back(wish);
  }
}

void add_texts(const PrepareOptions& said, PrepareOptions& options) {
  for (const auto list :
       {&PrepareOptions::unknown, &PrepareOptions::known, &PrepareOptions::gone, &PrepareOptions::present}) {
    (options.*list).insert((options.*list).end(), (said.*list).begin(), (said.*list).end());
  }
}

/// Puts texts in the place of "all", where they are no more than people would look through.
void replace_all(std::vector<std::string>& said, std::vector<std::string> meant) {
  constexpr std::size_t most_kept = 100;
  const auto all = std::find(said.begin(), said.end(), "all");
  if (all == said.end() || meant.size() > most_kept) return;
  said.erase(all);
  for (std::string& text : meant) {
    if (!is_among(text, said)) said.push_back(std::move(text));
  }
}

/// Whether a text that is wished for a sex is this one, or the first letter of this one.
bool is_of_wish(const std::string& text, const std::string& wish) {
  const std::string wanted = folded(wish), word = folded(text);
  return text == wish || (wanted.size() == 1 ? word.starts_with(wanted) : !wanted.empty() && word == wanted);
}

/// Whether the parents with this sex in the export are of the other one.
bool do_parents_contradict(const ExportSurvey& survey, const std::string& wish, SexMeaning meaning) {
  const std::vector<SexVotes> votes = count_sex_votes(survey.links, survey.sexes.texts.size());
  for (std::size_t k = 0; k < votes.size(); ++k) {
    const SexMeaning by_parents = sex_of_parents(votes[k]);
    const bool is_other = by_parents != SexMeaning::unknown && by_parents != meaning;
    if (is_other && is_of_wish(survey.sexes.texts[k].text, wish)) return true;
  }
  return false;
}

}  // namespace

PrepareOptions kept_options(const PrepareOptions& options, const ExportSurvey& survey) {
  PrepareOptions kept = options;
  std::vector<std::string> parents, here;
  for (const DoubtfulParent& parent : survey.doubtful_parents) {
    if (!is_among(parent.text, options.unknown)) parents.push_back(parent.text);
  }
  for (const AvailabilityColumn& column : survey.availability.columns) {
    for (std::size_t k = 0; k < column.says.size(); ++k) {
      const bool is_open = column.says[k] == AvailabilityText::other || column.says[k] == AvailabilityText::mixed;
      const std::string& text = column.texts.texts[k].text;
      if (is_open && !is_among(text, options.gone)) here.push_back(text);
    }
  }
  replace_all(kept.known, std::move(parents));
  replace_all(kept.present, std::move(here));
  return kept;
}

std::string headings_text(std::span<const std::string> headings) {
  std::string text;
  for (const std::string& heading : headings) text += (text.empty() ? "" : " | ") + on_one_line(heading);
  return text;
}

SavedAnswers read_answers(std::string_view text) {
  SavedAnswers answers;
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == '#') continue;
    if (line.starts_with(headings_word)) {
      answers.headings = trimmed(line.substr(headings_word.size()));
      continue;
    }
    const std::size_t blank = std::min(line.find(' '), line.size());
    const AnswerLine answer = {number, std::string(line.substr(0, blank)), std::string(trimmed(line.substr(blank)))};
    PrepareOptions ignored;
    const bool is_read = is_about_export(answer.option) && !answer.value.empty() &&
                         read_export_option(answer.option, answer.value, ignored).empty();
    (is_read ? answers.lines : answers.unfit).push_back(answer);
  }
  return answers;
}

std::string answers_text(const PrepareOptions& options, const ColumnChoice& columns) {
  std::string text;
  if (!options.sheet.empty()) add_line(text, "--sheet", options.sheet);
  if (options.encoding) add_line(text, "--encoding", name_of(*options.encoding));
  if (options.delimiter) add_line(text, "--delimiter", word_of_delimiter(*options.delimiter));
  if (options.has_header) add_line(text, "--header", *options.has_header ? "yes" : "no");
  for (const ColumnWish& wish : options.columns) {
    add_line(text, "--column", std::string(option_name_of(wish.code)) + "=" + name_of_column(wish, columns));
  }
  if (options.young.is_given) add_line(text, "--young", text_of_young(options.young, columns));
  if (options.availability.is_given) {
    add_line(text, "--availability", text_of_availability(options.availability, columns));
  }
  add_lines(text, "--gone", options.gone);
  add_lines(text, "--present", options.present);
  if (options.dates) add_line(text, "--dates", layout_text(*options.dates, false));
  if (options.serials) {
    add_line(text, "--dates", *options.serials == DateSystem::since_1900 ? "serial-1900" : "serial-1904");
  }
  if (options.century) add_line(text, "--century", std::to_string(*options.century));
  if (options.ids) add_line(text, "--ids", name_of_rules(*options.ids));
  add_lines(text, "--male", options.male);
  add_lines(text, "--female", options.female);
  add_lines(text, "--unknown", options.unknown);
  add_lines(text, "--known", options.known);
  if (options.subpopulations.is_given) add_line(text, "--subpopulations", text_of_names(options.subpopulations));
  if (options.colours.is_given) add_line(text, "--colours", text_of_names(options.colours));
  if (!options.species.empty()) add_line(text, "--species", options.species);
  if (!options.population_name.empty()) add_line(text, "--name", options.population_name);
  if (options.is_language_said) {
    add_line(text, "--language", options.language == ToolLanguage::dutch ? "nl" : "en");
  }
  if (text.empty()) return text;
  return std::string(words_of(explanation, options.language)) + std::string(headings_word) +
         (columns.has_header ? " " + headings_text(columns.headings) : std::string()) + "\n" + text;
}

void add_answers(SavedAnswers& answers, std::span<const std::string> headings, PrepareOptions& options) {
  PrepareOptions said;
  for (const AnswerLine& line : answers.lines) {
    read_export_option(line.option, line.value, said);
    if (fits_headings(line, said, headings)) continue;
    if (line.option == "--column") said.columns.pop_back();
    if (line.option == "--young") said.young = {};
    if (line.option == "--availability") said.availability = {};
    answers.unfit.push_back(line);
  }
  add_columns(said, options);
  answers.give_sexes = options.male.empty() && options.female.empty();
  if (answers.give_sexes) {
    options.male = said.male;
    options.female = said.female;
  }
  add_texts(said, options);
  if (options.sheet.empty()) options.sheet = said.sheet;
  if (!options.encoding) options.encoding = said.encoding;
  if (!options.delimiter) options.delimiter = said.delimiter;
  if (!options.has_header) options.has_header = said.has_header;
  if (!options.dates && !options.serials) {
    options.dates = said.dates;
    options.serials = said.serials;
  }
  if (!options.century) options.century = said.century;
  if (!options.young.is_given) options.young = said.young;
  if (!options.availability.is_given) options.availability = said.availability;
  if (!options.ids) options.ids = said.ids;
  if (!options.subpopulations.is_given) options.subpopulations = said.subpopulations;
  if (!options.colours.is_given) options.colours = said.colours;
  if (options.species.empty()) options.species = said.species;
  if (options.population_name.empty()) options.population_name = said.population_name;
  if (!options.is_language_said && said.is_language_said) {
    options.language = said.language;
    options.is_language_said = true;
  }
}

void leave_out_unfit_answers(SavedAnswers& answers, const ExportSurvey& survey, PrepareOptions& options) {
  const auto is_sex = [&](SexMeaning meaning) {
    return [&survey, &answers, meaning](const std::string& wish) {
      const bool is_there = std::any_of(survey.sexes.texts.begin(), survey.sexes.texts.end(),
                                        [&](const CountedText& entry) { return is_of_wish(entry.text, wish); });
      return is_there && !(answers.give_sexes && do_parents_contradict(survey, wish, meaning));
    };
  };
  leave_out("--male", options.male, answers, is_sex(SexMeaning::male));
  leave_out("--female", options.female, answers, is_sex(SexMeaning::female));
  const auto stands_in_column = [&](const std::string& text) {
    const auto& columns = survey.availability.columns;
    return text == "all" || std::any_of(columns.begin(), columns.end(), [&](const AvailabilityColumn& column) {
             return find_counted(column.texts, text) != std::string_view::npos;
           });
  };
  leave_out("--gone", options.gone, answers, stands_in_column);
  leave_out("--present", options.present, answers, stands_in_column);
  leave_out("--unknown", options.unknown, answers, [&](const std::string& text) {
    return find_counted(survey.unknown_parents, text) != std::string_view::npos;
  });
}

}  // namespace pedigreewatch
