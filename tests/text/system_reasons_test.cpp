// The reasons of the system in both languages.
#include "text/system_reasons.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>

#include "core/run_streams.h"

namespace pedigreewatch::test {
namespace {

constexpr auto usual = std::to_array<int>({ENOENT, EACCES, EPERM, ENOSPC, EISDIR, ENOTDIR, EMFILE, ENFILE, EROFS, EFBIG,
                                           EIO, ENAMETOOLONG, ENOMEM, EINTR, input_has_changed});

TEST(SystemReasons, AreInEnglishWhatARunSays) {
  for (const int error : usual) EXPECT_EQ(reason_text(error, ToolLanguage::english), error_text(error)) << error;
}

TEST(SystemReasons, TheUsualOnesAreDutchInDutch) {
  for (const int error : usual) EXPECT_NE(reason_text(error, ToolLanguage::dutch), error_text(error)) << error;
  EXPECT_EQ(reason_text(ENOSPC, ToolLanguage::dutch), "de schijf is vol");
}

TEST(SystemReasons, OthersAreTheSystemsOwn) {
  EXPECT_EQ(reason_text(EXDEV, ToolLanguage::dutch), error_text(EXDEV));
}

TEST(SystemReasons, OfAFileThatCouldNotBeMade) {
  EXPECT_EQ(reason_of({"x.tsv", "Is a directory", EISDIR}, ToolLanguage::dutch), "dit is een map");
  EXPECT_EQ(reason_of({"x.tsv", "in use", 0}, ToolLanguage::dutch), "in use") << "worded already";
  EXPECT_EQ(reason_of({"x.tsv", "", 0}, ToolLanguage::dutch), "") << "it exists";
}

}  // namespace
}  // namespace pedigreewatch::test
