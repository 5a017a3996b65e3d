// The controls of the three settings dialogs by name, their fixed texts, and the way of the Tab key.
#include "encoders/EncoderFixtures.h"

#include <QTabWidget>

class win_settings_layout : public QObject {
    Q_OBJECT
private slots:
    void everyControlHasItsName_data();
    void everyControlHasItsName();
    void aDialogHasItsTitle();
    void theTabsStandInOrder();
    void aCaptionIsFixed_data();
    void aCaptionIsFixed();
    void aListHasItsRows_data();
    void aListHasItsRows();
    void noLabelIsShortened();
    void theTabKeyFollowsTheEye_data();
    void theTabKeyFollowsTheEye();
    void theTabKeyGoesThroughTheOggDialog();
    void everyFormIsModalToTheMainForm();
};

using namespace hand;

namespace {

QDialog& formNamed(Desk& desk, const QString& name)
{
    if (name == "frmMP3") {
        Mp3SettingsForm->AppelconvertMain(desk.form);
        return *Mp3SettingsForm;
    }
    if (name == "frmOgg") {
        OggSettingsForm->loadMain(desk.form);
        return *OggSettingsForm;
    }
    WmaSettingsForm->Form_Load(desk.form);
    return *WmaSettingsForm;
}

QString captionOf(const QWidget& control)
{
    for (const char* property : {"text", "title"})
        if (control.property(property).isValid()) return control.property(property).toString();
    return {};
}

// Presses Tab until it comes round, and notes where it has been.
QStringList wayOfTab(QDialog& dialog, QWidget& first)
{
    first.setFocus();
    QStringList way;
    do {
        way << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != &first && way.size() < 100 && dialog.isVisible());
    return way;
}

}

void win_settings_layout::everyControlHasItsName_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QStringList>("names");
    QTest::addRow("MP3")
        << "frmMP3"
        << QString("tabMP3 frmBitrate sldrBitrate Label2 Label3 frmChMode cmbChMode frmQuality sldrQuality "
                   "Label6 Label7 "
                   "frmFrequency cmbFrequency frmHFilt chHFilt udHFiltF tHFiltF lblHFiltW udHFiltW tHFiltW "
                   "frmLFilt chLFilt "
                   "udLFiltF tLFiltF lblLFiltW udLFiltW tLFiltW Label14 cmbVBRCodingMethod lblVbrQuality "
                   "udVbrQuality "
                   "txtVbrQuality lblAbrBitrate udAbrBitrate txtAbrBitrate frmVbrBitrate sldrVbrBitrate "
                   "lblVbrBitrate "
                   "frmVbrAdvanced chWriteVBRHeader chStrictlyEnforceMinBitrate chStrictlyISOCompliance "
                   "chShortBlocks "
                   "chBitReservoir chBlockType chErrorProtection Label10 cmbATHControl Label12 cmbEmphasis "
                   "opPreset(1) "
                   "opPreset(11) opAltPreset(1) opAltPreset(5) txtCommLine cmdOk cmdCancel cmdApply")
               .split(' ');
    QTest::addRow("Ogg") << "frmOgg"
                         << QString("frmChMode cmbChMode frmFrequency cmbFrequency sldrBitrate lblBitrate "
                                    "frmVbr sldrMinBitrate lblMinBitrate "
                                    "sldrMaxBitrate lblMaxBitrate frmQuality sldrQuality frmOption chQuality "
                                    "chVbr cmdOk cmdCancel cmdApply")
                                .split(' ');
    QTest::addRow("WMA")
        << "frmWMA" << QString("frmWMAFormat txtWMAFormatString txtWMAProfile udWMAProfile cmdOk").split(' ');
}

void win_settings_layout::everyControlHasItsName()
{
    QFETCH(QString, form);
    QFETCH(QStringList, names);
    Desk desk;
    QDialog& dialog = formNamed(desk, form);
    QCOMPARE(dialog.objectName(), form);
    for (const QString& name : names) QVERIFY2(dialog.findChild<QWidget*>(name), qPrintable(name));
}

void win_settings_layout::aDialogHasItsTitle()
{
    Desk desk;
    QCOMPARE(formNamed(desk, "frmMP3").windowTitle(), QString("MP3 Lame 3.98 Encoder Option"));
    QCOMPARE(formNamed(desk, "frmOgg").windowTitle(), QString("Ogg Vorbis Option"));
    QCOMPARE(formNamed(desk, "frmWMA").windowTitle(), QString("WMA Options"));
}

void win_settings_layout::theTabsStandInOrder()
{
    Desk desk;
    const auto* tabs = formNamed(desk, "frmMP3").findChild<QTabWidget*>("tabMP3");
    QStringList captions;
    for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
    QCOMPARE(captions,
             (QStringList{"General", "Filtering", "VBR", "Expert", "Preset", "Alt-Preset", "Command Line"}));
}

void win_settings_layout::aCaptionIsFixed_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* form, const char* name, const char* caption) {
        QTest::addRow("%s of %s", name, form) << form << name << caption;
    };
    row("frmMP3", "Label2", "poor quality");
    row("frmMP3", "Label3", "good quality");
    row("frmMP3", "frmQuality", "Encoder Quality");
    row("frmMP3", "Label6", "faster");
    row("frmMP3", "Label7", "better");
    row("frmMP3", "frmFrequency", "Sampling Frequency");
    row("frmMP3", "frmHFilt", "HighPass Filter");
    row("frmMP3", "chHFilt", "Highpass filtering frequency (in Hz):");
    row("frmMP3", "lblHFiltW", "Width of Highpass filter (in Hz):");
    row("frmMP3", "frmLFilt", "LowPass Filter");
    row("frmMP3", "chLFilt", "Lowpass filtering frequency (in Hz):");
    row("frmMP3", "lblLFiltW", "Width of Lowpass filter (in Hz):");
    row("frmMP3", "Label14", "Coding Method:");
    row("frmMP3", "lblVbrQuality", "VBR Quality:");
    row("frmMP3", "lblAbrBitrate", "Targed bitrate for ABR:");
    row("frmMP3", "frmVbrBitrate", "Maximum VBR Bitrate");
    row("frmMP3", "frmVbrAdvanced", "Advanced");
    row("frmMP3", "chWriteVBRHeader", "Write VBR Header");
    row("frmMP3", "chStrictlyEnforceMinBitrate", "Strictly enforce minimum bitrate");
    row("frmMP3", "chStrictlyISOCompliance", "comply as much as possible to ISO MPEG spec");
    row("frmMP3", "chShortBlocks", "short blocks");
    row("frmMP3", "chBitReservoir", "bit reservoir");
    row("frmMP3", "chBlockType", "allow block types to differ between channels");
    row("frmMP3", "chErrorProtection", "include CRC -Checksums");
    row("frmMP3", "Label10", "ATH Control:");
    row("frmMP3", "Label12", "De-emphasis :");
    row("frmMP3", "opPreset(1)", "Phone");
    row("frmMP3", "opPreset(2)", "SW");
    row("frmMP3", "opPreset(3)", "AM");
    row("frmMP3", "opPreset(4)", "FM");
    row("frmMP3", "opPreset(5)", "Voice");
    row("frmMP3", "opPreset(6)", "Radio");
    row("frmMP3", "opPreset(7)", "Tape");
    row("frmMP3", "opPreset(8)", "HiFi");
    row("frmMP3", "opPreset(9)", "CD");
    row("frmMP3", "opPreset(10)", "Studio");
    row("frmMP3", "opPreset(11)", "R3Mix");
    row("frmMP3", "opAltPreset(1)", "Fast Standard");
    row("frmMP3", "opAltPreset(2)", "Standard");
    row("frmMP3", "opAltPreset(3)", "Fast Extreme");
    row("frmMP3", "opAltPreset(4)", "Extrene");
    row("frmMP3", "opAltPreset(5)", "Insane");
    row("frmMP3", "cmdOk", "Ok");
    row("frmMP3", "cmdCancel", "Cancel");
    row("frmMP3", "cmdApply", "Apply");
    row("frmOgg", "frmChMode", "Channels Mode");
    row("frmOgg", "frmFrequency", "Sampling Frequency");
    row("frmOgg", "lblBitrate", "Current nominal bitrate: 128 kbit");
    row("frmOgg", "frmVbr", "VBR");
    row("frmOgg", "frmQuality", "Quality (Compression)");
    row("frmOgg", "frmOption", "Option");
    row("frmOgg", "chQuality", "Quality Enabled");
    row("frmOgg", "chVbr", "VBR Enabled");
    row("frmOgg", "lblMinBitrate", "Current min bitrate: 128 kbit");
    row("frmOgg", "lblMaxBitrate", "Current max bitrate: 128 kbit");
    row("frmOgg", "cmdOk", "Ok");
    row("frmOgg", "cmdCancel", "Cancel");
    row("frmOgg", "cmdApply", "Apply");
    row("frmWMA", "frmWMAFormat", "WMA Format");
    row("frmWMA", "cmdOk", "Ok");
}

void win_settings_layout::aCaptionIsFixed()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QString, caption);
    Desk desk;
    desk.form.LoadLanguage(languageFile("Francais"));
    QCOMPARE(captionOf(*formNamed(desk, form).findChild<QWidget*>(name)), caption);
}

void win_settings_layout::aListHasItsRows_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rows");
    const char* const rates =
        "  8 000 Hz|11 025 Hz|12 000 Hz |16 000 Hz|22 050 Hz|24 000 Hz|32 000 Hz|44 100 Hz|48 000 Hz";
    QTest::addRow("rates") << "frmMP3"
                           << "cmbFrequency" << rates;
    QTest::addRow("rates of Ogg") << "frmOgg"
                                  << "cmbFrequency" << rates;
    QTest::addRow("modes") << "frmMP3"
                           << "cmbChMode"
                           << "Mono|Stereo|Joint Stereo|Forced Joint Stereo|Dual Channels";
    QTest::addRow("modes of Ogg") << "frmOgg"
                                  << "cmbChMode"
                                  << "Mono|Stereo";
    QTest::addRow("methods") << "frmMP3"
                             << "cmbVBRCodingMethod"
                             << "None|Default|Old|New|MTRH|ABR";
    QTest::addRow("thresholds") << "frmMP3"
                                << "cmbATHControl"
                                << "default|only|disabled|only for short blocks";
    QTest::addRow("emphasis") << "frmMP3"
                              << "cmbEmphasis"
                              << "default|0/15 microseconds|citt j.17";
}

void win_settings_layout::aListHasItsRows()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QString, rows);
    Desk desk;
    const auto* list = formNamed(desk, form).findChild<QComboBox*>(name);
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->itemText(i);
    QCOMPARE(texts.join('|'), rows);
}

void win_settings_layout::noLabelIsShortened()
{
    Desk desk;
    for (const char* form : {"frmMP3", "frmOgg"})
        for (const Label* label : formNamed(desk, form).findChildren<Label*>())
            QVERIFY2(!label->isShortened(), qPrintable(label->text()));
}

void win_settings_layout::theTabKeyFollowsTheEye_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("way");
    QTest::addRow("General") << 0 << "sldrBitrate sldrQuality cmbChMode cmbFrequency";
    QTest::addRow("Filtering") << 1 << "chHFilt udHFiltF udHFiltW chLFilt udLFiltF udLFiltW";
    QTest::addRow("VBR")
        << 2 << "cmbVBRCodingMethod udVbrQuality sldrVbrBitrate chWriteVBRHeader chStrictlyEnforceMinBitrate";
    QTest::addRow("Expert") << 3
                            << "chStrictlyISOCompliance chShortBlocks chBitReservoir chBlockType "
                               "chErrorProtection cmbATHControl cmbEmphasis";
    QTest::addRow("Command Line") << 6 << "txtCommLine";
}

void win_settings_layout::theTabKeyFollowsTheEye()
{
    QFETCH(int, tab);
    QFETCH(QString, way);
    Desk desk;
    desk.format->VbrMethod = 0;
    desk.format->HighpassFrequency = 100;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, tab);
        QCOMPARE(wayOfTab(dialog, *dialog.tabMP3.tabBar()).mid(1).join(' '),
                 way + " cmdApply cmdCancel cmdOk");
    });
}

void win_settings_layout::theTabKeyGoesThroughTheOggDialog()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        QCOMPARE(
            wayOfTab(dialog, dialog.cmbChMode).join(' '),
            QString(
                "cmbChMode cmbFrequency chQuality chVbr sldrBitrate sldrMinBitrate sldrMaxBitrate cmdApply "
                "cmdCancel cmdOk"));
    });
}

void win_settings_layout::everyFormIsModalToTheMainForm()
{
    Desk desk;
    for (const char* form : {"frmMP3", "frmOgg", "frmWMA"}) {
        QDialog& dialog = formNamed(desk, form);
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.parentWidget(), &desk.form);
    }
}

QTEST_MAIN(win_settings_layout)
#include "win_settings_layout.moc"
