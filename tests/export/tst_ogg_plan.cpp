// How Ogg Vorbis is set up: what the stored keys mean, and the one call that is made of them.
#include "core/Errors.h"
#include "export/OggPlan.h"

#include <QTest>

#include <map>

namespace {

OggStored storedFrom(const std::map<QString, QString>& keys)
{
    return readOggStored([&](const char* key) { return keys.at(key); });
}

const std::map<QString, QString> allOgg{{"1", "0"},   {"2", "1"},  {"3", "48000"}, {"4", "1"},
                                        {"5", "700"}, {"6", "96"}, {"7", "192"}};

}

class tst_ogg_plan : public QObject {
    Q_OBJECT
private slots:
    void theStoredOggValuesAreReadByTheirKeys();
    void theMinimumIsReadFromTheKeyOfTheNominalBitrate();
    void onlyTheNumber1SwitchesAFlagOn_data();
    void onlyTheNumber1SwitchesAFlagOn();
    void anOggTextThatIsNoNumberIsAFault_data();
    void anOggTextThatIsNoNumberIsAFault();
    void theOggCall_data();
    void theOggCall();
    void theEncoderIsAskedOnlyOutsideQualityMode_data();
    void theEncoderIsAskedOnlyOutsideQualityMode();
};

void tst_ogg_plan::theStoredOggValuesAreReadByTheirKeys()
{
    const OggStored stored = storedFrom(allOgg);
    QVERIFY(!stored.qualityOn && stored.vbrOn);
    QCOMPARE(stored.rate, 48000);
    QCOMPARE(stored.channels, 1);
    QCOMPARE(stored.quality, 700);
    QCOMPARE(stored.maxBitrate, 192);
}

void tst_ogg_plan::theMinimumIsReadFromTheKeyOfTheNominalBitrate()
{
    const OggStored stored = storedFrom(allOgg);
    QCOMPARE(stored.bitrate, 96);
    QCOMPARE(stored.minBitrate, 96);
}

void tst_ogg_plan::onlyTheNumber1SwitchesAFlagOn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("on");
    QTest::addRow("1 is on") << "1" << true;
    QTest::addRow("1 with a leading zero is on") << "01" << true;
    QTest::addRow("0 is off") << "0" << false;
    QTest::addRow("minus 1 is off") << "-1" << false;
    QTest::addRow("2 is off") << "2" << false;
}

void tst_ogg_plan::onlyTheNumber1SwitchesAFlagOn()
{
    QFETCH(QString, text);
    QFETCH(bool, on);
    auto keys = allOgg;
    keys["1"] = keys["2"] = text;
    QCOMPARE(storedFrom(keys).qualityOn, on);
    QCOMPARE(storedFrom(keys).vbrOn, on);
}

void tst_ogg_plan::anOggTextThatIsNoNumberIsAFault_data()
{
    QTest::addColumn<QString>("key");
    for (const char* key : {"1", "2", "3", "4", "5", "6", "7"})
        QTest::addRow("letters in key %s", key) << key;
}

void tst_ogg_plan::anOggTextThatIsNoNumberIsAFault()
{
    QFETCH(QString, key);
    auto keys = allOgg;
    keys[key] = "high";
    QVERIFY_EXCEPTION_THROWN(storedFrom(keys), ConversionError);
}

void tst_ogg_plan::theOggCall_data()
{
    QTest::addColumn<bool>("qualityOn");
    QTest::addColumn<bool>("vbrOn");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QList<int>>("call");
    using L = QList<int>;
    QTest::addRow("quality mode gives the quality and 128 beside it")
        << true << false << true << L{48000, 1, 128, 0, 0, 700};
    QTest::addRow("quality mode wins over variable bitrates")
        << true << true << true << L{48000, 1, 128, 0, 0, 700};
    QTest::addRow("one bitrate rules with quality -1") << false << false << true << L{48000, 1, 96, 0, 0, -1};
    QTest::addRow("three bitrates rule with quality -1")
        << false << true << true << L{48000, 1, 96, 80, 192, -1};
    QTest::addRow("one bitrate that is refused falls back to quality")
        << false << false << false << L{48000, 1, 128, 0, 0, 700};
    QTest::addRow("three bitrates that are refused fall back to quality")
        << false << true << false << L{48000, 1, 128, 0, 0, 700};
}

void tst_ogg_plan::theOggCall()
{
    QFETCH(bool, qualityOn);
    QFETCH(bool, vbrOn);
    QFETCH(bool, accepted);
    QFETCH(QList<int>, call);
    const OggStored stored{qualityOn, vbrOn, 48000, 1, 700, 96, 80, 192};
    const OggCall c = planOgg(stored, [&](const OggCall&) { return accepted; });
    QCOMPARE((QList<int>{c.rate, c.channels, c.bitrate, c.minBitrate, c.maxBitrate, c.quality}), call);
}

void tst_ogg_plan::theEncoderIsAskedOnlyOutsideQualityMode_data()
{
    QTest::addColumn<bool>("qualityOn");
    QTest::addColumn<bool>("vbrOn");
    QTest::addColumn<QList<QList<int>>>("asked");
    using L = QList<QList<int>>;
    QTest::addRow("not in quality mode") << true << true << L{};
    QTest::addRow("about one bitrate without limits") << false << false << L{{48000, 1, 96, 0, 0}};
    QTest::addRow("about three bitrates") << false << true << L{{48000, 1, 96, 80, 192}};
}

void tst_ogg_plan::theEncoderIsAskedOnlyOutsideQualityMode()
{
    QFETCH(bool, qualityOn);
    QFETCH(bool, vbrOn);
    QFETCH(QList<QList<int>>, asked);
    QList<QList<int>> questions;
    planOgg({qualityOn, vbrOn, 48000, 1, 700, 96, 80, 192}, [&](const OggCall& c) {
        questions << QList<int>{c.rate, c.channels, c.bitrate, c.minBitrate, c.maxBitrate};
        return true;
    });
    QCOMPARE(questions, asked);
}

QTEST_GUILESS_MAIN(tst_ogg_plan)
#include "tst_ogg_plan.moc"
