#include "linux/SyslogLog.h"

#include <syslog.h>

#include "linux/LogLine.h"

namespace frelta {

namespace {

constexpr std::size_t kMaximumBytes = 8192;

}  // namespace

SyslogLog::SyslogLog() {
  ::openlog("frelta-settings", LOG_PID, LOG_USER);
}

void SyslogLog::log(std::string_view line) {
  ::syslog(LOG_USER | LOG_NOTICE, "%s", harmlessLine(line, kMaximumBytes).c_str());
}

}  // namespace frelta
