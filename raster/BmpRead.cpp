#include "raster/BmpRead.h"

#include <array>
#include <cstdint>

#include "core/FileIO.h"

namespace ortelix {

namespace {

uint32_t LE16(std::string_view b, size_t at) { return uint32_t(uint8_t(b[at])) | uint32_t(uint8_t(b[at + 1])) << 8; }
uint32_t LE32(std::string_view b, size_t at) { return LE16(b, at) | LE16(b, at + 2) << 16; }

[[noreturn]] void Fail(const std::string& cause) { throw FileError(cause); }

// The shift and width of a colour mask, so that a masked value becomes 0..255.
struct Channel {
    uint32_t mask = 0;
    int shift = 0;
    int bits = 0;
    uint8_t of(uint32_t v) const {
        if (bits == 0) return 0;
        const uint32_t raw = (v & mask) >> shift;
        if (bits >= 8) return uint8_t(raw >> (bits - 8));
        return uint8_t(raw * 255 / ((1u << bits) - 1));
    }
};
Channel ChannelOf(uint32_t mask) {
    Channel c;
    c.mask = mask;
    if (mask == 0) return c;
    while (!(mask & 1)) {
        mask >>= 1;
        ++c.shift;
    }
    while (mask & 1) {
        mask >>= 1;
        ++c.bits;
    }
    return c;
}

}  // namespace

bool LooksLikeBmp(std::string_view bytes) { return bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M'; }

cDIBSection ReadBmp(std::string_view b) {
    if (!LooksLikeBmp(b)) Fail("Die Datei ist keine BMP-Datei.");
    if (b.size() < 18) Fail("Die BMP-Datei ist zu kurz.");
    const uint64_t offBits = LE32(b, 10);
    const uint32_t infoSize = LE32(b, 14);
    const bool core = infoSize == 12;
    if (!core && infoSize < 40) Fail("Unbekannter BMP-Kopf der Länge " + std::to_string(infoSize) + ".");
    if (uint64_t(14) + infoSize > b.size()) Fail("Die BMP-Datei ist zu kurz für ihren Kopf.");

    int64_t width, height;
    uint32_t bitCount, compression = 0, clrUsed = 0;
    if (core) {
        width = LE16(b, 18);
        height = LE16(b, 20);  // the old OS/2 header knows only bottom-up
        bitCount = LE16(b, 24);
    } else {
        width = int32_t(LE32(b, 18));
        height = int32_t(LE32(b, 22));
        bitCount = LE16(b, 28);
        compression = LE32(b, 30);
        clrUsed = LE32(b, 46);
    }
    if (width <= 0 || height == 0)
        Fail("Ungültige Bildgröße " + std::to_string(width) + " x " + std::to_string(height) + ".");
    const bool topDown = height < 0;
    if (topDown) height = -height;
    if (bitCount != 1 && bitCount != 4 && bitCount != 8 && bitCount != 24 && bitCount != 32)
        Fail("Die Farbtiefe " + std::to_string(bitCount) + " Bit wird nicht unterstützt.");

    // Colour masks: BI_BITFIELDS with 32 bits (after a 40-byte header, or in a V4/V5 header).
    Channel red = ChannelOf(0x00FF0000), green = ChannelOf(0x0000FF00), blue = ChannelOf(0x000000FF);
    size_t tableAt = 14 + infoSize;
    if (compression == 3 && bitCount == 32) {
        size_t at = 14 + 40;
        if (infoSize == 40) tableAt += 12;
        if (at + 12 > b.size()) Fail("Die BMP-Datei ist zu kurz für ihre Farbmasken.");
        red = ChannelOf(LE32(b, at));
        green = ChannelOf(LE32(b, at + 4));
        blue = ChannelOf(LE32(b, at + 8));
    } else if (compression != 0) {
        Fail("Komprimierte BMP-Dateien (Art " + std::to_string(compression) + ") werden nicht unterstützt.");
    }

    // The colour table of the palette depths.
    std::array<std::array<uint8_t, 3>, 256> table{};
    if (bitCount <= 8) {
        const uint32_t full = 1u << bitCount;
        const uint32_t entries = clrUsed == 0 || clrUsed > full ? full : clrUsed;
        const size_t entrySize = core ? 3 : 4;
        if (tableAt + uint64_t(entries) * entrySize > b.size()) Fail("Die Farbtabelle reicht über das Dateiende.");
        for (uint32_t i = 0; i < entries; ++i) {
            const size_t at = tableAt + i * entrySize;
            table[i] = {uint8_t(b[at]), uint8_t(b[at + 1]), uint8_t(b[at + 2])};
        }
    }

    // Check the pixels' extent against the file before allocating.
    const uint64_t stride = ((uint64_t(width) * bitCount + 31) / 32) * 4;
    if (offBits < 14 + uint64_t(infoSize) || offBits > b.size())
        Fail("Der Beginn der Bilddaten (" + std::to_string(offBits) + ") liegt außerhalb der Datei.");
    if (uint64_t(height) > (b.size() - offBits) / stride)
        Fail("Die Bilddaten (" + std::to_string(width) + " x " + std::to_string(height) + " Pixel, " +
             std::to_string(bitCount) + " Bit) reichen über das Dateiende.");

    cDIBSection dib;
    if (!dib.Create(long(width), long(height)))
        Fail("Das Bild " + std::to_string(width) + " x " + std::to_string(height) + " ist zu groß.");
    const auto w = size_t(width);
    for (int64_t row = 0; row < height; ++row) {
        const char* src = b.data() + offBits + uint64_t(row) * stride;
        uint8_t* dst = dib.ScanLine(int(topDown ? height - 1 - row : row));
        switch (bitCount) {
        case 24:
            std::copy(src, src + 3 * w, dst);
            break;
        case 32:
            for (size_t x = 0; x < w; ++x) {
                const uint32_t v = LE32(std::string_view(src + 4 * x, 4), 0);
                dst[3 * x] = blue.of(v);
                dst[3 * x + 1] = green.of(v);
                dst[3 * x + 2] = red.of(v);
            }
            break;
        default: {
            const unsigned perByte = 8 / bitCount, mask = (1u << bitCount) - 1;
            for (size_t x = 0; x < w; ++x) {
                const unsigned byte = uint8_t(src[x / perByte]);
                const unsigned shift = 8 - bitCount * (x % perByte + 1);
                const auto& c = table[(byte >> shift) & mask];
                std::copy(c.begin(), c.end(), dst + 3 * x);
            }
        }
        }
    }
    return dib;
}

cDIBSection ReadBmpFile(const std::string& path) { return ReadBmp(ReadFileBytes(path)); }

}  // namespace ortelix
