// The device library's log: level, destination and per-level callbacks.
#pragma once

#include "Velarion/Export.h"

namespace Velarion {

// Messages of level L are written when L <= the interface's log level.
enum class LogLevel : int {
  Off = 0,
  Error = 1,
  Warning = 2,
  Info = 3,
  Debug = 4,
  Trace = 5,
};

// (message, level, sequence number of the message in the process,
//  area of the device library that logged it, user data given at registration)
typedef void (*LoggingCallbackFunction)(const char* message, unsigned int level, unsigned int sequence,
                                        const char* area, void* user_data);

struct LoggingExternalInterfaceImplementation;

// Each library object owns one; it receives every message the device library
// logs while it lives, from whatever thread logs it.
class VELARION_API LoggingExternalInterface {
 public:
  // Level Warning, written to standard error, no callbacks.
  LoggingExternalInterface();
  ~LoggingExternalInterface();
  LoggingExternalInterface(const LoggingExternalInterface&) = delete;
  LoggingExternalInterface& operator=(const LoggingExternalInterface&) = delete;

  int getLogLevel() const;
  // False, and the level unchanged, outside Off .. Trace.
  bool setLogLevel(int level);

  // Appends to the file; false (destination unchanged) when it cannot be opened.
  bool redirectLoggingToFile(const char* path);
  bool redirectLoggingToNull();
  bool redirectLoggingToStdOut();
  bool redirectLoggingToStdErr();

  // From now on every message of exactly `level` is also handed to `callback`,
  // whatever the log level and destination. A null callback removes it.
  // False for a level outside Error .. Trace.
  bool setCallbackForLogLevel(unsigned int level, LoggingCallbackFunction callback, void* user_data);

 private:
  LoggingExternalInterfaceImplementation* implementation_;
};

}  // namespace Velarion
