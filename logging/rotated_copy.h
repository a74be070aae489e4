#pragma once

#include <sys/stat.h>
#include <string>

// Creates and names the copies of a log file. An unfinished copy has a hidden name, which neither
// readers nor retention take for a log. A complete copy gets its final name, such as
// "CRN 2026-11-15 21-05-07.log".
//
// The caller must hold the lock of the log. None of these functions replaces an existing file.
namespace tarn {

// Returns the hidden path of an unfinished copy of the log at `path`, in the same folder.
std::string UnfinishedCopy(const std::string& path);

// Copies the open file `log`, whose position must be at its beginning, to a new file at
// `unfinished` with the same mode, and waits until the copy is on the disk. Advances the position
// of `log`. Returns false when the copy is not complete; `unfinished` may then contain a part of
// it. An existing file at `unfinished` does not change.
bool MakeUnfinishedCopy(int log, const std::string& unfinished);

// Renames the file at `unfinished` to the name of a copy made now of the log at `path`, with the
// local time before the extension, if any. If that name exists, "_002" and so on follow the time;
// such names sort in the order of the copies. Sets `copy` to the new path. Returns false and does
// not change `copy` when the file keeps its hidden name.
bool NameCopy(const std::string& unfinished, const std::string& path, std::string& copy);

enum class Beginning { kSame, kDifferent, kUnknown };
// Compares the beginning of the open file `log` with the whole content of the open file `copy`.
// Returns kDifferent when `log` is shorter, and kUnknown after a read error.
Beginning CompareBeginning(int log, int copy);

// Returns whether the file at the hidden path, which this user may not read, was never complete, so
// that the log still contains all of it. The arguments are the attributes of the files. A new copy
// is private until it contains the whole content, and the log is emptied only after that. Returns
// false if the log itself is private, because its complete copy is then private as well.
bool IsPartOfLog(const struct stat& unfinished, const struct stat& log);

// Removes the entry at the hidden path. The entry must not be a regular file. An entry that cannot
// be removed, such as a folder with files, gets another hidden name.
void ClearUnfinishedPath(const std::string& unfinished);

}  // namespace tarn
