#include "tests/support/temporary_folder.h"

#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

TemporaryFolder::TemporaryFolder()
    : path_((std::filesystem::temp_directory_path() / "hexhelper-test-XXXXXX").string()) {
  if (!mkdtemp(path_.data())) {
    std::perror("mkdtemp");
    std::abort();
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;  // a failure leaves the folder behind
  std::filesystem::remove_all(path_, ignored);
}
