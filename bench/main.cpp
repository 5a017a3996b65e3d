// The real program, driven for bench/run. Times go to standard output, one line for each job:
//   start, from the start of the process to the first paint
//   open FILE, as the user does it
//   save FORMAT FILE START LENGTH TARGET, a stretch in samples of a file opened before
//   save-all FORMAT FILE CUTS FOLDER, all parts between the cuts of a file opened before
//   extract FORMAT VIDEO TARGET, the sound of a video
//   draw FILE CUTS, every zoom level of a file opened before
// FORMAT is MP3, OGG, WMA or WAV. Settings are those of a fresh installation when XDG_CONFIG_HOME is empty.
#include "bench/Bench.h"
#include "bench/FormBench.h"
#include "core/toolkit/Application.h"

#include <cstdio>

namespace {

constexpr auto usage =
    "usage: quillon-bench start | open FILE | save FORMAT FILE START LENGTH TARGET |\n"
    "       save-all FORMAT FILE CUTS FOLDER | extract FORMAT VIDEO TARGET | draw FILE CUTS\n";

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
    } else if (job == QLatin1String("extract") && a.size() == 4) {
        bench.extract(a.at(1), a.at(2), a.at(3));
    } else if (job == QLatin1String("draw") && a.size() == 3) {
        bench.open(a.at(1));
        bench.setCuts(readCuts(a.at(2)));
        bench.redraw();
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
