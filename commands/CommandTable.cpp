#include "commands/CommandTable.h"

#include "appformats/ModOzi.h"
#include "appformats/ModuleTop50Ovl.h"
#include "commands/LineReaders.h"
#include "commands/CommandRun.h"
#include "gpsformats/GPX.h"
#include "gpsformats/Nmea.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {
constexpr const char* kGpxFilter = "GPX File (*.gpx)|*.gpx|GPX File (*.xml)|*.xml|Alle Dateien (*.*)|*.*";
constexpr const char* kAllFiles = "Alle Dateien (*.*)|*.*";
constexpr const char* kAsciiFilter = "ASCII File (*.txt)|*.txt|Alle Dateien (*.*)|*.*";
constexpr const char* kNmeaFilter = "NMEA-Datei (*.nmea)|*.nmea|TomTom Log-File (*.pgl)|*.pgl|Alle Dateien (*.*)|*.*";
constexpr const char* kPthFilter =
    "Meridian 9 (nicht CD-Bayern)(*.pth)|*.pth|Meridian 12 (nur CD-Bayern, nicht bei DVD)(*.pth)|*.pth|Alle Dateien "
    "(*.*)|*.*";
constexpr const char* kTtqvFilter =
    "TTQV 4 Datenbank (*.qu4)|*.qu4|TTQV 3 Datenbank (*.qu3)|*.qu3|TTQV 2 Datenbank (*.qu2)|*.qu2|gelöschte "
    "Datensätze (*.*)|*.*|Alle Dateien (*.*)|*.*";

constexpr CommandKind R = CommandKind::Read;
constexpr CommandKind W = CommandKind::Write;
constexpr CommandKind T = CommandKind::Tool;
constexpr CommandKind S = CommandKind::Setup;
constexpr CommandKind A = CommandKind::Action;

// An empty word is in no list: a name without extension must not find the
// rows whose extensions are empty (the OziExplorer set, chosen only by name).
bool HasWord(const char* list, std::string_view word) {
    if (!list || word.empty()) return false;
    const std::string_view l(list);
    size_t pos = 0;
    while (pos <= l.size()) {
        size_t end = l.find(' ', pos);
        if (end == std::string_view::npos) end = l.size();
        if (l.substr(pos, end - pos) == word) return true;
        pos = end + 1;
    }
    return false;
}
}  // namespace

// In the order of the menus. Submenus whose caption the menus need are named
// after the program or format they serve.
const std::vector<Command>& CommandTable() {
    static const std::vector<Command> table = {
        // Eingang
        {"MenEinNeu", "Neu", "MenEingang", A, nullptr, nullptr, NeuCommand, "", nullptr},
        {"MenEinBatch", "Alles einlesen", "MenEingang", A, kBatchTitle, kBatchFilter, BatchReadCommand, "", nullptr},
        {"MenEinASCIITrack", "als Track", "MenEingang/ASCII Datei", R, "ASCII Tracks auswählen", kAsciiFilter, nullptr, "", nullptr},
        {"MenEinASCIIRoute", "als Route", "MenEingang/ASCII Datei", R, "ASCII Routen auswählen", kAsciiFilter, nullptr, "", nullptr},
        {"MenEinASCIIWayPoint", "als Waypoint", "MenEingang/ASCII Datei", R, "ASCII WayPoints auswählen", kAsciiFilter, nullptr, "", nullptr},
        {"MenEinGeo", "loc", "MenEingang/Geocache", R, "Geochache Wegepunkte auswählen",
         "Geochache File (*.loc)|*.loc|Alle Dateien (*.*)|*.*", nullptr, "", nullptr, "loc"},
        {"MenEinGeoDB", "db", "MenEingang/Geocache", R, "Geochache Wegepunkte auswählen",
         "Geochache File (*.db)|*.db|Alle Dateien (*.*)|*.*", nullptr, "", nullptr, "db"},
        {"MenGeoTIFFTxtEin", "OpenGeoDB", "MenEingang", R, "GeoTIFF Wegepunkte auswählen",
         "GeoDB (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinGNS", "GEOnet Names Server (GNS)", "MenEingang", R, "NGA Geonames datei wählen",
         "GNS (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinGisGK", "GIS (Gauß-Krüger)", "MenEingang/DXF", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinGisWGS84", "WGS84", "MenEingang/DXF", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinGPX", "GPX", "MenEingang", R, "GPX-Datei einlesen", kGpxFilter, ReadGPXFile, "gpx", "gpx", "gpx"},
        {"MenEinPCX5All", "PCX5", "MenEingang", R, "PCX5-Datei einlesen",
         "PCX5 File (*.grm)|*.grm|PCX5 File (*.trk)|*.trk|PCX5 File (*.rte)|*.rte|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinWPPlus", "Waypoint+", "MenEingang", R, "Waypoint+ Textdatei auswählen",
         "Waypoint Text (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinNMEA", "NMEA Log", "MenEingang", R, "NMEA Log-Datei auswählen", kNmeaFilter,
         [](Session& s, const std::string& p) { ReadTrackFile(s, p, 1); }, "nmea pgl log", "nmea"},
        {"MenEinSIRF", "SIRF Log", "MenEingang", R, "SIRF-Log Datei auswählen",
         "SIRF-Log Datei (*.pgl)|*.pgl|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinBlue", "BlueGPS", "MenEingang", R, "RoyalTek RBT-3000 ASCII Tracks auswählen",
         "BlueGPS File (*.txt)|*.txt|Alle Dateien im Ordner(*.txt)|*.txt", nullptr, "", nullptr, "txt"},
        {"MenEinMN4Log", "Log", "MenEingang/Mobile Navigator 4.2", R, "Mobile Navigator 4 Log-Datei auswählen",
         "MN4 Log (*.txt)|*.txt|MN4 GPSLogger (*.nmea)|*.nmea|MN4 Routen-Simulation (SimTemp.gps)|SimTemp.gps|Alle "
         "Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MnEinMN4Wp", "Ziele, Routen als Waypoint", "MenEingang/Mobile Navigator 4.2", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinMN4Route", "Routen", "MenEingang/Mobile Navigator 4.2", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinOziTrack", "Track", "MenEingang/OziExplorer", R, "OziExplorer Tracks auswählen",
         "Ozi Track (*.plt)|*.plt|Alle Dateien (*.*)|*.*", [](Session& s, const std::string& p) { ReadTrackFile(s, p, 4); }, "plt", "ozi-plt", "plt"},
        {"MenEinOziRoute", "Route", "MenEingang/OziExplorer", R, "OziExplorer Routen auswählen",
         "Ozi Route (*.rte)|*.rte|Alle Dateien (*.*)|*.*", [](Session& s, const std::string& p) { ReadRouteFile(s, p, 4); }, "rte", "ozi-rte", "rte"},
        {"MenEinOzCEiRoute", "Route OziCE", "MenEingang/OziExplorer", R, "OziCE Routen auswählen",
         "OziCE Route (*.rt2)|*.rt2|Alle Dateien (*.*)|*.*", [](Session& s, const std::string& p) { ReadRouteFile(s, p, 6); }, "rt2", "ozi-rt2", "rt2"},
        {"MenEinOziWayPoint", "Waypoint", "MenEingang/OziExplorer", R, "OziExplorer  WayPoints auswählen",
         "Ozi WayPoint (*.wpt)|*.wpt|Alle Dateien (*.*)|*.*", [](Session& s, const std::string& p) { ReadWayPointFile(s, p, 4); }, "wpt", "ozi-wpt", "wpt"},
        {"MenEinOziMapInfos", "Map Infos", "MenEingang/OziExplorer", R, "OziExplorer Map-Datei auswählen",
         "Ozi Kalibrierungsdateien (*.map)|*.map|Alle Kalibrierungsdateien im Ordner (*.map)|*.map",
         OziMapEinlesenAuswahl, "", nullptr},
        {"MenEinTTQV3", "TTQV", "MenEingang", R, "TTQV Datenbank auswählen", kTtqvFilter, nullptr, "", nullptr},
        {"MenEinPathAwayFiles", "PathAway 4 Dateien", "MenEingang/PathAway", R, nullptr, nullptr, nullptr, "", nullptr,
         "pwtrk pwrte pwpts"},
        {"MenEinPathAway", "Pathaway ActiveSync", "MenEingang/PathAway", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinFugawiTrack", "als Track", "MenEingang/Fugawi", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinFugawiRoute", "als Route", "MenEingang/Fugawi", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinFugawiWp", "als Waypoint", "MenEingang/Fugawi", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinMagellan", "Magellan ASCII", "MenEingang", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinTTLog", "Log", "MenEingang/TomTom", R, "TomTom Log-Datei auswählen",
         "TomTom Log-File (*.pgl)|*.pgl|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinTTPOI", "POI", "MenEingang/TomTom", R, "TomTom POI-Datei auswählen",
         "TomTom POI-Binär (*.ov2)|*.ov2|TomTom POI-ASCII (*.asc)|*.asc|dumpov2 (*.ov2)|*.ov2|Alle Dateien|*.*", nullptr,
         "", nullptr, "ov2"},
        {"MenEinTTReiseRt", "als Route", "MenEingang/TomTom/Reiseroute", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinTTReiseWp", "als Waypoints", "MenEingang/TomTom/Reiseroute", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinTTBild", "Bild wählen", "MenEingang/TomTom", A, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinVito", "Vito Navigator", "MenEingang", R, "Vito Navigator WayPoint", kAsciiFilter, nullptr, "", nullptr},
        {"MenEinFlyTrack", "Tracks", "MenEingang/Flight Planner", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinSkyMapRt", "Routen", "MenEingang/Flight Planner", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinSkyMapWP", "Waypoints", "MenEingang/Flight Planner", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinGoogleEarth", "Google Earth", "MenEingang", R, "Google Earth einlesen",
         "Google Earth(*.kml)|*.kml|Alle Dateien (*.*)|*.*", nullptr, "", nullptr, "kml"},
        {"MenEinKomTrack", "als Track", "MenEingang/Kompass", R, "Kompass GPS Tracks auswählen",
         "GPS-Track (*.tk)|*.tk|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinKomRoute", "als Route", "MenEingang/Kompass", R, "Kompass GPS Tracks auswählen",
         "GPS-Track (*.tk)|*.tk|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinKomWP", "Waypoints", "MenEingang/Kompass", R, "Kompass GPS Waypoints auswählen",
         "Waypoints (*.wp)|*.wp|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinMagMapPfadASCIITrack", "als Track", "MenEingang/MagicMaps/Pfad ASCII", R, nullptr,
         "MagicMaps ASCII (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinMagMapPfadASCII", "als Route", "MenEingang/MagicMaps/Pfad ASCII", R, nullptr,
         "MagicMaps ASCII (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinMagMapPfadTrack", "als Track", "MenEingang/MagicMaps/Pfad", R, "MagicMaps Pfad einlesen", kPthFilter,
         nullptr, "", nullptr},
        {"MenEinMagMapPfadRoute", "als Route", "MenEingang/MagicMaps/Pfad", R, "MagicMaps Pfad einlesen", kPthFilter,
         nullptr, "", nullptr},
        {"MenEinMagMapSchilder", "Schilder", "MenEingang/MagicMaps", R, "MagicMap Schild",
         "(*.SGN)|*.SGN|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenEinMagMapProj", "Projekt", "MenEingang/MagicMaps", R, "MagicMaps 2 Projekt einlesen",
         "MagicMaps 2 Projekt(*.ikt)|*.ikt", nullptr, "", nullptr},
        {"MenEinMot2003", "MapAndGuide TEF-Datei (XML)", "MenEingang/Map&Guide", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinMot2005", "MapAndGuide BCR-Datei (Stationsliste)", "MenEingang/Map&Guide", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinMuG", "MapAndGuide Stationsliste", "MenEingang/Map&Guide", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinTop50OVL", "Top50 OVL", "MenEingang", R, "Top50 Overlay auswählen", "Top50 ASCII Overlay (*.ovl)|*.ovl",
         Top50Lesen, "ovl", "ovl", "ovl"},
        {"MenEinTk25Hessen", "Tk25 Hessen", "MenEingang", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEiSwiMa", "SwissMap 50", "MenEingang", R, nullptr, nullptr, nullptr, "", nullptr, "xol smo"},
        {"MenEinGPSBabelTrack", "GPS Babel Track", "MenEingang/GPS Babel", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinGPSBabelRoute", "GPS Babel Route", "MenEingang/GPS Babel", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinBabelWayPoint", "GPS Babel Waypoint", "MenEingang/GPS Babel", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinST2GPX", "ST2GPX MS-Autoroute", "MenEingang", R, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEnde2", "Ende", "MenEingang", CommandKind::End, nullptr, nullptr, nullptr, "", nullptr},

        // Readers that only batch reading calls: the one-pass NMEA log
        // (ReadTrackFile format 2), waypoints format 2, the MagicMaps path
        // with meridian 9 as tracks, and TTQV without questions.
        {"BatchNMEALog", "NMEA Log", nullptr, R, "NMEA Log-Datei auswählen", kNmeaFilter,
         [](Session& s, const std::string& p) { ReadTrackFile(s, p, 2); }, "", nullptr, "nmea pgl log"},
        {"BatchWayPointAsc", "Waypoint", nullptr, R, nullptr, nullptr, nullptr, "", nullptr, "asc"},
        {"BatchMagMapPfad", "MagicMaps Pfad", nullptr, R, "MagicMaps Pfad einlesen", kPthFilter, nullptr, "", nullptr, "pth"},
        {"BatchTTQV", "TTQV", nullptr, R, "TTQV Datenbank auswählen", kTtqvFilter, nullptr, "", nullptr, "qu2 qu3 qu4"},

        // Ausgang
        {"MenAusgangASCII", "ASCII-Datei", "MenAusgang", W, "Export ASCII-Datei angeben", "ASCII File (*.txt)|*.txt", nullptr, "", nullptr},
        {"MenAusgangGeo", "Geocache WayPoint", "MenAusgang", W, "Geocache-Datei angeben", "Geocache-Datei (*.loc)|*.loc",
         nullptr, "", nullptr},
        {"MenAusgangGPX", "GPX", "MenAusgang", W, "GPX-Datei speichern", kGpxFilter, WriteGPXFile, "gpx", "gpx"},
        {"MenAusgangPCX5", "PCX5", "MenAusgang", W, "PCX5-Datei angeben", "PCX5 v2.06 (*.grm)|*.grm|PCX5 TTQV (*.grm)|*.grm",
         nullptr, "", nullptr},
        {"MenAusWpPlus", "Waypoint+", "MenAusgang", W, "Waypoint+ Textdatei angeben", "Waypoint Text (*.txt)|*.txt",
         nullptr, "", nullptr},
        // The log asks for the track first and proposes a name from it: it
        // runs its own dialog. The command line writes through the two rows
        // of the writers that only it calls, below.
        {"MenAusgangNMEA", "NMEA-Log", "MenAusgang", A, kNmeaLogTitle, kNmeaLogFilter, NmeaLogCommand, "", nullptr},
        {"MenAusgangBlue", "BlueGPS", "MenAusgang", W, nullptr, "BlueGPS File (*.txt)|*.txt", nullptr, "", nullptr},
        {"MenAusOziAllesSpeichern", "Alles speichern", "MenAusgang/OziExplorer", W, "Ozi Explorer Export",
         "Dateienname (*.*)|*.*", OziExportieren, "", "ozi"},
        {"MenAusgangOziTrack", "Track", "MenAusgang/OziExplorer", W, nullptr, "Ozi Track (*.plt)|*.plt",
         OziTrackDateienSchreiben, "plt", "ozi-plt"},
        {"MenAusgangOziRoute", "Route", "MenAusgang/OziExplorer", W, nullptr, "Ozi Route (*.rte)|*.rte", OziRouteSchreiben,
         "rte", "ozi-rte"},
        {"MenAusgangOziCERoute", "Route OziCE", "MenAusgang/OziExplorer", W, nullptr, "OziCE Route (*.rt2)|*.rt2",
         OziCERouteDateienSchreiben, "rt2", "ozi-rt2"},
        {"MenAusgangOziWayPoint", "Waypoint", "MenAusgang/OziExplorer", W, nullptr, "Ozi WayPoint (*.wpt)|*.wpt",
         OziWegepunkteDateiSchreiben, "wpt", "ozi-wpt"},
        {"MenExpPathwaay", "ActiveSync", "MenAusgang/PathAway", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenExpPathAwayText", "Textdatei", "MenAusgang/PathAway", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusMagellan", "Magellan ASCII", "MenAusgang", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenExpPOIWarner", "POI Warner", "MenAusgang", W, nullptr, nullptr, nullptr, "", nullptr},
        {"ManAusMN4Routen", "Routen", "MenAusgang/Mobile Navigator 4.2", W, "Mobile Navigator 4.2", nullptr, nullptr, "", nullptr},
        {"MenAusMN4WP", "Waypoints", "MenAusgang/Mobile Navigator 4.2", W, "Mobile Navigator 4.2", nullptr, nullptr, "", nullptr},
        {"MenAusgangTTPOITrack", "POI von Track", "MenAusgang/TomTom", W, "TomTom POI-Datei angeben",
         "TomTom ASCII-Datei (*.asc)|*.asc|TomTom Binär-Datei (*.ov2)|*.ov2|makeov2 (*.ov2)|*.ov2|ASCII-Datei|*.*", nullptr,
         "", nullptr},
        {"MenAusgangTTPOI", "POI von Waypoint", "MenAusgang/TomTom", W, "TomTom POI-Datei angeben",
         "TomTom ASCII-Datei (*.asc)|*.asc|TomTom Binär-Datei (*.ov2)|*.ov2|makeov2 (*.ov2)|*.ov2|ASCII-Datei|*.*", nullptr,
         "", nullptr},
        {"MenAusgangTTReise", "Reiseroute", "MenAusgang/TomTom", W, "TomTom Reiseroute angeben",
         "TomTom 3 Reiseroute (*.itn)|*.itn|TomTom 5 Reiseroute (*.itn)|*.itn", nullptr, "", nullptr},
        {"MenAusTTBildWahl", "Bild wählen", "MenAusgang/TomTom", A, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusgangVitoNavigatorRoute", "von Route", "MenAusgang/Vito Navigator", W, "Vito Exportdatei angeben",
         "Vito Textdatei (*.txt)|*.txt", nullptr, "", nullptr},
        {"MenAusgangVitoNavigatorWayPoint", "von Waypoint", "MenAusgang/Vito Navigator", W, "Vito Exportdatei angeben",
         "Vito Textdatei (*.txt)|*.txt", nullptr, "", nullptr},
        {"MenAusMot", "Motorrad Tourenplaner 2005/2006", "MenAusgang/Map&Guide", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusMuG", "MapAndGuide Stationsliste", "MenAusgang/Map&Guide", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenExpGoogleMaps", "Google Earth", "MenAusgang", W, "Google Earth KML Angeben", "Google Earth Datei (*.kml)|*.kml",
         nullptr, "", nullptr},
        {"MenAusKompassTr", "Track", "MenAusgang/Kompass", W, "Kompass GPS Tracks schreiben", "GPS-Track (*.tk)|*.tk",
         nullptr, "", nullptr},
        {"MenAusKompWp", "Waypoints", "MenAusgang/Kompass", W, "Kompass GPS Waypopints schreiben", "Waypopints (*.wp)|*.wp",
         nullptr, "", nullptr},
        {"MenAusgangMagMapTrackRouteASCII", "Tracks Routen als ASCII Export", "MenAusgang/MagicMaps", W,
         "MagicMaps Pfad ASCII schreiben", "MagicMaps ASCII (*.txt)|*.txt|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenAusgangMagMapTrackRoute", "Tracks Routen", "MenAusgang/MagicMaps", W, "MagicMap Pfad schreiben", kPthFilter,
         nullptr, "", nullptr},
        {"MenAusgangMagMapBay", "Waypoints", "MenAusgang/MagicMaps", W, "MagicMap Schild",
         "(*.SGN)|*.SGN|Alle Dateien (*.*)|*.*", nullptr, "", nullptr},
        {"MenAusgangMagMapProj", "Projekt", "MenAusgang/MagicMaps", W, "MagicMaps 2 Projekt erzeugen",
         "MagicMaps 2 Projekt(*.ikt)|*.ikt", nullptr, "", nullptr},
        {"MenAusFugawi", "Fugawi Textdatei", "MenAusgang", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusgangTop50OVL", "Top50 OVL", "MenAusgang", W, "Top50 OVL_Datei speichern", "Top50 OVL (*.ovl)|*.ovl",
         Top50OvlSchreiben, "ovl", "ovl"},
        {"MenAusgangTop25", "Tk25 Hessen", "MenAusgang", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusSwissMap50", "Swiss Map 50 v1.0", "MenAusgang/Swiss Map 50", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusSwissMap50V3", "Swiss Map 50 v3", "MenAusgang/Swiss Map 50", W, nullptr, "SwissMap50 V3 (*.xol)|*.xol",
         nullptr, "", nullptr},
        {"MenAusgangGPSBabelTrack", "Track", "MenAusgang/Externe Konverter", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusgangGPSBabelRoute", "Route", "MenAusgang/Externe Konverter", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusgangGPSBabelWP", "Waypoint", "MenAusgang/Externe Konverter", W, nullptr, nullptr, nullptr, "", nullptr},
        {"MenAusgangST2GPX", "ST2GPX MS-Autoroute", "MenAusgang/Externe Konverter", W, nullptr, nullptr, nullptr, "", nullptr},

        // Writers that only the command line calls: the NMEA log by name or
        // extension, plain or TomTom's.
        {"AusNMEALog", "NMEA-Log", nullptr, W, kNmeaLogTitle, kNmeaLogFilter, WriteNmeaLogPlain, "nmea", "nmea"},
        {"AusNMEALogTomTom", "NMEA-TomTom", nullptr, W, kNmeaLogTitle, kNmeaLogFilter, WriteNmeaLogTomTom, "pgl", "pgl"},

        // Tools
        {"MenToolsMapExp", "Kartenexport", "MenTools", T, nullptr, nullptr, nullptr, "", nullptr},
        {"MenToolsFlAusTracks", "Tracks", "MenTools/Flächen aus bereits eingelesenen", A, nullptr, nullptr, FlaechenAusTracks, "", nullptr},
        {"MenToolsFlAusRouten", "Routen", "MenTools/Flächen aus bereits eingelesenen", A, nullptr, nullptr, FlaechenAusRouten, "", nullptr},
        {"MenToolsFlAusWP", "Waypoints", "MenTools/Flächen aus bereits eingelesenen", A, nullptr, nullptr, FlaechenAusWegepunkten, "", nullptr},
        {"MenToolsNMEASim", "NMEA Simulator", "MenTools", T, nullptr, nullptr, nullptr, "", nullptr},
        {"MenToolsNMEAFilter", "NMEA Filter", "MenTools", A, nullptr, nullptr, NmeaFilterCommand, "", nullptr},
        {"MenToolsTTBitmap", "TomTom Bitmap", "MenTools", T, nullptr, nullptr, nullptr, "", nullptr},
        {"TTVoice", "Stimmen TomTom 3 nach TomTom  5", "MenTools", A, nullptr, nullptr, nullptr, "", nullptr},
        {"MenToolsLF2CRLF", "LF zu CRLF", "MenTools", A, nullptr, nullptr, LfToCrLf, "", nullptr},
        {"MenToolsCRLF2LF", "CRLF zu LF", "MenTools", A, nullptr, nullptr, CrLfToLf, "", nullptr},
        {"MenEinEditor", "Editor", "MenTools", T, nullptr, nullptr, nullptr, "", nullptr},

        // Einstellungen: each shows its settings frame
        {"MenSetUpInfo", "Info-Feld", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenEinHelmert", "Datumstransformation", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50Karte", "Karte", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50Track", "Track", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50Route", "Route", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50WayPoint", "Waypoint", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50Texte", "Texte", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTop50Import", "Import", "MenSetUp/Top50 OVL", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpSwissMap", "Swiss Map 50", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTk25Track", "Track", "MenSetUp/TK25 Hessen", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTk25Route", "Route", "MenSetUp/TK25 Hessen", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTk25WayPoint", "Waypoint", "MenSetUp/TK25 Hessen", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpGoogle", "Google Earth", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpTrackFilter", "Track Filter", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpWayPointFilter", "Waypoint Filter", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpASCII", "ASCII Datei", "MenSetUp", S, nullptr, nullptr, nullptr, "", nullptr},
        {"MenSetUpStore", "Speichern", "MenSetUp", A, nullptr, nullptr, StoreSettingsCommand, "", nullptr},
        {"MenSetupReset", "Grundeinstellung", "MenSetUp", A, nullptr, nullptr, ResetSettingsCommand, "", nullptr},

        // The menu bar's own commands
        {"MenHelp", "Hilfe", "", CommandKind::Help, nullptr, nullptr, OpenHelpCommand, "", nullptr},
        {"MenEnde", "Ende", "", CommandKind::End, nullptr, nullptr, nullptr, "", nullptr},
    };
    return table;
}

const Command* FindCommand(std::string_view control) {
    for (const Command& c : CommandTable())
        if (control == c.control) return &c;
    return nullptr;
}

const Command* FindFormat(std::string_view key, CommandKind kind) {
    if (key.empty()) return nullptr;
    for (const Command& c : CommandTable())
        if (c.kind == kind && c.run && c.format && key == c.format) return &c;
    for (const Command& c : CommandTable())
        if (c.kind == kind && c.run && c.format && HasWord(c.extensions, key)) return &c;
    return nullptr;
}

const Command* BatchReader(std::string_view extension) {
    for (const Command& c : CommandTable())
        if (c.kind == CommandKind::Read && HasWord(c.batch, extension)) return c.run ? &c : nullptr;
    return nullptr;
}

std::string CommandTitle(const Command& c) { return c.title ? c.title : c.caption; }

std::string CommandFilter(const Command& c) { return c.filter ? c.filter : kAllFiles; }

const char* MenuCaption(std::string_view menu) {
    if (menu == "MenEingang") return "Eingang";
    if (menu == "MenAusgang") return "Ausgang";
    if (menu == "MenTools") return "Tools";
    if (menu == "MenSetUp") return "Einstellungen";
    if (menu == "MenHelp") return "Hilfe";
    return "";
}

}  // namespace ortelix
