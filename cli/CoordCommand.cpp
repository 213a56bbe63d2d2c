#include <charconv>
#include <cstdio>
#include <iostream>
#include <string>

#include "cli/CliCommands.h"
#include "coordinates/CoordCalculator.h"
#include "core/Session.h"
#include "platform/console/ConsolePlatform.h"

namespace ortelix {

namespace {

bool LooksLikeNumber(const std::string& a) {
    double v;
    const char* first = a.data() + (a.size() > 1 && a[0] == '+' ? 1 : 0);
    return std::from_chars(first, a.data() + a.size(), v).ec == std::errc();
}

void Usage() {
    std::fprintf(stderr, "Aufruf: ortelix coord UMRECHNUNG [WERTE...] [--meridian M] [--system N] [--datum NAME]\n"
                         "Umrechnungen:");
    for (std::string_view op : CoordOperations()) std::fprintf(stderr, " %.*s", int(op.size()), op.data());
    std::fprintf(stderr, "\nOhne Werte wird jede Zeile der Standardeingabe umgerechnet.\n");
}

std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words;
    size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t' || line[i] == '\r')) ++i;
        const size_t start = i;
        while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') ++i;
        if (i > start) words.push_back(line.substr(start, i - start));
    }
    return words;
}

}  // namespace

int CoordCommand(const std::vector<std::string>& args) {
    if (args.empty()) {
        Usage();
        return 2;
    }
    const std::string op = args[0];
    if (CoordValueCount(op) < 0) {
        std::fprintf(stderr, "Unbekannte Umrechnung: %s\n", op.c_str());
        Usage();
        return 2;
    }
    CoordFlags flags;
    std::vector<std::string> values;
    for (size_t i = 1; i < args.size(); ++i) {
        const std::string& a = args[i];
        std::string* flag = a == "--meridian" ? &flags.meridian
                            : a == "--system" ? &flags.system
                            : a == "--datum"  ? &flags.datum
                                              : nullptr;
        if (flag) {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "Dem Schalter %s fehlt ein Wert\n", a.c_str());
                return 2;
            }
            *flag = args[++i];
        } else if (a.size() > 1 && a[0] == '-' && !LooksLikeNumber(a)) {
            std::fprintf(stderr, "Unbekannter Schalter: %s\n", a.c_str());
            return 2;
        } else {
            values.push_back(a);
        }
    }
    ConsolePlatform platform;
    Session session(platform);
    std::string out, error;
    if (!values.empty()) {
        if (!CoordLine(session, op, values, flags, out, error)) {
            std::fprintf(stderr, "%s\n", error.c_str());
            return 2;
        }
        std::printf("%s\n", out.c_str());
        return 0;
    }
    // One result line per input line; a wrong line is reported and skipped.
    int rc = 0;
    std::string line;
    while (std::getline(std::cin, line)) {
        const std::vector<std::string> words = Words(line);
        if (words.empty()) continue;
        if (CoordLine(session, op, words, flags, out, error)) {
            std::printf("%s\n", out.c_str());
        } else {
            std::fprintf(stderr, "%s\n", error.c_str());
            rc = 1;
        }
    }
    return rc;
}

}  // namespace ortelix
