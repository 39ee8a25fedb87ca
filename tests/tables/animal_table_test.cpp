#include "tables/animal_table.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/lines.h"
#include "support/store_builder.h"

namespace pedigreewatch::test {
namespace {

const std::string header =
    "id\tsire\tdam\tsex\tbirthdate\tF\tequivalent_generations\tcomplete_generations\tmax_generations\toffspring\t"
    "native_offspring\tmean_kinship\tsubpopulation\tcompleteness_index\tincrease_of_inbreeding\tF_3_generations\t"
    "F_5_generations\tancestral_inbreeding\tbreeding_offspring\n";

AnimalRecord animal(std::string_view id, Sex sex, std::int32_t sire = 0, std::int32_t dam = 0) {
  AnimalRecord record;
  record.id.assign(id);
  record.sex = sex;
  record.sire_no = sire;
  record.dam_no = dam;
  return record;
}

std::string table_of(const PopulationStore& store, std::vector<std::int32_t> reference = {}) {
  TableWriter writer;
  Diversity diversity;
  diversity.reference.positions = std::move(reference);
  write_animals(store, compute_figures(store, diversity).animals, writer);
  return writer.text;
}

TEST(IsoDate, ShowsWhatIsKnown) {
  EXPECT_EQ(iso_date(2004, 2, 29), "2004-02-29");
  EXPECT_EQ(iso_date(87, 11, 3), "0087-11-03");
  EXPECT_EQ(iso_date(0, 1, 1), "");
}

TEST(IsoDate, IsAlwaysADayOfTheCalendar) {
  EXPECT_EQ(iso_date(2003, 2, 29), "2003-02-28");
  EXPECT_EQ(iso_date(1900, 2, 29), "1900-02-28");
  EXPECT_EQ(iso_date(2000, 2, 29), "2000-02-29");
  EXPECT_EQ(iso_date(2003, 5, 0), "2003-05-01");
  EXPECT_EQ(iso_date(2003, 5, -7), "2003-05-01");
}

TEST(IsoDate, IsEmptyForAYearThatHasNotFourDigits) {
  EXPECT_EQ(iso_date(20031, 1, 1), "");
  EXPECT_EQ(iso_date(-5, 1, 1), "");
  EXPECT_EQ(iso_date(9999, 12, 31), "9999-12-31");
}

TEST(AnimalTable, HasAHeaderAloneForAnEmptyStore) {
  PopulationStore empty;
  empty.animal_count = -1;
  EXPECT_EQ(table_of(empty), header);
  EXPECT_EQ(table_of(finished_store_of(std::vector<AnimalRecord>{})), header);
}

/// Two founders, their two young, and a young of those: F 1/4, one young is an import.
std::vector<AnimalRecord> family() {
  std::vector<AnimalRecord> records = {animal("S", male), animal("D", female), animal("a", male, 1, 2),
                                       animal("b,\"", female, 1, 2), animal("=x", female, 3, 4)};
  records[2].birth_year = 2001;
  records[2].birth_month = 7;
  records[2].birth_day = 0;
  records[4].inbreeding = 0.25F;
  records[4].generation_equivalents = 2.0F;
  records[4].complete_generations = 2;
  for (std::int32_t parent : {0, 1}) records[static_cast<std::size_t>(parent)].native_offspring_count = 1;
  for (std::int32_t young : {2, 3}) {
    records[static_cast<std::size_t>(young)].generation_equivalents = 1.0F;
    records[static_cast<std::size_t>(young)].complete_generations = 1;
    records[static_cast<std::size_t>(young)].native_offspring_count = 1;
  }
  return records;
}

TEST(AnimalTable, HasARowForEachAnimal) {
  PopulationStore store = finished_store_of(family());
  for (const std::int32_t parent : {1, 2, 3, 4}) store.is_parent[parent] = 1;
  // Mean kinship with a and =x: of S and D 1/4 with each; of a 1/2 and 3/8, of b 1/4 and 3/8, of =x 3/8 and 5/8.
  // Each line has one of five generations, and two with a grandparent generation: 0.2, 0.4.
  EXPECT_EQ(table_of(store, {3, 5}),
            header +
                "S\t\t\tmale\t\t0\t0\t0\t0\t2\t1\t0.25\t\t0\t\t0\t0\t0\t2\n"
                "D\t\t\tfemale\t\t0\t0\t0\t0\t2\t1\t0.25\t\t0\t\t0\t0\t0\t2\n"
                "a\tS\tD\tmale\t2001-07-01\t0\t1\t1\t1\t1\t1\t0.4375\t\t0.2\t\t0\t0\t0\t0\n"
                "\"b,\"\"\"\tS\tD\tfemale\t\t0\t1\t1\t1\t1\t1\t0.3125\t\t0.2\t\t0\t0\t0\t0\n"
                "'=x\ta\t\"b,\"\"\"\tfemale\t\t0.25\t2\t2\t2\t0\t0\t0.5\t\t0.4\t0.25\t0.25\t0.25\t0\t0\n");
  EXPECT_EQ(table_of(store).find("0.4375"), std::string::npos);  // no mean kinship without a reference population
}

TEST(AnimalTable, RoundingLeavesNoInbreedingBelowNothing) {
  std::vector<AnimalRecord> records = {animal("S", male)};
  records[0].inbreeding = -3e-7F;
  EXPECT_EQ(table_of(finished_store_of(records)), header + "S\t\t\tmale\t\t0\t0\t0\t0\t0\t0\t\t\t0\t\t0\t0\t0\t0\n");
}

TEST(LongestLines, FollowTheLongerParent) {
  std::vector<AnimalRecord> records = {animal("a", male),   animal("b", male, 1),    animal("c", female, 2),
                                       animal("d", female), animal("e", male, 2, 4), animal("f", male, 5, 3)};
  const ByNumber<std::int32_t> longest = longest_lines(finished_store_of(records));
  EXPECT_EQ(longest.values, (std::vector<std::int32_t>{0, 0, 1, 2, 0, 2, 3}));
}

/// The texts of the column of F.
std::vector<std::string> texts_of_F(const std::string& table) {
  std::vector<std::string> texts;
  for (std::string_view line : lines_of(table)) {
    for (int column = 0; column < 5; ++column) line.remove_prefix(line.find('\t') + 1);
    texts.emplace_back(line.substr(0, line.find('\t')));
  }
  texts.erase(texts.begin());
  return texts;
}

TEST(AnimalTable, ManyDifferentRealsKeepTheirOwnTexts) {
  // More reals than texts are kept at a time, each of them twice: many must take the place of others.
  std::vector<AnimalRecord> records(40'000, animal("a", male));
  for (std::size_t i = 0; i < records.size(); ++i) records[i].inbreeding = static_cast<float>(i / 2) / 65536.0F;
  const std::vector<std::string> texts = texts_of_F(table_of(finished_store_of(records)));
  ASSERT_EQ(texts.size(), records.size());
  for (std::size_t i = 0; i < texts.size(); ++i)
    ASSERT_EQ(std::strtof(texts[i].c_str(), nullptr), records[i].inbreeding);
}

TEST(AnimalTable, RealsThatTakeTurnsKeepTheirOwnTexts) {
  std::vector<AnimalRecord> records(40'000, animal("a", male));
  for (std::size_t i = 0; i < records.size(); ++i) {
    records[i].inbreeding = static_cast<float>(i % 2 == 0 ? i : records.size() - i) / 65536.0F;
  }
  const std::vector<std::string> texts = texts_of_F(table_of(finished_store_of(records)));
  for (std::size_t i = 0; i < texts.size(); ++i)
    ASSERT_EQ(std::strtof(texts[i].c_str(), nullptr), records[i].inbreeding);
}

TEST(IsoDate, BeginsWithTheYearOneAndEndsWithFourDigits) {
  EXPECT_EQ(iso_date(1, 1, 1), "0001-01-01");
  EXPECT_EQ(iso_date(10000, 1, 1), "");
}

}  // namespace
}  // namespace pedigreewatch::test
