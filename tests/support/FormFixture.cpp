#include "support/FormFixture.h"

#include "core/WaveScale.h"
#include "core/toolkit/FormHolder.h"
#include "core/toolkit/Wall.h"
#include "support/Registre.h"
#include "waveform/Form2.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

void resetShared()
{
    PartTable.assign(1, {});
    CutPoints.fill(0);
    CutCount = 0;
    CurrentFile.clear();
    TempCutPath.clear();
    TempFolder.clear();
    TotalSamples = 0;
    SampleRate = 0;
    KeepRunning = false;
    LangId = 0;
    LangText.assign(1, {});
}

}

FormFixture::FormFixture()
{
    qputenv("XDG_CONFIG_HOME", path(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", path(QStringLiteral("cache")).toLocal8Bit());
    qunsetenv("TMPDIR");
    QDir(folder_.path()).mkdir(QStringLiteral("config"));
    setProgramFolder(QStringLiteral(QUILLON_PROGRAM_FOLDER));
    resetShared();
    journal().clear();
    journal().onCommand = nullptr;
    fatal = [this](const std::exception& error) { fatals << QString::fromUtf8(error.what()); };
    endProcess = [this](int status) { ended << status; };
    LocateIniFile();
}

FormFixture::~FormFixture()
{
    journal().onCommand = nullptr;
    form.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

CutterSelect& FormFixture::load()
{
    form.emplace(engine);
    form->Form_Load();
    form->show();
    return *form;
}

CutterSelect& FormFixture::open(const FakeSound& sound, std::initializer_list<std::int32_t> cuts)
{
    if (!form) load();
    const QString song = QStringLiteral("/music/song.mp3");
    engine.disk[song] = sound;
    dialogs.files.push_back(song);
    form->OpenAudioFile_Click();
    for (const std::int32_t cut : cuts) cutAt(cut);
    journal().clear();
    return *form;
}

void FormFixture::cutAt(std::int32_t sample)
{
    form->Line2.setX(twipsOfSample(form->Picture1.Width(), TotalSamples, sample));
    form->SetCutPoint_Click();
    // The line stands on single-precision twips: put the cut on the very sample that the test speaks of.
    for (std::int32_t i = 1; i <= CutCount; ++i) {
        auto& cut = CutPoints.at(static_cast<std::size_t>(i));
        if (std::abs(cut - sample) > 2 || cut == sample) continue;
        for (PartRecord& part : PartTable)
            if (part.StartSample == cut) part.StartSample = sample;
        cut = sample;
    }
    form->DrawRulerAndMarkers();
    form->DrawTrackBar();
}

int FormFixture::pixelOf(std::int32_t sample) const
{
    return static_cast<int>(xOfSample(form->Picture1.Width(), TotalSamples, sample) / twipsPerPixel);
}

void FormFixture::pressBarOfRow(int row, Qt::MouseButton button)
{
    const std::int32_t start = row == 1 ? 0 : CutPoints.at(static_cast<std::size_t>(row - 1));
    press(form->Picture1, QPoint(pixelOf(start) + 4, 187), button);
}

void FormFixture::writeSetting(const QString& section, const QString& key, const QString& value)
{
    IniWrite(IniPath, section, key, value);
}

QString FormFixture::setting(const QString& section, const QString& key) const
{
    return IniRead(IniPath, section, key);
}

QString FormFixture::settingsText() const
{
    QFile file(IniPath);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void press(QWidget& widget, QPoint at, Qt::MouseButton button)
{
    QTest::mouseClick(&widget, button, {}, at);
}
