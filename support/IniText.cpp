#include "support/IniText.h"

#include <QList>

namespace {

bool isSameName(const QByteArray& a, const QByteArray& b)
{
    return a.trimmed().compare(b, Qt::CaseInsensitive) == 0;
}

bool isComment(const QByteArray& line)
{
    return line.startsWith(';') || line.startsWith('#');
}

// Name of the section that a line opens; null for any other line.
QByteArray sectionOf(const QByteArray& line)
{
    const QByteArray text = line.startsWith("\xEF\xBB\xBF") ? line.mid(3).trimmed() : line.trimmed();
    const qsizetype end = text.indexOf(']');
    return text.startsWith('[') && end > 0 ? text.mid(1, end - 1) : QByteArray();
}

struct Place {
    qsizetype line = -1;      // of the key; -1: there is none
    qsizetype behind = -1;    // the line behind which the key would go; -1: there is no such section
};

Place find(const QList<QByteArray>& lines, const QByteArray& section, const QByteArray& key)
{
    Place place;
    bool isInside = false, isFirst = true;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (const QByteArray opened = sectionOf(lines[i]); !opened.isNull()) {
            isFirst = place.behind < 0;
            isInside = isSameName(opened, section);
            if (isInside && isFirst) place.behind = i;
            continue;
        }
        const qsizetype equals = lines[i].indexOf('=');
        if (!isInside || equals < 0 || isComment(lines[i].trimmed())) continue;
        if (isFirst) place.behind = i;
        if (!isSameName(lines[i].left(equals), key)) continue;
        place.line = i;
        return place;
    }
    return place;
}

}

QByteArray iniValue(const QByteArray& content, const QByteArray& section, const QByteArray& key)
{
    const QList<QByteArray> lines = content.split('\n');
    const Place place = find(lines, section, key);
    return place.line < 0 ? QByteArray()
                          : lines[place.line].mid(lines[place.line].indexOf('=') + 1).trimmed();
}

QByteArray withIniValue(const QByteArray& content, const QByteArray& section, const QByteArray& key,
                        const QByteArray& value)
{
    const QByteArray end = content.contains("\r\n") ? QByteArrayLiteral("\r") : QByteArray();
    const bool isWhole = content.isEmpty() || content.endsWith('\n');
    QList<QByteArray> lines = (isWhole ? content : content + end + '\n').split('\n');
    const QByteArray wanted = key + '=' + value + end;
    const Place place = find(lines, section, key);
    if (place.line >= 0) {
        lines[place.line] = wanted;
    } else if (place.behind >= 0) {
        lines.insert(place.behind + 1, wanted);
    } else {
        lines.insert(lines.size() - 1, '[' + section + ']' + end);
        lines.insert(lines.size() - 1, wanted);
    }
    return lines.join('\n');
}
