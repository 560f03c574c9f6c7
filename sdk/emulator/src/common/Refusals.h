// Refusals: whenever the emulator answers false or refuses a value it logs one
// warning naming the cause. Like missed deadlines, each kind of refusal of one
// source is logged at once the first time, then at most once a second with
// the number of refusals left unlogged since.
#pragma once

#include <optional>
#include <string>

namespace VelarionEmulator {
namespace internal {

// The line to log for this refusal now, or nothing while the kind is muted.
// `source` tells refusals of different emitters (or other owners) apart;
// `kind` names the cause, e.g. "update:intensity".
std::optional<std::string> refusalLine(const void* source, const std::string& kind, const std::string& message);

// Logs the refusal as a warning (when not muted); for callers holding no lock.
void logRefusal(const char* area, const void* source, const std::string& kind, const std::string& message);

// Every kind is logged at once again (the emulator's reset to defaults).
void forgetRefusals();

// A number as the log shows it: "5", "0.25", "nan", "inf".
std::string number(double value);

}  // namespace internal
}  // namespace VelarionEmulator
