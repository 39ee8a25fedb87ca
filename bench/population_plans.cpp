#include "population_plans.h"

#include <string_view>

namespace pedigreewatch {
namespace {

constexpr std::int32_t last_benchmark_year = 2019;

constexpr std::string_view english_header = "id;name;sex;birthdate;sire;dam;colour;breeder;subpopulation;Import";
constexpr std::string_view dutch_header = "id;naam;sekse;geboortedatum;vader;moeder;kleur;fokker;subpopulatie;Import";

}  // namespace

PopulationPlan benchmark_plan(std::int32_t animal_count, std::int32_t birth_year_count, bool has_single_births) {
  PopulationPlan plan;
  plan.seed = 20'190'401;
  plan.animal_count = animal_count;
  plan.birth_year_count = birth_year_count;
  plan.first_birth_year = last_benchmark_year - birth_year_count + 1;
  plan.litter_size_weights = {30, 30, 20, 10, 6, 4};
  if (has_single_births) plan.litter_size_weights = {1};
  plan.sire_permille = 30;
  plan.foreign_parent_permille = 0;  // the parents without a line are to be those of this herd only
  plan.odd_colour_permille = 10;

  plan.subpopulations = {{"North", 30}, {"East", 25}, {"South", 20}, {"West", 15}, {"Islands", 10}};
  plan.colours = {"white", "black", "grey", "brown", "spotted"};
  plan.odd_colours = {""};
  plan.breeders = {"Abbot",  "Archer", "Baker",  "Barlow",   "Bell",     "Bishop", "Carter", "Chandler",
                   "Cole",   "Cooper", "Dale",   "Draper",   "Farrow",   "Fisher", "Fowler", "Gardiner",
                   "Glover", "Grant",  "Harper", "Hayward",  "Hill",     "Hunter", "Kemp",   "Lake",
                   "Marsh",  "Mason",  "Miller", "Moss",     "Palmer",   "Parker", "Potter", "Reeve",
                   "Stone",  "Tanner", "Turner", "Shepherd", "Westwood", "Walker", "York",   "Long Acre Farm"};
  plan.countries = {{"Germany", "DE-"}, {"France", "FR-"}, {"Ireland", "IE-"}};
  plan.unknown_parents = {""};
  plan.unknown_dates = {""};

  plan.id_prefix = "B";
  plan.header = english_header;
  plan.population_name = "Benchmark herd";
  plan.data_file_name = "herd.txt";
  return plan;
}

PopulationPlan example_plan(bool english) {
  PopulationPlan plan;
  plan.seed = 20'240'317;
  plan.animal_count = 3500;
  plan.first_birth_year = 2000;
  plan.birth_year_count = 25;
  plan.growth_permille = 500;
  plan.first_season_day = 40;
  plan.last_season_day = 150;
  plan.season_jitter_days = 5;
  plan.litter_size_weights = {48, 44, 8};
  plan.sire_permille = 70;
  plan.outcross_permille = 100;
  plan.import_permille = 25;
  plan.foreign_parent_permille = 200;
  plan.unlisted_parent_permille = 20;
  plan.unknown_sire_permille = 15;
  plan.unknown_dam_permille = 6;
  plan.unknown_date_permille = 10;
  plan.odd_colour_permille = 40;
  plan.late_line_permille = 15;
  plan.id_prefix = "HS";
  plan.id_digits = 5;
  // An unknown parent is "unknown" in a Dutch data file too; of a date any word without a digit is understood.
  plan.unknown_parents = {"", "", "", "unknown"};

  if (english) {
    plan.subpopulations = {{"North Moor", 45}, {"South Moor", 33}, {"Uplands", 22}};
    plan.colours = {"white", "black", "grey", "brown"};
    plan.odd_colours = {"", "", "Onbekend", "spotted"};
    plan.breeders = {"Ashdown", "Birch", "Carr",   "Danby",         "Elmhurst", "Fell",         "Garth", "Holm",
                     "Ingleby", "Kirk",  "Larkin", "Moor End Farm", "Norton",   "Oakley Flock", "Pike",  "Westgate"};
    plan.countries = {{"Germany", "DE-"}, {"Belgium", "BE-"}};
    plan.unknown_dates = {"", "unknown"};
    plan.header = english_header;
    plan.population_name = "Moorland Sheep";
    plan.data_file_name = "moorland.txt";
  } else {
    plan.subpopulations = {{"Noordheide", 45}, {"Zuidheide", 33}, {"Hoogveen", 22}};
    plan.colours = {"wit", "zwart", "grijs", "bruin"};
    plan.odd_colours = {"", "", "Onbekend", "bont"};
    plan.breeders = {"Aalders", "Bos",    "De Heidehof", "Dijk",  "Evers", "Feenstra",  "Hoek", "Kok",
                     "Lubbers", "Mulder", "Oosterhof",   "Prins", "Smit",  "Ter Horst", "Wolf", "Schaapskooi Oost"};
    plan.countries = {{"Duitsland", "DE-"}, {"Belgie", "BE-"}};
    plan.unknown_dates = {"", "onbekend"};
    plan.header = dutch_header;
    plan.female_letter = "v";
    plan.population_name = "Heideschaap";
    plan.data_file_name = "heide.txt";
    plan.date_layout = "dd-mm-jjjj";
    plan.species_word = "schaap";
    plan.language = "nl";
  }
  return plan;
}

}  // namespace pedigreewatch
