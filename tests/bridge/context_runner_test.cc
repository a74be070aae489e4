#include "bridge/context_runner.h"

#include <gtest/gtest.h>
#include <optional>

#include "support/fake_cef/fake_cef_test.h"
#include "tests/bridge/script_values.h"

namespace {

using fake_cef::FakeV8Context;
using fake_cef::library;
using fake_cef::Make;
using fake_cef::Own;

class ContextRunnerTest : public fake_cef::FakeCefTest {
 protected:
  void TearDown() override {
    runner_.reset();
    context_ = nullptr;
    FakeCefTest::TearDown();
  }

  std::optional<ContextRunner> runner_{std::in_place};
  Own<FakeV8Context> context_ = Make<FakeV8Context>(1, nullptr);
  int runs_ = 0;
};

TEST_F(ContextRunnerTest, RunsActionInContext) {
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [this] {
    EXPECT_TRUE(CefV8Context::GetCurrentContext()->IsSame(Wrapped(context_)));
    EXPECT_EQ(context_->entered, context_->exited);
    ++runs_;
  }));
  EXPECT_EQ(runs_, 1);
  EXPECT_EQ(library().entered_contexts, 0);
}

TEST_F(ContextRunnerTest, CreatesOneFunctionPerContext) {
  const auto other = Make<FakeV8Context>(2, nullptr);
  for (int i = 0; i < 3; ++i) {
    runner_->Run(Wrapped(context_), [] {});
    runner_->Run(Wrapped(other), [] {});
  }
  EXPECT_EQ(context_->entered, 1);
  EXPECT_EQ(other->entered, 1);
  EXPECT_EQ(context_->executed, 3);
  EXPECT_EQ(other->executed, 3);
}

TEST_F(ContextRunnerTest, RunsNothingInEndedContext) {
  context_->can_enter = false;
  EXPECT_FALSE(runner_->Run(Wrapped(context_), [this] { ++runs_; }));
  context_->can_enter = true;
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [] {}));
  context_->can_enter = false;
  EXPECT_FALSE(runner_->Run(Wrapped(context_), [this] { ++runs_; }));
  EXPECT_EQ(runs_, 0);
  context_->can_enter = true;
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [] {})) << "without the previous action";
}

TEST_F(ContextRunnerTest, RunsNothingWithoutFunction) {
  library().gives_nothing = true;
  EXPECT_FALSE(runner_->Run(Wrapped(context_), [this] { ++runs_; }));
  EXPECT_EQ(runs_, 0);
  EXPECT_EQ(context_->exited, 1);
}

TEST_F(ContextRunnerTest, ActionCanRunAnother) {
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [this] {
    EXPECT_TRUE(runner_->Run(Wrapped(context_), [this] { ++runs_; }));
    context_->can_enter = false;
    EXPECT_FALSE(runner_->Run(Wrapped(context_), [this] { ++runs_; }));
  }));
  EXPECT_EQ(runs_, 1);
}

TEST_F(ContextRunnerTest, ActionCanEndContextAndRunner) {
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [this] {
    context_->can_enter = false;
    runner_->Forget(Wrapped(context_));
    runner_.reset();
  }));
}

TEST_F(ContextRunnerTest, ReleasesForgottenContext) {
  runner_->Run(Wrapped(context_), [] {});
  EXPECT_EQ(context_->references(), 2);
  runner_->Forget(Wrapped(context_));
  EXPECT_EQ(context_->references(), 1);
  runner_->Forget(Wrapped(context_));
  EXPECT_TRUE(runner_->Run(Wrapped(context_), [] {}));
}

}  // namespace
