// What corrections make of the text of an export, and what is told of each.
#include "intake/corrected_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

ColumnChoice columns_of(std::initializer_list<FieldCode> codes) {
  ColumnChoice columns;
  columns.has_header = true;
  std::size_t place = 0;
  for (const FieldCode code : codes) columns.place[static_cast<std::size_t>(code)] = place++;
  return columns;
}

const ColumnChoice usual = columns_of({id_column, sire_column, dam_column, birthdate_column});
const std::string herd = "id;sire;dam;born\r\nA;;;2000\r\nB; ;;2001\r\n\r\nC;A;B;1890\r\nD;A;B;2003\r\n";

struct Corrected {
  std::string text;
  std::vector<CorrectionOutcome> outcomes;
};

Corrected corrected(const std::vector<Correction>& corrections, std::string text = herd,
                    const ColumnChoice& columns = usual) {
  Corrected result{std::move(text), {}};
  result.outcomes = apply_corrections(result.text, ';', columns, corrections);
  return result;
}

Correction value(std::string id, FieldCode field, std::string was, std::string becomes) {
  return {std::move(id), CorrectionKind::value, field, std::move(was), std::move(becomes), "", ""};
}

Correction same_as(std::string id, std::string other) {
  return {std::move(id), CorrectionKind::same_as, unused_column, "", std::move(other), "", ""};
}

TEST(CorrectedText, ChangesTheFieldAndNothingElse) {
  const Corrected result = corrected({value("C", birthdate_column, "1890", "1980")});
  EXPECT_EQ(result.text, "id;sire;dam;born\r\nA;;;2000\r\nB; ;;2001\r\n\r\nC;A;B;1980\r\nD;A;B;2003\r\n");
  ASSERT_EQ(result.outcomes.size(), 1U);
  EXPECT_EQ(result.outcomes[0].fate, CorrectionFate::applied);
  EXPECT_EQ(result.outcomes[0].line, 5);
}

TEST(CorrectedText, LineEndsInAFieldStay) {
  const Corrected result =
      corrected({value("A", sire_column, "x", "Z")}, "id;sire;dam;born\nA;\"x\n\";;2000\nC;A;B;1890\n");
  EXPECT_EQ(result.text, "id;sire;dam;born\nA;\"Z\n\";;2000\nC;A;B;1890\n");
}

TEST(CorrectedText, TellsWhatWasMendedMeanwhileAndWhatDiffersNow) {
  const Corrected result = corrected({value("C", birthdate_column, "1790", "1890"), value("D", sire_column, "X", "Y"),
                                      value("E", sire_column, "X", "Y"), value("D", sex_column, "m", "f")});
  EXPECT_EQ(result.text, herd);
  EXPECT_EQ(result.outcomes[0].fate, CorrectionFate::already_so);
  EXPECT_EQ(result.outcomes[1].fate, CorrectionFate::differs);
  EXPECT_EQ(result.outcomes[1].now, "A");
  EXPECT_EQ(result.outcomes[1].line, 6);
  EXPECT_EQ(result.outcomes[2].fate, CorrectionFate::no_animal);
  EXPECT_EQ(result.outcomes[3].fate, CorrectionFate::no_column);
}

TEST(CorrectedText, FillsAnEmptyFieldAndALineThatIsTooShort) {
  EXPECT_EQ(corrected({value("B", sire_column, "", "Z")}, "id;sire;dam\nB; ;\n").text, "id;sire;dam\nB;Z;\n");
  EXPECT_EQ(corrected({value("B", birthdate_column, "", "2001")}, "B;x\nC").text, "B;x;;2001\nC");
}

TEST(CorrectedText, ALineEndBehindAQuotationMarkThatIsNeverClosedStaysOne) {
  EXPECT_EQ(corrected({value("A", id_column, "A", "Z")}, "A;;;\"x\n").text, "Z;;;\"x\n\"");
}

TEST(CorrectedText, PutsQuotationMarksWhereTheyAreNeeded) {
  const Corrected result = corrected({value("C", sire_column, "A", "x;\"y\"")}, "C;A;\"B\nb\";1\nD;;;\n");
  EXPECT_EQ(result.text, "C;\"x;\"\"y\"\"\";\"B\nb\";1\nD;;;\n");
}

TEST(CorrectedText, ALineThatIsLeftOutLeavesItsNumber) {
  const Correction whole = {"C", CorrectionKind::leave_out, unused_column, "C | A | B | 1890", "", "", ""};
  const Corrected result = corrected({whole});
  EXPECT_EQ(result.text, "id;sire;dam;born\r\nA;;;2000\r\nB; ;;2001\r\n\r\n\nD;A;B;2003\r\n");
  const Correction other = {"D", CorrectionKind::leave_out, unused_column, "D | A", "", "", ""};
  EXPECT_EQ(corrected({other}).outcomes[0].fate, CorrectionFate::differs);
  const Correction any = {"D", CorrectionKind::leave_out, unused_column, "", "", "", ""};
  EXPECT_EQ(corrected({any}).outcomes[0].fate, CorrectionFate::applied);
  EXPECT_EQ(corrected({any}, "D;\"a\nb\";c;d\nE;;;\n").text, "\n\nE;;;\n") << "a record of two lines";
}

TEST(CorrectedText, OfTwoLinesWithOneIdentificationTheOneThatFitsIsChanged) {
  const std::string twice = "A;x;;1\nA;y;;2\n";
  const Corrected result = corrected({value("A", sire_column, "y", "z")}, twice);
  EXPECT_EQ(result.text, "A;x;;1\nA;z;;2\n");
  EXPECT_EQ(result.outcomes[0].fate, CorrectionFate::applied);
  EXPECT_EQ(corrected({value("A", sire_column, "x", "z")}, twice).outcomes[0].line, 1);
}

TEST(CorrectedText, AnAnimalThatIsAnotherOneHandsItsOffspringOver) {
  const Corrected result = corrected({same_as("A", "Z")}, herd + "Z;;;1999\r\n");
  EXPECT_EQ(result.text, "id;sire;dam;born\r\n\nB; ;;2001\r\n\r\nC;Z;B;1890\r\nD;Z;B;2003\r\nZ;;;1999\r\n");
  EXPECT_EQ(result.outcomes[0].fate, CorrectionFate::applied);
}

// One animal under three identifications, and the last of them with a new one.
TEST(CorrectedText, OfSeveralThatAreTheSameTheLastStays) {
  const std::string text = "id;sire\nA;\nB;\nC;\nX;A\nY;B\nZ;C\n";
  const std::string one = "id;sire\n\n\nC;\nX;C\nY;C\nZ;C\n";
  EXPECT_EQ(corrected({same_as("A", "B"), same_as("B", "C")}, text).text, one);
  EXPECT_EQ(corrected({same_as("B", "C"), same_as("A", "B")}, text).text, one);
  const std::string renamed = "id;sire\nA;\n\nC1;\nX;A\nY;C1\nZ;C\n";
  EXPECT_EQ(corrected({same_as("B", "C"), value("C", id_column, "C", "C1")}, text).text, renamed);
  EXPECT_EQ(corrected({value("C", id_column, "C", "C1"), same_as("B", "C")}, text).text, renamed);
}

TEST(CorrectedText, WhoIsTheSameAsNobodyStays) {
  const std::string text = "id;sire\nA;\nB;\nC;\nX;A\nY;B\nZ;C\n";
  const auto fates = [&](const std::vector<Correction>& corrections, const std::string& expected) {
    const Corrected result = corrected(corrections, text);
    EXPECT_EQ(result.text, expected);
    std::string told;
    for (const CorrectionOutcome& outcome : result.outcomes) {
      told += outcome.fate == CorrectionFate::applied ? "+" : outcome.fate == CorrectionFate::no_other ? "-" : "?";
    }
    return told;
  };
  EXPECT_EQ(fates({same_as("A", "A")}, text), "-");
  EXPECT_EQ(fates({same_as("A", "Q")}, text), "-");
  EXPECT_EQ(fates({same_as("A", "")}, text), "-");
  EXPECT_EQ(fates({same_as("A", "B"), same_as("B", "A")}, text), "--");
  const std::string a_is_b = "id;sire\n\nB;\nC;\nX;B\nY;B\nZ;C\n";
  EXPECT_EQ(fates({same_as("A", "B"), same_as("B", "Q")}, a_is_b), "+-");
  EXPECT_EQ(fates({same_as("A", "B"), same_as("B", "C"), same_as("C", "B")}, a_is_b), "+--");
  const Correction gone = {"B", CorrectionKind::leave_out, unused_column, "", "", "", ""};
  EXPECT_EQ(fates({gone, same_as("A", "B")}, "id;sire\nA;\n\nC;\nX;A\nY;B\nZ;C\n"), "+-");
}

TEST(CorrectedText, FollowsANewIdentification) {
  const Corrected result =
      corrected({value("C", id_column, "C", "C1"), value("C1", sire_column, "A", ""), value("C", dam_column, "B", "")});
  EXPECT_EQ(result.text, "id;sire;dam;born\r\nA;;;2000\r\nB; ;;2001\r\n\r\nC1;;B;1890\r\nD;A;B;2003\r\n");
  EXPECT_EQ(result.outcomes[2].fate, CorrectionFate::has_new_id);
  EXPECT_EQ(result.outcomes[2].now, "C1");
  EXPECT_EQ(result.outcomes[2].line, 5);
}

TEST(CorrectedText, TellsOfAnAnimalThatWasLeftOutBefore) {
  const Correction any = {"D", CorrectionKind::leave_out, unused_column, "", "", "", ""};
  EXPECT_EQ(corrected({any, value("D", sire_column, "A", "B")}).outcomes[1].fate, CorrectionFate::has_gone);
  EXPECT_EQ(corrected({same_as("A", "B"), value("A", birthdate_column, "2000", "2001")}).outcomes[1].fate,
            CorrectionFate::has_gone);
  EXPECT_EQ(corrected({any, value("E", sire_column, "A", "B")}).outcomes[1].fate, CorrectionFate::no_animal)
      << "another animal";
  EXPECT_EQ(corrected({value("E", id_column, "E", "F"), value("E", sire_column, "A", "B")}).outcomes[1].fate,
            CorrectionFate::no_animal)
      << "an earlier correction that did not apply";
}

std::string letters_of_fates(const Corrected& result) {
  std::string letters;
  for (const CorrectionOutcome& outcome : result.outcomes) {
    constexpr std::string_view letter_of_fate = "+=?-|TOng";
    letters += letter_of_fate[static_cast<std::size_t>(outcome.fate)];
  }
  return letters;
}

Correction new_id(std::string id, std::string becomes) {
  std::string was = id;
  return value(std::move(id), id_column, std::move(was), std::move(becomes));
}

TEST(CorrectedText, NoAnimalGetsTheIdentificationOfAnother) {
  const Corrected result = corrected({new_id("C", "B"), value("C", birthdate_column, "1890", "1990")});
  EXPECT_EQ(result.text, "id;sire;dam;born\r\nA;;;2000\r\nB; ;;2001\r\n\r\nC;A;B;1990\r\nD;A;B;2003\r\n");
  EXPECT_EQ(letters_of_fates(result), "T+");
  EXPECT_EQ(result.outcomes[0].line, 3);
  EXPECT_EQ(result.outcomes[0].now, "") << "the export has no names";
  const ColumnChoice named = columns_of({id_column, name_column});
  const Corrected with_name = corrected({new_id("C", "B")}, "id;name\nB;Bel\nC;Cor\n", named);
  EXPECT_EQ(with_name.outcomes[0].now, "Bel");
}

TEST(CorrectedText, AnIdentificationThatIsFreeByThenIsGiven) {
  const std::string two = "A;;;1\nB;;;2\n";
  const Corrected moved = corrected({new_id("B", "C"), new_id("A", "B")}, two);
  EXPECT_EQ(moved.text, "B;;;1\nC;;;2\n");
  EXPECT_EQ(letters_of_fates(moved), "++");
  const Corrected too_early = corrected({new_id("A", "B"), new_id("B", "C")}, two);
  EXPECT_EQ(too_early.text, "A;;;1\nC;;;2\n");
  EXPECT_EQ(letters_of_fates(too_early), "T+");
  const Corrected exchanged = corrected({new_id("A", "x"), new_id("B", "A"), new_id("x", "B")}, two);
  EXPECT_EQ(exchanged.text, "B;;;1\nA;;;2\n");
  EXPECT_EQ(letters_of_fates(exchanged), "+++");
  const Correction gone = {"B", CorrectionKind::leave_out, unused_column, "", "", "", ""};
  EXPECT_EQ(corrected({gone, new_id("A", "B")}, two).text, "B;;;1\n\n");
  EXPECT_EQ(letters_of_fates(corrected({new_id("A", "B"), gone}, two)), "T+");
  EXPECT_EQ(letters_of_fates(corrected({same_as("B", "A"), new_id("A", "B")}, two)), "+T") << "offspring name B";
}

TEST(CorrectedText, TwoAnimalsDoNotGetOneNewIdentification) {
  const std::string two = "A;;;1\nB;;;2\n";
  const Corrected result = corrected({new_id("A", "N"), new_id("B", "N")}, two);
  EXPECT_EQ(result.text, "N;;;1\nB;;;2\n");
  EXPECT_EQ(letters_of_fates(result), "+T");
  EXPECT_EQ(result.outcomes[1].line, 1);
  const std::string twice = "A;x;;1\nA;y;;2\nN;;;3\n";
  const Corrected told_apart = corrected({value("A", id_column, "A | y |  | 2", "N")}, twice);
  EXPECT_EQ(told_apart.text, twice);
  EXPECT_EQ(letters_of_fates(told_apart), "T");
  EXPECT_EQ(told_apart.outcomes[0].line, 3);
  EXPECT_EQ(letters_of_fates(corrected({value("A", id_column, "A | x |  | 1", "N")}, twice)), "T")
      << "that the second A differs does not count";
  EXPECT_EQ(corrected({new_id("A", "N1")}, twice).text, "N1;x;;1\nN1;y;;2\nN;;;3\n") << "they were one before";
}

TEST(CorrectedText, ALineOfSeveralAnimalsGivesNoIdentificationTwice) {
  ColumnChoice litters = columns_of({id_column, dam_column});
  litters.animals_of_line = {{{0, 0}}, {{2, 0}}};
  litters.headings = {"young", "dam", "young 2"};
  const std::string text = "A;d;B\nC;d;\n";
  EXPECT_EQ(corrected({new_id("A", "B")}, text, litters).text, text);
  EXPECT_EQ(letters_of_fates(corrected({new_id("C", "B")}, text, litters)), "T");
  EXPECT_EQ(corrected({new_id("B", "Q")}, text, litters).text, "A;d;Q\nC;d;\n");
}

TEST(CorrectedText, AnIdentificationThatTheExportHasByNowIsMended) {
  const Corrected result = corrected({new_id("D0", "D"), new_id("E0", "E")});
  EXPECT_EQ(letters_of_fates(result), "=-");
  EXPECT_EQ(result.outcomes[0].line, 6);
}

TEST(CorrectedText, ApplyInTheirOrder) {
  const Corrected result = corrected({value("C", sire_column, "A", "X"), value("C", sire_column, "X", "Y")});
  EXPECT_NE(result.text.find("C;Y;B"), std::string::npos);
  EXPECT_EQ(result.outcomes[1].fate, CorrectionFate::applied);
}

}  // namespace
}  // namespace pedigreewatch::test
