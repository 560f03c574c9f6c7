#include "TextParsing.h"

#include <cerrno>
#include <cmath>
#include <fstream>
#include <locale>
#include <sstream>

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

bool readFile(const std::string& path, std::string& text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    return false;
  }
  std::ostringstream content;
  content << in.rdbuf();
  if (in.bad()) {
    return false;
  }
  text = content.str();
  return true;
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
