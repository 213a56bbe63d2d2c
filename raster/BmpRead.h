#pragma once
// Reading BMP files of 1, 4, 8, 24 and 32 bits a pixel, bottom-up or
// top-down, into a 24-bit cDIBSection. The header is checked against the
// file's length before anything is allocated.
#include <string>
#include <string_view>

#include "raster/cDIBSection.h"

namespace ortelix {

// Throws FileError with the cause (in German) when the bytes are no BMP the
// program can read.
cDIBSection ReadBmp(std::string_view bytes);
cDIBSection ReadBmpFile(const std::string& path);

// True when the bytes start like a BMP file.
bool LooksLikeBmp(std::string_view bytes);

}  // namespace ortelix
