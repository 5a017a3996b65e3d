#include "support/IniFile.h"

#include "support/IniText.h"

#include <QFile>
#include <QSaveFile>

#include <optional>

namespace {

// A file that isn't there is an empty one; nothing when it is there and can't be read.
std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!file.exists()) return QByteArray();
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

}

QString readIniValue(const QString& file, const QString& section, const QString& key)
{
    return QString::fromUtf8(
        iniValue(contentOf(file).value_or(QByteArray()), section.toUtf8(), key.toUtf8()));
}

void writeIniValue(const QString& file, const QString& section, const QString& key, const QString& value)
{
    const auto content = contentOf(file);
    if (!content) return;
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly)) return;
    target.write(withIniValue(*content, section.toUtf8(), key.toUtf8(), value.toUtf8()));
    target.commit();
}
