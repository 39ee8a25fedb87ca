// Lists of names have any length. Charts show the eight with the most animals, and say so.

#include "page/group_charts.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <optional>
#include <string_view>

#include "core/by_number.h"
#include "genetics/subpopulation_kinship.h"
#include "page/chart_making.h"
#include "page/inbreeding_charts.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording number_of_animals = {"animals", "dieren"};
constexpr Wording all_others = {"all others", "alle overige"};
constexpr std::size_t most_lines = 8;

constexpr ChartTexts colours_texts = {
    "colours",
    {"Colours", "Kleurslagen"},
    {"A bar is the animals of a year, divided by colour; colours that the steer file does not list are taken together.",
     "Een balk is de dieren van een jaar, verdeeld naar kleur; kleuren die de sturingsfile niet noemt zijn samengenomen."},
    number_of_animals};

constexpr ChartTexts breeders_texts = {
    "breeders",
    {"Breeders", "Fokkers"},
    {"A bar is the animals of a year, divided by breeder, counted by whole names (the report cuts names into pieces).",
     "Een balk is de dieren van een jaar, verdeeld naar fokker, geteld met hele namen (de uitvoer knipt namen in stukken)."},
    number_of_animals};
constexpr Wording other_breeders = {"other breeders", "andere fokkers"};
constexpr Wording no_breeder = {"without breeder", "zonder fokker"};
constexpr Wording breeder_headings[] = {{"Breeder", "Fokker"},
                                        {"Animals", "Dieren"},
                                        {"of the last 10 years", "van de laatste 10 jaren"},
                                        {"with offspring", "met nakomelingen"}};

constexpr ChartTexts subpopulations_texts = {
    "subpopulations",
    {"Subpopulations", "Subpopulaties"},
    {"A bar is the animals of a year that belong to a listed subpopulation, divided by subpopulation.",
     "Een balk is de dieren van een jaar die tot een genoemde subpopulatie horen, verdeeld naar subpopulatie."},
    number_of_animals};
constexpr ChartTexts within_texts = {
    "within",
    {"Inbreeding and kinship within subpopulations", "Inteelt en verwantschap binnen subpopulaties"},
    {"The mean F of the animals of each subpopulation, and their mean kinship f (without self), in years with two or more of them: the higher f, the fewer mates are left that are not related. At most the eight largest are shown.",
     "De gemiddelde F van de dieren van elke subpopulatie, en hun gemiddelde verwantschap f (zonder zelf), in jaren met twee of meer dieren: hoe hoger f, hoe minder partners er overblijven die geen familie zijn. Hoogstens de acht grootste staan er."},
    {"%", "%"}};
constexpr Wording F_of = {"F, {1}", "F, {1}"}, f_of = {"f, {1}", "f, {1}"};
constexpr Wording F_word = {"F", "F"}, f_word = {"f, without self", "f, zonder zelf"};
constexpr ChartTexts kinship_between_texts = {
    "between",
    {"Kinship between subpopulations", "Verwantschap tussen subpopulaties"},
    {"The mean kinship f of the animals of two subpopulations, half the relationship a that the report's table has; at most eight pairs of the largest are shown.",
     "De gemiddelde verwantschap f van de dieren van twee subpopulaties, de helft van de verwantschap a in de tabel van de uitvoer; hoogstens acht paren van de grootste staan er."},
    {"%", "%"}};
constexpr Wording size_headings[] = {{"Subpopulation", "Subpopulatie"},
                                     {"Generation interval", "Generatie-interval"},
                                     {"Ne, F, first and last year", "Ne, F, eerste en laatste jaar"},
                                     {"Ne, F, all years", "Ne, F, alle jaren"},
                                     {"Ne, f, first and last year", "Ne, f, eerste en laatste jaar"},
                                     {"Ne, f, all years", "Ne, f, alle jaren"}};

// ---- breeders --------------------------------------------------------------------------------------------------

struct BreederCounts {
  std::int64_t animals = 0, recent = 0, parents = 0;
};

ByNumber<BreederCounts> count_breeders(const PopulationStore& store) {
  constexpr std::int64_t recent_years = 10;
  ByNumber<BreederCounts> counts(store.breeders.names.entries.size());
  for (std::int32_t animal = 1; animal <= store.animal_count; ++animal) {
    BreederCounts& count = counts[store.breeder_no[animal]];
    const std::int32_t year = store.birth_year[animal];
    ++count.animals;
    if (year != 0 && year > std::int64_t{store.birth_years.last} - recent_years) ++count.recent;
    if (store.is_native_parent(animal)) ++count.parents;
  }
  return counts;
}

/// The breeders with the most animals, at most so many.
std::vector<std::int32_t> largest_breeders(const ByNumber<BreederCounts>& counts, std::size_t most) {
  std::vector<std::int32_t> numbers(static_cast<std::size_t>(std::max(0, counts.last())));
  std::iota(numbers.begin(), numbers.end(), 1);
  const auto has_more = [&](std::int32_t a, std::int32_t b) { return counts[a].animals > counts[b].animals; };
  std::stable_sort(numbers.begin(), numbers.end(), has_more);
  numbers.resize(std::min(numbers.size(), most));
  return numbers;
}

/// The layers of the breeders, then all other breeders, then the animals without one.
CountLayers count_layers(const PageFrame& frame, const std::vector<std::int32_t>& breeders) {
  const PopulationStore& store = frame.store();
  const std::size_t rest = breeders.size(), without = rest + 1;
  CountLayers layers;
  ByNumber<std::size_t> layer_of(store.breeders.names.entries.size(), rest);
  for (const std::int32_t breeder : breeders) {
    layer_of[breeder] = layers.add(data_text(store.breeders.names.at(breeder).trimmed()), frame.years.count());
  }
  layers.add(frame.text(other_breeders), frame.years.count());
  layers.add(frame.text(no_breeder), frame.years.count());
  layer_of[0] = without;
  for (Row row = frame.years.first; row <= frame.years.last; ++row) {
    const std::size_t year = static_cast<std::size_t>(row - frame.years.first);
    for (const std::int32_t animal : frame.animals(row)) ++layers.counts[layer_of[store.breeder_no[animal]]][year];
  }
  return layers;
}

/// Takes the layers away that have no animal.
CountLayers without_empty(const CountLayers& layers) {
  CountLayers kept;
  for (std::size_t k = 0; k < layers.names.size(); ++k) {
    const std::vector<std::int64_t>& counts = layers.counts[k];
    if (std::all_of(counts.begin(), counts.end(), [](std::int64_t count) { return count == 0; })) continue;
    kept.names.push_back(layers.names[k]);
    kept.counts.push_back(counts);
  }
  return kept;
}

// ---- subpopulations --------------------------------------------------------------------------------------------

const Subpopulations& subpopulations_of(const PageFrame& frame) {
  return frame.population().settings.layout.subpopulations;
}

std::string name_of(const PageFrame& frame, std::int32_t subpopulation) {
  return data_text(subpopulations_of(frame).names.at(subpopulation).trimmed());
}

/// The subpopulations with the most animals, at most eight, in the order of the steer file.
std::vector<std::int32_t> largest_subpopulations(const PageFrame& frame) {
  const YearTable<std::int32_t>& births = frame.extras().subpopulations.births;
  std::vector<std::int64_t> sums(static_cast<std::size_t>(births.column_count) + 1, 0);
  for (Row row = 1; row <= births.row_count(); ++row) {
    for (std::int64_t k = 1; births.is_stored(row) && k <= births.column_count; ++k) {
      sums[static_cast<std::size_t>(k)] += births.value(row, k);
    }
  }
  std::vector<std::int32_t> numbers(static_cast<std::size_t>(subpopulations_of(frame).count()));
  std::iota(numbers.begin(), numbers.end(), 1);
  const auto sum = [&](std::int32_t k) { return sums[std::min(static_cast<std::size_t>(k), sums.size() - 1)]; };
  std::stable_sort(numbers.begin(), numbers.end(), [&](auto a, auto b) { return sum(a) > sum(b); });
  numbers.resize(std::min(numbers.size(), most_lines));
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

/// The animals of each subpopulation in one year, by its number.
ByNumber<std::int64_t> count_subpopulations(const PageFrame& frame, Row row) {
  ByNumber<std::int64_t> counts(subpopulations_of(frame).names.entries.size());
  for (const std::int32_t animal : frame.animals(row)) ++counts[frame.store().subpopulation_no(animal)];
  return counts;
}

std::vector<Value> kinship_of_pair(const PageFrame& frame, std::int32_t first, std::int32_t second) {
  const Subpopulations& subpopulations = subpopulations_of(frame);
  return by_year(frame, [&](Row row) {
    const ByNumber<std::int64_t> counts = count_subpopulations(frame, row);
    const auto animals_of = [&](std::int32_t k) { return counts[subpopulations.first_numbers.at(k)]; };
    const auto column = column_of_pair(subpopulations.count(), first, second, animals_of);
    return column ? known_if(true, std::max(frame.extras().kinship.value(row, *column) * 0.5F, 0.0F)) : Value();
  });
}

/// One of the two figures of a subpopulation, in per cent.
std::vector<Value> within(const PageFrame& frame, std::int32_t k, std::int64_t column) {
  return in_percent(by_year(frame, [&](Row row) {
    const bool is_known = count_subpopulations(frame, row)[subpopulations_of(frame).first_numbers.at(k)] > 1;
    return known_if(is_known, std::max(frame.extras().kinship.value(row, column), 0.0F));
  }));
}

// ---- colours of coats ------------------------------------------------------------------------------------------

/// The colours of coats that have one of their own, by words of several languages, folded.
constexpr auto coat_words = std::to_array<std::array<std::string_view, 7>>({
    {"white", "wit", "witte", "weiss", "blanc", "blanche", "snow"},
    {"cream", "creme", "ivoor", "ivory", "beige", "creamy", "creamcolored"},
    {"yellow", "geel", "gele", "fawn", "gelb", "blond", "blonde"},
    {"red", "rood", "rode", "rot", "roux", "vos", "chestnut"},
    {"brown", "bruin", "bruine", "braun", "brun", "chocolate", "liver"},
    {"grey", "gray", "grijs", "grijze", "grau", "gris", "silver"},
    {"blue", "blauw", "blauwe", "blau", "bleu", "lilac", "lila"},
    {"black", "zwart", "zwarte", "schwarz", "noir", "noire", "ebony"},
});

/// The number of the coat that the words of a name tell of; none where they tell of none or of several.
std::optional<std::size_t> coat_of(std::string_view name) {
  std::optional<std::size_t> coat;
  for (std::size_t begin = 0; begin < name.size();) {
    const std::size_t end = std::min(name.find_first_of(" -/,", begin), name.size());
    const std::string word = folded(name.substr(begin, end - begin));
    for (std::size_t k = 0; k < coat_words.size(); ++k) {
      if (!is_among(word, coat_words[k])) continue;
      if (coat && *coat != k) return std::nullopt;
      coat = k;
    }
    begin = end + 1;
  }
  return coat;
}

/// Each coat colour to the first layer that is called so.
void paint_coats(Chart& chart) {
  std::array<bool, coat_words.size()> is_taken = {};
  for (Series& series : chart.series) {
    const std::optional<std::size_t> coat = coat_of(series.name);
    if (!coat || is_taken[*coat]) continue;
    is_taken[*coat] = true;
    series.paint = {Palette::coat, coat};
  }
}

}  // namespace

Chart colours_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, colours_texts);
  CountLayers layers = layers_of(frame, frame.whole().tables.colour_counts);
  const std::vector<ColourName>& names = frame.population().settings.colour_names;
  constexpr std::array<Wording, 2> added = {{{"unknown", "onbekend"}, {"other or none", "andere of geen"}}};
  for (std::size_t k = 0; k < std::min(layers.names.size(), names.size()); ++k) {
    const std::size_t left = names.size() - k;  // the last two are no names of the steer file
    layers.names[k] = left > added.size() ? data_text(names[k].trimmed()) : frame.text(added[added.size() - left]);
  }
  add_layers(chart, layers, frame.text(all_others));
  paint_coats(chart);
  chart.is_folded = true;
  return chart;
}

Chart breeders_chart(const PageFrame& frame) {
  constexpr std::size_t most_listed = 14;
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, breeders_texts);
  const std::vector<std::int32_t> breeders = largest_breeders(count_breeders(frame.store()), most_listed);
  add_layers(chart, without_empty(count_layers(frame, breeders)), frame.text(all_others));
  chart.is_folded = true;
  return chart;
}

FigureTable breeders_table(const PageFrame& frame) {
  constexpr std::size_t most_listed = 20;
  FigureTable table;
  for (const Wording& heading : breeder_headings) table.headings.push_back(frame.text(heading));
  const ByNumber<BreederCounts> counts = count_breeders(frame.store());
  for (const std::int32_t breeder : largest_breeders(counts, most_listed)) {
    const BreederCounts& count = counts[breeder];
    table.rows.push_back(
        {data_text(frame.store().breeders.names.at(breeder).trimmed()),
         {std::to_string(count.animals), std::to_string(count.recent), std::to_string(count.parents)}});
  }
  return table;
}

Chart subpopulations_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, subpopulations_texts);
  CountLayers layers = layers_of(frame, frame.extras().subpopulations.births);
  for (std::size_t k = 0; k < layers.names.size(); ++k) {
    layers.names[k] = name_of(frame, static_cast<std::int32_t>(k) + 1);
  }
  add_layers(chart, layers, frame.text(all_others));
  return chart;
}

Chart within_chart(const PageFrame& frame) {
  constexpr int decimals = 2;
  Chart chart = make_year_chart(frame, ChartKind::lines, within_texts);
  for (const std::int32_t k : largest_subpopulations(frame)) {
    const std::string name = name_of(frame, k);
    Chart panel = make_panel(chart, ChartKind::lines, name, chart.unit);
    const std::vector<Value> F = within(frame, k, inbreeding_column(k)), f = within(frame, k, kinship_column(k));
    add_column(chart, phrase(F_of, frame.language, {name}), F, decimals);
    add_column(chart, phrase(f_of, frame.language, {name}), f, decimals);
    panel.series = {{frame.text(F_word), F}, {frame.text(f_word), f}};
    chart.panels.push_back(std::move(panel));
  }
  return chart;
}

Chart kinship_between_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, kinship_between_texts);
  const std::vector<std::int32_t> largest = largest_subpopulations(frame);
  for (std::size_t i = 0; i < largest.size(); ++i) {
    for (std::size_t j = i + 1; j < largest.size() && chart.series.size() < most_lines; ++j) {
      const std::string name = name_of(frame, largest[i]) + " - " + name_of(frame, largest[j]);
      add_series(chart, name, in_percent(kinship_of_pair(frame, largest[i], largest[j])), 2);
    }
  }
  chart.is_folded = true;
  return chart;
}

FigureTable subpopulation_sizes_table(const PageFrame& frame) {
  FigureTable table;
  for (const Wording& heading : size_headings) table.headings.push_back(frame.text(heading));
  for (const Block& block : frame.input.subpopulations) {
    std::vector<std::string> cells = {report_figure(block.interval.generation_interval, 2, frame.language)};
    const GenerationRates& rates = block.rates;
    for (const GenerationRate* rate : {&rates.F_absolute, &rates.F_smoothed, &rates.f_absolute, &rates.f_smoothed}) {
      cells.push_back(is_estimable(frame, *rate) ? report_figure(rate->effective_size, 2, frame.language)
                                                 : not_estimable(frame));
    }
    table.rows.push_back({data_text(block.name), cells});
  }
  return table;
}

}  // namespace pedigreewatch
