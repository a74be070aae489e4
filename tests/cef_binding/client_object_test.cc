// The structs that the library gets for objects of ours: their counts and their slots. A new struct
// is one more type in the list below.

#include <gtest/gtest.h>
#include <cstring>
#include <string>
#include <thread>
#include <typeinfo>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using fake_cef::Own;

// A struct and how many of its slots are filled; the others stay null, which means the default.
template <class StructType, int count>
struct ClientStruct {
  using Struct = StructType;
  static constexpr int kFilled = count;
};

using ClientStructs =
    testing::Types<ClientStruct<cef_app_t, 3>, ClientStruct<cef_browser_process_handler_t, 1>,
                   ClientStruct<cef_render_process_handler_t, 4>, ClientStruct<cef_v8handler_t, 1>,
                   ClientStruct<cef_client_t, 6>, ClientStruct<cef_display_handler_t, 1>,
                   ClientStruct<cef_life_span_handler_t, 3>, ClientStruct<cef_load_handler_t, 2>,
                   ClientStruct<cef_render_handler_t, 2>, ClientStruct<cef_request_handler_t, 1>,
                   ClientStruct<cef_task_t, 1>>;

// Names the tests of a type by it.
struct TypeName {
  template <class Type>
  static std::string GetName(int) {
    const std::string name = typeid(typename Type::Struct).name();  // begins with its length
    return name.substr(name.find_first_not_of("0123456789"));
  }
};

template <class Case>
class ClientObjectTest : public fake_cef::FakeCefTest {
 protected:
  using Struct = typename Case::Struct;

  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
  }
  void TearDown() override {
    EXPECT_EQ(LiveProbes(), 0);
    FakeCefTest::TearDown();
  }
};
TYPED_TEST_SUITE(ClientObjectTest, ClientStructs, TypeName);

TYPED_TEST(ClientObjectTest, ComesWithOneReferenceAndItsSize) {
  const auto client = NewClientStruct<typename TestFixture::Struct>();
  EXPECT_EQ(client->base.size, sizeof(typename TestFixture::Struct));
  EXPECT_EQ(client->base.has_one_ref(&client->base), 1);
  EXPECT_EQ(LiveProbes(), 1);
}

TYPED_TEST(ClientObjectTest, LivesUntilTheLibrarysLastRelease) {
  auto client = NewClientStruct<typename TestFixture::Struct>();
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

TYPED_TEST(ClientObjectTest, OnlyTheBoundSlotsAreFilled) {
  const auto client = NewClientStruct<typename TestFixture::Struct>();
  const char* const bytes = reinterpret_cast<const char*>(client.get());
  int filled = 0;
  for (std::size_t at = sizeof(cef_base_ref_counted_t); at < sizeof *client; at += sizeof(void*)) {
    void* slot = nullptr;
    std::memcpy(&slot, bytes + at, sizeof slot);
    if (slot) ++filled;
  }
  EXPECT_EQ(filled, TypeParam::kFilled);
}

TYPED_TEST(ClientObjectTest, TheLastReleaseMayComeOnAnotherThread) {
  auto client = NewClientStruct<typename TestFixture::Struct>();
  auto copy = client;
  std::thread other([moved = std::move(client)]() mutable { moved = nullptr; });
  copy = nullptr;
  other.join();
}

// The getters of handlers.
template <class Struct, class Handler>
void CheckGetter(Handler* (*Struct::*slot)(Struct*)) {
  probe_notes() = ProbeNotes();
  const auto owner = NewClientStruct<Struct>();
  const auto first = Own<Handler>::Take((owner.get()->*slot)(owner.get()));
  auto second = Own<Handler>::Take((owner.get()->*slot)(owner.get()));
  ASSERT_TRUE(first);
  EXPECT_EQ(LiveProbes(), 1);  // both stand for the same object of ours
  EXPECT_EQ(first->base.has_one_ref(&first->base), 1);
  EXPECT_EQ(second->base.has_one_ref(&second->base), 1);
  second = nullptr;
  EXPECT_EQ(owner->base.has_one_ref(&owner->base), 1);
  probe_notes().has_handlers = false;
  EXPECT_EQ((owner.get()->*slot)(owner.get()), nullptr);
}

class HandlerGetterTest : public fake_cef::FakeCefTest {};

TEST_F(HandlerGetterTest, EveryHandlerComesWithAReferenceOfItsOwn) {
  CheckGetter(&cef_app_t::get_browser_process_handler);
  CheckGetter(&cef_app_t::get_render_process_handler);
  CheckGetter(&cef_client_t::get_display_handler);
  CheckGetter(&cef_client_t::get_life_span_handler);
  CheckGetter(&cef_client_t::get_load_handler);
  CheckGetter(&cef_client_t::get_render_handler);
  CheckGetter(&cef_client_t::get_request_handler);
  EXPECT_EQ(LiveProbes(), 0);
}

TEST_F(HandlerGetterTest, AHandlerOutlivesTheStructThatItCameFrom) {
  probe_notes() = ProbeNotes();
  const auto handler = NewClientStruct<cef_load_handler_t>();
  EXPECT_EQ(LiveProbes(), 1);
  handler->on_load_end(handler.get(), new fake_cef::PlainObject<cef_browser_t>,
                       new fake_cef::PlainObject<cef_frame_t>, 200);
  EXPECT_EQ(probe_notes().call, "OnLoadEnd object object 200");
}

}  // namespace
