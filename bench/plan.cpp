// The export plan at its largest: 300 km x 300 km in 1 km parts (90,000),
// cut with the nine-point inside test and sorted north to south.
#include <benchmark/benchmark.h>

#include "coordinates/GaussKrueger.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "mapexport/ModKarteFlaeche.h"

namespace {

using namespace ortelix;

// A square of 300 km on meridian 9, its edges along the grid by a corner
// every kilometre (straight lines in degrees would bow inside it); 10 m
// short of 300 km, since the series there and back stretch a northing by
// some centimetres over 300 km and a 301st row would begin.
void SetUpPlan(Session& s) {
    s.options.MapExpCheck[11] = 1;  // "Karten teilen"
    s.options.MapExpCheck[2] = 1;   // no parts outside the area
    s.options.ZahlInput[1] = "1";
    s.options.ZahlInput[2] = "0";
    Flaeche& f = NewFlaeche(s.store);
    const auto corner = [&](double r, double h) {
        double lon, lat;
        GKNachGeoMeridian(3500000 + r, 5350000 + h, 9, lon, lat);
        f.Polygon.push_back({lon, lat});
    };
    constexpr double kHalf = 149995, kSide = 299990;
    for (int i = 0; i < 300; ++i) corner(-kHalf + i * kSide / 300, kSide);
    for (int i = 0; i < 300; ++i) corner(kHalf, kSide - i * kSide / 300);
    for (int i = 0; i < 300; ++i) corner(kHalf - i * kSide / 300, 0);
    for (int i = 0; i < 300; ++i) corner(-kHalf, i * kSide / 300);
}

void BM_TeileAlleFlaechen(benchmark::State& state) {
    FuzzPlatform p;
    Session s(p);
    SetUpPlan(s);
    for (auto _ : state) {
        TeileAlleFlaechen(s, 9);
        benchmark::DoNotOptimize(s.plan.KartenTeilListe.data());
    }
    state.counters["parts"] = static_cast<double>(s.plan.KartenTeilListe.size());
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(s.plan.KartenTeilListe.size()));
}
BENCHMARK(BM_TeileAlleFlaechen)->Unit(benchmark::kMillisecond);

void BM_SortiereKarten(benchmark::State& state) {
    FuzzPlatform p;
    Session s(p);
    SetUpPlan(s);
    TeileAlleFlaechen(s, 9);  // rows from the south: the sort reverses them
    const std::vector<KartenTeil> cut = s.plan.KartenTeilListe;
    for (auto _ : state) {
        state.PauseTiming();
        s.plan.KartenTeilListe = cut;
        state.ResumeTiming();
        SortiereKarten(s);
        benchmark::DoNotOptimize(s.plan.KartenTeilListe.data());
    }
    state.counters["parts"] = static_cast<double>(cut.size());
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(cut.size()));
}
BENCHMARK(BM_SortiereKarten)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
