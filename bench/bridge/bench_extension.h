#pragma once

#include "bench/bridge/bench_app_handler.h"

// Gives every page the script object `bench`:
//
//   bench.bounce(count, list)   exchanges `count` messages bench.echo with the host natively;
//                               converts the list once, before the measurement begins
//   bench.burst(count)          sends `count` messages with empty lists natively
//   bench.receive(count)        requests `count` messages with empty lists from the host, and
//                               receives them natively
//   bench.convert(what, array)  converts an array of integers; see TimeConversion()
//
// The first three functions report by a message bench.finished. bench.convert() returns
// milliseconds.
void RegisterBenchExtension(CefRefPtr<BenchAppHandler> application);
