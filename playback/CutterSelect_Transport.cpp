// Playing: the file from the position line to its end, or a part exactly. The player is fed arrays and calls
// back for more.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "core/toolkit/Events.h"
#include "playback/FeedPlan.h"

void CutterSelect::PlayFile(const QString&)
{
    try {
        PlayWhole = true;
        if (IsPlaying) StopPlayback();
        PlayFeeding = true;
        if (FileR->IsClosed()) return;
        PlayPosition = 0;
        if (FileR->GetTotalSamples() == 0) return;
        PlayPosition = FileR->Seek(sampleOfX(Picture1.Width(), FileR->GetTotalSamples(), Line2.X1()));
        AudioPlayer->SetFormat(FileR->GetOutputRate(), FileR->GetChannels());
        PlayBlock = AudioPlayer->MsToSamples(4000);
        if (!startPlayer()) return;
        PlayFeeding = true;
        FeedPlayer();
        FeedPlayer();
    } catch (const std::exception&) {
        failPlay();
    }
}

void CutterSelect::PlayRange(const QString& path, std::int32_t start, std::int32_t length)
{
    try {
        PlayWhole = false;
        if (IsPlaying) StopPlayback();
        if (path.isEmpty() || FileR->IsClosed()) return;
        PlayPosition = 0;
        if (FileR->GetTotalSamples() == 0) return;
        PlayPosition = start;
        AudioPlayer->SetFormat(FileR->GetOutputRate(), FileR->GetChannels());
        FileR->Seek(start);
        PlayLength = length;
        PlayFrom = start;
        PlayFed = 0;
        PlayBlock = std::min(length, partBlock);
        if (!startPlayer()) return;
        PlayFeeding = true;
        FeedPlayer();    // one array plays while
        FeedPlayer();    // the next lies ready
    } catch (const std::exception&) {
        failPlay();
    }
}

// The flags stay as they are. The stream ends first: under the message it would ask for more, and fail again.
void CutterSelect::failPlay()
{
    try {
        AudioPlayer->Stop();
    } catch (const std::exception&) {
    }
    MsgBox(langText(75), Icon::Exclamation);
}

// Kept: where the device can't be opened the reader is closed without a word, and `IsPlaying` stays; of the
// whole file `PlayFeeding` stays too.
bool CutterSelect::startPlayer()
{
    IsPlaying = true;
    AudioPlayer->Start();
    if (!AudioPlayer->GetFailed()) return true;
    FileR->Close();
    return false;
}

// Kept: an array of a single sample, which a mono part can end with, isn't played.
void CutterSelect::FeedPlayer()
{
    if (!PlayFeeding) return;
    if (PlayWhole) {
        SampleArray samples = FileR->ReadArray(PlayBlock);
        if (samples.size() > 1) AudioPlayer->PlayArray(std::move(samples));
    } else if (PlayFed > PlayLength) {
        StopPlayback();
    } else {
        PlayBlock = nextBlock(PlayFed, PlayLength);
        SampleArray samples = FileR->ReadArray(PlayBlock);
        if (samples.size() > 1) AudioPlayer->PlayArray(std::move(samples));
        PlayFed += PlayBlock;
    }
}

void CutterSelect::StopPlayback()
{
    try {
        AudioPlayer->Stop();
        PlayFeeding = false;
        IsPlaying = false;
        if (!HasSelectedPart) ResetCenterLines();
    } catch (const std::exception&) {
    }
}

void CutterSelect::Image9_Click()
{
    if (!FileLoaded || Scanning) return;
    if (!HasSelectedPart) {
        MsgBox(langText(78), Icon::Information);
        return;
    }
    PlayFed = 0;
    const Stretch part = stretchOf(SelectedPart, CutPoints, CutCount, TotalSamples);
    PlayRange(CurrentFile, part.start, part.length);
}

void CutterSelect::Image10_Click()
{
    if (FileLoaded && !Scanning) ToolbarCommand(12);
}

void CutterSelect::AudioPlayer_RequestOnLoadArray()
{
    FeedPlayer();
}

void CutterSelect::AudioPlayer_EndPlay()
{
    StopPlayback();
    PlayFeeding = false;
    positionToStart();
}

void CutterSelect::AudioPlayer_Timer(std::int32_t position)
{
    if (!PlayFeeding) return;
    Label2.setText(playingText(AudioPlayer->SamplesToMs(PlayPosition + position)));
    if (!TimeDrag) movePositionWhilePlaying(PlayPosition + position);
    giveWay();
}

void CutterSelect::movePositionWhilePlaying(std::int32_t position)
{
    const std::int32_t total = FileR->GetTotalSamples();
    if (total == 0) return;
    const auto x = static_cast<Twips>(position / (static_cast<double>(total) / Picture1.Width()));
    if (x == Line2.X1()) return;
    placePositionLine(x);
    Line2.bringToFront();
    followHighlight();
}

void CutterSelect::positionToStart()
{
    placePositionLine(0);
    Label2.setText(QString::fromLatin1(zeroTime));
}

// The stream goes on from another place. Kept: a part in play keeps its count, so it plays on for the rest of
// its length. There is no stream where the device couldn't be opened: the reader is closed and `IsPlaying` is
// still set.
void CutterSelect::reposition(const std::function<std::int32_t()>& place)
{
    if (FileR->IsClosed()) return;
    AudioPlayer->ClearQueue();
    PlayPosition = FileR->Seek(place());
    FeedPlayer();
    FeedPlayer();
}
