// One input is the packed text of an array, in units of 16 bits.
#include "bridge/packed_array.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "fuzz/require.h"
#include "support/fake_cef/fake_values.h"

namespace {

using fake_cef::FakeList;

// Counts the elements of a list and of the lists in it. Each element takes at least one unit of
// text.
std::size_t CountElements(const FakeList& list) {
  std::size_t count = list.elements().size();
  for (const fake_cef::Element& element : list.elements()) {
    const auto* inner = std::get_if<fake_cef::Own<cef_list_value_t>>(&element);
    if (inner) count += CountElements(*FakeList::From(inner->get()));
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<CefString::char_type> text(size / sizeof(CefString::char_type));
  if (!text.empty()) std::memcpy(text.data(), data, text.size() * sizeof text[0]);
  {
    const auto list = fake_cef::Make<FakeList>();
    ReadPackedArray(text.data(), text.size(), cef_binding::Adopt<CefListValue>(list.Give()));
    Require(CountElements(*list) <= text.size());
    Require(list->replaced() == 0);
  }
  Require(fake_cef::Misuse().empty());
  Require(fake_cef::LiveObjects().empty());
  fake_cef::ForgetObjects();
  return 0;
}
