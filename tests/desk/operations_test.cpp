// The table of the desk's operations, from which the core's exported procedures and the page's questions are taken,
// names every procedure that src/desk/desk_interface.h has, and no other.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "support/files.h"
#include "support/places.h"

namespace pedigreewatch::test {
namespace {

std::set<std::string> names_in(const std::string& file, const std::string& pattern) {
  const std::string text = bytes_of(source_folder() + "/" + file);
  const std::regex name(pattern);
  std::set<std::string> names;
  for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found) {
    names.insert((*found)[1].str());
  }
  return names;
}

TEST(DeskOperations, AreThoseOfTheInterface) {
  const std::set<std::string> declared = names_in("src/desk/desk_interface.h", "(desk_[a-z_]+)\\(");
  EXPECT_EQ(declared.count("desk_open"), 1U);
  EXPECT_EQ(names_in("desk/operations.ts", "  [A-Za-z]+: \"(desk_[a-z_]+)\",\n"), declared);
}

}  // namespace
}  // namespace pedigreewatch::test
