// What the desk says of an export: its own words for remarks, questions and refusals. They name the controls of the
// page as the page does (desk/texts.ts).
#pragma once

#include <span>
#include <string>
#include <vector>

#include "intake/remark.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// A line of the evidence. Without a label it goes on with what the line above is about.
struct EvidenceLine {
  std::string label, text;
};

/// The remarks but those on columns in use, which the page shows above the first lines.
std::vector<EvidenceLine> evidence_lines(std::span<const Remark> remarks, ToolLanguage language);

/// The question, with the control that answers it.
std::string question_text(const Question& question, ToolLanguage language);

/// The name of the setting that answers a question, as `change_settings` takes it; empty: none does.
std::string setting_name(Setting setting, FieldCode field);

/// An answer as a user chooses it.
std::string answer_text(const Question& question, const Answer& answer, ToolLanguage language);

/// Why nothing can be made of the export, a text for each place.
std::vector<std::string> refusal_texts(const Refusal& refusal, ToolLanguage language);

}  // namespace pedigreewatch
