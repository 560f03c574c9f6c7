// How the export idiom hands class results over: by value a new owned copy,
// by reference the borrowed address.
#include <gtest/gtest.h>

#include "Velarion/Matrix3x3.h"
#include "interop/casting.h"

using Velarion::Matrix3x3;
using E = vlcs::Exports<vlcs::Module::velarion>;

TEST(ExportIdiom, ClassResultsByReferenceAreBorrowedAndByValueAreCopied) {
  Matrix3x3 owner = Matrix3x3::scale(1, 2, 3);
  void* self = &owner;

  void* borrowed = E::call([](Matrix3x3& m) -> const Matrix3x3& { return m; }, vlcs::Self<Matrix3x3>{self});
  EXPECT_EQ(borrowed, self) << "a reference result must not be copied";

  void* copy = E::call([](const Matrix3x3& m) { return m; }, vlcs::Self<Matrix3x3>{self});
  ASSERT_NE(copy, self);
  EXPECT_EQ(static_cast<Matrix3x3*>(copy)->element[4], 2.0);
  vlcs::destroy<Matrix3x3>(copy);
}
