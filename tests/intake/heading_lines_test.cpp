// Units, kinds of fields, column numbers and other headings below the header.

#include "intake/heading_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "intake/animal_lines.h"
#include "intake/column_choice.h"

namespace pedigreewatch::test {
namespace {

const std::vector<std::string> five_headings = {"ID", "Sire", "Dam", "Sex", "Born"};

/// Animals of two pairs of parents in each group of ten; their ids are numbers behind `before`, or letters.
std::string animals_of_groups(int count, const std::string& before) {
  const auto id = [&](int k) {
    if (!before.empty()) return before + std::to_string(1000 + k);
    return std::string("Rexander ") + static_cast<char>('a' + k / 26) + static_cast<char>('a' + k % 26);
  };
  std::string text;
  for (int k = 0; k < count; ++k) {
    const int group = k / 10 * 10;
    const bool is_founder = group == 0;
    text += id(k) + ";" + (is_founder ? "" : id(group - 10)) + ";" + (is_founder ? "" : id(group - 9)) + ";" +
            (k % 2 == 0 ? "M" : "F") + ";14-03-" + std::to_string(1990 + k / 10) + "\n";
  }
  return text;
}

/// How many animals are left of a table with these lines below its header.
int animals_behind(const std::string& lines, int count = 40, const std::string& before = "NL") {
  const std::string text = "ID;Sire;Dam;Sex;Born\n" + lines + animals_of_groups(count, before);
  ColumnChoice columns = choose_columns(five_headings, {});
  columns.id_style = find_id_style(text, ';', columns);
  columns.heading_lines = find_heading_lines(text, ';', columns);
  RecordReader reader = read_animals(text, ';', columns);
  ExportRecord record;
  int animals = 0;
  while (next_animal(reader, record, columns)) ++animals;
  return animals;
}

bool is_left_out(const std::string& line, int count = 40, const std::string& before = "NL") {
  return animals_behind(line + "\n", count, before) == count;
}

const std::vector<std::string> second_headers = {"(no.);(no.);(no.);(M/F);(dd.mm.yyyy)",
                                                 "text;text;text;char;date",
                                                 "[-];[-];[-];..;..",
                                                 "----;----;----;-;----",
                                                 "1;2;3;4;5",
                                                 "(0);(1);(2);(3);(4)",
                                                 "Col1;Col2;Col3;Col4;Col5",
                                                 "A;B;C;D;E",
                                                 "nazwa;ojciec;matka;plec;urodzony",
                                                 "C(15);C(15);C(15);C(1);D(8)",
                                                 ";;;;(dd.mm.yyyy)"};

TEST(HeadingLines, AreLeftOutWhateverTheIdsLookLike) {
  for (const std::string& line : second_headers) {
    EXPECT_TRUE(is_left_out(line)) << line;
    EXPECT_TRUE(is_left_out(line, 40, "7")) << line;  // ids are numbers
    EXPECT_TRUE(is_left_out(line, 40, "")) << line;   // ids are names
    EXPECT_TRUE(is_left_out(line, 13)) << line;       // too few to know how ids are written
  }
}

TEST(HeadingLines, AnAnimalInTheFirstLineStays) {
  for (const char* const line :
       {"NL7;;;M;01-01-1980", "NL7;;;;", "NL7;;;Z;", "NL7;;;;o3-o4-1980", "NL7;;;Z;o3-o4-1980", "NL7;;;Z;spring",
        "NL7;SE1;SE2;Z;spring", "Stamvader;;;M;spring", "CH/1.a;;;z;ca. Fr\xC3\xBChjahr 1985", "1000;;;male;spring",
        "NL1000;NL1000;NL1000;z;spring", "Stamvader;NL1000;SE2;z;spring", "1;2;3;4;2001", "1;2;3;M;5",
        "Stamvader;SE1;;;spring"}) {
    EXPECT_FALSE(is_left_out(line)) << line;
  }
  for (const char* const line :
       {"Bello;Bas;Bep;M;spring", "Bello;k.A.;k.A.;x;k.A.", "Bello;Bas;Bas;z;spring", "Bello;Bas;;z;spring",
        "Bello;Bas;Bep;z;z", "Bello;Bas;Bep;z;spring 1980", "Bello;Rexander aa;Bep;z;spring", "Bello;Bas;Bep;;spring",
        "Rexander aa;Bas;Bep;z;spring"}) {
    EXPECT_FALSE(is_left_out(line, 40, "")) << line;
  }
}

TEST(HeadingLines, UpToThreeAndAgainOnEachPage) {
  const std::string units = "(no.);(no.);(no.);(M/F);(dd.mm.yyyy)\n", kinds = "text;text;text;char;date\n",
                    numbers = "1;2;3;4;5\n", more = "C15;C15;C15;C1;D8\n";
  EXPECT_EQ(animals_behind(units + "\n" + kinds + numbers), 40);
  EXPECT_EQ(animals_behind(units + kinds + numbers + more), 41);
  EXPECT_EQ(animals_behind(units + "NL7;;;M;1990\n" + kinds), 42) << "none below an animal";
  const std::string page = animals_of_groups(20, "NL");
  EXPECT_EQ(animals_behind(units + page + units), 60);
}

TEST(HeadingLines, AnAnimalWhoseYoungStandFarBelowStays) {
  const std::string odd = "Stamvader;;;z;spring\n";
  EXPECT_EQ(animals_behind(odd, 600), 600);
  const auto with_last = [&](const std::string& last) {
    const std::string text = "ID;Sire;Dam;Sex;Born\n" + odd + animals_of_groups(600, "NL") + last + "\n";
    ColumnChoice columns = choose_columns(five_headings, {});
    columns.id_style = find_id_style(text, ';', columns);
    return find_heading_lines(text, ';', columns).size();
  };
  EXPECT_EQ(with_last("NL7;NL8;NL9;M;1990"), 1U);
  EXPECT_EQ(with_last("NL7;Stamvader;NL9;M;1990"), 0U);
  EXPECT_EQ(with_last("NL7;NL8;Stamvader;M;1990"), 0U);
}

TEST(HeadingLines, ThreeDatesOrSexesBelowTell) {
  const auto are_left_out = [](const std::string& below) {
    const std::string text = "ID;Sire;Dam;Sex;Born\ntext;text;text;char;date\na;;;;\nb;;;;\nc;;;;\n" + below;
    ColumnChoice columns = choose_columns(five_headings, {});
    return !find_heading_lines(text, ';', columns).empty();
  };
  EXPECT_TRUE(are_left_out("d;;;;1990\ne;;;;1991\nf;;;;1992\n"));
  EXPECT_FALSE(are_left_out("d;;;;1990\ne;;;;1991\n"));
  EXPECT_TRUE(are_left_out("d;;;M;\ne;;;F;\nf;;;M;\n"));
  EXPECT_FALSE(are_left_out("d;;;M;\ne;;;F;\n"));
  const auto with_words = [](int words) {
    std::string lines;
    for (int k = 0; k < words; ++k) lines += "x" + std::to_string(k) + ";;;s" + std::to_string(k) + ";\n";
    return lines;
  };
  EXPECT_TRUE(are_left_out(with_words(8)));
  EXPECT_FALSE(are_left_out(with_words(9)));
}

TEST(HeadingLines, OnlyBelowAHeader) {
  ColumnChoice columns = choose_columns(five_headings, {});
  const std::string text = "ID;Sire;Dam;Sex;Born\n1;2;3;4;5\n" + animals_of_groups(20, "NL");
  EXPECT_EQ(find_heading_lines(text, ';', columns).size(), 1U);
  columns.has_header = false;
  EXPECT_TRUE(find_heading_lines(text, ';', columns).empty());
}

TEST(NumberColumns, NumbersOrLettersOfFiveColumns) {
  using Fields = std::vector<std::string>;
  for (const Fields& fields : {Fields{"1", "2", "3", "4", "5"}, Fields{"0", "1", "2", "3", "4", "5", "", ""},
                               Fields{"V1", "V2", "V3", "V4", "V5", "V6", "V7", "V8", "V9", "V10"},
                               Fields{"[1]", "[2]", "[3]", "[4]", "[5]"}, Fields{"A", "B", "C", "D", "E"}}) {
    EXPECT_TRUE(number_columns(fields)) << fields.front();
  }
  for (const Fields& fields :
       {Fields{"1", "2", "3", "4"}, Fields{"1", "2", "3", "4", "6"}, Fields{"2", "3", "4", "5", "6"},
        Fields{"1", "2", "", "4", "5"}, Fields{"1", "2", "3", "4", "05"}, Fields{"A", "B", "C", "D"},
        Fields{"a", "b", "c", "d", "e"}, Fields{"V1", "V2", "V3", "W4", "V5"}, Fields{}}) {
    EXPECT_FALSE(number_columns(fields)) << (fields.empty() ? "" : fields.back());
  }
}

}  // namespace
}  // namespace pedigreewatch::test
