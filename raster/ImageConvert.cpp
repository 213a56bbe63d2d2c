#include "raster/ImageConvert.h"

#include <algorithm>
#include <cctype>

#include "core/FileIO.h"
#include "core/Session.h"
#include "platform/Platform.h"
#include "raster/BmpConvert.h"
#include "raster/BmpRead.h"
#include "raster/GifWriter.h"

namespace ortelix {

ImageKind ImageKindOf(const std::string& path) {
    const size_t dot = path.rfind('.');
    const size_t slash = path.find_last_of('/');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return ImageKind::Unknown;
    std::string ext = path.substr(dot + 1);
    for (char& c : ext) c = char(std::tolower(uint8_t(c)));
    if (ext == "bmp") return ImageKind::Bmp;
    if (ext == "gif") return ImageKind::Gif;
    if (ext == "jpg" || ext == "jpeg") return ImageKind::Jpg;
    if (ext == "png") return ImageKind::Png;
    return ImageKind::Unknown;
}

const char* ImageKindName(ImageKind kind) {
    switch (kind) {
    case ImageKind::Bmp: return "BMP";
    case ImageKind::Gif: return "GIF";
    case ImageKind::Jpg: return "JPG";
    case ImageKind::Png: return "PNG";
    case ImageKind::Unknown: break;
    }
    return "";
}

bool ImageCodecsReady(Session& s) {
    if (s.platform.imageCodecsReady()) return true;
    s.platform.messageBox(kCodecMessage, kCodecTitle, Buttons::Ok, Icon::Critical);
    return false;
}

cDIBSection LoadImageFile(Session& s, const std::string& path) {
    const std::string bytes = ReadFileBytes(path);
    if (LooksLikeBmp(bytes)) return ReadBmp(bytes);
    std::string error;
    const std::optional<Picture> picture = s.platform.decodeImage(bytes, error);
    if (!picture) throw FileError(path + ": " + error);
    cDIBSection dib;
    if (!dib.CreateFromPicture(*picture))
        throw FileError(path + ": Das Bild " + std::to_string(picture->width) + " x " +
                        std::to_string(picture->height) + " ist zu groß.");
    return dib;
}

std::optional<std::pair<int, int>> BildInfo(Session& s, const std::string& path) {
    return s.platform.imageFileSize(path);
}

bool SaveImageFile(Session& s, const cDIBSection& pic, const std::string& path, const ImageSaveOptions& options) {
    const ImageKind kind = ImageKindOf(path);
    if (kind == ImageKind::Unknown) throw FileError("Unbekanntes Bildformat: " + path);
    if (pic.Empty()) throw FileError("Kein Bild vorhanden");
    s.store.StatusText.set(std::string("Erzeuge ") + ImageKindName(kind) + " Datei...");
    const int colours = std::clamp(options.colours, 1, 256);
    switch (kind) {
    case ImageKind::Bmp:
        if (!options.depth) {
            pic.SavePicture(path);
        } else if (!BMPconvert(s, pic, path, *options.depth, options.webSafe, colours)) {
            return false;
        }
        break;
    case ImageKind::Gif: {
        cPalette palette;
        if (options.webSafe) {
            palette.CreateWebSafe();
        } else {
            if (!palette.CreateOptimal(s, pic, colours, 8)) return false;
            palette.EraseNodes();
        }
        const PaletteColour trans = options.transparent.value_or(PaletteColour{});
        if (!SaveGIF(s, pic, palette, path, options.transparent.has_value(), trans))
            throw FileError("Die GIF-Datei kann nicht geschrieben werden: " + path);
        break;
    }
    case ImageKind::Jpg:
    case ImageKind::Png: {
        std::string error;
        const std::optional<std::string> bytes =
            s.platform.encodeImage(pic.ToPicture(), ImageKindName(kind), kJpegQuality, error);
        if (!bytes) throw FileError(path + ": " + error);
        SafeWriter out(path);
        out.write(*bytes);
        out.commit();
        break;
    }
    case ImageKind::Unknown: break;
    }
    s.store.StatusText.set("Fertig");
    return true;
}

}  // namespace ortelix
