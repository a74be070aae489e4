#include "bench/bridge/conversion_timing.h"

#include <chrono>
#include <cstddef>

#include "bridge/value_conversion.h"

namespace {

// Does not use Google Benchmark, whose loop would have to run in a script context of a renderer.
// The result of interest is the ratio of two conversions that take turns.
template <class Work>
double Milliseconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

void StoreIntegers(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list) {
  const int count = array->GetArrayLength();
  for (int i = 0; i < count; ++i) {
    CefRefPtr<CefV8Value> element = array->GetValue(i);
    if (element && element->IsInt())
      list->SetInt(static_cast<std::size_t>(i), element->GetIntValue());
  }
}

void StoreIntegersSized(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list) {
  list->SetSize(static_cast<std::size_t>(array->GetArrayLength()));
  StoreIntegers(array, list);
}

void CreateIntegers(const CefRefPtr<CefListValue>& list, const CefRefPtr<CefV8Value>& array) {
  const std::size_t count = list->GetSize();
  for (std::size_t i = 0; i < count; ++i) {
    if (list->GetType(i) != VTYPE_INT) continue;
    array->SetValue(static_cast<int>(i), CefV8Value::CreateInt(list->GetInt(i)));
  }
}

template <class Conversion>
double TimeToList(const CefRefPtr<CefV8Value>& array, Conversion conversion) {
  CefRefPtr<CefListValue> list = CefListValue::Create();
  if (!list) return -1;
  return Milliseconds([&] { conversion(array, list); });
}

template <class Conversion>
double TimeToArray(const CefRefPtr<CefV8Value>& array, Conversion conversion) {
  CefRefPtr<CefListValue> list = CefListValue::Create();
  CopyV8ArrayToList(array, list);
  CefRefPtr<CefV8Value> copy = CefV8Value::CreateArray(array->GetArrayLength());
  if (!list || !copy) return -1;
  return Milliseconds([&] { conversion(list, copy); });
}

}  // namespace

double TimeConversion(const std::string& what, const CefRefPtr<CefV8Value>& array) {
  if (what == "toList") {
    return TimeToList(array, [](const auto& from, const auto& to) { CopyV8ArrayToList(from, to); });
  }
  if (what == "toListCalls") return TimeToList(array, StoreIntegers);
  if (what == "toListSized") return TimeToList(array, StoreIntegersSized);
  if (what == "toArray") {
    return TimeToArray(array,
                       [](const auto& from, const auto& to) { CopyListToV8Array(from, to); });
  }
  if (what == "toArrayCalls") return TimeToArray(array, CreateIntegers);
  return -1;
}
