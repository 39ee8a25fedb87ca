#include "desk/json_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace pedigreewatch {
namespace {

TEST(JsonText, WritesObjectsAndListsWithCommasBetween) {
  JsonText json;
  begin_object(json);
  add_integer(json, "a", -7);
  begin_list(json, "b");
  add_text(json, "x");
  add_logical(json, true);
  add_nothing(json);
  begin_object(json);
  end_object(json);
  end_list(json);
  add_text(json, "c", "");
  end_object(json);
  EXPECT_EQ(json.text, R"({"a":-7,"b":["x",true,null,{}],"c":""})");
}

TEST(JsonText, EscapesWhatCouldEndATextOrAScript) {
  JsonText json;
  add_text(json, "\"\\</script>\n\x01\x7F");
  EXPECT_EQ(json.text, R"("\u0022\u005c\u003c/script>\u000a\u0001\u007f")");
}

TEST(JsonText, ReadsBytesThatAreNotUtf8AsWindows1252) {
  JsonText json;
  add_text(json, "Zo\xEB");
  EXPECT_EQ(json.text, "\"Zo\xC3\xAB\"");
}

TEST(JsonText, KeepsUtf8AsItIs) {
  JsonText json;
  add_text(json, "Zo\xC3\xAB");
  EXPECT_EQ(json.text, "\"Zo\xC3\xAB\"");
}

TEST(JsonText, HasNothingForRealsThatAreNotFinite) {
  JsonText json;
  begin_list(json);
  add_real(json, 0.25);
  add_real(json, std::numeric_limits<double>::quiet_NaN());
  add_real(json, std::numeric_limits<double>::infinity());
  end_list(json);
  EXPECT_EQ(json.text, "[0.25,null,null]");
}

}  // namespace
}  // namespace pedigreewatch
