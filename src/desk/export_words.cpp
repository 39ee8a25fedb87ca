// A table of words for each of the three, in the order of their kinds. The places of a wording are the values of its
// kind. Names of controls stand in quotation marks.

#include "desk/export_words.h"

#include <array>
#include <filesystem>

#include "intake/column_choice.h"
#include "intake/column_recognition.h"
#include "intake/said_values.h"

namespace pedigreewatch {
namespace {

struct EvidenceWording {
  Wording label, text;
};

constexpr Wording goes_on = {"", ""}, look_at_this = {"Look at this", "Let op"};

// clang-format off
constexpr std::array<EvidenceWording, remark_kind_count> remark_wordings = {{
    {{"Export", "Export"}, {"{1}: {2} lines", "{1}: {2} regels"}},
    {{"Letters", "Letters"}, {"plain letters only (ASCII)", "alleen gewone letters (ASCII)"}},
    {{"Letters", "Letters"}, {"{1}", "{1}"}},
    {{"Letters", "Letters"}, {"{1}, as you say", "{1}, zoals u zegt"}},
    {{"Letters", "Letters"}, {"{1}, as the first bytes of the file say", "{1}, volgens de eerste bytes van het bestand"}},
    {{"Letters", "Letters"},
     {"{1}; letters with accents: {2}, such as in \"{3}\"", "{1}; letters met accenten: {2}, zoals in \"{3}\""}},
    {{"Letters", "Letters"},
     {"{1}, as the first bytes of the file say; letters with accents: {2}, such as in \"{3}\"",
      "{1}, volgens de eerste bytes van het bestand; letters met accenten: {2}, zoals in \"{3}\""}},
    {goes_on,
     {"Bytes that are not UTF-8 and were read as Windows-1252: {1}. Look whether the letters with accents are right.",
      "Bytes die geen UTF-8 zijn en als Windows-1252 gelezen zijn: {1}. Kijk of de letters met accenten kloppen."}},
    {goes_on,
     {"Letters that were turned into UTF-8 twice, written as they are meant: {1}: {2}. To leave them as they stand choose "
      "UTF-8 at \"Letters\".",
      "Letters die tweemaal in UTF-8 zijn omgezet, geschreven zoals ze bedoeld zijn: {1}: {2}. Om ze te laten staan kiest "
      "u UTF-8 bij \"Letters\"."}},
    {goes_on,
     {"Letters that may have been turned into UTF-8 twice, and are left as they stand: {1}: {2}",
      "Letters die misschien tweemaal in UTF-8 zijn omgezet, en blijven zoals ze er staan: {1}: {2}"}},
    {goes_on, {"Broken letters, which become ?: {1}", "Kapotte letters, die ? worden: {1}"}},
    {goes_on,
     {"The file ends in half a letter: it may have been cut off. Look at its end.",
      "Het bestand eindigt met een halve letter: misschien is het afgekapt. Kijk naar het eind."}},
    {{"Divided by", "Gescheiden door"}, {"{1}, as you say", "{1}, zoals u zegt"}},
    {{"Divided by", "Gescheiden door"},
     {"{1}: {2} of the first {3} lines have {4} columns",
      "{1}: {2} van de eerste {3} regels hebben {4} kolommen"}},
    {{"Headings", "Koppen"}, {"in line {1}", "in regel {1}"}},
    {{"Headings", "Koppen"}, {"none: the first line is an animal", "geen: de eerste regel is een dier"}},
    {{"Animals", "Dieren"}, {"{1}", "{1}"}},
    {{"Columns", "Kolommen"}, {"{1}", "{1}"}},
    {{"In use", "In gebruik"},
     {"column {1}, {2}: {3}; filled in {4}", "kolom {1}, {2}: {3}; gevuld bij {4}"}},
    {goes_on, {"Could be the {1} too, not used: {2}", "Kan ook dit zijn: {1}, niet gebruikt: {2}"}},
    {{"Not used", "Niet gebruikt"}, {"With their texts: {1}", "Met hun teksten: {1}"}},
    {{"Not used", "Niet gebruikt"}, {"Columns without any text: {1}", "Kolommen zonder tekst: {1}"}},
    {{"Fathers", "Vaders"},
     {"{1} different ones, {2} of them have a line of their own", "{1} verschillende, {2} daarvan hebben een eigen regel"}},
    {{"Fathers", "Vaders"},
     {"in a sample {1} different ones, {2} of them have a line of their own",
      "in een steekproef {1} verschillende, {2} daarvan hebben een eigen regel"}},
    {{"Mothers", "Moeders"},
     {"{1} different ones, {2} of them have a line of their own", "{1} verschillende, {2} daarvan hebben een eigen regel"}},
    {{"Mothers", "Moeders"},
     {"in a sample {1} different ones, {2} of them have a line of their own",
      "in een steekproef {1} verschillende, {2} daarvan hebben een eigen regel"}},
    {goes_on,
     {"None of them has a line: do these columns hold identifications of the same kind? If not, choose others above "
      "the columns.",
      "Geen daarvan heeft een regel: staan in deze kolommen wel dezelfde soort nummers? Zo niet, kies andere boven de "
      "kolommen."}},
    {{"Unknown parents", "Onbekende ouders"}, {"written as {1}", "geschreven als {1}"}},
    {goes_on,
     {"\"{1}\" is the id of an animal and stays a parent. If it means unknown, write it at \"Unknown parents\".",
      "\"{1}\" is het id van een dier en blijft een ouder. Als het onbekend betekent, schrijf het bij \"Onbekende "
      "ouders\"."}},
    {goes_on,
     {"Fathers that have a name and no id, and stay unknown: {1}: {2}",
      "Vaders die een naam en geen id hebben, en onbekend blijven: {1}: {2}"}},
    {goes_on,
     {"Mothers that have a name and no id, and stay unknown: {1}: {2}",
      "Moeders die een naam en geen id hebben, en onbekend blijven: {1}: {2}"}},
    {{"Dates", "Datums"}, {"written as {1}", "geschreven als {1}"}},
    {goes_on,
     {"As {2}: {1}; {3} of them fit no other order, {4} would fit {5} too",
      "Als {2}: {1}; {3} daarvan passen in geen andere volgorde, {4} ook in {5}"}},
    {goes_on, {"Of eight digits, as {2}: {1}", "Van acht cijfers, als {2}: {1}"}},
    {goes_on,
     {"Kept as they are, because there is no such day: {1}: {2}", "Onveranderd, omdat die dag niet bestaat: {1}: {2}"}},
    {look_at_this,
     {"Dates that are kept as they are, because they are a day as {3} only: {1}: {2}",
      "Datums die onveranderd blijven, omdat ze alleen als {3} een dag zijn: {1}: {2}"}},
    {goes_on,
     {"Beside those, and a day in either order, so that they may be exchanged too: {1}: {2}",
      "Daarnaast, en in beide volgorden een dag, zodat ze ook verwisseld kunnen zijn: {1}: {2}"}},
    {goes_on, {"With the month as a word: {1}", "Met de maand als woord: {1}"}},
    {goes_on, {"Of a year only: {1}", "Met alleen een jaar: {1}"}},
    {goes_on,
     {"Of month and year only (written with day 00): {1}", "Met alleen maand en jaar (geschreven met dag 00): {1}"}},
    {goes_on, {"With a time of day, which is left out: {1}", "Met een tijd erbij, die wordt weggelaten: {1}"}},
    {goes_on,
     {"Not known exactly (~ 1972, circa 1998, 2018?), read as the year or date that stands there: {1}",
      "Niet precies bekend (~ 1972, circa 1998, 2018?), gelezen als het jaar of de datum die er staat: {1}"}},
    {goes_on,
     {"Numbers of days of a spreadsheet, counted from {2}: {1}", "Dagnummers van een rekenblad, geteld vanaf {2}: {1}"}},
    {goes_on, {"Unknown: {1}", "Onbekend: {1}"}},
    {goes_on,
     {"With a year of two digits, read as {2} to {3}: {1}",
      "Met een jaar van twee cijfers, gelezen als {2} tot en met {3}: {1}"}},
    {goes_on, {"With a year of two digits: {1}: {2}", "Met een jaar van twee cijfers: {1}: {2}"}},
    {goes_on,
     {"Left empty, because they cannot be read: {1}: {2}", "Leeg gelaten, omdat ze niet te lezen zijn: {1}: {2}"}},
    {{"Sexes", "Geslacht"}, {"male: {1}; female: {2}", "mannelijk: {1}; vrouwelijk: {2}"}},
    {goes_on,
     {"Unknown, count as female in the report: {1}", "Onbekend, tellen als vrouwelijk in het rapport: {1}"}},
    {goes_on,
     {"That no column tells, by the parents: fathers, so male: {1}; mothers, so female: {2}; both, so unknown: {3}; neither, "
      "so unknown: {4}. Unknown ones count as female in the report.",
      "Dat in geen kolom staat, volgens de ouders: vader, dus mannelijk: {1}; moeder, dus vrouwelijk: {2}; beide, dus "
      "onbekend: {3}; geen van beide, dus onbekend: {4}. Onbekende tellen als vrouwelijk in het rapport."}},
    {{"Subpopulations", "Subpopulaties"}, {"{1}: {2}", "{1}: {2}"}},
    {{"Colours", "Kleuren"}, {"{1}: {2}", "{1}: {2}"}},
    {goes_on, {"Not ticked: {1}", "Niet aangevinkt: {1}"}},
    {goes_on, {"Together as \"{3}\": {1} names, animals: {2}", "Samen als \"{3}\": {1} namen, dieren: {2}"}},
    {goes_on,
     {"No text of the column has {1} animals: none is listed by itself",
      "Geen tekst van de kolom heeft {1} dieren: geen enkele komt zelf op de lijst"}},
    {look_at_this, {"Listed names that no animal has: {1}", "Namen op de lijst die geen dier heeft: {1}"}},
    {{"Imports", "Import"}, {"{1}; text that means none: {2}", "{1}; tekst die geen import betekent: {2}"}},
    {{"Species", "Diersoort"}, {"{1}", "{1}"}},
    {{"Population", "Populatie"}, {"{1}", "{1}"}},
    {look_at_this,
     {"Lines with more or fewer columns than the {2} of the first line; what they hold may stand in the wrong column: "
      "{1}: {3}",
      "Regels met meer of minder kolommen dan de {2} van de eerste regel; wat erin staat kan in de verkeerde kolom "
      "staan: {1}: {3}"}},
    {look_at_this,
     {"Lines with text behind a closing quotation mark: {1}: {2}",
      "Regels met tekst achter een sluitend aanhalingsteken: {1}: {2}"}},
    {look_at_this, {"Animals without id: {1}: {2}", "Dieren zonder id: {1}: {2}"}},
    {look_at_this,
     {"Taken as animals, with an id unlike all others and no sex: {1}: {2}",
      "Als dier genomen, met een id anders dan alle andere en zonder geslacht: {1}: {2}"}},
    {look_at_this, {"Ids that mean unknown: {1}", "Id's die onbekend betekenen: {1}"}},
    {{"Identifications", "Identificaties"},
     {"Parents are compared with them {1}: {2} parents get a line by that: {3}",
      "Ouders worden ermee vergeleken {1}: {2} ouders krijgen daardoor een regel: {3}"}},
    {{"Left out", "Weggelaten"},
     {"Signs between the thousands of id's: {1}", "Tekens tussen de duizendtallen van id's: {1}"}},
    {{"Shortened", "Ingekort"}, {"To {1} letters: {2} ({3}): {4}", "Tot {1} letters: {2} ({3}): {4}"}},
    {{"Other letters", "Andere letters"},
     {"Letters that the report does not have: {1}", "Letters die het rapport niet heeft: {1}"}},
    {{"Left out", "Weggelaten"},
     {"Invisible signs (no-break spaces, tabs, line ends inside a text), or made blanks: {1}",
      "Onzichtbare tekens (vaste spaties, tabs, regeleinden in een tekst), of spaties geworden: {1}"}},
    {{"Left out", "Weggelaten"}, {"Blanks before a text: {1}", "Spaties voor een tekst: {1}"}},
    {{"Left out", "Weggelaten"},
     {"Quotation marks around texts, in this many lines: {1}", "Aanhalingstekens om teksten, in zoveel regels: {1}"}},
    {{"Left out", "Weggelaten"},
     {"What a spreadsheet puts around texts (a formula, or an apostrophe in front), in this many lines: {1}",
      "Wat een rekenblad om teksten zet (een formule, of een apostrof ervoor), in zoveel regels: {1}"}},
    {{"Left out", "Weggelaten"}, {"Lines without an animal: {1}", "Regels zonder dier: {1}"}},
    {{"Numbers of lines", "Regelnummers"},
     {"Blank lines, or line ends inside quotation marks, give lines of the data file other numbers.",
      "Door lege regels, of regeleinden binnen aanhalingstekens, hebben regels van het databestand een ander nummer."}},
    {goes_on, {"From line {1} of the export on: line {2} of {3}", "Vanaf regel {1} van de export: regel {2} van {3}"}},
    {goes_on,
     {"{1} more such places; at the last one line {2} of the export is line {3}",
      "Nog {1} plaatsen; op de laatste is regel {2} van de export regel {3}"}},
    {{"Sheet", "Blad"},
     {"\"{1}\" of {2}; its rows are the lines of what follows", "\"{1}\" van {2}; de rijen ervan zijn hieronder de regels"}},
    {look_at_this, {"Cells that hold an error and count as empty: {1}: {2}", "Cellen met een fout, die als leeg tellen: {1}: {2}"}},
    {look_at_this,
     {"Formulas without a value, which count as empty: {1}: {2}. Save the workbook in the spreadsheet program.",
      "Formules zonder waarde, die als leeg tellen: {1}: {2}. Bewaar de werkmap in het rekenbladprogramma."}},
    {look_at_this,
     {"Cells of dates that are no day, read as numbers: {1}: {2}",
      "Cellen met een datum die niet bestaat, als getal gelezen: {1}: {2}"}},
    {goes_on,
     {"Merged cells, of which only the first has the text: {1}: {2}",
      "Samengevoegde cellen, waarvan alleen de eerste de tekst heeft: {1}: {2}"}},
    {goes_on, {"Hidden rows, which are read too: {1}: {2}", "Verborgen rijen, die ook gelezen zijn: {1}: {2}"}},
    {goes_on, {"Hidden columns, which are read too: {1}: {2}", "Verborgen kolommen, die ook gelezen zijn: {1}: {2}"}},
    {{"Answers", "Antwoorden"},
     {"Those of an earlier export are used again: {1}", "Die van een eerdere export zijn weer gebruikt: {1}"}},
    {goes_on,
     {"Line {1} fits this export no more and was passed over: {2}",
      "Regel {1} past niet meer bij deze export en is overgeslagen: {2}"}},
    {goes_on, {"{1} was chosen by what stands in it: {2}", "{1} is gekozen om wat erin staat: {2}"}},
    {goes_on, {"Lines above them, which were left out: {1}: {2}", "Regels erboven, die zijn weggelaten: {1}: {2}"}},
    {{"Left out", "Weggelaten"}, {"Headers that come again: {1}: {2}", "Herhaalde kopregels: {1}: {2}"}},
    {look_at_this,
     {"Lines that are no animals were left out: {1}: {2}", "Regels die geen dier zijn, zijn weggelaten: {1}: {2}"}},
    {{"Young", "Jongen"},
     {"Several a line, in {1}: {2} lines hold {3} animals, and each gets a line of its own",
      "Meer per regel, in {1}: {2} regels bevatten {3} dieren, en elk krijgt een eigen regel"}},
    {goes_on,
     {"Born dead, as the text in the place of their id says, and left out: {1}: {2}",
      "Dood geboren, volgens de tekst op de plaats van hun id, en weggelaten: {1}: {2}"}},
    {{"Gone", "Weg"}, {"By {1}: animals with a date: {2}", "Volgens {1}: dieren met een datum: {2}"}},
    {{"Gone", "Weg"}, {"By {1}: {2}", "Volgens {1}: {2}"}},
    {{"Gone", "Weg"},
     {"In {1}, not understood and taken as still there: {2}", "In {1}, niet begrepen en genomen als nog aanwezig: {2}"}},
    {{"Gone", "Weg"}, {"As parents, by their sex (castrated): {1}", "Als ouder, volgens het geslacht (gecastreerd): {1}"}},
}};

constexpr std::array<Wording, question_kind_count> question_wordings = {{
    {"No column was recognised for the {1}. Choose it above its column.{3}",
     "Er is geen kolom herkend voor: {1}. Kies het boven de kolom.{3}"},
    {"No column was recognised for the {1}. Choose it above its column; or, if the file tells no sexes, that it is not used: "
     "fathers then become male and mothers female, and all others stay unknown.{3}",
     "Er is geen kolom herkend voor: {1}. Kies het boven de kolom; of, als er geen geslachten in staan, dat het niet "
     "gebruikt wordt: vaders worden dan mannelijk en moeders vrouwelijk, en alle andere blijven onbekend.{3}"},
    {"Several columns could hold the {1}: {2}. Choose it above the right one.",
     "Meer kolommen kunnen dit zijn: {1}: {2}. Kies het boven de juiste."},
    {"Several columns could hold the {1}: {2}. Choose it above the right one, or leave it out.",
     "Meer kolommen kunnen dit zijn: {1}: {2}. Kies het boven de juiste, of laat het weg."},
    {"{1}: there is no column \"{2}\" (there are {3} columns). Choose it above its column.",
     "{1}: er is geen kolom \"{2}\" (er zijn {3} kolommen). Kies het boven de kolom."},
    {"{1}: several columns are called \"{2}\": {3}. Choose it above the right one.",
     "{1}: meer kolommen heten \"{2}\": {3}. Kies het boven de juiste."},
    {"The first line holds no heading that is known, so that all lines count as animals. If it holds headings, choose "
     "\"holds headings\" at \"First line\", under \"How the file is read\".",
     "De eerste regel bevat geen bekende kop, zodat alle regels als dieren tellen. Als het koppen zijn, kies dan "
     "\"bevat koppen\" bij \"Eerste regel\", onder \"Hoe het bestand gelezen wordt\"."},
    {"Of {6} parents in {3}, taken as the {1}, only so many have a line of their own, with that id in {4}: {7}. Columns whose "
     "texts do stand there: {5}. Choose which column holds the {1}, also if the one taken is right.",
     "Van {6} ouders in {3}, genomen als {1}, hebben er maar zoveel een eigen regel, met dat id in {4}: {7}. Kolommen waarvan de "
     "teksten daar wel staan: {5}. Kies welke kolom klopt voor {1}, ook als de genomen kolom klopt."},
    {"Most parents do not stand in {3}, taken as the {1}. Columns in which most of them stand: {5}. Choose which column "
     "holds the {1}, also if the one taken is right.",
     "De meeste ouders staan niet in {3}, genomen als {1}. Kolommen waarin de meeste wel staan: {5}. Kies welke kolom "
     "klopt voor {1}, ook als de genomen kolom klopt."},
    {"The dates can be read in two ways: {1} as {2}, {3} as {4}, and {5} as either. Choose which is right at "
     "\"Dates\".",
     "De datums zijn op twee manieren te lezen: {1} als {2}, {3} als {4} en {5} als beide. Kies wat klopt bij "
     "\"Datums\"."},
    {"In {1}, taken as the date of birth, texts that are no date that can be read: {2} of {3}: {4}. Choose which column holds "
     "the date of birth, also if the one taken is right; those texts then stay as they are.",
     "In {1}, genomen als geboortedatum, teksten die geen leesbare datum zijn: {2} van {3}: {4}. Kies in welke kolom de "
     "geboortedatum staat, ook als de genomen kolom klopt; die teksten blijven dan zoals ze zijn."},
    {"{1}, taken as the date of birth, holds not one date that can be read. Choose which column holds the date of "
     "birth, also if the one taken is right.",
     "{1}, genomen als geboortedatum, bevat geen enkele leesbare datum. Kies in welke kolom de geboortedatum staat, ook "
     "als de genomen kolom klopt."},
    {"In {1}, taken as the date of birth, not one of {2} texts is a date that can be read: {3}. Without dates nothing can "
     "be calculated. Choose another column, or another order at \"Dates\" if one was chosen, or export the file anew with "
     "dates such as 2019-03-31.",
     "In {1}, genomen als geboortedatum, is niet een van {2} teksten een leesbare datum: {3}. Zonder datums valt er niets "
     "te berekenen. Kies een andere kolom, of een andere volgorde bij \"Datums\" als er een gekozen is, of exporteer het "
     "bestand opnieuw met datums zoals 2019-03-31."},
    {"Dates with a year of two digits: {1}; parents and young do not tell which hundred years are meant: {2}. Choose "
     "the hundred years.",
     "Datums met een jaar van twee cijfers: {1}; ouders en jongen maken niet duidelijk welke honderd jaar bedoeld "
     "zijn: {2}. Kies de honderd jaar."},
    {"Dates that are numbers of days, as a spreadsheet keeps them: {1}; {2} is {3} where days are counted from 1900 (usual), "
     "and {4} where they are counted from 1904 (older Macs). Look one animal up, and choose its day.",
     "Datums die dagnummers zijn, zoals een rekenblad ze bewaart: {1}; {2} is {3} als de dagen vanaf 1900 geteld zijn "
     "(gebruikelijk), en {4} als ze vanaf 1904 geteld zijn (oudere Macs). Zoek een dier op, en kies zijn dag."},
    {"Of {4} parents in {3}, taken as the {1}, whose sex is known, {5} are of the other sex. If father and mother are "
     "exchanged, or another column holds the {1}, choose it above the columns, also if the one taken is right.",
     "Van {4} ouders in {3}, genomen als {1}, waarvan het geslacht bekend is, zijn {5} van het andere geslacht. Als vader "
     "en moeder verwisseld zijn, of een andere kolom is {1}, kies die dan boven de kolommen, ook als de genomen kolom "
     "klopt."},
    {"These parents have no line of their own and may be words for an unknown parent, with their young: {1}. Choose those "
     "that are; if the others are animals, choose that then.",
     "Deze ouders hebben geen eigen regel en zijn misschien woorden voor een onbekende ouder, met hun nakomelingen: {1}. "
     "Kies welke dat zijn; als de andere dieren zijn, kies dat daarna."},
    {"These parents stand for those of a line above, with their young: {1}. Which line is meant cannot be known, as lines "
     "may have been sorted: write the parents out in the export. If they are unknown, choose those.",
     "Deze ouders staan voor die van een regel erboven, met hun nakomelingen: {1}. Welke regel bedoeld is, valt niet te "
     "weten, want regels kunnen gesorteerd zijn: schrijf de ouders in de export uit. Als ze onbekend zijn, kies die dan."},
    {"It is not clear which animals are male: the sexes are written {1}. Choose it at \"Sexes\".",
     "Het is niet duidelijk welke dieren mannelijk zijn: de geslachten zijn geschreven als {1}. Kies het bij "
     "\"Geslachten\"."},
    {"It is not clear what these sexes mean: {1}. Choose it for each at \"Sexes\".",
     "Het is niet duidelijk wat deze geslachten betekenen: {1}. Kies het voor elk bij \"Geslachten\"."},
    {"The sex \"{1}\" contradicts the parents: animals with it that are fathers: {2}, mothers: {3}. If father and mother "
     "are exchanged, exchange them above their columns; or choose what the sexes mean at \"Sexes\".",
     "Het geslacht \"{1}\" klopt niet met de ouders: dieren ermee die vader zijn: {2}, moeder: {3}. Als vader en moeder "
     "verwisseld zijn, wissel ze dan boven hun kolommen om; of kies wat de geslachten betekenen bij \"Geslachten\"."},
    {"No animal has the sex \"{1}\": the sexes are written {2}. Choose what they mean at \"Sexes\".",
     "Geen dier heeft het geslacht \"{1}\": de geslachten zijn geschreven als {2}. Kies wat ze betekenen bij "
     "\"Geslachten\"."},
    {"The species is needed, for the words of the report. Choose it at \"Species\".",
     "De diersoort is nodig, voor de woorden van het rapport. Kies haar bij \"Diersoort\"."},
    {"There is no species \"{1}\". Choose one at \"Species\".",
     "De diersoort \"{1}\" is er niet. Kies er een bij \"Diersoort\"."},
    {"In {1} a spreadsheet has destroyed identifications: it took them for numbers and kept only their first digits: "
     "{2}: {3}. Export the file anew and do not open it in a spreadsheet in between, or format the column as text before "
     "the numbers are put in.",
     "In {1} heeft een rekenblad nummers van dieren vernield: het nam ze als getallen en bewaarde alleen de eerste "
     "cijfers: {2}: {3}. Exporteer het bestand opnieuw en open het tussendoor niet in een rekenblad, of maak de kolom "
     "als tekst op voordat de nummers erin komen."},
    {"Of {1} parents without a line of their own {2} would have one if id's were compared {3}: {5}. Are they the same "
     "animals?",
     "Van {1} ouders zonder eigen regel zouden er {2} een hebben als id's vergeleken worden {3}: {5}. Zijn het dezelfde "
     "dieren?"},
    {"The column of subpopulations, {1}, holds {2} different texts; each would be listed, and each two of them "
     "compared. Tick those that count at \"Subpopulations\", or choose one of these.",
     "De kolom van de subpopulaties, {1}, bevat {2} verschillende teksten; elk zou op de lijst komen, en elke twee "
     "zouden vergeleken worden. Vink aan welke meetellen bij \"Subpopulaties\", of kies een van deze."},
    {"The {2} subpopulations that are ticked make a report of {4} with lines up to {5}, as each two of them are compared; "
     "at most 1000 MB with lines up to 1 MB are made. Tick fewer at \"Subpopulations\", or choose one of these.",
     "De {2} aangevinkte subpopulaties geven een rapport van {4} met regels tot {5}, omdat elke twee vergeleken worden; "
     "meer dan 1000 MB, of regels van meer dan 1 MB, wordt niet gemaakt. Vink er minder aan bij \"Subpopulaties\", of "
     "kies een van deze."},
    {"The column of colours, {1}, holds {2} different texts; each would be listed. Tick those that count at "
     "\"Colours\", or choose all or none.",
     "De kolom van de kleuren, {1}, bevat {2} verschillende teksten; elk zou op de lijst komen. Vink aan welke "
     "meetellen bij \"Kleuren\", of kies alle of geen."},
    {"No character is left that could divide the columns of the data file: all of them occur in the texts.",
     "Er is geen teken over om de kolommen van het databestand te scheiden: alle tekens komen in de teksten voor."},
    {"It looks as if a line holds several animals, such as the young of a litter, in {1}. Choose whether each gets a line "
     "of its own.",
     "Het lijkt of een regel meer dieren bevat, zoals de jongen van een worp, in {1}. Kies of elk een eigen regel krijgt."},
    {"Young in \"{1}\": there is no column of that heading or number (there are {2} columns).",
     "Jongen in \"{1}\": er is geen kolom met die kop of dat nummer (er zijn {2} kolommen)."},
    {"In {1} may stand which animals are dead, sold, exported or castrated, but heading and texts do not agree: {2}. Matings "
     "and plans leave such animals out. Choose whether it counts.",
     "In {1} staat misschien welke dieren dood, verkocht, weg of gecastreerd zijn, maar kop en teksten kloppen niet met "
     "elkaar: {2}. Paringen en plannen laten zulke dieren weg. Kies of het meetelt."},
    {"By {1} all animals would be dead, sold, exported or castrated: {2}. Matings and plans would have none left. Choose "
     "whether it counts.",
     "Volgens {1} zouden alle dieren dood, verkocht, weg of gecastreerd zijn: {2}. Voor paringen en plannen bleef er geen "
     "over. Kies of het meetelt."},
    {"Animals that have gone, in \"{1}\": there is no column of that heading or number (there are {2} columns).",
     "Dieren die weg zijn, in \"{1}\": er is geen kolom met die kop of dat nummer (er zijn {2} kolommen)."},
    {"It is not clear what these texts in {1} say of the animals: {2}. Choose those which mean that an animal has gone (is "
     "dead, sold, castrated, ...), one by one, then that all others are still there.",
     "Het is niet duidelijk wat deze teksten in {1} over de dieren zeggen: {2}. Kies een voor een de teksten die betekenen "
     "dat een dier er niet meer is (dood, verkocht, gecastreerd, ...), en dan dat alle andere er nog zijn."},
    {"In {1} may stand which animals are imports: {2}. If so, choose that above the column; each text but no, 0, - and the like "
     "is then an import. If not, choose that it is not used.",
     "In {1} staat misschien welke dieren import zijn: {2}. Als dat zo is, kies het boven de kolom; elke tekst behalve nee, 0, - "
     "en dergelijke is dan import. Zo niet, kies dat het niet gebruikt wordt."},
    {"Only the sheet \"{1}\" is read, and others have the same headings, with their rows: {2}. If their animals belong to it, "
     "put all rows below each other on one sheet. If not, choose the sheet that is meant.",
     "Alleen het blad \"{1}\" wordt gelezen, en andere hebben dezelfde koppen, met hun rijen: {2}. Als die dieren erbij horen, "
     "zet dan alle rijen onder elkaar op een blad. Zo niet, kies het blad dat bedoeld is."},
}};

constexpr std::array<Wording, refusal_kind_count> refusal_wordings = {{
    {"{1} cannot be read: {2}", "{1} is niet te lezen: {2}"},
    {"{1} is a folder; the export is a file", "{1} is een map; de export is een bestand"},
    {"{1} is empty", "{1} is leeg"},
    {"{1} is no text but a file of another kind ({2}). Save or export it as CSV (text), best as CSV UTF-8.",
     "{1} is geen tekst maar een ander soort bestand ({2}). Bewaar of exporteer het als CSV (tekst), liefst als CSV "
     "UTF-8."},
    {"{1} is no text: it holds bytes that no text has (zeros): {2}, the first in line {3}. Export it as CSV (text).",
     "{1} is geen tekst: het bevat bytes die in geen tekst staan (nullen): {2}, de eerste in regel {3}. Exporteer het "
     "als CSV (tekst)."},
    {"{1}: the letters with accents are written in two ways: {2} as UTF-8, the first in line {3}, and {4} in another "
     "way, the first in line {5}. Choose at \"Letters\", under \"How the file is read\": UTF-8 (the others are then "
     "read as Windows-1252) or Windows-1252.",
     "{1}: de letters met accenten staan er op twee manieren: {2} als UTF-8, de eerste in regel {3}, en {4} anders, de "
     "eerste in regel {5}. Kies bij \"Letters\", onder \"Hoe het bestand gelezen wordt\": UTF-8 (de andere worden dan "
     "als Windows-1252 gelezen) of Windows-1252."},
    {"{1}: it is not clear which character divides the columns ({2}). Choose it at \"Divided by\", under \"How the "
     "file is read\".",
     "{1}: het is niet duidelijk welk teken de kolommen scheidt ({2}). Kies het bij \"Gescheiden door\", onder \"Hoe "
     "het bestand gelezen wordt\"."},
    {"{1}: the first line has more than {2} columns", "{1}: de eerste regel heeft meer dan {2} kolommen"},
    {"{1}, line {2}: a quotation mark opens a text and is never closed. Mend this line in the export.",
     "{1}, regel {2}: een aanhalingsteken opent een tekst en wordt nergens gesloten. Herstel deze regel in de export."},
    {"{1}: there is no animal in it", "{1}: er staat geen dier in"},
    {"{1}, line {2}: the ids \"{3}\" and \"{4}\" would both become \"{5}\" in the data file (30 letters, without "
     "letters that the report does not have). Shorten or rename one of them in the export.",
     "{1}, regel {2}: de id's \"{3}\" en \"{4}\" zouden in het databestand allebei \"{5}\" worden (30 letters, zonder "
     "letters die het rapport niet heeft). Kort een van beide in of hernoem hem in de export."},
    {"{1}: {2}", "{1}: {2}"},
    {"{1}: the letters with accents fit several encodings: {2}. Choose the right one at \"Letters\", under \"How the file is "
     "read\".",
     "{1}: de letters met accenten passen bij verschillende coderingen: {2}. Kies de juiste bij \"Letters\", onder \"Hoe "
     "het bestand gelezen wordt\"."},
    {"There is nothing in {1} but blanks, line ends and delimiters.", "Er staat niets in {1} dan spaties, regeleinden en scheidingstekens."},
    {"{1}, line {2}: between two quotation marks stand whole lines, as if stray quotation marks had swallowed animals. Take the "
     "quotation marks away if they are stray, or the delimiters and line ends between them if it is one text.",
     "{1}, regel {2}: tussen twee aanhalingstekens staan hele regels, alsof losse aanhalingstekens dieren hebben ingeslikt. "
     "Haal de aanhalingstekens weg als ze er niet horen, of de scheidingstekens en regeleinden ertussen als het een tekst is."},
    {"{1}: letters that look as if they had been turned into UTF-8 twice: {2}: {3}. Other letters with accents or signs: {4}. At "
     "\"Letters\", under \"How the file is read\", choose \"UTF-8 twice\" to write the former as they are probably meant, or "
     "UTF-8 to leave them as they stand.",
     "{1}: letters die eruitzien alsof ze tweemaal in UTF-8 zijn omgezet: {2}: {3}. Andere letters met accenten of tekens: {4}. "
     "Kies bij \"Letters\", onder \"Hoe het bestand gelezen wordt\", \"UTF-8 tweemaal\" om de eerste te schrijven zoals ze "
     "waarschijnlijk bedoeld zijn, of UTF-8 om ze zo te laten."},
}};
// clang-format on

constexpr Wording column_answer = {"\"{1}\" (column {2})", "\"{1}\" (kolom {2})"};
constexpr Wording leave_out = {"not used", "niet gebruikt"};
constexpr Wording yes_headings = {"holds headings", "bevat koppen"}, no_headings = {"is an animal", "is een dier"};
constexpr Wording keep_ids = {"take them as they stand", "neem ze zoals ze er staan"};
constexpr Wording one_animal_a_line = {"a line is one animal", "een regel is een dier"},
                  several_animals_a_line = {"a line for each", "een regel voor elk"};
constexpr Wording tells_gone_animals = {"yes, it tells which animals have gone", "ja, er staat welke dieren weg zijn"},
                  tells_none = {"no, it is about something else", "nee, het gaat over iets anders"};
constexpr Wording has_gone_text = {"{1}: gone", "{1}: weg"},
                  all_are_present = {"the others are still there", "de andere zijn er nog"};
constexpr Wording same_animals = {"they are the same animals", "het zijn dezelfde dieren"};
constexpr Wording stands_for_unknown = {"{1} stands for unknown", "{1} betekent onbekend"};
constexpr Wording all_are_animals = {"they are animals", "het zijn dieren"};
constexpr Wording all_names = {"all", "alle"}, no_names = {"none", "geen"};

/// With the size of the report that it makes.
std::string text_of_names(const Question& question, const Answer& answer, ToolLanguage language) {
  for (const Value& value : question.values) {
    const auto* const list = std::get_if<NameChoiceList>(&value);
    for (std::size_t k = 0; list != nullptr && k < list->choices.size(); ++k) {
      if (list->choices[k].value == answer.value) return description_of(list->choices[k], language);
    }
  }
  return shown(answer.text);
}

/// The texts of the values. A field is called by what it holds, a file without the folder that it was put into.
std::vector<std::string> texts_in_desk(const Values& values, bool begins_with_file, ToolLanguage language) {
  std::vector<std::string> texts;
  for (const Value& value : values) {
    const auto* const field = std::get_if<FieldName>(&value);
    const auto* const text = std::get_if<std::string>(&value);
    if (field != nullptr) {
      texts.emplace_back(description_of(field->code, language));
    } else if (text != nullptr && begins_with_file && texts.empty()) {
      texts.push_back(shown(std::filesystem::path(*text).filename().string()));
    } else {
      texts.push_back(text_of(value, language));
    }
  }
  return texts;
}

}  // namespace

std::vector<EvidenceLine> evidence_lines(std::span<const Remark> remarks, ToolLanguage language) {
  std::vector<EvidenceLine> lines;
  RemarkKind last = RemarkKind::export_read;
  for (const Remark& remark : remarks) {
    const EvidenceWording& wording = remark_wordings[static_cast<std::size_t>(remark.kind)];
    // The columns in use stand below each other.
    const bool goes_on_there = remark.kind == RemarkKind::column_used && last == RemarkKind::column_used;
    last = remark.kind;
    const auto texts = texts_in_desk(remark.values, remark.kind == RemarkKind::export_read, language);
    const std::string_view label = words_of(goes_on_there ? goes_on : wording.label, language);
    lines.push_back({std::string(label), phrase_of(wording.text, language, texts)});
  }
  return lines;
}

std::string question_text(const Question& question, ToolLanguage language) {
  return phrase_of(question_wordings[static_cast<std::size_t>(question.kind)], language,
                   texts_in_desk(question.values, false, language));
}

std::string setting_name(Setting setting, FieldCode field) {
  switch (setting) {
    case Setting::none: return {};
    case Setting::column: return "column." + std::string(option_name_of(field));
    case Setting::header: return "header";
    case Setting::sheet: return "sheet";
    case Setting::dates: return "dates";
    case Setting::serials: return "serials";
    case Setting::century: return "century";
    case Setting::ids: return "ids";
    case Setting::male: return "male";
    case Setting::unknown: return "unknown";
    case Setting::known: return "known";
    case Setting::species: return "species";
    case Setting::subpopulations: return "subpopulations";
    case Setting::colours: return "colours";
    case Setting::young: return "young";
    case Setting::availability: return "availability";
    case Setting::gone: return "gone";
    case Setting::present: return "present";
  }
  return {};
}

std::string answer_text(const Question& question, const Answer& answer, ToolLanguage language) {
  const auto either = [&](std::string_view value, const Wording& one, const Wording& other) {
    return std::string(words_of(answer.value == value ? one : other, language));
  };
  switch (answer.setting == Setting::none ? question.setting : answer.setting) {
    case Setting::column:
      return answer.value == "none" ? std::string(words_of(leave_out, language))
                                    : phrase(column_answer, language, {shown(answer.text), answer.value});
    case Setting::header: return either("yes", yes_headings, no_headings);
    case Setting::dates: {
      const std::optional<DateOrder> order = date_order_named(answer.value);
      return order ? text_of(*order, language) : answer.value;
    }
    case Setting::subpopulations: return text_of_names(question, answer, language);
    case Setting::colours: return either("all", all_names, no_names);
    case Setting::ids: return either("keep", keep_ids, same_animals);
    case Setting::young: return either("none", one_animal_a_line, several_animals_a_line);
    case Setting::availability: return either(question.answers.front().value, tells_gone_animals, tells_none);
    case Setting::gone: return phrase(has_gone_text, language, {in_quotes(answer.text)});
    case Setting::present: return std::string(words_of(all_are_present, language));
    case Setting::known: return std::string(words_of(all_are_animals, language));
    case Setting::unknown: return phrase(stands_for_unknown, language, {in_quotes(answer.text)});
    case Setting::none:
    case Setting::sheet:
    case Setting::serials:
    case Setting::century:
    case Setting::male:
    case Setting::species: break;
  }
  return shown(answer.text);
}

std::vector<std::string> refusal_texts(const Refusal& refusal, ToolLanguage language) {
  const Wording& wording = refusal_wordings[static_cast<std::size_t>(refusal.kind)];
  std::vector<std::string> texts = {phrase_of(wording, language, texts_in_desk(refusal.values, true, language))};
  for (const Values& values : refusal.further) {
    texts.push_back(phrase_of(wording, language, texts_in_desk(values, true, language)));
  }
  return texts;
}

}  // namespace pedigreewatch
