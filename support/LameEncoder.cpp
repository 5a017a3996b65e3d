#include "support/LameEncoder.h"

#include "core/toolkit/Look.h"
#include "core/toolkit/Wall.h"
#include "support/LameLibrary.h"
#include "support/Shell.h"

namespace {

const QString pageAddress = QStringLiteral("https://lame.sourceforge.io/");
const QString downloadAddress = QStringLiteral("https://lame.sourceforge.io/download.php");

}

LameEncoder::LameEncoder(QWidget* owner)
    : QDialog(owner), Label6(this), Label4(this), Label3(this, QStringLiteral("Label3"), {20, 150, 400, 20}),
      Command3(QStringLiteral("Download"), this), Command1(QStringLiteral("Cancel"), this)
{
    setObjectName(QStringLiteral("LameEncoder"));
    setWindowTitle(QStringLiteral("Lame Encoder"));
    setFixedSize(440, 230);
    put(Label6, QStringLiteral("Label6"), {20, 16, 400, 40});
    Label6.setFont(look::font(12, QFont::DemiBold));
    // Kept: spelled so.
    Label6.setText(QStringLiteral("Lame Encoder is requiered on this computer to properly encode to MP3"));
    put(Label4, QStringLiteral("Label4"), {20, 62, 400, 80});
    Label4.setText(
        QStringLiteral("Unzip the downloaded file then put %1 in your system's folder Then restart the "
                       "application. The file must be placed here: \n%2")
            .arg(lameLibraryPlace().file, lameLibraryFolder()));
    for (QLabel* text : {&Label6, &Label4}) {
        text->setWordWrap(true);
        text->setTextFormat(Qt::PlainText);
        text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }

    QFont link = look::font(12);
    link.setUnderline(true);
    Label3.setFont(link);
    Label3.setForegroundRole(QPalette::Link);
    Label3.setCursor(Qt::PointingHandCursor);
    Label3.setText(pageAddress);
    Label3.onClick = guarded([this] { OpenDocument(Label3.text(), {}, {}); });

    put(Command3, QStringLiteral("Command3"), {198, 186, 108, 30});
    put(Command1, QStringLiteral("Command1"), {316, 186, 104, 30});
    Command3.setDefault(true);
    connect(&Command3, &QPushButton::clicked, this, guarded([this](bool) {
        OpenDocument(downloadAddress, {}, {});
        accept();
    }));
    connect(&Command1, &QPushButton::clicked, this, guarded([this](bool) { reject(); }));
}

void showLameEncoder(QWidget* owner)
{
    LameEncoder(owner).exec();
}
