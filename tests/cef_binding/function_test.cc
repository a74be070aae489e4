// Tests the functions of the binding that call functions of the library.

#include <gtest/gtest.h>
#include <thread>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "include/cef_cookie.h"
#include "include/cef_task.h"
#include "support/fake_cef/fake_cef_test.h"
#include "tests/cef_binding/client_probe.h"

namespace {

using cef_binding::Pass;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;

class FunctionTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    probe_notes() = ProbeNotes();
  }
  void TearDown() override {
    FakeCefTest::TearDown();
    EXPECT_EQ(LiveProbes(), 0);
  }
};

class Application : public CefApp {
  IMPLEMENT_REFCOUNTING(Application)
};

// Returns a reference to the fake behind `object`.
template <class Fake, class Class>
Own<Fake> FakeOf(const CefRefPtr<Class>& object) {
  return Own<Fake>::Take(Fake::From(Pass(object)));
}

using Create = CefRefPtr<CefBaseRefCounted> (*)();

const Create kCreators[] = {
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateNull()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateBool(true)); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateInt(1)); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateDouble(1.5)); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateString("s")); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Value::CreateArray(1)); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefV8Context::GetCurrentContext()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefBinaryValue::Create("b", 1)); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefDictionaryValue::Create()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefListValue::Create()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefValue::Create()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefProcessMessage::Create("m")); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefCommandLine::CreateCommandLine()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefCommandLine::GetGlobalCommandLine()); },
    [] { return CefRefPtr<CefBaseRefCounted>(CefCookieManager::GetGlobalManager(nullptr)); },
};

class CreatorTest : public fake_cef::FakeCefTest, public testing::WithParamInterface<Create> {};

TEST_P(CreatorTest, ReturnsObjectOrNull) {
  library().entered_contexts = 1;
  library().current_context = Make<fake_cef::FakeV8Context>(1, nullptr);
  library().command_line = Make<fake_cef::FakeCommandLine>();
  EXPECT_TRUE(GetParam()()->HasOneRef());
  library() = fake_cef::Library();
  library().gives_nothing = true;
  EXPECT_EQ(GetParam()(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, CreatorTest, testing::ValuesIn(kCreators));

TEST_F(FunctionTest, CreatesScriptValuesFromArguments) {
  using fake_cef::FakeV8Value;
  library().entered_contexts = 1;
  const auto text = [](const CefRefPtr<CefV8Value>& value) {
    return FakeOf<FakeV8Value>(value)->Text();
  };
  EXPECT_EQ(text(CefV8Value::CreateNull()), "null");
  EXPECT_EQ(text(CefV8Value::CreateBool(true)), "true");
  EXPECT_EQ(text(CefV8Value::CreateBool(false)), "false");
  EXPECT_EQ(text(CefV8Value::CreateInt(-7)), "-7");
  EXPECT_EQ(text(CefV8Value::CreateDouble(0.5)), "0.50000000000000000");
  EXPECT_EQ(text(CefV8Value::CreateString("\xC3\xA4")), "\"\xC3\xA4\"");
  EXPECT_EQ(text(CefV8Value::CreateArray(2)), "[hole,hole]");
}

TEST_F(FunctionTest, CreatesValuesAndMessagesFromArguments) {
  const auto binary = FakeOf<fake_cef::FakeBinary>(CefBinaryValue::Create("a\0b", 3));
  EXPECT_EQ(binary->bytes(), std::string("a\0b", 3));
  const auto message = FakeOf<fake_cef::FakeMessage>(CefProcessMessage::Create("name"));
  EXPECT_EQ(message->name(), u"name");
  const auto dictionary = CefDictionaryValue::Create();
  dictionary->SetInt("k", 3);
  EXPECT_EQ(FakeOf<fake_cef::FakeDictionary>(dictionary)->numbers().at(u"k"), 3);
}

TEST_F(FunctionTest, PassesArgumentsAndApplicationToProcess) {
  char name[] = "program";
  char* arguments[] = {name, nullptr};
  int sandbox = 0;
  const CefRefPtr<Application> application(new Application);
  library().child_process = [&](const cef_main_args_t& given, cef_app_t& app) {
    EXPECT_EQ(given.argc, 1);
    EXPECT_EQ(given.argv, arguments);
    EXPECT_EQ(app.base.has_one_ref(&app.base), 1);
    EXPECT_FALSE(application->HasOneRef());
    return 42;
  };
  EXPECT_EQ(CefExecuteProcess(CefMainArgs(1, arguments), application, &sandbox), 42);
  EXPECT_EQ(library().sandbox_info, &sandbox);
  EXPECT_TRUE(application->HasOneRef());
}

TEST_F(FunctionTest, LibraryKeepsApplicationUntilRelease) {
  const CefRefPtr<Application> application(new Application);
  const CefSettings settings;
  int sandbox = 0;
  EXPECT_TRUE(CefInitialize(CefMainArgs(0, nullptr), settings, application, &sandbox));
  EXPECT_EQ(library().settings, &settings);
  EXPECT_EQ(library().sandbox_info, &sandbox);
  EXPECT_FALSE(application->HasOneRef());
  library().succeeds = false;
  EXPECT_FALSE(CefInitialize(CefMainArgs(0, nullptr), settings, nullptr, nullptr));
  EXPECT_TRUE(application->HasOneRef());
}

TEST_F(FunctionTest, ForwardsMessageLoopFunctions) {
  CefRunMessageLoop();
  CefQuitMessageLoop();
  CefShutdown();
  EXPECT_EQ(library().calls, "run quit shutdown ");
}

TEST_F(FunctionTest, PostsTaskToThread) {
  class Task : public CefTask {
    void Execute() override {}
    IMPLEMENT_REFCOUNTING(Task)
  };
  const CefRefPtr<Task> task(new Task);
  EXPECT_TRUE(CefPostTask(TID_RENDERER, task));
  EXPECT_TRUE(CefPostDelayedTask(TID_IO, task, 5000000000));
  ASSERT_EQ(library().tasks.size(), 2u);
  EXPECT_EQ(library().tasks[0].thread, TID_RENDERER);
  EXPECT_EQ(library().tasks[0].delay_ms, 0);
  EXPECT_EQ(library().tasks[1].thread, TID_IO);
  EXPECT_EQ(library().tasks[1].delay_ms, 5000000000);
  library().tasks.clear();
  EXPECT_TRUE(task->HasOneRef());
  library().succeeds = false;
  EXPECT_FALSE(CefPostTask(TID_RENDERER, task));
  EXPECT_FALSE(CefPostDelayedTask(TID_RENDERER, task, 1));
  EXPECT_TRUE(task->HasOneRef());
}

TEST_F(FunctionTest, RunsAndDestroysTaskOnThread) {
  auto task = NewClientStruct<cef_task_t>();
  std::thread thread([moved = std::move(task)]() mutable {
    moved->execute(moved.get());
    moved = nullptr;
  });
  thread.join();
  EXPECT_EQ(probe_notes().call, "Execute");
}

TEST_F(FunctionTest, ReportsCurrentThread) {
  library().currently_on = [](cef_thread_id_t thread) { return thread == TID_RENDERER; };
  EXPECT_TRUE(CefCurrentlyOn(TID_RENDERER));
  EXPECT_FALSE(CefCurrentlyOn(TID_UI));
}

TEST_F(FunctionTest, CreatesBrowserWithClientAndUrl) {
  class Client : public CefClient {
    IMPLEMENT_REFCOUNTING(Client)
  };
  const CefRefPtr<Client> client(new Client);
  EXPECT_TRUE(CefBrowserHost::CreateBrowser(CefWindowInfo(), client, "file:///a",
                                            CefBrowserSettings(), nullptr));
  EXPECT_EQ(library().browser_url, u"file:///a");
  EXPECT_FALSE(client->HasOneRef());
  library().succeeds = false;
  EXPECT_FALSE(
      CefBrowserHost::CreateBrowser(CefWindowInfo(), nullptr, "", CefBrowserSettings(), nullptr));
  EXPECT_EQ(library().client.get(), nullptr);
  EXPECT_TRUE(client->HasOneRef());
}

TEST_F(FunctionTest, RegistersExtensionWithName) {
  const auto handler = NewClientStruct<cef_v8handler_t>();
  EXPECT_EQ(library().extensions.back().name, u"v8/probe");
  library().succeeds = false;
  EXPECT_FALSE(CefRegisterExtension("name", "source", nullptr));
  EXPECT_EQ(library().extensions.back().name, u"name");
  EXPECT_EQ(library().extensions.back().source, u"source");
  EXPECT_EQ(library().extensions.back().handler.get(), nullptr);
}

TEST_F(FunctionTest, SettingsFreeStrings) {
  CefSettings settings;
  for (cef_string_t* text :
       {&settings.browser_subprocess_path, &settings.framework_dir_path, &settings.cache_path,
        &settings.user_data_path, &settings.user_agent, &settings.product_version, &settings.locale,
        &settings.log_file, &settings.javascript_flags, &settings.resources_dir_path,
        &settings.locales_dir_path, &settings.accept_language_list}) {
    CefString{text} = "text";
  }
  CefBrowserSettings browser;
  for (cef_string_t* text :
       {&browser.standard_font_family, &browser.fixed_font_family, &browser.serif_font_family,
        &browser.sans_serif_font_family, &browser.cursive_font_family, &browser.fantasy_font_family,
        &browser.default_encoding, &browser.accept_language_list}) {
    CefString{text} = "text";
  }
  EXPECT_GE(fake_cef::LiveStrings(), 20);
}

}  // namespace
