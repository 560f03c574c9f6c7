#include "TextParsing.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#define VL_EMULATOR_POSIX_FILES 1
#endif

namespace VelarionEmulator {
namespace internal {

std::string trim(const std::string& text) {
  const char* blanks = " \t\r\n";
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) {
    return std::string();
  }
  const size_t last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

std::string stripLine(const std::string& line) { return trim(line.substr(0, line.find('#'))); }

std::vector<std::string> splitWords(const std::string& text) {
  std::vector<std::string> words;
  std::istringstream in(text);
  std::string word;
  while (in >> word) {
    words.push_back(word);
  }
  return words;
}

bool parseFloat(const std::string& token, float& value) {
  std::istringstream in(token);
  in.imbue(std::locale::classic());
  double parsed = 0.0;
  in >> parsed;
  if (in.fail() || !in.eof() || !std::isfinite(parsed) || std::fabs(parsed) > 3.4e38) {
    return false;
  }
  value = static_cast<float>(parsed);
  return true;
}

bool parseUnsigned(const std::string& token, unsigned int& value) {
  if (token.empty() || token.find_first_not_of("0123456789") != std::string::npos || token.size() > 9) {
    return false;
  }
  value = static_cast<unsigned int>(std::stoul(token));
  return true;
}

std::string formatFloat(float value) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(9);
  out << value;
  return out.str();
}

FileRead readSmallRegularFile(const std::string& path, std::size_t limit, std::string& text, std::string& problem) {
  const std::string tooLarge = "larger than " + std::to_string(limit) + " bytes";
#if defined(VL_EMULATOR_POSIX_FILES)
  // Looked at before opening (opening a device may already do something),
  // and again once open, in case the path changed meanwhile; non-blocking so
  // that a FIFO cannot hold the open.
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    problem = std::strerror(errno);
    return FileRead::unreadable;
  }
  if (!S_ISREG(status.st_mode)) {
    problem = "not a regular file";
    return FileRead::refused;
  }
  const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    problem = std::strerror(errno);
    return FileRead::unreadable;
  }
  struct Closer {
    int fd;
    ~Closer() { ::close(fd); }
  } closer{fd};
  if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
    problem = "not a regular file";
    return FileRead::refused;
  }
  if (static_cast<unsigned long long>(status.st_size) > limit) {
    problem = tooLarge;
    return FileRead::refused;
  }
  std::string content;
  char buffer[16384];
  for (;;) {
    const ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      problem = std::strerror(errno);
      return FileRead::unreadable;
    }
    if (got == 0) break;
    if (content.size() + static_cast<std::size_t>(got) > limit) {  // grew while read
      problem = tooLarge;
      return FileRead::refused;
    }
    content.append(buffer, static_cast<std::size_t>(got));
  }
  text = std::move(content);
  return FileRead::read;
#else
  std::error_code code;
  const std::filesystem::file_status status = std::filesystem::status(path, code);
  if (code) {
    problem = code.message();
    return FileRead::unreadable;
  }
  if (!std::filesystem::is_regular_file(status)) {
    problem = "not a regular file";
    return FileRead::refused;
  }
  const auto size = std::filesystem::file_size(path, code);
  if (code) {
    problem = code.message();
    return FileRead::unreadable;
  }
  if (size > limit) {
    problem = tooLarge;
    return FileRead::refused;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    problem = "cannot open it";
    return FileRead::unreadable;
  }
  std::string content(limit + 1, '\0');
  in.read(&content[0], static_cast<std::streamsize>(content.size()));
  if (in.bad()) {
    problem = "cannot read it";
    return FileRead::unreadable;
  }
  content.resize(static_cast<std::size_t>(in.gcount()));
  if (content.size() > limit) {
    problem = tooLarge;
    return FileRead::refused;
  }
  text = std::move(content);
  return FileRead::read;
#endif
}

bool writeFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) {
    return false;
  }
  out << text;
  out.flush();
  return static_cast<bool>(out);
}

}  // namespace internal
}  // namespace VelarionEmulator
