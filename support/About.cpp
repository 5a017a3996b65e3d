#include "support/About.h"

#include "core/CutterSelect.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Pictures.h"
#include "core/toolkit/Wall.h"
#include "support/Shell.h"

About::About(QWidget* owner) : QDialog(owner)
{
    setObjectName(QStringLiteral("About"));
    setWindowTitle(QStringLiteral("Quillon"));
    setFixedSize(360, 220);
    auto* picture = new QLabel(this);
    put(*picture, QStringLiteral("Image1"), {20, 20, 64, 64});
    picture->setPixmap(pixmap(QStringLiteral("app"), QSize(64, 64), devicePixelRatioF()));
    auto* name = new Label(this, QStringLiteral("Label1"), {104, 20, 236, 32});
    name->setFont(look::font(20, QFont::DemiBold));
    name->setText(QStringLiteral("Quillon"));
    auto* version = new Label(this, QStringLiteral("Label2"), {104, 54, 236, 20});
    version->setText(QStringLiteral(QUILLON_VERSION));

    addLink(0, QStringLiteral("Label3"), QStringLiteral("LAME 3.100"),
            QStringLiteral("https://lame.sourceforge.io/"));
    addLink(1, QStringLiteral("Label4"), QStringLiteral("GNU Lesser General Public License 2.0"),
            QStringLiteral("https://www.gnu.org/licenses/old-licenses/lgpl-2.0.html"));
    addLink(2, QStringLiteral("Label5"), QStringLiteral("quillon@tonehaven.example"),
            QStringLiteral("mailto:quillon@tonehaven.example?subject=Quillon"));

    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    put(*ok, QStringLiteral("Command1"), {240, 176, 100, 30});
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, guarded([this](bool) { accept(); }));
}

// A button, so that the keyboard reaches it.
void About::addLink(int row, const QString& name, const QString& caption, const QString& address)
{
    auto* link = new QPushButton(caption, this);
    put(*link, name, QRectF(100, 88 + 24 * row, 240, 22));
    link->setStyleSheet(
        QStringLiteral("QPushButton { border: 1px solid transparent; background: transparent; color: %1;"
                       " padding: 0 3px; min-height: 18px; text-align: left; text-decoration: underline; }"
                       " QPushButton:focus { border-color: %1; }")
            .arg(look::accent.name()));
    link->setCursor(Qt::PointingHandCursor);
    link->setAutoDefault(false);
    connect(link, &QPushButton::clicked, this, guarded([address](bool) { OpenDocument(address, {}, {}); }));
}

void about_Click()
{
    About(MainForm).exec();
}
