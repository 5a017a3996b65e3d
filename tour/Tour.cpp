#include "tour/Tour.h"

#include "core/Errors.h"
#include "core/TimeText.h"
#include "core/WaveScale.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QTextStream>

namespace {

const QStringList titles{QStringLiteral("Daybreak"), QStringLiteral("The Walk"), QString(),
                         QStringLiteral("Rain on Tin"), QStringLiteral("Homeward")};

void say(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl;
}

void type(QLineEdit& field, const QString& text)
{
    QTest::mouseClick(&field, Qt::LeftButton);
    field.selectAll();
    QTest::keyClicks(&field, text);
}

}

Tour::Tour(CutterSelect& form, const QString& outFolder, const QString& sampleFolder)
    : form_(form), out_(outFolder), sample_(sampleFolder + QStringLiteral("/sample.mp3"))
{
    QFile list(sampleFolder + QStringLiteral("/sample.cuts"));
    check(list.open(QIODevice::ReadOnly | QIODevice::Text), QStringLiteral("the list of cuts"));
    for (const QByteArray& line : list.readAll().split('\n'))
        if (const QByteArray number = line.trimmed(); !number.isEmpty() && !number.startsWith('#'))
            cuts_.push_back(number.toInt());
    QDir(out_).removeRecursively();
    QDir().mkpath(out_);
}

void Tour::run()
{
    takePicture(QStringLiteral("started"));
    openSample();
    setCuts();
    nameParts();
    fillTags();
    for (const auto& [option, folder, extension] :
         {std::tuple{1, QStringLiteral("mp3"), QStringLiteral("mp3")},
          {2, QStringLiteral("ogg"), QStringLiteral("ogg")}}) {
        chooseFormat(option);
        saveAll(folder);
        showFiles(folder, extension);
    }
    say(QStringLiteral("%1 pictures of the window in %2").arg(pictures_).arg(out_));
}

void Tour::check(bool isRight, const QString& what)
{
    if (!isRight) throw EngineError(QStringLiteral("the tour failed: ") + what);
}

void Tour::takePicture(const QString& name)
{
    QTest::qWait(0);
    const QString path =
        out_ + QStringLiteral("/%1-%2.png").arg(++pictures_, 2, 10, QLatin1Char('0')).arg(name);
    check(form_.grab().save(path), QStringLiteral("picture ") + path);
}

void Tour::openSample()
{
    dialogs_.expectFile(sample_);
    form_.OpenAudioFile.trigger();
    check(form_.FileLoaded && !form_.Scanning && TotalSamples > 0, QStringLiteral("opening ") + sample_);
    say(QStringLiteral("opened %1: %2, %3")
            .arg(form_.Label1.text(), form_.Label4.text(), form_.Label3.text()));
    takePicture(QStringLiteral("opened"));
}

// A press on the wave puts the position line there; the tool bar's button cuts.
void Tour::setCuts()
{
    for (const std::int32_t sample : cuts_) {
        const double x = xOfSample(form_.Picture1.Width(), TotalSamples, sample);
        QTest::mouseClick(&form_.Picture1, Qt::LeftButton, {}, QPoint(qRound(x / twipsPerPixel), 100));
        form_.Toolbar1.Buttons(8).trigger();
    }
    check(CutCount == static_cast<std::int32_t>(cuts_.size()), QStringLiteral("setting the cuts"));
    takePicture(QStringLiteral("cut"));
}

void Tour::pressBarOfPart(int row)
{
    const double x = xOfSample(form_.Picture1.Width(), TotalSamples,
                               row == 1 ? 0 : CutPoints.at(static_cast<std::size_t>(row - 1)));
    QTest::mouseClick(&form_.Picture1, Qt::LeftButton, {}, QPoint(qRound(x / twipsPerPixel) + 12, 187));
    check(form_.HasSelectedPart && form_.ListView1.selectedRow() == row,
          QStringLiteral("selecting part %1").arg(row));
}

void Tour::nameParts()
{
    for (int row = 1; row <= CutCount + 1; ++row) {
        pressBarOfPart(row);
        if (titles.value(row - 1).isEmpty()) continue;
        type(form_.TextTitle, titles.value(row - 1));
        check(form_.ListView1.cell(row, PartsListView::Title) == titles.value(row - 1),
              QStringLiteral("naming part %1").arg(row));
    }
    pressBarOfPart(2);
    takePicture(QStringLiteral("titled"));
}

void Tour::fillTags()
{
    QTest::mouseClick(&form_.Image22, Qt::LeftButton);
    type(form_.infoArtist, QStringLiteral("The Tourists"));
    type(form_.infoAlbum, QStringLiteral("A minute, cut in five"));
    type(form_.infoYear, QStringLiteral("2026"));
    takePicture(QStringLiteral("tags"));
}

void Tour::chooseFormat(int option)
{
    QTest::mouseClick(&form_.Image24, Qt::LeftButton);
    QTest::mouseClick(&form_.Option1[static_cast<std::size_t>(option)], Qt::LeftButton, {}, QPoint(10, 15));
    check(form_.Option1[static_cast<std::size_t>(option)].isChecked(), QStringLiteral("choosing the format"));
    takePicture(form_.OUTPUTFORMAT.toLower());
}

void Tour::saveAll(const QString& subfolder)
{
    const QString folder = out_ + QLatin1Char('/') + subfolder;
    QDir().mkpath(folder);
    dialogs_.expectFile(folder);
    form_.SaveAllParts.trigger();
    check(dialogs_.isDone() && form_.isEnabled() && !KeepRunning, QStringLiteral("saving all parts"));
}

// The lengths are those that another program reads.
void Tour::showFiles(const QString& subfolder, const QString& extension)
{
    const QDir folder(out_ + QLatin1Char('/') + subfolder);
    const QStringList files = folder.entryList(QDir::Files, QDir::Time | QDir::Reversed);
    check(files.size() == CutCount + 1,
          QStringLiteral("%1 files instead of %2").arg(files.size()).arg(CutCount + 1));
    for (const QString& name : files) {
        check(name.endsWith(extension, Qt::CaseInsensitive), name);
        QProcess probe;
        probe.start(QStringLiteral("ffprobe"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                     QStringLiteral("format=duration"), QStringLiteral("-of"), QStringLiteral("csv=p=0"),
                     folder.filePath(name)});
        check(probe.waitForFinished() && probe.exitCode() == 0, QStringLiteral("reading ") + name);
        const double seconds = probe.readAllStandardOutput().trimmed().toDouble();
        check(seconds > 0, name + QStringLiteral(" has no length"));
        say(QStringLiteral("%1  %2").arg(FormatSeconds(seconds), folder.filePath(name)));
    }
}
