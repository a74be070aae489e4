#include "tests/support/captured_log.h"

#include <cstdarg>
#include <cstdio>
#include <tuple>

#include "utils/log_route.h"

namespace {

std::vector<CapturedMessage> g_messages;

__attribute__((format(printf, 6, 7))) int Capture(int level, const char* module,
                                                  const char* component, const char* ignored,
                                                  const char* detail, const char* format, ...) {
  char text[4096];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  g_messages.push_back({level, module, component, ignored, detail, text});
  return 0;
}

auto Tied(const CapturedMessage& message) {
  return std::tie(message.level, message.module, message.component, message.ignored, message.detail,
                  message.text);
}

}  // namespace

bool CapturedMessage::operator==(const CapturedMessage& other) const {
  return Tied(*this) == Tied(other);
}

std::ostream& operator<<(std::ostream& stream, const CapturedMessage& message) {
  return stream << message.level << " [" << message.module << "] [" << message.component << "] ["
                << message.ignored << "] [" << message.detail << "] " << message.text;
}

CapturedLog::CapturedLog() {
  g_messages.clear();
  TarnUtils::SetLogger(reinterpret_cast<void*>(Capture), nullptr);
}

CapturedLog::~CapturedLog() { TarnUtils::SetLogger(nullptr, nullptr); }

const std::vector<CapturedMessage>& CapturedLog::messages() const { return g_messages; }

std::vector<std::string> CapturedLog::Lines() const {
  std::vector<std::string> lines;
  for (const CapturedMessage& message : g_messages) {
    lines.push_back(std::to_string(message.level) + " " + message.text);
  }
  return lines;
}
