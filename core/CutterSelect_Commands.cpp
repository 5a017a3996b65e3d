// The one dispatcher of the tool bar and of the menu that shares its commands.
#include "core/CutterSelect.h"

void CutterSelect::ToolbarCommand(std::int16_t index)
{
    const bool isReady = FileLoaded && !Scanning;
    switch (index) {
    case 1:
        OpenAudioFile_Click();
        break;
    case 2:
        if (!Scanning) CloseAudioFile_Click();
        break;
    case 4:
        if (isReady) zoomIn();
        break;
    case 5:
        if (isReady && ZoomLevel != 0) zoomOut();
        break;
    case 6:
        if (isReady && ZoomLevel != 0) restoreAspect();
        break;
    case 8:
        SetCutPoint_Click();
        break;
    case 10:
        if (isReady) PlayFile(Label1.text());
        break;
    case 11:
        if (isReady) StopPlayback();
        break;
    case 12:
        if (isReady) stopAtStart();
        break;
    case 14:
        Image9_Click();
        break;
    case 15:
        Image8_Click();
        break;
    default:
        break;
    }
}

void CutterSelect::stopAtStart()
{
    StopPlayback();
    ResetCenterLines();
    positionToStart();
}

void CutterSelect::Quitter_Click()
{
    close();
}
