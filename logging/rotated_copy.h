#pragma once

#include <sys/stat.h>
#include <string>

// The copies of a log file. A copy is made under a hidden name, which no reader and no retention
// takes for a log, and gets its name, such as "CRN 2026-11-15 21-05-07.log", when it is complete.
//
// The caller must hold the lock of the log. None of these functions replaces an existing file.
namespace tarn {

// Returns the hidden path of an unfinished copy of the log at `path`, in the same folder.
std::string UnfinishedCopy(const std::string& path);

// Copies the open file `log` from its beginning to a new file at `unfinished`, with the same mode,
// and waits until the copy is on the disk. False when the copy is not complete; a part of it can be
// at `unfinished` then.
bool MakeUnfinishedCopy(int log, const std::string& unfinished);

// Gives the file at `unfinished` the name of a copy made now of the log at `path`: the local time
// is put between the name and its extension, if any. Where that name is taken, "_002" follows the
// time, and so on: such names sort in the order of the copies. `copy` becomes the new path. False
// when the file keeps its hidden name.
bool NameCopy(const std::string& unfinished, const std::string& path, std::string& copy);

enum class Beginning { kSame, kDifferent, kUnknown };
// Compares the beginning of the open file `log` with all that is in the open file `copy`. Returns
// kUnknown after a reading error.
Beginning CompareBeginning(int log, int copy);

// Returns whether a file at the hidden path that this user may not read was never complete: a new
// copy is private until all of its content is in it, and its log is emptied after that.
bool IsPartOfLog(const struct stat& unfinished, const struct stat& log);

// Makes the hidden path free of something that is not a regular file. What cannot be removed, such
// as a folder with files, gets another hidden name.
void ClearUnfinishedPath(const std::string& unfinished);

}  // namespace tarn
