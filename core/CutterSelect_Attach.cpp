// The attaching of all handlers of the main form, and the keyboard.
#include "core/CutterSelect.h"

#include "core/toolkit/Wall.h"
#include "support/Shell.h"

#include <QKeyEvent>
#include <QShortcut>

void CutterSelect::attachMenus()
{
    const auto on = [this](MenuEntry& entry, auto handler) {
        connect(&entry, &QAction::triggered, this, guarded([handler](bool) { handler(); }));
    };
    on(OpenAudioFile, [this] { OpenAudioFile_Click(); });
    on(CloseAudioFile, [this] { CloseAudioFile_Click(); });
    on(SaveAllParts, [this] { SaveAllParts_Click(); });
    on(ExtractAudioFromAvi, [this] { ExtractAudioFromAvi_Click(); });
    on(Quitter, [this] { Quitter_Click(); });
    on(PlayPiste, [this] { ToolbarCommand(10); });
    on(EnPause, [this] { ToolbarCommand(11); });
    on(Stoplecture, [this] { ToolbarCommand(12); });
    on(Rew1Sec, [this] { Rew1Sec_Click(); });
    on(Fwd1Sec, [this] { Fwd1Sec_Click(); });
    on(SetCutPoint, [this] { SetCutPoint_Click(); });
    on(PlaythisPart, [this] { Image9_Click(); });
    on(DeleteEntryCutPoint, [this] { DeleteEntryCutPoint_Click(); });
    on(SavePartMP3, [this] { SavePartMP3_Click(); });
    on(SavePartOgg, [this] { SavePartOgg_Click(); });
    on(SavePartWMA, [this] { SavePartWMA_Click(); });
    on(SavePartWav, [this] { SavePartWav_Click(); });
    on(Saveselec, [this] { Image8_Click(); });
    on(SelecMP3, [this] { SelecMP3_Click(); });
    on(selecOgg, [this] { selecOgg_Click(); });
    on(SelecWma, [this] { SelecWma_Click(); });
    on(SelecWav, [this] { SelecWav_Click(); });
    on(SelecFormatConfig, [this] { SelecFormatConfig_Click(); });
    on(English, [this] { English_Click(); });
    on(Francais, [this] { Francais_Click(); });
    on(spanish, [this] { spanish_Click(); });
    on(portugais, [this] { portugais_Click(); });
    on(Homepage, [] { Homepage_Click(); });
    on(about, [] { about_Click(); });
}

void CutterSelect::attachButtons()
{
    Toolbar1.onButtonClick = [this](std::int16_t index) { ToolbarCommand(index); };
    Image13.onClick = [this] { Image13_Click(); };
    Image20.onClick = [this] { Image20_Click(); };
    Image21.onClick = [this] { Image21_Click(); };
    Image15.onClick = [this] { Image15_Click(); };
    Image8.onClick = [this] { Image8_Click(); };
    Image9.onClick = [this] { Image9_Click(); };
    Image10.onClick = [this] { Image10_Click(); };

    for (PictureButton* button : {&Image24, &Image4}) button->onClick = [this] { Image24_Click(); };
    for (PictureButton* button : {&Image22, &Image5}) button->onClick = [this] { Image22_Click(); };
    for (PictureButton* button : {&Image23, &Image7}) button->onClick = [this] { Image23_Click(); };
    Label7.onClick = guarded([this] { Image24_Click(); });
    Label6.onClick = guarded([this] { Image22_Click(); });
    Label5.onClick = guarded([this] { Image23_Click(); });

    for (int i = 0; i < 4; ++i) {
        const auto index = static_cast<std::size_t>(i);
        connect(&Option1[index], &QRadioButton::clicked, this,
                guarded([this, i](bool) { Option1_Click(i); }));
        Image6[index].onClick = [this, i] { Image6_Click(i); };
    }
}

void CutterSelect::attachSurfaces()
{
    Picture1.onMouseDown =
        guarded([this](int b, int s, Twips x, Twips y) { Picture1_MouseDown(b, s, x, y); });
    Picture1.onMouseMove =
        guarded([this](int b, int s, Twips x, Twips y) { Picture1_MouseMove(b, s, x, y); });
    Picture1.onMouseUp = guarded([this](int, int, Twips, Twips) { Picture1_MouseUp(); });
    Picture1.onDblClick = guarded([this] { Picture1_DblClick(); });
    Picture1.onKeyDown = guarded([this](int key) { Picture1_KeyDown(key); });
    Picture3.onMouseDown =
        guarded([this](int b, int s, Twips x, Twips y) { Picture3_MouseDown(b, s, x, y); });
    IndicTime.onMouseDown = guarded([this](int, int, Twips x, Twips) { IndicTime_MouseDown(x); });
    IndicTime.onMouseMove = guarded([this](int, int, Twips x, Twips) { IndicTime_MouseMove(x); });
    IndicTime.onMouseUp = guarded([this](int, int, Twips, Twips) { IndicTime_MouseUp(); });
    Image14.onMouseDown = guarded([this](int, int, Twips x, Twips) { Image14_MouseDown(x); });
    Image14.onMouseMove = guarded([this](int, int, Twips x, Twips) { Image14_MouseMove(x); });
    Image14.onMouseUp = guarded([this](int, int, Twips, Twips) { Image14_MouseUp(); });
    Picture5.onMouseUp = guarded([this](int, int, Twips x, Twips) { Picture5_MouseUp(x); });
    Picture5.onKeyDown = guarded([this](int key) { Picture5_KeyDown(key); });
    connect(&MonScroll, &QScrollBar::valueChanged, this, guarded([this](int) { MonScroll_Change(); }));
}

void CutterSelect::attachHandle(int i)
{
    Bop(i).onMouseDown = guarded([this, i](int b, int s, Twips x, Twips y) { Bop_MouseDown(i, b, s, x, y); });
    Bop(i).onMouseMove = guarded([this, i](int b, int s, Twips x, Twips y) { Bop_MouseMove(i, b, s, x, y); });
    Bop(i).onMouseUp = guarded([this, i](int, int, Twips, Twips) { Bop_MouseUp(i); });
    Bop1(i).onMouseDown =
        guarded([this, i](int b, int s, Twips x, Twips y) { Bop1_MouseDown(i, b, s, x, y); });
    Bop1(i).onMouseMove = guarded([this](int, int, Twips, Twips) { Bop1_MouseMove(); });
}

void CutterSelect::attachPlayer()
{
    AudioPlayer->RequestOnLoadArray = guarded([this] { AudioPlayer_RequestOnLoadArray(); });
    AudioPlayer->Timer =
        guarded([this](std::int32_t position, std::int32_t, std::int32_t) { AudioPlayer_Timer(position); });
    AudioPlayer->EndPlay = guarded([this] { AudioPlayer_EndPlay(); });
}

void CutterSelect::attachFields()
{
    const auto small = [this] { return toLong(SampleRate / 100.0); };
    const auto large = [this] { return toLong(SampleRate / 10.0); };
    UpDown1.onDownClick = [=, this] { MoveStartEarlier(small()); };
    UpDown1.onUpClick = [=, this] { MoveStartLater(small()); };
    UpDown3.onDownClick = [=, this] { MoveStartEarlier(large()); };
    UpDown3.onUpClick = [=, this] { MoveStartLater(large()); };
    UpDown2.onDownClick = [=, this] { MoveEndEarlier(small()); };
    UpDown2.onUpClick = [=, this] { MoveEndLater(small()); };
    UpDown4.onDownClick = [=, this] { MoveEndEarlier(large()); };
    UpDown4.onUpClick = [=, this] { MoveEndLater(large()); };

    ListView1.onMouseDown = guarded([this](int button) { ListView1_MouseDown(button); });
    ListView1.onClick = guarded([this] { ListView1_Click(); });
    ListView1.onDblClick = guarded([this] { ListView1_DblClick(); });
    TextTitle.setMouseTracking(true);
    // An input method delivers no key releases.
    connect(&TextTitle, &QLineEdit::textEdited, this, guarded([this](const QString&) { TextTitle_KeyUp(); }));
}

void CutterSelect::attachKeys()
{
    // By the eye: the formats stand in another order than their numbers.
    QWidget* before = &Image24;
    for (const std::size_t i : {1, 2, 3, 0}) {
        setTabOrder(before, &Option1[i]);
        setTabOrder(&Option1[i], &Image6[i]);
        before = &Image6[i];
    }
    Image20.setAccessibleName(QStringLiteral("Arrow"));    // the language files have no text for it
    for (QWidget* widget : findChildren<QWidget*>())
        if (widget->focusPolicy() != Qt::NoFocus && widget != &Picture1) widget->installEventFilter(this);
    for (MenuEntry* step : {&Rew1Sec, &Fwd1Sec}) step->setAutoRepeat(true);
    auto* space = new QShortcut(QKeySequence(Qt::Key_Space), this);
    space->setAutoRepeat(false);
    connect(space, &QShortcut::activated, this, guarded([this] { ToolbarCommand(IsPlaying ? 11 : 10); }));
}

namespace {

// No shortcut fires while a text is being typed, nor in place of the key that presses a button.
bool keepsKey(const QObject* widget, const QKeyEvent& key)
{
    if (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget)) return true;
    if (key.modifiers() & ~Qt::KeypadModifier) return false;
    return qobject_cast<const QAbstractButton*>(widget) && key.key() == Qt::Key_Space;
}

}

bool CutterSelect::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && keepsKey(watched, *static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (watched == &TextTitle) guarded([&] { titleEvent(*event); })();
    return QMainWindow::eventFilter(watched, event);
}

void CutterSelect::titleEvent(const QEvent& event)
{
    if (event.type() == QEvent::KeyRelease) TextTitle_KeyUp();
    if (event.type() == QEvent::FocusOut || event.type() == QEvent::MouseMove) clearDetailsWithoutRow();
}

// At the start all three side panels are shown, one in front of the others: the keyboard passes over what is
// covered.
bool CutterSelect::focusNextPrevChild(bool next)
{
    const QWidget* front = Image23.isChosen()   ? static_cast<QWidget*>(&ListView1)
                           : Image22.isChosen() ? static_cast<QWidget*>(&PicTag)
                                                : static_cast<QWidget*>(&PicOutput);
    for (int tries = 0; tries < 64; ++tries) {
        if (!QMainWindow::focusNextPrevChild(next)) return false;
        const QWidget* now = focusWidget();
        if (!now || !panel.isAncestorOf(now) || now == front || front->isAncestorOf(now)) return true;
    }
    return true;
}
