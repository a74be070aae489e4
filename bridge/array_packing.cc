#include "bridge/array_packing.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>

#include "bridge/array_packing_script.h"
#include "bridge/list_text.h"
#include "bridge/packed_array.h"
#include "bridge/value_conversion.h"

namespace {

constexpr char kExtensionName[] = "v8/array-packing";
constexpr char kExtensionBegin[] =
    "(function() { 'use strict';"
    "native function keep(); native function areArrays();\n";
constexpr char kExtensionEnd[] = "}).call(this);";

// V8 allows scripts 984 KiB of the stack, measured from about where the extension is registered.
constexpr std::ptrdiff_t kMaxStackInUse = std::ptrdiff_t{512} * 1024;

const char* StackPosition() { return static_cast<const char*>(__builtin_frame_address(0)); }

bool IsAtLeast(int size, std::size_t limit) {
  return size >= 0 && static_cast<std::size_t>(size) >= limit;
}

bool IsArray(const CefRefPtr<CefV8Value>& value) { return value && value->IsArray(); }

// A few elements are faster to pass as arguments than as text.
constexpr std::size_t kMaxArguments = 8;

// V8 cannot create a string of twice this length.
constexpr std::size_t kMaxTextLength = std::size_t{1} << 27;

// Returns the elements of `list`, or nothing if there are too many or one of them is a list.
std::optional<CefV8ValueList> CreateElements(const CefRefPtr<CefListValue>& list,
                                             std::size_t size) {
  std::array<CefValueType, kMaxArguments> types{};
  if (size > types.size()) return std::nullopt;
  for (std::size_t i = 0; i < size; ++i) {
    types[i] = list->GetType(i);
    if (types[i] == VTYPE_LIST) return std::nullopt;
  }
  CefV8ValueList values;
  for (std::size_t i = 0; i < size; ++i)
    values.push_back(CreateScalar(list, i, types[i]));
  return values;
}

// Returns the texts of `list`, or nothing if one of them is too long.
std::optional<CefV8ValueList> CreateTexts(const CefRefPtr<CefListValue>& list) {
  const ListText text = WriteListText(list);
  if (text.elements.length() > kMaxTextLength || text.placeholders.length() > kMaxTextLength) {
    return std::nullopt;
  }
  CefV8ValueList values = {CefV8Value::CreateString(text.elements)};
  if (text.placeholders.empty()) return values;
  values.push_back(CefV8Value::CreateString(text.placeholders));
  for (const CefString& string : text.strings)
    values.push_back(CefV8Value::CreateString(string));
  return values;
}

}  // namespace

CefRefPtr<ArrayPacking> ArrayPacking::Register(BreakEven break_even) {
  CefRefPtr<ArrayPacking> packing(new ArrayPacking(break_even));
  CefRegisterExtension(kExtensionName,
                       std::string(kExtensionBegin) + kArrayPackingScript + kExtensionEnd, packing);
  return packing;
}

ArrayPacking::ArrayPacking(BreakEven break_even)
    : break_even_(break_even), stack_start_(StackPosition()) {}

void ArrayPacking::CopyToList(const CefRefPtr<CefV8Value>& array,
                              const CefRefPtr<CefListValue>& list) {
  // Often an array is refused because of an array inside it, which would be refused as well.
  bool refused = false;
  const ArrayToList pack = [&](const CefRefPtr<CefV8Value>& source,
                               const CefRefPtr<CefListValue>& target) {
    if (refused || !IsAtLeast(source->GetArrayLength(), break_even_.to_list)) return false;
    refused = !Pack(source, target);
    return !refused;
  };
  if (!pack(array, list)) CopyV8ArrayToList(array, list, pack);
}

bool ArrayPacking::RunCallback(const CefRefPtr<CefV8Context>& context,
                               const CefRefPtr<CefV8Value>& function, const CefString& name,
                               const CefRefPtr<CefListValue>& list, bool& returned_true) {
  const ScriptObjects script = HasStackLeft() ? contexts_.Find(context) : ScriptObjects();
  const std::size_t size = list->GetSize();
  if (!script.packing || size < break_even_.to_array) return false;
  CefRefPtr<CefV8Value> caller = script.call_with_elements;
  std::optional<CefV8ValueList> values = CreateElements(list, size);
  if (!values) {
    caller = script.call_with_text;
    values = CreateTexts(list);
  }
  if (!values) return false;
  CefV8ValueList arguments = {function, CefV8Value::CreateString(name)};
  arguments.insert(arguments.end(), values->begin(), values->end());
  if (std::count(arguments.begin(), arguments.end(), nullptr) != 0) return false;
  CefRefPtr<CefV8Value> result = caller->ExecuteFunctionWithContext(context, nullptr, arguments);
  returned_true = result && result->IsBool() && result->GetBoolValue();
  return !result || result->IsBool();
}

bool ArrayPacking::Execute(const CefString& name, CefRefPtr<CefV8Value> /*object*/,
                           const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval,
                           CefString& /*exception*/) {
  const std::string function = name;
  if (function == "keep" && arguments.size() == 3) {
    contexts_.Add(CefV8Context::GetCurrentContext(), {arguments[0], arguments[1], arguments[2]});
  } else if (function == "areArrays") {
    retval = CefV8Value::CreateBool(std::all_of(arguments.begin(), arguments.end(), IsArray));
  }
  return true;
}

bool ArrayPacking::HasStackLeft() const {
  return std::abs(stack_start_ - StackPosition()) <= kMaxStackInUse;
}

// Uses a getter, because Blink throws if a function is called while 44 other calls are in progress.
bool ArrayPacking::Pack(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list) {
  if (!HasStackLeft() || list->GetSize() != 0) return false;
  CefRefPtr<CefV8Value> packing = contexts_.Find(CefV8Context::GetCurrentContext()).packing;
  if (!packing || !packing->SetValue("array", array, V8_PROPERTY_ATTRIBUTE_NONE)) return false;
  CefRefPtr<CefV8Value> packed = packing->GetValue("packed");
  if (!packed || !packed->IsString()) return false;
  const CefString text = packed->GetStringValue();
  ReadPackedArray(text.c_str(), text.length(), list);
  return true;
}
