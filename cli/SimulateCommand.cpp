// ortelix simulate: the NMEA simulator without its form. The same engine and
// the same sentences, on the real clock: a cycle every half second to the
// port, and the automatic run along the source, faster with --speedup.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/ModulShared.h"
#include "simulator/ModulNMEASim.h"

namespace ortelix {

namespace {

constexpr const char* kUsage =
    "Aufruf: ortelix simulate --port GERÄT [--source track|route|waypoint|direct] [--input DATEI]... "
    "[--speedup N] [--cycles N | --until-end] [--lon L --lat B --speed V --course C --alt H]";
// After the end of the source a cycle or two more, so that the receiver
// gets the last position whole.
constexpr long long kNachlauf = 2;

struct SimulateFlags {
    std::string port, source;
    std::vector<std::string> inputs;
    std::string speedup;
    long long cycles = 0;  // 0: no limit
    bool untilEnd = false;
    // --lon, --lat, --speed, --course, --alt as given
    std::string lon, lat, speed, course, alt;
    std::vector<std::string> rest;  // for the common flags (--set, -i)
};

bool IsNumber(const std::string& t) {
    double v = 0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    return !t.empty() && r.ec == std::errc() && r.ptr == t.data() + t.size() && std::isfinite(v);
}

// Takes the simulator's own flags; the rest goes to the common ones.
bool ReadFlags(const std::vector<std::string>& args, SimulateFlags& f, std::string& error) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&](std::string& into) {
            if (i + 1 >= args.size()) {
                error = "Dem Schalter " + a + " fehlt ein Wert";
                return false;
            }
            into = args[++i];
            return true;
        };
        auto number = [&](std::string& into) {
            if (!value(into)) return false;
            if (IsNumber(into)) return true;
            error = a + " erwartet eine Zahl: " + into;
            return false;
        };
        std::string v;
        if (a == "--port") {
            if (!value(f.port)) return false;
        } else if (a == "--source") {
            if (!value(f.source)) return false;
        } else if (a == "--input") {
            if (!value(v)) return false;
            f.inputs.push_back(v);
        } else if (a == "--speedup") {
            if (!number(f.speedup)) return false;
            if (std::stod(f.speedup) <= 0) {
                error = "--speedup erwartet eine Zahl über 0: " + f.speedup;
                return false;
            }
        } else if (a == "--cycles") {
            if (!value(v)) return false;
            const auto r = std::from_chars(v.data(), v.data() + v.size(), f.cycles);
            if (r.ec != std::errc() || r.ptr != v.data() + v.size() || f.cycles < 1) {
                error = "--cycles erwartet eine ganze Zahl über 0: " + v;
                return false;
            }
        } else if (a == "--until-end") {
            f.untilEnd = true;
        } else if (a == "--lon") {
            if (!number(f.lon)) return false;
        } else if (a == "--lat") {
            if (!number(f.lat)) return false;
        } else if (a == "--speed") {
            if (!number(f.speed)) return false;
        } else if (a == "--course") {
            if (!number(f.course)) return false;
        } else if (a == "--alt") {
            if (!number(f.alt)) return false;
        } else {
            f.rest.push_back(a);
        }
    }
    if (f.port.empty()) error = "--port fehlt";
    else if (f.cycles > 0 && f.untilEnd) error = "--cycles und --until-end schließen einander aus";
    if (f.source.empty()) f.source = f.inputs.empty() ? "direct" : "track";
    if (error.empty() && f.source == "direct" && f.untilEnd) error = "--until-end braucht eine Quelle mit einem Ende";
    return error.empty();
}

bool QuelleOf(const std::string& name, SimQuelle& q) {
    if (name == "track") q = SimQuelle::Track;
    else if (name == "route") q = SimQuelle::Route;
    else if (name == "waypoint") q = SimQuelle::Waypoint;
    else if (name == "direct") q = SimQuelle::Direkt;
    else return false;
    return true;
}

// The values given on the command line into the boxes.
void SetBoxes(Options& o, const SimulateFlags& f) {
    auto& box = o.NMEABox;
    if (!f.lon.empty()) GradMinutenSchreiben(std::stod(f.lon), box[0], box[1]);
    if (!f.lat.empty()) GradMinutenSchreiben(std::stod(f.lat), box[2], box[3]);
    if (!f.alt.empty()) box[4] = f.alt;
    if (!f.speed.empty()) box[5] = f.speed;
    if (!f.course.empty()) box[6] = f.course;
}

void Progress(const SimEngine& e) {
    const auto& par = e.anzeige.LabelNMEAPar;
    std::fprintf(stderr, "Zyklus %lld: %s %s, %s km/h, %s Grad, %s m, %s %s", e.zyklen, par[1].c_str(),
                 par[0].c_str(), par[2].c_str(), par[3].c_str(), par[4].c_str(), par[6].c_str(), par[7].c_str());
    if (e.auswahl.quelle != SimQuelle::Direkt)
        std::fprintf(stderr, ", Punkt %d von %d%s", e.HScrollNMEA, e.HScrollMaxValue, e.SimRun ? "" : ", Ende");
    std::fputc('\n', stderr);
}

}  // namespace

int SimulateCommand(const std::vector<std::string>& args) {
    SimulateFlags f;
    std::string error;
    SimQuelle quelle = SimQuelle::Direkt;
    if (!ReadFlags(args, f, error) || !QuelleOf(f.source, quelle)) {
        std::fprintf(stderr, "%s\n%s\n", error.empty() ? ("Unbekannte Quelle: " + f.source).c_str() : error.c_str(),
                     kUsage);
        return 2;
    }
    CliContext ctx;
    if (!PrepareCli(ctx, f.rest)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    if (!ctx.positional.empty()) {
        std::fprintf(stderr, "Unerwartetes Argument: %s\n%s\n", ctx.positional.front().c_str(), kUsage);
        return 2;
    }
    for (const std::string& in : f.inputs)
        if (!ReadInput(ctx, in, ctx.inputFormat)) return 1;
    Session& s = *ctx.session;
    if (!f.speedup.empty()) s.options.NMEASimFaktor = f.speedup;
    WaehleQuelle(s.options, quelle);

    SimEngine engine(s);
    if (!f.speed.empty()) engine.ersatzSpeed = std::stod(f.speed);
    if (quelle != SimQuelle::Direkt) {
        engine.SimPunkt();
        if (ElementAnzahl(s.store, engine.auswahl) == 0) {
            std::fprintf(stderr, "Keine Daten für die Quelle %s\n", f.source.c_str());
            return 1;
        }
    }
    SetBoxes(s.options, f);
    if (!engine.SimRunOn(f.port)) return 1;  // the console has told why
    std::fprintf(stderr, "%s\n", engine.anzeige.Status.c_str());

    long long last = 0, endAt = -1;
    for (;;) {
        engine.Warte();
        if (engine.zyklen != last) {
            last = engine.zyklen;
            Progress(engine);
        }
        if (f.cycles > 0 && engine.zyklen >= f.cycles) break;
        if (f.untilEnd && !engine.SimRun) {
            if (endAt < 0) endAt = engine.zyklen;
            if (engine.zyklen >= endAt + kNachlauf) break;
        }
    }
    const long long failed = engine.schreibFehler, sent = engine.zyklen;
    engine.SimStop();
    if (failed > 0) std::fprintf(stderr, "%lld von %lld Zyklen konnten nicht gesendet werden\n", failed, sent);
    return failed == sent ? 1 : 0;
}

}  // namespace ortelix
