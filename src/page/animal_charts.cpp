// One function a chart, in the order of the page. The figures are those of the report's yearly tables.

#include "page/animal_charts.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "page/chart_making.h"
#include "page/page_marks.h"
#include "page/standing_words.h"
#include "reports/report_lines.h"
#include "standing/parents_in_use.h"
#include "standing/verdict.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {
namespace {

constexpr Wording number_of_animals = {"animals", "dieren"};
constexpr Wording years_unit = {"years", "jaren"};
constexpr Wording share_unit = {"% of the animals", "% van de dieren"};
constexpr Wording sires_word = {"sires", "vaders"}, dams_word = {"dams", "moeders"};

constexpr ChartTexts births_texts = {
    "births",
    {"Animals born, by sex and by what became of them", "Geboren dieren, naar geslacht en wat ervan werd"},
    {"A bar is the animals born in a year, divided into those that have offspring in the data and those that have none; the animals of the last years are still to breed, and imports without offspring are left out.",
     "Een balk is de dieren die in een jaar geboren zijn, verdeeld in dieren met en zonder nakomelingen in de gegevens; de dieren van de laatste jaren moeten nog fokken, en importdieren zonder nakomelingen tellen niet mee."},
    number_of_animals};
/// Males are blue, females brown; those that bred are darker, whether there are imports or not.
struct FateNames {
  Sex sex;
  Wording unused, parents, imported;
  std::array<std::size_t, 3> colours;
};
constexpr FateNames fates[] = {{male,
                                {"males without offspring", "mannelijk, zonder nakomelingen"},
                                {"sires", "vaders"},
                                {"imported sires", "importvaders"},
                                {2, 0, 5}},
                               {female,
                                {"females without offspring", "vrouwelijk, zonder nakomelingen"},
                                {"dams", "moeders"},
                                {"imported dams", "importmoeders"},
                                {6, 1, 4}}};

constexpr ChartTexts litters_texts = {
    "litters",
    {"Litters", "Nesten"},
    {"A litter is all animals of one dam born in one year; a bar is the litters of a year, the smallest at the bottom.",
     "Een nest is alle dieren van \xC3\xA9\xC3\xA9n moeder die in \xC3\xA9\xC3\xA9n jaar geboren zijn; een balk is de nesten van een jaar, de kleinste onderaan."},
    {"litters", "nesten"}};
constexpr Wording litters_word = {"litters", "nesten"};
constexpr Wording sires_of_litters = {"sires", "vaders"};
constexpr Wording young_per_litter = {"young per litter", "jongen per nest"};

constexpr ChartTexts interval_texts = {
    "interval",
    {"Generation interval", "Generatie-interval"},
    {"The mean age of the parents at the births of a year; the longer it is, the slower inbreeding rises per year.",
     "De gemiddelde leeftijd van de ouders bij de geboorten van een jaar; hoe langer, hoe langzamer de inteelt per jaar stijgt."},
    years_unit};
constexpr Wording both_parents = {"both", "beide"};
constexpr Wording all_years = {"all years: {1}", "alle jaren: {1}"};

constexpr ChartTexts ages_texts = {
    "ages",
    {"Ages of the parents", "Leeftijd van de ouders"},
    {"How many animals, of all years together, had a sire or dam of that age; age 3 is more than three and at most four years, and parents of at most one year are left out.",
     "Hoeveel dieren, van alle jaren samen, een vader of moeder van die leeftijd hadden; leeftijd 3 is meer dan drie en hoogstens vier jaar, en ouders van hoogstens \xC3\xA9\xC3\xA9n jaar tellen niet mee."},
    number_of_animals};
constexpr Wording age_heading = {"Age in years", "Leeftijd in jaren"};

constexpr ChartTexts complete_texts = {
    "complete",
    {"How many generations are known", "Hoeveel generaties bekend zijn"},
    {"Generation equivalents: how many full generations of ancestors the animals of a year would have if what is known of them stood together; below 3 inbreeding can hardly be seen, from 5 on years and animals can be compared. Wholly known: the share of the animals of which that many generations are known without a gap.",
     "Equivalente generaties: hoeveel volle generaties voorouders de dieren van een jaar zouden hebben als alles wat bekend is bij elkaar stond; onder 3 is inteelt nauwelijks te zien, vanaf 5 zijn jaren en dieren te vergelijken. Volledig bekend: het aandeel van de dieren waarvan zoveel generaties zonder gat bekend zijn."},
    {"", ""}};
constexpr Wording generations_unit = {"generations", "generaties"};
constexpr Wording equivalents_word = {"generation equivalents", "equivalente generaties"};
constexpr Wording wholly_known = {"generations wholly known", "volledig bekende generaties"};
constexpr Wording complete_names[] = {{"none", "geen"}, {"1", "1"}, {"2", "2"},
                                      {"3", "3"},       {"4", "4"}, {"5 or more", "5 of meer"}};

constexpr ChartTexts sires_texts = {
    "sires",
    {"Share of the most used sires", "Aandeel van de meest gebruikte vaders"},
    {"The part of a year's animals with a known father that the most used sire, the four and the ten most used ones have; the lower the lines, the more evenly sires are used.",
     "Het deel van de dieren van een jaar met bekende vader dat de meest gebruikte vader, de vier en de tien meest gebruikte hebben; hoe lager de lijnen, hoe gelijkmatiger de vaders gebruikt worden."},
    {"% of the animals", "% van de dieren"}};
constexpr Wording sire_count = {"Sires", "Vaders"}, top_sire = {"Top sire", "Topvader"};
constexpr Wording share_names[] = {
    {"top sire (%)", "topvader (%)"}, {"top 4 (%)", "top 4 (%)"}, {"top 10 (%)", "top 10 (%)"}};

constexpr ChartTexts use_texts = {
    "parents-used",
    {"Sires and dams in use, and what they are worth", "Gebruikte vaders en moeders, en waarvoor ze tellen"},
    {"How many sires and dams the animals of a year have, and how many evenly used ones would be as good (1 / sum of squared shares): the wider the gap, the more uneven the use.",
     "Hoeveel vaders en moeders de dieren van een jaar hebben, en hoeveel gelijk gebruikte even goed zouden zijn (1 / som van de kwadraten van de aandelen): hoe wijder het gat, hoe ongelijker het gebruik."},
    {"parents", "ouders"}};
constexpr Wording use_names[] = {{"sires", "vaders"},
                                 {"sires, as good as", "vaders, zo goed als"},
                                 {"dams", "moeders"},
                                 {"dams, as good as", "moeders, zo goed als"}};

constexpr ChartTexts recent_sires_texts = {
    "recent-sires",
    {"The sires of the last five years", "De vaders van de laatste vijf jaren"},
    {"Share of the young of {1} to {2} with a known sire. Each sire above {3} has a bar of another colour.",
     "Aandeel van de jongen van {1} tot en met {2} met bekende vader. Elke vader boven {3} heeft een balk van een andere kleur."},
    {"", ""}};
constexpr Wording recent_headings[] = {{"Sire", "Vader"},   {"Animal", "Dier"},           {"Born", "Geboren"},
                                       {"Young", "Jongen"}, {"Share (%)", "Aandeel (%)"}, {"Drawn", "Getekend"}};

constexpr ChartTexts imports_texts = {
    "imports",
    {"Offspring of imported parents", "Nakomelingen van importouders"},
    {"A bar is the native animals of a year with two known parents, divided by which of the parents were imported.",
     "Een balk is de eigen dieren van een jaar met twee bekende ouders, verdeeld naar welke ouders import waren."},
    number_of_animals};
struct ImportColumn {
  std::int32_t ImportPairs::*count;
  Wording name;
};
constexpr ImportColumn import_columns[] = {{&ImportPairs::both_native, {"both native", "beide eigen"}},
                                           {&ImportPairs::sire_imported, {"sire imported", "vader import"}},
                                           {&ImportPairs::dam_imported, {"dam imported", "moeder import"}},
                                           {&ImportPairs::both_imported, {"both imported", "beide import"}}};

/// A series of one column of records.
template <typename Record, typename Number>
std::vector<Value> column_by_year(const PageFrame& frame, const YearRows<Record>& rows, Number Record::*column) {
  return by_year(frame, [&](Row row) { return known_if(true, rows.of(row).*column); });
}

/// The same where 0 stands for lack of animals.
template <typename Record>
std::vector<Value> mean_by_year(const PageFrame& frame, const YearRows<Record>& rows, float Record::*column) {
  return by_year(frame, [&](Row row) { return known_if(rows.of(row).*column != 0.0F, rows.of(row).*column); });
}

/// The mean ages of parents by year, where such an age is known of any animal: 0 is an age too.
std::vector<Value> ages_by_year(const PageFrame& frame, float MeanParentAges::*column, BySex<bool> counted) {
  const PopulationStore& store = frame.store();
  const auto is_known = [&](std::int32_t animal) {
    return (counted.of(male) && store.sire_age_days[animal] != unknown_age) ||
           (counted.of(female) && store.dam_age_days[animal] != unknown_age);
  };
  return by_year(frame, [&](Row row) {
    const auto animals = frame.animals(row);
    const bool any_is_known = std::any_of(animals.begin(), animals.end(), is_known);
    return known_if(any_is_known, frame.whole().tables.parent_ages.of(row).*column);
  });
}

void add_fates(Chart& chart, const PageFrame& frame, const FateNames& fate) {
  const auto counts = [&](std::int32_t ParentCount<std::int32_t>::*column) {
    return by_year(frame, [&](Row row) {
      return known_if(true, frame.whole().tables.parent_counts.of(row).of(fate.sex).*column);
    });
  };
  using Count = ParentCount<std::int32_t>;
  const auto paint = [&](std::size_t k) { return Paint{Palette::apart, fate.colours[k]}; };
  add_series(chart, frame.text(fate.unused), counts(&Count::unused), 0, paint(0));
  add_series(chart, frame.text(fate.parents), counts(&Count::native_parents), 0, paint(1));
  if (!frame.store().has_import) return;
  add_series(chart, frame.text(fate.imported), counts(&Count::imported_parents), 0, paint(2));
}

/// The totals by age; those above the highest age that is shown count there.
std::vector<Value> ages_up_to(const YearTable<std::int32_t>& classes, std::size_t highest) {
  std::vector<Value> ages(highest, 0.0);
  const std::vector<std::int64_t> totals = column_sums(classes);
  for (std::size_t age = 0; age < totals.size(); ++age) {
    Value& value = ages[std::min(age, highest - 1)];
    value = *value + static_cast<double>(totals[age]);
  }
  return ages;
}

std::string name_of_sire(const PageFrame& frame, Row row) {
  const TopSireRow sires = frame.extras().top_sires.of(row);
  if (sires.sire_count == 0) return std::string(no_figure);
  const std::string id = data_text(frame.store().id(sires.top_sire));
  const std::string name = frame.store().has_name ? data_text(frame.store().name(sires.top_sire)) : std::string();
  return name.empty() ? id : name + " (" + id + ")";
}

/// The share of the most used sires, so many of them.
std::vector<Value> sire_shares(const PageFrame& frame, std::size_t count) {
  return by_year(frame, [&](Row row) {
    const TopSireRow sires = frame.extras().top_sires.of(row);
    const auto* const end = sires.shares.begin() + static_cast<std::ptrdiff_t>(count);
    return known_if(sires.sire_count > 0, std::accumulate(sires.shares.begin(), end, 0.0F));
  });
}

/// Whether the sizes of the litters say anything: where nearly all are of one young they do not.
bool have_sizes(const CountLayers& sizes) {
  constexpr double nearly_all = 0.95;
  std::int64_t all = 0, ones = 0;
  for (std::size_t k = 0; k < sizes.counts.size(); ++k) {
    const std::int64_t count = std::accumulate(sizes.counts[k].begin(), sizes.counts[k].end(), std::int64_t{0});
    all += count;
    if (k == 0) ones = count;
  }
  return static_cast<double>(ones) <= nearly_all * static_cast<double>(all);
}

}  // namespace

Chart births_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, births_texts);
  for (const FateNames& fate : fates) add_fates(chart, frame, fate);
  mark_lone_first_year(chart, frame);
  return chart;
}

Chart litters_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, litters_texts);
  const YearRows<LitterMeans>& means = frame.whole().litter_means;
  const auto litters =
      by_year(frame, [&](Row row) { return known_if(!frame.animals(row).empty(), means.of(row).litters); });
  const CountLayers sizes = layers_of(frame, frame.whole().litter_sizes);
  if (have_sizes(sizes)) {
    add_column(chart, frame.text(litters_word), litters, 0);
  } else {
    add_series(chart, frame.text(litters_word), litters, 0);
  }
  add_column(chart, frame.text(sires_of_litters),
             column_by_year(frame, frame.extras().top_sires, &TopSireRow::sire_count), 0);
  add_column(chart, frame.text(young_per_litter), mean_by_year(frame, means, &LitterMeans::young_per_litter), 2);
  if (have_sizes(sizes)) add_sizes(chart, sizes);
  return chart;
}

Chart interval_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, interval_texts);
  const auto add = [&](const Wording& name, float MeanParentAges::*column, BySex<bool> counted) {
    add_series(chart, frame.text(name), ages_by_year(frame, column, counted), 2);
  };
  add(sires_word, &MeanParentAges::sires, {true, false});
  add(dams_word, &MeanParentAges::dams, {false, true});
  add(both_parents, &MeanParentAges::parents, {true, true});
  const double interval = frame.whole().interval.generation_interval;
  if (std::isfinite(interval)) {
    chart.references.push_back(
        {interval, phrase(all_years, frame.language, {report_figure(interval, 2, frame.language)})});
  }
  mark_negative_ages(chart, frame);
  return chart;
}

Chart parent_ages_chart(const PageFrame& frame) {
  constexpr std::int64_t highest_shown = 40;
  Chart chart = make_chart(frame, ChartKind::lines, ages_texts, age_heading);
  const ParentAgeClasses& classes = frame.whole().tables.age_classes;
  const std::int64_t oldest =
      std::max({std::int64_t{1}, classes.of(male).column_count, classes.of(female).column_count});
  const std::size_t highest = static_cast<std::size_t>(std::min(oldest, highest_shown));
  for (std::size_t age = 1; age <= highest; ++age) add_place(chart, std::to_string(age));
  chart.first_number = 1;
  if (oldest > highest_shown) {
    chart.places.back() += "+";
    chart.figures.rows.back().heading += "+";
  }
  if (classes.of(male).column_count < 1 && classes.of(female).column_count < 1) return chart;
  add_series(chart, frame.text(sires_word), ages_up_to(classes.of(male), highest), 0);
  add_series(chart, frame.text(dams_word), ages_up_to(classes.of(female), highest), 0);
  chart.is_folded = true;
  return chart;
}

Chart completeness_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, complete_texts);
  const YearRows<CompletenessRow>& completeness = frame.whole().tables.completeness;
  const auto is_known = [&](Row row) { return !frame.animals(row).empty(); };
  Chart equivalents = make_panel(chart, ChartKind::lines, frame.text(equivalents_word), frame.text(generations_unit));
  const auto values =
      by_year(frame, [&](Row row) { return known_if(is_known(row), completeness.of(row).equivalent_generations); });
  add_column(chart, frame.text(equivalents_word), values, 2);
  equivalents.series.push_back({frame.text(equivalents_word), values});
  equivalents.references = {{least_equivalents, report_figure(least_equivalents, 0, frame.language)},
                            {good_equivalents, report_figure(good_equivalents, 0, frame.language)}};
  Chart shares = make_panel(chart, ChartKind::stacked_bars, frame.text(wholly_known), frame.text(share_unit));
  const auto share = [&](std::size_t generations, Row row) {
    const auto all = completeness.of(row).generation_shares;
    if (generations > 0) return all[generations - 1];
    return std::max(0.0F, 1.0F - std::accumulate(all.begin(), all.end(), 0.0F));
  };
  for (std::size_t below = std::size(complete_names); below > 0; --below) {  // the best known ones at the bottom
    const std::size_t generations = below - 1;
    const auto part =
        in_percent(by_year(frame, [&](Row row) { return known_if(is_known(row), share(generations, row)); }));
    add_column(chart, frame.text(complete_names[generations]), part, 0);
    shares.series.push_back({frame.text(complete_names[generations]), part, {Palette::ordered, generations}});
  }
  chart.panels = {std::move(equivalents), std::move(shares)};
  return chart;
}

Chart parents_used_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, use_texts);
  const PopulationStore& store = frame.store();
  std::array<std::vector<Value>, std::size(use_names)> values;
  for (Row row = frame.years.first; row <= frame.years.last; ++row) {
    std::size_t series = 0;
    for (const ByNumber<std::int32_t>* const parent : {&store.sire_no, &store.dam_no}) {
      const ParentsInUse use = parents_in_use(*parent, frame.animals(row));
      const bool is_known = !use.parents.empty();
      values[series++].push_back(known_if(is_known, use.parents.size()));
      values[series++].push_back(known_if(is_known, use.effective));
    }
  }
  for (std::size_t k = 0; k < values.size(); ++k) {
    constexpr std::array<std::size_t, 4> colours = {2, 0, 6, 1};
    add_series(chart, frame.text(use_names[k]), values[k], k % 2 == 0 ? 0 : 1, {Palette::apart, colours[k]});
  }
  add_rule_year(chart, frame);
  return chart;
}

NamedBars recent_sires(const PageFrame& frame) {
  constexpr std::size_t most_named = 10;
  constexpr double percent = 100.0;
  const Standing& standing = *frame.input.standing;
  NamedBars bars;
  bars.id = recent_sires_texts.id;
  bars.title = frame.text(recent_sires_texts.title);
  bars.reading = phrase(recent_sires_texts.reading, frame.language,
                        {std::to_string(standing.years.recent_first), std::to_string(standing.years.last),
                         limit_text(standing.settings.most_sire_share, frame.language)});
  bars.most = standing.settings.most_sire_share;
  for (const Wording& heading : recent_headings) bars.figures.headings.push_back(frame.text(heading));
  for (const ParentShare& sire : standing.sires.parents) {
    if (bars.shares.size() == most_named) break;
    const AnimalWords words = words_of_animal(frame, sire.parent);
    const std::int32_t year = frame.store().birth_year[sire.parent];
    bars.figures.rows.push_back({words.name,
                                 {words.id, year == 0 ? std::string(no_figure) : std::to_string(year),
                                  std::to_string(sire.young), report_figure(percent * sire.share, 1, frame.language)}});
    bars.shares.push_back(sire.share);
  }
  return bars;
}

Chart top_sires_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, sires_texts);
  add_column(chart, frame.text(sire_count), column_by_year(frame, frame.extras().top_sires, &TopSireRow::sire_count),
             0);
  std::vector<std::string> names;
  for (Row row = frame.years.first; row <= frame.years.last; ++row) names.push_back(name_of_sire(frame, row));
  add_text_column(chart, frame.text(top_sire), names);
  constexpr std::array<std::size_t, 3> counts = {1, 4, top_sire_columns};
  for (std::size_t k = 0; k < counts.size(); ++k) {
    add_series(chart, frame.text(share_names[k]), sire_shares(frame, counts[k]), 1);
  }
  add_rule_year(chart, frame);
  return chart;
}

Chart imports_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::stacked_bars, imports_texts);
  for (const ImportColumn& column : import_columns) {
    add_series(chart, frame.text(column.name), column_by_year(frame, frame.whole().tables.import_pairs, column.count),
               0);
  }
  return chart;
}

}  // namespace pedigreewatch
