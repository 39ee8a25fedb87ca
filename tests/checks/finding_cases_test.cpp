// Every kind of finding by the smallest data file that shows it: the line of the table in both languages, and that
// nothing else is found that is serious.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding_kinds.h"
#include "support/check_runs.h"
#include "support/files.h"
#include "support/places.h"

namespace pedigreewatch::test {
namespace {

struct FindingCase {
  std::string code;
  std::string data;
  std::string english, dutch;                         ///< the line that is expected, with bars for tabs
  std::vector<std::string> english_more, dutch_more;  ///< further serious ones
  void (*change_steer)(SteerLines& steer) = nullptr;
  std::string limits = {};
  std::optional<ExportLines> origin = {};
};

void PrintTo(const FindingCase& each, std::ostream* stream) {
  *stream << each.code;
}

const std::string utf_16_text("\xFF\xFEi\0d\0;\0s\0e\0x\0\n\0", 16);
const std::string long_line_text = "id;sex;birthdate;sire;dam;notes\na;m;01-01-2000;;;" + std::string(600, 'x') +
                                   "\nb;f;01-02-2000;;;\nc;m;01-03-2001;a;b;\n";

/// Five animals with a text in a column, and one with another.
std::string named_often(const std::string& heading, const std::string& usual, const std::string& rare) {
  std::string data = "id;sex;birthdate;sire;dam;" + heading + "\n";
  for (int k = 0; k < 6; ++k) {
    data += "a" + std::to_string(k) + ";f;05-06-200" + std::to_string(k) + ";;;" + (k < 5 ? usual : rare) + "\n";
  }
  return data;
}

/// Twelve litters of three from one dam, and a fourth young of the last one with another dam.
std::string litters_with_an_odd_dam() {
  std::string data = "id;sex;birthdate;sire;dam\na;m;01-01-2000;;\nb;f;01-02-2000;;\ne;f;01-03-2000;;\n";
  for (int k = 0; k < 36; ++k) data += "c" + std::to_string(k) + ";m;01-03-" + std::to_string(2001 + k / 3) + ";a;b\n";
  return data + "y;m;01-03-2012;a;e\n";
}

/// The lines of a steer file with so many subpopulations.
std::string herds_up_to(int count) {
  std::string lines = std::to_string(count);
  for (int k = 1; k <= count; ++k) lines += "\nherd" + std::to_string(k);
  return lines;
}

std::vector<FindingCase> finding_cases() {
  return {
      // clang-format off
    {"utf-16",
     utf_16_text,
     "|||utf-16|S|The file is UTF-16; save it as ANSI text",
     "|||utf-16|S|Het bestand is UTF-16; sla het op als ANSI-tekst",
     {}, {}, nullptr},
    {"binary-file",
     "%PDF-1.4\n",
     "|||binary-file|S|The file is PDF and no text; export it as text",
     "|||binary-file|S|Het bestand is PDF en geen tekst; exporteer het als tekst",
     {}, {}, nullptr},
    {"empty-file",
     "",
     "|||empty-file|S|The file is empty",
     "|||empty-file|S|Het bestand is leeg",
     {}, {}, nullptr},
    {"report-name",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "|||report-name|S|The report would be written over this file; give it another ending (line 2 of pedigreewatch.ini)",
     "|||report-name|S|De uitvoer zou over dit bestand heen geschreven worden; geef het een andere uitgang (regel 2 van pedigreewatch.ini)",
     {}, {}, [](SteerLines& steer) { steer.data_file_name = "dogs.out"; }},
    {"delimiter",
     "id,sex,birthdate,sire,dam\n"
         "a,m,01-01-2000,,\n"
         "b,f,01-02-2000,,\n"
         "c,m,01-03-2001,a,b\n",
     "1|||delimiter|S|Columns are divided by , (comma), not by ; (semicolon); write , (comma) in line 3 of pedigreewatch.ini",
     "1|||delimiter|S|Kolommen zijn gescheiden door , (komma), niet door ; (puntkomma); schrijf , (komma) in regel 3 van pedigreewatch.ini",
     {}, {}, nullptr},
    {"header-missing",
     "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "1|||header-missing|S|The first line holds no headings (\"a;m;01-01-2000;;\"); add them, or write n in line 9 of pedigreewatch.ini and the column list below it",
     "1|||header-missing|S|De eerste regel bevat geen koppen (\"a;m;01-01-2000;;\"); voeg ze toe, of schrijf n in regel 9 van pedigreewatch.ini met de kolommenlijst eronder",
     {}, {}, nullptr},
    {"header-quotes",
     "\"id\";sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "1|1||header-quotes|S|Quotation marks count as letters, \"id\" is no heading; export without them",
     "1|1||header-quotes|S|Aanhalingstekens tellen als letters, \"id\" is geen kop; exporteer zonder",
     {}, {}, nullptr},
    {"header-required",
     "id;SEX;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "1|2||header-required|S|\"SEX\" is not known; write \"sex\"",
     "1|2||header-required|S|\"SEX\" is onbekend; schrijf \"sekse\"",
     {}, {}, nullptr},
    {"column-missing",
     "id;birthdate;sire;dam\n"
         "a;01-01-2000;;\n",
     "1|||column-missing|S|No column is headed \"sex\"; it is required",
     "1|||column-missing|S|Geen kolom heet \"sekse\"; die is verplicht",
     {}, {}, nullptr},
    {"loop",
     "id;sex;birthdate;sire;dam\n"
         "a;m;;;b\n"
         "b;f;;a;\n",
     "2||a|loop|S|Is its own ancestor: a (line 2) - mother b (line 3) - father a",
     "2||a|loop|S|Is zijn eigen voorouder: a (regel 2) - moeder b (regel 3) - vader a",
     {}, {}, nullptr},
    {"date-unreadable",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;31-o2-2001;a;b\n",
     "4|3|c|date-unreadable|S|\"31-o2-2001\" is no date (dd-mm-yyyy)",
     "4|3|c|date-unreadable|S|\"31-o2-2001\" is geen datum (dd-mm-yyyy)",
     {}, {}, nullptr},
    {"year-span",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-102000;a;b\n",
     "4|3|c|year-span|S|Years 2000 to 102000: the report would have more than 100000 lines a table",
     "4|3|c|year-span|S|Jaren 2000 tot 102000: de uitvoer zou meer dan 100000 regels per tabel hebben",
     {"4|3|c|year-future|W|Born in the future (01-03-102000): years without animals count as F = 0, Ne is wrong"}, {"4|3|c|year-future|W|Geboren in de toekomst (01-03-102000): jaren zonder dieren tellen als F = 0, Ne is fout"}, nullptr},
    {"age-figures",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-52000;a;b\n",
     "4||c|age-figures|S|Father \"a\" was 50000 years old: the tables of the parents' ages would be too wide (5000100000 figures)",
     "4||c|age-figures|S|Vader \"a\" was 50000 jaar oud: de tabellen van de leeftijden van de ouders zouden te breed worden (5000100000 getallen)",
     {"4|3|c|year-future|W|Born in the future (01-03-52000): years without animals count as F = 0, Ne is wrong"}, {"4|3|c|year-future|W|Geboren in de toekomst (01-03-52000): jaren zonder dieren tellen als F = 0, Ne is fout"}, nullptr},
    {"report-size",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "|||report-size|S|448 subpopulations in pedigreewatch.ini: the report would have lines of 1.01 MB (the most is 1 MB); name fewer of them from line 11 on, those with many animals",
     "|||report-size|S|448 subpopulaties in pedigreewatch.ini: het rapport krijgt regels van 1,01 MB (meer dan 1 MB kan niet); noem er minder vanaf regel 11, die met veel dieren",
     {}, {}, [](SteerLines& steer) { steer.subpopulations = herds_up_to(448); }},
    {"line-ends",
     "id;sex\ra;m\rb;f\r",
     "|||line-ends|W|The file is one single line (lone carriage returns); save it with Windows or Unix line ends",
     "|||line-ends|W|Het bestand is een enkele regel (losse carriage returns); sla het op met regeleinden van Windows of Unix",
     {}, {}, nullptr},
    {"two-encodings",
     "id;sex;birthdate;sire;dam;breeder\n"
         "a;m;01-01-2000;;;Ren\xE9\n"
         "b;f;01-02-2000;;;Ren\xC3\xA9\n"
         "c;m;01-03-2001;a;b;\n",
     "2|||two-encodings|W|Accents are written in two ways (lines in UTF-8: 1, in ANSI: 1); one breeder counts as two",
     "2|||two-encodings|W|Accenten staan er op twee manieren (regels in UTF-8: 1, in ANSI: 1); een fokker telt dubbel",
     {}, {}, nullptr},
    {"quotes",
     "id;sex;birthdate;sire;dam;name\n"
         "a;m;01-01-2000;;;\"Rex\"\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "2|||quotes|W|Quotation marks count as letters (\"Rex\"; lines: 1); export without them",
     "2|||quotes|W|Aanhalingstekens tellen als letters (\"Rex\"; regels: 1); exporteer zonder",
     {}, {}, nullptr},
    {"header-word",
     "id;sex;birthdate;sire;dam;COLOUR\n"
         "a;m;01-01-2000;;;\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "1|6||header-word|W|\"COLOUR\" is not known, its tables are missing; write \"colour\"",
     "1|6||header-word|W|\"COLOUR\" is onbekend, de tabellen ervan ontbreken; schrijf \"kleur\"",
     {}, {}, nullptr},
    {"header-unread",
     "id;sex;birthdate;sire;dam;;colour\n"
         "a;m;01-01-2000;;;;\n"
         "b;f;01-02-2000;;;;\n"
         "c;m;01-03-2001;a;b;;\n",
     "1|7||header-unread|W|The headings from column 7 (\"colour\") on are not read, an empty one stands before; write n in line 4 of pedigreewatch.ini",
     "1|7||header-unread|W|De koppen vanaf kolom 7 (\"colour\") worden niet gelezen, er staat een lege voor; schrijf n in regel 4 van pedigreewatch.ini",
     {}, {}, [](SteerLines& steer) { steer.consecutive = "y"; }},
    {"header-as-animal",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "1|||header-as-animal|W|The headings in line 1 count as an animal; write y in line 9 of pedigreewatch.ini and leave out the column list",
     "1|||header-as-animal|W|De koppen in regel 1 tellen als dier; schrijf y in regel 9 van pedigreewatch.ini en laat de kolommenlijst weg",
     {}, {}, [](SteerLines& steer) { steer.header = "n\ncolumns\n5\nlist\n5 1 7 8 2 3"; }},
    {"header-again",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "id;sex;birthdate;sire;dam\n",
     "5|||header-again|W|The header stands here again",
     "5|||header-again|W|De kopregel staat hier nog eens",
     {}, {}, nullptr},
    {"last-column",
     "id;sex;birthdate;sire;dam;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;x;Import\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "1|26||last-column|W|\"Import\" stands beyond the 25th column and is not read; move it to the front",
     "1|26||last-column|W|\"Import\" staat voorbij de 25e kolom en wordt niet gelezen; zet de kolom vooraan",
     {}, {}, nullptr},
    {"column-twice",
     "id;id;sex;birthdate;sire;dam\n"
         "1;a;m;01-01-2000;;\n"
         "2;b;f;01-02-2000;;\n"
         "3;c;m;01-03-2001;a;b\n",
     "1|2||column-twice|W|Columns 1 and 2 both hold the id; column 2 is used",
     "1|2||column-twice|W|Kolom 1 en 2 bevatten beide id; kolom 2 wordt gebruikt",
     {}, {}, nullptr},
    {"last-line",
     "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "3|||last-line|W|The last animal is not read; add an empty line",
     "3|||last-line|W|Het laatste dier wordt niet gelezen; voeg een lege regel toe",
     {}, {}, [](SteerLines& steer) { steer.header = "n\ncolumns\n5\nlist\n5 1 7 8 2 3"; }},
    {"line-cut",
     long_line_text,
     "2||a|line-cut|W|The line is cut after 600 characters (it has 617)",
     "2||a|line-cut|W|De regel is na 600 tekens afgekapt (hij heeft er 617)",
     {}, {}, nullptr},
    {"column-count",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a\n",
     "4||c|column-count|W|4 columns, the header has 5",
     "4||c|column-count|W|4 kolommen, de kop heeft er 5",
     {}, {}, nullptr},
    {"no-animal",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "Total;3;;;\n",
     "5|||no-animal|W|This line is no animal but is counted as one",
     "5|||no-animal|W|Deze regel is geen dier maar telt wel mee",
     {}, {}, nullptr},
    {"invisible-letter",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c\xA0;m;01-03-2001;a;b\n",
     "4|1|c\xC2\xA0|invisible-letter|W|Invisible character in \"c<U+00A0>\"",
     "4|1|c\xC2\xA0|invisible-letter|W|Onzichtbaar teken in \"c<U+00A0>\"",
     {}, {}, nullptr},
    {"date-layout-required",
     "id;sex;birthdate;sire;dam\n"
         "a;m;31-01-2000;;\n"
         "b;f;28-02-2000;;\n"
         "c;m;31-03-2001;a;b\n",
     "2|3||date-layout-required|S|3 dates such as 31-01-2000 do not fit the layout; write dd-mm-yyyy in line 5 of pedigreewatch.ini",
     "2|3||date-layout-required|S|3 datums zoals 31-01-2000 passen niet bij de indeling; schrijf dd-mm-jjjj in regel 5 van pedigreewatch.ini",
     {}, {}, [](SteerLines& steer) { steer.date_layout = "ddmmyyyy"; }},
    {"date-layout",
     "id;sex;birthdate;sire;dam\n"
         "a;m;2000-01-31;;\n"
         "b;f;2000-02-28;;\n"
         "c;m;2001-03-31;a;b\n",
     "2|3||date-layout|W|3 dates such as 2000-01-31 do not fit the layout; write yyyy-mm-dd in line 5 of pedigreewatch.ini",
     "2|3||date-layout|W|3 datums zoals 2000-01-31 passen niet bij de indeling; schrijf jjjj-mm-dd in regel 5 van pedigreewatch.ini",
     {}, {}, nullptr},
    {"male-letter",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "|2||male-letter|W|The letter for males is \"R\" (0 of them), but fathers are \"m\" (2 animals); write m in line 7 of pedigreewatch.ini",
     "|2||male-letter|W|De letter voor mannelijk is \"R\" (0 keer), maar vaders zijn \"m\" (2 dieren); schrijf m in regel 7 van pedigreewatch.ini",
     {}, {}, [](SteerLines& steer) { steer.male_letter = "R"; }},
    {"sex-text",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;x;01-03-2001;a;b\n",
     "4|2|c|sex-text|W|Sex \"x\" counts as female (1 animal)",
     "4|2|c|sex-text|W|Geslacht \"x\" telt als vrouwelijk (1 dier)",
     {}, {}, nullptr},
    {"date-text",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;;a;b\n",
     "6|3|c|date-text|W|Date \"spring 2001\" could not be read (1 animal); it is left out, as if it were unknown",
     "6|3|c|date-text|W|Datum \"spring 2001\" was niet te lezen (1 dier); hij is weggelaten, alsof hij onbekend is",
     {}, {}, nullptr, {}, ExportLines{"herd.csv", 0, 5, {{6, 4}}, {{ExportNoteKind::date, 4, "spring 2001"}}}},
    {"id-missing",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         ";m;01-03-2001;a;b\n",
     "4|1||id-missing|W|No id; no offspring can be linked",
     "4|1||id-missing|W|Geen id; nakomelingen worden niet gekoppeld",
     {}, {}, nullptr},
    {"id-cut",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx;m;01-03-2001;a;b\n",
     "4|1||id-cut|W|The id \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\" is cut to 30 characters",
     "4|1||id-cut|W|Het id \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\" is afgekapt op 30 tekens",
     {}, {}, nullptr},
    {"duplicate-line",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "c;m;01-03-2001;a;b\n",
     "5||c|duplicate-line|W|Same as line 4; counts twice",
     "5||c|duplicate-line|W|Gelijk aan regel 4; telt dubbel",
     {}, {}, nullptr},
    {"duplicate-id",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "c;f;01-03-2001;;\n",
     "5||c|duplicate-id|W|Same id as line 4, other data; all offspring go to line 4",
     "5||c|duplicate-id|W|Zelfde id als regel 4, andere gegevens; alle nakomelingen gaan naar regel 4",
     {}, {}, nullptr},
    {"parent-spelling",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;A;b\n",
     "4|4|c|parent-spelling|W|Father \"A\" (1 young) has no line; is \"a\" (line 2) meant?",
     "4|4|c|parent-spelling|W|Vader \"A\" (1 jong) heeft geen regel; is \"a\" (regel 2) bedoeld?",
     {}, {}, nullptr},
    {"parent-one-letter",
     "id;sex;birthdate;sire;dam\n"
         "HS100;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;HS100;b\n"
         "d;m;01-03-2001;HS010;b\n",
     "5|4|d|parent-one-letter|W|Father \"HS010\" (1 young) has no line; is \"HS100\" (line 2) meant?",
     "5|4|d|parent-one-letter|W|Vader \"HS010\" (1 jong) heeft geen regel; is \"HS100\" (regel 2) bedoeld?",
     {}, {}, nullptr},
    {"unknown-word",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;NA;b\n",
     "4|4|c|unknown-word|W|\"NA\" is taken for an animal (1 young); leave it empty",
     "4|4|c|unknown-word|W|\"NA\" telt als dier (1 jong); laat het leeg",
     {}, {}, nullptr},
    {"unknown-perhaps",
     "id;sex;birthdate;sire;dam\n"
         "a1;m;01-01-2000;;\n"
         "b1;f;01-02-2000;;\n"
         "c1;m;01-03-2001;Hok;b1\n"
         "d1;m;01-03-2002;Hok;b1\n"
         "e1;m;01-03-2003;Hok;b1\n"
         "f1;m;01-03-2004;Hok;b1\n"
         "g1;m;01-03-2005;Hok;b1\n",
     "4|4|c1|unknown-perhaps|W|\"Hok\" has no line, 5 young and no digit, unlike all ids; if it means unknown, leave it empty",
     "4|4|c1|unknown-perhaps|W|\"Hok\" heeft geen regel, 5 jongen en geen cijfer, anders dan alle id's; als het onbekend betekent, laat het leeg",
     {}, {}, nullptr},
    {"same-parents",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;b;b\n",
     "4|5|c|same-parents|W|Father and mother are one animal, \"b\"",
     "4|5|c|same-parents|W|Vader en moeder zijn hetzelfde dier, \"b\"",
     {}, {}, nullptr},
    {"both-roles",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-04-2001;;a\n",
     "4|4|c|both-roles|W|\"a\" is a father here (1 young), a mother in line 5 (1 young)",
     "4|4|c|both-roles|W|\"a\" is hier vader (1 jong), in regel 5 moeder (1 jong)",
     {}, {}, nullptr},
    {"parent-sex",
     "id;sex;birthdate;sire;dam\n"
         "a;f;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "4|4|c|parent-sex|W|Father \"a\" (1 young) is recorded as female (line 2)",
     "4|4|c|parent-sex|W|Vader \"a\" (1 jong) staat als vrouwelijk te boek (regel 2)",
     {}, {}, nullptr},
    {"parent-name",
     "id;name;sex;birthdate;sire;dam\n"
         "a;Ad;m;01-01-2000;;\n"
         "b;Bea;f;01-02-2000;;\n"
         "c;Cor;m;01-03-2001;a;b\n",
     "4|5|c|parent-name|W|Father \"a\" is named \"Cor\" here, which is the name of another animal",
     "4|5|c|parent-name|W|Vader \"a\" heet hier \"Cor\", en zo heet een ander dier",
     {}, {}, nullptr, {}, ExportLines{"herd.csv", 0, 8, {}, {{ExportNoteKind::sire_name, 4, "Cor"}}}},
    {"date-contradicted",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-12-1999;a;b\n",
     "4||c|date-contradicted|W|Born 01-12-1999: that contradicts the dates of 2 relatives, so it is probably wrong; 2000 or later would fit: lines 2-3|2-3",
     "4||c|date-contradicted|W|Geboren 01-12-1999: dat spreekt de datums van 2 verwanten tegen en is dus waarschijnlijk fout; 2000 of later zou passen: regels 2-3|2-3",
     {}, {}, nullptr},
    {"born-before-parent",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-12-1999;a;\n",
     "4||c|born-before-parent|W|Born before its father \"a\" (line 2)",
     "4||c|born-before-parent|W|Geboren voor zijn vader \"a\" (regel 2)",
     {}, {}, nullptr},
    {"parent-too-young",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-06-2000;;b\n",
     "4||c|parent-too-young|W|Mother \"b\" was 121 days old (line 3)",
     "4||c|parent-too-young|W|Moeder \"b\" was 121 dagen oud (regel 3)",
     {}, {}, nullptr},
    {"births-too-close",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-06-2001;a;b\n",
     "5||d|births-too-close|W|Only 92 days after the young of line 4 of mother \"b\"",
     "5||d|births-too-close|W|Slechts 92 dagen na het jong van regel 4 van moeder \"b\"",
     {}, {}, nullptr},
    {"date-impossible",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;31-02-2001;a;b\n",
     "4|3|c|date-impossible|W|31-02-2001 is read as 01-02-2001",
     "4|3|c|date-impossible|W|31-02-2001 wordt gelezen als 01-02-2001",
     {}, {}, nullptr},
    {"leap-day",
     "id;sex;birthdate;sire;dam\n"
         "a;m;29-02-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;29-02-2001;a;b\n",
     "4|3|c|leap-day|L|29-02-2001: that year has no 29 February",
     "4|3|c|leap-day|L|29-02-2001: dat jaar heeft geen 29 februari",
     {}, {}, nullptr},
    {"date-year-only",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;2001;a;b\n",
     "4|3|c|date-year-only|W|Only a year of birth (1 animal); ages are rough",
     "4|3|c|date-year-only|W|Alleen een geboortejaar (1 dier); leeftijden zijn grof",
     {}, {}, nullptr},
    {"year-two-digits",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-01;a;b\n",
     "4|3|c|year-two-digits|W|Year 01 (1 animal): is 2001 meant?",
     "4|3|c|year-two-digits|W|Jaar 01 (1 dier): is 2001 bedoeld?",
     {}, {}, nullptr},
    {"year-placeholder",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-01-1900;a;b\n",
     "4|3|c|year-placeholder|W|01-01-1900 stands for an unknown date (1 animal); leave it empty: years without animals count as F = 0, Ne is wrong",
     "4|3|c|year-placeholder|W|01-01-1900 staat voor een onbekende datum (1 dier); laat die leeg: jaren zonder dieren tellen als F = 0, Ne is fout",
     {}, {}, nullptr},
    {"year-future",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2091;a;b\n",
     "4|3|c|year-future|W|Born in the future (01-03-2091): years without animals count as F = 0, Ne is wrong",
     "4|3|c|year-future|W|Geboren in de toekomst (01-03-2091): jaren zonder dieren tellen als F = 0, Ne is fout",
     {}, {}, nullptr},
    {"year-far-out",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-01-1801;;\n",
     "5|3|d|year-far-out|W|Year 1801 is 199 years from the next; each of them is a row with F = 0",
     "5|3|d|year-far-out|W|Jaar 1801 ligt 199 jaar van het volgende; elk daarvan is een rij met F = 0",
     {}, {}, nullptr},
    {"year-lone",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-01-1960;;\n",
     "5|3|d|year-lone|W|Only 1 animal before 2000; every empty year counts as F = 0, Ne is wrong",
     "5|3|d|year-lone|W|Slechts 1 dier voor 2000; elk leeg jaar telt als F = 0, Ne is fout",
     {}, {}, nullptr},
    {"year-gap",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2002;a;b\n"
         "d;f;01-03-2002;a;b\n",
     "|3||year-gap|W|No animals in 2001; counted as F = 0, Ne is wrong",
     "|3||year-gap|W|Geen dieren in 2001; telt als F = 0, Ne is fout",
     {}, {}, nullptr},
    {"subpopulation-list",
     "id;sex;birthdate;sire;dam;herd\n"
         "a;m;01-01-2000;;;North\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "|6||subpopulation-list|W|1 animal with a subpopulation, pedigreewatch.ini lists none; write from line 10 on: 1, North",
     "|6||subpopulation-list|W|1 dier met een subpopulatie, pedigreewatch.ini noemt er geen; schrijf vanaf regel 10: 1, North",
     {}, {}, nullptr},
    {"subpopulation",
     "id;sex;birthdate;sire;dam;herd\n"
         "a;m;01-01-2000;;;North moor\n"
         "b;f;01-02-2000;;;North Moor\n"
         "c;m;01-03-2001;a;b;\n",
     "2|6||subpopulation|W|Subpopulation \"North moor\" (1 animal) is not listed; \"North Moor\"?",
     "2|6||subpopulation|W|Subpopulatie \"North moor\" (1 dier) staat niet op de lijst; \"North Moor\"?",
     {}, {}, [](SteerLines& steer) { steer.subpopulations = "1\nNorth Moor"; }},
    {"subpopulation-spelling",
     "id;sex;birthdate;sire;dam;herd\n"
         "a;m;01-01-2000;;;North moor\n"
         "b;f;01-02-2000;;;North Moor\n"
         "c;m;01-03-2001;a;b;North Moor\n",
     "2|6||subpopulation-spelling|W|Subpopulation \"North moor\" (1 animal) and \"North Moor\" (2) differ in spelling only and count as two",
     "2|6||subpopulation-spelling|W|Subpopulatie \"North moor\" (1 dier) en \"North Moor\" (2) verschillen alleen in spelling en tellen als twee",
     {}, {}, [](SteerLines& steer) { steer.subpopulations = "2\nNorth Moor\nNorth moor"; }},
    {"colour-list",
     "id;sex;birthdate;sire;dam;colour\n"
         "a;m;01-01-2000;;;red\n"
         "b;f;01-02-2000;;;black\n"
         "c;m;01-03-2001;a;b;red\n",
     "|6||colour-list|W|3 animals with a colour, pedigreewatch.ini lists none; write from line 11 on: 2, red, black",
     "|6||colour-list|W|3 dieren met een kleur, pedigreewatch.ini noemt er geen; schrijf vanaf regel 11: 2, red, black",
     {}, {}, nullptr},
    {"colour",
     "id;sex;birthdate;sire;dam;colour\n"
         "a;m;01-01-2000;;;red\n"
         "b;f;01-02-2000;;;black\n"
         "c;m;01-03-2001;a;b;Onbekend\n",
     "2|6||colour|W|Colour \"red\" (1 animal) counts as not recognised",
     "2|6||colour|W|Kleur \"red\" (1 dier) telt als niet erkend",
     {}, {}, [](SteerLines& steer) { steer.colours = "1\nblack"; }},
    {"colour-spelling",
     "id;sex;birthdate;sire;dam;colour\n"
         "a;m;01-01-2000;;;red\n"
         "b;f;01-02-2000;;;Red\n"
         "c;m;01-03-2001;a;b;red\n",
     "3|6||colour-spelling|W|Colour \"Red\" (1 animal) and \"red\" (2) differ in spelling only and count as two",
     "3|6||colour-spelling|W|Kleur \"Red\" (1 dier) en \"red\" (2) verschillen alleen in spelling en tellen als twee",
     {}, {}, [](SteerLines& steer) { steer.colours = "2\nred\nRed"; }},
    {"colour-reserved",
     "id;sex;birthdate;sire;dam;colour\n"
         "a;m;01-01-2000;;;red\n"
         "b;f;01-02-2000;;;onbekend\n"
         "c;m;01-03-2001;a;b;red\n",
     "3|6||colour-reserved|W|Colour \"onbekend\" (1 animal) is called as a column that the report adds for animals without a colour; leave it empty",
     "3|6||colour-reserved|W|Kleur \"onbekend\" (1 dier) heet als een kolom die de uitvoer toevoegt voor dieren zonder kleur; laat het leeg",
     {}, {}, [](SteerLines& steer) { steer.colours = "2\nred\nonbekend"; }},
    {"import-text",
     "id;sex;birthdate;sire;dam;Import\n"
         "a;m;01-01-2000;;;n\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "2|6||import-text|W|Any text means import, also \"n\" (1 animal); leave it empty",
     "2|6||import-text|W|Elke tekst betekent import, ook \"n\" (1 dier); laat het leeg",
     {}, {}, nullptr},
    {"parent-missing",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;zzz;b\n",
     "4|4|c|parent-missing|L|Father \"zzz\" (1 young) has no line",
     "4|4|c|parent-missing|L|Vader \"zzz\" (1 jong) heeft geen regel",
     {}, {}, nullptr},
    {"parent-young",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;15-10-2000;a;\n",
     "4||c|parent-young|L|Father \"a\" was 288 days old (line 2)",
     "4||c|parent-young|L|Vader \"a\" was 288 dagen oud (regel 2)",
     {}, {}, nullptr},
    {"parent-old",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "4||c|parent-old|L|Father \"a\" was 1 years old (line 2)",
     "4||c|parent-old|L|Vader \"a\" was 1 jaar oud (regel 2)",
     {}, {}, nullptr, "oldest_sire_years = 0"},
    {"births-close",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-01-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-11-2001;a;b\n",
     "5||d|births-close|L|Only 245 days after the young of line 4 of mother \"b\"",
     "5||d|births-close|L|Slechts 245 dagen na het jong van regel 4 van moeder \"b\"",
     {}, {}, [](SteerLines& steer) { steer.species = "cattle"; }},
    {"litter-dates",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;03-03-2001;a;b\n",
     "5||d|litter-dates|L|One litter, two dates? Born 2 days after line 4, mother \"b\"",
     "5||d|litter-dates|L|Een nest, twee datums? 2 dagen na regel 4 geboren, moeder \"b\"",
     {}, {}, nullptr},
    {"litter-size",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-03-2001;a;b\n"
         "e;f;01-03-2001;a;b\n"
         "f;f;01-03-2001;a;b\n"
         "g;f;01-03-2001;a;b\n"
         "h;f;01-03-2001;a;b\n",
     "4||c|litter-size|L|6 young of mother \"b\" on one day",
     "4||c|litter-size|L|6 jongen van moeder \"b\" op een dag",
     {}, {}, nullptr},
    {"litter-sires",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-03-2001;e;b\n",
     "5||d|litter-sires|L|Litter mates of mother \"b\" have two fathers, see line 4",
     "5||d|litter-sires|L|Nestgenoten van moeder \"b\" hebben twee vaders, zie regel 4",
     {}, {}, nullptr},
    {"litter-dams",
     litters_with_an_odd_dam(),
     "41||y|litter-dams|L|Mother \"e\", but the litter mates of line 38, of the same father and day, have \"b\"",
     "41||y|litter-dams|L|Moeder \"e\", maar de nestgenoten van regel 38, van dezelfde vader en dag, hebben \"b\"",
     {}, {}, nullptr},
    {"same-animal",
     "id;sex;birthdate;sire;dam;name\n"
         "a;m;01-01-2000;;;Ap\n"
         "b;f;01-02-2000;;;Bes\n"
         "c;m;01-03-2001;a;b;Rex\n"
         "d;m;01-03-2001;a;b;Rex\n",
     "5||d|same-animal|L|Same animal as line 4 (\"c\")? Name, date, sex and parents agree",
     "5||d|same-animal|L|Hetzelfde dier als regel 4 (\"c\")? Naam, datum, geslacht en ouders zijn gelijk",
     {}, {}, nullptr},
    {"date-order",
     "id;sex;birthdate;sire;dam\n"
         "a;m;25-01-2000;;\n"
         "b;f;20-02-2000;;\n"
         "c;m;03-14-2001;a;b\n"
         "d;m;03-04-2001;a;\n",
     "5|3|d|date-order|L|Day and month of 1 animal may be exchanged, as in the impossible dates beside them",
     "5|3|d|date-order|L|Dag en maand van 1 dier kunnen verwisseld zijn, zoals bij de onmogelijke datums ernaast",
     {"4|3|c|date-impossible|W|03-14-2001 is read as 03-01-2001"}, {"4|3|c|date-impossible|W|03-14-2001 wordt gelezen als 03-01-2001"}, nullptr},
    {"date-unknown",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;;a;b\n",
     "4|3|c|date-unknown|L|No date of birth (1 animal); absent from all tables by year",
     "4|3|c|date-unknown|L|Geen geboortedatum (1 dier); ontbreekt in alle tabellen per jaar",
     {}, {}, nullptr},
    {"dates-of-years",
     "id;sex;birthdate;sire;dam\n"
         "a;m;2000;;\n"
         "b;f;2000;;\n"
         "c;m;2001;a;b\n",
     "|||dates-of-years|L|3 of 3 dates give a year only; ages are in whole years",
     "|||dates-of-years|L|3 van de 3 datums geven alleen een jaar; leeftijden zijn in hele jaren",
     {}, {}, nullptr},
    {"founder-late",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;m;01-05-2002;;\n"
         "e;f;01-06-2003;d;b\n",
     "5||d|founder-late|L|No parents, born after 2001, no import (1 animal): F is too low",
     "5||d|founder-late|L|Geen ouders, geboren na 2001, geen import (1 dier): F is te laag",
     {}, {}, nullptr},
    {"isolated",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n"
         "d;f;01-05-2001;;\n",
     "5||d|isolated|L|No parents and no young (1 animal)",
     "5||d|isolated|L|Geen ouders en geen jongen (1 dier)",
     {}, {}, nullptr},
    {"subpopulation-near",
     named_often("herd", "Noord", "Noort"),
     "7|6||subpopulation-near|L|Subpopulation \"Noort\" (1 animal): is \"Noord\" (5) meant?",
     "7|6||subpopulation-near|L|Subpopulatie \"Noort\" (1 dier): is \"Noord\" (5) bedoeld?",
     {}, {}, [](SteerLines& steer) { steer.subpopulations = "2\nNoord\nNoort"; }},
    {"colour-near",
     named_often("colour", "Grey", "Gray"),
     "7|6||colour-near|L|Colour \"Gray\" (1 animal): is \"Grey\" (5) meant?",
     "7|6||colour-near|L|Kleur \"Gray\" (1 dier): is \"Grey\" (5) bedoeld?",
     {}, {}, [](SteerLines& steer) { steer.colours = "2\nGrey\nGray"; }},
    {"breeder-spelling",
     "id;sex;birthdate;sire;dam;breeder\n"
         "a;m;01-01-2000;;;Van Dijk\n"
         "b;f;01-02-2000;;;Van Dijk\n"
         "c;m;01-03-2001;a;b;van dijk\n",
     "4|6||breeder-spelling|L|\"van dijk\" (1 animal) and \"Van Dijk\" (2): one breeder?",
     "4|6||breeder-spelling|L|\"van dijk\" (1 dier) en \"Van Dijk\" (2): een fokker?",
     {}, {}, nullptr},
    {"breeder-cut",
     "id;sex;birthdate;sire;dam;breeder\n"
         "a;m;01-01-2000;;;abcdefghijklmnopqrstu\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "2|6||breeder-cut|L|The breeder \"abcdefghijklmnopqrstu\" (1 animal) is cut to 20 characters",
     "2|6||breeder-cut|L|De fokker \"abcdefghijklmnopqrstu\" (1 dier) is afgekapt op 20 tekens",
     {}, {}, nullptr},
    {"name-cut",
     "id;sex;birthdate;sire;dam;name\n"
         "a;m;01-01-2000;;;nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "2|6|a|name-cut|L|The name \"nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn\" is cut to 50 characters",
     "2|6|a|name-cut|L|De naam \"nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn\" is afgekapt op 50 tekens",
     {}, {}, nullptr},
    {"heading-unused",
     "id;sex;birthdate;sire;dam;notes\n"
         "a;m;01-01-2000;;;x\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "1|6||heading-unused|L|Column 6, \"notes\", is not used",
     "1|6||heading-unused|L|Kolom 6, \"notes\", wordt niet gebruikt",
     {}, {}, nullptr},
    {"name-not-found",
     "id;sex;birthdate;sire;dam;colour\n"
         "a;m;01-01-2000;;;\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "|6||name-not-found|L|No animal has \"black\" (line 12 of pedigreewatch.ini)",
     "|6||name-not-found|L|Geen dier heeft \"black\" (regel 12 van pedigreewatch.ini)",
     {}, {}, [](SteerLines& steer) { steer.colours = "1\nblack"; }},
    {"utf-8-letters",
     "id;sex;birthdate;sire;dam;breeder\n"
         "a;m;01-01-2000;;;Ren\xC3\xA9\n"
         "b;f;01-02-2000;;;\n"
         "c;m;01-03-2001;a;b;\n",
     "2|||utf-8-letters|L|Accents are UTF-8 (lines: 1); in the report they show wrong, save the file as ANSI text",
     "2|||utf-8-letters|L|Accenten zijn UTF-8 (regels: 1); in de uitvoer staan ze verkeerd, sla het bestand op als ANSI-tekst",
     {}, {}, nullptr},
    {"left-out",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "7|||left-out|L|Left out, as this line is no animal: Total;3",
     "7|||left-out|L|Overgeslagen, want deze regel is geen dier: Total;3",
     {}, {}, nullptr, {}, ExportLines{"herd.csv", 0, 5, {}, {}, {{7, "Total;3"}}}},
    {"steer-word",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "|||steer-word|L|pedigreewatch.ini, line 6: \"SHEEP\" is not known and read as other",
     "|||steer-word|L|pedigreewatch.ini, regel 6: \"SHEEP\" is onbekend en wordt gelezen als overig",
     {}, {}, [](SteerLines& steer) { steer.species = "SHEEP"; }},
    {"steer-rest",
     "id;sex;birthdate;sire;dam\n"
         "a;m;01-01-2000;;\n"
         "b;f;01-02-2000;;\n"
         "c;m;01-03-2001;a;b\n",
     "|||steer-rest|L|pedigreewatch.ini, line 12: \"black\" is not read; are the counts above it right?",
     "|||steer-rest|L|pedigreewatch.ini, regel 12: \"black\" wordt niet gelezen; kloppen de aantallen erboven?",
     {}, {}, [](SteerLines& steer) { steer.colours = "0\nblack"; }},
      // clang-format on
  };
}

CheckResult check_case(const FindingCase& each, bool english) {
  SteerLines steer = sheep_steer(english);
  if (each.change_steer != nullptr) each.change_steer(steer);
  CheckSettings settings = check_settings(steer);
  EXPECT_EQ(read_limits(each.limits, "limits.txt", settings.limits), "");
  settings.export_lines = each.origin;
  return checked(each.data, settings);
}

void expect_rows(const FindingCase& each, const std::string& expected, std::vector<std::string> serious, bool english) {
  const ToolLanguage language = english ? ToolLanguage::english : ToolLanguage::dutch;
  const CheckResult result = check_case(each, english);
  const std::vector<std::string> rows = rows_of(result, language);
  EXPECT_EQ(std::ranges::count(rows, expected), 1)
      << "expected: " << expected << "\nfound:    " << testing::PrintToString(rows);
  if (expected.find("|L|") == std::string::npos) serious.push_back(expected);
  std::vector<std::string> found = serious_rows_of(result, language);
  std::ranges::sort(found);
  std::ranges::sort(serious);
  EXPECT_EQ(found, serious);
}

/// The rows of what stops the run, or falsifies inbreeding or the effective size.
std::vector<std::string> rows_of_rates(const FindingCase& each, CheckScope scope) {
  SteerLines steer = sheep_steer(true);
  if (each.change_steer != nullptr) each.change_steer(steer);
  CheckSettings settings = check_settings(steer);
  EXPECT_EQ(read_limits(each.limits, "limits.txt", settings.limits), "");
  settings.export_lines = each.origin;
  settings.scope = scope;
  CheckResult result = checked(each.data, settings);
  std::erase_if(result.findings.list, [](const Finding& finding) {
    const FindingKind& kind = kind_of(finding.code);
    const bool touches = (kind.parts & (part_inbreeding | part_effective_size)) != 0;
    return kind.severity == Severity::look || (kind.severity == Severity::falsifies && !touches);
  });
  return rows_of(result, ToolLanguage::english);
}

class FindingCases : public testing::TestWithParam<FindingCase> {};

TEST_P(FindingCases, AreFoundAndSaidInBothLanguages) {
  expect_rows(GetParam(), GetParam().english, GetParam().english_more, true);
  expect_rows(GetParam(), GetParam().dutch, GetParam().dutch_more, false);
}

TEST_P(FindingCases, OfRatesAreFoundAlsoWhereOnlyTheyAreWanted) {
  EXPECT_EQ(rows_of_rates(GetParam(), CheckScope::rates), rows_of_rates(GetParam(), CheckScope::everything));
}

INSTANTIATE_TEST_SUITE_P(All, FindingCases, testing::ValuesIn(finding_cases()), [](const auto& each) {
  std::string name = each.param.code;
  std::ranges::replace(name, '-', '_');
  return name;
});

TEST(CheckData, LeavesOutWhatCostsTimeWhereOnlyRatesAreWanted) {
  const std::string twins =
      "id;sex;birthdate;sire;dam;name\na;m;01-01-2000;;;\nb;f;01-02-2000;;;\n"
      "c;m;01-03-2001;a;b;Rex\nd;m;01-03-2001;a;b;REX\n";
  CheckSettings settings = check_settings(sheep_steer());
  EXPECT_EQ(count_of(checked(twins, settings), FindingCode::same_animal), 1);
  settings.scope = CheckScope::rates;
  EXPECT_EQ(count_of(checked(twins, settings), FindingCode::same_animal), 0);
}

TEST(FindingKinds, AllHaveACase) {
  std::set<std::string> names;
  for (const FindingCase& each : finding_cases()) names.insert(each.code);
  for (std::size_t k = 0; k < finding_code_count; ++k) {
    EXPECT_EQ(names.count(std::string(kind_of(static_cast<FindingCode>(k)).name)), 1U) << k;
  }
  EXPECT_EQ(names.size(), finding_code_count);
}

// A user looks a code up in the documentation, by its name or by a text that was seen.
TEST(FindingKinds, AreAllDocumentedWithBothTexts) {
  const std::string page = bytes_of(source_folder() + "/docs/check.md");
  for (std::size_t k = 0; k < finding_code_count; ++k) {
    const FindingKind& kind = kind_of(static_cast<FindingCode>(k));
    EXPECT_NE(page.find("#### `" + std::string(kind.name) + "`\n"), std::string::npos) << kind.name;
    EXPECT_NE(page.find("* `" + std::string(kind.message.english) + "`\n"), std::string::npos) << kind.name;
    EXPECT_NE(page.find("* `" + std::string(kind.message.dutch) + "`\n"), std::string::npos) << kind.name;
  }
  std::size_t documented = 0;
  for (std::size_t at = page.find("\n#### `"); at != std::string::npos; at = page.find("\n#### `", at + 1))
    ++documented;
  EXPECT_EQ(documented, finding_code_count);
}

// A list of kinds shows nothing but titles: each must tell its kind from all others.
TEST(FindingKinds, HaveATitleOfTheirOwnInBothLanguages) {
  std::set<std::string_view> english, dutch;
  for (std::size_t k = 0; k < finding_code_count; ++k) {
    const FindingKind& kind = kind_of(static_cast<FindingCode>(k));
    EXPECT_FALSE(kind.title.english.empty()) << kind.name;
    EXPECT_FALSE(kind.title.dutch.empty()) << kind.name;
    EXPECT_NE(kind.title.english, kind.title.dutch) << kind.name;
    EXPECT_EQ(kind.title.english.find('{'), std::string_view::npos) << kind.name;
    EXPECT_EQ(kind.title.dutch.find('{'), std::string_view::npos) << kind.name;
    english.insert(kind.title.english);
    dutch.insert(kind.title.dutch);
  }
  EXPECT_EQ(english.size(), finding_code_count);
  EXPECT_EQ(dutch.size(), finding_code_count);
}

// Today is the 30th of June 2026.
TEST(CheckData, ABirthLaterThisYearLeavesNoYearEmpty) {
  const auto rows_of_birth = [](const std::string& parents, const std::string& birth) {
    const std::string data =
        "id;sex;birthdate;sire;dam\na;m;01-01-" + parents + ";;\nb;f;01-02-" + parents + ";;\nc;m;" + birth + ";a;b\n";
    return rows_of(checked(data, check_settings(sheep_steer())), ToolLanguage::english);
  };
  EXPECT_EQ(rows_of_birth("2025", "30-06-2026"), std::vector<std::string>());
  EXPECT_EQ(rows_of_birth("2025", "31-12-2026"),
            std::vector<std::string>{"4|3|c|year-future|W|Born in the future (31-12-2026)"});
  EXPECT_EQ(rows_of_birth("2026", "01-12-2027"),
            std::vector<std::string>{"4|3|c|year-future|W|Born in the future (01-12-2027): years without animals "
                                     "count as F = 0, Ne is wrong"});
}

// Read as 13-01-2004 it would be 56 days before the other young of the same ewe.
TEST(CheckData, NothingIsToldThatFollowsFromAnImpossibleDate) {
  const CheckResult result = checked(
      "id;sex;birthdate;sire;dam\na;m;01-01-2002;;\nb;f;01-02-2002;;\nc;m;13-25-2004;a;b\nd;m;09-03-2004;a;b\n"
      "e;m;09-03-2003;a;b\n",
      check_settings(sheep_steer()));
  EXPECT_EQ(serious_rows_of(result, ToolLanguage::english),
            std::vector<std::string>{"4|3|c|date-impossible|W|13-25-2004 is read as 13-01-2004"});
}

TEST(CheckData, SoundDataHasNoFindings) {
  const CheckResult result =
      checked("id;sex;birthdate;sire;dam\na;m;01-01-2000;;\nb;f;01-02-2000;;\nc;m;01-12-2001;a;b\n",
              check_settings(sheep_steer()));
  EXPECT_EQ(rows_of(result, ToolLanguage::english), std::vector<std::string>());
}

}  // namespace
}  // namespace pedigreewatch::test
