#include "intake/correction_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording counts_text = {
    "Corrections applied: {1}; already mended in the export: {2}; not applied because something else stands there now, the "
    "animal or column is not there, or another animal has the id: {3}.",
    "Toegepaste correcties: {1}; al hersteld in de export: {2}; niet toegepast omdat er nu iets anders staat, het dier of "
    "de kolom er niet is, of een ander dier dat id heeft: {3}."};
constexpr Wording already_text = {"{1}, {2}: {3} is already mended in your office program (line {4})",
                                  "{1}, {2}: {3} is al hersteld in uw stamboekprogramma (regel {4})"};
constexpr Wording differs_text = {"{1}, {2}: was {3}, differs now: {4} (line {5}); not corrected",
                                  "{1}, {2}: was {3}, is nu anders: {4} (regel {5}); niet gecorrigeerd"};
constexpr Wording line_differs_text = {"{1}: its line differs now (line {2}); it was not left out",
                                       "{1}: de regel is nu anders (regel {2}); het dier is niet weggelaten"};
constexpr Wording no_animal_text = {"{1}, {2}: the export has no line of this animal; not corrected",
                                    "{1}, {2}: de export heeft geen regel van dit dier; niet gecorrigeerd"};
constexpr Wording has_new_id_text = {
    "{1}, {2}: an earlier correction of this list has made it {3} (line {4}); write that id; not corrected",
    "{1}, {2}: een eerdere correctie van deze lijst heeft er {3} van gemaakt (regel {4}); schrijf dat id; niet gecorrigeerd"};
constexpr Wording has_gone_text = {
    "{1}, {2}: an earlier correction of this list has left its line out; not corrected",
    "{1}, {2}: een eerdere correctie van deze lijst heeft de regel weggelaten; niet gecorrigeerd"};
constexpr Wording no_column_text = {"{1}, {2}: the export has no column for this; not corrected",
                                    "{1}, {2}: de export heeft hier geen kolom voor; niet gecorrigeerd"};
constexpr Wording id_taken_text = {
    "{1}: its id cannot become {2}, which is that of another animal{3} (line {4}); not corrected",
    "{1}: het id kan geen {2} worden, want dat is van een ander dier{3} (regel {4}); niet gecorrigeerd"};
constexpr Wording no_other_text = {
    "{1}: {2} is no other animal with a line of its own, or leads back to it; nothing was changed",
    "{1}: {2} is geen ander dier met een eigen regel, of leidt terug naar dit dier; er is niets veranderd"};
constexpr Wording unknown_field_text = {
    "{1}, line {2}: {3} is no field; expected was id, name, sire, dam, sex, birthdate, colour, breeder, subpopulation, "
    "import, \"leave out\" or \"same as\"",
    "{1}, regel {2}: {3} is geen veld; verwacht werd id, name, sire, dam, sex, birthdate, colour, breeder, subpopulation, "
    "import, \"leave out\" of \"same as\""};
constexpr Wording short_line_text = {
    "{1}, line {2}: {3}: expected were id, field, was and becomes with tabs between them",
    "{1}, regel {2}: {3}: verwacht werden id, field, was en becomes met tabs ertussen"};

}  // namespace

CorrectionCounts count_outcomes(std::span<const CorrectionOutcome> outcomes) {
  CorrectionCounts counts;
  for (const CorrectionOutcome& outcome : outcomes) {
    switch (outcome.fate) {
      case CorrectionFate::applied: ++counts.applied; break;
      case CorrectionFate::already_so: ++counts.already_so; break;
      case CorrectionFate::differs: ++counts.differing; break;
      default: ++counts.without_place; break;
    }
  }
  return counts;
}

std::string corrections_sentence(std::span<const CorrectionOutcome> outcomes, ToolLanguage language) {
  if (outcomes.empty()) return {};
  const CorrectionCounts counts = count_outcomes(outcomes);
  return phrase(counts_text, language,
                {std::to_string(counts.applied), std::to_string(counts.already_so),
                 std::to_string(counts.differing + counts.without_place)});
}

std::string outcome_sentence(const Correction& correction, const CorrectionOutcome& outcome, ToolLanguage language) {
  const std::string id = in_quotes(correction.id), field(field_name(correction)), line = std::to_string(outcome.line);
  switch (outcome.fate) {
    case CorrectionFate::already_so:
      return phrase(already_text, language, {id, field, in_quotes(correction.becomes), line});
    case CorrectionFate::differs:
      if (correction.kind != CorrectionKind::value) return phrase(line_differs_text, language, {id, line});
      return phrase(differs_text, language, {id, field, in_quotes(correction.was), in_quotes(outcome.now), line});
    case CorrectionFate::no_animal: return phrase(no_animal_text, language, {id, field});
    case CorrectionFate::has_new_id:
      return phrase(has_new_id_text, language, {id, field, in_quotes(outcome.now), line});
    case CorrectionFate::has_gone: return phrase(has_gone_text, language, {id, field});
    case CorrectionFate::no_column: return phrase(no_column_text, language, {id, field});
    case CorrectionFate::id_taken: {
      const std::string name = outcome.now.empty() ? std::string() : ", " + in_quotes(outcome.now);
      return phrase(id_taken_text, language, {id, in_quotes(correction.becomes), name, line});
    }
    case CorrectionFate::no_other: return phrase(no_other_text, language, {id, in_quotes(correction.becomes)});
    default: return {};
  }
}

std::vector<std::string> fault_sentences(std::span<const CorrectionFault> faults, const std::string& list,
                                         ToolLanguage language) {
  std::vector<std::string> sentences;
  for (const CorrectionFault& fault : faults) {
    sentences.push_back(phrase(fault.is_field ? unknown_field_text : short_line_text, language,
                               {shown(list), std::to_string(fault.line), in_quotes(fault.text)}));
  }
  return sentences;
}

}  // namespace pedigreewatch
