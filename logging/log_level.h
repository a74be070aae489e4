#pragma once

// Many builds define one of these names as a macro, most often DEBUG. Such a macro keeps its value
// in the program that includes this header. The program then passes the level as a number:
// static_cast<tarn::Log_Level>(20).
#pragma push_macro("TRACE")
#pragma push_macro("DEBUG")
#pragma push_macro("INFO")
#pragma push_macro("WARN")
#pragma push_macro("ERROR")
#pragma push_macro("FATAL")
#pragma push_macro("NONE")
#undef TRACE
#undef DEBUG
#undef INFO
#undef WARN
#undef ERROR
#undef FATAL
#undef NONE

namespace tarn {

// Lower levels are more verbose. A target writes messages whose level is at least its own; a target
// with the level NONE writes nothing. The numbers are part of the interface: callers outside of the
// library use them. The fixed underlying type allows any other number as well.
enum Log_Level : int {
  TRACE = 10,
  DEBUG = 20,
  INFO = 30,
  WARN = 40,
  ERROR = 50,
  FATAL = 60,
  NONE = 70,
};

// The level of a new target.
constexpr Log_Level kDefaultLogLevel = INFO;

}  // namespace tarn

#pragma pop_macro("TRACE")
#pragma pop_macro("DEBUG")
#pragma pop_macro("INFO")
#pragma pop_macro("WARN")
#pragma pop_macro("ERROR")
#pragma pop_macro("FATAL")
#pragma pop_macro("NONE")
