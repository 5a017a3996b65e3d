// The main window's inventory: every control with its name, its place and its role. No behaviour.
// Places are logical pixels of the form area, but for the waveform, which is laid out in twips.
#pragma once

#include "core/toolkit/ControlArray.h"
#include "core/toolkit/Menus.h"
#include "core/toolkit/Surface.h"
#include "core/toolkit/Widgets.h"
#include "cutpoints/PartsListView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>

struct CutterSelectControls {
    explicit CutterSelectControls(QMainWindow& window);

    QWidget centre;           ///< between menu bar and status bar
    QWidget area{&centre};    ///< the form area
    QMenuBar menuBar;
    StatusBar StatusBar1{nullptr, "StatusBar1"};

    // ---- menus
    Menu Fichier{menuBar, "Fichier", "File"};
    MenuEntry OpenAudioFile{Fichier, "OpenAudioFile", "Open Audio file", QKeySequence("Ctrl+O")};
    MenuEntry CloseAudioFile{Fichier, "CloseAudioFile", "Close Audio File", QKeySequence("Ctrl+W")};
    MenuEntry sep11{Fichier, "sep11"};
    MenuEntry SaveAllParts{Fichier, "SaveAllParts", "Save All parts", QKeySequence("Ctrl+Shift+S")};
    MenuEntry Sep6{Fichier, "Sep6"};
    MenuEntry ExtractAudioFromAvi{Fichier, "ExtractAudioFromAvi", "Extract Audio from AVI file",
                                  QKeySequence("Ctrl+E")};
    MenuEntry JoinerF{Fichier, "JoinerF", "Join Mp3 Ogg Wma Wav", QKeySequence("Ctrl+J")};
    MenuEntry sep5{Fichier, "sep5"};
    MenuEntry Quitter{Fichier, "Quitter", "Quit", QKeySequence("Ctrl+Q")};

    Menu ControlAudio{menuBar, "ControlAudio", "Control Audio"};
    MenuEntry PlayPiste{ControlAudio, "PlayPiste", "Play", QKeySequence("Ctrl+P")};
    MenuEntry EnPause{ControlAudio, "EnPause", "Pause", QKeySequence("Ctrl+Space")};
    MenuEntry Stoplecture{ControlAudio, "Stoplecture", "Stop", QKeySequence("Ctrl+.")};
    MenuEntry Sep1{ControlAudio, "Sep1"};
    MenuEntry Rew1Sec{ControlAudio, "Rew1Sec", "Rew 1 Sec", QKeySequence("Ctrl+Left")};
    MenuEntry Fwd1Sec{ControlAudio, "Fwd1Sec", "Fwd 1 Sec", QKeySequence("Ctrl+Right")};

    Menu MenuCutPoint{menuBar, "MenuCutPoint", "Cut Points"};
    MenuEntry SetCutPoint{MenuCutPoint, "SetCutPoint", "Set Cut Point", QKeySequence("Ctrl+K")};

    Menu popup1{menuBar, "popup1", "Selected Part"};    ///< the context menu of a part as well
    MenuEntry PlaythisPart{popup1, "PlaythisPart", "Play part", QKeySequence("Ctrl+Return")};
    MenuEntry Sep{popup1, "Sep"};
    MenuEntry DeleteEntryCutPoint{popup1, "DeleteEntryCutPoint", "Delete Entry Cut Point",
                                  QKeySequence("Del")};
    MenuEntry sep2{popup1, "sep2"};
    MenuEntry SavePartMP3{popup1, "SavePartMP3", "Save part in MP3", QKeySequence("Alt+1")};
    MenuEntry SavePartOgg{popup1, "SavePartOgg", "Save Part in Ogg", QKeySequence("Alt+2")};
    MenuEntry SavePartWMA{popup1, "SavePartWMA", "Save part in Wma", QKeySequence("Alt+3")};
    MenuEntry SavePartWav{popup1, "SavePartWav", "Save part in Wav", QKeySequence("Alt+4")};
    MenuEntry Sep15{popup1, "Sep15"};
    MenuEntry Saveselec{popup1, "Saveselec", "Save Selected part with Default output settings",
                        QKeySequence("Ctrl+S")};

    Menu OutputMenu{menuBar, "OutputMenu", "Output"};
    MenuEntry SelecMP3{OutputMenu, "SelecMP3", "Select Mp3 for Output", QKeySequence("Ctrl+1")};
    MenuEntry selecOgg{OutputMenu, "selecOgg", "Select Ogg Vorbis for Output", QKeySequence("Ctrl+2")};
    MenuEntry SelecWma{OutputMenu, "SelecWma", "Select Wma for Output", QKeySequence("Ctrl+3")};
    MenuEntry SelecWav{OutputMenu, "SelecWav", "Select Wav for Output", QKeySequence("Ctrl+4")};
    MenuEntry Sep10{OutputMenu, "Sep10"};
    MenuEntry SelecFormatConfig{OutputMenu, "SelecFormatConfig", "Selected format Configuration",
                                QKeySequence("Ctrl+,")};

    Menu Language{menuBar, "Language", "Language"};
    MenuEntry English{Language, "English", "English", QKeySequence("Ctrl+F5")};
    MenuEntry Francais{Language, "Francais", "Francais", QKeySequence("Ctrl+F6")};
    MenuEntry spanish{Language, "spanish", "Español", QKeySequence("Ctrl+F7")};
    MenuEntry portugais{Language, "portugais", "Português", QKeySequence("Ctrl+F8")};

    Menu infos{menuBar, "infos", "Information"};
    MenuEntry Help{infos, "Help", "Help", QKeySequence("F1")};
    MenuEntry Homepage{infos, "Homepage", "Homepage", QKeySequence("Shift+F1")};
    MenuEntry sep12{infos, "sep12"};
    MenuEntry about{infos, "about", "About", QKeySequence("Ctrl+F1")};

    // ---- tool row
    Toolbar Toolbar1{&area, "Toolbar1", {3, 1, 458, 34}};
    Label Label2{&area, "Label2", {462, 3, 122, 30}, Qt::AlignRight | Qt::AlignVCenter};    ///< the position
    PictureButton Image15{&area, "Image15", {592, 6, 24, 24}, "volume", 18};                ///< mute
    Surface Picture5{&area, "Picture5", QColor(0xF1, 0xF4, 0xFD)};                          ///< volume track
    GraphicImage Image14{Picture5, "Image14", "knob", 1095, 45, 210, 210};                  ///< volume knob

    // ---- file row
    PictureButton Image20{&area, "Image20", {8, 36, 30, 18}, "arrow", 14};                ///< arrow tool
    PictureButton Image13{&area, "Image13", {40, 560 / 15.0, 30, 18}, "scissors", 14};    ///< scissors tool
    PictureButton Image21{&area, "Image21", {78, 36, 30, 18}, "delete-all", 14};    ///< delete all cut points
    Label Label8{&area, "Label8", {120, 36, 52, 18}};                               ///< "File :"
    Label Label1{&area, "Label1", {174, 36, 190, 18}};                              ///< name of the open file
    Label Label4{&area, "Label4", {366, 36, 200, 18}, Qt::AlignLeft | Qt::AlignVCenter};     ///< its format
    Label Label3{&area, "Label3", {565, 36, 140, 18}, Qt::AlignRight | Qt::AlignVCenter};    ///< its duration

    // ---- waveform: surfaces and what lies on them, in twips
    Surface Picture4{&area, "Picture4", QColor(0xF1, 0xF4, 0xFD)};     ///< viewport
    Surface Picture1{&Picture4, "Picture1", Qt::black};                ///< the waveform
    Surface Picture2{&Picture1, "Picture2", QColor(224, 224, 224)};    ///< frame of the selected part
    Surface Picture3{&Picture2, "Picture3", Qt::white};                ///< the waveform in its colours
    Surface PicInfos{&Picture1, "PicInfos", Qt::white};                ///< the time during a drag
    QScrollBar MonScroll{Qt::Horizontal, &Picture4};
    GraphicLine Line1{Picture1, "Line1", QColor(192, 192, 192)};    ///< centre line
    GraphicLine Line7{Picture3, "Line7", Qt::black};                ///< the same in the selection
    ControlArray<GraphicLine> Line5;                                ///< cut lines
    ControlArray<GraphicLine> Line5b;                               ///< the same in the selection
    ControlArray<GraphicImage> Bop;                                 ///< handles of the cuts
    ControlArray<GraphicImage> Bop1;                                ///< the same in the selection
    GraphicLine Line2{Picture1, "Line2", QColor(192, 0, 0)};        ///< position line
    GraphicLine Line6{Picture3, "Line6", QColor(192, 0, 0)};        ///< the same in the selection
    GraphicImage IndicTime{Picture1, "IndicTime", "indic", -120,
                           0,        240,         240};    ///< handle of the position line

    // ---- stamps, copied onto the waveform
    Surface Res1{&area, "Res1", QColor(0xED, 0xF1, 0xFB)};            ///< a section of the ruler
    Surface Track1{&area, "Track1", QColor(0xEA, 0xEF, 0xFA)};        ///< left end of the bar
    Surface Track2{&area, "Track2", QColor(0xEA, 0xEF, 0xFA)};        ///< its middle
    Surface Track3{&area, "Track3", QColor(0xEA, 0xEF, 0xFA)};        ///< its right end
    Surface TrackSep{&area, "TrackSep", QColor(0x2F, 0x5F, 0xD0)};    ///< separator at a cut

    // ---- details of the selected part
    Card details{&area, "details", {8, 279, 238, 225}};
    Label Label9{&details, "Label9", {12, 6, 110, 18}};    ///< heading
    Label Label11{
        &details, "Label11", {118, 6, 108, 18}, Qt::AlignRight | Qt::AlignVCenter};    ///< name of the part
    Label smallStep{&details, "smallStep", {160, 24, 38, 12}, Qt::AlignCenter};        ///< above the arrows
    Label largeStep{&details, "largeStep", {196, 24, 38, 12}, Qt::AlignCenter};
    std::array<Label, 3> Label10{Label(&details, "Label10(0)", {12, 39, 67, 24}),    ///< captions
                                 Label(&details, "Label10(1)", {12, 70, 67, 24}),
                                 Label(&details, "Label10(2)", {12, 101, 67, 24})};
    QLineEdit Text1{&details};                                 ///< start
    UpDown UpDown1{&details, "UpDown1", {168, 38, 22, 26}};    ///< start by a hundredth of a second
    UpDown UpDown3{&details, "UpDown3", {204, 38, 22, 26}};    ///< by a tenth
    QLineEdit Text2{&details};                                 ///< end
    UpDown UpDown2{&details, "UpDown2", {168, 69, 22, 26}};    ///< end by a hundredth of a second
    UpDown UpDown4{&details, "UpDown4", {204, 69, 22, 26}};    ///< by a tenth
    Label Label16{&details, "Label16", {80, 101, 78, 24}, Qt::AlignCenter};    ///< duration
    Label Label12{&details, "Label12", {12, 134, 66, 24}};                     ///< caption of the title
    QLineEdit TextTitle{&details};                                             ///< title of the part
    PictureButton Image9{&details,    "Image9", {12, 170, 68, 42},
                         "play-part", 22,       PictureButton::Frame::Card};    ///< play it
    PictureButton Image10{&details, "Image10", {85, 170, 68, 42},
                          "stop",   22,        PictureButton::Frame::Card};    ///< stop
    PictureButton Image8{&details, "Image8", {158, 170, 68, 42},
                         "save",   22,       PictureButton::Frame::Card};    ///< save it

    // ---- the three panels on one spot, and their tabs
    Card panel{&area, "panel", {254, 304, 451, 200}, true};
    PictureButton Image23{&area, "Image23", {254, 279, 149, 27},
                          "",    0,         PictureButton::Frame::Tab};    ///< parts list
    PictureButton Image22{&area, "Image22", {405, 279, 149, 27},
                          "",    0,         PictureButton::Frame::Tab};    ///< tags
    PictureButton Image24{&area, "Image24", {556, 279, 149, 27},
                          "",    0,         PictureButton::Frame::Tab};    ///< output
    PictureButton Image7{&area, "Image7", {263, 285, 16, 16}, "tab-list", 16, PictureButton::Frame::None};
    PictureButton Image5{&area, "Image5", {414, 285, 16, 16}, "tab-tag", 16, PictureButton::Frame::None};
    PictureButton Image4{&area, "Image4", {565, 285, 16, 16}, "tab-output", 16, PictureButton::Frame::None};
    Label Label5{&area, "Label5", {284, 284, 116, 18}};
    Label Label6{&area, "Label6", {435, 284, 116, 18}};
    Label Label7{&area, "Label7", {586, 284, 116, 18}};

    QWidget PicOutput{&panel};              ///< panel of the output format
    std::array<QRadioButton, 4> Option1;    ///< 0 WAV, 1 MP3, 2 Ogg Vorbis, 3 WMA
    std::array<PictureButton, 4> Image6;    ///< settings of that format

    QWidget PicTag{&panel};    ///< panel of the tags, one set for all parts
    Label Label13{&PicTag, "Label13", {16, 14, 92, 26}};
    QLineEdit infoArtist{&PicTag};
    Label Label14{&PicTag, "Label14", {16, 48, 92, 26}};
    QLineEdit infoAlbum{&PicTag};
    Label Label15{&PicTag, "Label15", {16, 82, 92, 26}};
    QComboBox infoGenre{&PicTag};
    Label Label19{&PicTag, "Label19", {16, 116, 92, 26}};
    QLineEdit infoComment{&PicTag};
    Label Label21{&PicTag, "Label21", {16, 150, 92, 26}};
    QLineEdit infoYear{&PicTag};

    PartsListView ListView1{&panel, "ListView1", {1, 3, 449, 194}};    ///< the parts, in front at the start

    static void showTabCaption(Label& caption, bool isChosen);

private:
    void layWaveform();
    void layStamps();
    void layDetails();
    void layTags();
    void layOutput();
    void chooseFonts();
};
