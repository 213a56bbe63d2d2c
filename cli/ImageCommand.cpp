#include <cstdio>
#include <cstdlib>
#include <string>

#include "cli/CliCommands.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "platform/console/ConsolePlatform.h"
#include "raster/ImageConvert.h"

namespace ortelix {

namespace {

constexpr const char* kUsage =
    "Aufruf: ortelix image EINGABE AUSGABE [--colors N] [--depth 1|4|8] [--transparent RRGGBB] [--resize BxH] "
    "[--web-safe]\n";

bool WholeNumber(const std::string& text, long& value) {
    if (text.empty() || text.size() > 9) return false;
    for (char c : text)
        if (c < '0' || c > '9') return false;
    value = std::strtol(text.c_str(), nullptr, 10);
    return true;
}

bool HexColour(const std::string& text, PaletteColour& colour) {
    if (text.size() != 6) return false;
    unsigned v = 0;
    for (char c : text) {
        const int d = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10
                    : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
        if (d < 0) return false;
        v = v * 16 + unsigned(d);
    }
    colour = {uint8_t(v >> 16), uint8_t(v >> 8), uint8_t(v)};
    return true;
}

bool Size(const std::string& text, long& width, long& height) {
    const size_t x = text.find_first_of("xX");
    return x != std::string::npos && WholeNumber(text.substr(0, x), width) &&
           WholeNumber(text.substr(x + 1), height) && width > 0 && height > 0;
}

}  // namespace

// Reads a picture (BMP, PNG, JPEG, GIF), resizes it if asked, and writes it
// in the format of the output's extension.
int ImageCommand(const std::vector<std::string>& args) {
    std::vector<std::string> files;
    ImageSaveOptions options;
    long width = 0, height = 0;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const bool hasValue = i + 1 < args.size();
        long n = 0;
        if (a == "--colors" && hasValue && WholeNumber(args[i + 1], n) && n >= 1 && n <= 256) {
            options.colours = int(n);
            ++i;
        } else if (a == "--depth" && hasValue && WholeNumber(args[i + 1], n)) {
            options.depth = int(n);  // BMPconvert takes any other depth as 1
            ++i;
        } else if (a == "--transparent" && hasValue && HexColour(args[i + 1], options.transparent.emplace())) {
            ++i;
        } else if (a == "--resize" && hasValue && Size(args[i + 1], width, height)) {
            ++i;
        } else if (a == "--web-safe") {
            options.webSafe = true;
        } else if (a.rfind("--", 0) == 0) {
            std::fputs(kUsage, stderr);
            return 2;
        } else {
            files.push_back(a);
        }
    }
    if (files.size() != 2 || ImageKindOf(files[1]) == ImageKind::Unknown) {
        std::fputs(kUsage, stderr);
        return 2;
    }

    ConsolePlatform platform;
    Session s(platform);
    if (!ImageCodecsReady(s)) return 1;
    cDIBSection pic;
    if (!RunReader(s, "Bild einlesen", [&] { pic = LoadImageFile(s, files[0]); })) return 1;
    if (width > 0) {
        cDIBSection resized = pic.Resample(height, width);
        if (resized.Empty()) {
            std::fprintf(stderr, "Das Bild %ld x %ld ist zu groß.\n", width, height);
            return 1;
        }
        pic = std::move(resized);
    }
    const bool written = RunWriter(s, "Bild speichern", [&] {
        if (!SaveImageFile(s, pic, files[1], options)) throw FileError("Abbruch durch Benutzer");
    });
    return written ? 0 : 1;
}

}  // namespace ortelix
