#include "support/fake_cef/fake_object.h"

#include <cxxabi.h>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <mutex>

namespace fake_cef {
namespace {

// Records about all objects since the last ForgetObjects().
struct Records {
  std::mutex mutex;
  std::vector<std::unique_ptr<CountedObject>> objects;
  std::vector<const CountedObject*> ended;
  std::vector<std::string> misuse;
};

Records& AllRecords() {
  static Records records;
  return records;
}

std::string ReadableType(const char* mangled) {
  const std::unique_ptr<char, void (*)(void*)> readable(
      abi::__cxa_demangle(mangled, nullptr, nullptr, nullptr), std::free);
  return readable ? readable.get() : mangled;
}

}  // namespace

CountedObject::CountedObject(const char* mangled_type) : type_(ReadableType(mangled_type)) {
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  records.objects.emplace_back(this);
}

void CountedObject::CheckUse(const char* what) const {
  if (ended()) ReportMisuse(type_ + " " + what + " after its end");
}

void CountedObject::AddReference() {
  CheckUse("referenced");
  references_.fetch_add(1, std::memory_order_relaxed);
}

bool CountedObject::ReleaseReference() {
  CheckUse("released");
  if (references_.fetch_sub(1, std::memory_order_acq_rel) != 1 || ended()) return false;
  ended_.store(true, std::memory_order_release);
  {
    Records& records = AllRecords();
    const std::lock_guard<std::mutex> lock(records.mutex);
    records.ended.push_back(this);
  }
  OnEnd();
  return true;
}

void ReportMisuse(const std::string& what) {
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  records.misuse.push_back(what);
}

std::vector<std::string> Misuse() {
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  return records.misuse;
}

std::vector<std::string> LiveObjects() {
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  std::vector<std::string> types;
  for (const auto& object : records.objects) {
    if (!object->ended()) types.push_back(object->type());
  }
  return types;
}

std::vector<const CountedObject*> EndedObjects() {
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  return records.ended;
}

void ForgetObjects() {
  std::vector<std::unique_ptr<CountedObject>> objects;
  Records& records = AllRecords();
  const std::lock_guard<std::mutex> lock(records.mutex);
  objects.swap(records.objects);
  records.ended.clear();
  records.misuse.clear();
  for (auto& object : objects) {
    // The object still has references. The test that left it behind has already failed.
    if (!object->ended()) static_cast<void>(object.release());
  }
}

void UnfilledSlot() { ReportMisuse("a slot was called that the fake does not fill"); }

}  // namespace fake_cef
