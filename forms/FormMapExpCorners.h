#pragma once
// The corner entry of the export form ("Koordinaten Eingabe"): a part's edges
// as degrees and minutes in the eight fields, back into the plan, and the
// removal of a part. Pure functions over the session; the form only binds.
#include <array>
#include <cstddef>
#include <string>

namespace ortelix {

class Session;
struct KartenTeil;

// North, west, south and east edge, each as whole degrees and the minutes
// that remain (fields 0/1, 2/3, 4/5, 6/7).
std::array<std::string, 8> EckenFelder(const KartenTeil& t);
// Stores the fields (degrees plus minutes/60) into part `nr` (from 1); with
// no plan at all a plan of one part is made. Returns the part's number.
size_t EckenUebernehmen(Session& s, size_t nr);
// Removes part `nr`; the later parts move down. With fewer than two parts
// nothing happens (false).
bool TeilLoeschen(Session& s, size_t nr);

}  // namespace ortelix
