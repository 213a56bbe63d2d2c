#include "commands/CommandTable.h"

#include "gpsformats/GPX.h"

namespace ortelix {

namespace {
constexpr const char* kGpxFilter = "GPX File (*.gpx)|*.gpx|GPX File (*.xml)|*.xml|Alle Dateien (*.*)|*.*";

bool HasWord(std::string_view list, std::string_view word) {
    size_t pos = 0;
    while (pos <= list.size()) {
        size_t end = list.find(' ', pos);
        if (end == std::string_view::npos) end = list.size();
        if (list.substr(pos, end - pos) == word) return true;
        pos = end + 1;
    }
    return false;
}
}  // namespace

const std::vector<Command>& CommandTable() {
    static const std::vector<Command> table = {
        {"MenEinGPX", "GPX", "MenEingang", CommandKind::Read, "GPX-Datei einlesen", kGpxFilter, ReadGPXFile, "gpx", "gpx"},
        {"MenAusgangGPX", "GPX", "MenAusgang", CommandKind::Write, "GPX-Datei speichern", kGpxFilter, WriteGPXFile,
         "gpx", "gpx"},
    };
    return table;
}

const Command* FindCommand(std::string_view control) {
    for (const Command& c : CommandTable())
        if (control == c.control) return &c;
    return nullptr;
}

const Command* FindFormat(std::string_view key, CommandKind kind) {
    for (const Command& c : CommandTable())
        if (c.kind == kind && c.run && c.format && key == c.format) return &c;
    for (const Command& c : CommandTable())
        if (c.kind == kind && c.run && c.format && HasWord(c.extensions, key)) return &c;
    return nullptr;
}

const Command* BatchReader(std::string_view extension) {
    for (const Command& c : CommandTable())
        if (c.kind == CommandKind::Read && c.run && HasWord(c.extensions, extension)) return &c;
    return nullptr;
}

}  // namespace ortelix
