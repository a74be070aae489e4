#pragma once

#include <string>
#include <vector>

// Pure functions that select which rotated copies of a log file stay.
namespace tarn {

// The names of one log file. For "/logs/CRN.log" the folder is "/logs", the base is "CRN", and the
// live file is "CRN.log".
struct LogFileNames {
  std::string folder;
  std::string base;
  std::string live;
};

// Returns the names for an absolute path. Without an extension, the base is the live file's name.
LogFileNames NamesOf(const std::string& path);

// Returns the entries of the log's folder to remove, in the order of removal. `names` are relative
// to the folder. `newest` is the name of the copy that the current rotation made, or empty. That
// copy always stays, because its name can look old after the clock was set back. Dates have the
// format of the copies' names, "2026-11-15".
//
// Entries that do not begin with the base stay, and so do the live file and the newest copy. Any
// other entry is removed unless it begins with the base, a space and one of `dates`; nothing else
// about it matters. Of the entries with such a date, only the last in byte order stay: together
// with the live file and the newest copy, at most one more entry stays than there are dates.
std::vector<std::string> SelectCopiesToRemove(const std::vector<std::string>& names,
                                              const LogFileNames& log, const std::string& newest,
                                              const std::vector<std::string>& dates);

}  // namespace tarn
