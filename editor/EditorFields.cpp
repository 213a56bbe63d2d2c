#include "editor/EditorFields.h"

#include <cmath>

#include "core/ModulShared.h"
#include "core/WholeNumber.h"
#include "editor/CellFormats.h"
#include "editor/GridChecks.h"

namespace ortelix {

namespace {

// Coordinates show with 6 decimals, also right after an edit: "9,5" reads 9.500000.
std::string CoordText(double v) { return FormatFixed(v, 6); }

bool WriteCoord(double& into, std::string_view text) {
    const double v = ParseFloat(text);
    if (!std::isfinite(v)) return false;
    into = v;
    return true;
}

// Satellites and fix kind take the number of the text, 0 when it has none.
double CellNumber(std::string_view text) {
    const double v = LeadingNumber(text);
    return std::isfinite(v) ? v : 0;
}

}  // namespace

std::string TrackFieldText(const TrackPoint& p, int col) {
    switch (col) {
        case 1: return CoordText(p.Lon);
        case 2: return CoordText(p.Lat);
        case 3: return NumberText(p.Speed);
        case 4: return NumberText(p.Course);
        case 5: return NumberText(p.Alt);
        case 6: return GermanDate(p.Date_);
        case 7: return GermanTime(p.Time_);
        case 8: return NumberText(p.Sat);
        case 9: return std::string(p.Fix.view());
        default: return {};
    }
}

std::string GeoFieldText(const GeoPoint& p, int col) {
    switch (col) {
        case 1: return CoordText(p.Lon);
        case 2: return CoordText(p.Lat);
        case 3: return p.Name;
        case 4: return p.Desc;
        case 5: return p.Cmt;
        case 6: return NumberText(p.Alt);
        case 7: return NumberText(p.Course);
        case 8: return GermanDate(p.Date_);
        case 9: return GermanTime(p.Time_);
        default: return {};
    }
}

bool WriteTrackField(TrackPoint& p, int col, std::string_view text) {
    switch (col) {
        case 1: return WriteCoord(p.Lon, text);
        case 2: return WriteCoord(p.Lat, text);
        case 3: p.Speed = CheckSpeed(text); return true;
        case 4: p.Course = CheckCourse(text); return true;
        case 5: p.Alt = CheckAlt(text); return true;
        case 6: p.Date_ = CheckDate(text); return true;
        case 7: p.Time_ = CheckTime(text); return true;
        case 8: p.Sat = static_cast<int16_t>(WholeWithin(CellNumber(text), 32767)); return true;
        case 9: p.Fix = InlineText<6>(NumberText(CellNumber(text))); return true;
        default: return false;
    }
}

bool WriteGeoField(GeoPoint& p, int col, std::string_view text) {
    switch (col) {
        case 1: return WriteCoord(p.Lon, text);
        case 2: return WriteCoord(p.Lat, text);
        case 3: p.Name = std::string(text); return true;
        case 4: p.Desc = std::string(text); return true;
        case 5: p.Cmt = std::string(text); return true;
        case 6: p.Alt = CheckAlt(text); return true;
        case 7: p.Course = CheckCourse(text); return true;
        case 8: p.Date_ = CheckDate(text); return true;
        case 9: p.Time_ = CheckTime(text); return true;
        default: return false;
    }
}

}  // namespace ortelix
