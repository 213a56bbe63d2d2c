#pragma once
// A colour table of at most a few hundred entries, filled by hand, from a
// JASC-PAL file, as the 216 web-safe colours, or by octree colour reduction
// of a picture.
#include <cstdint>
#include <string>
#include <vector>

namespace ortelix {

class Session;
class cDIBSection;

struct PaletteColour {
    uint8_t Red = 0, Green = 0, Blue = 0;
    bool operator==(const PaletteColour&) const = default;
};

// What CreateOptimal reports while it runs: a start with the number of scan
// lines, a step after each scan line, the end with the time it took.
class PaletteListener {
public:
    virtual ~PaletteListener() = default;
    virtual void Started(long Max) = 0;
    virtual void Step(long lPosition) = 0;
    virtual void Ended(long lTimeMs) = 0;
};

class cPalette {
public:
    void Add(uint8_t Red, uint8_t Green, uint8_t Blue);
    void Clear();
    int Count() const { return int(colours_.size()); }
    const PaletteColour& Colour(int index) const { return colours_[size_t(index)]; }
    const std::vector<PaletteColour>& Colours() const { return colours_; }

    // The index with the smallest squared RGB distance, the first on a tie;
    // -1 for an empty table. One scan of the table: for whole pictures use
    // PaletteLookup.
    int ClosestIndex(uint8_t Red, uint8_t Green, uint8_t Blue) const;

    // The 216 colours whose channels are 0, 51, 102, 153, 204 and 255, red
    // varying slowest.
    void CreateWebSafe();

    // JASC-PAL text ("JASC-PAL", "0100", the count, one "R G B" a line).
    // Load throws FileError for a file that is not one; Save writes through
    // SafeWriter and throws FileError.
    void Load(const std::string& path);
    void Save(const std::string& path) const;

    // Octree colour reduction of the picture to at most PalSize colours with
    // nLevels (1 to 8) levels of branching. Pixels are taken in byte-array
    // order (bottom scan line first). Returns false when the reduction got
    // stuck and the user chose to stop; the table is then empty.
    bool CreateOptimal(Session& s, const cDIBSection& cdib, int PalSize, int nLevels,
                       PaletteListener* listener = nullptr);

    // Frees the octree that CreateOptimal built.
    void EraseNodes();

    // The number of octree nodes held (in use or free) since the last
    // EraseNodes: stays bounded however large the picture is.
    size_t NodeCapacity() const { return nodes_.size(); }

private:
    struct Node {
        uint64_t red = 0, green = 0, blue = 0;
        uint64_t pixels = 0;
        int32_t child[8] = {0, 0, 0, 0, 0, 0, 0, 0};  // 0: none (slot 0 is never a child)
        int32_t nextReducible = 0;
        bool leaf = false;
    };
    int32_t newNode(int level, int nLevels);
    bool reduce();  // false when no node can be reduced

    std::vector<PaletteColour> colours_;
    std::vector<Node> nodes_;       // slot 0 unused so that 0 means "no node"
    std::vector<int32_t> free_;     // folded nodes, reused by newNode
    int32_t reducible_[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    long leaves_ = 0;
    int levels_ = 0;
};

// ClosestIndex for every pixel of a picture: each distinct colour is
// searched once and remembered in a direct-mapped cache, so a picture of
// millions of pixels and a few hundred thousand colours costs one table scan
// per colour. The answers are exactly ClosestIndex's.
class PaletteLookup {
public:
    explicit PaletteLookup(const cPalette& palette);
    int Index(uint8_t Red, uint8_t Green, uint8_t Blue) {
        const uint32_t key = uint32_t(Red) << 16 | uint32_t(Green) << 8 | Blue;
        const uint32_t slot = (key * 2654435761u) >> (32 - kBits);
        if (keys_[slot] == key) return index_[slot];
        keys_[slot] = key;
        index_[slot] = int16_t(palette_.ClosestIndex(Red, Green, Blue));
        return index_[slot];
    }

private:
    static constexpr int kBits = 18;
    const cPalette& palette_;
    std::vector<uint32_t> keys_;  // 0xFFFFFFFF: empty
    std::vector<int16_t> index_;
};

}  // namespace ortelix
