#include "pedigree/id_list.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/run_folder.h"

namespace pedigreewatch::test {
namespace {

constexpr std::size_t enough = 100;

IdList list_of(const std::string& bytes, std::size_t most_ids = enough) {
  const RunFolder folder(Files{{"list.txt", bytes}});
  return read_id_list(folder.path("list.txt"), most_ids);
}

TEST(ReadIdList, KeepsTheLinesOfTheIdentifications) {
  const IdList list = list_of("\n HS1 \r\n\t\nHS2");
  EXPECT_EQ(list.fault, IdListFault::none);
  ASSERT_EQ(list.ids.size(), 2U);
  EXPECT_EQ(list.ids[0].line, 2);
  EXPECT_EQ(list.ids[0].id, " HS1 ");
  EXPECT_EQ(list.ids[1].line, 4);
  EXPECT_EQ(list.ids[1].id, "HS2");
}

TEST(ReadIdList, TakesNoTextInTwoBytes) {
  EXPECT_EQ(list_of(std::string("H\0S\0", 4)).fault, IdListFault::no_text);
  EXPECT_EQ(list_of("\xFF\xFEHS").fault, IdListFault::no_text);
  EXPECT_EQ(list_of("HS1\n\xFF\xFEHS").fault, IdListFault::none);  // the mark stands at the start of a file only
}

TEST(ReadIdList, TakesAsManyAsItMay) {
  EXPECT_EQ(list_of("HS1\nHS2\n", 2).fault, IdListFault::none);
  EXPECT_EQ(list_of("HS1\nHS2\nHS3\n", 2).fault, IdListFault::too_long);
}

TEST(ReadIdList, ATextThatIsTypedIsReadLikewise) {
  const IdList list = id_list_of_text("HS1\r\n \nHS2 HS3", 2);
  EXPECT_EQ(list.fault, IdListFault::none);
  ASSERT_EQ(list.ids.size(), 2U);
  EXPECT_EQ(list.ids[0].line, 1);
  EXPECT_EQ(list.ids[1].line, 3);
  EXPECT_EQ(list.ids[1].id, "HS2 HS3");
  EXPECT_EQ(id_list_of_text("a\nb\nc", 2).fault, IdListFault::too_long);
  EXPECT_EQ(id_list_of_text("\xFF\xFEH", 2).fault, IdListFault::no_text);
}

TEST(ReadIdList, SaysThatAFileIsMissing) {
  EXPECT_EQ(read_id_list("/nowhere/list.txt", enough).fault, IdListFault::not_opened);
}

}  // namespace
}  // namespace pedigreewatch::test
