#include "editor/clsEXIF.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/FileIO.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {

// Only the start of a photo is read: the EXIF block of a camera lies there.
constexpr size_t kHeadBytes = 4096;

constexpr std::pair<int32_t, const char*> kBuiltInNames[] = {
    {270, "ImageDescription"}, {271, "Make"}, {272, "Model"}, {274, "Orientation"},
    {282, "XResolution"}, {283, "YResolution"}, {296, "ResolutionUnit"}, {305, "Software"},
    {306, "DateTime"}, {318, "WhitePoint"}, {319, "PrimaryChromaticities"}, {529, "YCbCrCoefficients"},
    {531, "YCbCrPositioning"}, {532, "ReferenceBlackWhite"}, {33432, "Copyright"}, {34665, "ExifOffset"},
    {33434, "ExposureTime"}, {33437, "FNumber"}, {34850, "ExposureProgram"}, {34855, "ISOSpeedRatings"},
    {36864, "ExifVersion"}, {36867, "DateTimeOriginal"}, {36868, "DateTimeDigitized"},
    {37121, "ComponentsConfiguration"}, {37122, "CompressedBitsPerPixel"}, {37377, "ShutterSpeedValue"},
    {37378, "ApertureValue"}, {37379, "BrightnessValue"}, {37380, "ExposureBiasValue"},
    {37381, "MaxApertureValue"}, {37382, "SubjectDistance"}, {37383, "MeteringMode"}, {37384, "LightSource"},
    {37385, "Flash"}, {37386, "FocalLength"}, {37500, "MakerNote"}, {37510, "UserComment"},
    {37520, "SubsecTime"}, {37521, "SubsecTimeOriginal"}, {37522, "SubsecTimeDigitized"},
    {40960, "FlashPixVersion"}, {40961, "ColorSpace"}, {40962, "ExifImageWidth"}, {40963, "ExifImageHeight"},
    {40964, "RelatedSoundFile"}, {40965, "ExifInteroperabilityOffset"}, {41486, "FocalPlaneXResolution"},
    {41487, "FocalPlaneYResolution"}, {41488, "FocalPlaneResolutionUnit"}, {41493, "ExposureIndex"},
    {41495, "SensingMethod"}, {41728, "FileSource"}, {41729, "SceneType"}, {41730, "CFAPattern"},
};

constexpr int32_t kExifOffsetTag = 34665;
constexpr int32_t kInteropOffsetTag = 40965;

// Byte size of one component of a TIFF type; 0 for a type that is not shown.
size_t ComponentSize(int32_t format) {
    switch (format) {
    case 1: case 2: case 6: case 7: return 1;
    case 3: case 8: return 2;
    case 4: case 9: return 4;
    case 5: case 10: return 8;
    default: return 0;
    }
}

// The bytes read and the byte order; every access is checked against them.
struct Reader {
    std::string_view bytes;
    bool bigEndian = false;

    bool has(uint64_t pos, uint64_t len) const { return pos <= bytes.size() && len <= bytes.size() - pos; }
    // An unsigned number of `width` bytes at pos (checked by the caller).
    uint32_t number(size_t pos, size_t width) const {
        uint32_t v = 0;
        for (size_t i = 0; i < width; ++i) {
            const size_t at = bigEndian ? pos + i : pos + width - 1 - i;
            v = v * 256 + static_cast<unsigned char>(bytes[at]);
        }
        return v;
    }
    int32_t signedNumber(size_t pos, size_t width) const {
        const uint32_t v = number(pos, width);
        if (width == 1) return static_cast<int8_t>(v);
        if (width == 2) return static_cast<int16_t>(v);
        return static_cast<int32_t>(v);
    }
};

std::string UpToZero(std::string_view s) { return std::string(s.substr(0, s.find('\0'))); }

std::string QuotientText(double num, double den, std::string_view format) {
    if (den == 0) {
        if (num == 0) return "undef";
        return num < 0 ? "-inf" : "inf";
    }
    return FormatPoint(num / den, format);
}

// A rational's shown form by its tag.
std::string RationalText(int32_t tag, double num, double den) {
    switch (tag) {
    case 37377: return QuotientText(num, den, "0");
    case 37386: case 37382: case 33437: return QuotientText(num, den, "0.0");
    case 37381:
        if (den == 0) return QuotientText(num, den, "0.0");
        return FormatPoint(std::pow(std::sqrt(2.0), num / den), "0.0");
    default: return QuotientText(num, den, "0.000");
    }
}

std::string ComponentsText(std::string_view raw) {
    static constexpr const char* kLetters[] = {"Y", "Cb", "Cr", "R", "G", "B"};
    std::string out;
    for (char c : raw) {
        const unsigned v = static_cast<unsigned char>(c);
        if (v >= 1 && v <= 6) out += kLetters[v - 1];
    }
    return out;
}

// The Text of one entry whose value lies at `at` (inside the bytes).
std::string ValueText(const Reader& r, int32_t tag, int32_t format, uint32_t count, size_t at) {
    const size_t width = ComponentSize(format);
    const std::string_view raw = r.bytes.substr(at, width * count);
    std::string out;
    auto join = [&out](const std::string& part) {
        if (!out.empty()) out += ' ';
        out += part;
    };
    switch (format) {
    case 2: return UpToZero(raw);
    case 1: case 3: case 4:
        for (uint32_t i = 0; i < count; ++i) join(std::to_string(r.number(at + i * width, width)));
        return out;
    case 6: case 8: case 9:
        for (uint32_t i = 0; i < count; ++i) join(std::to_string(r.signedNumber(at + i * width, width)));
        return out;
    case 5: case 10:
        for (uint32_t i = 0; i < count; ++i) {
            const size_t p = at + i * 8;
            const double num = format == 5 ? double(r.number(p, 4)) : double(r.signedNumber(p, 4));
            const double den = format == 5 ? double(r.number(p + 4, 4)) : double(r.signedNumber(p + 4, 4));
            join(RationalText(tag, num, den));
        }
        return out;
    case 7:
        switch (tag) {
        case 36864:
            if (raw.size() < 4) return UpToZero(raw);
            return std::string(raw.substr(0, 2)) + "." + std::string(raw.substr(2, 2));
        case 37121: return ComponentsText(raw);
        case 41728: case 41729: return raw.empty() ? std::string() : std::to_string(static_cast<unsigned char>(raw[0]));
        case 37510: return raw.size() <= 8 ? std::string() : UpToZero(raw.substr(8));
        default: return UpToZero(raw);
        }
    default: return {};
    }
}

// The first `limit` bytes of a file; false when it cannot be opened or read.
bool ReadHead(const std::string& path, size_t limit, std::string& out) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return false;
    out.resize(limit);
    size_t got = 0;
    while (got < limit) {
        const size_t n = std::fread(out.data() + got, 1, limit - got, f);
        if (n == 0) break;
        got += n;
    }
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    out.resize(got);
    return !failed;
}

}  // namespace

ExifNames::ExifNames() {
    for (const auto& [tag, name] : kBuiltInNames) entries_.emplace_back(tag, name);
    std::sort(entries_.begin(), entries_.end());
}

void ExifNames::AddIni(std::string_view text) {
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view line = Trim(text.substr(pos, end - pos));
        pos = end + 1;
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        const size_t eq = line.find('=');
        if (eq == std::string_view::npos) continue;
        const std::string_view number = Trim(line.substr(0, eq));
        const std::string_view name = Trim(line.substr(eq + 1));
        int32_t tag = 0;
        const auto res = std::from_chars(number.data(), number.data() + number.size(), tag);
        if (res.ec != std::errc() || res.ptr != number.data() + number.size() || tag < 0 || tag > 65535 ||
            name.empty())
            continue;
        auto it = std::lower_bound(entries_.begin(), entries_.end(), tag,
                                   [](const auto& e, int32_t t) { return e.first < t; });
        if (it != entries_.end() && it->first == tag) it->second = std::string(name);
        else entries_.insert(it, {tag, std::string(name)});
    }
}

std::string ExifNames::Name(int32_t tag) const {
    auto it = std::lower_bound(entries_.begin(), entries_.end(), tag,
                               [](const auto& e, int32_t t) { return e.first < t; });
    if (it != entries_.end() && it->first == tag) return it->second;
    return "Tag #" + std::to_string(tag);
}

ExifNames LoadExifNames(const std::string& programFolder) {
    ExifNames names;
    const std::string path = programFolder.empty() ? "exif.ini" : programFolder + "/exif.ini";
    if (!FileExists(path)) return names;
    try {
        names.AddIni(ReadFileBytes(path, 1 << 20));
    } catch (const FileError&) {
        // An unreadable table leaves the built-in names.
    }
    return names;
}

clsEXIF::clsEXIF(ExifNames names) : names_(std::move(names)) {}

bool clsEXIF::ReadMetaInfo(const std::string& path) {
    tags_.clear();
    if (!FileExists(path)) {
        state_ = ExifState::NoFile;
        problem_ = "Datei nicht gefunden";
        return false;
    }
    std::string head;
    if (!ReadHead(path, kHeadBytes, head)) {
        state_ = ExifState::NoFile;
        problem_ = "Datei kann nicht gelesen werden";
        return false;
    }
    return ReadMetaInfoBytes(head);
}

bool clsEXIF::ReadMetaInfoBytes(std::string_view bytes) {
    tags_.clear();
    problem_.clear();
    Reader r{bytes.substr(0, kHeadBytes)};
    const size_t found = r.bytes.find(std::string_view("Exif\0", 5));
    if (found == std::string_view::npos) {
        state_ = ExifState::NoExif;
        problem_ = "kein EXIF-Block in den ersten 4096 Bytes";
        return false;
    }
    auto defect = [this](std::string text) {
        state_ = ExifState::Defect;
        problem_ = std::move(text);
        return false;
    };
    const size_t base = found + 6;
    tiffBase_ = static_cast<int32_t>(base);
    if (!r.has(base, 8)) return defect("TIFF-Kopf bei Byte " + std::to_string(base) + " abgeschnitten");
    bigEndian_ = r.bytes.substr(base, 2) != "II";
    r.bigEndian = bigEndian_;

    // IFD0, then the EXIF and the interoperability directories that the tags
    // read so far point to. A directory is read once: a second visit is a loop.
    std::array<uint64_t, 3> visited{};
    size_t visits = 0;
    auto readDirectory = [&](uint64_t offset, const char* what) -> bool {
        const uint64_t at = base + offset;
        for (size_t i = 0; i < visits; ++i)
            if (visited[i] == at)
                return defect(std::string(what) + " bei Offset " + std::to_string(offset) +
                              " wird zweimal gelesen (Schleife zwischen Verzeichnissen)");
        visited[visits++] = at;
        if (!r.has(at, 2))
            return defect(std::string(what) + " bei Offset " + std::to_string(offset) + " liegt außerhalb der gelesenen " +
                          std::to_string(r.bytes.size()) + " Bytes");
        const uint32_t count = r.number(at, 2);
        if (!r.has(at + 2, uint64_t(count) * 12))
            return defect(std::string(what) + " bei Offset " + std::to_string(offset) + " mit " + std::to_string(count) +
                          " Einträgen läuft über das Ende der gelesenen " + std::to_string(r.bytes.size()) + " Bytes");
        tags_.reserve(tags_.size() + count);
        for (uint32_t i = 0; i < count; ++i) {
            const size_t e = static_cast<size_t>(at + 2 + uint64_t(i) * 12);
            ExifTag t;
            t.Tag = static_cast<int32_t>(r.number(e, 2));
            t.Format = static_cast<int32_t>(r.number(e + 2, 2));
            const uint32_t components = r.number(e + 4, 4);
            t.Components = static_cast<int32_t>(components);
            t.ValueOffset = r.number(e + 8, 4);
            t.Name = names_.Name(t.Tag);
            const uint64_t size = uint64_t(ComponentSize(t.Format)) * components;
            // Values of up to 4 bytes stand in the entry itself.
            const uint64_t valueAt = size <= 4 ? e + 8 : base + uint64_t(t.ValueOffset);
            if (ComponentSize(t.Format) != 0 && r.has(valueAt, size))
                t.Text = ValueText(r, t.Tag, t.Format, components, static_cast<size_t>(valueAt));
            tags_.push_back(std::move(t));
        }
        return true;
    };
    auto pointer = [this](int32_t tag, uint64_t& offset) {
        for (const ExifTag& t : tags_)
            if (t.Tag == tag) {
                offset = t.ValueOffset;
                return true;
            }
        return false;
    };

    if (!readDirectory(r.number(base + 4, 4), "IFD0")) return false;
    uint64_t offset = 0;
    if (pointer(kExifOffsetTag, offset) && !readDirectory(offset, "EXIF-Verzeichnis")) return false;
    if (pointer(kInteropOffsetTag, offset) && !readDirectory(offset, "Interoperabilitäts-Verzeichnis"))
        return false;
    state_ = ExifState::Read;
    return true;
}

std::string clsEXIF::TagValue(int32_t tag) const {
    for (const ExifTag& t : tags_)
        if (t.Tag == tag) return t.Text;
    return "Tag " + std::to_string(tag) + " not found.";
}

std::string clsEXIF::AllTags() const {
    if (state_ == ExifState::NoFile) return "Could not open the file.";
    if (state_ == ExifState::NoExif) return "File is not in EXIF format.";
    std::string out;
    for (const ExifTag& t : tags_) {
        out += t.Name;
        out += ": ";
        out += t.Text;
        out += "\r\n";
    }
    return out;
}

}  // namespace ortelix
