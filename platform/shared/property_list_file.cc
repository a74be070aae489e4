#include "platform/property_list.h"
#include "platform/shared/whole_file.h"

namespace platform {

bool ReadPropertyListText(const std::string& path, const std::string& key, std::string& value) {
  std::string bytes;
  return ReadWholeFile(path, kMaxPropertyListSize, bytes) &&
         FindPropertyListText(bytes, key, value);
}

}  // namespace platform
