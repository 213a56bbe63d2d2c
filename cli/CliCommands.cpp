#include "cli/CliCommands.h"

namespace ortelix {

const std::vector<CliCommand>& CliCommands() {
    static const std::vector<CliCommand> table = {
        {"help", "ortelix help", "zeigt diese Übersicht", HelpCommand},
        {"convert", "ortelix convert [-i FORMAT] [-o FORMAT] [--set NAME=WERT]... EINGABE... AUSGABE",
         "liest alle Eingaben in einen Speicher und schreibt ihn in die Ausgabe", ConvertCommand},
        {"info", "ortelix info [--points] [--set NAME=WERT]... DATEI...",
         "zeigt, was die Dateien enthalten; --points dazu die Tabelle jedes Tracks wie im Editor", InfoCommand},
        {"formats", "ortelix formats", "listet die Formate mit Lesen/Schreiben und Endungen", FormatsCommand},
        {"settings", "ortelix settings [--set NAME=WERT]... | ortelix settings reset",
         "zeigt alle Einstellungen mit Namen und Wert; reset speichert die Grundeinstellung", SettingsCommand},
        {"coord", "ortelix coord UMRECHNUNG [WERTE...] [--meridian M] [--system N] [--datum NAME]",
         "rechnet Koordinaten um (Gauß-Krüger, UTM, Datum, Entfernung, Geoid)", CoordCommand},
        {"ozi-map", "ortelix ozi-map BILD LON_W LAT_N LON_O LAT_S BREITE HOEHE [--meridian M] [--margin R]",
         "schreibt die OziExplorer-Kalibrierung (.map) für ein Bild", OziMapCommand},
        {"calibrate",
         "ortelix calibrate BILD BREITE HOEHE LON_W LAT_N LON_O LAT_S [--meridian M|latlong|utm] [--set NAME=WERT]...",
         "schreibt neben das Bild die .map und alle Kalibrierungsdateien", CalibrateCommand},
        {"plan",
         "ortelix plan [--type N] [--meridian M|latlong|utm] [--set NAME=WERT]... [--csv AUSGABE.csv] "
         "[--check NAME] FLAECHENDATEI...",
         "teilt die Flächen in Kartenteile und zeigt je Teil Ecken und Größe", PlanCommand},
        {"nmea-filter", "ortelix nmea-filter EINGABE AUSGABE",
         "kopiert ein NMEA-Log mit den Sätzen GGA, GLL, GSA, GSV, RMC und VTG", NmeaFilterCliCommand},
        {"crlf", "ortelix crlf EINGABE AUSGABE", "schreibt jedes LF als CR LF (LF zu CRLF)", CrLfCliCommand},
        {"lf", "ortelix lf EINGABE AUSGABE", "schreibt jedes CR LF als LF (CRLF zu LF)", LfCliCommand},
        {"simulate",
         "ortelix simulate --port GERÄT [--source track|route|waypoint|direct] [--input DATEI]... [--speedup N] "
         "[--cycles N | --until-end] [--lon L --lat B --speed V --course C --alt H]",
         "sendet NMEA-Sätze wie ein GPS-Empfänger an eine serielle Schnittstelle", SimulateCommand},
        {"top50-map", "ortelix top50-map LON LAT",
         "zeigt den Kartencode eines Punktes und die Top50-Karte dazu aus names.dat", Top50MapCommand},
        {"exif", "ortelix exif FOTO...", "zeigt die EXIF-Angaben der Fotos, eine je Zeile", ExifCommand},
        {"geotag",
         "ortelix geotag --photos ORDNER|FOTO [--offset [-]HH:MM:SS] [-i FORMAT] [-o FORMAT] [--set NAME=WERT]... "
         "EINGABE... AUSGABE",
         "setzt für jedes Foto einen Waypoint an die Stelle des Tracks zur Aufnahmezeit und schreibt alles in die Ausgabe",
         GeotagCommand},
        {"image",
         "ortelix image EINGABE AUSGABE [--colors N] [--depth 1|4|8] [--transparent RRGGBB] [--resize BxH] [--web-safe]",
         "wandelt ein Bild (BMP, PNG, JPEG, GIF) nach der Endung der Ausgabe in BMP, GIF, JPEG oder PNG",
         ImageCommand},
    };
    return table;
}

}  // namespace ortelix
