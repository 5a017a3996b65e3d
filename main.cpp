// The program: application, engine, main form, run.
#include "core/CutterSelect.h"
#include "core/toolkit/Application.h"
#include "core/toolkit/Wall.h"
#include "engine/Engine.h"

int main(int argc, char** argv)
{
    Application application(argc, argv);
    const auto engine = makeEngine();
    CutterSelect form(*engine);
    guarded([&] { form.Form_Load(); })();
    form.show();
    return application.exec();
}
