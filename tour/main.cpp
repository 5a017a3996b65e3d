// quillon-tour OUTFOLDER: exit status 0 only when every step of the tour has done what it should.
#include "core/toolkit/Application.h"
#include "engine/Engine.h"
#include "support/Registre.h"
#include "tour/Tour.h"

#include <cstdio>

int main(int argc, char** argv)
{
    Application application(argc, argv);
    setProgramFolder(QStringLiteral(QUILLON_PROGRAM_FOLDER));
    const auto engine = makeEngine();
    try {
        CutterSelect form(*engine);
        form.Form_Load();
        form.show();
        Tour(form, QString::fromLocal8Bit(argc > 1 ? argv[1] : "tour-out"), QStringLiteral(QUILLON_SAMPLES))
            .run();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
