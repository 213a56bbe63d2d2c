#pragma once
// The one failure handler around every reader and writer: a message box with
// the job's title, "Ursache: " and the cause; what was read stays in the store.
#include <functional>
#include <string>
#include <vector>

namespace ortelix {

class Session;

inline constexpr const char* kReadFailed = "Die Daten können nicht eingelesen werden.";
inline constexpr const char* kWriteFailed = "Die Daten können nicht gespeichert werden.";

// The message text of a failure: first line, empty line, "Ursache: " cause, CR LF between.
std::string FailureText(const char* firstLine, const std::string& cause);

inline constexpr const char* kNothingToWrite = "Kein Datensatz vorhanden!";
inline constexpr const char* kNothingToWriteTitle = "Datensatz wählen";

// Run a reader or writer body; false (after the message) when it failed. A
// writer body that reported nothing to write counts as failed too.
bool RunReader(Session& s, const std::string& title, const std::function<void()>& body);
bool RunWriter(Session& s, const std::string& title, const std::function<void()>& body);

// A writer whose kind of data the store does not hold: "Kein Datensatz
// vorhanden!", and the writer's run counts as failed (the command line exits
// non-zero). The writer then returns without writing.
void ReportNothingToWrite(Session& s);

// A writer of several files names them on the status line when done:
// "Geschrieben: tour1.plt, tour2.plt, tour.wpt". The handler leaves that
// line standing instead of "Fertig".
inline constexpr const char* kFilesWritten = "Geschrieben: ";
void ReportFilesWritten(Session& s, const std::vector<std::string>& files);

}  // namespace ortelix
