// A disk that takes no more: an error that is told, once, and a writer that serves again afterwards.
#include "core/Errors.h"
#include "engine/FullDisk.h"
#include "engine/WriteTools.h"

#include <QTest>

using namespace tools;

namespace {

using SetFormat = void (*)(FileWriter&);

void addFormats()
{
    QTest::addColumn<SetFormat>("set");
    const auto row = [](const char* name, SetFormat set) { QTest::addRow("%s", name) << set; };
    row("WAV", [](FileWriter& w) { w.SetFormatPCM(44100, 2, 16); });
    row("MP3", [](FileWriter& w) { w.SetFormatMP3Simple(44100, 320, 2); });
    row("Ogg", [](FileWriter& w) { w.SetFormatOggVorbis(44100, 2, 128, 0, 0, 1000); });
    row("WMA", [](FileWriter& w) { w.SetFormatWMA(44); });
}

void writeUntilItFails(FileWriter& writer)
{
    const SampleArray second = music(44100, 2, 44100);
    for (int i = 0; i < 120; ++i) writer.WriteArray(second);
}

}

Q_DECLARE_METATYPE(SetFormat)

class tst_write_faults : public QObject {
    Q_OBJECT
private slots:
    void aFullDiskFailsWriteArray_data() { addFormats(); }
    void aFullDiskFailsWriteArray();
    void whatIsToldIsNotToldAgainAtClose_data() { addFormats(); }
    void whatIsToldIsNotToldAgainAtClose();
    void aDiskThatFillsAtTheEndFailsClose_data() { addFormats(); }
    void aDiskThatFillsAtTheEndFailsClose();
    void theWriterServesAgain_data() { addFormats(); }
    void theWriterServesAgain();
    void whatFittedOnTheDiskCanBeHeard_data();
    void whatFittedOnTheDiskCanBeHeard();
    void destroyingTheWriterIsSafe();
};

void tst_write_faults::aFullDiskFailsWriteArray()
{
    QFETCH(SetFormat, set);
    Folder folder;
    FileWriter writer;
    set(writer);
    writer.Create(folder / "a");
    const FullDisk disk(700000);
    QVERIFY_THROWS_EXCEPTION(EngineError, writeUntilItFails(writer));
    QVERIFY_THROWS_EXCEPTION(EngineError, writeUntilItFails(writer));
    QVERIFY(QFileInfo(folder / "a").size() <= 700000);
}

void tst_write_faults::whatIsToldIsNotToldAgainAtClose()
{
    QFETCH(SetFormat, set);
    Folder folder;
    FileWriter writer;
    set(writer);
    writer.Create(folder / "a");
    const FullDisk disk(700000);
    QVERIFY_THROWS_EXCEPTION(EngineError, writeUntilItFails(writer));
    writer.Close();
    QVERIFY(!writer.isOpen());
}

void tst_write_faults::aDiskThatFillsAtTheEndFailsClose()
{
    QFETCH(SetFormat, set);
    Folder folder;
    FileWriter writer;
    set(writer);
    writer.Create(folder / "a");
    writer.WriteArray(music(44100, 2, 44100));
    const FullDisk disk(20000);
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Close());
    QVERIFY(!writer.isOpen());
    writer.Close();
}

void tst_write_faults::theWriterServesAgain()
{
    QFETCH(SetFormat, set);
    Folder folder;
    FileWriter writer;
    set(writer);
    {
        writer.Create(folder / "a");
        const FullDisk disk(700000);
        QVERIFY_THROWS_EXCEPTION(EngineError, writeUntilItFails(writer));
    }
    save(writer, folder / "a", music(44100, 2, 44100));
    QVERIFY(decode(folder / "a").size() >= 2 * 44100);
}

void tst_write_faults::whatFittedOnTheDiskCanBeHeard_data()
{
    QTest::addColumn<bool>("roomAgain");
    QTest::addRow("the disk stays full") << false;
    QTest::addRow("there is room again at Close") << true;
}

void tst_write_faults::whatFittedOnTheDiskCanBeHeard()
{
    QFETCH(bool, roomAgain);
    Folder folder;
    const SampleArray sound = music(44100, 2, 300000);
    FileWriter writer;
    writer.Create(folder / "a.wav");
    {
        const FullDisk disk(1000081);
        QVERIFY_THROWS_EXCEPTION(EngineError, {
            for (std::size_t at = 0; at < sound.size(); at += 20000)
                writer.WriteArray(SampleArray(sound.begin() + static_cast<long>(at),
                                              sound.begin() + static_cast<long>(at) + 20000));
        });
        if (!roomAgain) writer.Close();
    }
    writer.Close();
    QCOMPARE(decode(folder / "a.wav"), SampleArray(sound.begin(), sound.begin() + 500000));
}

void tst_write_faults::destroyingTheWriterIsSafe()
{
    Folder folder;
    const FullDisk disk(20000);
    {
        FileWriter writer;
        writer.SetFormatMP3Simple(44100, 128, 2);
        writer.Create(folder / "a");
        writer.WriteArray(music(44100, 2, 88200));
    }
    QCOMPARE(QFileInfo(folder / "a").size(), 20000);
}

QTEST_GUILESS_MAIN(tst_write_faults)
#include "tst_write_faults.moc"
