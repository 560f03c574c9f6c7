// StringList exports: bounds rules at their edges, the order of the checks,
// failure hand-over texts, and lists that are given themselves.
#include "support/interop_harness.h"

#include <climits>
#include <initializer_list>
#include <string>
#include <vector>

#include "VelarionEmulator/Devices.h"

using namespace harness;

namespace {

using Strings = std::vector<std::string>;

class StringListExports : public ExportTest {
 protected:
  void TearDown() override {
    for (void* list : owned) call<void(void*)>("CSharp_Velarion_delete_StringList", list);
    ExportTest::TearDown();
  }
  void* keep(void* list) {
    owned.push_back(list);
    return list;
  }
  void* make(std::initializer_list<const char*> items) {
    void* list = keep(call<void*()>("CSharp_Velarion_new_StringList__SWIG_0"));
    for (const char* item : items) call<void(void*, const char*)>("CSharp_Velarion_StringList_Add", list, item);
    return list;
  }
  static Strings read(void* list) {
    Strings items;
    const unsigned size = call<uint32_t(void*)>("CSharp_Velarion_StringList_size", list);
    for (unsigned i = 0; i < size; ++i) {
      items.push_back(managedString(call<void*(void*, int)>("CSharp_Velarion_StringList_getitemcopy", list, i)).value());
    }
    return items;
  }
  // The one pending failure, as (code, message or "<null>", parameter or "<null>").
  static std::string failure() {
    PendingArgument p = takePending();
    EXPECT_EQ(p.module, velarion);
    return std::to_string(p.code) + "|" + p.message.value_or("<null>") + "|" + p.paramName.value_or("<null>");
  }
  std::vector<void*> owned;
};

const std::string kIndex = "2|<null>|index";
const std::string kCount = "2|<null>|count";
const std::string kInvalidRange = "0|invalid range|";

}  // namespace

TEST_F(StringListExports, GetRangeChecksIndexThenCountThenRange) {
  void* list = make({"a", "b", "c"});
  auto getRange = [&](int index, int count) {
    return call<void*(void*, int, int)>("CSharp_Velarion_StringList_GetRange", list, index, count);
  };

  EXPECT_EQ(read(keep(getRange(3, 0))), Strings{});
  EXPECT_EQ(read(keep(getRange(1, 2))), (Strings{"b", "c"}));
  EXPECT_EQ(getRange(4, 0), nullptr);
  EXPECT_EQ(failure(), kInvalidRange);
  EXPECT_EQ(getRange(2, 2), nullptr);
  EXPECT_EQ(failure(), kInvalidRange);
  EXPECT_EQ(getRange(0, -1), nullptr);
  EXPECT_EQ(failure(), kCount);
  EXPECT_EQ(getRange(-1, -1), nullptr);
  EXPECT_EQ(failure(), kIndex);
  // Past the end and a negative count: the count is reported, not the range.
  EXPECT_EQ(getRange(9, -1), nullptr);
  EXPECT_EQ(failure(), kCount);
}

TEST_F(StringListExports, RemoveRangeAndReverseShareTheRangeChecks) {
  using Ranged = void(void*, int, int);
  for (const char* name : {"CSharp_Velarion_StringList_RemoveRange", "CSharp_Velarion_StringList_Reverse__SWIG_1"}) {
    void* list = make({"a", "b", "c"});
    call<Ranged>(name, list, 4, 0);
    EXPECT_EQ(failure(), kInvalidRange) << name;
    call<Ranged>(name, list, 0, -1);
    EXPECT_EQ(failure(), kCount) << name;
    call<Ranged>(name, list, -1, 1);
    EXPECT_EQ(failure(), kIndex) << name;
    call<Ranged>(name, list, 3, 0);
    EXPECT_TRUE(nothingPending()) << name;
    EXPECT_EQ(read(list), (Strings{"a", "b", "c"})) << name << ": failures leave the list alone";
  }

  void* list = make({"a", "b", "c", "d"});
  call<Ranged>("CSharp_Velarion_StringList_Reverse__SWIG_1", list, 1, 3);
  EXPECT_EQ(read(list), (Strings{"a", "d", "c", "b"}));
  call<Ranged>("CSharp_Velarion_StringList_RemoveRange", list, 1, 2);
  EXPECT_EQ(read(list), (Strings{"a", "b"}));
}

TEST_F(StringListExports, WrappedIndexPlusCountPassesTheRangeCheckAndTouchesNothing) {
  void* list = make({"a", "b", "c"});
  // 1 + INT_MAX wraps to INT_MIN, which is not above the size.
  EXPECT_EQ(read(keep(call<void*(void*, int, int)>("CSharp_Velarion_StringList_GetRange", list, 1, INT_MAX))),
            Strings{});
  call<void(void*, int, int)>("CSharp_Velarion_StringList_RemoveRange", list, 3, INT_MAX);
  call<void(void*, int, int)>("CSharp_Velarion_StringList_Reverse__SWIG_1", list, 2, INT_MAX);
  EXPECT_TRUE(nothingPending());
  EXPECT_EQ(read(list), (Strings{"a", "b", "c"}));
  // Without a wrap the same count is an invalid range.
  EXPECT_EQ(call<void*(void*, int, int)>("CSharp_Velarion_StringList_GetRange", list, 0, INT_MAX), nullptr);
  EXPECT_EQ(failure(), kInvalidRange);
}

TEST_F(StringListExports, SetRangeComparesWithoutWrapAndReportsIndex) {
  void* list = make({"a", "b", "c"});
  void* one = make({"x"});
  void* two = make({"y", "z"});
  using SetRange = void(void*, int, void*);

  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, 2, one);
  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, 0, two);
  EXPECT_EQ(read(list), (Strings{"y", "z", "x"}));
  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, 2, two);
  EXPECT_EQ(failure(), kIndex);
  // INT_MAX + 1 would wrap negative in 32 bits; here it is simply too far.
  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, INT_MAX, one);
  EXPECT_EQ(failure(), kIndex);
  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, -1, one);
  EXPECT_EQ(failure(), kIndex);
  // The null list is reported before the index.
  call<SetRange>("CSharp_Velarion_StringList_SetRange", list, -1, nullptr);
  EXPECT_EQ(failure(), "1|std::vector< std::string > const & type is null|<null>");
  EXPECT_EQ(read(list), (Strings{"y", "z", "x"}));
}

TEST_F(StringListExports, ElementAccessAndInsertionBounds) {
  void* list = make({"a", "b"});
  using Insert = void(void*, int, const char*);

  call<Insert>("CSharp_Velarion_StringList_Insert", list, 2, "end");
  call<Insert>("CSharp_Velarion_StringList_Insert", list, 0, "front");
  call<Insert>("CSharp_Velarion_StringList_Insert", list, 5, "x");
  EXPECT_EQ(failure(), kIndex);
  call<Insert>("CSharp_Velarion_StringList_Insert", list, -1, "x");
  EXPECT_EQ(failure(), kIndex);
  EXPECT_EQ(read(list), (Strings{"front", "a", "b", "end"}));

  EXPECT_EQ(managedString(call<void*(void*, int)>("CSharp_Velarion_StringList_getitem", list, 3)), "end");
  for (int bad : {4, -1}) {
    EXPECT_EQ(call<void*(void*, int)>("CSharp_Velarion_StringList_getitem", list, bad), nullptr);
    EXPECT_EQ(failure(), kIndex);
    EXPECT_EQ(call<void*(void*, int)>("CSharp_Velarion_StringList_getitemcopy", list, bad), nullptr);
    EXPECT_EQ(failure(), kIndex);
    call<void(void*, int)>("CSharp_Velarion_StringList_RemoveAt", list, bad);
    EXPECT_EQ(failure(), kIndex);
  }
  // setitem checks the value before the index.
  call<Insert>("CSharp_Velarion_StringList_setitem", list, 9, nullptr);
  EXPECT_EQ(failure(), "1|null string|<null>");
  call<Insert>("CSharp_Velarion_StringList_setitem", list, 4, "x");
  EXPECT_EQ(failure(), kIndex);
  call<Insert>("CSharp_Velarion_StringList_setitem", list, 3, "last");
  call<void(void*, int)>("CSharp_Velarion_StringList_RemoveAt", list, 0);
  EXPECT_EQ(read(list), (Strings{"a", "b", "last"}));

  void* others = make({"p", "q"});
  call<void(void*, int, void*)>("CSharp_Velarion_StringList_InsertRange", list, 4, others);
  EXPECT_EQ(failure(), kIndex);
  call<void(void*, int, void*)>("CSharp_Velarion_StringList_InsertRange", list, 3, others);
  EXPECT_EQ(read(list), (Strings{"a", "b", "last", "p", "q"}));
}

TEST_F(StringListExports, CapacityConstructorAndReserve) {
  void* empty = keep(call<void*(int)>("CSharp_Velarion_new_StringList__SWIG_2", 0));
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_StringList_size", empty), 0u);
  void* roomy = keep(call<void*(int)>("CSharp_Velarion_new_StringList__SWIG_2", 20));
  EXPECT_GE(call<uint32_t(void*)>("CSharp_Velarion_StringList_capacity", roomy), 20u);
  EXPECT_EQ(call<void*(int)>("CSharp_Velarion_new_StringList__SWIG_2", -1), nullptr);
  EXPECT_EQ(failure(), "2|<null>|capacity");
}

TEST_F(StringListExports, SearchesCompareBytesAndAbsentValuesChangeNothing) {
  void* list = make({"a", "b", "a", "A"});
  EXPECT_EQ(call<int(void*, const char*)>("CSharp_Velarion_StringList_IndexOf", list, "a"), 0);
  EXPECT_EQ(call<int(void*, const char*)>("CSharp_Velarion_StringList_LastIndexOf", list, "a"), 2);
  EXPECT_EQ(call<int(void*, const char*)>("CSharp_Velarion_StringList_LastIndexOf", list, "z"), -1);
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_StringList_Contains", list, "A"), 1u);
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_StringList_Contains", list, "a "), 0u);

  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_StringList_Remove", list, "z"), 0u);
  EXPECT_EQ(read(list), (Strings{"a", "b", "a", "A"}));
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_StringList_Remove", list, "a"), 1u);
  EXPECT_EQ(read(list), (Strings{"b", "a", "A"}));

  for (const char* name : {"CSharp_Velarion_StringList_IndexOf", "CSharp_Velarion_StringList_LastIndexOf"}) {
    EXPECT_EQ(call<int(void*, const char*)>(name, list, nullptr), 0);
    EXPECT_EQ(failure(), "1|null string|<null>");
  }
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_StringList_Remove", list, nullptr), 0u);
  EXPECT_EQ(failure(), "1|null string|<null>");
}

TEST_F(StringListExports, RepeatCopiesAndRangeOperationsGivenTheirOwnList) {
  EXPECT_EQ(read(keep(call<void*(const char*, int)>("CSharp_Velarion_StringList_Repeat", "v", 0))), Strings{});
  EXPECT_EQ(read(keep(call<void*(const char*, int)>("CSharp_Velarion_StringList_Repeat", "v", 2))),
            (Strings{"v", "v"}));
  EXPECT_EQ(call<void*(const char*, int)>("CSharp_Velarion_StringList_Repeat", nullptr, -1), nullptr);
  EXPECT_EQ(failure(), "1|null string|<null>");
  EXPECT_EQ(call<void*(const char*, int)>("CSharp_Velarion_StringList_Repeat", "v", -1), nullptr);
  EXPECT_EQ(failure(), kCount);

  void* list = make({"a", "b"});
  call<void(void*, void*)>("CSharp_Velarion_StringList_AddRange", list, list);
  EXPECT_EQ(read(list), (Strings{"a", "b", "a", "b"}));
  call<void(void*, int, void*)>("CSharp_Velarion_StringList_InsertRange", list, 1, list);
  EXPECT_EQ(read(list), (Strings{"a", "a", "b", "a", "b", "b", "a", "b"}));
  call<void(void*, int, void*)>("CSharp_Velarion_StringList_SetRange", list, 0, list);
  EXPECT_EQ(read(list).size(), 8u);

  void* copy = keep(call<void*(void*)>("CSharp_Velarion_new_StringList__SWIG_1", list));
  call<void(void*)>("CSharp_Velarion_StringList_Clear", list);
  EXPECT_EQ(read(copy).size(), 8u) << "the copy is independent";
  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_StringList__SWIG_1", nullptr), nullptr);
  EXPECT_EQ(failure(), "1|std::vector< std::string > const & type is null|<null>");
  call<void(void*, void*)>("CSharp_Velarion_StringList_AddRange", list, nullptr);
  EXPECT_EQ(failure(), "1|std::vector< std::string > const & type is null|<null>");
  call<void(void*, const char*)>("CSharp_Velarion_StringList_Add", list, nullptr);
  EXPECT_EQ(failure(), "1|null string|<null>");
  EXPECT_EQ(read(list), Strings{});
  call<void(void*)>("CSharp_Velarion_delete_StringList", nullptr);
}

namespace {

// DeviceInfoList shares the operations; what differs is how elements cross.
class DeviceInfoListExports : public ExportTest {
 protected:
  void SetUp() override {
    ExportTest::SetUp();
    VelarionEmulator::Devices::resetToDefaults();
    library = call<void*()>("CSharp_Velarion_new_VelarionLibrary__SWIG_0");
    for (unsigned i = 0; i < 2; ++i) {
      infos.push_back(call<void*(void*, unsigned)>("CSharp_Velarion_VelarionLibrary_getDeviceInfoByIndex", library, i));
    }
    list = call<void*()>("CSharp_Velarion_new_DeviceInfoList__SWIG_0");
  }
  void TearDown() override {
    for (void* info : infos) call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", info);
    call<void(void*)>("CSharp_Velarion_delete_DeviceInfoList", list);
    call<void(void*)>("CSharp_Velarion_delete_VelarionLibrary", library);
    ExportTest::TearDown();
  }
  static std::string identifier(void* info) {
    return managedString(call<void*(void*)>("CSharp_Velarion_DeviceInfo_getDeviceIdentifier", info)).value();
  }
  void* library = nullptr;
  void* list = nullptr;
  std::vector<void*> infos;
};

}  // namespace

TEST_F(DeviceInfoListExports, ElementsAreBorrowedByGetitemAndOwnedCopiesByGetitemcopy) {
  call<void(void*, void*)>("CSharp_Velarion_DeviceInfoList_Add", list, infos[1]);
  call<void(void*, int, void*)>("CSharp_Velarion_DeviceInfoList_Insert", list, 0, infos[0]);
  ASSERT_EQ(call<uint32_t(void*)>("CSharp_Velarion_DeviceInfoList_size", list), 2u);

  void* borrowed = call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitem", list, 1);
  EXPECT_EQ(borrowed, call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitem", list, 1))
      << "the same element, not a copy";
  EXPECT_EQ(identifier(borrowed), identifier(infos[1]));
  void* copy = call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitemcopy", list, 0);
  EXPECT_NE(copy, call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitem", list, 0));
  EXPECT_EQ(identifier(copy), identifier(infos[0]));
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", copy);

  call<void(void*)>("CSharp_Velarion_DeviceInfoList_Reverse__SWIG_0", list);
  EXPECT_EQ(identifier(call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitem", list, 0)),
            identifier(infos[1]));
  EXPECT_EQ(call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_getitem", list, 2), nullptr);
  EXPECT_EQ(takePending().paramName, "index");
}

TEST_F(DeviceInfoListExports, NullElementsAndListsUseTheDeviceInfoMessages) {
  const std::string element = "Velarion::DeviceInfo const & type is null";
  call<void(void*, int, void*)>("CSharp_Velarion_DeviceInfoList_Insert", list, 5, nullptr);
  EXPECT_EQ(takePending().message, element) << "the value is checked before the index";
  call<void(void*, void*)>("CSharp_Velarion_DeviceInfoList_Add", list, nullptr);
  EXPECT_EQ(takePending().message, element);
  EXPECT_EQ(call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_Repeat", nullptr, 1), nullptr);
  EXPECT_EQ(takePending().message, element);
  call<void(void*, int, void*)>("CSharp_Velarion_DeviceInfoList_SetRange", list, 0, nullptr);
  EXPECT_EQ(takePending().message, "std::vector< Velarion::DeviceInfo > const & type is null");
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_DeviceInfoList_size", list), 0u);

  void* repeated = call<void*(void*, int)>("CSharp_Velarion_DeviceInfoList_Repeat", infos[0], 3);
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_DeviceInfoList_size", repeated), 3u);
  call<void(void*, void*)>("CSharp_Velarion_DeviceInfoList_AddRange", list, repeated);
  call<void(void*, int, int)>("CSharp_Velarion_DeviceInfoList_RemoveRange", list, 1, 2);
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_DeviceInfoList_size", list), 1u);
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfoList", repeated);
}
