// ortelix exif PHOTO...: every tag of each photo's EXIF block as "Name: Text",
// in file order. The photos are only read.
#include <cstdio>

#include "cli/CliCommands.h"
#include "editor/clsEXIF.h"
#include "platform/console/ConsolePlatform.h"

namespace ortelix {

int ExifCommand(const std::vector<std::string>& args) {
    if (args.empty()) {
        std::fprintf(stderr, "Aufruf: ortelix exif FOTO...\n");
        return 2;
    }
    ConsolePlatform platform;
    const ExifNames names = LoadExifNames(platform.programFolder());
    bool allRead = true;
    bool first = true;
    for (const std::string& path : args) {
        clsEXIF exif(names);
        if (!exif.ReadMetaInfo(path)) {
            // The class's own text where it has one, else the defect it met.
            const bool ownText = exif.State() == ExifState::NoFile || exif.State() == ExifState::NoExif;
            std::fprintf(stderr, "%s: %s\n", path.c_str(), ownText ? exif.AllTags().c_str() : exif.Problem().c_str());
            allRead = false;
            continue;
        }
        if (args.size() > 1) {
            std::printf("%s==> %s <==\n", first ? "" : "\n", path.c_str());
            first = false;
        }
        for (const ExifTag& t : exif.Tags()) std::printf("%s: %s\n", t.Name.c_str(), t.Text.c_str());
    }
    return allRead ? 0 : 1;
}

}  // namespace ortelix
