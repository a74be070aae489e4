// How a LogTargetDefault keeps its file small.

#include <sys/stat.h>
#include <unistd.h>
#include <cstdio>

#include "logging/log_target_default.h"
#include "logging/log_utils.h"
#include "logging/retention.h"
#include "logging/rotation.h"
#include "platform/folder_tree.h"

namespace tarn {
namespace {

// The days whose copies stay, and how many of those copies.
constexpr int kDays = 2;

}  // namespace

bool LogTargetDefault::SegmentLogFile(bool /*unused*/) {
  const bool keeps_all = KeepsAllCopies(NamesOf(file_path_).folder);
  long long size = 0;
  if (!getFileSize(file_path_, size)) return false;
  if (size < (segment_size_ != 0 ? segment_size_ : SegmentSize(level_))) return true;
  // Another program has put a file in the place of the one that is open here, and its writers have
  // another lock.
  if (registered_ && !IsOpenFile()) return true;
  stream_.close();
  MoveContentToCopy(size);
  header_pending_ = true;
  marks_.setHeaderDue(true);  // whichever process writes the next line writes the header before it
  const bool opened = SetStreamHandle(stream_);
  if (!keeps_all) removeLogFilesExceptLastN(kDays);
  return opened;
}

// The copy gets its name when it is complete, and the file is emptied after that. The mark tells a
// process that comes after one that was killed that the second is due: FinishRotation().
void LogTargetDefault::MoveContentToCopy(long long size) {
  std::string copy;
  if (!NameOfCopy(file_path_, copy)) return;
  const std::string unfinished = UnfinishedCopy(file_path_);
  std::remove(unfinished.c_str());  // what a process that was killed may have left
  struct stat attributes {};
  if (copyContentOfFileToNewFile(file_path_, unfinished) &&
      stat(unfinished.c_str(), &attributes) == 0 && attributes.st_size == size) {
    marks_.setEmptying(
        {static_cast<std::uint64_t>(size), static_cast<std::uint64_t>(attributes.st_ino)});
    if (std::rename(unfinished.c_str(), copy.c_str()) == 0 && !cleanFile()) {
      unlink(copy.c_str());  // else the next rotation would copy the same content once more
    }
  }
  unlink(unfinished.c_str());  // not there when all went well
  marks_.setEmptying({});
}

void LogTargetDefault::FinishRotation() {
  const LogFileMarks::Copy copy = marks_.emptying();
  if (copy.size == 0) return;
  // Without its name the copy does not count, and everything is in the file still. A file of
  // another size was emptied, or written to by a program that does not know of this.
  long long size = 0;
  if (HasCopy(file_path_, copy.inode, copy.size) && getFileSize(file_path_, size)) {
    if (static_cast<std::uint64_t>(size) == copy.size && cleanFile()) {
      SetStreamHandle(stream_);
      size = 0;
    }
    if (size == 0) marks_.setHeaderDue(true);
  }
  std::remove(UnfinishedCopy(file_path_).c_str());
  marks_.setEmptying({});
}

bool LogTargetDefault::IsOpenFile() const {
  struct stat attributes {};
  return stat(file_path_.c_str(), &attributes) == 0 && attributes.st_ino == file_inode_ &&
         attributes.st_dev == file_device_;
}

void LogTargetDefault::removeLogFilesExceptLastN(int n) {
  std::vector<std::string> dates;
  for (int day = 0; day < n; ++day) {
    std::string date;
    if (!getOffSetDate(date, -day)) return;
    dates.push_back(date);
  }
  if (dates.empty()) return;
  const LogFileNames log = NamesOf(file_path_);
  std::vector<std::string> names;
  platform::ListTree(log.folder, log.base, names);
  // What cannot be removed stays; the next rotation tries again.
  for (const std::string& name : ChooseWhatGoes(names, log, dates))
    platform::RemoveFromTree(log.folder, name);
}

}  // namespace tarn
