#pragma once

#include <string>

// Creates an empty folder in the system's temporary folder, or aborts. The destructor removes the
// folder with all of its contents, and ignores failures.
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
