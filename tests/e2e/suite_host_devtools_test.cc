// Remote debugging of the example browser.

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/e2e/host_output.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A TCP socket on a port of the loopback interface.
class LoopbackSocket {
 public:
  LoopbackSocket() : descriptor_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    EXPECT_GE(descriptor_, 0);
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  }
  LoopbackSocket(const LoopbackSocket&) = delete;
  LoopbackSocket& operator=(const LoopbackSocket&) = delete;
  ~LoopbackSocket() { close(descriptor_); }

  // Returns the port.
  int Listen() {
    socklen_t size = sizeof address_;
    EXPECT_EQ(bind(descriptor_, address(), size), 0);
    EXPECT_EQ(getsockname(descriptor_, reinterpret_cast<sockaddr*>(&address_), &size), 0);
    EXPECT_EQ(listen(descriptor_, 1), 0);
    return ntohs(address_.sin_port);
  }

  // Returns the beginning of the response, up to the first read that contains `word`.
  std::string Get(int port, const std::string& path, const std::string& word) {
    address_.sin_port = htons(static_cast<std::uint16_t>(port));
    EXPECT_EQ(connect(descriptor_, address(), sizeof address_), 0);
    const std::string request = "GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n";
    EXPECT_EQ(send(descriptor_, request.data(), request.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(request.size()));
    std::string answer;
    char buffer[4096];
    for (ssize_t size = 0; answer.find(word) == std::string::npos &&
                           (size = read(descriptor_, buffer, sizeof buffer)) > 0;) {
      answer.append(buffer, static_cast<std::size_t>(size));
    }
    return answer;
  }

 private:
  const sockaddr* address() const { return reinterpret_cast<const sockaddr*>(&address_); }

  const int descriptor_;
  sockaddr_in address_{};
};

TEST(SuiteHostDevtools, AnswerAtAddressOfTheirEvent) {
  SuiteHostRun run("input.html", {"--stdin", "--devtools=0"});
  ASSERT_FALSE(run.WaitForMessage("ready").is_null());
  const auto event = run.WaitFor([](const auto& next) { return next["event"] == "devtools"; });
  ASSERT_FALSE(event.is_null());
  const std::string url = event["url"];
  const std::string host = "http://127.0.0.1:";
  ASSERT_EQ(url.rfind(host, 0), 0U) << url;
  const std::string page = FileUrl(E2E_PAGES "/input.html");
  EXPECT_THAT(LoopbackSocket().Get(std::stoi(url.substr(host.size())), "/json", page),
              HasSubstr(page));
  run.Write(R"({"quit": 0})");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.Errors(), ElementsAre());
}

TEST(SuiteHostDevtools, PortInUseIsReported) {
  LoopbackSocket socket;
  const std::string port = std::to_string(socket.Listen());
  const HostOutput output = RunHost(SUITE_HOST, {"--devtools=" + port, "/dev/null"});
  EXPECT_THAT(output.lines, ElementsAre("suite_host: cannot use port " + port +
                                        " for DevTools: Address already in use"));
  EXPECT_EQ(output.status, 1);
}

}  // namespace
