// Any list of corrections on any export with semicolons. The input is the list, a line of four hyphens, and the export.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "intake/correction_words.h"

namespace {

using namespace pedigreewatch;

void require(bool holds) {
  if (!holds) std::abort();
}

/// What was read can be written, and is then the same.
void check_list(const CorrectionList& list) {
  const CorrectionList again = read_corrections(corrections_text(list.corrections));
  require(again.faults.empty() && again.corrections == list.corrections);
  for (const ToolLanguage language : {ToolLanguage::english, ToolLanguage::dutch}) {
    require(fault_sentences(list.faults, "list.tsv", language).size() == list.faults.size());
  }
}

void check_outcomes(const CorrectionList& list, std::span<const CorrectionOutcome> outcomes, std::int64_t lines) {
  require(outcomes.size() == list.corrections.size());
  for (std::size_t k = 0; k < outcomes.size(); ++k) {
    const std::string sentence = outcome_sentence(list.corrections[k], outcomes[k], ToolLanguage::dutch);
    require(sentence.empty() == (outcomes[k].fate == CorrectionFate::applied));
    require(outcomes[k].line >= 0 && outcomes[k].line <= lines);
  }
  require(corrections_sentence(outcomes, ToolLanguage::english).empty() == outcomes.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  constexpr std::string_view divider = "----\n";
  const std::size_t end = std::min(input.find(divider), input.size());
  const CorrectionList list = read_corrections(input.substr(0, end));
  check_list(list);
  std::string text(input.substr(std::min(end + divider.size(), input.size())));
  RecordReader reader = read_records(text, ';');
  ExportRecord record;
  if (!next_filled_record(reader, record)) return 0;
  const std::vector<std::string> headings(record.fields.begin(), record.fields.end());
  const ColumnChoice columns = choose_columns(headings, {});
  const auto line_ends = [&] { return std::count(text.begin(), text.end(), '\n'); };
  const auto before = line_ends();
  const std::vector<CorrectionOutcome> outcomes = apply_corrections(text, ';', columns, list.corrections);
  check_outcomes(list, outcomes, before + 1);
  require(line_ends() == before);
  return 0;
}
