#include "support/fake_cef/fake_browser.h"

namespace fake_cef {

FakeBrowser::FakeBrowser(int identifier) : identifier_(identifier) {
  get_identifier = [](cef_browser_t* self) { return Of(self).identifier_; };
  send_process_message = [](cef_browser_t* self, cef_process_id_t target,
                            cef_process_message_t* message) {
    Of(self).sent.emplace_back(target, Own<FakeMessage>::Take(FakeMessage::From(message)));
    return 1;
  };
}

}  // namespace fake_cef
