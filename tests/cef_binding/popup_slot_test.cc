// Tests the slot that the library calls before a popup opens. It has in-out parameters.

#include <gtest/gtest.h>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using fake_cef::Own;
using fake_cef::PlainObject;

class BareClient : public CefClient {
  IMPLEMENT_REFCOUNTING(BareClient)
};

class PopupSlotTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
    opener_ = NewClientStruct<cef_client_t>();
    client_ = opener_.get();
  }
  void TearDown() override {
    opener_ = nullptr;
    EXPECT_EQ(LiveProbes(), 0);
    FakeCefTest::TearDown();
  }

  // Calls the slot as the library does, with a reference to `client_` that the callee takes over.
  int Call() {
    const auto handler =
        Own<cef_life_span_handler_t>::Take(opener_->get_life_span_handler(opener_.get()));
    const CefString url("url");
    const CefString name("name");
    const cef_popup_features_t features{};
    if (client_) client_->base.add_ref(&client_->base);
    return handler->on_before_popup(
        handler.get(), new PlainObject<cef_browser_t>, new PlainObject<cef_frame_t>,
        has_texts_ ? url.GetStruct() : nullptr, has_texts_ ? name.GetStruct() : nullptr,
        static_cast<cef_window_open_disposition_t>(5), 1, &features, &info_, &client_, &settings_,
        &no_javascript_access_);
  }

  Own<cef_client_t> opener_;
  bool has_texts_ = true;
  cef_window_info_t info_{};
  cef_client_t* client_ = nullptr;
  cef_browser_settings_t settings_{};
  int no_javascript_access_ = 0;
};

TEST_F(PopupSlotTest, PassesArgumentsAndKeepsUnchangedOnes) {
  info_.width = 7;
  settings_.javascript = STATE_DISABLED;
  settings_.size = sizeof settings_;
  CefString(&settings_.default_encoding) = "utf-8";
  no_javascript_access_ = 1;
  EXPECT_EQ(Call(), 0);
  EXPECT_EQ(probe_notes().call,
            R"(OnBeforePopup object object "url" "name" 5 true 7 true 2 "utf-8" true)");
  EXPECT_EQ(info_.width, 7U);
  EXPECT_EQ(settings_.javascript, STATE_DISABLED);
  EXPECT_EQ(settings_.size, sizeof settings_);
  EXPECT_EQ(CefString(&settings_.default_encoding), "utf-8");
  EXPECT_EQ(no_javascript_access_, 1);
  CefString(&settings_.default_encoding).clear();
}

TEST_F(PopupSlotTest, NullStringsArriveEmpty) {
  has_texts_ = false;
  probe_notes().answer = true;
  EXPECT_EQ(Call(), 1);
  EXPECT_EQ(probe_notes().call, R"(OnBeforePopup object object "" "" 5 true 0 true 0 "" false)");
}

TEST_F(PopupSlotTest, ReturnsChangesToLibrary) {
  probe_notes().change_popup = [](CefWindowInfo& info, CefRefPtr<CefClient>&,
                                  CefBrowserSettings& settings, bool& no_javascript_access) {
    info.height = 9;
    CefString(&settings.default_encoding) = "latin1";
    no_javascript_access = true;
  };
  CefString(&settings_.default_encoding) = "utf-8";
  Call();
  EXPECT_EQ(info_.height, 9U);
  EXPECT_EQ(CefString(&settings_.default_encoding), "latin1");
  EXPECT_EQ(no_javascript_access_, 1);
  CefString(&settings_.default_encoding).clear();
}

TEST_F(PopupSlotTest, ReleasesReferenceToUnchangedClient) {
  Call();
  EXPECT_EQ(client_, opener_.get());
  EXPECT_EQ(opener_->base.has_one_ref(&opener_->base), 1);
}

TEST_F(PopupSlotTest, ReturnsOtherClientWithReference) {
  probe_notes().change_popup = [](CefWindowInfo&, CefRefPtr<CefClient>& client, CefBrowserSettings&,
                                  bool&) { client = new BareClient; };
  Call();
  ASSERT_NE(client_, opener_.get());
  const auto other = Own<cef_client_t>::Take(client_);
  EXPECT_EQ(other->get_life_span_handler(other.get()), nullptr);
  EXPECT_EQ(other->base.has_one_ref(&other->base), 1);
  EXPECT_EQ(opener_->base.has_one_ref(&opener_->base), 1);
}

TEST_F(PopupSlotTest, ReturnsNullClient) {
  probe_notes().change_popup = [](CefWindowInfo&, CefRefPtr<CefClient>& client, CefBrowserSettings&,
                                  bool&) { client = nullptr; };
  Call();
  EXPECT_EQ(client_, nullptr);
  EXPECT_EQ(opener_->base.has_one_ref(&opener_->base), 1);
}

TEST_F(PopupSlotTest, AcceptsNullClient) {
  client_ = nullptr;
  Call();
  EXPECT_EQ(client_, nullptr);
  EXPECT_EQ(probe_notes().call,
            R"(OnBeforePopup object object "url" "name" 5 true 0 false 0 "" false)");
}

}  // namespace
