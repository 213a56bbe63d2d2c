// ortelix geotag --photos DIR|PHOTO [--offset [-]HH:MM:SS] INPUT... OUTPUT:
// the inputs read as convert reads them, the photos placed on the tracks as
// "Digicam" places them, and the store with the new waypoints written to
// OUTPUT. The photos are only read.
#include <cstdio>
#include <filesystem>

#include "cli/CliCommands.h"
#include "cli/ConvertRun.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/ModDigiCam.h"

namespace ortelix {

namespace {

constexpr const char* kUsage =
    "Aufruf: ortelix geotag --photos ORDNER|FOTO [--offset [-]HH:MM:SS] [-i FORMAT] [-o FORMAT] "
    "[--set NAME=WERT]... EINGABE... AUSGABE";

// The camera's offset as the seconds subtracted from each photo's time: the
// camera's clock runs ahead by "HH:MM:SS"; a leading "-" says it runs behind,
// so the offset is added. False when the text is no such time.
bool ParseOffset(const std::string& text, int64_t& seconds) {
    const bool behind = !text.empty() && text[0] == '-';
    const Time t = ParseClock(std::string_view(text).substr(behind ? 1 : 0));
    if (t.empty()) return false;
    seconds = behind ? -int64_t(*t) : int64_t(*t);
    return true;
}

// The photos of --photos: every "jpg" of a folder (any case, by name), or the
// one file. False, said on stderr, when it is neither or cannot be listed.
bool PhotoList(const std::string& where, std::vector<std::string>& photos) {
    std::error_code ec;
    if (std::filesystem::is_directory(where, ec)) {
        try {
            photos = FilesWithExtension(where, "jpg");
        } catch (const FileError& e) {
            std::fprintf(stderr, "%s: %s\n", where.c_str(), e.what());
            return false;
        }
        if (photos.empty()) std::fprintf(stderr, "%s: keine Fotos (*.jpg) im Ordner\n", where.c_str());
        return true;
    }
    if (!std::filesystem::exists(where, ec)) {
        std::fprintf(stderr, "%s: weder Foto noch Ordner\n", where.c_str());
        return false;
    }
    photos = {where};
    return true;
}

}  // namespace

int GeotagCommand(const std::vector<std::string>& args) {
    // --photos and --offset are ours; the rest is convert's. They are taken
    // out first, as an offset "-01:00:00" reads like a flag.
    std::string photosArg, offsetArg;
    bool havePhotos = false, haveOffset = false;
    std::vector<std::string> rest;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--photos" || a == "--offset") {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "Dem Schalter %s fehlt ein Wert\n", a.c_str());
                return 2;
            }
            (a == "--photos" ? photosArg : offsetArg) = args[++i];
            (a == "--photos" ? havePhotos : haveOffset) = true;
        } else {
            rest.push_back(a);
        }
    }
    if (!havePhotos) {
        std::fprintf(stderr, "%s\n", kUsage);
        return 2;
    }
    int64_t versatz = 0;
    if (haveOffset && !ParseOffset(offsetArg, versatz)) {
        std::fprintf(stderr, "--offset %s: keine Zeit [-]HH:MM:SS\n", offsetArg.c_str());
        return 2;
    }
    CliContext ctx;
    if (!PrepareCli(ctx, rest)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    std::vector<std::string> photos;
    if (ctx.positional.size() >= 2 && !PhotoList(photosArg, photos)) return 2;
    return ConvertRun(ctx, kUsage, [&](Session& s) {
        const DigiCamRun run = PrepareDigiCam(s, versatz);
        int added = 0;
        for (const std::string& photo : photos) {
            const PhotoResult r = FotoAufTrack(s, run, photo);
            added += r.waypoints;
            // A photo outside every track is no fault of the photo: silent.
            if (!r.skipped.empty())
                std::fprintf(stderr, "%s: %s\n", photo.c_str(), r.skipped.c_str());
            else if (r.hits > 0 && r.waypoints == 0)
                std::fprintf(stderr, "%s: vom Waypoint-Filter verworfen\n", photo.c_str());
        }
        std::printf("%d Waypoints aus %zu Fotos\n", added, photos.size());
    });
}

}  // namespace ortelix
