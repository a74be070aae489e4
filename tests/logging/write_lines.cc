// Writes lines of every length to FOLDER/test.log, the longest line first. Two calls of getppid()
// mark the beginning and the end of the lines after the longest one.

#include <unistd.h>
#include <string>

#include "logging/log_target_default.h"
#include "logging/logger.h"
#include "logging/logging_core.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  tarn::LogTargetDefault target("id");
  if (!target.setLogFile("test.log", argv[1])) return 1;
  if (!tarn::LoggingCore::getInstance()->registerTarget(&target)) return 1;
  tarn::Logger logger("id");
  const std::string text(20000, 'x');
  logger.warn(text.c_str(), "%s", text.c_str());
  getppid();
  for (int length = 0; length <= 4094; length += 13)
    logger.info("%.*s", length, text.c_str());
  for (int length = 0; length <= 20000; length += 1000)
    logger.warn(text.c_str() + text.size() - length, "%s", text.c_str());
  getppid();
  tarn::LoggingCore::getInstance()->unregisterTarget(&target);
  return 0;
}
