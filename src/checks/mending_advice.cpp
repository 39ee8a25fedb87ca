#include "checks/mending_advice.h"

#include <algorithm>
#include <array>

namespace pedigreewatch {
namespace {

struct Advice {
  FindingCode code;
  Wording text;
};
using Code = FindingCode;

constexpr auto advices = std::to_array<Advice>({
    {Code::loop,
     {"Look at the birth dates along the chain: a parent that is younger than its young is the wrong one. Two animals with "
      "one id make loops too.",
      "Kijk naar de geboortedatums langs de keten: een ouder die jonger is dan zijn jong is de verkeerde. Twee dieren met "
      "dezelfde id geven ook zo'n kring."}},
    {Code::date_unreadable,
     {"Correct the date, or leave it empty when it is not known.",
      "Verbeter de datum, of laat hem leeg als hij niet bekend is."}},
    {Code::year_span, {"Correct the year.", "Verbeter het jaar."}},
    {Code::age_figures, {"Correct one of the two dates.", "Verbeter \xC3\xA9\xC3\xA9n van de twee datums."}},
    {Code::report_size,
     {"Choose fewer subpopulations, or put the small ones together.",
      "Kies minder subpopulaties, of neem de kleine samen."}},
    {Code::header_again, {"Leave the line out: it is no animal.", "Laat de regel weg: het is geen dier."}},
    {Code::column_count,
     {"Correct the line: a text holds the character that divides the columns, or fields are missing.",
      "Verbeter de regel: in een tekst staat het scheidingsteken, of er ontbreken velden."}},
    {Code::no_animal, {"Leave the line out: it is no animal.", "Laat de regel weg: het is geen dier."}},
    {Code::invisible_letter, {"Type the text anew.", "Typ de tekst opnieuw."}},
    {Code::sex_text,
     {"Write the sex. One that is not known counts as female in the report.",
      "Vul het geslacht in. Een onbekend geslacht telt in het rapport als vrouwelijk."}},
    {Code::date_text,
     {"Write the date with numbers, or leave it empty.", "Schrijf de datum in cijfers, of laat hem leeg."}},
    {Code::id_missing,
     {"Give the animal an id, or leave its line out.", "Geef het dier een id, of laat de regel weg."}},
    {Code::id_cut, {"Use shorter ids: 30 letters at most.", "Gebruik kortere id's: hoogstens 30 tekens."}},
    {Code::duplicate_line, {"Leave one of them out.", "Laat er \xC3\xA9\xC3\xA9n weg."}},
    {Code::duplicate_id,
     {"If they are two animals, give one of them its own id; if they are one, leave a line out.",
      "Zijn het twee dieren, geef er dan \xC3\xA9\xC3\xA9n zijn eigen id; is het \xC3\xA9\xC3\xA9n dier, laat dan \xC3\xA9\xC3\xA9n regel weg."}},
    {Code::parent_spelling,
     {"Write the id as the animal's own line has it.",
      "Schrijf de id zoals die in de eigen regel van het dier staat."}},
    {Code::unknown_word, {"Leave the field empty.", "Laat het veld leeg."}},
    {Code::unknown_perhaps,
     {"Leave the field empty if the word means unknown; if it is an animal, nothing.",
      "Laat het veld leeg als het woord onbekend betekent; is het een dier, dan niets."}},
    {Code::same_parents, {"Correct one of the two.", "Verbeter \xC3\xA9\xC3\xA9n van de twee."}},
    {Code::both_roles,
     {"Correct the wrong one; its own line tells its sex, where it has one.",
      "Verbeter de verkeerde; de eigen regel zegt het geslacht, als die er is."}},
    {Code::parent_sex, {"Correct the sex or the parent.", "Verbeter het geslacht of de ouder."}},
    {Code::parent_name,
     {"Correct the identification of the parent, or its name.", "Verbeter het nummer van de ouder, of de naam."}},
    {Code::date_contradicted,
     {"Correct the date of birth; often the century or a digit of the year is wrong.",
      "Verbeter de geboortedatum; vaak is de eeuw of een cijfer van het jaar fout."}},
    {Code::born_before_parent,
     {"Correct the date of one of them, or the parent.",
      "Verbeter de datum van \xC3\xA9\xC3\xA9n van beide, of de ouder."}},
    {Code::parent_too_young, {"Correct a date or the parent.", "Verbeter een datum of de ouder."}},
    {Code::births_too_close, {"Correct a date or the mother.", "Verbeter een datum of de moeder."}},
    {Code::date_impossible, {"Correct the date.", "Verbeter de datum."}},
    {Code::date_year_only, {"Write the full date, if it is known.", "Schrijf de hele datum, als die bekend is."}},
    {Code::year_two_digits, {"Write four digits.", "Schrijf vier cijfers."}},
    {Code::year_placeholder,
     {"Leave the date empty: it stands for an unknown one.", "Laat de datum leeg: hij staat voor een onbekende."}},
    {Code::year_future, {"Correct the year.", "Verbeter het jaar."}},
    {Code::year_far_out,
     {"Correct the year, or leave out the animals before it.", "Verbeter het jaar, of laat de dieren ervoor weg."}},
    {Code::year_lone,
     {"Leave the date of old founders empty, or leave those animals out.",
      "Laat de datum van oude stamdieren leeg, of laat die dieren weg."}},
    {Code::year_gap,
     {"Correct the dates if they are wrong; otherwise mistrust the rates by year.",
      "Verbeter de datums als ze fout zijn; vertrouw anders de snelheden per jaar niet."}},
    {Code::subpopulation,
     {"Correct the text, or tick the name in the settings.",
      "Verbeter de tekst, of vink de naam aan bij de instellingen."}},
    {Code::subpopulation_spelling, {"Write both in one way.", "Schrijf beide op dezelfde manier."}},
    {Code::colour,
     {"Correct the text, or tick the colour in the settings.",
      "Verbeter de tekst, of vink de kleur aan bij de instellingen."}},
    {Code::colour_spelling, {"Write both in one way.", "Schrijf beide op dezelfde manier."}},
    {Code::colour_reserved,
     {"Leave the field empty for animals whose colour is not known.",
      "Laat het veld leeg bij dieren waarvan de kleur onbekend is."}},
    {Code::import_text,
     {"Leave the field empty for animals that are no imports.", "Laat het veld leeg bij dieren die geen import zijn."}},
    {Code::parent_one_letter,
     {"Correct the id, when a look at the papers confirms it.",
      "Verbeter de id, als een blik in de papieren dat bevestigt."}},
    {Code::left_out,
     {"Nothing to do, unless it is an animal after all: then give it an id, a sex and a date.",
      "Niets te doen, tenzij het toch een dier is: geef het dan een id, een geslacht en een datum."}},
    {Code::parent_missing,
     {"Add its line, if the animal is known; otherwise nothing.",
      "Voeg de regel toe, als het dier bekend is; anders niets."}},
    {Code::parent_young, {"Look at the two dates.", "Kijk naar de twee datums."}},
    {Code::parent_old,
     {"Look at the two dates; sires by frozen semen may be right.",
      "Kijk naar de twee datums; vaders met ingevroren sperma kunnen kloppen."}},
    {Code::births_close, {"Look at the dates and the mother.", "Kijk naar de datums en de moeder."}},
    {Code::litter_dates, {"Give litter mates one date.", "Geef nestgenoten dezelfde datum."}},
    {Code::litter_size, {"Look at the mother and the dates.", "Kijk naar de moeder en de datums."}},
    {Code::litter_sires, {"Look at the fathers; two may be right.", "Kijk naar de vaders; twee kan kloppen."}},
    {Code::litter_dams,
     {"Look at the mothers; two litters of that day may be right.",
      "Kijk naar de moeders; twee nesten op die dag kan kloppen."}},
    {Code::same_animal,
     {"If it is one animal, make the two one.", "Is het \xC3\xA9\xC3\xA9n dier, maak er dan \xC3\xA9\xC3\xA9n van."}},
    {Code::leap_day, {"Correct the date.", "Verbeter de datum."}},
    {Code::date_order,
     {"Compare these dates with the papers, and export all dates in one order.",
      "Vergelijk deze datums met de papieren, en exporteer alle datums in \xC3\xA9\xC3\xA9n volgorde."}},
    {Code::date_unknown, {"Add the date, if it is known.", "Vul de datum in, als die bekend is."}},
    {Code::dates_of_years, {"Nothing, if days are not known.", "Niets, als de dagen niet bekend zijn."}},
    {Code::founder_late,
     {"Add its parents, or mark it as an import.", "Vul de ouders in, of merk het dier aan als import."}},
    {Code::isolated, {"Nothing, or leave the animal out.", "Niets, of laat het dier weg."}},
    {Code::subpopulation_near, {"Correct it if it is mistyped.", "Verbeter het als het een tikfout is."}},
    {Code::colour_near, {"Correct it if it is mistyped.", "Verbeter het als het een tikfout is."}},
    {Code::breeder_spelling, {"Write both in one way.", "Schrijf beide op dezelfde manier."}},
    {Code::breeder_cut, {"Shorten the name.", "Kort de naam in."}},
    {Code::name_cut, {"Nothing, or shorten the name.", "Niets, of kort de naam in."}},
    {Code::name_not_found, {"Correct the name in the settings.", "Verbeter de naam bij de instellingen."}},
});

}  // namespace

Wording mending_advice(FindingCode code) {
  const auto* const found =
      std::find_if(advices.begin(), advices.end(), [&](const Advice& advice) { return advice.code == code; });
  return found == advices.end() ? Wording() : found->text;
}

}  // namespace pedigreewatch
