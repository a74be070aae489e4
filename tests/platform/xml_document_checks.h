#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/xml_document.h"

inline std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  repeated.reserve(text.size() * static_cast<std::size_t>(times));
  for (int i = 0; i < times; ++i)
    repeated += text;
  return repeated;
}

// Returns the document, or null after a test failure when the text is refused.
inline std::unique_ptr<platform::XmlDocument> Parsed(const std::string& xml) {
  std::unique_ptr<platform::XmlDocument> document;
  std::string error = "untouched";
  EXPECT_EQ(platform::XmlDocument::Parse(xml, document, error),
            platform::XmlDocument::ParseResult::kParsed)
      << error;
  EXPECT_EQ(error, "untouched");
  return document;
}

// Returns the error for a refused text, or "(none)" for an accepted text. Checks that nothing is
// written to standard error.
inline std::string ErrorOf(const std::string& xml) {
  std::unique_ptr<platform::XmlDocument> document;
  std::string error = "(none)";
  testing::internal::CaptureStderr();
  const platform::XmlDocument::ParseResult result =
      platform::XmlDocument::Parse(xml, document, error);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  if (result == platform::XmlDocument::ParseResult::kParsed) return "(none)";
  EXPECT_NE(error, "(none)");
  EXPECT_EQ(error.find('\n'), std::string::npos) << error;
  EXPECT_LT(error.size(), 400U);
  return error;
}

inline bool IsRefused(const std::string& xml) { return ErrorOf(xml) != "(none)"; }

// Returns the text that a query finds, "(nothing)" or "(without text)". `messages` receives the
// output of the system to standard error.
inline std::string Answer(const platform::XmlDocument& document, const std::string& query,
                          std::string* messages = nullptr) {
  std::string text = "untouched";
  testing::internal::CaptureStderr();
  const platform::XmlDocument::QueryResult result = document.Query(query, text);
  const std::string said = testing::internal::GetCapturedStderr();
  if (messages) *messages = said;
  if (result == platform::XmlDocument::QueryResult::kText) return text;
  EXPECT_EQ(text, "untouched");
  return result == platform::XmlDocument::QueryResult::kNothing ? "(nothing)" : "(without text)";
}

inline std::string Answer(const std::string& xml, const std::string& query) {
  const std::unique_ptr<platform::XmlDocument> document = Parsed(xml);
  return document ? Answer(*document, query) : "(no document)";
}
