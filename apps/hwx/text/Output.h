// The program's two streams, and the line of progress on them. All that the program writes goes
// through here. Thread-safety: all of it may be called from any thread; what one call writes stays
// together.

#ifndef HWX_TEXT_OUTPUT_H
#define HWX_TEXT_OUTPUT_H

#include <string>

namespace hwx {

/// Throws `TFailure` if the standard output is closed: the file that is opened next would take its
/// place, and get the program's output.
void RequireOpenOutput();

/// Writes `text` to the standard output. Throws `TFailure` if not all of it gets through.
void WriteOutput(const std::string& text);

/// Writes lines to the standard error stream.
void WriteErrorText(const std::string& text);

/// Writes a line for people to the standard error stream, behind the program's name.
void ReportError(const std::string& message);

/// Writes a line for people as `ReportError` does, unless the program is to be quiet: for what
/// isn't wrong, and is no output.
void ReportNote(const std::string& message);

/// Whether notes and progress are left out.
void SetQuiet(bool isQuiet);

/// Tells on the standard error stream what is being done, if it is a terminal: in a line of its
/// own, which gives way to the next one and to anything else that is written.
void ShowProgress(const std::string& text);

/// Takes the line of progress away, if there is one.
void EndProgress();

}  // namespace hwx

#endif  // HWX_TEXT_OUTPUT_H
