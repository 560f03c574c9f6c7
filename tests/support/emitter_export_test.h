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
  // The exports that make an emitter of the class tested with an identifier
  // and a Transform, and that delete one.
  EmitterExportTest(const char* newWithTransform, const char* deleteEmitter)
      : newWithTransform_(newWithTransform), deleteEmitter_(deleteEmitter) {}

  void SetUp() override {
    ExportTest::SetUp();
    VelarionEmulator::Devices::resetToDefaults();
    VelarionEmulator::Journal::clear();
  }
  void TearDown() override {
    for (void* e : emitters_) call<void(void*)>(deleteEmitter_, e);
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
    return keep(call<void*(const char*, void*)>(newWithTransform_, device, translation(0, 0, 0)));
  }

  static std::vector<std::string> journal() { return VelarionEmulator::Journal::entries(); }
  static size_t count(const std::vector<std::string>& entries, const std::string& entry) {
    return static_cast<size_t>(std::count(entries.begin(), entries.end(), entry));
  }

 private:
  const char* newWithTransform_;
  const char* deleteEmitter_;
  std::vector<void*> emitters_, transforms_;
};

}  // namespace harness
