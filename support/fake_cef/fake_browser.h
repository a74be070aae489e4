#pragma once

#include <utility>
#include <vector>

#include "include/capi/cef_browser_capi.h"
#include "support/fake_cef/fake_values.h"

namespace fake_cef {

// A browser in a render process.
class FakeBrowser : public FakeObject<FakeBrowser, cef_browser_t> {
 public:
  explicit FakeBrowser(int identifier);

  std::vector<std::pair<cef_process_id_t, Own<FakeMessage>>> sent;

 private:
  void OnEnd() override { sent.clear(); }

  const int identifier_;
};

}  // namespace fake_cef
