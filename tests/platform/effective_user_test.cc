#include "platform/effective_user.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <thread>

#include "tests/support/temporary_folder.h"

namespace {

// Two users, who need not be in the user database.
constexpr uid_t kSomebody = 65534;
constexpr uid_t kAnother = 65533;

TEST(EffectiveUserTest, OwnIdentityNeedsNoPrivilege) {
  const uid_t own = geteuid();
  {
    const platform::EffectiveUser user(own);
    EXPECT_TRUE(user.borrowed());
    EXPECT_EQ(geteuid(), own);
  }
  EXPECT_EQ(geteuid(), own);
}

class BorrowedUserTest : public testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  }
};

TEST_F(BorrowedUserTest, BorrowsAndRestoresIdentity) {
  {
    const platform::EffectiveUser user(kSomebody);
    EXPECT_TRUE(user.borrowed());
    EXPECT_EQ(geteuid(), kSomebody);
    EXPECT_EQ(getuid(), 0U);
  }
  EXPECT_EQ(geteuid(), 0U);
}

TEST_F(BorrowedUserTest, RefusesFilesAsForThatUser) {
  const TemporaryFolder folder;  // accessible only to its owner
  const platform::EffectiveUser user(kSomebody);
  EXPECT_EQ(open(folder.path().c_str(), O_RDONLY | O_DIRECTORY), -1);
  EXPECT_EQ(errno, EACCES);
}

TEST_F(BorrowedUserTest, AppliesToEveryThread) {
  uid_t seen = 0;
  {
    const platform::EffectiveUser user(kSomebody);
    std::thread([&seen] { seen = geteuid(); }).join();
  }
  EXPECT_EQ(seen, kSomebody);
}

TEST_F(BorrowedUserTest, RestoresNestedIdentitiesInTurn) {
  {
    const platform::EffectiveUser outer(kSomebody);
    {
      // An ordinary user may not take another ordinary user's identity.
      const platform::EffectiveUser refused(kAnother);
      EXPECT_FALSE(refused.borrowed());
      EXPECT_EQ(geteuid(), kSomebody);
      const platform::EffectiveUser inner(0);
      EXPECT_TRUE(inner.borrowed());
      EXPECT_EQ(geteuid(), 0U);
    }
    EXPECT_EQ(geteuid(), kSomebody);
  }
  EXPECT_EQ(geteuid(), 0U);
}

TEST_F(BorrowedUserTest, AbortsWhenIdentityCannotBeRestored) {
  EXPECT_EXIT(
      {
        const platform::EffectiveUser user(kSomebody);
        if (setresuid(kSomebody, kSomebody, kSomebody) != 0) _exit(3);
      },
      testing::KilledBySignal(SIGABRT), "cannot return to user 0: Operation not permitted");
}

TEST_F(BorrowedUserTest, KeepsOwnIdentityWithoutPrivilege) {
  EXPECT_EXIT(
      {
        if (setuid(kSomebody) != 0) _exit(3);
        bool borrowed = true;
        bool kept = false;
        {
          const platform::EffectiveUser user(kAnother);
          borrowed = user.borrowed();
          kept = geteuid() == kSomebody;
        }
        _exit(!borrowed && kept && geteuid() == kSomebody ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
