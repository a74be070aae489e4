#include "logging/secret_masking.h"

#include <gtest/gtest.h>
#include <random>

#include "logging/log_target_default.h"
#include "tests/logging/plain_masking.h"
#include "tests/support/test_home.h"

namespace {

std::string Masked(const std::string& message) {
  std::string scratch;
  return std::string(tarn::MaskSecrets(message, tarn::SecretElementNames(), scratch));
}

TEST(SecretMaskingTest, ReplacesValueOfSecretElement) {
  EXPECT_EQ(Masked("xx<password>secret</password>yy"), "xx<password>****</password>yy");
  for (const char* const name : {"proxyusername", "proxy-user", "proxyuser", "user", "username",
                                 "proxy-password", "proxypassword", "password"}) {
    const std::string open = "<" + std::string(name) + ">";
    const std::string close = "</" + std::string(name) + ">";
    EXPECT_EQ(Masked(open + "a" + close), open + "****" + close);
  }
}

TEST(SecretMaskingTest, TagsMatchAndKeepAnyCase) {
  EXPECT_EQ(Masked("xx<Password>secret</Password>yy"), "xx<Password>****</Password>yy");
  EXPECT_EQ(Masked("<USER>A</uSeR>"), "<USER>****</uSeR>");
}

TEST(SecretMaskingTest, EmptyElementStaysEmpty) {
  EXPECT_EQ(Masked("<password></password>"), "<password></password>");
}

TEST(SecretMaskingTest, MasksOnlyFirstElementOfName) {
  EXPECT_EQ(Masked("<user>a</user><user>b</user>"), "<user>****</user><user>b</user>");
  EXPECT_EQ(Masked("<user></user><user>b</user>"), "<user></user><user>b</user>");
}

TEST(SecretMaskingTest, MasksEachNameSeparately) {
  EXPECT_EQ(Masked("<password>a</password><proxyuser>b</proxyuser><user>c</user>"),
            "<password>****</password><proxyuser>****</proxyuser><user>****</user>");
  EXPECT_EQ(Masked("<proxyuser2>b</proxyuser2>"), "<proxyuser2>b</proxyuser2>");
}

TEST(SecretMaskingTest, ElementWithAttributesIsNotMasked) {
  EXPECT_EQ(Masked("<password type=x>secret</password>"), "<password type=x>secret</password>");
}

TEST(SecretMaskingTest, DoesNotMaskElementWithOneTag) {
  EXPECT_EQ(Masked("<password>secret"), "<password>secret");
  EXPECT_EQ(Masked("secret</password>"), "secret</password>");
  EXPECT_EQ(Masked("<password"), "<password");
}

TEST(SecretMaskingTest, LeadingClosingTagDuplicatesTextBetween) {
  EXPECT_EQ(Masked("</user>x<user>"), "</user>x<user>****</user>x<user>");
  EXPECT_EQ(Masked("</user>x<user>y</user>z"), "</user>x<user>****</user>x<user>y</user>z");
}

TEST(SecretMaskingTest, ReplacesMessageWithToken) {
  EXPECT_EQ(Masked("token=abc.eyJzdWIi"), "Found access/device token. Log skipped.");
  EXPECT_EQ(Masked("xx.eyJhbGc <password>a</password>"), "Found access/device token. Log skipped.");
  EXPECT_EQ(Masked(".eyJ"), "Found access/device token. Log skipped.");
}

TEST(SecretMaskingTest, BeginningOfTokenIsNotToken) {
  EXPECT_EQ(Masked("eyJhbGc <user>a</user>"), "eyJhbGc <user>****</user>");
  EXPECT_EQ(Masked(".eyj .EYJ .ey"), ".eyj .EYJ .ey");
}

TEST(SecretMaskingTest, MessageWithoutSecretsIsNotCopied) {
  for (const std::string message : {"", "a line", "1 < 2 > 0 </password> <pass> eyJ. .ey", "<"}) {
    std::string scratch = "untouched";
    const std::string_view masked = tarn::MaskSecrets(message, tarn::SecretElementNames(), scratch);
    EXPECT_EQ(masked.data(), message.data());
    EXPECT_EQ(masked.size(), message.size());
    EXPECT_EQ(scratch, "untouched");
  }
}

TEST(SecretMaskingTest, AcceptsAnyBytes) {
  const std::string message("\0<user>\xff\0</user>\0", 17);
  EXPECT_EQ(Masked(message), std::string("\0<user>****</user>\0", 19));
}

TEST(SecretMaskingTest, MasksNothingWithoutNames) {
  std::string masked = "<user>a</user>";
  tarn::MaskElements(masked, {}, masked);
  EXPECT_EQ(masked, "<user>a</user>");
}

TEST(SecretMaskingTest, TargetUsesOwnNames) {
  const TestHome home;
  tarn::LogTargetDefault target("id");
  std::string masked = "<User>a</User>";
  target.hideDataOfXMLTag("<User>a</User>", masked);
  EXPECT_EQ(masked, "<User>****</User>");
  std::string text = "0123456789";
  target.hideDataOfXMLTagHelper(text, 2, 7, 3);
  EXPECT_EQ(text, "01234****789");
}

// Generates messages of relevant pieces in random order.
std::string Invent(std::mt19937& random) {
  const auto below = [&random](std::size_t count) { return random() % count; };
  const std::vector<std::string>& names = tarn::SecretElementNames();
  std::string message;
  for (std::size_t pieces = below(9); pieces > 0; --pieces) {
    static const char* const kPieces[] = {"<",   "</",   ">", "*", ".",
                                          "eyJ", ".eyJ", "a", "J", "\xe4"};
    const std::string& name = names[below(names.size())];
    switch (below(5)) {
      case 0:
        message += "<" + name + ">";
        break;
      case 1:
        message += "</" + name + ">";
        break;
      case 2:
        message += name;
        break;
      default:
        message += kPieces[below(std::size(kPieces))];
    }
    if (below(4) == 0 && !message.empty()) {
      char& c = message[below(message.size())];
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
  }
  return message;
}

TEST(SecretMaskingTest, MasksGeneratedMessagesLikePlainRules) {
  // NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp): the same messages each time, to find one again.
  std::mt19937 random(4);
  int changed = 0;
  for (int i = 0; i < 1000000; ++i) {
    const std::string message = Invent(random);
    const std::string expected = MaskPlainly(message);
    ASSERT_EQ(Masked(message), expected) << message;
    if (expected != message) ++changed;
  }
  EXPECT_GT(changed, 100000);
  EXPECT_LT(changed, 900000);
}

}  // namespace
