// The settings dialogs of the encoders, as the main form opens them: filled, then shown modally.
#pragma once

class CutterSelect;

void showMp3Settings(CutterSelect& form);
void showOggSettings(CutterSelect& form);
void showWmaSettings(CutterSelect& form);
