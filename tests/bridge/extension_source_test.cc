#include <gtest/gtest.h>
#include <cstring>
#include <fstream>

#include "bridge/app_extension.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(ExtensionSourceTest, NameIsFixed) { EXPECT_STREQ(kAppExtensionName, "v8/app"); }

TEST(ExtensionSourceTest, LengthIsFixed) { EXPECT_EQ(std::strlen(kAppExtensionSource), 448u); }

TEST(ExtensionSourceTest, EveryByteIsFixed) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/source";
  std::ofstream(file, std::ios::binary) << kAppExtensionSource;
  ChildProcess digest({"python3", "-c",
                       "import hashlib, sys; "
                       "print(hashlib.sha256(open(sys.argv[1], 'rb').read()).hexdigest())",
                       file},
                      {});
  std::string line;
  ASSERT_TRUE(digest.ReadLine(line));
  EXPECT_EQ(line, "4293bb134b0e356afea6932393ea3446242c9bd75f9e52480cd8b0e3b6a44764");
  EXPECT_EQ(digest.Wait(), 0);
}

}  // namespace
