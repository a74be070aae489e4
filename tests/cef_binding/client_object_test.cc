// Tests the reference counts of the structs that the library receives for objects of the
// application. All structs share one template, so one type stands for all of them.

#include <gtest/gtest.h>
#include <thread>
#include <utility>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using fake_cef::Own;

class ClientObjectTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
  }
  void TearDown() override {
    EXPECT_EQ(LiveProbes(), 0);
    FakeCefTest::TearDown();
  }
};

TEST_F(ClientObjectTest, HasOneReferenceAndSizeOfStruct) {
  const auto client = NewClientStruct<cef_client_t>();
  EXPECT_EQ(client->base.size, sizeof(cef_client_t));
  EXPECT_EQ(client->base.has_one_ref(&client->base), 1);
  EXPECT_EQ(LiveProbes(), 1);
}

TEST_F(ClientObjectTest, LivesUntilLastRelease) {
  auto client = NewClientStruct<cef_client_t>();
  cef_base_ref_counted_t* const base = &client->base;
  base->add_ref(base);
  EXPECT_EQ(base->has_one_ref(base), 0);
  EXPECT_EQ(base->release(base), 0);
  EXPECT_EQ(base->has_one_ref(base), 1);
  EXPECT_EQ(LiveProbes(), 1);
  base->add_ref(base);
  client = nullptr;
  EXPECT_EQ(LiveProbes(), 1);
  EXPECT_EQ(base->release(base), 1);
  EXPECT_EQ(LiveProbes(), 0);
}

TEST_F(ClientObjectTest, SupportsLastReleaseOnOtherThread) {
  auto client = NewClientStruct<cef_client_t>();
  auto copy = client;
  std::thread other([moved = std::move(client)]() mutable { moved = nullptr; });
  copy = nullptr;
  other.join();
}

// Checks a getter of a handler.
template <class Struct, class Handler>
void CheckGetter(Handler* (*Struct::*slot)(Struct*)) {
  probe_notes() = ProbeNotes();
  const auto owner = NewClientStruct<Struct>();
  const auto first = Own<Handler>::Take((owner.get()->*slot)(owner.get()));
  auto second = Own<Handler>::Take((owner.get()->*slot)(owner.get()));
  ASSERT_TRUE(first);
  EXPECT_EQ(LiveProbes(), 1);  // both structs hold the same object
  EXPECT_EQ(first->base.has_one_ref(&first->base), 1);
  EXPECT_EQ(second->base.has_one_ref(&second->base), 1);
  second = nullptr;
  EXPECT_EQ(owner->base.has_one_ref(&owner->base), 1);
  probe_notes().has_handlers = false;
  EXPECT_EQ((owner.get()->*slot)(owner.get()), nullptr);
}

class HandlerGetterTest : public fake_cef::FakeCefTest {};

TEST_F(HandlerGetterTest, ReturnsEachHandlerWithOwnReference) {
  CheckGetter(&cef_app_t::get_browser_process_handler);
  CheckGetter(&cef_app_t::get_render_process_handler);
  CheckGetter(&cef_client_t::get_display_handler);
  CheckGetter(&cef_client_t::get_life_span_handler);
  CheckGetter(&cef_client_t::get_load_handler);
  CheckGetter(&cef_client_t::get_render_handler);
  CheckGetter(&cef_client_t::get_request_handler);
  EXPECT_EQ(LiveProbes(), 0);
}

TEST_F(HandlerGetterTest, HandlerOutlivesClientStruct) {
  probe_notes() = ProbeNotes();
  const auto handler = NewClientStruct<cef_load_handler_t>();
  EXPECT_EQ(LiveProbes(), 1);
  handler->on_load_end(handler.get(), new fake_cef::PlainObject<cef_browser_t>,
                       new fake_cef::PlainObject<cef_frame_t>, 200);
  EXPECT_EQ(probe_notes().call, "OnLoadEnd object object 200");
}

}  // namespace
