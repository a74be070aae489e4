#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "logging/log_utils.h"
#include "platform/file_copy.h"

namespace tarn {
namespace {

// Follows symbolic links.
bool Attributes(const std::string& path, struct stat& attributes) {
  return stat(path.c_str(), &attributes) == 0;
}

bool Copy(const std::string& from, const std::string& to, int how) {
  const int source = open(from.c_str(), O_RDONLY | O_CLOEXEC);
  if (source == -1) return false;
  const int copy = open(to.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | how, 0666);
  bool copied = copy != -1 && platform::CopyFileContent(source, copy);
  if (copy != -1 && close(copy) != 0) copied = false;  // what a full disk did not take
  close(source);                                       // was only read
  return copied;
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
  return Copy(from, to, O_TRUNC);
}

bool copyContentOfFileToNewFile(const std::string& from, const std::string& to) {
  return Copy(from, to, O_EXCL);
}

bool appendTimeStampToFile(std::string& path) {
  std::string stamp;
  std::string extension;
  std::string stamped = path;
  if (!getDatetime(stamp) || !getFileExtension(path, extension)) return false;
  if (!removeFileExtension(stamped) || !addFileExtension(stamped += " " + stamp, extension)) {
    return false;
  }
  path = stamped;
  return true;
}

}  // namespace tarn
