// How stored settings reach the writer: the missing MP3 library, the keys of the encoders, and faults on the
// way.
#include "export/Selecting.h"

class win_encoder_setup : public QObject {
    Q_OBJECT
private slots:
    void withoutTheLibraryTheUserIsTold();
    void withoutTheLibraryMp3IsWithdrawn();
    void withoutTheLibraryStoredMp3BecomesWavInMemoryOnly();
    void withoutTheLibraryASaveGoesBackToTheStoredMp3();
    void withoutTheLibraryTheOtherFormatsStand();
    void withoutTheLibraryTheMp3EntryStaysOffForASelectedPart();

    void theKeysOfMp3ReachTheFormatObject();
    void anUnreadableKeyLeavesItsPropertyAndTheNextAreRead();
    void withoutKeysTheFormatObjectKeepsItsOwnValues();
    void theStoredValuesAreReadAnewAtEachSelection();
    void theOggSetUp_data();
    void theOggSetUp();
    void theProfileNumberGoesToTheEngineAsItStands_data();
    void theProfileNumberGoesToTheEngineAsItStands();

    void aFaultAtTheStartEndsTheProgram_data();
    void aFaultAtTheStartEndsTheProgram();
    void aRefusedMp3FormatDoesNotEndTheStart();
    void aFaultOfASelectionReachesTheWall_data();
    void aFaultOfASelectionReachesTheWall();
    void aRefusedMp3FormatReachesTheWallWhenItIsSelected();
};

void win_encoder_setup::withoutTheLibraryTheUserIsTold()
{
    WithoutLibrary start;
    start.load();
    QCOMPARE(start.shown, QStringList{"LameEncoder"});
}

void win_encoder_setup::withoutTheLibraryMp3IsWithdrawn()
{
    WithoutLibrary start;
    CutterSelect& form = start.load();
    QVERIFY(!form.SavePartMP3.isEnabled() && !form.SelecMP3.isEnabled());
    QVERIFY(!form.Option1[1].isEnabled() && !form.Image6[1].isEnabled());
}

void win_encoder_setup::withoutTheLibraryStoredMp3BecomesWavInMemoryOnly()
{
    WithoutLibrary start{{"OutPutCut", "Format", "MP3"}};
    CutterSelect& form = start.load();
    QCOMPARE(form.OUTPUTFORMAT, QString("WAV"));
    QCOMPARE(optionOf(form), 0);
    QCOMPARE(start.writer(), pcm);
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), QString("MP3"));
}

void win_encoder_setup::withoutTheLibraryASaveGoesBackToTheStoredMp3()
{
    WithoutLibrary start{{"OutPutCut", "Format", "MP3"}};
    CutterSelect& form = start.fixture.open(shortSong(), {3000});
    start.fixture.pressBarOfRow(1);
    start.fixture.dialogs.files.push_back("/out/part.wav");
    press(form.Image8, form.Image8.rect().center());
    QCOMPARE(form.OUTPUTFORMAT, QString("MP3"));
    QCOMPARE(journal().commandsOf("FileWenc").last(), QString("FileWenc.SetFormatMP3Ex"));
    QCOMPARE(journal().commandsOf("AudioTags"), QStringList());    // the part is a WAV file
}

void win_encoder_setup::withoutTheLibraryTheOtherFormatsStand()
{
    WithoutLibrary start{{"OutPutCut", "Format", "OGG"}};
    CutterSelect& form = start.load();
    QCOMPARE(form.OUTPUTFORMAT, QString("OGG"));
    QCOMPARE(start.writer(), ogg);
}

void win_encoder_setup::withoutTheLibraryTheMp3EntryStaysOffForASelectedPart()
{
    WithoutLibrary start;
    CutterSelect& form = start.fixture.open(shortSong(), {3000});
    start.fixture.pressBarOfRow(1);
    QVERIFY(form.SavePartOgg.isEnabled());
    QVERIFY(!form.SavePartMP3.isEnabled());
}

void win_encoder_setup::theKeysOfMp3ReachTheFormatObject()
{
    Start start{{"Mp3", "1", "96"},
                {"Mp3", "3", "192"},
                {"Mp3", "9", "True"},
                {"Mp3", "20", "4"},
                {"Mp3", "22", "False"}};
    const Mp3Format& format = *start.load().MP3LameEncoderMain;
    QCOMPARE(format.AbrBitrate, std::int16_t{96});
    QCOMPARE(format.FormatBitrate, 192);
    QCOMPARE(format.VbrMethod, 4);
    QVERIFY(format.ErrorProtection && !format.WriteVbrHeader);
}

void win_encoder_setup::anUnreadableKeyLeavesItsPropertyAndTheNextAreRead()
{
    Start start{{"Mp3", "2", "abc"}, {"Mp3", "3", "64"}, {"Mp3", "22", "False"}};
    CutterSelect& form = start.load();
    Mp3Format& format = *form.MP3LameEncoderMain;
    format.AthControl = 2;
    format.FormatBitrate = 32;
    form.ApplyMp3Settings();
    QCOMPARE(format.AthControl, std::int16_t{2});
    QCOMPARE(format.FormatBitrate, 64);
    QVERIFY(!format.WriteVbrHeader);
}

void win_encoder_setup::withoutKeysTheFormatObjectKeepsItsOwnValues()
{
    Start start;
    CutterSelect& form = start.load();
    form.MP3LameEncoderMain->FormatBitrate = 56;
    form.ApplyMp3Settings();
    QCOMPARE(form.MP3LameEncoderMain->FormatBitrate, 56);
}

void win_encoder_setup::theStoredValuesAreReadAnewAtEachSelection()
{
    Start start;
    CutterSelect& form = start.load();
    start.fixture.writeSetting("Mp3", "3", "256");
    form.SelecMP3.trigger();
    QCOMPARE(form.MP3LameEncoderMain->FormatBitrate, 256);
}

void win_encoder_setup::theOggSetUp_data()
{
    QTest::addColumn<QString>("quality");
    QTest::addColumn<QString>("vbr");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QStringList>("calls");
    const QString byQuality = "FileWenc.SetFormatOggVorbis 48000 1 128 0 0 700";
    QTest::addRow("quality mode asks nothing") << "1"
                                               << "0" << true << QStringList{byQuality};
    QTest::addRow("quality mode wins over variable bitrates") << "1"
                                                              << "1" << true << QStringList{byQuality};
    QTest::addRow("one bitrate") << "0"
                                 << "0" << true
                                 << QStringList{"FileWenc.IsFormatOggVorbisAvailable 48000 1 96 0 0",
                                                "FileWenc.SetFormatOggVorbis 48000 1 96 0 0 -1"};
    QTest::addRow("the minimum's key stands for both bitrates")
        << "0"
        << "1" << true
        << QStringList{"FileWenc.IsFormatOggVorbisAvailable 48000 1 96 96 192",
                       "FileWenc.SetFormatOggVorbis 48000 1 96 96 192 -1"};
    QTest::addRow("refused bitrates fall back to quality without a word")
        << "0"
        << "0" << false << QStringList{"FileWenc.IsFormatOggVorbisAvailable 48000 1 96 0 0", byQuality};
}

void win_encoder_setup::theOggSetUp()
{
    QFETCH(QString, quality);
    QFETCH(QString, vbr);
    QFETCH(bool, accepted);
    QFETCH(QStringList, calls);
    Start start{{"OutPutCut", "Format", "OGG"},
                {"OGG", "3", "48000"},
                {"OGG", "4", "1"},
                {"OGG", "5", "700"},
                {"OGG", "6", "96"},
                {"OGG", "7", "192"}};
    start.fixture.writeSetting("OGG", "1", quality);
    start.fixture.writeSetting("OGG", "2", vbr);
    start.fixture.engine.oggAccepts = accepted;
    CutterSelect& form = start.load();
    QCOMPARE(journal().commandsOf("(FileWenc..*Format|MsgBox)"), calls);
    QVERIFY(panel2(form).startsWith(langText(71) + "Ogg Vorbis 48000"));
}

void win_encoder_setup::theProfileNumberGoesToTheEngineAsItStands_data()
{
    QTest::addColumn<QString>("number");
    QTest::addRow("0") << "0";
    QTest::addRow("one beyond the profiles") << "52";
    QTest::addRow("a negative one") << "-3";
}

void win_encoder_setup::theProfileNumberGoesToTheEngineAsItStands()
{
    QFETCH(QString, number);
    Start start{{"OutPutCut", "Format", "WMA"}, {"WMA", "WMASUPPORT", "True"}};
    start.fixture.writeSetting("WMA", "Num", number);
    start.load();
    QCOMPARE(start.writer(), (QStringList{"FileWenc.SetFormatWMA 39", "FileWenc.SetFormatWMA " + number}));
}

namespace {

void selectionFaults(bool isStart)
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("number");
    if (isStart) {
        QTest::addRow("the writer refuses its switch for WMA") << "WAV"
                                                               << "FileWenc.SetWmaEnabled"
                                                               << "";
        QTest::addRow("the reader refuses its switch for WMA") << "WAV"
                                                               << "FileR.SetWmaEnabled"
                                                               << "";
    }
    QTest::addRow("the writer refuses WAV") << "WAV"
                                            << "FileWenc.SetFormatPCM"
                                            << "";
    QTest::addRow("the writer can't be asked about Ogg Vorbis") << "OGG"
                                                                << "FileWenc.IsFormatOggVorbisAvailable"
                                                                << "";
    QTest::addRow("the writer refuses Ogg Vorbis") << "OGG"
                                                   << "FileWenc.SetFormatOggVorbis"
                                                   << "";
    QTest::addRow("the writer refuses WMA") << "WMA"
                                            << "FileWenc.SetFormatWMA"
                                            << "";
    QTest::addRow("the writer can't describe its format") << "WAV"
                                                          << "FileWenc.FormatString"
                                                          << "";
    QTest::addRow("the profile number is no number") << "WMA"
                                                     << ""
                                                     << "high";
    QTest::addRow("a value of Ogg Vorbis is no number") << "OGG"
                                                        << ""
                                                        << "high";
}

// Settings for Ogg Vorbis by bitrate, where "high" takes the place of one number.
void storeFaulty(FormFixture& fixture, const QString& format, const QString& number)
{
    fixture.writeSetting("WMA", "WMASUPPORT", "True");
    for (const char* key : {"1", "2", "3", "4", "5", "6", "7"}) fixture.writeSetting("OGG", key, "0");
    if (!number.isEmpty()) fixture.writeSetting(format, format == "WMA" ? "Num" : "4", number);
}

}

void win_encoder_setup::aFaultAtTheStartEndsTheProgram_data()
{
    selectionFaults(true);
}

void win_encoder_setup::aFaultAtTheStartEndsTheProgram()
{
    QFETCH(QString, format);
    QFETCH(QString, call);
    QFETCH(QString, number);
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", format);
    storeFaulty(fixture, format, number);
    fixture.engine.failing << call;
    QVERIFY_EXCEPTION_THROWN(fixture.load(), std::runtime_error);    // nothing of the form traps it
}

void win_encoder_setup::aRefusedMp3FormatDoesNotEndTheStart()
{
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "MP3");
    fixture.engine.failing << "FileWenc.SetFormatMP3Ex"
                           << "FileWenc.FormatString";
    QVERIFY(fixture.load().Option1[1].isChecked());
}

void win_encoder_setup::aFaultOfASelectionReachesTheWall_data()
{
    selectionFaults(false);
}

void win_encoder_setup::aFaultOfASelectionReachesTheWall()
{
    QFETCH(QString, format);
    QFETCH(QString, call);
    QFETCH(QString, number);
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "-");
    storeFaulty(fixture, format, number);
    CutterSelect& form = fixture.load();
    fixture.engine.failing << call;
    (format == "WAV" ? form.SelecWav : format == "OGG" ? form.selecOgg : form.SelecWma).trigger();
    QCOMPARE(fixture.fatals.size(), 1);
    QCOMPARE(fixture.setting("OutPutCut", "Format"), format);    // it was written before the writer was asked
}

void win_encoder_setup::aRefusedMp3FormatReachesTheWallWhenItIsSelected()
{
    FormFixture fixture;
    CutterSelect& form = fixture.load();
    fixture.engine.failing << "FileWenc.SetFormatMP3Ex";
    form.SelecMP3.trigger();
    QCOMPARE(fixture.fatals, QStringList{"FileWenc.SetFormatMP3Ex fails"});
}

QTEST_MAIN(win_encoder_setup)
#include "win_encoder_setup.moc"
