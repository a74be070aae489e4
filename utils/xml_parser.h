#pragma once

#include <memory>
#include <string>
#include <vector>

#include "logging/abstract_logger.h"
#include "platform/xml_document.h"

namespace TarnUtils {

// Texts from one XML document. What goes wrong is reported through the log, as a rule for debugging
// only: that an optional setting is missing is nothing unusual. One thread at a time may use it.
class XMLParser {
 public:
  XMLParser() = default;
  XMLParser(const XMLParser&) = delete;
  XMLParser& operator=(const XMLParser&) = delete;
  ~XMLParser();

  // Loads the document `xml`, UTF-8. False when it is not accepted, after which another one can be
  // tried, or when one was loaded before, which stays.
  bool initWithXMLString(const std::string& xml);

  // Copies the text of the first thing that `query`, a path such as /config/name, finds in the
  // document. Of an element it is the text of all its descendants, joined. False, and `value` as it
  // was, when there is none or nothing is loaded.
  bool stringValueForXQuery(const std::string& query, std::string& value) const;

 protected:
  // Takes the parser's messages instead of the library's log route when it is not null; not owned.
  tarn::AbstractLogger* logger = nullptr;

 private:
  // Every document that a load brought, also those with errors; they go with the parser.
  std::vector<std::unique_ptr<platform::XmlDocument>> retained_objects_;
  // The one of them that answers; null until a load went well.
  const platform::XmlDocument* document_ = nullptr;
};

}  // namespace TarnUtils
