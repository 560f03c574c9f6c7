// What the export tests of both emitter classes share: the built-in devices,
// handles they create and delete after each test, and the emulator's journal.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "VelarionEmulator/Devices.h"
#include "VelarionEmulator/Journal.h"
#include "support/interop_harness.h"

namespace harness {

const char* const kDevice = "VLA16-2A1F0031";
const char* const kOtherDevice = "VLC10-5B330107";
const std::string kVersionCheck = "VersionInfo::checkVersion(2, 6, 4)";

// Built-in devices and an empty journal at the start of each test.
class EmitterExportTest : public ExportTest {
 protected:
  // The exported class tested ("AmplitudeModulationEmitter") and the device
  // library's namespace it wraps, as the journal names it ("AmplitudeModulation").
  EmitterExportTest(const char* exportedClass, const char* area)
      : class_(exportedClass),
        area_(area),
        newWithTransform_("CSharp_Velarion_new_" + class_ + "__SWIG_2"),
        deleteEmitter_("CSharp_Velarion_delete_" + class_) {}

  void SetUp() override {
    ExportTest::SetUp();
    VelarionEmulator::Devices::resetToDefaults();
    VelarionEmulator::Journal::clear();
  }
  void TearDown() override {
    for (void* e : emitters_) call<void(void*)>(deleteEmitter_.c_str(), e);
    for (void* t : transforms_) call<void(void*)>("CSharp_Velarion_delete_Transform", t);
    ExportTest::TearDown();
  }

  // Deleted after the test.
  void* keep(void* emitter) {
    emitters_.push_back(emitter);
    return emitter;
  }
  void* translation(double x, double y, double z) {
    transforms_.push_back(call<void*(double, double, double)>("CSharp_Velarion_Transform_translation__SWIG_1", x, y, z));
    return transforms_.back();
  }
  // An emitter on `device` placed at the origin, as the managed side makes it.
  void* emitterOn(const char* device) {
    return keep(call<void*(const char*, void*)>(newWithTransform_.c_str(), device, translation(0, 0, 0)));
  }

  static std::vector<std::string> journal() { return VelarionEmulator::Journal::entries(); }
  static size_t count(const std::vector<std::string>& entries, const std::string& entry) {
    return static_cast<size_t>(std::count(entries.begin(), entries.end(), entry));
  }

  std::string exportName(const char* member) const { return "CSharp_Velarion_" + class_ + "_" + member; }
  std::string entry(const std::string& call) const { return area_ + "::Emitter::" + call; }

  // Only the constructor with a Transform checks the version, right after init.
  void expectVersionCheckOnlyAfterInit() {
    emitterOn(kDevice);
    std::vector<std::string> entries = journal();
    const auto init = std::find(entries.begin(), entries.end(), entry("init(\"VLA16-2A1F0031\")"));
    ASSERT_NE(init, entries.end());
    ASSERT_NE(init + 1, entries.end());
    EXPECT_EQ(*(init + 1), kVersionCheck);
    EXPECT_EQ(count(entries, kVersionCheck), 1u);

    VelarionEmulator::Journal::clear();
    void* plain = keep(call<void*()>(("CSharp_Velarion_new_" + class_ + "__SWIG_0").c_str()));
    keep(call<void*(const char*)>(("CSharp_Velarion_new_" + class_ + "__SWIG_1").c_str(), nullptr));
    keep(call<void*(void*)>(("CSharp_Velarion_new_" + class_ + "__SWIG_3").c_str(), plain));
    entries = journal();
    EXPECT_EQ(count(entries, kVersionCheck), 0u);
    for (const char* constructor : {"Emitter()", "Emitter(null)", "Emitter(Emitter&&)"}) {
      EXPECT_EQ(count(entries, entry(constructor)), 1u) << constructor;
    }
  }

  // The managed form asks for the size first and reads only when there is
  // something to read: an unknown option costs one call, `option` two.
  void expectManagedOptionQueriesTheSizeThenReadsOnce(const char* option, const std::string& value) {
    void* emitter = emitterOn(kDevice);
    EXPECT_EQ(call<unsigned(void*, const char*, const char*)>(exportName("setExtendedOption").c_str(), emitter, option,
                                                              value.c_str()),
              1u);
    const std::string get = exportName("getManagedExtendedOption");
    VelarionEmulator::Journal::clear();
    EXPECT_EQ(managedString(call<void*(void*, const char*)>(get.c_str(), emitter, "noSuchOption")), "");
    EXPECT_EQ(journal(), std::vector<std::string>{entry("getExtendedOption(\"noSuchOption\", null, 0)")});
    VelarionEmulator::Journal::clear();
    EXPECT_EQ(managedString(call<void*(void*, const char*)>(get.c_str(), emitter, option)), value);
    const std::string quoted = std::string("getExtendedOption(\"") + option + "\", ";
    EXPECT_EQ(journal(), (std::vector<std::string>{entry(quoted + "null, 0)"),
                                                   entry(quoted + "buffer, " + std::to_string(value.size() + 1) + ")")}));
  }

 private:
  const std::string class_, area_, newWithTransform_, deleteEmitter_;
  std::vector<void*> emitters_, transforms_;
};

}  // namespace harness
