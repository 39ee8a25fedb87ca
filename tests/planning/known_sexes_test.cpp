// Which lines tell no sex, and which sex such animals have as parents.
#include "planning/known_sexes.h"

#include <gtest/gtest.h>

#include <string>

#include "support/files.h"
#include "support/pedigrees.h"
#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

std::vector<std::int32_t> records_of(const std::string& data) {
  const RunFolder folder(Files{{"dogs.txt", data}});
  LineReader reader;
  EXPECT_TRUE(open_for_reading(reader, folder.path("dogs.txt")));
  DataFileLayout layout;
  layout.delimiter = ';';
  layout.male_letters = {'m', 'M'};
  return find_records_without_sex(reader, layout);
}

TEST(FindRecordsWithoutSex, KnowsTextsThatNobodyTakesForAFemale) {
  EXPECT_EQ(records_of("id;sire;dam;sex;birthdate\na;;;m;\nb;;;f;\nc;;;;\nd;;;?;\ne;;;-;\ng;;;unknown;\nh;0;0\ni;;;x;\n"
                       "j;;; m;\nk;;;Male  ;\nl;;;   ;\n"),
            (std::vector<std::int32_t>{3, 4, 5, 6, 7, 9, 11}));
}

TEST(KnownSex, IsThatOfTheLineOrOfTheRoleAsAParent) {
  const PopulationStore store = pedigree_from_text(
      "a 0 0 m 2000\nb 0 0 f 2000\nc 0 0 f 2000\nd 0 0 f 2000\ne c b f 2002\nf a d f 2002\ng d b f 2003\n");
  const auto position = [&](std::string_view id) { return animal_named(store, id).number; };
  std::vector<std::int32_t> unknown;
  for (const std::string_view id : {"c", "d", "e"}) unknown.push_back(store.record_no(position(id)));
  const SexEvidence evidence = find_sex_evidence(store, unknown);
  const auto sex = [&](std::string_view id) { return known_sex(store, evidence, position(id)); };
  EXPECT_EQ(sex("a"), male);
  EXPECT_EQ(sex("b"), female);
  EXPECT_EQ(sex("c"), male);          // a sire
  EXPECT_EQ(sex("d"), std::nullopt);  // both
  EXPECT_EQ(sex("e"), std::nullopt);  // neither
  EXPECT_EQ(sex("f"), female);
}

}  // namespace
}  // namespace pedigreewatch::test
