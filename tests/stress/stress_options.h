#pragma once

// Whether the program was started with --full. Without it the tests take a few seconds.
bool FullSize();

// What a test found, for who runs it by hand: one line of its report.
void PrintFigure(const char* format, ...) __attribute__((format(printf, 1, 2)));
