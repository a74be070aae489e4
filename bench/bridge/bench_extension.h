#pragma once

#include "bench/bridge/bench_app_handler.h"

// Gives every page the script object `bench`:
//
//   bench.bounce(count, list)   exchanges `count` messages bench.echo with the host natively; the
//                               list is converted once, before the time begins
//   bench.burst(count)          sends `count` messages with empty lists natively
//   bench.receive(count)        asks the host for `count` messages with empty lists, takes them
//                               natively
//   bench.convert(what, array)  converts an array of integers; see TimeConversion()
//
// The first three report by a message bench.finished, the last returns milliseconds.
void RegisterBenchExtension(CefRefPtr<BenchAppHandler> application);
