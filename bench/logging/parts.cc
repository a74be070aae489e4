// Measures parts of the log: masking secrets in a message, compared with writing the whole line,
// and rotating a file, compared with a bare copy.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "logging/log_target_default.h"
#include "logging/secret_masking.h"

namespace {

constexpr std::size_t kSegment = 10 << 20;
// This number of the longest lines makes a file of 80 MB.
constexpr benchmark::IterationCount kLines = 20000;

void Expect(bool good, const char* what) {
  if (good) return;
  std::perror(what);
  std::exit(1);
}

class Folder {
 public:
  Folder() {
    // mkdtemp() replaces the end of the name.
    path_ = std::filesystem::temp_directory_path() / "bench-logging-XXXXXX";
    Expect(mkdtemp(path_.data()) != nullptr, "mkdtemp");
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// The text in the middle of a message.
const char* const kKinds[] = {"", "<password>secret</password>", "eyJhbGci.eyJzdWIi"};
const char* const kKindNames[] = {"plain", "element", "token"};

std::string Message(const benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  const std::string text = "Loaded the page of the user's choice in 120 ms; ";
  std::string message;
  while (message.size() < length)
    message += text;
  message.resize(length);
  const std::string secret = kKinds[state.range(1)];
  return message.replace((length - secret.size()) / 2, secret.size(), secret);
}

void Name(benchmark::State& state) { state.SetLabel(kKindNames[state.range(1)]); }

void Mask(benchmark::State& state) {
  const std::string message = Message(state);
  std::string buffer;
  for ([[maybe_unused]] const auto step : state)
    benchmark::DoNotOptimize(tarn::MaskSecrets(message, tarn::SecretElementNames(), buffer));
  Name(state);
}

// Without arguments, the format is the message.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
void Line(benchmark::State& state) {
  const Folder folder;
  tarn::LogTargetDefault target("bench");
  Expect(target.setLogFile("bench.log", folder.path().c_str()) && target.onRegisterTarget(),
         "the log file");
  const std::string message = Message(state);
  for ([[maybe_unused]] const auto step : state) {
    target.writeLog(tarn::INFO, "4242", "HXPL", "Bench", "Worker", "", "", message.c_str(), nullptr,
                    0, true);
  }
  target.onUnregisterTarget();
  Name(state);
}
#pragma GCC diagnostic pop

// Fills a file and writes it to the disk, where most of a log is when it is rotated.
void Fill(const std::string& path) {
  std::ofstream(path, std::ios::binary) << std::string(kSegment, '\n');
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  Expect(fsync(file) == 0 && close(file) == 0, "filling");
}

template <typename Work>
void TimeOnce(benchmark::State& state, const Work& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  state.SetIterationTime(seconds.count());
}

void Rotate(benchmark::State& state) {
  const Folder folder;
  tarn::LogTargetDefault target("bench");
  Expect(target.setLogFile("bench.log", folder.path().c_str()) && target.onRegisterTarget(),
         "the log file");
  const bool keeps_all = state.range(0) == 0;
  if (keeps_all) std::ofstream(folder.path() + "/pvx.trace") << "keeplogs";
  for ([[maybe_unused]] const auto step : state) {
    Fill(folder.path() + "/bench.log");
    TimeOnce(state, [&] { Expect(target.SegmentLogFile(true), "rotating"); });
  }
  target.onUnregisterTarget();
  state.SetLabel(keeps_all ? "all copies stay" : "the oldest copy goes");
}

// Copies a file, and with argument 1 also empties it, as a rotation must.
void BareCopy(benchmark::State& state) {
  const Folder folder;
  const std::string path = folder.path() + "/bench.log";
  int number = 0;
  for ([[maybe_unused]] const auto step : state) {
    Fill(path);
    const std::string copy = folder.path() + "/copy" + std::to_string(number++ % 3);
    std::filesystem::remove(copy);
    TimeOnce(state, [&] {
      const int from = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      const int to = open(copy.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
      ssize_t copied = 1;
      while (copied > 0)
        copied = copy_file_range(from, nullptr, to, nullptr, kSegment, 0);
      Expect(copied == 0 && close(to) == 0 && close(from) == 0, "copying");
      if (state.range(0) != 0) Expect(truncate(path.c_str(), 0) == 0, "truncate");
    });
  }
  state.SetLabel(state.range(0) != 0 ? "emptied" : "kept");
}

void OfEachMessage(benchmark::internal::Benchmark* measured) {
  measured->ArgsProduct({{100, 1000, 4000}, {0, 1, 2}});
}

BENCHMARK(Mask)->Apply(OfEachMessage);
BENCHMARK(Line)->Apply(OfEachMessage)->Iterations(kLines);
BENCHMARK(Rotate)->Arg(0)->Arg(1)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(BareCopy)->Arg(0)->Arg(1)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
