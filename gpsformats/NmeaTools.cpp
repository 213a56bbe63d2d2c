#include "gpsformats/NmeaTools.h"

#include <cstring>

#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ScanBytes.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr size_t kSlice = SafeWriter::kBackgroundSlice;
constexpr const char* kAllFilesFilter = "Alle Dateien (*.*)|*.*";
constexpr const char* kLogSourceFilter = "NMEA-Datei (*.nmea)|*.nmea|TomTom Log-File (*.pgl)|*.pgl|Alle Dateien (*.*)|*.*";
constexpr const char* kLogTargetFilter = "NMEA-Datei (*.nmea)|*.nmea|Alle Dateien (*.*)|*.*";

// The line's first six characters as repaired are one of the kinds:
// "GPGGA," stands for "$GPGGA" when the "$" was lost.
bool KeptKind(std::string_view line, bool lostDollar) {
    const size_t skip = lostDollar ? 1 : 0;
    if (line.size() < 6 - skip) return false;
    for (const char* k : kNmeaFilterKinds)
        if (std::memcmp(line.data(), k + skip, 6 - skip) == 0) return true;
    return false;
}

// The filter over the text; `flush` takes the output whenever a slice is full.
template <typename Flush>
void Filter(std::string_view in, std::string& out, int64_t& kept, Flush flush) {
    const char* p = in.data();
    const char* const end = p + in.size();
    while (p < end) {
        const char* nl = FindByte(p, end, '\n');
        const char* stop = nl ? nl : end;
        std::string_view line(p, static_cast<size_t>(stop - p));
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        p = stop + 1;
        const bool lostDollar = !line.empty() && line[0] == 'G';
        if (!KeptKind(line, lostDollar)) continue;
        if (lostDollar) out += '$';
        out.append(line);
        out += "\r\n";
        ++kept;
        if (out.size() >= kSlice) flush(out);
    }
}

template <typename Flush>
void LfToCrLfInto(std::string_view in, std::string& out, Flush flush) {
    const char* p = in.data();
    const char* const end = p + in.size();
    while (p < end) {
        const char* nl = FindByte(p, end, '\n');
        const char* stop = nl ? nl : end;
        out.append(p, stop);
        if (nl) out += "\r\n";
        p = stop + 1;
        if (out.size() >= kSlice) flush(out);
    }
}

template <typename Flush>
void CrLfToLfInto(std::string_view in, std::string& out, Flush flush) {
    const char* p = in.data();
    const char* const end = p + in.size();
    while (p < end) {
        const char* nl = FindByte(p, end, '\n');
        if (!nl) {
            out.append(p, end);
            break;
        }
        // The CR before this LF goes; a CR elsewhere stays.
        const char* keep = nl > p && nl[-1] == '\r' ? nl - 1 : nl;
        out.append(p, keep);
        out += '\n';
        p = nl + 1;
        if (out.size() >= kSlice) flush(out);
    }
}

// Source mapped, target through a temporary: `run(view, out, flush)`.
template <typename Run>
auto FileToFile(const std::string& source, const std::string& target, Run run) {
    const MappedFile in(source);
    SafeWriter w(target);
    std::string out;
    out.reserve(kSlice + 4096);
    auto flush = [&](std::string& part) { w.writeSlice(part); };
    const auto result = run(in.view(), out, flush);
    w.writeSlice(out);
    in.checkIntact();
    w.commit();
    return result;
}

// Asks for the source and the target; false when either was not given.
bool AskFiles(Session& s, const char* sourceTitle, const char* sourceFilter, const char* targetTitle,
              const char* targetFilter, std::string& source, std::string& target) {
    source = FileDialog(s, sourceTitle, sourceFilter, 1, DialogMode::Open).path;
    if (source.empty()) return false;
    target = FileDialog(s, targetTitle, targetFilter, 1, DialogMode::Save).path;
    return !target.empty();
}

}  // namespace

int64_t NmeaFilterText(std::string_view source, std::string& target) {
    int64_t kept = 0;
    Filter(source, target, kept, [](std::string&) {});
    return kept;
}

std::string LfToCrLfText(std::string_view source) {
    std::string out;
    LfToCrLfInto(source, out, [](std::string&) {});
    return out;
}

std::string CrLfToLfText(std::string_view source) {
    std::string out;
    CrLfToLfInto(source, out, [](std::string&) {});
    return out;
}

int64_t NmeaFilter(Session& s, const std::string& source, const std::string& target) {
    s.platform.setBusy(true);
    int64_t kept = 0;
    FileToFile(source, target, [&](std::string_view in, std::string& out, auto flush) {
        Filter(in, out, kept, [&](std::string& part) {
            flush(part);
            s.store.StatusText.set("Filtere: ", kept);
            s.pollEvents();
        });
        return 0;
    });
    s.store.StatusText.set("Filtere: ", kept);
    s.platform.setBusy(false);
    return kept;
}

void LfToCrLfFile(Session& s, const std::string& source, const std::string& target) {
    s.store.StatusText.set("ändere LF zu CRLF");
    s.platform.setBusy(true);
    FileToFile(source, target, [](std::string_view in, std::string& out, auto flush) {
        LfToCrLfInto(in, out, flush);
        return 0;
    });
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

void CrLfToLfFile(Session& s, const std::string& source, const std::string& target) {
    s.store.StatusText.set("ändere CRLF zu LF");
    s.platform.setBusy(true);
    FileToFile(source, target, [](std::string_view in, std::string& out, auto flush) {
        CrLfToLfInto(in, out, flush);
        return 0;
    });
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

bool SourceReadable(Session& s, const std::string& title, const std::string& source) {
    // Mapping costs no reading: the pages come when the tool walks them.
    return RunReader(s, title, [&] { const MappedFile probe(source); });
}

void NmeaFilterCommand(Session& s, const std::string&) {
    std::string source, target;
    if (!AskFiles(s, "NMEA Log-Datei auswählen", kLogSourceFilter, "Ziel NMEA Datei auswählen", kLogTargetFilter,
                  source, target))
        return;
    try {
        NmeaFilter(s, source, target);
    } catch (const std::exception&) {
        // The filter says nothing of a failure; the target stays as it was.
        s.platform.setBusy(false);
    }
}

void LfToCrLf(Session& s, const std::string&) {
    std::string source, target;
    if (!AskFiles(s, "QuellDatei auswählen", kAllFilesFilter, "Ziel Datei auswählen", kAllFilesFilter, source, target))
        return;
    if (SourceReadable(s, "LF zu CRLF", source)) RunWriter(s, "LF zu CRLF", [&] { LfToCrLfFile(s, source, target); });
}

void CrLfToLf(Session& s, const std::string&) {
    std::string source, target;
    if (!AskFiles(s, "Quell Datei auswählen", kAllFilesFilter, "Ziel Datei auswählen", kAllFilesFilter, source, target))
        return;
    if (SourceReadable(s, "CRLF zu LF", source)) RunWriter(s, "CRLF zu LF", [&] { CrLfToLfFile(s, source, target); });
}

}  // namespace ortelix
