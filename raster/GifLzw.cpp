#include "raster/GifLzw.h"

#include <algorithm>

namespace ortelix {

namespace {
constexpr int kClear = 256, kEnd = 257, kFirstFree = 258, kMaxCode = 4095;
constexpr int kHashBits = 13;  // 8192 slots for at most 3838 strings
constexpr uint32_t kHashMask = (1u << kHashBits) - 1;
uint32_t Slot(uint32_t key) { return (key * 2654435761u) >> (32 - kHashBits); }
}  // namespace

GifLzwEncoder::GifLzwEncoder(std::string& out)
    : out_(out), keys_(size_t(1) << kHashBits, 0), codes_(size_t(1) << kHashBits, 0) {
    out_ += char(8);
    emit(kClear);
}

void GifLzwEncoder::resetTable() {
    std::fill(keys_.begin(), keys_.end(), 0u);
    next_ = kFirstFree;
    width_ = 9;
}

void GifLzwEncoder::Add(uint8_t index) {
    if (prefix_ < 0) {
        prefix_ = index;
        return;
    }
    const uint32_t key = (uint32_t(prefix_) << 8 | index) + 1;
    uint32_t slot = Slot(key);
    while (keys_[slot] != 0) {
        if (keys_[slot] == key) {
            prefix_ = codes_[slot];
            return;
        }
        slot = (slot + 1) & kHashMask;
    }
    emit(prefix_);
    if (next_ >= kMaxCode) {
        // The table is full: a clear code, still at 12 bits, starts a new one.
        emit(kClear);
        resetTable();
    } else {
        keys_[slot] = key;
        codes_[slot] = uint16_t(next_++);
    }
    prefix_ = index;
}

void GifLzwEncoder::emit(int code) {
    bits_ |= uint32_t(code) << bitCount_;
    bitCount_ += width_;
    while (bitCount_ >= 8) {
        block_[blockSize_++] = uint8_t(bits_);
        if (blockSize_ == 255) flushBlock();
        bits_ >>= 8;
        bitCount_ -= 8;
    }
    // A decoder adds a table entry for every code after the first and widens
    // its codes as soon as the next free code needs one bit more; the entry
    // for this code is the one numbered next_.
    if (code != kClear && next_ >= (1 << width_) && width_ < 12) ++width_;
}

void GifLzwEncoder::flushBlock() {
    if (blockSize_ == 0) return;
    out_ += char(blockSize_);
    out_.append(reinterpret_cast<const char*>(block_), size_t(blockSize_));
    blockSize_ = 0;
}

void GifLzwEncoder::Finish() {
    if (prefix_ >= 0) emit(prefix_);
    emit(kEnd);
    if (bitCount_ > 0) {
        block_[blockSize_++] = uint8_t(bits_);
        if (blockSize_ == 255) flushBlock();
        bits_ = 0;
        bitCount_ = 0;
    }
    flushBlock();
    out_ += char(0);
}

}  // namespace ortelix
