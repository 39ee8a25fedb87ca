#include "support/prepared_export.h"

#include <vector>

#include "intake/export_remarks.h"

namespace pedigreewatch::test {
namespace {

bool take(void* receiver, std::string_view bytes) {
  static_cast<std::string*>(receiver)->append(bytes);
  return true;
}

}  // namespace

Prepared prepared(const std::string& text, PrepareOptions options, char delimiter) {
  options.export_name = "herd.csv";
  if (options.species.empty()) options.species = "sheep";
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  next_filled_record(reader, record);
  std::vector<std::string> words(record.fields.begin(), record.fields.end());
  const ColumnChoice columns = choose_columns(words, options);
  ProgressLine unwatched;
  const ExportSurvey survey = survey_export(text, delimiter, columns, {}, unwatched);
  Prepared result;
  result.plan = plan_preparation(survey, columns, options);
  make_data_file(text, delimiter, result.plan, survey.sexes, {take, &result.data, &result.lines});
  result.steer = steer_text(result.plan);
  Preparation read;
  read.survey = survey;
  read.plan = result.plan;
  add_content_remarks(read, result.remarks);
  return result;
}

}  // namespace pedigreewatch::test
