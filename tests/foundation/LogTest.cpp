#include "foundation/Log.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/Platform.h"

namespace frelta {
namespace {

class RecordingLog : public Log {
 public:
  void log(std::string_view line) override { lines.emplace_back(line); }
  std::vector<std::string> lines;
};

TEST(Log, FreltaLogPutsThePrefixBeforeTheText) {
  RecordingLog log;
  Platform platform;
  platform.log = &log;
  Platform::install(platform);

  freltaLog("first");
  freltaLog("");

  EXPECT_EQ(log.lines, (std::vector<std::string>{"[Frelta] first", "[Frelta] "}));
  Platform::install({});
}

TEST(Log, FreltaLogWritesToThePlatformInstalledLast) {
  RecordingLog first, second;
  Platform platform;
  platform.log = &first;
  Platform::install(platform);
  platform.log = &second;
  Platform::install(platform);

  freltaLog("x");

  EXPECT_TRUE(first.lines.empty());
  EXPECT_EQ(second.lines.size(), 1u);
  Platform::install({});
}

}  // namespace
}  // namespace frelta
