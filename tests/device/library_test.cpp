// Library handle exports: construction order, enumeration, the gatherers and
// their fault handling, device state and configuration reloads.
#include <cstdlib>
#include <string>
#include <vector>

#include "Velarion/DeviceInfo.h"
#include "Velarion/VelarionLibrary.h"
#include "device/device_fixture.h"

using namespace harness;
using namespace devicetest;
namespace Devices = VelarionEmulator::Devices;
namespace Journal = VelarionEmulator::Journal;
using Strings = std::vector<std::string>;

namespace {

class LibraryExports : public DeviceExportTest {
 protected:
  void SetUp() override {
    DeviceExportTest::SetUp();
    library = call<void*()>("CSharp_Velarion_new_VelarionLibrary__SWIG_0");
    Journal::clear();
  }
  void TearDown() override {
    call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", library);
    DeviceExportTest::TearDown();
  }

  Strings identifiers() {
    auto* list = static_cast<Strings*>(call<void*(void*)>("CSharp_Velarion_VelarionLibrary_getManagedDeviceIdentifiers",
                                                          library));
    Strings copy = *list;
    delete list;
    return copy;
  }
  Strings describedIdentifiers() {
    auto* list = static_cast<std::vector<Velarion::DeviceInfo>*>(
        call<void*(void*)>("CSharp_Velarion_VelarionLibrary_getManagedDeviceInfos", library));
    Strings result;
    for (const Velarion::DeviceInfo& info : *list) result.push_back(info.getDeviceIdentifier());
    delete list;
    return result;
  }
  unsigned int flag(const char* name, const char* identifier) {
    return call<unsigned int(void*, const char*)>(name, library, identifier);
  }

  void* library = nullptr;
  const Strings builtIn = {"VLA16-2A1F0031", "VLC10-5B330107"};
};

void addThird() { ASSERT_TRUE(Devices::addDevice(Devices::makeGridDevice("THIRD-0003", 4, 4, 0.01f))); }

}  // namespace

TEST_F(LibraryExports, ConstructionInitialisesThenAnnouncesTheInterfaceVersion) {
  void* second = call<void*()>("CSharp_Velarion_new_VelarionLibrary__SWIG_0");
  EXPECT_EQ(Journal::entries(), (Strings{"VelarionLibrary::init", "VersionInfo::checkVersion(2, 6, 4)"}));

  // The exported C++ constructor is the same build.
  Journal::clear();
  { Velarion::VelarionLibrary direct; }
  EXPECT_EQ(Journal::entries(), (Strings{"VelarionLibrary::init", "VersionInfo::checkVersion(2, 6, 4)",
                                         "VelarionLibrary::~VelarionLibrary"}));

  // Moving announces nothing; the moved-from library is empty but safe.
  Journal::clear();
  void* moved = call<void*(void*)>("CSharp_Velarion_new_VelarionLibrary__SWIG_1", second);
  ASSERT_NE(moved, nullptr);
  EXPECT_EQ(Journal::entries(), (Strings{"VelarionLibrary::VelarionLibrary(VelarionLibrary&&)"}));
  EXPECT_EQ(call<unsigned int(void*)>("CSharp_Velarion_VelarionLibrary_getDeviceCount", second), 0u);
  EXPECT_EQ(call<unsigned int(void*)>("CSharp_Velarion_VelarionLibrary_getDeviceCount", moved), 2u);
  call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", second);
  call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", moved);

  Journal::clear();
  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_VelarionLibrary__SWIG_1", nullptr), nullptr);
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.module, velarion);
  EXPECT_EQ(pending.code, 1);
  EXPECT_EQ(pending.message, "Velarion::VelarionLibrary && type is null");
  EXPECT_FALSE(pending.paramName.has_value());
  EXPECT_TRUE(Journal::entries().empty());
  call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", nullptr);
}

TEST_F(LibraryExports, EnumeratesTheBuiltInDevices) {
  EXPECT_EQ(call<unsigned int(void*)>("CSharp_Velarion_VelarionLibrary_getDeviceCount", library), 2u);
  EXPECT_EQ(identifiers(), builtIn);
  EXPECT_EQ(describedIdentifiers(), builtIn);

  using GetIdentifier = unsigned int(void*, unsigned int, char*, unsigned int);
  const char* name = "CSharp_Velarion_VelarionLibrary_getDeviceIdentifier";
  const unsigned int size = call<GetIdentifier>(name, library, 1u, nullptr, 0u);
  EXPECT_EQ(size, builtIn[1].size() + 1);
  std::string buffer(size, 'x');
  EXPECT_EQ(call<GetIdentifier>(name, library, 1u, &buffer[0], size), size);
  EXPECT_EQ(buffer, builtIn[1] + '\0');
  std::string tooSmall(4, 'x');
  EXPECT_EQ(call<GetIdentifier>(name, library, 1u, &tooSmall[0], 4u), size);
  EXPECT_EQ(tooSmall, "xxxx");
  EXPECT_EQ(call<GetIdentifier>(name, library, 2u, nullptr, 0u), 0u);

  void* info = call<void*(void*, const char*)>("CSharp_Velarion_VelarionLibrary_getDeviceInfoByIdentifier_internal",
                                               library, builtIn[1].c_str());
  void* byIndex = call<void*(void*, unsigned int)>("CSharp_Velarion_VelarionLibrary_getDeviceInfoByIndex", library, 1u);
  EXPECT_NE(info, byIndex);
  EXPECT_EQ(managedString(call<void*(void*)>("CSharp_Velarion_DeviceInfo_getDeviceIdentifier", info)), builtIn[1]);
  EXPECT_EQ(managedString(call<void*(void*)>("CSharp_Velarion_DeviceInfo_getSerialNumber", byIndex)), "5B330107");
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", info);
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", byIndex);

  // Unknown devices give an empty description rather than a failure.
  void* unknown = call<void*(void*, const char*)>("CSharp_Velarion_VelarionLibrary_getDeviceInfoByIdentifier_internal",
                                                  library, "NOPE");
  EXPECT_EQ(managedString(call<void*(void*)>("CSharp_Velarion_DeviceInfo_getDeviceIdentifier", unknown)), "");
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", unknown);
}

TEST_F(LibraryExports, GatherersStopAtTheFirstMissingDevice) {
  addThird();

  // A size query of 0 ends the identifier list there.
  Devices::injectZeroSizeQuery(1);
  EXPECT_EQ(identifiers(), (Strings{builtIn[0]}));
  EXPECT_EQ(describedIdentifiers().size(), 3u);  // descriptions do not use the size query

  // An identifier that changes length keeps an empty slot; later ones are read.
  Devices::clearFaults();
  Devices::injectIdentifierLengthChange(1);
  EXPECT_EQ(identifiers(), (Strings{builtIn[0], "", "THIRD-0003"}));

  // An empty identifier ends the description list even though device 2 exists.
  Devices::clearFaults();
  Devices::injectEmptyDescriptionIdentifier(1);
  EXPECT_EQ(describedIdentifiers(), (Strings{builtIn[0]}));
  EXPECT_EQ(identifiers().size(), 3u);

  // The identifier gatherer asks for each size, then reads at exactly that size.
  Devices::clearFaults();
  Journal::clear();
  identifiers();
  EXPECT_EQ(Journal::entries(),
            (Strings{"VelarionLibrary::getDeviceCount", "VelarionLibrary::getDeviceIdentifier(0, null, 0)",
                     "VelarionLibrary::getDeviceIdentifier(0, buffer, 15)",
                     "VelarionLibrary::getDeviceIdentifier(1, null, 0)",
                     "VelarionLibrary::getDeviceIdentifier(1, buffer, 15)",
                     "VelarionLibrary::getDeviceIdentifier(2, null, 0)",
                     "VelarionLibrary::getDeviceIdentifier(2, buffer, 11)"}));

  for (const std::string& id : Devices::identifiers()) Devices::removeDevice(id);
  EXPECT_TRUE(identifiers().empty());
  EXPECT_TRUE(describedIdentifiers().empty());
}

TEST_F(LibraryExports, ReportsConnectionClaimsAndPriorityFlags) {
  const char* connected = "CSharp_Velarion_VelarionLibrary_isDeviceConnected";
  const char* claimed = "CSharp_Velarion_VelarionLibrary_isDeviceClaimed";
  EXPECT_EQ(flag(connected, builtIn[0].c_str()), 1u);
  EXPECT_EQ(flag(connected, "NOPE"), 0u);
  EXPECT_EQ(flag(connected, nullptr), 0u);
  EXPECT_EQ(flag(claimed, builtIn[0].c_str()), 0u);

  ASSERT_TRUE(Devices::holdDevice(builtIn[0]));
  EXPECT_EQ(flag(claimed, builtIn[0].c_str()), 1u);
  EXPECT_EQ(flag(claimed, builtIn[1].c_str()), 0u);
  ASSERT_TRUE(Devices::releaseHeldDevice(builtIn[0]));
  EXPECT_EQ(flag(claimed, builtIn[0].c_str()), 0u);

  ASSERT_TRUE(Devices::setConnected(builtIn[1], false));
  EXPECT_EQ(flag(connected, builtIn[1].c_str()), 0u);
  EXPECT_FALSE(Devices::holdDevice(builtIn[1]));  // nothing can drive a disconnected array

  for (const char* which : {"Process", "Thread"}) {
    const std::string set = std::string("CSharp_Velarion_VelarionLibrary_set") + which + "PriorityManagementAllowed";
    const std::string is = std::string("CSharp_Velarion_VelarionLibrary_is") + which + "PriorityManagementAllowed";
    EXPECT_EQ(call<unsigned int(void*)>(is.c_str(), library), 1u) << which;
    call<void(void*, unsigned int)>(set.c_str(), library, 0u);
    EXPECT_EQ(call<unsigned int(void*)>(is.c_str(), library), 0u) << which;
    call<void(void*, unsigned int)>(set.c_str(), library, 2u);
    EXPECT_EQ(call<unsigned int(void*)>(is.c_str(), library), 1u) << which;
  }
}

TEST_F(LibraryExports, ReloadsHardwareConfigurations) {
  ScratchFolder folder;
  const std::string good = folder.write("one.vlcfg",
                                        "[device]\nidentifier = LAB-1\nmodel = LAB\ngrid = 2 3 0.01\n");
  const std::string bad = folder.write("bad.txt", "[device]\nidentifier = LAB-2\nmodel = LAB\ngrid = 2 x 0.01\n");
  using Reload = unsigned int(void*, const char*);
  const char* reload = "CSharp_Velarion_VelarionLibrary_reloadHardwareConfigurations__SWIG_1";
  const char* reloadDefault = "CSharp_Velarion_VelarionLibrary_reloadHardwareConfigurations__SWIG_0";

  EXPECT_EQ(call<Reload>(reload, library, good.c_str()), 1u);
  EXPECT_EQ(identifiers(), (Strings{"LAB-1"}));
  EXPECT_EQ(call<Reload>(reload, library, bad.c_str()), 0u);
  EXPECT_EQ(call<Reload>(reload, library, folder.file("missing.vlcfg").c_str()), 0u);
  EXPECT_EQ(call<Reload>(reload, library, nullptr), 0u);
  EXPECT_EQ(identifiers(), (Strings{"LAB-1"}));

  // The default location follows the environment, else the built-in devices.
  ASSERT_TRUE(devicetest::setEnvironment("VELARION_HARDWARE_CONFIG_PATH", folder.path().c_str()));
  EXPECT_EQ(call<unsigned int(void*)>(reloadDefault, library), 1u);  // bad.txt is not a .vlcfg file
  EXPECT_EQ(identifiers(), (Strings{"LAB-1"}));
  ASSERT_TRUE(devicetest::setEnvironment("VELARION_HARDWARE_CONFIG_PATH", nullptr));
  EXPECT_EQ(call<unsigned int(void*)>(reloadDefault, library), 1u);
  EXPECT_EQ(identifiers(), builtIn);
}

TEST_F(LibraryExports, HandsOutItsOwnLoggingInterface) {
  const char* get = "CSharp_Velarion_VelarionLibrary_getLoggingInterface_internal";
  void* first = call<void*(void*)>(get, library);
  void* other = call<void*()>("CSharp_Velarion_new_VelarionLibrary__SWIG_0");
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(call<void*(void*)>(get, library), first);
  EXPECT_NE(call<void*(void*)>(get, other), first);

  // It is live: it hears about devices added afterwards.
  auto& logging = *static_cast<Velarion::LoggingExternalInterface*>(first);
  LogCapture capture(logging);
  addThird();
  EXPECT_TRUE(capture.saw(3, "device added: THIRD-0003"));
  call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", other);
}
