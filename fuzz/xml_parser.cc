// The first line of an input is the query, the rest the document.
#include "utils/xml_parser.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/require.h"

namespace {

// The length of the UTF-8 sequence that begins with `lead`, 0 when none does.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xc2 && lead <= 0xdf) return 2;
  if (lead >= 0xe0 && lead <= 0xef) return 3;
  return lead >= 0xf0 && lead <= 0xf4 ? 4 : 0;
}

bool IsUtf8(const std::string& text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t length = SequenceLength(static_cast<unsigned char>(text[begin]));
    if (length == 0 || begin + length > text.size()) return false;
    for (std::size_t i = begin + 1; i < begin + length; ++i) {
      if ((static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) return false;
    }
    begin += length;
  }
  return true;
}

// A refused document says why in one line.
void CheckError(const std::string& xml) {
  std::unique_ptr<platform::XmlDocument> document;
  std::string error;
  const auto result = platform::XmlDocument::Parse(xml, document, error);
  Require(result == platform::XmlDocument::ParseResult::kRefused);
  Require(!error.empty() && error.find('\n') == std::string::npos && IsUtf8(error));
}

void CheckQuery(const TarnUtils::XMLParser& parser, const std::string& query) {
  const std::string before = "\xff untouched";
  std::string value = before;
  if (parser.stringValueForXQuery(query, value)) {
    Require(IsUtf8(value));
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
