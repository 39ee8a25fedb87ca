// The order of the page. A section whose subject the data do not have is left out, and so is its place in the contents.

#include "page/page.h"

#include <vector>

#include "page/animal_charts.h"
#include "page/chart_drawing.h"
#include "page/chart_figure.h"
#include "page/group_charts.h"
#include "page/inbreeding_charts.h"
#include "page/page_frame.h"
#include "page/page_sections.h"
#include "page/page_style.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording contents_word = {"Contents", "Inhoud"};
constexpr Wording no_years = {"No animal has a year of birth: there is nothing to show by year.",
                              "Van geen enkel dier is het geboortejaar bekend: er is niets per jaar te tonen."};
constexpr Wording sizes_caption = {"Effective population size in four ways",
                                   "Effectieve populatiegrootte op vier manieren"};
constexpr Wording breeders_caption = {"The breeders with the most animals", "De fokkers met de meeste dieren"};
constexpr Wording subpopulations_caption = {"Effective size of the subpopulations",
                                            "Effectieve grootte van de subpopulaties"};
constexpr Wording made_by = {
    "Made by pedigreewatch-tools page. Figures are those of the report; docs/page.md explains every chart.",
    "Gemaakt door pedigreewatch-tools page. De cijfers zijn die van de uitvoer; docs/page.md legt elke grafiek uit."};

void write_inbreeding_section(std::string& page, const PageFrame& frame) {
  write_chart(page, inbreeding_chart(frame), frame.language);
  write_figure_table(page, effective_size_table(frame, frame.whole().rates), frame.text(sizes_caption));
  if (!frame.whole().periods.periods.empty()) write_chart(page, period_rates_chart(frame), frame.language);
}

void write_animals_section(std::string& page, const PageFrame& frame) {
  for (Chart (*const make)(const PageFrame&) : {births_chart, litters_chart, litter_mean_chart, litter_sizes_chart}) {
    write_chart(page, make(frame), frame.language);
  }
  if (frame.store().has_import) write_chart(page, imports_chart(frame), frame.language);
}

void write_parents_section(std::string& page, const PageFrame& frame) {
  for (Chart (*const make)(const PageFrame&) : {interval_chart, parent_ages_chart, top_sires_chart}) {
    write_chart(page, make(frame), frame.language);
  }
}

void write_completeness_section(std::string& page, const PageFrame& frame) {
  write_chart(page, equivalent_generations_chart(frame), frame.language);
  write_chart(page, complete_generations_chart(frame), frame.language);
}

void write_names_section(std::string& page, const PageFrame& frame) {
  if (frame.store().has_colour) write_chart(page, colours_chart(frame), frame.language);
  if (!frame.store().has_breeder) return;
  write_chart(page, breeders_chart(frame), frame.language);
  write_figure_table(page, breeders_table(frame), frame.text(breeders_caption));
}

void write_subpopulations_section(std::string& page, const PageFrame& frame) {
  for (Chart (*const make)(const PageFrame&) :
       {subpopulations_chart, inbreeding_within_chart, kinship_within_chart, kinship_between_chart}) {
    write_chart(page, make(frame), frame.language);
  }
  if (frame.input.subpopulations.empty()) return;
  write_figure_table(page, subpopulation_sizes_table(frame), frame.text(subpopulations_caption));
}

struct Section {
  std::string_view id;
  Wording title;
  void (*write)(std::string& page, const PageFrame& frame);
  bool (*is_wanted)(const PageFrame& frame);
};

bool has_years(const PageFrame& frame) {
  return frame.years.count() > 0;
}
constexpr Section sections[] = {
    {"standing",
     {"How the breed stands", "Hoe het ras ervoor staat"},
     write_standing,
     [](const PageFrame& frame) { return frame.input.standing != nullptr && has_years(frame); }},
    {"summary", {"Summary", "Samenvatting"}, write_summary, [](const PageFrame&) { return true; }},
    {"rates", {"Inbreeding and effective size", "Inteelt en effectieve grootte"}, write_inbreeding_section, has_years},
    {"animals", {"Animals and litters", "Dieren en nesten"}, write_animals_section, has_years},
    {"parents", {"Parents", "Ouders"}, write_parents_section, has_years},
    {"completeness",
     {"How complete the pedigrees are", "Hoe compleet de stambomen zijn"},
     write_completeness_section,
     has_years},
    {"names",
     {"Colours and breeders", "Kleurslagen en fokkers"},
     write_names_section,
     [](const PageFrame& frame) {
       return has_years(frame) && (frame.store().has_colour || frame.store().has_breeder);
     }},
    {"groups",
     {"Subpopulations", "Subpopulaties"},
     write_subpopulations_section,
     [](const PageFrame& frame) {
       return has_years(frame) && frame.population().settings.layout.subpopulations.count() > 1;
     }},
    {"diversity",
     {"Diversity", "Diversiteit"},
     write_diversity,
     [](const PageFrame& frame) { return frame.input.diversity != nullptr; }},
    {"lists", {"Animals to look at", "Dieren om naar te kijken"}, write_lists, has_lists},
    {"check", {"What the checks found", "Wat de controles vonden"}, write_findings, [](const PageFrame& frame) {
       return frame.input.check != nullptr;
     }}};

void write_contents(std::string& page, const PageFrame& frame) {
  page += "<nav aria-label=\"" + frame.text(contents_word) + "\"><ul>";
  for (const Section& section : sections) {
    if (!section.is_wanted(frame)) continue;
    page += "<li><a href=\"#pw-" + std::string(section.id) + "\">" + escaped(frame.text(section.title)) + "</a></li>";
  }
  page += "</ul></nav>\n";
}

std::string population_name(const PageInput& input) {
  const std::string name = data_text(input.population.settings.population_name.trimmed());
  return name.empty() ? "Pedigree Watch" : name;
}

}  // namespace

PageFrame make_frame(const PageInput& input) {
  constexpr Row most_years = 300;
  PageYears years;
  years.last = input.population.store.birth_years.dated_row_count();
  years.is_cut = years.last > most_years;
  if (years.is_cut) years.first = years.last - most_years + 1;
  const bool is_english = input.population.settings.english;
  return {input, is_english ? ToolLanguage::english : ToolLanguage::dutch, years};
}

std::string page_body(const PageInput& input) {
  const PageFrame frame = make_frame(input);
  std::string page;
  define_fillings(page);
  write_contents(page, frame);
  for (const Section& section : sections) {
    if (!section.is_wanted(frame)) continue;
    const std::string id = "pw-" + std::string(section.id);
    page += "<section aria-labelledby=\"" + id + "\"><h2 id=\"" + id + "\">" + escaped(frame.text(section.title)) +
            "</h2>\n";
    section.write(page, frame);
    page += "</section>\n";
  }
  if (!has_years(frame)) page += "<p>" + escaped(frame.text(no_years)) + "</p>\n";
  return page;
}

std::string make_page(const PageInput& input) {
  const PageFrame frame = make_frame(input);
  const std::string name = population_name(input);
  std::string page = "<!DOCTYPE html>\n<html lang=\"" + std::string(input.population.settings.english ? "en" : "nl") +
                     "\">\n<head>\n<meta charset=\"utf-8\">\n<meta http-equiv=\"Content-Security-Policy\" content=\"" +
                     content_security_policy() +
                     "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
                     escaped(name) + "</title>\n<style>";
  page += page_style();
  page += "</style>\n</head>\n<body class=\"pw\">\n<header><h1>" + isolated(name) + "</h1></header>\n<main>\n";
  page += page_body(input);
  page += "</main>\n<footer><p>" + escaped(frame.text(made_by)) + "</p></footer>\n<script>";
  page += page_script();
  page += "</script>\n</body>\n</html>\n";
  return page;
}

}  // namespace pedigreewatch
