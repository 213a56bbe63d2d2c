#include "appformats/ModuleTop50OvlStyle.h"

#include <cmath>
#include <cstdlib>

#include "appformats/ModuleTop50Karte.h"
#include "core/Options.h"

namespace ortelix {

namespace {

// Widths "1" to "9", then "keine Linie".
constexpr int kNoLine = 9;
// Text sizes: "kein Text", "8", "10", "12", "14", "16", "20", "24", "30".
constexpr int kTextSizes[] = {0, 8, 10, 12, 14, 16, 20, 24, 30};
// Arrow forms as (Typ, Group, Width, Height).
constexpr OvlArrow kArrows[] = {{7, 2, 12, 8}, {6, 1, 12, 12}, {7, 1, 9, 5}};
// "Bitmap", "Rechteck", "Kreis", "Dreieck".
constexpr int kSymbolTyp[] = {1, 5, 6, 7};
// "120", "200", "400": the position gives Width and Height.
constexpr int kSymbolSize[] = {10, 20, 40};

int Zoom(int check) { return check ? 2 : 1; }

OvlLine Line(int colourIndex, int widthIndex, int zoomCheck) {
    OvlLine l;
    l.drawn = widthIndex != kNoLine;
    l.col = TopFarbe(colourIndex);
    l.zoom = Zoom(zoomCheck);
    l.size = 100 + (widthIndex >= 0 && widthIndex < kNoLine ? widthIndex + 1 : 0);
    return l;
}

OvlText Text(const Options& o, int sizeIndex, int transparentCheck, int placeIndex) {
    OvlText t;
    const bool known = sizeIndex >= 0 && sizeIndex < static_cast<int>(std::size(kTextSizes));
    t.shown = known && sizeIndex != 0;
    t.size = 100 + (known ? kTextSizes[sizeIndex] : 0);
    t.group = o.List[28] == 1 ? 2 : 1;
    t.area = o.Check[static_cast<size_t>(transparentCheck)] ? 1 : 2;
    t.zoom = Zoom(o.Check[26]);
    t.font = o.List[36] >= 0 && o.List[36] <= 2 ? o.List[36] + 1 : 1;
    switch (placeIndex) {
        case 1: t.offsetLon = -kOvlTextStep; break;
        case 2: t.offsetLon = kOvlTextStep; break;
        case 3: t.offsetLat = -2 * kOvlTextStep; break;
        case 4: t.offsetLat = 2 * kOvlTextStep; break;
        default: break;
    }
    return t;
}

}  // namespace

OvlStyle OvlStyleFromOptions(const Options& o) {
    OvlStyle st;
    for (size_t k = 0; k < 5; ++k) st.trackSets[k] = Line(o.List[10 + k], o.List[15 + k], o.Check[23]);
    st.route = Line(o.List[22], o.List[23], o.Check[24]);
    st.arrows = o.Check[2] != 0;
    if (o.List[24] >= 0 && o.List[24] <= 2) st.arrow = kArrows[o.List[24]];
    st.areaCol = TopFarbe(o.List[21]);
    // The width list overrides the area's default of 102.
    st.areaSize = o.List[20] >= 0 && o.List[20] < kNoLine ? 100 + o.List[20] + 1 : 102;
    st.symbolTyp = o.List[25] >= 0 && o.List[25] <= 3 ? kSymbolTyp[o.List[25]] : 7;
    st.symbolSize = o.List[27] >= 0 && o.List[27] <= 2 ? kSymbolSize[o.List[27]] : 20;
    st.group = o.List[28] == 1 ? 2 : 1;
    st.waypointCol = TopWegpunktFarbe(o.List[26]);
    st.bitmapZoom = Zoom(o.Check[25]);
    st.trackText = Text(o, o.List[33], 3, 0);
    st.routeText = Text(o, o.List[32], 4, 0);
    st.routeText.col = st.route.col;
    const int places[3] = {o.List[35], o.List[42], o.List[46]};
    for (int k = 0; k < 3; ++k) {
        st.waypointText[static_cast<size_t>(k)] = Text(o, o.List[29 + static_cast<size_t>(k)], 5, places[k]);
        st.waypointText[static_cast<size_t>(k)].col = st.waypointCol;
    }
    return st;
}

int ArrowDir(double azimut) {
    double a = 450 - azimut;
    if (a >= 360) a -= 360;
    return static_cast<int>(std::floor(100 + a));
}

}  // namespace ortelix
