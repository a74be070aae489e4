#include "logging/log_target_default.h"

#include <unistd.h>
#include <new>
#include <utility>

#include "logging/cancellation_block.h"
#include "logging/folder_utils.h"
#include "logging/line_format.h"
#include "logging/path_utils.h"
#include "logging/retention.h"
#include "logging/secret_masking.h"
#include "logging/text_utils.h"
#include "logging/time_utils.h"

namespace tarn {
namespace {

constexpr std::size_t kMessageSize = 4096;

// Other programs do not replace the file this often while this process follows its path.
constexpr int kAttempts = 10;

constexpr int kDaysToKeep = 2;

}  // namespace

LogTargetDefault::LogTargetDefault(const char* identifier)
    : LogTargetDefault(identifier, LogRotation::Limits{}) {}

LogTargetDefault::LogTargetDefault(const char* identifier, const LogRotation::Limits& limits)
    : rotation_(file_, state_, limits) {
  setIdentifier(identifier);
  initializeXMLTagNameList();
  initializeHeader();
}

bool LogTargetDefault::SetStreamHandle(std::fstream& stream) {
  if (&stream == &stream_) {
    const LogFileLock::ThreadScope threads(lock_);
    return file_.Open(file_path_);
  }
  bool readable = false;
  return OpenLogStream(file_path_, stream, readable);
}

bool LogTargetDefault::SetStreamPath(const char* fileName) {
  std::string path;
  if (!fileName || !getTempPath(path) || !appendPath(path, fileName)) return false;
  file_path_ = path;
  return true;
}

bool LogTargetDefault::onRegisterTarget() {
  if (!valid_) return false;
  const CancellationBlock block;
  try {
    if (file_path_.empty() && !SetStreamPath(file_name_.c_str())) return false;
    if (!SetStreamHandle(stream_)) return false;
    lock_.Create(file_path_);
    Scope scope(lock_);
    timeval now{};
    getCurrentTime(now);  // fails only for a bad address
    const auto second = static_cast<unsigned long long>(now.tv_sec);
    line_writer_.set_last_log_time(second);
    rotation_.RequestCheck();
    if (AttachToFile(scope) && RotateFile(scope)) rotation_.SetChecked(second);
  } catch (const std::bad_alloc&) {
    return false;
  }
  registered_ = true;
  return true;
}

bool LogTargetDefault::onUnregisterTarget() {
  const LogFileLock::ThreadScope threads(lock_);
  const CancellationBlock block;
  file_.Close();
  state_.Detach();
  lock_.Discard();
  registered_ = false;
  return true;
}

bool LogTargetDefault::writeLog(Log_Level level, const char* sessionId, const char* domain,
                                const char* subDomain, const char* component, const char* detail1,
                                const char* detail2, const char* format, va_list args,
                                unsigned long long timestampMs, bool useLock) {
  if (level_ > level) return true;
  char text[kMessageSize];
  const char* message = format;
  if (args) {
    // A failed conversion ends the message, and the text before it is logged. The text is
    // terminated even after a failure, because the formatter never uses the last byte.
    text[0] = text[sizeof text - 1] = '\0';
    getLogMessage(text, sizeof text, format, args);
    message = text;
  }
  try {
    Write({timestampMs, level, sessionId, domain, subDomain, component, detail1, detail2,
           message ? message : ""},
          useLock);
  } catch (const std::bad_alloc&) {
    // The message is dropped.
  }
  return true;
}

bool LogTargetDefault::logHeader(Log_Level level, const char* sessionId, const char* domain,
                                 const char* subDomain, const char* component, stLogHeader* header,
                                 bool useLock) {
  try {
    Scope scope = Lock(useLock);
    if (header && header->merge) MergeHeader(*header, header_);
    if (!scope.held() || (useLock && !PrepareFile(scope))) return true;
    WriteHeader(scope, {0, level, sessionId, domain, subDomain, component, "", "", ""},
                header && !header->merge ? *header : header_);
  } catch (const std::bad_alloc&) {
    // The rest of the lines is dropped.
  }
  return true;
}

// The functions that every line runs around its system calls are inline; log_file_lock.h gives the
// reason.
inline LogTargetDefault::Scope LogTargetDefault::Lock(bool use_lock) {
  return use_lock ? Scope(lock_) : Scope(lock_, LogFileLock::HeldByCaller{});
}

inline void LogTargetDefault::Write(const LogRecord& record, bool use_lock) {
  Scope scope = Lock(use_lock);
  if (!scope.held() || (use_lock && !PrepareFile(scope))) return;
  if (state_.header_due()) {
    logHeader(INFO, record.session_id, record.domain, record.sub_domain, record.component, nullptr,
              false);
  }
  WriteLine(scope, record);
}

// The header stays due until all of it is in the file: if this process is killed or cannot write,
// the next writer writes the header. A target that drops lines of this level also clears the state,
// because a header belongs only before the first line of a file.
void LogTargetDefault::WriteHeader(const Scope& scope, const LogRecord& columns,
                                   const stLogHeader& header) {
  if (level_ <= columns.level) {
    LogRecord record = columns;
    for (const std::string& line : HeaderLines(header)) {
      record.message = line;
      WriteLine(scope, record);
    }
  }
  if (file_.good()) state_.SetHeaderDue(scope, false);
}

inline void LogTargetDefault::WriteLine(const Scope& scope, const LogRecord& record) {
  // Moves the memory out of line_, because an override of WriteStream() may call this function
  // again with a line of its own.
  std::string line = std::move(line_);
  line_writer_.Format(record, separator_, line);
  if (file_.EndTornLine(scope, state_.may_be_torn())) {
    state_.SetWriting(scope, true);
    WriteStream(line.c_str());
    // If the file is bad, the line may be torn, and the next writer checks the end of the file.
    if (file_.good()) state_.SetWriting(scope, false);
  }
  line_ = std::move(line);
}

void LogTargetDefault::WriteStream(const char* line) { file_.Append(line); }

inline bool LogTargetDefault::PrepareFile(Scope& scope) {
  // setLogFile() changed the file, or its lock is available only now.
  const bool is_new = file_.good() && !state_.IsOf(file_.identity());
  if (!is_new && !rotation_.NeedsRecovery() &&
      !rotation_.IsCheckDue(line_writer_.last_log_time())) {
    return true;
  }
  return UpdateFile(scope, is_new);
}

bool LogTargetDefault::UpdateFile(Scope& scope, bool is_new) {
  const CancellationBlock block;
  const unsigned long long last = line_writer_.last_log_time();
  if (is_new) {
    AttachToFile(scope);
  } else if (rotation_.NeedsRecovery()) {
    rotation_.Recover(scope);
  }
  if (scope.held() && rotation_.IsCheckDue(last) && CheckFile(scope)) rotation_.SetChecked(last);
  return scope.held();
}

// Another process may have renamed the file while this process opened it or waited for its lock.
// The file at the path then has other writers with another lock. The path is checked with the lock
// held, because the key of the lock is derived from the path as well.
bool LogTargetDefault::AttachToFile(Scope& scope) {
  for (int attempt = 0; !file_.good() || !file_.IsAtPath(); ++attempt) {
    rotation_.RequestCheck();  // the next line tries again when this fails
    if (attempt == kAttempts) file_.Close();
    if (attempt == kAttempts || !scope.can_move()) return false;
    std::string path = file_.path();  // before a change: memory can be short
    if (!file_.Open(path)) return false;
    scope.MoveTo(std::move(path));
  }
  if (!scope.held()) return false;
  state_.Attach(scope, file_);
  rotation_.Recover(scope);
  return true;
}

bool LogTargetDefault::CheckFile(Scope& scope) {
  if (!file_.good() || !file_.IsAtPath() || !state_.is_shared()) {
    if (!AttachToFile(scope)) return false;
  } else if (state_.rotating()) {
    rotation_.Recover(scope);
  }
  return RotateFile(scope);
}

bool LogTargetDefault::RotateFile(Scope& scope) {
  const LogRotation::Result result = rotation_.Rotate(scope, level_);
  if (result == LogRotation::Result::kNoSize) return false;
  if (result == LogRotation::Result::kSmall) return true;
  const bool opened = result == LogRotation::Result::kMoved ? AttachToFile(scope) : file_.Reopen();
  if (opened && !KeepsAllCopies(NamesOf(file_.path()).folder)) {
    rotation_.RemoveOldCopies(scope, kDaysToKeep);
  }
  return opened;
}

bool LogTargetDefault::cleanFile() {
  file_.Close();
  std::fstream stream;
  bool readable = false;
  return OpenLogStream(file_path_, stream, readable) && truncate(file_path_.c_str(), 0) == 0;
}

bool LogTargetDefault::SegmentLogFile(bool /*unused*/) {
  Scope scope = Lock(false);
  return RotateFile(scope);
}

void LogTargetDefault::removeLogFilesExceptLastN(int n) {
  rotation_.RemoveOldCopies(Lock(false), n);
}

void LogTargetDefault::initializeHeader() {
  stLogHeader header = DescribeSystem();
  MergeHeader(header_, header);
  header_ = std::move(header);
}

void LogTargetDefault::initializeXMLTagNameList() {
  line_writer_.AddSecretElements(SecretElementNames());
}

void LogTargetDefault::hideDataOfXMLTag(const char* message, std::string& masked) {
  MaskElements(message ? message : "", line_writer_.secret_elements(), masked);
}

void LogTargetDefault::hideDataOfXMLTagHelper(std::string& text, const int& openPos,
                                              const int& closePos, const int& openLen) {
  MaskBetween(text, static_cast<std::size_t>(openPos), static_cast<std::size_t>(closePos),
              static_cast<std::size_t>(openLen));
}

std::string LogTargetDefault::getLogLevelString(Log_Level level) const { return LevelName(level); }

int LogTargetDefault::getTimeStr(unsigned long long timestampMs, char* buffer) {
  return line_writer_.FormatTime(timestampMs, buffer);
}

std::string LogTargetDefault::getCurrentThreadID() const { return line_writer_.ThreadId(); }

void LogTargetDefault::formatLog(unsigned long long timestampMs, Log_Level level,
                                 const char* sessionId, const char* domain, const char* subDomain,
                                 const char* component, const char* detail1, const char* detail2,
                                 const char* message, std::string& line) {
  line_writer_.Format({timestampMs, level, sessionId, domain, subDomain, component, detail1,
                       detail2, message ? message : ""},
                      separator_, line);
}

}  // namespace tarn
