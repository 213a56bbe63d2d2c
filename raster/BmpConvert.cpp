#include "raster/BmpConvert.h"

#include <algorithm>

#include "core/FileIO.h"

namespace ortelix {

namespace {

void PutLE16(std::string& out, unsigned v) {
    out.push_back(char(v & 0xFF));
    out.push_back(char((v >> 8) & 0xFF));
}
void PutLE32(std::string& out, uint32_t v) {
    for (int i = 0; i < 4; ++i) out.push_back(char((v >> (8 * i)) & 0xFF));
}

}  // namespace

int BmpDepth(int depth) { return depth == 4 || depth == 8 ? depth : 1; }

std::string IndexedBmpBytes(const cDIBSection& pic, int depth, const cPalette& table) {
    depth = BmpDepth(depth);
    const int entries = 1 << depth;
    const uint32_t stride = ((uint32_t(pic.Width()) * uint32_t(depth) + 31) / 32) * 4;
    const uint32_t imageSize = stride * uint32_t(pic.Height());
    const uint32_t offBits = 54 + 4 * uint32_t(entries);
    std::string out;
    out.reserve(offBits + imageSize);
    out += "BM";
    PutLE32(out, offBits + imageSize);
    PutLE32(out, 0);
    PutLE32(out, offBits);
    PutLE32(out, 40);
    PutLE32(out, uint32_t(pic.Width()));
    PutLE32(out, uint32_t(pic.Height()));
    PutLE16(out, 1);
    PutLE16(out, unsigned(depth));
    PutLE32(out, 0);
    PutLE32(out, imageSize);
    PutLE32(out, 2835);
    PutLE32(out, 2835);
    PutLE32(out, uint32_t(entries));
    PutLE32(out, 0);

    cPalette bw;
    if (depth == 1) {
        bw.Add(0, 0, 0);
        bw.Add(255, 255, 255);
    }
    const cPalette& colours = depth == 1 ? bw : table;
    for (int i = 0; i < entries; ++i) {
        const PaletteColour c = i < colours.Count() ? colours.Colour(i) : PaletteColour{};
        out.push_back(char(c.Blue));
        out.push_back(char(c.Green));
        out.push_back(char(c.Red));
        out.push_back('\0');
    }

    PaletteLookup lookup(colours);
    std::string row(stride, '\0');
    for (int y = 0; y < pic.Height(); ++y) {
        std::fill(row.begin(), row.end(), '\0');
        const uint8_t* src = pic.ScanLine(y);
        for (int x = 0; x < pic.Width(); ++x) {
            const uint8_t b = src[3 * x], g = src[3 * x + 1], r = src[3 * x + 2];
            unsigned index;
            if (depth == 1)
                index = unsigned(r) + g + b >= 383 ? 1 : 0;
            else
                index = unsigned(std::max(0, lookup.Index(r, g, b)));
            const unsigned perByte = 8 / unsigned(depth);
            const unsigned shift = 8 - unsigned(depth) * (unsigned(x) % perByte + 1);
            row[size_t(x) / perByte] = char(uint8_t(row[size_t(x) / perByte]) | (index << shift));
        }
        out += row;
    }
    return out;
}

bool BmpTable(Session& s, const cDIBSection& pic, int depth, bool webSafe, int maxColours, cPalette& table) {
    table.Clear();
    depth = BmpDepth(depth);
    if (depth == 1) {
        table.Add(0, 0, 0);
        table.Add(255, 255, 255);
        return true;
    }
    if (depth == 8 && webSafe) {
        table.CreateWebSafe();
        return true;
    }
    const int size = std::clamp(maxColours, 1, 1 << depth);
    const bool done = table.CreateOptimal(s, pic, size, 8);
    table.EraseNodes();
    return done;
}

bool BMPconvert(Session& s, const cDIBSection& pic, const std::string& sFileName, int depth, bool webSafe,
                int maxColours) {
    if (pic.Empty()) throw FileError("Kein Bild vorhanden");
    cPalette table;
    if (!BmpTable(s, pic, depth, webSafe, maxColours, table)) return false;
    const std::string bytes = IndexedBmpBytes(pic, depth, table);
    SafeWriter out(sFileName);
    out.write(bytes);
    out.commit();
    return true;
}

}  // namespace ortelix
