#include "support/IniFile.h"

#include <QFile>
#include <QSaveFile>

#define SI_NO_CONVERSION    // the texts are UTF-8 throughout
#include <SimpleIni.h>

namespace {

// UTF-8, one value a key, no blanks around "=".
class Ini : public CSimpleIniA {
public:
    Ini() : CSimpleIniA(true, false, false)
    {
        SetSpaces(false);
        SetQuotes(false);
    }
};

bool load(Ini& ini, const QString& path)
{
    QFile file(path);
    if (!file.exists()) return true;
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray content = file.readAll();
    return content.isEmpty() || ini.LoadData(content.constData(), static_cast<std::size_t>(content.size())) >= 0;
}

}

QString readIniValue(const QString& file, const QString& section, const QString& key)
{
    Ini ini;
    if (!load(ini, file)) return {};
    return QString::fromUtf8(ini.GetValue(section.toUtf8().constData(), key.toUtf8().constData(), ""));
}

void writeIniValue(const QString& file, const QString& section, const QString& key, const QString& value)
{
    Ini ini;
    if (!load(ini, file)) return;
    ini.SetValue(section.toUtf8().constData(), key.toUtf8().constData(), value.toUtf8().constData());
    std::string content;
    if (ini.Save(content) < 0) return;
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly)) return;
    target.write(content.data(), static_cast<qint64>(content.size()));
    target.commit();
}
