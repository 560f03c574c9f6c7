// Geometry value types and the free operators between them.
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

}  // namespace Velarion
