#pragma once

namespace tarn {

// Lower is more verbose. A target writes a message whose level is at least its own; NONE as a
// target's level writes nothing. The numbers are part of the interface: callers outside of the
// library name levels by them. The type is fixed so that every other number can be passed as well.
enum Log_Level : int {
  TRACE = 10,
  DEBUG = 20,
  INFO = 30,
  WARN = 40,
  ERROR = 50,
  FATAL = 60,
  NONE = 70,
};

}  // namespace tarn
