#pragma once
// Converting picture files: BMP through our own reader and writers, GIF
// through our own GIF writer, PNG and JPEG (and reading GIF) through the
// platform's image libraries.
#include <optional>
#include <string>

#include "raster/cDIBSection.h"
#include "raster/cPalette.h"

namespace ortelix {

class Session;

enum class ImageKind { Bmp, Gif, Jpg, Png, Unknown };

// By the file name's extension, without regard to case (.jpeg is Jpg).
ImageKind ImageKindOf(const std::string& path);
// "BMP", "GIF", "JPG", "PNG" as the status line names them; "" for Unknown.
const char* ImageKindName(ImageKind kind);

inline constexpr int kJpegQuality = 90;
inline constexpr const char* kCodecMessage = "Die DLL 'janGraphics.dll' konnte nicht initialisiert werden!";
inline constexpr const char* kCodecTitle = "FEHLER!";

// False, after the message titled "FEHLER!", when the image libraries did not load.
bool ImageCodecsReady(Session& s);

// Any picture file: a BMP (by its first bytes) through our reader, anything
// else through the platform. Throws FileError with the cause.
cDIBSection LoadImageFile(Session& s, const std::string& path);

// A file's pixel size (width, height); nothing when it is no readable picture.
std::optional<std::pair<int, int>> BildInfo(Session& s, const std::string& path);

struct ImageSaveOptions {
    int colours = 256;                          // GIF and BMP tables: 1 to 256
    std::optional<int> depth;                   // BMP: none for 24 bits, else BMPconvert's depth
    bool webSafe = false;                       // the 216 web-safe colours instead of the octree's
    std::optional<PaletteColour> transparent;   // GIF only
};

// Writes the picture in the format of the name's extension, the status line
// reading "Erzeuge " + type + " Datei..." and then "Fertig". Throws FileError
// when it cannot (an existing file stays as it was); false when the user
// stopped the colour reduction.
bool SaveImageFile(Session& s, const cDIBSection& pic, const std::string& path, const ImageSaveOptions& options);

}  // namespace ortelix
