#pragma once
// Writing a picture as a GIF file with a 256-entry global colour table: each
// pixel becomes the index of its nearest palette colour.
#include <string>

#include "raster/cPalette.h"

namespace ortelix {

class Session;
class cDIBSection;

// Told the percent of rows coded whenever it changes.
class GifListener {
public:
    virtual ~GifListener() = default;
    virtual void Progress(int Percents) = 0;
};

// "GIF87a", or "GIF89a" with a graphic control extension when UseTrans: the
// first palette entry equal to TransColor is transparent; when no entry
// is, the transparency flag stays clear. The palette gives up to 256 colours
// (the rest of the table is black). The status line reads "Erzeuge GIF: "
// with the percent, the event loop runs once per row. False, and the file
// as it was, when the picture or the palette is empty, the palette has more
// than 256 colours, or the file cannot be written.
bool SaveGIF(Session& s, const cDIBSection& pic, const cPalette& palette, const std::string& sFileName,
             bool UseTrans, PaletteColour TransColor, GifListener* listener = nullptr);

}  // namespace ortelix
