// The file tools of the NMEA logs on the command line: nmea-filter, crlf, lf.
#include <cstdio>
#include <functional>
#include <sys/stat.h>

#include "cli/CliCommands.h"
#include "core/Failure.h"
#include "core/Session.h"
#include "gpsformats/NmeaTools.h"
#include "platform/console/ConsolePlatform.h"

namespace ortelix {

namespace {

using Tool = std::function<void(Session&, const std::string&, const std::string&)>;

// True when both names lead to one file: the tool would read what it replaces.
bool SameFile(const std::string& a, const std::string& b) {
    struct stat sa {}, sb {};
    return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

// EINGABE AUSGABE and nothing else; the tool under the writers' failure
// handler, whose message goes to stderr. 0 done, 1 failed, 2 a wrong call.
int RunTool(const std::vector<std::string>& args, const char* usage, const char* title, const Tool& tool) {
    for (const std::string& a : args) {
        if (a.size() > 1 && a[0] == '-') {
            std::fprintf(stderr, "Unbekannter Schalter: %s\n", a.c_str());
            return 2;
        }
    }
    if (args.size() != 2) {
        std::fprintf(stderr, "Aufruf: %s\n", usage);
        return 2;
    }
    const std::string& in = args[0];
    const std::string& out = args[1];
    if (in == out || SameFile(in, out)) {
        std::fprintf(stderr, "Eingabe und Ausgabe sind dieselbe Datei: %s\n", in.c_str());
        return 2;
    }
    ConsolePlatform platform;
    Session s(platform);
    if (!SourceReadable(s, title, in)) return 1;
    return RunWriter(s, title, [&] { tool(s, in, out); }) ? 0 : 1;
}

}  // namespace

int NmeaFilterCliCommand(const std::vector<std::string>& args) {
    int64_t kept = 0;
    const int code = RunTool(args, "ortelix nmea-filter EINGABE AUSGABE", "NMEA Filter",
                             [&](Session& s, const std::string& in, const std::string& out) {
                                 kept = NmeaFilter(s, in, out);
                             });
    // The count that the status line showed on the desktop.
    if (code == 0) std::printf("Filtere: %lld\n", static_cast<long long>(kept));
    return code;
}

int CrLfCliCommand(const std::vector<std::string>& args) {
    return RunTool(args, "ortelix crlf EINGABE AUSGABE", "LF zu CRLF", LfToCrLfFile);
}

int LfCliCommand(const std::vector<std::string>& args) {
    return RunTool(args, "ortelix lf EINGABE AUSGABE", "CRLF zu LF", CrLfToLfFile);
}

}  // namespace ortelix
