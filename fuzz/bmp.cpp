// The BMP reader on any bytes; what it reads must have a consistent layout
// and shrink to half its size.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/FileIO.h"
#include "raster/BmpRead.h"
#include "raster/cDIBSection.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    try {
        const ortelix::cDIBSection dib =
            ortelix::ReadBmp(std::string_view(reinterpret_cast<const char*>(data), size));
        if (dib.Width() <= 0 || dib.Height() <= 0 ||
            dib.BitsSize() != size_t(dib.BytesPerScanLine()) * size_t(dib.Height()))
            __builtin_trap();
        const ortelix::cDIBSection half = dib.Resample((dib.Height() + 1) / 2, (dib.Width() + 1) / 2);
        if (half.Empty()) __builtin_trap();
    } catch (const ortelix::FileError&) {
        // A broken file says why.
    }
    return 0;
}
