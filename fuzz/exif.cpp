// The EXIF reader on any bytes, then every text it gives out: the list of all
// tags and each tag by its number (a number it did not read too), and the
// photo's moment as "Digicam" reads it from DateTime.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "editor/ModDigiCam.h"
#include "editor/clsEXIF.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::clsEXIF exif;
    (void)exif.ReadMetaInfoBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    (void)exif.AllTags();
    for (const ortelix::ExifTag& t : exif.Tags()) {
        (void)exif.TagValue(t.Tag);
        (void)exif.TagName(t.Tag);
        // What a reader of the texts relies on: nothing past the first zero of an ASCII value.
        if (t.Format == 2 && t.Text.find('\0') != std::string::npos) __builtin_trap();
    }
    (void)exif.TagValue(-1);
    int64_t seconds = 0;
    (void)ortelix::PhotoMoment(exif.TagValue(306), seconds);
    return 0;
}
