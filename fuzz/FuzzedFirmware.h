// Firmware made of any bytes, for the fuzzers of what reads it: the executable's own operations
// stand before those of libsmbios. Thread-safety: none.

#ifndef FUZZ_FUZZEDFIRMWARE_H
#define FUZZ_FUZZEDFIRMWARE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Require.h"
#include "smbios/TableWalker.h"

namespace fuzz {

using Bytes = std::vector<std::uint8_t>;

/// The bytes are the machine's structure table, as far as the walk gets in them.
void ServeTable(const std::uint8_t* data, std::size_t size);

/// The bytes are what every read answers, unchecked: the status, the length in two bytes, and what
/// is put in the buffer.
void ServeAnswer(const std::uint8_t* data, std::size_t size);

/// What is served of a type, as the walk sees it; only for a table.
std::optional<smbios::TStructure> Served(int type);

/// The byte of a structure as it is copied out: 0 behind its end.
std::size_t CopiedByte(const smbios::TStructure& structure, std::size_t offset);

/// The string of that number, if there is one.
std::optional<std::string> StringOf(const smbios::TStructure& structure, std::size_t number);

/// What an operation ended in: its result, or the text of its out-of-range error.
struct TOutcome {
  bool fIsError;
  std::string fText;
};

inline bool operator==(const TOutcome& one, const TOutcome& other) {
  return one.fIsError == other.fIsError && one.fText == other.fText;
}

inline TOutcome Result(const std::string& text) {
  return {false, text};
}

inline TOutcome Error(const std::string& text) {
  return {true, text};
}

/// Releases what an operation left behind that ended in an error.
void ReleaseLeftBehind();

/// Runs an operation. Any exception but an out-of-range error ends the process.
template <typename Operation>
TOutcome Run(Operation operation) {
  try {
    return Result(operation());
  } catch (const std::out_of_range& error) {
    ReleaseLeftBehind();
    return Error(error.what());
  }
}

/// Tables and answers, for the generator to damage.
std::vector<Bytes> Seeds();

}  // namespace fuzz

#endif  // FUZZ_FUZZEDFIRMWARE_H
