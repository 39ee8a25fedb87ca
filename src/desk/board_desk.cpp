#include "desk/board_desk.h"

#include <utility>

#include "control/population_standing.h"
#include "standing/standing_options.h"
#include "tables/figure_tables.h"

namespace pedigreewatch {
namespace {

constexpr Wording no_year = {"{1}: a year with four digits was expected, such as 2015.",
                             "{1}: verwacht werd een jaartal van vier cijfers, zoals 2015."};
constexpr Wording no_percentage = {"{1}: a percentage above 0 and up to 100 was expected, such as 6.25.",
                                   "{1}: verwacht werd een percentage boven 0 en tot en met 100, zoals 6,25."};

/// Yields what cannot be understood; empty: nothing.
std::string read_board(const BoardTexts& texts, ToolLanguage language, StandingSettings& settings) {
  if (!texts.rule_year.empty()) {
    settings.rule_year = read_rule_year(texts.rule_year);
    if (!settings.rule_year) return phrase(no_year, language, {in_quotes(texts.rule_year)});
  }
  const auto take = [&](std::string_view text, double& limit, bool& is_given) {
    if (text.empty()) return true;
    const std::optional<double> read = read_percentage(text);
    limit = read.value_or(limit);
    is_given = read.has_value();
    return is_given;
  };
  if (!take(texts.sire_share, settings.most_sire_share, settings.is_sire_share_given)) {
    return phrase(no_percentage, language, {in_quotes(texts.sire_share)});
  }
  if (!take(texts.most_f, settings.most_inbreeding, settings.is_most_inbreeding_given)) {
    return phrase(no_percentage, language, {in_quotes(texts.most_f)});
  }
  return {};
}

}  // namespace

std::string set_board(Desk& desk, const BoardTexts& texts) {
  StandingSettings settings;
  const std::string problem = read_board(texts, desk.language, settings);
  if (problem.empty()) {
    desk.board = settings;
    judge_results(desk);
  }
  JsonText json;
  begin_object(json);
  add_text(json, "problem", problem);
  end_object(json);
  return std::move(json.text);
}

void judge_results(Desk& desk) {
  if (!desk.results) return;
  DeskResults& results = *desk.results;
  results.standing = stand_of(results.population, desk.board, desk.check ? &*desk.check : nullptr, results.available);
}

std::string standing_table(const Desk& desk) {
  if (!desk.results) return {};
  TableWriter writer;
  writer.corrections = desk.results->population.corrections;
  const bool is_english = desk.results->population.settings.english;
  write_standing_table(desk.results->population.store, desk.results->standing,
                       is_english ? ToolLanguage::english : ToolLanguage::dutch, writer);
  return std::move(writer.text);
}

}  // namespace pedigreewatch
