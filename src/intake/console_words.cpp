// A table of words for each of the three, in the order of their kinds. The places of a wording are the values of its
// kind.

#include "intake/console_words.h"

#include <array>

#include "intake/said_values.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

// clang-format off
constexpr std::array<Wording, remark_kind_count> remark_wordings = {{
    {"Export        {1}: {2} lines", "Export        {1}: {2} regels"},
    {"Encoding      plain letters only (ASCII)", "Codering      alleen gewone letters (ASCII)"},
    {"Encoding      {1}", "Codering      {1}"},
    {"Encoding      {1}, as you say", "Codering      {1}, zoals u zegt"},
    {"Encoding      {1}, as its first bytes say", "Codering      {1}, volgens de eerste bytes"},
    {"Encoding      {1}; letters with accents: {2}, such as in \"{3}\"",
     "Codering      {1}; letters met accenten: {2}, zoals in \"{3}\""},
    {"Encoding      {1}, as its first bytes say; letters with accents: {2}, such as in \"{3}\"",
     "Codering      {1}, volgens de eerste bytes; letters met accenten: {2}, zoals in \"{3}\""},
    {"              bytes that are not UTF-8 and were read as Windows-1252: {1}. Check the letters with accents.",
     "              bytes die geen UTF-8 zijn en als Windows-1252 gelezen zijn: {1}. Kijk de letters met accenten na."},
    {"              letters that were turned into UTF-8 twice, written as they are meant: {1}: {2} (as they stand: "
     "--encoding utf-8)",
     "              letters die tweemaal in UTF-8 zijn omgezet, geschreven zoals ze bedoeld zijn: {1}: {2} (zoals ze er "
     "staan: --encoding utf-8)"},
    {"Look at this: letters that may have been turned into UTF-8 twice, and are left as they stand: {1}: {2}",
     "Let op: letters die misschien tweemaal in UTF-8 zijn omgezet, en blijven zoals ze er staan: {1}: {2}"},
    {"              broken letters, which become ?: {1}", "              kapotte letters, die ? worden: {1}"},
    {"              The file ends in half a letter: it may have been cut off. Look at its end.",
     "              Het bestand eindigt met een halve letter: misschien is het afgekapt. Kijk naar het eind."},
    {"Delimiter     {1}, as you say", "Scheiding     {1}, zoals u zegt"},
    {"Delimiter     {1}: {2} of the first {3} lines have {4} columns",
     "Scheiding     {1}: {2} van de eerste {3} regels hebben {4} kolommen"},
    {"Header        line {1}", "Kopregel      regel {1}"},
    {"Header        none: the first line is an animal", "Kopregel      geen: de eerste regel is een dier"},
    {"Animals       {1}", "Dieren        {1}"},
    {"Columns       {1}, in use are:", "Kolommen      {1}, gebruikt worden:"},
    {"  {1}  {2} {3} {4} filled", "  {1}  {2} {3} {4} gevuld"},
    {"  could be the {1} too, not used: {2}", "  kan ook zijn: {1}, niet gebruikt: {2}"},
    {"Not used      with their texts: {1}", "Niet gebruikt met hun teksten: {1}"},
    {"Not used      columns without any text: {1}", "Niet gebruikt kolommen zonder tekst: {1}"},
    {"Fathers       {1} different ones, {2} of them have a line of their own",
     "Vaders        {1} verschillende, {2} daarvan hebben een eigen regel"},
    {"Fathers       in a sample {1} different ones, {2} of them have a line of their own",
     "Vaders        in een steekproef {1} verschillende, {2} daarvan hebben een eigen regel"},
    {"Mothers       {1} different ones, {2} of them have a line of their own",
     "Moeders       {1} verschillende, {2} daarvan hebben een eigen regel"},
    {"Mothers       in a sample {1} different ones, {2} of them have a line of their own",
     "Moeders       in een steekproef {1} verschillende, {2} daarvan hebben een eigen regel"},
    {"              None of them has a line: do these columns hold identifications of the same kind? If not, choose "
     "others with --column.",
     "              Geen daarvan heeft een regel: staan in deze kolommen wel dezelfde soort nummers? Zo niet, kies "
     "andere met --column."},
    {"Unknown       parents written as: {1}", "Onbekend      ouders geschreven als: {1}"},
    {"              \"{1}\" is the id of an animal and stays a parent; if it means unknown: --unknown \"{1}\"",
     "              \"{1}\" is het id van een dier en blijft een ouder; als het onbekend betekent: --unknown \"{1}\""},
    {"              fathers that have a name and no id, and stay unknown: {1}: {2}",
     "              vaders die een naam en geen id hebben, en onbekend blijven: {1}: {2}"},
    {"              mothers that have a name and no id, and stay unknown: {1}: {2}",
     "              moeders die een naam en geen id hebben, en onbekend blijven: {1}: {2}"},
    {"Dates         written as {1}", "Datums        geschreven als {1}"},
    {"              as {2}: {1}; {3} of them fit no other order, {4} would fit {5} too",
     "              als {2}: {1}; {3} daarvan passen in geen andere volgorde, {4} ook in {5}"},
    {"              of eight digits, as {2}: {1}", "              van acht cijfers, als {2}: {1}"},
    {"              kept as they are, because there is no such day: {1}: {2}",
     "              onveranderd, omdat die dag niet bestaat: {1}: {2}"},
    {"              kept as they are, because they are a day as {3} only: {1}: {2}",
     "              onveranderd, omdat ze alleen als {3} een dag zijn: {1}: {2}"},
    {"              beside those, and a day in either order, so that they may be exchanged too: {1}: {2}. Look them up.",
     "              daarnaast, en in beide volgorden een dag, zodat ze ook verwisseld kunnen zijn: {1}: {2}. Zoek ze op."},
    {"              with the month as a word: {1}", "              met de maand als woord: {1}"},
    {"              of a year only: {1}", "              met alleen een jaar: {1}"},
    {"              of month and year only (written with day 00): {1}",
     "              met alleen maand en jaar (geschreven met dag 00): {1}"},
    {"              with a time of day, which is left out: {1}",
     "              met een tijd erbij, die wordt weggelaten: {1}"},
    {"              not known exactly (~ 1972, circa 1998, 2018?), read as the year or date that stands there: {1}",
     "              niet precies bekend (~ 1972, circa 1998, 2018?), gelezen als het jaar of de datum die er staat: {1}"},
    {"              numbers of days of a spreadsheet, counted from {2}: {1}",
     "              dagnummers van een rekenblad, geteld vanaf {2}: {1}"},
    {"              unknown: {1}", "              onbekend: {1}"},
    {"              with a year of two digits, read as {2} to {3}: {1} (another hundred years: --century)",
     "              met een jaar van twee cijfers, gelezen als {2} tot en met {3}: {1} (een andere eeuw: --century)"},
    {"              with a year of two digits: {1}: {2}", "              met een jaar van twee cijfers: {1}: {2}"},
    {"              left empty, because they cannot be read: {1}: {2}",
     "              leeg gelaten, omdat ze niet te lezen zijn: {1}: {2}"},
    {"Sexes         male: {1}; female: {2}", "Geslacht      mannelijk: {1}; vrouwelijk: {2}"},
    {"              unknown, count as female in the report: {1}",
     "              onbekend, tellen als vrouwelijk in het rapport: {1}"},
    {"Sexes         that no column tells, by the parents: fathers, so male: {1}; mothers, so female: {2}; both, so unknown: "
     "{3}; neither, so unknown: {4}. Unknown ones count as female in the report.",
     "Geslacht      dat in geen kolom staat, volgens de ouders: vader, dus mannelijk: {1}; moeder, dus vrouwelijk: {2}; "
     "beide, dus onbekend: {3}; geen van beide, dus onbekend: {4}. Onbekende tellen als vrouwelijk in het rapport."},
    {"Subpopulations {1}: {2}", "Subpopulaties {1}: {2}"},
    {"Colours       {1}: {2}", "Kleuren       {1}: {2}"},
    {"              not listed: {1}", "              niet op de lijst: {1}"},
    {"              together as \"{3}\": {1} names, animals: {2}", "              samen als \"{3}\": {1} namen, dieren: {2}"},
    {"              no text of the column has {1} animals: none is listed by itself",
     "              geen tekst van de kolom heeft {1} dieren: geen enkele komt zelf op de lijst"},
    {"Look at this: listed names that no animal has: {1}", "Let op: namen op de lijst die geen dier heeft: {1}"},
    {"Imports       {1}; text that means none: {2}", "Import        {1}; tekst die geen import betekent: {2}"},
    {"Species       {1}", "Diersoort     {1}"},
    {"Population    {1} (another name: --name)", "Populatie     {1} (andere naam: --name)"},
    {"Look at this: lines with more or fewer columns than the {2} of the first line; what they hold may stand in the "
     "wrong column: {1}: {3}",
     "Let op: regels met meer of minder kolommen dan de {2} van de eerste regel; wat erin staat kan in de verkeerde "
     "kolom staan: {1}: {3}"},
    {"Look at this: lines with text behind a closing quotation mark: {1}: {2}",
     "Let op: regels met tekst achter een sluitend aanhalingsteken: {1}: {2}"},
    {"Look at this: animals without id: {1}: {2}", "Let op: dieren zonder id: {1}: {2}"},
    {"Look at this: taken as animals, with an id unlike all others and no sex: {1}: {2}",
     "Let op: als dier genomen, met een id anders dan alle andere en zonder geslacht: {1}: {2}"},
    {"Look at this: ids that mean unknown: {1}", "Let op: ids die onbekend betekenen: {1}"},
    {"Parents compared with the ids {1}: {2} of them get a line by that: {3}",
     "Ouders vergeleken met de ids {1}: {2} krijgen daardoor een regel: {3}"},
    {"Signs between the thousands of ids, which were left out: {1}",
     "Tekens tussen de duizendtallen van ids, die zijn weggelaten: {1}"},
    {"Cut to {1} letters: {2} ({3}): {4}", "Afgekapt op {1} letters: {2} ({3}): {4}"},
    {"Letters that the report does not have: {1}", "Letters die het rapport niet heeft: {1}"},
    {"Invisible signs (no-break spaces, tabs, line ends inside a text) became blanks or were left out: {1}",
     "Onzichtbare tekens (vaste spaties, tabs, regeleinden in een tekst) zijn spaties geworden of weggelaten: {1}"},
    {"Blanks before a text, which were left out: {1}", "Spaties voor een tekst, die zijn weggelaten: {1}"},
    {"Lines with quotation marks around texts, which were left out: {1}",
     "Regels met aanhalingstekens om teksten, die zijn weggelaten: {1}"},
    {"Lines with texts that a spreadsheet has marked as such (=\"001\", '001), of which only the text was kept: {1}",
     "Regels met teksten die een rekenblad als tekst gemerkt heeft (=\"001\", '001), waarvan alleen de tekst gebleven "
     "is: {1}"},
    {"Lines without an animal were left out: {1}", "Regels zonder dier zijn weggelaten: {1}"},
    {"Because of blank lines, or line ends inside quotation marks, lines have other numbers:",
     "Door lege regels, of regeleinden binnen aanhalingstekens, hebben regels een ander nummer:"},
    {"  from line {1} of the export on: line {2} of {3}", "  vanaf regel {1} van de export: regel {2} van {3}"},
    {"  and so on, {1} more such places; in the last line {2} of the export is line {3}",
     "  enzovoort, nog {1} plaatsen; op de laatste is regel {2} van de export regel {3}"},
    {"Sheet         \"{1}\" of {2}; its rows are the lines of what follows (another one: --sheet)",
     "Blad          \"{1}\" van {2}; de rijen ervan zijn hieronder de regels (een ander: --sheet)"},
    {"              cells that hold an error and count as empty: {1}: {2}",
     "              cellen met een fout, die als leeg tellen: {1}: {2}"},
    {"              formulas without a value, which count as empty: {1}: {2}. Save the workbook in the spreadsheet program.",
     "              formules zonder waarde, die als leeg tellen: {1}: {2}. Bewaar de werkmap in het rekenbladprogramma."},
    {"              cells of dates that are no day, read as numbers: {1}: {2}",
     "              cellen met een datum die niet bestaat, als getal gelezen: {1}: {2}"},
    {"              merged cells, of which only the first has the text: {1}: {2}",
     "              samengevoegde cellen, waarvan alleen de eerste de tekst heeft: {1}: {2}"},
    {"              hidden rows, which are read too: {1}: {2}", "              verborgen rijen, die ook gelezen zijn: {1}: {2}"},
    {"              hidden columns, which are read too: {1}: {2}",
     "              verborgen kolommen, die ook gelezen zijn: {1}: {2}"},
    {"Answers       of an earlier export are used again: {1}", "Antwoorden    van een eerdere export zijn weer gebruikt: {1}"},
    {"              line {1} fits this export no more and was passed over: {2}",
     "              regel {1} past niet meer bij deze export en is overgeslagen: {2}"},
    {"  {1} was chosen by what stands in it: {2}", "  {1} is gekozen om wat erin staat: {2}"},
    {"              lines above it, which were left out: {1}: {2}",
     "              regels erboven, die zijn weggelaten: {1}: {2}"},
    {"Headers that come again were left out: {1}: {2}", "Herhaalde kopregels zijn weggelaten: {1}: {2}"},
    {"Look at this: lines that are no animals were left out: {1}: {2}",
     "Let op: regels die geen dier zijn, zijn weggelaten: {1}: {2}"},
    {"Young         several a line, in {1}: {2} lines hold {3} animals, and each gets a line of its own",
     "Jongen        meer per regel, in {1}: {2} regels bevatten {3} dieren, en elk krijgt een eigen regel"},
    {"              born dead, as the text in the place of their id says, and left out: {1}: {2}",
     "              dood geboren, volgens de tekst op de plaats van hun id, en weggelaten: {1}: {2}"},
    {"Gone          by {1}: animals with a date: {2}", "Weg           volgens {1}: dieren met een datum: {2}"},
    {"Gone          by {1}: {2}", "Weg           volgens {1}: {2}"},
    {"              in {1}, not understood and taken as still there: {2}",
     "              in {1}, niet begrepen en genomen als nog aanwezig: {2}"},
    {"Gone          as parents, by their sex (castrated): {1}", "Weg           als ouder, volgens het geslacht (gecastreerd): {1}"},
}};

constexpr std::array<Wording, question_kind_count> question_wordings = {{
    {"No column was recognised for the {1}. Name it: --column {2}=\"HEADING\" (or the number of the column).{3}",
     "Er is geen kolom herkend voor: {1}. Noem de kolom: --column {2}=\"KOP\" (of het nummer van de kolom).{3}"},
    {"No column was recognised for the {1}. Name it: --column {2}=\"HEADING\" (or the number of the column). If the export "
     "tells no sexes: --column {2}=none; fathers then become male and mothers female, and all others stay unknown.{3}",
     "Er is geen kolom herkend voor: {1}. Noem de kolom: --column {2}=\"KOP\" (of het nummer van de kolom). Als de export "
     "geen geslachten bevat: --column {2}=none; vaders worden dan mannelijk en moeders vrouwelijk, en alle andere blijven "
     "onbekend.{3}"},
    {"Several columns could hold the {1}: {2}. Choose one: --column {3}=NUMBER.{4}",
     "Meer kolommen kunnen dit zijn: {1}: {2}. Kies er een: --column {3}=NUMMER.{4}"},
    {"Several columns could hold the {1}: {2}. Choose one: --column {3}=NUMBER (or --column {3}=none).{4}",
     "Meer kolommen kunnen dit zijn: {1}: {2}. Kies er een: --column {3}=NUMMER (of --column {3}=none).{4}"},
    {"--column {1}=\"{2}\": there is no column of that heading or number (there are {3} columns).",
     "--column {1}=\"{2}\": er is geen kolom met die kop of dat nummer (er zijn {3} kolommen)."},
    {"--column {1}=\"{2}\": several columns have that heading: {3}. Give the number of the column.",
     "--column {1}=\"{2}\": meer kolommen hebben die kop: {3}. Geef het nummer van de kolom."},
    {"The first line holds no heading that is known, so that all lines count as animals. If it is a header, say "
     "--header yes.",
     "De eerste regel bevat geen bekende kop, zodat alle regels als dieren tellen. Als het een kopregel is: --header "
     "yes."},
    {"Of {6} parents in {3}, taken as the {1}, only so many have a line of their own, with that id in {4}: {7}. Columns whose "
     "texts do stand there: {5}. Say which column holds the {1}: --column {2}=NUMBER, also if the one taken is right.",
     "Van {6} ouders in {3}, genomen als {1}, hebben er maar zoveel een eigen regel, met dat id in {4}: {7}. Kolommen waarvan de "
     "teksten daar wel staan: {5}. Zeg welke kolom klopt voor {1}: --column {2}=NUMMER, ook als de genomen kolom klopt."},
    {"Most parents do not stand in {3}, taken as the {1}. Columns in which most of them stand: {5}. Say which column "
     "holds the {1}: --column {2}=NUMBER, also if the one taken is right.",
     "De meeste ouders staan niet in {3}, genomen als {1}. Kolommen waarin de meeste wel staan: {5}. Zeg welke kolom "
     "klopt voor {1}: --column {2}=NUMMER, ook als de genomen kolom klopt."},
    {"The dates can be read in two ways: {1} as {2}, {3} as {4}, and {5} as either. Say which is right: --dates {2} or "
     "--dates {4}.",
     "De datums zijn op twee manieren te lezen: {1} als {2}, {3} als {4} en {5} als beide. Zeg wat klopt: --dates {2} "
     "of --dates {4}."},
    {"In {1}, taken as the date of birth, texts that are no date that can be read: {2} of {3}: {4}. Say which column holds the "
     "date of birth: --column birthdate=NUMBER, also if the one taken is right; those texts then stay as they are.",
     "In {1}, genomen als geboortedatum, teksten die geen leesbare datum zijn: {2} van {3}: {4}. Zeg in welke kolom de "
     "geboortedatum staat: --column birthdate=NUMMER, ook als de genomen kolom klopt; die teksten blijven dan zoals ze "
     "zijn."},
    {"{1}, taken as the date of birth, holds not one date that can be read. Say which column holds the date of birth: "
     "--column birthdate=NUMBER, also if the one taken is right.",
     "{1}, genomen als geboortedatum, bevat geen enkele leesbare datum. Zeg in welke kolom de geboortedatum staat: "
     "--column birthdate=NUMMER, ook als de genomen kolom klopt."},
    {"In {1}, taken as the date of birth, not one of {2} texts is a date that can be read: {3}. Without dates nothing can "
     "be calculated. Choose another column (--column birthdate=NUMBER), or another order if one was said (--dates LAYOUT), "
     "or export the file anew with dates such as 2019-03-31.",
     "In {1}, genomen als geboortedatum, is niet een van {2} teksten een leesbare datum: {3}. Zonder datums valt er niets "
     "te berekenen. Kies een andere kolom (--column birthdate=NUMMER), of een andere volgorde als er een gezegd is "
     "(--dates VOLGORDE), of exporteer het bestand opnieuw met datums zoals 2019-03-31."},
    {"Dates with a year of two digits: {1}; parents and young do not tell which hundred years are meant: {2}. Say the "
     "first year of the hundred: --century {3} if all are from {3} to {4}.",
     "Datums met een jaar van twee cijfers: {1}; ouders en jongen maken niet duidelijk welke honderd jaar bedoeld "
     "zijn: {2}. Zeg het eerste jaar van de honderd: --century {3} als alle van {3} tot en met {4} zijn."},
    {"Dates that are numbers of days, as a spreadsheet keeps them: {1}; {2} is {3} where days are counted from 1900 (usual), "
     "and {4} where they are counted from 1904 (older Macs). Look one animal up, and say --dates serial-1900 or --dates "
     "serial-1904.",
     "Datums die dagnummers zijn, zoals een rekenblad ze bewaart: {1}; {2} is {3} als de dagen vanaf 1900 geteld zijn "
     "(gebruikelijk), en {4} als ze vanaf 1904 geteld zijn (oudere Macs). Zoek een dier op, en zeg --dates serial-1900 "
     "of --dates serial-1904."},
    {"Of {4} parents in {3}, taken as the {1}, whose sex is known, {5} are of the other sex. If father and mother are "
     "exchanged, or another column holds the {1}, name it: --column {2}=NUMBER, also if the one taken is right.",
     "Van {4} ouders in {3}, genomen als {1}, waarvan het geslacht bekend is, zijn {5} van het andere geslacht. Als vader "
     "en moeder verwisseld zijn, of een andere kolom is {1}, noem die dan: --column {2}=NUMMER, ook als de genomen kolom "
     "klopt."},
    {"These parents have no line of their own and may stand for \"unknown\", with their young: {1}. Say which do: "
     "--unknown TEXT, as often as needed; and which are animals: --known TEXT (--known all: all others).",
     "Deze ouders hebben geen eigen regel en betekenen misschien \"onbekend\", met hun nakomelingen: {1}. Zeg welke dat "
     "betekenen: --unknown TEKST, zo vaak als nodig; en welke dieren zijn: --known TEKST (--known all: alle andere)."},
    {"These parents stand for those of a line above, with their young: {1}. Which line is meant cannot be known, as lines "
     "may have been sorted: write the parents out in the export. If they are unknown all the same: --unknown TEXT; if they "
     "are animals: --known TEXT.",
     "Deze ouders staan voor die van een regel erboven, met hun nakomelingen: {1}. Welke regel bedoeld is, valt niet te "
     "weten, want regels kunnen gesorteerd zijn: schrijf de ouders in de export uit. Als ze toch onbekend zijn: --unknown "
     "TEKST; als het dieren zijn: --known TEKST."},
    {"It is not clear which animals are male: the sexes are written {1}. Say how males are written: --male TEXT.",
     "Het is niet duidelijk welke dieren mannelijk zijn: de geslachten zijn geschreven als {1}. Zeg hoe mannetjes "
     "geschreven zijn: --male TEKST."},
    {"It is not clear what these sexes mean: {1}. Say which are male and which female: --male TEXT, --female TEXT, each "
     "as often as needed.",
     "Het is niet duidelijk wat deze geslachten betekenen: {1}. Zeg welke mannelijk zijn en welke vrouwelijk: --male "
     "TEKST, --female TEKST, elk zo vaak als nodig."},
    {"The sex \"{1}\" contradicts the parents: animals with it that are fathers: {2}, mothers: {3}. If father and mother "
     "are exchanged, name their columns (--column sire=NUMBER, --column dam=NUMBER); and say which sexes are male and "
     "which female: --male TEXT, --female TEXT.",
     "Het geslacht \"{1}\" klopt niet met de ouders: dieren ermee die vader zijn: {2}, moeder: {3}. Als vader en moeder "
     "verwisseld zijn, noem dan hun kolommen (--column sire=NUMMER, --column dam=NUMMER); en zeg welke geslachten "
     "mannelijk zijn en welke vrouwelijk: --male TEKST, --female TEKST."},
    {"--male {1}: no animal has this sex. The sexes are written {2}.",
     "--male {1}: geen dier heeft dit geslacht. De geslachten zijn geschreven als {2}."},
    {"The species is needed, for the words of the report: --species {1}.",
     "De diersoort is nodig, voor de woorden van het rapport: --species {1}."},
    {"--species {1}: no such species. Choose one of {2}.", "--species {1}: deze soort is er niet. Kies uit {2}."},
    {"In {1} a spreadsheet has destroyed identifications: it took them for numbers and kept only their first digits: "
     "{2}: {3}. Export the file anew and do not open it in a spreadsheet in between, or format the column as text before "
     "the numbers are put in. To take them as they stand, so that different animals have one id: --ids keep.",
     "In {1} heeft een rekenblad nummers van dieren vernield: het nam ze als getallen en bewaarde alleen de eerste "
     "cijfers: {2}: {3}. Exporteer het bestand opnieuw en open het tussendoor niet in een rekenblad, of maak de kolom "
     "als tekst op voordat de nummers erin komen. Om ze te nemen zoals ze er staan, zodat verschillende dieren een id "
     "delen: --ids keep."},
    {"Of {1} parents without a line of their own {2} would have one if ids were compared {3}: {5}. Say --ids {4} if they "
     "are the same animals, or --ids keep if not.",
     "Van {1} ouders zonder eigen regel zouden er {2} een hebben als ids vergeleken worden {3}: {5}. Zeg --ids {4} als "
     "het dezelfde dieren zijn, of --ids keep als dat niet zo is."},
    {"The column \"{1}\" holds {2} different texts; each would be listed, and each two of them compared. Name those that "
     "count (--subpopulations \"A,B\"), or say one of these:{3}",
     "De kolom \"{1}\" bevat {2} verschillende teksten; elk zou op de lijst komen, en elke twee zouden vergeleken "
     "worden. Noem welke meetellen (--subpopulations \"A,B\"), of zeg een van deze:{3}"},
    {"The {2} names that you list make a report of {4} with lines up to {5}, as each two of them are compared; at most "
     "1000 MB with lines up to 1 MB are made. Name fewer texts of the column \"{1}\" (--subpopulations \"A,B\"), or say "
     "one of these:{3}",
     "De {2} namen die u noemt geven een rapport van {4} met regels tot {5}, omdat elke twee vergeleken worden; meer dan "
     "1000 MB, of regels van meer dan 1 MB, wordt niet gemaakt. Noem minder teksten van de kolom \"{1}\" "
     "(--subpopulations \"A,B\"), of zeg een van deze:{3}"},
    {"The column \"{1}\" holds {2} different texts; each would be listed. Name those that count (--colours \"A,B\"), "
     "or say --colours all, or --colours none to leave the column out.",
     "De kolom \"{1}\" bevat {2} verschillende teksten; elk zou op de lijst komen. Noem welke meetellen (--colours "
     "\"A,B\"), of zeg --colours all, of --colours none om de kolom weg te laten."},
    {"No character is left that could divide the columns of the data file: all of them occur in the texts.",
     "Er is geen teken over om de kolommen van het databestand te scheiden: alle tekens komen in de teksten voor."},
    {"It looks as if a line holds several animals, such as the young of a litter, in {1}. If so, each gets a line of its "
     "own: --young {2}. If a line is one animal: --young none.",
     "Het lijkt of een regel meer dieren bevat, zoals de jongen van een worp, in {1}. Als dat zo is, krijgt elk een eigen "
     "regel: --young {2}. Als een regel een dier is: --young none."},
    {"--young \"{1}\": there is no column of that heading or number (there are {2} columns).",
     "--young \"{1}\": er is geen kolom met die kop of dat nummer (er zijn {2} kolommen)."},
    {"In {1} may stand which animals are dead, sold, exported or castrated, but heading and texts do not agree: {2}. If it "
     "does: --availability {3}. If not: --availability {4}.",
     "In {1} staat misschien welke dieren dood, verkocht, weg of gecastreerd zijn, maar kop en teksten kloppen "
     "niet met elkaar: {2}. Als het zo is: --availability {3}. Als het niet zo is: --availability {4}."},
    {"By {1} all animals would be dead, sold, exported or castrated: {2}. If that is so: --availability {3}. If the column "
     "tells something else: --availability {4}.",
     "Volgens {1} zouden alle dieren dood, verkocht, weg of gecastreerd zijn: {2}. Als dat zo is: --availability {3}. Als de "
     "kolom iets anders zegt: --availability {4}."},
    {"--availability \"{1}\": there is no column of that heading or number (there are {2} columns).",
     "--availability \"{1}\": er is geen kolom met die kop of dat nummer (er zijn {2} kolommen)."},
    {"It is not clear what these texts in {1} say of the animals: {2}. Say which mean that an animal has gone (is dead, "
     "sold, castrated, ...): --gone TEXT, as often as needed; and which do not: --present TEXT (--present all: all others). If the column is about something else: --availability "
     "none, or the columns that do count.",
     "Het is niet duidelijk wat deze teksten in {1} over de dieren zeggen: {2}. Zeg welke betekenen dat een dier er niet "
     "meer is (dood, verkocht, gecastreerd, ...): --gone TEKST, zo vaak als nodig; en welke niet: --present TEKST "
     "(--present all: alle andere). Als de kolom over iets anders gaat: --availability none, of de kolommen die wel tellen."},
    {"In {1} may stand which animals are imports: {2}. If so: --column import={3}; each text but no, 0, - and the like is then "
     "an import. If not: --column import=none.",
     "In {1} staat misschien welke dieren import zijn: {2}. Als dat zo is: --column import={3}; elke tekst behalve nee, 0, - "
     "en dergelijke is dan import. Als het niet zo is: --column import=none."},
    {"Only the sheet \"{1}\" is read, and others have the same headings, with their rows: {2}. If their animals belong to it, "
     "put all rows below each other on one sheet. If not, say which sheet is meant: --sheet \"{1}\".",
     "Alleen het blad \"{1}\" wordt gelezen, en andere hebben dezelfde koppen, met hun rijen: {2}. Als die dieren erbij horen, "
     "zet dan alle rijen onder elkaar op een blad. Zo niet, zeg welk blad bedoeld is: --sheet \"{1}\"."},
}};

constexpr std::array<Wording, refusal_kind_count> refusal_wordings = {{
    {"{1}: it cannot be read: {2}", "{1}: niet te lezen: {2}"},
    {"{1}: this is a folder; the export is a file", "{1}: dit is een map; de export is een bestand"},
    {"{1}: the file is empty", "{1}: het bestand is leeg"},
    {"{1}: this is no text but a file of another kind ({2}). Save or export it as CSV (text), best as \"CSV UTF-8\".",
     "{1}: dit is geen tekst maar een ander soort bestand ({2}). Bewaar of exporteer het als CSV (tekst), liefst als "
     "\"CSV UTF-8\"."},
    {"{1}: this is no text: it holds bytes that no text has (zeros): {2}, the first in line {3}. Export it as CSV "
     "(text).",
     "{1}: dit is geen tekst: het bevat bytes die in geen tekst staan (nullen): {2}, de eerste in regel {3}. Exporteer "
     "het als CSV (tekst)."},
    {"{1}: the letters with accents are written in two ways: {2} as UTF-8, the first in line {3}, and {4} in another "
     "way, the first in line {5}. Say which encoding to read: --encoding utf-8 (the others are then read as "
     "Windows-1252) or --encoding windows-1252.",
     "{1}: de letters met accenten staan er op twee manieren: {2} als UTF-8, de eerste in regel {3}, en {4} anders, de "
     "eerste in regel {5}. Zeg welke codering gelezen moet worden: --encoding utf-8 (de andere worden dan als "
     "Windows-1252 gelezen) of --encoding windows-1252."},
    {"{1}: it is not clear which character divides the columns:{2}\nSay which one: --delimiter \";\" (or comma, tab, "
     "bar).",
     "{1}: het is niet duidelijk welk teken de kolommen scheidt:{2}\nZeg welk: --delimiter \";\" (of comma, tab, bar)."},
    {"{1}: the first line has more than {2} columns", "{1}: de eerste regel heeft meer dan {2} kolommen"},
    {"{1}, line {2}: a quotation mark opens a text and is never closed. Mend this line in the export.",
     "{1}, regel {2}: een aanhalingsteken opent een tekst en wordt nergens gesloten. Herstel deze regel in de export."},
    {"{1}: there is no animal in it", "{1}: er staat geen dier in"},
    {"{1}, line {2}: the ids \"{3}\" and \"{4}\" would both become \"{5}\" in the data file (30 letters, without "
     "letters that the report does not have). Shorten or rename one of them in the export.",
     "{1}, regel {2}: de id's \"{3}\" en \"{4}\" zouden in het databestand allebei \"{5}\" worden (30 letters, zonder "
     "letters die het rapport niet heeft). Kort een van beide in of hernoem hem in de export."},
    {"{1}: {2}", "{1}: {2}"},
    {"{1}: the letters with accents fit several encodings: {2}. Say which is right: --encoding NAME.",
     "{1}: de letters met accenten passen bij verschillende coderingen: {2}. Zeg welke klopt: --encoding NAAM."},
    {"{1}: there is nothing in it but blanks, line ends and delimiters", "{1}: er staat niets in dan spaties, regeleinden en scheidingstekens"},
    {"{1}, line {2}: between two quotation marks stand whole lines, as if stray quotation marks had swallowed animals. Take the "
     "quotation marks away if they are stray, or the delimiters and line ends between them if it is one text.",
     "{1}, regel {2}: tussen twee aanhalingstekens staan hele regels, alsof losse aanhalingstekens dieren hebben ingeslikt. "
     "Haal de aanhalingstekens weg als ze er niet horen, of de scheidingstekens en regeleinden ertussen als het een tekst is."},
    {"{1}: letters that look as if they had been turned into UTF-8 twice: {2}: {3}. Other letters with accents or signs: {4}. Say "
     "whether the former are written as they are probably meant (--encoding utf-8-twice) or stay as they stand (--encoding utf-8).",
     "{1}: letters die eruitzien alsof ze tweemaal in UTF-8 zijn omgezet: {2}: {3}. Andere letters met accenten of tekens: {4}. Zeg "
     "of de eerste geschreven worden zoals ze waarschijnlijk bedoeld zijn (--encoding utf-8-twice) of zo blijven (--encoding "
     "utf-8)."},
}};
// clang-format on

template <typename Kind, std::size_t Count>
const Wording& wording_of(const std::array<Wording, Count>& wordings, Kind kind) {
  return wordings[static_cast<std::size_t>(kind)];
}

/// `text` filled up with blanks to `width` letters.
std::string filled_up(std::string text, std::size_t width) {
  std::string_view rest = text;
  std::size_t letters = 0;
  for (; !rest.empty(); ++letters) take_letter(rest);
  return text.append(letters < width ? width - letters : 0, ' ');
}

std::string right_justified(const std::string& digits, std::size_t width) {
  return std::string(digits.size() < width ? width - digits.size() : 0, ' ') + digits;
}

/// The columns in use stand below each other.
void align_column(std::vector<std::string>& texts) {
  constexpr std::size_t number_width = 4, heading_width = 24, description_width = 20, count_width = 9;
  texts[0] = right_justified(texts[0], number_width);
  texts[1] = filled_up(texts[1], heading_width);
  texts[2] = filled_up(texts[2], description_width);
  texts[3] = right_justified(texts[3], count_width);
}

/// `"Father" (7), "Sire" (9)`: behind the columns in use the word column need not be said again.
std::string numbers_of(const ColumnList& list) {
  std::string text;
  for (const ColumnList::Column& column : list.columns) {
    if (!text.empty()) text += ", ";
    text += in_quotes(column.heading) + " (" + std::to_string(column.number) + ")";
  }
  return text;
}

/// `"m" (655), "f" (661)`: what can be said with --male, as it would be typed.
std::string texts_to_type(const CountedList& list) {
  constexpr std::size_t most_shown = 10;
  std::string text;
  for (std::size_t i = 0; i < list.texts.size(); ++i) {
    if (i > 0) text += ", ";
    if (i == most_shown) return text + "...";
    text += in_quotes(list.texts[i].text) + " (" + std::to_string(list.texts[i].count) + ")";
  }
  return text;
}

/// Each on a line of its own, under the question.
std::string lines_of(const TriedDelimiters& list, ToolLanguage language) {
  std::string text;
  for (const DelimiterEvidence& evidence : list.tried) text += "\n  " + text_of(TriedDelimiters{{evidence}}, language);
  return text;
}

/// As it would be typed, each on a line of its own.
std::string choices_to_type(const NameChoiceList& list, ToolLanguage language) {
  std::string text;
  for (const NameChoice& choice : list.choices) {
    text += "\n  --subpopulations " + choice.value + "   " + description_of(choice, language);
  }
  return text;
}

/// Each on a line of its own; a question without any ends before them.
std::string lines_of(const ColumnEvidenceList& list, ToolLanguage language) {
  std::string text;
  for (const ColumnEvidence& column : list.columns) text += "\n  " + description_of(column, language);
  return list.columns.empty() ? text : introduced(list, text, language);
}

std::string text_in_question(const Value& value, ToolLanguage language) {
  if (const auto* const evidence = std::get_if<ColumnEvidenceList>(&value)) return lines_of(*evidence, language);
  if (const auto* const choices = std::get_if<NameChoiceList>(&value)) return choices_to_type(*choices, language);
  const auto* const counted = std::get_if<CountedList>(&value);
  return counted == nullptr ? text_of(value, language) : texts_to_type(*counted);
}

std::string text_in_refusal(const Value& value, ToolLanguage language) {
  const auto* const tried = std::get_if<TriedDelimiters>(&value);
  return tried == nullptr ? text_of(value, language) : lines_of(*tried, language);
}

std::string line_of_refusal(const Wording& wording, const Values& values, ToolLanguage language) {
  std::vector<std::string> texts;
  for (const Value& value : values) texts.push_back(text_in_refusal(value, language));
  return phrase_of(wording, language, texts);
}

}  // namespace

void show_remarks(std::span<const Remark> remarks, ToolLanguage language, TextOutput& console) {
  for (const Remark& remark : remarks) {
    std::vector<std::string> texts = texts_of(remark.values, language);
    if (remark.kind == RemarkKind::column_used) align_column(texts);
    if (remark.kind == RemarkKind::column_possible) texts[1] = numbers_of(std::get<ColumnList>(remark.values[1]));
    append(console, phrase_of(wording_of(remark_wordings, remark.kind), language, texts));
    end_line(console);
  }
}

std::string words_of(const Question& question, ToolLanguage language) {
  std::vector<std::string> texts;
  for (const Value& value : question.values) texts.push_back(text_in_question(value, language));
  return phrase_of(wording_of(question_wordings, question.kind), language, texts);
}

std::string words_of(const Refusal& refusal, ToolLanguage language) {
  const Wording& wording = wording_of(refusal_wordings, refusal.kind);
  std::string lines = line_of_refusal(wording, refusal.values, language);
  for (const Values& values : refusal.further) lines += "\n" + line_of_refusal(wording, values, language);
  return lines;
}

}  // namespace pedigreewatch
