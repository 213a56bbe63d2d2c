#pragma once
// The one failure handler around every reader and writer: a message box with
// the job's title, "Ursache: " and the cause; what was read stays in the store.
#include <functional>
#include <string>

namespace ortelix {

class Session;

inline constexpr const char* kReadFailed = "Die Daten können nicht eingelesen werden.";
inline constexpr const char* kWriteFailed = "Die Daten können nicht gespeichert werden.";

// The message text of a failure: first line, empty line, "Ursache: " cause, CR LF between.
std::string FailureText(const char* firstLine, const std::string& cause);

// Run a reader or writer body; false (after the message) when it failed.
bool RunReader(Session& s, const std::string& title, const std::function<void()>& body);
bool RunWriter(Session& s, const std::string& title, const std::function<void()>& body);

}  // namespace ortelix
