#pragma once

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "include/cef_v8.h"

// Stores one value for each of a few script contexts. Searches one by one, because contexts can be
// tested for identity but have no order. Not thread-safe.
template <class Value>
class PerContext {
 public:
  // Stores the value of `context`, which must not be null and must not have a value.
  void Add(CefRefPtr<CefV8Context> context, Value value) {
    entries_.emplace_back(std::move(context), std::move(value));
  }

  // Returns the value of `context`, or a default-constructed one if `context` has no value.
  Value Find(const CefRefPtr<CefV8Context>& context) {
    return MoveToEnd(context) ? entries_.back().second : Value();
  }

  void Remove(const CefRefPtr<CefV8Context>& context) {
    if (MoveToEnd(context)) entries_.pop_back();
  }

 private:
  // Searches from the end, because consecutive searches are often for the same context.
  bool MoveToEnd(const CefRefPtr<CefV8Context>& context) {
    if (!context) return false;
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const auto& entry) {
      return entry.first->IsSame(context);
    });
    if (found == entries_.rend()) return false;
    std::rotate(entries_.rbegin(), found, std::next(found));
    return true;
  }

  std::vector<std::pair<CefRefPtr<CefV8Context>, Value>> entries_;
};
