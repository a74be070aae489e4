#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

// The X display that serves all runs of a test program, for the environment variable DISPLAY.
const std::string& Display();

// One run of the example browser with a page: a real Chromium, started with a home folder, a root
// folder, a temporary folder and a display of its own. When the object goes, every process that
// Chromium started has ended, or the test fails.
class SuiteHostRun {
 public:
  using Event = nlohmann::json;

  struct Surroundings {
    // Called with the path of the run's home folder, before the start; null for nothing to do.
    std::function<void(const std::string& home)> prepare = nullptr;
    std::string session_bus = {};  // its address; empty: none
    // A file that the run sees as the service configuration; empty: none. The system has to allow
    // processes a root folder of their own.
    std::string service_configuration = {};
  };

  // `page` is the name of a file in tests/e2e/pages/, with a query if need be; `options` go before
  // it on the command line.
  explicit SuiteHostRun(const std::string& page, const std::vector<std::string>& options = {})
      : SuiteHostRun(page, options, Surroundings{}) {}
  SuiteHostRun(const std::string& page, const std::vector<std::string>& options,
               const Surroundings& surroundings);
  SuiteHostRun(const SuiteHostRun&) = delete;
  SuiteHostRun& operator=(const SuiteHostRun&) = delete;
  ~SuiteHostRun();

  // Reads events up to the first one that fits, and returns it; null when there is none.
  Event WaitFor(const std::function<bool(const Event&)>& fits);
  Event WaitForMessage(const std::string& name);

  // Writes a line to the browser's standard input.
  void Write(const std::string& line) const { host_.Write(line + "\n"); }
  // Writes a last line without its newline, and closes the browser's standard input.
  void EndInput(const std::string& line = {});

  // Reads to the end. Returns the exit status of the browser.
  int Finish();

  // All events that were read so far, in order.
  const std::vector<Event>& events() const { return events_; }
  // The arguments of each message of that name, in order of arrival.
  std::vector<Event> Messages(const std::string& name) const;
  // The text of each event "error", in order.
  std::vector<std::string> Errors() const;
  // The arguments of the one message of that name; a failure of the test when it is not one.
  Event Message(const std::string& name) const;
  // What the browser and its child processes wrote to standard error.
  std::string ErrorOutput() const;
  const std::string& home() const { return home_.path(); }
  // The lines of the helper's log.
  std::vector<std::string> LogLines() const;
  // How many events of a kind ("load", "message" and so on) there were.
  int Count(const std::string& kind) const;

  // The browser's child processes that run now, by the value of the switch "type".
  std::multimap<std::string, pid_t> Children() const;
  // Ends the browser at once.
  void Kill() const;

 private:
  bool ReadEvent();
  // Those of the browser's processes that have become this one's children. Whether there were any.
  bool WaitForOrphans() const;
  std::string LogPath() const;

  const TemporaryFolder home_;
  const std::set<pid_t> others_;  // the test's child processes of before the start
  ChildProcess host_;
  std::vector<Event> events_;
};
