// How a LogTargetDefault keeps its file small.

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
  header_pending_ = true;
  stream_.close();
  // Whichever process writes the next line into the empty file writes the header before it.
  if (MoveContentToCopy(size) && marks_.headerDue()) header_pending_ = false;
  const bool opened = SetStreamHandle(stream_);
  if (!keeps_all) removeLogFilesExceptLastN(kDays);
  return opened;
}

// The copy gets its name when it is complete, and the file is emptied after that. The mark tells a
// process that comes after one that was killed that the second is due: FinishRotation().
bool LogTargetDefault::MoveContentToCopy(long long size) {
  const std::string unfinished = UnfinishedCopy(file_path_);
  unlink(unfinished.c_str());  // what a process that was killed may have left
  std::string copy;
  bool moved = false;
  if (copyContentOfFileToNewFile(file_path_, unfinished) && NameOfCopy(file_path_, copy)) {
    marks_.setEmptying(static_cast<std::uint64_t>(size));
    if (std::rename(unfinished.c_str(), copy.c_str()) == 0) {
      moved = cleanFile();
      if (!moved) unlink(copy.c_str());  // else the next rotation would copy the same once more
    }
  }
  if (moved) marks_.setHeaderDue(true);
  unlink(unfinished.c_str());  // not there when all went well
  marks_.setEmptying(0);
  return moved;
}

void LogTargetDefault::FinishRotation() {
  const std::uint64_t copied = marks_.emptying();
  if (copied == 0) return;
  // Without its name the copy does not count, and everything is in the file still. A file of
  // another size was emptied, or written to by a program that does not know of this.
  std::string unfinished = UnfinishedCopy(file_path_);
  long long size = 0;
  if (!fileExistsAtPath(unfinished) && getFileSize(file_path_, size)) {
    if (static_cast<std::uint64_t>(size) == copied && cleanFile()) {
      SetStreamHandle(stream_);
      size = 0;
    }
    if (size == 0) marks_.setHeaderDue(true);
  }
  unlink(unfinished.c_str());
  marks_.setEmptying(0);
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
