#pragma once

#include <gtest/gtest.h>
#include <string>

#include "platform/property_list.h"

// The key that tests look up in property lists of both forms.
inline const std::string kKey = "CFBundleShortVersionString";

inline void ExpectText(const std::string& bytes, const std::string& expected) {
  std::string value = "before";
  EXPECT_TRUE(platform::FindPropertyListText(bytes, kKey, value)) << testing::PrintToString(bytes);
  EXPECT_EQ(value, expected);
}

inline void ExpectNone(const std::string& bytes, const std::string& key = kKey) {
  std::string value = "before";
  EXPECT_FALSE(platform::FindPropertyListText(bytes, key, value)) << testing::PrintToString(bytes);
  EXPECT_EQ(value, "before");
}

// Checks a list that is valid at the top but damaged below.
inline void ExpectTextOrNone(const std::string& bytes, const std::string& expected) {
  std::string value = "before";
  const bool found = platform::FindPropertyListText(bytes, kKey, value);
  EXPECT_EQ(value, found ? expected : "before");
}

inline std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i)
    repeated += text;
  return repeated;
}

// Returns a list in XML with the given top object.
inline std::string Xml(const std::string& top) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n" +
         top + "\n</plist>\n";
}

// Returns a list in XML whose dictionary has the element `value` for the key.
inline std::string XmlDictionary(const std::string& value) {
  return Xml("<dict>\n\t<key>CFBundleName</key>\n\t<string>Cirrane</string>\n\t<key>" + kKey +
             "</key>\n\t" + value + "\n\t<key>Last</key>\n\t<true/>\n</dict>");
}
