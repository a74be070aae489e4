#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/process_memory.h"
#include "platform/xml_document.h"
#include "tests/platform/xml_document_checks.h"

// Documents and queries that want to cost more than they are worth. None may make the process grow
// by much; ctest ends a test that takes too long.
class HostileXmlTest : public testing::Test {
 protected:
  static unsigned long long Dirtied() {
    unsigned long long bytes = 0;
    EXPECT_TRUE(platform::GetDirtiedMemory(bytes));
    return bytes;
  }

  // Accepted or not, the document and what is found in it stay small.
  void ExpectSmall(const std::string& xml) const {
    std::unique_ptr<platform::XmlDocument> document;
    std::string error;
    if (platform::XmlDocument::Parse(xml, document, error) ==
        platform::XmlDocument::ParseResult::kParsed)
      Answer(*document, "/");
    EXPECT_LT(Dirtied(), before_ + (256ULL << 20));
  }

  const unsigned long long before_ = Dirtied();
};
