// The director runtime: exception texts, the checked connect, and the
// override-or-base dispatch as the emission callback wrapper uses it.
#include <stdexcept>
#include <string>

#include "interop/director.h"
#include "streaming/streaming_support.h"

using namespace streaming;

namespace {

struct Base {
  virtual ~Base() = default;
};
struct NotADirector : Base {};
struct ADirector : Base, Swig::Director {
  void swig_connect_director(int (*a)(), int (*b)()) {
    first = a;
    second = b;
  }
  int (*first)() = nullptr;
  int (*second)() = nullptr;
};
int one() { return 1; }

}  // namespace

TEST(DirectorRuntime, PureVirtualFailureNamesTheMethod) {
  const Swig::DirectorPureVirtualException e("LoggingCallbackWrapper::callback");
  EXPECT_STREQ(e.what(), "Attempt to invoke pure virtual method LoggingCallbackWrapper::callback");
  const Swig::DirectorException& asBase = e;
  EXPECT_STREQ(asBase.what(), e.what());
  EXPECT_THROW(vlcs::pureVirtual("X::y"), Swig::DirectorPureVirtualException);
}

TEST(DirectorRuntime, ConnectDowncastsAndReplacesEveryPointer) {
  ADirector director;
  vlcs::connectDirector<ADirector, Base>(static_cast<Base*>(&director), &one, &one);
  EXPECT_EQ(director.first, &one);
  vlcs::connectDirector<ADirector, Base>(static_cast<Base*>(&director), &one, static_cast<int (*)()>(nullptr));
  EXPECT_EQ(director.second, nullptr) << "a later connect replaces nulls too";

  // Not a director, or no object at all: nothing happens.
  NotADirector plain;
  vlcs::connectDirector<ADirector, Base>(static_cast<Base*>(&plain), &one, &one);
  vlcs::connectDirector<ADirector, Base>(nullptr, &one, &one);
}

namespace {
unsigned int managedSuspended = 0;
int isSuspendedAsked = 0;
std::vector<unsigned int> setSuspendedSeen;
unsigned int isSuspendedOverride() {
  ++isSuspendedAsked;
  return managedSuspended;
}
void setSuspendedOverride(unsigned int value) { setSuspendedSeen.push_back(value); }
}  // namespace

class EmissionDirector : public BridgeTest {
 protected:
  unsigned int isSuspended() {
    return harness::call<unsigned int(void*)>("CSharp_Velarion_EmissionCallbackWrapper_isSuspended", wrapper);
  }
  unsigned int explicitIsSuspended() {
    return harness::call<unsigned int(void*)>(
        "CSharp_Velarion_EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper", wrapper);
  }
  void explicitSetSuspended(unsigned int value) {
    harness::call<void(void*, unsigned int)>(
        "CSharp_Velarion_EmissionCallbackWrapper_setSuspendedSwigExplicitEmissionCallbackWrapper", wrapper, value);
  }
};

TEST_F(EmissionDirector, WithoutOverridesTheFlagIsKeptNatively) {
  EXPECT_EQ(isSuspended(), 0u);
  setSuspended(true);
  EXPECT_EQ(isSuspended(), 1u);
  harness::call<void(void*, unsigned int)>("CSharp_Velarion_EmissionCallbackWrapper_setSuspended", wrapper, 2u);
  EXPECT_EQ(isSuspended(), 1u) << "any non-zero flag is true, and results are 0 or 1";
  setSuspended(false);
  EXPECT_EQ(isSuspended(), 0u);
}

TEST_F(EmissionDirector, OverridesAreReachedThroughTheVirtualCallsButNotTheExplicitOnes) {
  managedSuspended = 7;
  isSuspendedAsked = 0;
  setSuspendedSeen.clear();
  connect(wrapper, &setSuspendedOverride, &isSuspendedOverride, &Managed::callback);

  EXPECT_EQ(isSuspended(), 1u);
  EXPECT_EQ(explicitIsSuspended(), 0u);
  setSuspended(true);
  EXPECT_EQ(setSuspendedSeen, std::vector<unsigned int>{1u});
  EXPECT_EQ(explicitIsSuspended(), 0u) << "an overridden setSuspended leaves the native flag alone";
  explicitSetSuspended(5);
  EXPECT_EQ(explicitIsSuspended(), 1u);
  EXPECT_EQ(setSuspendedSeen.size(), 1u);

  // The bridge asks the managed override once per interval.
  isSuspendedAsked = 0;
  managedSuspended = 0;
  step(3, 1);
  EXPECT_EQ(isSuspendedAsked, 1);
  EXPECT_EQ(Managed::seen().size(), 1u) << "the managed answer (not suspended) wins over the native flag";
}

TEST_F(EmissionDirector, TheCallbackExportDispatchesOrThrows) {
  HostTimePoint time(5, 0.5);
  HostTimePoint times[1] = {HostTimePoint(6, 0.0)};
  Record records[2] = {};
  using CallbackExport = void(void*, unsigned int, unsigned int, unsigned int, void*, void*, void*);
  harness::call<CallbackExport>("CSharp_Velarion_EmissionCallbackWrapper_callback", wrapper, 1u, 2u, 2u, &time,
                                times, records);
  ASSERT_EQ(Managed::seen().size(), 1u);
  EXPECT_EQ(Managed::seen()[0].controlpointCount, 2u);
  EXPECT_TRUE(sameTime(Managed::seen()[0].callbackTime, time));

}

TEST_F(EmissionDirector, EmitterFieldAndDeleteConventions) {
  EXPECT_EQ(harness::call<void*(void*)>("CSharp_Velarion_EmissionCallbackWrapper_emitter_get", wrapper),
            static_cast<void*>(&emitter));
  // A null self is ignored by the setter and by delete.
  harness::call<void(void*, void*)>("CSharp_Velarion_EmissionCallbackWrapper_emitter_set", nullptr, &emitter);
  harness::call<void(void*)>("CSharp_Velarion_delete_EmissionCallbackWrapper", nullptr);
}
