#pragma once
// The LZW coding of GIF image data for 8-bit indices: code size 8, clear
// code 256, end code 257, first free code 258, codes of 9 up to 12 bits
// packed from the lowest bit up, in sub-blocks of at most 255 bytes. When
// all 4096 codes are taken a clear code starts a new table.
#include <cstdint>
#include <string>
#include <vector>

namespace ortelix {

class GifLzwEncoder {
public:
    // Appends to `out`: the minimum code size byte first.
    explicit GifLzwEncoder(std::string& out);
    void Add(uint8_t index);
    // The last code, the end code, the last sub-block and the block terminator.
    void Finish();

private:
    void emit(int code);
    void resetTable();
    void flushBlock();

    std::string& out_;
    std::vector<uint32_t> keys_;  // (prefix << 8 | index) + 1; 0: empty slot
    std::vector<uint16_t> codes_;
    int prefix_ = -1;  // the code of the string read so far; -1 before the first index
    int next_ = 258;
    int width_ = 9;
    uint32_t bits_ = 0;
    int bitCount_ = 0;
    uint8_t block_[255];
    int blockSize_ = 0;
};

}  // namespace ortelix
