#pragma once

#include <cstdint>
#include <string>

#include "logging/log_level.h"

// How a log file that has grown large becomes a copy with a date in its name.
namespace tarn {

// The size, in bytes, from which on a log of that level is rotated: the more a level writes, the
// more of it is of use in one file.
long long SegmentSize(Log_Level level);

// Whether the marker file "pvx.trace" in the log's folder says that no copy is ever removed: it
// holds "keeplogs" and nothing else, not even a newline.
bool KeepsAllCopies(const std::string& folder);

// Where a copy of `path` is made until it is complete: in the same folder, under a name that no
// copy has.
std::string UnfinishedCopy(const std::string& path);

// The name of a copy made now, as "CRN 2026-11-15 21-05-07.log". Where that is taken, since two
// copies were made in a second or the clock was set back, "_002" follows the time, and so on: such
// names sort in the order of the copies, too. False when the path has no extension, or all names
// are taken.
bool NameOfCopy(const std::string& path, std::string& copy);

// Whether a copy of `path` is there under its name: the file with that inode, and of that size in
// bytes.
bool HasCopy(const std::string& path, std::uint64_t inode, std::uint64_t size);

}  // namespace tarn
