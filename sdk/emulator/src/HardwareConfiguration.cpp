#include "HardwareConfiguration.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "TextParsing.h"

namespace VelarionEmulator {
namespace internal {
namespace {

const char* const kBuiltIn = R"(# Velarion hardware configuration: the emulator's built-in devices.
# Copy it into a .vlcfg file and edit it to describe other arrays.

[device]
identifier = VLA16-2A1F0031
model = VLA16
description = Velarion A16 array: 16 x 16 transducers, 10.5 mm pitch, 40 kHz
serial = 2A1F0031
firmware_version = 3.2.1
firmware_build_date = 2018-10-04
layout = VLA16 16x16 10.5mm
features = amplitude_modulation time_point_streaming multi_device_synchronization
connected = yes
alignment = 1 0 0  0 1 0  0 0 1  0 0 0
grid = 16 16 0.0105

[device]
identifier = VLC10-5B330107
model = VLC10
description = Velarion C10 array: 10 x 10 transducers, 8.6 mm pitch, 40 kHz
serial = 5B330107
firmware_version = 3.3.0
firmware_build_date = 2018-12-11
layout = VLC10 10x10 8.6mm
features = amplitude_modulation time_point_streaming
connected = yes
# Tracking origin 86 mm in front of the array's near edge.
alignment = 1 0 0  0 1 0  0 0 1  0 -0.086 0
grid = 10 10 0.0086
)";

struct Section {
  VirtualDevice device;
  int line = 0;
  std::set<std::string> seen;
  bool sizeGiven = false;
  unsigned int grids = 0;
  float gridWidth = 0.0f;
  float gridDepth = 0.0f;
  bool explicitElements = false;
  std::vector<unsigned int> disabled;
};

void appendGrid(std::vector<Velarion::Transducer>& out, unsigned int columns, unsigned int rows, float pitch,
                float pitchY) {
  for (unsigned int row = 0; row < rows; ++row) {
    for (unsigned int column = 0; column < columns; ++column) {
      const float x = (static_cast<float>(column) - static_cast<float>(columns - 1) * 0.5f) * pitch;
      const float y = (static_cast<float>(row) - static_cast<float>(rows - 1) * 0.5f) * pitchY;
      out.emplace_back(x, y, 0.0f, 0.0f, 0.0f, 1.0f, 1.0f);
    }
  }
}

bool within(float value, float limit) { return value >= -limit && value <= limit; }

// Room for `more` elements in the device and in the whole configuration.
bool roomFor(const Section& section, std::size_t more, std::size_t budget, std::string& error) {
  const std::size_t total = section.device.transducers.size() + more;
  if (total > kMaximumElementsPerDevice) {
    error = "more than " + std::to_string(kMaximumElementsPerDevice) + " elements in one device";
    return false;
  }
  if (more > budget) {
    error = "more than " + std::to_string(kMaximumElementsPerConfiguration) + " elements in the configuration";
    return false;
  }
  return true;
}

bool parseFloats(const std::vector<std::string>& words, size_t count, float* out) {
  if (words.size() != count) return false;
  for (size_t i = 0; i < count; ++i) {
    if (!parseFloat(words[i], out[i])) return false;
  }
  return true;
}

// Completes a section; false with `error` when it does not describe a device.
bool finish(Section& section, std::string& error) {
  VirtualDevice& d = section.device;
  if (d.identifier.empty()) {
    error = "device has no identifier";
    return false;
  }
  if (d.modelIdentifier.empty()) {
    error = "device \"" + d.identifier + "\" has no model";
    return false;
  }
  if (d.transducers.empty()) {
    error = "device \"" + d.identifier + "\" has no transducers (grid or transducer)";
    return false;
  }
  for (unsigned int index : section.disabled) {
    if (index >= d.transducers.size()) {
      error = "device \"" + d.identifier + "\": disabled element " + std::to_string(index) + " does not exist";
      return false;
    }
    d.transducers[index].multiplier = 0.0f;
  }
  if (!section.sizeGiven) {
    if (section.grids == 1 && !section.explicitElements) {
      d.arrayWidth = section.gridWidth;
      d.arrayDepth = section.gridDepth;
    } else {
      // Mixed or explicit layouts: the extent of the element centres.
      auto [minX, maxX] = std::minmax_element(d.transducers.begin(), d.transducers.end(),
                                              [](const auto& a, const auto& b) { return a.x_position < b.x_position; });
      auto [minY, maxY] = std::minmax_element(d.transducers.begin(), d.transducers.end(),
                                              [](const auto& a, const auto& b) { return a.y_position < b.y_position; });
      d.arrayWidth = maxX->x_position - minX->x_position;
      d.arrayDepth = maxY->y_position - minY->y_position;
    }
  }
  if (!(d.arrayWidth <= kMaximumArrayExtent && d.arrayDepth <= kMaximumArrayExtent)) {
    error = "device \"" + d.identifier + "\" is larger than 10 m";
    return false;
  }
  return true;
}

bool applyKey(Section& section, const std::string& key, const std::string& value, std::size_t& budget,
              std::string& error) {
  VirtualDevice& d = section.device;
  const bool repeatable = key == "transducer" || key == "disabled";
  if (!repeatable && !section.seen.insert(key).second) {
    error = "\"" + key + "\" given twice";
    return false;
  }
  const std::vector<std::string> words = splitWords(value);
  std::map<std::string, std::string*> texts = {
      {"identifier", &d.identifier},     {"model", &d.modelIdentifier},
      {"description", &d.modelDescription}, {"serial", &d.serialNumber},
      {"firmware_version", &d.firmwareVersion}, {"firmware_build_date", &d.firmwareBuildDate},
      {"layout", &d.transducerLayoutName}};
  auto text = texts.find(key);
  if (text != texts.end()) {
    if ((key == "identifier" || key == "model") && (words.size() != 1)) {
      error = "\"" + key + "\" must be one word";
      return false;
    }
    *text->second = value;
    return true;
  }
  if (key == "features") {
    int bits = 0;
    for (const std::string& word : words) {
      if (word == "amplitude_modulation") {
        bits |= static_cast<int>(Velarion::DeviceFeatures::AmplitudeModulation);
      } else if (word == "time_point_streaming") {
        bits |= static_cast<int>(Velarion::DeviceFeatures::TimePointStreaming);
      } else if (word == "multi_device_synchronization") {
        bits |= static_cast<int>(Velarion::DeviceFeatures::MultiDeviceSynchronization);
      } else if (word != "none" || words.size() != 1) {
        error = "unknown feature \"" + word + "\"";
        return false;
      }
    }
    d.supportedFeatures = static_cast<Velarion::DeviceFeatures>(bits);
    return true;
  }
  if (key == "connected") {
    if (value == "yes" || value == "true") {
      d.connected = true;
    } else if (value == "no" || value == "false") {
      d.connected = false;
    } else {
      error = "connected must be yes or no";
      return false;
    }
    return true;
  }
  if (key == "array_size") {
    float size[2];
    if (!parseFloats(words, 2, size) || size[0] < 0.0f || size[1] < 0.0f || size[0] > kMaximumArrayExtent ||
        size[1] > kMaximumArrayExtent) {
      error = "array_size needs two numbers from 0 to 10 m";
      return false;
    }
    d.arrayWidth = size[0];
    d.arrayDepth = size[1];
    section.sizeGiven = true;
    return true;
  }
  if (key == "alignment") {
    if (!parseFloats(words, 12, d.defaultAlignment)) {
      error = "alignment needs twelve numbers";
      return false;
    }
    return true;
  }
  if (key == "grid") {
    unsigned int columns = 0, rows = 0;
    float pitch[2] = {0.0f, 0.0f};
    const bool shapeOk = (words.size() == 3 || words.size() == 4) && parseUnsigned(words[0], columns) &&
                         parseUnsigned(words[1], rows) && columns >= 1 && rows >= 1 && columns <= 1024 &&
                         rows <= 1024;
    if (!shapeOk || !parseFloat(words[2], pitch[0]) || (words.size() == 4 && !parseFloat(words[3], pitch[1]))) {
      error = "grid needs columns, rows (1 to 1024) and a pitch";
      return false;
    }
    if (words.size() == 3) pitch[1] = pitch[0];
    if (pitch[0] <= 0.0f || pitch[1] <= 0.0f) {
      error = "grid pitch must be positive";
      return false;
    }
    if (pitch[0] < kMinimumPitch || pitch[1] < kMinimumPitch || pitch[0] > kMaximumPitch ||
        pitch[1] > kMaximumPitch) {
      error = "grid pitch must be from 0.001 to 1 m";
      return false;
    }
    if (static_cast<float>(columns) * pitch[0] > kMaximumArrayExtent ||
        static_cast<float>(rows) * pitch[1] > kMaximumArrayExtent) {
      error = "grid is larger than 10 m";
      return false;
    }
    const std::size_t elements = static_cast<std::size_t>(columns) * rows;
    if (!roomFor(section, elements, budget, error)) return false;
    budget -= elements;
    appendGrid(d.transducers, columns, rows, pitch[0], pitch[1]);
    ++section.grids;
    section.gridWidth = static_cast<float>(columns) * pitch[0];
    section.gridDepth = static_cast<float>(rows) * pitch[1];
    return true;
  }
  if (key == "transducer") {
    float v[7];
    if (!parseFloats(words, 7, v)) {
      error = "transducer needs seven numbers: x y z ux uy uz multiplier";
      return false;
    }
    if (!within(v[0], kMaximumArrayExtent) || !within(v[1], kMaximumArrayExtent) ||
        !within(v[2], kMaximumArrayExtent)) {
      error = "transducer lies more than 10 m from the origin";
      return false;
    }
    const double length = std::sqrt(double(v[3]) * v[3] + double(v[4]) * v[4] + double(v[5]) * v[5]);
    if (!(std::fabs(length - 1.0) <= 1e-3)) {
      error = "transducer direction must be a unit vector";
      return false;
    }
    if (!(v[6] >= 0.0f && v[6] <= 1.0f)) {
      error = "transducer multiplier must be from 0 to 1";
      return false;
    }
    if (!roomFor(section, 1, budget, error)) return false;
    --budget;
    d.transducers.emplace_back(v[0], v[1], v[2], v[3], v[4], v[5], v[6]);
    section.explicitElements = true;
    return true;
  }
  if (key == "disabled") {
    for (const std::string& word : words) {
      unsigned int index = 0;
      if (!parseUnsigned(word, index)) {
        error = "disabled needs element indices";
        return false;
      }
      section.disabled.push_back(index);
    }
    if (words.empty()) {
      error = "disabled needs element indices";
      return false;
    }
    return true;
  }
  error = "unknown key \"" + key + "\"";
  return false;
}

}  // namespace

bool parseHardwareConfiguration(const std::string& text, const std::string& source,
                                std::vector<VirtualDevice>& devices, std::string& error, std::size_t elementBudget) {
  std::vector<VirtualDevice> parsed;
  std::set<std::string> identifiers;
  std::istringstream lines(text);
  std::string raw;
  int number = 0;
  bool inSection = false;
  Section section;

  auto close = [&]() {
    std::string problem;
    if (!finish(section, problem)) {
      error = source + ":" + std::to_string(section.line) + ": " + problem;
      return false;
    }
    if (!identifiers.insert(section.device.identifier).second) {
      error = source + ":" + std::to_string(section.line) + ": identifier \"" + section.device.identifier +
              "\" used twice";
      return false;
    }
    parsed.push_back(section.device);
    return true;
  };

  while (std::getline(lines, raw)) {
    ++number;
    if (!raw.empty() && raw.back() == '\r') raw.pop_back();
    for (const char c : raw) {
      const unsigned char code = static_cast<unsigned char>(c);
      if ((code < 0x20 && c != '\t') || code == 0x7f) {
        error = source + ":" + std::to_string(number) + ": control character " + std::to_string(code) +
                " in the line";
        return false;
      }
    }
    const std::string line = stripLine(raw);
    if (line.empty()) continue;
    if (line.front() == '[') {
      if (line != "[device]") {
        error = source + ":" + std::to_string(number) + ": unknown section " + line;
        return false;
      }
      if (inSection && !close()) return false;
      section = Section();
      section.line = number;
      inSection = true;
      continue;
    }
    const size_t equals = line.find('=');
    if (!inSection || equals == std::string::npos) {
      error = source + ":" + std::to_string(number) + ": expected \"key = value\" inside a [device] section";
      return false;
    }
    std::string problem;
    if (!applyKey(section, trim(line.substr(0, equals)), trim(line.substr(equals + 1)), elementBudget, problem)) {
      error = source + ":" + std::to_string(number) + ": " + problem;
      return false;
    }
  }
  if (inSection && !close()) return false;
  devices = std::move(parsed);
  return true;
}

bool loadHardwareConfiguration(const std::string& path, std::vector<VirtualDevice>& devices, std::string& error) {
  namespace fs = std::filesystem;
  std::error_code code;
  std::vector<std::string> files;
  if (fs::is_directory(path, code)) {
    for (const fs::directory_entry& entry : fs::directory_iterator(path, code)) {
      if (entry.is_regular_file(code) && entry.path().extension() == ".vlcfg") {
        files.push_back(entry.path().string());
      }
    }
    if (code) {
      error = "cannot list the folder \"" + path + "\"";
      return false;
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) {
      error = "no .vlcfg files in \"" + path + "\"";
      return false;
    }
  } else {
    files.push_back(path);
  }

  std::vector<VirtualDevice> all;
  std::set<std::string> identifiers;
  std::size_t budget = kMaximumElementsPerConfiguration;
  for (const std::string& file : files) {
    std::string text;
    std::string problem;
    if (readSmallRegularFile(file, kMaximumConfigurationFileBytes, text, problem) != FileRead::read) {
      error = "cannot read \"" + file + "\": " + problem;
      return false;
    }
    std::vector<VirtualDevice> some;
    if (!parseHardwareConfiguration(text, file, some, error, budget)) {
      return false;
    }
    for (VirtualDevice& device : some) {
      if (!identifiers.insert(device.identifier).second) {
        error = file + ": identifier \"" + device.identifier + "\" already defined by another file";
        return false;
      }
      budget -= device.transducers.size();
      all.push_back(std::move(device));
    }
  }
  devices = std::move(all);
  return true;
}

const std::string& builtInHardwareConfiguration() {
  static const std::string text = kBuiltIn;
  return text;
}

std::vector<VirtualDevice> builtInDevices() {
  std::vector<VirtualDevice> devices;
  std::string error;
  parseHardwareConfiguration(builtInHardwareConfiguration(), "built-in", devices, error);
  return devices;
}

std::string defaultHardwareConfigurationPath() {
  const char* configured = std::getenv("VELARION_HARDWARE_CONFIG_PATH");
  if (configured != nullptr && *configured != '\0') {
    return configured;
  }
#if defined(_WIN32)
  const char* programData = std::getenv("PROGRAMDATA");
  const std::string system = std::string(programData != nullptr ? programData : "C:\\ProgramData") +
                             "\\Velarion\\Hardware";
#else
  const std::string system = "/etc/velarion/hardware";
#endif
  std::error_code code;
  return std::filesystem::exists(system, code) ? system : std::string();
}

VirtualDevice gridDevice(const std::string& identifier, unsigned int columns, unsigned int rows, float pitch,
                         float pitchY) {
  VirtualDevice d;
  d.identifier = identifier;
  d.modelIdentifier = "VIRTUAL" + std::to_string(columns) + "x" + std::to_string(rows);
  d.modelDescription = "Virtual array: " + std::to_string(columns) + " x " + std::to_string(rows) + " transducers";
  d.serialNumber = identifier;
  d.firmwareVersion = "0.0.0";
  d.firmwareBuildDate = "2019-01-16";
  d.transducerLayoutName = d.modelIdentifier;
  d.supportedFeatures = Velarion::DeviceFeatures::AmplitudeModulation | Velarion::DeviceFeatures::TimePointStreaming;
  appendGrid(d.transducers, columns, rows, pitch, pitchY);
  d.arrayWidth = static_cast<float>(columns) * pitch;
  d.arrayDepth = static_cast<float>(rows) * pitchY;
  return d;
}

}  // namespace internal
}  // namespace VelarionEmulator
