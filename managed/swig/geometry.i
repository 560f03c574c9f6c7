// Geometry types and the free operators between them, as raw proxies for the
// members of other classes that take or return them.
%include "docs.i"

%typemap(csclassmodifiers) Velarion::Vector3, Velarion::Quaternion, Velarion::Matrix3x3, Velarion::Matrix4x4,
    Velarion::Transform "internal partial class"
%typemap(csclassmodifiers) double[ANY] "internal class"

VELARION_INTERNAL_BEGIN
%csmethodmodifiers ~Vector3 "protected virtual";
%csmethodmodifiers ~Quaternion "protected virtual";
%csmethodmodifiers ~Matrix3x3 "protected virtual";
%csmethodmodifiers ~Matrix4x4 "protected virtual";
%csmethodmodifiers ~Transform "protected virtual";

// The raw proxies serve the raw layer only: the public geometry types are
// hand-written structs (managed/VelarionSharp/Geometry).

namespace Velarion {

%rename(NVector3) Vector3;

%rename(operator_plus) Vector3::operator+;
%rename(operator_minus) Vector3::operator-;
%rename(operator_multiply) Vector3::operator*;
%rename(operator_divide) Vector3::operator/;

struct Vector3 {
  float x;
  float y;
  float z;
  Vector3();
  Vector3(float x, float y, float z);
  float length() const;
  float dot(const Vector3& other) const;
  Vector3 cross(const Vector3& other) const;
  Vector3 normalize() const;
  Vector3 operator+() const;
  Vector3 operator+(const Vector3& other) const;
  Vector3 operator-() const;
  Vector3 operator-(const Vector3& other) const;
  Vector3 operator*(float s) const;
  Vector3 operator/(float s) const;
};

// Quaternion, Matrix3x3, Matrix4x4, Transform. Read-only accessors are
// declared const and non-const, as the device library has them: SWIG keeps
// the first and numbers it (x__SWIG_0, basis__SWIG_0, at__SWIG_0).
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Quaternion::x;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Quaternion::y;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Quaternion::z;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Quaternion::w;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Matrix3x3::at;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Transform::basis;
%warnfilter(SWIGWARN_LANG_OVERLOAD_IGNORED) Transform::origin;

%rename(operator_minus) Quaternion::operator-;

struct Quaternion {
  Quaternion();
  Quaternion(float x, float y, float z, float w);
  float x() const;
  float& x();
  float y() const;
  float& y();
  float z() const;
  float& z();
  float w() const;
  float& w();
  float length() const;
  float length2() const;
  float dot(const Quaternion& other) const;
  Quaternion inverse() const;
  Quaternion operator-() const;
  static Quaternion fromEuler(float angleX, float angleY, float angleZ, int order);
  void setEuler(float angleX, float angleY, float angleZ, int order);
  static Quaternion fromRotation(const Vector3& axis, float angle);
  void setRotation(const Vector3& axis, float angle);
};

%rename(operator_plus) Matrix3x3::operator+;
%rename(operator_minus) Matrix3x3::operator-;
%rename(operator_multiply) Matrix3x3::operator*;
%rename(operator_divide) Matrix3x3::operator/;

// The element arrays cross as copies: a pointer into the matrix would outlive
// it, and the native setter reads a whole matrix from whatever it is given.
%typemap(cstype) double element[ANY] "double[]"
%typemap(imtype, out="global::System.IntPtr") double element[ANY] "double[]"
%typemap(csin) double element[ANY] "$csinput"
%typemap(csvarin, excode=SWIGEXCODE2) double element[ANY] %{
    set {
      if (value == null) throw new global::System.ArgumentNullException("value");
      if (value.Length != $1_dim0)
        throw new global::System.ArgumentException("the array must hold $1_dim0 elements", "value");
      $imcall;$excode
    } %}
%typemap(csvarout, excode=SWIGEXCODE2) double element[ANY] %{
    get {
      global::System.IntPtr cPtr = $imcall;$excode
      double[] values = new double[$1_dim0];
      global::System.Runtime.InteropServices.Marshal.Copy(cPtr, values, 0, $1_dim0);
      global::System.GC.KeepAlive(this);
      return values;
    } %}

// Natively unchecked: an index past the matrix reads outside it.
%typemap(csin, pre="    if ($csinput >= 3) throw new global::System.ArgumentOutOfRangeException(\"$csinput\");")
    unsigned int row, unsigned int col "$csinput"
%typemap(csin, pre="    if ((uint)$csinput >= 3) throw new global::System.ArgumentOutOfRangeException(\"$csinput\");")
    int i, int j "$csinput"

struct Matrix3x3 {
  double element[9];
  Matrix3x3();
  Matrix3x3(double m00, double m01, double m02, double m10, double m11, double m12, double m20, double m21,
            double m22);
  Matrix3x3(const Quaternion& rotation);
  double at(unsigned int row, unsigned int col) const;
  double& at(unsigned int row, unsigned int col);
  Vector3 getRow(int i) const;
  Vector3 getCol(int j) const;
  static Matrix3x3 identity();
  static Matrix3x3 zero();
  static Matrix3x3 scale(double sx, double sy, double sz);
  static Matrix3x3 rotate(Vector3 axis, double angle);
  static Matrix3x3 rotateOntoVector(Vector3 from, Vector3 to);
  void setRotation(const Quaternion& rotation);
  double determinant() const;
  Matrix3x3 inverse() const;
  Matrix3x3 transpose() const;
  Matrix3x3 operator+() const;
  Matrix3x3 operator-() const;
  Matrix3x3 operator*(const Matrix3x3& other) const;
  Matrix3x3 operator*(double s) const;
  Matrix3x3 operator/(double s) const;
};

%clear unsigned int row, unsigned int col, int i, int j;

%rename(operator_plus) Matrix4x4::operator+;
%rename(operator_minus) Matrix4x4::operator-;
%rename(operator_multiply) Matrix4x4::operator*;
%rename(operator_divide) Matrix4x4::operator/;

struct Matrix4x4 {
  double element[16];
  Matrix4x4();
  Matrix4x4(double m00, double m01, double m02, double m03, double m10, double m11, double m12, double m13,
            double m20, double m21, double m22, double m23, double m30, double m31, double m32, double m33);
  static Matrix4x4 identity();
  static Matrix4x4 zero();
  static Matrix4x4 scale(double sx, double sy, double sz);
  static Matrix4x4 translation(double tx, double ty, double tz);
  static Matrix4x4 rotate(Vector3 axis, double angle);
  static Matrix4x4 rotateOntoVector(Vector3 from, Vector3 to);
  double determinant() const;
  Matrix4x4 inverse() const;
  Vector3 transformPosition(const Vector3& position) const;
  Vector3 transformDirection(const Vector3& direction) const;
  std::string toString() const;
  Matrix4x4 operator+() const;
  Matrix4x4 operator+(const Matrix4x4& other) const;
  Matrix4x4 operator-() const;
  Matrix4x4 operator-(const Matrix4x4& other) const;
  Matrix4x4 operator*(const Matrix4x4& other) const;
  Matrix4x4 operator*(double s) const;
  Matrix4x4 operator/(double s) const;
};

// The origin reference is internal; the managed side wraps it.
%rename(origin_internal) Transform::origin;

struct Transform {
  Transform(Matrix3x3 basis, Vector3 origin);
  Transform(Matrix3x3 basis);
  Transform();
  Transform(const Quaternion& rotation, Vector3 origin);
  Transform(const Quaternion& rotation);
  const Matrix3x3& basis() const;
  Matrix3x3& basis();
  const Vector3& origin() const;
  Vector3& origin();
  void setBasis(Matrix3x3 basis);
  void setOrigin(Vector3 origin);
  static Transform translation(Vector3 offset);
  static Transform translation(double x, double y, double z);
  Transform inverse() const;
  Vector3 transformPosition(const Vector3& position) const;
  Vector3 transformDirection(const Vector3& direction) const;
  std::string toString() const;
};

%clear double element[ANY];

// Free operators: overloads are numbered across the whole module in the order
// they are declared here (operator_multiply__SWIG_0 ... __SWIG_8).
%rename(operator_equals) operator==;
%rename(operator_notequal) operator!=;
%rename(operator_multiply) operator*;
%rename(operator_divide) operator/;
%rename(operator_plus) operator+;
%rename(operator_minus) operator-;

bool operator==(const Vector3& a, const Vector3& b);
bool operator!=(const Vector3& a, const Vector3& b);
float operator*(const Vector3& a, const Vector3& b);
Quaternion operator*(Quaternion a, const Quaternion& b);
Quaternion operator*(Quaternion q, float s);
Quaternion operator*(float s, Quaternion q);
Quaternion operator/(Quaternion q, float s);
Quaternion operator+(Quaternion a, const Quaternion& b);
Quaternion operator-(Quaternion a, const Quaternion& b);
Matrix3x3 operator*(double s, const Matrix3x3& m);
Vector3 operator*(Matrix3x3 m, Vector3 v);
Matrix3x3 operator+(Matrix3x3 a, const Matrix3x3& b);
Matrix3x3 operator-(Matrix3x3 a, const Matrix3x3& b);
Vector3 operator*(const Transform& t, const Vector3& position);
Transform operator*(Transform a, const Transform& b);

}  // namespace Velarion

VELARION_INTERNAL_END
