#include "core/name_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pedigreewatch::test {
namespace {

using Names = NameList<8>;

TEST(NameList, FindsANameByItsNumber) {
  Names list;
  list.add(FixedText<8>("rough"));
  list.add(FixedText<8>("smooth"));
  EXPECT_EQ(list.count(), 2);
  EXPECT_EQ(list.number_of(FixedText<8>("rough")), 1);
  EXPECT_EQ(list.number_of(FixedText<8>("smooth  ")), 2);
  EXPECT_EQ(list.number_of(FixedText<8>("Rough")), 0);
  EXPECT_EQ(list.number_of(FixedText<8>(" rough")), 0);
}

TEST(NameList, ANameThatStandsTwiceIsFoundByItsFirstNumber) {
  const std::vector<FixedText<8>> names = {FixedText<8>("a"), FixedText<8>("b"), FixedText<8>("a")};
  const Names list{names};
  EXPECT_EQ(list.count(), 3);
  EXPECT_EQ(list.number_of(FixedText<8>("a")), 1);
  EXPECT_EQ(list.first_numbers.entries, (std::vector<std::int32_t>{1, 2, 1}));
}

TEST(NameList, ABlankNameIsANameLikeAnyOther) {
  Names list;
  EXPECT_EQ(list.number_of(std::string_view()), 0);
  list.add({});
  EXPECT_EQ(list.number_of(FixedText<8>("   ")), 1);
}

TEST(NameList, ACopyStandsOnItsOwn) {
  Names list;
  list.add(FixedText<8>("a"));
  const Names copy = list;
  list.names.at(1).assign("changed");
  EXPECT_EQ(copy.number_of(FixedText<8>("a")), 1);
}

TEST(NameList, FindsEachOfManyNames) {
  Names list;
  for (int i = 1; i <= 5000; ++i) list.add(FixedText<8>("n" + std::to_string(i)));
  for (int i = 1; i <= 5000; ++i) ASSERT_EQ(list.number_of(FixedText<8>("n" + std::to_string(i))), i);
}

}  // namespace
}  // namespace pedigreewatch::test
