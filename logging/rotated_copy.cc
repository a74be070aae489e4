#include "logging/rotated_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <vector>

#include "logging/retention.h"
#include "logging/time_utils.h"
#include "platform/disk_sync.h"
#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/retry.h"

namespace tarn {
namespace {

constexpr int kMaxCopiesOfSecond = 999;
constexpr std::size_t kBlockSize = 1 << 16;
constexpr mode_t kModeBits = 0777;
constexpr mode_t kPartialMode = S_IRUSR | S_IWUSR;  // of a copy that is not complete

// Returns whether the error of link() means that the file cannot have a second name.
bool HasNoHardLinks(int error) {
  const int errors[] = {EPERM, ENOTSUP, EOPNOTSUPP, ENOSYS, EMLINK};
  return std::find(std::begin(errors), std::end(errors), error) != std::end(errors);
}

enum class Outcome { kDone, kTaken, kFailed };

Outcome MoveTo(const std::string& from, const std::string& to) {
  if (link(from.c_str(), to.c_str()) == 0) {
    unlink(from.c_str());  // after a failure, recovery removes the second name
    return Outcome::kDone;
  }
  if (errno == EEXIST) return Outcome::kTaken;
  if (!HasNoHardLinks(errno)) return Outcome::kFailed;
  struct stat attributes {};
  if (lstat(to.c_str(), &attributes) == 0) return Outcome::kTaken;
  if (errno != ENOENT) return Outcome::kFailed;
  return std::rename(from.c_str(), to.c_str()) == 0 ? Outcome::kDone : Outcome::kFailed;
}

// Writes the copy and its entry in the folder to the disk, because a copy survives a loss of power
// only with its entry.
bool Sync(int copy, const std::string& folder) {
  if (!platform::SyncToDisk(copy)) return false;
  const platform::FileDescriptor directory(
      open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // The user may be allowed to write to the folder but not to read it. Then the system writes the
  // entry to the disk at its own time.
  if (!directory.is_open()) return errno == EACCES;
  return platform::SyncToDisk(directory.number());
}

// Returns the number of bytes, fewer than `size` at the end of the file, or -1 after an error.
ssize_t ReadAt(int file, off_t offset, char* buffer, std::size_t size) {
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = platform::RetryWhenInterrupted([&] {
      return pread(file, buffer + filled, size - filled, offset + static_cast<off_t>(filled));
    });
    if (count < 0) return -1;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  return static_cast<ssize_t>(filled);
}

}  // namespace

std::string UnfinishedCopy(const std::string& path) {
  const LogFileNames names = NamesOf(path);
  return names.folder + "/." + names.live + ".rotating";
}

bool MakeUnfinishedCopy(int log, const std::string& unfinished) {
  platform::FileDescriptor copy(
      open(unfinished.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPartialMode));
  struct stat source {};
  struct stat result {};
  return copy.is_open() && platform::CopyFileContent(log, copy.number()) &&
         fstat(log, &source) == 0 && fchmod(copy.number(), source.st_mode & kModeBits) == 0 &&
         fstat(copy.number(), &result) == 0 && result.st_size == source.st_size &&
         Sync(copy.number(), NamesOf(unfinished).folder) && copy.Close();
}

bool NameCopy(const std::string& unfinished, const std::string& path, std::string& copy) {
  const LogFileNames log = NamesOf(path);
  const std::string extension = log.live.substr(log.base.size());
  std::string time;
  if (!getDatetime(time)) return false;
  const std::string dated = log.folder + "/" + log.base + " " + time;
  for (int number = 1; number <= kMaxCopiesOfSecond; ++number) {
    char suffix[sizeof "_999"] = "";
    if (number > 1) std::snprintf(suffix, sizeof suffix, "_%03d", number);
    std::string name = dated;
    name.append(suffix).append(extension);
    const Outcome outcome = MoveTo(unfinished, name);
    if (outcome == Outcome::kDone) copy = name;
    if (outcome != Outcome::kTaken) return outcome == Outcome::kDone;
  }
  return false;
}

Beginning CompareBeginning(int log, int copy) {
  struct stat attributes {};
  if (fstat(copy, &attributes) != 0) return Beginning::kUnknown;
  std::vector<char> expected(kBlockSize);
  std::vector<char> found(kBlockSize);
  for (off_t offset = 0; offset < attributes.st_size;) {
    const ssize_t count = ReadAt(copy, offset, expected.data(), kBlockSize);
    if (count <= 0) return Beginning::kUnknown;  // 0 when the copy shrinks
    const ssize_t found_count = ReadAt(log, offset, found.data(), static_cast<std::size_t>(count));
    if (found_count < 0) return Beginning::kUnknown;
    if (found_count != count ||
        !std::equal(found.begin(), found.begin() + count, expected.begin())) {
      return Beginning::kDifferent;
    }
    offset += count;
  }
  return Beginning::kSame;
}

bool IsPartOfLog(const struct stat& unfinished, const struct stat& log) {
  return (unfinished.st_mode & kModeBits) == kPartialMode &&
         (log.st_mode & kModeBits) != kPartialMode && unfinished.st_size <= log.st_size;
}

void ClearUnfinishedPath(const std::string& unfinished) {
  if (std::remove(unfinished.c_str()) == 0) return;
  std::string time;
  if (!getDatetime(time)) return;
  // After a failure, the next check of the size tries again.
  std::rename(unfinished.c_str(), (unfinished + " " + time).c_str());
}

}  // namespace tarn
