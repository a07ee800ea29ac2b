#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "fake/FakeServices.h"
#include "linux/LogLine.h"
#include "linux/SyslogLog.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/MountNamespace.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

template <typename Subject>
class LogContract : public testing::Test {
 protected:
  Subject log;
};

using Logs = testing::Types<SyslogLog, FakeLog>;
TYPED_TEST_SUITE(LogContract, Logs);

TYPED_TEST(LogContract, NoLineMakesItFail) {
  EXPECT_NO_THROW(this->log.log(""));
  EXPECT_NO_THROW(this->log.log("%s%n%d"));
  EXPECT_NO_THROW(this->log.log(std::string_view("nul\0 and \xff\xfe\n", 13)));
  EXPECT_NO_THROW(this->log.log(std::string(20 << 20, '\n')));
}

TEST(FakeLog, RecordsLinesInOrder) {
  FakeLog log;

  log.log("one");
  log.log("two");

  EXPECT_THAT(log.lines, ElementsAre("one", "two"));
}

TEST(LogLine, KeepsPrintableText) {
  EXPECT_EQ(harmlessLine("", 100), "");
  EXPECT_EQ(harmlessLine("[Frelta] \"größe\" 鍵盤 🎹 \\", 100), "[Frelta] \"größe\" 鍵盤 🎹 \\");
}

TEST(LogLine, ShowsBreaksAndControlCharactersAsEscapes) {
  EXPECT_EQ(harmlessLine("a\nb\rc\td", 100), "a\\nb\\rc\\td");
  EXPECT_EQ(harmlessLine(std::string_view("\0\x1b[31m\x7f", 7), 100), "\\x00\\x1b[31m\\x7f");
  EXPECT_EQ(harmlessLine("\u0085\u009b\u2028\u2029", 100), "\\u0085\\u009b\\u2028\\u2029");
  EXPECT_EQ(harmlessLine("\x1f~\u0080\u009f", 100), "\\x1f~\\u0080\\u009f");
  EXPECT_EQ(harmlessLine(" \u00a0\u2027\u202f", 100), " \u00a0\u2027\u202f");
}

TEST(LogLine, ShowsWhatTurnsTheDirectionOfTextAsEscapes) {
  EXPECT_EQ(harmlessLine("\u061c\u200e\u200f", 100), "\\u061c\\u200e\\u200f");
  EXPECT_EQ(harmlessLine("\u202a\u202e\u2066\u2069", 100), "\\u202a\\u202e\\u2066\\u2069");
  EXPECT_EQ(harmlessLine("\u061b\u061d\u200d\u2010\u202f\u2065\u206a", 100),
            "\u061b\u061d\u200d\u2010\u202f\u2065\u206a");
}

TEST(LogLine, ShowsBytesThatAreNoTextAsEscapes) {
  EXPECT_EQ(harmlessLine("a\xff"
                         "b",
                         100),
            "a\\xffb");
  EXPECT_EQ(harmlessLine("cut \xe4\xb8", 100), "cut \\xe4\\xb8");
  EXPECT_EQ(harmlessLine("\xed\xa0\x80", 100), "\\xed\\xa0\\x80");
}

TEST(LogLine, CutsLongLinesBetweenCharacters) {
  EXPECT_EQ(harmlessLine("0123456789", 10), "0123456789");
  EXPECT_EQ(harmlessLine("0123456789x", 10), "0123456…");
  EXPECT_EQ(harmlessLine("ääääää", 12), "ääääää");
  EXPECT_EQ(harmlessLine("äääääää", 12), "ääää…");
  EXPECT_EQ(harmlessLine("\n\n\n\n\n\n", 10), "\\n\\n\\n…");
  EXPECT_EQ(harmlessLine("🎹🎹", 4), "…");
}

TEST(LogLine, CutsAHugeLine) {
  const std::string huge(100 << 20, 'h');

  const std::string line = harmlessLine(huge, 8192);

  EXPECT_EQ(line, std::string(8189, 'h') + "…");
}

TEST(SyslogLog, SendsOneRecordALine) {
  int ends[2];
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);

  // A system log of its own, in a /dev of its own.
  const int status = exitStatusOfChild([&] {
    if (!enterOwnMountNamespace() || ::mount("dev", "/dev", "tmpfs", 0, nullptr) != 0) return 77;
    const int server = ::socket(AF_UNIX, SOCK_DGRAM, 0);
    sockaddr_un address{AF_UNIX, "/dev/log"};
    if (::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return 77;
    SyslogLog log;
    log.log("100% one\ntwo");
    log.log(std::string(1 << 20, 'x'));
    for (int i = 0; i < 2; ++i) {
      std::string record(20'000, '\0');
      const ssize_t size = ::recv(server, record.data(), record.size(), MSG_DONTWAIT);
      if (size < 0) return 1;
      ::send(ends[1], record.data(), static_cast<std::size_t>(size), 0);
    }
    char more;
    return ::recv(server, &more, 1, MSG_DONTWAIT) < 0 ? 0 : 2;
  });
  if (status == 77) GTEST_SKIP() << "NOT TESTED: no /dev of its own can be mounted here";
  const auto receive = [&] {
    std::string record(20'000, '\0');
    const ssize_t size = ::recv(ends[0], record.data(), record.size(), MSG_DONTWAIT);
    record.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return record;
  };
  const std::string first = receive();
  const std::string second = receive();
  ::close(ends[0]);
  ::close(ends[1]);

  EXPECT_EQ(status, 0);
  // Facility user (1), severity notice (5).
  EXPECT_THAT(first, testing::StartsWith("<13>"));
  EXPECT_THAT(first, HasSubstr("frelta-settings["));
  EXPECT_THAT(first, HasSubstr(": 100% one\\ntwo"));
  EXPECT_THAT(second, HasSubstr("xxx…"));
  EXPECT_LT(second.size(), 8300u);
}

}  // namespace
}  // namespace frelta
