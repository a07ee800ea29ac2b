#pragma once

#include "foundation/Log.h"

namespace frelta {

/// The host's system log, as "frelta-settings". Very long lines are cut.
class SyslogLog : public Log {
 public:
  SyslogLog();
  void log(std::string_view line) override;
};

}  // namespace frelta
