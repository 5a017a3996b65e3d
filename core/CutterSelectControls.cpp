#include "core/CutterSelectControls.h"

#include "core/toolkit/Look.h"
#include "core/toolkit/Pictures.h"

#include <QPainter>

namespace {

QString indexed(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(name)).arg(index);
}

constexpr Twips px(double pixels)
{
    return static_cast<Twips>(pixels * twipsPerPixel);
}

constexpr Twips highlightTop = 430;
constexpr Twips handleSize = 75;
constexpr Twips handleTop = 2595;    // whole inside the frame of the selected part too

auto cutLineMaker(Surface& surface, const char* name, QColor color, Twips top, Twips bottom)
{
    return [=, &surface](int index) {
        auto line = std::make_unique<GraphicLine>(surface, indexed(name, index), color, true);
        line->place(0, top, 0, bottom);
        return line;
    };
}

auto handleMaker(Surface& surface, const char* name, const char* tip, Twips top)
{
    return [=, &surface](int index) {
        auto handle = std::make_unique<GraphicImage>(surface, indexed(name, index), QStringLiteral("marker"),
                                                     0, top, handleSize, handleSize);
        handle->toolTip = QString::fromLatin1(tip);
        handle->cursor = QCursor(Qt::SizeHorCursor);
        return handle;
    };
}

void putField(QLineEdit& field, const char* name, QRectF placePx, int maxLength)
{
    put(field, QString::fromLatin1(name), placePx);
    field.setMaxLength(maxLength);
}

}

CutterSelectControls::CutterSelectControls(QMainWindow& window)
    : centre(&window), Line5(cutLineMaker(Picture1, "Line5", Qt::white, 450, 2700)),
      Line5b(cutLineMaker(Picture3, "Line5b", Qt::black, 0, 2250)),
      Bop(handleMaker(Picture1, "Bop", "Move this Cut Point", handleTop)),
      Bop1(handleMaker(Picture3, "Bop1", "Delete this Cut Point", handleTop - highlightTop)),
      Image6{
          PictureButton(&PicOutput, "Image6(0)", {392, 148, 36, 30}, "gear", 20, PictureButton::Frame::Card),
          PictureButton(&PicOutput, "Image6(1)", {392, 16, 36, 30}, "gear", 20, PictureButton::Frame::Card),
          PictureButton(&PicOutput, "Image6(2)", {392, 60, 36, 30}, "gear", 20, PictureButton::Frame::Card),
          PictureButton(&PicOutput, "Image6(3)", {392, 104, 36, 30}, "gear", 20, PictureButton::Frame::Card)}
{
    window.setObjectName(QStringLiteral("CutterSelect"));
    window.setWindowTitle(QStringLiteral("Quillon"));
    menuBar.setNativeMenuBar(false);
    menuBar.setFixedHeight(24);
    window.setMenuBar(&menuBar);
    window.setStatusBar(&StatusBar1);
    window.setCentralWidget(&centre);
    area.setObjectName(QStringLiteral("area"));
    area.setGeometry(5, 0, 714, 508);
    for (QAction* format : {&SelecMP3, &selecOgg, &SelecWma, &SelecWav}) format->setCheckable(true);
    Toolbar1.Buttons(5).setEnabled(false);
    Toolbar1.Buttons(6).setEnabled(false);

    chooseFonts();
    layWaveform();
    layStamps();
    layDetails();
    layTags();
    layOutput();
    for (PictureButton* tab : {&Image7, &Image5, &Image4}) tab->setFocusPolicy(Qt::NoFocus);
    Label1.elideMode = Qt::ElideMiddle;
    Label2.setText(QStringLiteral("00:00.00"));
    Image20.setChosen(true);
    Image23.setChosen(true);
    for (Label* tab : {&Label5, &Label6, &Label7}) showTabCaption(*tab, tab == &Label5);
    ListView1.raise();
}

void CutterSelectControls::chooseFonts()
{
    Label2.setFont(look::font(20, QFont::DemiBold));
    Label2.smallerPx = 18;
    for (Label* bold : {&Label1, &Label11, &Label16, &Label9}) bold->setFont(look::font(12, QFont::DemiBold));
    for (Label* tab : {&Label5, &Label6, &Label7}) tab->setFont(look::font(12, QFont::DemiBold));
    for (Label* step : {&smallStep, &largeStep}) step->setFont(look::font(9));
    for (Label* muted : {&smallStep, &largeStep, &Label4}) {
        QPalette colours = muted->palette();
        colours.setColor(QPalette::WindowText, look::muted);
        muted->setPalette(colours);
    }
    Label4.setFont(look::font(11));
    Picture1.setFont(look::font(11));
    Res1.setFont(look::font(10));
    PicInfos.setFont(look::font(10));
}

void CutterSelectControls::layWaveform()
{
    Picture4.place(120, 820, 10455, 3240);
    Picture1.place(0, 0, 10420, 2955);
    Picture1.setFocusPolicy(Qt::StrongFocus);
    Picture1.setAccessibleName(QStringLiteral("Waveform"));
    Picture2.place(0, highlightTop, 10420, 2240);
    Picture2.hide();
    Picture3.place(0, 0, 10420, 2240);
    PicInfos.place(0, 480, 680, 220);
    PicInfos.background = [](QPainter& painter, QSizeF) {
        painter.fillRect(QRectF(0, 0, 680 / twipsPerPixel, 220 / twipsPerPixel), look::text);
        painter.fillRect(QRectF(1, 1, 680 / twipsPerPixel - 2, 220 / twipsPerPixel - 2), Qt::white);
    };
    PicInfos.hide();
    put(MonScroll, QStringLiteral("MonScroll"), {0, 199, 697, 15});
    MonScroll.setRange(1, 1);
    MonScroll.setSingleStep(50);
    MonScroll.setPageStep(100);
    MonScroll.setFocusPolicy(Qt::NoFocus);
    Line1.place(0, 0, Picture1.Width(), 0);
    Line7.place(0, 0, Picture3.Width(), 0);
    Line2.place(0, 240, 0, 2660);
    Line6.place(0, 0, 0, 2240);
    Line6.setVisible(false);
    IndicTime.cursor = QCursor(Qt::SizeHorCursor);

    Picture5.place(px(618), px(8), px(87), px(20));
    Picture5.setFocusPolicy(Qt::TabFocus);
    Picture5.setAccessibleName(QStringLiteral("Volume"));
    Picture5.background = [](QPainter& painter, QSizeF size) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(look::accent);
        painter.drawRoundedRect(QRectF(2, 8.5, size.width() - 5, 3), 1.5, 1.5);
    };
    Picture5.Cls();
    new FocusRing(Picture4, Picture1);
    new FocusRing(Picture5, Picture5);
}

void CutterSelectControls::layStamps()
{
    Res1.place(0, 0, px(106), px(30));
    Res1.background = [](QPainter& painter, QSizeF size) {
        for (int tick = 0; tick < 10; ++tick)
            painter.fillRect(QRectF(tick * 10.6, 0, 1,
                                    tick == 0   ? 12
                                    : tick == 5 ? 9
                                                : 5),
                             look::fieldBorder);
        painter.fillRect(QRectF(0, size.height() - 2, size.width(), 2), look::hairlineStrong);
    };
    const auto bar = [](QPainter& painter, QSizeF size) {
        QLinearGradient shade(0, 0, 0, 18);
        shade.setColorAt(0, QColor(0xF6, 0xF8, 0xFE));
        shade.setColorAt(1, QColor(0xDC, 0xE4, 0xF5));
        painter.fillRect(QRectF(QPointF(0, 0), size), shade);
    };
    Track1.place(0, 0, px(2), px(18));
    Track2.place(0, 0, px(44), px(18));
    Track3.place(0, 0, px(2), px(18));
    TrackSep.place(0, 0, px(5), px(18));
    TrackSep.background = [bar](QPainter& painter, QSizeF size) {
        bar(painter, size);
        painter.fillRect(QRectF(1, 0, 3, size.height()), look::accent);
    };
    for (Surface* end : {&Track1, &Track2, &Track3}) end->background = bar;
    for (Surface* stamp : {&Res1, &Track1, &Track2, &Track3, &TrackSep}) {
        stamp->hide();
        stamp->Cls();
    }
}

void CutterSelectControls::layDetails()
{
    smallStep.setText(QStringLiteral("0.01 s"));
    largeStep.setText(QStringLiteral("0.10 s"));
    putField(Text1, "Text1", {80, 39, 78, 24}, 20);
    putField(Text2, "Text2", {80, 70, 78, 24}, 20);
    putField(TextTitle, "TextTitle", {80, 134, 146, 24}, 30);
    for (QLineEdit* time : {&Text1, &Text2}) time->setAlignment(Qt::AlignCenter);
    Label12.setBuddy(&TextTitle);
    Label10[0].setBuddy(&Text1);
    Label10[1].setBuddy(&Text2);
}

void CutterSelectControls::layTags()
{
    put(PicTag, QStringLiteral("PicTag"), {1, 3, 449, 194});
    put(infoGenre, QStringLiteral("infoGenre"), {112, 82, 200, 26});
    infoGenre.setMaxVisibleItems(14);
    putField(infoArtist, "infoArtist", {112, 14, 318, 26}, 29);
    putField(infoAlbum, "infoAlbum", {112, 48, 318, 26}, 29);
    putField(infoComment, "infoComment", {112, 116, 318, 26}, 29);
    putField(infoYear, "infoYear", {112, 150, 70, 26}, 4);
    for (auto& [caption, field] : std::initializer_list<std::pair<Label*, QWidget*>>{{&Label13, &infoArtist},
                                                                                     {&Label14, &infoAlbum},
                                                                                     {&Label15, &infoGenre},
                                                                                     {&Label19, &infoComment},
                                                                                     {&Label21, &infoYear}})
        caption->setBuddy(field);
}

void CutterSelectControls::layOutput()
{
    static constexpr struct {
        const char* caption;
        const char* tip;
        int row;
    } formats[] = {
        {"WAV", "", 3},
        {"MP3", "Select MP3 for Output format", 0},
        {"Ogg Vorbis", "Select Ogg Vorbis for output format", 1},
        {"WMA", "Select Wma for Output format", 2},
    };
    put(PicOutput, QStringLiteral("PicOutput"), {1, 3, 449, 194});
    for (int i = 0; i < 4; ++i) {
        auto& option = Option1[static_cast<std::size_t>(i)];
        option.setParent(&PicOutput);
        put(option, indexed("Option1", i), QRectF(20, 16 + 44 * formats[i].row, 300, 30));
        option.setText(QString::fromLatin1(formats[i].caption));
        option.setToolTip(QString::fromLatin1(formats[i].tip));
        Image6[static_cast<std::size_t>(i)].setTip(option.text());
    }
    for (QWidget* covered : {&PicTag, &PicOutput}) {
        covered->setAutoFillBackground(true);
        covered->setBackgroundRole(QPalette::Base);
    }
}

void CutterSelectControls::showTabCaption(Label& caption, bool isChosen)
{
    QPalette colours = caption.palette();
    colours.setColor(QPalette::WindowText, isChosen ? look::text : look::inactiveTabText);
    caption.setPalette(colours);
}
