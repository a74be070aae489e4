#include <gtest/gtest.h>

#include "tests/platform/hostile_xml.h"

namespace {

std::string Nested(int depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); }

TEST_F(HostileXmlTest, EntitiesOfEntities) {
  std::string xml = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    xml += "<!ENTITY e" + std::to_string(i) + " '" + Repeated(inner, 10) + "'>";
  }
  ExpectSmall(xml + "]><a>&e29;</a>");
  ExpectSmall(xml + "]><a b='&e29;'/>");
  EXPECT_TRUE(IsRefused(xml + "]><a>&e29;</a>"));
}

TEST_F(HostileXmlTest, EntitiesOfManyElements) {
  const std::string xml = "<!DOCTYPE a [<!ENTITY e '" + Repeated("<b/>", 250) + "'><!ENTITY f '" +
                          Repeated("&e;", 999) + "'>]><a>";
  EXPECT_TRUE(IsRefused(xml + Repeated("&f;", 2000) + "</a>"));
  ExpectSmall(xml + Repeated("&f;", 2000) + "</a>");
}

TEST_F(HostileXmlTest, LongEntityUsedOften) {
  const std::string xml = "<!DOCTYPE a [<!ENTITY e '" + Repeated("x", 30000) + "'>]>";
  ExpectSmall(xml + "<a>" + Repeated("&e;", 10000) + "</a>");
  ExpectSmall(xml + "<a b='" + Repeated("&e;", 10000) + "'/>");
  ExpectSmall(xml + "<a>" + Repeated("<b c='&e;'/>", 2000000) + "</a>");
}

TEST_F(HostileXmlTest, EntityThatContainsItself) {
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>"));
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>]><a>&e;</a>"));
  EXPECT_TRUE(IsRefused("<!DOCTYPE a [<!ENTITY e '&f;&f;'><!ENTITY f '&e;&e;'>]><a b='&e;'/>"));
}

TEST_F(HostileXmlTest, LongChainOfEntities) {
  std::string xml = "<!DOCTYPE a [";
  for (int i = 0; i < 2500; ++i) {
    xml += "<!ENTITY e" + std::to_string(i) + "'&e" + std::to_string(i + 1) + ";'>";
  }
  ExpectSmall(xml + "]><a>&e0;</a>");
}

TEST_F(HostileXmlTest, ParameterEntities) {
  std::string xml = "<!DOCTYPE a [<!ENTITY % e0 '<!ENTITY x \"lol\">'>";
  for (int i = 1; i < 30; ++i) {
    const std::string inner = "&#37;e" + std::to_string(i - 1) + ";";
    xml += "<!ENTITY % e" + std::to_string(i) + " '" + Repeated(inner, 10) + "'>";
  }
  ExpectSmall(xml + " %e29;]><a/>");
}

TEST_F(HostileXmlTest, LongDefaultAttribute) {
  const std::string xml = "<!DOCTYPE a [<!ATTLIST b c CDATA '" + Repeated("x", 30000) + "'>]><a>";
  EXPECT_TRUE(IsRefused(xml + Repeated("<b/>", 8000) + "</a>"));
  ExpectSmall(xml + Repeated("<b/>", 5000000) + "</a>");
}

TEST_F(HostileXmlTest, ManyDefaultAttributes) {
  std::string xml = "<!DOCTYPE a [<!ATTLIST b";
  for (int i = 0; i < 2000; ++i)
    xml += " c" + std::to_string(i) + " CDATA ''";
  ExpectSmall(xml + ">]><a>" + Repeated("<b/>", 6000) + "</a>");
}

TEST_F(HostileXmlTest, LongListInADeclaration) {
  std::string names = "n";
  for (int i = 0; i < 2000000; ++i)
    names += "|n" + std::to_string(i);
  ExpectSmall("<!DOCTYPE a [<!ATTLIST a b NOTATION (" + names + ") #IMPLIED>]><a/>");
}

TEST_F(HostileXmlTest, DeepNesting) {
  EXPECT_FALSE(IsRefused(Nested(200)));
  EXPECT_TRUE(IsRefused(Nested(100000)));
  ExpectSmall(Repeated("<a>", 6000000));
}

TEST_F(HostileXmlTest, DeepNestingInADeclaration) {
  ExpectSmall("<!DOCTYPE a [<!ELEMENT a " + Repeated("(", 50000));
  ExpectSmall("<!DOCTYPE a [<!ELEMENT a " + Repeated("(", 5000000));
}

TEST_F(HostileXmlTest, ManyAttributes) {
  std::string attributes;
  for (int i = 0; i < 1500000; ++i)
    attributes += " a" + std::to_string(i) + "=''";
  ExpectSmall("<a" + attributes + "/>");
  ExpectSmall("<!-- <b --><a" + attributes + "/>");
  ExpectSmall("<x>it's<a" + attributes + "/></x>");
}

TEST_F(HostileXmlTest, LongNamesAndTexts) {
  ExpectSmall("<" + Repeated("a", 20 << 20) + "/>");
  ExpectSmall("<a>" + Repeated("x", 20 << 20) + "</a>");
  ExpectSmall("<a b='" + Repeated("x", 20 << 20) + "'/>");
  ExpectSmall("<!--" + Repeated("x", 20 << 20) + "--><a/>");
  ExpectSmall("<a>" + Repeated("&#65;", 4 << 20) + "</a>");
}

TEST_F(HostileXmlTest, TooLargeDocumentIsRefused) {
  const std::string content = Repeated("<b/>", static_cast<int>(platform::kLargestXmlDocument / 4));
  EXPECT_TRUE(IsRefused("<a>" + content + "</a>"));
}

}  // namespace
