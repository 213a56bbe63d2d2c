#pragma once
// A track as an NMEA log: each point becomes one receiver cycle of
// sentences (GGA, RMC, VTG and the satellite samples).
#include <string>

namespace ortelix {

class Session;
struct Track;
struct Options;

inline constexpr const char* kNmeaLogTitle = "NMEA Datei angeben";
inline constexpr const char* kNmeaLogFilter = "NMEA-Log (*.nmea)|*.nmea|NMEA-TomTom (*.pgl)|*.pgl|NMEA-MN4 (*.txt)|*.txt";

// The kinds of log, numbered as the dialog's filter entries: a plain log
// and the Mobile Navigator 4 log with CR LF, TomTom's with four fixed
// header lines and LF alone.
enum NmeaLogKind { kNmeaPlain = 1, kNmeaTomTom = 2, kNmeaMN4 = 3 };

// Writes track `trackIndex` (from 1) of the store. Points without a time
// count seconds on from the wall clock at the start (the first gets it plus
// one second, or the time of the point before plus one); points without a
// date take today's. The right mouse button ends the log where it stands.
void WriteNmeaLog(Session& s, const std::string& path, int kind, int trackIndex);

// The track to write: the only one, or the one the user names when the
// store holds several (the command line takes the first). 0 when there is
// none ("Kein Datensatz vorhanden!") or the user cancelled.
int ChooseNmeaTrack(Session& s);

// The record choice, then the writer: the command line's writers by name
// or extension (nmea, pgl).
void NmeaLogSchreiben(Session& s, const std::string& path, int kind);
void WriteNmeaLogPlain(Session& s, const std::string& path);
void WriteNmeaLogTomTom(Session& s, const std::string& path);

// The whole file as the writer makes it, for a wall clock `localNow`.
std::string NmeaLogText(const Track& t, const Options& o, int kind, const std::string& path, double localNow);

// The proposed name: the first point's moment (the wall clock when it has
// no date and time) as yyyymmddhhnnss, "GPS", for TomTom "-1", and the
// kind's extension.
std::string NmeaLogDefaultName(const Track& t, int kind, double localNow);

// "NMEA-Log" in Ausgang: the record choice, the save dialog with its
// proposal, then the writer of the chosen kind under the failure handler.
void NmeaLogCommand(Session& s, const std::string& unused);

}  // namespace ortelix
