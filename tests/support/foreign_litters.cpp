// Headings are put together from a word for young, a number, and what the column holds.

#include "support/foreign_litters.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace pedigreewatch::test {
namespace {

struct LitterWords {
  std::string_view litter;
  std::array<std::string_view, 3> young;
};

const LitterWords& words_of(Tongue tongue) {
  static constexpr std::array<LitterWords, tongue_count> table = {{
      {"Litter no", {"Lamb", "Pup", "Young"}},
      {"Worpnr", {"Lam", "Pup", "Jong"}},
      {"Wurf-Nr.", {"Lamm", "Welpe", "Jungtier"}},
      {"No port\u00E9e", {"Agneau", "Chiot", "Petit"}},
      {"N\u00BA camada", {"Cordero", "Cachorro", "Cr\u00EDa"}},
      {"N. cucciolata", {"Agnello", "Cucciolo", "Figlio"}},
  }};
  return table[static_cast<std::size_t>(tongue)];
}

std::string heading_of_young(std::string_view young, int number, std::string_view thing, int way) {
  const std::string digits = std::to_string(number);
  const std::string behind = thing.empty() ? "" : " " + std::string(thing);
  if (way == 0) return std::string(young) + " " + digits + behind;
  if (way == 1) return (thing.empty() ? std::string(young) : std::string(thing)) + " " + digits;
  return std::string(young) + digits + behind;
}

}  // namespace

void draw_litters(Dice& dice, ForeignForm& form) {
  const bool is_usual = form.has_header && form.damage == Damage::none && form.parents == ParentWriting::as_ids;
  if (!dice.one_in(25) || !is_usual) return;
  form.young_a_line = 2 + dice.below(4);
  form.leaves_founders_out = form.has_rough_dates = false;
  std::erase(form.shapes, "parents: some without a line");
  std::erase_if(form.shapes, [](const std::string& shape) { return shape.starts_with("columns: "); });
  form.shapes.push_back("lines: litters of several young");
  const auto one_of = [&](Heading heading) { return dice.one_of(headings_of(heading, form.tongue)); };
  const LitterWords& words = words_of(form.tongue);
  const std::string_view young = words.young[static_cast<std::size_t>(dice.below(3))];
  form.columns = {{ColumnContent::row_number, std::string(words.litter)},
                  {ColumnContent::sire, std::string(one_of(Heading::sire))},
                  {ColumnContent::dam, std::string(one_of(Heading::dam))},
                  {ColumnContent::birth, std::string(one_of(Heading::birth))}};
  const std::array<std::pair<ColumnContent, std::string_view>, 3> own = {
      {{ColumnContent::id, dice.one_in(2) ? one_of(Heading::id) : std::string_view()},
       {ColumnContent::name, one_of(Heading::name)},
       {ColumnContent::sex, one_of(Heading::sex)}}};
  const int way = dice.below(3);
  for (int k = 1; k <= form.young_a_line; ++k) {
    for (const auto& [content, thing] : own) {
      form.columns.push_back({content, heading_of_young(young, k, thing, way), k});
    }
  }
  const bool stands_by_kind = dice.one_in(2);
  if (!stands_by_kind) return;
  std::stable_sort(form.columns.begin() + 4, form.columns.end(),
                   [](const ForeignColumn& a, const ForeignColumn& b) { return a.content < b.content; });
}

void draw_twins(Dice& dice, ForeignForm& form) {
  const bool is_usual = form.has_header && form.damage == Damage::none && form.parents == ParentWriting::as_ids &&
                        form.young_a_line == 0 && form.ids != IdStyle::destroyed_tags;
  const auto of_id = [](const ForeignColumn& column) { return column.content == ColumnContent::id; };
  const auto id = std::find_if(form.columns.begin(), form.columns.end(), of_id);
  if (!dice.one_in(12) || !is_usual || id == form.columns.end()) return;
  static constexpr std::array<std::array<std::string_view, 2>, tongue_count> words = {{{"Twin", "Second"},
                                                                                       {"Tweeling", "Tweede"},
                                                                                       {"Zwilling", "Zweites"},
                                                                                       {"Jumeau", "Deuxi\u00E8me"},
                                                                                       {"Gemelo", "Segundo"},
                                                                                       {"Gemello", "Secondo"}}};
  const std::string twin(words[static_cast<std::size_t>(form.tongue)][static_cast<std::size_t>(dice.below(2))]);
  id->young = 1;
  form.has_twins = true;
  form.leaves_founders_out = form.has_rough_dates = false;
  form.header_again_after = 0;
  std::erase(form.shapes, "parents: some without a line");
  form.shapes.push_back("lines: rare twins");
  form.columns.push_back({ColumnContent::id, twin, 2});
  if (dice.one_in(2)) return;
  form.shapes.push_back("lines: rare twins with their sex");
  form.columns.push_back(
      {ColumnContent::sex, twin + " " + std::string(dice.one_of(headings_of(Heading::sex, form.tongue))), 2});
}

std::vector<std::size_t> join_twins(Dice& dice, std::vector<ForeignAnimal>& animals) {
  std::vector<std::size_t> firsts;
  for (std::size_t i = 0; i < animals.size(); ++i) {
    firsts.push_back(i);
    const bool is_founder = i < animals.size() / 4;
    if (is_founder || i + 1 == animals.size() || !dice.one_in(12)) continue;
    const ForeignAnimal& first = animals[i];
    ForeignAnimal& twin = animals[++i];
    twin.sire = first.sire;
    twin.dam = first.dam;
    twin.year = first.year;
    twin.month = first.month;
    twin.day = first.day;
  }
  return firsts;
}

std::vector<std::size_t> join_litters(Dice& dice, int most, std::vector<ForeignAnimal>& animals) {
  std::vector<std::size_t> firsts;
  for (std::size_t i = 0; i < animals.size();) {
    firsts.push_back(i);
    const ForeignAnimal& first = animals[i];
    const bool is_founder = i < animals.size() / 4;
    const auto size = static_cast<std::size_t>(is_founder ? 1 : 1 + dice.below(most));
    const std::size_t end = std::min(i + size, animals.size());
    for (++i; i < end; ++i) {
      animals[i].sire = first.sire;
      animals[i].dam = first.dam;
      animals[i].year = first.year;
      animals[i].month = first.month;
      animals[i].day = first.day;
    }
  }
  return firsts;
}

}  // namespace pedigreewatch::test
