#include "platform/property_list.h"

#include <plist/plist.h>
#include <cstdint>

#include "platform/shared/binary_property_list.h"
#include "platform/shared/text_encoding.h"
#include "platform/text_file.h"

namespace platform {
namespace {

class XmlList {
 public:
  // libplist reads only UTF-8, whatever encoding the document declares.
  explicit XmlList(const std::string& xml) {
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &top_);
  }
  XmlList(const XmlList&) = delete;
  XmlList& operator=(const XmlList&) = delete;
  ~XmlList() { plist_free(top_); }

  bool Find(const std::string& key, std::string& value) const {
    // The entry is null, which has no type, when the document is invalid or the key is missing.
    if (plist_get_node_type(top_) != PLIST_DICT) return false;
    plist_t entry = plist_dict_get_item(top_, key.c_str());
    if (plist_get_node_type(entry) != PLIST_STRING) return false;
    std::uint64_t size = 0;
    const char* const content = plist_get_string_ptr(entry, &size);
    const std::string text(content, static_cast<std::size_t>(size));
    // A numeric reference can denote half a surrogate pair.
    if (!IsUtf8(text)) return false;
    value = text;
    return true;
  }

 private:
  plist_t top_ = nullptr;
};

}  // namespace

bool FindPropertyListText(const std::string& bytes, const std::string& key, std::string& value) {
  if (bytes.size() > kMaxPropertyListSize) return false;
  if (IsBinaryPropertyList(bytes)) return FindInBinaryPropertyList(bytes, key, value);
  std::string xml;
  return DecodeText(bytes, xml) && XmlList(xml).Find(key, value);
}

}  // namespace platform
