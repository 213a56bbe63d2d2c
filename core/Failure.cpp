#include "core/Failure.h"

#include <exception>
#include <new>

#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

std::string FailureText(const char* firstLine, const std::string& cause) {
    return std::string(firstLine) + "\r\n\r\nUrsache: " + cause;
}

namespace {
bool Guarded(Session& s, const char* firstLine, const std::string& title, const std::function<void()>& body) {
    std::string cause;
    try {
        body();
        s.store.StatusText.set("Fertig");
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
    return Guarded(s, kWriteFailed, title, body);
}

}  // namespace ortelix
