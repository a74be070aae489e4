#include "logging/rotation.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "logging/log_utils.h"
#include "logging/retention.h"
#include "platform/folder_tree.h"

namespace tarn {
namespace {

constexpr long long kMebibyte = 1 << 20;
constexpr int kMostCopiesOfASecond = 999;

// A folder does not count: no copy of ours was lost if one took its name.
bool IsTaken(const std::string& path) {
  struct stat attributes {};
  return lstat(path.c_str(), &attributes) == 0 && !S_ISDIR(attributes.st_mode);
}

}  // namespace

long long SegmentSize(Log_Level level) {
  if (level == TRACE) return 50 * kMebibyte;
  if (level == DEBUG) return 20 * kMebibyte;
  return 10 * kMebibyte;
}

bool KeepsAllCopies(const std::string& folder) {
  // A pipe without a writer must not make anybody wait.
  const int marker = open((folder + "//pvx.trace").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (marker == -1) return false;
  // One character more than the text has, which spoils it. The zero at the end is never read over.
  char text[sizeof "keeplogs" + 1] = "";
  while (read(marker, text, sizeof text - 1) == -1 && errno == EINTR) {
  }
  close(marker);  // was only read
  return std::strcmp(text, "keeplogs") == 0;
}

std::string UnfinishedCopy(const std::string& path) {
  const LogFileNames names = NamesOf(path);
  return names.folder + "/." + names.live + ".rotating";
}

bool NameOfCopy(const std::string& path, std::string& copy) {
  std::string dated = path;
  if (!appendTimeStampToFile(dated)) return false;
  std::string name = dated;
  for (int number = 2; IsTaken(name); ++number) {
    if (number > kMostCopiesOfASecond) return false;
    char suffix[sizeof "_999"];
    std::snprintf(suffix, sizeof suffix, "_%03d", number);
    std::string extension;
    name = dated;
    if (!getFileExtension(dated, extension) || !removeFileExtension(name) ||
        !addFileExtension(name += suffix, extension)) {
      return false;
    }
  }
  copy = name;
  return true;
}

bool HasCopy(const std::string& path, std::uint64_t inode, std::uint64_t size) {
  const LogFileNames log = NamesOf(path);
  std::vector<std::string> names;
  platform::ListTree(log.folder, log.base + " ", names);
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    struct stat attributes {};
    return lstat((log.folder + "/" + name).c_str(), &attributes) == 0 &&
           static_cast<std::uint64_t>(attributes.st_ino) == inode &&
           static_cast<std::uint64_t>(attributes.st_size) == size;
  });
}

}  // namespace tarn
