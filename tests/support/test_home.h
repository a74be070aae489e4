#pragma once

#include <string>

#include "tests/support/temporary_folder.h"

// Sets an environment variable, or removes it if `value` is null. The destructor restores the
// variable.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value);
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable();

 private:
  const char* const name_;
  bool was_set_ = false;
  std::string former_;
};

// Sets HOME to a new folder, and makes the session bus unavailable, during the life of the object.
class TestHome {
 public:
  TestHome();

  const std::string& path() const { return folder_.path(); }
  // The user's log folder in it, which the library creates.
  std::string logs() const { return path() + "/Library/Logs"; }
  // The folder of the suite's logs in logs(), and the helper's log.
  std::string suite_logs() const { return logs() + "/Cirrane/CRN"; }
  std::string helper_log() const { return suite_logs() + "/CRN.log"; }

 private:
  TemporaryFolder folder_;
  ScopedVariable variable_;
  ScopedVariable bus_;  // a path without a listener
};
