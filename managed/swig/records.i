// Plain control point records: position, direction, intensity and the
// (disabled) phase angle, and the persistent variant with an identifier.
// Constructor overloads are declared in the order that numbers them.

// Generated members are internal here; see common.i.
VELARION_INTERNAL_MEMBERS
namespace Velarion {

%typemap(csclassmodifiers) ControlPointBase, ControlPointPersistentBase "internal partial class"
%csmethodmodifiers ControlPointBase::ControlPointBase "public";
%csmethodmodifiers ControlPointPersistentBase::ControlPointPersistentBase "public";
%csattributes ControlPointBase::ControlPointBase
    "/// <summary>A record at a position in metres (x, y, z or a vector), with an optional direction, an intensity from 0 to 1 and a phase angle in radians.</summary>";
%csattributes ControlPointPersistentBase::ControlPointPersistentBase
    "/// <summary>A record with identifier id: a copy of base_, or made from a position in metres, an intensity from 0 to 1 and a phase angle in radians.</summary>";

struct ControlPointBase {
  Vector3 position;
  Vector3 direction;
  float intensity;
  float phase_angle;

  ControlPointBase();
  ControlPointBase(float x, float y, float z, float dx, float dy, float dz, float intensity);
  ControlPointBase(float x, float y, float z, float intensity);
  ControlPointBase(const Vector3& position, float intensity);
  ControlPointBase(const Vector3& position, const Vector3& direction, float intensity);
  ControlPointBase(float x, float y, float z, float intensity, float phase);
  ControlPointBase(const Vector3& position, float intensity, float phase);

  Vector3 getPosition() const;
  Vector3 getDirection() const;
  void setPosition(const Vector3& position);
  void setDirection(const Vector3& direction);
  float getIntensity() const;
  void setIntensity(float intensity);
  float getPhaseAngle() const;
  void setPhaseAngle(float angle);
  void autoPhaseAngle();
};

struct ControlPointPersistentBase : ControlPointBase {
  ControlPointPersistentBase(const ControlPointBase& base);
  ControlPointPersistentBase(unsigned int id);
  ControlPointPersistentBase(unsigned int id, const ControlPointBase& base);
  ControlPointPersistentBase(float x, float y, float z, float intensity, unsigned int id);
  ControlPointPersistentBase(const Vector3& position, float intensity, unsigned int id);
  ControlPointPersistentBase(float x, float y, float z, float intensity, float phase, unsigned int id);
  ControlPointPersistentBase(const Vector3& position, float intensity, float phase, unsigned int id);

  unsigned int getID() const;
};

}  // namespace Velarion

VELARION_PUBLIC_MEMBERS
