#pragma once
// The NMEA simulator in one include: the sentences of a cycle and the engine
// that sends them.
#include "simulator/JoyStick.h"
#include "simulator/NmeaSentences.h"
#include "simulator/SimBoxes.h"
#include "simulator/SimEngine.h"
#include "simulator/SimQuelle.h"
#include "simulator/SimTimers.h"
#include "simulator/SimVersatz.h"
