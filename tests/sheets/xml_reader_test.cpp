#include "sheets/xml_reader.h"

#include <gtest/gtest.h>

#include <string>

#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

/// All events of a part in one line: "<name attributes>", "text", "</name>"; then "!" where it is broken.
std::string events_of(const std::string& xml) {
  ZipArchive archive;
  WorkbookProblem problem;
  const std::string bytes = archive_of({{"part.xml", xml}});
  EXPECT_TRUE(list_parts(bytes, archive, problem));
  XmlReader reader = read_xml(open_part(*find_part(archive, "PART.xml"), archive));
  std::string events;
  for (;;) {
    switch (next_event(reader)) {
      case XmlEvent::start:
        events += "<" + std::string(reader.name) + (reader.attributes.empty() ? "" : " ") +
                  std::string(reader.attributes) + ">";
        break;
      case XmlEvent::end: events += "</" + std::string(reader.name) + ">"; break;
      case XmlEvent::text: append_text(events, reader); break;
      case XmlEvent::done: return events;
      case XmlEvent::broken: return events + "!";
    }
  }
}

TEST(NextEvent, YieldsTagsAndTexts) {
  EXPECT_EQ(events_of("\xEF\xBB\xBF<?xml version=\"1.0\"?><!-- <no> --><a x='1' y=\"2\"><b/>t<c >u</c ></a>\n"),
            "<a x='1' y=\"2\"><b></b>t<c>u</c></a>\n");
}

TEST(NextEvent, ATagMayHoldItsEndSignInQuotationMarks) {
  EXPECT_EQ(events_of("<a x=\"1>2\" y='\">'>t</a>"), "<a x=\"1>2\" y='\">'>t</a>");
}

TEST(NextEvent, ReferencesBecomeLettersAndLiteralTextHasNone) {
  EXPECT_EQ(events_of("<a>&lt;&amp;&quot;&apos;&gt;&#235;&#x1F410; &no; & &#;&#xD800;&#1;<![CDATA[<&amp;]]></a>"),
            "<a><&\"'>\u00EB\U0001F410 &no; & &#;\uFFFD <&amp;</a>");
}

TEST(NextEvent, WhatIsNotWellFormedIsBroken) {
  EXPECT_EQ(events_of("<a><b></a></b>"), "<a><b>!");
  EXPECT_EQ(events_of("<a>t"), "<a>t!");
  EXPECT_EQ(events_of("<a>t</a"), "<a>t!");
  EXPECT_EQ(events_of("<a"), "!");
  EXPECT_EQ(events_of("<a></a></b>"), "<a></a>!");
  EXPECT_EQ(events_of("<a/><b/>"), "<a></a>!");
  EXPECT_EQ(events_of("< >"), "!");
  EXPECT_EQ(events_of("<!-- "), "!");
  EXPECT_EQ(events_of("<a><![CDATA[x]]</a>"), "<a>!");
  EXPECT_EQ(events_of(""), "!");
  EXPECT_EQ(events_of("text"), "text!");
}

TEST(NextEvent, TokensMayBeLongerThanTheBuffer) {
  const std::string text(400'000, 'x');
  EXPECT_EQ(events_of("<a y=\"" + text + "\">" + text + "</a>"), "<a y=\"" + text + "\">" + text + "</a>");
}

TEST(NextEvent, TokensMayLieAcrossTheEndOfTheBuffer) {
  std::string xml = "<a>", expected = "<a>";
  for (int i = 0; i < 40'000; ++i) {
    xml += "<b c=\"" + std::to_string(i) + "\"/>&lt;";
    expected += "<b c=\"" + std::to_string(i) + "\"></b><";
  }
  EXPECT_EQ(events_of(xml + "</a>"), expected + "</a>");
}

TEST(AttributeOf, FindsTheOneOfThatName) {
  XmlReader reader;
  reader.attributes = "r:id = \"7\"  id='a&amp;b' x=3";
  EXPECT_EQ(attribute_of(reader, "r:id"), "7");
  EXPECT_EQ(attribute_text(reader, "id"), "a&b");
  EXPECT_EQ(attribute_of(reader, "x"), "");
  EXPECT_EQ(attribute_of(reader, "y"), "");
  EXPECT_EQ(local_name("r:id"), "id");
  EXPECT_EQ(local_name("id"), "id");
}

}  // namespace
}  // namespace pedigreewatch::test
