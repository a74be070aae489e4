#include "utils/xml_parser.h"

#include <utility>

#include "platform/autorelease_scope.h"
#include "utils/log_route.h"

namespace TarnUtils {
namespace {

using platform::XmlDocument;

constexpr char kComponent[] = "XMLParser";

}  // namespace

XMLParser::~XMLParser() {
  const platform::AutoreleaseScope scope;
  retained_objects_.clear();
}

bool XMLParser::initWithXMLString(const std::string& xml) {
  if (document_) {
    TARN_UTILS_LOG(logger, tarn::WARN, kComponent,
                   "Error Description : XML is already initialized, tring to initilize again.");
    return false;
  }
  const platform::AutoreleaseScope scope;
  std::unique_ptr<XmlDocument> document;
  std::string error;
  const XmlDocument::ParseResult result = XmlDocument::Parse(xml, document, error);
  const XmlDocument* const loaded = document.get();
  if (document) retained_objects_.push_back(std::move(document));
  if (result == XmlDocument::ParseResult::kRaised) {
    TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent,
                   "Exception in initWithXMLString, error description - %s", error.c_str());
    return false;
  }
  if (!loaded || result != XmlDocument::ParseResult::kParsed) {
    TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent,
                   "Error in initWithXMLString, error description - %s", error.c_str());
    return false;
  }
  document_ = loaded;
  return true;
}

bool XMLParser::stringValueForXQuery(const std::string& query, std::string& value) const {
  if (!document_) {
    TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent, "XML Not initialized");
    TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent, "Error in stringValueForXQuery for query - %s",
                   query.c_str());
    return false;
  }
  const platform::AutoreleaseScope scope;
  switch (document_->Query(query, value)) {
    case XmlDocument::QueryResult::kText:
      return true;
    case XmlDocument::QueryResult::kWithoutText:
      TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent,
                     "Error is accessing property value in stringValueForXQuery for query - %s",
                     query.c_str());
      return false;
    case XmlDocument::QueryResult::kNothing:
      break;
  }
  TARN_UTILS_LOG(logger, tarn::DEBUG, kComponent,
                 "Node count < 0 in stringValueForXQuery for query - %s", query.c_str());
  return false;
}

}  // namespace TarnUtils
