// The logging bridge: device-library log lines reach a connected managed
// callback per level; redirection and levels pass through to the device library.
#include "support/interop_harness.h"

#include <cstdio>
#include <fstream>
#include <sstream>

#include "Velarion/Alignment.h"
#include "Velarion/LoggingExternalInterface.h"

using namespace harness;

namespace {

using ManagedCallback = void (*)(void*, unsigned int, unsigned int, void*);

struct Received {
  std::optional<std::string> message;
  unsigned int first;
  unsigned int second;
  std::optional<std::string> secondText;
};
std::vector<Received> firstDelegate;
std::vector<Received> secondDelegate;

void recordFirst(void* message, unsigned int a, unsigned int b, void* text) {
  firstDelegate.push_back({managedString(message), a, b, managedString(text)});
}
void recordSecond(void* message, unsigned int a, unsigned int b, void* text) {
  secondDelegate.push_back({managedString(message), a, b, managedString(text)});
}

constexpr unsigned int kWarning = static_cast<unsigned int>(Velarion::LogLevel::Warning);

// A failed alignment load is a real device-library warning.
void logAWarning() {
  Velarion::Alignment alignment;
  EXPECT_FALSE(alignment.loadAlignment("/nonexistent/folder/alignment.txt"));
}

class LoggingBridge : public ExportTest {
 protected:
  void SetUp() override {
    ExportTest::SetUp();
    firstDelegate.clear();
    secondDelegate.clear();
    call<unsigned int(void*)>("CSharp_Velarion_LoggingExternalInterface_redirectLoggingToNull", log);
    wrapper = call<void*()>("CSharp_Velarion_new_LoggingCallbackWrapper");
  }
  void TearDown() override {
    // Unregister before the wrapper goes: the device library keeps the raw pointer.
    call<unsigned int(void*, unsigned int, void*)>("CSharp_Velarion_LoggingExternalInterface_setManagedLoggingCallback",
                                                   log, kWarning, nullptr);
    call<void(void*)>("CSharp_Velarion_delete_LoggingCallbackWrapper", wrapper);
    call<void(void*)>("CSharp_Velarion_delete_LoggingExternalInterface", log);
    ExportTest::TearDown();
  }
  void connect(ManagedCallback callback) {
    call<void(void*, ManagedCallback)>("CSharp_Velarion_LoggingCallbackWrapper_director_connect", wrapper, callback);
  }
  unsigned int install(unsigned int level, void* userData) {
    return call<unsigned int(void*, unsigned int, void*)>(
        "CSharp_Velarion_LoggingExternalInterface_setManagedLoggingCallback", log, level, userData);
  }

  void* log = new Velarion::LoggingExternalInterface();
  void* wrapper = nullptr;
};

}  // namespace

TEST_F(LoggingBridge, DeliversEachMessageOfTheLevelToTheConnectedDelegate) {
  connect(&recordFirst);
  EXPECT_EQ(install(kWarning, wrapper), 1u);
  logAWarning();
  ASSERT_EQ(firstDelegate.size(), 1u);
  EXPECT_NE(firstDelegate[0].message->find("alignment"), std::string::npos);
  EXPECT_EQ(firstDelegate[0].first, kWarning);
  EXPECT_TRUE(firstDelegate[0].secondText.has_value());

  // Reconnecting replaces the first delegate.
  connect(&recordSecond);
  logAWarning();
  EXPECT_EQ(firstDelegate.size(), 1u);
  EXPECT_EQ(secondDelegate.size(), 1u);
}

TEST_F(LoggingBridge, NullUserDataDeliversNothing) {
  connect(&recordFirst);
  EXPECT_EQ(install(kWarning, nullptr), 1u);
  logAWarning();
  EXPECT_TRUE(firstDelegate.empty());
}

TEST_F(LoggingBridge, NullTextsReachTheStringCallbackAsTheyAre) {
  connect(&recordFirst);
  call<void(void*, const char*, unsigned int, unsigned int, const char*)>(
      "CSharp_Velarion_LoggingCallbackWrapper_callback", wrapper, nullptr, 4u, 5u, nullptr);
  ASSERT_EQ(firstDelegate.size(), 1u);
  EXPECT_EQ(firstDelegate[0].message, std::nullopt);
  EXPECT_EQ(firstDelegate[0].secondText, std::nullopt);
  EXPECT_EQ(firstDelegate[0].first, 4u);
  EXPECT_EQ(firstDelegate[0].second, 5u);
}

TEST_F(LoggingBridge, AnUnconnectedWrapperThrowsThePureVirtualFailure) {
  try {
    call<void(void*, const char*, unsigned int, unsigned int, const char*)>(
        "CSharp_Velarion_LoggingCallbackWrapper_callback", wrapper, "m", 0u, 0u, "t");
    FAIL() << "expected a throw";
  } catch (const std::exception& e) {
    EXPECT_STREQ(e.what(), "Attempt to invoke pure virtual method LoggingCallbackWrapper::callback");
  }
  // director_connect on something that is not a director does nothing.
  call<void(void*, ManagedCallback)>("CSharp_Velarion_LoggingCallbackWrapper_director_connect", nullptr,
                                     &recordFirst);
}

TEST_F(LoggingBridge, LevelAndFileRedirectionPassThrough) {
  EXPECT_EQ(call<unsigned int(void*, int)>("CSharp_Velarion_LoggingExternalInterface_setLogLevel", log, 99), 0u);
  EXPECT_EQ(call<unsigned int(void*, int)>("CSharp_Velarion_LoggingExternalInterface_setLogLevel", log, 3), 1u);
  EXPECT_EQ(call<int(void*)>("CSharp_Velarion_LoggingExternalInterface_getLogLevel", log), 3);

  const std::string path = ::testing::TempDir() + "velarion-log-redirect.txt";
  std::remove(path.c_str());
  EXPECT_EQ(call<unsigned int(void*, const char*)>("CSharp_Velarion_LoggingExternalInterface_redirectLoggingToFile",
                                                   log, path.c_str()),
            1u);
  logAWarning();
  call<unsigned int(void*)>("CSharp_Velarion_LoggingExternalInterface_redirectLoggingToNull", log);
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  EXPECT_NE(text.str().find("alignment"), std::string::npos) << text.str();
  EXPECT_EQ(call<unsigned int(void*, const char*)>("CSharp_Velarion_LoggingExternalInterface_redirectLoggingToFile",
                                                   log, "/nonexistent/folder/log.txt"),
            0u);
  std::remove(path.c_str());
}
