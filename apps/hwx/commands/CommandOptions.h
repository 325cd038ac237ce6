// Options as all commands spell them. Thread-safety: functions without state.

#ifndef HWX_COMMANDS_COMMANDOPTIONS_H
#define HWX_COMMANDS_COMMANDOPTIONS_H

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "hwx/inventory/Containers.h"

namespace hwx {

/// Adds an option, or, without dashes in front of its name, a positional argument, whose text may
/// not be empty. `target` stays missing unless it is given. `argument` is what the help calls the
/// text.
CLI::Option* AddText(CLI::App& app, const char* name, std::optional<std::string>& target,
                     const char* description, const char* argument);

/// Adds an option that may be given several times, and each time with several texts that have
/// commas between them. None may be empty.
CLI::Option* AddList(CLI::App& app, const char* name, std::vector<std::string>& target,
                     const char* description, const char* argument);

/// Adds the options that say how files are read, "--namespace" and "--max-memory".
void AddFileReading(CLI::App& app, TFileReading& reading);

/// Adds the option "--json".
void AddJson(CLI::App& app, bool& target);

/// Adds the option "--format" for one of `formats`, of which the first is meant without it, and
/// "--json" as a short form, if that is one of them. `target` is one of them afterwards.
void AddFormat(CLI::App& app, std::string& target, const std::vector<std::string>& formats);

}  // namespace hwx

#endif  // HWX_COMMANDS_COMMANDOPTIONS_H
