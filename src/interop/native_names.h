// The native type name of every class that an export checks for null. The
// null-argument messages are built from these names (casting.h), so each name
// is written here once.
#pragma once

#include <string>
#include <vector>

#include "interop/casting.h"

namespace Velarion {
struct Vector3;
struct Quaternion;
struct Matrix3x3;
struct Matrix4x4;
struct Transform;
struct ControlPointBase;
struct HostDuration;
class TransducerContainer;
class Alignment;
class DeviceInfo;
class VelarionLibrary;
namespace AmplitudeModulation {
class ControlPoint;
class ControlPointCollection;
class Emitter;
}  // namespace AmplitudeModulation
namespace TimePointStreaming {
class Emitter;
}  // namespace TimePointStreaming
}  // namespace Velarion

namespace vlcs {

VLCS_NATIVE_NAME(Velarion::Vector3, "Velarion::Vector3")
VLCS_NATIVE_NAME(Velarion::Quaternion, "Velarion::Quaternion")
VLCS_NATIVE_NAME(Velarion::Matrix3x3, "Velarion::Matrix3x3")
VLCS_NATIVE_NAME(Velarion::Matrix4x4, "Velarion::Matrix4x4")
VLCS_NATIVE_NAME(Velarion::Transform, "Velarion::Transform")
VLCS_NATIVE_NAME(Velarion::ControlPointBase, "Velarion::ControlPointBase")
VLCS_NATIVE_NAME(Velarion::HostDuration, "Velarion::HostDuration")
VLCS_NATIVE_NAME(Velarion::TransducerContainer, "Velarion::TransducerContainer")
VLCS_NATIVE_NAME(Velarion::Alignment, "Velarion::Alignment")
VLCS_NATIVE_NAME(Velarion::DeviceInfo, "Velarion::DeviceInfo")
VLCS_NATIVE_NAME(Velarion::VelarionLibrary, "Velarion::VelarionLibrary")
VLCS_NATIVE_NAME(std::vector<std::string>, "std::vector< std::string >")
VLCS_NATIVE_NAME(std::vector<Velarion::DeviceInfo>, "std::vector< Velarion::DeviceInfo >")
VLCS_NATIVE_NAME(Velarion::AmplitudeModulation::ControlPoint, "Velarion::AmplitudeModulation::ControlPoint")
VLCS_NATIVE_NAME(Velarion::AmplitudeModulation::ControlPointCollection,
                 "Velarion::AmplitudeModulation::ControlPointCollection")
VLCS_NATIVE_NAME(Velarion::AmplitudeModulation::Emitter, "Velarion::AmplitudeModulation::Emitter")
VLCS_NATIVE_NAME(Velarion::TimePointStreaming::Emitter, "Velarion::TimePointStreaming::Emitter")

}  // namespace vlcs
