#include "logging/path_utils.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

struct Join {
  std::string path;
  std::string component;
  std::string joined;
};

TEST(PathUtilsTest, JoinsWithExactlyOneSlash) {
  const Join cases[] = {
      {"/a", "b", "/a/b"}, {"/a/", "b", "/a/b"},    {"/a", "/b", "/a/b"}, {"/a//", "//b", "/a/b"},
      {"/", "b", "/b"},    {"", "b", "b"},          {"", "/b", "/b"},     {"a", "b/", "a/b"},
      {"/a", "", "/a"},    {"/a", "b/c", "/a/b/c"}, {"/a", "/", "/a"},
  };
  for (const Join& each : cases) {
    std::string path = each.path;
    EXPECT_TRUE(tarn::appendPath(path, each.component));
    EXPECT_EQ(path, each.joined) << each.path << " and " << each.component;
  }
}

TEST(PathUtilsTest, RefusesTwoEmptyPaths) {
  std::string path;
  EXPECT_FALSE(tarn::appendPath(path, ""));
  EXPECT_EQ(path, "");
}

TEST(PathUtilsTest, RemovesLastComponentWithSlash) {
  const std::pair<std::string, std::string> cases[] = {
      {"/a/b", "/a"}, {"/a/b/", "/a"}, {"/a", "/"}, {"/", "/"}, {"a", ""}, {"a/b", "a"}};
  for (const auto& [before, after] : cases) {
    std::string path = before;
    EXPECT_TRUE(tarn::removeLastPathComponent(path)) << before;
    EXPECT_EQ(path, after) << before;
  }
  std::string empty;
  EXPECT_FALSE(tarn::removeLastPathComponent(empty));
}

TEST(PathUtilsTest, ExtensionIsChanged) {
  const std::pair<std::string, std::string> cases[] = {
      {"CRN.log", "CRN.trace"},   {"CRN", "CRN.trace"},          {"/a.b/c", "/a.b/c.trace"},
      {"a.b.log", "a.b.trace"},   {".hidden", ".hidden.trace"},  {"/x/CRN.log/", "/x/CRN.trace"},
      {"CRN.trace", "CRN.trace"}, {"/h/CRN.log", "/h/CRN.trace"}};
  for (const auto& [before, after] : cases) {
    std::string path = before;
    EXPECT_TRUE(tarn::changeFileExtension(path, "trace")) << before;
    EXPECT_EQ(path, after) << before;
  }
}

TEST(PathUtilsTest, RefusesExtensionWithoutFileName) {
  for (const char* const text : {"", "/", "//"}) {
    std::string path = text;
    EXPECT_FALSE(tarn::addFileExtension(path, "log")) << text;
    EXPECT_FALSE(tarn::changeFileExtension(path, "log")) << text;
    EXPECT_EQ(path, text);
  }
}

TEST(PathUtilsTest, AddsExtensionAfterAnother) {
  std::string path = "/a/CRN.log";
  EXPECT_TRUE(tarn::addFileExtension(path, "old"));
  EXPECT_EQ(path, "/a/CRN.log.old");
}

TEST(PathUtilsTest, RemovesExtensionOnlyFromLastComponent) {
  const std::pair<std::string, std::string> cases[] = {{"/a.b/c", "/a.b/c"},
                                                       {"/a/c.d.e", "/a/c.d"},
                                                       {".profile", ".profile"},
                                                       {"a.", "a"},
                                                       {"plain", "plain"}};
  for (const auto& [before, after] : cases) {
    std::string path = before;
    EXPECT_TRUE(tarn::removeFileExtension(path));
    EXPECT_EQ(path, after) << before;
  }
}

TEST(PathUtilsTest, GetsExtensionAfterLastDotAnywhere) {
  std::string ext = "before";
  EXPECT_FALSE(tarn::getFileExtension("/a/c", ext));
  EXPECT_EQ(ext, "before");
  EXPECT_TRUE(tarn::getFileExtension("/a.b/c", ext));
  EXPECT_EQ(ext, "b/c");
  EXPECT_TRUE(tarn::getFileExtension("CRN.log", ext));
  EXPECT_EQ(ext, "log");
  EXPECT_TRUE(tarn::getFileExtension("CRN.", ext));
  EXPECT_EQ(ext, "");
}

TEST(PathUtilsTest, BaseNameIsLastComponent) {
  const std::pair<std::string, std::string> cases[] = {
      {"/a/b.log", "b.log"}, {"b.log", "b.log"}, {"/a/b/", "b"}, {"/", "/"}};
  for (const auto& [path, expected] : cases) {
    std::string name = "before";
    EXPECT_TRUE(tarn::getFilePathBaseName(path, name));
    EXPECT_EQ(name, expected);
  }
  std::string name = "before";
  EXPECT_FALSE(tarn::getFilePathBaseName("", name));
  EXPECT_EQ(name, "");
}

TEST(PathUtilsTest, FileNameHasNoSlash) {
  EXPECT_TRUE(tarn::isFileName("CRN.log"));
  EXPECT_TRUE(tarn::isFileName("a b"));
  EXPECT_FALSE(tarn::isFileName("x/CRN.log"));
  EXPECT_FALSE(tarn::isFileName("/CRN.log"));
  EXPECT_FALSE(tarn::isFileName("CRN.log/"));
}

TEST(PathUtilsTest, InsertsTimeStampBeforeExtension) {
  std::string path = "/logs/CRN.log";
  EXPECT_TRUE(tarn::appendTimeStampToFile(path));
  EXPECT_EQ(path.substr(0, 10), "/logs/CRN ");
  EXPECT_EQ(path.substr(29), ".log");
  EXPECT_EQ(path.size(), std::string("/logs/CRN 2026-11-15 21-05-07.log").size());
  std::string plain = "/logs/CRN";
  EXPECT_FALSE(tarn::appendTimeStampToFile(plain));
  EXPECT_EQ(plain, "/logs/CRN");
}

}  // namespace
