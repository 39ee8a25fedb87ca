// Facts first, then the pedigree, then what stands behind the figures. Nothing is computed here.

#include "page/animal_page.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "genetics/ancestor_pedigree.h"
#include "page/animal_style.h"
#include "page/corrections_note.h"
#include "page/page.h"
#include "page/page_text.h"
#include "page/pedigree_drawing.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Wording sex_label = {"Sex", "Geslacht"}, male_word = {"male", "mannelijk"},
                  female_word = {"female", "vrouwelijk"};
constexpr Wording sex_of_sire = {"not told; male, as the sire of its young",
                                 "niet vermeld; mannelijk, als vader van zijn jongen"};
constexpr Wording sex_of_dam = {"not told; female, as the dam of her young",
                                "niet vermeld; vrouwelijk, als moeder van haar jongen"};
constexpr Wording untold_sex = {"not told", "niet vermeld"};
constexpr Wording born_label = {"Born", "Geboren"}, not_known = {"not known", "niet bekend"};
constexpr Wording no_own_line = {"not known: it has no line of its own, only as a parent",
                                 "niet bekend: het heeft geen eigen regel, alleen als ouder"};
constexpr Wording breeder_label = {"Breeder", "Fokker"}, colour_label = {"Colour", "Kleurslag"};
constexpr Wording subpopulation_label = {"Subpopulation", "Subpopulatie"};
constexpr Wording counted = {"{1} (animals in all: {2})", "{1} (dieren in totaal: {2})"};
constexpr Wording inbreeding_label = {"Inbreeding (F)", "Inteelt (F)"};
constexpr Wording inbreeding_known = {"{1}, as far as its ancestors are known",
                                      "{1}, voor zover de voorouders bekend zijn"};
constexpr Wording inbreeding_unknown = {"cannot be told: a parent is unknown", "niet te zeggen: een ouder is onbekend"};
constexpr Wording age_label = {"Recent and old inbreeding", "Recente en oude inteelt"};
constexpr Wording age_text = {
    "F over the last 3 generations {1}, over the last 5 {2}; of its genes {3} % were in an inbred ancestor before (ancestral inbreeding)",
    "F over de laatste 3 generaties {1}, over de laatste 5 {2}; van zijn genen zat {3} % eerder in een ingeteelde voorouder (voorouderlijke inteelt)"};
constexpr Wording kinship_label = {"Mean kinship", "Gemiddelde verwantschap"};
constexpr Wording kinship_text = {"{1} % with {2}", "{1} % met {2}"};
constexpr Wording rank_text = {"; place {1} of the {2} animals born in {3} (1 is the lowest)",
                               "; plaats {1} van de {2} dieren geboren in {3} (1 is de laagste)"};
constexpr Wording genes_label = {"In the animals of today", "In de dieren van nu"};
constexpr Wording genes_text = {"{1} % of the genes of {2}; descendants among them: {3}",
                                "{1} % van de genen van {2}; nakomelingen daaronder: {3}"};
constexpr Wording itself_too = {"; the animal itself is one of them", "; het dier zelf is er een van"};
constexpr Wording offspring_label = {"Offspring", "Nakomelingen"};
constexpr Wording offspring_text = {"{1} (males: {2}, females: {3}); mates: {4}; offspring that bred: {5}",
                                    "{1} (mannelijk: {2}, vrouwelijk: {3}); partners: {4}; waarmee gefokt is: {5}"};
constexpr Wording none_word = {"none in the data", "geen in de gegevens"};
constexpr Wording completeness_label = {"Known ancestors", "Bekende voorouders"};
constexpr Wording completeness_text = {"generation equivalents {1}; completeness over five generations (PCI) {2}",
                                       "generatie-equivalenten {1}; compleetheid over vijf generaties (PCI) {2}"};

constexpr Wording youngest_text = {"the animals born {1} with both parents known ({2})",
                                   "de dieren geboren {1} met twee bekende ouders ({2})"};
constexpr Wording born_text = {"the animals born {1} ({2})", "de dieren geboren {1} ({2})"};
constexpr Wording listed_text = {"the animals of the list ({1})", "de dieren van de lijst ({1})"};

constexpr Wording pedigree_title = {"Pedigree", "Stamboom"};
constexpr Wording pedigree_reading = {
    "Corners: sires; round: dams. Dashed: unknown. F stands beside animals of which both parents are known.",
    "Hoekig: vaders; rond: moeders. Gestreept: onbekend. F staat bij dieren waarvan beide ouders bekend zijn."};
constexpr Wording repeated_sample = {"This colour:", "Deze kleur:"};
constexpr Wording repeated_reading = {
    "the animal stands here more than once; equal letters mark the ancestors in which lines meet.",
    "het dier staat hier meer dan eens; gelijke letters staan bij de voorouders waarin lijnen samenkomen."};

constexpr Wording parts_title = {"Where the inbreeding comes from", "Waar de inteelt vandaan komt"};
constexpr Wording parts_reading = {
    "F is the chance that an animal has the same ancestral gene from both parents. Each common ancestor of the parents "
    "brings its part, over all paths.",
    "F is de kans dat een dier van beide ouders hetzelfde gen van een voorouder heeft. Elke gemeenschappelijke "
    "voorouder van de ouders brengt zijn deel, over alle paden."};
constexpr Wording no_parts = {"The parents have no known common ancestor.",
                              "De ouders hebben geen bekende gemeenschappelijke voorouder."};
constexpr Wording ancestor_heading = {"Common ancestor", "Gemeenschappelijke voorouder"};
constexpr Wording name_heading = {"Name", "Naam"}, born_heading = {"Born", "Geboren"};
constexpr Wording part_heading = {"Part of F (points of %)", "Deel van F (procentpunten)"};
constexpr Wording share_heading = {"Share (%)", "Aandeel (%)"};
constexpr Wording others_row = {"all others", "alle andere"};

constexpr Wording founders_title = {"The founders that the inbreeding comes from",
                                    "De stamdieren waar de inteelt vandaan komt"};
constexpr Wording founders_reading = {
    "Its inbreeding of {1} %, divided among the founders of which it has the same gene from both parents. A founder is an "
    "ancestor without known parents, or a parent that is unknown.",
    "Zijn inteelt van {1} %, verdeeld over de stamdieren waarvan het van beide ouders hetzelfde gen heeft. Een stamdier "
    "is een voorouder zonder bekende ouders, of een ouder die onbekend is."};
constexpr Wording founders_too_many = {
    "Not divided among founders: with {1} known ancestors that would take too long.",
    "Niet over stamdieren verdeeld: met {1} bekende voorouders zou dat te lang duren."};
constexpr Wording founder_heading = {"Founder", "Stamdier"};
constexpr Wording unknown_sire_of = {"the unknown sire of {1}", "de onbekende vader van {1}"};
constexpr Wording unknown_dam_of = {"the unknown dam of {1}", "de onbekende moeder van {1}"};
constexpr Wording counted_others = {"all others ({1})", "alle andere ({1})"};

constexpr Wording sides_title = {"How far the ancestors are known", "Hoe ver de voorouders bekend zijn"};
constexpr Wording generation_heading = {"Generation", "Generatie"};
constexpr Wording sire_side = {"Known on the sire's side", "Bekend aan vaderszijde"};
constexpr Wording dam_side = {"Known on the dam's side", "Bekend aan moederszijde"};
constexpr Wording of_possible = {"{1} of {2}", "{1} van {2}"};

constexpr Wording young_title = {"Offspring by mate and year", "Nakomelingen per partner en jaar"};
constexpr Wording young_reading = {"In brackets: how many offspring an animal has itself.",
                                   "Tussen haakjes: hoeveel nakomelingen een dier zelf heeft."};
constexpr Wording mate_heading = {"Mate", "Partner"}, year_heading = {"Year", "Jaar"};
constexpr Wording young_heading = {"Young", "Jongen"}, unknown_mate = {"unknown", "onbekend"};
constexpr Wording further_rows = {"rows of mates and years that are not shown: {1}",
                                  "regels met partners en jaren die niet getoond zijn: {1}"};
constexpr Wording further_young = {"and {1} more", "en nog {1}"};

constexpr Wording made_by = {"Made by pedigreewatch-tools animal on {1}; docs/animal.md explains every figure.",
                             "Gemaakt door pedigreewatch-tools animal op {1}; docs/animal.md legt elk cijfer uit."};

constexpr double percent = 100.0;

/// What the parts of a card are written with.
struct CardWriter {
  std::string& page;
  const CardInput& input;
  const AnimalCard& card;

  const PopulationStore& store() const { return input.population.store; }
  std::string words(const Wording& wording, std::initializer_list<std::string_view> values = {}) const {
    return phrase(wording, input.language, values);
  }
  std::string figure(double value, int decimals) const { return report_figure(value, decimals, input.language); }
};

std::string id_text(const CardWriter& writer, std::int32_t position) {
  return data_text(writer.store().id(position));
}

/// The identification of another animal, to be pressed where that opens its card.
std::string pressable(const CardWriter& writer, std::int32_t position) {
  std::string id = isolated(id_text(writer, position));
  if (!writer.input.is_pressable) return id;
  return "<button type=\"button\" class=\"fa-press\" data-animal=\"" + std::to_string(position) + "\">" + id +
         "</button>";
}

std::string year_text(const CardWriter& writer, std::int32_t year) {
  return year == 0 ? writer.words(not_known) : std::to_string(year);
}

std::string heading_of(const CardWriter& writer) {
  const std::string name = name_of_animal(writer.store(), writer.card.position);
  return isolated(id_text(writer, writer.card.position)) + (name.empty() ? "" : " " + isolated(name));
}

// --- facts ---

void add_fact(CardWriter& writer, const Wording& label, const std::string& text) {
  if (text.empty()) return;
  writer.page += "<div><dt>" + escaped(writer.words(label)) + "</dt><dd>" + isolated(text) + "</dd></div>\n";
}

std::string birth_text(const CardWriter& writer) {
  const PopulationStore& store = writer.store();
  const std::int32_t position = writer.card.position;
  if (store.line(position) == 0) return writer.words(no_own_line);
  if (store.birth_year[position] == 0) return writer.words(not_known);
  return text_of(CalendarDate{store.birth_year[position], store.birth_month[position], store.birth_day(position)});
}

/// A name of a list with the number of all animals that have it; empty for none.
std::string counted_name(const CardWriter& writer, std::string_view name, const ByNumber<std::int32_t>& numbers) {
  const std::int32_t own = numbers[writer.card.position];
  const auto count = std::count(numbers.values.begin() + 1, numbers.values.end(), own);
  return writer.words(counted, {data_text(name), std::to_string(count)});
}

std::string breeder_text(const CardWriter& writer) {
  const PopulationStore& store = writer.store();
  if (!store.has_breeder || store.breeder_no[writer.card.position] == 0) return {};
  return counted_name(writer, store.breeders.text_of(store.breeder_no[writer.card.position]), store.breeder_no);
}

std::string colour_text(const CardWriter& writer) {
  const PopulationStore& store = writer.store();
  const std::vector<ColourName>& names = writer.input.population.settings.colour_names;
  if (!store.has_colour) return {};
  const std::int32_t number = store.colour_no[writer.card.position];
  if (number < 1 || number > std::ssize(names)) return {};
  return counted_name(writer, names[static_cast<std::size_t>(number) - 1].trimmed(), store.colour_no);
}

std::string today_words(const CardWriter& writer) {
  const ReferencePopulation& reference = writer.input.reference;
  const std::string years = range_text(reference.first_year, reference.last_year, writer.input.language);
  const std::string count = std::to_string(reference.positions.size());
  if (reference.choice == ReferenceChoice::listed) return writer.words(listed_text, {count});
  return writer.words(reference.choice == ReferenceChoice::youngest ? youngest_text : born_text, {years, count});
}

bool has_both_parents(const AnimalCard& card) {
  return card.sire.parent != 0 && card.dam.parent != 0;
}

std::string inbreeding_text(const CardWriter& writer) {
  if (!has_both_parents(writer.card)) return writer.words(inbreeding_unknown);
  return writer.words(inbreeding_known,
                      {shown_inbreeding({writer.store(), writer.input.language}, writer.card.position)});
}

/// Nothing of an animal with an unknown parent.
std::string inbreeding_by_age(const CardWriter& writer) {
  if (!has_both_parents(writer.card)) return {};
  const auto share = [&](double value) { return writer.figure(percent * value, 2); };
  return writer.words(
      age_text, {share(writer.card.recent_3) + " %", share(writer.card.recent_5) + " %", share(writer.card.ancestral)});
}

std::string kinship_of(const CardWriter& writer) {
  const AnimalCard& card = writer.card;
  if (!card.mean_kinship) return {};
  std::string text = writer.words(kinship_text, {writer.figure(percent * *card.mean_kinship, 2), today_words(writer)});
  if (card.rank) {
    text += writer.words(rank_text, {std::to_string(card.rank->rank), std::to_string(card.rank->animals),
                                     std::to_string(writer.store().birth_year[card.position])});
  }
  return text;
}

std::string genes_of(const CardWriter& writer) {
  const PartOfToday& today = writer.card.today;
  if (today.animals == 0) return {};
  const std::string text = writer.words(
      genes_text, {writer.figure(percent * today.genes, 2), today_words(writer), std::to_string(today.descendants)});
  return today.is_one ? text + writer.words(itself_too) : text;
}

std::string offspring_of(const CardWriter& writer) {
  const OffspringList& list = writer.card.offspring;
  if (list.young == 0) return writer.words(none_word);
  return writer.words(offspring_text,
                      {std::to_string(list.young), std::to_string(list.males), std::to_string(list.young - list.males),
                       std::to_string(list.mates), std::to_string(list.breeding)});
}

const Wording& sex_word(const CardWriter& writer) {
  const std::optional<Sex> sex = writer.card.sex;
  if (!sex) return untold_sex;
  const bool is_told = writer.store().is_sex_told(writer.card.position);
  if (*sex == male) return is_told ? male_word : sex_of_sire;
  return is_told ? female_word : sex_of_dam;
}

void write_facts(CardWriter& writer) {
  const PopulationStore& store = writer.store();
  const std::int32_t position = writer.card.position;
  writer.page += "<dl class=\"fa-facts\">\n";
  add_fact(writer, sex_label, writer.words(sex_word(writer)));
  add_fact(writer, born_label, birth_text(writer));
  add_fact(writer, breeder_label, breeder_text(writer));
  add_fact(writer, colour_label, colour_text(writer));
  if (store.has_subpopulation) {
    add_fact(writer, subpopulation_label, data_text(store.subpopulation(position).trimmed()));
  }
  add_fact(writer, inbreeding_label, inbreeding_text(writer));
  add_fact(writer, age_label, inbreeding_by_age(writer));
  add_fact(writer, kinship_label, kinship_of(writer));
  add_fact(writer, genes_label, genes_of(writer));
  add_fact(writer, offspring_label, offspring_of(writer));
  add_fact(writer, completeness_label,
           writer.words(completeness_text, {writer.figure(double{store.generation_equivalents[position]}, 2),
                                            writer.figure(writer.card.completeness_index, 3)}));
  writer.page += "</dl>\n";
}

// --- pedigree ---

/// A heading and, below it, how the table is read.
void write_heading(CardWriter& writer, const Wording& title, const Wording* reading = nullptr) {
  writer.page += "<h3>" + escaped(writer.words(title)) + "</h3>\n";
  if (reading != nullptr) writer.page += "<p>" + escaped(writer.words(*reading)) + "</p>\n";
}

void write_pedigree(CardWriter& writer) {
  write_heading(writer, pedigree_title);
  const auto& times = writer.card.tree.times;
  writer.page += "<p class=\"fa-reading\">" + escaped(writer.words(pedigree_reading));
  if (std::any_of(times.begin(), times.end(), [](std::uint8_t count) { return count > 1; })) {
    writer.page += " <span class=\"fa-sample\">" + escaped(writer.words(repeated_sample)) + "</span> " +
                   escaped(writer.words(repeated_reading));
  }
  writer.page += "</p>\n";
  draw_pedigree(writer.page, {writer.store(), writer.input.language, writer.input.is_pressable}, writer.card.tree);
}

// --- tables ---

/// A table whose cells are HTML: the first one of a row is its heading. Columns of names are there where animals have
/// names.
void begin_table(CardWriter& writer, const Wording& title, std::initializer_list<const Wording*> headings,
                 std::string_view style = {}) {
  writer.page += "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + escaped(writer.words(title)) +
                 "\"><table" + (style.empty() ? "" : " class=\"" + std::string(style) + "\"") + "><thead><tr>";
  for (const Wording* const heading : headings) {
    if (heading == &name_heading && !writer.store().has_name) continue;
    writer.page += "<th scope=\"col\">" + escaped(writer.words(*heading)) + "</th>";
  }
  writer.page += "</tr></thead><tbody>\n";
}

void add_row(CardWriter& writer, const std::vector<std::string>& cells) {
  writer.page += "<tr><th scope=\"row\">" + cells.front() + "</th>";
  for (std::size_t k = 1; k < cells.size(); ++k) writer.page += "<td>" + cells[k] + "</td>";
  writer.page += "</tr>\n";
}

void end_table(CardWriter& writer) {
  writer.page += "</tbody></table></div>\n";
}

/// Behind the cell of an animal that of its name, where animals have names.
void add_name(const CardWriter& writer, std::int32_t position, std::vector<std::string>& cells) {
  if (!writer.store().has_name) return;
  cells.push_back(position == 0 ? std::string() : isolated(name_of_animal(writer.store(), position)));
}

/// Below this a part of F is nothing but rounding.
constexpr double least_part = 5e-7;

/// What an ancestor brings, shown as `label`; position 0: nobody whose name and year are known.
void add_part(CardWriter& writer, const std::string& label, std::int32_t position, double part) {
  std::vector<std::string> cells = {label};
  add_name(writer, position, cells);
  cells.push_back(position == 0 ? std::string() : year_text(writer, writer.store().birth_year[position]));
  cells.push_back(writer.figure(percent * part, 2));
  cells.push_back(writer.figure(percent * part / writer.card.parts.kinship, 1));
  add_row(writer, cells);
}

void write_parts(CardWriter& writer) {
  const KinshipParts& parts = writer.card.parts;
  if (!has_both_parents(writer.card)) return;
  if (parts.kinship == 0.0) return write_heading(writer, parts_title, &no_parts);
  write_heading(writer, parts_title, &parts_reading);
  begin_table(writer, parts_title, {&ancestor_heading, &name_heading, &born_heading, &part_heading, &share_heading});
  double rest = parts.kinship;
  for (const CommonAncestor& ancestor : parts.largest) {
    if (ancestor.position == 0) continue;
    rest -= ancestor.contribution;
    add_part(writer, pressable(writer, ancestor.position), ancestor.position, ancestor.contribution);
  }
  if (rest > least_part) add_part(writer, escaped(writer.words(others_row)), 0, rest);
  end_table(writer);
}

/// The identification of a founder, or of the animal whose parent it is.
std::string founder_label(const CardWriter& writer, const FounderPart& founder) {
  std::string id = pressable(writer, founder.position);
  if (!founder.is_unknown_parent) return id;
  const bool is_sire = known_parents(writer.store(), founder.position).sire == 0;
  return writer.words(is_sire ? unknown_sire_of : unknown_dam_of, {id});
}

void write_founders(CardWriter& writer) {
  constexpr std::size_t most_founders = 10;
  const FounderInbreeding& founders = writer.card.founders;
  const double inbreeding = writer.card.parts.kinship;
  if (inbreeding < least_part) return;
  write_heading(writer, founders_title);
  if (founders.is_too_large) {
    writer.page += "<p>" + writer.words(founders_too_many, {std::to_string(founders.ancestors)}) + "</p>\n";
    return;
  }
  writer.page += "<p>" + writer.words(founders_reading, {writer.figure(percent * inbreeding, 2)}) + "</p>\n";
  begin_table(writer, founders_title, {&founder_heading, &name_heading, &born_heading, &part_heading, &share_heading});
  double rest = inbreeding;
  const std::size_t count = std::min(founders.parts.size(), most_founders);
  for (const FounderPart& founder : std::span(founders.parts).first(count)) {
    rest -= founder.part;
    add_part(writer, founder_label(writer, founder), founder.is_unknown_parent ? 0 : founder.position, founder.part);
  }
  const std::size_t others = founders.parts.size() - count;
  if (others > 0) add_part(writer, writer.words(counted_others, {std::to_string(others)}), 0, rest);
  end_table(writer);
}

void write_sides(CardWriter& writer) {
  write_heading(writer, sides_title);
  begin_table(writer, sides_title, {&generation_heading, &sire_side, &dam_side});
  for (std::size_t g = 0; g < tree_generations; ++g) {
    const std::string possible = std::to_string(1U << g);
    const auto cell = [&](const ParentSide& side) {
      return escaped(writer.words(of_possible, {std::to_string(side.known[g]), possible}));
    };
    add_row(writer, {std::to_string(g + 1), cell(writer.card.sire), cell(writer.card.dam)});
  }
  end_table(writer);
}

std::string young_cell(const CardWriter& writer, const MateYear& entry) {
  constexpr std::size_t most_young = 60;
  std::string cell;
  const std::size_t count = std::min(entry.young.size(), most_young);
  for (std::size_t k = 0; k < count; ++k) {
    cell += (k == 0 ? "" : ", ") + pressable(writer, entry.young[k].position) + " (" +
            std::to_string(entry.young[k].offspring) + ")";
  }
  if (count < entry.young.size()) {
    cell += ", " + escaped(writer.words(further_young, {std::to_string(entry.young.size() - count)}));
  }
  return cell;
}

void write_young(CardWriter& writer) {
  constexpr std::size_t most_rows = 300;
  const std::vector<MateYear>& years = writer.card.offspring.years;
  if (years.empty()) return;
  write_heading(writer, young_title, &young_reading);
  begin_table(writer, young_title, {&mate_heading, &name_heading, &year_heading, &young_heading}, "w");
  const std::size_t count = std::min(years.size(), most_rows);
  for (std::size_t k = 0; k < count; ++k) {
    const MateYear& entry = years[k];
    std::vector<std::string> cells = {entry.mate != 0 ? pressable(writer, entry.mate)
                                                      : escaped(writer.words(unknown_mate))};
    add_name(writer, entry.mate, cells);
    cells.push_back(year_text(writer, entry.year));
    cells.push_back("<span class=\"fa-young\">" + young_cell(writer, entry) + "</span>");
    add_row(writer, cells);
  }
  end_table(writer);
  if (count < years.size()) {
    writer.page += "<p>" + escaped(writer.words(further_rows, {std::to_string(years.size() - count)})) + "</p>\n";
  }
}

std::string population_name(const CardInput& input) {
  return data_text(input.population.settings.population_name.trimmed());
}

std::string title_of(const CardInput& input, std::span<const std::int32_t> positions) {
  const PopulationStore& store = input.population.store;
  std::string title;
  if (positions.size() == 1) {
    const std::string name = name_of_animal(store, positions.front());
    title = data_text(store.id(positions.front())) + (name.empty() ? "" : " " + name) + " - ";
  }
  return title + population_name(input);
}

}  // namespace

std::string animal_card_html(const CardInput& input, const AnimalCard& card) {
  std::string page;
  CardWriter writer = {page, input, card};
  const std::string id = "pw-animal-" + std::to_string(card.position);
  page += "<article class=\"fa-card\" aria-labelledby=\"" + id + "\"><h2 id=\"" + id + "\">" + heading_of(writer) +
          "</h2>\n<p class=\"fa-of\">" + isolated(population_name(input)) + ", " + text_of(input.today) + "</p>\n" +
          corrections_note(input.population.corrections, input.language);
  write_facts(writer);
  write_pedigree(writer);
  page += "<div class=\"fa-more\">\n";
  write_parts(writer);
  write_founders(writer);
  write_sides(writer);
  write_young(writer);
  page += "</div></article>\n";
  return page;
}

std::string make_animal_page(const CardInput& input, std::span<const std::int32_t> positions) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"" + std::string(input.language == ToolLanguage::english ? "en" : "nl") +
      "\">\n<head>\n<meta charset=\"utf-8\">\n<meta http-equiv=\"Content-Security-Policy\" content=\"" +
      animal_page_policy() + "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
      escaped(title_of(input, positions)) + "</title>\n<style>";
  page += page_style();
  page += "</style>\n<style>";
  page += animal_style();
  page += "</style>\n</head>\n<body class=\"pw fa-page\">\n<header><h1>" + isolated(population_name(input)) +
          "</h1></header>\n<main>\n";
  for (const std::int32_t position : positions) page += animal_card_html(input, make_card(input.source, position));
  page += "</main>\n<footer><p>" + escaped(phrase(made_by, input.language, {text_of(input.today)})) +
          "</p></footer>\n</body>\n</html>\n";
  return page;
}

}  // namespace pedigreewatch
