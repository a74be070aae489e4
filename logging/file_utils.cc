#include <sys/stat.h>
#include <fstream>

#include "logging/log_utils.h"

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
  std::ifstream source(from, std::ios::binary);
  if (!source.is_open()) return false;
  std::ofstream copy(to, std::ios::binary | std::ios::trunc);
  if (!copy.is_open()) return false;
  char block[4096];
  while (source && copy) {
    source.read(block, sizeof block);
    copy.write(block, source.gcount());
  }
  copy.close();
  return source.eof() && !source.bad() && copy.good();
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
