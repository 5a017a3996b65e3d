// Start-up and shutdown of the main form.
#include "core/CutterSelect.h"

#include "core/toolkit/FormHolder.h"
#include "core/toolkit/Pictures.h"
#include "support/Registre.h"
#include "support/SubClass.h"
#include "waveform/Form2.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>

namespace {

constexpr Twips windowWidth = 10860;
constexpr Twips windowHeight = 8340;
constexpr std::int32_t genreCount = 148;

QPointer<QWidget> focusBeforeJob;    // a disabled window lets go of it

}

CutterSelect::CutterSelect(AudioEngine& engine)
    : CutterSelectControls(static_cast<QMainWindow&>(*this)), engine(engine)
{
    MainForm = this;
    setWindowIcon(icon(QStringLiteral("app")));
    attachMenus();
    attachButtons();
    attachSurfaces();
    attachFields();
    attachKeys();
}

CutterSelect::~CutterSelect()
{
    // A field that has the focus loses it as it goes, when the list behind it may be gone already.
    for (QWidget* widget : findChildren<QWidget*>()) widget->removeEventFilter(this);
    ProgressForm.unload();
    if (MainForm == this) MainForm = nullptr;
}

void CutterSelect::Form_Load()
{
    LocateIniFile();
    SetWindowLimits(*this, windowWidth, windowHeight);
    loadLanguageOfSettings();
    ListButton = 0;
    createEngineObjects();
    InitOutputFormat();
    AudioPlayer->SetVolume(fullVolume);

    Frequency = 44100;
    Channels = 2;
    Peaks.assign(1, 0);
    IsPlaying = false;
    ResetCenterLines();
    Picture1.Cls();
    Line2.setX(0);
    Picture2.hide();
    Line6.setVisible(false);
    IndicTime.setLeft(-IndicTime.Width() / 2);
    ToolMode = 1;
    FileLoaded = false;
    DrawRulerAndMarkers();
    Picture1.Refresh();
    Picture1.setFocus();    // else the first tool has it, and the space bar would press that
    ClearPartDetails();
    Label3.setText(langText(46) + QStringLiteral(" : ") + QString::fromLatin1("00:00.00"));
}

void CutterSelect::createEngineObjects()
{
    FileR = engine.makeFile();
    FileRe = engine.makeFile();
    FileWenc = engine.makeFile();
    AudioTags = engine.makeTag();
    MP3LameEncoderMain = engine.makeMp3Format();
    infoGenre.clear();
    for (std::int32_t i = 0; i < genreCount; ++i) infoGenre.addItem(AudioTags->GetGenreName(i));
    infoGenre.setCurrentIndex(-1);
    AudioPlayer = engine.makePlayer();
    attachPlayer();
}

// The player may be in the middle of an event of its own here, so the engine's objects go with the form, once
// the event loop has been left.
void CutterSelect::Form_Unload()
{
    if (IsPlaying) StopPlayback();
    ProgressForm.unload();
    QCoreApplication::exit(0);
}

void CutterSelect::closeEvent(QCloseEvent* event)
{
    // The close box works on a disabled window too.
    if (!isEnabled()) {
        event->ignore();
        return;
    }
    event->accept();
    Form_Unload();
}

void CutterSelect::DisableMainForm()
{
    if (isEnabled()) focusBeforeJob = focusWidget();
    setEnabled(false);
    if (ProgressForm.loaded()) ProgressForm->setEnabled(true);
}

void CutterSelect::EnableMainForm()
{
    setEnabled(true);
    if (focusWidget()) return;
    const bool isThere = focusBeforeJob && isAncestorOf(focusBeforeJob) && focusBeforeJob->isEnabled();
    (isThere ? focusBeforeJob.data() : &Picture1)->setFocus();
}
