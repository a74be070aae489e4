#pragma once

// What stands in for the answers of macOS' configuration service, which this system does not have.
struct GestaltAnswers {
  bool told = true;
  long long major = 10;
  long long minor = 9;
  long long patch = 5;
};

extern GestaltAnswers g_gestalt_answers;
