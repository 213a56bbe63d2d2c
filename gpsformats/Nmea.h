#pragma once
// NMEA 0183 logs: the line decoder, the log reader and writer, and the
// file tools that serve such logs (the sentence filter, the line ends).
#include "gpsformats/NmeaDecode.h"
#include "gpsformats/NmeaLogReader.h"
#include "gpsformats/NmeaLogWriter.h"
#include "gpsformats/NmeaTools.h"
