#include "raster/GifWriter.h"

#include "core/FileIO.h"
#include "core/Session.h"
#include "raster/GifLzw.h"
#include "raster/cDIBSection.h"

namespace ortelix {

namespace {

void Put16(std::string& out, int v) {
    out += char(v & 0xFF);
    out += char((v >> 8) & 0xFF);
}

}  // namespace

bool SaveGIF(Session& s, const cDIBSection& pic, const cPalette& palette, const std::string& sFileName,
             bool UseTrans, PaletteColour TransColor, GifListener* listener) {
    const int width = pic.Width(), height = pic.Height();
    if (pic.Empty() || width <= 0 || height <= 0 || width > 65535 || height > 65535) return false;
    if (palette.Count() == 0 || palette.Count() > 256) return false;

    std::string out;
    out.reserve(size_t(1) << 20);
    out += UseTrans ? "GIF89a" : "GIF87a";
    Put16(out, width);
    Put16(out, height);
    out += char(247);  // global colour table of 256 entries, 8 bits of colour resolution
    out += char(0);    // background
    out += char(0);    // aspect ratio
    for (int i = 0; i < 256; ++i) {
        const PaletteColour c = i < palette.Count() ? palette.Colour(i) : PaletteColour{};
        out += char(c.Red);
        out += char(c.Green);
        out += char(c.Blue);
    }
    if (UseTrans) {
        int trans = -1;
        for (int i = 0; i < palette.Count() && trans < 0; ++i)
            if (palette.Colour(i) == TransColor) trans = i;
        out += "\x21\xF9\x04";
        out += char(trans >= 0 ? 1 : 0);  // no disposal, no user input, transparency flag
        Put16(out, 0);                    // no delay
        out += char(trans >= 0 ? trans : 0);
        out += char(0);
    }
    out += char(0x2C);
    Put16(out, 0);
    Put16(out, 0);
    Put16(out, width);
    Put16(out, height);
    out += char(0);  // no local table, not interlaced

    try {
        SafeWriter file(sFileName);
        PaletteLookup lookup(palette);
        GifLzwEncoder lzw(out);
        int shown = -1;
        for (int y = 0; y < height; ++y) {
            // The file starts with the top row, the byte array with the bottom one.
            const uint8_t* p = pic.ScanLine(height - 1 - y);
            for (int x = 0; x < width; ++x, p += 3) lzw.Add(uint8_t(lookup.Index(p[2], p[1], p[0])));
            if (out.size() >= SafeWriter::kBackgroundSlice) file.writeSlice(out);
            const int percent = int(int64_t(y + 1) * 100 / height);
            if (percent != shown) {
                shown = percent;
                s.store.StatusText.set("Erzeuge GIF: ", percent);
                if (listener) listener->Progress(percent);
            }
            s.pollEvents();
        }
        lzw.Finish();
        out += char(0x3B);
        file.write(out);
        file.commit();
    } catch (const FileError&) {
        return false;
    }
    return true;
}

}  // namespace ortelix
