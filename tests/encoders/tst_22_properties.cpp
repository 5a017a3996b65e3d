// The 22 stored properties of the MP3 encoder: two values each, from the settings file to a saved part, and
// what is different in it. A property that the encoder has no use for is named as such: the sound is the
// same, bit for bit.
#include "encoders/Mp3Stream.h"
#include "encoders/RealDesk.h"

namespace {

struct SavedPart {
    Mp3Stream stream;
    SampleArray sound;
};

using Witness = QString (*)(const SavedPart&);
using Stored = QMap<QString, QString>;    // texts by key

SavedPart savedWith(Stored stored, const QString& key, const QString& value)
{
    stored[key] = value;
    RealDesk desk;
    for (auto entry = stored.cbegin(); entry != stored.cend(); ++entry)
        IniWrite(IniPath, "Mp3", entry.key(), entry.value());
    desk.form.ApplyMp3Settings();
    const QString path = desk.save(part(), "a.mp3");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no file");
    return {Mp3Stream(file.readAll()), heard(path)};
}

// ---- what a part shows

QString kbit(const SavedPart& p)
{
    return QString::number(p.stream.frames.at(10).kbit);
}
QString hertz(const SavedPart& p)
{
    return QString::number(p.stream.frames.front().hertz);
}
QString emphasis(const SavedPart& p)
{
    return QString::number(p.stream.frames.front().emphasis);
}
QString checksum(const SavedPart& p)
{
    return p.stream.frames.front().hasChecksum ? "checksum" : "none";
}
QString tag(const SavedPart& p)
{
    return p.stream.tagName;
}

QString mode(const SavedPart& p)
{
    static const char* const names[] = {"stereo", "joint", "dual", "mono"};
    return names[p.stream.frames.front().mode];
}

QString method(const SavedPart& p)
{
    return p.stream.tagName + ' ' + QString::number(p.stream.tagMethod);
}

template <typename Is>
int framesThat(const SavedPart& p, Is is)
{
    return static_cast<int>(std::count_if(p.stream.frames.begin(), p.stream.frames.end(), is));
}

QString midSide(const SavedPart& p)
{
    const int count = framesThat(p, [](const Mp3Frame& f) { return f.isMidSide; });
    return count == static_cast<int>(p.stream.frames.size()) ? "all" : "not all";
}

QString reservoir(const SavedPart& p)
{
    return framesThat(p, [](const Mp3Frame& f) { return f.reservoirBytes > 0; }) ? "used" : "unused";
}

QString shortBlocks(const SavedPart& p)
{
    return framesThat(p, [](const Mp3Frame& f) { return f.hasShortBlocks; }) ? "some" : "none";
}

QString above96(const SavedPart& p)
{
    return framesThat(p, [](const Mp3Frame& f) { return f.kbit > 96; }) ? "above 96" : "96 at most";
}

QString below160(const SavedPart& p)
{
    return framesThat(p, [](const Mp3Frame& f) { return f.kbit < 160; }) ? "below 160" : "160 at least";
}

QString meanAbove140(const SavedPart& p)
{
    return p.stream.meanKbit() > 140 ? "above 140" : "below 140";
}

template <int Hertz, int LevelDb = -40>
QString tone(const SavedPart& p)
{
    return toneLevel(p.sound, Hertz) > LevelDb ? "there" : "gone";
}

QString tagSaysUnwise(const SavedPart& p)
{
    return p.stream.isUnwise ? "unwise" : "wise";
}

QString sound(const SavedPart& p)
{
    return p.stream.sound().toHex();
}

const QString differs;    // no text of its own: the two parts are only told to differ

}

Q_DECLARE_METATYPE(Witness)
Q_DECLARE_METATYPE(Stored)

class tst_22_properties : public QObject {
    Q_OBJECT
private slots:
    void aPropertyShowsInTheFile_data();
    void aPropertyShowsInTheFile();
    void aPropertyWithoutEffect_data();
    void aPropertyWithoutEffect();
    void theTableHasAll22();
};

void tst_22_properties::aPropertyShowsInTheFile_data()
{
    QTest::addColumn<Stored>("start");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<Witness>("witness");
    QTest::addColumn<QString>("shownByFirst");
    QTest::addColumn<QString>("shownBySecond");
    const auto row = [](const char* what, const char* key, const char* first, const char* second,
                        Witness witness, const QString& shownByFirst = differs,
                        const QString& shownBySecond = differs, const Stored& start = {}) {
        QTest::addRow("%s", what) << start << QString(key) << QString(first) << QString(second) << witness
                                  << shownByFirst << shownBySecond;
    };
    const Stored abr = {{"20", "4"}};
    const Stored vbr = {{"20", "0"}, {"21", "4"}};
    row("1 AbrBitrate is the mean of the frames", "1", "96", "224", meanAbove140, "below 140", "above 140",
        abr);
    row("2 AthControl only is told by the tag", "2", "0", "1", tagSaysUnwise, "wise", "unwise", vbr);
    row("2 AthControl disabled", "2", "0", "2", sound, differs, differs, vbr);
    row("3 FormatBitrate is in each header", "3", "128", "192", kbit, "128", "192");
    row("4 BitReservoir lets frames use earlier ones", "4", "True", "False", reservoir, "used", "unused");
    row("6 FormatChannels is the mode mono", "6", "1", "2", mode, "mono", "joint");
    row("7 Emphasis 1 is in the header", "7", "0", "1", emphasis, "0", "1");
    row("7 Emphasis 2 is in the header", "7", "0", "2", emphasis, "0", "3");
    row("8 EncoderQuality changes the sound", "8", "9", "2", sound);
    row("9 ErrorProtection adds a checksum", "9", "False", "True", checksum, "none", "checksum");
    row("10 FormatRate is in the header", "10", "44100", "32000", hertz, "44100", "32000");
    row("11 HighpassFrequency takes a low tone away", "11", "-1", "1500", tone<300>, "there", "gone");
    row("12 HighpassWidth reaches further up", "12", "100", "2000", tone<2700>, "there", "gone",
        {{"11", "2500"}});
    row("13 LowpassFrequency takes a high tone away", "13", "-1", "5000", tone<11000>, "there", "gone");
    row("14 LowpassWidth reaches further down", "14", "100", "5000", tone<11000, -30>, "there", "gone",
        {{"13", "12000"}});
    row("15 ShortBlocks follow the clicks", "15", "True", "False", shortBlocks, "some", "none");
    row("16 IsoCompliance changes the sound at 320", "16", "False", "True", sound, differs, differs,
        {{"3", "320"}});
    row("17 EnforceMinBitrate is a floor", "17", "False", "True", below160, "below 160", "160 at least",
        {{"20", "0"}, {"21", "9"}, {"3", "160"}});
    row("18 StereoMode 1 is stereo", "18", "2", "1", mode, "joint", "stereo");
    row("18 StereoMode 4 is dual channels", "18", "2", "4", mode, "joint", "dual");
    row("18 StereoMode 3 is middle and side throughout", "18", "2", "3", midSide, "not all", "all");
    row("19 MaxVbrBitrate is a ceiling", "19", "320", "96", above96, "above 96", "96 at most",
        {{"20", "0"}, {"21", "0"}});
    row("20 VbrMethod none and default", "20", "-1", "0", method, "Info 1", "Xing 4");
    row("20 VbrMethod old", "20", "0", "1", method, "Xing 4", "Xing 3");
    row("20 VbrMethod new and MTRH", "20", "2", "3", method, "Xing 5", "Xing 4");
    row("20 VbrMethod ABR", "20", "0", "4", method, "Xing 4", "Xing 2");
    row("21 VbrQuality is the mean of the frames", "21", "0", "9", meanAbove140, "above 140", "below 140",
        {{"20", "0"}});
    row("22 WriteVbrHeader writes a tag frame", "22", "True", "False", tag, "Info", "");
}

void tst_22_properties::aPropertyShowsInTheFile()
{
    QFETCH(Stored, start);
    QFETCH(QString, key);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(Witness, witness);
    QFETCH(QString, shownByFirst);
    QFETCH(QString, shownBySecond);
    const QString one = witness(savedWith(start, key, first));
    const QString other = witness(savedWith(start, key, second));
    QVERIFY(one != other);
    if (shownByFirst == differs && shownBySecond == differs) return;
    QCOMPARE(one, shownByFirst);
    QCOMPARE(other, shownBySecond);
}

void tst_22_properties::aPropertyWithoutEffect_data()
{
    QTest::addColumn<Stored>("start");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char* what, const char* key, const char* first, const char* second,
                        const Stored& start = {}) {
        QTest::addRow("%s", what) << start << QString(key) << QString(first) << QString(second);
    };
    row("5 DifferentBlockTypes in joint stereo", "5", "False", "True");
    row("5 DifferentBlockTypes in stereo", "5", "False", "True", {{"18", "1"}});
    row("2 AthControl only, but for the tag", "2", "0", "1", {{"20", "0"}});
    row("2 AthControl only for short blocks", "2", "0", "3", {{"20", "0"}});
    row("8 EncoderQuality with variable bitrate", "8", "9", "6", {{"20", "3"}});
    row("11 HighpassFrequency of 30 Hz", "11", "-1", "30");
    row("16 IsoCompliance at 128", "16", "False", "True");
    row("20 VbrMethod new against MTRH, but for the tag", "20", "2", "3");
}

void tst_22_properties::aPropertyWithoutEffect()
{
    QFETCH(Stored, start);
    QFETCH(QString, key);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QCOMPARE(sound(savedWith(start, key, first)), sound(savedWith(start, key, second)));
}

void tst_22_properties::theTableHasAll22()
{
    QFile source(QUILLON_SOURCE "/tests/encoders/tst_22_properties.cpp");
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QString text = source.readAll();
    for (int key = 1; key <= 22; ++key)
        QVERIFY2(text.contains(QString("row(\"%1 ").arg(key)), qPrintable(QString::number(key)));
}

QTEST_MAIN(tst_22_properties)
#include "tst_22_properties.moc"
