#include "desk/export_answer.h"

#include <algorithm>
#include <span>
#include <utility>

#include "checks/readable_text.h"
#include "desk/export_words.h"
#include "desk/json_text.h"
#include "desk/settings_text.h"
#include "intake/column_recognition.h"
#include "intake/export_remarks.h"
#include "intake/prepared_file.h"
#include "intake/species_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t most_texts = 2000;  ///< of a list that somebody looks through
constexpr std::size_t most_states_shown = 50;

// --- What is said: questions with their answers, and the evidence ---

void add_question(JsonText& json, const Question& question, ToolLanguage language) {
  begin_object(json);
  add_text(json, "text", question_text(question, language));
  add_text(json, "setting", setting_name(question.setting, question.field));
  begin_list(json, "answers");
  for (const Answer& answer : question.answers) {
    begin_object(json);
    add_text(json, "value", answer.value);
    add_text(json, "text", answer_text(question, answer, language));
    if (answer.setting != Setting::none) add_text(json, "setting", setting_name(answer.setting, question.field));
    end_object(json);
  }
  end_list(json);
  end_object(json);
}

void add_questions(JsonText& json, std::span<const Question> questions, ToolLanguage language) {
  begin_list(json, "questions");
  for (const Question& question : questions) add_question(json, question, language);
  end_list(json);
}

void add_evidence(JsonText& json, const Desk& desk) {
  begin_list(json, "evidence");
  for (const EvidenceLine& line : evidence_lines(remarks_on(desk.preparation, desk.options), desk.language)) {
    begin_object(json);
    add_text(json, "label", line.label);
    add_text(json, "text", line.text);
    end_object(json);
  }
  end_list(json);
}

// --- The first lines ---

constexpr std::size_t most_columns = 80;

void add_first_lines(JsonText& json, const Preparation& read) {
  constexpr int most_lines = 12;
  RecordReader reader = read_animals(read.text, read.reading.delimiter, read.columns);
  ExportRecord record;
  begin_list(json, "lines");
  for (int count = 0; count < most_lines && next_filled_record(reader, record); ++count) {
    begin_list(json);
    for (std::size_t k = 0; k < std::min(record.fields.size(), most_columns); ++k) {
      add_text(json, shown(trimmed(record.fields[k])));
    }
    end_list(json);
  }
  end_list(json);
}

constexpr std::string_view availability_name = "availability";
constexpr Wording availability_words = {"who has gone", "welke dieren weg zijn"};

bool is_availability(const AvailabilityPlan& plan, std::size_t place) {
  return std::any_of(plan.columns.begin(), plan.columns.end(),
                     [&](const AvailabilityReading& reading) { return reading.place == place; });
}

void add_fields(JsonText& json, ToolLanguage language) {
  const auto add = [&](std::string_view name, std::string_view description, bool is_needed) {
    begin_object(json);
    add_text(json, "name", name);
    add_text(json, "description", description);
    add_logical(json, "isRequired", is_needed);
    end_object(json);
  };
  begin_list(json, "fields");
  for (const FieldCode code : written_fields())
    add(option_name_of(code), description_of(code, language), is_required(code));
  add(availability_name, words_of(availability_words, language), false);
  end_list(json);
}

void add_columns(JsonText& json, const Preparation& read, ToolLanguage language) {
  const ColumnChoice& columns = read.columns;
  const std::size_t count = std::min(columns.headings.size(), most_columns);
  begin_list(json, "headings");
  for (std::size_t k = 0; k < count; ++k) add_text(json, shown(columns.headings[k]));
  end_list(json);
  begin_list(json, "columns");
  for (std::size_t k = 0; k < count; ++k) {
    const auto* const found = std::find(columns.place.begin(), columns.place.end(), k);
    const auto code = static_cast<FieldCode>(found - columns.place.begin());
    const bool tells_gone_too = found == columns.place.end() && is_availability(read.plan.availability, k);
    add_text(json, tells_gone_too                 ? availability_name
                   : found == columns.place.end() ? std::string_view()
                                                  : option_name_of(code));
  }
  end_list(json);
  add_fields(json, language);
}

// --- What can be chosen ---

bool is_listed(std::string_view text, FieldCode code, const std::vector<std::string>& names) {
  std::string written;
  LetterCounts ignored;
  append_field_text(written, text, code, ignored);
  return std::find(names.begin(), names.end(), written) != names.end();
}

void add_names(JsonText& json, std::string_view name, const TextCounts& counts, FieldCode code,
               const std::vector<std::string>& names) {
  begin_list(json, name);
  std::size_t count = 0;
  for (const CountedText* entry : by_frequency(counts)) {
    if (count++ == most_texts) break;
    begin_object(json);
    add_integer(json, "place", static_cast<std::int64_t>(find_counted(counts, entry->text)));
    add_text(json, "text", shown(entry->text));
    add_integer(json, "count", entry->count);
    add_logical(json, "isListed", is_listed(entry->text, code, names));
    end_object(json);
  }
  end_list(json);
}

void add_sexes(JsonText& json, const Preparation& read) {
  constexpr std::size_t most_sexes = 50;
  begin_list(json, "sexes");
  const std::size_t count = std::min(read.survey.sexes.texts.size(), most_sexes);
  for (std::size_t k = 0; k < count; ++k) {
    const SexMeaning meaning = read.plan.sexes[k];
    begin_object(json);
    add_text(json, "text", read.survey.sexes.texts[k].text);
    add_integer(json, "count", read.survey.sexes.texts[k].count);
    add_text(json, "meaning",
             meaning == SexMeaning::male ? "male" : (meaning == SexMeaning::female ? "female" : "unknown"));
    end_object(json);
  }
  end_list(json);
}

void add_unknown_parents(JsonText& json, const Preparation& read) {
  begin_list(json, "unknownParents");
  for (const CountedText* entry : by_frequency(read.survey.unknown_parents)) {
    begin_object(json);
    add_text(json, "text", entry->text);
    add_integer(json, "count", entry->count);
    add_logical(json, "isUnknown", is_unknown_parent(read.plan, entry->text));
    end_object(json);
  }
  end_list(json);
}

/// The sheets of a workbook, and the one that was read; none of a text.
void add_sheets(JsonText& json, const ReadingEvidence& reading) {
  begin_list(json, "sheets");
  for (const std::string& name : reading.sheet_names) add_text(json, name);
  end_list(json);
  add_text(json, "sheet", reading.sheet ? reading.sheet->sheet : std::string());
}

void add_date_order(JsonText& json, DateOrder order, std::int64_t count, ToolLanguage language) {
  begin_object(json);
  add_text(json, "layout", layout_text(order, language == ToolLanguage::dutch));
  add_integer(json, "count", count);
  end_object(json);
}

void add_dates(JsonText& json, const DateSurvey& survey, const DatePlan& dates, ToolLanguage language) {
  begin_object(json, "dates");
  add_logical(json, "isAmbiguous", dates.is_ambiguous);
  add_logical(json, "hasShortYears", survey.short_dates.noted.count > 0);
  add_logical(json, "hasSerials", survey.serials.noted.count > 0);
  add_text(json, "written", layout_text(dates.written, language == ToolLanguage::dutch));
  begin_list(json, "orders");
  if (dates.is_ambiguous) {
    add_date_order(json, dates.first_order, dates.first_count, language);
    add_date_order(json, dates.second_order, dates.second_count, language);
  }
  end_list(json);
  end_object(json);
}

/// The columns that tell, or may tell, which animals have gone: each text with its number, and whether it says so.
void add_availability(JsonText& json, const Preparation& read) {
  begin_list(json, "availability");
  for (const AvailabilityColumn& column : read.survey.availability.columns) {
    const auto& readings = read.plan.availability.columns;
    const auto reading = std::find_if(readings.begin(), readings.end(),
                                      [&](const AvailabilityReading& entry) { return entry.place == column.place; });
    const bool is_used = reading != readings.end();
    begin_object(json);
    add_integer(json, "column", static_cast<std::int64_t>(column.place) + 1);
    add_text(json, "heading", shown(read.columns.headings[column.place]));
    add_logical(json, "isUsed", is_used);
    begin_list(json, "texts");
    std::size_t count = 0;
    for (const CountedText* entry : by_frequency(column.texts)) {
      if (count++ == most_states_shown) break;
      begin_object(json);
      add_text(json, "text", entry->text);
      add_integer(json, "count", entry->count);
      add_logical(json, "isGone", is_used && reading->gone.contains(entry->text));
      end_object(json);
    }
    end_list(json);
    end_object(json);
  }
  end_list(json);
}

void add_species(JsonText& json, const Desk& desk) {
  add_text(json, "species", desk.preparation.plan.species);
  begin_list(json, "allSpecies");
  for (const std::string_view word : list_species(desk.options.language)) add_text(json, word);
  end_list(json);
}

void add_choices(JsonText& json, const Desk& desk) {
  const Preparation& read = desk.preparation;
  add_sexes(json, read);
  add_unknown_parents(json, read);
  add_availability(json, read);
  add_names(json, "subpopulations", read.survey.subpopulations, subpopulation_column, read.plan.subpopulations);
  add_names(json, "colours", read.survey.colours, colour_column, read.plan.colours);
  add_dates(json, read.survey.dates, read.plan.dates, desk.options.language);
  add_species(json, desk);
  add_text(json, "name", decode(read.plan.population_name, Encoding::windows_1252).text);
}

}  // namespace

PreparePlan plan_of_report(const Desk& desk) {
  PrepareOptions options = desk.options;
  options.language = options_from(desk.settings, {}).language;
  return plan_preparation(desk.preparation.survey, desk.preparation.columns, options);
}

std::string export_answer(const Desk& desk, const std::optional<Refusal>& refusal) {
  const Preparation& read = desk.preparation;
  JsonText json;
  begin_object(json);
  add_texts(json, "messages", refusal ? refusal_texts(*refusal, desk.language) : std::vector<std::string>());
  add_questions(json, read.plan.questions, desk.language);
  add_evidence(json, desk);
  add_sheets(json, read.reading);
  add_text(json, "encoding", name_of(read.reading.used_encoding));
  add_text(json, "delimiter", std::string_view(&read.reading.delimiter, 1));
  add_logical(json, "hasHeader", read.columns.has_header);
  add_integer(json, "animals", read.survey.animal_count);
  add_columns(json, read, desk.language);
  add_first_lines(json, read);
  add_choices(json, desk);
  const PreparePlan written = plan_of_report(desk);
  add_text(json, "steer", written.questions.empty() ? readable(steer_text(written)) : std::string());
  add_text(json, "dataName", written.stem + ".txt");
  add_text(json, "availableName", tells_gone(written.availability) ? written.stem + "_available.txt" : std::string());
  const std::string answers = answers_text(kept_options(desk.options, read.survey), read.plan.columns);
  if (!answers.empty()) add_text(json, "answers", answers);
  end_object(json);
  return std::move(json.text);
}

}  // namespace pedigreewatch
