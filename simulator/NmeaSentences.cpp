#include "simulator/NmeaSentences.h"

#include <cmath>
#include <cstring>

#include "core/FixedDecimals.h"

namespace ortelix {

namespace {

constexpr const char* kSamples =
    "$GPGSA,A,3,08,24,10,27,28,17,26,29,,,,,2.3,1.4,1.9*37\r\n"
    "$GPGSV,3,1,10,08,80,088,42,10,67,252,42,27,47,062,41,29,43,290,39*75\r\n"
    "$GPGSV,3,2,10,28,31,153,43,17,27,276,38,26,22,286,31,21,10,328,*7B\r\n"
    "$GPGSV,3,3,10,13,09,100,,24,08,219,33*76\r\n";

// A number with at least `digits` digits before the point and `decimals`
// after it, as the picture "000.0" writes it: zeros go behind the sign.
void AppendPadded(std::string& out, double value, int digits, int decimals) {
    char buffer[420];
    char* end = PutFixed(buffer, value, decimals);
    const char* p = buffer;
    if (*p == '-') out += *p++;
    const char* point = decimals > 0 ? end - decimals - 1 : end;
    for (long n = point - p; n < digits; ++n) out += '0';
    out.append(p, static_cast<size_t>(end - p));
}

void AppendTwo(std::string& out, int v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}

// "hhnnss.00"
void AppendZeit(std::string& out, Time t) {
    const int s = *t;
    AppendTwo(out, s / 3600);
    AppendTwo(out, s / 60 % 60);
    AppendTwo(out, s % 60);
    out += ".00";
}

// "ddmmyy"
void AppendDatum(std::string& out, Date d) {
    const CivilDate c = CivilFromSerial(*d);
    AppendTwo(out, c.day);
    AppendTwo(out, c.month);
    AppendTwo(out, ((c.year % 100) + 100) % 100);
}

// Degrees and minutes as ddmm.mmmm: the whole degrees times 100 plus the minutes.
void AppendGradMinuten(std::string& out, double degrees, int digits) {
    const double a = std::fabs(degrees);
    const double grad = std::trunc(a);
    AppendPadded(out, grad * 100 + (a - grad) * 60, digits, 4);
}

void AppendPosition(std::string& out, const SimFix& f) {
    AppendGradMinuten(out, f.SimLat, 4);
    out += f.SimLat < 0 ? ",S," : ",N,";
    AppendGradMinuten(out, f.SimLon, 5);
    out += f.SimLon < 0 ? ",W" : ",E";
}

// Closes the sentence that starts at `start`: "*", the checksum, CR LF.
void Close(std::string& out, size_t start) {
    out += '*';
    out += NmeaPruefsumme(std::string_view(out).substr(start));
    out += "\r\n";
}

bool ValidTime(Time t) { return !t.empty() && *t >= 0 && *t < kSecondsPerDay; }
bool ValidDate(Date d) { return !d.empty() && *d >= -657434 && *d <= 2958465; }  // years 100 to 9999

}  // namespace

std::string NmeaPruefsumme(std::string_view sentence) {
    unsigned x = 0;
    if (sentence.size() >= 2)
        for (char c : sentence.substr(1, sentence.size() - 2)) x ^= static_cast<unsigned char>(c);
    constexpr char kHex[] = "0123456789ABCDEF";
    return {kHex[(x >> 4) & 15], kHex[x & 15]};
}

void AppendNmeaSatz(std::string& out, SimFix& f, double localNow) {
    if (!ValidTime(f.SimTime)) {
        const double day = std::floor(localNow);
        f.SimTime = static_cast<int>(std::floor((localNow - day) * kSecondsPerDay + 0.5)) % kSecondsPerDay;
    }
    if (!ValidDate(f.SimDate)) f.SimDate = static_cast<int>(std::floor(localNow));
    const double kurs = f.SimCourse < 0 ? f.SimCourse + 360 : f.SimCourse;
    const double knoten = f.SimSpeed / kKmhPerKnot;

    size_t start = out.size();
    out += "$GPGGA,";
    AppendZeit(out, f.SimTime);
    out += ',';
    AppendPosition(out, f);
    out += ",1,10,8.4,";
    AppendPadded(out, f.SimAlt, 1, 1);
    out += ",M,";
    if (!f.SimGeoid.empty()) AppendPadded(out, *f.SimGeoid, 1, 1);
    out += ",M,1.7,0000";
    Close(out, start);

    start = out.size();
    out += "$GPRMC,";
    AppendZeit(out, f.SimTime);
    out += ",A,";
    AppendPosition(out, f);
    out += ',';
    AppendPadded(out, knoten, 3, 1);
    out += ',';
    AppendPadded(out, kurs, 3, 1);
    out += ',';
    AppendDatum(out, f.SimDate);
    out += ",,";
    Close(out, start);

    start = out.size();
    out += "$GPVTG,";
    AppendPadded(out, kurs, 3, 1);
    out += ",T,,,";
    AppendPadded(out, knoten, 3, 1);
    out += ",N,";
    AppendPadded(out, f.SimSpeed, 3, 1);
    out += ",K";
    Close(out, start);

    out += kSamples;
}

std::string NmeaSatz(SimFix& fix, double localNow) {
    std::string out;
    out.reserve(480);
    AppendNmeaSatz(out, fix, localNow);
    return out;
}

std::string NmeaGllSatz(const SimFix& f) {
    std::string out = "$GPGLL,";
    AppendPosition(out, f);
    out += ',';
    if (ValidTime(f.SimTime)) AppendZeit(out, f.SimTime);
    out += ",A";
    Close(out, 0);
    return out;
}

}  // namespace ortelix
