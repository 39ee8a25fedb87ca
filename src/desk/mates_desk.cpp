#include "desk/mates_desk.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/fixed_text.h"
#include "desk/json_text.h"
#include "desk/matings_desk.h"
#include "diversity/cohorts.h"
#include "matings/candidates.h"
#include "pedigree/id_list.h"
#include "tables/table_writer.h"

namespace pedigreewatch {
namespace {

constexpr Wording no_pairs = {"Choose at least one female and one male.",
                              "Kies minstens \xC3\xA9\xC3\xA9n moeder en \xC3\xA9\xC3\xA9n vader."};
constexpr Wording too_many = {"At most {1} females and {1} males are compared at a time.",
                              "Hoogstens {1} moeders en {1} vaders worden tegelijk vergeleken."};
constexpr Wording first_column = {"female", "moeder"};
constexpr Wording sheet_name = {"F of offspring", "F van jongen"};

/// Positions of animals, each once, in the order in which they are named.
std::vector<std::int32_t> positions_named(const Desk& desk, std::string_view text) {
  std::vector<std::int32_t> positions;
  std::set<std::int32_t> seen;
  while (desk.results && !text.empty()) {
    const std::size_t end = std::min(text.find(','), text.size());
    std::int32_t position = 0;
    std::from_chars(text.data(), text.data() + end, position);
    text.remove_prefix(std::min(end + 1, text.size()));
    const bool is_animal = position >= 1 && position <= store_of(desk).animal_count;
    if (is_animal && seen.insert(position).second) positions.push_back(position);
  }
  return positions;
}

/// F of all pairs, row by row.
DeskMates work_out(const MatingWork& work, const MatingPlan& plan) {
  DeskMates mates = {plan.females, plan.males, std::vector<float>(plan.females.size() * plan.males.size())};
  std::unordered_map<std::int32_t, std::size_t> row_of, column_of;
  for (std::size_t row = 0; row < mates.females.size(); ++row) row_of[mates.females[row]] = row;
  for (std::size_t column = 0; column < mates.males.size(); ++column) column_of[mates.males[column]] = column;
  for (const MatingPair& pair : choose_matings(work, plan).pairs) {
    mates.f[row_of[pair.female] * mates.males.size() + column_of[pair.male]] = std::max(0.0F, pair.f);
  }
  return mates;
}

void add_mates(JsonText& json, std::string_view name, const DeskResults& results, const MatingWork& work,
               std::span<const std::int32_t> positions) {
  begin_list(json, name);
  for (const std::int32_t position : positions) {
    begin_object(json);
    add_animal(json, results, position);
    add_name(json, "meanKinship");
    const std::optional<double> kinship = mean_kinship_of(work, position);
    if (kinship) {
      add_real(json, *kinship);
    } else {
      add_nothing(json);
    }
    add_name(json, "equivalents");
    add_real(json, double{known_generations(work.store, position)});
    add_logical(json, "isShallow", is_shallow(work.store, position));
    end_object(json);
  }
  end_list(json);
}

void add_figures(JsonText& json, const DeskMates& mates, double limit) {
  begin_list(json, "f");
  for (const float f : mates.f) add_real(json, double{f});
  end_list(json);
  begin_list(json, "classes");
  for (const float f : mates.f) add_integer(json, static_cast<std::int64_t>(inbreeding_class(f)));
  end_list(json);
  begin_list(json, "beyond");
  for (std::size_t k = 0; k < mates.f.size(); ++k) {
    if (is_beyond(mates.f[k], limit)) add_integer(json, static_cast<std::int64_t>(k));
  }
  end_list(json);
  add_name(json, "limit");
  add_real(json, limit);
}

bool has_gone(const Desk& desk, std::span<const std::int32_t> positions) {
  const AvailableAnimals& available = desk.results->available;
  return std::any_of(positions.begin(), positions.end(),
                     [&](std::int32_t position) { return !available.has(position); });
}

/// Females that have gone are marked in a column of their own, males in a last row.
void write_mates(const Desk& desk, TableWriter& writer) {
  const DeskMates& mates = desk.mates;
  const std::string_view gone = heading_of_gone(desk.language);
  const bool has_gone_females = has_gone(desk, mates.females);
  add_plain(writer, words_of(first_column, desk.language));
  if (has_gone_females) add_plain(writer, gone);
  for (const std::int32_t male : mates.males) add_text(writer, store_of(desk).id(male));
  end_row(writer);
  for (std::size_t row = 0; row < mates.females.size(); ++row) {
    add_text(writer, store_of(desk).id(mates.females[row]));
    if (has_gone_females) add_plain(writer, gone_text(desk, mates.females[row]));
    for (std::size_t column = 0; column < mates.males.size(); ++column) {
      add_real(writer, mates.f[row * mates.males.size() + column]);
    }
    end_row(writer);
  }
  if (has_gone(desk, mates.males)) {
    add_plain(writer, gone);
    if (has_gone_females) add_plain(writer, {});
    for (const std::int32_t male : mates.males) add_plain(writer, gone_text(desk, male));
    end_row(writer);
  }
  flush(writer);
}

bool has_mates(const Desk& desk) {
  return desk.results && !desk.mates.f.empty();
}

}  // namespace

std::string find_listed(const Desk& desk, std::string_view ids) {
  constexpr std::size_t any_number = std::numeric_limits<std::size_t>::max();
  const std::vector<ListedId> lines = id_list_of_text(ids, any_number).ids;
  std::vector<std::int32_t> positions(lines.size());
  if (desk.results) positions = positions_listed(store_of(desk), lines);
  JsonText json;
  begin_object(json);
  begin_list(json, "animals");
  for (std::size_t k = 0; k < lines.size(); ++k) {
    begin_object(json);
    if (positions[k] > 0) {
      add_animal(json, *desk.results, positions[k]);
    } else {
      add_integer(json, "position", 0);
      add_text(json, "id", without_blanks(lines[k].id));
    }
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string find_born(const Desk& desk, const BornWished& wished) {
  std::vector<std::int32_t> born;
  if (desk.results) born = candidates_born(store_of(desk), wished.first_year, wished.last_year, wished.sex);
  std::erase_if(born, [&](std::int32_t position) {
    const bool is_gone = !wished.takes_all && !desk.results->available.has(position);
    return is_gone || std::find(desk.left_out.begin(), desk.left_out.end(), position) != desk.left_out.end();
  });
  JsonText json;
  begin_object(json);
  add_integer(json, "count", std::ssize(born));
  add_integer(json, "most", static_cast<std::int64_t>(most_mates));
  begin_list(json, "animals");
  if (born.size() > most_mates) born.clear();
  for (const std::int32_t position : born) {
    begin_object(json);
    add_animal(json, *desk.results, position);
    end_object(json);
  }
  end_list(json);
  end_object(json);
  return std::move(json.text);
}

std::string leave_out(Desk& desk, std::string_view positions) {
  desk.left_out = positions_named(desk, positions);
  JsonText json;
  begin_object(json);
  add_integer(json, "count", std::ssize(desk.left_out));
  end_object(json);
  return std::move(json.text);
}

std::string compare_mates(Desk& desk, std::string_view females, std::string_view males) {
  desk.mates = {};
  const MatingPlan plan = {positions_named(desk, females), positions_named(desk, males), {}, {}};
  JsonText json;
  begin_object(json);
  begin_list(json, "messages");
  const bool is_empty = plan.females.empty() || plan.males.empty();
  const bool is_large = std::max(plan.females.size(), plan.males.size()) > most_mates;
  if (is_empty) add_text(json, words_of(no_pairs, desk.language));
  if (is_large) add_text(json, phrase(too_many, desk.language, {std::to_string(most_mates)}));
  end_list(json);
  if (!is_empty && !is_large) {
    const MatingWork work = make_mating_work(store_of(desk), candidates_of(plan));
    desk.mates = work_out(work, plan);
    add_mates(json, "females", *desk.results, work, plan.females);
    add_mates(json, "males", *desk.results, work, plan.males);
    add_figures(json, desk.mates, desk.board.most_inbreeding);
  }
  end_object(json);
  return std::move(json.text);
}

std::string mates_table(const Desk& desk) {
  TableWriter writer;
  if (!has_mates(desk)) return {};
  writer.corrections = desk.results->population.corrections;
  write_mates(desk, writer);
  return std::move(writer.text);
}

std::string mates_workbook(const Desk& desk) {
  if (!has_mates(desk)) return {};
  WorkbookWriter workbook;
  TableWriter writer{.workbook = &workbook, .text = {}, .corrections = desk.results->population.corrections};
  begin_sheet(workbook, words_of(sheet_name, desk.language));
  write_mates(desk, writer);
  end_sheet(workbook);
  return finish_workbook(workbook) ? std::move(workbook.zip.bytes) : std::string();
}

}  // namespace pedigreewatch
