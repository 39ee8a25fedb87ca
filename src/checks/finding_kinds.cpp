// The table of all kinds. Dutch letters with accents are UTF-8, like everything that the tools print.

#include "checks/finding_kinds.h"

#include <algorithm>
#include <array>

namespace pedigreewatch {
namespace {

constexpr std::uint32_t part_ne = part_effective_size;
constexpr std::uint32_t pedigree_parts = part_inbreeding | part_ne;
constexpr std::uint32_t sex_parts = part_population_size | part_offspring | part_litters;
constexpr std::uint32_t age_parts = part_parent_ages | part_interval;
constexpr std::uint32_t link_parts = pedigree_parts | part_offspring | part_completeness;

constexpr Severity S = Severity::stops, W = Severity::falsifies, L = Severity::look;
using Code = FindingCode;

constexpr std::array<FindingKind, finding_code_count> kinds = {{
    // clang-format off
    {Code::utf_16, "utf-16", S, every_part,
     {"Two bytes for each letter (UTF-16)", "Twee bytes per letter (UTF-16)"},
     {"The file is UTF-16; save it as ANSI text", "Het bestand is UTF-16; sla het op als ANSI-tekst"}},
    {Code::binary_file, "binary-file", S, every_part,
     {"The file is no text", "Het bestand is geen tekst"},
     {"The file is {text} and no text; export it as text", "Het bestand is {text} en geen tekst; exporteer het als tekst"}},
    {Code::empty_file, "empty-file", S, every_part,
     {"The file is empty", "Het bestand is leeg"},
     {"The file is empty", "Het bestand is leeg"}},
    {Code::report_name, "report-name", S, every_part,
     {"The report has the name of the data file", "De uitvoer heet als het databestand"},
     {"The report would be written over this file; give it another ending (line 2 of pedigreewatch.ini)",
      "De uitvoer zou over dit bestand heen geschreven worden; geef het een andere uitgang (regel 2 van pedigreewatch.ini)"}},
    {Code::delimiter, "delimiter", S, every_part,
     {"Another character divides the columns", "Een ander teken scheidt de kolommen"},
     {"Columns are divided by {text}, not by {other_text}; write {text} in line 3 of pedigreewatch.ini",
      "Kolommen zijn gescheiden door {text}, niet door {other_text}; schrijf {text} in regel 3 van pedigreewatch.ini"}},
    {Code::header_missing, "header-missing", S, every_part,
     {"No headings in the first line", "Geen koppen in de eerste regel"},
     {"The first line holds no headings (\"{text}\"); add them, or write n in line 9 of pedigreewatch.ini and the column list below it",
      "De eerste regel bevat geen koppen (\"{text}\"); voeg ze toe, of schrijf n in regel 9 van pedigreewatch.ini met de kolommenlijst eronder"}},
    {Code::header_quotes, "header-quotes", S, every_part,
     {"Quotation marks around headings", "Aanhalingstekens om koppen"},
     {"Quotation marks count as letters, {text} is no heading; export without them",
      "Aanhalingstekens tellen als letters, {text} is geen kop; exporteer zonder"}},
    {Code::header_required, "header-required", S, every_part,
     {"Heading of a required column misspelt", "Kop van een verplichte kolom verkeerd gespeld"},
     {R"("{text}" is not known; write "{other_text}")", R"("{text}" is onbekend; schrijf "{other_text}")"}},
    {Code::column_missing, "column-missing", S, every_part,
     {"A required column is missing", "Een verplichte kolom ontbreekt"},
     {"No column is headed \"{other_text}\"; it is required", "Geen kolom heet \"{other_text}\"; die is verplicht"}},
    {Code::loop, "loop", S, every_part,
     {"An animal is its own ancestor", "Een dier is zijn eigen voorouder"},
     {"Is its own ancestor: {text}", "Is zijn eigen voorouder: {text}"}},
    {Code::date_layout_required, "date-layout-required", S, every_part,
     {"Dates in another layout, some unreadable", "Datums in een andere indeling, deels onleesbaar"},
     {"{number} dates such as {text} do not fit the layout; write {other_text} in line 5 of pedigreewatch.ini",
      "{number} datums zoals {text} passen niet bij de indeling; schrijf {other_text} in regel 5 van pedigreewatch.ini"}},
    {Code::date_unreadable, "date-unreadable", S, every_part,
     {"Date cannot be read", "Datum niet te lezen"},
     {"\"{text}\" is no date ({other_text})", "\"{text}\" is geen datum ({other_text})"}},
    {Code::year_span, "year-span", S, every_part,
     {"Too many years between first and last", "Te veel jaren tussen eerste en laatste"},
     {"Years {number} to {other_number}: the report would have more than 100000 lines a table",
      "Jaren {number} tot {other_number}: de uitvoer zou meer dan 100000 regels per tabel hebben"}},
    {Code::age_figures, "age-figures", S, every_part,
     {"Parent far too old", "Ouder veel te oud"},
     {"{Parent} \"{text}\" was {number} years old: the tables of the parents' ages would be too wide ({other_number} figures)",
      "{Parent} \"{text}\" was {number} jaar oud: de tabellen van de leeftijden van de ouders zouden te breed worden ({other_number} getallen)"}},
    {Code::report_size, "report-size", S, every_part,
     {"Too many subpopulations for a report", "Te veel subpopulaties voor een rapport"},
     {"{number} subpopulations in pedigreewatch.ini: the report would have {text}; name fewer of them from line {other_number} on, those with many animals",
      "{number} subpopulaties in pedigreewatch.ini: het rapport krijgt {text}; noem er minder vanaf regel {other_number}, die met veel dieren"}},

    {Code::line_ends, "line-ends", W, every_part,
     {"The file is one single line", "Het bestand is een enkele regel"},
     {"The file is one single line (lone carriage returns); save it with Windows or Unix line ends",
      "Het bestand is een enkele regel (losse carriage returns); sla het op met regeleinden van Windows of Unix"}},
    {Code::two_encodings, "two-encodings", W, part_breeders | part_subpopulations | part_colours,
     {"Accents written in two ways", "Accenten op twee manieren geschreven"},
     {"Accents are written in two ways (lines in UTF-8: {number}, in ANSI: {other_number}); one breeder counts as two",
      "Accenten staan er op twee manieren (regels in UTF-8: {number}, in ANSI: {other_number}); een fokker telt dubbel"}},
    {Code::quotes, "quotes", W, link_parts,
     {"Quotation marks count as letters", "Aanhalingstekens tellen als letters"},
     {"Quotation marks count as letters ({text}; lines: {number}); export without them",
      "Aanhalingstekens tellen als letters ({text}; regels: {number}); exporteer zonder"}},
    {Code::header_word, "header-word", W, no_part,
     {"Heading of an optional column misspelt", "Kop van een andere kolom verkeerd gespeld"},
     {R"("{text}" is not known, its tables are missing; write "{other_text}")", R"("{text}" is onbekend, de tabellen ervan ontbreken; schrijf "{other_text}")"}},
    {Code::header_unread, "header-unread", W, every_part,
     {"Headings behind an empty one are not read", "Koppen na een lege worden niet gelezen"},
     {"The headings from column {number} (\"{text}\") on are not read, an empty one stands before; write n in line 4 of pedigreewatch.ini",
      "De koppen vanaf kolom {number} (\"{text}\") worden niet gelezen, er staat een lege voor; schrijf n in regel 4 van pedigreewatch.ini"}},
    {Code::header_as_animal, "header-as-animal", W, every_part,
     {"The headings count as an animal", "De koppen tellen als dier"},
     {"The headings in line 1 count as an animal; write y in line 9 of pedigreewatch.ini and leave out the column list",
      "De koppen in regel 1 tellen als dier; schrijf y in regel 9 van pedigreewatch.ini en laat de kolommenlijst weg"}},
    {Code::header_again, "header-again", W, part_population_size | part_breeders,
     {"The headings stand in the file again", "De koppen staan nog eens in het bestand"},
     {"The header stands here again", "De kopregel staat hier nog eens"}},
    {Code::last_column, "last-column", W, no_part,
     {"Column beyond the 25th", "Kolom voorbij de 25e"},
     {"\"{text}\" stands beyond the 25th column and is not read; move it to the front",
      "\"{text}\" staat voorbij de 25e kolom en wordt niet gelezen; zet de kolom vooraan"}},
    {Code::column_twice, "column-twice", W, every_part,
     {"Two columns hold the same", "Twee kolommen bevatten hetzelfde"},
     {"Columns {number} and {other_number} both hold the {text}; column {other_number} is used", "Kolom {number} en {other_number} bevatten beide {text}; kolom {other_number} wordt gebruikt"}},
    {Code::last_line, "last-line", W, every_part,
     {"The last animal is not read", "Het laatste dier wordt niet gelezen"},
     {"The last animal is not read; add an empty line", "Het laatste dier wordt niet gelezen; voeg een lege regel toe"}},
    {Code::line_cut, "line-cut", W, every_part,
     {"Line is too long and is cut", "Regel is te lang en wordt afgekapt"},
     {"The line is cut after 600 characters (it has {number})", "De regel is na 600 tekens afgekapt (hij heeft er {number})"}},
    {Code::column_count, "column-count", W, link_parts,
     {"Too few or too many columns", "Te weinig of te veel kolommen"},
     {"{columns}, the header has {other_number}", "{columns}, de kop heeft er {other_number}"}},
    {Code::no_animal, "no-animal", W, part_population_size | part_completeness,
     {"Line that is no animal", "Regel die geen dier is"},
     {"This line is no animal but is counted as one", "Deze regel is geen dier maar telt wel mee"}},
    {Code::invisible_letter, "invisible-letter", W, link_parts,
     {"Invisible character", "Onzichtbaar teken"},
     {"Invisible character in \"{text}\"", "Onzichtbaar teken in \"{text}\""}},
    {Code::date_layout, "date-layout", W, every_part,
     {"Dates in another layout", "Datums in een andere indeling"},
     {"{number} dates such as {text} do not fit the layout; write {other_text} in line 5 of pedigreewatch.ini",
      "{number} datums zoals {text} passen niet bij de indeling; schrijf {other_text} in regel 5 van pedigreewatch.ini"}},
    {Code::male_letter, "male-letter", W, sex_parts | part_inbreeding,
     {"Another letter for males", "Een andere letter voor mannelijk"},
     {R"(The letter for males is "{text}" ({other_number} of them), but fathers are "{other_text}" ({animals}); write {other_text} in line 7 of pedigreewatch.ini)",
      R"(De letter voor mannelijk is "{text}" ({other_number} keer), maar vaders zijn "{other_text}" ({animals}); schrijf {other_text} in regel 7 van pedigreewatch.ini)"}},
    {Code::sex_text, "sex-text", W, sex_parts | part_inbreeding,
     {"Sex written otherwise", "Geslacht anders geschreven"},
     {"Sex \"{text}\" counts as {other_text} ({animals})", "Geslacht \"{text}\" telt als {other_text} ({animals})"}},
    {Code::date_text, "date-text", W, part_population_size | age_parts,
     {"Date that could not be taken over", "Datum die niet overgenomen kon worden"},
     {"Date \"{text}\" could not be read ({animals}); it is left out, as if it were unknown",
      "Datum \"{text}\" was niet te lezen ({animals}); hij is weggelaten, alsof hij onbekend is"}},
    {Code::id_missing, "id-missing", W, link_parts,
     {"Animal without id", "Dier zonder id"},
     {"No id; no offspring can be linked", "Geen id; nakomelingen worden niet gekoppeld"}},
    {Code::id_cut, "id-cut", W, link_parts,
     {"Id is too long and is cut", "Id is te lang en wordt afgekapt"},
     {"The id \"{text}\" is cut to 30 characters", "Het id \"{text}\" is afgekapt op 30 tekens"}},
    {Code::duplicate_line, "duplicate-line", W, part_population_size | part_litters,
     {"The same animal twice", "Hetzelfde dier tweemaal"},
     {"Same as line {line}; counts twice", "Gelijk aan regel {line}; telt dubbel"}},
    {Code::duplicate_id, "duplicate-id", W, pedigree_parts | age_parts,
     {"Two animals with one id", "Twee dieren met een id"},
     {"Same id as line {line}, other data; all offspring go to line {line}",
      "Zelfde id als regel {line}, andere gegevens; alle nakomelingen gaan naar regel {line}"}},
    {Code::parent_spelling, "parent-spelling", W, pedigree_parts | part_completeness,
     {"Id of a parent spelt otherwise", "Id van een ouder anders gespeld"},
     {R"({Parent} "{text}" ({young}) has no line; is "{other_text}" (line {line}) meant?)",
      R"({Parent} "{text}" ({young}) heeft geen regel; is "{other_text}" (regel {line}) bedoeld?)"}},
    {Code::parent_one_letter, "parent-one-letter", W, pedigree_parts | part_completeness,
     {"Id of a parent probably mistyped", "Id van een ouder waarschijnlijk verkeerd getypt"},
     {R"({Parent} "{text}" ({young}) has no line; is "{other_text}" (line {line}) meant?)",
      R"({Parent} "{text}" ({young}) heeft geen regel; is "{other_text}" (regel {line}) bedoeld?)"}},
    {Code::unknown_word, "unknown-word", W, every_part,
     {R"(Word for "unknown" counts as an animal)", R"(Woord voor "onbekend" telt als dier)"},
     {"\"{text}\" is taken for an animal ({young}); leave it empty", "\"{text}\" telt als dier ({young}); laat het leeg"}},
    {Code::unknown_perhaps, "unknown-perhaps", W, every_part,
     {"Perhaps a word for \"unknown\"", "Misschien een woord voor \"onbekend\""},
     {"\"{text}\" has no line, {young} and no digit, unlike all ids; if it means unknown, leave it empty",
      "\"{text}\" heeft geen regel, {young} en geen cijfer, anders dan alle id's; als het onbekend betekent, laat het leeg"}},
    {Code::same_parents, "same-parents", W, pedigree_parts | part_litters,
     {"Father and mother are one animal", "Vader en moeder zijn hetzelfde dier"},
     {"Father and mother are one animal, \"{text}\"", "Vader en moeder zijn hetzelfde dier, \"{text}\""}},
    {Code::both_roles, "both-roles", W, part_litters | part_offspring,
     {"Father in one line, mother in another", "Hier vader, elders moeder"},
     {"\"{text}\" is a father here ({young}), a mother in line {line} ({other_young})",
      "\"{text}\" is hier vader ({young}), in regel {line} moeder ({other_young})"}},
    {Code::parent_sex, "parent-sex", W, sex_parts | part_inbreeding,
     {"Sex does not fit the parent", "Geslacht past niet bij de ouder"},
     {"{Parent} \"{text}\" ({young}) is recorded as {wrong_sex} (line {line})", "{Parent} \"{text}\" ({young}) staat als {wrong_sex} te boek (regel {line})"}},
    {Code::parent_name, "parent-name", W, pedigree_parts,
     {"Name of a parent that is another animal's", "Naam van een ouder die van een ander dier is"},
     {"{Parent} \"{text}\" is named \"{other_text}\" here, which is the name of another animal", "{Parent} \"{text}\" heet hier \"{other_text}\", en zo heet een ander dier"}},
    {Code::date_contradicted, "date-contradicted", W, age_parts | part_ne,
     {"Date of birth that several relatives contradict", "Geboortedatum die verwanten tegenspreken"},
     {"Born {text}: that contradicts the dates of {number} relatives, so it is probably wrong{other_text}",
      "Geboren {text}: dat spreekt de datums van {number} verwanten tegen en is dus waarschijnlijk fout{other_text}"}},
    {Code::born_before_parent, "born-before-parent", W, age_parts | part_ne,
     {"Born before its parent", "Geboren voor zijn ouder"},
     {"Born before its {parent} \"{text}\" (line {line})", "Geboren voor zijn {parent} \"{text}\" (regel {line})"}},
    {Code::parent_too_young, "parent-too-young", W, age_parts | part_ne,
     {"Parent impossibly young", "Ouder onmogelijk jong"},
     {"{Parent} \"{text}\" was {other_text}{days} old (line {line})", "{Parent} \"{text}\" was {other_text}{days} oud (regel {line})"}},
    {Code::births_too_close, "births-too-close", W, part_litters,
     {"Births impossibly close", "Geboorten onmogelijk dicht op elkaar"},
     {"Only {days} after the young of line {line} of mother \"{text}\"", "Slechts {days} na het jong van regel {line} van moeder \"{text}\""}},
    {Code::date_impossible, "date-impossible", W, part_interval,
     {"Day or month does not exist", "Dag of maand bestaat niet"},
     {"{text} is read as {other_text}", "{text} wordt gelezen als {other_text}"}},
    {Code::date_year_only, "date-year-only", W, part_parent_ages,
     {"Only a year of birth", "Alleen een geboortejaar"},
     {"Only a year of birth ({animals}); ages are rough", "Alleen een geboortejaar ({animals}); leeftijden zijn grof"}},
    {Code::year_two_digits, "year-two-digits", W, every_part,
     {"Year of two digits", "Jaar van twee cijfers"},
     {"Year {other_text} ({animals}): is {other_number} meant?", "Jaar {other_text} ({animals}): is {other_number} bedoeld?"}},
    {Code::year_placeholder, "year-placeholder", W, every_part,
     {R"(Date that stands for "unknown")", R"(Datum die voor "onbekend" staat)"},
     {"{text} stands for an unknown date ({animals}); leave it empty: years without animals count as F = 0, Ne is wrong",
      "{text} staat voor een onbekende datum ({animals}); laat die leeg: jaren zonder dieren tellen als F = 0, Ne is fout"}},
    {Code::year_future, "year-future", W, every_part,
     {"Born in the future", "Geboren in de toekomst"},
     {"Born in the future ({text}){other_text}", "Geboren in de toekomst ({text}){other_text}"}},
    {Code::year_far_out, "year-far-out", W, every_part,
     {"Year a century or more from the next", "Jaar een eeuw of meer van het volgende"},
     {"Year {number} is {other_number} years from the next; each of them is a row with F = 0",
      "Jaar {number} ligt {other_number} jaar van het volgende; elk daarvan is een rij met F = 0"}},
    {Code::year_lone, "year-lone", W, every_part,
     {"Hardly any animals beyond a gap in the years", "Nauwelijks dieren voorbij een gat in de jaren"},
     {"Only {animals} {text}; every empty year counts as F = 0, Ne is wrong",
      "Slechts {animals} {text}; elk leeg jaar telt als F = 0, Ne is fout"}},
    {Code::year_gap, "year-gap", W, pedigree_parts,
     {"Years without animals", "Jaren zonder dieren"},
     {"No animals in {text}; counted as F = 0, Ne is wrong", "Geen dieren in {text}; telt als F = 0, Ne is fout"}},
    {Code::subpopulation_list, "subpopulation-list", W, part_subpopulations,
     {"No list of subpopulations", "Geen lijst van subpopulaties"},
     {"{animals} with a subpopulation, pedigreewatch.ini lists none; write from line {other_number} on: {text}",
      "{animals} met een subpopulatie, pedigreewatch.ini noemt er geen; schrijf vanaf regel {other_number}: {text}"}},
    {Code::subpopulation, "subpopulation", W, part_subpopulations,
     {"Subpopulation that is not listed", "Subpopulatie die niet op de lijst staat"},
     {"Subpopulation \"{text}\" ({animals}) is not listed{other_text}", "Subpopulatie \"{text}\" ({animals}) staat niet op de lijst{other_text}"}},
    {Code::subpopulation_spelling, "subpopulation-spelling", W, part_subpopulations,
     {"One subpopulation in two spellings", "Een subpopulatie in twee spellingen"},
     {R"(Subpopulation "{text}" ({animals}) and "{other_text}" ({other_number}) differ in spelling only and count as two)",
      R"(Subpopulatie "{text}" ({animals}) en "{other_text}" ({other_number}) verschillen alleen in spelling en tellen als twee)"}},
    {Code::colour_list, "colour-list", W, part_colours,
     {"No list of colours", "Geen lijst van kleuren"},
     {"{animals} with a colour, pedigreewatch.ini lists none; write from line {other_number} on: {text}",
      "{animals} met een kleur, pedigreewatch.ini noemt er geen; schrijf vanaf regel {other_number}: {text}"}},
    {Code::colour, "colour", W, part_colours,
     {"Colour that is not listed", "Kleur die niet op de lijst staat"},
     {"Colour \"{text}\" ({animals}) counts as not recognised{other_text}", "Kleur \"{text}\" ({animals}) telt als niet erkend{other_text}"}},
    {Code::colour_spelling, "colour-spelling", W, part_colours,
     {"One colour in two spellings", "Een kleur in twee spellingen"},
     {R"(Colour "{text}" ({animals}) and "{other_text}" ({other_number}) differ in spelling only and count as two)",
      R"(Kleur "{text}" ({animals}) en "{other_text}" ({other_number}) verschillen alleen in spelling en tellen als twee)"}},
    {Code::colour_reserved, "colour-reserved", W, part_colours,
     {"Colour called as a column of the report", "Kleur die heet als een kolom van de uitvoer"},
     {R"(Colour "{text}" ({animals}) is called as a column that the report adds for animals without a colour; leave it empty)",
      R"(Kleur "{text}" ({animals}) heet als een kolom die de uitvoer toevoegt voor dieren zonder kleur; laat het leeg)"}},
    {Code::import_text, "import-text", W, part_imports | part_litters | part_inbreeding,
     {"Text that counts as an import", "Tekst die als import telt"},
     {"Any text means import, also \"{text}\" ({animals}); leave it empty",
      "Elke tekst betekent import, ook \"{text}\" ({animals}); laat het leeg"}},

    {Code::left_out, "left-out", L, no_part,
     {"Line of the export that was left out", "Regel van de export die is overgeslagen"},
     {"Left out, as this line is no animal: {text}", "Overgeslagen, want deze regel is geen dier: {text}"}},
    {Code::parent_missing, "parent-missing", L, part_completeness,
     {"Parent without a line", "Ouder zonder regel"},
     {"{Parent} \"{text}\" ({young}) has no line", "{Parent} \"{text}\" ({young}) heeft geen regel"}},
    {Code::parent_young, "parent-young", L, age_parts,
     {"Parent younger than usual", "Ouder jonger dan gebruikelijk"},
     {"{Parent} \"{text}\" was {other_text}{days} old (line {line})", "{Parent} \"{text}\" was {other_text}{days} oud (regel {line})"}},
    {Code::parent_old, "parent-old", L, age_parts,
     {"Parent older than usual", "Ouder ouder dan gebruikelijk"},
     {"{Parent} \"{text}\" was {number} years old (line {line})", "{Parent} \"{text}\" was {number} jaar oud (regel {line})"}},
    {Code::births_close, "births-close", L, part_litters,
     {"Births closer than usual", "Geboorten dichter op elkaar dan gebruikelijk"},
     {"Only {days} after the young of line {line} of mother \"{text}\"", "Slechts {days} na het jong van regel {line} van moeder \"{text}\""}},
    {Code::litter_dates, "litter-dates", L, part_litters,
     {"One litter with two dates", "Een nest met twee datums"},
     {"One litter, two dates? Born {days} after line {line}, mother \"{text}\"", "Een nest, twee datums? {days} na regel {line} geboren, moeder \"{text}\""}},
    {Code::litter_size, "litter-size", L, part_litters,
     {"Litter larger than usual", "Nest groter dan gebruikelijk"},
     {"{number} young of mother \"{text}\" on one day", "{number} jongen van moeder \"{text}\" op een dag"}},
    {Code::litter_sires, "litter-sires", L, part_litters,
     {"Litter with two fathers", "Nest met twee vaders"},
     {"Litter mates of mother \"{text}\" have two fathers, see line {line}", "Nestgenoten van moeder \"{text}\" hebben twee vaders, zie regel {line}"}},
    {Code::litter_dams, "litter-dams", L, part_litters,
     {"Litter with two mothers", "Nest met twee moeders"},
     {R"(Mother "{text}", but the litter mates of line {line}, of the same father and day, have "{other_text}")",
      R"(Moeder "{text}", maar de nestgenoten van regel {line}, van dezelfde vader en dag, hebben "{other_text}")"}},
    {Code::same_animal, "same-animal", L, part_population_size | part_litters,
     {"Perhaps one animal with two ids", "Misschien een dier met twee id's"},
     {"Same animal as line {line} (\"{text}\")? Name, date, sex and parents agree",
      "Hetzelfde dier als regel {line} (\"{text}\")? Naam, datum, geslacht en ouders zijn gelijk"}},
    {Code::leap_day, "leap-day", L, no_part,
     {"29 February of a year without one", "29 februari van een jaar zonder"},
     {"{text}: that year has no 29 February", "{text}: dat jaar heeft geen 29 februari"}},
    {Code::date_order, "date-order", L, part_interval | part_parent_ages,
     {"Day and month perhaps exchanged", "Dag en maand misschien verwisseld"},
     {"Day and month of {animals} may be exchanged, as in the impossible dates beside them",
      "Dag en maand van {animals} kunnen verwisseld zijn, zoals bij de onmogelijke datums ernaast"}},
    {Code::date_unknown, "date-unknown", L, no_part,
     {"No date of birth", "Geen geboortedatum"},
     {"No date of birth ({animals}); absent from all tables by year", "Geen geboortedatum ({animals}); ontbreekt in alle tabellen per jaar"}},
    {Code::dates_of_years, "dates-of-years", L, part_parent_ages,
     {"Most dates give only a year", "De meeste datums zijn alleen een jaar"},
     {"{number} of {other_number} dates give a year only; ages are in whole years", "{number} van de {other_number} datums geven alleen een jaar; leeftijden zijn in hele jaren"}},
    {Code::founder_late, "founder-late", L, part_inbreeding,
     {"Born late without parents", "Laat geboren zonder ouders"},
     {"No parents, born after {other_number}, no import ({animals}): F is too low", "Geen ouders, geboren na {other_number}, geen import ({animals}): F is te laag"}},
    {Code::isolated, "isolated", L, part_completeness,
     {"No parents and no young", "Geen ouders en geen jongen"},
     {"No parents and no young ({animals})", "Geen ouders en geen jongen ({animals})"}},
    {Code::subpopulation_near, "subpopulation-near", L, part_subpopulations,
     {"Subpopulation one letter from another", "Subpopulatie een letter anders dan een andere"},
     {R"(Subpopulation "{text}" ({animals}): is "{other_text}" ({other_number}) meant?)",
      R"(Subpopulatie "{text}" ({animals}): is "{other_text}" ({other_number}) bedoeld?)"}},
    {Code::colour_near, "colour-near", L, part_colours,
     {"Colour one letter from another", "Kleur een letter anders dan een andere"},
     {R"(Colour "{text}" ({animals}): is "{other_text}" ({other_number}) meant?)",
      R"(Kleur "{text}" ({animals}): is "{other_text}" ({other_number}) bedoeld?)"}},
    {Code::breeder_spelling, "breeder-spelling", L, part_breeders,
     {"One breeder in two spellings", "Een fokker in twee spellingen"},
     {R"("{text}" ({animals}) and "{other_text}" ({other_number}): one breeder?)", R"("{text}" ({animals}) en "{other_text}" ({other_number}): een fokker?)"}},
    {Code::breeder_cut, "breeder-cut", L, part_breeders,
     {"Breeder is too long and is cut", "Fokker is te lang en wordt afgekapt"},
     {"The breeder \"{text}\" ({animals}) is cut to 20 characters", "De fokker \"{text}\" ({animals}) is afgekapt op 20 tekens"}},
    {Code::name_cut, "name-cut", L, part_top_sires,
     {"Name is too long and is cut", "Naam is te lang en wordt afgekapt"},
     {"The name \"{text}\" is cut to 50 characters", "De naam \"{text}\" is afgekapt op 50 tekens"}},
    {Code::heading_unused, "heading-unused", L, no_part,
     {"Column that is not used", "Kolom die niet gebruikt wordt"},
     {"Column {number}, \"{text}\", is not used", "Kolom {number}, \"{text}\", wordt niet gebruikt"}},
    {Code::name_not_found, "name-not-found", L, no_part,
     {"Listed name that no animal has", "Naam op de lijst die geen dier heeft"},
     {"No animal has \"{text}\" (line {number} of pedigreewatch.ini)", "Geen dier heeft \"{text}\" (regel {number} van pedigreewatch.ini)"}},
    {Code::utf_8_letters, "utf-8-letters", L, no_part,
     {"Accents show wrong in the report", "Accenten staan verkeerd in de uitvoer"},
     {"Accents are UTF-8 (lines: {number}); in the report they show wrong, save the file as ANSI text",
      "Accenten zijn UTF-8 (regels: {number}); in de uitvoer staan ze verkeerd, sla het bestand op als ANSI-tekst"}},
    {Code::steer_word, "steer-word", L, no_part,
     {"Unknown word in pedigreewatch.ini", "Onbekend woord in pedigreewatch.ini"},
     {"pedigreewatch.ini, line {number}: \"{text}\" is not known and read as {other_text}", "pedigreewatch.ini, regel {number}: \"{text}\" is onbekend en wordt gelezen als {other_text}"}},
    {Code::steer_rest, "steer-rest", L, no_part,
     {"Text that is not read in pedigreewatch.ini", "Tekst die niet gelezen wordt in pedigreewatch.ini"},
     {"pedigreewatch.ini, line {number}: \"{text}\" is not read; are the counts above it right?",
      "pedigreewatch.ini, regel {number}: \"{text}\" wordt niet gelezen; kloppen de aantallen erboven?"}},
    // clang-format on
}};

/// By the place of a name among `finding_places`, whether the words name it; nothing when they name another one.
constexpr std::optional<std::array<bool, finding_places.size()>> places_in(std::string_view words) {
  std::array<bool, finding_places.size()> is_named = {};
  for (std::size_t brace = words.find('{'); brace != std::string_view::npos; brace = words.find('{', brace + 1)) {
    const std::string_view name = words.substr(brace + 1, words.find('}', brace) - brace - 1);
    std::size_t place = 0;
    while (place < finding_places.size() && finding_places[place] != name) ++place;
    if (place == finding_places.size()) return std::nullopt;
    is_named[place] = true;
  }
  return is_named;
}

constexpr bool has_known_places(const FindingKind& kind) {
  const auto english = places_in(kind.message.english), dutch = places_in(kind.message.dutch);
  return english && dutch && *english == *dutch;
}

static_assert(std::all_of(kinds.begin(), kinds.end(), has_known_places),
              "a message names what is filled in, the same in both languages");

static_assert(
    [] {
      for (std::size_t k = 0; k < kinds.size(); ++k) {
        if (static_cast<std::size_t>(kinds[k].code) != k) return false;
      }
      return true;
    }(),
    "the kinds stand in the order of their codes");

constexpr auto part_names = std::to_array<Wording>({
    {"inbreeding and kinship", "inteelt en verwantschap"},
    {"effective size (Ne)", "effectieve grootte (Ne)"},
    {"population size", "populatiegrootte"},
    {"offspring", "nakomelingen"},
    {"litters", "nesten"},
    {"ages of parents", "leeftijden van ouders"},
    {"generation interval", "generatie-interval"},
    {"completeness", "volledigheid"},
    {"top sires", "topvaders"},
    {"breeders", "fokkers"},
    {"colours", "kleuren"},
    {"subpopulations", "subpopulaties"},
    {"imports", "import"},
});
constexpr Wording all_parts = {"everything", "alles"};

}  // namespace

const FindingKind& kind_of(FindingCode code) {
  return kinds[static_cast<std::size_t>(code)];
}

std::optional<FindingCode> finding_code_named(std::string_view name) {
  const auto* const found =
      std::find_if(kinds.begin(), kinds.end(), [&](const FindingKind& kind) { return kind.name == name; });
  if (found == kinds.end()) return std::nullopt;
  return found->code;
}

std::string_view letter_of(Severity severity) {
  return severity == Severity::stops ? "S" : severity == Severity::falsifies ? "W" : "L";
}

std::string heading_of(Severity severity, ToolLanguage language) {
  constexpr std::array<Wording, 3> headings = {
      {{"The run stops", "Het programma stopt"},
       {"Figures of the report become wrong", "Cijfers in de uitvoer worden fout"},
       {"Worth a look", "Het bekijken waard"}}};
  return std::string(words_of(headings[static_cast<std::size_t>(severity)], language));
}

std::string list_parts(std::uint32_t parts, ToolLanguage language) {
  if (parts == every_part) return std::string(words_of(all_parts, language));
  std::string list;
  for (std::size_t k = 0; k < part_names.size(); ++k) {
    if ((parts >> k & 1U) == 0) continue;
    if (!list.empty()) list += ", ";
    list += words_of(part_names[k], language);
  }
  return list;
}

}  // namespace pedigreewatch
