#include "engine/Latin1Text.h"

#include <algorithm>
#include <iterator>

namespace {

struct Replacement {
    char16_t character;
    const char* plain;
};

constexpr Replacement replacements[] = {
    {u'Œ', "OE"}, {u'œ', "oe"}, {u'Đ', "D"},   {u'đ', "d"}, {u'Ł', "L"},   {u'ł', "l"},  {u'ı', "i"},
    {u'Ħ', "H"},  {u'ħ', "h"},  {u'ŧ', "t"},   {u'–', "-"}, {u'—', "-"},   {u'‐', "-"},  {u'‑', "-"},
    {u'−', "-"},  {u'‘', "'"},  {u'’', "'"},   {u'‚', "'"}, {u'“', "\""},  {u'”', "\""}, {u'„', "\""},
    {u'‹', "<"},  {u'›', ">"},  {u'…', "..."}, {u'•', "*"}, {u'€', "EUR"}, {u'™', "TM"},
};

QByteArray plainLetters(QChar character)
{
    const auto* found = std::find_if(std::begin(replacements), std::end(replacements),
                                     [&](const Replacement& r) { return r.character == character; });
    if (found != std::end(replacements)) return found->plain;
    // An accented letter decomposes into the letter and its accents.
    const QString parts = QString(character).normalized(QString::NormalizationForm_KD);
    const char16_t base = parts.isEmpty() ? u'?' : parts.front().unicode();
    return QByteArray(1, base < 0x80 ? static_cast<char>(base) : '?');
}

}

QByteArray latin1Text(const QString& text)
{
    QByteArray bytes;
    for (const QChar character : text.normalized(QString::NormalizationForm_C)) {
        if (character.unicode() <= 0xff)
            bytes += character.toLatin1();
        else if (!character.isLowSurrogate())
            bytes += plainLetters(character);
    }
    return bytes;
}
