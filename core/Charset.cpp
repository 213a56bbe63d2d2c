#include "core/Charset.h"

#include "core/ModulShared.h"

#include <algorithm>
#include <cctype>

namespace ortelix {

namespace {
// Windows-1252 codes 0x80..0x9F; 0 where the code is unassigned.
constexpr char32_t kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Decodes one UTF-8 sequence at i; returns its length, 0 if it is not valid.
size_t DecodeOne(std::string_view t, size_t i, char32_t& c) {
    const auto b0 = static_cast<unsigned char>(t[i]);
    if (b0 < 0x80) {
        c = b0;
        return 1;
    }
    size_t len;
    char32_t min;
    if ((b0 & 0xE0) == 0xC0) len = 2, c = b0 & 0x1F, min = 0x80;
    else if ((b0 & 0xF0) == 0xE0) len = 3, c = b0 & 0x0F, min = 0x800;
    else if ((b0 & 0xF8) == 0xF0) len = 4, c = b0 & 0x07, min = 0x10000;
    else return 0;
    if (i + len > t.size()) return 0;
    for (size_t k = 1; k < len; ++k) {
        const auto b = static_cast<unsigned char>(t[i + k]);
        if ((b & 0xC0) != 0x80) return 0;
        c = (c << 6) | (b & 0x3F);
    }
    if (c < min || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return 0;
    return len;
}
}  // namespace

std::vector<char32_t> Utf8CodePoints(std::string_view t) {
    std::vector<char32_t> out;
    out.reserve(t.size());
    for (size_t i = 0; i < t.size();) {
        char32_t c;
        const size_t n = DecodeOne(t, i, c);
        if (n == 0) {
            out.push_back(static_cast<unsigned char>(t[i]));
            ++i;
        } else {
            out.push_back(c);
            i += n;
        }
    }
    return out;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string_view Utf8Left(std::string_view t, size_t n) {
    size_t i = 0;
    for (size_t count = 0; i < t.size() && count < n; ++count) {
        char32_t c;
        const size_t len = DecodeOne(t, i, c);
        i += len ? len : 1;
    }
    return t.substr(0, i);
}

bool IsValidUtf8(std::string_view t) {
    for (size_t i = 0; i < t.size();) {
        char32_t c;
        const size_t n = DecodeOne(t, i, c);
        if (n == 0) return false;
        i += n;
    }
    return true;
}

Charset CharsetFromName(std::string_view name) {
    const std::string n = LowerAscii(name);
    if (n == "iso-8859-1" || n == "iso8859-1" || n == "latin1" || n == "latin-1" || n == "iso_8859-1") return Charset::Latin1;
    if (n == "windows-1252" || n == "cp1252" || n == "iso-8859-15") return Charset::Windows1252;
    return Charset::Utf8;
}

namespace {
// One byte of a single-byte charset as UTF-8.
void AppendSingleByte(std::string& out, unsigned char b, Charset cs) {
    if (b < 0x80) out += static_cast<char>(b);
    else if (cs == Charset::Windows1252 && b < 0xA0 && kCp1252High[b - 0x80]) AppendUtf8(out, kCp1252High[b - 0x80]);
    else AppendUtf8(out, b);
}
}  // namespace

std::string DecodeToUtf8(std::string_view bytes, Charset cs) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    if (cs == Charset::Utf8) {
        for (size_t i = 0; i < bytes.size();) {
            char32_t c;
            const size_t n = DecodeOne(bytes, i, c);
            if (n == 0) {
                AppendSingleByte(out, static_cast<unsigned char>(bytes[i]), Charset::Windows1252);
                ++i;
            } else {
                out.append(bytes.data() + i, n);
                i += n;
            }
        }
        return out;
    }
    for (char ch : bytes) AppendSingleByte(out, static_cast<unsigned char>(ch), cs);
    return out;
}

Utf16Order DetectUtf16(std::string_view b) {
    if (b.size() < 2) return Utf16Order::None;
    const auto b0 = static_cast<unsigned char>(b[0]), b1 = static_cast<unsigned char>(b[1]);
    if (b0 == 0xFF && b1 == 0xFE) return Utf16Order::Little;
    if (b0 == 0xFE && b1 == 0xFF) return Utf16Order::Big;
    if (b.size() >= 4 && b0 == '<' && b1 == 0 && b[2] == '?' && b[3] == 0) return Utf16Order::Little;
    if (b.size() >= 4 && b0 == 0 && b1 == '<' && b[2] == 0 && b[3] == '?') return Utf16Order::Big;
    return Utf16Order::None;
}

std::string DecodeUtf16(std::string_view b, Utf16Order order) {
    constexpr char32_t kReplacement = 0xFFFD;
    const bool big = order == Utf16Order::Big;
    auto unit = [&](size_t i) -> char32_t {
        const auto lo = static_cast<unsigned char>(b[i + (big ? 1 : 0)]);
        const auto hi = static_cast<unsigned char>(b[i + (big ? 0 : 1)]);
        return static_cast<char32_t>(hi << 8 | lo);
    };
    size_t i = 0;
    if (b.size() >= 2 && unit(0) == 0xFEFF) i = 2;
    std::string out;
    out.reserve(b.size() / 2 + b.size() / 8);
    for (; i + 1 < b.size(); i += 2) {
        const char32_t u = unit(i);
        if (u < 0x80) {
            out += static_cast<char>(u);
        } else if (u < 0xD800 || u > 0xDFFF) {
            AppendUtf8(out, u);
        } else if (u <= 0xDBFF && i + 3 < b.size() && unit(i + 2) >= 0xDC00 && unit(i + 2) <= 0xDFFF) {
            AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (unit(i + 2) - 0xDC00));
            i += 2;
        } else {
            AppendUtf8(out, kReplacement);  // a surrogate without its partner
        }
    }
    if (i < b.size()) AppendUtf8(out, kReplacement);  // half a unit at the end
    return out;
}

std::string EncodeFromUtf8(std::string_view text, Charset cs) {
    if (cs == Charset::Utf8) return std::string(text);
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        const auto b0 = static_cast<unsigned char>(text[i]);
        if (b0 < 0x80) {  // the common case, byte for byte
            out += text[i++];
            continue;
        }
        char32_t c;
        const size_t n = DecodeOne(text, i, c);
        if (n == 0) {
            c = b0;
            i += 1;
        } else {
            i += n;
        }
        char code = '?';
        if (c >= 0xA0 && c <= 0xFF) {
            code = static_cast<char>(c);
        } else if (c >= 0x80 && c < 0xA0) {
            code = cs == Charset::Latin1 ? static_cast<char>(c) : '?';
        } else if (cs == Charset::Windows1252) {
            for (int k = 0; k < 32; ++k)
                if (kCp1252High[k] == c) code = static_cast<char>(0x80 + k);
        }
        out += code;
    }
    return out;
}

}  // namespace ortelix
