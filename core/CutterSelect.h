// The main form. First its state, then its procedures by topic; each group names the file that holds it.
// The procedures call each other directly and run their steps in a fixed order; calculations are in rules.
#pragma once

#include "core/AudioEngine.h"
#include "core/CutterSelectControls.h"
#include "core/Declaration.h"
#include "core/Errors.h"
#include "core/toolkit/Dialogs.h"
#include "cutpoints/BoundaryMoves.h"
#include "cutpoints/CutRules.h"

#include <QMainWindow>

class QShortcut;

class CutterSelect : public QMainWindow, public CutterSelectControls {
    Q_OBJECT

public:
    /// Makes the window; `Form_Load` sets it up.
    explicit CutterSelect(AudioEngine& engine);
    ~CutterSelect() override;

    // ---- state
    AudioEngine& engine;
    std::unique_ptr<AudioFile> FileR;    ///< reader of the open document; after the scan, of the work file
    std::int32_t Frequency = 44100;      ///< of the output settings, Hz
    std::int32_t Channels = 2;
    std::unique_ptr<Mp3Format> MP3LameEncoderMain;
    std::unique_ptr<AudioFile> FileWenc;    ///< writer: the work file in a scan, the output file in a save
    std::unique_ptr<AudioFile> FileRe;      ///< reader of a video whose sound is extracted
    QString OUTPUTFORMAT;                   ///< "MP3", "OGG", "WMA" or "WAV"
    std::unique_ptr<AudioTag> AudioTags;
    std::unique_ptr<AudioPlayerStream> AudioPlayer;
    CommonDialog cd1;

    bool PlayFeeding = false;              ///< arrays are being fed to the player
    std::int32_t PlayBlock = 0;            ///< samples of the next array
    std::int32_t PlayPosition = 0;         ///< sample at which the stretch in the player began
    std::vector<std::int32_t> Peaks{0};    ///< the peak table; a single entry: nothing to draw
    bool IsPlaying = false;
    std::int32_t TrackStep = 10;    ///< set by `ResetCenterLines`, read nowhere
    bool TimeDrag = false;          ///< `IndicTime` is being dragged
    std::int32_t DragStartX = 0;    ///< twips, where the drag under way was pressed
    bool WaveDrag = false;
    std::int32_t ZoomLevel = 0;
    bool VolumeDrag = false;
    std::int32_t DurationSeconds = 0;
    bool FileLoaded = false;      ///< a document is open, or being opened
    std::int32_t ToolMode = 1;    ///< 1 arrow, 2 scissors
    bool HasSelectedPart = false;
    std::int32_t SelectedPart = 0;    ///< part code: 0 first, -1 last, else the cut that begins it
    std::int16_t ListButton = 0;      ///< button of the last press in the list
    bool PlayWhole = false;           ///< play to the end of the file, not a counted stretch
    std::int32_t PlayFed = 0;         ///< samples of the counted stretch fed so far
    std::int32_t PlayLength = 0;
    std::int32_t PlayFrom = 0;
    bool Scanning = false;    ///< an open is in progress; nearly every command refuses
    std::int32_t MarkerIndex = 0;
    bool ClickedPart = false;      ///< the last press selected a part, so a double click plays it
    QString FileTitle;             ///< title tag of the open file; read nowhere
    bool BopDrag = false;          ///< a handle of a cut is being dragged
    std::int32_t BopSample = 0;    ///< the sample of its cut
    bool VolumeMoved = false;      ///< the knob was pulled to the top of its range

    // ---- start-up and shutdown: CutterSelect_Load.cpp
    void Form_Load();
    void Form_Unload();

    // ---- commands: CutterSelect_Commands.cpp
    void ToolbarCommand(std::int16_t index);
    void Quitter_Click();

    // ---- opening and scanning: CutterSelect_Open.cpp
    void OpenAudioFile_Click();
    void Ouvre(const QString& file);
    void OuvreRecordedAudio(const QString& fichi);
    // ---- closing: CutterSelect_Close.cpp
    void CloseAudioFile_Click();

    // ---- drawing: CutterSelect_Draw.cpp
    void ResetCenterLines();
    void DrawWaveform();
    void DrawRulerAndMarkers();
    void DrawTrackBar();
    void DrawRuler();

    // ---- zoom and scroll: CutterSelect_Zoom.cpp
    void zoomIn();
    void zoomOut();
    void restoreAspect();
    void MonScroll_Change();

    // ---- cut points: CutterSelect_CutPoints.cpp
    void SetCutPoint_Click();
    void DeleteEntryCutPoint_Click();
    void Image21_Click();
    std::int32_t FindPartAt(Twips x) const;
    void FillPartsList();
    void SortCutPoints();

    // ---- the pointer on the waveform: CutterSelect_Pointer.cpp
    void Picture1_MouseDown(int button, int shift, Twips X, Twips Y);
    void Picture1_MouseMove(int button, int shift, Twips X, Twips Y);
    void Picture1_MouseUp();
    void Picture1_DblClick();
    void Picture1_KeyDown(int key);
    void Picture3_MouseDown(int button, int shift, Twips X, Twips Y);
    void SetPosition(Twips X);
    void Image13_Click();
    void Image20_Click();

    // ---- the handles of the cuts: CutterSelect_Handles.cpp
    void Bop_MouseDown(int index, int button, int shift, Twips X, Twips Y);
    void Bop_MouseMove(int index, int button, int shift, Twips X, Twips Y);
    void Bop_MouseUp(int index);
    void Bop1_MouseDown(int index, int button, int shift, Twips X, Twips Y);
    void Bop1_MouseMove();

    // ---- part boundaries and details: CutterSelect_Boundaries.cpp
    void MoveStartEarlier(std::int32_t step);
    void MoveStartLater(std::int32_t step);
    void MoveEndEarlier(std::int32_t step);
    void MoveEndLater(std::int32_t step);
    void ClearPartDetails();
    void ShowPartDetails(bool isFirst, bool isLast);
    void SetPartMenus(bool enabled);
    void TextTitle_KeyUp();
    void clearDetailsWithoutRow();

    // ---- parts list and side panels: CutterSelect_Parts.cpp
    void SelectPart();
    void ListView1_MouseDown(int button);
    void ListView1_Click();
    void ListView1_DblClick();
    void Image22_Click();
    void Image23_Click();
    void Image24_Click();

    // ---- transport: CutterSelect_Transport.cpp
    void PlayFile(const QString& path);
    void PlayRange(const QString& path, std::int32_t start, std::int32_t length);
    void FeedPlayer();
    void StopPlayback();
    void Image9_Click();
    void Image10_Click();
    void AudioPlayer_RequestOnLoadArray();
    void AudioPlayer_Timer(std::int32_t position);
    void AudioPlayer_EndPlay();
    void positionToStart();
    void stopAtStart();
    /// `place` is asked for the sample once the queue is empty.
    void reposition(const std::function<std::int32_t()>& place);
    // ---- volume: CutterSelect_Volume.cpp
    void Image14_MouseDown(Twips X);
    void Image14_MouseMove(Twips X);
    void Image14_MouseUp();
    void Picture5_MouseUp(Twips X);
    void Picture5_KeyDown(int key);
    void Image15_Click();
    // ---- stepping and the position handle: CutterSelect_Position.cpp
    void Fwd1Sec_Click();
    void Rew1Sec_Click();
    void IndicTime_MouseDown(Twips X);
    void IndicTime_MouseMove(Twips X);
    void IndicTime_MouseUp();
    void showPositionOf(std::int32_t sample);
    void followHighlight();
    void placePositionLine(Twips x);
    void placeBothLines(Twips x);

    // ---- output format: CutterSelect_Format.cpp
    void InitOutputFormat();
    void RestoreOutputFormat();
    void Option1_Click(int index);
    void Image6_Click(int index);
    void CheckFormatMenu(int index);
    void SelecMP3_Click();
    void selecOgg_Click();
    void SelecWma_Click();
    void SelecWav_Click();
    void SelecFormatConfig_Click();
    // ---- encoder set-up: CutterSelect_Encoder.cpp
    void ApplyMp3Settings();
    void ApplyOggSettings();
    void applyWmaSettings();
    void showFormatLine();

    // ---- saving one part: CutterSelect_SavePart.cpp
    void Image8_Click();
    void SavePartMP3_Click();
    void SavePartOgg_Click();
    void SavePartWMA_Click();
    void SavePartWav_Click();
    void SaveRange(const QString& format, std::int32_t start, std::int32_t length);
    // ---- saving all parts: CutterSelect_SaveAll.cpp
    void SaveAllParts_Click();
    void SaveEveryPart(QString& folder, const QString& format);
    // ---- tags: CutterSelect_Tags.cpp
    void readFileTags(const QString& file);
    void WritePartTags(const QString& path, const QString& title, bool isYearDefaulted);

    // ---- language: support/CutterSelect_Language.cpp
    void LoadLanguage(const QString& path);
    void English_Click();
    void Francais_Click();
    void spanish_Click();
    void portugais_Click();

    // ---- the sound of a video: support/CutterSelect_Extract.cpp
    void ExtractAudioFromAvi_Click();
    void ExtractAudio(const QString& source, const QString& target);

    // ---- the long jobs disable the main form, and with it every window that it owns and shows
    void DisableMainForm();
    void EnableMainForm();

    std::span<const std::int32_t> cuts() const { return CutPoints; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    // ---- Load, Attach
    void createEngineObjects();
    void attachMenus();
    void attachButtons();
    void attachSurfaces();
    void attachPlayer();
    void attachHandle(int index);
    void attachFields();
    void attachKeys();
    void titleEvent(const QEvent& event);

    // ---- Open
    void chooseFileToOpen();
    void beginScan();
    void openSource(const QString& file);
    void createWorkFile();
    void scanBlocks(bool isRecording);
    void beginTable();
    void showScanProgress(std::int16_t percent, bool isRecording);
    void failScan(bool isRecording);
    void finishScan(bool isRecording);
    // ---- Close
    void forgetDocument();
    void resetDetailFields();
    void resetTools();
    void restoreBaseWidth();
    // ---- Draw
    void stampBar();
    void stampSeparator(double x);
    void drawStrokes();
    void placeMarkers(int index, Twips x);
    void printPartNumbers();
    void rebuildMarkers();
    void loadMarker(int index);
    // ---- Zoom
    std::int32_t positionSample() const;
    void hidePosition();
    void showPositionAt(std::int32_t sample);
    void zoomTo(Twips width);
    void takeBaseWidth();
    // ---- CutPoints, Pointer
    bool refuseCut();
    void addCut(Twips x);
    void addCutByPointer(Twips X, bool isOnHighlight);
    void selectByKey(std::int32_t code);
    void hideHighlight();
    void dragMarkerTo(int index, Twips n);
    void showDragTime(int index, std::int32_t sample);
    // ---- Boundaries
    void moveStart(std::int32_t step, BoundaryRule rule);
    void moveEnd(std::int32_t step, BoundaryRule rule);
    void applyStartMove(int row, std::int32_t to);
    void applyEndMove(int row, std::int32_t to);
    void finishMove(std::int32_t from, std::int32_t to);
    // ---- Parts
    int rowOf(std::int32_t code) const;
    void layHighlight();
    void showPanel(const PictureButton& chosen, QWidget& shown);
    void openPartMenu(QPoint global);
    // ---- Transport
    bool startPlayer();
    void failPlay();
    void movePositionWhilePlaying(std::int32_t position);
    // ---- Format
    void configureFor(const QString& format);
    void setOption(int index);
    void withdrawMp3();
    // ---- SavePart, SaveAll
    struct SaveFailed : EngineError {    // a part of the run that failed, against a tag that failed
        using EngineError::EngineError;
    };
    void saveSelectedAs(const QString& format);
    void saveStretchOfSelection(const QString& format);
    QString askForTarget(const QString& format, std::int32_t start);
    void setUpWriter(const QString& format);
    void writePart(const QString& outPath, std::int32_t length);
    void copyStretch(const QString& outPath, std::int32_t length);
    void endSave();
    void failSave();
    void saveEach(QString& folder, const QString& format);
    void writeEach(const QString& fileName, const QString& format, std::int32_t part, std::int32_t last);
    void cleanUpAfterRun();
    void failSaveAll();
    // ---- Extract
    void copyVideoSound();
    void failExtraction();
    // ---- Language
    void loadLanguageOfSettings();
    void chooseLanguage(int row);
    void assignCaptions();
    void placeFileName();
};
