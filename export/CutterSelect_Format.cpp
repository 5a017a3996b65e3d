// Which output format is selected: the string, the stored key, the option buttons, the check marks and the
// writer are kept in step.
#include "core/CutterSelect.h"

#include "encoders/Dialogs.h"
#include "export/FormatTable.h"
#include "support/LameEncoder.h"
#include "support/LameLibrary.h"
#include "support/Registre.h"

namespace {

QString storedFormat()
{
    const QString format = IniRead(IniPath, QStringLiteral("OutPutCut"), QStringLiteral("Format"));
    return format.isEmpty() ? QStringLiteral("MP3") : format;
}

void storeFormat(const QString& format)
{
    IniWrite(IniPath, QStringLiteral("OutPutCut"), QStringLiteral("Format"), format);
}

QString storedWmaSupport()
{
    const QString value = IniRead(IniPath, QStringLiteral("WMA"), QStringLiteral("WMASUPPORT"));
    if (!value.isEmpty()) return value;
    IniWrite(IniPath, QStringLiteral("WMA"), QStringLiteral("WMASUPPORT"), QStringLiteral("False"));
    return QStringLiteral("False");
}

}

void CutterSelect::InitOutputFormat()
{
    const QString wmaSupport = storedWmaSupport();
    const bool isWmaOn = wmaSupport == QLatin1String("True");
    FileWenc->SetWmaEnabled(isWmaOn);
    FileR->SetWmaEnabled(isWmaOn);
    Option1[3].setEnabled(isWmaOn);
    Image6[3].setEnabled(isWmaOn);
    SavePartWMA.setVisible(isWmaOn);
    SelecWma.setVisible(isWmaOn);

    const bool isMp3There = LameEncoderPresent();
    if (!isMp3There) withdrawMp3();
    OUTPUTFORMAT = storedFormat();
    if (OUTPUTFORMAT == QLatin1String("MP3") && !isMp3There) OUTPUTFORMAT = QStringLiteral("WAV");
    // Kept: WMA that is stored but switched off configures MP3, and the library isn't asked for again.
    const bool isWmaRefused = OUTPUTFORMAT == QLatin1String("WMA") && wmaSupport == QLatin1String("False");
    configureFor(isWmaRefused ? QStringLiteral("MP3") : OUTPUTFORMAT);
}

void CutterSelect::withdrawMp3()
{
    SavePartMP3.setEnabled(false);
    Option1[1].setEnabled(false);
    SelecMP3.setEnabled(false);
    Image6[1].setEnabled(false);
    showLameEncoder(this);
    SavePartMP3.setEnabled(false);    // Kept: once more
}

// Kept: neither a missing library nor the switch of WMA is looked at here.
void CutterSelect::RestoreOutputFormat()
{
    OUTPUTFORMAT = storedFormat();
    configureFor(OUTPUTFORMAT);
}

// The writer and the controls for a format; any other text configures nothing.
void CutterSelect::configureFor(const QString& format)
{
    const OutputFormat* row = formatByName(format);
    if (!row) return;
    if (format == QLatin1String("MP3")) ApplyMp3Settings();
    if (format == QLatin1String("OGG")) ApplyOggSettings();
    if (format == QLatin1String("WMA")) {
        applyWmaSettings();
        showFormatLine();
    }
    if (format == QLatin1String("WAV")) {
        FileWenc->SetFormatPCM(44100, 2, 16);
        showFormatLine();
    }
    // The selection is brought back here, not made: the check mark follows, and what is stored stays as it
    // is.
    Option1[static_cast<std::size_t>(row->option)].setChecked(true);
    CheckFormatMenu(row->menu);
}

void CutterSelect::Option1_Click(int index)
{
    const OutputFormat* row = formatByOption(index);
    if (!row) return;
    OUTPUTFORMAT = QString::fromLatin1(row->name);
    storeFormat(OUTPUTFORMAT);
    switch (index) {
    case 0:
        FileWenc->SetFormatPCM(44100, 2, 16);
        showFormatLine();
        break;
    case 1:
        ApplyMp3Settings();
        // Kept: given once more. Here a format that the writer refuses is a fault; the settings pass over it.
        FileWenc->SetFormatMP3Ex(*MP3LameEncoderMain);
        break;
    case 2:
        ApplyOggSettings();
        break;
    default:
        applyWmaSettings();
        showFormatLine();
        break;
    }
    CheckFormatMenu(row->menu);
}

// The menu has run the handler already; a button that comes on runs it once more.
void CutterSelect::setOption(int index)
{
    QRadioButton& option = Option1[static_cast<std::size_t>(index)];
    if (option.isChecked()) return;
    option.setChecked(true);
    Option1_Click(index);
}

void CutterSelect::CheckFormatMenu(int index)
{
    QAction* const marks[] = {&SelecMP3, &selecOgg, &SelecWma, &SelecWav};
    for (int i = 0; i < 4; ++i) marks[i]->setChecked(i == index);
}

void CutterSelect::Image6_Click(int index)
{
    const OutputFormat* row = formatByOption(index);
    if (!row) return;
    Option1[static_cast<std::size_t>(index)].setChecked(true);
    Option1_Click(index);
    OUTPUTFORMAT = QString::fromLatin1(row->name);
    switch (index) {
    case 0:
        // Kept: this fixed text, spelled so in every language, stands in place of the writer's own.
        StatusBar1.Panels(2).setText(langText(71) + QString::fromUtf8("WAV, 44100 Khz, Stéréo, 16 bits"));
        break;
    case 1:
        showMp3Settings(*this);
        break;
    case 2:
        showOggSettings(*this);
        break;
    default:
        showWmaSettings(*this);
        break;
    }
    storeFormat(QString::fromLatin1(row->name));
}

// Kept: the four entries run the handler, and setting the button on runs it once more where that changes it.
void CutterSelect::SelecMP3_Click()
{
    Option1_Click(1);
    setOption(1);
}

void CutterSelect::selecOgg_Click()
{
    Option1_Click(2);
    setOption(2);
}

void CutterSelect::SelecWma_Click()
{
    Option1_Click(3);
    setOption(3);
}

void CutterSelect::SelecWav_Click()
{
    Option1_Click(0);
    setOption(0);
}

// A format that is stored but switched off has no settings to be reached.
void CutterSelect::SelecFormatConfig_Click()
{
    const OutputFormat* row = formatByName(OUTPUTFORMAT);
    if (row && Image6[static_cast<std::size_t>(row->option)].isEnabled()) Image6_Click(row->option);
}
