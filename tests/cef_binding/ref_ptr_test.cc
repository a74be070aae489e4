#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

#include "include/cef_base.h"

namespace {

class Counted : public virtual CefBaseRefCounted {
 public:
  explicit Counted(int& ends) : ends_(ends) {}
  ~Counted() override { ++ends_; }

 private:
  int& ends_;

  IMPLEMENT_REFCOUNTING(Counted)
};

class Derived : public Counted {
 public:
  using Counted::Counted;
};

TEST(RefPtrTest, LastReferenceDeletesObject) {
  int ends = 0;
  {
    CefRefPtr<Counted> first(new Counted(ends));
    EXPECT_TRUE(first->HasOneRef());
    const CefRefPtr<Counted> second(first);
    EXPECT_FALSE(first->HasOneRef());
    first = nullptr;
    EXPECT_TRUE(second->HasOneRef());
    EXPECT_EQ(ends, 0);
  }
  EXPECT_EQ(ends, 1);
}

TEST(RefPtrTest, OnlyLastReleaseReturnsTrue) {
  int ends = 0;
  const auto* object = new Counted(ends);
  object->AddRef();
  object->AddRef();
  EXPECT_FALSE(object->Release());
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(object->Release());
  EXPECT_EQ(ends, 1);
}

TEST(RefPtrTest, AssignmentReleasesPreviousObject) {
  int first_ends = 0;
  int second_ends = 0;
  CefRefPtr<Counted> reference(new Counted(first_ends));
  reference = new Counted(second_ends);
  EXPECT_EQ(first_ends, 1);
  EXPECT_EQ(second_ends, 0);
  reference = nullptr;
  EXPECT_EQ(second_ends, 1);
}

TEST(RefPtrTest, SelfAssignmentKeepsObject) {
  int ends = 0;
  CefRefPtr<Counted> reference(new Counted(ends));
  const CefRefPtr<Counted>& same = reference;
  reference = same;
  reference = reference.get();
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(reference->HasOneRef());
}

TEST(RefPtrTest, MoveLeavesNull) {
  int ends = 0;
  CefRefPtr<Counted> from(new Counted(ends));
  CefRefPtr<Counted> to(std::move(from));
  EXPECT_EQ(from, nullptr);
  EXPECT_TRUE(to->HasOneRef());
  from = std::move(to);
  EXPECT_EQ(to, nullptr);
  EXPECT_TRUE(from->HasOneRef());
  EXPECT_EQ(ends, 0);
}

TEST(RefPtrTest, ConvertsToBaseClass) {
  int ends = 0;
  const CefRefPtr<Derived> derived(new Derived(ends));
  const CefRefPtr<CefBaseRefCounted> base(derived);
  EXPECT_EQ(base, derived);
  EXPECT_FALSE(derived->HasOneRef());
}

TEST(RefPtrTest, SwapExchangesObjects) {
  int ends = 0;
  CefRefPtr<Counted> one(new Counted(ends));
  CefRefPtr<Counted> none;
  Counted* const object = one.get();
  one.swap(none);
  EXPECT_EQ(one, nullptr);
  EXPECT_EQ(none.get(), object);
  EXPECT_TRUE(none->HasOneRef());
  EXPECT_TRUE(none != nullptr);
  EXPECT_TRUE(none != one);
  EXPECT_FALSE(one);
}

TEST(RefPtrTest, CountsReferencesOfSeveralThreads) {
  int ends = 0;
  {
    const CefRefPtr<Counted> shared(new Counted(ends));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([copy = shared] {
        for (int n = 0; n < 2000; ++n)
          const CefRefPtr<Counted> another(copy);
      });
    }
    for (auto& thread : threads)
      thread.join();
    threads.clear();
    EXPECT_TRUE(shared->HasOneRef());
  }
  EXPECT_EQ(ends, 1);
}

}  // namespace
