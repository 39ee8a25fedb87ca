#include "intake/date_questions.h"

#include <algorithm>
#include <string>
#include <utility>

namespace pedigreewatch {
namespace {

Question ask_for_order(const DatePlan& plan) {
  return {QuestionKind::dates_unclear,
          {plan.first_count, plan.first_order, plan.second_count, plan.second_order, plan.either_count},
          Setting::dates,
          unused_column,
          {{layout_text(plan.first_order, false), {}}, {layout_text(plan.second_order, false), {}}}};
}

/// The hundred years up to now, and those before them.
Question ask_for_century(const DateSurvey& dates, const PrepareOptions& options) {
  constexpr std::int32_t hundred = 100, usual_year = 2099;
  const std::int32_t last = options.this_year > 0 ? options.this_year : usual_year;
  Question question = {
      QuestionKind::century_unclear,
      {dates.short_dates.noted.count, dates.short_dates.noted, std::int64_t{last - hundred + 1}, std::int64_t{last}},
      Setting::century,
      unused_column,
      {}};
  for (const std::int32_t end : {last, last - hundred}) {
    const std::string first = std::to_string(end - hundred + 1);
    question.answers.push_back({first, first + "-" + std::to_string(end)});
  }
  return question;
}

Question ask_for_serials(const DateSurvey& dates) {
  const std::string& example = dates.serials.noted.first.front().text;
  const std::string since_1900 = day_of_serial(example, DateSystem::since_1900);
  const std::string since_1904 = day_of_serial(example, DateSystem::since_1904);
  return {QuestionKind::serials_unclear,
          {dates.serials.noted.count, example, since_1900, since_1904},
          Setting::serials,
          unused_column,
          {{"serial-1900", example + " = " + since_1900}, {"serial-1904", example + " = " + since_1904}}};
}

/// Texts of the column that are no dates, the first ones of each kind.
NotedTexts odd_dates(const DateSurvey& dates, const DatePlan& plan) {
  NotedTexts all;
  for (const NotedTexts* noted :
       {&dates.unreadable, &dates.odd_words, &dates.year_first.neither, &dates.year_last.neither,
        &unfit_compact(dates, plan), &unfit_short(dates, plan), &exchanged_year_first(dates, plan).impossible,
        &exchanged_year_last(dates, plan).impossible}) {
    all.count += noted->count;
    all.first.insert(all.first.end(), noted->first.begin(), noted->first.end());
  }
  std::stable_sort(all.first.begin(), all.first.end(),
                   [](const NotedText& a, const NotedText& b) { return a.line < b.line; });
  if (all.first.size() > most_noted_texts) all.first.resize(most_noted_texts);
  return all;
}

/// The user has looked at the dates when he names their column.
bool names_column(const PrepareOptions& options) {
  return std::any_of(options.columns.begin(), options.columns.end(),
                     [](const ColumnWish& wish) { return wish.code == birthdate_column; });
}

/// Every column that has no place yet: one of them may hold the dates.
std::vector<Answer> other_columns(const ColumnChoice& columns) {
  std::vector<Answer> answers;
  for (std::size_t place = 0; place < columns.headings.size(); ++place) {
    if (!holds_field(columns, place)) answers.push_back({std::to_string(place + 1), columns.headings[place]});
  }
  return answers;
}

/// Whether the column is the right one. Where none of its texts is a date, no answer makes it so.
void ask_for_column(const DateSurvey& dates, const DatePlan& plan, const ColumnChoice& columns,
                    const PrepareOptions& options, std::vector<Question>& questions) {
  const std::size_t place = *columns.place[birthdate_column];
  const DateCounts counts = count_dates(dates, plan);
  const ColumnList column = list_columns(std::span(&place, 1), columns);
  const std::vector<Answer> chosen = {{std::to_string(place + 1), columns.headings[place]}};
  const auto ask = [&](QuestionKind kind, Values values, std::vector<Answer> answers) {
    questions.push_back({kind, std::move(values), Setting::column, birthdate_column, std::move(answers)});
  };
  // Who says the order of the dates has seen some that are none, but not most of them.
  const std::int64_t tolerated = options.dates ? tolerated_in_wished_order : tolerated_odd_dates;
  const bool is_named = names_column(options);
  if (counts.all > 0 && counts.all == counts.not_understood) {
    ask(QuestionKind::dates_all_unread, {column, counts.all, odd_dates(dates, plan)}, other_columns(columns));
  } else if (counts.all == 0 && !is_named && !options.dates) {
    ask(QuestionKind::dates_absent, {column}, chosen);
  } else if (counts.not_understood * tolerated > counts.all && !is_named) {
    ask(QuestionKind::dates_not_understood, {column, counts.not_understood, counts.all, odd_dates(dates, plan)},
        chosen);
  }
}

}  // namespace

std::vector<Question> ask_for_dates(const ExportSurvey& survey, const DatePlan& plan, const ColumnChoice& columns,
                                    const PrepareOptions& options) {
  std::vector<Question> questions;
  if (plan.is_ambiguous) questions.push_back(ask_for_order(plan));
  if (plan.is_century_open) questions.push_back(ask_for_century(survey.dates, options));
  if (plan.are_serials_open) questions.push_back(ask_for_serials(survey.dates));
  const bool has_animals = survey.animal_count > 0;
  if (has_animals && !plan.is_ambiguous) {
    ask_for_column(survey.dates, plan, columns, options, questions);
  }
  return questions;
}

}  // namespace pedigreewatch
