#include "bridge/value_conversion.h"

#include <cstddef>

namespace {

int SizeOf(const CefRefPtr<CefListValue>& list) { return static_cast<int>(list->GetSize()); }

// Stores `element` at `index` of `target`. Returns false if a list cannot store its type.
//
// Each test is a call into CEF and a large part of the cost of an element, so the most common types
// come first. The tests exclude each other with one exception: IsDouble() also accepts every int.
bool StoreElement(const CefRefPtr<CefV8Value>& element, const CefRefPtr<CefListValue>& target,
                  std::size_t index, const ArrayToList& shortcut) {
  if (!element) return false;
  if (element->IsInt()) return target->SetInt(index, element->GetIntValue());
  if (element->IsString()) return target->SetString(index, element->GetStringValue());
  if (element->IsDouble()) return target->SetDouble(index, element->GetDoubleValue());
  if (element->IsBool()) return target->SetBool(index, element->GetBoolValue());
  if (!element->IsArray()) return false;
  CefRefPtr<CefListValue> list = CefListValue::Create();
  if (!list || !shortcut || !shortcut(element, list)) CopyV8ArrayToList(element, list, shortcut);
  return list && target->SetList(index, list);
}

CefRefPtr<CefV8Value> CreateElement(const CefRefPtr<CefListValue>& list, std::size_t index) {
  const CefValueType type = list->GetType(index);
  if (type != VTYPE_LIST) return CreateScalar(list, index, type);
  CefRefPtr<CefListValue> inner = list->GetList(index);
  return inner ? CreateV8Array(inner) : nullptr;
}

}  // namespace

void CopyV8ArrayToList(const CefRefPtr<CefV8Value>& source, const CefRefPtr<CefListValue>& target,
                       const ArrayToList& shortcut) {
  if (!source || !target) return;
  const int count = source->GetArrayLength();
  if (count < 1) return;

  // The result is the same as if the list got its final size first. New elements are appended
  // instead, because CEF replaces an element by erasing and inserting it. To fill a list of the
  // final size would take time that grows with the square of the size.
  const int size = SizeOf(target);
  if (size > count) target->SetSize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    if (!StoreElement(source->GetValue(i), target, index, shortcut) && i >= size) {
      target->SetNull(index);
    }
  }
}

void CopyListToV8Array(const CefRefPtr<CefListValue>& source, const CefRefPtr<CefV8Value>& target) {
  if (!source || !target) return;
  const int count = SizeOf(source);
  for (int i = 0; i < count; ++i) {
    CefRefPtr<CefV8Value> element = CreateElement(source, static_cast<std::size_t>(i));
    if (!element) element = CefV8Value::CreateNull();
    if (element) target->SetValue(i, element);
  }
}

CefRefPtr<CefV8Value> CreateScalar(const CefRefPtr<CefListValue>& source, std::size_t index,
                                   CefValueType type) {
  switch (type) {
    case VTYPE_BOOL:
      return CefV8Value::CreateBool(source->GetBool(index));
    case VTYPE_INT:
      return CefV8Value::CreateInt(source->GetInt(index));
    case VTYPE_DOUBLE:
      return CefV8Value::CreateDouble(source->GetDouble(index));
    case VTYPE_STRING:
      return CefV8Value::CreateString(source->GetString(index));
    case VTYPE_LIST:
      return nullptr;
    default:
      return CefV8Value::CreateNull();
  }
}

CefRefPtr<CefV8Value> CreateV8Array(const CefRefPtr<CefListValue>& list) {
  CefRefPtr<CefV8Value> array = CefV8Value::CreateArray(list ? SizeOf(list) : 0);
  if (array && list) CopyListToV8Array(list, array);
  return array;
}
