#pragma once
// Photos made byte by byte: a JPEG start, an APP1 "Exif" block with TIFF
// directories laid out one after the other, then the values that do not fit
// in an entry, and the JPEG end.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ortelix::testing {

struct ExifEntry {
    uint16_t tag = 0, format = 0;
    uint32_t count = 0;
    std::string data;     // the value's bytes in the file's order
    int pointsTo = -1;    // a directory index: the entry's value becomes its offset
};

class ExifBuilder {
public:
    explicit ExifBuilder(bool bigEndian) : big_(bigEndian) {}

    std::string u16(uint32_t v) const { return bytes(v, 2); }
    std::string u32(uint32_t v) const { return bytes(v, 4); }
    std::string rational(uint32_t num, uint32_t den) const { return u32(num) + u32(den); }

    ExifEntry ascii(uint16_t tag, const std::string& text) const {
        return {tag, 2, static_cast<uint32_t>(text.size() + 1), text + std::string(1, '\0')};
    }
    ExifEntry shorts(uint16_t tag, std::vector<uint32_t> values) const {
        std::string d;
        for (uint32_t v : values) d += u16(v);
        return {tag, 3, static_cast<uint32_t>(values.size()), d};
    }
    ExifEntry pointer(uint16_t tag, int directory) const { return {tag, 4, 1, u32(0), directory}; }

    // The TIFF block: header, directories, data.
    std::string tiff(const std::vector<std::vector<ExifEntry>>& dirs) const {
        std::vector<uint32_t> at;
        uint32_t pos = 8;
        for (const auto& d : dirs) {
            at.push_back(pos);
            pos += 2 + 12 * static_cast<uint32_t>(d.size()) + 4;
        }
        std::string out = big_ ? "MM" : "II";
        out += u16(42) + u32(dirs.empty() ? 8 : at[0]);
        std::string data;
        for (const auto& d : dirs) {
            out += u16(static_cast<uint32_t>(d.size()));
            for (const ExifEntry& e : d) {
                out += u16(e.tag) + u16(e.format) + u32(e.count);
                if (e.pointsTo >= 0) out += u32(at[static_cast<size_t>(e.pointsTo)]);
                else if (e.data.size() <= 4) out += e.data + std::string(4 - e.data.size(), '\0');
                else {
                    out += u32(pos + static_cast<uint32_t>(data.size()));
                    data += e.data;
                }
            }
            out += u32(0);
        }
        return out + data;
    }

private:
    std::string bytes(uint32_t v, int n) const {
        std::string s(static_cast<size_t>(n), '\0');
        for (int i = 0; i < n; ++i) s[static_cast<size_t>(big_ ? n - 1 - i : i)] = static_cast<char>((v >> (8 * i)) & 0xff);
        return s;
    }
    bool big_;
};

// A JPEG around a TIFF block; `lead` bytes of an earlier segment before it.
inline std::string JpegWithExif(const std::string& tiff, size_t lead = 0) {
    std::string out("\xFF\xD8", 2);
    if (lead > 0) out += std::string("\xFF\xFE", 2) + std::string(lead, 'x');
    const size_t len = tiff.size() + 8;
    out += std::string("\xFF\xE1", 2) + static_cast<char>(len >> 8) + static_cast<char>(len & 0xff);
    out += std::string("Exif\0\0", 6) + tiff;
    return out + std::string("\xFF\xD9", 2);
}

inline void WriteBytes(const std::filesystem::path& p, const std::string& bytes) {
    std::ofstream(p, std::ios::binary) << bytes;
}
inline std::string ReadBytes(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace ortelix::testing
