#include "raster/cDIBSection.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

#include "core/FileIO.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

// More than this is no picture the program handles (a 16000 x 16000 map).
constexpr size_t kMaxDibBytes = size_t{1} << 30;

// The source pixels, with their weights, that make one target pixel on one axis.
struct Tap {
    int first = 0;              // index into the weights' source list
    int count = 0;
};
struct AxisWeights {
    std::vector<Tap> taps;      // one per target index
    std::vector<int> source;    // source index of each weight
    std::vector<double> weight; // summing to 1 per target index
};

// Shrinking: every source pixel counts by the part of it the target pixel
// covers (area averaging). Growing: linear between the two nearest centres.
AxisWeights Weights(int from, int to) {
    AxisWeights w;
    w.taps.resize(size_t(to));
    const double scale = double(from) / double(to);
    for (int i = 0; i < to; ++i) {
        w.taps[size_t(i)].first = int(w.source.size());
        if (scale >= 1.0) {
            const double lo = i * scale, hi = (i + 1) * scale;
            const int first = int(std::floor(lo));
            const int last = std::min(from - 1, int(std::ceil(hi)) - 1);
            for (int s = first; s <= last; ++s) {
                const double cover = std::min(hi, double(s + 1)) - std::max(lo, double(s));
                if (cover <= 0) continue;
                w.source.push_back(s);
                w.weight.push_back(cover / scale);
            }
        } else {
            double x = (i + 0.5) * scale - 0.5;
            x = std::clamp(x, 0.0, double(from - 1));
            const int s0 = int(std::floor(x));
            const int s1 = std::min(from - 1, s0 + 1);
            const double f = x - s0;
            w.source.push_back(s0);
            w.weight.push_back(1.0 - f);
            if (s1 != s0 && f > 0) {
                w.source.push_back(s1);
                w.weight.push_back(f);
            }
        }
        w.taps[size_t(i)].count = int(w.source.size()) - w.taps[size_t(i)].first;
    }
    return w;
}

void PutLE16(std::string& out, unsigned v) {
    out.push_back(char(v & 0xFF));
    out.push_back(char((v >> 8) & 0xFF));
}
void PutLE32(std::string& out, uint32_t v) {
    for (int i = 0; i < 4; ++i) out.push_back(char((v >> (8 * i)) & 0xFF));
}

}  // namespace

bool cDIBSection::Create(long lWidth, long lHeight) {
    ClearUp();
    if (lWidth <= 0 || lHeight <= 0 || lWidth > 1'000'000 || lHeight > 1'000'000) return false;
    const int stride = DibStride(int(lWidth));
    if (size_t(stride) * size_t(lHeight) > kMaxDibBytes) return false;
    bits_.assign(size_t(stride) * size_t(lHeight), 0);
    width_ = int(lWidth);
    height_ = int(lHeight);
    stride_ = stride;
    return true;
}

bool cDIBSection::CreateFromPicture(const Picture& picThis) {
    if (picThis.pixels.size() != size_t(std::max(0, picThis.width)) * size_t(std::max(0, picThis.height)) ||
        !Create(picThis.width, picThis.height)) {
        ClearUp();
        return false;
    }
    for (int y = 0; y < height_; ++y) {
        const uint32_t* src = picThis.pixels.data() + size_t(y) * size_t(width_);
        uint8_t* dst = ScanLine(height_ - 1 - y);
        for (int x = 0; x < width_; ++x) {
            const uint32_t p = src[x];
            dst[3 * x] = uint8_t(p);
            dst[3 * x + 1] = uint8_t(p >> 8);
            dst[3 * x + 2] = uint8_t(p >> 16);
        }
    }
    return true;
}

Picture cDIBSection::ToPicture() const {
    Picture p;
    p.width = width_;
    p.height = height_;
    p.pixels.resize(size_t(width_) * size_t(height_));
    for (int y = 0; y < height_; ++y) {
        const uint8_t* src = ScanLine(height_ - 1 - y);
        uint32_t* dst = p.pixels.data() + size_t(y) * size_t(width_);
        for (int x = 0; x < width_; ++x)
            dst[x] = 0xFF000000u | uint32_t(src[3 * x + 2]) << 16 | uint32_t(src[3 * x + 1]) << 8 | src[3 * x];
    }
    return p;
}

cDIBSection cDIBSection::Resample(long lNewHeight, long lNewWidth) const {
    cDIBSection out;
    if (Empty() || !out.Create(lNewWidth, lNewHeight)) return out;
    if (out.width_ == width_ && out.height_ == height_) {
        out.bits_ = bits_;
        return out;
    }
    const AxisWeights wx = Weights(width_, out.width_);
    const AxisWeights wy = Weights(height_, out.height_);
    const size_t rowLen = size_t(out.width_) * 3;
    // Source rows brought to the new width, two at a time: the rows of
    // consecutive target rows overlap by at most one when shrinking and are
    // the same pair when growing, so each is computed about once and memory
    // stays at a few rows whatever the picture's size.
    std::vector<double> cache[2] = {std::vector<double>(rowLen), std::vector<double>(rowLen)};
    int cachedRow[2] = {-1, -1};
    int nextSlot = 0;
    auto across = [&](int y) -> const std::vector<double>& {
        for (int i = 0; i < 2; ++i)
            if (cachedRow[i] == y) return cache[i];
        const int slot = nextSlot;
        nextSlot ^= 1;
        cachedRow[slot] = y;
        const uint8_t* src = ScanLine(y);
        double* dst = cache[slot].data();
        for (int x = 0; x < out.width_; ++x) {
            const Tap& t = wx.taps[size_t(x)];
            double b = 0, g = 0, r = 0;
            for (int k = t.first; k < t.first + t.count; ++k) {
                const uint8_t* px = src + 3 * wx.source[size_t(k)];
                const double w = wx.weight[size_t(k)];
                b += w * px[0];
                g += w * px[1];
                r += w * px[2];
            }
            dst[3 * x] = b;
            dst[3 * x + 1] = g;
            dst[3 * x + 2] = r;
        }
        return cache[slot];
    };
    std::vector<double> sum(rowLen);
    for (int y = 0; y < out.height_; ++y) {
        std::fill(sum.begin(), sum.end(), 0.0);
        const Tap& t = wy.taps[size_t(y)];
        for (int k = t.first; k < t.first + t.count; ++k) {
            const std::vector<double>& src = across(wy.source[size_t(k)]);
            const double w = wy.weight[size_t(k)];
            for (size_t i = 0; i < rowLen; ++i) sum[i] += w * src[i];
        }
        uint8_t* dst = out.ScanLine(y);
        for (size_t i = 0; i < rowLen; ++i) dst[i] = uint8_t(std::clamp(std::lround(sum[i]), 0L, 255L));
    }
    return out;
}

void cDIBSection::SavePicture(const std::string& sFileName) const {
    if (Empty()) throw FileError("Kein Bild vorhanden");
    const uint32_t imageSize = uint32_t(bits_.size());
    std::string head;
    head.reserve(54);
    head += "BM";
    PutLE32(head, 54 + imageSize);  // bfSize: the whole file
    PutLE32(head, 0);               // reserved
    PutLE32(head, 54);              // bfOffBits
    PutLE32(head, 40);              // biSize
    PutLE32(head, uint32_t(width_));
    PutLE32(head, uint32_t(height_));  // positive: bottom-up
    PutLE16(head, 1);                  // planes
    PutLE16(head, 24);                 // bits a pixel
    PutLE32(head, 0);                  // BI_RGB
    PutLE32(head, imageSize);
    PutLE32(head, 2835);  // 72 dpi in pixels a metre
    PutLE32(head, 2835);
    PutLE32(head, 0);
    PutLE32(head, 0);
    SafeWriter out(sFileName);
    out.write(head);
    // The padding bytes are kept zero by every operation on the array.
    out.write(std::string_view(reinterpret_cast<const char*>(bits_.data()), bits_.size()));
    out.commit();
}

void cDIBSection::RandomiseBits(bool bGray, uint32_t seed) {
    std::mt19937 gen(seed);
    for (int y = 0; y < height_; ++y) {
        uint8_t* row = ScanLine(y);
        for (int x = 0; x < width_; ++x) {
            const uint32_t v = gen();
            if (bGray) {
                row[3 * x] = row[3 * x + 1] = row[3 * x + 2] = uint8_t(v);
            } else {
                row[3 * x] = uint8_t(v);
                row[3 * x + 1] = uint8_t(v >> 8);
                row[3 * x + 2] = uint8_t(v >> 16);
            }
        }
    }
}

bool cDIBSection::CopyToClipboard(Platform& platform, bool bAsDIB) const {
    if (bAsDIB) {
        platform.messageBox("I don't know how to put a DIB on the clipboard! Copy as bitmap instead!!!", "",
                            Buttons::Ok, Icon::None);
        return false;
    }
    if (Empty()) return false;
    platform.setClipboardPicture(ToPicture());
    return true;
}

void cDIBSection::ClearUp() {
    width_ = height_ = stride_ = 0;
    bits_.clear();
    bits_.shrink_to_fit();
}

std::string cDIBSection::ApiError(int errorNumber) { return std::strerror(errorNumber); }

}  // namespace ortelix
