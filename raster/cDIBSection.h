#pragma once
// One 24-bit picture in memory, laid out as a Windows DIB: bottom row first,
// three bytes a pixel in the order blue, green, red, each scan line padded
// to a multiple of four bytes. Everything works on the byte array; there is
// no device context.
#include <cstdint>
#include <string>
#include <vector>

namespace ortelix {

struct Picture;
class Platform;

class cDIBSection {
public:
    // An empty bitmap of that size, all black. False, and the object empty,
    // when a side is not positive or the picture would be too large.
    bool Create(long lWidth, long lHeight);
    // A bitmap of the picture's size with its pixels (alpha dropped).
    bool CreateFromPicture(const Picture& picThis);

    int Width() const { return width_; }
    int Height() const { return height_; }
    int BytesPerScanLine() const { return stride_; }
    bool Empty() const { return bits_.empty(); }

    // The byte array: Height() scan lines of BytesPerScanLine() bytes, the
    // bottom line first.
    uint8_t* DIBSectionBitsPtr() { return bits_.data(); }
    const uint8_t* DIBSectionBitsPtr() const { return bits_.data(); }
    size_t BitsSize() const { return bits_.size(); }
    // Scan line `row` counted from the bottom (0) up.
    uint8_t* ScanLine(int row) { return bits_.data() + size_t(row) * size_t(stride_); }
    const uint8_t* ScanLine(int row) const { return bits_.data() + size_t(row) * size_t(stride_); }

    // A new bitmap of that size (height first). Shrinking averages every
    // source pixel by its covered area; growing interpolates bilinearly; the
    // same size is a copy. Empty when the size is not positive.
    cDIBSection Resample(long lNewHeight, long lNewWidth) const;

    // Writes a BMP file: 14-byte file header, 40-byte BITMAPINFOHEADER with a
    // positive height, the scan lines with zero padding. Throws FileError.
    void SavePicture(const std::string& sFileName) const;

    // Fills the pixels with noise from `seed`, grey (equal channels) if asked.
    void RandomiseBits(bool bGray, uint32_t seed = 1);

    // The picture as the platform passes it: 32-bit BGRA, top row first.
    Picture ToPicture() const;

    // Puts the picture on the clipboard as a bitmap. Asked for a DIB it says
    // it cannot and copies nothing (false).
    bool CopyToClipboard(Platform& platform, bool bAsDIB) const;

    void ClearUp();

    // The text of a system error number.
    static std::string ApiError(int errorNumber);

private:
    int width_ = 0, height_ = 0, stride_ = 0;
    std::vector<uint8_t> bits_;
};

// The scan line length of a 24-bit row of `width` pixels.
inline int DibStride(int width) { return (width * 3 + 3) & ~3; }

}  // namespace ortelix
