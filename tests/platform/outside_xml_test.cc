#include <gtest/gtest.h>

#include "platform/xml_document.h"
#include "support/files.h"
#include "tests/platform/xml_document_checks.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::XmlDocument;
using ParseResult = XmlDocument::ParseResult;

// Files whose content must not reach a document.
class ExternalFileTest : public testing::Test {
 protected:
  ExternalFileTest() {
    WriteFile(File("text"), "secret");
    WriteFile(File("dtd"), "<!ENTITY e 'secret'><!ATTLIST a b CDATA 'secret'>");
  }

  std::string File(const std::string& name) const { return folder_.path() + "/" + name; }

  // Returns all text that a query can find, or an empty string for a refused document.
  static std::string AllText(const std::string& xml) {
    std::unique_ptr<XmlDocument> document;
    std::string error;
    if (XmlDocument::Parse(xml, document, error) != ParseResult::kParsed) return "";
    return Answer(*document, "/") + Answer(*document, "//@*");
  }

  TemporaryFolder folder_;
};

TEST_F(ExternalFileTest, IsNotReadAsEntity) {
  for (const std::string& place : {File("text"), "file://" + File("text")}) {
    const std::string declared = "<!DOCTYPE a [<!ENTITY e SYSTEM '" + place + "'>]>";
    for (const char* const use : {"<a>&e;</a>", "<a b='&e;'/>"}) {
      EXPECT_EQ(AllText(declared + use).find("secret"), std::string::npos) << place << use;
    }
  }
}

TEST_F(ExternalFileTest, IsNotReadAsParameterEntity) {
  const std::string declared =
      "<!DOCTYPE a [<!ENTITY % d SYSTEM '" + File("dtd") + "'> %d;]><a>&e;</a>";
  EXPECT_EQ(AllText(declared).find("secret"), std::string::npos);
}

TEST_F(ExternalFileTest, IsNotReadAsDocumentType) {
  for (const std::string& identifier :
       {"SYSTEM '" + File("dtd") + "'", "PUBLIC 'p' '" + File("dtd") + "'"}) {
    for (const char* const use : {"<a/>", "<a>&e;</a>"}) {
      EXPECT_EQ(AllText("<!DOCTYPE a " + identifier + ">" + use).find("secret"), std::string::npos);
    }
  }
}

TEST_F(ExternalFileTest, IsNotIncluded) {
  EXPECT_EQ(AllText("<a xmlns:i='http://www.w3.org/2001/XInclude'><i:include parse='text' href='" +
                    File("text") + "'/></a>")
                .find("secret"),
            std::string::npos);
}

TEST_F(ExternalFileTest, IsNotReadByQueries) {
  EXPECT_EQ(Answer("<a/>", "document('" + File("text") + "')"), "(nothing)");
  EXPECT_EQ(Answer("<a/>", "unparsed-text('" + File("text") + "')"), "(nothing)");
}

}  // namespace
