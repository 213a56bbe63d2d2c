// Build-time tool: turns PROJ's EGM96 15-minute grid (egm96_15.gtx:
// big-endian, a 40-byte header of lower-left latitude and longitude, steps,
// rows and columns, then float32 metres from the southern row up) into
// geobin.dat: 721 rows × 1440 columns, north row first, longitude 0 first,
// int16 centimetres with the high byte first.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

uint64_t Big(const unsigned char* p, int n) {
    uint64_t v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | p[i];
    return v;
}

double BigDouble(const unsigned char* p) {
    const uint64_t bits = Big(p, 8);
    double d;
    std::memcpy(&d, &bits, 8);
    return d;
}

float BigFloat(const unsigned char* p) {
    const uint32_t bits = static_cast<uint32_t>(Big(p, 4));
    float f;
    std::memcpy(&f, &bits, 4);
    return f;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_geobin egm96_15.gtx geobin.dat\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    const std::vector<unsigned char> gtx((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (gtx.size() < 40) {
        std::fprintf(stderr, "make_geobin: %s is no grid\n", argv[1]);
        return 1;
    }
    const double lat0 = BigDouble(&gtx[0]), lon0 = BigDouble(&gtx[8]);
    const double dLat = BigDouble(&gtx[16]), dLon = BigDouble(&gtx[24]);
    const long rows = static_cast<long>(Big(&gtx[32], 4)), cols = static_cast<long>(Big(&gtx[36], 4));
    if (dLat != 0.25 || dLon != 0.25 || gtx.size() != 40 + static_cast<size_t>(rows * cols) * 4) {
        std::fprintf(stderr, "make_geobin: %s is not a 15-minute grid\n", argv[1]);
        return 1;
    }
    std::vector<unsigned char> out;
    out.reserve(721 * 1440 * 2);
    for (int r = 0; r < 721; ++r) {
        const double lat = 90 - r * 0.25;
        for (int c = 0; c < 1440; ++c) {
            double lon = c * 0.25;
            if (lon >= lon0 + cols * dLon) lon -= 360;
            const long gr = std::lround((lat - lat0) / dLat);
            long gc = std::lround((lon - lon0) / dLon);
            if (gc < 0) gc += std::lround(360 / dLon);
            if (gr < 0 || gr >= rows || gc < 0 || gc >= cols) {
                std::fprintf(stderr, "make_geobin: the grid does not cover %g %g\n", lon, lat);
                return 1;
            }
            const float metres = BigFloat(&gtx[40 + static_cast<size_t>(gr * cols + gc) * 4]);
            const auto cm = static_cast<uint16_t>(static_cast<int16_t>(std::lround(metres * 100.0)));
            out.push_back(static_cast<unsigned char>(cm >> 8));
            out.push_back(static_cast<unsigned char>(cm & 0xFF));
        }
    }
    const std::string temp = std::string(argv[2]) + ".tmp";
    std::FILE* f = std::fopen(temp.c_str(), "wb");
    if (!f || std::fwrite(out.data(), 1, out.size(), f) != out.size() || std::fclose(f) != 0) {
        std::fprintf(stderr, "make_geobin: cannot write %s\n", temp.c_str());
        return 1;
    }
    if (std::rename(temp.c_str(), argv[2]) != 0) {
        std::fprintf(stderr, "make_geobin: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
