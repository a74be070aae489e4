#include "logging/retention.h"

#include <algorithm>

#include "logging/path_utils.h"
#include "platform/begins_with.h"

namespace tarn {

LogFileNames NamesOf(const std::string& path) {
  LogFileNames names;
  const std::size_t slash = path.rfind('/');
  names.folder = path.substr(0, slash);
  names.live = path.substr(slash + 1);
  names.base = names.live;
  removeFileExtension(names.base);
  return names;
}

std::vector<std::string> SelectCopiesToRemove(const std::vector<std::string>& names,
                                              const LogFileNames& log, const std::string& newest,
                                              const std::vector<std::string>& dates) {
  std::vector<std::string> removed;
  std::vector<std::string> copies;
  std::size_t kept = dates.size() + 1;
  for (const std::string& name : names) {
    if (!platform::BeginsWith(name, log.base)) continue;
    const bool is_recent = std::any_of(dates.begin(), dates.end(), [&](const std::string& date) {
      return platform::BeginsWith(name, log.base + " " + date);
    });
    if (name == log.live || name == newest) {
      if (kept > 0) --kept;
    } else {
      (is_recent ? copies : removed).push_back(name);
    }
  }
  std::sort(copies.begin(), copies.end());
  if (copies.size() > kept) {
    removed.insert(removed.end(), copies.begin(), copies.end() - static_cast<std::ptrdiff_t>(kept));
  }
  return removed;
}

}  // namespace tarn
