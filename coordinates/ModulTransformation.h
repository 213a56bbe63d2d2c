#pragma once
// The coordinate routines in one include: datums, grids, distance, geoid.
#include "coordinates/Constants.h"
#include "coordinates/Datum.h"
#include "coordinates/Entfernung.h"
#include "coordinates/GaussKrueger.h"
#include "coordinates/Geoid.h"
#include "coordinates/GridSystems.h"
#include "coordinates/UTM.h"
