// Small helpers for the emulator's line-based text files (hardware
// configurations, alignments). Numbers are read and written in the classic
// locale whatever the process locale is.
#pragma once

#include <cstddef>
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

// Reads a regular file of at most `limit` bytes. Anything else (a folder, a
// FIFO, a device such as /dev/zero, a larger file) is refused at once, never
// waited on or read without end. Unless `read`, `problem` says why.
enum class FileRead { read, unreadable, refused };
FileRead readSmallRegularFile(const std::string& path, std::size_t limit, std::string& text, std::string& problem);

bool writeFile(const std::string& path, const std::string& text);

}  // namespace internal
}  // namespace VelarionEmulator
