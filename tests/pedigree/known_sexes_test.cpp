// Which sex animals have as parents whose lines tell none.
#include "pedigree/known_sexes.h"

#include <gtest/gtest.h>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

TEST(KnownSex, IsThatOfTheLineOrOfTheRoleAsAParent) {
  PopulationStore store = pedigree_from_text(
      "a 0 0 m 2000\nb 0 0 f 2000\nc 0 0 f 2000\nd 0 0 f 2000\ne c b f 2002\nf a d f 2002\ng d b f 2003\n");
  const auto position = [&](std::string_view id) { return animal_named(store, id).number; };
  for (const std::string_view id : {"c", "d", "e"}) {
    store.kept.records_without_sex.push_back(store.record_no(position(id)));
  }
  const SexEvidence evidence = find_sex_evidence(store);
  const auto expect = [&](std::string_view id, std::optional<Sex> sex) {
    EXPECT_EQ(known_sex(store, evidence, position(id)), sex) << id;
    EXPECT_EQ(known_sex(store, position(id)), sex) << id;
  };
  expect("a", male);
  expect("b", female);
  expect("c", male);          // a sire
  expect("d", std::nullopt);  // both
  expect("e", std::nullopt);  // neither
  expect("f", female);
}

}  // namespace
}  // namespace pedigreewatch::test
