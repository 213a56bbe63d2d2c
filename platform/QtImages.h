#pragma once
// Qt's image I/O for the platforms: pictures decoded from bytes and encoded
// to bytes, so that reading and writing files stays with the program's own
// file routines (size limit, safe replacement).
#include <optional>
#include <string>
#include <utility>

#include "platform/Platform.h"

namespace ortelix {

// True when Qt can read and write JPEG and PNG (the JPEG plugin loaded).
bool QtImageCodecsReady();
std::optional<Picture> QtDecodeImage(const std::string& bytes, std::string& error);
// "PNG" or "JPG"/"JPEG"; quality for JPEG.
std::optional<std::string> QtEncodeImage(const Picture& picture, const std::string& format, int quality,
                                         std::string& error);
std::optional<std::pair<int, int>> QtImageFileSize(const std::string& path);

}  // namespace ortelix
