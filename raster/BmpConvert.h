#pragma once
// Writing a picture as a BMP of lower depth: 1, 4 or 8 bits a pixel with a
// colour table of 2^depth entries.
#include <string>

#include "raster/cDIBSection.h"
#include "raster/cPalette.h"

namespace ortelix {

class Session;

// 1, 4 or 8; any other depth counts as 1.
int BmpDepth(int depth);

// The whole file: 14-byte file header, 40-byte BITMAPINFOHEADER (positive
// height), the table of 2^depth entries (unused ones black), the index rows
// bottom-up padded with zeros to four bytes. Each pixel takes the nearest
// colour of `table`; with depth 1 the table is black and white and a pixel is
// white when red + green + blue >= 383.
std::string IndexedBmpBytes(const cDIBSection& pic, int depth, const cPalette& table);

// The table a depth gets: 8 bits the octree's `maxColours` (at most 256) or
// the web-safe colours, 4 bits the octree's 16 (or fewer), 1 bit black and
// white. False when the reduction was stopped by the user.
bool BmpTable(Session& s, const cDIBSection& pic, int depth, bool webSafe, int maxColours, cPalette& table);

// BmpTable and IndexedBmpBytes written through SafeWriter. False when the
// reduction was stopped; throws FileError when the file cannot be written.
bool BMPconvert(Session& s, const cDIBSection& pic, const std::string& sFileName, int depth, bool webSafe = false,
                int maxColours = 256);

}  // namespace ortelix
