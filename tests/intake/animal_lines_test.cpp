// Lines below the header that are no animals.

#include "intake/animal_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// Thirty animals with the ids NL100 to NL129.
std::string thirty_animals() {
  std::string text = "ID;Name;Sire;Dam;Sex;Born\n";
  for (int i = 100; i < 130; ++i) {
    text += "NL" + std::to_string(i) + ";Rex;;;" + (i % 2 == 0 ? "M" : "F") + ";14-03-1990\n";
  }
  return text;
}

std::vector<RecordKind> kinds_behind(const std::string& lines) {
  const std::string text = thirty_animals() + lines;
  ColumnChoice columns = choose_columns(std::vector<std::string>{"ID", "Name", "Sire", "Dam", "Sex", "Born"}, {});
  columns.id_style = find_id_style(text, ';', columns);
  RecordReader reader = read_animals(text, ';', columns);
  ExportRecord record;
  std::vector<RecordKind> kinds;
  while (next_record(reader, record)) kinds.push_back(kind_of_record(record, columns));
  return {kinds.begin() + 30, kinds.end()};
}

using Kinds = std::vector<RecordKind>;

TEST(KindOfRecord, HeadersAgain) {
  EXPECT_EQ(kinds_behind("ID;Name;Sire;Dam;Sex;Born\nid;NAME;sire;dam;sex;born\n"),
            (Kinds{RecordKind::header_again, RecordKind::header_again}));
  EXPECT_EQ(kinds_behind("NL7;Sire;Sire;NL100;M;1-1-1995\n"), Kinds{RecordKind::animal});
  EXPECT_EQ(kinds_behind("ID;Rex;;;;\n"), Kinds{RecordKind::remark}) << "one word is no header";
  EXPECT_EQ(kinds_behind("ID;Rex;;;Sex;\n"), Kinds{RecordKind::header_again});
}

TEST(KindOfRecord, TotalsAndRemarks) {
  for (const char* const line : {"30 records", "Total: 30 animals;;;;;", "Printed on 3-4-2021", "Aantal dieren: 30",
                                 "Totaal;30;dieren;;;", ";Total 30;;;;", ";;;;;see above"}) {
    EXPECT_EQ(kinds_behind(line), Kinds{RecordKind::remark}) << line;
  }
}

TEST(KindOfRecord, HeadersAgainInOtherWords) {
  EXPECT_EQ(kinds_behind("I D ;Name;Father;Mother;SEX;Date of birth\nAnimal;naam;Vader;Moeder;Geslacht;Geboren\n"),
            (Kinds{RecordKind::header_again, RecordKind::header_again}));
  EXPECT_EQ(kinds_behind("NL7;x;Father;Mother;M;Date of birth\n"), Kinds{RecordKind::header_again});  // three of five
  EXPECT_EQ(kinds_behind("NL7;x;;Mother;;Date of birth\n"), Kinds{RecordKind::animal});               // two of three
  EXPECT_EQ(kinds_behind("NL7;x;NL100;Dam;M;Born\n"), Kinds{RecordKind::animal});
  EXPECT_EQ(kinds_behind("ID;x;Sire;Dam;Sex;14-03-1990\n"), Kinds{RecordKind::header_again});  // in its own words
  EXPECT_EQ(kinds_behind("Animal;x;Father;Mother;Geslacht;14-03-1990\n"), Kinds{RecordKind::animal});
}

TEST(KindOfRecord, CountsAndTotalsWithDates) {
  for (const char* const line : {"30", "30;;;;;", "Total;;;;30;22-11-2026", "Totaal;30;;;M;22-11-2026",
                                 "Sum;a;NL100;;30;1-1-2026", "Anzahl;30;;;m;"}) {
    EXPECT_EQ(kinds_behind(line), Kinds{RecordKind::remark}) << line;
  }
  for (const char* const line :
       {"30;Rex;;;;", "NL7;;;;;", "Total;;NL100;NL101;M;14-03-1990", "Sum;a;NL100;;30;1-1-2026;b"}) {
    EXPECT_EQ(kinds_behind(line), Kinds{RecordKind::animal}) << line;
  }
}

TEST(FindCountLine, TheNumberOfTheAnimalsAloneOnTheLastLine) {
  const auto line_of = [](const std::string& below) {
    std::string text = "ID;Name;Sire;Dam;Sex;Born\n";
    for (int i = 1; i <= 30; ++i) text += std::to_string(i) + ";Rex;;;M;14-03-1990\n";
    const ColumnChoice columns =
        choose_columns(std::vector<std::string>{"ID", "Name", "Sire", "Dam", "Sex", "Born"}, {});
    return find_count_line(text + below, ';', columns);
  };
  EXPECT_EQ(line_of("30\n"), 32);
  EXPECT_EQ(line_of("\n30;;;;;\r\n\n"), 33);
  EXPECT_EQ(line_of("\"30\";\"\";\"\"\n"), 32);
  EXPECT_EQ(line_of(";30;;;;\n"), 0);
  EXPECT_EQ(line_of("29\n"), 0);
  EXPECT_EQ(line_of("31;;;;;\n"), 0);
  EXPECT_EQ(line_of("30;Rex;;;;\n"), 0);
  EXPECT_EQ(line_of(""), 0);
}

TEST(IsUnlikeNumber, WithoutALetterOrWithFewerDigits) {
  const auto style = [](const std::string& before, int others) {
    StyleCounts counts;
    for (int k = 0; k < 200; ++k) count_signs(counts, (k < others ? "" : before) + std::to_string(1000 + k));
    return style_of(counts);
  };
  EXPECT_TRUE(is_unlike_number(style("NL", 0), "4000"));
  EXPECT_TRUE(is_unlike_number(style("NL", 1), "4000"));
  EXPECT_FALSE(is_unlike_number(style("NL", 2), "4000"));  // one in a hundred
  EXPECT_FALSE(is_unlike_number(style("", 0), "4000"));
  EXPECT_TRUE(is_unlike_number(style("", 0), "400"));
  EXPECT_FALSE(is_unlike_number(style("NL", 0), "NL1"));
  EXPECT_FALSE(is_unlike_number(TextStyle(), "400"));
}

TEST(KindOfRecord, ATotalBelowAFewAnimals) {
  const ColumnChoice columns =
      choose_columns(std::vector<std::string>{"ID", "Name", "Sire", "Dam", "Sex", "Born"}, {});  // no style of ids
  const auto kind_of = [&](const std::string& line) {
    const std::string text = "ID;Name;Sire;Dam;Sex;Born\n" + line + "\n";
    RecordReader reader = read_animals(text, ';', columns);
    ExportRecord record;
    next_record(reader, record);
    return kind_of_record(record, columns);
  };
  for (const char* const line : {"Total: 8", "8 dieren;;;;;", "Anzahl = 8", "Totaal: 8;;;;;"}) {
    EXPECT_EQ(kind_of(line), RecordKind::remark) << line;
  }
  for (const char* const line : {"Total", "NL 8", "Report;Rex", "Total: 8;;;;m;", "Total: 8;;rex;;;"}) {
    EXPECT_EQ(kind_of(line), RecordKind::animal) << line;
  }
}

TEST(KindOfRecord, AnimalsOfWhichLittleIsKnown) {
  for (const char* const line :
       {"NL1", "NL1;Rex", "NL1;;;;;", "Total;;NL100;;;", "Total;;;;M;", "Total;;;;;1-2-1990", ";Rex;;;M;1-2-1990"}) {
    EXPECT_EQ(kinds_behind(line), Kinds{RecordKind::animal}) << line;
  }
}

TEST(KindOfRecord, BlankLines) {
  EXPECT_EQ(kinds_behind("\n;;;;;\n"), (Kinds{RecordKind::blank, RecordKind::blank}));
}

TEST(NextAnimal, PassesOverWhatIsNone) {
  const ColumnChoice columns = choose_columns(std::vector<std::string>{"ID", "Sire", "Dam", "Sex", "Born"}, {});
  RecordReader reader = read_animals("ID;Sire;Dam;Sex;Born\n\nID;Sire;Dam;Sex;Born\nrex;;;M;1990\n", ';', columns);
  ExportRecord record;
  ASSERT_TRUE(next_animal(reader, record, columns));
  EXPECT_EQ(record.line, 4);
  EXPECT_FALSE(next_animal(reader, record, columns));
}

TEST(KindOfRecord, ARemarkWhereNobodyKnowsTheIdYet) {
  const auto kind_of = [](const std::string& line, std::size_t column_count) {
    ColumnChoice columns;
    columns.headings.assign(column_count, "Q");
    RecordReader reader = read_records(line, ';');
    ExportRecord record;
    next_record(reader, record);
    return kind_of_record(record, columns);
  };
  EXPECT_EQ(kind_of("Total;8;;;\n", 5), RecordKind::remark);
  EXPECT_EQ(kind_of("Total;8;;\n", 4), RecordKind::animal) << "two of four columns";
  EXPECT_EQ(kind_of("rex;;;M;1990\n", 5), RecordKind::animal) << "three fields";
  EXPECT_EQ(kind_of(";;;;\n", 5), RecordKind::blank);
}

TEST(FindIdStyle, TheFirstTwoThousandRecordsTell) {
  // Twenty ids are enough; those of animals without a sex do not count.
  const auto is_known_behind = [](int without_sex) {
    std::string text = "ID;Name;Sire;Dam;Sex;Born\n";
    for (int i = 0; i < without_sex; ++i) text += "NL" + std::to_string(1000 + i) + ";Rex;;;;14-03-1990\n";
    for (int i = 0; i < 20; ++i) text += "NL" + std::to_string(5000 + i) + ";Rex;;;M;14-03-1990\n";
    const ColumnChoice columns =
        choose_columns(std::vector<std::string>{"ID", "Name", "Sire", "Dam", "Sex", "Born"}, {});
    return find_id_style(text, ';', columns).is_known;
  };
  EXPECT_TRUE(is_known_behind(1980));
  EXPECT_FALSE(is_known_behind(1981));
}

TEST(KindOfRecord, ARemarkFillsThreeFieldsAtMost) {
  EXPECT_EQ(kinds_behind("Printed;by;us;;;\n"), Kinds{RecordKind::remark});
  EXPECT_EQ(kinds_behind("Printed;by;us;all;;\n"), Kinds{RecordKind::animal});
}

}  // namespace
}  // namespace pedigreewatch::test
