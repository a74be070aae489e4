#pragma once

#include <string>
#include <vector>

// Which of the rotated copies of a log file stay. Nothing but the arguments decides.
namespace tarn {

// The names of one log file: of "/logs/CRN.log" the folder is "/logs", the base "CRN", and the live
// file "CRN.log".
struct LogFileNames {
  std::string folder;
  std::string base;
  std::string live;
};

// Of an absolute path. A file without an extension has none here either.
LogFileNames NamesOf(const std::string& path);

// Chooses from what is in the folder, given as names relative to it, what has to go, in the order
// in which it goes:
// - whatever begins with the base and is neither the live file nor begins with the base, a space
// and
//   one of `dates`, however much else it may be;
// - of the rest, together with the live file, the first in byte order, until only as many are left
//   as there are dates, and one more. The live file counts as the last one, where it sorts anyway
//   if it has an extension.
// What does not begin with the base stays. Dates are in the form of the copies' names,
// "2026-11-15".
std::vector<std::string> ChooseWhatGoes(const std::vector<std::string>& names,
                                        const LogFileNames& log,
                                        const std::vector<std::string>& dates);

}  // namespace tarn
