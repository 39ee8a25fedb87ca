#include "tables/plan_tables.h"

#include <array>
#include <optional>
#include <string_view>

#include "planning/plan_words.h"

namespace pedigreewatch {
namespace {

constexpr auto plan_columns =
    std::to_array<std::string_view>({"female", "male", "matings", "F", "kinship", "female_name", "male_name", "wished",
                                     "ancestor_1", "ancestor_1_name", "contribution_1"});
constexpr auto contribution_columns = std::to_array<std::string_view>(
    {"id", "name", "sex", "birth_year", "mean_kinship", "optimum_without_limits", "optimum", "matings", "why_none"});
constexpr auto comparison_columns = std::to_array<std::string_view>(
    {"way", "mean_kinship", "gene_diversity", "mean_F", "males", "females", "top_male_share", "mean_value"});
constexpr auto way_keys =
    std::to_array<std::string_view>({"last_year", "all_alike", "best_shares", "random_pairs", "plan"});
static_assert(way_keys.size() == plan_ways);
constexpr Wording yes = {"yes", "ja"};

void add_name(const PopulationStore& store, std::int32_t position, TableWriter& writer) {
  constexpr std::string_view no_name = "-";
  const std::string_view name = store.has_name ? store.name(position) : std::string_view();
  const std::string_view trimmed = name.substr(0, name.find_last_not_of(' ') + 1);
  add_text(writer, trimmed == no_name ? std::string_view() : trimmed);
}

template <std::size_t Count>
void write_heading(const std::array<std::string_view, Count>& columns, TableWriter& writer) {
  for (const std::string_view column : columns) add_plain(writer, column);
  end_row(writer);
}

void add_main_ancestor(const PopulationStore& store, const KinshipParts& parts, TableWriter& writer) {
  const CommonAncestor& ancestor = parts.largest.front();
  if (ancestor.position == 0) {
    for (int cells = 0; cells < 3; ++cells) add_nothing(writer);
    return;
  }
  add_text(writer, store.id(ancestor.position));
  add_name(store, ancestor.position, writer);
  add_real(writer, ancestor.contribution);
}

/// The cells that every animal has.
void begin_animal(const PopulationStore& store, std::int32_t position, std::optional<Sex> sex, TableWriter& writer) {
  add_text(writer, store.id(position));
  add_name(store, position, writer);
  add_plain(writer, !sex ? "" : *sex == male ? "male" : "female");
  const std::int32_t year = store.birth_year[position];
  if (year == 0) {
    add_nothing(writer);
  } else {
    add_integer(writer, year);
  }
}

/// Shares far below any mating are what the search has not rounded to 0.
void add_share(double share, TableWriter& writer) {
  constexpr double least_share = 1e-9;
  add_real(writer, share < least_share ? 0.0 : share);
}

}  // namespace

void write_plan_table(const PlanTables& tables, TableWriter& writer) {
  write_heading(plan_columns, writer);
  for (std::size_t k = 0; k < tables.matings.pairs.size(); ++k) {
    const MatingPair& pair = tables.matings.pairs[k];
    add_text(writer, tables.store.id(pair.female));
    add_text(writer, tables.store.id(pair.male));
    add_integer(writer, tables.plan.pairs[k].matings);
    add_real(writer, pair.f);
    add_real(writer, tables.plan.pairs[k].kinship);
    add_name(tables.store, pair.female, writer);
    add_name(tables.store, pair.male, writer);
    add_plain(writer, tables.plan.pairs[k].is_wished ? words_of(yes, tables.language) : std::string_view());
    add_main_ancestor(tables.store, tables.matings.parts[k], writer);
    end_row(writer);
  }
  flush(writer);
}

void write_contributions_table(const PlanTables& tables, TableWriter& writer) {
  write_heading(contribution_columns, writer);
  const Plan& plan = tables.plan;
  for (std::size_t k = 0; k < plan.candidates.size(); ++k) {
    begin_animal(tables.store, plan.candidates[k], plan.sex[k], writer);
    add_real(writer, plan.kinship_alike[k]);
    add_share(plan.without_limits.shares[k], writer);
    add_share(plan.optimum().shares[k], writer);
    if (plan.numbers.numbers.empty()) {
      add_nothing(writer);
    } else {
      add_integer(writer, plan.numbers.numbers[k]);
    }
    add_text(writer, words_of_reason(reason_of(plan, k, tables.wanted), tables.language));
    end_row(writer);
  }
  for (const LeftOut& animal : tables.pool.left_out) {
    begin_animal(tables.store, animal.position, animal.sex, writer);
    for (int cells = 0; cells < 3; ++cells) add_nothing(writer);
    add_integer(writer, 0);
    add_text(writer, words_of_reason(animal.why, tables.language));
    end_row(writer);
  }
  flush(writer);
}

void write_comparison_table(const PlanTables& tables, TableWriter& writer) {
  write_heading(comparison_columns, writer);
  for (std::size_t k = 0; k < plan_ways; ++k) {
    const std::optional<PlanComparison>& way = tables.plan.comparisons[k];
    if (!way) continue;
    add_plain(writer, way_keys[k]);
    add_real(writer, way->mean_kinship);
    add_real(writer, 1.0 - way->mean_kinship);
    add_cell(writer, way->mean_f ? Cell(*way->mean_f) : Cell());
    add_integer(writer, way->males);
    add_integer(writer, way->females);
    add_real(writer, way->top_male);
    add_cell(writer, way->value ? Cell(*way->value) : Cell());
    end_row(writer);
  }
  flush(writer);
}

void write_plan_sheets(const PlanTables& tables, WorkbookWriter& workbook) {
  TableWriter writer{.workbook = &workbook, .text = {}, .corrections = tables.corrections};
  const auto write = [&](std::string_view sheet, void (*table)(const PlanTables& tables, TableWriter& writer)) {
    begin_table_sheet(writer, sheet);
    table(tables, writer);
    end_sheet(workbook);
  };
  if (!tables.plan.pairs.empty()) write("plan", write_plan_table);
  write("contributions", write_contributions_table);
  write("comparison", write_comparison_table);
}

}  // namespace pedigreewatch
