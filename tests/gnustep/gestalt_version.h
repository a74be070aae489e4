#pragma once

// Answers of a replacement for Gestalt(), which this system lacks.
struct GestaltAnswers {
  bool available = true;
  long long major = 10;
  long long minor = 9;
  long long patch = 5;
};

extern GestaltAnswers g_gestalt_answers;
