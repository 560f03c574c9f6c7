// Alignment: p_tracking = R * p_device + t, with R and t given as twelve
// floats (R row by row, then t). The inverse is computed in double with the
// general 3 x 3 inverse, so a basis that is not quite orthonormal still
// round-trips; a singular one maps tracking to device through zero.
//
// File format (text, '#' comments, blank lines ignored):
//   velarion-alignment 1
//   rotation r00 r01 r02
//   rotation r10 r11 r12
//   rotation r20 r21 r22
//   translation tx ty tz
// Only regular files of at most kMaximumAlignmentFileBytes are read: a FIFO
// or a device (/dev/zero) is refused at once instead of blocking or filling
// memory.
#include "Velarion/Alignment.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <utility>

#include "Log.h"
#include "TextParsing.h"

namespace Velarion {

namespace {
// A well-formed file is a few hundred bytes; comments leave room to spare.
constexpr std::size_t kMaximumAlignmentFileBytes = 65536;
}  // namespace

struct AlignmentImplementation {
  float values[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};

  // Row-major 4 x 4 of both directions, in double.
  void deviceToTracking(double out[16]) const {
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 3; ++column) {
        out[row * 4 + column] = values[row * 3 + column];
      }
      out[row * 4 + 3] = values[9 + row];
    }
    out[12] = 0.0;
    out[13] = 0.0;
    out[14] = 0.0;
    out[15] = 1.0;
  }

  void trackingToDevice(double out[16]) const {
    double r[9];
    for (int i = 0; i < 9; ++i) r[i] = values[i];
    const double c00 = r[4] * r[8] - r[5] * r[7];
    const double c01 = r[5] * r[6] - r[3] * r[8];
    const double c02 = r[3] * r[7] - r[4] * r[6];
    const double determinant = r[0] * c00 + r[1] * c01 + r[2] * c02;
    double inverse[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0};
    if (std::fabs(determinant) >= 1e-19) {
      const double s = 1.0 / determinant;
      inverse[0] = c00 * s;
      inverse[1] = (r[2] * r[7] - r[1] * r[8]) * s;
      inverse[2] = (r[1] * r[5] - r[2] * r[4]) * s;
      inverse[3] = c01 * s;
      inverse[4] = (r[0] * r[8] - r[2] * r[6]) * s;
      inverse[5] = (r[2] * r[3] - r[0] * r[5]) * s;
      inverse[6] = c02 * s;
      inverse[7] = (r[1] * r[6] - r[0] * r[7]) * s;
      inverse[8] = (r[0] * r[4] - r[1] * r[3]) * s;
    }
    for (int row = 0; row < 3; ++row) {
      double translation = 0.0;
      for (int column = 0; column < 3; ++column) {
        out[row * 4 + column] = inverse[row * 3 + column];
        translation -= inverse[row * 3 + column] * values[9 + column];
      }
      out[row * 4 + 3] = translation;
    }
    out[12] = 0.0;
    out[13] = 0.0;
    out[14] = 0.0;
    out[15] = 1.0;
  }

  static Vector3 apply(const double m[16], const Vector3& v, bool position) {
    double result[3];
    for (int row = 0; row < 3; ++row) {
      result[row] = m[row * 4] * v.x + m[row * 4 + 1] * v.y + m[row * 4 + 2] * v.z + (position ? m[row * 4 + 3] : 0.0);
    }
    return Vector3(static_cast<float>(result[0]), static_cast<float>(result[1]), static_cast<float>(result[2]));
  }

  // Parses the file text; `error` says why not.
  static bool parse(const std::string& text, float parsed[12], std::string& error) {
    std::istringstream lines(text);
    std::string line;
    int number = 0;
    bool header = false;
    int rotationRows = 0;
    bool translation = false;
    while (std::getline(lines, line)) {
      ++number;
      const std::vector<std::string> words = VelarionEmulator::internal::splitWords(
          VelarionEmulator::internal::stripLine(line));
      if (words.empty()) continue;
      const std::string where = "line " + std::to_string(number) + ": ";
      if (!header) {
        if (words.size() != 2 || words[0] != "velarion-alignment" || words[1] != "1") {
          error = where + "expected \"velarion-alignment 1\"";
          return false;
        }
        header = true;
        continue;
      }
      float* target = nullptr;
      if (words[0] == "rotation") {
        if (rotationRows == 3) {
          error = where + "more than three rotation rows";
          return false;
        }
        target = parsed + 3 * rotationRows++;
      } else if (words[0] == "translation") {
        if (translation) {
          error = where + "second translation";
          return false;
        }
        translation = true;
        target = parsed + 9;
      } else {
        error = where + "unknown entry \"" + words[0] + "\"";
        return false;
      }
      if (words.size() != 4) {
        error = where + "expected three numbers";
        return false;
      }
      for (int i = 0; i < 3; ++i) {
        if (!VelarionEmulator::internal::parseFloat(words[1 + i], target[i])) {
          error = where + "not a finite number: \"" + words[1 + i] + "\"";
          return false;
        }
      }
    }
    if (!header || rotationRows != 3 || !translation) {
      error = "incomplete: needs the header, three rotation rows and a translation";
      return false;
    }
    return true;
  }

  bool load(const char* path) {
    using VelarionEmulator::internal::log;
    if (path == nullptr) {
      return false;
    }
    std::string text;
    std::string problem;
    using VelarionEmulator::internal::FileRead;
    switch (VelarionEmulator::internal::readSmallRegularFile(path, kMaximumAlignmentFileBytes, text, problem)) {
      case FileRead::read:
        break;
      case FileRead::unreadable:
        log(LogLevel::Warning, "Alignment", std::string("cannot read alignment file \"") + path + "\"");
        return false;
      case FileRead::refused:
        log(LogLevel::Warning, "Alignment", std::string("refused alignment file \"") + path + "\": " + problem);
        return false;
    }
    float parsed[12];
    std::string error;
    if (!parse(text, parsed, error)) {
      log(LogLevel::Warning, "Alignment", std::string("malformed alignment file \"") + path + "\": " + error);
      return false;
    }
    std::copy(parsed, parsed + 12, values);
    return true;
  }
};

Alignment::Alignment() : implementation_(new AlignmentImplementation()) {}

Alignment::Alignment(float r00, float r01, float r02, float r10, float r11, float r12, float r20, float r21,
                     float r22, float tx, float ty, float tz)
    : implementation_(new AlignmentImplementation()) {
  const float given[12] = {r00, r01, r02, r10, r11, r12, r20, r21, r22, tx, ty, tz};
  std::copy(given, given + 12, implementation_->values);
}

Alignment::Alignment(const char* path) : implementation_(new AlignmentImplementation()) {
  implementation_->load(path);
}

Alignment::Alignment(const Alignment& other)
    : implementation_(new AlignmentImplementation(other.implementation_ ? *other.implementation_
                                                                        : AlignmentImplementation())) {}

// The moved-from alignment is left as the identity.
Alignment::Alignment(Alignment&& other) noexcept : implementation_(other.implementation_) {
  other.implementation_ = nullptr;
  try {
    other.implementation_ = new AlignmentImplementation();
  } catch (...) {
  }
}

Alignment& Alignment::operator=(const Alignment& other) {
  if (this != &other) {
    Alignment copy(other);
    std::swap(implementation_, copy.implementation_);
  }
  return *this;
}

Alignment& Alignment::operator=(Alignment&& other) noexcept {
  std::swap(implementation_, other.implementation_);
  return *this;
}

Alignment::~Alignment() { delete implementation_; }

namespace {
const AlignmentImplementation& state(const AlignmentImplementation* implementation) {
  static const AlignmentImplementation identity;
  return implementation != nullptr ? *implementation : identity;
}
}  // namespace

Vector3 Alignment::fromDevicePositionToTrackingPosition(const Vector3& position) const {
  double m[16];
  state(implementation_).deviceToTracking(m);
  return AlignmentImplementation::apply(m, position, true);
}

Vector3 Alignment::fromDeviceDirectionToTrackingDirection(const Vector3& direction) const {
  double m[16];
  state(implementation_).deviceToTracking(m);
  return AlignmentImplementation::apply(m, direction, false);
}

Vector3 Alignment::fromTrackingPositionToDevicePosition(const Vector3& position) const {
  double m[16];
  state(implementation_).trackingToDevice(m);
  return AlignmentImplementation::apply(m, position, true);
}

Vector3 Alignment::fromTrackingDirectionToDeviceDirection(const Vector3& direction) const {
  double m[16];
  state(implementation_).trackingToDevice(m);
  return AlignmentImplementation::apply(m, direction, false);
}

void Alignment::fromDeviceToTrackingTransformToArray4x4(float* out) const {
  double m[16];
  state(implementation_).deviceToTracking(m);
  for (int i = 0; i < 16; ++i) out[i] = static_cast<float>(m[i]);
}

void Alignment::fromDeviceToTrackingTransformToArray4x4(double* out) const {
  state(implementation_).deviceToTracking(out);
}

void Alignment::fromTrackingToDeviceTransformToArray4x4(float* out) const {
  double m[16];
  state(implementation_).trackingToDevice(m);
  for (int i = 0; i < 16; ++i) out[i] = static_cast<float>(m[i]);
}

void Alignment::fromTrackingToDeviceTransformToArray4x4(double* out) const {
  state(implementation_).trackingToDevice(out);
}

bool Alignment::loadAlignment(const char* path) {
  if (implementation_ == nullptr) {
    implementation_ = new AlignmentImplementation();
  }
  return implementation_->load(path);
}

bool Alignment::saveAlignment(const char* path) const {
  if (path == nullptr) {
    return false;
  }
  const float* v = state(implementation_).values;
  using VelarionEmulator::internal::formatFloat;
  std::string text = "# Velarion alignment: tracking = rotation * device + translation (metres)\nvelarion-alignment 1\n";
  for (int row = 0; row < 3; ++row) {
    text += "rotation " + formatFloat(v[row * 3]) + " " + formatFloat(v[row * 3 + 1]) + " " +
            formatFloat(v[row * 3 + 2]) + "\n";
  }
  text += "translation " + formatFloat(v[9]) + " " + formatFloat(v[10]) + " " + formatFloat(v[11]) + "\n";
  if (!VelarionEmulator::internal::writeFile(path, text)) {
    VelarionEmulator::internal::log(LogLevel::Warning, "Alignment",
                                    std::string("cannot write alignment file \"") + path + "\"");
    return false;
  }
  return true;
}

}  // namespace Velarion
