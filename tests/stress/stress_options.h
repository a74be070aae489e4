#pragma once

// Returns whether the program was started with --full. Without --full the tests take a few seconds.
bool FullSize();

// Prints one line of a test's report, for manual runs.
void PrintFigure(const char* format, ...) __attribute__((format(printf, 1, 2)));
