#pragma once

#include <memory>
#include <string>
#include <vector>

#include "logging/abstract_logger.h"
#include "platform/xml_document.h"

namespace TarnUtils {

// Reads texts from one XML document. Logs problems, usually at debug level only, because a missing
// optional setting is normal. Not thread-safe.
class XMLParser {
 public:
  XMLParser() = default;
  XMLParser(const XMLParser&) = delete;
  XMLParser& operator=(const XMLParser&) = delete;
  ~XMLParser();

  // Loads the document `xml`, which is UTF-8. Returns false when the document is not accepted; then
  // another document may be loaded. Also returns false when a document is already loaded; the
  // loaded document stays.
  bool initWithXMLString(const std::string& xml);

  // Copies the text of the first item that `query`, a path such as /config/name, finds in the
  // document. The text of an element is the concatenated text of all its descendants, which may
  // be empty. Returns false, and leaves `value` unchanged, when nothing is found, when the item has
  // no text, or when no document is loaded.
  bool stringValueForXQuery(const std::string& query, std::string& value) const;

 protected:
  // Receives the parser's messages in place of the library's log route when not null. Not owned.
  tarn::AbstractLogger* logger = nullptr;

 private:
  // All documents that the platform created, including those with errors. The destructor frees
  // them.
  std::vector<std::unique_ptr<platform::XmlDocument>> retained_objects_;
  // The document that answers queries; null until a load succeeds.
  const platform::XmlDocument* document_ = nullptr;
};

}  // namespace TarnUtils
