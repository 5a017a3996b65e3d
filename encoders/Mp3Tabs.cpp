#include "encoders/Mp3Tabs.h"

#include "core/toolkit/Look.h"

namespace {

// Two columns, filled downwards, so that Tab and the arrows go as the eye does.
template <std::size_t Count>
void putOptions(std::array<QRadioButton, Count>& options, QWidget& page, const QString& name,
                const std::array<const char*, Count>& captions, int rowsInColumn)
{
    for (int i = 0; i < static_cast<int>(Count); ++i) {
        QRadioButton& option = options[static_cast<std::size_t>(i)];
        option.setParent(&page);
        putButton(option, QStringLiteral("%1(%2)").arg(name).arg(i + 1),
                  QRectF(28 + 226 * (i / rowsInColumn), 14 + 38 * (i % rowsInColumn), 210, 28),
                  QString::fromLatin1(captions[static_cast<std::size_t>(i)]));
    }
    options[0].setChecked(true);
}

}

Mp3Tabs::Mp3Tabs(QDialog& window) : tabMP3(&window), cmdApply(&window), cmdCancel(&window), cmdOk(&window)
{
    addPages();
    fillGeneral();
    fillFiltering();
    fillVbr();
    fillExpert();
    fillPresets();
    fillCommandLine();
    putButton(cmdApply, QStringLiteral("cmdApply"), {202, 376, 94, 30}, QStringLiteral("Apply"));
    putButton(cmdCancel, QStringLiteral("cmdCancel"), {308, 376, 94, 30}, QStringLiteral("Cancel"));
    putButton(cmdOk, QStringLiteral("cmdOk"), {414, 376, 94, 30}, QStringLiteral("Ok"));
    cmdOk.setDefault(true);
    nameFields();
    orderTabs();
}

void Mp3Tabs::addPages()
{
    put(tabMP3, QStringLiteral("tabMP3"), {12, 12, 496, 352});
    tabMP3.setFont(look::font(12));
    tabMP3.setUsesScrollButtons(false);
    const std::pair<QWidget*, const char*> pages[] = {
        {&general, "General"},         {&filtering, "Filtering"}, {&vbr, "VBR"},
        {&expert, "Expert"},           {&presets, "Preset"},      {&altPresets, "Alt-Preset"},
        {&commandLine, "Command Line"}};
    for (const auto& [page, caption] : pages) tabMP3.addTab(page, QString::fromLatin1(caption));
}

void Mp3Tabs::fillGeneral()
{
    putList(cmbChMode, QStringLiteral("cmbChMode"), {16, 30, 194, 28},
            {"Mono", "Stereo", "Joint Stereo", "Forced Joint Stereo", "Dual Channels"});
    putList(cmbFrequency, QStringLiteral("cmbFrequency"), {16, 30, 194, 28}, rateCaptions());
}

void Mp3Tabs::fillFiltering()
{
    putButton(chHFilt, QStringLiteral("chHFilt"), {16, 32, 312, 28},
              QStringLiteral("Highpass filtering frequency (in Hz):"));
    putButton(chLFilt, QStringLiteral("chLFilt"), {16, 32, 312, 28},
              QStringLiteral("Lowpass filtering frequency (in Hz):"));
    udHFiltF.setUp(0, 48000, 10, 30);
    udHFiltW.setUp(0, 48000, 10, 5);
    udLFiltF.setUp(0, 48000, 10, 15160);
    udLFiltW.setUp(0, 48000, 10, 750);    // Kept: the fill puts 760 for a width of 0
}

void Mp3Tabs::fillVbr()
{
    putList(cmbVBRCodingMethod, QStringLiteral("cmbVBRCodingMethod"), {250, 12, 216, 28},
            {"None", "Default", "Old", "New", "MTRH", "ABR"});
    udVbrQuality.setUp(0, 9, 1, 0);
    udAbrBitrate.setUp(4, 320, 1, 123);
    putButton(chWriteVBRHeader, QStringLiteral("chWriteVBRHeader"), {16, 26, 200, 28},
              QStringLiteral("Write VBR Header"));
    putButton(chStrictlyEnforceMinBitrate, QStringLiteral("chStrictlyEnforceMinBitrate"), {226, 26, 232, 28},
              QStringLiteral("Strictly enforce minimum bitrate"));
}

void Mp3Tabs::fillExpert()
{
    struct Row {
        QCheckBox& box;
        const char* name;
        const char* caption;
    };
    const Row rows[] = {
        {chStrictlyISOCompliance, "chStrictlyISOCompliance", "comply as much as possible to ISO MPEG spec"},
        {chShortBlocks, "chShortBlocks", "short blocks"},
        {chBitReservoir, "chBitReservoir", "bit reservoir"},
        {chBlockType, "chBlockType", "allow block types to differ between channels"},
        // Kept: spelled so, as the rows of the de-emphasis below.
        {chErrorProtection, "chErrorProtection", "include CRC -Checksums"},
    };
    double y = 14;
    for (const Row& row : rows) {
        putButton(row.box, QString::fromLatin1(row.name), {28, y, 440, 26}, QString::fromLatin1(row.caption));
        y += 32;
    }
    putList(cmbATHControl, QStringLiteral("cmbATHControl"), {250, 186, 216, 28},
            {"default", "only", "disabled", "only for short blocks"});
    putList(cmbEmphasis, QStringLiteral("cmbEmphasis"), {250, 224, 216, 28},
            {"default", "0/15 microseconds", "citt j.17"});
}

void Mp3Tabs::fillPresets()
{
    putOptions(opPresets_, presets, QStringLiteral("opPreset"),
               {"Phone", "SW", "AM", "FM", "Voice", "Radio", "Tape", "HiFi", "CD", "Studio", "R3Mix"}, 6);
    // Kept: "Extrene" is spelled so.
    putOptions(opAltPresets_, altPresets, QStringLiteral("opAltPreset"),
               {"Fast Standard", "Standard", "Fast Extreme", "Extrene", "Insane"}, 5);
}

void Mp3Tabs::fillCommandLine()
{
    put(txtCommLine, QStringLiteral("txtCommLine"), {28, 18, 438, 28});
    txtCommLine.setFont(look::font(12));
}

// What a screen reader says of a control without a caption of its own.
void Mp3Tabs::nameFields()
{
    sldrBitrate.setAccessibleName(QStringLiteral("Bitrate"));
    sldrQuality.setAccessibleName(frmQuality.title());
    sldrVbrBitrate.setAccessibleName(frmVbrBitrate.title());
    cmbChMode.setAccessibleName(frmChMode.title());
    cmbFrequency.setAccessibleName(frmFrequency.title());
    udHFiltF.setAccessibleName(chHFilt.text());
    udLFiltF.setAccessibleName(chLFilt.text());
    txtCommLine.setAccessibleName(QStringLiteral("Command Line"));
    lblHFiltW.setBuddy(&udHFiltW);
    lblLFiltW.setBuddy(&udLFiltW);
    Label14.setBuddy(&cmbVBRCodingMethod);
    lblVbrQuality.setBuddy(&udVbrQuality);
    lblAbrBitrate.setBuddy(&udAbrBitrate);
    Label10.setBuddy(&cmbATHControl);
    Label12.setBuddy(&cmbEmphasis);
}

void Mp3Tabs::orderTabs()
{
    std::vector<QWidget*> order = {&tabMP3,
                                   &sldrBitrate,
                                   &sldrQuality,
                                   &cmbChMode,
                                   &cmbFrequency,
                                   &chHFilt,
                                   &udHFiltF,
                                   &udHFiltW,
                                   &chLFilt,
                                   &udLFiltF,
                                   &udLFiltW,
                                   &cmbVBRCodingMethod,
                                   &udVbrQuality,
                                   &udAbrBitrate,
                                   &sldrVbrBitrate,
                                   &chWriteVBRHeader,
                                   &chStrictlyEnforceMinBitrate,
                                   &chStrictlyISOCompliance,
                                   &chShortBlocks,
                                   &chBitReservoir,
                                   &chBlockType,
                                   &chErrorProtection,
                                   &cmbATHControl,
                                   &cmbEmphasis};
    for (QRadioButton& option : opPresets_) order.push_back(&option);
    for (QRadioButton& option : opAltPresets_) order.push_back(&option);
    for (QWidget* last : std::initializer_list<QWidget*>{&txtCommLine, &cmdApply, &cmdCancel, &cmdOk})
        order.push_back(last);
    setTabOrderAll(order);
}
