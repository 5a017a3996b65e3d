// The language of the main form: one text per line of a plain file, pushed into the captions at once.
#include "core/CutterSelect.h"

#include "core/toolkit/Wall.h"
#include "support/Registre.h"

#include <QFile>
#include <QTextStream>

namespace {

struct LanguageRow {
    const char* file;
    const char* value;    // of key `Val`
    std::int32_t id;
};

constexpr LanguageRow languages[] = {
    {"English", "English", 2},
    {"Francais", "French", 1},
    {"Español", "Español", 3},
    {"PortuguêsBR", "Portugais", 4},
};

using C = CutterSelectControls;

constexpr std::pair<std::size_t, Menu C::*> menuCaptions[] = {
    {0, &C::Fichier},     {8, &C::ControlAudio}, {14, &C::MenuCutPoint}, {16, &C::popup1},
    {24, &C::OutputMenu}, {30, &C::Language},    {31, &C::infos},
};

constexpr std::pair<std::size_t, MenuEntry C::*> entryCaptions[] = {
    {1, &C::OpenAudioFile}, {2, &C::CloseAudioFile},
    {3, &C::SaveAllParts},  {4, &C::ExtractAudioFromAvi},
    {6, &C::JoinerF},       {7, &C::Quitter},
    {9, &C::PlayPiste},     {10, &C::EnPause},
    {11, &C::Stoplecture},  {12, &C::Rew1Sec},
    {13, &C::Fwd1Sec},      {15, &C::SetCutPoint},
    {17, &C::PlaythisPart}, {18, &C::DeleteEntryCutPoint},
    {19, &C::SavePartMP3},  {20, &C::SavePartOgg},
    {21, &C::SavePartWMA},  {22, &C::SavePartWav},
    {23, &C::Saveselec},    {25, &C::SelecMP3},
    {26, &C::selecOgg},     {27, &C::SelecWma},
    {28, &C::SelecWav},     {29, &C::SelecFormatConfig},
    {32, &C::Help},         {33, &C::Homepage},
    {36, &C::about},
};

constexpr std::pair<std::size_t, int> buttonTips[] = {
    {1, 1}, {37, 2}, {38, 4}, {39, 5}, {40, 6}, {41, 8}, {9, 10}, {10, 11}, {11, 12}, {43, 14}, {44, 15},
};

constexpr std::pair<std::size_t, PictureButton C::*> pictureTips[] = {
    {45, &C::Image13}, {47, &C::Image8}, {120, &C::Image15},
    {42, &C::Image21}, {17, &C::Image9}, {11, &C::Image10},
};

constexpr std::pair<std::size_t, Label C::*> labelCaptions[] = {
    {48, &C::Label8},  {49, &C::Label5},  {50, &C::Label6},  {51, &C::Label7},  {57, &C::Label9},
    {58, &C::Label13}, {59, &C::Label14}, {60, &C::Label19}, {61, &C::Label15}, {62, &C::Label21},
};

constexpr std::pair<std::size_t, UpDown C::*> spinTips[] = {
    {63, &C::UpDown1},
    {63, &C::UpDown2},
    {64, &C::UpDown3},
    {64, &C::UpDown4},
};

// Blanks at the end of a line count: other text is put behind them.
std::vector<QString> readLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) throw EngineError(file.errorString());
    std::vector<QString> lines;
    QTextStream stream(&file);
    while (!stream.atEnd()) lines.push_back(stream.readLine());
    lines.emplace_back();    // Kept: one empty text more than the file has lines
    return lines;
}

}

void CutterSelect::LoadLanguage(const QString& path)
{
    LangText.assign(1, QString());
    if (!FileExists(path)) {
        MsgBox(QStringLiteral("Can't find the Language file"), Icon::Critical);
        endProcess(1);
        return;
    }
    LangText = readLines(path);
    assignCaptions();
}

void CutterSelect::assignCaptions()
{
    for (const auto& [n, menu] : menuCaptions) (this->*menu).setTitle(langText(n));
    for (const auto& [n, entry] : entryCaptions) (this->*entry).setText(langText(n));
    for (const auto& [n, index] : buttonTips) {
        Toolbar1.Buttons(index).setText(langText(n));
        Toolbar1.Buttons(index).setToolTip(langText(n));
    }
    for (const auto& [n, label] : labelCaptions) (this->*label).setText(langText(n));
    for (const auto& [n, picture] : pictureTips) (this->*picture).setTip(langText(n));
    for (const auto& [n, arrows] : spinTips) (this->*arrows).setTip(langText(n));
    for (int column = 0; column < 5; ++column)
        ListView1.headerItem()->setText(column, langText(52 + static_cast<std::size_t>(column)));
    for (std::size_t i = 0; i < 3; ++i) Label10[i].setText(langText(53 + i) + QStringLiteral(" :"));
    Label12.setText(langText(56) + QStringLiteral(" :"));
    placeFileName();
    for (const auto& [tab, label] : {std::pair{&Image23, &Label5}, {&Image22, &Label6}, {&Image24, &Label7}})
        tab->setAccessibleName(label->text());
}

// The name stands right behind its caption, whose width differs from language to language.
void CutterSelect::placeFileName()
{
    const int left = Label8.x() + Label8.fontMetrics().horizontalAdvance(Label8.text()) + 10;
    Label1.setGeometry(left, Label1.y(), Label4.x() - 8 - left, Label1.height());
}

void CutterSelect::chooseLanguage(int row)
{
    const LanguageRow& language = languages[row];
    LoadLanguage(languageFile(QString::fromUtf8(language.file)));
    LangId = language.id;
    IniWrite(IniPath, QStringLiteral("Lang"), QStringLiteral("Val"), QString::fromUtf8(language.value));
}

void CutterSelect::English_Click()
{
    chooseLanguage(0);
}

void CutterSelect::Francais_Click()
{
    chooseLanguage(1);
}

void CutterSelect::spanish_Click()
{
    chooseLanguage(2);
}

void CutterSelect::portugais_Click()
{
    chooseLanguage(3);
}

// An empty value loads English a second time, after the menu's command has stored it.
void CutterSelect::loadLanguageOfSettings()
{
    const QString value = IniRead(IniPath, QStringLiteral("Lang"), QStringLiteral("Val"));
    if (value.isEmpty()) English_Click();
    const LanguageRow* chosen = &languages[0];
    for (const LanguageRow& language : languages)
        if (value == QString::fromUtf8(language.value)) chosen = &language;
    LoadLanguage(languageFile(QString::fromUtf8(chosen->file)));
    LangId = chosen->id;
}
