// Interface version constants and the loaded device library's version.
#include <string>

#include "device/device_fixture.h"

using namespace harness;
using namespace devicetest;
namespace Journal = VelarionEmulator::Journal;

namespace {
using VersionExports = DeviceExportTest;

int number(const char* name) { return call<int()>((std::string("CSharp_Velarion_VL_SDK_") + name + "_get").c_str()); }
void* text(const char* name) { return call<void*()>((std::string("CSharp_Velarion_VL_SDK_") + name + "_get").c_str()); }
}  // namespace

TEST_F(VersionExports, CompiledInConstants) {
  EXPECT_EQ(managedString(text("VERSION")), "2.6.4-ST");
  EXPECT_EQ(managedString(text("BUILD_DATE")), "2019-01-16");
  EXPECT_EQ(managedString(text("PLATFORM_NAME")), "Windows-Win64");
  EXPECT_EQ(managedString(text("VARIANT")), "Public");
  EXPECT_EQ(number("VERSION_INT"), 132612);
  EXPECT_EQ(number("VERSION_INT"), number("VERSION_MAJOR") * 65536 + number("VERSION_MINOR") * 256 +
                                       number("VERSION_PATCH"));
  EXPECT_EQ(*managedString(text("VERSION_LONG")),
            *managedString(text("VERSION")) + "-" + *managedString(text("PLATFORM_NAME")));
  // A new managed string every time.
  EXPECT_NE(text("VERSION"), text("VERSION"));
}

TEST_F(VersionExports, VersionInfoDescribesTheLoadedLibrary) {
  void* info = call<void*()>("CSharp_Velarion_new_VersionInfo");
  auto field = [&](const char* name) {
    return managedString(call<void*(void*)>((std::string("CSharp_Velarion_VersionInfo_") + name + "_get").c_str(), info));
  };
  EXPECT_EQ(field("VersionString"), "2.6.4-ST");
  EXPECT_EQ(field("LongVersionString"), "2.6.4-ST-" + *field("PlatformName"));
  EXPECT_EQ(field("BuildDate"), "2019-01-16");
  EXPECT_EQ(field("VariantName"), "Emulator");
  EXPECT_EQ(call<unsigned int(void*)>("CSharp_Velarion_VersionInfo_MinorVersion_get", info), 6u);
  call<void(void*)>("CSharp_Velarion_delete_VersionInfo", info);
  call<void(void*)>("CSharp_Velarion_delete_VersionInfo", nullptr);
}

TEST_F(VersionExports, CheckVersionPassesTheNumbersOn) {
  call<void()>("CSharp_Velarion_VersionInfo_checkVersion__SWIG_0");
  call<void(unsigned int, unsigned int, unsigned int)>("CSharp_Velarion_VersionInfo_checkVersion__SWIG_1", 2u, 6u, 4u);
  call<void(unsigned int, unsigned int, unsigned int)>("CSharp_Velarion_VersionInfo_checkVersion__SWIG_1", 3u, 0u, 1u);
  EXPECT_EQ(Journal::entries(),
            (std::vector<std::string>{"VersionInfo::checkVersion(2, 6, 4)", "VersionInfo::checkVersion(2, 6, 4)",
                                      "VersionInfo::checkVersion(3, 0, 1)"}));
}
