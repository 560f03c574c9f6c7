// DeviceInfo, Transducer and TransducerContainer exports.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "Velarion/TransducerContainer.h"
#include "device/device_fixture.h"

using namespace harness;
using namespace devicetest;
using Velarion::Transducer;

namespace {

class DeviceInfoExports : public DeviceExportTest {
 protected:
  void SetUp() override {
    DeviceExportTest::SetUp();
    library = call<void*()>("CSharp_Velarion_new_VelarionLibrary__SWIG_0");
    info = call<void*(void*, unsigned int)>("CSharp_Velarion_VelarionLibrary_getDeviceInfoByIndex", library, 0u);
  }
  void TearDown() override {
    call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", info);
    call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", library);
    DeviceExportTest::TearDown();
  }
  std::optional<std::string> text(const char* getter, void* handle) {
    return managedString(call<void*(void*)>((std::string("CSharp_Velarion_DeviceInfo_") + getter).c_str(), handle));
  }
  void* library = nullptr;
  void* info = nullptr;
};

using TransducerExports = DeviceExportTest;

}  // namespace

TEST_F(DeviceInfoExports, DescribesTheBuiltInArray) {
  EXPECT_EQ(text("getDeviceIdentifier", info), "VLA16-2A1F0031");
  EXPECT_EQ(text("getModelDescription", info), "Velarion A16 array: 16 x 16 transducers, 10.5 mm pitch, 40 kHz");
  EXPECT_FLOAT_EQ(call<float(void*)>("CSharp_Velarion_DeviceInfo_arrayDepth", info), 0.168f);

  EXPECT_EQ(call<int(void*)>("CSharp_Velarion_DeviceInfo_getSupportedFeatures", info), 7);
  using Has = unsigned int(void*, int);
  EXPECT_EQ(call<Has>("CSharp_Velarion_DeviceInfo_hasSupportFor", info, 3), 1u);
  EXPECT_EQ(call<Has>("CSharp_Velarion_DeviceInfo_hasSupportFor", info, 8), 0u);
  EXPECT_EQ(call<Has>("CSharp_Velarion_DeviceInfo_hasSupportFor", info, 0), 0u);

  // Centred 16 x 16 grid at 10.5 mm, row by row, facing +z, all enabled.
  void* layout = call<void*(void*)>("CSharp_Velarion_DeviceInfo_getTransducerConfiguration", info);
  ASSERT_EQ(call<uint64_t(void*)>("CSharp_Velarion_TransducerContainer_size", layout), 256u);
  const auto* elements = static_cast<const Transducer*>(call<void*(void*)>("CSharp_Velarion_TransducerContainer_data", layout));
  EXPECT_FLOAT_EQ(elements[0].x_position, -7.5f * 0.0105f);
  EXPECT_FLOAT_EQ(elements[0].y_position, -7.5f * 0.0105f);
  EXPECT_FLOAT_EQ(elements[17].x_position - elements[16].x_position, 0.0105f);
  EXPECT_FLOAT_EQ(elements[16].y_position - elements[0].y_position, 0.0105f);
  EXPECT_FLOAT_EQ(elements[255].x_position, 7.5f * 0.0105f);
  for (int i = 0; i < 256; ++i) {
    ASSERT_EQ(elements[i].z_upvector, 1.0f);
    ASSERT_EQ(elements[i].multiplier, 1.0f);
  }
  call<void(void*)>("CSharp_Velarion_delete_TransducerContainer", layout);

  void* alignment = call<void*(void*)>("CSharp_Velarion_DeviceInfo_getDefaultAlignment", info);
  double m[16];
  call<void(void*, double*)>("CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_1", alignment, m);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(m[i], (i % 5 == 0) ? 1.0 : 0.0) << i;
  call<void(void*)>("CSharp_Velarion_delete_Alignment", alignment);
}

TEST_F(DeviceInfoExports, CopiesAreIndependentSnapshots) {
  void* copy = call<void*(void*)>("CSharp_Velarion_new_DeviceInfo", info);
  ASSERT_NE(copy, nullptr);
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", info);
  info = nullptr;
  VelarionEmulator::Devices::removeDevice("VLA16-2A1F0031");
  EXPECT_EQ(text("getDeviceIdentifier", copy), "VLA16-2A1F0031");
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", copy);

  expectRefused<void*(void*)>("Velarion::DeviceInfo const & type is null", "CSharp_Velarion_new_DeviceInfo", nullptr);
}

TEST_F(TransducerExports, RecordLayoutAndEnabledState) {
  static_assert(offsetof(Transducer, x_upvector) == 12 && offsetof(Transducer, multiplier) == 24, "layout");
  using New = void*(float, float, float, float, float, float, float);
  void* t = call<New>("CSharp_Velarion_new_Transducer__SWIG_1", 1.0f, 2.0f, 3.0f, 0.0f, 0.0f, 1.0f, 0.5f);
  const float expected[7] = {1, 2, 3, 0, 0, 1, 0.5f};
  const char* fields[7] = {"x_position", "y_position", "z_position", "x_upvector", "y_upvector", "z_upvector",
                           "multiplier"};
  for (int i = 0; i < 7; ++i) {
    const std::string get = std::string("CSharp_Velarion_Transducer_") + fields[i] + "_get";
    EXPECT_EQ(call<float(void*)>(get.c_str(), t), expected[i]) << fields[i];
    EXPECT_EQ(static_cast<float*>(t)[i], expected[i]) << fields[i];
  }
  // Each setter writes its own field only.
  call<void(void*, float)>("CSharp_Velarion_Transducer_y_upvector_set", t, 9.0f);
  EXPECT_EQ(static_cast<float*>(t)[4], 9.0f);
  EXPECT_EQ(static_cast<float*>(t)[3], 0.0f);
  EXPECT_EQ(static_cast<float*>(t)[5], 1.0f);

  const char* isEnabled = "CSharp_Velarion_Transducer_isEnabled";
  const char* setMultiplier = "CSharp_Velarion_Transducer_multiplier_set";
  EXPECT_EQ(call<unsigned int(void*)>(isEnabled, t), 1u);
  call<void(void*, float)>(setMultiplier, t, 0.0f);
  EXPECT_EQ(call<unsigned int(void*)>(isEnabled, t), 0u);
  call<void(void*, float)>(setMultiplier, t, -0.0f);
  EXPECT_EQ(call<unsigned int(void*)>(isEnabled, t), 0u);
  call<void(void*, float)>(setMultiplier, t, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(call<unsigned int(void*)>(isEnabled, t), 1u);
  call<void(void*, float)>(setMultiplier, nullptr, 1.0f);
  call<void(void*)>("CSharp_Velarion_delete_Transducer", t);

  void* zero = call<void*()>("CSharp_Velarion_new_Transducer__SWIG_0");
  for (int i = 0; i < 7; ++i) EXPECT_EQ(static_cast<float*>(zero)[i], 0.0f);
  EXPECT_EQ(call<unsigned int(void*)>(isEnabled, zero), 0u);
  call<void(void*)>("CSharp_Velarion_delete_Transducer", zero);
}

TEST_F(TransducerExports, ContainerCopiesInsertsAndErasesWithinBounds) {
  Transducer source[3] = {{1, 0, 0, 0, 0, 1, 1}, {2, 0, 0, 0, 0, 1, 1}, {3, 0, 0, 0, 0, 1, 0}};
  void* c = call<void*(unsigned int, void*)>("CSharp_Velarion_new_TransducerContainer__SWIG_1", 3u, source);
  const char* data = "CSharp_Velarion_TransducerContainer_data";
  EXPECT_EQ(std::memcmp(call<void*(void*)>(data, c), source, 3 * 28), 0);
  EXPECT_EQ(call<void*(void*, unsigned int)>("CSharp_Velarion_TransducerContainer_at", c, 2u),
            static_cast<char*>(call<void*(void*)>(data, c)) + 2 * 28);

  using Insert = unsigned int(void*, unsigned int, unsigned int, void*);
  using Erase = unsigned int(void*, unsigned int, unsigned int);
  const char* insert = "CSharp_Velarion_TransducerContainer_insert";
  const char* erase = "CSharp_Velarion_TransducerContainer_erase";
  const char* size = "CSharp_Velarion_TransducerContainer_size";
  EXPECT_EQ(call<Insert>(insert, c, 4u, 1u, source), 0u);
  EXPECT_EQ(call<Insert>(insert, c, 0u, 1u, nullptr), 0u);
  EXPECT_EQ(call<Erase>(erase, c, 2u, 2u), 0u);
  EXPECT_EQ(call<Erase>(erase, c, 0xFFFFFFFFu, 2u), 0u);
  EXPECT_EQ(call<uint64_t(void*)>(size, c), 3u);

  // Inserting a container's own elements into itself is safe.
  EXPECT_EQ(call<Insert>(insert, c, 1u, 2u, call<void*(void*)>(data, c)), 1u);
  const auto* e = static_cast<const Transducer*>(call<void*(void*)>(data, c));
  const float xs[5] = {1, 1, 2, 2, 3};
  ASSERT_EQ(call<uint64_t(void*)>(size, c), 5u);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(e[i].x_position, xs[i]) << i;
  EXPECT_EQ(call<Erase>(erase, c, 1u, 3u), 1u);
  EXPECT_EQ(call<Erase>(erase, c, 2u, 0u), 1u);
  ASSERT_EQ(call<uint64_t(void*)>(size, c), 2u);
  e = static_cast<const Transducer*>(call<void*(void*)>(data, c));
  EXPECT_EQ(e[1].x_position, 3.0f);

  void* copy = call<void*(void*)>("CSharp_Velarion_new_TransducerContainer__SWIG_2", c);
  EXPECT_EQ(call<Erase>(erase, c, 0u, 2u), 1u);
  EXPECT_EQ(call<void*(void*)>(data, c), nullptr);
  EXPECT_EQ(call<uint64_t(void*)>(size, copy), 2u);
  EXPECT_THROW(static_cast<Velarion::TransducerContainer*>(copy)->at(2), std::out_of_range);
  call<void(void*)>("CSharp_Velarion_delete_TransducerContainer", copy);
  call<void(void*)>("CSharp_Velarion_delete_TransducerContainer", c);

  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_TransducerContainer__SWIG_2", nullptr), nullptr);
  EXPECT_EQ(takePending().message, "Velarion::TransducerContainer const & type is null");
  void* empty = call<void*()>("CSharp_Velarion_new_TransducerContainer__SWIG_0");
  EXPECT_EQ(call<uint64_t(void*)>(size, empty), 0u);
  call<void(void*)>("CSharp_Velarion_delete_TransducerContainer", empty);
}
