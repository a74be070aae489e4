#pragma once

#include <string>
#include <vector>

// Which of the rotated copies of a log file stay, as pure functions.
namespace tarn {

// The names of one log file: of "/logs/CRN.log" the folder is "/logs", the base "CRN", and the live
// file "CRN.log".
struct LogFileNames {
  std::string folder;
  std::string base;
  std::string live;
};

// Returns the names in an absolute path. Without an extension, the base is the live file's name.
LogFileNames NamesOf(const std::string& path);

// Selects the entries of the log's folder to remove, in the order in which to remove them. `names`
// are relative to the folder. `newest` is the name of the copy that the current rotation made, or
// empty: it always stays, because its name can look old after the clock was set back. Dates have
// the form of the copies' names, "2026-11-15".
// - An entry that begins with the base goes unless it is the live file, the newest copy, or begins
//   with the base, a space and one of `dates`. It need not be a copy in any other respect.
// - Of the others, one more stays than there are dates: the live file, the newest copy, and the
// last
//   ones in byte order.
// An entry that does not begin with the base stays.
std::vector<std::string> SelectCopiesToRemove(const std::vector<std::string>& names,
                                              const LogFileNames& log, const std::string& newest,
                                              const std::vector<std::string>& dates);

}  // namespace tarn
