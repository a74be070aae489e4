#pragma once

#include "logging/log_target_default.h"

// A log target with other rotation limits than the product's.
class LimitedTarget : public tarn::LogTargetDefault {
 public:
  LimitedTarget(const char* identifier, const tarn::LogRotation::Limits& limits)
      : LogTargetDefault(identifier, limits) {}
};
