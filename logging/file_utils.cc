#include "logging/file_utils.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/file_copy.h"
#include "platform/file_descriptor.h"

namespace tarn {
namespace {

// Follows symbolic links.
bool Attributes(const std::string& path, struct stat& attributes) {
  return stat(path.c_str(), &attributes) == 0;
}

}  // namespace

bool fileExistsAtPath(std::string& path) {
  struct stat attributes {};
  return Attributes(path, attributes) && !S_ISDIR(attributes.st_mode);
}

bool folderExitsAtPath(const std::string& path) {
  struct stat attributes {};
  return Attributes(path, attributes) && S_ISDIR(attributes.st_mode);
}

bool getFileSize(const std::string& path, long long& size) {
  struct stat attributes {};
  if (!Attributes(path, attributes)) return false;
  size = attributes.st_size;
  return true;
}

bool copyContentOfFileToFile(const std::string& from, const std::string& to) {
  const platform::FileDescriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC));
  if (!source.is_open()) return false;
  platform::FileDescriptor copy(open(to.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_TRUNC, 0666));
  return copy.is_open() && platform::CopyFileContent(source.number(), copy.number()) &&
         copy.Close();  // fails on a full disk
}

}  // namespace tarn
