#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

// Returns the X display that all runs of a test program share, as a value of DISPLAY.
const std::string& Display();

// Runs the example browser, a real Chromium, with a page. Each run has its own home folder, root
// folder and temporary folder; all runs share a display. The destructor waits until every process
// that Chromium started has ended.
class SuiteHostRun {
 public:
  using Event = nlohmann::json;

  struct Environment {
    // Called with the path of the run's home folder before the start, unless it is null.
    std::function<void(const std::string& home)> prepare = nullptr;
    // The address of the session bus; empty for a run without a bus.
    std::string session_bus = {};
    // A file that serves as the run's service configuration; empty for a run without one. The
    // system must allow processes to have their own root folder.
    std::string service_configuration = {};
  };

  // `page` is the name of a file in tests/e2e/pages/, optionally with a query. `options` precede it
  // on the command line.
  explicit SuiteHostRun(const std::string& page, const std::vector<std::string>& options = {})
      : SuiteHostRun(page, options, Environment{}) {}
  SuiteHostRun(const std::string& page, const std::vector<std::string>& options,
               const Environment& environment);
  SuiteHostRun(const SuiteHostRun&) = delete;
  SuiteHostRun& operator=(const SuiteHostRun&) = delete;
  ~SuiteHostRun();

  // Returns the first event of the run that fits, and waits for it if necessary; null when the
  // output ends before.
  Event WaitFor(const std::function<bool(const Event&)>& fits);
  Event WaitForMessage(const std::string& name);

  // Writes a line to the browser's standard input.
  void Write(const std::string& line) const { host_.Write(line + "\n"); }
  // Writes a last line without its newline, and closes the browser's standard input.
  void EndInput(const std::string& line = {});

  // Reads the remaining events and returns the browser's exit status.
  int Finish();

  // The events read so far, in order.
  const std::vector<Event>& events() const { return events_; }
  // Returns the arguments of each message with this name, in order of arrival.
  std::vector<Event> Messages(const std::string& name) const;
  // Returns the text of each "error" event, in order.
  std::vector<std::string> Errors() const;
  // Returns the arguments of the only message with this name. The test fails unless there is
  // exactly one.
  Event Message(const std::string& name) const;
  // Returns the standard error output of the browser and its child processes.
  std::string ErrorOutput() const;
  const std::string& home() const { return home_.path(); }
  // Returns the lines of the helper's log.
  std::vector<std::string> LogLines() const;
  // Returns the number of events of a kind, such as "load" or "message".
  int Count(const std::string& kind) const;

  // Returns the browser's running child processes by the value of their switch "type".
  std::multimap<std::string, pid_t> Children() const;
  // Kills the browser.
  void Kill() const;

 private:
  bool ReadEvent();
  // Waits for processes of the browser that have become children of this process. Returns whether
  // any existed.
  bool WaitForOrphans() const;
  std::string LogPath() const;

  const TemporaryFolder home_;
  const std::set<pid_t> others_;  // child processes that existed before the start
  ChildProcess host_;
  std::vector<Event> events_;
};
