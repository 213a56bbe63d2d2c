#include "core/Failure.h"

#include <exception>
#include <new>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

std::string FailureText(const char* firstLine, const std::string& cause) {
    return std::string(firstLine) + "\r\n\r\nUrsache: " + cause;
}

namespace {
bool Guarded(Session& s, const char* firstLine, const std::string& title, const std::function<void()>& body) {
    std::string cause;
    s.store.StatusText.clear();  // so that only this body's own closing line can stand
    try {
        body();
        // A closing line with counts ("Fertig: LOG=...") stands as the body left it.
        const std::string done = s.store.StatusText.text();
        if (done.rfind(kFilesWritten, 0) != 0 && done.rfind("Fertig: ", 0) != 0) s.store.StatusText.set("Fertig");
        return true;
    } catch (const std::bad_alloc&) {
        cause = "Nicht genügend Arbeitsspeicher";
    } catch (const std::exception& e) {
        cause = e.what();
    }
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
    s.platform.messageBox(FailureText(firstLine, cause), title, Buttons::Ok, Icon::Critical);
    return false;
}
}  // namespace

bool RunReader(Session& s, const std::string& title, const std::function<void()>& body) {
    return Guarded(s, kReadFailed, title, body);
}

bool RunWriter(Session& s, const std::string& title, const std::function<void()>& body) {
    s.NothingWritten = false;
    return Guarded(s, kWriteFailed, title, body) && !s.NothingWritten;
}

void ReportNothingToWrite(Session& s) {
    s.NothingWritten = true;
    s.platform.messageBox(kNothingToWrite, kNothingToWriteTitle, Buttons::Ok, Icon::Information);
}

void ReportFilesWritten(Session& s, const std::vector<std::string>& files) {
    std::string line = kFilesWritten;
    for (size_t i = 0; i < files.size(); ++i) {
        if (i > 0) line += ", ";
        line += SplitPath(files[i], 2);
    }
    s.store.StatusText.set(line);
}

}  // namespace ortelix
