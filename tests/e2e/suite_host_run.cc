#include "tests/e2e/suite_host_run.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "support/files.h"
#include "tests/support/addresses.h"
#include "tests/support/lock_objects.h"
#include "tests/support/virtual_display.h"

namespace {

ChildProcess::Options OptionsFor(const std::string& home,
                                 const SuiteHostRun::Environment& environment) {
  if (environment.prepare) environment.prepare(home);
  ChildProcess::Options options;
  options.error_file = home + "/stderr";
  options.write_input = true;
  options.environment = {
      {"DISPLAY", Display()},
      {"HOME", home},
      {"TMPDIR", home},
      {"XDG_CACHE_HOME", home},
      {"XDG_CONFIG_HOME", home},
      {"XDG_DATA_HOME", home},
      {"XDG_RUNTIME_DIR", home},
      // Without an address, the libraries would start a bus and leave it running.
      {"DBUS_SESSION_BUS_ADDRESS",
       environment.session_bus.empty() ? BusAddress(home + "/no-bus") : environment.session_bus},
  };
  return options;
}

std::vector<std::string> Command(const std::string& page, const std::vector<std::string>& options,
                                 const std::string& home,
                                 const std::string& service_configuration) {
  // Orphans of the browser become children of this process, so the destructor can wait for them.
  EXPECT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0), 0);
  const std::string root = home + "/root";
  std::filesystem::create_directory(root);
  std::vector<std::string> command = {
      OWN_ROOT, root, service_configuration.empty() ? "-" : service_configuration, SUITE_HOST};
  command.insert(command.end(), options.begin(), options.end());
  const bool has_query = page.find('?') != std::string::npos;
  const std::string path = std::string(E2E_PAGES) + "/" + page;
  command.push_back(has_query ? FileUrl(path, "?#&=,") : path);
  return command;
}

// Returns an empty string when the process has ended. When a process ends at this moment, its file
// can be opened but not read. Inserting the buffer treats this error as the end of the file; an
// iterator over the buffer would throw.
std::string ReadProcFile(const std::string& pid, const char* file) {
  const std::ifstream stream("/proc/" + pid + "/" + file);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

pid_t ToPid(const std::string& digits) {
  return static_cast<pid_t>(std::strtol(digits.c_str(), nullptr, 10));
}

// Reads the parent from /proc/PID/stat: the second field after the name, which is in parentheses.
pid_t ParentOf(const std::string& pid) {
  const std::string stat = ReadProcFile(pid, "stat");
  const auto name_end = stat.rfind(')');
  return name_end == std::string::npos ? -1 : ToPid(stat.substr(name_end + 4));
}

std::set<pid_t> ChildrenOf(pid_t parent) {
  std::set<pid_t> children;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (std::isdigit(static_cast<unsigned char>(name[0])) && ParentOf(name) == parent) {
      children.insert(ToPid(name));
    }
  }
  return children;
}

// Returns the value of the switch "type". Chromium joins the arguments of a child process with
// spaces.
std::string TypeOf(const std::string& command_line) {
  const auto begin = command_line.find("--type=");
  if (begin == std::string::npos) return {};
  const auto end = command_line.find_first_of(std::string(" \0", 2), begin);
  return command_line.substr(begin + 7, end - begin - 7);
}

}  // namespace

const std::string& Display() {
  static const VirtualDisplay display;
  return display.name();
}

SuiteHostRun::SuiteHostRun(const std::string& page, const std::vector<std::string>& options,
                           const Environment& environment)
    : others_((Display(), ChildrenOf(getpid()))),
      host_(Command(page, options, home_.path(), environment.service_configuration),
            OptionsFor(home_.path(), environment)) {}

SuiteHostRun::~SuiteHostRun() {
  Finish();
  // The children of a zygote become orphans when it ends.
  while (WaitForOrphans()) {
  }
  // Renderers end without detaching from the lock of their log.
  if (std::filesystem::exists(LogPath())) LockObjects(LogPath(), LockObjects::Keep{}).Remove();
}

bool SuiteHostRun::WaitForOrphans() const {
  bool found = false;
  for (const pid_t pid : ChildrenOf(getpid())) {
    if (others_.count(pid) != 0) continue;
    found = true;
    // An orphan of the browser ends by itself because its channel is closed. Otherwise the test
    // exceeds its time limit.
    while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  return found;
}

bool SuiteHostRun::ReadEvent() {
  std::string line;
  if (!host_.ReadLine(line)) return false;
  Event event = Event::parse(line, nullptr, false);
  EXPECT_FALSE(event.is_discarded()) << "not one JSON object: " << line;
  events_.push_back(std::move(event));
  return true;
}

SuiteHostRun::Event SuiteHostRun::WaitFor(const std::function<bool(const Event&)>& fits) {
  for (std::size_t next = 0;; ++next) {
    if (next == events_.size() && !ReadEvent()) return nullptr;
    if (fits(events_[next])) return events_[next];
  }
}

SuiteHostRun::Event SuiteHostRun::WaitForMessage(const std::string& name) {
  return WaitFor([&name](const Event& event) {
    return event.value("event", "") == "message" && event.value("name", "") == name;
  });
}

void SuiteHostRun::EndInput(const std::string& line) {
  host_.Write(line);
  host_.EndInput();
}

int SuiteHostRun::Finish() {
  while (ReadEvent()) {
  }
  return host_.Wait();
}

std::vector<SuiteHostRun::Event> SuiteHostRun::Messages(const std::string& name) const {
  std::vector<Event> arguments;
  for (const Event& event : events_) {
    if (event["event"] == "message" && event["name"] == name) arguments.push_back(event["args"]);
  }
  return arguments;
}

std::vector<std::string> SuiteHostRun::Errors() const {
  std::vector<std::string> texts;
  for (const Event& event : events_) {
    if (event["event"] == "error") texts.push_back(event["text"]);
  }
  return texts;
}

SuiteHostRun::Event SuiteHostRun::Message(const std::string& name) const {
  const std::vector<Event> all = Messages(name);
  EXPECT_EQ(all.size(), 1U) << "messages named " << name;
  return all.size() == 1 ? all[0] : Event();
}

std::string SuiteHostRun::ErrorOutput() const {
  std::ifstream file(home_.path() + "/stderr");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string SuiteHostRun::LogPath() const {
  return home_.path() + "/Library/Logs/Cirrane/CRN/CRN.log";
}

std::vector<std::string> SuiteHostRun::LogLines() const { return ReadLines(LogPath()); }

int SuiteHostRun::Count(const std::string& kind) const {
  return static_cast<int>(
      std::count_if(events_.begin(), events_.end(),
                    [&kind](const Event& event) { return event["event"] == kind; }));
}

std::multimap<std::string, pid_t> SuiteHostRun::Children() const {
  std::multimap<std::string, pid_t> children;
  for (const pid_t pid : ChildrenOf(host_.pid())) {
    const std::string type = TypeOf(ReadProcFile(std::to_string(pid), "cmdline"));
    if (!type.empty()) children.emplace(type, pid);
  }
  return children;
}

void SuiteHostRun::Kill() const { host_.Signal(SIGKILL); }
