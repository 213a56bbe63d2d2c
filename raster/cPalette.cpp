#include "raster/cPalette.h"

#include <charconv>
#include <string_view>

#include "core/FileIO.h"
#include "core/Session.h"
#include "platform/Platform.h"
#include "raster/cDIBSection.h"

namespace ortelix {

void cPalette::Add(uint8_t Red, uint8_t Green, uint8_t Blue) { colours_.push_back({Red, Green, Blue}); }

void cPalette::Clear() { colours_.clear(); }

int cPalette::ClosestIndex(uint8_t Red, uint8_t Green, uint8_t Blue) const {
    int best = -1;
    int bestDistance = 0;
    for (size_t i = 0; i < colours_.size(); ++i) {
        const int dr = int(colours_[i].Red) - Red;
        const int dg = int(colours_[i].Green) - Green;
        const int db = int(colours_[i].Blue) - Blue;
        const int d = dr * dr + dg * dg + db * db;
        if (best < 0 || d < bestDistance) {
            best = int(i);
            bestDistance = d;
            if (d == 0) break;
        }
    }
    return best;
}

void cPalette::CreateWebSafe() {
    colours_.clear();
    for (int r = 0; r < 6; ++r)
        for (int g = 0; g < 6; ++g)
            for (int b = 0; b < 6; ++b) Add(uint8_t(r * 51), uint8_t(g * 51), uint8_t(b * 51));
}

namespace {

// The next line of `text` from `pos`, without its CR/LF.
bool NextLine(std::string_view text, size_t& pos, std::string_view& line) {
    if (pos >= text.size()) return false;
    size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    line = text.substr(pos, end - pos);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    pos = end + 1;
    return true;
}

bool ReadNumber(std::string_view& line, int& value) {
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
    const auto [p, ec] = std::from_chars(line.data(), line.data() + line.size(), value);
    if (ec != std::errc() || p == line.data()) return false;
    line.remove_prefix(size_t(p - line.data()));
    return true;
}

}  // namespace

void cPalette::Load(const std::string& path) {
    const std::string bytes = ReadFileBytes(path, size_t(1) << 20);
    const std::string_view text = bytes;
    const FileError notPalette("Keine JASC-PAL-Datei");
    size_t pos = 0;
    std::string_view line;
    if (!NextLine(text, pos, line) || line != "JASC-PAL") throw notPalette;
    if (!NextLine(text, pos, line) || line != "0100") throw notPalette;
    int count = 0;
    if (!NextLine(text, pos, line) || !ReadNumber(line, count) || count < 0 || count > 65536) throw notPalette;
    std::vector<PaletteColour> colours;
    colours.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        int c[3];
        if (!NextLine(text, pos, line)) throw FileError("Die Palette endet nach " + std::to_string(i) + " Farben");
        for (int& v : c)
            if (!ReadNumber(line, v) || v < 0 || v > 255)
                throw FileError("Farbe " + std::to_string(i + 1) + " ist keine Farbe aus drei Zahlen von 0 bis 255");
        colours.push_back({uint8_t(c[0]), uint8_t(c[1]), uint8_t(c[2])});
    }
    colours_ = std::move(colours);
}

void cPalette::Save(const std::string& path) const {
    std::string text = "JASC-PAL\r\n0100\r\n" + std::to_string(colours_.size()) + "\r\n";
    for (const PaletteColour& c : colours_)
        text += std::to_string(c.Red) + ' ' + std::to_string(c.Green) + ' ' + std::to_string(c.Blue) + "\r\n";
    SafeWriter out(path);
    out.write(text);
    out.commit();
}

void cPalette::EraseNodes() {
    nodes_.clear();
    nodes_.shrink_to_fit();
    free_.clear();
    free_.shrink_to_fit();
    for (int32_t& r : reducible_) r = 0;
    leaves_ = 0;
}

int32_t cPalette::newNode(int level, int nLevels) {
    int32_t n;
    if (!free_.empty()) {
        n = free_.back();
        free_.pop_back();
        nodes_[size_t(n)] = Node{};
    } else {
        n = int32_t(nodes_.size());
        nodes_.emplace_back();
    }
    Node& node = nodes_[size_t(n)];
    if (level == nLevels) {
        node.leaf = true;
        ++leaves_;
    } else {
        // The newest node of a level is the first to be reduced.
        node.nextReducible = reducible_[level];
        reducible_[level] = n;
    }
    return n;
}

// One step: the newest reducible node of the deepest level that has one
// takes over its children's sums and becomes a leaf.
bool cPalette::reduce() {
    int level = levels_ - 1;
    while (level >= 0 && reducible_[level] == 0) --level;
    if (level < 0) return false;
    const int32_t n = reducible_[level];
    Node& node = nodes_[size_t(n)];
    reducible_[level] = node.nextReducible;
    int children = 0;
    for (int32_t& c : node.child) {
        if (c == 0) continue;
        const Node& child = nodes_[size_t(c)];
        node.red += child.red;
        node.green += child.green;
        node.blue += child.blue;
        node.pixels += child.pixels;
        free_.push_back(c);
        c = 0;
        ++children;
    }
    node.leaf = true;
    leaves_ -= children - 1;
    return true;
}

bool cPalette::CreateOptimal(Session& s, const cDIBSection& cdib, int PalSize, int nLevels,
                             PaletteListener* listener) {
    const double start = s.platform.now();
    EraseNodes();
    colours_.clear();
    levels_ = nLevels < 1 ? 1 : nLevels > 8 ? 8 : nLevels;
    nodes_.reserve(50);
    nodes_.emplace_back();  // slot 0: "no node"
    const int32_t root = newNode(0, levels_);

    const long rows = cdib.Height();
    const int width = cdib.Width();
    if (listener) listener->Started(rows);
    bool reducing = true;  // false once the user chose to go on without reducing
    for (long row = 0; row < rows; ++row) {
        const uint8_t* p = cdib.ScanLine(int(row));
        for (int x = 0; x < width; ++x, p += 3) {
            const uint8_t blue = p[0], green = p[1], red = p[2];
            int32_t n = root;
            for (int level = 0;; ++level) {
                if (nodes_[size_t(n)].leaf) {
                    Node& leaf = nodes_[size_t(n)];
                    leaf.red += red;
                    leaf.green += green;
                    leaf.blue += blue;
                    ++leaf.pixels;
                    break;
                }
                const int shift = 7 - level;
                const int branch = ((red >> shift) & 1) << 2 | ((green >> shift) & 1) << 1 | ((blue >> shift) & 1);
                int32_t c = nodes_[size_t(n)].child[branch];
                if (c == 0) {
                    c = newNode(level + 1, levels_);  // may move nodes_
                    nodes_[size_t(n)].child[branch] = c;
                }
                n = c;
            }
            while (reducing && leaves_ > PalSize) {
                if (reduce()) continue;
                if (s.platform.messageBox("Error in reducing nodes", "", Buttons::YesNo, Icon::Question) ==
                    Answer::No) {
                    EraseNodes();
                    if (listener) listener->Ended(long((s.platform.now() - start) * 1000 + 0.5));
                    return false;
                }
                reducing = false;
            }
        }
        if (listener) listener->Step(row + 1);
        s.pollEvents();
    }

    // Each leaf in tree order (children 0 to 7, depth first) gives a colour.
    struct Frame { int32_t node; int next; };
    std::vector<Frame> stack{{root, 0}};
    while (!stack.empty()) {
        Frame& f = stack.back();
        const Node& node = nodes_[size_t(f.node)];
        if (node.leaf) {
            if (node.pixels > 0)
                Add(uint8_t(node.red / node.pixels), uint8_t(node.green / node.pixels),
                    uint8_t(node.blue / node.pixels));
            stack.pop_back();
            continue;
        }
        while (f.next < 8 && node.child[f.next] == 0) ++f.next;
        if (f.next == 8) {
            stack.pop_back();
            continue;
        }
        const int32_t child = node.child[f.next++];
        stack.push_back({child, 0});
    }
    if (listener) listener->Ended(long((s.platform.now() - start) * 1000 + 0.5));
    return true;
}

PaletteLookup::PaletteLookup(const cPalette& palette)
    : palette_(palette), keys_(size_t(1) << kBits, 0xFFFFFFFFu), index_(size_t(1) << kBits, 0) {}

}  // namespace ortelix
