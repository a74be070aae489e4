#include "examples/suite_host/json_list.h"

#include <cstddef>

namespace {

bool SetElement(const Json& element, const CefRefPtr<CefListValue>& list, std::size_t index) {
  switch (element.type()) {
    case Json::value_t::null:
      return list->SetNull(index);
    case Json::value_t::boolean:
      return list->SetBool(index, element.get<bool>());
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
      return list->SetInt(index, element.get<int>());
    case Json::value_t::number_float:
      return list->SetDouble(index, element.get<double>());
    case Json::value_t::string:
      return list->SetString(index, element.get_ref<const std::string&>());
    case Json::value_t::array: {
      const CefRefPtr<CefListValue> inner = CefListValue::Create();
      return inner && CopyArrayToList(element, inner) && list->SetList(index, inner);
    }
    default:
      return false;
  }
}

}  // namespace

Json ListAsArray(const CefRefPtr<CefListValue>& list) {
  Json array = Json::array();
  const std::size_t size = list ? list->GetSize() : 0;
  for (std::size_t i = 0; i < size; ++i) {
    switch (list->GetType(i)) {
      case VTYPE_BOOL:
        array.push_back(list->GetBool(i));
        break;
      case VTYPE_INT:
        array.push_back(list->GetInt(i));
        break;
      case VTYPE_DOUBLE:
        array.push_back(list->GetDouble(i));
        break;
      case VTYPE_STRING:
        array.push_back(list->GetString(i).ToString());
        break;
      case VTYPE_LIST:
        array.push_back(ListAsArray(list->GetList(i)));
        break;
      default:
        array.push_back(nullptr);
    }
  }
  return array;
}

bool CopyArrayToList(const Json& array, const CefRefPtr<CefListValue>& list) {
  std::size_t index = 0;
  for (const Json& element : array) {
    if (!SetElement(element, list, index++)) return false;
  }
  return true;
}
