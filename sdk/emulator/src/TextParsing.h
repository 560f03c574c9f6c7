// Small helpers for the emulator's line-based text files (hardware
// configurations, alignments). Numbers are read and written in the classic
// locale whatever the process locale is.
#pragma once

#include <string>
#include <vector>

namespace VelarionEmulator {
namespace internal {

// Drops a '#' comment and surrounding blanks.
std::string stripLine(const std::string& line);
std::string trim(const std::string& text);
std::vector<std::string> splitWords(const std::string& text);

// Whole-token parses: no trailing characters; floats must be finite.
bool parseFloat(const std::string& token, float& value);
bool parseUnsigned(const std::string& token, unsigned int& value);

// Shortest text that reads back as the same float.
std::string formatFloat(float value);

bool readFile(const std::string& path, std::string& text);
bool writeFile(const std::string& path, const std::string& text);

}  // namespace internal
}  // namespace VelarionEmulator
