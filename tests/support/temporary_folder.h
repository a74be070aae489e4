#pragma once

#include <string>

// A new empty folder under the system's temporary folder, removed with all that is in it at the end
// of its life.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  // Absolute, without a slash at the end.
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};
