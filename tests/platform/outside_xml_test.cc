#include <gtest/gtest.h>

#include "platform/xml_document.h"
#include "support/files.h"
#include "tests/platform/xml_document_checks.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::XmlDocument;
using ParseResult = XmlDocument::ParseResult;

// Files that a document must not bring in.
class OutsideOfTheDocumentTest : public testing::Test {
 protected:
  OutsideOfTheDocumentTest() {
    WriteFile(File("text"), "secret");
    WriteFile(File("dtd"), "<!ENTITY e 'secret'><!ATTLIST a b CDATA 'secret'>");
  }

  std::string File(const std::string& name) const { return folder_.path() + "/" + name; }

  // Everything that a query can find, empty for a refused document.
  static std::string AllText(const std::string& xml) {
    std::unique_ptr<XmlDocument> document;
    std::string error;
    if (XmlDocument::Parse(xml, document, error) != ParseResult::kParsed) return "";
    return Answer(*document, "/") + Answer(*document, "//@*");
  }

  TemporaryFolder folder_;
};

TEST_F(OutsideOfTheDocumentTest, IsNoEntity) {
  for (const std::string& place : {File("text"), "file://" + File("text")}) {
    const std::string declared = "<!DOCTYPE a [<!ENTITY e SYSTEM '" + place + "'>]>";
    for (const char* const use : {"<a>&e;</a>", "<a b='&e;'/>"}) {
      EXPECT_EQ(AllText(declared + use).find("secret"), std::string::npos) << place << use;
    }
  }
}

TEST_F(OutsideOfTheDocumentTest, IsNoParameterEntity) {
  const std::string declared =
      "<!DOCTYPE a [<!ENTITY % d SYSTEM '" + File("dtd") + "'> %d;]><a>&e;</a>";
  EXPECT_EQ(AllText(declared).find("secret"), std::string::npos);
}

TEST_F(OutsideOfTheDocumentTest, IsNoDocumentType) {
  for (const std::string& identifier :
       {"SYSTEM '" + File("dtd") + "'", "PUBLIC 'p' '" + File("dtd") + "'"}) {
    for (const char* const use : {"<a/>", "<a>&e;</a>"}) {
      EXPECT_EQ(AllText("<!DOCTYPE a " + identifier + ">" + use).find("secret"), std::string::npos);
    }
  }
}

TEST_F(OutsideOfTheDocumentTest, IsNotIncluded) {
  EXPECT_EQ(AllText("<a xmlns:i='http://www.w3.org/2001/XInclude'><i:include parse='text' href='" +
                    File("text") + "'/></a>")
                .find("secret"),
            std::string::npos);
}

TEST_F(OutsideOfTheDocumentTest, IsOutOfReachOfQueries) {
  EXPECT_EQ(Answer("<a/>", "document('" + File("text") + "')"), "(nothing)");
  EXPECT_EQ(Answer("<a/>", "unparsed-text('" + File("text") + "')"), "(nothing)");
}

}  // namespace
