// The first line of an input is the query; the rest is the document.
#include "utils/xml_parser.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz/require.h"
#include "fuzz/utf8.h"

namespace {

// Requires that the error for a refused document is one line of UTF-8.
void CheckError(const std::string& xml) {
  std::unique_ptr<platform::XmlDocument> document;
  std::string error;
  const auto result = platform::XmlDocument::Parse(xml, document, error);
  Require(result == platform::XmlDocument::ParseResult::kRefused);
  Require(!error.empty() && error.find('\n') == std::string::npos);
  RequireUtf8(error);
}

void CheckQuery(const TarnUtils::XMLParser& parser, const std::string& query) {
  const std::string before = "\xff untouched";
  std::string value = before;
  if (parser.stringValueForXQuery(query, value)) {
    RequireUtf8(value);
  } else {
    Require(value == before);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = input.find('\n');
  const std::string query = input.substr(0, end);
  const std::string xml = end == std::string::npos ? "" : input.substr(end + 1);

  TarnUtils::XMLParser parser;
  if (parser.initWithXMLString(xml)) {
    CheckQuery(parser, query);
    CheckQuery(parser, "/*");
    CheckQuery(parser, "//@*");
    Require(!parser.initWithXMLString("<a/>"));
  } else {
    CheckError(xml);
    Require(parser.initWithXMLString("<a/>"));
  }
  return 0;
}
