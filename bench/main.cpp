// The real program, driven for bench/run:
//   quillon-bench start                                     time from the start of the process to the first
//   paint quillon-bench open FILE                                 opens it as the user does quillon-bench
//   save FORMAT FILE START LENGTH TARGET      opens FILE, then saves a stretch of it, in samples
//   quillon-bench save-all FORMAT FILE CUTS FOLDER          opens FILE, then saves all parts between the cuts
//   quillon-bench draw FILE CUTS                            opens FILE, then redraws it at every zoom level
// FORMAT: MP3 OGG WMA WAV. Settings are those of a fresh installation when XDG_CONFIG_HOME is an empty
// folder.
#include "bench/Bench.h"
#include "bench/FormBench.h"
#include "core/toolkit/Application.h"

#include <cstdio>

namespace {

constexpr auto usage = "usage: quillon-bench start | open FILE | save FORMAT FILE START LENGTH TARGET |\n"
                       "       save-all FORMAT FILE CUTS FOLDER | draw FILE CUTS\n";

int run(const QStringList& a)
{
    const QString job = a.value(0);
    FormBench bench;
    if (job == QLatin1String("start") && a.size() == 1) {
        printFirstPaint(bench.form());
    } else if (job == QLatin1String("open") && a.size() == 2) {
        bench.open(a.at(1));
    } else if (job == QLatin1String("save") && a.size() == 6) {
        bench.open(a.at(2));
        bench.save(a.at(1), a.at(3).toInt(), a.at(4).toInt(), a.at(5));
    } else if (job == QLatin1String("save-all") && a.size() == 5) {
        bench.open(a.at(2));
        bench.saveAll(a.at(1), readCuts(a.at(3)), a.at(4));
    } else if (job == QLatin1String("draw") && a.size() == 3) {
        bench.open(a.at(1));
        bench.setCuts(readCuts(a.at(2)));
        bench.redraw();
        bench.scroll();
    } else {
        std::fputs(usage, stderr);
        return 2;
    }
    return 0;
}

}

int main(int argc, char** argv)
{
    try {
        const Application application(argc, argv);
        return run(application.arguments().mid(1));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quillon-bench: %s\n", error.what());
        return 1;
    }
}
