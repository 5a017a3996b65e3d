// quillon-bench-play: plays a song in the real window, on a sound server of its own, and prints a table of
// what it measured. Takes no arguments and four minutes.
#include "bench/PlayBench.h"
#include "core/Errors.h"
#include "core/toolkit/Application.h"
#include "tests/support/PulseServer.h"

#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr std::int32_t tenMinutes = 600 * 44100;

void run(const QString& folder)
{
    PulseServer server;
    if (!server.start()) throw EngineError(QStringLiteral("the sound server doesn't start"));
    PlayBench bench(folder, tenMinutes);
    std::puts("| playing | measured | median | worst |\n|---|---|---|---|");
    bench.startToSound();
    bench.clickToSound();
    for (const int zoom : {0, 7}) bench.stalls(zoom);
    for (const int zoom : {0, 7}) bench.cpu(zoom);
}

}

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, folder.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    try {
        const Application application(argc, argv);
        run(folder.path());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quillon-bench-play: %s\n", error.what());
        return 1;
    }
}
