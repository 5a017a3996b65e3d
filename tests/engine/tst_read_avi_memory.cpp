// The memory that an AVI file takes doesn't depend on its length. Each file is read by a process of its own.
#include "tests/engine/AviFixtures.h"

class tst_read_avi_memory : public QObject {
    Q_OBJECT

private slots:
    void aLongFileTakesTheMemoryOfAShortOne();

private:
    QString putLong(const QString& name, int seconds) const;

    SoundFolder files_;
};

/// Plain sound of 8000 Hz in very many chunks.
QString tst_read_avi_memory::putLong(const QString& name, int seconds) const
{
    QFile file(
        files_.put(name, aviFile(headList(pictureStream() + soundStream(pcmForm(1, 8, 8000), 8000, 1)) +
                                 Bytes("LIST") + number(0) + Bytes("movi"))));
    if (!file.open(QIODevice::Append)) qFatal("cannot write %s", qPrintable(name));
    const Bytes second = interleaved(Bytes(8000, '\x81'), 80, 8);
    for (int i = 0; i < seconds; ++i) file.write(second);
    return file.fileName();
}

/// The most memory that a process of its own needs to open a file and to read it to its end: KiB.
static int peakOf(const QString& path)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--peak", path});
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        qFatal("no peak of %s", qPrintable(path));
    return process.readAllStandardOutput().trimmed().toInt();
}

static int printPeak(const QString& path)
{
    FileReader reader;
    reader.Open(path);
    while (!reader.ReadArray(100'000).empty()) {
    }
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) return 1;
    const Bytes text = status.readAll();
    const Bytes line = text.mid(text.indexOf("VmHWM:") + 6);
    std::puts(line.left(line.indexOf("kB")).trimmed().constData());
    return reader.GetTotalSamples() > 0 ? 0 : 1;
}

void tst_read_avi_memory::aLongFileTakesTheMemoryOfAShortOne()
{
    const int shortPeak = peakOf(putLong("short.avi", 60));
    const int longPeak = peakOf(putLong("long.avi", 2 * 3600));
    QVERIFY(shortPeak > 0);
    QVERIFY2(longPeak < shortPeak * 11 / 10, qPrintable(QString("%1 %2").arg(shortPeak).arg(longPeak)));
}

int main(int argc, char* argv[])
{
    if (argc == 3 && QByteArray(argv[1]) == "--peak") return printPeak(QFile::decodeName(argv[2]));
    QCoreApplication app(argc, argv);
    tst_read_avi_memory test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_read_avi_memory.moc"
