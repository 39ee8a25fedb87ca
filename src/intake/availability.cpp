// The candidates are found by their headings and by their first texts, then read whole; each different text is judged
// once.

#include "intake/availability.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <utility>

#include "intake/animal_lines.h"
#include "intake/heading_words.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view all_others = "all";

/// What a text means in its column.
enum class Whereabouts : std::uint8_t { unknown, here, gone };

/// Whether nobody knows what a column without a place in the data file holds.
bool is_open(const ColumnChoice& columns, std::size_t place) {
  if (!columns.has_header) return true;
  const HeadingMeaning meaning = read_heading(columns.headings[place]);
  return !meaning.is_understood && !meaning.names_young;
}

void add_wished_columns(const PrepareOptions& options, const ColumnChoice& columns, AvailabilitySurvey& survey) {
  for (const std::string& wish : options.availability.names) {
    const std::vector<std::size_t> found = find_columns(wish, columns);
    if (found.empty()) {
      const std::int64_t count = std::ssize(columns.headings);
      survey.questions.push_back(
          {QuestionKind::no_such_availability, {wish, count}, Setting::availability, unused_column, {{"none", {}}}});
    }
    for (const std::size_t place : found) {
      AvailabilityColumn column = {place, read_availability_heading(columns.headings[place]), true, {}, {}};
      // Who names a column of an unknown heading means one that says who has gone.
      if (column.heading == AvailabilityHeading::none) column.heading = AvailabilityHeading::gone;
      survey.columns.push_back(std::move(column));
    }
  }
}

/// Whether some of the first texts of a column are words for animals that have gone.
std::vector<bool> find_gone_words(std::string_view text, char delimiter, const ColumnChoice& columns,
                                  const std::vector<bool>& are_open) {
  constexpr std::int64_t judged_records = 2000;
  std::vector<bool> has_words(are_open.size());
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  for (std::int64_t count = 0; count < judged_records && next_animal(reader, record, columns); ++count) {
    for (std::size_t k = 0; k < std::min(are_open.size(), record.fields.size()); ++k) {
      if (!are_open[k] || has_words[k]) continue;
      has_words[k] = read_availability(trimmed(record.fields[k]), 0) == AvailabilityText::gone;
    }
  }
  return has_words;
}

void add_likely_columns(std::string_view text, char delimiter, const ColumnChoice& columns,
                        AvailabilitySurvey& survey) {
  std::vector<bool> are_open(columns.headings.size());
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    if (holds_field(columns, place)) continue;
    const AvailabilityHeading heading =
        columns.has_header ? read_availability_heading(columns.headings[place]) : AvailabilityHeading::none;
    if (heading != AvailabilityHeading::none) survey.columns.push_back({place, heading, false, {}, {}});
    are_open[place] = heading == AvailabilityHeading::none && is_open(columns, place);
  }
  const std::vector<bool> has_words = find_gone_words(text, delimiter, columns, are_open);
  for (std::size_t place = 0; place < has_words.size(); ++place) {
    if (has_words[place]) survey.columns.push_back({place, AvailabilityHeading::none, false, {}, {}});
  }
}

void count_texts(std::string_view text, char delimiter, const ColumnChoice& columns, std::int32_t this_year,
                 AvailabilitySurvey& survey) {
  RecordReader reader = read_animals(text, delimiter, columns);
  ExportRecord record;
  while (next_animal(reader, record, columns)) {
    for (AvailabilityColumn& column : survey.columns) {
      const bool is_there = column.place < record.fields.size();
      count_text(column.texts, is_there ? trimmed(record.fields[column.place]) : std::string_view(), record.line);
    }
  }
  for (AvailabilityColumn& column : survey.columns) {
    for (const CountedText& entry : column.texts.texts) column.says.push_back(read_availability(entry.text, this_year));
  }
}

/// How many animals have a text of each kind.
struct TextTally {
  std::array<std::int64_t, static_cast<std::size_t>(AvailabilityText::other) + 1> counts = {};

  std::int64_t of(AvailabilityText text) const { return counts[static_cast<std::size_t>(text)]; }
  std::int64_t all() const { return std::accumulate(counts.begin(), counts.end(), std::int64_t{0}); }
};

TextTally tally(const AvailabilityColumn& column) {
  TextTally result;
  for (std::size_t k = 0; k < column.says.size(); ++k) {
    result.counts[static_cast<std::size_t>(column.says[k])] += column.texts.texts[k].count;
  }
  return result;
}

/// What a text of this kind says in a column of this heading.
Whereabouts meaning_in(AvailabilityHeading heading, AvailabilityText text) {
  const bool is_about_gone = heading == AvailabilityHeading::gone, is_about_here = heading == AvailabilityHeading::here;
  if (heading == AvailabilityHeading::reason) {
    const bool is_none = text == AvailabilityText::nothing || text == AvailabilityText::no;
    return is_none || text == AvailabilityText::here ? Whereabouts::here : Whereabouts::gone;
  }
  switch (text) {
    case AvailabilityText::gone: return Whereabouts::gone;
    case AvailabilityText::here: return Whereabouts::here;
    case AvailabilityText::date: return is_about_gone ? Whereabouts::gone : Whereabouts::unknown;
    case AvailabilityText::yes:
      if (is_about_here) return Whereabouts::here;
      return is_about_gone ? Whereabouts::gone : Whereabouts::unknown;
    case AvailabilityText::no:
      if (is_about_here) return Whereabouts::gone;
      return is_about_gone ? Whereabouts::here : Whereabouts::unknown;
    case AvailabilityText::nothing: return Whereabouts::here;
    case AvailabilityText::mixed:
    case AvailabilityText::other: break;
  }
  return Whereabouts::unknown;
}

/// Whether a column of ticks names those that are there, and leaves all others empty.
bool is_of_ticks(AvailabilityHeading heading, const TextTally& texts) {
  return heading == AvailabilityHeading::here && texts.of(AvailabilityText::no) == 0 &&
         texts.of(AvailabilityText::gone) == 0 && texts.of(AvailabilityText::yes) > 0;
}

/// How many animals a column calls gone, and of how many it cannot be told.
struct ToldAnimals {
  std::int64_t gone = 0, unknown = 0, filled = 0;
};

ToldAnimals count_told(AvailabilityHeading heading, const TextTally& texts) {
  ToldAnimals told;
  for (std::size_t k = 0; k < texts.counts.size(); ++k) {
    const Whereabouts meaning = meaning_in(heading, static_cast<AvailabilityText>(k));
    told.gone += meaning == Whereabouts::gone ? texts.counts[k] : 0;
    told.unknown += meaning == Whereabouts::unknown ? texts.counts[k] : 0;
  }
  told.filled = texts.all() - texts.of(AvailabilityText::nothing);
  if (is_of_ticks(heading, texts)) told.gone += texts.of(AvailabilityText::nothing);
  return told;
}

/// Of a column that is open, some texts are: each is asked about. Where all are gone, or heading and texts do not
/// agree, it is asked whether the column counts.
enum class Verdict : std::uint8_t { unused, used, open, all_gone, unclear };

/// Whether the texts are the first letters of the alphabet, as classes of a herdbook are called.
bool are_classes(const AvailabilityColumn& column) {
  std::string letters;
  for (const CountedText& entry : column.texts.texts) {
    if (entry.text.size() > 1) return false;
    letters += entry.text;
  }
  std::sort(letters.begin(), letters.end());
  for (std::size_t k = 0; k < letters.size(); ++k) {
    if (letters[k] != static_cast<char>('A' + k)) return false;
  }
  return true;
}

/// Whether a column has so few texts as codes of states are.
bool holds_states(const AvailabilityColumn& column, const ToldAnimals& told) {
  const auto filled = std::count_if(column.texts.texts.begin(), column.texts.texts.end(),
                                    [](const CountedText& entry) { return !entry.text.empty(); });
  // A text that all animals have tells nothing.
  return column.texts.left_out == 0 && column.texts.texts.size() > 1 && !are_classes(column) &&
         static_cast<std::size_t>(filled) <= most_states && told.filled >= fewest_availability_texts;
}

Verdict judge(const AvailabilityColumn& column) {
  const TextTally texts = tally(column);
  const ToldAnimals told = count_told(column.heading, texts);
  const bool is_understood = told.filled > 0 && told.unknown * tolerated_odd_availability <= told.filled;
  if (is_understood && told.gone == texts.all() && column.heading != AvailabilityHeading::remarks) {
    return Verdict::all_gone;
  }
  const Verdict if_states = holds_states(column, told) ? Verdict::open : Verdict::unclear;
  switch (column.heading) {
    case AvailabilityHeading::gone:
      if (told.filled == 0) return Verdict::unused;
      return is_understood ? Verdict::used : if_states;
    case AvailabilityHeading::reason: return told.filled == 0 ? Verdict::unused : Verdict::used;
    case AvailabilityHeading::here:
      if (is_understood) return told.gone > 0 ? Verdict::used : Verdict::unused;
      return told.filled == told.unknown ? Verdict::unused : if_states;
    case AvailabilityHeading::status:
      if (is_understood) return told.gone > 0 ? Verdict::used : Verdict::unused;
      return told.gone == 0 && if_states == Verdict::unclear ? Verdict::unused : if_states;
    case AvailabilityHeading::remarks: return told.gone > 0 ? Verdict::used : Verdict::unused;
    case AvailabilityHeading::none: break;
  }
  const bool is_likely = is_understood && told.gone > 0 && told.filled >= fewest_availability_texts;
  return is_likely ? Verdict::unclear : Verdict::unused;
}

/// Whether a text is one of those that the user has said.
bool is_said(std::string_view text, std::span<const std::string> said) {
  const std::string word = folded(text);
  return std::any_of(said.begin(), said.end(), [&](const std::string& entry) {
    return entry == text || (!word.empty() && folded(entry) == word);
  });
}

bool says_all(std::span<const std::string> said) {
  return std::find(said.begin(), said.end(), all_others) != said.end();
}

/// What a text says in its column. What the user has said of it goes first.
Whereabouts whereabouts_of(const AvailabilityPlan& plan, const AvailabilityReading& reading, std::string_view text,
                           AvailabilityText says) {
  if (is_said(text, plan.said_gone)) return Whereabouts::gone;
  if (is_said(text, plan.said_here)) return Whereabouts::here;
  if (says == AvailabilityText::nothing && reading.is_blank_gone) return Whereabouts::gone;
  const Whereabouts meaning = meaning_in(reading.heading, says);
  if (meaning != Whereabouts::unknown || reading.heading == AvailabilityHeading::remarks) return meaning;
  if (says_all(plan.said_gone)) return Whereabouts::gone;
  return says_all(plan.said_here) ? Whereabouts::here : Whereabouts::unknown;
}

AvailabilityReading reading_of(const AvailabilityColumn& column, const AvailabilityPlan& plan) {
  AvailabilityReading reading;
  reading.place = column.place;
  reading.heading = column.heading;
  reading.is_blank_gone = is_of_ticks(column.heading, tally(column));
  reading.has_further_texts = column.texts.left_out > 0;
  for (std::size_t k = 0; k < column.says.size(); ++k) {
    const CountedText& entry = column.texts.texts[k];
    const Whereabouts meaning = whereabouts_of(plan, reading, entry.text, column.says[k]);
    const bool is_date = column.says[k] == AvailabilityText::date;
    // Remarks are about anything.
    const bool is_about = column.heading != AvailabilityHeading::remarks || column.says[k] == AvailabilityText::mixed;
    if (meaning == Whereabouts::unknown && is_about) reading.not_counted.insert(entry.text);
    if (meaning != Whereabouts::gone) continue;
    reading.gone.insert(entry.text);
    if (!is_date) reading.gone_by_words.insert(entry.text);
    reading.dated += is_date ? entry.count : 0;
  }
  return reading;
}

std::string numbers_of(std::span<const std::size_t> places) {
  std::string numbers;
  for (const std::size_t place : places) numbers += (numbers.empty() ? "" : ",") + std::to_string(place + 1);
  return numbers.empty() ? "none" : numbers;
}

/// Asks whether columns count of which that is not clear.
void ask_for_columns(QuestionKind kind, const AvailabilitySurvey& survey, std::span<const std::size_t> unclear,
                     const ColumnChoice& columns, const AvailabilityPlan& plan, std::vector<Question>& questions) {
  std::vector<std::size_t> sure;
  for (const AvailabilityReading& reading : plan.columns) sure.push_back(reading.place);
  std::vector<std::size_t> all = sure;
  all.insert(all.end(), unclear.begin(), unclear.end());
  std::sort(all.begin(), all.end());
  CountedList list;
  for (const AvailabilityColumn& column : survey.columns) {
    if (column.place != unclear.front()) continue;
    list = list_counted(column.texts, [](const CountedText& entry) { return !entry.text.empty(); });
  }
  const std::string with = numbers_of(all), without = numbers_of(sure);
  questions.push_back({kind,
                       {list_columns(unclear, columns), std::move(list), with, without},
                       Setting::availability,
                       unused_column,
                       {{with, "yes"}, {without, "no"}}});
}

/// Asks for the texts of a column that nobody knows, where they are more than a few.
void ask_for_texts(const AvailabilityColumn& column, const AvailabilityReading& reading, const ColumnChoice& columns,
                   std::vector<Question>& questions) {
  std::int64_t filled = 0, open = 0;
  for (std::size_t k = 0; k < column.says.size(); ++k) {
    const CountedText& entry = column.texts.texts[k];
    filled += column.says[k] != AvailabilityText::nothing ? entry.count : 0;
    open += reading.not_counted.contains(entry.text) ? entry.count : 0;
  }
  if (open * tolerated_odd_availability <= filled) return;
  const CountedList list =
      list_counted(column.texts, [&](const CountedText& entry) { return reading.not_counted.contains(entry.text); });
  Question question = {QuestionKind::gone_unclear,
                       {list_columns(std::span(&column.place, 1), columns), list},
                       Setting::gone,
                       unused_column,
                       {}};
  for (const CountedText& entry : list.texts) question.answers.push_back({entry.text, entry.text});
  question.answers.push_back({std::string(all_others), {}, Setting::present});
  questions.push_back(std::move(question));
}

void find_castrated(const TextCounts& sexes, AvailabilityPlan& plan) {
  for (const CountedText& entry : sexes.texts) {
    if (names_castrated(entry.text) && !is_said(entry.text, plan.said_here)) plan.castrated.insert(entry.text);
  }
}

}  // namespace

AvailabilitySurvey survey_availability(std::string_view text, char delimiter, const ColumnChoice& columns,
                                       const PrepareOptions& options) {
  AvailabilitySurvey survey;
  if (options.availability.is_given) {
    add_wished_columns(options, columns, survey);
  } else {
    add_likely_columns(text, delimiter, columns, survey);
  }
  if (!survey.columns.empty()) count_texts(text, delimiter, columns, options.this_year, survey);
  return survey;
}

std::optional<GoneBy> gone_by(const AvailabilityPlan& plan, const ExportRecord& record, const ColumnChoice& columns) {
  if (!plan.castrated.empty()) {
    const std::string_view sex = trimmed(field_of(record, columns, sex_column));
    if (plan.castrated.contains(std::string(sex))) return GoneBy{*columns.place[sex_column], sex};
  }
  for (const AvailabilityReading& reading : plan.columns) {
    const bool is_there = reading.place < record.fields.size();
    const std::string_view text = is_there ? trimmed(record.fields[reading.place]) : std::string_view();
    const bool is_gone =
        text.empty()
            ? reading.is_blank_gone
            : reading.gone.contains(std::string(text)) ||
                  (reading.has_further_texts &&
                   whereabouts_of(plan, reading, text, read_availability(text, plan.this_year)) == Whereabouts::gone);
    if (is_gone) return GoneBy{reading.place, text};
  }
  return std::nullopt;
}

void add_gone(AvailableIds& ids, std::string id, const GoneBy& by, const ColumnChoice& columns) {
  ids.gone.push_back(std::move(id));
  if (!ids.keeps_reasons) return;
  std::string reason = columns.has_header ? columns.headings[by.place] : std::string();
  if (!reason.empty() && !by.text.empty()) reason += ": ";
  reason += by.text;
  const auto [place, is_new] = ids.reason_places.try_emplace(reason, static_cast<std::int32_t>(ids.reasons.size()));
  if (is_new) ids.reasons.push_back(std::move(reason));
  ids.reason_of_gone.push_back(place->second);
}

AvailabilityPlan plan_availability(const AvailabilitySurvey& survey, const TextCounts& sexes,
                                   const ColumnChoice& columns, const PrepareOptions& options,
                                   std::vector<Question>& questions) {
  AvailabilityPlan plan;
  plan.said_gone = options.gone;
  plan.said_here = options.present;
  plan.this_year = options.this_year;
  questions.insert(questions.end(), survey.questions.begin(), survey.questions.end());
  std::vector<std::size_t> unclear, all_gone;
  for (const AvailabilityColumn& column : survey.columns) {
    const Verdict verdict = column.is_wished ? Verdict::used : judge(column);
    if (verdict == Verdict::unclear) unclear.push_back(column.place);
    if (verdict == Verdict::all_gone) all_gone.push_back(column.place);
    if (verdict != Verdict::used && verdict != Verdict::open) continue;
    AvailabilityReading reading = reading_of(column, plan);
    const bool is_free_text = column.heading == AvailabilityHeading::remarks;
    const bool is_asked_about = (column.is_wished && !is_free_text) || verdict == Verdict::open;
    if (is_asked_about) ask_for_texts(column, reading, columns, questions);
    // States of which the user says that none means gone.
    const bool tells_nothing = verdict == Verdict::open && reading.gone.empty() && reading.not_counted.empty();
    if (!tells_nothing) plan.columns.push_back(std::move(reading));
  }
  if (!unclear.empty()) {
    ask_for_columns(QuestionKind::availability_unclear, survey, unclear, columns, plan, questions);
  } else if (!all_gone.empty()) {
    ask_for_columns(QuestionKind::availability_all_gone, survey, all_gone, columns, plan, questions);
  }
  find_castrated(sexes, plan);
  return plan;
}

std::string text_of_available(AvailableIds& ids) {
  std::unordered_set<std::string_view> gone(ids.gone.begin(), ids.gone.end(), ids.gone.size());
  std::erase_if(ids.ids, [&](const std::string& id) { return id.empty() || gone.contains(id); });
  std::string text;
  for (const std::string& id : ids.ids) text += id + "\n";
  return text;
}

}  // namespace pedigreewatch
