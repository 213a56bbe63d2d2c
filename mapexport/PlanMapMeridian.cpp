// The projection of an OziExplorer .map as the plan's meridian.
#include <filesystem>

#include "appformats/ModOziMap.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

// Field i (from 0) of a comma-separated line, trimmed.
std::string_view Feld(std::string_view line, size_t i) {
    size_t pos = 0;
    for (; i > 0; --i) {
        pos = line.find(',', pos);
        if (pos == std::string_view::npos) return {};
        ++pos;
    }
    const size_t end = line.find(',', pos);
    return Trim(line.substr(pos, end == std::string_view::npos ? std::string_view::npos : end - pos));
}

}  // namespace

double OziMapMeridian(std::string_view bytes) {
    std::string projektion;
    size_t pos = 0;
    while (pos < bytes.size()) {
        size_t end = bytes.find('\n', pos);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = bytes.substr(pos, end - pos);
        pos = end + 1;
        const std::string key = LowerAscii(Feld(line, 0));
        if (key == "map projection") {
            projektion = LowerAscii(Feld(line, 1));
        } else if (key == "projection setup") {
            if (projektion == "latitude/longitude") return 1000;
            if (projektion.find("utm") != std::string::npos) return 2000;
            if (projektion == "transverse mercator") {
                const std::string_view m = Feld(line, 2);
                return m.empty() ? 0 : LeadingNumber(m);
            }
            return 0;
        }
    }
    if (projektion == "latitude/longitude") return 1000;
    if (projektion.find("utm") != std::string::npos) return 2000;
    return 0;
}

double MapFlaechenEinlesen(Session& s, const std::string& fileOrFolder) {
    if (fileOrFolder.empty()) return 0;
    std::error_code ec;
    std::string first = fileOrFolder;
    if (std::filesystem::is_directory(fileOrFolder, ec)) {
        const std::vector<std::string> maps = FilesWithExtension(fileOrFolder, "map");
        first = maps.empty() ? std::string() : maps.front();
    }
    const double m = first.empty() ? 0 : OziMapMeridian(ReadFileBytes(first));
    OziMapEinlesen(s, fileOrFolder);
    if (m != 0) s.plan.KartenMeridian = m;
    return m;
}

}  // namespace ortelix
