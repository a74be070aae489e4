#include "cefapp/cef_app_handler.h"

#include <gtest/gtest.h>
#include <functional>
#include <thread>
#include <vector>

#include "bridge/app_extension.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

using fake_cef::FakeBrowser;
using fake_cef::FakeCommandLine;
using fake_cef::FakeList;
using fake_cef::FakeMessage;
using fake_cef::FakeV8Context;
using fake_cef::FakeV8Value;
using fake_cef::Function;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;
using fake_cef::PlainObject;

class CefAppHandlerTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    handler_ = new CEFAppHandler;
  }
  void TearDown() override {
    handler_ = nullptr;
    FakeCefTest::TearDown();
  }

  // Runs `process` with the C structure of the handler, as CEF does in a child process.
  void Run(std::function<void(cef_app_t&)> process) {
    library().child_process = [&](const cef_main_args_t&, cef_app_t& app) {
      process(app);
      return 0;
    };
    CefExecuteProcess(CefMainArgs(0, nullptr), handler_, nullptr);
    library().child_process = nullptr;
  }
  void RunRenderer(const std::function<void(cef_render_process_handler_t*)>& process) {
    Run([&](cef_app_t& app) {
      const auto renderer =
          Own<cef_render_process_handler_t>::Take(app.get_render_process_handler(&app));
      process(renderer.get());
    });
  }

  CefRefPtr<CEFAppHandler> handler_;
};
using CefAppHandlerDeathTest = CefAppHandlerTest;

class CountedHandler : public CEFAppHandler {
 public:
  explicit CountedHandler(int& ends) : ends_(ends) {}
  ~CountedHandler() override { ++ends_; }

 private:
  int& ends_;
};

TEST_F(CefAppHandlerTest, IsHandlerOfBothProcesses) {
  const CefRefPtr<CefBrowserProcessHandler> browser = handler_->GetBrowserProcessHandler();
  const CefRefPtr<CefRenderProcessHandler> renderer = handler_->GetRenderProcessHandler();
  EXPECT_EQ(dynamic_cast<CEFAppHandler*>(browser.get()), handler_.get());
  EXPECT_EQ(dynamic_cast<CEFAppHandler*>(renderer.get()), handler_.get());
}

TEST_F(CefAppHandlerTest, ReturnsHandlersWithReference) {
  EXPECT_TRUE(handler_->HasOneRef());
  CefRefPtr<CefBrowserProcessHandler> browser = handler_->GetBrowserProcessHandler();
  CefRefPtr<CefRenderProcessHandler> renderer = handler_->GetRenderProcessHandler();
  EXPECT_FALSE(handler_->HasOneRef());
  browser = nullptr;
  EXPECT_FALSE(handler_->HasOneRef());
  renderer = nullptr;
  EXPECT_TRUE(handler_->HasOneRef());
}

TEST_F(CefAppHandlerTest, StartsWithoutReferenceAndEndsOnceWithLast) {
  int ends = 0;
  const auto* handler = new CountedHandler(ends);
  EXPECT_FALSE(handler->HasOneRef());
  handler->AddRef();
  EXPECT_TRUE(handler->HasOneRef());
  handler->AddRef();
  EXPECT_FALSE(handler->Release());
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(handler->Release());
  EXPECT_EQ(ends, 1);
}

TEST_F(CefAppHandlerTest, EndsOnceOnAnyThread) {
  int ends = 0;
  {
    std::vector<std::thread> threads;
    CefRefPtr<CEFAppHandler> handler(new CountedHandler(ends));
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([copy = handler]() mutable {
        for (int n = 0; n < 1000; ++n)
          copy->GetRenderProcessHandler();
        copy = nullptr;
      });
    }
    handler = nullptr;
    for (auto& thread : threads)
      thread.join();
  }
  EXPECT_EQ(ends, 1);
}

TEST_F(CefAppHandlerTest, CefHoldsReferenceDuringRun) {
  Run([&](cef_app_t&) { EXPECT_FALSE(handler_->HasOneRef()); });
  EXPECT_TRUE(handler_->HasOneRef());
}

TEST_F(CefAppHandlerTest, DisablesPinchFirstInEveryProcess) {
  for (const char* type : {"", "renderer", "gpu-process", "utility"}) {
    const auto line = Make<FakeCommandLine>();
    const CefString process_type(type);
    Run([&](cef_app_t& app) {
      app.on_before_command_line_processing(&app, process_type.GetStruct(), line.Give());
    });
    ASSERT_FALSE(line->switches.empty()) << type;
    EXPECT_EQ(line->switches[0], "disable-pinch") << type;
  }
}

TEST_F(CefAppHandlerTest, SupportsCookiesForHttpAndHttps) {
  Run([](cef_app_t& app) {
    const auto browser =
        Own<cef_browser_process_handler_t>::Take(app.get_browser_process_handler(&app));
    browser->on_context_initialized(browser.get());
  });
  ASSERT_TRUE(library().cookie_manager);
  EXPECT_EQ(library().cookie_manager->schemes, std::vector<std::u16string>{u"http,https,"});
  EXPECT_EQ(library().cookie_manager->callbacks, 0);
  EXPECT_EQ(library().completion_callbacks, 0);
  EXPECT_EQ(library().cookie_manager->references(), 1);
}

TEST_F(CefAppHandlerTest, CancelsOnlyBackForwardNavigations) {
  const struct {
    cef_navigation_type_t type;
    int cancelled;
  } kCases[] = {
      {NAVIGATION_LINK_CLICKED, 0}, {NAVIGATION_FORM_SUBMITTED, 0},   {NAVIGATION_BACK_FORWARD, 1},
      {NAVIGATION_RELOAD, 0},       {NAVIGATION_FORM_RESUBMITTED, 0}, {NAVIGATION_OTHER, 0},
  };
  RunRenderer([&](cef_render_process_handler_t* renderer) {
    for (const auto& [type, cancelled] : kCases) {
      for (const int redirect : {0, 1}) {
        EXPECT_EQ(renderer->on_before_navigation(renderer, new FakeBrowser(1),
                                                 new PlainObject<cef_frame_t>,
                                                 new PlainObject<cef_request_t>, type, redirect),
                  cancelled)
            << type;
      }
    }
  });
}

TEST_F(CefAppHandlerTest, RegistersExtensionsWithOneReference) {
  RunRenderer([](cef_render_process_handler_t* renderer) {
    EXPECT_TRUE(library().extensions.empty());
    renderer->on_web_kit_initialized(renderer);
  });
  ASSERT_EQ(library().extensions.size(), 2U);
  EXPECT_EQ(library().extensions.front().name, u"v8/array-packing");
  EXPECT_EQ(library().extensions.back().name, u"v8/app");
  EXPECT_EQ(library().extensions.back().source, fake_cef::ToUtf16(kAppExtensionSource));
  ASSERT_TRUE(library().extensions.back().handler);
  EXPECT_FALSE(handler_->HasOneRef());
  library().extensions.back().handler = nullptr;
  EXPECT_TRUE(handler_->HasOneRef());
}

TEST_F(CefAppHandlerDeathTest, OnWebKitInitializedRequiresRendererThread) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  library().currently_on = [](cef_thread_id_t thread) { return thread != TID_RENDERER; };
  EXPECT_DEBUG_DEATH(handler_->OnWebKitInitialized(), "TID_RENDERER");
}

// Registers a callback as a page does, and calls the handler as CEF does.
class RegisteredCallbackTest : public CefAppHandlerTest {
 protected:
  void SetUp() override {
    CefAppHandlerTest::SetUp();
    browser_ = Make<FakeBrowser>(3);
    context_ = Make<FakeV8Context>(1, browser_);
    const auto function = Make<FakeV8Value>(Function{[this](const auto& arguments) {
      calls_ += arguments[0]->Text() + arguments[1]->Text();
      return Make<FakeV8Value>(true);
    }});
    handler_->SetMessageCallback("a", 3, cef_binding::Adopt<CefV8Context>(context_.Give()),
                                 cef_binding::Adopt<CefV8Value>(function.Give()));
  }
  void TearDown() override {
    browser_ = nullptr;
    context_ = nullptr;
    CefAppHandlerTest::TearDown();
  }

  // Returns whether a message with this name is handled.
  int Receive(const std::u16string& name, cef_process_id_t source) {
    int handled = -1;
    RunRenderer([&](cef_render_process_handler_t* renderer) {
      const auto message =
          Make<FakeMessage>(name, Make<FakeList>(std::vector<fake_cef::Element>{5}));
      handled =
          renderer->on_process_message_received(renderer, browser_.Give(), source, message.Give());
    });
    return handled;
  }
  void ReleaseContext(int identity) {
    RunRenderer([&](cef_render_process_handler_t* renderer) {
      renderer->on_context_released(renderer, browser_.Give(), new PlainObject<cef_frame_t>,
                                    new FakeV8Context(identity, nullptr));
    });
  }

  Own<FakeBrowser> browser_;
  Own<FakeV8Context> context_;
  std::string calls_;
};

TEST_F(RegisteredCallbackTest, ReceivesMessagesOfAnyProcess) {
  EXPECT_EQ(Receive(u"a", PID_BROWSER), 1);
  EXPECT_EQ(Receive(u"a", PID_RENDERER), 1);
  EXPECT_EQ(Receive(u"b", PID_BROWSER), 0);
  EXPECT_EQ(calls_, "\"a\"[5]\"a\"[5]");
}

TEST_F(RegisteredCallbackTest, EndsWithContext) {
  ReleaseContext(2);
  EXPECT_EQ(Receive(u"a", PID_BROWSER), 1);
  ReleaseContext(1);
  EXPECT_EQ(Receive(u"a", PID_BROWSER), 0);
  EXPECT_EQ(context_->references(), 1);
}

TEST_F(RegisteredCallbackTest, EndsWithHandler) {
  EXPECT_EQ(context_->references(), 2);
  handler_ = nullptr;
  EXPECT_EQ(context_->references(), 1);
}

}  // namespace
