#include "encoders/Dialogs.h"

void showMp3Settings(CutterSelect&) {}
void showOggSettings(CutterSelect&) {}
void showWmaSettings(CutterSelect&) {}
