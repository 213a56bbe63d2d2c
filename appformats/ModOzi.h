#pragma once
// The OziExplorer files in one include: tracks, waypoints, routes, CE routes,
// the batch export and the calibration file with its areas and comments.
#include "appformats/ModOziCERoute.h"
#include "appformats/ModOziExport.h"
#include "appformats/ModOziMap.h"
#include "appformats/ModOziMapComments.h"
#include "appformats/ModOziMapCopy.h"
#include "appformats/ModOziRoute.h"
#include "appformats/ModOziTrack.h"
#include "appformats/ModOziWaypoint.h"
