// The device library's log: level, redirection, and delivery into a managed
// subclass of LoggingCallbackWrapper.
%feature("director") LoggingCallbackWrapper;

class LoggingCallbackWrapper {
 public:
  virtual ~LoggingCallbackWrapper();
  virtual void callback(const char* message, unsigned int first_number, unsigned int second_number,
                        const char* second_text) = 0;
};

namespace Velarion {

// Only ever reached through the library object that owns it.
%nodefaultctor LoggingExternalInterface;

class LoggingExternalInterface {
 public:
  ~LoggingExternalInterface();
  int getLogLevel() const;
  bool setLogLevel(int level);
  bool redirectLoggingToFile(const char* path);
  bool redirectLoggingToNull();
  bool redirectLoggingToStdOut();
  bool redirectLoggingToStdErr();
  %extend {
    bool setManagedLoggingCallback(unsigned int level, LoggingCallbackWrapper* wrapper);
  }
};

}  // namespace Velarion
