#include "tests/e2e/traced_helper.h"

#include <filesystem>

#include "support/files.h"

std::string WriteTracedHelper(const std::string& folder) {
  const std::string path = folder + "/helper";
  WriteFile(path,
            "#!/bin/sh\n"
            "exec strace -D -f --seccomp-bpf -e trace=exit_group -e signal=none "
            "-o \"${0%/*}/$$.trace\" '" HEX_HELPER "' \"$@\"\n");
  std::filesystem::permissions(path, std::filesystem::perms(0755));
  return path;
}
